// Zoom and widths of a real panel.
#include "tests/panels/panel_hands.h"

#include <QHeaderView>
#include <QWheelEvent>

namespace sbd {

using namespace Qt::StringLiterals;

class GridSizesTest : public test::PanelHands {
    Q_OBJECT

private slots:
    void init() { PutPanel(); }
    void cleanup() { TakePanel(); }

    void TheWheelWithControlZoomsAndControl0Resets();
    void ADoubleClickOnABorderFitsTheColumn();
};

void GridSizesTest::TheWheelWithControlZoomsAndControl0Resets()
{
    const int width = Grid().columnWidth(2);
    const int height = Grid().rowHeight(2);
    QWheelEvent wheel(Middle(3, 3), Grid().viewport()->mapToGlobal(Middle(3, 3)), {}, {0, 120}, Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    for (int i = 0; i < 5; ++i)
        QApplication::sendEvent(Grid().viewport(), &wheel);
    QCOMPARE(Grid().Zoom(), 150);
    QCOMPARE(Grid().rowHeight(2), height * 3 / 2);
    QVERIFY(Grid().columnWidth(2) > width * 14 / 10);
    QCOMPARE(Grid().font().pixelSize(), 18);
    Open(301); // stays for other blocks
    QCOMPARE(Grid().Zoom(), 150);
    Open(313);
    Key(Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(Grid().Zoom(), 100);
    QCOMPARE(Grid().rowHeight(2), height);
    QVERIFY(std::abs(Grid().columnWidth(2) - width) <= 1);
}

void GridSizesTest::ADoubleClickOnABorderFitsTheColumn()
{
    Grid().SetFocusCell(2, 6);
    Type(u"1234567890 1234567890 1234567890"_s);
    Key(Qt::Key_Return);
    QWidget* head = Grid().horizontalHeader()->viewport();
    const auto border = [this] { return QPoint(Grid().columnViewportPosition(5) + Grid().columnWidth(5) - 1, 5); };
    QTest::mouseDClick(head, Qt::LeftButton, {}, border());
    const int needed = Grid().fontMetrics().horizontalAdvance(Cell(2, 6));
    QVERIFY2(Grid().columnWidth(5) >= needed && Grid().columnWidth(5) < needed + 20,
             qPrintable(QString::number(Grid().columnWidth(5))));
}

} // namespace sbd

QTEST_MAIN(sbd::GridSizesTest)
#include "grid_sizes_test.moc"
