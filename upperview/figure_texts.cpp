#include "upperview/figure_texts.h"

#include "document/section_doc.h"
#include "results/result_table.h"
#include "upperview/paper.h"

#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace sbd {

namespace {

constexpr double kFontShare = 0.6; // of the font of the model figure
constexpr double kMargin = 3;      // pixels around the heading
constexpr double kRim = 3;         // pixels, both sides together
constexpr double kTightest = 0.8;  // that pairs of letters may stand closer leaves at least this of their widths

using AsciiWidths = std::array<std::optional<double>, 128>;

QColor InkOf(FigureMark mark, const FigureLook& look)
{
    switch (mark) {
    case FigureMark::Greatest:
        return Ink(ColorOf(kMaxColor), look.backColor);
    case FigureMark::Least:
        return Ink(ColorOf(kMinColor), look.backColor);
    case FigureMark::Warning:
        return Ink(Qt::red, look.backColor);
    case FigureMark::None:
        break;
    }
    return Ink(Qt::black, look.backColor);
}

std::vector<HeadingPart> Placed(const QPainter& painter, const FigureHeading& heading, const FigureScreen& screen,
                                const FigureLook& look)
{
    return PlaceHeading(heading, MetricsOf(painter, SmallFont(look)), kMargin, kMargin,
                        screen.clientWidth - 2 * kMargin);
}

} // namespace

QColor ColorOf(std::uint32_t color)
{
    return QColor(static_cast<int>(color & 0xFF), static_cast<int>((color >> 8) & 0xFF),
                  static_cast<int>((color >> 16) & 0xFF));
}

QFont SmallFont(const FigureLook& look)
{
    QFont font = look.font;
    font.setPixelSize(std::max(1, static_cast<int>(std::lround(QFontInfo(look.font).pixelSize() * kFontShare))));
    return font;
}

TextMetrics MetricsOf(const QPainter& painter, const QFont& font)
{
    const QFontMetricsF metrics(font, painter.device());
    const auto width = [metrics](std::string_view text) { return metrics.horizontalAdvance(toQString(text)); };
    // Letters one by one are not laid out together, which takes most of the time, and asked for once.
    const auto leastWidth = [metrics, widths = AsciiWidths()](std::string_view text) mutable {
        double sum = 0;
        for (const char byte : text) {
            const auto code = static_cast<unsigned char>(byte);
            if (code < ' ' || code >= widths.size()) // a wide character: its second byte may count, which is less
                continue;
            if (!widths[code])
                widths[code] = metrics.horizontalAdvance(QLatin1Char(byte));
            sum += *widths[code];
        }
        return sum * kTightest;
    };
    return {width, metrics.height(), leastWidth};
}

std::vector<LabelBox> BoxesOfHeading(const QPainter& painter, const FigureHeading& heading, const FigureScreen& screen,
                                     const FigureLook& look)
{
    std::vector<LabelBox> boxes;
    for (const HeadingPart& part : Placed(painter, heading, screen, look))
        boxes.push_back(part.box);
    return boxes;
}

std::vector<LabelBox> PaintHeading(QPainter& painter, const FigureHeading& heading, const FigureScreen& screen,
                                   const FigureLook& look)
{
    const QFont font = SmallFont(look);
    const QFontMetricsF metrics(font, painter.device());
    painter.setFont(font);
    std::vector<LabelBox> boxes;
    for (const HeadingPart& part : Placed(painter, heading, screen, look)) {
        const LabelBox& box = part.box;
        painter.fillRect(QRectF(box.left, box.top, box.width, box.height), look.backColor);
        double left = box.left;
        if (part.words.sample) {
            const double middle = std::trunc(box.top + box.height / 2);
            painter.setPen(PenOf(*part.words.sample, look));
            painter.drawLine(QPointF(left, middle), QPointF(left + kSampleLength, middle));
            left += kSamplePlace;
        }
        painter.setPen(InkOf(part.words.mark, look));
        painter.drawText(QPointF(left, box.top + metrics.ascent()), toQString(part.words.text));
        boxes.push_back(box);
    }
    return boxes;
}

void PaintTexts(QPainter& painter, std::span<const PlacedText> texts, const QFont& font, const FigureLook& look,
                TextRim rim)
{
    const QFontMetricsF metrics(font, painter.device());
    painter.save();
    painter.setFont(font);
    painter.setBrush(Qt::NoBrush);
    QPen leader = PenOf(FigurePen::Faint, look);
    leader.setStyle(Qt::DotLine);
    painter.setPen(leader);
    for (const PlacedText& text : texts)
        if (text.leader)
            painter.drawLine(QPointF(text.leader->from.x, text.leader->from.y),
                             QPointF(text.leader->to.x, text.leader->to.y));
    const QPen ground(look.backColor, kRim, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    for (const PlacedText& text : texts) {
        const QString words = toQString(text.text);
        painter.save();
        if (text.upright) {
            painter.translate(std::trunc(text.box.left), std::trunc(text.box.Bottom()));
            painter.rotate(-90);
        } else {
            painter.translate(std::trunc(text.box.left), std::trunc(text.box.top));
        }
        if (rim == TextRim::Ground) {
            QPainterPath letters;
            letters.addText(QPointF(0, metrics.ascent()), font, words);
            painter.strokePath(letters, ground);
        }
        painter.setPen(text.mark == FigureMark::None ? PenOf(text.pen, look).color() : InkOf(text.mark, look));
        painter.drawText(QPointF(0, metrics.ascent()), words);
        painter.restore();
    }
    painter.restore();
}

} // namespace sbd
