// Every command of menus and tool bar, given through the real window; what the menus hold.
#include "command_station.h"
#include "panels/command_text.h"
#include "project/catalogue.h"
#include "tests/document/data_of.h"
#include "tests/share.h"

#include <QDialog>
#include <QMessageBox>
#include <QSignalSpy>
#include <QTimer>
#include <QToolBar>

using namespace sbd;

class WindowCommandsTest : public QObject {
    Q_OBJECT

private slots:
    void everyCommandCanBeGiven_data();
    void everyCommandCanBeGiven();
    void everyCommandHasAHandlerOrIsCarriedOutOutside();
    void withoutAProjectTheCommandsOfProjectsAreOff();
    void everyCommandCanBeReachedByKeys();
    void everyEntryOfTheDataMenuOpensItsBlockOrRuns();
    void theDataMenuMarksTheBlockOnShow();
    void theDataMenuFollowsTheTypeOfTheProject();
    void theToolBarStandsInItsOrder();
    void theVersionStandsAtPositionEight();
    void theAboutBoxNamesTheVersionOfTheMenuBar();
    void documentsAndPagesGoOutside();
    void homePagesFollowTheDeployment();
};

void WindowCommandsTest::everyCommandCanBeGiven_data()
{
    QTest::addColumn<Command>("command");
    for (const CommandRow& row : CommandTable()) {
        QTest::newRow(qPrintable(CommandWords(row.text))) << row.command;
    }
}

void WindowCommandsTest::everyCommandCanBeGiven()
{
    QFETCH(const Command, command);
    CommandStation station;
    station.child->GoToBlock(313);
    station.Grid().SetFocusCell(3, 2);
    QTimer dismiss; // a dialog that waits for an answer gets none
    QObject::connect(&dismiss, &QTimer::timeout, [] {
        if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            dialog->reject();
    });
    dismiss.start(20);
    station.Give(command);
    QVERIFY(station.frame->isVisible() || command == Command::Exit);
    QVERIFY(command == Command::WordLists || station.user.warned.isEmpty());
}

void WindowCommandsTest::everyCommandHasAHandlerOrIsCarriedOutOutside()
{
    const CommandStation station;
    for (const CommandRow& row : CommandTable()) {
        QVERIFY2(station.frame->HasHandler(row.command) || row.owner == CommandOwner::Outside,
                 qPrintable(u"nobody carries out: "_s + CommandWords(row.text)));
        QVERIFY2(!station.frame->HasHandler(row.command) || row.owner == CommandOwner::Frame,
                 qPrintable(u"the handler is never called, the owner is outside: "_s + CommandWords(row.text)));
    }
}

void WindowCommandsTest::withoutAProjectTheCommandsOfProjectsAreOff()
{
    CommandStation station;
    station.child->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (const CommandRow& row : CommandTable()) {
        const bool always = row.needs == CommandNeeds::Nothing;
        QVERIFY2(station.Action(row.command)->isEnabled() == always, qPrintable(CommandWords(row.text)));
        if (!always)
            station.frame->RunCommand(row.command); // nothing happens
    }
}

void WindowCommandsTest::everyCommandCanBeReachedByKeys()
{
    // A menu title with its letter, and below it an entry: menus need no mouse.
    const CommandStation station;
    QSet<QAction*> reached;
    for (QAction* top : station.frame->menuBar()->actions()) {
        if (top->menu() == nullptr)
            continue;
        QVERIFY2(top->text().contains(u"(&"_s), qPrintable(top->text()));
        for (QAction* entry : Entries(top->menu()))
            reached.insert(entry);
    }
    for (const CommandRow& row : CommandTable()) {
        const bool byMenu = reached.contains(station.Action(row.command));
        QVERIFY2(byMenu || !row.keys.empty() || row.command == Command::Version, qPrintable(CommandWords(row.text)));
    }
}

void WindowCommandsTest::everyEntryOfTheDataMenuOpensItsBlockOrRuns()
{
    CommandStation station;
    for (const CatalogueRow& row : Catalogue()) {
        if (row.menuText.empty() || !test::IsOfThisShare(row.block))
            continue;
        station.child->GoToBlock(301);
        station.engines.clear();
        station.frame->OpenBlock(row.block);
        QApplication::processEvents();
        if (RunOfBlock(row.block))
            QCOMPARE(station.engines.size(), 1);
        else
            QCOMPARE(station.child->CurrentBlock(), CanonicalBlock(row.block));
    }
}

void WindowCommandsTest::theDataMenuMarksTheBlockOnShow()
{
    CommandStation station;
    station.child->GoToBlock(512);
    QStringList marked;
    for (QAction* top : station.frame->menuBar()->actions()) {
        if (top->text() != u"データ入力(&I)"_s)
            continue;
        emit top->menu()->aboutToShow();
        for (QAction* entry : Entries(top->menu())) {
            if (entry->isChecked())
                marked.append(entry->text());
        }
    }
    QCOMPARE(marked, QStringList(u"512.主桁断面"_s));
}

void WindowCommandsTest::theDataMenuFollowsTheTypeOfTheProject()
{
    CommandStation station;
    station.child->SwitchToBlock(302); // the panel of 301 would write its own
    test::DataOf(station.Doc()).SetOption(301, 2, *fromQString(u"ブラケット"_s));
    test::TellChanged(station.Doc(), {301, 2});
    for (QAction* top : station.frame->menuBar()->actions()) {
        if (top->text() == u"データ入力(&I)"_s)
            emit top->menu()->aboutToShow();
    }
    QVERIFY(DataMenuTexts(*station.frame).contains(u"301.ブラケット_CONTROL(必要)"_s));
}

void WindowCommandsTest::theToolBarStandsInItsOrder()
{
    const CommandStation station;
    QList<QAction*> wanted;
    for (const Command command : ToolBarItems())
        wanted.append(command == kSeparator ? nullptr : station.Action(command));
    QList<QAction*> there;
    for (QAction* action : station.frame->findChild<QToolBar*>()->actions()) {
        there.append(action->isSeparator() ? nullptr : action);
        QVERIFY(action->isSeparator() || !action->icon().isNull());
    }
    QCOMPARE(there, wanted);
}

void WindowCommandsTest::theVersionStandsAtPositionEight()
{
    const CommandStation station;
    QCOMPARE(station.frame->menuBar()->actions().size(), 9);
    QCOMPARE(station.frame->menuBar()->actions().at(8)->text(), u"Ver20110808"_s);
}

void WindowCommandsTest::theAboutBoxNamesTheVersionOfTheMenuBar()
{
    CommandStation station;
    QString text;
    QTimer::singleShot(0, [&] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            text = box->text();
            box->close();
        }
    });
    station.Give(Command::About);
    QVERIFY2(text.contains(station.frame->menuBar()->actions().at(8)->text()), qPrintable(text));
}

void WindowCommandsTest::documentsAndPagesGoOutside()
{
    CommandStation station;
    station.frame->SetHomePages({true, true, u"Example Homepage..."_s});
    const QSignalSpy outside(station.frame.get(), &CMainFrame::commandForOutside);
    for (const Command command :
         {Command::GirderDocument, Command::CrossDocument, Command::FemDocument, Command::StringerDocument,
          Command::SupportDocument, Command::QuantityDocument, Command::HomePage, Command::SecondHomePage}) {
        station.Give(command);
        QCOMPARE(outside.back().at(0).value<Command>(), command);
    }
    QCOMPARE(outside.size(), 8);
}

void WindowCommandsTest::homePagesFollowTheDeployment()
{
    const CommandStation station;
    QVERIFY(!station.Action(Command::HomePage)->isEnabled());
    QVERIFY(!station.Action(Command::SecondHomePage)->isVisible());
    station.frame->SetHomePages({true, false, u"A & B Homepage..."_s});
    QVERIFY(station.Action(Command::HomePage)->isEnabled());
    QVERIFY(station.Action(Command::SecondHomePage)->isVisible());
    QVERIFY(!station.Action(Command::SecondHomePage)->isEnabled());
    QCOMPARE(station.Action(Command::SecondHomePage)->text(), u"A && B Homepage..."_s);
}

QTEST_MAIN(WindowCommandsTest)
#include "window_commands_test.moc"
