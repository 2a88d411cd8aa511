#include "answers.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/left_view.h"
#include "frame/settings.h"
#include "grid/grid_ctrl.h"
#include "panels/panel.h"
#include "upperview/chk_view.h"
#include "upperview/figure_pane.h"
#include "upperview/help_view.h"
#include "upperview/up_view.h"

#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

/// A project's window, with the plate girder example.
struct Window {
    TestFolder folder;
    std::unique_ptr<CChildFrame> child;

    Window()
    {
        auto doc = std::make_unique<CKELDSectionDoc>();
        if (doc->OpenDocument(folder.Example(u"plate4"_s)).Ok())
            child = std::make_unique<CChildFrame>(std::move(doc));
    }
};

} // namespace

class ChildFrameTest : public QObject {
    Q_OBJECT

private slots:
    void beginsWithTheControlBlock();
    void switchingShowsTheBlockAndItsPage();
    void anAliasShowsTheBlockBehindIt();
    void theBlockOnShowKeepsItsPanel();
    void aNumberThatIsNoBlockKeepsThePanel();
    void aBlockWithoutAGridShowsABlankPane();
    void everyBlockOfTheMenuOpens();
    void aMenuCommandSelectsTheItemOfItsNumber();
    void aClickInTheTreeSwitches();
    void leavingABlockCommitsIt();
    void aReloadShowsTheBlockAgain();
    void theTitleFollowsPathAndModifiedState();
    void theFocusGoesToAndFro();
    void everyPaneIsReachedAndScrolledByKeysAlone();
    void theNotesAreNoDeadEnd();
    void aPanelWithoutACellShowsNoneOfAnother();
    void theTreeKeepsItsWidth();
    void aLinkOfAPageOpensItsBlockAndTheWayBackTheOldOne();
};

void ChildFrameTest::beginsWithTheControlBlock()
{
    const Window window;
    QCOMPARE(window.child->CurrentBlock(), 301);
    QCOMPARE(window.child->Doc().CurrentBlock(), 301);
    QCOMPARE(window.child->Tree().SelectedNumber(), 301);
    QVERIFY(window.child->Panel() != nullptr);
}

void ChildFrameTest::switchingShowsTheBlockAndItsPage()
{
    const Window window;
    QVERIFY(window.child->SwitchToBlock(313));
    QCOMPARE(window.child->Doc().CurrentBlock(), 313);
    QCOMPARE(window.child->UpView().Help().Cell().block, 313);
}

void ChildFrameTest::anAliasShowsTheBlockBehindIt()
{
    const Window window;
    const std::pair<int, int> aliases[] = {{406, 713}, {567, 482}, {584, 483}, {712, 405}, {714, 514},
                                           {722, 702}, {727, 707}, {732, 405}, {733, 713}};
    for (const auto& [shown, block] : aliases) {
        QVERIFY(window.child->GoToBlock(shown));
        QCOMPARE(window.child->CurrentBlock(), block);
        QCOMPARE(window.child->Doc().CurrentBlock(), block);
        QCOMPARE(window.child->Tree().SelectedNumber(), shown);
    }
}

void ChildFrameTest::theBlockOnShowKeepsItsPanel()
{
    const Window window;
    window.child->SwitchToBlock(713);
    const CPanel* panel = window.child->Panel();
    QVERIFY(window.child->SwitchToBlock(406));
    QVERIFY(window.child->SwitchToBlock(733));
    QCOMPARE(window.child->Panel(), panel);
}

void ChildFrameTest::aNumberThatIsNoBlockKeepsThePanel()
{
    const Window window;
    window.child->SwitchToBlock(313);
    const CPanel* panel = window.child->Panel();
    for (const int number : {-1, 0, 251, 1000, 252, 260, 998}) {
        QVERIFY2(!window.child->SwitchToBlock(number), qPrintable(QString::number(number)));
        QCOMPARE(window.child->Panel(), panel);
        QCOMPARE(window.child->Doc().CurrentBlock(), 313);
    }
    QVERIFY(window.child->SwitchToBlock(301));
}

void ChildFrameTest::aBlockWithoutAGridShowsABlankPane()
{
    const Window window;
    QVERIFY(window.child->SwitchToBlock(255));
    QCOMPARE(window.child->Doc().CurrentBlock(), 255);
    QVERIFY(window.child->UpView().currentWidget() == &window.child->UpView().Chk()); // the report instead
    QVERIFY(window.child->SwitchToBlock(313));
    QVERIFY(window.child->Panel() != nullptr);
}

void ChildFrameTest::everyBlockOfTheMenuOpens()
{
    const Window window;
    for (const TreeRow& row : TreeRows(window.child->Doc().Data())) {
        if (!row.group)
            QVERIFY2(window.child->GoToBlock(row.block), row.text.c_str());
    }
    QVERIFY(!window.child->Doc().IsModified());
}

void ChildFrameTest::aMenuCommandSelectsTheItemOfItsNumber()
{
    const Window window;
    QVERIFY(window.child->GoToBlock(512));
    QCOMPARE(window.child->Tree().SelectedNumber(), 512);
    QVERIFY(window.child->Tree().currentItem()->parent()->isExpanded());
}

void ChildFrameTest::aClickInTheTreeSwitches()
{
    const Window window;
    window.child->show();
    QVERIFY(QTest::qWaitForWindowExposed(window.child.get()));
    QApplication::processEvents(); // the titles get their width
    CLeftView& tree = window.child->Tree();
    QTreeWidgetItem* item = tree.itemBelow(tree.currentItem());
    tree.scrollToItem(item);
    const QRect row = tree.visualItemRect(item); // reaches to the edge of the pane
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, {row.left() + 20, row.center().y()});
    QCOMPARE(window.child->CurrentBlock(), 302);
}

void ChildFrameTest::leavingABlockCommitsIt()
{
    const Window window;
    window.child->SwitchToBlock(313);
    window.child->Doc().SetHelpCell(313, 2, 2);
    window.child->SwitchToBlock(314);
    QVERIFY(window.child->Doc().HelpRow() != 2); // the old panel has said good-bye
}

void ChildFrameTest::aReloadShowsTheBlockAgain()
{
    const Window window;
    window.child->SwitchToBlock(313);
    QVERIFY(window.child->Doc().OpenDocument(window.child->Doc().PathName()).Ok());
    QCOMPARE(window.child->CurrentBlock(), 313);
    QCOMPARE(window.child->Doc().CurrentBlock(), 313);
    QVERIFY(window.child->Panel() != nullptr);
    QVERIFY(!window.child->Doc().IsModified());
}

void ChildFrameTest::theTitleFollowsPathAndModifiedState()
{
    const Window window;
    QCOMPARE(window.child->windowTitle(), u"plate4.sbd[*]"_s);
    QVERIFY(!window.child->isWindowModified());
    window.child->Doc().SetModifiedFlag(true);
    QVERIFY(window.child->isWindowModified());
    QVERIFY(window.child->Doc().SaveDocument(window.folder.Path(u"second.sbd"_s)).Ok());
    QCOMPARE(window.child->windowTitle(), u"second.sbd[*]"_s);
    QVERIFY(!window.child->isWindowModified());
}

void ChildFrameTest::theFocusGoesToAndFro()
{
    const Window window;
    window.child->show();
    window.child->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(window.child.get()));
    window.child->Tree().setFocus();
    window.child->FocusOtherPane();
    QVERIFY(window.child->Panel()->isAncestorOf(QApplication::focusWidget()));
    window.child->FocusOtherPane();
    QVERIFY(window.child->UpView().Help().hasFocus());
    window.child->FocusOtherPane();
    QVERIFY(window.child->Tree().hasFocus());
    window.child->FocusOtherPane(false);
    QVERIFY(window.child->UpView().Help().hasFocus());
    window.child->FocusOtherPane(false);
    QVERIFY(window.child->Panel()->isAncestorOf(QApplication::focusWidget()));
}

void ChildFrameTest::everyPaneIsReachedAndScrolledByKeysAlone()
{
    const Window window;
    CChildFrame& child = *window.child;
    child.resize(1000, 600);
    child.show();
    child.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&child));
    child.Tree().setFocus();
    child.GoToBlock(313);
    child.FocusOtherPane(false);
    CHelpView& help = child.UpView().Help();
    QVERIFY(help.hasFocus());
    QApplication::processEvents();
    QScrollBar* bar = help.verticalScrollBar();
    QVERIFY(bar->maximum() > 0);
    bar->setValue(0);
    QTest::keyClick(&help, Qt::Key_Down);
    const int line = bar->value();
    QVERIFY(line > 0);
    QTest::keyClick(&help, Qt::Key_PageDown);
    QVERIFY(bar->value() > line);
    QTest::keyClick(&help, Qt::Key_End);
    QCOMPARE(bar->value(), bar->maximum());
    QTest::keyClick(&help, Qt::Key_Home);
    QCOMPARE(bar->value(), 0);

    child.ShowHelpPage(false);
    child.Tree().setFocus();
    child.FocusOtherPane(false);
    CFigurePane& figure = child.UpView().Figure();
    QVERIFY(figure.hasFocus());
    QTest::keyClick(&figure, Qt::Key_Right);
    QTest::keyClick(&figure, Qt::Key_Down);
    QCOMPARE(figure.View().panX, 1);
    QCOMPARE(figure.View().panY, 1);
    QTest::keyClick(&figure, Qt::Key_Plus);
    QVERIFY(figure.View().zoom < kFitZoom);
    QTest::keyClick(&figure, Qt::Key_Home);
    QCOMPARE(figure.View().zoom, kFitZoom);
    QCOMPARE(figure.View().panX, 0);

    // What stands beside the grid of the search and of the results: the next stop behind the grid, then Tab.
    for (const int block : {999, 253}) {
        child.GoToBlock(block);
        child.FocusPanel();
        QVERIFY(child.Panel()->Grid()->isAncestorOf(QApplication::focusWidget()) || child.Panel()->Grid()->hasFocus());
        child.FocusOtherPane();
        QWidget* beside = QApplication::focusWidget();
        QVERIFY(child.Panel()->isAncestorOf(beside) && !child.Panel()->Grid()->isAncestorOf(beside));
        QTest::keyClick(beside, Qt::Key_Tab);
        QVERIFY(QApplication::focusWidget() != beside);
        QVERIFY(child.Panel()->isAncestorOf(QApplication::focusWidget()));
        child.FocusOtherPane();
        QVERIFY2(child.UpView().isAncestorOf(QApplication::focusWidget()), qPrintable(QString::number(block)));
    }
}

void ChildFrameTest::theNotesAreNoDeadEnd()
{
    const Window window;
    CChildFrame& child = *window.child;
    child.resize(1000, 600);
    child.show();
    const auto notes = [&child](int block) {
        child.GoToBlock(block);
        child.Doc().SetCurrentBlock(100);
        child.Doc().SetHelpCell(-1, 0, 0);
        child.ShowHelpPage(true);
    };
    for (const int block : {254, 255, 256}) {
        notes(block);
        QVERIFY(child.UpView().currentWidget() == &child.UpView().Help());
        QVERIFY(child.GoToBlock(block)); // by the menu
        QCOMPARE(child.Doc().CurrentBlock(), block);
        QVERIFY(child.UpView().currentWidget() == &child.UpView().Chk());
        notes(block);
        QTest::mouseClick(child.Tree().viewport(), Qt::LeftButton, {},
                          child.Tree().visualItemRect(child.Tree().currentItem()).center());
        QCOMPARE(child.Doc().CurrentBlock(), block); // by a click on the item that is selected already
    }
    notes(313);
    child.Panel()->GoToCell(3, 4); // the page follows the cell again, and so does the name of its picture
    QCOMPARE(child.Doc().CurrentBlock(), 313);
}

void ChildFrameTest::aPanelWithoutACellShowsNoneOfAnother()
{
    const Window window;
    CChildFrame& child = *window.child;
    for (const int before : {313, 999, 253}) {
        for (const int block : {254, 255}) {
            child.GoToBlock(before);
            if (child.Panel() != nullptr)
                child.Panel()->Grid()->SetFocusCell(1, 1);
            child.GoToBlock(block);
            QCOMPARE(child.Doc().HelpBlock(), -1);
        }
    }
}

void ChildFrameTest::theTreeKeepsItsWidth()
{
    const Window window;
    CChildFrame& child = *window.child;
    child.resize(1000, 600);
    child.show();
    child.GoToBlock(313); // its group is open: the tree has a scroll bar
    QApplication::processEvents();
    QVERIFY(child.Tree().verticalScrollBar()->isVisible());
    const PaneSizes first = child.Panes();
    for (int start = 0; start < 3; ++start) { // as the sizes are kept and taken
        child.SetPanes(child.Panes());
        QApplication::processEvents();
    }
    QCOMPARE(child.Panes().left, first.left);
}

void ChildFrameTest::aLinkOfAPageOpensItsBlockAndTheWayBackTheOldOne()
{
    const Window window;
    window.child->SwitchToBlock(313);
    emit window.child->UpView().Help().blockWanted(714); // another number of 514
    QCOMPARE(window.child->CurrentBlock(), 514);
    QCOMPARE(window.child->Doc().CurrentBlock(), 514);
    QCOMPARE(window.child->Tree().SelectedNumber(), 714);
    QCOMPARE(window.child->UpView().Help().Cell().block, 514);
    emit window.child->UpView().Help().blockWanted(313);
    QCOMPARE(window.child->CurrentBlock(), 313);
    QCOMPARE(window.child->Tree().SelectedNumber(), 313);
}

QTEST_MAIN(ChildFrameTest)
#include "child_frame_test.moc"
