#include "tools/result_commands.h"

#include "project/text.h"
#include "results/result_files.h"
#include "results/result_paths.h"
#include "tools/command_support.h"
#include "tools/json_text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <optional>

namespace sbd {

namespace {

using nlohmann::json;
using Names = std::vector<std::string>;

struct CountField {
    const char* key;
    std::int32_t AnalysisModel::*value;
};
constexpr CountField kCounts[] = {
    {"loadCaseCount", &AnalysisModel::loadCaseCount},
    {"secondNameCount", &AnalysisModel::secondNameCount},
    {"nodeCount", &AnalysisModel::nodeCount},
    {"elementCount", &AnalysisModel::elementCount},
    {"sectionCount", &AnalysisModel::sectionCount},
    {"secondSectionCount", &AnalysisModel::secondSectionCount},
    {"gridFlag", &AnalysisModel::gridFlag},
    {"grid1", &AnalysisModel::grid1},
    {"grid2", &AnalysisModel::grid2},
    {"grid3", &AnalysisModel::grid3},
    {"grid4", &AnalysisModel::grid4},
    {"grid5", &AnalysisModel::grid5},
    {"pointCount", &AnalysisModel::pointCount},
    {"lineCountA", &AnalysisModel::lineCountA},
    {"lineCountB", &AnalysisModel::lineCountB},
    {"girderCount", &AnalysisModel::girderCount},
    {"stationCount", &AnalysisModel::stationCount},
    {"grid6", &AnalysisModel::grid6},
    {"grid7", &AnalysisModel::grid7},
    {"grid8", &AnalysisModel::grid8},
    {"tailCount", &AnalysisModel::tailCount},
    {"lastWord", &AnalysisModel::lastWord},
};

struct NamesField {
    const char* key;
    Names AnalysisModel::*names;
};
constexpr NamesField kNames[] = {
    {"loadCaseNames", &AnalysisModel::loadCaseNames}, {"secondNames", &AnalysisModel::secondNames},
    {"nodeNames", &AnalysisModel::nodeNames},         {"elementNames", &AnalysisModel::elementNames},
    {"lineNamesA", &AnalysisModel::lineNamesA},       {"lineNamesB", &AnalysisModel::lineNamesB},
    {"girderNames", &AnalysisModel::girderNames},     {"stationNames", &AnalysisModel::stationNames},
    {"sectionNames", &AnalysisModel::sectionNames},   {"secondSectionNames", &AnalysisModel::secondSectionNames},
};

struct WordsField {
    const char* key;
    std::vector<std::int32_t> AnalysisModel::*words;
};
constexpr WordsField kWords[] = {
    {"nodeWords", &AnalysisModel::nodeWords},           {"elementWords", &AnalysisModel::elementWords},
    {"gridNodes", &AnalysisModel::gridNodes},           {"gridNodes2", &AnalysisModel::gridNodes2},
    {"girderElements", &AnalysisModel::girderElements}, {"crossElements", &AnalysisModel::crossElements},
    {"stationWords", &AnalysisModel::stationWords},     {"pointIndex", &AnalysisModel::pointIndex},
    {"tailWords", &AnalysisModel::tailWords},
};

json PointList(const std::vector<std::array<double, 3>>& points)
{
    json list = json::array();
    for (const auto& point : points)
        list.push_back(NumbersJson(point));
    return list;
}

/// Bytes of the names that are no whole text, by list and index.
json UncleanNames(const AnalysisModel& model)
{
    json unclean = json::object();
    if (!IsWholeText(model.title))
        unclean["title"] = Hex(model.title);
    for (const NamesField& field : kNames) {
        const Names& names = model.*field.names;
        for (std::size_t i = 0; i < names.size(); ++i)
            if (!IsWholeText(names[i]))
                unclean[field.key][std::to_string(i)] = Hex(names[i]);
    }
    return unclean;
}

json ReadJson(const ResultFilesRead& read)
{
    return {{"Z1D", read.model},        {"Z1F", read.elementTable}, {"Z1R", read.nodeTable},
            {"Z3D", read.displacement}, {"Z3F", read.force},        {"Z3R", read.reaction}};
}

/// The forces of a project as its file has them, ahead of the turn of the axes.
json ForceInFileJson(const std::filesystem::path& project)
{
    ResultCube force;
    return force.Read(ResultFile(project, ".Z3F")) ? CubeSummaryJson(force) : json();
}

} // namespace

json ModelJson(const AnalysisModel& model)
{
    json result = {{"title", FromCp932(model.title)},
                   {"header", model.header},
                   {"elementLinks", model.elementLinks},
                   {"sections", model.sections},
                   {"secondSections", model.secondSections},
                   {"linePoints", PointList(model.linePoints)},
                   {"girderPoints", PointList(model.girderPoints)},
                   {"pointPairs", model.pointPairs},
                   {"stationRecords", model.stationRecords}};
    for (const CountField& field : kCounts)
        result[field.key] = model.*field.value;
    for (const NamesField& field : kNames)
        result[field.key] = TextList(model.*field.names);
    for (const WordsField& field : kWords)
        result[field.key] = model.*field.words;
    if (json unclean = UncleanNames(model); !unclean.empty())
        result["bytesOfUncleanNames"] = std::move(unclean);
    return result;
}

json ElementTableJson(const ElementTable& table)
{
    json values = json::array();
    for (const auto& bytes : table.elementValues)
        values.push_back(Hex({reinterpret_cast<const char*>(bytes.data()), bytes.size()}));
    return {
        {"elementTableCount", table.elementTableCount}, {"ends", table.ends}, {"elementValuesHex", std::move(values)}};
}

json NodeTableJson(const NodeTable& table)
{
    return {{"nodeTableCount", table.nodeTableCount},
            {"coordinates", PointList(table.coordinates)},
            {"nodeFlags", table.nodeFlags},
            {"nodeValues", table.nodeValues}};
}

json CubeSummaryJson(const ResultCube& cube)
{
    constexpr std::size_t kShown = 5;
    const std::span<const double> values = cube.values;
    const std::size_t shown = std::min(kShown, values.size());
    std::optional<double> least;
    std::optional<double> greatest;
    double sum = 0;
    double weightedSum = 0;
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (!least || values[i] < *least)
            least = values[i];
        if (!greatest || values[i] > *greatest)
            greatest = values[i];
        sum += values[i];
        weightedSum += values[i] * static_cast<double>(i % 97 + 1); // tells values in another order apart
    }
    return {{"size", {cube.size1, cube.size2, cube.size3}},
            {"count", values.size()},
            {"min", least ? NumberJson(*least) : json()},
            {"max", greatest ? NumberJson(*greatest) : json()},
            {"sum", NumberJson(sum)},
            {"weightedSum", NumberJson(weightedSum)},
            {"first5", NumbersJson(values.first(shown))},
            {"last5", NumbersJson(values.last(shown))}};
}

json ResultPathsJson(std::string_view projectPath)
{
    json paths = {{"project", FromCp932(projectPath)}, {"lastBackslash", LastBackslash(projectPath)}};
    for (const char* extension : {".Z1D", ".Z1F", ".Z1R", ".Z3D", ".Z3F", ".Z3R"})
        paths[extension] = FromCp932(ResultPath(projectPath, extension));
    paths[".CHK"] = FromCp932(ReportPath(projectPath));
    return paths;
}

CommandResult RunResults(std::span<const std::string> arguments)
{
    std::vector<std::string> projects;
    std::optional<std::string> again;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        if (arguments[i] == "--again" && i + 1 < arguments.size())
            again = arguments[++i];
        else if (arguments[i].starts_with("--"))
            return WrongUse("results", "知らないオプションです: " + arguments[i]);
        else
            projects.push_back(arguments[i]);
    }
    if (projects.size() != 1)
        return WrongUse("results", "引数の数が違います");

    AnalysisResults results;
    const std::filesystem::path project = PathOf(projects[0]);
    ResultFilesRead read = ReadResultFiles(project, results);
    if (again)
        read = ReadResultFiles(PathOf(*again), results);
    const std::u8string name = project.filename().u8string();
    return Print({{"project", std::string(name.begin(), name.end())},
                  {"read", ReadJson(read)},
                  {"model", ModelJson(results.model)},
                  {"elementTable", ElementTableJson(results.elementTable)},
                  {"nodeTable", NodeTableJson(results.nodeTable)},
                  {"displacement", CubeSummaryJson(results.displacement)},
                  {"forceInFile", ForceInFileJson(again ? PathOf(*again) : project)},
                  {"turnedElements", read.turnedElements},
                  {"force", CubeSummaryJson(results.force)},
                  {"reaction", CubeSummaryJson(results.reaction)}});
}

CommandResult RunResultPaths(std::span<const std::string> arguments)
{
    if (arguments.size() != 1)
        return WrongUse("result-paths", "引数の数が違います");
    const Cp932Result path = ToCp932(arguments[0]);
    if (path.refused)
        return Fail("sbdtool result-paths: CP932 にない文字です: " + path.refused->character);
    return Print(ResultPathsJson(path.bytes));
}

} // namespace sbd
