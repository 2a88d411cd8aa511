// sbdpage: draws a help page to a picture, a PDF, text or JSON, and reports what the pages hold; draws the figures of
// the analysis.
#include "document/section_doc.h"
#include "project/catalogue.h"
#include "project/console.h"
#include "project/text.h"
#include "sbdpage_book.h"
#include "sbdpage_drawings.h"
#include "sbdpage_figures.h"
#include "sbdpage_pictures.h"
#include "upperview/draw_painter.h"
#include "upperview/help_page.h"
#include "upperview/page/page_check.h"
#include "upperview/page/page_families.h"
#include "upperview/page/page_report.h"
#include "upperview/page/page_store.h"
#include "upperview/page_unit.h"

#include <QBuffer>
#include <QCommandLineParser>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>

#include <map>
#include <optional>
#include <set>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

constexpr double kScreenDpi = 96;
constexpr int kPdfDpi = 1200;
constexpr int kBadCall = 2;

struct Job {
    const Page* page = nullptr;
    HelpCell cell;
    QSize client = QSize(900, 400);
    CKELDSectionDoc doc;
    QFont font;
    QColor ground = Qt::white;

    [[nodiscard]] PageView View() const
    {
        return {doc.Data(), cell.block, cell.row, cell.column, client.width(), client.height(), cell.searchText};
    }
};

int Fail(const QString& message)
{
    PrintText(stderr, (u"sbdpage: "_s + message + u'\n').toStdString());
    return kBadCall;
}

void Print(const std::string& text)
{
    PrintText(stdout, text);
}

CDrawRecorder Record(const Job& job, PageExtent& extent)
{
    CDrawRecorder recorder(MetricsOf(job.font));
    extent = DrawPage(recorder, *job.page, job.View());
    return recorder;
}

std::string TextOf(const Job& job)
{
    std::string text;
    for (const ColouredLine& line : PageText(*job.page, job.View()))
        text += FromCp932(line.text) + "\n";
    return text;
}

PageExtent ExtentOf(const Job& job)
{
    PageExtent extent;
    (void)Record(job, extent);
    return extent;
}

void Paint(QPainter& painter, const Job& job)
{
    CPainterContext context(painter, job.font);
    DrawPage(context, *job.page, job.View());
}

bool WritePng(const Job& job, const QString& path)
{
    const PageExtent extent = ExtentOf(job);
    const double scale = kScreenDpi / kPageUnitsPerInch;
    QImage image(qCeil(extent.width * scale) + 1, qCeil(extent.height * scale) + 1, QImage::Format_RGB32);
    image.fill(job.ground);
    QPainter painter(&image);
    painter.setBackground(job.ground);
    painter.scale(scale, scale);
    Paint(painter, job);
    painter.end();
    QBuffer buffer;
    return image.save(&buffer, "PNG") && WriteFile(path, buffer.data());
}

/// One sheet as large as the page, whatever its length, with a margin of 10 mm.
bool WritePdf(const Job& job, const QString& path)
{
    constexpr double margin = 10; // mm
    constexpr double unitsPerMillimetre = 10;
    const PageExtent extent = ExtentOf(job);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kPdfDpi);
    const QSizeF size(extent.width / unitsPerMillimetre + 2 * margin, extent.height / unitsPerMillimetre + 2 * margin);
    writer.setPageSize(QPageSize(size, QPageSize::Millimeter, {}, QPageSize::ExactMatch));
    writer.setPageMargins({0, 0, 0, 0});
    QPainter painter;
    if (!painter.begin(&writer))
        return false;
    painter.scale(kPdfDpi / kPageUnitsPerInch, kPdfDpi / kPageUnitsPerInch);
    painter.translate(margin * unitsPerMillimetre, margin * unitsPerMillimetre);
    Paint(painter, job);
    return painter.end() && WriteFile(path, buffer.data());
}

/// "-" is the standard output.
bool WriteRecord(const Job& job, const QString& path)
{
    PageExtent extent;
    const std::string json = Record(job, extent).ToJson();
    if (path == u"-"_s)
        return PrintText(stdout, json);
    return WriteFile(path, QByteArray::fromStdString(json));
}

/// Faults of the labels of a page: of each of its branches and columns, in the projects in which it takes its forms and in
/// that of the call, at panes of several widths. Each is counted once a row.
int CountLabelFaults(const Job& job, bool print)
{
    const int block = job.cell.block;
    std::set<int> rows = {0, 1, 2};
    for (const PageBranch& branch : job.page->branches)
        rows.insert(branch.rows.begin(), branch.rows.end());
    std::vector<CSbdData> projects = FormsOf(*job.page, block);
    projects.push_back(job.doc.Data());
    const TextMetrics metrics = MetricsOf(job.font);
    int count = 0;
    for (const int row : rows) {
        std::set<std::string> faults;
        for (const CSbdData& data : projects)
            for (int column = 0; column <= GridColumns(block); ++column)
                for (const int width : {400, 700, job.client.width(), 1500}) {
                    CDrawRecorder recorder(metrics);
                    const PageExtent extent =
                        DrawPage(recorder, *job.page, {data, block, row, column, width, job.client.height()});
                    const std::vector<std::string> found = LabelFaults(recorder, extent, true);
                    faults.insert(found.begin(), found.end());
                }
        count += static_cast<int>(faults.size());
        for (const std::string& fault : faults)
            if (print)
                Print(std::to_string(block) + " row " + std::to_string(row) + ": " + fault + "\n");
    }
    return count;
}

/// Page files from a folder, and the pages that they make.
struct PageFolder {
    std::vector<std::string> names;
    std::vector<std::string> texts;
    std::optional<CPageStore> store;
};

std::string ReadAll(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll().toStdString() : std::string();
}

/// False if the file has faults; they are printed.
bool IsSound(const QString& path, const std::string& text, const std::map<std::string, Sketch>& shared)
{
    const std::vector<PageFault> faults = CheckPage(QFileInfo(path).fileName().toStdString(), text, shared);
    for (const PageFault& fault : faults)
        PrintText(stderr, path.toStdString() + ":" + std::to_string(fault.line) + ": error: " + fault.message + "\n");
    return faults.empty();
}

/// Reads all page files of a folder. A file with a fault is told and left out: its blocks have the page from the tables.
bool ReadFolder(const QString& path, PageFolder& folder)
{
    const QFileInfoList files = QDir(path).entryInfoList({u"*.toml"_s}, QDir::Files, QDir::Name);
    const std::string shared(kSharedFile);
    const std::map<std::string, Sketch> sketches =
        ParsePage(ReadAll(QDir(path).filePath(QString::fromStdString(shared))), 0).page.sketches;
    for (const QFileInfo& file : files) {
        std::string text = ReadAll(file.filePath());
        if (!IsSound(file.filePath(), text, sketches) && file.fileName().toStdString() != shared)
            continue;
        folder.names.push_back(file.fileName().toStdString());
        folder.texts.push_back(std::move(text));
    }
    std::vector<PageSource> sources;
    for (std::size_t i = 0; i < folder.names.size(); ++i)
        sources.push_back({folder.names[i], folder.texts[i]});
    folder.store.emplace(sources);
    return !files.isEmpty();
}

/// A page file that is being written; nothing if it has faults, which are printed. Shared sketches are those of its folder.
std::optional<Page> ReadPageFile(const QString& path, int block)
{
    if (!QFileInfo(path).isReadable()) {
        Fail(u"cannot read "_s + path);
        return std::nullopt;
    }
    const std::string text = ReadAll(path);
    const QString beside = QFileInfo(path).dir().filePath(QString::fromUtf8(kSharedFile.data(), kSharedFile.size()));
    const std::map<std::string, Sketch> shared =
        QFileInfo::exists(beside) ? ParsePage(ReadAll(beside), 0).page.sketches : BuiltInPages().SharedSketches();
    if (!IsSound(path, text, shared))
        return std::nullopt;
    Page page = ParsePage(text, block).page;
    TakeOverShared(page, shared);
    return page;
}

std::string Join(const std::vector<int>& numbers)
{
    std::string text;
    for (const int number : numbers)
        text += (text.empty() ? "" : ",") + std::to_string(number);
    return text.empty() ? "-" : text;
}

void AppendNumber(std::string& line, int number, std::size_t width)
{
    AppendPadded(line, std::to_string(number), width, false);
}

/// "part/whole per cent", or nothing of nothing.
void AppendShare(std::string& line, int part, int whole)
{
    AppendPadded(line, whole == 0 ? "-" : std::to_string(part) + "/" + std::to_string(whole), 10, false);
    AppendPadded(line, whole == 0 ? "" : std::to_string(PercentOf(part, whole)) + "%", 5, false);
}

constexpr const char* kSumHead = "  own  lines  strings  sketches  states      explained            red  only words"
                                 "           told  ";

std::string SumLine(const PageSum& sum)
{
    std::string line;
    AppendPadded(line, std::to_string(sum.own) + "/" + std::to_string(sum.pages), 8, false);
    AppendNumber(line, sum.lines, 7);
    AppendNumber(line, sum.strings, 9);
    AppendNumber(line, sum.sketches, 10);
    AppendNumber(line, sum.states, 8);
    AppendShare(line, sum.explained, sum.unitColumns);
    AppendShare(line, sum.red, sum.unitColumns);
    AppendNumber(line, sum.wordsOnly, 12);
    AppendShare(line, sum.told, sum.optionRows);
    return line + "  ";
}

void PrintReport(CPageStore& pages)
{
    PageSum all;
    std::map<const PageFamily*, PageSum> families;
    Print(std::string("block") + kSumHead + "labels in the way, columns not explained, not red, rows not told\n");
    for (const int block : BlocksWithPage()) {
        Job job;
        job.page = pages.Find(block);
        job.cell.block = block;
        job.font = HelpFont(job.doc.display);
        const PageReport report = ReportOf(*job.page, block);
        PageSum sum;
        sum += report;
        all += report;
        families[FamilyOf(block)] += report;
        std::string line;
        AppendNumber(line, block, 5);
        line += SumLine(sum);
        if (report.full)
            line += std::to_string(CountLabelFaults(job, false)) + "; " + Join(report.unexplained) + "; "
                    + Join(report.notRed) + "; " + Join(report.untold);
        Print(line + "\n");
    }
    Print(std::string("\nfrom   to") + kSumHead + "\n");
    for (const PageFamily& family : PageFamilies())
        Print(std::to_string(family.first) + "  " + std::to_string(family.last) + " " + SumLine(families[&family])
              + std::string(family.name) + "\n");
    Print("all      " + SumLine(all) + "\n");
}

/// Draws or prints the cells of a list, one a line: BLOCK ROW COLUMN [PNG]. Gives the exit code.
int RunCells(Job& job, CPageStore& pages, const std::optional<Page>& edited, const QString& list)
{
    QFile file(list);
    if (list == u"-"_s ? !file.open(stdin, QIODevice::ReadOnly) : !file.open(QIODevice::ReadOnly))
        return Fail(u"cannot read "_s + list);
    int code = 0;
    while (!file.atEnd()) {
        const QString line = QString::fromUtf8(file.readLine()).simplified();
        if (line.isEmpty() || line.startsWith(u'#'))
            continue;
        const QStringList words = line.split(u' ');
        const int block = PageBlock(words.front().toInt());
        if (words.size() < 3 || !HasPage(block)) {
            code = Fail(u"no cell: "_s + line);
            continue;
        }
        job.page = edited ? &*edited : pages.Find(block);
        job.cell.block = block;
        job.cell.row = words[1].toInt();
        job.cell.column = words[2].toInt();
        if (words.size() == 3)
            Print("== " + line.toStdString() + "\n" + TextOf(job) + "\n");
        else if (!WritePng(job, words.mid(3).join(u' ')))
            code = Fail(u"cannot write "_s + words.mid(3).join(u' '));
    }
    return code;
}

} // namespace

int main(int count, char** values)
{
#ifndef Q_OS_WIN
    if (qEnvironmentVariableIsEmpty("DISPLAY") && qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    const QGuiApplication application(count, values);
    if (const std::optional<int> code = RunFigureCommand(QCoreApplication::arguments()))
        return *code;
    if (const std::optional<int> code = RunDrawingCommand(QCoreApplication::arguments()))
        return *code;
    if (const std::optional<int> code = RunBookCommand(QCoreApplication::arguments()))
        return *code;
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Draws the help page of a block. For the figures of the analysis see "
                                     u"sbdpage figure, diagram, sheets and table with --help, for the bridge as it is "
                                     u"put in sbdpage elevation, section or plan with --help, for "
                                     u"the input as a book sbdpage book --help."_s);
    parser.addHelpOption();
    parser.addPositionalArgument(u"BLOCK"_s, u"number of the block"_s);
    parser.addOptions({{u"project"_s, u"Quotes values of this project."_s, u"file"_s},
                       {u"file"_s, u"Draws this page file in place of the one built in."_s, u"file"_s},
                       {u"row"_s, u"Grid row under the cursor, from 1."_s, u"number"_s, u"0"_s},
                       {u"column"_s, u"Grid column under the cursor, from 1."_s, u"number"_s, u"0"_s},
                       {u"width"_s, u"Width of the pane in pixels."_s, u"number"_s, u"900"_s},
                       {u"height"_s, u"Height of the pane in pixels."_s, u"number"_s, u"400"_s},
                       {u"search"_s, u"First cell of block 999."_s, u"text"_s},
                       {u"dark"_s, u"Draws pictures on a dark ground."_s},
                       {u"text"_s, u"Prints the text."_s},
                       {u"png"_s, u"Writes a picture."_s, u"file"_s},
                       {u"pdf"_s, u"Writes a PDF of one sheet."_s, u"file"_s},
                       {u"record"_s, u"Writes what is drawn as JSON; - is the standard output."_s, u"file"_s},
                       {u"pages"_s, u"Takes all pages from this folder in place of those built in."_s, u"folder"_s},
                       {u"cells"_s,
                        u"Many cells in one call: lines BLOCK ROW COLUMN [PNG] of a file, - for the standard input. "
                        u"Without PNG it prints the text."_s,
                        u"file"_s},
                       {u"faults"_s, u"Prints labels that overlap, that a line crosses or that leave the page."_s},
                       {u"report"_s, u"Prints what all pages hold."_s}});
    parser.process(application);

    PageFolder folder;
    if (const QString path = parser.value(u"pages"_s); !path.isEmpty() && !ReadFolder(path, folder))
        return Fail(u"no pages in "_s + path);
    CPageStore& pages = folder.store ? *folder.store : BuiltInPages();
    if (parser.isSet(u"report"_s)) {
        PrintReport(pages);
        return 0;
    }
    const QStringList arguments = parser.positionalArguments();
    const int block = arguments.size() == 1 ? PageBlock(arguments.front().toInt()) : 0;
    const QString cells = parser.value(u"cells"_s);
    if (cells.isEmpty() && !HasPage(block))
        return Fail(u"no page for this block; sbdpage --report lists the blocks"_s);

    Job job;
    std::optional<Page> edited;
    if (const QString file = parser.value(u"file"_s); !file.isEmpty()) {
        const std::vector<int> served = BlocksOfFileName(QFileInfo(file).fileName().toStdString());
        edited = ReadPageFile(file, HasPage(block) || served.empty() ? block : CanonicalBlock(served.front()));
        if (!edited)
            return kBadCall;
    }
    job.page = edited ? &*edited : pages.Find(block);
    job.cell = {block, parser.value(u"row"_s).toInt(), parser.value(u"column"_s).toInt()};
    job.client = QSize(parser.value(u"width"_s).toInt(), parser.value(u"height"_s).toInt());
    job.cell.searchText = fromQString(parser.value(u"search"_s)).value_or(std::string());
    job.font = HelpFont(job.doc.display);
    if (parser.isSet(u"dark"_s))
        job.ground = QColor(0x20, 0x20, 0x20);
    if (const QString project = parser.value(u"project"_s); !project.isEmpty() && !job.doc.OpenDocument(project).Ok())
        return Fail(u"cannot read "_s + project);

    if (!cells.isEmpty())
        return RunCells(job, pages, edited, cells);
    if (parser.isSet(u"faults"_s))
        return CountLabelFaults(job, true) == 0 ? 0 : 1;
    bool written = true;
    if (parser.isSet(u"png"_s))
        written = WritePng(job, parser.value(u"png"_s)) && written;
    if (parser.isSet(u"pdf"_s))
        written = WritePdf(job, parser.value(u"pdf"_s)) && written;
    if (parser.isSet(u"record"_s))
        written = WriteRecord(job, parser.value(u"record"_s)) && written;
    if (parser.isSet(u"text"_s) || !(parser.isSet(u"png"_s) || parser.isSet(u"pdf"_s) || parser.isSet(u"record"_s)))
        Print(TextOf(job));
    return written ? 0 : Fail(u"cannot write the output"_s);
}
