#include "frame/command_actions.h"
#include "panels/command_text.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

/// A window with all menus and the tool bar, and what was asked of it.
struct Window {
    QMainWindow frame;
    QList<Command> given;
    QStringList filled;
    CCommandActions actions{&frame, [this](Command command) { given.append(command); }};
    QToolBar* toolBar = frame.addToolBar(u"標準"_s);

    Window()
    {
        actions.FillMenuBar(*frame.menuBar(), [this](QMenu& menu, MenuFill entries) {
            filled.append(u"%1 %2"_s.arg(menu.title()).arg(static_cast<int>(entries)));
        });
        actions.FillToolBar(*toolBar);
        actions.Update([](CommandNeeds) { return true; });
        frame.show();
    }
};

} // namespace

class CommandActionsTest : public QObject {
    Q_OBJECT

private slots:
    void theMenuBarHasItsMenusAndTheVersion();
    void everyCommandIsGivenOnce();
    void theToolBarsButtonsGiveTheirCommands();
    void keysOfTheWindowGiveTheirCommand();
    void keysOfTheGridAreNotTakenFromIt();
    void altAOpensTheRunMenu();
    void oneLanguageAndOneModeIsMarked();
    void filtersAreMarkedEachForItself();
    void commandsFollowWhatHolds();
    void whatIsMadeLaterIsAskedForAtItsPlace();
    void noCommandHasNoAction();
};

void CommandActionsTest::theMenuBarHasItsMenusAndTheVersion()
{
    Window window;
    QStringList titles;
    for (const QAction* action : window.frame.menuBar()->actions())
        titles.append(action->text());
    QCOMPARE(titles,
             (QStringList{u"ファイル(&F)"_s, u"編集(&E)"_s, u"表示(&V)"_s, u"データ入力(&I)"_s, u"解析&&結果(&A)"_s,
                          u"表示設定(&S)"_s, u"ウィンドウ(&W)"_s, u"ヘルプ(&H)"_s, u"Ver20110808"_s}));
    QCOMPARE(window.actions.Menu(MenuId::Run)->actions().size(), 7);
    QVERIFY(window.actions.Menu(MenuId::View)->actions().contains(window.actions.Menu(MenuId::Cells)->menuAction()));
}

void CommandActionsTest::everyCommandIsGivenOnce()
{
    Window window;
    for (const CommandRow& row : CommandTable()) {
        window.given.clear();
        window.actions.Of(row.command)->trigger();
        QCOMPARE(window.given, QList<Command>{row.command});
    }
}

void CommandActionsTest::theToolBarsButtonsGiveTheirCommands()
{
    Window window;
    QList<Command> expected;
    for (const Command command : ToolBarItems()) {
        if (command == kSeparator)
            continue;
        expected.append(command);
        auto* button = qobject_cast<QToolButton*>(window.toolBar->widgetForAction(window.actions.Of(command)));
        QVERIFY(button != nullptr);
        QCOMPARE(button->toolTip(), TipOf(RowOf(command)));
        QVERIFY(!button->icon().isNull());
        button->click();
    }
    QCOMPARE(window.given, expected);
}

void CommandActionsTest::keysOfTheWindowGiveTheirCommand()
{
    Window window;
    QVERIFY(QTest::qWaitForWindowActive(&window.frame));
    QTest::keyClick(&window.frame, Qt::Key_N, Qt::ControlModifier);
    QTest::keyClick(&window.frame, Qt::Key_S, Qt::ControlModifier);
    QTest::keyClick(&window.frame, Qt::Key_F1);
    QCOMPARE(window.given, (QList<Command>{Command::NewProject, Command::Save, Command::Search}));
}

void CommandActionsTest::keysOfTheGridAreNotTakenFromIt()
{
    Window window;
    QVERIFY(QTest::qWaitForWindowActive(&window.frame));
    QTest::keyClick(&window.frame, Qt::Key_Delete);
    QTest::keyClick(&window.frame, Qt::Key_V, Qt::ControlModifier);
    QVERIFY(window.given.isEmpty());
    QVERIFY(window.actions.Of(Command::Delete)->shortcuts().isEmpty());
    QCOMPARE(window.actions.Of(Command::Delete)->text(), u"Delete\tDel"_s);
}

void CommandActionsTest::altAOpensTheRunMenu()
{
    Window window;
    QVERIFY(QTest::qWaitForWindowActive(&window.frame));
    QTest::keyClick(&window.frame, Qt::Key_A, Qt::AltModifier);
    QTRY_VERIFY(window.actions.Menu(MenuId::Run)->isVisible());
    window.actions.Menu(MenuId::Run)->close();
}

void CommandActionsTest::oneLanguageAndOneModeIsMarked()
{
    Window window;
    CCommandActions& actions = window.actions;
    actions.SetMark(Command::Japanese, true);
    actions.SetMark(Command::ShowAllItems, true);
    actions.SetMark(Command::English, true);
    QVERIFY(!actions.Of(Command::Japanese)->isChecked());
    QVERIFY(actions.Of(Command::English)->isChecked());
    QVERIFY(actions.Of(Command::ShowAllItems)->isChecked()); // a group of its own
    actions.Of(Command::ShowItemsOfProject)->trigger();
    QVERIFY(!actions.Of(Command::ShowAllItems)->isChecked());
}

void CommandActionsTest::filtersAreMarkedEachForItself()
{
    Window window;
    for (const Command filter : {Command::HidePlate, Command::HideBox, Command::HideSupport})
        window.actions.SetMark(filter, true);
    QVERIFY(window.actions.Of(Command::HidePlate)->isChecked() && window.actions.Of(Command::HideBox)->isChecked());
    window.actions.SetMark(Command::HidePlate, false);
    QVERIFY(!window.actions.Of(Command::HidePlate)->isChecked());
    window.actions.SetMark(Command::NewProject, true);
    QVERIFY(!window.actions.Of(Command::NewProject)->isChecked()); // it has no mark
}

void CommandActionsTest::commandsFollowWhatHolds()
{
    Window window;
    window.actions.Update([](CommandNeeds) { return false; });
    QVERIFY(window.actions.Of(Command::NewProject)->isEnabled());
    QVERIFY(window.actions.Of(Command::Open)->isEnabled());
    for (const Command command :
         {Command::Save, Command::Print, Command::PrintPreview, Command::Undo, Command::RowsHigher, Command::RunAll,
          Command::SwitchFigureAndHelp, Command::HidePlate, Command::HomePage, Command::Search})
        QVERIFY2(!window.actions.Of(command)->isEnabled(), qPrintable(CommandWords(RowOf(command).text)));
    // Block 253 is on show: its zoom works, the switch to the model and the notes do not.
    window.actions.Update([](CommandNeeds needs) { return needs != CommandNeeds::FreePage; });
    QVERIFY(window.actions.Of(Command::ZoomIn)->isEnabled());
    QVERIFY(!window.actions.Of(Command::SwitchFigureAndHelp)->isEnabled());
    QVERIFY(!window.actions.Of(Command::Notes)->isEnabled());
}

void CommandActionsTest::whatIsMadeLaterIsAskedForAtItsPlace()
{
    const Window window;
    QCOMPARE(window.filled, (QStringList{u"ファイル(&F) %1"_s.arg(static_cast<int>(MenuFill::RecentFiles)),
                                         u"データ入力(&I) %1"_s.arg(static_cast<int>(MenuFill::DataEntries)),
                                         u"ウィンドウ(&W) %1"_s.arg(static_cast<int>(MenuFill::Windows))}));
}

void CommandActionsTest::noCommandHasNoAction()
{
    Window window;
    QVERIFY(window.actions.Of(Command::None) == nullptr);
    QVERIFY(window.actions.Of(kSeparator) == nullptr);
    window.actions.SetMark(Command::None, true);
}

QTEST_MAIN(CommandActionsTest)
#include "command_actions_test.moc"
