// The commands that take back and that search, by their keys.
#include "command_station.h"

using namespace sbd;

class UndoAndSearchCommandsTest : public QObject {
    Q_OBJECT

private slots:
    void undoCanBeGivenWhileThereIsSomethingToTakeBack();
    void theSearchKeyStandsInTheSearchLine();
    void searchLeadsToTheCell();
};

void UndoAndSearchCommandsTest::undoCanBeGivenWhileThereIsSomethingToTakeBack()
{
    CommandStation station;
    QVERIFY(QTest::qWaitForWindowActive(station.frame.get()));
    const QAction* undo = station.Action(Command::Undo);
    station.child->GoToBlock(313);
    station.child->FocusPanel();
    QVERIFY(!undo->isEnabled());
    station.Grid().SetFocusCell(3, 6);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_7);
    QVERIFY(undo->isEnabled()); // an edit is open
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!undo->isEnabled());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_7);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(undo->isEnabled());
    station.Give(Command::Undo);
    QVERIFY(!undo->isEnabled());
    station.Grid().Delete();
    QVERIFY(undo->isEnabled());
    station.child->GoToBlock(301); // the steps are the project's
    QVERIFY(undo->isEnabled());
    station.child->GoToBlock(255);
    QVERIFY(undo->isEnabled());
}

void UndoAndSearchCommandsTest::theSearchKeyStandsInTheSearchLine()
{
    CommandStation station;
    QVERIFY(QTest::qWaitForWindowActive(station.frame.get()));
    const auto press = [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1); };
    press();
    station.Grid().Source()->SetText(1, 1, u"検索：孔引"_s);
    station.Grid().ShowAll();
    station.Grid().SetFocusCell(3, 1);
    press(); // while the search is open
    QCOMPARE(station.Grid().FocusCell(), (GridCell{1, 1}));
    station.Grid().SetFocusCell(3, 1);
    station.child->GoToBlock(313);
    press(); // from another block: not to the hit of last time
    QCOMPARE(station.child->CurrentBlock(), 999);
    QCOMPARE(station.Grid().FocusCell(), (GridCell{1, 1}));
    QVERIFY(station.Grid().hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_X);
    QVERIFY(station.Grid().IsEditing());
    QTRY_COMPARE(station.Grid().Source()->Text(1, 1), u"x"_s);
}

void UndoAndSearchCommandsTest::searchLeadsToTheCell()
{
    CommandStation station;
    QVERIFY(QTest::qWaitForWindowActive(station.frame.get()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    QCOMPARE(station.child->CurrentBlock(), 999);
    QVERIFY(station.Grid().isAncestorOf(QApplication::focusWidget()) || station.Grid().hasFocus());
    station.Grid().Source()->SetText(1, 1, u"検索：孔引"_s);
    station.Grid().ShowAll();
    QVERIFY(station.Grid().Source()->UsedRows() > 2);
    for (int row = 2; row <= station.Grid().Source()->UsedRows(); ++row) {
        station.Grid().SetFocusCell(row, 1);
        emit station.frame->Actions().Menu(MenuId::Edit)->aboutToShow(); // looks at what may be given
        if (station.Action(Command::JumpToHit)->isEnabled())
            break;
    }
    QVERIFY(station.Action(Command::JumpToHit)->isEnabled());
    station.Give(Command::JumpToHit);
    QTRY_VERIFY(station.child->CurrentBlock() != 999);
    QVERIFY(station.child->Tree().SelectedNumber() == station.child->CurrentBlock());
    const QModelIndex cell = station.Grid().currentIndex();
    QVERIFY(cell.isValid());
    QVERIFY(station.Grid().hasFocus());
    QVERIFY(station.Grid().viewport()->rect().intersects(station.Grid().visualRect(cell)));
    QVERIFY(!station.Doc().IsModified());
}

QTEST_MAIN(UndoAndSearchCommandsTest)
#include "undo_and_search_commands_test.moc"
