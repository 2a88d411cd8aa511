// sbdpage: draws a help page to a picture, a PDF, text or JSON, and reports what the pages hold; draws the figures of
// the analysis.
#include "document/section_doc.h"
#include "project/catalogue.h"
#include "project/console.h"
#include "project/text.h"
#include "sbdpage_figures.h"
#include "upperview/draw_painter.h"
#include "upperview/help_page.h"
#include "upperview/page/page_check.h"
#include "upperview/page/page_report.h"
#include "upperview/page/page_store.h"
#include "upperview/page_unit.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>
#include <QSaveFile>

#include <optional>

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
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.scale(scale, scale);
    Paint(painter, job);
    painter.end();
    return image.save(path, "PNG");
}

/// One sheet as large as the page, whatever its length, with a margin of 10 mm.
bool WritePdf(const Job& job, const QString& path)
{
    constexpr double margin = 10; // mm
    constexpr double unitsPerMillimetre = 10;
    const PageExtent extent = ExtentOf(job);
    QPdfWriter writer(path);
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
    return painter.end();
}

bool WriteRecord(const Job& job, const QString& path)
{
    PageExtent extent;
    const std::string json = Record(job, extent).ToJson();
    QSaveFile file(path);
    return file.open(QIODevice::WriteOnly) && file.write(json.data(), static_cast<qint64>(json.size())) >= 0
           && file.commit();
}

/// Faults of the labels of a page: of each of its branches, in a project at its defaults.
int CountLabelFaults(Job& job, bool print)
{
    int count = 0;
    std::vector<int> rows = {0};
    for (const PageBranch& branch : job.page->branches)
        if (!branch.rows.empty())
            rows.push_back(branch.rows.front());
    for (const int row : rows) {
        job.cell.row = row;
        PageExtent extent;
        const CDrawRecorder recorder = Record(job, extent);
        for (const std::string& fault : LabelFaults(recorder, extent, true)) {
            ++count;
            if (print)
                Print(std::to_string(job.cell.block) + " row " + std::to_string(row) + ": " + fault + "\n");
        }
    }
    return count;
}

/// A page file that is being written; nothing if it has faults, which are printed.
std::optional<Page> ReadPageFile(const QString& path, int block)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        Fail(u"cannot read "_s + path);
        return std::nullopt;
    }
    const std::string text = file.readAll().toStdString();
    const std::string name = QFileInfo(path).fileName().toStdString();
    const std::vector<PageFault> faults = CheckPage(name, text, SharedSketches());
    for (const PageFault& fault : faults)
        PrintText(stderr, path.toStdString() + ":" + std::to_string(fault.line) + ": error: " + fault.message + "\n");
    if (!faults.empty())
        return std::nullopt;
    return ParsePage(text, block).page;
}

std::string Join(const std::vector<int>& numbers)
{
    std::string text;
    for (const int number : numbers)
        text += (text.empty() ? "" : ",") + std::to_string(number);
    return text.empty() ? "-" : text;
}

void PrintReport()
{
    int full = 0;
    int pages = 0;
    Print("block  page   branches  lines  sketches  columns explained   rows without a branch   labels in the way\n");
    for (const int block : BlocksWithPage()) {
        const PageReport report = ReportOf(block);
        std::string line;
        AppendPadded(line, std::to_string(block), 5, false);
        AppendPadded(line, report.full ? "  full" : "  table", 8, true);
        AppendPadded(line, std::to_string(report.branches), 9, false);
        AppendPadded(line, std::to_string(report.lines), 7, false);
        AppendPadded(line, std::to_string(report.sketches), 10, false);
        line += "  ";
        AppendPadded(line, Join(report.columns) + "  ", 20, true);
        AppendPadded(line, Join(report.rowsWithout), 24, true);
        Job job;
        job.page = FindPage(block);
        job.cell.block = block;
        job.font = HelpFont(job.doc.display);
        line += report.full ? std::to_string(CountLabelFaults(job, false)) : "-";
        Print(line + "\n");
        full += report.full ? 1 : 0;
        ++pages;
    }
    Print(std::to_string(pages) + " pages, " + std::to_string(full) + " of them full\n");
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
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Draws the help page of a block. For the figures of the analysis see "
                                     u"sbdpage figure --help and sbdpage diagram --help."_s);
    parser.addHelpOption();
    parser.addPositionalArgument(u"BLOCK"_s, u"number of the block"_s);
    parser.addOptions({{u"project"_s, u"Quotes values of this project."_s, u"file"_s},
                       {u"file"_s, u"Draws this page file in place of the one built in."_s, u"file"_s},
                       {u"row"_s, u"Grid row under the cursor, from 1."_s, u"number"_s, u"0"_s},
                       {u"column"_s, u"Grid column under the cursor, from 1."_s, u"number"_s, u"0"_s},
                       {u"width"_s, u"Width of the pane in pixels."_s, u"number"_s, u"900"_s},
                       {u"height"_s, u"Height of the pane in pixels."_s, u"number"_s, u"400"_s},
                       {u"search"_s, u"First cell of block 999."_s, u"text"_s},
                       {u"text"_s, u"Prints the text."_s},
                       {u"png"_s, u"Writes a picture."_s, u"file"_s},
                       {u"pdf"_s, u"Writes a PDF of one sheet."_s, u"file"_s},
                       {u"record"_s, u"Writes what is drawn as JSON."_s, u"file"_s},
                       {u"faults"_s, u"Prints labels that overlap, that a line crosses or that leave the page."_s},
                       {u"report"_s, u"Prints what all pages hold."_s}});
    parser.process(application);

    if (parser.isSet(u"report"_s)) {
        PrintReport();
        return 0;
    }
    const QStringList arguments = parser.positionalArguments();
    const int block = arguments.size() == 1 ? CanonicalBlock(arguments.front().toInt()) : 0;
    if (!HasPage(block))
        return Fail(u"no page for this block; sbdpage --report lists the blocks"_s);

    Job job;
    std::optional<Page> edited;
    if (const QString file = parser.value(u"file"_s); !file.isEmpty()) {
        edited = ReadPageFile(file, block);
        if (!edited)
            return kBadCall;
    }
    job.page = edited ? &*edited : FindPage(block);
    job.cell = {block, parser.value(u"row"_s).toInt(), parser.value(u"column"_s).toInt()};
    job.client = QSize(parser.value(u"width"_s).toInt(), parser.value(u"height"_s).toInt());
    job.cell.searchText = fromQString(parser.value(u"search"_s)).value_or(std::string());
    job.font = HelpFont(job.doc.display);
    if (const QString project = parser.value(u"project"_s); !project.isEmpty() && !job.doc.OpenDocument(project).Ok())
        return Fail(u"cannot read "_s + project);

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
