// The tree under its filter: what is left, what stands behind the titles, and the menu.
#include "document/section_doc.h"
#include "frame/left_view.h"
#include "frame/tail_delegate.h"
#include "frame/tree_pane.h"
#include "project/text.h"
#include "tests/document/data_of.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QTreeWidgetItemIterator>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

QTreeWidgetItem* ItemOf(QTreeWidget& tree, int block)
{
    for (QTreeWidgetItemIterator it(&tree); *it != nullptr; ++it)
        if ((*it)->childCount() == 0 && (*it)->text(0).startsWith(QString::number(block)))
            return *it;
    return nullptr;
}

QString Tail(QTreeWidget& tree, int block)
{
    const QTreeWidgetItem* item = ItemOf(tree, block);
    return item == nullptr ? u"?"_s : item->data(0, CTailDelegate::kTailRole).toString();
}

bool Alerts(QTreeWidget& tree, int block)
{
    return ItemOf(tree, block)->data(0, CTailDelegate::kAlertRole).toBool();
}

/// The numbers of the blocks in sight.
QStringList Shown(QTreeWidget& tree)
{
    QStringList shown;
    for (QTreeWidgetItemIterator it(&tree); *it != nullptr; ++it) {
        const QTreeWidgetItem* head = (*it)->parent();
        const bool inSight = !(*it)->isHidden() && (head == nullptr || (!head->isHidden() && head->isExpanded()));
        if (inSight && (*it)->childCount() == 0)
            shown << (*it)->text(0).left(3);
    }
    return shown;
}

struct Pane {
    CKELDSectionDoc doc;
    CTreePane pane{&doc};
    CLeftView& tree = pane.Tree();

    Pane()
    {
        pane.resize(400, 900);
        pane.show();
        pane.activateWindow();
        (void)QTest::qWaitForWindowActive(&pane);
        tree.SelectBlock(301);
    }
    void Filter(const QString& line)
    {
        pane.Line().setFocus();
        pane.Line().setText(line);
    }
    /// Opens the menu with the right button and hands it to `look`.
    void WithMenu(int block, const std::function<void(QMenu&)>& look)
    {
        const QPoint at = block == 0 ? QPoint(300, 880) : tree.visualItemRect(ItemOf(tree, block)).center();
        bool looked = false;
        QTimer::singleShot(0, &tree, [&] {
            if (auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget())) {
                look(*menu);
                looked = true;
                menu->close();
            }
        });
        QTest::mousePress(tree.viewport(), Qt::RightButton, {}, at);
        QContextMenuEvent event(QContextMenuEvent::Mouse, at, tree.viewport()->mapToGlobal(at));
        QApplication::sendEvent(tree.viewport(), &event);
        QTest::mouseRelease(tree.viewport(), Qt::RightButton, {}, at);
        QVERIFY(looked);
    }
};

QAction* Entry(const QMenu& menu, const QString& part)
{
    for (QAction* action : menu.actions())
        if (action->text().contains(part))
            return action;
    return nullptr;
}

} // namespace

class TreePaneTest : public QObject {
    Q_OBJECT

private slots:
    void titlesNumbersAndTagsFilter();
    void otherSpellingsAndWordsFilterToo();
    void theNameOfAGroupLeavesAllOfIt();
    void anEmptyLineShowsWhatWasOpenBefore();
    void enterChoosesTheFirstAndEscGivesUp();
    void whatIsGoneToIsInSightWhateverTheFilter();
    void aRebuildKeepsTheFilter();
    void nothingLeftIsSaid();
    void filledRowsStandBehindTheTitle();
    void aNeededBlockWithoutRowsAsksForThem();
    void theRightButtonDoesNotSwitchTheBlock();
    void theMenuOpensAndClosesAllAndShowsOnlyFilledBlocks();
    void theHighlightReachesTheEdge();
};

void TreePaneTest::titlesNumbersAndTagsFilter()
{
    Pane pane;
    pane.Filter(u"313"_s);
    QCOMPARE(Shown(pane.tree), QStringList{u"313"_s});
    pane.Filter(u"SEC_V_STIFF"_s);
    QCOMPARE(Shown(pane.tree), QStringList{u"313"_s});
    pane.Filter(u"ｓｅｃ_v　stiff"_s);
    QCOMPARE(Shown(pane.tree), QStringList{u"313"_s});
    pane.Filter(u"水平補剛材"_s);
    const QStringList shown = Shown(pane.tree);
    QVERIFY(shown.contains(u"315"_s) && shown.contains(u"606"_s) && !shown.contains(u"313"_s));
}

void TreePaneTest::otherSpellingsAndWordsFilterToo()
{
    Pane pane;
    pane.Filter(u"ダイヤフラム"_s);
    const QStringList one = Shown(pane.tree);
    pane.Filter(u"ダイアフラム"_s);
    QCOMPARE(Shown(pane.tree), one);
    QVERIFY(one.contains(u"741"_s));
    pane.Filter(u"腹板"_s);
    QVERIFY(Shown(pane.tree).contains(u"331"_s)); // WEB
}

void TreePaneTest::theNameOfAGroupLeavesAllOfIt()
{
    Pane pane;
    pane.Filter(u"FEM_全橋モデル"_s);
    QVERIFY(Shown(pane.tree).contains(u"601"_s) && Shown(pane.tree).contains(u"633"_s));
    QVERIFY(!Shown(pane.tree).contains(u"313"_s));
}

void TreePaneTest::anEmptyLineShowsWhatWasOpenBefore()
{
    Pane pane;
    pane.tree.collapseAll();
    ItemOf(pane.tree, 401)->parent()->setExpanded(true);
    pane.tree.SelectBlock(301);
    const QStringList before = Shown(pane.tree);
    pane.Filter(u"横桁"_s);
    QVERIFY(Shown(pane.tree) != before);
    pane.Filter(u""_s);
    QCOMPARE(Shown(pane.tree), before);
}

void TreePaneTest::enterChoosesTheFirstAndEscGivesUp()
{
    Pane pane;
    QVERIFY(pane.tree.hasFocus()); // not the line: digits are for the tree
    const QSignalSpy chosen(&pane.tree, &CLeftView::blockChosen);
    pane.Filter(u"垂直補剛材"_s);
    QCOMPARE(chosen.count(), 0); // typing switches nothing
    QTest::keyClick(&pane.pane.Line(), Qt::Key_Return);
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen[0][0].toInt(), 313);
    QVERIFY(pane.tree.hasFocus());
    pane.pane.Line().setFocus();
    QTest::keyClick(&pane.pane.Line(), Qt::Key_Escape);
    QVERIFY(pane.pane.Line().text().isEmpty());
    QVERIFY(pane.tree.hasFocus());
    QVERIFY(Shown(pane.tree).contains(u"301"_s));
    QCOMPARE(pane.tree.SelectedNumber(), 313);
}

void TreePaneTest::whatIsGoneToIsInSightWhateverTheFilter()
{
    Pane pane;
    pane.Filter(u"313"_s);
    QVERIFY(pane.tree.SelectBlock(571));
    QVERIFY(Shown(pane.tree).contains(u"571"_s));
    pane.tree.setFocus();
    QTest::keyClicks(&pane.tree, u"734"_s);
    QCOMPARE(pane.tree.SelectedNumber(), 734);
    QVERIFY(Shown(pane.tree).contains(u"734"_s));
}

void TreePaneTest::aRebuildKeepsTheFilter()
{
    Pane pane;
    pane.Filter(u"313"_s);
    TreeView view;
    view.language = TitleLanguage::English;
    pane.tree.SetView(view);
    QCOMPARE(Shown(pane.tree), QStringList{u"313"_s});
    pane.Filter(u"垂直補剛材"_s); // whatever the language
    QVERIFY(Shown(pane.tree).contains(u"313"_s));
}

void TreePaneTest::nothingLeftIsSaid()
{
    Pane pane;
    auto* label = pane.pane.findChild<QLabel*>();
    QVERIFY(!label->isVisible());
    pane.Filter(u"冷蔵庫"_s);
    QVERIFY(Shown(pane.tree).isEmpty());
    QVERIFY(label->isVisible());
    pane.Filter(u""_s);
    QVERIFY(!label->isVisible());
}

void TreePaneTest::filledRowsStandBehindTheTitle()
{
    Pane pane;
    QCOMPARE(Tail(pane.tree, 405), QString());
    TableBlock& table = *test::DataOf(pane.doc).Table(405);
    table.AppendRow({"G1"});
    table.AppendRow({});
    table.AppendRow({"G2"});
    test::TellChanged(pane.doc, {405, -1});
    QCOMPARE(Tail(pane.tree, 405), u"2行"_s); // the blank one is no input
    QVERIFY(!Alerts(pane.tree, 405));
    QCOMPARE(Tail(pane.tree, 302), QString()); // options have no rows of their own
}

void TreePaneTest::aNeededBlockWithoutRowsAsksForThem()
{
    Pane pane;
    QCOMPARE(Tail(pane.tree, 313), u"未入力"_s);
    QVERIFY(Alerts(pane.tree, 313));
    QVERIFY(!Alerts(pane.tree, 315)); // not needed
    QVERIFY(!Alerts(pane.tree, 324)); // in box girders alone
    TableBlock& table = *test::DataOf(pane.doc).Table(313);
    const std::string switchWord = Cp932("自動計算(YES_NO)");
    table.AppendRow({switchWord, "YES"});
    test::TellChanged(pane.doc, {313, -1});
    QCOMPARE(Tail(pane.tree, 313), QString()); // left to the automatic design
    table.AppendRow({"G1"});
    test::TellChanged(pane.doc, {313, -1});
    QCOMPARE(Tail(pane.tree, 313), u"1行"_s);
}

void TreePaneTest::theRightButtonDoesNotSwitchTheBlock()
{
    Pane pane;
    const QSignalSpy chosen(&pane.tree, &CLeftView::blockChosen);
    const QSignalSpy pressed(&pane.tree, &CLeftView::itemWasPressed);
    pane.WithMenu(305, [](QMenu& menu) { QVERIFY(Entry(menu, u"305"_s) != nullptr); });
    QCOMPARE(chosen.count(), 0);
    QCOMPARE(pressed.count(), 0);
    QCOMPARE(pane.tree.SelectedNumber(), 301);
    pane.WithMenu(305, [](QMenu& menu) { Entry(menu, u"305"_s)->trigger(); }); // unless it is asked to
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen[0][0].toInt(), 305);
    QCOMPARE(pane.tree.SelectedNumber(), 305);
}

void TreePaneTest::theMenuOpensAndClosesAllAndShowsOnlyFilledBlocks()
{
    Pane pane;
    pane.tree.addToMenu = [](QMenu& menu) { menu.addAction(u"and more"_s); };
    pane.WithMenu(301, [](QMenu& menu) {
        QVERIFY(Entry(menu, u"and more"_s) != nullptr);
        Entry(menu, u"すべて開く"_s)->trigger();
    });
    QVERIFY(Shown(pane.tree).contains(u"734"_s) && Shown(pane.tree).contains(u"401"_s));
    pane.tree.scrollToTop();
    pane.WithMenu(999, [](QMenu& menu) { Entry(menu, u"すべて閉じる"_s)->trigger(); });
    QVERIFY(!Shown(pane.tree).contains(u"734"_s));
    QCOMPARE(pane.tree.SelectedNumber(), 301);
    test::DataOf(pane.doc).Table(405)->AppendRow({"G1"});
    test::TellChanged(pane.doc, {405, -1});
    pane.WithMenu(999, [](QMenu& menu) { Entry(menu, u"入力のある"_s)->trigger(); });
    QVERIFY(pane.tree.ShowsOnlyFilled());
    const QStringList filled = Shown(pane.tree);
    QVERIFY(filled.contains(u"405"_s) && filled.contains(u"301"_s));
    QVERIFY(!filled.contains(u"406"_s) && !filled.contains(u"313"_s)); // needed, but empty
    pane.Filter(u"301"_s);
    QCOMPARE(Shown(pane.tree), QStringList{u"301"_s}); // both at once
    pane.Filter(u""_s);
    pane.tree.ShowOnlyFilled(false);
    QVERIFY(Shown(pane.tree).contains(u"313"_s));
}

void TreePaneTest::theHighlightReachesTheEdge()
{
    Pane pane;
    pane.pane.resize(900, 600);
    QApplication::processEvents();
    QCOMPARE(pane.tree.header()->sectionSize(0), pane.tree.viewport()->width());
    QVERIFY(pane.tree.visualItemRect(ItemOf(pane.tree, 301)).right() >= pane.tree.viewport()->width() - 2);
    pane.pane.resize(120, 600);
    QApplication::processEvents();
    QVERIFY(pane.tree.header()->sectionSize(0) > pane.tree.viewport()->width()); // long titles scroll
}

QTEST_MAIN(TreePaneTest)
#include "tree_pane_test.moc"
