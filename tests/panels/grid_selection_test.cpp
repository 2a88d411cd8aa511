// The selection of a real panel: by keys and mouse, typed into, counted, seen.
#include "grid/grid_head.h"
#include "tests/panels/panel_hands.h"

#include <QClipboard>
#include <QHeaderView>
#include <QImage>
#include <QSignalSpy>

namespace sbd {

using namespace Qt::StringLiterals;

class GridSelectionTest : public test::PanelHands {
    Q_OBJECT

private slots:
    void init() { PutPanel(); }
    void cleanup() { TakePanel(); }

    void TypingWithASelectionGoesToItsAnchor();
    void ADragKeepsTheFocusWhereItBegan();
    void AShiftClickExtendsTheSelection();
    void ControlWithTheMouseLeavesOneSelectionAroundTheFocus();
    void AClickBesideTheCellsLeavesNoPartOfASelection();
    void APasteOverTheAutomaticRowPutsTheCursorWhereItPastes();
    void EnterAndTabGoRoundInsideASelection();
    void EnterBehindTabsReturnsToTheColumnWhereTheyBegan();
    void HomePageAndControlShiftKeysSelect();
    void TheCornerOfTheHeadsSelectsAll();
    void TheSummaryFollowsTheSelection();
    void TheSelectionIsSeenOnTheGreenRow();
    void TheFocusedRowHasASignBesideItsColour();
};

void GridSelectionTest::TypingWithASelectionGoesToItsAnchor()
{
    Select(3, 6, 5, 7);
    QCOMPARE(Grid().FocusCell(), (GridCell{3, 6}));
    Type(u"88"_s);
    Key(Qt::Key_Return);
    QCOMPARE(Cell(3, 6), u"88"_s);
    QCOMPARE(Cell(5, 7), u"9"_s);
}

void GridSelectionTest::ADragKeepsTheFocusWhereItBegan()
{
    Drag(Middle(2, 6), Middle(4, 8));
    QCOMPARE(Grid().FocusCell(), (GridCell{2, 6}));
    const GridRange range = Grid().SelectedRange();
    QCOMPARE(range.bottom, 4);
    QCOMPARE(range.right, 8);
    Drag(Middle(4, 8), Middle(2, 6));
    QCOMPARE(Grid().FocusCell(), (GridCell{4, 8}));
    QCOMPARE(Grid().SelectedRange().top, 2);
}

void GridSelectionTest::AShiftClickExtendsTheSelection()
{
    Grid().SetFocusCell(3, 6);
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, Qt::ShiftModifier, Middle(5, 7));
    QCOMPARE(Grid().FocusCell(), (GridCell{3, 6}));
    QCOMPARE(Grid().SelectedRange().bottom, 5);
    QCOMPARE(Grid().SelectedRange().right, 7);
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Middle(4, 7));
    QCOMPARE(Grid().SelectedRange().top, 4);
    QCOMPARE(Grid().SelectedRange().bottom, 4);
}

/// What a command would change is what is seen selected, with the cursor in it.
void GridSelectionTest::ControlWithTheMouseLeavesOneSelectionAroundTheFocus()
{
    const auto isAroundTheFocus = [this] {
        const GridCell focus = Grid().FocusCell();
        const GridRange range = Grid().SelectedRange();
        return focus.row >= range.top && focus.row <= range.bottom && focus.column >= range.left
               && focus.column <= range.right
               && Grid().selectionModel()->selectedIndexes().size()
                      == qsizetype(range.bottom - range.top + 1) * (range.right - range.left + 1);
    };
    Select(3, 6, 4, 6);
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, Qt::ControlModifier, Middle(6, 7));
    QCOMPARE(Grid().FocusCell(), (GridCell{6, 7}));
    QVERIFY(isAroundTheFocus());
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, Qt::ControlModifier, Middle(6, 7)); // nor is it taken out
    QVERIFY(isAroundTheFocus());
    for (const Qt::KeyboardModifiers modifiers :
         {Qt::KeyboardModifiers(Qt::ControlModifier), Qt::KeyboardModifiers(Qt::AltModifier)}) {
        Grid().SetFocusCell(2, 6);
        QTest::mousePress(Grid().viewport(), Qt::LeftButton, modifiers, Middle(3, 6));
        for (const int row : {4, 7, 5}) {
            const QPoint pos = Middle(row, 7);
            QMouseEvent move(QEvent::MouseMove, pos, Grid().viewport()->mapToGlobal(pos), Qt::NoButton, Qt::LeftButton,
                             modifiers);
            QApplication::sendEvent(Grid().viewport(), &move);
        }
        QTest::mouseRelease(Grid().viewport(), Qt::LeftButton, modifiers, Middle(5, 7));
        QVERIFY(isAroundTheFocus());
        QCOMPARE(Grid().FocusCell(), (GridCell{3, 6}));
        QCOMPARE(Grid().SelectedRange().bottom, 5);
    }
    Select(3, 6, 4, 6);
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, Qt::ControlModifier, Middle(6, 7));
    Key(Qt::Key_Delete);
    QCOMPARE(Column(2, 6, 5), QStringList({u"110"_s, u"110"_s, u"110"_s, u"110"_s}));
    QCOMPARE(Cell(6, 7), QString());
}

/// A part that stayed made the next Delete empty all cells between.
void GridSelectionTest::AClickBesideTheCellsLeavesNoPartOfASelection()
{
    panel_->resize(1800, 420);
    QApplication::processEvents();
    const QPoint beside(Grid().viewport()->width() - 3, Middle(4, 6).y());
    QVERIFY(!Grid().indexAt(beside).isValid());
    Select(3, 6, 4, 7);
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, beside);
    QCOMPARE(Grid().SelectedRange().bottom, 4);
    QTest::keyPress(Grid().window(), Qt::Key_Control, Qt::ControlModifier); // it is held
    Key(Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(Grid().FocusCell(), (GridCell{1, 1}));
    QCOMPARE(Grid().selectionModel()->selectedIndexes().size(), 1);
    QCOMPARE(Grid().SelectedRange().bottom, 1);
    QTest::keyRelease(Grid().window(), Qt::Key_Control);
    QTest::mousePress(Grid().viewport(), Qt::LeftButton, {},
                      beside); // nor does a drag from there move the cursor alone
    const QPoint pos = Middle(5, 6);
    QMouseEvent move(QEvent::MouseMove, pos, Grid().viewport()->mapToGlobal(pos), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(Grid().viewport(), &move);
    QTest::mouseRelease(Grid().viewport(), Qt::LeftButton, {}, pos);
    QCOMPARE(Grid().FocusCell(), (GridCell{1, 1}));
    QCOMPARE(Grid().SelectedRange().bottom, 1);
}

void GridSelectionTest::APasteOverTheAutomaticRowPutsTheCursorWhereItPastes()
{
    QApplication::clipboard()->setText(u"5"_s);
    Select(1, 6, 3, 6);
    Key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Column(2, 6, 4), QStringList({u"5"_s, u"5"_s, u"110"_s}));
    QCOMPARE(Grid().FocusCell(), (GridCell{2, 6}));
    QCOMPARE(Grid().SelectedRange().top, 2);
    QCOMPARE(Grid().SelectedRange().bottom, 3);
}

void GridSelectionTest::EnterAndTabGoRoundInsideASelection()
{
    Select(2, 6, 3, 7);
    const auto goes = [this](Qt::Key key, Qt::KeyboardModifiers modifiers, GridCell cell) {
        Key(key, modifiers);
        QCOMPARE(Grid().FocusCell(), cell);
        QCOMPARE(Grid().SelectedRange().bottom, 3);
        QCOMPARE(Grid().SelectedRange().right, 7);
    };
    goes(Qt::Key_Return, {}, {3, 6});
    goes(Qt::Key_Return, {}, {2, 7});
    Type(u"1"_s);
    goes(Qt::Key_Return, {}, {3, 7});
    goes(Qt::Key_Return, {}, {2, 6});
    goes(Qt::Key_Return, Qt::ShiftModifier, {3, 7});
    goes(Qt::Key_Tab, {}, {2, 6});
    Type(u"2"_s);
    goes(Qt::Key_Tab, {}, {2, 7});
    goes(Qt::Key_Tab, {}, {3, 6});
    goes(Qt::Key_Backtab, Qt::ShiftModifier, {2, 7});
    QCOMPARE(Cell(2, 7), u"1"_s);
    QCOMPARE(Cell(2, 6), u"2"_s);
    Select(1, 2, 2, 3); // of the automatic row only its value takes text
    Key(Qt::Key_Tab);
    QCOMPARE(Grid().FocusCell(), (GridCell{2, 2}));
}

void GridSelectionTest::EnterBehindTabsReturnsToTheColumnWhereTheyBegan()
{
    Grid().SetFocusCell(2, 6);
    Type(u"1"_s);
    Key(Qt::Key_Tab);
    Type(u"2"_s);
    Key(Qt::Key_Tab);
    Type(u"3"_s);
    Key(Qt::Key_Return);
    QCOMPARE(Grid().FocusCell(), (GridCell{3, 6}));
    Key(Qt::Key_Tab);
    Key(Qt::Key_Right); // another way has begun
    Key(Qt::Key_Return);
    QCOMPARE(Grid().FocusCell(), (GridCell{4, 8}));
}

void GridSelectionTest::HomePageAndControlShiftKeysSelect()
{
    Grid().SetFocusCell(1, 3);
    Key(Qt::Key_Home);
    QCOMPARE(Grid().FocusCell(), (GridCell{1, 2})); // its first word is fixed
    Grid().SetFocusCell(3, 3);
    Key(Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(Grid().FocusCell(), (GridCell{3, 3}));
    QCOMPARE(Grid().SelectedRange().bottom, 7);
    QCOMPARE(Grid().SelectedRange().right, Grid().Source()->ColumnCount());
    Grid().SetFocusCell(3, 3);
    Key(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(Grid().SelectedRange().bottom, 7);
    Key(Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(Grid().SelectedRange().bottom, 6);
    Key(Qt::Key_Home, Qt::ShiftModifier);
    QCOMPARE(Grid().SelectedRange().left, 1);
    Grid().SetFocusCell(3, 3);
    Key(Qt::Key_PageDown, Qt::ShiftModifier);
    const int page = Grid().SelectedRange().bottom;
    QVERIFY(page > 10);
    QCOMPARE(Grid().FocusCell(), (GridCell{3, 3}));
    Key(Qt::Key_PageDown);
    QCOMPARE(Grid().FocusCell(), (GridCell{page, 3}));
    Key(Qt::Key_PageUp);
    QCOMPARE(Grid().FocusCell(), (GridCell{3, 3}));
    Key(Qt::Key_Space, Qt::ShiftModifier);
    QCOMPARE(Grid().SelectedRange().left, 1);
    QCOMPARE(Grid().SelectedRange().right, Grid().Source()->ColumnCount());
    Key(Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(Grid().SelectedRange().bottom, Grid().Source()->RowCount());
    QCOMPARE(Grid().FocusCell(), (GridCell{3, 3}));
    Type(u"C9"_s); // a whole column: the rows of the table
    Key(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(Column(1, 3, 8).filter(u"C9"_s).size(), 6);
    Key(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(Grid().SelectedRange().left, 1);
    QCOMPARE(Grid().SelectedRange().bottom, Grid().Source()->RowCount());
}

void GridSelectionTest::TheCornerOfTheHeadsSelectsAll()
{
    Grid().SetFocusCell(3, 6);
    auto* corner = Grid().findChild<CGridCorner*>();
    QVERIFY(corner != nullptr);
    QTest::mouseClick(corner, Qt::LeftButton);
    const GridRange range = Grid().SelectedRange();
    QCOMPARE(range.top, 1);
    QCOMPARE(range.left, 1);
    QCOMPARE(range.bottom, Grid().Source()->RowCount());
    QCOMPARE(range.right, Grid().Source()->ColumnCount());
    Key(Qt::Key_C, Qt::ControlModifier); // and that is what a copy takes
    QVERIFY(QApplication::clipboard()->text().contains(u"C6\tA2"_s));
}

void GridSelectionTest::TheSummaryFollowsTheSelection()
{
    QSignalSpy said(panel_.get(), &CPanel::summaryChanged);
    Select(2, 6, 4, 6);
    QTRY_VERIFY(!said.isEmpty());
    QVERIFY2(said.last()[0].toString().startsWith(u"個数 3　合計 330　平均 110　最小 110　最大 110"_s),
             qPrintable(said.last()[0].toString()));
    said.clear();
    Type(u"140"_s);
    Key(Qt::Key_Return, Qt::ControlModifier);
    QTRY_VERIFY(!said.isEmpty());
    QVERIFY(said.last()[0].toString().contains(u"合計 420"_s));
    said.clear();
    Key(Qt::Key_Delete);
    QTRY_VERIFY(!said.isEmpty());
    QVERIFY2(!said.last()[0].toString().contains(u"合計"_s), qPrintable(said.last()[0].toString()));
    Select(5, 6, 7, 6);
    QTRY_VERIFY(said.last()[0].toString().contains(u"合計 330"_s));
    Key(Qt::Key_Right); // a filter of one row: the others are not counted
    Grid().SetFocusCell(5, 3);
    Key(Qt::Key_Down, Qt::ShiftModifier);
    Key(Qt::Key_Right, Qt::ShiftModifier);
    Key(Qt::Key_Right, Qt::ShiftModifier);
    Key(Qt::Key_Right, Qt::ShiftModifier);
    QTRY_VERIFY2(said.last()[0].toString().contains(u"合計 220"_s), qPrintable(said.last()[0].toString()));
    Key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_VERIFY2(said.last()[0].toString().contains(u"個数 4"_s), qPrintable(said.last()[0].toString()));
    Key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_VERIFY2(said.last()[0].toString().contains(u"合計 220"_s), qPrintable(said.last()[0].toString()));
}

void GridSelectionTest::TheSelectionIsSeenOnTheGreenRow()
{
    Grid().SetFocusCell(3, 6);
    const QPoint inside = Middle(3, 8);
    const QRect cell = Grid().visualRect(Grid().model()->index(2, 7));
    const QPoint edge(cell.center().x(), cell.top() + 1);
    const auto pixel = [this](QPoint pos) { return Grid().viewport()->grab().toImage().pixelColor(pos); };
    const QColor plainEdge = pixel(edge);
    const QColor plain = pixel({cell.right() - 4, inside.y()});
    Select(3, 6, 3, 8);
    QVERIFY(pixel(edge) != plainEdge); // a frame, whatever the colours are to the eye
    QVERIFY(pixel({cell.right() - 4, inside.y() - 4}) != plain);
}

void GridSelectionTest::TheFocusedRowHasASignBesideItsColour()
{
    Grid().SetFocusCell(3, 6);
    const QImage rows = Grid().verticalHeader()->viewport()->grab().toImage();
    const auto at = [this, &rows](int row) {
        return rows.pixelColor(3, Grid().rowViewportPosition(row - 1) + Grid().rowHeight(row - 1) / 2 - 1);
    };
    QVERIFY(at(3) != at(4));
    QCOMPARE(at(2), at(4));
}

} // namespace sbd

QTEST_MAIN(sbd::GridSelectionTest)
#include "grid_selection_test.moc"
