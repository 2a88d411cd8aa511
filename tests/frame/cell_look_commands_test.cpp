// The commands that make cells higher, wider, larger or fixed, and what of that the next start has.
#include "command_station.h"
#include "frame/settings.h"

#include <QHeaderView>

using namespace sbd;

class CellLookCommandsTest : public QObject {
    Q_OBJECT

private slots:
    void rowHeightGrowsShrinksAndStopsAtEighteen();
    void columnsWidenAndNarrow();
    void cellsGoBackToTheStart();
    void columnsStayInSightByCommandABlockAndAUser();
    void widthsThatAreGivenStayABlockAndAUser();
    void theSizeOfTheCellsStaysForTheNextStart();
    void wordListsAreSwitchedOffAndOn();
    void theCellStaysWhereItWasWhenThePanelIsBuiltAnew();
    void theResetKeepsTheCells();
};

void CellLookCommandsTest::rowHeightGrowsShrinksAndStopsAtEighteen()
{
    CommandStation station;
    station.child->GoToBlock(313);
    const int first = station.Grid().rowHeight(1);
    station.Give(Command::RowsHigher);
    QCOMPARE(CSettings().RowHeight(), 21);
    QCOMPARE(station.Grid().rowHeight(1), first + 3);
    station.Start(); // the next program has it too
    station.child->GoToBlock(313);
    QCOMPARE(station.Grid().rowHeight(1), first + 3);
    for (int i = 0; i < 3; ++i)
        station.Give(Command::RowsLower);
    QCOMPARE(CSettings().RowHeight(), 18);
    QCOMPARE(station.Grid().rowHeight(1), first);
}

void CellLookCommandsTest::columnsWidenAndNarrow()
{
    CommandStation station;
    station.child->GoToBlock(313);
    const int first = station.Grid().columnWidth(1);
    station.Give(Command::ColumnsWider);
    const int wider = station.Grid().columnWidth(1);
    QVERIFY(wider > first);
    station.Give(Command::ColumnsNarrower);
    QVERIFY(station.Grid().columnWidth(1) < wider);
}

void CellLookCommandsTest::cellsGoBackToTheStart()
{
    CommandStation station;
    station.child->GoToBlock(313);
    const int height = station.Grid().rowHeight(1);
    const int width = station.Grid().columnWidth(1);
    station.Give(Command::RowsHigher);
    station.Give(Command::ColumnsWider);
    station.Give(Command::ResetCells);
    QCOMPARE(station.Grid().rowHeight(1), height);
    QCOMPARE(station.Grid().columnWidth(1), width);
    QCOMPARE(CSettings().RowHeight(), 18);
    QCOMPARE(CSettings().RowWidthMode(), 0);
}

void CellLookCommandsTest::columnsStayInSightByCommandABlockAndAUser()
{
    CommandStation station;
    station.child->GoToBlock(313);
    station.child->FocusPanel();
    QCOMPARE(station.Grid().FrozenColumns(), 4); // the ranges of girders and cross beams
    QVERIFY(station.Action(Command::FreezeColumns)->isChecked());
    station.Give(Command::FreezeColumns);
    QCOMPARE(station.Grid().FrozenColumns(), 0);
    QVERIFY(!station.Action(Command::FreezeColumns)->isChecked());
    station.Grid().SetFocusCell(3, 2);
    QTest::keyClick(&station.Grid(), Qt::Key_K, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(station.Grid().FrozenColumns(), 2);
    station.child->GoToBlock(314); // another block has its own
    QCOMPARE(station.Grid().FrozenColumns(), 4);
    station.Start(); // the next program has it too
    station.child->GoToBlock(313);
    QCOMPARE(station.Grid().FrozenColumns(), 2);
    station.child->GoToBlock(301);
    QCOMPARE(station.Grid().FrozenColumns(), 0); // labels and values are all seen
}

void CellLookCommandsTest::widthsThatAreGivenStayABlockAndAUser()
{
    CommandStation station;
    station.child->GoToBlock(313);
    const auto pull = [&station](int column, int pixels) {
        QHeaderView& heads = *station.Grid().horizontalHeader();
        const QPoint border(heads.sectionViewportPosition(column) + heads.sectionSize(column) - 1, 5);
        QTest::mousePress(heads.viewport(), Qt::LeftButton, {}, border);
        for (const int step : {pixels / 2, pixels}) {
            const QPoint to = border + QPoint(step, 0);
            QMouseEvent move(QEvent::MouseMove, to, heads.viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                             {});
            QApplication::sendEvent(heads.viewport(), &move);
        }
        QTest::mouseRelease(heads.viewport(), Qt::LeftButton, {}, border + QPoint(pixels, 0));
    };
    const int width = station.Grid().columnWidth(1);
    pull(1, 40);
    QCOMPARE(station.Grid().columnWidth(1), width + 40);
    station.child->GoToBlock(314);
    station.child->GoToBlock(313);
    QCOMPARE(station.Grid().columnWidth(1), width + 40);
    station.Start();
    station.child->GoToBlock(313);
    QCOMPARE(station.Grid().columnWidth(1), width + 40);
    station.Give(Command::ColumnsWider); // on top of what was given by hand
    QVERIFY(station.Grid().columnWidth(1) > width + 40);
    QCOMPARE(station.Grid().columnWidth(1) - station.Grid().columnWidth(2), 40); // both as wide at first
    station.Give(Command::ResetCells);
    QCOMPARE(station.Grid().columnWidth(1), width);
    station.Start();
    station.child->GoToBlock(313);
    QCOMPARE(station.Grid().columnWidth(1), width);
}

void CellLookCommandsTest::theSizeOfTheCellsStaysForTheNextStart()
{
    CommandStation station;
    station.child->GoToBlock(313);
    station.Give(Command::ZoomCellsIn);
    station.Give(Command::ZoomCellsIn);
    QCOMPARE(station.Grid().Zoom(), 120);
    station.Start();
    station.child->GoToBlock(313);
    QCOMPARE(station.Grid().Zoom(), 120);
    station.Give(Command::ZoomCellsReset);
    station.Start();
    QCOMPARE(station.Grid().Zoom(), 100);
}

void CellLookCommandsTest::wordListsAreSwitchedOffAndOn()
{
    CommandStation station;
    station.child->GoToBlock(301);
    QVERIFY(station.Grid().Source()->HasWords(2, 2));
    QVERIFY(station.Action(Command::WordLists)->isChecked());
    station.Give(Command::WordLists);
    QVERIFY(!station.Grid().Source()->HasWords(2, 2));
    QVERIFY(!station.Action(Command::WordLists)->isChecked());
    QCOMPARE(CSettings().ComboOrList(), 2);
    station.Start();
    QVERIFY(!station.Grid().Source()->HasWords(2, 2));
    station.Give(Command::WordLists);
    QVERIFY(station.Grid().Source()->HasWords(2, 2));
}

void CellLookCommandsTest::theCellStaysWhereItWasWhenThePanelIsBuiltAnew()
{
    CommandStation station;
    station.child->GoToBlock(313);
    station.child->Panel()->GoToCell(5, 6);
    station.Give(Command::RowsHigher);
    QCOMPARE(station.Grid().currentIndex().row(), 4);
    QCOMPARE(station.Grid().currentIndex().column(), 5);
    QVERIFY(!station.Doc().IsModified());
}

void CellLookCommandsTest::theResetKeepsTheCells()
{
    CommandStation station;
    station.prompts.chooseColour = [](QWidget*, const QColor&) { return QColor(1, 2, 3); };
    station.Start();
    station.Give(Command::BackColor);
    station.Give(Command::RowsHigher);
    station.Give(Command::ResetDisplay);
    QCOMPARE(station.Doc().display.backColor, 0xFFFFFFU);
    QCOMPARE(CSettings().RowHeight(), 21);
}

QTEST_MAIN(CellLookCommandsTest)
#include "cell_look_commands_test.moc"
