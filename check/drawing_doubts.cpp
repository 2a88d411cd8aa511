#include "check/drawing_doubts.h"

#include "drawing/bridge_grid.h"
#include "drawing/bridge_plan.h"
#include "drawing/drawing_views.h"
#include "drawing/girder_elevation.h"
#include "project/sbd_data.h"
#include "project/text.h"

#include <algorithm>
#include <array>
#include <set>
#include <tuple>

namespace sbd {

namespace {

/// Views that are judged. Sections repeat what an elevation says, once a cross line.
constexpr std::array<DrawingView, 2> kJudged{DrawingView::Elevation, DrawingView::Plan};

/// A reason as findings are worded.
std::string Worded(std::string_view reason)
{
    constexpr std::string_view commas[][2] = {{"，", "、"}, {"．", "。"}};
    std::string text = FromCp932(reason);
    for (const auto& [from, to] : commas)
        for (std::size_t at = text.find(from); at != std::string::npos; at = text.find(from, at + to.size()))
            text.replace(at, from.size(), to);
    return text;
}

/// Findings at their places, each once: many girders leave out a row for the same reason.
class Gathered {
public:
    void Add(const BridgeDrawing& drawing)
    {
        for (const Omission& omission : drawing.omissions) {
            const SourceCell& place = omission.place;
            const bool isJudged =
                omission.kind == OmissionKind::Input || (omission.kind == OmissionKind::Length && !drawing.provisional);
            if (!isJudged || place.block == 0 || place.row == 0 || place.column == 0)
                continue;
            if (!told_.emplace(place.block, place.row, place.column).second)
                continue;
            Finding finding;
            finding.kind = FindingKind::NotDrawable;
            finding.block = place.block;
            finding.row = place.row;
            finding.column = place.column;
            finding.text = Worded(omission.reason) + "橋の図(F9)で確かめてください。";
            findings_.push_back(std::move(finding));
        }
    }

    FindingList Take()
    {
        std::ranges::stable_sort(findings_, {}, [](const Finding& finding) {
            return std::tuple(finding.block, finding.row, finding.column);
        });
        FindingList list;
        for (Finding& finding : findings_)
            list.Add(std::move(finding));
        return list;
    }

private:
    std::set<std::tuple<int, int, int>> told_;
    std::vector<Finding> findings_;
};

/// Rows that an elevation reads.
std::size_t RowsRead(const CSbdData& data)
{
    std::size_t rows = 0;
    for (int block = 300; block < 600; ++block)
        if (IsReadBy(DrawingView::Elevation, block) && data.Table(block) != nullptr)
            rows += data.RowCount(block);
    return rows;
}

} // namespace

bool IsDrawn(int block)
{
    return std::ranges::any_of(kJudged, [&](DrawingView view) { return IsReadBy(view, block); });
}

FindingList DrawingDoubts(const CSbdData& data, const AnalysisResults& results)
{
    Gathered gathered;
    const GridNames& names = data.gridNames;
    if (names.girderNames.empty() || names.swayNames.size() < 2)
        return gathered.Take();
    // Each girder reads all rows; what no bridge has is not judged to its end.
    constexpr std::size_t most = 400'000; // rows and stations
    const std::size_t work = RowsRead(data) + names.swayNames.size();
    const std::size_t girders =
        std::min({names.girderNames.size(), kMostGirders, std::max<std::size_t>(most / work, 1)});
    for (std::size_t girder = 0; girder < girders; ++girder) {
        gathered.Add(GirderElevation(data, results, {girder, GirderSide::Left, false}));
        if (WebsOf(data, names.girderNames[girder]).IsBox())
            gathered.Add(GirderElevation(data, results, {girder, GirderSide::Right, false}));
    }
    if (work <= most)
        gathered.Add(BridgePlan(data, results));
    return gathered.Take();
}

} // namespace sbd
