// Rows out of sight: no command touches them.
#include "panels/row_filter.h"
#include "tests/panels/panel_hands.h"

#include <QClipboard>

namespace sbd {

using namespace Qt::StringLiterals;

class RowFilterTest : public test::PanelHands {
    Q_OBJECT

private slots:
    void init() { PutPanel(); }
    void cleanup() { TakePanel(); }

    void AFilterHidesRowsAndNoCommandTouchesThem();
    void AFilterStaysThroughUndoAndEndsWithEscape();
    void WhatAFilterDoesNotAllowIsSaid();
    void APasteGoesToTheRowsInSightAndSaysWhatHasNoPlace();
    void BehindADeletedRowTheCursorIsInSight();
};

void RowFilterTest::AFilterHidesRowsAndNoCommandTouchesThem()
{
    Grid().SetFocusCell(3, 4);
    Type(u"P9"_s);
    Key(Qt::Key_Return);
    Type(u"P9"_s);
    Key(Qt::Key_Return);
    Grid().SetFocusCell(3, 4);
    Key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(panel_->FiltersRows());
    Type(u"a"_s); // capital or small
    QCOMPARE(Input().RowFilter()->Told(), u"4 行を表示中。見えない 2 行は、どの操作でも変わりません。"_s);
    Key(Qt::Key_Return);
    QVERIFY(Grid().hasFocus());
    QVERIFY(Grid().isRowHidden(2) && Grid().isRowHidden(3) && !Grid().isRowHidden(0) && !Grid().isRowHidden(1));
    Select(2, 6, 5, 6); // rows 2, 5, 6, 7 are seen
    QCOMPARE(Grid().SelectedRange().bottom, 7);
    Type(u"55"_s);
    Key(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(Column(2, 6, 7), QStringList({u"55"_s, u"110"_s, u"110"_s, u"55"_s, u"55"_s, u"55"_s}));
    Select(2, 7, 3, 7);
    Key(Qt::Key_Delete);
    QCOMPARE(Column(2, 7, 6), QStringList({{}, u"9"_s, u"9"_s, {}, u"9"_s}));
    Key(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(Column(2, 3, 4), QStringList({u"C1"_s, u"C2"_s, u"C3"_s}));
    Grid().SetFocusCell(5, 3);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(Column(2, 3, 6), QStringList({u"C1"_s, u"C2"_s, u"C3"_s, u"C5"_s, u"C6"_s}));
    QVERIFY(Grid().isRowHidden(2) && Grid().isRowHidden(3) && !Grid().isRowHidden(4));
    Key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!panel_->FiltersRows());
    QVERIFY(!Grid().isRowHidden(2));
}

void RowFilterTest::AFilterStaysThroughUndoAndEndsWithEscape()
{
    Grid().SetFocusCell(3, 3);
    Key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier); // the text of the cell is wanted at once
    QVERIFY(Grid().isRowHidden(1) && !Grid().isRowHidden(2) && Grid().isRowHidden(3));
    Key(Qt::Key_Return);
    Grid().SetFocusCell(3, 6);
    Type(u"70"_s);
    Key(Qt::Key_Return);
    panel_->CommitGrid();
    doc_->Undo();
    QCOMPARE(Cell(3, 6), u"110"_s);
    QVERIFY(Grid().isRowHidden(1) && !Grid().isRowHidden(2) && Grid().isRowHidden(3));
    panel_->GoToCell(5, 3); // a search goes there
    QVERIFY(!panel_->FiltersRows());
    QCOMPARE(Grid().FocusCell(), (GridCell{5, 3}));
    Key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(Grid().isRowHidden(1));
    Key(Qt::Key_Escape);
    QVERIFY(!Grid().isRowHidden(1));
    QVERIFY(Grid().hasFocus());
}

/// What would shift rows against those out of sight.
void RowFilterTest::WhatAFilterDoesNotAllowIsSaid()
{
    const QStringList before = Column(1, 3, 8);
    Grid().SetFocusCell(3, 3);
    Key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    Key(Qt::Key_Return);
    const auto refuses = [&](Qt::Key key, Qt::KeyboardModifiers modifiers) {
        status_.clear();
        Grid().SetFocusCell(3, 6);
        Key(key, modifiers);
        QCOMPARE(Column(1, 3, 8), before);
        QVERIFY2(status_.contains(u"絞り込み中"_s), qPrintable(status_));
    };
    refuses(Qt::Key_Plus, Qt::ControlModifier | Qt::ShiftModifier);
    refuses(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    refuses(Qt::Key_Down, Qt::AltModifier);
    refuses(Qt::Key_Up, Qt::AltModifier);
    Key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    Grid().SetFocusCell(1, 3);
    status_.clear();
    Key(Qt::Key_Plus, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY2(status_.contains(u"挿入できません"_s) && !status_.contains(u"絞り込み"_s), qPrintable(status_));
}

void RowFilterTest::APasteGoesToTheRowsInSightAndSaysWhatHasNoPlace()
{
    for (const int row : {3, 5}) {
        Grid().SetFocusCell(row, 4);
        Type(u"P9"_s);
        Key(Qt::Key_Return);
    }
    Grid().SetFocusCell(3, 4);
    Key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    Key(Qt::Key_Return);
    QApplication::clipboard()->setText(u"1\n2\n3"_s);
    const QStringList before = Column(2, 6, 8);
    Grid().SetFocusCell(3, 6);
    Key(Qt::Key_V, Qt::ControlModifier);
    const QStringList after{u"110"_s, u"1"_s, u"110"_s, u"2"_s, u"110"_s, u"110"_s, {}};
    QCOMPARE(Column(2, 6, 8), after);
    QCOMPARE(messages_.size(), 1);
    QVERIFY2(messages_[0].contains(u"はみ出した 1 個"_s), qPrintable(messages_[0]));
    IsOneStep(before, 2, 6, 8);
}

/// What is typed next must not go to a row out of sight.
void RowFilterTest::BehindADeletedRowTheCursorIsInSight()
{
    Grid().SetFocusCell(3, 4);
    Type(u"P9"_s);
    Key(Qt::Key_Return);
    Grid().SetFocusCell(3, 4);
    Key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier); // "P9" alone is in sight
    Key(Qt::Key_Return);
    Grid().SetFocusCell(3, 6);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(Column(2, 3, 6), QStringList({u"C1"_s, u"C3"_s, u"C4"_s, u"C5"_s, u"C6"_s}));
    QVERIFY(!Grid().isRowHidden(Grid().FocusCell().row - 1));
    Type(u"77"_s);
    Key(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(Column(2, 6, 6), QStringList({u"110"_s, u"110"_s, u"110"_s, u"110"_s, u"110"_s}));
}

} // namespace sbd

QTEST_MAIN(sbd::RowFilterTest)
#include "row_filter_test.moc"
