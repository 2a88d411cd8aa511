#include "upperview/page/page_drawing.h"

#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "upperview/page/page_limit.h"
#include "upperview/page/page_link.h"
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

/// The current value of the option row stands under its heading, if the text does not quote it itself.
bool ShowsOwnValue(const PageBranch& branch, const PageView& view)
{
    const OptionBlock* options = FindOptionBlock(view.block);
    if (options == nullptr || view.row < 1 || static_cast<std::size_t>(view.row) > options->rows.size())
        return false;
    const auto isOwn = [&](const std::variant<std::string, PageOperand>& piece) {
        const auto* operand = std::get_if<PageOperand>(&piece);
        return operand != nullptr && operand->kind == PageOperand::Kind::Option && operand->block == view.block
               && operand->row == view.row;
    };
    return std::ranges::none_of(branch.lines,
                                [&](const PageLine& line) { return std::ranges::any_of(line.pieces, isOwn); });
}

std::string OwnValue(const PageView& view)
{
    const std::string_view value = Trim(view.data.Option(view.block, static_cast<std::size_t>(view.row - 1)));
    return "    " + (value.empty() ? Cp932("(空白)") : std::string(value)) + Cp932("  <--- 現在の入力");
}

/// Underlines the links of a line whose left upper corner is `at`, but for those to the page's own block.
void DrawLinks(CDrawContext& dc, const ColouredLine& line, int block, DrawPoint at, PageExtent& extent)
{
    const TextMetrics metrics = dc.Metrics();
    for (const TextLink& link : LinksOf(line.text)) {
        if (!IsLinkTarget(link.block) || CanonicalBlock(link.block) == block)
            continue;
        const int left = at.x + static_cast<int>(link.start) * metrics.aveCharWidth;
        const int right = left + static_cast<int>(link.length) * metrics.aveCharWidth;
        const int bottom = at.y - metrics.height;
        dc.SetPen({PenStyle::Solid, 1, colours::kBlue});
        dc.Line({left, bottom}, {right, bottom});
        extent.links.push_back({{left, at.y, right, bottom}, link.block});
    }
}

} // namespace

std::vector<ColouredLine> PageText(const Page& page, const PageView& view)
{
    std::vector<ColouredLine> lines;
    const PageBranch* branch = page.BranchOf(view);
    if (branch == nullptr)
        return lines;
    int index = 0; // as a page file counts: without the line of the current value
    const auto append = [&](std::string text, int column) {
        const DrawColour colour = ColourOfLine(*branch, index++);
        const bool chosen = column > 0 && column == view.column;
        lines.push_back({std::move(text), chosen ? colours::kRed : colour, column});
    };
    append(page.title.empty() ? PageTitleText(view.block) : page.title, 0);
    append({}, 0);
    if (branch->hasHeading) {
        append(branch->heading.empty() ? OptionHeading(view.block, view.row) : branch->heading, 0);
        if (ShowsOwnValue(*branch, view))
            lines.push_back({OwnValue(view), colours::kBlack, 0});
    }
    for (const PageLine& line : branch->lines)
        append(line.Text(view), line.column);
    const std::vector<LimitLine> limits = LimitLines(page, view);
    if (!limits.empty())
        lines.push_back({});
    for (const LimitLine& limit : limits)
        lines.push_back({limit.text, limit.outside ? colours::kRed : colours::kBlack, 0});
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
        if (y > kTextTop) // the title names its own block
            DrawLinks(dc, line, view.block, {page.originX, -y}, extent);
        if (line.column > 0 && line.column == view.column && extent.anchor == 1)
            extent.anchor = std::max(1, y - kAboveSketch);
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
