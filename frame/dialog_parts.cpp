#include "frame/dialog_parts.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>

namespace sbd {

using namespace Qt::StringLiterals;

QLabel* PlainText(const QString& text)
{
    auto* label = new QLabel(text);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    return label;
}

DialogButtons MakeDialogButtons(QDialog& dialog, const QStringList& accept)
{
    DialogButtons buttons{new QDialogButtonBox(&dialog), {}};
    for (const QString& text : accept)
        buttons.accept.append(buttons.box->addButton(text, QDialogButtonBox::AcceptRole));
    buttons.accept.constFirst()->setDefault(true);
    buttons.box->addButton(u"キャンセル"_s, QDialogButtonBox::RejectRole);
    QObject::connect(buttons.box, &QDialogButtonBox::rejected, &dialog, &QDialog::reject);
    if (accept.size() == 1)
        QObject::connect(buttons.box, &QDialogButtonBox::accepted, &dialog, &QDialog::accept);
    return buttons;
}

} // namespace sbd
