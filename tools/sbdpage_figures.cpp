#include "sbdpage_figures.h"

#include "document/result_session.h"
#include "document/section_doc.h"
#include "panels/result_output.h"
#include "project/catalogue.h"
#include "sbdpage_pictures.h"
#include "upperview/display_look.h"
#include "upperview/result_diagram.h"
#include "upperview/result_sheets.h"

#include <QBuffer>
#include <QCommandLineParser>
#include <QGuiApplication>
#include <QPaintEngine>
#include <QPainter>
#include <QPdfWriter>

#include <algorithm>
#include <array>
#include <cmath>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kNothing = 1;
constexpr int kMostPixels = 20'000; // a side

// --- command line ------------------------------------------------------------------------------------

void AddCommonOptions(QCommandLineParser& parser)
{
    parser.addHelpOption();
    parser.addOptions({{u"project"_s, u"The project; its results lie beside it."_s, u"file"_s},
                       {u"width"_s, u"Width of the pane in pixels."_s, u"number"_s, u"900"_s},
                       {u"height"_s, u"Height of the pane in pixels."_s, u"number"_s, u"400"_s}});
    AddPictureOptions(parser);
}

/// A number of an option within bounds; without it, what is wrong is told.
std::optional<int> Number(const QCommandLineParser& parser, const QString& option, int least, int most)
{
    bool isNumber = false;
    const int number = parser.value(option).toInt(&isNumber);
    if (isNumber && number >= least && number <= most)
        return number;
    FailCall(u"--%1 takes a number from %2 to %3"_s.arg(option).arg(least).arg(most));
    return std::nullopt;
}

void AddDirectionOption(QCommandLineParser& parser)
{
    parser.addOption({u"direction"_s, u"Direction it is seen from, such as 1,-2,0.5."_s, u"x,y,z"_s});
}

/// Takes the direction of the call into the view; false if it is none, which is told.
bool TakeDirection(const QCommandLineParser& parser, FigureView& view)
{
    if (!parser.isSet(u"direction"_s))
        return true;
    const QStringList words = parser.value(u"direction"_s).split(u',');
    std::array<double, 3> direction{};
    bool areNumbers = words.size() == 3;
    for (std::size_t i = 0; i < direction.size() && areNumbers; ++i)
        direction[i] = words[static_cast<qsizetype>(i)].toDouble(&areNumbers);
    const double length = std::hypot(direction[0], direction[1], direction[2]);
    if (!areNumbers || !std::isfinite(length) || !(length > 0)) {
        FailCall(u"--direction takes three numbers, not all 0"_s);
        return false;
    }
    view.viewDirection = direction;
    return true;
}

/// The project of the call, with results; false if there is nothing to draw from, which is told.
bool Open(const QCommandLineParser& parser, CKELDSectionDoc& doc, int& code)
{
    const QString project = parser.value(u"project"_s);
    if (const QStringList words = parser.positionalArguments(); !words.isEmpty())
        code = FailCall(u"not understood: "_s + words.join(u' '));
    else if (project.isEmpty())
        code = FailCall(u"--project is missing"_s);
    else if (!doc.OpenDocument(project).Ok())
        code = FailCall(u"cannot read "_s + project);
    else if (doc.Results().nodeTable.coordinates.empty())
        code = FailCall(u"no analysis results beside "_s + project, kNothing);
    else
        return true;
    return false;
}

/// The pane of the call, in which `draw` draws on the ground of the settings.
template <typename Draw>
int DrawInPane(const QCommandLineParser& parser, const CKELDSectionDoc& doc, const Draw& draw)
{
    const std::optional<int> width = Number(parser, u"width"_s, 1, kMostPixels);
    const std::optional<int> height = Number(parser, u"height"_s, 1, kMostPixels);
    if (!width || !height)
        return kBadPictureCall;
    const FigureLook look{PaperColour(doc.display), FigureFont(doc.display)};
    return WritePictures(parser, {*width, *height}, [&](QPainter& painter) {
        const QRect pane(0, 0, *width, *height);
        painter.setClipRect(pane);
        painter.fillRect(pane, look.backColor);
        FigureScreen screen{static_cast<double>(*width), static_cast<double>(*height)};
        screen.isPaper = painter.paintEngine()->type() != QPaintEngine::Raster; // its inches are true
        draw(painter, screen, look);
    });
}

// --- figure ------------------------------------------------------------------------------------------

int DrawFigure(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(u"sbdpage figure: draws the frame of a project."_s);
    AddCommonOptions(parser);
    AddDirectionOption(parser);
    parser.addOptions(
        {{u"view"_s, u"Side it is seen from: XY, YZ, XZ or ALL."_s, u"name"_s, u"ALL"_s},
         {u"block"_s, u"Block on the panel; rows of 523 and 573 are shown in red."_s, u"number"_s, u"0"_s},
         {u"row"_s, u"Grid row under the cursor, from 1."_s, u"number"_s, u"0"_s}});
    parser.process(arguments);

    const QString name = parser.value(u"view"_s).toUpper();
    const auto* view = std::ranges::find_if(
        kViewCommands, [&](const ViewCommand& command) { return name == QString::fromLatin1(command.name.data()); });
    if (view == std::end(kViewCommands))
        return FailCall(u"--view takes XY, YZ, XZ or ALL"_s);
    constexpr int mostBlock = 999;
    constexpr int mostRow = 1'000'000;
    const std::optional<int> block = Number(parser, u"block"_s, 0, mostBlock);
    const std::optional<int> row = Number(parser, u"row"_s, 0, mostRow);
    FigureView seen;
    ApplyViewCommand(seen, view->command);
    if (!block || !row || !TakeDirection(parser, seen))
        return kBadPictureCall;
    CKELDSectionDoc doc;
    int code = 0;
    if (!Open(parser, doc, code))
        return code;
    return DrawInPane(parser, doc, [&](QPainter& painter, const FigureScreen& screen, const FigureLook& look) {
        FigureView shown = seen;
        DrawModelFigure(painter, screen, doc.Results(), doc.Data(), {CanonicalBlock(*block), *row}, look, shown,
                        ResultSessionOf(doc).State());
    });
}

// --- diagram -----------------------------------------------------------------------------------------

QString Listed(const std::vector<std::string>& names)
{
    QStringList texts;
    for (const std::string& name : names)
        texts << toQString(name);
    return texts.join(u", "_s);
}

/// The text of an option in CP932; `otherwise` if it is not given. A text that CP932 has not is none of the names.
std::string Text(const QCommandLineParser& parser, const QString& option, const std::string& otherwise)
{
    return parser.isSet(option) ? fromQString(parser.value(option)).value_or(std::string()) : otherwise;
}

/// The selection of the call; what is not given is as the panel shows it first. Nothing if a name is not there, which
/// is told with the names that are.
std::optional<ResultSelection> SelectionOf(const QCommandLineParser& parser, const AnalysisModel& model)
{
    ResultSelection selection = FirstUseSelection(model);
    const std::optional<ResultKind> kind = ResultKindOf(Text(parser, u"kind"_s, KindWord(selection.kind)));
    if (!kind) {
        FailCall(u"--kind takes 変位, 断面力 or 反力"_s);
        return std::nullopt;
    }
    if (*kind != selection.kind)
        SelectKind(selection, model, *kind);
    selection.load = Text(parser, u"load"_s, selection.load);
    if (!LoadCaseOf(model, selection.load)) {
        FailCall(u"no such load case; there are "_s + Listed(model.loadCaseNames));
        return std::nullopt;
    }
    selection.girder = Text(parser, u"girder"_s, selection.girder);
    std::vector<std::string> girders = model.girderNames;
    if (*kind == ResultKind::Displacement)
        girders.push_back(AllWord());
    if (std::ranges::find(girders, selection.girder) == girders.end()) {
        FailCall(u"no such girder; there are "_s + Listed(girders));
        return std::nullopt;
    }
    selection.figureItem = Text(parser, u"item"_s, selection.figureItem);
    if (!ComponentOf(*kind, selection.figureItem)) {
        std::vector<std::string> items;
        for (std::size_t i = 0; i < kNodeComponents; ++i)
            items.push_back(ComponentWord(*kind, i));
        FailCall(u"no such item; there are "_s + Listed(items));
        return std::nullopt;
    }
    return selection;
}

/// The load cases of an option, in CP932; nothing if one is not there, which is told.
std::optional<std::vector<std::string>> LoadsOf(const QStringList& words, const AnalysisModel& model)
{
    std::vector<std::string> loads;
    for (const QString& word : words) {
        loads.push_back(fromQString(word).value_or(std::string()));
        if (!LoadCaseOf(model, loads.back())) {
            FailCall(u"no such load case; there are "_s + Listed(model.loadCaseNames));
            return std::nullopt;
        }
    }
    return loads;
}

void AddSelectionOptions(QCommandLineParser& parser)
{
    parser.addOptions(
        {{u"load"_s, u"Load case, by its whole name; with --envelope several times, all if none is given."_s,
          u"name"_s},
         {u"envelope"_s, u"The largest and smallest values of several load cases."_s},
         {u"over-load"_s, u"Load case that is laid over the first one."_s, u"name"_s},
         {u"over-girder"_s, u"Girder that is laid over the first one."_s, u"name"_s}});
}

/// Puts what is shown of several load cases or girders into the selection; false if a name is not there, which is told.
bool TakeSeveral(const QCommandLineParser& parser, const AnalysisModel& model, ResultSelection& selection)
{
    selection.envelope = parser.isSet(u"envelope"_s);
    if (selection.envelope) {
        const auto loads = LoadsOf(parser.values(u"load"_s), model);
        if (!loads)
            return false;
        selection.envelopeLoads = loads->empty() ? EnvelopeLoads(model, selection.kind) : *loads;
    }
    const auto over = LoadsOf(parser.values(u"over-load"_s), model);
    if (!over)
        return false;
    if (!over->empty())
        selection.overLoad = over->front();
    selection.overGirder = Text(parser, u"over-girder"_s, {});
    if (!selection.overGirder.empty()
        && std::ranges::find(model.girderNames, selection.overGirder) == model.girderNames.end()) {
        FailCall(u"no such girder; there are "_s + Listed(model.girderNames));
        return false;
    }
    return true;
}

int DrawDiagram(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"sbdpage diagram: draws a result along a girder, or the deformed frame of all girders."_s);
    AddCommonOptions(parser);
    AddDirectionOption(parser); // of the deformed frame
    AddSelectionOptions(parser);
    parser.addOptions(
        {{u"kind"_s, u"変位, 断面力 or 反力; 断面力 if not given."_s, u"word"_s},
         {u"girder"_s, u"Girder; すべて with 変位 for the deformed frame."_s, u"name"_s},
         {u"item"_s, u"Component, such as Uz, My or Fz."_s, u"name"_s},
         {u"magnification"_s, u"Of the deformed frame: 0 (what suits), 1, 10, 100 or 1000."_s, u"number"_s, u"100"_s}});
    parser.process(arguments);

    CKELDSectionDoc doc;
    int code = 0;
    if (!Open(parser, doc, code))
        return code;
    std::optional<ResultSelection> selection = SelectionOf(parser, doc.Results().model);
    if (!selection || !TakeSeveral(parser, doc.Results().model, *selection))
        return kBadPictureCall;
    bool isNumber = false;
    selection->magnification = parser.value(u"magnification"_s).toInt(&isNumber);
    if (!isNumber || std::ranges::find(kMagnifications, selection->magnification) == std::end(kMagnifications))
        return FailCall(u"--magnification takes 0, 1, 10, 100 or 1000"_s);
    FigureView seen;
    if (!TakeDirection(parser, seen))
        return kBadPictureCall;
    return DrawInPane(parser, doc, [&](QPainter& painter, const FigureScreen& screen, const FigureLook& look) {
        FigureView view = seen;
        DrawResultPage(painter, screen, doc.Results(), *selection, look, view, ResultSessionOf(doc).State());
    });
}

// --- sheets ------------------------------------------------------------------------------------------

/// "My,Sz,Uz"; nothing if one is no component, which is told. Moments of reactions are asked for by their kind: 反力Mx.
std::optional<std::vector<SheetItem>> ItemsOf(const QString& words)
{
    std::vector<SheetItem> items;
    for (const QString& word : words.split(u',', Qt::SkipEmptyParts)) {
        const std::string own = fromQString(word.trimmed()).value_or(std::string());
        bool found = false;
        for (const ResultKind kind : {ResultKind::Force, ResultKind::Displacement, ResultKind::Reaction}) {
            const std::string head = KindWord(kind);
            const std::optional<std::size_t> component =
                ComponentOf(kind, own.starts_with(head) ? own.substr(head.size()) : own);
            if (!component || found)
                continue;
            items.push_back({kind, *component});
            found = true;
        }
        if (!found) {
            FailCall(
                u"no such item: %1; there are Nx Sy Sz Tx My Mz, Ux Uy Uz θx θy θz, Fx Fy Fz, 反力Mx 反力My 反力Mz"_s
                    .arg(word));
            return std::nullopt;
        }
    }
    return items;
}

int DrawSheets(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"sbdpage sheets: several diagrams of a girder on one sheet, all girders as one PDF with bookmarks."_s);
    parser.addHelpOption();
    AddSelectionOptions(parser);
    parser.addOptions({{u"project"_s, u"The project; its results lie beside it."_s, u"file"_s},
                       {u"girder"_s, u"Girder, several times; all if none is given."_s, u"name"_s},
                       {u"items"_s, u"Components from top to bottom."_s, u"names"_s, u"My,Sz,Uz"_s},
                       {u"paper"_s, u"A4 or A3."_s, u"name"_s, u"A4"_s},
                       {u"lying"_s, u"Sheets lie. Without --lying and --upright they do with up to two figures."_s},
                       {u"upright"_s, u"Sheets stand."_s},
                       {u"pdf"_s, u"The file to write."_s, u"file"_s}});
    parser.process(arguments);

    CKELDSectionDoc doc;
    int code = 0;
    if (!Open(parser, doc, code))
        return code;
    const AnalysisModel& model = doc.Results().model;
    ResultSelection selection = FirstUseSelection(model);
    if (!parser.isSet(u"envelope"_s) && parser.isSet(u"load"_s)) {
        const auto loads = LoadsOf({parser.value(u"load"_s)}, model);
        if (!loads)
            return kBadPictureCall;
        selection.load = loads->front();
    }
    const std::optional<std::vector<SheetItem>> items = ItemsOf(parser.value(u"items"_s));
    if (!TakeSeveral(parser, model, selection) || !items)
        return kBadPictureCall;
    std::vector<std::string> girders;
    for (const QString& girder : parser.values(u"girder"_s)) {
        girders.push_back(fromQString(girder).value_or(std::string()));
        if (std::ranges::find(model.girderNames, girders.back()) == model.girderNames.end())
            return FailCall(u"no such girder; there are "_s + Listed(model.girderNames));
    }
    const QString paper = parser.value(u"paper"_s).toUpper();
    if (paper != u"A4"_s && paper != u"A3"_s)
        return FailCall(u"--paper takes A4 or A3"_s);
    const std::vector<ResultSheet> sheets =
        SheetsOfGirders(selection, girders.empty() ? model.girderNames : girders, *items);
    if (sheets.empty() || items->empty())
        return FailCall(u"there is nothing to draw"_s, kNothing);
    const QPageLayout layout = SheetLayout(paper == u"A3"_s ? QPageSize::A3 : QPageSize::A4,
                                           parser.isSet(u"lying"_s)     ? QPageLayout::Landscape
                                           : parser.isSet(u"upright"_s) ? QPageLayout::Portrait
                                                                        : OrientationOf(sheets));
    const QByteArray pdf =
        SheetsPdf(layout, doc.Results(), sheets, FigureFont(doc.display), ResultSessionOf(doc).State(), {});
    const QString path = parser.value(u"pdf"_s);
    if (path.isEmpty())
        return FailCall(u"--pdf says where to draw"_s);
    return WriteFile(path, pdf) ? 0 : FailCall(u"cannot write "_s + path);
}

// --- table -------------------------------------------------------------------------------------------

/// Puts into the selection which rows and columns the table has and in which order; false if a name is not there, which is
/// told.
bool TakeRows(const QCommandLineParser& parser, const AnalysisModel& model, ResultSelection& selection)
{
    SelectGirder(selection, model, Text(parser, u"girder"_s, selection.girder));
    if (parser.isSet(u"station"_s))
        SelectStation(selection, model, Text(parser, u"station"_s, {}));
    selection.filter = Text(parser, u"filter"_s, {});
    for (const QString& name : parser.values(u"exclude"_s)) {
        selection.excludedNames.push_back(fromQString(name).value_or(std::string()));
        if (std::ranges::find(selection.offeredNames, selection.excludedNames.back()) == selection.offeredNames.end()) {
            FailCall(u"no such name to leave out: "_s + name);
            return false;
        }
    }
    for (const QString& name : parser.values(u"off"_s)) {
        const auto component = ComponentOf(selection.kind, fromQString(name).value_or(std::string()));
        if (!component) {
            FailCall(u"no such component: "_s + name);
            return false;
        }
        selection.columnOn[*component] = false;
    }
    if (parser.isSet(u"sort"_s)) {
        selection.sortColumn = SortColumnOf(selection, Text(parser, u"sort"_s, {}));
        selection.descending = parser.isSet(u"descending"_s);
        if (selection.sortColumn == 0) {
            FailCall(u"no column has the head "_s + parser.value(u"sort"_s));
            return false;
        }
    }
    return true;
}

int PrintTable(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(u"sbdpage table: prints the table of results into a PDF."_s);
    parser.addHelpOption();
    AddSelectionOptions(parser);
    parser.addOptions({{u"project"_s, u"The project; its results lie beside it."_s, u"file"_s},
                       {u"kind"_s, u"変位, 断面力 or 反力; 断面力 if not given."_s, u"word"_s},
                       {u"girder"_s, u"Girder, すべて for all of them, なし for names of --station."_s, u"name"_s},
                       {u"station"_s, u"With --girder なし: what the names begin with, すべて for any."_s, u"text"_s},
                       {u"filter"_s, u"Only names that hold this text."_s, u"text"_s},
                       {u"exclude"_s, u"A name that is left out, several times."_s, u"name"_s},
                       {u"off"_s, u"A component that is left out, such as Nx, several times."_s, u"name"_s},
                       {u"sort"_s, u"Head of the column that rules the order of the rows, such as 左My."_s, u"head"_s},
                       {u"descending"_s, u"The largest comes first."_s},
                       {u"pdf"_s, u"The file to write."_s, u"file"_s}});
    parser.process(arguments);

    CKELDSectionDoc doc;
    int code = 0;
    if (!Open(parser, doc, code))
        return code;
    const AnalysisModel& model = doc.Results().model;
    ResultSelection selection = FirstUseSelection(model);
    const std::optional<ResultKind> kind = ResultKindOf(Text(parser, u"kind"_s, KindWord(selection.kind)));
    if (!kind)
        return FailCall(u"--kind takes 変位, 断面力 or 反力"_s);
    if (*kind != selection.kind) // the first load case of forces has a form that there is for them only
        SelectKind(selection, model, *kind);
    if (!parser.isSet(u"envelope"_s))
        selection.load = Text(parser, u"load"_s, selection.load);
    if (!TakeSeveral(parser, model, selection) || !TakeRows(parser, model, selection))
        return kBadPictureCall;
    const CResultTable table(doc.Results(), selection);
    if (table.RowCount() == 0)
        return FailCall(u"no result is of this choice"_s, kNothing);
    const QString path = parser.value(u"pdf"_s);
    if (path.isEmpty())
        return FailCall(u"--pdf says where to print"_s);
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    bool isDone = false;
    {
        QPdfWriter writer(&buffer);
        writer.setPageLayout(
            SheetLayout(QPageSize::A4, IsWideTable(table) ? QPageLayout::Landscape : QPageLayout::Portrait));
        isDone = PrintResultTable(writer, table, selection, QGuiApplication::font(), ResultSessionOf(doc).State());
    }
    return isDone && WriteFile(path, buffer.data()) ? 0 : FailCall(u"cannot write "_s + path);
}

} // namespace

std::optional<int> RunFigureCommand(const QStringList& arguments)
{
    const QString command = arguments.value(1);
    const QStringList own = arguments.mid(0, 1) + arguments.mid(2);
    if (command == u"figure"_s)
        return DrawFigure(own);
    if (command == u"diagram"_s)
        return DrawDiagram(own);
    if (command == u"sheets"_s)
        return DrawSheets(own);
    if (command == u"table"_s)
        return PrintTable(own);
    return std::nullopt;
}

} // namespace sbd
