#include "frame/prompts.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kProjectFilter = u"プロジェクトファイル (*.sbd *.SBD)"_s;

QString OpenFileName(QWidget* parent, const QString& folder)
{
    return QFileDialog::getOpenFileName(parent, u"プロジェクトを開く"_s, folder, kProjectFilter);
}

QString SaveFileName(QWidget* parent, const QString& proposal)
{
    QFileDialog dialog(parent, u"名前を付けて保存"_s, proposal, kProjectFilter);
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(u"sbd"_s); // before the question whether an existing file is to be replaced
    dialog.selectFile(proposal);
    if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
        return {};
    return dialog.selectedFiles().constFirst();
}

SaveAnswer Ask(QWidget* parent, const QString& text)
{
    QMessageBox box(QMessageBox::Question, u"変更の保存"_s, text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    QPushButton* save = box.addButton(u"保存する(&S)"_s, QMessageBox::AcceptRole);
    QPushButton* discard = box.addButton(u"保存しない(&N)"_s, QMessageBox::DestructiveRole);
    QPushButton* cancel = box.addButton(u"キャンセル"_s, QMessageBox::RejectRole);
    box.setDefaultButton(save);
    box.setEscapeButton(cancel);
    box.exec();
    if (box.clickedButton() == save)
        return SaveAnswer::Save;
    return box.clickedButton() == discard ? SaveAnswer::Discard : SaveAnswer::Cancel;
}

void Warn(QWidget* parent, const QString& text)
{
    QMessageBox box(QMessageBox::Warning, u"KELD section"_s, text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    box.addButton(u"OK"_s, QMessageBox::AcceptRole);
    box.exec();
}

} // namespace

Prompts ScreenPrompts()
{
    return {OpenFileName, SaveFileName, Ask, Warn};
}

} // namespace sbd
