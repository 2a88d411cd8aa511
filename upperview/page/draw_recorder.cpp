#include "upperview/page/draw_recorder.h"

#include "project/text.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>

namespace sbd {

namespace {

std::string_view NameOf(PrimitiveKind kind)
{
    static constexpr std::array<std::string_view, 7> names = {"line",        "polyline",   "arc", "ellipse",
                                                              "fillPolygon", "fillCircle", "text"};
    return names[static_cast<std::size_t>(kind)];
}

std::string_view NameOf(PenStyle style)
{
    static constexpr std::array<std::string_view, 4> names = {"solid", "dash", "dot", "dashdot"};
    return names[static_cast<std::size_t>(style)];
}

std::string_view NameOf(BrushStyle style)
{
    static constexpr std::array<std::string_view, 5> names = {"none", "solid", "horizontal", "up", "cross"};
    return names[static_cast<std::size_t>(style)];
}

std::string Hex(DrawColour colour)
{
    static constexpr std::string_view digits = "0123456789abcdef";
    std::string text = "0x000000";
    for (std::size_t i = 0; i < 6; ++i)
        text[7 - i] = digits[(colour >> (4 * i)) & 0xF];
    return text;
}

nlohmann::ordered_json JsonOf(const Primitive& primitive)
{
    nlohmann::ordered_json json = {{"kind", NameOf(primitive.kind)}};
    auto& points = json["points"] = nlohmann::ordered_json::array();
    for (const DrawPoint& point : primitive.points)
        points.push_back({point.x, point.y});
    if (primitive.rx != 0 || primitive.ry != 0)
        json["radius"] = {primitive.rx, primitive.ry};
    if (primitive.kind == PrimitiveKind::Arc)
        json["degrees"] = {primitive.start, primitive.sweep};
    if (primitive.kind == PrimitiveKind::Text)
        json["text"] = FromCp932(primitive.text);
    if (primitive.kind == PrimitiveKind::Text || primitive.kind == PrimitiveKind::FillCircle)
        json["colour"] = Hex(primitive.colour);
    else if (primitive.kind != PrimitiveKind::FillPolygon)
        json["pen"] = {NameOf(primitive.pen.style), primitive.pen.width, Hex(primitive.pen.colour)};
    if (primitive.brush.style != BrushStyle::None)
        json["brush"] = {NameOf(primitive.brush.style), Hex(primitive.brush.colour)};
    return json;
}

} // namespace

bool DrawBox::IsCrossedBy(DrawPoint a, DrawPoint b) const
{
    double from = 0;
    double to = 1;
    const auto cut = [&](double start, double step, double low, double high) {
        if (step == 0) {
            if (start <= low || start >= high)
                to = -1;
            return;
        }
        const double t1 = (low - start) / step;
        const double t2 = (high - start) / step;
        from = std::max(from, std::min(t1, t2));
        to = std::min(to, std::max(t1, t2));
    };
    cut(a.x, b.x - a.x, left, right);
    cut(a.y, b.y - a.y, bottom, top);
    return from < to;
}

Primitive& CDrawRecorder::Add(PrimitiveKind kind, std::span<const DrawPoint> points)
{
    Primitive& primitive = primitives_.emplace_back();
    primitive.kind = kind;
    primitive.points.assign(points.begin(), points.end());
    return primitive;
}

void CDrawRecorder::Line(DrawPoint from, DrawPoint to)
{
    Add(PrimitiveKind::Line, std::array{from, to}).pen = Pen();
}

void CDrawRecorder::Polyline(std::span<const DrawPoint> points)
{
    Add(PrimitiveKind::Polyline, points).pen = Pen();
}

void CDrawRecorder::Arc(DrawPoint centre, int rx, int ry, double start, double sweep)
{
    Primitive& arc = Add(PrimitiveKind::Arc, std::array{centre});
    arc.rx = rx;
    arc.ry = ry;
    arc.start = start;
    arc.sweep = sweep;
    arc.pen = Pen();
}

void CDrawRecorder::Ellipse(DrawPoint centre, int rx, int ry)
{
    Primitive& ellipse = Add(PrimitiveKind::Ellipse, std::array{centre});
    ellipse.rx = rx;
    ellipse.ry = ry;
    ellipse.pen = Pen();
    ellipse.brush = Brush();
}

void CDrawRecorder::FillPolygon(std::span<const DrawPoint> corners)
{
    Add(PrimitiveKind::FillPolygon, corners).brush = Brush();
}

void CDrawRecorder::FillCircle(DrawPoint centre, int r, DrawColour colour)
{
    Primitive& disc = Add(PrimitiveKind::FillCircle, std::array{centre});
    disc.rx = r;
    disc.ry = r;
    disc.colour = colour;
}

void CDrawRecorder::Text(DrawPoint at, std::string_view text)
{
    Primitive& primitive = Add(PrimitiveKind::Text, std::array{at});
    primitive.text = text;
    primitive.colour = TextColour();
}

DrawBox CDrawRecorder::BoxOf(const Primitive& primitive) const
{
    if (primitive.points.empty())
        return {};
    const DrawPoint first = primitive.points.front();
    if (primitive.kind == PrimitiveKind::Text)
        return {first.x, first.y, first.x + metrics_.Width(primitive.text), first.y - metrics_.height};
    DrawBox box{first.x, first.y, first.x, first.y};
    for (const DrawPoint& point : primitive.points) {
        box.left = std::min(box.left, point.x - primitive.rx);
        box.right = std::max(box.right, point.x + primitive.rx);
        box.top = std::max(box.top, point.y + primitive.ry);
        box.bottom = std::min(box.bottom, point.y - primitive.ry);
    }
    return box;
}

bool CDrawRecorder::IsRed(const Primitive& primitive)
{
    if (primitive.kind == PrimitiveKind::Text || primitive.kind == PrimitiveKind::FillCircle)
        return primitive.colour == colours::kRed;
    if (primitive.kind == PrimitiveKind::FillPolygon)
        return primitive.brush.colour == colours::kRed;
    return primitive.pen.colour == colours::kRed;
}

std::string CDrawRecorder::ToJson() const
{
    std::string json = "[";
    std::string_view separator = "\n";
    for (const Primitive& primitive : primitives_) {
        json += separator;
        json += JsonOf(primitive).dump();
        separator = ",\n";
    }
    return json + "\n]\n";
}

} // namespace sbd
