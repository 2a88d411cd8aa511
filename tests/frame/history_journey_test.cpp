#include "frame/command_actions.h"
#include "frame/left_view.h"
#include "panel_desk.h"
#include "sbdfile/writer.h"

#include <QAction>

namespace sbd {

class HistoryJourneyTest : public QObject {
    Q_OBJECT

private slots:
    void undoGoesToTheBlockAndShowsTheCell();
    void theEditMenuNamesTheSteps();
    void undoWorksWhereTheBlockOnShowHasNoGrid();
    void whatIsTypedAndStillOpenComesFirst();
    void otherSettingsOfTheCellsKeepARowThatIsNotWrittenYet();
};

namespace {

std::string Bytes(const Desk& desk)
{
    return WriteProject(desk.child->Doc().Data());
}

void EnterText(Desk& desk, int row, int column, const QString& text)
{
    desk.Click(row, column);
    Type(text);
    Press(Qt::Key_Return);
    QApplication::processEvents();
}

} // namespace

void HistoryJourneyTest::undoGoesToTheBlockAndShowsTheCell()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    const std::string bytes = Bytes(desk);
    EnterText(desk, 4, 9, u"1 2 3"_s);
    desk.Go(301);
    EnterText(desk, 1, 2, u"TITLE"_s);
    const std::string typed = Bytes(desk);
    desk.Go(314);
    desk.child->FocusPanel();

    Press(Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(desk.child->CurrentBlock(), 301);
    QCOMPARE(desk.child->Tree().SelectedNumber(), 301);
    QCOMPARE(desk.Grid().FocusCell().row, 1);
    QCOMPARE(desk.Grid().FocusCell().column, 2);
    QVERIFY(desk.Cell(1, 2) != u"TITLE"_s);
    Press(Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(desk.child->CurrentBlock(), 313);
    QCOMPARE(desk.Grid().FocusCell().row, 4);
    QCOMPARE(desk.Grid().FocusCell().column, 9);
    QVERIFY(Bytes(desk) == bytes);
    QVERIFY(!desk.child->Doc().IsModified());

    Press(Qt::Key_Y, Qt::ControlModifier);
    QTRY_COMPARE(desk.Cell(4, 9), u"1 2 3"_s);
    Press(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    QTRY_COMPARE(desk.child->CurrentBlock(), 301);
    QCOMPARE(desk.Cell(1, 2), u"TITLE"_s);
    QVERIFY(Bytes(desk) == typed);
}

void HistoryJourneyTest::theEditMenuNamesTheSteps()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    const QAction* undo = desk.frame.Actions().Of(Command::Undo);
    const QAction* redo = desk.frame.Actions().Of(Command::Redo);
    QCOMPARE(undo->text(), u"元に戻す(&U)"_s);
    QVERIFY(!undo->isEnabled() && !redo->isEnabled());
    EnterText(desk, 4, 9, u"1 2 3"_s);
    QVERIFY2(undo->text().startsWith(u"313 "_s) && undo->text().endsWith(u" 4行 を元に戻す(&U)"_s),
             qPrintable(undo->text()));
    QVERIFY(undo->isEnabled() && !redo->isEnabled());
    desk.frame.RunCommand(Command::Undo);
    QCOMPARE(undo->text(), u"元に戻す(&U)"_s);
    QVERIFY2(redo->text().endsWith(u" 4行 をやり直す(&R)"_s), qPrintable(redo->text()));
    QVERIFY(!undo->isEnabled() && redo->isEnabled());
    desk.frame.RunCommand(Command::Redo);
    QVERIFY(undo->isEnabled() && !redo->isEnabled());
}

void HistoryJourneyTest::undoWorksWhereTheBlockOnShowHasNoGrid()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    EnterText(desk, 4, 9, u"1 2 3"_s);
    desk.child->GoToBlock(255);
    desk.frame.RunCommand(Command::Undo);
    QCOMPARE(desk.child->CurrentBlock(), 313);
    QVERIFY(desk.Cell(4, 9) != u"1 2 3"_s);
}

void HistoryJourneyTest::whatIsTypedAndStillOpenComesFirst()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    const std::string bytes = Bytes(desk);
    EnterText(desk, 4, 9, u"1 2 3"_s);
    const std::string first = Bytes(desk);
    desk.Click(5, 9);
    Type(u"7"_s);
    desk.Panel().Undo(); // the edit ends
    QVERIFY(!desk.Grid().IsEditing());
    QApplication::processEvents();
    desk.Panel().Undo(); // and is taken back
    QVERIFY(Bytes(desk) == first);
    desk.Panel().Undo();
    QVERIFY(Bytes(desk) == bytes);
}

void HistoryJourneyTest::otherSettingsOfTheCellsKeepARowThatIsNotWrittenYet()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    const int row = desk.Panel().Model()->BlockRows() + 2;
    EnterText(desk, row, 9, u"half"_s);
    desk.frame.RunCommand(Command::RowsHigher);
    QCOMPARE(desk.Cell(row, 9), u"half"_s);
    desk.Panel().Undo();
    QCOMPARE(desk.Cell(row, 9), QString());
}

} // namespace sbd

QTEST_MAIN(sbd::HistoryJourneyTest)
#include "history_journey_test.moc"
