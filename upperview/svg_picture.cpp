#include "upperview/svg_picture.h"

#include "upperview/svg_terms.h"

#include <QImage>
#include <QPaintEngine>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPixmap>
#include <QXmlStreamWriter>

#include <cmath>
#include <limits>
#include <optional>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr double kMillimetresAnInch = 25.4;
constexpr double kSvgPixelsAnInch = 96;

QString Links()
{
    return u"http://www.w3.org/1999/xlink"_s;
}

/// What the engine cannot do, the painter makes an image of.
constexpr QPaintEngine::PaintEngineFeatures kFeatures =
    QPaintEngine::PrimitiveTransform | QPaintEngine::PatternTransform | QPaintEngine::PixmapTransform
    | QPaintEngine::PatternBrush | QPaintEngine::AlphaBlend | QPaintEngine::PainterPaths | QPaintEngine::Antialiasing
    | QPaintEngine::BrushStroke | QPaintEngine::ConstantOpacity | QPaintEngine::MaskedBrush | QPaintEngine::PorterDuff
    | QPaintEngine::BlendModes | QPaintEngine::RasterOpModes;

bool IsFinite(const QTransform& t)
{
    return std::isfinite(t.m11()) && std::isfinite(t.m12()) && std::isfinite(t.m21()) && std::isfinite(t.m22())
           && std::isfinite(t.dx()) && std::isfinite(t.dy());
}

bool IsFinite(QPointF point)
{
    return std::isfinite(point.x()) && std::isfinite(point.y());
}

bool IsFinite(const QRectF& rect)
{
    return IsFinite(rect.topLeft()) && IsFinite(rect.bottomRight());
}

/// The file is <svg>, in it groups of shapes with the same clips, transform and paint. A group opens with the first
/// shape that needs it; patterns and clips stand between the groups.
class SvgEngine : public QPaintEngine {
public:
    SvgEngine(QIODevice& target, QSize size, int dpi, QString title)
        : QPaintEngine(kFeatures)
        , target_(target)
        , size_(size)
        , dpi_(dpi)
        , title_(std::move(title))
    {
    }

    bool begin(QPaintDevice*) override
    {
        if (begun_ || size_.isEmpty() || dpi_ <= 0 || !target_.isWritable())
            return false;
        begun_ = true;
        const auto pixels = [this](int units) { return SvgNumber(units * kSvgPixelsAnInch / dpi_); };
        xml_.setDevice(&target_);
        xml_.writeStartDocument();
        Start(u"svg"_s);
        xml_.writeDefaultNamespace(u"http://www.w3.org/2000/svg"_s);
        xml_.writeNamespace(Links(), u"xlink"_s);
        xml_.writeAttribute(u"version"_s, u"1.1"_s);
        xml_.writeAttribute(u"width"_s, pixels(size_.width()));
        xml_.writeAttribute(u"height"_s, pixels(size_.height()));
        xml_.writeAttribute(u"viewBox"_s, u"0 0 %1 %2"_s.arg(size_.width()).arg(size_.height()));
        xml_.writeAttribute(u"fill-rule"_s, u"evenodd"_s);
        xml_.writeAttribute(u"clip-rule"_s, u"evenodd"_s);
        if (const QString title = SvgText(title_); !title.isEmpty()) {
            Start(u"title"_s);
            xml_.writeCharacters(title);
            xml_.writeEndElement();
        }
        return true;
    }

    bool end() override
    {
        CloseGroups();
        End();
        xml_.writeEndDocument();
        return !xml_.hasError();
    }

    [[nodiscard]] Type type() const override { return SVG; }

    void updateState(const QPaintEngineState& change) override
    {
        const DirtyFlags dirty = change.state();
        if (dirty & DirtyTransform)
            transform_ = change.transform();
        if (dirty & DirtyPen)
            pen_ = change.pen();
        if (dirty & DirtyBrush)
            brush_ = change.brush();
        if (dirty & DirtyBrushOrigin)
            brushOrigin_ = change.brushOrigin();
        if (dirty & DirtyHints)
            hints_ = change.renderHints();
        if (dirty & DirtyOpacity)
            opacity_ = change.opacity();
        if (dirty & DirtyClipPath)
            Clip(change.clipPath(), change.clipOperation());
        if (dirty & DirtyClipRegion) {
            QPainterPath path;
            path.addRegion(change.clipRegion());
            Clip(path, change.clipOperation());
        }
        if (dirty & DirtyClipEnabled)
            isClipped_ = change.isClipEnabled();
        shapeStyle_.reset();
    }

    // --- shapes --------------------------------------------------------------------------------------

    using QPaintEngine::drawEllipse;
    using QPaintEngine::drawPolygon;

    void drawPath(const QPainterPath& path) override { Shape(path, true); }

    void drawPolygon(const QPointF* points, int count, PolygonDrawMode mode) override
    {
        QPainterPath path;
        for (int i = 0; i < count; ++i) {
            if (!IsFinite(points[i])) // the path would go on without the point
                return;
            i == 0 ? path.moveTo(points[i]) : path.lineTo(points[i]);
        }
        const bool isArea = mode != PolylineMode;
        if (isArea)
            path.closeSubpath();
        path.setFillRule(mode == WindingMode ? Qt::WindingFill : Qt::OddEvenFill);
        Shape(path, isArea);
    }

    void drawEllipse(const QRectF& place) override
    {
        if (IsMapped()) {
            QPaintEngine::drawEllipse(place);
            return;
        }
        if (!IsFinite(transform_) || !IsFinite(place) || place.isEmpty())
            return;
        OpenShapes();
        Empty(u"ellipse"_s);
        xml_.writeAttribute(u"cx"_s, SvgNumber(place.center().x()));
        xml_.writeAttribute(u"cy"_s, SvgNumber(place.center().y()));
        xml_.writeAttribute(u"rx"_s, SvgNumber(place.width() / 2));
        xml_.writeAttribute(u"ry"_s, SvgNumber(place.height() / 2));
    }

    // --- images --------------------------------------------------------------------------------------

    void drawPixmap(const QRectF& place, const QPixmap& pixmap, const QRectF& part) override
    {
        drawImage(place, pixmap.toImage(), part, Qt::AutoColor);
    }

    void drawImage(const QRectF& place, const QImage& image, const QRectF& part, Qt::ImageConversionFlags) override
    {
        if (!IsFinite(transform_) || !IsFinite(place) || !IsFinite(part) || place.isEmpty() || part.isEmpty())
            return;
        const QRect taken = part.toAlignedRect() & image.rect(); // the place grows as the part does
        if (taken.isEmpty())
            return;
        const double across = place.width() / part.width();
        const double down = place.height() / part.height();
        QXmlStreamAttributes style;
        AddTransform(style);
        if (opacity_ < 1)
            style.append(u"opacity"_s, SvgNumber(opacity_));
        OpenGroup(style);
        Empty(u"image"_s);
        xml_.writeAttribute(u"x"_s, SvgNumber(place.x() + (taken.x() - part.x()) * across));
        xml_.writeAttribute(u"y"_s, SvgNumber(place.y() + (taken.y() - part.y()) * down));
        xml_.writeAttribute(u"width"_s, SvgNumber(taken.width() * across));
        xml_.writeAttribute(u"height"_s, SvgNumber(taken.height() * down));
        xml_.writeAttribute(u"preserveAspectRatio"_s, u"none"_s);
        xml_.writeAttribute(Links(), u"href"_s, SvgImage(image.copy(taken)));
    }

    // --- texts ---------------------------------------------------------------------------------------

    /// The painter itself draws the lines under and through a text.
    void drawTextItem(const QPointF& place, const QTextItem& item) override
    {
        const QString text = SvgText(item.text());
        if (text.isEmpty() || !IsFinite(transform_) || !IsFinite(place))
            return;
        QXmlStreamAttributes style;
        AddTransform(style);
        AddPaint(style, u"fill"_s, pen_.brush(), false);
        AddSvgFont(style, item.font(), dpi_);
        OpenGroup(style);
        Start(u"text"_s);
        xml_.writeAttribute(u"x"_s, SvgNumber(place.x()));
        xml_.writeAttribute(u"y"_s, SvgNumber(place.y()));
        if (item.width() > 0 && std::isfinite(item.width())) { // as wide in a font that is another one
            xml_.writeAttribute(u"textLength"_s, SvgNumber(item.width()));
            xml_.writeAttribute(u"lengthAdjust"_s, u"spacingAndGlyphs"_s);
        }
        xml_.writeAttribute(u"xml:space"_s, u"preserve"_s);
        xml_.writeCharacters(text);
        xml_.writeEndElement();
    }

private:
    // --- elements, each on a line of its own ---------------------------------------------------------

    void Start(const QString& name)
    {
        xml_.writeCharacters(u"\n"_s);
        xml_.writeStartElement(name);
    }

    void Empty(const QString& name)
    {
        xml_.writeCharacters(u"\n"_s);
        xml_.writeEmptyElement(name);
    }

    void End()
    {
        xml_.writeCharacters(u"\n"_s);
        xml_.writeEndElement();
    }

    // --- groups --------------------------------------------------------------------------------------

    void OpenGroup(const QXmlStreamAttributes& style)
    {
        const QStringList clips = isClipped_ ? clips_ : QStringList();
        if (openGroups_ > 0 && openStyle_ == style && openClips_ == clips)
            return;
        CloseGroups();
        for (const QString& clip : clips) { // in groups of their own, which the transform leaves alone
            Start(u"g"_s);
            xml_.writeAttribute(u"clip-path"_s, u"url(#%1)"_s.arg(clip));
        }
        Start(u"g"_s);
        xml_.writeAttributes(style);
        openGroups_ = clips.size() + 1;
        openStyle_ = style;
        openClips_ = clips;
    }

    void CloseGroups()
    {
        for (; openGroups_ > 0; --openGroups_)
            End();
    }

    void OpenShapes()
    {
        if (!shapeStyle_) {
            shapeStyle_.emplace();
            if (!IsMapped())
                AddTransform(*shapeStyle_);
            AddPaint(*shapeStyle_, u"fill"_s, brush_, IsMapped());
            if (HasPen()) {
                AddPaint(*shapeStyle_, u"stroke"_s, pen_.brush(), IsMapped());
                AddSvgLine(*shapeStyle_, pen_);
            }
        }
        OpenGroup(*shapeStyle_);
    }

    void Shape(const QPainterPath& path, bool isArea)
    {
        if (!IsFinite(transform_))
            return;
        const QString data = SvgPath(IsMapped() ? transform_.map(path) : path);
        if (data.isEmpty())
            return;
        OpenShapes();
        Empty(u"path"_s);
        xml_.writeAttribute(u"d"_s, data);
        if (!isArea && brush_.style() != Qt::NoBrush)
            xml_.writeAttribute(u"fill"_s, u"none"_s);
        if (isArea && path.fillRule() == Qt::WindingFill)
            xml_.writeAttribute(u"fill-rule"_s, u"nonzero"_s);
    }

    [[nodiscard]] bool HasPen() const { return pen_.style() != Qt::NoPen && std::isfinite(pen_.widthF()); }

    /// A hatch whose step no transform changes.
    [[nodiscard]] bool IsCosmetic(const QBrush& brush) const
    {
        return brush.style() > Qt::SolidPattern && brush.style() <= Qt::DiagCrossPattern
               && !hints_.testFlag(QPainter::NonCosmeticBrushPatterns);
    }

    /// Whether shapes are brought to the picture's units before they are written, where pens and hatches are that no
    /// transform changes.
    [[nodiscard]] bool IsMapped() const { return HasPen() ? pen_.isCosmetic() : IsCosmetic(brush_); }

    void AddTransform(QXmlStreamAttributes& style) const
    {
        if (!transform_.isIdentity())
            style.append(u"transform"_s, SvgMatrix(transform_));
    }

    // --- brushes -------------------------------------------------------------------------------------

    /// `isMapped`: what is painted is in the picture's units.
    void AddPaint(QXmlStreamAttributes& style, const QString& property, const QBrush& brush, bool isMapped)
    {
        if (brush.style() == Qt::NoBrush) {
            style.append(property, u"none"_s);
        } else if (brush.style() == Qt::SolidPattern) {
            AddSvgColour(style, property, brush.color(), opacity_);
        } else {
            style.append(property, u"url(#%1)"_s.arg(Pattern(brush, isMapped)));
            if (opacity_ < 1)
                style.append(property + u"-opacity"_s, SvgNumber(opacity_));
        }
    }

    /// The name of the pattern that fills as the brush does, which is written before its first use.
    QString Pattern(const QBrush& brush, bool isMapped)
    {
        const QTransform place = PlaceOf(brush, isMapped);
        QXmlStreamAttributes content;
        QSize size(kHatchTile, kHatchTile);
        const std::optional<SvgHatchLines> hatch = SvgHatch(brush.style());
        if (hatch) {
            content.append(u"d"_s, hatch->path);
            content.append(u"stroke-width"_s, SvgNumber(hatch->width));
            AddSvgColour(content, u"stroke"_s, brush.color(), 1);
        } else {
            const QImage tile = Tile(brush);
            size = tile.size();
            content.append(u"width"_s, QString::number(size.width()));
            content.append(u"height"_s, QString::number(size.height()));
            content.append(Links(), u"href"_s, SvgImage(tile));
        }
        for (const KnownPattern& known : patterns_) {
            if (known.content == content && known.place == place)
                return known.name;
        }
        patterns_.append({u"p%1"_s.arg(patterns_.size() + 1), content, place});
        CloseGroups();
        Start(u"pattern"_s);
        xml_.writeAttribute(u"id"_s, patterns_.last().name);
        xml_.writeAttribute(u"patternUnits"_s, u"userSpaceOnUse"_s);
        xml_.writeAttribute(u"width"_s, QString::number(size.width()));
        xml_.writeAttribute(u"height"_s, QString::number(size.height()));
        if (!place.isIdentity())
            xml_.writeAttribute(u"patternTransform"_s, SvgMatrix(place));
        Empty(hatch ? u"path"_s : u"image"_s);
        xml_.writeAttributes(content);
        End();
        return patterns_.last().name;
    }

    /// From the pattern's units to those that the shape is written in.
    [[nodiscard]] QTransform PlaceOf(const QBrush& brush, bool isMapped) const
    {
        const QTransform origin = QTransform::fromTranslate(brushOrigin_.x(), brushOrigin_.y());
        QTransform place = brush.transform() * origin * transform_;
        if (IsCosmetic(brush)) { // moves by steps of its own, as on a screen
            const QTransform moved = brush.transform() * transform_;
            place = QTransform::fromTranslate(moved.dx() / moved.m11(), moved.dy() / moved.m22()) * origin;
        }
        if (!isMapped)
            place *= transform_.inverted();
        return IsFinite(place) ? place : QTransform();
    }

    /// What a brush of pixels repeats.
    static QImage Tile(const QBrush& brush)
    {
        const bool isTexture = brush.style() == Qt::TexturePattern;
        QImage tile(isTexture ? brush.textureImage().size() : QSize(kHatchTile, kHatchTile),
                    QImage::Format_ARGB32_Premultiplied);
        tile.fill(Qt::transparent);
        QBrush straight = brush;
        straight.setTransform({});
        QPainter(&tile).fillRect(tile.rect(), straight);
        return tile;
    }

    // --- clip ----------------------------------------------------------------------------------------

    void Clip(const QPainterPath& path, Qt::ClipOperation operation)
    {
        if (operation != Qt::IntersectClip)
            clips_.clear();
        if (operation == Qt::NoClip)
            return;
        clips_.append(u"c%1"_s.arg(++countOfClips_));
        CloseGroups();
        Start(u"clipPath"_s);
        xml_.writeAttribute(u"id"_s, clips_.last());
        Empty(u"path"_s);
        xml_.writeAttribute(u"d"_s, IsFinite(transform_) ? SvgPath(transform_.map(path)) : QString());
        if (path.fillRule() == Qt::WindingFill)
            xml_.writeAttribute(u"clip-rule"_s, u"nonzero"_s);
        End();
    }

    struct KnownPattern {
        QString name;
        QXmlStreamAttributes content;
        QTransform place;
    };

    QIODevice& target_;
    QSize size_;
    int dpi_;
    QString title_;
    QXmlStreamWriter xml_;
    bool begun_ = false;

    // What the painter has set.
    QTransform transform_;
    QPen pen_;
    QBrush brush_;
    QPointF brushOrigin_;
    QPainter::RenderHints hints_;
    double opacity_ = 1;
    QStringList clips_; // names; what is painted lies within all of them
    bool isClipped_ = false;

    // What is written.
    std::optional<QXmlStreamAttributes> shapeStyle_; // of pen, brush and transform as they are
    qsizetype openGroups_ = 0;
    QXmlStreamAttributes openStyle_;
    QStringList openClips_;
    int countOfClips_ = 0;
    QList<KnownPattern> patterns_;
};

} // namespace

CSvgPicture::CSvgPicture(QIODevice& target, QSize size, int dpi, QString title)
    : size_(size)
    , dpi_(dpi)
    , engine_(std::make_unique<SvgEngine>(target, size, dpi, std::move(title)))
{
}

CSvgPicture::~CSvgPicture() = default;

QPaintEngine* CSvgPicture::paintEngine() const
{
    return engine_.get();
}

int CSvgPicture::metric(PaintDeviceMetric metric) const
{
    constexpr int depth = 32;
    const auto millimetres = [this](int units) { return dpi_ > 0 ? qRound(units * kMillimetresAnInch / dpi_) : 0; };
    switch (metric) {
    case PdmWidth:
        return size_.width();
    case PdmHeight:
        return size_.height();
    case PdmWidthMM:
        return millimetres(size_.width());
    case PdmHeightMM:
        return millimetres(size_.height());
    case PdmNumColors:
        return std::numeric_limits<int>::max();
    case PdmDepth:
        return depth;
    case PdmDpiX:
    case PdmDpiY:
    case PdmPhysicalDpiX:
    case PdmPhysicalDpiY:
        return dpi_;
    case PdmDevicePixelRatio:
        return 1;
    case PdmDevicePixelRatioScaled:
        return static_cast<int>(devicePixelRatioFScale());
    }
    return QPaintDevice::metric(metric);
}

} // namespace sbd
