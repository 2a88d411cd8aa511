#include "results/result_kind.h"

#include "project/text.h"

#include <algorithm>

namespace sbd {

namespace {

constexpr std::string_view kNodeStation = "格点(主桁なし選択の場合)";
constexpr std::string_view kNodeExcluded = "出力しない格点名選択";

constexpr ResultKindInfo kKinds[] = {
    {.kind = ResultKind::Displacement,
     .word = "変位",
     .components = {"Ux", "Uy", "Uz", "θx", "θy", "θz"},
     .units = {"mm", "mm", "mm", "1/1000 rad", "1/1000 rad", "1/1000 rad"},
     .defaultComponent = 2,
     .stationLabel = kNodeStation,
     .excludedLabel = kNodeExcluded,
     .nameHead = "格点名",
     .nameWidth = 146,
     .valueWidth = 100,
     .headPrefix = "1000･",
     .textWidth = 0,
     .bothEnds = false},
    {.kind = ResultKind::Force,
     .word = "断面力",
     .components = {"Nx", "Sy", "Sz", "Tx", "My", "Mz"},
     .units = {"kN", "kN", "kN", "kN・m", "kN・m", "kN・m"},
     .defaultComponent = 4,
     .stationLabel = "要素(主桁なし選択の場合)",
     .excludedLabel = "出力しない要素名選択",
     .nameHead = "要素名",
     .nameWidth = 100,
     .valueWidth = 55,
     .headPrefix = "",
     .textWidth = 20,
     .bothEnds = true},
    {.kind = ResultKind::Reaction,
     .word = "反力",
     .components = {"Fx", "Fy", "Fz", "Mx", "My", "Mz"},
     .units = {"kN", "kN", "kN", "kN・m", "kN・m", "kN・m"},
     .defaultComponent = 2,
     .stationLabel = kNodeStation,
     .excludedLabel = kNodeExcluded,
     .nameHead = "格点名",
     .nameWidth = 146,
     .valueWidth = 100,
     .headPrefix = "",
     .textWidth = 0,
     .bothEnds = false},
};

} // namespace

std::span<const ResultKindInfo> ResultKinds()
{
    return kKinds;
}

const ResultKindInfo& InfoOf(ResultKind kind)
{
    return kKinds[static_cast<std::size_t>(kind)];
}

std::optional<ResultKind> ResultKindOf(std::string_view word)
{
    const auto* const row =
        std::ranges::find_if(kKinds, [&](const ResultKindInfo& info) { return Cp932(info.word) == word; });
    return row == std::end(kKinds) ? std::nullopt : std::optional(row->kind);
}

std::optional<std::size_t> ComponentOf(ResultKind kind, std::string_view component)
{
    for (std::size_t i = 0; i < kNodeComponents; ++i)
        if (ComponentWord(kind, i) == component)
            return i;
    return std::nullopt;
}

std::string KindWord(ResultKind kind)
{
    return Cp932(InfoOf(kind).word);
}

std::string ComponentWord(ResultKind kind, std::size_t component)
{
    return Cp932(InfoOf(kind).components[component]);
}

std::string UnitWord(ResultKind kind, std::size_t component)
{
    return Cp932(InfoOf(kind).units[component]);
}

const std::vector<std::string>& NamesOf(const AnalysisModel& model, ResultKind kind)
{
    return kind == ResultKind::Force ? model.elementNames : model.nodeNames;
}

const ResultCube& CubeOf(const AnalysisResults& results, ResultKind kind)
{
    switch (kind) {
    case ResultKind::Force:
        return results.force;
    case ResultKind::Reaction:
        return results.reaction;
    case ResultKind::Displacement:
        break;
    }
    return results.displacement;
}

std::size_t ValuesOfItem(ResultKind kind)
{
    return kind == ResultKind::Force ? kElementComponents : kNodeComponents;
}

std::optional<std::size_t> LoadCaseOf(const AnalysisModel& model, std::string_view name)
{
    const auto place = std::ranges::find(model.loadCaseNames, name);
    if (place == model.loadCaseNames.end())
        return std::nullopt;
    return static_cast<std::size_t>(place - model.loadCaseNames.begin());
}

} // namespace sbd
