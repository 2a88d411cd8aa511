#include "upperview/sheet_frame.h"

#include <algorithm>

namespace sbd {

namespace {

constexpr int kMostSheet = 30'000;   // a side, so that a slip of a unit makes no endless sheet
constexpr int kMostPane = 2'000'000; // likewise where only a part of it is seen

} // namespace

std::optional<int> CTextRow::Put(int x, std::string_view text, bool seen)
{
    const TextMetrics metrics = dc_.Metrics();
    const int left = x - metrics.Width(text) / 2;
    for (std::size_t line = 0; line < ends_.size(); ++line)
        if (left >= ends_[line]) {
            const int top = top_ - static_cast<int>(line) * metrics.height;
            if (seen)
                dc_.Text({left, top}, text);
            ends_[line] = left + metrics.Width(text) + metrics.aveCharWidth;
            return top;
        }
    return std::nullopt;
}

CSheetFrame::CSheetFrame(CDrawContext& context, const BridgeDrawing& drawn, const SheetLook& wanted,
                         std::vector<SheetHit>* hits)
    : dc(context)
    , drawing(drawn)
    , look(wanted)
    , steps(StepsOf(wanted))
    , bounds(BoundsOf(drawn))
    , scale(wanted.scale > 0 ? wanted.scale : UsualScale(bounds))
    , height(context.Metrics().height)
    , hits_(hits)
    , perX_(kSheetUnitsPerMillimetre / scale)
    , perY_(kSheetUnitsPerMillimetre * wanted.exaggeration / scale)
    , most_(wanted.visible ? kMostPane : kMostSheet)
{
}

int CSheetFrame::Unit(double value) const
{
    const double within = value < -most_ ? -most_ : value > most_ ? most_ : value;
    return static_cast<int>(within + (within < 0 ? -0.5 : 0.5)); // rounds
}

bool CSheetFrame::IsSeen(std::span<const DrawPoint> points, int around) const
{
    if (!look.visible || points.empty())
        return true;
    SheetBox box{points.front().x, points.front().y, points.front().x, points.front().y};
    for (const DrawPoint& point : points) {
        box.left = std::min(box.left, point.x);
        box.right = std::max(box.right, point.x);
        box.bottom = std::min(box.bottom, point.y);
        box.top = std::max(box.top, point.y);
    }
    const SheetBox& seen = *look.visible;
    return box.left - around <= seen.right && box.right + around >= seen.left && box.bottom - around <= seen.top
           && box.top + around >= seen.bottom;
}

void CSheetFrame::Hit(SheetBox box, const SourceCell& source, std::string_view text)
{
    if (hits_ != nullptr && source.block != 0)
        hits_->push_back({box, source, std::string(text)});
}

void CSheetFrame::Widen(int to)
{
    taken = std::max(taken, to);
}

void CSheetFrame::Line(std::string_view text)
{
    dc.Text({kSheetMargin, cursor}, text);
    Widen(kSheetMargin + dc.Metrics().Width(text));
    cursor -= LineStep(height);
}

bool CSheetFrame::PutLabel(CTextRow& row, int x, std::string_view text, const SourceCell& source)
{
    const TextMetrics metrics = dc.Metrics();
    const int half = metrics.Width(text) / 2;
    const bool seen = IsSeen(x - half, x + half);
    dc.SetTextColour(IsSelected(source) ? colours::kRed : colours::kBlack);
    const std::optional<int> top = row.Put(x, text, seen);
    if (top && seen)
        Hit({x - half, *top - metrics.height, x + half, *top}, source, text);
    return top.has_value();
}

void CSheetFrame::LabelsBeside(LabelRow place, int lines)
{
    std::vector<const DrawnLabel*> labels;
    for (const DrawnLabel& label : drawing.labels)
        if (label.place == place)
            labels.push_back(&label);
    if (labels.empty())
        return;
    std::ranges::stable_sort(labels, {}, [](const DrawnLabel* label) { return label->at.x; });
    CTextRow row(dc, cursor, lines);
    for (const DrawnLabel* label : labels)
        PutLabel(row, X(label->at.x), label->text, label->source);
    dc.SetTextColour(colours::kBlack);
    cursor -= LabelStep(height, lines);
}

} // namespace sbd
