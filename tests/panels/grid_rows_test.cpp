// Rows of a real panel by key: put in, taken out, moved, doubled.
#include "grid/cell_editor.h"
#include "tests/panels/panel_hands.h"

namespace sbd {

using namespace Qt::StringLiterals;

class GridRowsTest : public test::PanelHands {
    Q_OBJECT

private slots:
    void init() { PutPanel(); }
    void cleanup() { TakePanel(); }

    void RowsAreInsertedDeletedAndDuplicatedByKey();
    void RowsMoveByKeySeveralAtOnce();
    void RedoOfAMoveShowsTheRowWhereItStandsAndSaysWhereItCameFrom();
    void AltDownOpensTheListOfACellAndMovesTheSelectedRow();
};

void GridRowsTest::RowsAreInsertedDeletedAndDuplicatedByKey()
{
    const QStringList before = Column(2, 3, 8);
    Select(3, 1, 4, 1);
    Key(Qt::Key_Plus, Qt::ControlModifier | Qt::ShiftModifier); // as on a Japanese keyboard
    QCOMPARE(Column(2, 3, 8), QStringList({u"C1"_s, {}, {}, u"C2"_s, u"C3"_s, u"C4"_s, u"C5"_s}));
    IsOneStep(before, 2, 3, 8);
    Select(3, 1, 4, 1);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(Column(2, 3, 8), before);
    Select(3, 3, 4, 3);
    Key(Qt::Key_Minus, Qt::ControlModifier | Qt::KeypadModifier);
    QCOMPARE(Column(2, 3, 6), QStringList({u"C1"_s, u"C4"_s, u"C5"_s, u"C6"_s, {}}));
    QCOMPARE(StoredRows(), 5);
    IsOneStep(before, 2, 3, 8);
    QCOMPARE(StoredRows(), 5);
    doc_->Undo();
    QCOMPARE(StoredRows(), 7);
    Select(2, 1, 3, 1);
    Key(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(Column(2, 3, 6), QStringList({u"C1"_s, u"C2"_s, u"C1"_s, u"C2"_s, u"C3"_s}));
    QCOMPARE(Grid().SelectedRange().top, 4);
    QCOMPARE(StoredRows(), 9);
    IsOneStep(before, 2, 3, 8);
    Grid().SetFocusCell(1, 1);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(Cell(1, 2), u"NO"_s);
    QVERIFY(status_.contains(u"削除できません"_s));
}

void GridRowsTest::RowsMoveByKeySeveralAtOnce()
{
    const QStringList before = Column(2, 3, 7);
    Select(3, 1, 4, 3);
    Key(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(Column(2, 3, 6), QStringList({u"C1"_s, u"C4"_s, u"C2"_s, u"C3"_s, u"C5"_s}));
    QCOMPARE(Grid().FocusCell(), (GridCell{4, 1}));
    QCOMPARE(Grid().SelectedRange().bottom, 5);
    QCOMPARE(Stored(5, 3), u"C3"_s);
    IsOneStep(before, 2, 3, 7);
    Grid().SetFocusCell(3, 3);
    Key(Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(Cell(2, 3), u"C4"_s);
    Key(Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(Cell(2, 3), u"C4"_s);
    QVERIFY(status_.contains(u"上へは移動できません"_s));
}

void GridRowsTest::RedoOfAMoveShowsTheRowWhereItStandsAndSaysWhereItCameFrom()
{
    Grid().SetFocusCell(5, 3);
    Key(Qt::Key_Up, Qt::AltModifier);
    doc_->Undo();
    QCOMPARE(Grid().FocusCell(), (GridCell{5, 3}));
    QCOMPARE(Cell(5, 3), u"C4"_s);
    doc_->Redo();
    QCOMPARE(Grid().FocusCell(), (GridCell{4, 3}));
    QCOMPARE(Cell(4, 3), u"C4"_s);
    QCOMPARE(status_, u"5 行目から 4 行目へ移りました。"_s);
}

void GridRowsTest::AltDownOpensTheListOfACellAndMovesTheSelectedRow()
{
    Grid().SetFocusCell(2, 5);
    Key(Qt::Key_F4);
    QVERIFY(qobject_cast<CCellCombo*>(Grid().indexWidget(Grid().currentIndex())) != nullptr);
    Key(Qt::Key_Escape);
    Key(Qt::Key_Escape);
    const QStringList before = Column(2, 3, 7);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up}) {
        Grid().SetFocusCell(3, 5);
        Key(key, Qt::AltModifier);
        QVERIFY(qobject_cast<CCellCombo*>(Grid().indexWidget(Grid().currentIndex())) != nullptr);
        QCOMPARE(Column(2, 3, 7), before); // whoever wanted the list has moved no row
        Key(Qt::Key_Escape);
        Key(Qt::Key_Escape);
    }
    Key(Qt::Key_Space, Qt::ShiftModifier);
    Key(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(Cell(4, 3), before[1]);
    Open(301);
    Grid().SetFocusCell(3, 2);
    Key(Qt::Key_Down, Qt::AltModifier);
    QVERIFY(qobject_cast<CCellCombo*>(Grid().indexWidget(Grid().currentIndex())) != nullptr);
}

} // namespace sbd

QTEST_MAIN(sbd::GridRowsTest)
#include "grid_rows_test.moc"
