#include "upperview/draw_painter.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QTest>

#include <array>
#include <cmath>
#include <optional>
#include <random>

using namespace sbd;

namespace {

constexpr QSize kSize(200, 160);

/// A white sheet on which a context draws.
class Sheet {
public:
    Sheet(double scale, QPointF shift, double ratio = 1) : image_(kSize, QImage::Format_RGB32)
    {
        image_.setDevicePixelRatio(ratio);
        image_.fill(Qt::white);
        painter_.begin(&image_);
        painter_.setBackground(Qt::white);
        painter_.translate(shift);
        painter_.scale(scale, scale);
        font_.setPixelSize(20);
        context_.emplace(painter_, font_);
    }

    CPainterContext& Context() { return *context_; }
    QPainter& Painter() { return painter_; }

    /// The rectangle around all pixels that are not white.
    QRect Ink()
    {
        painter_.end();
        QRect box;
        for (int y = 0; y < image_.height(); ++y)
            for (int x = 0; x < image_.width(); ++x)
                if (image_.pixel(x, y) != qRgb(255, 255, 255))
                    box |= QRect(x, y, 1, 1);
        return box;
    }
    /// The same; empty if it is no whole rectangle of black pixels.
    QRect Inked()
    {
        const QRect box = Ink();
        for (int y = box.top(); y <= box.bottom(); ++y)
            for (int x = box.left(); x <= box.right(); ++x)
                if (image_.pixel(x, y) != qRgb(0, 0, 0))
                    return {};
        return box;
    }
    QRgb PixelAt(int x, int y) const { return image_.pixel(x, y); }

private:
    QImage image_;
    QPainter painter_;
    QFont font_;
    std::optional<CPainterContext> context_;
};

struct Look {
    double scale;
    QPointF shift;
    double ratio;
};
const Look kLooks[] = {{96 / 254.0, {0, 0}, 1}, {96 / 254.0, {0.37, 0.81}, 1}, {1, {3, 5}, 1}, {0.3, {0.5, 0.5}, 2}};

} // namespace

class DrawPainterTest : public QObject {
    Q_OBJECT

private slots:
    void aLineAlongThePixelsIsAWholeRectangle();
    void itLiesWhereThePainterDrawsIt();
    void theCornersOfAnOutlineAreWhole();
    void aLineThatIsBrokenOrSlantedIsNone();
};

/// As broad as its pen and as long as its points are apart, its last pixel included.
void DrawPainterTest::aLineAlongThePixelsIsAWholeRectangle()
{
    for (const Look& look : kLooks)
        for (const int width : {1, 2, 3, 5, 9})
            for (const bool level : {true, false}) {
                Sheet sheet(look.scale, look.shift, look.ratio);
                sheet.Context().SetPen({PenStyle::Solid, width, colours::kBlack});
                sheet.Context().Line({40, -50}, level ? DrawPoint{130, -50} : DrawPoint{40, -110});
                const double pixels = look.scale * look.ratio;
                const QRect inked = sheet.Inked();
                QVERIFY(!inked.isEmpty());
                const int across = level ? inked.height() : inked.width();
                const int along = level ? inked.width() : inked.height();
                QCOMPARE(across, std::max(1, qRound(width * pixels)));
                QVERIFY(std::abs(along - ((level ? 90 : 60) * pixels + 1)) <= 1);
            }
}

void DrawPainterTest::itLiesWhereThePainterDrawsIt()
{
    const QByteArray given = qgetenv("SBD_TEST_SEED");
    const unsigned seed = given.isEmpty() ? std::random_device()() : given.toUInt();
    qInfo("repeat with SBD_TEST_SEED=%u", seed);
    std::mt19937 random(seed);
    for (int i = 0; i < 200; ++i) {
        const Look& look = kLooks[random() % std::size(kLooks)];
        const DrawPoint from{static_cast<int>(random() % 150), -static_cast<int>(random() % 100)};
        const DrawPoint to{from.x + 20, from.y};
        Sheet own(look.scale, look.shift, look.ratio);
        own.Context().SetPen({PenStyle::Solid, 1, colours::kBlack});
        own.Context().Line(from, to);
        Sheet painters(look.scale, look.shift, look.ratio);
        painters.Painter().setPen(QPen(Qt::black, 0, Qt::SolidLine, Qt::FlatCap));
        painters.Painter().drawLine(QPointF(from.x, -from.y), QPointF(to.x, -to.y));
        const QRect ownPixels = own.Inked();
        const QRect paintersPixels = painters.Inked();
        QVERIFY(std::abs(ownPixels.top() - paintersPixels.top()) <= 1);
        QVERIFY(std::abs(ownPixels.left() - paintersPixels.left()) <= 1);
        QVERIFY(std::abs(ownPixels.right() - paintersPixels.right()) <= 1);
    }
}

void DrawPainterTest::theCornersOfAnOutlineAreWhole()
{
    Sheet sheet(1, {});
    sheet.Context().SetPen({PenStyle::Solid, 4, colours::kBlack});
    const std::array<DrawPoint, 5> outline{{{40, -40}, {100, -40}, {100, -90}, {40, -90}, {40, -40}}};
    sheet.Context().Polyline(outline);
    const QRect box = sheet.Ink();
    QCOMPARE(box.size(), QSize(60 + 4, 50 + 4));
    for (const QPoint& corner : {box.topLeft(), box.topRight(), box.bottomLeft(), box.bottomRight()})
        QCOMPARE(sheet.PixelAt(corner.x(), corner.y()), qRgb(0, 0, 0));
    QCOMPARE(sheet.PixelAt(box.left() + 4, box.top() + 4), qRgb(255, 255, 255));
}

void DrawPainterTest::aLineThatIsBrokenOrSlantedIsNone()
{
    Sheet broken(1, {});
    broken.Context().SetPen({PenStyle::Dash, 2, colours::kBlack});
    broken.Context().Line({10, -50}, {150, -50});
    QVERIFY(broken.Inked().isEmpty());
    Sheet slanted(1, {});
    slanted.Context().SetPen({PenStyle::Solid, 2, colours::kBlack});
    slanted.Context().Line({10, -50}, {150, -90});
    QVERIFY(slanted.Inked().isEmpty());
}

QTEST_MAIN(DrawPainterTest)
#include "draw_painter_test.moc"
