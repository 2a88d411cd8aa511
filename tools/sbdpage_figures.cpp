#include "sbdpage_figures.h"

#include "document/result_session.h"
#include "document/section_doc.h"
#include "project/catalogue.h"
#include "sbdpage_pictures.h"
#include "upperview/display_look.h"
#include "upperview/result_diagram.h"

#include <QCommandLineParser>
#include <QPaintEngine>
#include <QPainter>

#include <algorithm>

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
    if (!block || !row)
        return kBadPictureCall;
    CKELDSectionDoc doc;
    int code = 0;
    if (!Open(parser, doc, code))
        return code;
    return DrawInPane(parser, doc, [&](QPainter& painter, const FigureScreen& screen, const FigureLook& look) {
        FigureView shown;
        ApplyViewCommand(shown, view->command);
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

int DrawDiagram(const QStringList& arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        u"sbdpage diagram: draws a result along a girder, or the deformed frame of all girders."_s);
    AddCommonOptions(parser);
    parser.addOptions(
        {{u"kind"_s, u"変位, 断面力 or 反力; 断面力 if not given."_s, u"word"_s},
         {u"load"_s, u"Load case, by its whole name."_s, u"name"_s},
         {u"girder"_s, u"Girder; すべて with 変位 for the deformed frame."_s, u"name"_s},
         {u"item"_s, u"Component, such as Uz, My or Fz."_s, u"name"_s},
         {u"magnification"_s, u"Of the deformed frame: 0 (what suits), 1, 10, 100 or 1000."_s, u"number"_s, u"100"_s}});
    parser.process(arguments);

    CKELDSectionDoc doc;
    int code = 0;
    if (!Open(parser, doc, code))
        return code;
    std::optional<ResultSelection> selection = SelectionOf(parser, doc.Results().model);
    if (!selection)
        return kBadPictureCall;
    bool isNumber = false;
    selection->magnification = parser.value(u"magnification"_s).toInt(&isNumber);
    if (!isNumber || std::ranges::find(kMagnifications, selection->magnification) == std::end(kMagnifications))
        return FailCall(u"--magnification takes 0, 1, 10, 100 or 1000"_s);
    return DrawInPane(parser, doc, [&](QPainter& painter, const FigureScreen& screen, const FigureLook& look) {
        FigureView view;
        DrawResultPage(painter, screen, doc.Results(), *selection, look, view, ResultSessionOf(doc).State());
    });
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
    return std::nullopt;
}

} // namespace sbd
