// The texts of a figure on a painter.
#pragma once

#include "results/figure_heading.h"
#include "upperview/model_figure.h"

#include <QFontMetricsF>

#include <span>
#include <vector>

class QPainter;

namespace sbd {

/// A colour of the tables, with blue in the high byte.
[[nodiscard]] QColor ColorOf(std::uint32_t color);

/// The font of headings and diagrams, smaller than that of the figure of the model.
[[nodiscard]] QFont SmallFont(const FigureLook& look);

/// Measures texts as the painter writes them.
[[nodiscard]] TextMetrics MetricsOf(const QPainter& painter, const QFont& font);

/// The heading in the left upper corner, over what may lie there, and the boxes that it takes.
[[nodiscard]] std::vector<LabelBox> PaintHeading(QPainter& painter, const FigureHeading& heading,
                                                 const FigureScreen& screen, const FigureLook& look);
/// The boxes alone.
[[nodiscard]] std::vector<LabelBox> BoxesOfHeading(const QPainter& painter, const FigureHeading& heading,
                                                   const FigureScreen& screen, const FigureLook& look);

/// Whether letters have a rim of the ground around them, by which they are read over lines. It costs more than the text.
enum class TextRim { None, Ground };

/// Texts that have found their places.
void PaintTexts(QPainter& painter, std::span<const PlacedText> texts, const QFont& font, const FigureLook& look,
                TextRim rim = TextRim::Ground);

} // namespace sbd
