#include "results/result_faults.h"

#include "project/text.h"

#include <algorithm>
#include <cstdint>
#include <string_view>

namespace sbd {

namespace {

using std::to_string;

constexpr std::string_view kEnds = " が途中で終わっています。";

/// "格点名 (86 のうち 40)" for each list that is shorter than its count.
struct ListClaim {
    std::string_view word;
    std::int64_t claimed;
    std::size_t read;
};

std::string ShortLists(std::initializer_list<ListClaim> claims)
{
    std::string text;
    for (const ListClaim& claim : claims)
        if (claim.claimed > 0 && static_cast<std::uint64_t>(claim.claimed) > claim.read)
            text += (text.empty() ? "" : "、") + std::string(claim.word) + " (" + to_string(claim.claimed) + " のうち "
                    + to_string(claim.read) + ")";
    return text;
}

/// Members of the forces of which the model does not tell how their axes lie.
struct UnknownAxes {
    std::size_t members = 0;
    std::size_t unknown = 0;
};

UnknownAxes AxesOf(const AnalysisModel& model, const ResultCube& force)
{
    UnknownAxes axes;
    if (force.values.empty() || force.size1 <= 0)
        return axes;
    axes.members = std::min<std::size_t>(static_cast<std::size_t>(force.size1), force.values.size());
    for (std::size_t member = 0; member < axes.members; ++member) {
        const bool hasLink = member < model.elementLinks.size();
        const std::int64_t section = hasLink ? model.elementLinks[member][2] : 0;
        if (!hasLink || section > static_cast<std::int64_t>(model.sections.size()))
            ++axes.unknown;
    }
    return axes;
}

std::string AxesText(const AnalysisModel& model, const ResultCube& force)
{
    const UnknownAxes axes = AxesOf(model, force);
    if (axes.unknown == 0)
        return {};
    const std::string which = axes.unknown == axes.members
                                  ? std::string()
                                  : "要素 " + to_string(axes.members) + " のうち " + to_string(axes.unknown) + " の";
    return which + "軸の変換は行っていません。断面力の Sy と Sz、My と Mz が入れ替わっていることがあります。";
}

std::string CutModelText(const AnalysisResults& results)
{
    const AnalysisModel& model = results.model;
    const std::string lists = ShortLists({{"荷重名", model.loadCaseCount, model.loadCaseNames.size()},
                                          {"格点名", model.nodeCount, model.nodeNames.size()},
                                          {"要素名", model.elementCount, model.elementNames.size()},
                                          {"要素の断面番号", model.elementCount, model.elementLinks.size()},
                                          {"断面", model.sectionCount, model.sections.size()},
                                          {"主桁名", model.girderCount, model.girderNames.size()},
                                          {"格点線名", model.stationCount, model.stationNames.size()}});
    std::string text = !lists.empty()               ? "足りないもの: " + lists + "。"
                       : model.stationNames.empty() ? "後ろの部分がありません。"
                                                    : "表と図に使う部分は読めています。";
    text += AxesText(model, results.force);
    if (model.nodeNames.size() < static_cast<std::size_t>(std::max(model.nodeCount, 0))
        || model.elementNames.size() < static_cast<std::size_t>(std::max(model.elementCount, 0)))
        text += "名称のない格点と要素は表に出ません。";
    if (model.girderNames.empty() || model.stationNames.empty())
        text += "主桁ごとの表と図は出せません。";
    return text;
}

std::string CutElementsText(const ElementTable& table)
{
    const std::string lists = ShortLists({{"要素", table.elementTableCount, table.ends.size()}});
    return lists.empty() ? "表と図に使う部分は読めています。"
                         : "足りないもの: " + lists + "。残りの要素は図に出ません。";
}

std::string CutNodesText(const NodeTable& table)
{
    std::string text = ShortLists({{"座標", table.nodeTableCount, table.coordinates.size()},
                                   {"格点の印", table.nodeTableCount, table.nodeFlags.size()},
                                   {"支点の印", table.nodeTableCount, table.nodeValues.size()}});
    text = text.empty() ? "後ろの部分がありません。" : "足りないもの: " + text + "。";
    if (table.coordinates.size() < static_cast<std::size_t>(std::max(table.nodeTableCount, 0)))
        text += "残りの格点と要素は図に出ません。";
    return text + "結果を持たない格点が表に出ることがあり、支点が図に出ないことがあります。";
}

/// A cube and what it holds: which of the counts of the model its sizes should be.
struct CubeRow {
    std::string_view file;
    std::string_view item;
    ResultCube AnalysisResults::*cube;
    std::int32_t AnalysisModel::*items;
    std::size_t components;
};
constexpr CubeRow kCubes[] = {
    {"Z3D", "格点", &AnalysisResults::displacement, &AnalysisModel::nodeCount, kNodeComponents},
    {"Z3F", "要素", &AnalysisResults::force, &AnalysisModel::elementCount, kElementComponents},
    {"Z3R", "格点", &AnalysisResults::reaction, &AnalysisModel::nodeCount, kNodeComponents},
};

std::string CutCubeText(const ResultCube& cube, std::string_view item)
{
    const auto valuesOfItem =
        static_cast<std::uint64_t>(std::max(cube.size2, 0)) * static_cast<std::uint64_t>(std::max(cube.size3, 0));
    const std::size_t read = valuesOfItem == 0 ? 0 : static_cast<std::size_t>(cube.values.size() / valuesOfItem);
    const std::string lists = ShortLists({{item, cube.size1, read}});
    return (lists.empty() ? "値がありません。" : "値のあるもの: " + lists + "。")
           + "残りは表と図に出ません。最大値と最小値は、読めた分だけのものです。";
}

std::string Sizes(std::string_view item, std::int64_t items, std::int64_t loads, std::int64_t components)
{
    return std::string(item) + " " + to_string(items) + "・荷重 " + to_string(loads) + "・成分 "
           + to_string(components);
}

/// What two files say of the same thing, where neither is cut.
std::string UnlikeText(std::string_view file, const std::string& own, const std::string& model)
{
    return std::string(file) + " の大きさ (" + own + ") が Z1D (" + model
           + ") と合いません。別の解析の結果が混じっていることがあり、値が別のものの値として出ている恐れがあります。";
}

bool IsThere(const AnalysisModel& model)
{
    return model.nodeCount > 0 || model.elementCount > 0 || model.loadCaseCount > 0;
}

} // namespace

std::vector<ResultFault> ResultFaults(const AnalysisResults& results)
{
    const AnalysisModel& model = results.model;
    std::vector<ResultFault> faults;
    const auto add = [&](std::string_view file, const std::string& utf8) {
        faults.push_back({std::string(file), Cp932(utf8)});
    };
    const auto addCut = [&](std::string_view file, const std::string& utf8) {
        add(file, std::string(file) + std::string(kEnds) + utf8);
    };
    const bool compares = !model.cut && IsThere(model);
    const auto addUnlike = [&](std::string_view file, std::string_view item, std::int32_t own, std::int32_t wanted) {
        if (compares && own != 0 && own != wanted)
            add(file, UnlikeText(file, std::string(item) + " " + to_string(own),
                                 std::string(item) + " " + to_string(wanted)));
    };

    if (model.cut)
        addCut("Z1D", CutModelText(results));
    if (results.elementTable.cut)
        addCut("Z1F", CutElementsText(results.elementTable));
    else
        addUnlike("Z1F", "要素", results.elementTable.elementTableCount, model.elementCount);
    if (results.nodeTable.cut)
        addCut("Z1R", CutNodesText(results.nodeTable));
    else
        addUnlike("Z1R", "格点", results.nodeTable.nodeTableCount, model.nodeCount);
    for (const CubeRow& row : kCubes) {
        const ResultCube& cube = results.*row.cube;
        const std::string own = Sizes(row.item, cube.size1, cube.size2, cube.size3);
        const std::string wanted =
            Sizes(row.item, model.*row.items, model.loadCaseCount, static_cast<std::int64_t>(row.components));
        if (cube.cut)
            addCut(row.file, CutCubeText(cube, row.item));
        else if (compares && cube.size1 != 0 && own != wanted)
            add(row.file, UnlikeText(row.file, own, wanted));
    }
    return faults;
}

std::string ResultFaultLine(const AnalysisResults& results)
{
    std::string files;
    for (const ResultFault& fault : ResultFaults(results))
        files += (files.empty() ? "" : ", ") + fault.file;
    return files.empty() ? files : Cp932("注意: 結果ファイル " + files + " が不完全です");
}

} // namespace sbd
