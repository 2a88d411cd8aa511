#include "results/result_title.h"

#include "project/text.h"
#include "results/model_projection.h"
#include "results/result_table.h"

#include <algorithm>

namespace sbd {

using namespace literals;

namespace {

constexpr std::size_t kNamedExclusions = 8;

std::string Part(std::string_view word, const std::string& cp932)
{
    return Cp932("　" + std::string(word) + ": ") + cp932;
}

std::string Times(double magnification)
{
    std::string text;
    AppendFixed(text, magnification, 0, 0);
    return text;
}

std::string Listed(const std::vector<std::string>& names)
{
    std::string text;
    for (std::size_t i = 0; i < std::min(names.size(), kNamedExclusions); ++i)
        text += (i > 0 ? ", " : "") + names[i];
    if (names.size() > kNamedExclusions)
        text += Cp932(" ほか " + std::to_string(names.size() - kNamedExclusions) + " 件");
    return text;
}

/// "最大・最小 (荷重 3 件)"
std::string EnvelopeWord(std::size_t cases)
{
    return Cp932("最大・最小 (荷重 " + std::to_string(cases) + " 件)");
}

} // namespace

std::string ShortTableTitle(const ResultSelection& selection)
{
    std::string title = KindWord(selection.kind)
                        + (selection.envelope ? "　"_cp932 + EnvelopeWord(selection.envelopeLoads.size())
                                              : Part("荷重", ShownLoad(selection.load)));
    title += Part("主桁", selection.girder);
    // Each name begins with the empty text.
    if (selection.girder == NoneWord() || selection.station != NoneWord())
        title += Part("名称", selection.station.empty() ? AllWord() : selection.station);
    return title;
}

std::string TableTitle(const ResultSelection& selection)
{
    std::string title = ShortTableTitle(selection);
    if (!selection.filter.empty())
        title += Part("絞り込み", selection.filter);
    if (selection.sortColumn > 0)
        title += Part("並び", SortHead(selection) + (selection.descending ? " 降順"_cp932 : " 昇順"_cp932));
    if (selection.envelope) {
        std::vector<std::string> loads;
        for (const std::string& load : selection.envelopeLoads)
            loads.push_back(ShownLoad(Trim(load)));
        title += Part("荷重", Listed(loads));
    }
    if (!selection.excludedNames.empty())
        title += Part("出力しない名称", Listed(selection.excludedNames));
    return title;
}

std::string FigureTitle(const AnalysisModel& model, const ResultSelection& selection, double magnification)
{
    std::string title = KindWord(selection.kind);
    const std::string load = selection.envelope ? "　"_cp932 + EnvelopeWord(EnvelopeCases(model, selection).size())
                                                : Part("荷重", ShownLoad(selection.load));
    if (selection.kind == ResultKind::Displacement && selection.girder == AllWord() && !selection.envelope)
        return title + load + Part("主桁", selection.girder)
               + Part("変形の倍率", Times(selection.magnification == 0 ? magnification : selection.magnification)
                                        + (selection.magnification == 0 ? " (自動)"_cp932 : ""));
    const std::size_t component =
        ComponentOf(selection.kind, selection.figureItem).value_or(InfoOf(selection.kind).defaultComponent);
    title += " " + ComponentWord(selection.kind, component) + " [" + UnitWord(selection.kind, component) + "]" + load;
    const bool isThere = std::ranges::find(model.girderNames, selection.girder) != model.girderNames.end();
    if (isThere)
        return title + Part("主桁", selection.girder);
    return model.girderNames.empty() ? title : title + Part("主桁", model.girderNames.front() + " (最初の主桁)"_cp932);
}

} // namespace sbd
