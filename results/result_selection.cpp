#include "results/result_selection.h"

#include "project/text.h"

#include <algorithm>
#include <set>
#include <utility>

namespace sbd {

using namespace literals;

namespace {

constexpr std::string_view kRaisedLoad = "-(";

/// Behind a load case whose forces against the dead load are raised.
const std::string& RaisedMark()
{
    static const std::string mark = "(相反応力考慮)"_cp932;
    return mark;
}

/// How the load cases begin that a user looks at first; forces are looked at with a "-" in front.
constexpr std::string_view kFirstLoads[] = {"(B-L", "(A-L", "(死+BL", "(死+AL", "死+雪+群集-最"};

void Offer(ResultSelection& selection, const AnalysisModel& model)
{
    selection.offeredNames = OfferedNames(model, selection.kind, selection.girder, selection.station);
}

} // namespace

const std::string& NoneWord()
{
    static const std::string word = "なし"_cp932;
    return word;
}

const std::string& AllWord()
{
    static const std::string word = "すべて"_cp932;
    return word;
}

ResultChoices ChoicesOf(const AnalysisModel& model, ResultKind kind)
{
    ResultChoices choices;
    for (const std::string& name : model.loadCaseNames) {
        const std::string_view trimmed = Trim(name);
        if (!trimmed.starts_with(kRaisedLoad))
            choices.loads.push_back(name);
        else if (kind == ResultKind::Force)
            choices.loads.push_back(ShownLoad(trimmed));
    }
    const std::vector<std::string>& names = NamesOf(model, kind);
    choices.girders = {NoneWord(), AllWord()};
    choices.stations = choices.girders;
    choices.girders.insert(choices.girders.end(), model.girderNames.begin(), model.girderNames.end());
    choices.stations.insert(choices.stations.end(), names.begin(), names.end());
    return choices;
}

std::string ShownLoad(std::string_view load)
{
    return load.starts_with(kRaisedLoad) ? std::string(load.substr(1)) + RaisedMark() : std::string(load);
}

std::string PlainLoad(std::string_view load)
{
    return std::string(load.starts_with(kRaisedLoad) ? load.substr(1) : load);
}

std::string LoadOfShown(std::string_view shown)
{
    const std::size_t mark = shown.find(RaisedMark());
    if (mark == std::string_view::npos)
        return std::string(shown);
    return "-" + std::string(TrimRight(shown.substr(0, mark)));
}

std::vector<std::string> EnvelopeLoads(const AnalysisModel& model, ResultKind kind)
{
    std::vector<std::string> loads;
    for (const std::string& name : model.loadCaseNames)
        if (kind == ResultKind::Force || !Trim(name).starts_with(kRaisedLoad))
            loads.push_back(name);
    return loads;
}

std::vector<std::size_t> EnvelopeCases(const AnalysisModel& model, const ResultSelection& selection)
{
    const std::set<std::string_view> chosen(selection.envelopeLoads.begin(), selection.envelopeLoads.end());
    std::vector<std::size_t> cases;
    for (std::size_t i = 0; i < model.loadCaseNames.size(); ++i) {
        const std::string& name = model.loadCaseNames[i];
        if (chosen.contains(name) && (selection.kind == ResultKind::Force || !Trim(name).starts_with(kRaisedLoad)))
            cases.push_back(i);
    }
    return cases;
}

std::string ShownLoadAt(const AnalysisModel& model, std::int64_t loadCase)
{
    if (loadCase < 0 || static_cast<std::uint64_t>(loadCase) >= model.loadCaseNames.size())
        return {};
    return ShownLoad(Trim(model.loadCaseNames[static_cast<std::size_t>(loadCase)]));
}

std::optional<std::string> FirstLoad(const AnalysisModel& model, ResultKind kind)
{
    std::vector<std::string> beginnings;
    for (const std::string_view beginning : kFirstLoads)
        beginnings.push_back((kind == ResultKind::Force ? "-" : "") + Cp932(beginning));
    for (const std::string& name : model.loadCaseNames) {
        const std::string_view trimmed = Trim(name);
        if (std::ranges::any_of(beginnings, [&](const std::string& text) { return trimmed.starts_with(text); }))
            return std::string(trimmed);
    }
    return std::nullopt;
}

std::vector<std::string> OfferedNames(const AnalysisModel& model, ResultKind kind, std::string_view girder,
                                      std::string_view station)
{
    const std::string_view filter = girder == NoneWord() ? station : girder;
    const std::vector<std::string>& names = NamesOf(model, kind);
    if (filter == AllWord())
        return names;
    std::vector<std::string> offered;
    std::ranges::copy_if(names, std::back_inserter(offered),
                         [&](const std::string& name) { return name.starts_with(filter); });
    return offered;
}

ResultSelection FirstUseSelection(const AnalysisModel& model)
{
    ResultSelection selection;
    selection.panelUsed = true;
    selection.kind = ResultKind::Force;
    const std::string other = model.loadCaseNames.empty() ? std::string() : model.loadCaseNames.front();
    selection.load = FirstLoad(model, selection.kind).value_or(other);
    const bool hasGirders = !model.girderNames.empty();
    selection.girder = hasGirders ? model.girderNames.front() : NoneWord();
    selection.station = hasGirders ? NoneWord() : AllWord();
    selection.figureItem = ComponentWord(selection.kind, InfoOf(selection.kind).defaultComponent);
    Offer(selection, model);
    return selection;
}

ResultSelection KeptSelection(const ResultSelection& selection, const AnalysisModel& model)
{
    if (selection.load.empty())
        return FirstUseSelection(model);
    ResultSelection kept = selection;
    if (!LoadCaseOf(model, kept.load)) {
        const std::string other = model.loadCaseNames.empty() ? std::string() : model.loadCaseNames.front();
        kept.load = FirstLoad(model, kept.kind).value_or(other);
    }
    const bool hasGirder = kept.girder == NoneWord() || kept.girder == AllWord()
                           || std::ranges::find(model.girderNames, kept.girder) != model.girderNames.end();
    if (!hasGirder) {
        const ResultSelection first = FirstUseSelection(model);
        kept.girder = first.girder;
        kept.station = first.station;
        kept.stationEnabled = kept.girder == NoneWord();
    }
    std::erase_if(kept.envelopeLoads, [&](const std::string& name) { return !LoadCaseOf(model, name); });
    if (!LoadCaseOf(model, kept.overLoad))
        kept.overLoad.clear();
    if (std::ranges::find(model.girderNames, kept.overGirder) == model.girderNames.end())
        kept.overGirder.clear();
    Offer(kept, model);
    const std::set<std::string_view> offered(kept.offeredNames.begin(), kept.offeredNames.end());
    std::erase_if(kept.excludedNames, [&](const std::string& name) { return !offered.contains(name); });
    return kept;
}

void SelectKind(ResultSelection& selection, const AnalysisModel& model, ResultKind kind)
{
    selection.sortColumn = 0; // the columns are others
    selection.kind = kind;
    selection.load = PlainLoad(selection.load);
    selection.overLoad = PlainLoad(selection.overLoad);
    selection.figureItem = ComponentWord(kind, InfoOf(kind).defaultComponent);
    Offer(selection, model);
}

void SelectLoad(ResultSelection& selection, std::string_view shown)
{
    selection.load = LoadOfShown(shown);
}

void SelectGirder(ResultSelection& selection, const AnalysisModel& model, std::string_view girder)
{
    selection.girder = girder;
    selection.stationEnabled = girder == NoneWord();
    Offer(selection, model);
}

void SwapOver(ResultSelection& selection, const AnalysisModel& model)
{
    if (!selection.overLoad.empty())
        std::swap(selection.load, selection.overLoad);
    if (selection.overGirder.empty())
        return;
    const bool isThere = std::ranges::find(model.girderNames, selection.girder) != model.girderNames.end();
    // The figure takes the first girder where none is chosen.
    std::string before = isThere || model.girderNames.empty() ? selection.girder : model.girderNames.front();
    SelectGirder(selection, model, selection.overGirder);
    selection.overGirder = std::move(before);
}

void SelectStation(ResultSelection& selection, const AnalysisModel& model, std::string_view station)
{
    selection.station = station;
    Offer(selection, model);
}

} // namespace sbd
