// Fills of a real panel: by keys, by one copied value, by the handle at the corner.
#include "grid/cell_editor.h"
#include "tests/panels/panel_hands.h"

#include <QClipboard>
#include <QLineEdit>

namespace sbd {

using namespace Qt::StringLiterals;

class GridFillTest : public test::PanelHands {
    Q_OBJECT

private slots:
    void init() { PutPanel(); }
    void cleanup() { TakePanel(); }

    void ControlDFillsDownAndControlRToTheRight();
    void ControlEnterPutsTheTypedTextIntoTheWholeSelection();
    void ControlEnterWithATextThatTheCellRefusesFillsNothing();
    void OneCopiedValueFillsASelection();
    void ACopiedBlockTilesIntoAMultipleOfItself();
    void TheHandleCopiesAndCountsOnWithControl();
    void AClickOnTheHandleOverAListsButtonOpensTheList();
    void TheMenuPutsAnOpenTextIntoTheSelectionInOneStep();
};

void GridFillTest::ControlDFillsDownAndControlRToTheRight()
{
    Grid().SetFocusCell(2, 6);
    Type(u"150"_s);
    Key(Qt::Key_Return);
    const QStringList before = Column(2, 6, 6);
    Select(2, 6, 5, 6);
    Key(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(Column(2, 6, 6), QStringList({u"150"_s, u"150"_s, u"150"_s, u"150"_s, u"110"_s}));
    QCOMPARE(Stored(4, 6), u"150"_s);
    QVERIFY(status_.contains(u"3 個のセル"_s));
    IsOneStep(before, 2, 6, 6);
    Grid().SetFocusCell(6, 6); // from the row above
    Key(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(Cell(6, 6), u"150"_s);
    Select(3, 6, 3, 8);
    Key(Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(Cell(3, 7) + Cell(3, 8), u"150150"_s);
    Grid().SetFocusCell(2, 2);
    Key(Qt::Key_D, Qt::ControlModifier); // the row above is the automatic one
    QCOMPARE(Cell(2, 2), u"G4"_s);
    QVERIFY(status_.contains(u"コピーできる行がありません"_s));
}

void GridFillTest::ControlEnterPutsTheTypedTextIntoTheWholeSelection()
{
    const QStringList before = Column(2, 7, 6);
    Select(2, 7, 5, 7);
    Type(u"12"_s);
    Key(Qt::Key_Return, Qt::ControlModifier);
    QVERIFY(!Grid().IsEditing());
    QCOMPARE(Column(2, 7, 6), QStringList({u"12"_s, u"12"_s, u"12"_s, u"12"_s, u"9"_s}));
    QCOMPARE(Grid().FocusCell(), (GridCell{2, 7}));
    QCOMPARE(Grid().SelectedRange().bottom, 5);
    IsOneStep(before, 2, 7, 6);
    Select(2, 5, 3, 5); // a cell with a list
    Type(u"x"_s);
    Key(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(Column(2, 5, 4), QStringList({u"x"_s, u"x"_s, u"両面"_s}));
    Grid().SetFocusCell(2, 8);
    Type(u"5"_s);
    Key(Qt::Key_Return, Qt::ControlModifier); // one cell: taken, and the focus stays
    QCOMPARE(Cell(2, 8), u"5"_s);
    QCOMPARE(Grid().FocusCell(), (GridCell{2, 8}));
}

void GridFillTest::ControlEnterWithATextThatTheCellRefusesFillsNothing()
{
    Select(2, 7, 4, 7);
    Type(u"1"_s);
    qobject_cast<QLineEdit*>(QApplication::focusWidget())->setText(u"♥"_s);
    Key(Qt::Key_Return, Qt::ControlModifier);
    QTRY_COMPARE(messages_.size(), 1);
    QCOMPARE(Column(2, 7, 4), QStringList({u"9"_s, u"9"_s, u"9"_s}));
    QVERIFY(Grid().IsEditing()); // with what was typed
}

void GridFillTest::OneCopiedValueFillsASelection()
{
    Grid().SetFocusCell(2, 3);
    Key(Qt::Key_C, Qt::ControlModifier);
    const QStringList before = Column(2, 4, 6);
    Select(2, 4, 5, 4);
    Key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Column(2, 4, 6), QStringList({u"C1"_s, u"C1"_s, u"C1"_s, u"C1"_s, u"A2"_s}));
    IsOneStep(before, 2, 4, 6);
}

void GridFillTest::ACopiedBlockTilesIntoAMultipleOfItself()
{
    QApplication::clipboard()->setText(u"1\t2\n3\t4"_s);
    const QStringList before = Column(2, 7, 5);
    Select(2, 7, 5, 8);
    Key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Column(2, 7, 5), QStringList({u"1"_s, u"3"_s, u"1"_s, u"3"_s}));
    QCOMPARE(Column(2, 8, 5), QStringList({u"2"_s, u"4"_s, u"2"_s, u"4"_s}));
    QCOMPARE(Grid().SelectedRange().bottom, 5);
    IsOneStep(before, 2, 7, 5);
}

void GridFillTest::TheHandleCopiesAndCountsOnWithControl()
{
    Grid().SetFocusCell(2, 9);
    const QStringList before = Column(2, 9, 6);
    Drag(Grid().FillHandle().center(), Middle(4, 9), Qt::ControlModifier);
    QCOMPARE(Column(2, 9, 5), QStringList({u"1000"_s, u"1001"_s, u"1002"_s, u"1000"_s}));
    QCOMPARE(Grid().SelectedRange().bottom, 4);
    QCOMPARE(Grid().FocusCell(), (GridCell{2, 9}));
    IsOneStep(before, 2, 9, 6);
    Grid().SetFocusCell(2, 3);
    Drag(Grid().FillHandle().center(), Middle(4, 3));
    QCOMPARE(Column(2, 3, 5), QStringList({u"C1"_s, u"C1"_s, u"C1"_s, u"C4"_s}));
    Grid().SetFocusCell(6, 3);
    Drag(Grid().FillHandle().center(), Middle(1, 3), Qt::ControlModifier); // upward, the automatic row stays
    QCOMPARE(Column(2, 3, 6), QStringList({u"C1"_s, u"C2"_s, u"C3"_s, u"C4"_s, u"C5"_s}));
}

void GridFillTest::AClickOnTheHandleOverAListsButtonOpensTheList()
{
    Grid().SetFocusCell(2, 5);
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Grid().FillHandle().center());
    auto* combo = qobject_cast<CCellCombo*>(Grid().indexWidget(Grid().currentIndex()));
    QVERIFY(combo != nullptr);
    combo->hidePopup();
}

void GridFillTest::TheMenuPutsAnOpenTextIntoTheSelectionInOneStep()
{
    const QStringList before = Column(2, 7, 4);
    Select(2, 7, 4, 7);
    Type(u"14"_s);
    panel_->RunGridCommand(Command::FillSelection);
    QCOMPARE(Column(2, 7, 4), QStringList({u"14"_s, u"14"_s, u"14"_s}));
    IsOneStep(before, 2, 7, 4);
}

} // namespace sbd

QTEST_MAIN(sbd::GridFillTest)
#include "grid_fill_test.moc"
