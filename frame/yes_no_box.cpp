#include "frame/yes_no_box.h"

#include <QMessageBox>
#include <QPushButton>

namespace sbd {

using namespace Qt::StringLiterals;

bool AskYesNo(QWidget* parent, const QString& text, YesNoDefault answer)
{
    QMessageBox box(QMessageBox::Question, u"KELD section"_s, text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    QPushButton* yes = box.addButton(u"はい(&Y)"_s, QMessageBox::YesRole);
    QPushButton* no = box.addButton(u"いいえ(&N)"_s, QMessageBox::NoRole);
    box.setDefaultButton(answer == YesNoDefault::Yes ? yes : no);
    box.setEscapeButton(no);
    box.exec();
    return box.clickedButton() == yes;
}

} // namespace sbd
