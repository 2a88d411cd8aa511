// CDrawRecorder: a context that keeps what is drawn, for tests, listings and searches.
#pragma once

#include "upperview/page/draw_context.h"

#include <string>
#include <vector>

namespace sbd {

enum class PrimitiveKind {
    Line,
    Polyline,
    Arc,
    Ellipse,
    FillPolygon,
    FillCircle,
    Text,
};

/// One call of a context. `points` holds ends, corners, or a centre; `rx`, `ry` the half-sizes of what is round.
struct Primitive {
    PrimitiveKind kind = PrimitiveKind::Line;
    std::vector<DrawPoint> points;
    int rx = 0;
    int ry = 0;
    double start = 0; ///< degrees
    double sweep = 0;
    DrawPen pen;
    DrawBrush brush;
    DrawColour colour = colours::kBlack; ///< of text and disc
    std::string text;                    ///< CP932
    friend bool operator==(const Primitive&, const Primitive&) = default;
};

/// Left, top, right and bottom with top >= bottom.
struct DrawBox {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;
    [[nodiscard]] bool Overlaps(const DrawBox& other) const
    {
        return left < other.right && other.left < right && bottom < other.top && other.bottom < top;
    }
    /// A line passes through the inside: the part of it within has a length.
    [[nodiscard]] bool IsCrossedBy(DrawPoint a, DrawPoint b) const;
};

class CDrawRecorder : public CDrawContext {
public:
    explicit CDrawRecorder(const TextMetrics& metrics = {}) : metrics_(metrics) {}

    [[nodiscard]] TextMetrics Metrics() const override { return metrics_; }
    void Line(DrawPoint from, DrawPoint to) override;
    void Polyline(std::span<const DrawPoint> points) override;
    void Arc(DrawPoint centre, int rx, int ry, double start, double sweep) override;
    void Ellipse(DrawPoint centre, int rx, int ry) override;
    void FillPolygon(std::span<const DrawPoint> corners) override;
    void FillCircle(DrawPoint centre, int r, DrawColour colour) override;
    void Text(DrawPoint at, std::string_view text) override;

    [[nodiscard]] const std::vector<Primitive>& Primitives() const { return primitives_; }

    /// The room of a primitive; of a text by the metrics.
    [[nodiscard]] DrawBox BoxOf(const Primitive& primitive) const;
    /// True for what is drawn in red: a line by its pen, a text or disc by its colour.
    [[nodiscard]] static bool IsRed(const Primitive& primitive);

    /// The primitives as a JSON array of objects, one a line, texts in UTF-8.
    [[nodiscard]] std::string ToJson() const;

private:
    Primitive& Add(PrimitiveKind kind, std::span<const DrawPoint> points);

    TextMetrics metrics_;
    std::vector<Primitive> primitives_;
};

} // namespace sbd
