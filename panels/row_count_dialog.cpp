#include "panels/row_count_dialog.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QVBoxLayout>

namespace sbd {

int AskRowCount(QWidget* parent)
{
    constexpr int mostRows = 10000; // at a time
    constexpr int usualRows = 10;
    QDialog dialog(parent);
    dialog.setWindowTitle(QObject::tr("入力行数"));
    auto* count = new QSpinBox;
    count->setRange(1, mostRows);
    count->setValue(usualRows);
    count->selectAll();
    auto* label = new QLabel(QObject::tr("入力行数を入力してください．"));
    label->setBuddy(count);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Cancel)->setText(QObject::tr("キャンセル"));
    QObject::connect(buttons, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    QObject::connect(buttons, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);

    auto* layout = new QVBoxLayout(&dialog);
    layout->addWidget(label);
    layout->addWidget(count);
    layout->addWidget(buttons);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    return dialog.exec() == QDialog::Accepted ? count->value() : 0;
}

} // namespace sbd
