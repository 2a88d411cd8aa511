// Any results under any selection: table, diagram and figure come to an end, and show nothing that the results have not.
#include "fuzz/property.h"
#include "results/byte_source.h"
#include "results/diagram_drawing.h"
#include "results/figure_heading.h"
#include "results/figure_pick.h"
#include "results/model_overlay.h"
#include "results/result_table.h"

#include <algorithm>
#include <cstdint>
#include <span>

namespace {

using sbd::fuzz::Require;

/// Takes pieces off the front of the input.
class Input {
public:
    explicit Input(std::span<const std::uint8_t> bytes) : left_(bytes) {}

    std::uint8_t Byte()
    {
        const std::uint8_t byte = left_.empty() ? 0 : left_.front();
        left_ = left_.subspan(std::min<std::size_t>(1, left_.size()));
        return byte;
    }
    /// As long as its first two bytes say.
    std::span<const std::byte> Piece()
    {
        const std::size_t low = Byte();
        const std::size_t length = std::min(low + 256 * std::size_t{Byte()}, left_.size());
        const std::span<const std::uint8_t> piece = left_.first(length);
        left_ = left_.subspan(length);
        return std::as_bytes(piece);
    }

private:
    std::span<const std::uint8_t> left_;
};

template <typename Record>
void ReadPiece(Input& input, Record& record)
{
    sbd::CMemorySource source(input.Piece());
    static_cast<void>(record.Read(source));
}

sbd::AnalysisResults ResultsOf(Input& input)
{
    sbd::AnalysisResults results;
    ReadPiece(input, results.model);
    ReadPiece(input, results.elementTable);
    ReadPiece(input, results.nodeTable);
    ReadPiece(input, results.displacement);
    results.force = results.displacement;
    results.reaction = results.displacement;
    return results;
}

std::string Picked(const std::vector<std::string>& names, std::uint8_t number)
{
    if (number < 2)
        return number == 0 ? sbd::NoneWord() : sbd::AllWord();
    return names.empty() ? std::string() : names[number % names.size()];
}

sbd::ResultSelection SelectionOf(Input& input, const sbd::AnalysisModel& model)
{
    sbd::ResultSelection selection;
    selection.kind = sbd::ResultKinds()[input.Byte() % sbd::ResultKinds().size()].kind;
    selection.load = Picked(model.loadCaseNames, static_cast<std::uint8_t>(input.Byte() | 2));
    selection.girder = Picked(model.girderNames, input.Byte());
    selection.station = Picked(sbd::NamesOf(model, selection.kind), input.Byte()).substr(0, input.Byte());
    const std::uint8_t columns = input.Byte();
    for (std::size_t i = 0; i < selection.columnOn.size(); ++i)
        selection.columnOn[i] = (columns >> i & 1) != 0;
    return selection;
}

void CheckTable(const sbd::AnalysisResults& results, const sbd::ResultSelection& selection)
{
    const sbd::CResultTable table(results, selection);
    Require(table.RowCount() <= sbd::NamesOf(results.model, selection.kind).size(), "a row stands for a name");
    Require(table.GridRowCount() == 0 || table.GridRowCount() >= table.RowCount() + sbd::kFirstValueRow,
            "all rows fit into the grid");
    for (std::size_t row = 0; row < table.RowCount() + sbd::kFirstValueRow + 1; ++row)
        for (std::size_t column = 0; column <= table.GridColumnCount(); ++column) {
            static_cast<void>(table.CellText(row, column));
            static_cast<void>(table.CellColor(row, column));
        }
}

void CheckDiagram(const sbd::AnalysisResults& results, const sbd::ResultSelection& selection, std::size_t load)
{
    const sbd::GirderDiagram diagram =
        sbd::MakeGirderDiagram(results, load, selection.girder, selection.kind, load % sbd::kNodeComponents);
    Require(diagram.bays.size() <= results.model.girderElements.size(), "a bay stands for a member of the grid");
    Require(diagram.positions.size() == diagram.bays.size() + 1, "points stand around bays");
    const sbd::DiagramScale scale = sbd::FitDiagram(diagram, {900, 500, 1920, 1080}, sbd::kFitZoom, {});
    const sbd::TextMetrics metrics{[](std::string_view text) { return 6.0 * static_cast<double>(text.size()); }, 12};
    const sbd::DiagramPage page = sbd::LayOutDiagram(diagram, scale, metrics, {});
    Require(page.valuesShown <= page.values, "a value is shown once");
    static_cast<void>(sbd::DiagramHeading(results, selection, diagram, scale, {}));
    static_cast<void>(sbd::PickOrdinate(results, diagram, scale, {450, 250}));
}

void CheckFigure(const sbd::AnalysisResults& results, sbd::CSbdData& data)
{
    const sbd::AnalysisModel& model = results.model;
    const std::vector<sbd::Point3> places = sbd::FigurePlaces(results);
    Require(places.size() == sbd::DeformedPlaces(results, 0).size(), "each node has both places");
    const sbd::CModelProjection projection(places, {1, 1, 1});
    const sbd::ModelScale scale = sbd::FitModel(projection.Bounds(), {900, 500, 1920, 1080}, sbd::kFitZoom, {});
    static_cast<void>(sbd::GirderLabels(results, projection, scale, 8));
    static_cast<void>(sbd::StationLabels(model, projection, scale, 8));
    const std::size_t nodes = projection.NodeCount();
    for (const std::int32_t node : sbd::DottedNodes(results.nodeTable, nodes))
        Require(projection.HasNode(node), "a dot stands at a node");
    for (const sbd::LateralLine& line : sbd::LateralBracing(model, data, nodes))
        Require(projection.HasNode(line.from.node1) && projection.HasNode(line.to.node2), "a line ends at nodes");
    const std::vector<sbd::CrossBeamRow> rows = sbd::CrossBeamRows(model, data);
    const std::vector<sbd::CrossLine> visible = sbd::VisibleCrossLines(model, rows, nodes);
    Require(visible.size() <= model.gridNodes.size(), "no more lines than the grid has");
    for (const sbd::CrossLine& line : visible)
        Require(projection.HasNode(line.node1) && projection.HasNode(line.node2), "a line ends at nodes");
}

/// A row of bracing and one of cross beams over the whole grid, from names that are there.
sbd::CSbdData DataOf(Input& input, const sbd::AnalysisModel& model)
{
    const auto girder = [&] { return Picked(model.girderNames, static_cast<std::uint8_t>(input.Byte() | 2)); };
    const auto station = [&] { return Picked(model.stationNames, static_cast<std::uint8_t>(input.Byte() | 2)); };
    sbd::CSbdData data;
    for (int row = 0; row < 3; ++row) {
        const std::string names[] = {girder(), girder(), station(), station()};
        data.Table(573)->AppendRow({names[0], names[1], names[2], names[3], "B", "C"});
        data.Table(523)->AppendRow({names[2], names[3], names[0], names[1], "x"});
    }
    return data;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    Input input(std::span(bytes, size));
    const sbd::AnalysisResults results = ResultsOf(input);
    const sbd::ResultSelection selection = SelectionOf(input, results.model);
    CheckTable(results, selection);
    if (const auto load = sbd::LoadCaseOf(results.model, selection.load))
        CheckDiagram(results, selection, *load);
    sbd::CSbdData data = DataOf(input, results.model);
    CheckFigure(results, data);
    static_cast<void>(sbd::FirstUseSelection(results.model));
    static_cast<void>(sbd::ChoicesOf(results.model, selection.kind));
    return 0;
}
