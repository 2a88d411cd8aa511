// What a grid looks like, and what it costs to look at it.
#include "grid/grid_style.h"
#include "tests/grid/grid_bench.h"

#include <QElapsedTimer>
#include <QHeaderView>

#include <cmath>
#include <set>

namespace sbd {

using namespace Qt::StringLiterals;

class GridLookTest : public test::GridBench {
    Q_OBJECT

private slots:
    void init() { PutGrid(); }
    void cleanup() { TakeGrid(); }

    void AVeryLongTextIsPaintedAtOnce();
    void TheHeadKeepsItsHeightAndTheRowNumbersTheirWidth();
    void ARowOfTwoLinesIsTaller();
    void TheFocusedRowIsGreenAndLockedCellsAreGrey();
    void ALockedCellOfTheGreenRowIsHatched();
    void WithADarkPaletteEveryColourIsDarkAndStillAnotherOne();
    void TextsCanBeReadOnEveryGround();
    void TenThousandRowsAreShownWithoutReadingThemAll();
};

/// The ratio of two lights as the guidelines for readable pages reckon it.
static double Contrast(const QColor& a, const QColor& b)
{
    const auto light = [](const QColor& color) {
        const auto part = [](double value) {
            return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
    };
    const double bright = std::max(light(a), light(b));
    return (bright + 0.05) / (std::min(light(a), light(b)) + 0.05);
}

void GridLookTest::AVeryLongTextIsPaintedAtOnce()
{
    source_->SetText(2, 2, QString(5000000, u'x'));
    QElapsedTimer clock;
    clock.start();
    grid_->grab();
    const qint64 elapsed = clock.elapsed();
    QVERIFY2(elapsed < 1000, qPrintable(QString::number(elapsed)));
}

void GridLookTest::TheHeadKeepsItsHeightAndTheRowNumbersTheirWidth()
{
    QCOMPARE(grid_->horizontalHeader()->height(), 30);
    QCOMPARE(grid_->verticalHeader()->width(), 35);
    QCOMPARE(grid_->columnWidth(0), 90);
    QCOMPARE(grid_->rowHeight(0), gridstyle::kRowHeight);
    grid_->SetRowHeight(24);
    QCOMPARE(grid_->rowHeight(7), 24);
}

void GridLookTest::ARowOfTwoLinesIsTaller()
{
    source_->tallRow = 4;
    grid_->ShowAll();
    QVERIFY(grid_->rowHeight(3) >= 2 * grid_->fontMetrics().height());
    source_->tallRow = 0;
    grid_->ShowAll();
    QCOMPARE(grid_->rowHeight(3), gridstyle::kRowHeight);
}

void GridLookTest::TheFocusedRowIsGreenAndLockedCellsAreGrey()
{
    source_->locked.insert({4, 4});
    const QImage image = grid_->viewport()->grab().toImage();
    const auto ground = [&](int row, int column) {
        const QRect rect = grid_->visualRect(grid_->model()->index(row - 1, column - 1));
        return image.pixelColor(rect.right() - 4, rect.top() + 3).rgb();
    };
    QCOMPARE(ground(2, 4), gridstyle::kLight.focusRow);
    QCOMPARE(ground(2, 2), gridstyle::kLight.cell);
    QCOMPARE(ground(3, 1), gridstyle::kLight.labelBesideFocus);
    QCOMPARE(ground(3, 4), gridstyle::kLight.cell);
    QCOMPARE(ground(4, 4), gridstyle::kLight.locked);
}

void GridLookTest::ALockedCellOfTheGreenRowIsHatched()
{
    source_->locked.insert({7, 4}); // a row without texts
    grid_->SetFocusCell(7, 2);
    const QImage image = grid_->viewport()->grab().toImage();
    const auto colors = [&](int column) {
        const QRect cell = grid_->visualRect(grid_->model()->index(6, column - 1)).adjusted(2, 2, -3, -3);
        std::set<QRgb> seen;
        for (int y = cell.top(); y <= cell.bottom(); ++y)
            for (int x = cell.left(); x <= cell.right(); ++x)
                seen.insert(image.pixel(x, y));
        return seen.size();
    };
    QCOMPARE(colors(3), std::size_t(1));
    QVERIFY(colors(4) > 1);
}

void GridLookTest::WithADarkPaletteEveryColourIsDarkAndStillAnotherOne()
{
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(45, 45, 45));
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, Qt::white);
    grid_->setPalette(dark);
    source_->locked.insert({4, 4});
    const QImage picture = grid_->grab().toImage();
    const auto ground = [&](int row, int column) {
        const QRect cell = grid_->visualRect(grid_->model()->index(row - 1, column - 1));
        return picture.pixel(grid_->viewport()->mapTo(grid_.get(), cell.topRight() + QPoint(-4, 3)));
    };
    QCOMPARE(ground(2, 4), gridstyle::kDark.focusRow);
    QCOMPARE(ground(2, 2), gridstyle::kDark.cell);
    QCOMPARE(ground(3, 1), gridstyle::kDark.labelBesideFocus);
    QCOMPARE(ground(3, 4), gridstyle::kDark.cell);
    QCOMPARE(ground(4, 4), gridstyle::kDark.locked);
    QCOMPARE(picture.pixel(3, 3), gridstyle::kDark.head);                    // the corner
    QCOMPARE(picture.pixel(picture.width() / 2, 3), gridstyle::kDark.head);  // the heads
    QCOMPARE(picture.pixel(3, picture.height() / 2), gridstyle::kDark.head); // the row numbers
    const std::set<QRgb> grounds{gridstyle::kDark.cell, gridstyle::kDark.locked, gridstyle::kDark.labelBesideFocus,
                                 gridstyle::kDark.focusRow, gridstyle::kDark.head};
    QCOMPARE(grounds.size(), 5U);
    for (const QRgb color : grounds)
        QVERIFY(QColor(color).lightness() < 100);
}

void GridLookTest::TextsCanBeReadOnEveryGround()
{
    constexpr double readable = 4.5;
    QPalette dark;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    const gridstyle::Colors& colors = gridstyle::ColorsFor(dark);
    std::set<QRgb> texts;
    for (const QColor& wanted : {QColor(), QColor(Qt::red), QColor(Qt::blue), QColor(Qt::magenta)}) {
        const QColor text = gridstyle::TextColorFor(dark, wanted);
        texts.insert(text.rgba());
        for (const QRgb ground : {colors.cell, colors.locked, colors.labelBesideFocus, colors.head}) {
            const double contrast = Contrast(text, QColor(ground));
            QVERIFY2(contrast >= readable,
                     qPrintable(u"%1 on %2: %3"_s.arg(text.name(), QColor(ground).name()).arg(contrast)));
        }
    }
    QCOMPARE(texts.size(), 4U); // each still says something else
    QVERIFY(Contrast(QColor(colors.text), QColor(colors.focusRow)) >= readable);
}

void GridLookTest::TenThousandRowsAreShownWithoutReadingThemAll()
{
    test::CTableSource large(10000, 20);
    large.textsAsked = 0;
    grid_->SetSource(&large);
    grid_->grab();
    QVERIFY2(large.textsAsked < 5000, qPrintable(u"%1 texts"_s.arg(large.textsAsked)));
    QElapsedTimer clock;
    clock.start();
    grid_->SetFocusCell(9999, 3);
    grid_->grab();
    QVERIFY(large.textsAsked < 10000);
    QVERIFY2(clock.elapsed() < 1000, qPrintable(u"%1 ms"_s.arg(clock.elapsed())));
    grid_->SetSource(nullptr);
}

} // namespace sbd

QTEST_MAIN(sbd::GridLookTest)
#include "grid_look_test.moc"
