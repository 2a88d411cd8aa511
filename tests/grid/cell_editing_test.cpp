// Typing into a cell: what begins an edit, what ends it, and what a cell refuses.
#include "grid/cell_editor.h"
#include "tests/grid/grid_bench.h"

#include <QApplication>
#include <QInputMethodEvent>
#include <QStatusTipEvent>

namespace sbd {

using namespace Qt::StringLiterals;

class CellEditingTest : public test::GridBench {
    Q_OBJECT

private slots:
    void init() { PutGrid(); }
    void cleanup() { TakeGrid(); }

    void TypingBeginsAnEditThatReplacesTheText();
    void F2AndADoubleClickKeepTheText();
    void BackspaceBeginsWithAnEmptyCell();
    void EnterAndTabEndTheEditAndGoOn();
    void EscGivesTheEditUp();
    void ArrowsLeaveAnEditThatTypingBegan();
    void ArrowsStayInAnEditThatF2Began();
    void ATextLongerThanALineEditTakesIsNotCut();
    void EscGivesUpACompositionThatTheGridStillLeads();
    void AClickEndsTheCompositionInItsOwnCell();
    void TheRefusalNamesTheCell();
    void LockedCellsDoNotOpen();
    void AKeyOnALockedCellSaysWhyNothingHappens();
    void F2PutsTheCaretBehindTheText();
    void PageKeysTakeTheTextInEveryKindOfCell();
    void ClickingElsewhereTakesTheText();
    void ARefusedCharacterIsToldAndTheTextStaysInTheEditor();
    void ARefusedTextIsNotLostWhenAnotherCellIsClicked();
    void ARefusedTextIsToldWhenTheGridIsCommitted();
    void CommitTakesAnOpenEditor();
};

void CellEditingTest::TypingBeginsAnEditThatReplacesTheText()
{
    Type(u"xy"_s);
    QVERIFY(grid_->IsEditing());
    QCOMPARE(EditorText(Editor()), u"xy"_s);
    QCOMPARE(Cell(2, 2), u"b2"_s);
    Key(Qt::Key_Return);
    QCOMPARE(Cell(2, 2), u"xy"_s);
}

void CellEditingTest::F2AndADoubleClickKeepTheText()
{
    Key(Qt::Key_F2);
    QCOMPARE(EditorText(Editor()), u"b2"_s);
    Key(Qt::Key_Escape);
    QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {}, Middle(4, 1));
    QTest::mouseDClick(grid_->viewport(), Qt::LeftButton, {}, Middle(4, 1));
    QVERIFY(grid_->IsEditing());
    QCOMPARE(EditorText(Editor()), u"a4"_s);
}

void CellEditingTest::BackspaceBeginsWithAnEmptyCell()
{
    Key(Qt::Key_Backspace);
    QVERIFY(grid_->IsEditing());
    QCOMPARE(EditorText(Editor()), QString());
    Key(Qt::Key_Return);
    QCOMPARE(Cell(2, 2), QString());
}

void CellEditingTest::EnterAndTabEndTheEditAndGoOn()
{
    Type(u"1"_s);
    Key(Qt::Key_Return);
    QCOMPARE(grid_->FocusCell(), (GridCell{3, 2}));
    QVERIFY(!grid_->IsEditing());
    Type(u"2"_s);
    Key(Qt::Key_Tab);
    QCOMPARE(grid_->FocusCell(), (GridCell{3, 3}));
    Type(u"3"_s);
    Key(Qt::Key_Tab, Qt::ShiftModifier);
    QCOMPARE(grid_->FocusCell(), (GridCell{3, 2}));
    Type(u"4"_s);
    Key(Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 2}));
    QCOMPARE(Cell(2, 2), u"1"_s);
    QCOMPARE(Cell(3, 2), u"4"_s);
    QCOMPARE(Cell(3, 3), u"3"_s);
}

void CellEditingTest::EscGivesTheEditUp()
{
    Type(u"xy"_s);
    Key(Qt::Key_Escape);
    QVERIFY(!grid_->IsEditing());
    QCOMPARE(Cell(2, 2), u"b2"_s);
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 2}));
    QVERIFY(grid_->hasFocus());
    grid_->SetFocusCell(2, 3); // a cell with a list
    Type(u"X"_s);
    Key(Qt::Key_Escape);
    QVERIFY(!grid_->IsEditing());
    QCOMPARE(Cell(2, 3), u"c2"_s);
}

void CellEditingTest::ArrowsLeaveAnEditThatTypingBegan()
{
    Type(u"1"_s);
    Key(Qt::Key_Right);
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 3}));
    Type(u"Q"_s);
    Key(Qt::Key_Down);
    QCOMPARE(grid_->FocusCell(), (GridCell{3, 3}));
    QCOMPARE(Cell(2, 2), u"1"_s);
    QCOMPARE(Cell(2, 3), u"Q"_s);
}

void CellEditingTest::ArrowsStayInAnEditThatF2Began()
{
    Key(Qt::Key_F2);
    Key(Qt::Key_Left);
    Key(Qt::Key_Right);
    QVERIFY(grid_->IsEditing());
    Type(u"!"_s);
    Key(Qt::Key_Return);
    QVERIFY(Cell(2, 2).contains(u'b') && Cell(2, 2).contains(u'!'));
    Type(u"z"_s);
    Key(Qt::Key_F2); // from now on the arrows belong to the text
    Key(Qt::Key_Left);
    QVERIFY(grid_->IsEditing());
}

void CellEditingTest::ATextLongerThanALineEditTakesIsNotCut()
{
    const QString text(100000, u'x');
    for (const int column : {2, 3}) { // without and with a list
        source_->SetText(2, column, text);
        grid_->SetFocusCell(2, column);
        Key(Qt::Key_F2);
        QCOMPARE(EditorText(Editor()).size(), text.size());
        Key(Qt::Key_End);
        Type(u"y"_s);
        QTest::keyClick(Editor(), Qt::Key_Return);
        QVERIFY(Cell(2, column) == text + u'y');
    }
}

void CellEditingTest::EscGivesUpACompositionThatTheGridStillLeads()
{
    QInputMethodEvent composing(u"はし"_s, {});
    QApplication::sendEvent(grid_.get(), &composing);
    QVERIFY(grid_->IsEditing());
    QVERIFY(grid_->hasFocus()); // until the first composition has ended
    Key(Qt::Key_Escape);
    QVERIFY(!grid_->IsEditing());
    QCOMPARE(Cell(2, 2), u"b2"_s);
    Type(u"n"_s); // the next edit is an ordinary one
    QVERIFY(EditorLine(Editor())->hasFocus());
    Key(Qt::Key_Return);
    QCOMPARE(Cell(2, 2), u"n"_s);
}

void CellEditingTest::AClickEndsTheCompositionInItsOwnCell()
{
    QInputMethodEvent composing(u"はし"_s, {});
    QApplication::sendEvent(grid_.get(), &composing);
    QInputMethodEvent done;
    done.setCommitString(u"橋"_s); // what the platform sends when it is asked to come to an end
    QApplication::sendEvent(grid_.get(), &done);
    QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {}, Middle(4, 4));
    QCOMPARE(Cell(2, 2), u"橋"_s);
    QCOMPARE(Cell(4, 4), QString());
    QVERIFY(!grid_->IsEditing());
}

void CellEditingTest::TheRefusalNamesTheCell()
{
    Key(Qt::Key_F2);
    EditorLine(Editor())->setText(u"x♥"_s);
    QVERIFY(!grid_->CommitEditor(u"そのあと。"_s));
    QVERIFY2(messages_[0].contains(u"2 行目「H2 (mm)」"_s), qPrintable(messages_[0]));
    QVERIFY(messages_[0].endsWith(u"そのあと。"_s));
    Key(Qt::Key_Escape);
    QVERIFY(grid_->CommitEditor());
    QCOMPARE(Cell(2, 2), u"b2"_s);
}

void CellEditingTest::LockedCellsDoNotOpen()
{
    source_->locked.insert({2, 2});
    Type(u"a"_s);
    Key(Qt::Key_F2);
    QTest::mouseDClick(grid_->viewport(), Qt::LeftButton, {}, Middle(2, 2));
    QVERIFY(!grid_->IsEditing());
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 2}));
    QCOMPARE(Cell(2, 2), u"b2"_s);
}

void CellEditingTest::AKeyOnALockedCellSaysWhyNothingHappens()
{
    class CTips : public QObject {
    public:
        QStringList tips;
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::StatusTip)
                tips << static_cast<QStatusTipEvent*>(event)->tip();
            return false;
        }
    } seen;
    grid_->installEventFilter(&seen);
    source_->locked.insert({2, 2});
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_F2, Qt::Key_Backspace, Qt::Key_Delete}) {
        seen.tips.clear();
        Key(key);
        QCOMPARE(seen.tips, QStringList{u"このセルには入力できません。"_s});
        QCOMPARE(Cell(2, 2), u"b2"_s);
    }
    seen.tips.clear();
    Key(Qt::Key_Down); // the message goes with the cell
    QCOMPARE(seen.tips, QStringList{QString()});
    seen.tips.clear();
    Key(Qt::Key_Up);
    Key(Qt::Key_C, Qt::ControlModifier); // changes nothing
    Key(Qt::Key_Home);
    QCOMPARE(seen.tips, QStringList());
}

void CellEditingTest::F2PutsTheCaretBehindTheText()
{
    for (const int column : {2, 3}) { // without and with a list
        grid_->SetFocusCell(2, column);
        const QString before = Cell(2, column);
        Key(Qt::Key_F2);
        Type(u"!"_s);
        QTest::keyClick(Editor(), Qt::Key_Return);
        QCOMPARE(Cell(2, column), before + u'!');
    }
}

void CellEditingTest::PageKeysTakeTheTextInEveryKindOfCell()
{
    for (const int column : {2, 3}) { // without and with a list
        grid_->SetFocusCell(2, column);
        Type(u"7"_s);
        QTest::keyClick(Editor(), Qt::Key_PageDown);
        QVERIFY(!grid_->IsEditing());
        QCOMPARE(Cell(2, column), u"7"_s);
        const int down = grid_->FocusCell().row;
        QVERIFY(down > 5);
        QCOMPARE(grid_->FocusCell().column, column);
        Type(u"8"_s);
        QTest::keyClick(Editor(), Qt::Key_PageUp);
        QCOMPARE(Cell(down, column), u"8"_s);
        QVERIFY(grid_->FocusCell().row < down);
    }
}

void CellEditingTest::ClickingElsewhereTakesTheText()
{
    Type(u"xy"_s);
    QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {}, Middle(4, 4));
    QVERIFY(!grid_->IsEditing());
    QCOMPARE(Cell(2, 2), u"xy"_s);
    QCOMPARE(grid_->FocusCell(), (GridCell{4, 4}));
}

void CellEditingTest::ARefusedCharacterIsToldAndTheTextStaysInTheEditor()
{
    Type(u"a"_s);
    EditorLine(Editor())->insert(u"♥b"_s);
    Key(Qt::Key_Return);
    QTRY_COMPARE(messages_.size(), 1);
    QVERIFY(messages_[0].startsWith(u"「♥」はこのシステムの文字コード（シフトJIS）にない文字です。"_s));
    QCOMPARE(Cell(2, 2), u"b2"_s);
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 2}));
    QTRY_VERIFY(grid_->IsEditing());
    QCOMPARE(EditorText(Editor()), u"a♥b"_s);
    QCOMPARE(EditorLine(Editor())->selectedText(), u"♥"_s);
    Type(u"-"_s);
    Key(Qt::Key_Return);
    QCOMPARE(Cell(2, 2), u"a-b"_s);
    QCOMPARE(messages_.size(), 1);
}

void CellEditingTest::ARefusedTextIsNotLostWhenAnotherCellIsClicked()
{
    Key(Qt::Key_F2);
    EditorLine(Editor())->setText(u"x♥"_s);
    QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {}, Middle(4, 4));
    QTRY_COMPARE(messages_.size(), 1);
    QTRY_VERIFY(grid_->IsEditing());
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 2}));
    QCOMPARE(EditorText(Editor()), u"x♥"_s);
    QCOMPARE(Cell(2, 2), u"b2"_s);
}

void CellEditingTest::ARefusedTextIsToldWhenTheGridIsCommitted()
{
    Key(Qt::Key_F2);
    EditorLine(Editor())->setText(u"x♥"_s);
    QVERIFY(!grid_->CommitEditor());
    QCOMPARE(messages_.size(), 1);
    QVERIFY(grid_->IsEditing());
    QCOMPARE(EditorText(Editor()), u"x♥"_s);
    QTest::qWait(20);
    QCOMPARE(messages_.size(), 1);
}

void CellEditingTest::CommitTakesAnOpenEditor()
{
    Type(u"half"_s);
    QVERIFY(grid_->CommitEditor());
    QCOMPARE(Cell(2, 2), u"half"_s);
    QVERIFY(!grid_->IsEditing());
    QVERIFY(grid_->CommitEditor());
}

} // namespace sbd

QTEST_MAIN(sbd::CellEditingTest)
#include "cell_editing_test.moc"
