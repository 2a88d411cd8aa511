#include "results/diagram_layout.h"

#include "project/text.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <iterator>

namespace sbd {

namespace {

constexpr double kGap = 3;              // pixels between a point and its text
constexpr double kSupportHalfWidth = 4; // of the triangles under the diagram
constexpr double kSupportHeight = 7;
constexpr double kTickHalf = 4;
constexpr int kSpanDecimals = 3;

/// How much a text matters: the lowest number is placed first.
enum Rank : int { kExtreme, kEnd, kSupport, kOther, kNothing = 100 };

/// A text and what is asked of its place.
struct Wish {
    const FigureText* text = nullptr;
    std::string words; ///< without blanks around it
    double width = 0;
    bool isValue = false;
    int rank = kOther;
    FigureMark mark = FigureMark::None;
    FigurePen pen = FigurePen::Plain;
};

std::string Trimmed(std::string_view text)
{
    const std::size_t first = text.find_first_not_of(' ');
    return first == std::string_view::npos ? std::string()
                                           : std::string(text.substr(first, text.find_last_not_of(' ') - first + 1));
}

/// "-0.0", "0.0[2]": what is told is that there is nothing, and that has no sign.
bool IsWrittenAsZero(std::string_view words)
{
    return words.substr(0, words.find('[')).find_first_not_of("-0.") == std::string_view::npos;
}

/// Points that many others lie between come before those: what is left of a row stands at even distances.
int EvenRank(std::size_t point)
{
    return kOther + 64 - std::countr_zero(point);
}

int RankOf(const GirderDiagram& diagram, std::size_t point)
{
    if (point == 0 || point + 1 == diagram.positions.size())
        return kEnd;
    return std::ranges::binary_search(diagram.supports, point) ? int{kSupport} : EvenRank(point);
}

bool IsInPane(FigurePoint point, const FigureScreen& screen)
{
    return point.x >= 0 && point.y >= 0 && point.x <= screen.clientWidth && point.y <= screen.clientHeight;
}

/// Texts in the order in which they look for a place. `drawings`: those of the curves; `named`: which of them has the names.
std::vector<Wish> WishesOf(std::span<const DiagramCurve> curves, const std::vector<DiagramDrawing>& drawings,
                           std::size_t named, const FigureScreen& screen, const TextMetrics& metrics)
{
    std::vector<Wish> wishes;
    double greatest = 0;
    double least = 0;
    bool any = false;
    for (const DiagramCurve& curve : curves) {
        if (curve.diagram.bays.empty())
            continue;
        const auto own = [&](EnvelopeSide side) {
            const std::optional<DiagramExtreme> extreme = ExtremeOf(curve.diagram, side);
            return extreme ? extreme->value : 0;
        };
        greatest = any ? std::max(greatest, own(EnvelopeSide::Greatest)) : own(EnvelopeSide::Greatest);
        least = any ? std::min(least, own(EnvelopeSide::Least)) : own(EnvelopeSide::Least);
        any = true;
    }
    bool greatestDone = false;
    bool leastDone = !(least < greatest);
    const auto add = [&](const GirderDiagram& diagram, FigurePen pen, const FigureText& text, bool isValue) {
        if (!IsInPane(text.at, screen)) // NaN is in none
            return;
        std::string words = Trimmed(text.text);
        if (words.empty())
            return;
        Wish wish{.text = &text,
                  .words = std::move(words),
                  .isValue = isValue,
                  .rank = RankOf(diagram, text.point),
                  .pen = isValue ? pen : FigurePen::Plain};
        if (isValue && !greatestDone && text.value == greatest) {
            wish.mark = FigureMark::Greatest;
            greatestDone = true;
        } else if (isValue && !leastDone && text.value == least) {
            wish.mark = FigureMark::Least;
            leastDone = true;
        }
        if (wish.mark != FigureMark::None)
            wish.rank = kExtreme;
        else if (isValue && IsWrittenAsZero(wish.words))
            wish.rank = kNothing;
        if (isValue && wish.words.starts_with('-') && IsWrittenAsZero(wish.words))
            wish.words.erase(0, 1);
        wish.width = metrics.width(wish.words);
        wishes.push_back(std::move(wish));
    };
    for (std::size_t i = 0; i < curves.size(); ++i)
        for (const FigureText& text : drawings[i].values)
            add(curves[i].diagram, curves[i].pen, text, true);
    for (const FigureText& text : drawings[named].stationNames)
        add(curves[named].diagram, FigurePen::Plain, text, false);
    std::ranges::stable_sort(wishes, {}, &Wish::rank);
    return wishes;
}

/// The places that a text may have, the best one first.
class Places {
public:
    Places(const Wish& wish, bool upright, double height)
        : at_(wish.text->at)
        , place_(wish.text->place)
        , below_(wish.text->below)
        , across_(upright ? height : wish.width)
        , along_(upright ? wish.width : height)
        , tries_(!wish.isValue ? 1
                 : upright     ? 2
                               : 3)
    {
    }

    /// Beside its point, then further out, then on the other side of the point. `row`: how far out.
    [[nodiscard]] std::size_t Count() const { return tries_ + 1; }
    [[nodiscard]] bool IsOut(std::size_t number) const { return number > 0 && number < tries_; }
    [[nodiscard]] LabelBox At(std::size_t number) const
    {
        const bool below = number < tries_ ? below_ : !below_;
        const double out = IsOut(number) ? static_cast<double>(number) * (along_ + 1) : 0;
        const double left = place_ == TextPlace::Middle ? at_.x - across_ / 2
                            : place_ == TextPlace::Left ? at_.x - across_ - 1
                                                        : at_.x + 1;
        return {left, below ? at_.y + kGap + out : at_.y - kGap - along_ - out, across_, along_};
    }

    /// Beside the point on its own side, to the left of it and to the right.
    [[nodiscard]] std::array<LabelBox, 2> Aside() const
    {
        LabelBox left = At(0);
        LabelBox right = left;
        left.left = at_.x - across_ - 1;
        right.left = at_.x + 1;
        return {left, right};
    }

private:
    FigurePoint at_;
    TextPlace place_;
    bool below_;
    double across_;
    double along_;
    std::size_t tries_;
};

/// The lines of a diagram, which texts would rather not cross.
class LineField {
public:
    explicit LineField(const DiagramDrawing& drawing)
    {
        constexpr std::size_t most = 400; // there is no way around so many
        if (drawing.lines.size() > most)
            return;
        for (const FigureLine& line : drawing.lines)
            if (line.pen != FigurePen::Faint)
                lines_.push_back(line);
    }

    [[nodiscard]] bool Crosses(const LabelBox& box) const
    {
        return std::ranges::any_of(lines_, [&](const FigureLine& line) { return Cuts(line, box); });
    }

private:
    /// By the part of the line that lies in the box, as shares of its length.
    static bool Cuts(const FigureLine& line, const LabelBox& box)
    {
        double begin = 0;
        double end = 1;
        const auto cut = [&](double from, double to, double low, double high) {
            const double run = to - from;
            if (run == 0)
                return from > low && from < high;
            begin = std::max(begin, std::min((low - from) / run, (high - from) / run));
            end = std::min(end, std::max((low - from) / run, (high - from) / run));
            return begin < end;
        };
        return cut(line.from.x, line.to.x, box.left, box.Right()) && cut(line.from.y, line.to.y, box.top, box.Bottom());
    }

    std::vector<FigureLine> lines_;
};

struct Layout {
    std::vector<PlacedText> texts;
    std::size_t valuesShown = 0;
};

/// The box of a text and whether it stands off its point.
struct Found {
    LabelBox box;
    bool isOut = false;
};

/// A place off the lines, if there is one right at the point; else the first that is free.
std::optional<Found> FindPlace(const Places& places, bool isValue, const CLabelRoom& room, const LineField& lines)
{
    if (isValue) {
        const auto [left, right] = places.Aside();
        for (const LabelBox& box : {places.At(0), left, right})
            if (room.IsFree(box) && !lines.Crosses(box))
                return Found{box};
    }
    for (std::size_t number = 0; number < places.Count(); ++number)
        if (const LabelBox box = places.At(number); room.IsFree(box))
            return Found{box, places.IsOut(number)};
    return std::nullopt;
}

Layout Place(const std::vector<Wish>& wishes, CLabelRoom room, const LineField& lines, bool uprightValues,
             bool uprightNames, double height)
{
    Layout layout;
    for (const Wish& wish : wishes) {
        const bool upright = wish.isValue ? uprightValues : uprightNames;
        const std::optional<Found> found = FindPlace(Places(wish, upright, height), wish.isValue, room, lines);
        if (!found)
            continue;
        const LabelBox& box = found->box;
        room.Take(box);
        PlacedText text{wish.words, box, upright, wish.mark, std::nullopt, wish.pen};
        if (found->isOut) {
            const bool below = box.top > wish.text->at.y;
            text.leader =
                FigureLine{wish.text->at, {box.left + box.width / 2, below ? box.top : box.Bottom()}, FigurePen::Faint};
        }
        layout.texts.push_back(std::move(text));
        layout.valuesShown += wish.isValue ? 1 : 0;
    }
    return layout;
}

/// Of the ways to turn the texts the one with the most of them; lying texts are read more easily.
Layout BestLayout(const std::vector<Wish>& wishes, const CLabelRoom& room, const LineField& lines, double height)
{
    Layout best = Place(wishes, room, lines, false, false, height);
    for (const auto& [uprightValues, uprightNames] :
         {std::pair(false, true), std::pair(true, false), std::pair(true, true)}) {
        if (best.texts.size() == wishes.size())
            break;
        Layout layout = Place(wishes, room, lines, uprightValues, uprightNames, height);
        if (layout.texts.size() > best.texts.size())
            best = std::move(layout);
    }
    return best;
}

/// Supports, spans and their lengths at the lower edge of the pane.
class SpanStrip {
public:
    SpanStrip(const GirderDiagram& diagram, const DiagramScale& scale, const TextMetrics& metrics, DiagramPage& page)
        : diagram_(diagram)
        , scale_(scale)
        , metrics_(metrics)
        , page_(page)
        , y_(scale.screen.clientHeight - std::max(metrics.height, kSupportHeight) - 2 * kGap)
    {
    }

    void Draw(CLabelRoom& room)
    {
        const double x0 = scale_.X(0);
        const double x1 = scale_.X(diagram_.Length());
        if (!(y_ > scale_.screen.clientHeight / 2) || !std::isfinite(x0) || !std::isfinite(x1))
            return;
        Line({x0, y_}, {x1, y_});
        for (const double x : {x0, x1})
            Line({x, y_ - kTickHalf}, {x, y_ + kTickHalf});
        for (const std::size_t point : diagram_.supports)
            Support(scale_.X(diagram_.positions[point]));
        room.Take({std::min(x0, x1), y_ - kTickHalf, std::abs(x1 - x0), 2 * kTickHalf});
        std::vector<double> ends{0};
        for (const std::size_t point : diagram_.supports)
            if (diagram_.positions[point] > ends.back())
                ends.push_back(diagram_.positions[point]);
        if (diagram_.Length() > ends.back())
            ends.push_back(diagram_.Length());
        for (std::size_t i = 1; i < ends.size(); ++i)
            Length(room, ends[i - 1], ends[i]);
    }

private:
    void Line(FigurePoint from, FigurePoint to) { page_.drawing.lines.push_back({from, to, FigurePen::Plain}); }

    void Support(double x)
    {
        const FigurePoint left{x - kSupportHalfWidth, y_ + kSupportHeight};
        const FigurePoint right{x + kSupportHalfWidth, y_ + kSupportHeight};
        Line({x, y_}, left);
        Line({x, y_}, right);
        Line(left, right);
    }

    /// In the middle of what the pane shows of the span, where it has room.
    void Length(CLabelRoom& room, double from, double to)
    {
        const double left = std::max(scale_.X(from), 0.0);
        const double right = std::min(scale_.X(to), scale_.screen.clientWidth);
        std::string text;
        AppendFixed(text, to - from, 0, kSpanDecimals);
        text += " m";
        const double width = metrics_.width(text);
        const LabelBox box{(left + right - width) / 2, y_ + kTickHalf + 1, width, metrics_.height};
        if (right - left < width + 2 * kSupportHalfWidth || !room.IsFree(box))
            return;
        room.Take(box);
        page_.texts.push_back({std::move(text), box, false, FigureMark::None, std::nullopt});
    }

    const GirderDiagram& diagram_;
    const DiagramScale& scale_;
    const TextMetrics& metrics_;
    DiagramPage& page_;
    double y_;
};

/// "(+)" and "(-)" in front of the axis: positive values lie below it.
void PlaceSigns(const DiagramScale& scale, const TextMetrics& metrics, CLabelRoom& room, DiagramPage& page)
{
    for (const bool positive : {true, false}) {
        const std::string text = positive ? "(+)" : "(-)";
        const double width = metrics.width(text);
        const LabelBox box{scale.X(0) - width - 4 * kGap,
                           positive ? scale.AxisY() + kGap : scale.AxisY() - kGap - metrics.height, width,
                           metrics.height};
        if (!room.IsFree(box))
            continue;
        room.Take(box);
        page.texts.push_back({text, box, false, FigureMark::None, std::nullopt});
    }
}

std::string NoteText(std::size_t shown, std::size_t values, const FigureScreen& screen)
{
    return Cp932("値 " + std::to_string(shown) + "/" + std::to_string(values) + " を表示"
                 + (screen.isPaper ? "" : " (拡大すると残りも出ます)"));
}

/// The corner in which it is said that there are more values than texts; nothing if no corner has room.
std::optional<LabelBox> TakeNotePlace(const FigureScreen& screen, std::size_t values, const TextMetrics& metrics,
                                      CLabelRoom& room)
{
    if (!(metrics.height > 0))
        return std::nullopt;
    const double width = metrics.width(NoteText(values, values, screen));
    const double bottom = screen.clientHeight - metrics.height - kGap;
    const int lines = metrics.height > 0 ? static_cast<int>(std::ceil(screen.clientHeight / 2 / metrics.height)) : 0;
    for (int line = 0; line < lines; ++line)
        for (const double left : {screen.clientWidth - width - kGap, kGap}) {
            const LabelBox box{left, bottom - line * metrics.height, width, metrics.height};
            if (!room.IsFree(box))
                continue;
            room.Take(box);
            return box;
        }
    return std::nullopt;
}

} // namespace

DiagramPage LayOutDiagrams(std::span<const DiagramCurve> curves, const DiagramScale& scale, const TextMetrics& metrics,
                           std::span<const LabelBox> taken)
{
    DiagramPage page;
    std::vector<DiagramDrawing> drawings;
    std::size_t longest = 0;
    for (std::size_t i = 0; i < curves.size(); ++i) {
        drawings.push_back(DrawDiagram(curves[i].diagram, scale, curves[i].pen));
        const DiagramDrawing& own = drawings.back();
        page.drawing.lines.insert(page.drawing.lines.end(), own.lines.begin(), own.lines.end());
        page.drawing.heads.insert(page.drawing.heads.end(), own.heads.begin(), own.heads.end());
        page.drawing.values.insert(page.drawing.values.end(), own.values.begin(), own.values.end());
        if (curves[i].diagram.Length() > curves[longest].diagram.Length())
            longest = i;
    }
    if (std::ranges::all_of(curves, [](const DiagramCurve& curve) { return curve.diagram.bays.empty(); }))
        return page;
    page.drawing.stationNames = drawings[longest].stationNames;
    CLabelRoom room({0, 0, scale.screen.clientWidth, scale.screen.clientHeight});
    for (const LabelBox& box : taken)
        room.Take(box);
    const LineField lines(page.drawing);
    const std::vector<Wish> wishes = WishesOf(curves, drawings, longest, scale.screen, metrics);
    page.values = static_cast<std::size_t>(std::ranges::count(wishes, true, &Wish::isValue));
    SpanStrip(curves[longest].diagram, scale, metrics, page).Draw(room);
    PlaceSigns(scale, metrics, room, page);
    Layout layout = BestLayout(wishes, room, lines, metrics.height);
    if (layout.valuesShown < page.values) {
        // Once more, with a place for the word of what is missing.
        const std::optional<LabelBox> note = TakeNotePlace(scale.screen, page.values, metrics, room);
        layout = BestLayout(wishes, room, lines, metrics.height);
        if (note)
            page.texts.push_back({NoteText(layout.valuesShown, page.values, scale.screen), *note, false,
                                  FigureMark::None, std::nullopt});
    }
    page.valuesShown = layout.valuesShown;
    std::ranges::move(layout.texts, std::back_inserter(page.texts));
    return page;
}

DiagramPage LayOutDiagram(const GirderDiagram& diagram, const DiagramScale& scale, const TextMetrics& metrics,
                          std::span<const LabelBox> taken)
{
    const DiagramCurve curve{diagram, FigurePen::Plain, {}};
    return LayOutDiagrams({&curve, 1}, scale, metrics, taken);
}

} // namespace sbd
