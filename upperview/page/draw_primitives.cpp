#include "upperview/page/draw_primitives.h"

#include <algorithm>
#include <cmath>
#include <complex>
#include <utility>

namespace sbd {

namespace {

constexpr double kArrowAngle = 0.43633194444444445;     // 25 degrees
constexpr double kBlockArrowAngle = 0.6108647222222222; // 35 degrees
constexpr double kDegree = 3.14159 / 180.0;

int Truncate(double value)
{
    return static_cast<int>(value);
}

/// The ends of the two wings of a head at `tip`.
std::pair<DrawPoint, DrawPoint> Wings(const CDrawContext& dc, DrawPoint tail, DrawPoint tip, double angle, int divisor)
{
    const double length = dc.unitX * 800;
    const std::complex<double> back(tail.x - tip.x, tail.y - tip.y);
    const double distance = std::sqrt(back.real() * back.real() + back.imag() * back.imag());
    const auto wing = [&](double sine) {
        const std::complex<double> w = back + back / distance * std::complex<double>(std::cos(angle), sine) * length;
        return DrawPoint{tip.x + Truncate(w.real()) / divisor, tip.y + Truncate(w.imag()) / divisor};
    };
    return {wing(std::sin(angle)), wing(-std::sin(angle))};
}

/// The point at a quarter of the way from `a` to `b`.
DrawPoint Quarter(DrawPoint a, DrawPoint b)
{
    return {Truncate(0.75 * a.x + 0.25 * b.x), Truncate(0.75 * a.y + 0.25 * b.y)};
}

} // namespace

void DrawLine(CDrawContext& dc, int x1, int y1, int x2, int y2)
{
    dc.Line({x1, y1}, {x2, y2});
}

void DrawCircle(CDrawContext& dc, int x, int y, int r)
{
    dc.Ellipse({x, y}, r, r);
}

void DrawFilledCircle(CDrawContext& dc, int x, int y, int r, DrawColour colour)
{
    dc.FillCircle({x, y}, r, colour);
}

void DrawDimension(CDrawContext& dc, int x1, int y1, int x2, int y2, bool withArrows)
{
    if (x1 == x2 && y1 == y2)
        return;
    if (x1 > x2)
        std::swap(x1, x2);
    if (y1 > y2)
        std::swap(y1, y2);
    const int u = dc.unitX;
    const int v = dc.unitY;
    DrawLine(dc, x1, y1, x2, y2);
    if (x1 == x2) {
        DrawLine(dc, x1 - 5 * u, y1, x1 + 5 * u, y1);
        DrawLine(dc, x1 - 5 * u, y2, x1 + 5 * u, y2);
        if (!withArrows)
            return;
        DrawLine(dc, x1, y1, x1 - 3 * u, y1 + 6 * v);
        DrawLine(dc, x1, y1, x1 + 3 * u, y1 + 6 * v);
        DrawLine(dc, x1, y2, x1 - 3 * u, y2 - 6 * v);
        DrawLine(dc, x1, y2, x1 + 3 * u, y2 - 6 * v);
    } else if (y1 == y2) {
        DrawLine(dc, x1, y1 - 5 * v, x1, y1 + 5 * v);
        DrawLine(dc, x2, y1 - 5 * v, x2, y1 + 5 * v);
        if (!withArrows)
            return;
        DrawLine(dc, x1, y1, x1 + 6 * u, y1 - 3 * v);
        DrawLine(dc, x1, y1, x1 + 6 * u, y1 + 3 * v);
        DrawLine(dc, x2, y1, x2 - 6 * u, y1 - 3 * v);
        DrawLine(dc, x2, y1, x2 - 6 * u, y1 + 3 * v);
    }
}

void DrawArrow(CDrawContext& dc, int x1, int y1, int x2, int y2)
{
    if (x1 == x2 && y1 == y2)
        return;
    DrawLine(dc, x1, y1, x2, y2);
    const auto [left, right] = Wings(dc, {x1, y1}, {x2, y2}, kArrowAngle, 100);
    DrawLine(dc, x2, y2, left.x, left.y);
    DrawLine(dc, x2, y2, right.x, right.y);
}

void DrawBlockArrow(CDrawContext& dc, int x1, int y1, int x2, int y2, double angle)
{
    if (x1 == x2 && y1 == y2)
        return;
    const auto [a, b] = Wings(dc, {x1, y1}, {x2, y2}, kBlockArrowAngle, 75);
    DrawLine(dc, x2, y2, a.x, a.y);
    DrawLine(dc, x2, y2, b.x, b.y);

    const int s = Truncate(std::hypot(a.x - b.x, a.y - b.y) / 4);
    const double t = angle * kDegree;
    const int dx = Truncate(std::sin(t) * s);
    const int dy = Truncate(std::cos(t) * s);
    const DrawPoint p{x1 + dx, y1 - dy};
    const DrawPoint q{x1 - dx, y1 + dy};
    const DrawPoint c = Quarter(a, b);
    const DrawPoint d = Quarter(b, a);
    DrawLine(dc, a.x, a.y, c.x, c.y);
    DrawLine(dc, b.x, b.y, d.x, d.y);
    DrawLine(dc, q.x, q.y, d.x, d.y);
    DrawLine(dc, p.x, p.y, c.x, c.y);
    DrawLine(dc, p.x, p.y, q.x, q.y);
}

} // namespace sbd
