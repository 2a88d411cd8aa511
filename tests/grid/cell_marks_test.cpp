#include "grid/cell_marks.h"
#include "grid/grid_ctrl.h"
#include "grid/grid_style.h"
#include "tests/grid/table_source.h"

#include <QHeaderView>
#include <QHelpEvent>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>

#include <cmath>
#include <set>

namespace sbd {

using namespace Qt::StringLiterals;
using test::CTableSource;

namespace {

QPalette DarkPalette()
{
    return {QColor(230, 230, 230), QColor(40, 40, 40)};
}

double Light(const QColor& color)
{
    const auto part = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

double Contrast(const QColor& a, const QColor& b)
{
    const double light = std::max(Light(a), Light(b));
    const double dark = std::min(Light(a), Light(b));
    return (light + 0.05) / (dark + 0.05);
}

/// How far two colours stand apart, by channel.
int Distance(const QColor& a, const QColor& b)
{
    return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue());
}

/// The ground of a cell with a selection laid over it.
QColor Under(const QColor& over, const QColor& ground)
{
    const double part = over.alphaF();
    const auto mixed = [part](int above, int below) { return int(above * part + below * (1 - part)); };
    return {mixed(over.red(), ground.red()), mixed(over.green(), ground.green()), mixed(over.blue(), ground.blue())};
}

} // namespace

class CellMarksTest : public QObject {
    Q_OBJECT

private slots:
    void theMarkThatWeighsMostIsShown();
    void eachSourceSetsAndClearsItsOwnAlone();
    void aRowSaysWhatIsSaidOfItsCells();
    void theTintsAreToldApartFromEachOtherAndFromTheGroundsOfTheGrid_data();
    void theTintsAreToldApartFromEachOtherAndFromTheGroundsOfTheGrid();
    void theGridTintsTheCellAndSignsTheRow_data();
    void theGridTintsTheCellAndSignsTheRow();
    void eachKindHasAShapeInItsCell();
    void theToolTipSaysTheSentence();
    void aScreenReaderIsToldTheSentence();
    void theSameMarksAgainPaintNothing();
};

void CellMarksTest::theMarkThatWeighsMostIsShown()
{
    CCellMarks marks;
    QVERIFY(marks.Set(MarkSource::Check, {{3, 2, MarkKind::Hint, u"hint"_s}, {3, 2, MarkKind::Loss, u"loss"_s}}));
    QVERIFY(marks.Of(3, 2) == MarkKind::Loss);
    QVERIFY(marks.OfRow(3) == MarkKind::Loss);
    QVERIFY(!marks.Of(3, 1) && !marks.Of(2, 2) && !marks.OfRow(2));
    QCOMPARE(marks.ToolTip(3, 2), u"hint\nloss"_s);
}

void CellMarksTest::eachSourceSetsAndClearsItsOwnAlone()
{
    CCellMarks marks;
    QVERIFY(marks.Set(MarkSource::Check, {{1, 1, MarkKind::Doubt, u"doubt"_s}}));
    QVERIFY(marks.Set(MarkSource::Run, {{1, 1, MarkKind::Changed, u"was 5"_s}}));
    QCOMPARE(marks.ToolTip(1, 1), u"doubt\nwas 5"_s);
    QVERIFY(marks.Set(MarkSource::Check, {}));
    QVERIFY(marks.Of(1, 1) == MarkKind::Changed);
    QVERIFY(!marks.Set(MarkSource::Check, {}));
}

void CellMarksTest::aRowSaysWhatIsSaidOfItsCells()
{
    CCellMarks marks;
    std::vector<CellMark> many{{4, 0, MarkKind::Doubt, u"row"_s}};
    for (int column = 1; column <= 9; ++column)
        many.push_back({4, column, MarkKind::Loss, u"cell"_s});
    QVERIFY(marks.Set(MarkSource::Check, many));
    QCOMPARE(marks.ToolTip(4, 9), u"cell\nrow"_s);
    const QStringList lines = marks.RowToolTip(4).split(u'\n');
    QCOMPARE(lines.size(), 7);
    QCOMPARE(lines[0], u"row"_s);
    QCOMPARE(lines[1], u"1 列: cell"_s);
    QCOMPARE(lines[6], u"ほか 4 件"_s);
}

void CellMarksTest::theTintsAreToldApartFromEachOtherAndFromTheGroundsOfTheGrid_data()
{
    QTest::addColumn<bool>("dark");
    QTest::newRow("light") << false;
    QTest::newRow("dark") << true;
}

void CellMarksTest::theTintsAreToldApartFromEachOtherAndFromTheGroundsOfTheGrid()
{
    QFETCH(bool, dark);
    constexpr int leastDistance = 40;
    const QPalette palette = dark ? DarkPalette() : QPalette(Qt::black, Qt::white);
    QCOMPARE(gridstyle::IsDark(palette), dark);
    const gridstyle::Colors& colors = gridstyle::ColorsFor(palette);
    const QColor cell = QColor::fromRgba(colors.cell);
    QList<QColor> others{cell, QColor::fromRgba(colors.locked), QColor::fromRgba(colors.labelBesideFocus),
                         QColor::fromRgba(colors.focusRow), Under(QColor::fromRgba(colors.selected), cell)};
    std::set<char16_t> signs;
    for (const MarkLook& look : MarkLooks()) {
        const QColor tint = TintOf(look.kind, palette);
        for (const QColor& other : others)
            QVERIFY2(Distance(tint, other) >= leastDistance, qPrintable(tint.name() + u' ' + other.name()));
        others << tint;
        signs.insert(look.sign);
        for (const QColor& text : {QColor(), QColor(Qt::red), QColor(Qt::magenta), QColor(Qt::blue)}) {
            const QColor drawn = gridstyle::TextColorFor(palette, text);
            const double least = dark || !text.isValid() ? 4.5 : 2.3; // magenta has 3.1 on the plain cells
            QVERIFY2(Contrast(drawn, tint) >= least, qPrintable(drawn.name() + u" on "_s + tint.name()));
        }
        QVERIFY2(Contrast(SignColorOf(look.kind, palette), tint) >= 3.9, qPrintable(tint.name()));
    }
    QCOMPARE(signs.size(), MarkLooks().size());
}

void CellMarksTest::theGridTintsTheCellAndSignsTheRow_data()
{
    theTintsAreToldApartFromEachOtherAndFromTheGroundsOfTheGrid_data();
}

void CellMarksTest::theGridTintsTheCellAndSignsTheRow()
{
    QFETCH(bool, dark);
    CTableSource source(6, 4);
    CGridCtrl grid;
    if (dark)
        grid.setPalette(DarkPalette());
    grid.resize(500, 200);
    grid.SetSource(&source);
    grid.show();
    grid.SetFocusCell(2, 2);
    const QImage before = grid.grab().toImage();
    grid.SetMarks(MarkSource::Check, {{2, 3, MarkKind::Loss, u"a"_s}, {4, 1, MarkKind::Doubt, u"b"_s}});
    const QImage after = grid.grab().toImage();
    const auto middle = [&](int row, int column) {
        return grid.viewport()->mapTo(&grid, grid.visualRect(grid.model()->index(row - 1, column - 1)).center());
    };
    QCOMPARE(after.pixelColor(middle(2, 3)), TintOf(MarkKind::Loss, grid.palette())); // in the row with the focus too
    QCOMPARE(after.pixelColor(middle(4, 1)), TintOf(MarkKind::Doubt, grid.palette()));
    QCOMPARE(after.pixelColor(middle(5, 1)), before.pixelColor(middle(5, 1)));
    QCOMPARE(after.pixelColor(middle(2, 2)), before.pixelColor(middle(2, 2)));
    const auto head = [&](const QImage& image, int row) {
        return image.copy(0, middle(row, 1).y() - 6, grid.verticalHeader()->width(), 12);
    };
    QVERIFY(head(after, 2) != head(before, 2));
    QVERIFY(head(after, 4) != head(before, 4));
    QVERIFY(head(after, 2) != head(after, 4));
    QVERIFY(head(after, 5) == head(before, 5));
}

void CellMarksTest::eachKindHasAShapeInItsCell()
{
    CTableSource source(6, 4);
    CGridCtrl grid;
    grid.resize(500, 200);
    grid.SetSource(&source);
    grid.show();
    grid.SetFocusCell(2, 2);
    std::set<QString> shapes; // what is drawn, whatever its colour
    for (const MarkLook& look : MarkLooks()) {
        grid.SetMarks(MarkSource::Check, {{4, 3, look.kind, u"a"_s}});
        const QRect cell = grid.visualRect(grid.model()->index(3, 2));
        const QImage corner = grid.viewport()->grab().toImage().copy(cell.left(), cell.top(), 8, 16);
        const QRgb tint = TintOf(look.kind, grid.palette()).rgb();
        QString shape;
        for (int y = 0; y < corner.height(); ++y)
            for (int x = 0; x < corner.width(); ++x)
                shape += corner.pixel(x, y) == tint ? u'.' : u'#';
        QVERIFY(shape.contains(u'#'));
        shapes.insert(shape);
    }
    QCOMPARE(shapes.size(), MarkLooks().size());
}

void CellMarksTest::theToolTipSaysTheSentence()
{
    CTableSource source(6, 4);
    CGridCtrl grid;
    grid.resize(500, 200);
    grid.SetSource(&source);
    grid.SetMarks(MarkSource::Check, {{2, 3, MarkKind::Loss, u"失われます <b>"_s}});
    grid.show();
    QVERIFY(QTest::qWaitForWindowExposed(&grid));
    const auto ask = [&](int row, int column) {
        const QPoint at = grid.visualRect(grid.model()->index(row - 1, column - 1)).center();
        QHelpEvent event(QEvent::ToolTip, at, grid.viewport()->mapToGlobal(at));
        QApplication::sendEvent(grid.viewport(), &event);
    };
    ask(2, 3);
    QVERIFY2(QToolTip::text().contains(u"失われます &lt;b&gt;"_s), qPrintable(QToolTip::text()));
    ask(3, 3);
    QTRY_VERIFY(!QToolTip::isVisible());
    QCOMPARE(grid.model()->headerData(1, Qt::Vertical, Qt::ToolTipRole).toString(), u"3 列: 失われます <b>"_s);
}

void CellMarksTest::aScreenReaderIsToldTheSentence()
{
    CTableSource source(6, 4);
    CGridCtrl grid;
    grid.SetSource(&source);
    grid.SetMarks(MarkSource::Check, {{2, 3, MarkKind::Loss, u"失われます"_s}});
    const auto described = [&](int row, int column) {
        return grid.model()->index(row - 1, column - 1).data(Qt::AccessibleDescriptionRole).toString();
    };
    QVERIFY(described(2, 3).endsWith(u"、失われます"_s));
    QVERIFY(!described(2, 2).contains(u"失われます"_s));
}

void CellMarksTest::theSameMarksAgainPaintNothing()
{
    CTableSource source(6, 4);
    CGridCtrl grid;
    grid.SetSource(&source);
    QSignalSpy changed(grid.model(), &QAbstractItemModel::dataChanged);
    grid.SetMarks(MarkSource::Check, {{2, 3, MarkKind::Loss, u"a"_s}});
    QCOMPARE(changed.size(), 1);
    grid.SetMarks(MarkSource::Check, {{2, 3, MarkKind::Loss, u"a"_s}});
    QCOMPARE(changed.size(), 1);
}

} // namespace sbd

using sbd::CellMarksTest;
QTEST_MAIN(CellMarksTest)
#include "cell_marks_test.moc"
