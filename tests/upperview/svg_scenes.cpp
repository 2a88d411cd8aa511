#include "svg_scenes.h"

#include <QImage>
#include <QPainter>
#include <QPainterPath>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

void PenStyles(QPainter& painter)
{
    int y = 20;
    for (const Qt::PenStyle style : {Qt::SolidLine, Qt::DashLine, Qt::DotLine, Qt::DashDotLine, Qt::DashDotDotLine}) {
        painter.setPen(QPen(Qt::black, 3, style, Qt::FlatCap));
        painter.drawLine(20, y, 300, y);
        y += 25;
    }
    QPen own(QColor(200, 0, 0, 128), 4, Qt::CustomDashLine, Qt::RoundCap);
    own.setDashPattern({6, 4, 1, 4});
    own.setDashOffset(3);
    painter.setPen(own);
    painter.drawLine(QPointF(20, 160), QPointF(300, 200));
    painter.setPen(QPen(Qt::blue, 0));
    painter.drawLine(20, 220, 300, 220);
}

void CapsAndJoins(QPainter& painter)
{
    const QPointF zigzag[] = {{0, 60}, {20, 0}, {40, 60}, {70, 40}};
    int x = 20;
    for (const Qt::PenJoinStyle join : {Qt::MiterJoin, Qt::BevelJoin, Qt::RoundJoin}) {
        painter.setPen(QPen(Qt::darkGreen, 12, Qt::SolidLine, Qt::FlatCap, join));
        painter.save();
        painter.translate(x, 30);
        painter.drawPolyline(zigzag, 4);
        painter.restore();
        x += 100;
    }
    x = 40;
    for (const Qt::PenCapStyle cap : {Qt::FlatCap, Qt::SquareCap, Qt::RoundCap}) {
        painter.setPen(QPen(Qt::black, 20, Qt::SolidLine, cap));
        painter.drawLine(x, 140, x + 40, 140);
        x += 90;
    }
    painter.setPen(QPen(Qt::red, 14, Qt::SolidLine, Qt::FlatCap, Qt::MiterJoin));
    painter.drawRect(60, 180, 80, 40); // the corner where it begins is a corner too
    painter.setPen(QPen(Qt::blue, 9));
    painter.drawPoint(200, 200);
}

void Hatches(QPainter& painter)
{
    painter.setPen(Qt::NoPen);
    int i = 0;
    for (const Qt::BrushStyle style : {Qt::HorPattern, Qt::VerPattern, Qt::CrossPattern, Qt::BDiagPattern,
                                       Qt::FDiagPattern, Qt::DiagCrossPattern, Qt::Dense2Pattern, Qt::Dense6Pattern}) {
        painter.setBrush(QBrush(i % 2 == 0 ? Qt::black : Qt::red, style));
        const int line = i / 4;
        painter.drawRect(QRectF(8 + i % 4 * 78, 8 + line * 116, 70, 108));
        ++i;
    }
}

void ScaledHatch(QPainter& painter)
{
    painter.setPen(QPen(Qt::black, 0));
    painter.scale(0.4, 0.4);
    QBrush hatch(Qt::blue, Qt::HorPattern);
    hatch.setTransform(painter.transform().inverted());
    painter.setBrush(hatch);
    painter.drawEllipse(QRectF(50, 50, 600, 400));
    painter.resetTransform();
    painter.scale(3, 3);
    painter.setBrush(QBrush(Qt::red, Qt::BDiagPattern));
    painter.drawRect(QRectF(60, 50, 40, 25));
    painter.setPen(QPen(Qt::black, 1));
    painter.setBrush(QBrush(Qt::darkGreen, Qt::VerPattern));
    painter.translate(1, 2);
    painter.drawRect(QRectF(10, 55, 30, 20));
    painter.setRenderHint(QPainter::NonCosmeticBrushPatterns);
    painter.setPen(Qt::NoPen);
    painter.setBrushOrigin(1, 2);
    painter.drawRect(QRectF(75, 2, 25, 20));
}

void Texture(QPainter& painter)
{
    QImage tile(10, 6, QImage::Format_ARGB32_Premultiplied);
    tile.fill(Qt::yellow);
    QPainter(&tile).fillRect(0, 0, 5, 3, Qt::blue);
    painter.setPen(QPen(Qt::black, 2));
    painter.setBrush(QBrush(tile));
    painter.drawRect(20, 20, 100, 60);
    QLinearGradient gradient(160, 0, 300, 0);
    gradient.setColorAt(0, Qt::red);
    gradient.setColorAt(1, Qt::blue);
    painter.setBrush(gradient);
    painter.drawRect(160, 20, 140, 60);
}

/// Qt paints the area twice, once with its ground.
void OpaqueHatch(QPainter& painter)
{
    painter.setBackgroundMode(Qt::OpaqueMode);
    painter.setBackground(Qt::yellow);
    painter.setBrush(QBrush(Qt::black, Qt::HorPattern));
    painter.drawRect(20, 120, 100, 60);
}

void Shapes(QPainter& painter)
{
    painter.setPen(QPen(Qt::black, 2));
    painter.setBrush(QColor(0, 160, 0, 120));
    painter.drawEllipse(20, 20, 90, 60);
    painter.drawPie(130, 10, 90, 90, 30 * 16, 250 * 16);
    painter.drawRoundedRect(QRectF(235, 20, 70, 60), 15, 15);
    const QPointF star[] = {{60, 110}, {90, 210}, {10, 145}, {110, 145}, {30, 210}};
    painter.drawPolygon(star, 5, Qt::OddEvenFill);
    painter.translate(120, 0);
    painter.drawPolygon(star, 5, Qt::WindingFill);
    painter.setOpacity(0.5);
    painter.translate(80, 120);
    painter.rotate(20);
    painter.scale(1.5, 0.5);
    painter.setPen(QPen(Qt::red, 8));
    painter.drawRect(20, 10, 60, 60);
    painter.setOpacity(1);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::blue, 0));
    painter.drawEllipse(QPointF(50, 60), 45, 70);
}

void Clips(QPainter& painter)
{
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::blue);
    const QRectF all(0, 0, kSceneSize.width(), kSceneSize.height());
    QPainterPath round;
    round.addEllipse(10, 10, 140, 100);
    painter.save();
    painter.setClipPath(round);
    painter.drawRect(all);
    painter.setClipRect(QRect(80, 0, 200, 60), Qt::IntersectClip);
    painter.setBrush(Qt::red);
    painter.drawRect(all);
    painter.save();
    painter.translate(90, 20);
    painter.rotate(30);
    painter.setClipRect(QRectF(0, 0, 20, 15), Qt::IntersectClip);
    painter.fillRect(QRectF(-100, -100, 300, 300), Qt::yellow);
    painter.restore();
    painter.fillRect(QRectF(100, 45, 300, 300), Qt::black);
    painter.setClipRect(QRect(170, 20, 60, 60), Qt::ReplaceClip);
    painter.drawRect(all);
    painter.setClipping(false);
    painter.drawRect(240, 20, 30, 30);
    painter.setClipping(true);
    painter.setBrush(Qt::black);
    painter.drawRect(200, 60, 100, 100);
    painter.setClipRect(all, Qt::NoClip);
    painter.drawRect(280, 60, 30, 30);
    painter.restore();
    painter.drawRect(10, 150, 40, 40);
    painter.setClipRegion(QRegion(100, 130, 60, 60).united(QRegion(200, 150, 60, 60)));
    painter.drawRect(all);
}

void Texts(QPainter& painter)
{
    painter.setFont(Gothic(20));
    painter.drawText(QPointF(10, 30), u"主桁　G1  [SEC] <&> \"断面\""_s);
    painter.setPen(Qt::red);
    QFont font = Gothic(16);
    font.setUnderline(true);
    font.setStrikeOut(true);
    painter.setFont(font);
    painter.drawText(QPointF(10, 70), u"横桁 C1・垂直補剛材"_s);
    painter.setPen(QColor(0, 0, 255, 160));
    painter.setFont(Gothic(16));
    painter.save();
    painter.translate(300, 220);
    painter.rotate(-90);
    painter.drawText(QPointF(0, 0), u"3701.4 kN・m 曲げ"_s);
    painter.restore();
    painter.scale(0.4, 0.4);
    painter.setFont(Gothic(38));
    painter.drawText(QPointF(30, 300), u"  間隔(n個,m):  左側から順に"_s);
    painter.drawText(QRectF(30, 400, 500, 100), Qt::AlignRight, u"右端"_s);
}

void Images(QPainter& painter)
{
    QImage image(40, 30, QImage::Format_ARGB32);
    image.fill(QColor(0, 120, 200, 200));
    QPainter onImage(&image);
    onImage.fillRect(0, 0, 20, 15, Qt::red);
    onImage.fillRect(30, 20, 10, 10, Qt::black);
    onImage.end();
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.drawImage(QPoint(10, 10), image);
    painter.drawImage(QRectF(70, 10, 120, 60), image);
    painter.drawPixmap(QRectF(210, 10, 80, 60), QPixmap::fromImage(image), QRectF(10, 5, 20, 20));
    painter.setOpacity(0.4);
    painter.translate(120, 120);
    painter.rotate(25);
    painter.drawImage(QRectF(0, 0, 120, 60), image);
}

constexpr SvgScene kScenes[] = {
    {"pen styles", PenStyles},
    {"caps and joins", CapsAndJoins},
    {"hatches", Hatches},
    {"scaled hatch", ScaledHatch},
    {"texture and gradient", Texture},
    {"opaque hatch", OpaqueHatch, false},
    {"shapes", Shapes},
    {"clips", Clips},
    {"texts", Texts},
    {"images", Images},
};

} // namespace

QFont Gothic(int pixels)
{
    QFont font(QStringList{u"IPAGothic"_s, u"ＭＳ ゴシック"_s});
    font.setStyleHint(QFont::Monospace);
    font.setPixelSize(pixels);
    return font;
}

std::span<const SvgScene> SvgScenes()
{
    return kScenes;
}

} // namespace sbd
