#include "frame/table_files.h"

#include "check/encoding.h"
#include "compare/difference_text.h"
#include "document/file_name.h"
#include "document/path.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/notice_bar.h"
#include "frame/prompts.h"
#include "grid/grid_ctrl.h"
#include "panelmodel/panel_model.h"
#include "panels/input_panel.h"
#include "panels/row_filter.h"
#include "sbdfile/output_file.h"

#include <QDir>
#include <QFileInfo>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMostBytes = 50'000'000; // a table of this size has some hundred thousand rows
const auto kNotice = u"table-import"_s;

CInputPanel* InputPanelOf(CChildFrame& child)
{
    auto* panel = qobject_cast<CInputPanel*>(child.Panel());
    return panel != nullptr && panel->Model() != nullptr ? panel : nullptr;
}

/// Empty: it can be read.
QString WhyNot(const QString& path, std::string& bytes)
{
    const QFileInfo file(path);
    if (!file.isFile())
        return u"ファイルがないか、普通のファイルではありません。"_s;
    if (file.size() > kMostBytes)
        return u"ファイルが大きすぎます（%1 MB、%2 MB まで）。"_s.arg(file.size() / 1'000'000)
            .arg(kMostBytes / 1'000'000);
    if (const FileResult result = ReadFileBytes(ToPath(path), bytes); !result.Ok())
        return QString::fromStdString(result.detail);
    const bool marked = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
    if (!marked && bytes.find('\0') != std::string::npos)
        return u"文字のファイルではありません。"_s;
    return {};
}

/// What was put in, and what was not.
QString DoneText(const PasteOutcome& outcome)
{
    QString text = u"表を取り込みました: %1 個のセルが変わりました。"_s.arg(outcome.put);
    const int left = outcome.notNumbers + outcome.locked + outcome.beyond + outcome.kept;
    if (left == 0)
        return text;
    QStringList parts;
    if (outcome.notNumbers > 0)
        parts << u"数値でない %1"_s.arg(outcome.notNumbers);
    if (outcome.locked > 0)
        parts << u"入力できないセル %1"_s.arg(outcome.locked);
    if (outcome.beyond > 0)
        parts << u"表の外 %1"_s.arg(outcome.beyond);
    if (outcome.kept > 0)
        parts << u"文字コードか長さ %1"_s.arg(outcome.kept);
    return text
           + u"入らなかった値は %1 個です（%2）。「元に戻す」で、取り込む前に戻ります。"_s.arg(left).arg(
               parts.join(u"、"_s));
}

} // namespace

void ImportTable(CChildFrame& child, const Prompts& prompts)
{
    CInputPanel* panel = InputPanelOf(child);
    if (panel == nullptr || !panel->MayClose())
        return;
    if (panel->RowFilter() != nullptr) { // rows out of sight would be written, or shifted
        panel->Grid()->TellInStatusBar(
            u"行を絞り込んでいるあいだは取り込めません。「すべて表示」のあとで取り込んでください。"_s);
        return;
    }
    panel->CommitGrid();
    const QString path = prompts.tables.openName(&child, ProjectFolder(child.Doc()));
    if (path.isEmpty())
        return;
    std::string bytes;
    if (const QString why = WhyNot(path, bytes); !why.isEmpty()) {
        prompts.warn(
            &child,
            u"表を取り込めません。%1\n%2\n\nプロジェクトは変わっていません。別のファイルを選ぶか、表計算ソフトで "
            u"CSV に保存し直してください。"_s.arg(QDir::toNativeSeparators(path), why));
        return;
    }
    const EncodingGuess guess = GuessEncoding(bytes);
    const bool marked =
        bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF") || bytes.starts_with("\xEF\xBB\xBF");
    ImportView view;
    view.file = QDir::toNativeSeparators(path);
    view.block = QString::fromStdString(NumberAndTitle(panel->Block()));
    view.text = PlainText(bytes);
    view.code = marked || (guess.encoding == Encoding::Utf8 && guess.wholeText) ? TextCode::Utf8 : TextCode::Cp932;
    view.otherCode = !marked;
    for (int column = 1; column < panel->Model()->ColumnCount(); ++column)
        view.heads << toQString(panel->Model()->Head(column)).simplified();
    view.appendRow = AppendRowOf(*panel->Model());
    view.focusRow = panel->Grid()->FocusCell().row > 0 ? panel->Grid()->FocusCell().row : view.appendRow;
    view.propose = [panel](const TextTable& table) { return ProposedImport(*panel->Model(), table); };
    view.tryOut = [panel](const std::vector<CellEntry>& cells) { return panel->TryCells(cells); };
    const std::optional<std::vector<CellEntry>> cells = prompts.tables.chooseImport(&child, view);
    panel = InputPanelOf(child);
    if (!cells || panel == nullptr)
        return;
    const PasteOutcome outcome = panel->ImportCells(*cells);
    const bool all = outcome.notNumbers + outcome.locked + outcome.beyond + outcome.kept == 0;
    if (all) {
        child.Notices().Close(kNotice);
        panel->Grid()->TellInStatusBar(DoneText(outcome));
    } else {
        child.Notices().Show({kNotice, DoneText(outcome), {}, true});
    }
    child.FocusPanel();
}

void ExportTable(CChildFrame& child, const Prompts& prompts)
{
    CInputPanel* panel = InputPanelOf(child);
    if (panel == nullptr || !panel->MayClose())
        return;
    panel->CommitGrid();
    const QString block = QString::fromStdString(NumberAndTitle(panel->Block()));
    const std::optional<ExportPlan> plan = prompts.tables.chooseExport(&child, block);
    if (!plan)
        return;
    const QString project = child.Doc().PathName().isEmpty() ? child.NameWithoutPath()
                                                             : QFileInfo(child.Doc().PathName()).completeBaseName();
    QString path = prompts.tables.saveName(
        &child, ProposedFile(child.Doc(), project + u'_' + QString::number(panel->Block()), u".csv"_s));
    if (path.isEmpty())
        return;
    const FileResult result = WriteOutputFile(ToPath(path), ExportedText(*panel->Model(), *plan));
    if (!result.Ok()) {
        prompts.warn(&child, u"表を書き出せませんでした。%1\n元のファイルがあれば、そのまま残っています。\n"
                             u"保存先の空きと権限を確かめるか、別の場所に書き出してください。\n\n(詳細: %2)"_s.arg(
                                 QDir::toNativeSeparators(path), QString::fromStdString(result.detail)));
        return;
    }
    panel->Grid()->TellInStatusBar(u"表を書き出しました: %1"_s.arg(QDir::toNativeSeparators(path)));
}

} // namespace sbd
