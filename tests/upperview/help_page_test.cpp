#include "document/section_doc.h"
#include "upperview/display_look.h"
#include "upperview/draw_painter.h"
#include "upperview/help_page.h"
#include "upperview/page_unit.h"

#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QTest>

#include <limits>

using namespace Qt::StringLiterals;
using namespace sbd;

class HelpPageTest : public QObject {
    Q_OBJECT

private slots:
    void theFontIsTwiceTheSettingAndOfOneWidth();
    void aFontHeightOutOfAllBoundsIsHeldBack();
    void aPageIsMeasuredAsItIsPainted();
    void aSelectedColumnShowsMoreRed();
    void aBlockWithoutAPagePaintsNothing();
    void aQuoteOfForeignBytesIsPainted();
    void aLineIsNeverThinnerThanAPixel();
    void everyColourCanBeReadOnADarkGround();
    void aLightGroundKeepsTheColours();
};

namespace {

constexpr QSize kClient(900, 400);

QImage Paint(const CSbdData& data, const HelpCell& cell)
{
    QImage sheet(1000, 800, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    painter.scale(96 / kPageUnitsPerInch, 96 / kPageUnitsPerInch);
    PaintHelpPage(painter, data, cell, kClient, HelpFont({}));
    return sheet;
}

int CountOf(const QImage& image, QColor colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == colour ? 1 : 0;
    return count;
}

} // namespace

void HelpPageTest::theFontIsTwiceTheSettingAndOfOneWidth()
{
    DisplaySettings display;
    display.fontHeight = -19;
    const TextMetrics metrics = MetricsOf(HelpFont(display));
    QCOMPARE(HelpFont(display).pixelSize(), 38);
    QCOMPARE(metrics.aveCharWidth, 19);
    const QFontMetricsF exact(HelpFont(display));
    QCOMPARE(exact.horizontalAdvance(u"幅"_s), 2 * exact.horizontalAdvance(u"B"_s));
}

void HelpPageTest::aFontHeightOutOfAllBoundsIsHeldBack()
{
    for (const int height : {0, -1'000'000, 1'000'000, std::numeric_limits<int>::min()}) {
        DisplaySettings display;
        display.fontHeight = height;
        const int pixels = HelpFont(display).pixelSize();
        QVERIFY(pixels >= 8 && pixels <= 600);
    }
}

void HelpPageTest::aPageIsMeasuredAsItIsPainted()
{
    const CSbdData data;
    QImage sheet(10, 10, QImage::Format_RGB32);
    QPainter painter(&sheet);
    const PageExtent painted = PaintHelpPage(painter, data, {313, 2, 7}, kClient, HelpFont({}));
    const PageExtent measured = MeasureHelpPage(data, {313, 2, 7}, kClient, HelpFont({}));
    QCOMPARE(painted.width, measured.width);
    QCOMPARE(painted.height, measured.height);
    QCOMPARE(painted.anchor, measured.anchor);
    QVERIFY(painted.anchor > 1);
}

void HelpPageTest::aSelectedColumnShowsMoreRed()
{
    const CSbdData data;
    const int plain = CountOf(Paint(data, {313, 2, 1}), Qt::red);
    const int selected = CountOf(Paint(data, {313, 2, 6}), Qt::red);
    QVERIFY(selected > plain);
}

void HelpPageTest::aBlockWithoutAPagePaintsNothing()
{
    const CSbdData data;
    for (const int block : {-5, 0, 99, 253, 406, 1000, 999'999}) {
        const QImage sheet = Paint(data, {block, 1, 1});
        QCOMPARE(CountOf(sheet, Qt::white), sheet.width() * sheet.height());
    }
}

void HelpPageTest::aQuoteOfForeignBytesIsPainted()
{
    CSbdData data;
    data.SetOption(303, 30, std::string("\x81\xff\x00\x80\n\tX", 7) + std::string(5000, '\xfc'));
    const QImage sheet = Paint(data, {303, 31, 2});
    QVERIFY(CountOf(sheet, Qt::white) < sheet.width() * sheet.height());
}

void HelpPageTest::aLineIsNeverThinnerThanAPixel()
{
    QImage sheet(20, 20, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    painter.scale(0.1, 0.1);
    CPainterContext context(painter, HelpFont({}));
    context.SetPen({PenStyle::Solid, 1, colours::kBlack});
    context.Line({20, -100}, {180, -100});
    painter.end();
    QVERIFY(CountOf(sheet, Qt::black) >= 15);
}

namespace {

const QList<QColor> kInks = {
    Qt::black,           Qt::red,           Qt::blue, QColor(0, 255, 150), QColor(0, 100, 50), QColor(Qt::yellow),
    QColor(255, 0, 200), QColor(50, 50, 50)};
const QList<QColor> kFills = {QColor(190, 200, 210), QColor(200, 200, 200), QColor(220, 220, 200),
                              QColor(240, 240, 180), QColor(50, 50, 50),    QColor(Qt::yellow)};

} // namespace

void HelpPageTest::everyColourCanBeReadOnADarkGround()
{
    for (const QColor& ground : {QColor(Qt::black), QColor(0x20, 0x20, 0x20), QColor(0x10, 0x20, 0x30)}) {
        for (const QColor& ink : kInks) {
            QVERIFY2(ContrastOf(ground, ReadableOn(ground, ink)) >= 4.5, qPrintable(ink.name()));
            for (const QColor& fill : kFills)
                QVERIFY2(ContrastOf(FillOn(ground, fill), ReadableOn(ground, ink)) >= 2.0,
                         qPrintable(ink.name() + u" on "_s + fill.name()));
        }
        for (const QColor& fill : kFills)
            QVERIFY2(ContrastOf(ground, FillOn(ground, fill)) >= 1.15, qPrintable(fill.name()));
    }
    const QColor red = ReadableOn(Qt::black, Qt::red);
    QVERIFY(red.red() > red.green() && red.red() > red.blue());
}

void HelpPageTest::aLightGroundKeepsTheColours()
{
    for (const QColor& ground : {QColor(Qt::white), QColor(0xF0, 0xFF, 0xE0), QColor(0xC0, 0xC0, 0xC0)})
        for (const QColor& ink : kInks) {
            QCOMPARE(ReadableOn(ground, ink), ink);
            QCOMPARE(FillOn(ground, ink), ink);
        }
}

QTEST_MAIN(HelpPageTest)
#include "help_page_test.moc"
