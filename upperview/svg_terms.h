// The words of SVG for what Qt paints with.
#pragma once

#include <QString>

#include <optional>

class QColor;
class QFont;
class QImage;
class QPainterPath;
class QPen;
class QTransform;
class QXmlStreamAttributes;

namespace sbd {

/// A length or coordinate, the same in every locale. What is no finite number is 0.
[[nodiscard]] QString SvgNumber(double number);

/// The value of the attribute "transform".
[[nodiscard]] QString SvgMatrix(const QTransform& transform);

/// The value of the attribute "d"; empty if the path is, or if a coordinate is no finite number.
[[nodiscard]] QString SvgPath(const QPainterPath& path);

/// A text without the characters that XML does not know: control characters, halves of surrogate pairs.
[[nodiscard]] QString SvgText(const QString& text);

/// A picture as a data address in PNG.
[[nodiscard]] QString SvgImage(const QImage& image);

/// The side of the square that a hatch repeats.
constexpr int kHatchTile = 8;

struct SvgHatchLines {
    QString path; ///< the attribute "d"
    double width;
};

/// The lines of a hatch within its square; nothing for another style.
[[nodiscard]] std::optional<SvgHatchLines> SvgHatch(Qt::BrushStyle style);

/// Adds the colour of `property`, "fill" or "stroke". `opacity` from 0 to 1 comes on top of the colour's own.
void AddSvgColour(QXmlStreamAttributes& attributes, const QString& property, const QColor& colour, double opacity);

/// Adds width, ends, joins and dashes of a line; a pen without width is one unit wide.
void AddSvgLine(QXmlStreamAttributes& attributes, const QPen& pen);

/// Adds families, size and style; `dpi` turns points into units. Lines under and through the text are no part of it.
void AddSvgFont(QXmlStreamAttributes& attributes, const QFont& font, int dpi);

} // namespace sbd
