#include "upperview/page/page_drawing.h"

#include "upperview/page/page_store.h"

#include <algorithm>
#include <cstdlib>

namespace sbd {

namespace {

constexpr int kTextTop = 10;
constexpr int kRightMargin = 50;
constexpr int kLeastTop = 10;
constexpr int kAboveSketch = 100; // of the text that stays in view above a sketch

DrawColour ColourOfLine(const PageBranch& branch, int index)
{
    const auto isIn = [index](const std::vector<int>& indices) {
        return std::ranges::find(indices, index) != indices.end();
    };
    if (isIn(branch.redLines))
        return colours::kRed;
    if (isIn(branch.blueLines) || index == 0)
        return colours::kBlue;
    return branch.hasHeading && index == 2 ? colours::kRed : colours::kBlack;
}

/// Half of what `outer` leaves beside `inner`, or the least margin.
int Centred(int outer, int inner, int least)
{
    const int room = outer - inner;
    return room > least ? room / 2 : least;
}

/// What a branch shows: its sketches whose condition holds.
std::vector<const Sketch*> SketchesOf(const Page& page, const PageBranch& branch, const PageView& view)
{
    std::vector<const Sketch*> sketches;
    for (const std::string& name : branch.sketches) {
        const Sketch* sketch = FindSketch(page, name);
        if (sketch != nullptr && sketch->when.Holds(view))
            sketches.push_back(sketch);
    }
    return sketches;
}

} // namespace

std::vector<ColouredLine> PageText(const Page& page, const PageView& view)
{
    std::vector<ColouredLine> lines;
    const PageBranch* branch = page.BranchOf(view);
    if (branch == nullptr)
        return lines;
    const auto append = [&](std::string text) {
        lines.push_back({std::move(text), ColourOfLine(*branch, static_cast<int>(lines.size()))});
    };
    append(page.title.empty() ? PageTitleText(view.block) : page.title);
    append({});
    if (branch->hasHeading)
        append(branch->heading.empty() ? OptionHeading(view.block, view.row) : branch->heading);
    for (const PageLine& line : branch->lines)
        append(line.Text(view));
    return lines;
}

PageExtent DrawPage(CDrawContext& dc, const Page& page, const PageView& view)
{
    PageExtent extent;
    const PageBranch* branch = page.BranchOf(view);
    if (branch == nullptr)
        return extent;
    const TextMetrics metrics = dc.Metrics();
    const int lineHeight = metrics.LineHeight();
    std::size_t longest = 0;
    int y = kTextTop;
    for (const ColouredLine& line : PageText(page, view)) {
        dc.SetTextColour(line.colour);
        if (!line.text.empty())
            dc.Text({page.originX, -y}, line.text);
        longest = std::max(longest, line.text.size());
        y += lineHeight;
    }
    extent.width = page.originX + kRightMargin + static_cast<int>(longest) * metrics.aveCharWidth;
    extent.height = y;

    int top = y;
    bool first = true;
    for (const Sketch* sketch : SketchesOf(page, *branch, view)) {
        const int width = static_cast<int>(sketch->width * (dc.unitX * sketch->fx));
        const int height = static_cast<int>(sketch->height * (dc.unitY * sketch->fy));
        const int left = Centred(view.clientWidth, width, sketch->margin);
        top += sketch->gap + (first ? Centred(view.clientHeight, height, kLeastTop) : 0);
        if (DrawSketch(dc, *sketch, view, {left, -top}) && extent.anchor == 1)
            extent.anchor = top - kAboveSketch;
        top += height;
        extent.width = std::max(extent.width, left + width);
        extent.height = std::max(extent.height, top + lineHeight);
        first = false;
    }
    dc.SetPen({});
    dc.SetTextColour(colours::kBlack);
    return extent;
}

} // namespace sbd
