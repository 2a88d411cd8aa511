#include "frame/prompts.h"

#include "frame/box_web_sheet.h"
#include "frame/decimals_dialog.h"
#include "frame/font_dialog.h"
#include "frame/yes_no_box.h"

#include <QColorDialog>
#include <QFileDialog>
#include <QFileInfo>
#include <QHeaderView>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>
#include <QTreeView>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kProjectFilter = u"プロジェクトファイル (*.sbd *.SBD)"_s;

/// Runs a file dialog, in Japanese also where the toolkit's own translation is not installed.
QString RunDialog(QFileDialog& dialog, const QString& accept)
{
    dialog.setLabelText(QFileDialog::LookIn, u"場所:"_s);
    dialog.setLabelText(QFileDialog::FileName, u"ファイル名(&N):"_s);
    dialog.setLabelText(QFileDialog::FileType, u"ファイルの種類:"_s);
    dialog.setLabelText(QFileDialog::Accept, accept);
    dialog.setLabelText(QFileDialog::Reject, u"キャンセル"_s);
    // Sizes and dates whole, the name takes what is left. The system's own dialogs have no such list.
    if (auto* list = dialog.findChild<QTreeView*>(u"treeView"_s)) {
        list->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
        list->header()->setSectionResizeMode(0, QHeaderView::Stretch);
        list->setTextElideMode(Qt::ElideMiddle);
    }
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString OpenFileName(QWidget* parent, const QString& folder)
{
    QFileDialog dialog(parent, u"プロジェクトを開く"_s, folder);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilter(kProjectFilter);
    return RunDialog(dialog, u"開く(&O)"_s);
}

QString OpenNewProjectFile(QWidget* parent, const QString& folder, const QStringList& filters)
{
    QFileDialog dialog(parent, u"断面力ファイルを開く"_s, folder);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters(filters);
    return RunDialog(dialog, u"開く(&O)"_s);
}

QString SaveFileName(QWidget* parent, const QString& proposal)
{
    const QFileInfo file(proposal);
    QFileDialog dialog(parent, u"名前を付けて保存"_s, file.path());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(kProjectFilter);
    dialog.setDefaultSuffix(u"sbd"_s); // before the question whether an existing file is to be replaced
    dialog.selectFile(file.fileName());
    return RunDialog(dialog, u"保存(&S)"_s);
}

QString SavePictureName(QWidget* parent, const QString& proposal)
{
    const QFileInfo file(proposal);
    QFileDialog dialog(parent, u"図を保存"_s, file.path());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters({u"PNG (*.png)"_s, u"SVG (*.svg)"_s, u"PDF (*.pdf)"_s});
    dialog.setDefaultSuffix(u"png"_s);
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&dialog](const QString& filter) { dialog.setDefaultSuffix(filter.first(3).toLower()); });
    dialog.selectFile(file.completeBaseName());
    return RunDialog(dialog, u"保存(&S)"_s);
}

QString OpenTableName(QWidget* parent, const QString& folder)
{
    QFileDialog dialog(parent, u"取り込む表のファイル"_s, folder);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setNameFilters({u"表 (*.csv *.txt *.tsv *.dat *.CSV *.TXT)"_s, u"すべてのファイル (*)"_s});
    return RunDialog(dialog, u"開く(&O)"_s);
}

QString SaveTableName(QWidget* parent, const QString& proposal)
{
    const QFileInfo file(proposal);
    QFileDialog dialog(parent, u"表の書き出し"_s, file.path());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilter(u"CSV (*.csv)"_s);
    dialog.setDefaultSuffix(u"csv"_s);
    dialog.selectFile(file.fileName());
    return RunDialog(dialog, u"保存(&S)"_s);
}

QString SaveReportName(QWidget* parent, const QString& proposal, const QStringList& filters)
{
    const auto ending = [](const QString& filter) { return filter.section(u"*."_s, 1).section(u')', 0, 0); };
    const QFileInfo file(proposal);
    QFileDialog dialog(parent, u"書き出し"_s, file.path());
    dialog.setAcceptMode(QFileDialog::AcceptSave);
    dialog.setNameFilters(filters);
    dialog.setDefaultSuffix(ending(filters.value(0)));
    QObject::connect(&dialog, &QFileDialog::filterSelected, &dialog,
                     [&dialog, ending](const QString& filter) { dialog.setDefaultSuffix(ending(filter)); });
    dialog.selectFile(file.completeBaseName());
    return RunDialog(dialog, u"書き出す(&S)"_s);
}

QString ChooseFolder(QWidget* parent, const QString& folder)
{
    QFileDialog dialog(parent, u"フォルダーの選択"_s, folder);
    dialog.setFileMode(QFileDialog::Directory);
    dialog.setOption(QFileDialog::ShowDirsOnly);
    return RunDialog(dialog, u"選択(&O)"_s);
}

std::optional<BookChoice> ChooseBook(QWidget* parent, const BookSource& source)
{
    CBookDialog dialog(source, parent);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.Choice()) : std::nullopt;
}

std::optional<CompareChoice> ChooseComparison(QWidget* parent, const CompareSource& source)
{
    CCompareDialog dialog(source, parent);
    return dialog.exec() == QDialog::Accepted ? std::optional(dialog.Choice()) : std::nullopt;
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

StartChoice ChooseStart(QWidget* parent)
{
    CStartChooserDlg dialog(parent);
    dialog.exec();
    return dialog.Choice();
}

RecoveryAnswer AskRecovery(QWidget* parent, const RecoveryQuestion& question)
{
    QMessageBox box(QMessageBox::Question, u"回復用コピー"_s, question.text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    QPushButton* open = box.addButton(u"開く(&O)"_s, QMessageBox::AcceptRole);
    QPushButton* compare = question.compares ? box.addButton(u"比べる(&C)..."_s, QMessageBox::ActionRole) : nullptr;
    QPushButton* remove = box.addButton(u"破棄する(&D)"_s, QMessageBox::DestructiveRole);
    QPushButton* later = box.addButton(u"あとで(&L)"_s, QMessageBox::RejectRole);
    QPushButton* allLater =
        question.more == 0 ? nullptr : box.addButton(u"残りもすべてあとで(&A)"_s, QMessageBox::RejectRole);
    box.setDefaultButton(question.putOff ? later : open);
    box.setEscapeButton(later);
    box.exec();
    const QAbstractButton* clicked = box.clickedButton();
    if (clicked == open)
        return RecoveryAnswer::Open;
    if (compare != nullptr && clicked == compare)
        return RecoveryAnswer::Compare;
    if (allLater != nullptr && clicked == allLater)
        return RecoveryAnswer::AllLater;
    return clicked == remove ? RecoveryAnswer::Remove : RecoveryAnswer::Later;
}

/// Nothing is lost by the answer to begin with: it only shows.
ChangedFileAnswer AskChangedFile(QWidget* parent, const QString& text)
{
    QMessageBox box(QMessageBox::Warning, u"ファイルの変更"_s, text, QMessageBox::NoButton, parent);
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse);
    const std::pair<QPushButton*, ChangedFileAnswer> answers[] = {
        {box.addButton(u"比べる(&C)..."_s, QMessageBox::ActionRole), ChangedFileAnswer::Compare},
        {box.addButton(u"上書き(&O)"_s, QMessageBox::DestructiveRole), ChangedFileAnswer::Overwrite},
        {box.addButton(u"別名で保存(&A)..."_s, QMessageBox::AcceptRole), ChangedFileAnswer::SaveAs},
        {box.addButton(u"読み直す(&R)"_s, QMessageBox::ResetRole), ChangedFileAnswer::Reload},
        {box.addButton(u"キャンセル"_s, QMessageBox::RejectRole), ChangedFileAnswer::Cancel},
    };
    box.setDefaultButton(answers[0].first);
    box.setEscapeButton(answers[4].first);
    box.exec();
    for (const auto& answer : answers) {
        if (box.clickedButton() == answer.first)
            return answer.second;
    }
    return ChangedFileAnswer::Cancel;
}

bool HasPrinter()
{
#ifdef Q_OS_WIN
    return !QPrinterInfo::availablePrinterNames().isEmpty();
#else
    return true; // the dialog can always print to a file
#endif
}

bool ChoosePrinter(QWidget* parent, QPrinter& printer)
{
    QPrintDialog dialog(&printer, parent);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false); // all is on one sheet
    return dialog.exec() == QDialog::Accepted;
}

void PreviewPrint(QWidget* parent, QPrinter& printer, const std::function<void(QPrinter&)>& paint)
{
    QPrintPreviewDialog dialog(&printer, parent);
    dialog.setWindowTitle(u"印刷プレビュー"_s);
    QObject::connect(&dialog, &QPrintPreviewDialog::paintRequested, &dialog, [&paint](QPrinter* on) { paint(*on); });
    dialog.exec();
}

QColor ChooseColour(QWidget* parent, const QColor& now)
{
    return QColorDialog::getColor(now, parent, u"背景色の選択"_s);
}

bool ChooseFont(QWidget* parent, DisplaySettings& display)
{
    CFontDialog dialog(display, parent);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    display = dialog.Chosen();
    return true;
}

bool ChooseDecimals(QWidget* parent, DisplaySettings& display)
{
    CDecimalsDialog dialog(display.metreDecimals, display.millimetreDecimals, parent);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    display.metreDecimals = dialog.Metres();
    display.millimetreDecimals = dialog.Millimetres();
    return true;
}

} // namespace

Prompts ScreenPrompts()
{
    Prompts prompts;
    prompts.openFileName = OpenFileName;
    prompts.saveFileName = SaveFileName;
    prompts.ask = Ask;
    prompts.warn = Warn;
    prompts.askYesNo = [](QWidget* parent, const QString& text) { return AskYesNo(parent, text); };
    prompts.chooseStart = ChooseStart;
    prompts.openNewProjectFile = OpenNewProjectFile;
    prompts.chooseFolder = ChooseFolder;
    prompts.showBoxWebs = ShowBoxWebSheet;
    prompts.askRecovery = AskRecovery;
    prompts.askChangedFile = AskChangedFile;
    prompts.showDifferences = [](QWidget* parent, DifferenceView view) {
        CDifferenceDialog(std::move(view), parent).exec();
    };
    prompts.showKeptInputs = [](QWidget* parent, const KeptInputsView& view) {
        CKeptInputsDialog(view, parent).exec();
    };
    prompts.chooseBook = ChooseBook;
    prompts.chooseComparison = ChooseComparison;
    prompts.saveReportName = SaveReportName;
    prompts.hasPrinter = HasPrinter;
    prompts.choosePrinter = ChoosePrinter;
    prompts.previewPrint = PreviewPrint;
    prompts.savePictureName = SavePictureName;
    prompts.tables = {OpenTableName, SaveTableName, ChooseImport, ChooseExport};
    prompts.chooseColour = ChooseColour;
    prompts.chooseFont = ChooseFont;
    prompts.chooseDecimals = ChooseDecimals;
    prompts.runs = ScreenRunSeams();
    return prompts;
}

Prompts SilentPrompts(const std::function<void(const QString& text)>& told)
{
    Prompts prompts;
    prompts.openFileName = [](QWidget*, const QString&) { return QString(); };
    prompts.saveFileName = [](QWidget*, const QString&) { return QString(); };
    prompts.ask = [](QWidget*, const QString&) { return SaveAnswer::Discard; };
    prompts.warn = [told](QWidget*, const QString& text) { told(text); };
    prompts.askYesNo = [](QWidget*, const QString&) { return false; };
    prompts.chooseStart = [](QWidget*) { return StartChoice(); };
    prompts.openNewProjectFile = [](QWidget*, const QString&, const QStringList&) { return QString(); };
    prompts.chooseFolder = [](QWidget*, const QString&) { return QString(); };
    prompts.showBoxWebs = [](QWidget*, BoxWebNames&) { return false; };
    prompts.askRecovery = [](QWidget*, const RecoveryQuestion&) { return RecoveryAnswer::Later; };
    prompts.askChangedFile = [](QWidget*, const QString&) { return ChangedFileAnswer::Cancel; };
    prompts.showDifferences = [](QWidget*, const DifferenceView&) {};
    prompts.showKeptInputs = [](QWidget*, const KeptInputsView&) {};
    prompts.chooseBook = [](QWidget*, const BookSource&) { return std::optional<BookChoice>(); };
    prompts.chooseComparison = [](QWidget*, const CompareSource&) { return std::optional<CompareChoice>(); };
    prompts.saveReportName = [](QWidget*, const QString&, const QStringList&) { return QString(); };
    prompts.hasPrinter = [] { return true; };
    prompts.choosePrinter = [](QWidget*, QPrinter&) { return false; };
    prompts.previewPrint = [](QWidget*, QPrinter&, const std::function<void(QPrinter&)>&) {};
    prompts.savePictureName = [](QWidget*, const QString&) { return QString(); };
    prompts.tables = SilentTablePrompts();
    prompts.chooseColour = [](QWidget*, const QColor&) { return QColor(); };
    prompts.chooseFont = [](QWidget*, DisplaySettings&) { return false; };
    prompts.chooseDecimals = [](QWidget*, DisplaySettings&) { return false; };
    prompts.runs = ScreenRunSeams();
    prompts.runs.askYesNo = prompts.askYesNo;
    prompts.runs.askOkCancel = prompts.askYesNo;
    prompts.runs.tell = prompts.warn;
    prompts.runs.runEngine = [](QWidget*, const EngineStart&) { return EngineEnd(); };
    return prompts;
}

} // namespace sbd
