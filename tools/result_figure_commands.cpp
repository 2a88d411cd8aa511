#include "tools/result_figure_commands.h"

#include "commands/commands_table.h"
#include "results/diagram_curves.h"
#include "results/model_overlay.h"
#include "results/result_diagram.h"
#include "results/result_files.h"
#include "results/result_selection.h"
#include "sbdfile/grid_names.h"
#include "sbdfile/project_file.h"
#include "tools/command_support.h"
#include "tools/json_text.h"
#include "tools/result_arguments.h"

#include <nlohmann/json.hpp>

namespace sbd {

namespace {

using nlohmann::json;
using Arguments = std::span<const std::string>;

constexpr double kCharacterWidth = 8; // average of the font that the labels are set off for

AnalysisResults ResultsOf(const std::string& project)
{
    AnalysisResults results;
    ReadResultFiles(PathOf(project), results);
    return results;
}

json PointJson(FigurePoint point)
{
    return {NumberJson(point.x), NumberJson(point.y)};
}

// --- diagrams ----------------------------------------------------------------------------------------

json BayJson(const AnalysisModel& model, const DiagramBay& bay)
{
    const auto name = [](const std::vector<std::string>& names, std::size_t i) {
        return i < names.size() ? FromCp932(names[i]) : std::string();
    };
    return {{"bay", bay.bay},
            {"element", bay.element},
            {"elementName", name(model.elementNames, static_cast<std::size_t>(bay.element) - 1)},
            {"x0", bay.x0},
            {"x1", bay.x1},
            {"left", NumberJson(bay.left)},
            {"right", NumberJson(bay.right)},
            {"stations", {name(model.stationNames, bay.bay), name(model.stationNames, bay.bay + 1)}}};
}

json LabelsJson(const GirderDiagram& diagram)
{
    json points = json::array();
    for (const std::vector<DiagramLabel>& labels : LabelsOf(diagram)) {
        json texts = json::array();
        for (const DiagramLabel& label : labels)
            texts.push_back(label.text);
        points.push_back(std::move(texts));
    }
    return points;
}

json ScreenJson(const GirderDiagram& diagram, const FigureScreen& screen)
{
    const FigureView view;
    const DiagramScale scale = FitDiagram(diagram, screen, view.zoom, {});
    json x = json::array();
    for (const double position : diagram.positions)
        x.push_back(NumberJson(scale.X(position)));
    const bool isForce = diagram.kind == ResultKind::Force;
    json left = json::array();
    json right = json::array();
    for (const DiagramBay& bay : diagram.bays) {
        left.push_back(NumberJson(scale.Y(bay.left)));
        right.push_back(NumberJson(scale.Y(bay.right)));
    }
    json y = json::array();
    for (const double value : diagram.points)
        y.push_back(NumberJson(scale.Y(value)));
    return {{"clientWidth", static_cast<int>(screen.clientWidth)},
            {"clientHeight", static_cast<int>(screen.clientHeight)},
            {"zoom", view.zoom},
            {"sxScale", scale.sxScale},
            {"syScale", scale.syScale},
            {"x", std::move(x)},
            {"axisY", scale.AxisY()},
            {"yLeft", isForce ? std::move(left) : json()},
            {"yRight", isForce ? std::move(right) : json()},
            {"y", isForce ? json() : std::move(y)}};
}

json DeformedJson(const AnalysisResults& results, std::size_t loadCase)
{
    const std::vector<Point3> before = FigurePlaces(results);
    const std::vector<Point3> moved = DeformedPlaces(results, loadCase);
    json points = json::array();
    for (std::size_t node = 0; node < before.size(); ++node)
        points.push_back({{"undeformed", NumbersJson(before[node])}, {"moved", NumbersJson(moved[node])}});
    return {{"magnification", kDeformedMagnification}, {"points", std::move(points)}};
}

json DiagramJson(const AnalysisModel& model, const GirderDiagram& diagram, const std::optional<FigureScreen>& screen)
{
    const bool hasGirder = diagram.girder < model.girderNames.size();
    json shown = {{"girderIndex", diagram.girder},
                  {"girderUsed", hasGirder ? FromCp932(model.girderNames[diagram.girder]) : std::string()},
                  {"component", diagram.component},
                  {"sign", diagram.sign},
                  {"bays", json::array()},
                  {"positions", NumbersJson(diagram.positions)},
                  {"length", diagram.Length()},
                  {"stationNames", TextList(diagram.stationNames)}};
    if (diagram.kind != ResultKind::Force)
        shown["points"] = NumbersJson(diagram.points);
    if (diagram.bays.empty())
        return shown;
    for (const DiagramBay& bay : diagram.bays)
        shown["bays"].push_back(BayJson(model, bay));
    shown["least"] = diagram.least;
    shown["greatest"] = diagram.greatest;
    shown["amplitude"] = diagram.Amplitude();
    shown["labels"] = LabelsJson(diagram);
    if (screen)
        shown["screen"] = ScreenJson(diagram, *screen);
    return shown;
}

// --- model figure ------------------------------------------------------------------------------------

const char* PenWord(FigurePen pen)
{
    switch (pen) {
    case FigurePen::Sway:
        return "sway";
    case FigurePen::Member:
        return "member";
    case FigurePen::Background:
        return "background";
    default:
        return "lateral";
    }
}

json LabelJson(const char* key, const FigureLabel& label)
{
    return {{key, FromCp932(label.text)}, {"at", PointJson(label.at)}};
}

json OverlayJson(const AnalysisResults& results, const CSbdData& data, const CModelProjection& projection,
                 const ModelScale& scale)
{
    const AnalysisModel& model = results.model;
    const std::size_t nodes = projection.NodeCount();
    json lateral = json::array();
    for (const LateralLine& line : LateralBracing(model, data, nodes))
        lateral.push_back({{"row", line.row},
                           {"from", PointJson(ScreenOf(line.from, projection, scale))},
                           {"to", PointJson(ScreenOf(line.to, projection, scale))},
                           {"pen", PenWord(line.pen)}});
    json cross = json::array();
    for (const CrossLine& line : CrossLines(model, CrossBeamRows(model, data), nodes))
        cross.push_back({{"row", line.row},
                         {"nodes", {line.node1, line.node2}},
                         {"pen", PenWord(line.pen)},
                         {"from", PointJson(ScreenOf(line.node1, projection, scale))},
                         {"to", PointJson(ScreenOf(line.node2, projection, scale))}});
    json girders = json::array();
    for (const FigureLabel& label : GirderLabels(results, projection, scale, kCharacterWidth))
        girders.push_back(LabelJson("girder", label));
    json stations = json::array();
    for (const FigureLabel& label : StationLabels(model, projection, scale, kCharacterWidth))
        stations.push_back(LabelJson("station", label));
    return {{"lateral573", std::move(lateral)},
            {"cross523", std::move(cross)},
            {"dots", DottedNodes(results.nodeTable, nodes)},
            {"supports", SupportedNodes(results.nodeTable, nodes)},
            {"girderLabels", std::move(girders)},
            {"stationLabels", std::move(stations)}};
}

json ViewJson(const AnalysisResults& results, const CSbdData* data, const FigureScreen& screen,
              const ViewCommand& command)
{
    FigureView view;
    ApplyViewCommand(view, command.command);
    const CModelProjection projection(FigurePlaces(results), view.viewDirection);
    json shown = {{"name", command.name}, {"direction", command.direction}, {"nodes", json::array()}};
    if (projection.NodeCount() == 0)
        return shown;
    const FigureBounds& bounds = projection.Bounds();
    const ModelScale scale = FitModel(bounds, screen, view.zoom, PanOf(view));
    for (std::size_t number = 1; number <= projection.NodeCount(); ++number) {
        const auto node = static_cast<std::int32_t>(number);
        shown["nodes"].push_back({{"node", node},
                                  {"projected", NumbersJson(projection.Node(node))},
                                  {"screen", PointJson(ScreenOf(node, projection, scale))}});
    }
    shown.update({{"minX", bounds.minX},
                  {"maxX", bounds.maxX},
                  {"minY", bounds.minY},
                  {"maxY", bounds.maxY},
                  {"centerX", scale.centerX},
                  {"centerY", scale.centerY},
                  {"extentX", scale.extentX},
                  {"extentY", scale.extentY},
                  {"scale", scale.scale},
                  {"zoom", view.zoom},
                  {"panX", view.panX},
                  {"panY", view.panY}});
    if (data != nullptr)
        shown["overlay"] = OverlayJson(results, *data, projection, scale);
    return shown;
}

json OrNull(std::string text)
{
    return text.empty() ? json() : json(std::move(text));
}

CommandResult RunEnvelopeDiagram(CResultArguments& parsed)
{
    ResultSelection selection;
    selection.envelope = true;
    selection.kind = parsed.Kind();
    selection.envelopeLoads = parsed.Values("--load");
    selection.girder = parsed.Text("--girder");
    selection.figureItem = parsed.Text("--item");
    const std::size_t component = parsed.Component(selection.kind, selection.figureItem);
    std::optional<FigureScreen> screen;
    if (parsed.Has("--width") || parsed.Has("--height"))
        screen =
            FigureScreen{static_cast<double>(parsed.Pixels("--width")), static_cast<double>(parsed.Pixels("--height"))};
    if (parsed.Wrong())
        return WrongUse("result-diagram", *parsed.Wrong());
    const AnalysisResults results = ResultsOf(parsed.Project());
    const AnalysisModel& model = results.model;
    if (selection.envelopeLoads.empty())
        selection.envelopeLoads = EnvelopeLoads(model, selection.kind);
    const std::vector<DiagramCurve> curves = CurvesOf(results, selection);
    json shown = {{"kind", InfoOf(selection.kind).word},
                  {"girder", FromCp932(selection.girder)},
                  {"item", InfoOf(selection.kind).components[component]},
                  {"envelope", TextList(selection.envelopeLoads)},
                  {"curves", json::array()}};
    for (const DiagramCurve& curve : curves) {
        json own = DiagramJson(model, curve.diagram, screen);
        own["name"] = FromCp932(curve.name);
        for (std::size_t i = 0; i < curve.diagram.bays.size(); ++i) {
            const DiagramBay& bay = curve.diagram.bays[i];
            own["bays"][i]["leftLoad"] = OrNull(FromCp932(ShownLoadAt(model, bay.leftCase)));
            own["bays"][i]["rightLoad"] = OrNull(FromCp932(ShownLoadAt(model, bay.rightCase)));
        }
        shown["curves"].push_back(std::move(own));
    }
    return Print(shown);
}

} // namespace

CommandResult RunResultDiagram(Arguments arguments)
{
    CResultArguments parsed(arguments, {.withValue = {"--kind", "--load", "--girder", "--item", "--width", "--height"},
                                        .alone = {"--envelope"}});
    if (!parsed.Wrong() && parsed.Has("--envelope"))
        return RunEnvelopeDiagram(parsed);
    ResultKind kind = ResultKind::Displacement;
    std::string load;
    std::string girder;
    std::size_t component = 0;
    std::optional<FigureScreen> screen;
    if (!parsed.Wrong()) {
        kind = parsed.Kind();
        load = parsed.Text("--load");
        girder = parsed.Text("--girder");
        component = parsed.Component(kind, parsed.Text("--item"));
        if (parsed.Has("--width") || parsed.Has("--height"))
            screen = FigureScreen{static_cast<double>(parsed.Pixels("--width")),
                                  static_cast<double>(parsed.Pixels("--height"))};
    }
    if (parsed.Wrong())
        return WrongUse("result-diagram", *parsed.Wrong());

    const AnalysisResults results = ResultsOf(parsed.Project());
    const std::optional<std::size_t> loadCase = LoadCaseOf(results.model, load);
    json shown = {{"kind", InfoOf(kind).word},
                  {"load", FromCp932(load)},
                  {"girder", FromCp932(girder)},
                  {"item", InfoOf(kind).components[component]},
                  {"loadIndex", loadCase ? json(*loadCase) : json(-1)}};
    if (!loadCase)
        shown["nothing"] = true;
    else if (kind == ResultKind::Displacement && girder == AllWord())
        shown["deformed"] = DeformedJson(results, *loadCase);
    else
        shown.update(
            DiagramJson(results.model, MakeGirderDiagram(results, *loadCase, girder, kind, component), screen));
    return Print(shown);
}

CommandResult RunProjection(Arguments arguments)
{
    CResultArguments parsed(arguments, {.withValue = {"--width", "--height"}, .alone = {"--overlay"}});
    FigureScreen screen;
    if (!parsed.Wrong()) {
        screen.clientWidth = parsed.Pixels("--width");
        screen.clientHeight = parsed.Pixels("--height");
    }
    if (parsed.Wrong())
        return WrongUse("projection", *parsed.Wrong());

    const std::filesystem::path project = PathOf(parsed.Project());
    CSbdData data;
    const bool overlay = parsed.Has("--overlay");
    if (overlay)
        if (const FileResult result = LoadProject(project, NamesFileBeside(project), data); !result.Ok())
            return Fail("sbdtool projection: プロジェクトを読み込めません: " + parsed.Project() + " (" + result.detail
                        + ")");
    const AnalysisResults results = ResultsOf(parsed.Project());
    json views = json::object();
    for (const ViewCommand& command : kViewCommands)
        views[std::to_string(NumberOf(command.command))] =
            ViewJson(results, overlay ? &data : nullptr, screen, command);
    const std::u8string name = project.filename().u8string();
    return Print({{"project", std::string(name.begin(), name.end())},
                  {"clientWidth", static_cast<int>(screen.clientWidth)},
                  {"clientHeight", static_cast<int>(screen.clientHeight)},
                  {"horzRes", static_cast<int>(screen.horzRes)},
                  {"vertRes", static_cast<int>(screen.vertRes)},
                  {"views", std::move(views)}});
}

} // namespace sbd
