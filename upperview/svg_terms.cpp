#include "upperview/svg_terms.h"

#include <QBuffer>
#include <QColor>
#include <QFont>
#include <QFontInfo>
#include <QImage>
#include <QPainterPath>
#include <QPen>
#include <QStringList>
#include <QTransform>
#include <QXmlStreamAttributes>

#include <algorithm>
#include <array>
#include <cmath>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

QString Digits(double number, int digits)
{
    return QString::number(std::isfinite(number) ? number + 0.0 : 0, 'g', digits); // no "-0"
}

/// Whether XML 1.0 knows the character.
bool IsXmlCharacter(char32_t c)
{
    return c == U'\t' || c == U'\n' || c == U'\r' || (c >= 0x20 && c <= 0xD7FF) || (c >= 0xE000 && c <= 0xFFFD)
           || (c >= 0x10000 && c <= 0x10FFFF);
}

QChar CommandOf(QPainterPath::ElementType type)
{
    switch (type) {
    case QPainterPath::MoveToElement:
        return u'M';
    case QPainterPath::LineToElement:
        return u'L';
    case QPainterPath::CurveToElement:
        return u'C';
    case QPainterPath::CurveToDataElement: // the next point of the curve
        break;
    }
    return u' ';
}

QString CapWord(Qt::PenCapStyle cap)
{
    return cap == Qt::SquareCap ? u"square"_s : cap == Qt::RoundCap ? u"round"_s : u"butt"_s;
}

QString JoinWord(Qt::PenJoinStyle join)
{
    return join == Qt::BevelJoin ? u"bevel"_s : join == Qt::RoundJoin ? u"round"_s : u"miter"_s;
}

/// The family of last resort.
QString GenericFamily(const QFont& font)
{
    if (font.fixedPitch())
        return u"monospace"_s;
    switch (font.styleHint()) {
    case QFont::Monospace:
    case QFont::TypeWriter:
        return u"monospace"_s;
    case QFont::Serif:
        return u"serif"_s;
    default:
        return u"sans-serif"_s;
    }
}

} // namespace

QString SvgNumber(double number)
{
    constexpr int digits = 7;
    return Digits(number, digits);
}

QString SvgMatrix(const QTransform& transform)
{
    constexpr int digits = 9; // small factors meet large coordinates
    QStringList values;
    for (const double value :
         {transform.m11(), transform.m12(), transform.m21(), transform.m22(), transform.dx(), transform.dy()})
        values << Digits(value, digits);
    return u"matrix(%1)"_s.arg(values.join(u' '));
}

QString SvgPath(const QPainterPath& path)
{
    QString data;
    int first = 0; // element of the subpath
    for (int i = 0; i < path.elementCount(); ++i) {
        const QPainterPath::Element element = path.elementAt(i);
        if (!std::isfinite(element.x) || !std::isfinite(element.y))
            return {};
        if (element.isMoveTo())
            first = i;
        // A subpath that ends where it began is a closed one: its ends are joined.
        const bool isLast = i + 1 == path.elementCount() || path.elementAt(i + 1).isMoveTo();
        const bool closes = isLast && i > first + 1 && QPointF(element) == QPointF(path.elementAt(first));
        if (!closes || !element.isLineTo()) {
            data += CommandOf(element.type);
            data += SvgNumber(element.x) + u' ' + SvgNumber(element.y);
        }
        if (closes)
            data += u'Z';
    }
    return data;
}

QString SvgText(const QString& text)
{
    QString known;
    known.reserve(text.size());
    for (qsizetype i = 0; i < text.size(); ++i) {
        const bool isPair = text[i].isHighSurrogate() && i + 1 < text.size() && text[i + 1].isLowSurrogate();
        const char32_t character = isPair ? QChar::surrogateToUcs4(text[i], text[i + 1]) : text[i].unicode();
        if (IsXmlCharacter(character))
            known += text.sliced(i, isPair ? 2 : 1);
        i += isPair ? 1 : 0;
    }
    return known;
}

QString SvgImage(const QImage& image)
{
    QBuffer bytes;
    image.save(&bytes, "PNG");
    return u"data:image/png;base64,"_s + QString::fromLatin1(bytes.data().toBase64());
}

std::optional<SvgHatchLines> SvgHatch(Qt::BrushStyle style)
{
    const double slanted = 1 / std::sqrt(2); // as much ink a row as a line across
    const QString across = u"M0 3.5H8"_s;
    const QString down = u"M4.5 0V8"_s;
    const QString rising = u"M-1 1L1 -1M0 8L8 0M7 9L9 7"_s;
    const QString falling = u"M7 -1L9 1M0 0L8 8M-1 7L1 9"_s;
    switch (style) {
    case Qt::HorPattern:
        return SvgHatchLines{across, 1};
    case Qt::VerPattern:
        return SvgHatchLines{down, 1};
    case Qt::CrossPattern:
        return SvgHatchLines{across + down, 1};
    case Qt::BDiagPattern:
        return SvgHatchLines{rising, slanted};
    case Qt::FDiagPattern:
        return SvgHatchLines{falling, slanted};
    case Qt::DiagCrossPattern:
        return SvgHatchLines{rising + falling, slanted};
    default:
        return std::nullopt;
    }
}

void AddSvgColour(QXmlStreamAttributes& attributes, const QString& property, const QColor& colour, double opacity)
{
    attributes.append(property, colour.name());
    if (const double share = colour.alphaF() * opacity; share < 1)
        attributes.append(property + u"-opacity"_s, SvgNumber(share));
}

void AddSvgLine(QXmlStreamAttributes& attributes, const QPen& pen)
{
    const double width = pen.widthF() > 0 ? pen.widthF() : 1;
    attributes.append(u"stroke-width"_s, SvgNumber(width));
    attributes.append(u"stroke-linecap"_s, CapWord(pen.capStyle()));
    attributes.append(u"stroke-linejoin"_s, JoinWord(pen.joinStyle()));
    // SVG measures a mitre from the inner corner, Qt from the middle of the line.
    if (pen.joinStyle() == Qt::MiterJoin || pen.joinStyle() == Qt::SvgMiterJoin) {
        const double limit = pen.joinStyle() == Qt::MiterJoin ? 2 * pen.miterLimit() : pen.miterLimit();
        attributes.append(u"stroke-miterlimit"_s, SvgNumber(std::max(1.0, limit)));
    }
    if (pen.style() == Qt::SolidLine)
        return;
    QStringList dashes;
    for (const double length : pen.dashPattern())
        dashes << SvgNumber(length * width);
    attributes.append(u"stroke-dasharray"_s, dashes.join(u' '));
    if (pen.dashOffset() != 0)
        attributes.append(u"stroke-dashoffset"_s, SvgNumber(pen.dashOffset() * width));
}

void AddSvgFont(QXmlStreamAttributes& attributes, const QFont& font, int dpi)
{
    constexpr double pointsAnInch = 72;
    QStringList families;
    for (QString family : font.families() + QStringList{QFontInfo(font).family()}) {
        family = u'\'' + SvgText(family).remove(u'\'') + u'\'';
        if (!families.contains(family))
            families << family;
    }
    families << GenericFamily(font);
    const double size = font.pixelSize() > 0 ? font.pixelSize() : font.pointSizeF() * dpi / pointsAnInch;
    attributes.append(u"font-family"_s, families.join(u", "_s));
    attributes.append(u"font-size"_s, SvgNumber(size));
    attributes.append(u"font-weight"_s, QString::number(font.weight()));
    if (font.style() != QFont::StyleNormal)
        attributes.append(u"font-style"_s, font.style() == QFont::StyleItalic ? u"italic"_s : u"oblique"_s);
}

} // namespace sbd
