#include "answers.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/data_menu.h"
#include "frame/left_view.h"
#include "frame/main_frame.h"
#include "menu_entries.h"
#include "project/catalogue.h"

#include <QAction>
#include <QApplication>
#include <QDragEnterEvent>
#include <QLabel>
#include <QMenu>
#include <QMenuBar>
#include <QMimeData>
#include <QPointer>
#include <QScreen>
#include <QStatusBar>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

struct Station {
    TestFolder folder;
    Answers user;
    CMainFrame frame{user.Dialogs()};

    Station() { frame.show(); }
    CChildFrame* OpenExample(const QString& name) { return frame.OpenProject(folder.Example(name)); }
};

QMenu* MenuOf(const CMainFrame& frame, const QString& title)
{
    for (QAction* action : frame.menuBar()->actions()) {
        if (action->text() == title)
            return action->menu();
    }
    return nullptr;
}

QAction* EntryWithText(const QMenu* menu, const QString& text)
{
    for (QAction* action : Entries(menu)) {
        if (action->text() == text)
            return action;
    }
    return nullptr;
}

QString StatusText(const CMainFrame& frame)
{
    QStringList texts;
    for (const QLabel* label : frame.statusBar()->findChildren<QLabel*>())
        texts.append(label->text());
    return texts.join(u'|');
}

/// Drops files on the window; true if it takes them.
bool Drop(CMainFrame& frame, const QStringList& files)
{
    QMimeData dragged;
    QList<QUrl> urls;
    for (const QString& file : files)
        urls.append(QUrl::fromLocalFile(file));
    dragged.setUrls(urls);
    QDragEnterEvent enter(QPoint(50, 50), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    enter.ignore();
    QApplication::sendEvent(&frame, &enter);
    if (!enter.isAccepted())
        return false;
    QDropEvent drop(QPointF(50, 50), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&frame, &drop);
    return true;
}

} // namespace

class MainFrameTest : public QObject {
    Q_OBJECT

private slots:
    void theDataMenuHoldsEveryBlockWithAMenuText();
    void blocksThatBelongToTwoGroupsStandTwice();
    void aDataEntryOpensItsBlock();
    void entriesThatNeedAProjectAreOffWithoutOne();
    void f1OpensTheSearchBlock();
    void ctrlWAndCtrlF4CloseTheProjectInFront();
    void theStatusBarShowsThePathOfTheProjectInFront();
    void theTitleShowsTheProjectAndItsMark();
    void severalProjectsKeepTheirOwnData();
    void recentFilesOpenFromTheMenu();
    void theWindowMenuListsTheProjects();
    void droppedProjectsOpen();
    void otherThingsDroppedAreRefused();
    void closingAsksForEveryChangedProjectFirst();
    void theWindowComesUpMaximisedAndKeepsItsSize();
    void theFirstSizeFitsTheScreen();
};

void MainFrameTest::theDataMenuHoldsEveryBlockWithAMenuText()
{
    const Station station;
    const QMenu* menu = MenuOf(station.frame, u"データ入力(&I)"_s);
    QVERIFY(menu != nullptr);
    qsizetype withText = 0;
    for (const CatalogueRow& row : Catalogue())
        withText += row.menuText.empty() ? 0 : 1;
    // 481 to 486 and 671 stand twice
    QCOMPARE(Entries(menu).size(), withText + 7);
    QVERIFY(EntryWithText(menu, u"313.垂直補剛材(必要)"_s) != nullptr);
    QVERIFY(EntryWithText(menu, u"999.KELD_検索_Q_&&_A"_s) != nullptr);
}

void MainFrameTest::blocksThatBelongToTwoGroupsStandTwice()
{
    std::ptrdiff_t count671 = 0;
    std::ptrdiff_t count481 = 0;
    for (const DataMenuPart& part : DataMenuParts()) {
        count671 += std::ranges::count(part.blocks, 671);
        count481 += std::ranges::count(part.blocks, 481);
    }
    QCOMPARE(count671, std::ptrdiff_t(2));
    QCOMPARE(count481, std::ptrdiff_t(2));
}

void MainFrameTest::aDataEntryOpensItsBlock()
{
    Station station;
    CChildFrame* child = station.frame.NewProject();
    EntryWithText(MenuOf(station.frame, u"データ入力(&I)"_s), u"512.主桁断面"_s)->trigger();
    QCOMPARE(child->CurrentBlock(), 512);
    QCOMPARE(child->Tree().SelectedNumber(), 512);
}

void MainFrameTest::entriesThatNeedAProjectAreOffWithoutOne()
{
    Station station;
    const QAction* save = EntryWithText(MenuOf(station.frame, u"ファイル(&F)"_s), u"上書き保存(&S)"_s);
    QVERIFY(!save->isEnabled());
    CChildFrame* child = station.frame.NewProject();
    QVERIFY(save->isEnabled());
    child->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(!save->isEnabled());
}

void MainFrameTest::f1OpensTheSearchBlock()
{
    Station station;
    CChildFrame* child = station.frame.NewProject();
    station.frame.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&station.frame));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    QCOMPARE(child->CurrentBlock(), 999);
}

void MainFrameTest::ctrlWAndCtrlF4CloseTheProjectInFront()
{
    Station station;
    for (const Qt::Key key : {Qt::Key_W, Qt::Key_F4}) {
        const QPointer<CChildFrame> child = station.frame.NewProject();
        station.frame.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&station.frame));
        QTest::keyClick(QApplication::focusWidget(), key, Qt::ControlModifier);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY2(child.isNull(), qPrintable(QKeySequence(key).toString()));
    }
}

void MainFrameTest::theStatusBarShowsThePathOfTheProjectInFront()
{
    Station station;
    station.frame.NewProject();
    QVERIFY2(StatusText(station.frame).contains(u"New SBD File"_s), qPrintable(StatusText(station.frame)));
    CChildFrame* plate = station.OpenExample(u"plate4"_s);
    QVERIFY(StatusText(station.frame).contains(QDir::toNativeSeparators(plate->Doc().PathName())));
    plate->Doc().SetHelpCell(313, 4, 2);
    QVERIFY2(StatusText(station.frame).contains(u"313"_s), qPrintable(StatusText(station.frame)));
}

void MainFrameTest::theTitleShowsTheProjectAndItsMark()
{
    Station station;
    CChildFrame* plate = station.OpenExample(u"plate4"_s);
    QCOMPARE(station.frame.windowTitle(), u"KELD section - [plate4.sbd[*]]"_s);
    QVERIFY(!station.frame.isWindowModified());
    plate->Doc().SetModifiedFlag(true);
    QVERIFY(station.frame.isWindowModified());
}

void MainFrameTest::severalProjectsKeepTheirOwnData()
{
    Station station;
    CChildFrame* plate = station.OpenExample(u"plate4"_s);
    CChildFrame* box = station.OpenExample(u"box2"_s);
    QCOMPARE(station.frame.Children().size(), 2);
    QVERIFY(plate->Doc().Data().Option(301, 0) != box->Doc().Data().Option(301, 0));
    box->GoToBlock(313);
    QCOMPARE(plate->CurrentBlock(), 301);
    QCOMPARE(station.frame.CurrentChild(), box);
}

void MainFrameTest::recentFilesOpenFromTheMenu()
{
    Station station;
    const QString path = station.OpenExample(u"plate4"_s)->Doc().PathName();
    station.frame.CurrentChild()->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(station.frame.CurrentChild() == nullptr);

    QMenu* recent = nullptr;
    for (QAction* action : MenuOf(station.frame, u"ファイル(&F)"_s)->actions()) {
        if (action->text() == u"最近使ったファイル(&R)"_s)
            recent = action->menu();
    }
    emit recent->aboutToShow();
    QVERIFY(recent->actions().constFirst()->text().endsWith(QDir::toNativeSeparators(path)));
    recent->actions().constFirst()->trigger();
    QCOMPARE(station.frame.CurrentChild()->Doc().PathName(), path);
}

void MainFrameTest::theWindowMenuListsTheProjects()
{
    Station station;
    CChildFrame* plate = station.OpenExample(u"plate4"_s);
    station.OpenExample(u"box2"_s);
    QMenu* menu = MenuOf(station.frame, u"ウィンドウ(&W)"_s);
    emit menu->aboutToShow();
    emit menu->aboutToShow(); // the list does not grow
    const QList<QAction*> entries = Entries(menu);
    QVERIFY(entries.constLast()->text().contains(u"box2.sbd"_s));
    QVERIFY(entries.constLast()->isChecked());
    QAction* first = entries[entries.size() - 2];
    QVERIFY(first->text().contains(u"plate4.sbd"_s));
    first->trigger();
    QCOMPARE(station.frame.CurrentChild(), plate);
}

void MainFrameTest::droppedProjectsOpen()
{
    Station station;
    station.frame.NewProject();
    const QString plate = station.folder.Example(u"plate4"_s);
    const QString box = station.folder.Example(u"box2"_s);
    QVERIFY(Drop(station.frame, {plate, station.folder.Path(u"note.txt"_s), box}));
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(station.frame.Children().size(), 2);
    QVERIFY(station.user.warned.isEmpty());
}

void MainFrameTest::otherThingsDroppedAreRefused()
{
    Station station;
    QVERIFY(!Drop(station.frame, {station.folder.Path(u"note.txt"_s)}));
    QVERIFY(!Drop(station.frame, {}));
}

void MainFrameTest::closingAsksForEveryChangedProjectFirst()
{
    Station station;
    CChildFrame* plate = station.OpenExample(u"plate4"_s);
    CChildFrame* box = station.OpenExample(u"box2"_s);
    plate->Doc().SetModifiedFlag(true);
    box->Doc().SetModifiedFlag(true);
    QVERIFY(!station.frame.close());
    QCOMPARE(station.frame.Children().size(), 2);
    QCOMPARE(station.user.asked.size(), 1);

    station.user.save = SaveAnswer::Discard;
    QVERIFY(station.frame.close());
    QCOMPARE(station.user.asked.size(), 3);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(station.frame.Children().isEmpty());
}

void MainFrameTest::theWindowComesUpMaximisedAndKeepsItsSize()
{
    const TestFolder folder;
    Answers user;
    {
        CMainFrame frame(user.Dialogs());
        frame.resize(700, 600);
        frame.show();
        QVERIFY(QTest::qWaitForWindowExposed(&frame));
        frame.close();
    }
    CMainFrame frame(user.Dialogs());
    frame.ShowAtStart();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    QVERIFY(frame.isMaximized());
    QCOMPARE(frame.normalGeometry().size(), QSize(700, 600));
}

void MainFrameTest::theFirstSizeFitsTheScreen()
{
    const TestFolder folder;
    Answers user;
    CMainFrame frame(user.Dialogs());
    frame.ShowAtStart();
    QVERIFY(QTest::qWaitForWindowExposed(&frame));
    QVERIFY(frame.isMaximized());
    const QSize room = frame.screen()->availableSize();
    const QSize own = frame.normalGeometry().size();
    QVERIFY2(own.width() <= room.width() && own.height() <= room.height(),
             qPrintable(u"%1x%2"_s.arg(own.width()).arg(own.height())));
}

QTEST_MAIN(MainFrameTest)
#include "main_frame_test.moc"
