// CDrawContext: what a page, a sketch or a figure is drawn on.
#pragma once

#include <span>
#include <string_view>

namespace sbd {

/// 24 bits with blue in the high byte: 0x0000FF is red.
using DrawColour = unsigned;

namespace colours {
inline constexpr DrawColour kBlack = 0x000000;
inline constexpr DrawColour kRed = 0x0000FF;
inline constexpr DrawColour kBlue = 0xFF0000;
inline constexpr DrawColour kLightGreen = 0x96FF00;
inline constexpr DrawColour kDarkGreen = 0x326400;
inline constexpr DrawColour kYellow = 0x00FFFF;
inline constexpr DrawColour kPink = 0xC800FF;
} // namespace colours

enum class PenStyle {
    Solid, ///< outline
    Dash,  ///< hidden line
    Dot,
    DashDot, ///< centre line, reference line
};

struct DrawPen {
    PenStyle style = PenStyle::Solid;
    int width = 1; ///< units of the context
    DrawColour colour = colours::kBlack;
    friend bool operator==(const DrawPen&, const DrawPen&) = default;
};

enum class BrushStyle {
    None,
    Solid,
    Horizontal,
    UpwardDiagonal,
    DiagonalCross,
};

struct DrawBrush {
    BrushStyle style = BrushStyle::None;
    DrawColour colour = colours::kBlack;
    friend bool operator==(const DrawBrush&, const DrawBrush&) = default;
};

struct DrawPoint {
    int x = 0;
    int y = 0;
    friend bool operator==(const DrawPoint&, const DrawPoint&) = default;
};

/// Sizes of the selected font in units of the context. One byte of text is one average character wide.
struct TextMetrics {
    int height = 38;
    int externalLeading = 0;
    int aveCharWidth = 19;
    [[nodiscard]] int LineHeight() const { return height + 2 * externalLeading; }
    [[nodiscard]] int Width(std::string_view text) const { return static_cast<int>(text.size()) * aveCharWidth; }
};

/// A surface with a pen, a brush and a text colour. On a page the unit is 0.1 mm and y grows upward; all coordinates
/// are integers. Behind it stands a painter or a recorder.
class CDrawContext {
public:
    virtual ~CDrawContext() = default;

    /// Scale of ticks, arrow heads and sketches.
    int unitX = 3;
    int unitY = 3;

    void SetPen(const DrawPen& pen) { pen_ = pen; }
    void SetBrush(const DrawBrush& brush) { brush_ = brush; }
    void SetTextColour(DrawColour colour) { textColour_ = colour; }
    [[nodiscard]] const DrawPen& Pen() const { return pen_; }
    [[nodiscard]] const DrawBrush& Brush() const { return brush_; }
    [[nodiscard]] DrawColour TextColour() const { return textColour_; }

    [[nodiscard]] virtual TextMetrics Metrics() const = 0;

    /// With the pen.
    virtual void Line(DrawPoint from, DrawPoint to) = 0;
    virtual void Polyline(std::span<const DrawPoint> points) = 0;
    /// Part of an ellipse with half-sizes `rx`, `ry`, from `start` degrees counter-clockwise over `sweep` degrees.
    virtual void Arc(DrawPoint centre, int rx, int ry, double start, double sweep) = 0;
    /// Outline with the pen, inside with the brush.
    virtual void Ellipse(DrawPoint centre, int rx, int ry) = 0;
    /// Inside with the brush, without outline; where edges cross, every second field.
    virtual void FillPolygon(std::span<const DrawPoint> corners) = 0;
    /// A solid disc without outline.
    virtual void FillCircle(DrawPoint centre, int r, DrawColour colour) = 0;
    /// CP932 text whose top left corner is `at`, in the text colour, without ground.
    virtual void Text(DrawPoint at, std::string_view text) = 0;

private:
    DrawPen pen_;
    DrawBrush brush_;
    DrawColour textColour_ = colours::kBlack;
};

} // namespace sbd
