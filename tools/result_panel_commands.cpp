#include "tools/result_panel_commands.h"

#include "project/text.h"
#include "results/result_csv.h"
#include "results/result_files.h"
#include "results/result_stamp.h"
#include "results/result_table.h"
#include "results/result_workbook.h"
#include "sbdfile/output_file.h"
#include "tools/command_support.h"
#include "tools/json_text.h"
#include "tools/result_arguments.h"

#include <nlohmann/json.hpp>

namespace sbd {

namespace {

using nlohmann::json;
using Arguments = std::span<const std::string>;

AnalysisResults ResultsOf(const std::string& project)
{
    AnalysisResults results;
    ReadResultFiles(PathOf(project), results);
    return results;
}

json KindJson(ResultKind kind)
{
    return InfoOf(kind).word;
}

json OnJson(const ResultSelection& selection)
{
    json on = json::array();
    for (const bool component : selection.columnOn)
        on.push_back(component ? 1 : 0);
    return on;
}

json RowCells(const CResultTable& table, std::size_t gridRow)
{
    json cells = json::array();
    for (std::size_t column = kFirstValueColumn; column < table.GridColumnCount(); ++column)
        cells.push_back(FromCp932(table.CellText(gridRow, column)));
    return cells;
}

json ExtremeRowJson(const CResultTable& table, std::size_t gridRow)
{
    if (table.RowCount() == 0)
        return {};
    return {{"row", gridRow},
            {"name", FromCp932(table.CellText(gridRow, kNameColumn))},
            {"cells", RowCells(table, gridRow)},
            {"text", *table.CellColor(gridRow, kNameColumn)},
            {"background", *table.CellBackground(gridRow, kNameColumn)}};
}

/// Grid rows of the extremes of all columns; null where a column has none.
json ExtremePlaces(const CResultTable& table, std::optional<std::size_t> ColumnExtremes::*row)
{
    json places = json::array();
    for (std::size_t column = 0; table.RowCount() > 0 && column < table.Columns().size(); ++column) {
        const std::optional<std::size_t> place = table.Extremes(column).*row;
        places.push_back(place ? json(kFirstValueRow + *place) : json());
    }
    return places;
}

json TableJson(const CResultTable& table)
{
    json heads = json::array();
    json widths = json::array();
    for (std::size_t column = 0; column < table.GridColumnCount(); ++column) {
        heads.push_back(FromCp932(table.CellText(0, column)));
        widths.push_back(table.GridColumnWidth(column));
    }
    json rows = json::array();
    for (std::size_t row = kFirstValueRow; row < kFirstValueRow + table.RowCount(); ++row)
        rows.push_back(
            {{"row", row}, {"name", FromCp932(table.CellText(row, kNameColumn))}, {"cells", RowCells(table, row)}});
    return {{"heads", std::move(heads)},
            {"widths", std::move(widths)},
            {"gridRowCount", table.GridRowCount()},
            {"rows", std::move(rows)},
            {"maxRow", ExtremeRowJson(table, kMaxRow)},
            {"minRow", ExtremeRowJson(table, kMinRow)},
            {"maxAt", ExtremePlaces(table, &ColumnExtremes::maxRow)},
            {"minAt", ExtremePlaces(table, &ColumnExtremes::minRow)}};
}

json FirstUseJson(const AnalysisModel& model)
{
    const ResultSelection selection = FirstUseSelection(model);
    const std::optional<std::string> load = FirstLoad(model, selection.kind);
    return {{"kind", KindJson(selection.kind)},
            {"columnOn", OnJson(selection)},
            {"stationEnabled", selection.stationEnabled ? 1 : 0},
            {"excluded", TextList(selection.excludedNames)},
            {"figureItem", FromCp932(selection.figureItem)},
            {"load", load ? json(FromCp932(*load)) : json()},
            {"girder", FromCp932(selection.girder)},
            {"station", FromCp932(selection.station)},
            {"offered", TextList(selection.offeredNames)}};
}

json ChoicesJson(const AnalysisModel& model, ResultKind kind)
{
    const ResultKindInfo& info = InfoOf(kind);
    const ResultChoices choices = ChoicesOf(model, kind);
    json kinds = json::array();
    for (const ResultKindInfo& each : ResultKinds())
        kinds.push_back(each.word);
    return {{"kind", info.word},
            {"kinds", std::move(kinds)},
            {"loads", TextList(choices.loads)},
            {"girders", TextList(choices.girders)},
            {"stations", TextList(choices.stations)},
            {"items", info.components},
            {"defaultItem", info.components[info.defaultComponent]},
            {"label1023", info.stationLabel},
            {"label1026", info.excludedLabel}};
}

} // namespace

namespace {

/// The selection of the call. Its order is that of the grid column with this head, which the table knows.
ResultSelection SelectionOf(CResultArguments& parsed)
{
    ResultSelection selection;
    selection.kind = parsed.Kind();
    selection.envelope = parsed.Has("--envelope");
    if (selection.envelope)
        selection.envelopeLoads = parsed.Values("--load");
    else
        selection.load = parsed.Text("--load");
    selection.girder = parsed.Text("--girder");
    selection.station = parsed.Text("--station");
    selection.excludedNames = parsed.Values("--exclude");
    for (const std::string& off : parsed.Values("--off"))
        selection.columnOn[parsed.Component(selection.kind, off)] = false;
    if (parsed.Has("--filter"))
        selection.filter = parsed.Text("--filter");
    selection.descending = parsed.Has("--descending");
    return selection;
}

/// Writes the files that are asked for; what went wrong, or nothing.
std::optional<CommandResult> WriteTables(CResultArguments& parsed, const CResultTable& table,
                                         const ResultSelection& selection, const ResultState& state)
{
    const auto told = [](const std::string& path, const FileResult& result) {
        return result.Ok()
                   ? std::nullopt
                   : std::optional(Fail("sbdtool result-table: 書き込めません: " + path + " (" + result.detail + ")"));
    };
    if (parsed.Has("--csv")) {
        const std::string path = FromCp932(parsed.Text("--csv"));
        if (auto failed = told(path, WriteOutputFile(PathOf(path), CsvOfTable(table, selection, state))))
            return failed;
    }
    if (parsed.Has("--xlsx")) {
        const std::string path = FromCp932(parsed.Text("--xlsx"));
        return told(path, SaveResultWorkbook(PathOf(path), table, selection, state));
    }
    return std::nullopt;
}

} // namespace

CommandResult RunResultTable(Arguments arguments)
{
    CResultArguments parsed(arguments, {.withValue = {"--kind", "--load", "--girder", "--station", "--off", "--exclude",
                                                      "--filter", "--sort", "--csv", "--xlsx"},
                                        .alone = {"--envelope", "--descending"}});
    ResultSelection selection;
    if (!parsed.Wrong())
        selection = SelectionOf(parsed);
    if (!parsed.Wrong() && parsed.Has("--sort")) {
        const std::string head = parsed.Text("--sort");
        selection.sortColumn = SortColumnOf(selection, head);
        if (!parsed.Wrong() && selection.sortColumn == 0)
            return WrongUse("result-table", "その見出しの列はありません: " + FromCp932(head));
    }
    if (parsed.Wrong())
        return WrongUse("result-table", *parsed.Wrong());

    AnalysisResults results;
    ResultStamp asRead;
    const std::filesystem::path project = PathOf(parsed.Project());
    ReadStampedResultFiles(project, results, asRead);
    for (const std::string& load : selection.envelopeLoads)
        if (!LoadCaseOf(results.model, load))
            return Fail("sbdtool result-table: この荷重は結果にありません: " + FromCp932(load));
    if (selection.envelope && selection.envelopeLoads.empty())
        selection.envelopeLoads = EnvelopeLoads(results.model, selection.kind);
    const CResultTable table(results, selection);
    if (auto failed = WriteTables(parsed, table, selection, ResultStateOf(project, asRead, false)))
        return *failed;
    if (parsed.Has("--csv") || parsed.Has("--xlsx"))
        return {};
    const ResultKindInfo& info = InfoOf(selection.kind);
    json shown = TableJson(table);
    shown.update(
        {{"kind", info.word},
         {"load", FromCp932(selection.load)},
         {"girder", FromCp932(selection.girder)},
         {"station", FromCp932(selection.station)},
         {"columnOn", OnJson(selection)},
         {"loadIndex", table.LoadIndex() ? json(*table.LoadIndex()) : json(-1)},
         {"empty", !table.LoadIndex()},
         {"figureItem", table.LoadIndex() ? json(info.components[info.defaultComponent]) : json()},
         {"excluded", TextList(selection.excludedNames)},
         {"offered", TextList(OfferedNames(results.model, selection.kind, selection.girder, selection.station))}});
    if (selection.envelope)
        shown["envelope"] = TextList(selection.envelopeLoads);
    return Print(shown);
}

CommandResult RunResultChoices(Arguments arguments)
{
    CResultArguments parsed(arguments, {.withValue = {"--kind"}, .alone = {"--first-use"}});
    const bool firstUse = parsed.Has("--first-use");
    const ResultKind kind = !parsed.Wrong() && !firstUse ? parsed.Kind() : ResultKind::Force;
    if (parsed.Wrong())
        return WrongUse("result-choices", *parsed.Wrong());
    if (firstUse && parsed.Has("--kind"))
        return WrongUse("result-choices", "--kind と --first-use は同時に指定できません");
    const AnalysisResults results = ResultsOf(parsed.Project());
    return Print(firstUse ? FirstUseJson(results.model) : ChoicesJson(results.model, kind));
}

} // namespace sbd
