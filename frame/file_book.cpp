// How the file commands write the input as a book, and compare a project with another one.
#include "book/difference_report.h"
#include "document/file_messages.h"
#include "document/file_name.h"
#include "document/kept_inputs.h"
#include "document/path.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/file_commands.h"
#include "frame/notice_bar.h"
#include "frame/run_notices.h"
#include "project/sbd_data.h"
#include "sbdfile/output_file.h"
#include "upperview/book_paper.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QMdiArea>
#include <QPointer>
#include <QProgressDialog>

#include <algorithm>
#include <optional>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kBookKey = u"book"_s;
const auto kPdfFilter = u"PDF (*.pdf)"_s;
const auto kSheetsFilter = u"表計算ファイル (*.xlsx)"_s;
const auto kTextFilter = u"テキスト (*.txt)"_s;

std::string Utf8(const QString& text)
{
    return text.toStdString();
}

QString ProjectName(CChildFrame& child)
{
    const QString path = child.Doc().PathName();
    return path.isEmpty() ? child.NameWithoutPath() : QFileInfo(path).completeBaseName();
}

QString NotWritten(const QString& file, const FileResult& result)
{
    return u"書き出せませんでした。\n%1\n%2\n\nプロジェクトには影響ありません。元からあったファイルはそのまま残っています。"
           u"\n\n保存先の空きと権限、ほかのプログラムで開いていないかを確かめてください。"_s.arg(
               QDir::toNativeSeparators(file), QString::fromStdString(result.detail));
}

} // namespace

std::optional<CSbdData> CFileCommands::ReadOther(CChildFrame& child, const QString& path)
{
    std::string bytes;
    const FileResult result = ReadFileBytes(ToPath(path), bytes);
    if (result.Ok())
        return child.Doc().DataOf(bytes);
    Warn(FileMessage(FileOperation::Open, path, result));
    return std::nullopt;
}

void CFileCommands::WriteBook(CChildFrame& child)
{
    child.CommitPanel();
    const QPointer<CChildFrame> frame = &child;
    const CSbdData data = child.Doc().Data(); // as it stands now, whatever comes while it is written
    const QString path = child.Doc().PathName();
    BookSource source;
    source.project = child.Doc().Title();
    source.filled = FilledBlocks(data);
    source.hasFile = !path.isEmpty() && QFileInfo::exists(path);
    if (!path.isEmpty())
        source.kept = KeptInputsOf(path, prompts_.runs.keptFolder());
    const std::optional<BookChoice> choice = prompts_.chooseBook(area_.window(), source);
    if (!choice || !frame)
        return;

    BookFacts facts = FactsOf(data, Utf8(ProjectName(child)), ToPath(path),
                              "KELD section " + Utf8(QApplication::applicationVersion()));
    std::vector<int> blocks = source.filled;
    facts.blocks = "入力済みのすべてのブロック";
    if (choice->scope == BookChoice::Scope::Chosen) {
        blocks = choice->blocks;
        facts.blocks = "選んだブロック";
    } else if (choice->scope == BookChoice::Scope::Changed) {
        const bool kept = choice->since >= 0 && choice->since < source.kept.size();
        const std::optional<CSbdData> before = ReadOther(child, kept ? source.kept[choice->since].file : path);
        if (!before)
            return;
        blocks = ChangedBlocks(*before, data);
        const QString since = kept ? KeptInputName(source.kept[choice->since]) : u"保存してあるファイル"_s;
        facts.blocks = Utf8(since + u" から変わったブロック"_s);
        if (blocks.empty()) {
            Warn(u"「%1」から変わったブロックはありません。書き出しませんでした。"_s.arg(since));
            return;
        }
    }
    const bool pdf = choice->kind == BookChoice::Kind::Pdf;
    const QString ending = pdf ? u".pdf"_s : u".xlsx"_s;
    const QString file = prompts_.saveReportName(
        area_.window(), ProposedFile(child.Doc(), ProjectName(child) + u"_入力データ"_s, ending),
        {pdf ? kPdfFilter : kSheetsFilter});
    if (file.isEmpty() || !frame)
        return;

    QProgressDialog progress(u"入力データを書き出しています..."_s, u"キャンセル"_s, 0, 100, area_.window());
    progress.setWindowTitle(u"入力データの帳票"_s);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(400); // ms
    const BookProgress step = [&](int done, int of) {
        progress.setMaximum(std::max(of, 1));
        progress.setValue(std::min(done, of - 1)); // shows it when it takes its time, and takes the cancel
        QApplication::processEvents();             // the button's too, where the value is the same as before
        return !progress.wasCanceled();
    };
    QString written = u"%1 ブロック"_s.arg(blocks.size());
    std::optional<FileResult> result;
    if (pdf) {
        const BookLook look{child.Doc().display.fontFaceName, choice->sketches, choice->landscape};
        if (const std::optional<BookReport> report = WriteBookPdf(file, data, blocks, facts, look, step)) {
            result = report->result;
            written += u"、%1 ページ"_s.arg(report->pages);
            if (!report->bookmarks)
                written += u"、しおりと目次のリンクは付けられませんでした"_s;
        }
    } else {
        result = WriteBookSheets(ToPath(file), data, blocks, facts, step);
    }
    progress.reset();
    if (!result) // given up: no file was written
        return;
    if (!result->Ok())
        Warn(NotWritten(file, *result));
    else if (frame)
        child.Notices().Show({kBookKey,
                              u"入力データを書き出しました (%1)。\n"_s.arg(written) + QDir::toNativeSeparators(file),
                              {},
                              false});
}

void CFileCommands::Compare(CChildFrame& child)
{
    child.CommitPanel();
    const QPointer<CChildFrame> frame = &child;
    const QString path = child.Doc().PathName();
    CompareSource source;
    source.project = child.Doc().Title();
    if (!path.isEmpty()) {
        source.kept = KeptInputsOf(path, prompts_.runs.keptFolder());
        if (QFileInfo::exists(path))
            source.file = QFileInfo(path).lastModified().toString(u"yyyy/MM/dd HH:mm"_s);
    }
    const std::optional<CompareChoice> choice = prompts_.chooseComparison(area_.window(), source);
    if (!choice || !frame)
        return;
    QString other = path;
    QString name = u"保存してあるファイル"_s;
    const bool another = choice->with == CompareChoice::With::OtherFile;
    if (another) {
        other = prompts_.openFileName(area_.window(), Folder());
        name = QFileInfo(other).fileName();
    } else if (choice->with == CompareChoice::With::Kept) {
        const KeptInput input = source.kept.value(choice->kept);
        other = input.file;
        name = KeptInputName(input);
    }
    if (other.isEmpty() || !frame)
        return;
    const std::optional<CSbdData> before = ReadOther(child, other);
    if (!before)
        return;
    // What was taken over leaves the list, and the rest is shown again: each time one step of the history.
    bool first = true;
    for (bool again = true; again && frame;) {
        again = false;
        CompareWith(child, *before, name, [&](DifferenceView view) {
            if (view.differences.empty() && !first)
                return;
            if (another)
                view.verb = u"取り込む"_s;
            view.save = [this, frame, name](const std::vector<Difference>& differences) {
                if (frame)
                    SaveDifferences(*frame, name, differences);
            };
            view.takeBack = [&again, act = view.takeBack](const std::vector<Difference>& chosen) {
                again = true;
                act(chosen);
            };
            prompts_.showDifferences(area_.window(), std::move(view));
        });
        first = false;
    }
}

void CFileCommands::SaveDifferences(CChildFrame& child, const QString& name, const std::vector<Difference>& differences)
{
    const QString file =
        prompts_.saveReportName(area_.window(), ProposedFile(child.Doc(), ProjectName(child) + u"_比較"_s, u".xlsx"_s),
                                {kSheetsFilter, kTextFilter});
    if (file.isEmpty())
        return;
    const ReportSides sides{Utf8(ProjectName(child)), Utf8(name), "画面",
                            Utf8(QDateTime::currentDateTime().toString(u"yyyy/MM/dd HH:mm"_s))};
    const FileResult result = file.endsWith(u".txt"_s, Qt::CaseInsensitive)
                                  ? WriteOutputFile(ToPath(file), DifferenceReport(sides, differences))
                                  : WriteDifferenceSheets(ToPath(file), sides, differences);
    if (!result.Ok())
        Warn(NotWritten(file, result));
}

} // namespace sbd
