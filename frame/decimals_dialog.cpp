#include "frame/decimals_dialog.h"

#include <QDialogButtonBox>
#include <QGroupBox>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace sbd {

using namespace Qt::StringLiterals;

CDecimalsDialog::CDecimalsDialog(int metres, int millimetres, QWidget* parent) : QDialog(parent)
{
    setWindowTitle(u"小数点桁数"_s);
    auto* layout = new QVBoxLayout(this);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    metres_ = AddField(u"m の場合"_s, metres);
    millimetres_ = AddField(u"mm の場合"_s, millimetres);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setText(u"OK"_s);
    buttons->button(QDialogButtonBox::Cancel)->setText(u"キャンセル"_s);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    layout->addWidget(buttons);
    metres_->setFocus();
    metres_->selectAll();
}

QSpinBox* CDecimalsDialog::AddField(const QString& title, int value)
{
    auto* group = new QGroupBox(title);
    auto* groupLayout = new QVBoxLayout(group);
    auto* field = new QSpinBox;
    field->setRange(0, kMost);
    field->setValue(value);
    field->setSuffix(u" 桁"_s);
    field->setAccessibleName(title);
    groupLayout->addWidget(field);
    layout()->addWidget(group);
    return field;
}

int CDecimalsDialog::Metres() const
{
    return metres_->value();
}

int CDecimalsDialog::Millimetres() const
{
    return millimetres_->value();
}

} // namespace sbd
