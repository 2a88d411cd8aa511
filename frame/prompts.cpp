#include "frame/prompts.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kProjectFilter = u"プロジェクトファイル (*.sbd *.SBD)"_s;

/// Runs a file dialog, in Japanese also where the toolkit's own translation is not installed.
QString RunDialog(QFileDialog& dialog, const QString& accept)
{
    dialog.setNameFilter(kProjectFilter);
    dialog.setLabelText(QFileDialog::LookIn, u"場所:"_s);
    dialog.setLabelText(QFileDialog::FileName, u"ファイル名(&N):"_s);
    dialog.setLabelText(QFileDialog::FileType, u"ファイルの種類:"_s);
    dialog.setLabelText(QFileDialog::Accept, accept);
    dialog.setLabelText(QFileDialog::Reject, u"キャンセル"_s);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString OpenFileName(QWidget* parent, const QString& folder)
{
    QFileDialog dialog(parent, u"プロジェクトを開く"_s, folder);
    dialog.setFileMode(QFileDialog::ExistingFile);
    return RunDialog(dialog, u"開く(&O)"_s);
}

QString SaveFileName(QWidget* parent, const QString& proposal)
{
    const QFileInfo file(proposal);
    QFileDialog dialog(parent, u"名前を付けて保存"_s, file.path());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setDefaultSuffix(u"sbd"_s); // before the question whether an existing file is to be replaced
    dialog.selectFile(file.fileName());
    return RunDialog(dialog, u"保存(&S)"_s);
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
