#include "frame/command_actions.h"

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
    QList<int> given;
    QStringList filled;
    CCommandActions actions{&frame, [this](int command) { given.append(command); }};
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
    void aNumberThatIsNoCommandIsNone();
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
    QCOMPARE(window.actions.Menu(MenuId::Run)->actions().size(), 5);
    QVERIFY(window.actions.Menu(MenuId::View)->actions().contains(window.actions.Menu(MenuId::Cells)->menuAction()));
}

void CommandActionsTest::everyCommandIsGivenOnce()
{
    Window window;
    for (const CommandRow& row : CommandTable()) {
        window.given.clear();
        window.actions.Of(row.id)->trigger();
        QCOMPARE(window.given, QList<int>{row.id});
    }
}

void CommandActionsTest::theToolBarsButtonsGiveTheirCommands()
{
    Window window;
    QList<int> expected;
    for (const int command : ToolBarItems()) {
        if (command == kSeparator)
            continue;
        expected.append(command);
        auto* button = qobject_cast<QToolButton*>(window.toolBar->widgetForAction(window.actions.Of(command)));
        QVERIFY(button != nullptr);
        QCOMPARE(button->toolTip(), TipOf(*FindCommand(command)));
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
    QCOMPARE(window.given, (QList<int>{57600, 57603, 49990}));
}

void CommandActionsTest::keysOfTheGridAreNotTakenFromIt()
{
    Window window;
    QVERIFY(QTest::qWaitForWindowActive(&window.frame));
    QTest::keyClick(&window.frame, Qt::Key_Delete);
    QTest::keyClick(&window.frame, Qt::Key_V, Qt::ControlModifier);
    QVERIFY(window.given.isEmpty());
    QVERIFY(window.actions.Of(33001)->shortcuts().isEmpty());
    QCOMPARE(window.actions.Of(33001)->text(), u"Delete\tDel"_s);
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
    actions.SetMark(32763, true);
    actions.SetMark(33026, true);
    actions.SetMark(32764, true);
    QVERIFY(!actions.Of(32763)->isChecked());
    QVERIFY(actions.Of(32764)->isChecked());
    QVERIFY(actions.Of(33026)->isChecked()); // a group of its own
    actions.Of(33007)->trigger();
    QVERIFY(!actions.Of(33026)->isChecked());
}

void CommandActionsTest::filtersAreMarkedEachForItself()
{
    Window window;
    for (const int filter : {33015, 33009, 33024})
        window.actions.SetMark(filter, true);
    QVERIFY(window.actions.Of(33015)->isChecked() && window.actions.Of(33009)->isChecked());
    window.actions.SetMark(33015, false);
    QVERIFY(!window.actions.Of(33015)->isChecked());
    window.actions.SetMark(57600, true);
    QVERIFY(!window.actions.Of(57600)->isChecked()); // it has no mark
}

void CommandActionsTest::commandsFollowWhatHolds()
{
    Window window;
    window.actions.Update([](CommandNeeds) { return false; });
    QVERIFY(window.actions.Of(57600)->isEnabled());
    QVERIFY(window.actions.Of(57601)->isEnabled());
    for (const int command : {57603, 57607, 57609, 57643, 33033, 39255, 32989, 33015, 32766, 49990})
        QVERIFY2(!window.actions.Of(command)->isEnabled(), qPrintable(QString::number(command)));
    // Block 253 is on show: its zoom works, the switch to the model and the notes do not.
    window.actions.Update([](CommandNeeds needs) { return needs != CommandNeeds::FreePage; });
    QVERIFY(window.actions.Of(32996)->isEnabled());
    QVERIFY(!window.actions.Of(32989)->isEnabled());
    QVERIFY(!window.actions.Of(32990)->isEnabled());
}

void CommandActionsTest::whatIsMadeLaterIsAskedForAtItsPlace()
{
    const Window window;
    QCOMPARE(window.filled, (QStringList{u"ファイル(&F) %1"_s.arg(static_cast<int>(MenuFill::RecentFiles)),
                                         u"データ入力(&I) %1"_s.arg(static_cast<int>(MenuFill::DataEntries)),
                                         u"ウィンドウ(&W) %1"_s.arg(static_cast<int>(MenuFill::Windows))}));
}

void CommandActionsTest::aNumberThatIsNoCommandIsNone()
{
    Window window;
    QVERIFY(window.actions.Of(1) == nullptr);
    QVERIFY(window.actions.Of(kSeparator) == nullptr);
    window.actions.SetMark(1, true);
}

QTEST_MAIN(CommandActionsTest)
#include "command_actions_test.moc"
