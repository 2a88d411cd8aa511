#include "document/section_doc.h"
#include "frame/left_view.h"
#include "tests/document/data_of.h"

#include <QSignalSpy>
#include <QTest>
#include <QTreeWidgetItemIterator>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

QTreeWidgetItem* ItemWithText(QTreeWidget& tree, const QString& text)
{
    for (QTreeWidgetItemIterator it(&tree); *it != nullptr; ++it) {
        if ((*it)->text(0) == text)
            return *it;
    }
    return nullptr;
}

void SetType(CKELDSectionDoc& doc, const char* cp932)
{
    test::DataOf(doc).SetOption(301, 2, cp932);
    test::TellChanged(doc, {301, 2});
}

const char* const kSectionType = "\x92\x66\x96\xCA"; // 断面

} // namespace

class LeftViewTest : public QObject {
    Q_OBJECT

private slots:
    void aClickOnAnItemChoosesItsBlock();
    void aClickOnAGroupChoosesItsFirstBlock();
    void aGroupWhoseNumberIsABlockTooChoosesThatBlock();
    void selectingABlockOpensItsGroupAndChoosesNothing();
    void aBlockThatStandsTwiceIsSelectedInsideItsGroup();
    void anItemThatIsSelectedStaysSelectedAmongItsEquals();
    void aChangeOfTypeRetitlesTheGroupsAndChoosesNothing();
    void aRebuildKeepsWhatIsOpen();
    void contentTurnsBoldWhenTheSelectionMoves();
    void boldStaysUntilTheNextRebuild();
    void enterAsksForThePanel();
    void everyTitleHasItsWholeWidth();
    void aTypedNumberFindsItsBlockInAClosedGroup();
};

void LeftViewTest::aClickOnAnItemChoosesItsBlock()
{
    CKELDSectionDoc doc;
    CLeftView tree(&doc);
    tree.resize(400, 900);
    tree.show();
    QVERIFY(tree.SelectBlock(301));
    const QSignalSpy chosen(&tree, &CLeftView::blockChosen);
    QTreeWidgetItem* item = ItemWithText(tree, u"313.垂直補剛材(必要)"_s);
    QVERIFY(item != nullptr);
    QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, tree.visualItemRect(item).center());
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen[0][0].toInt(), 313);
}

void LeftViewTest::aClickOnAGroupChoosesItsFirstBlock()
{
    CKELDSectionDoc doc;
    CLeftView tree(&doc);
    const QSignalSpy chosen(&tree, &CLeftView::blockChosen);
    tree.setCurrentItem(ItemWithText(tree, u"700.支点上VS・ダイヤの設計"_s));
    QCOMPARE(chosen.count(), 1);
    QCOMPARE(chosen[0][0].toInt(), 503);
}

void LeftViewTest::aGroupWhoseNumberIsABlockTooChoosesThatBlock()
{
    CKELDSectionDoc doc;
    CLeftView tree(&doc);
    const QSignalSpy chosen(&tree, &CLeftView::blockChosen);
    tree.setCurrentItem(ItemWithText(tree, u"640.縦桁の設計(644高さは入力必須)"_s));
    QCOMPARE(chosen[0][0].toInt(), 640);
}

void LeftViewTest::selectingABlockOpensItsGroupAndChoosesNothing()
{
    CKELDSectionDoc doc;
    CLeftView tree(&doc);
    const QSignalSpy chosen(&tree, &CLeftView::blockChosen);
    QVERIFY(tree.SelectBlock(571));
    QCOMPARE(tree.currentItem()->text(0), u"571.下横構設計条件(必要)"_s);
    QVERIFY(tree.currentItem()->parent()->isExpanded());
    QCOMPARE(chosen.count(), 0);
    QVERIFY(!tree.SelectBlock(614));
}

void LeftViewTest::aBlockThatStandsTwiceIsSelectedInsideItsGroup()
{
    CKELDSectionDoc doc;
    CLeftView tree(&doc);
    QVERIFY(tree.SelectBlock(481));
    QVERIFY(tree.currentItem()->parent() != nullptr);
    QVERIFY(tree.SelectBlock(999)); // stands in no group
    QVERIFY(tree.currentItem()->parent() == nullptr);
}

void LeftViewTest::anItemThatIsSelectedStaysSelectedAmongItsEquals()
{
    CKELDSectionDoc doc;
    CLeftView tree(&doc);
    QTreeWidgetItem* group500 = ItemWithText(tree, u"500.CBD共通"_s);
    tree.setCurrentItem(group500->child(0));
    QCOMPARE(tree.SelectedNumber(), 501);
    QVERIFY(tree.SelectBlock(501));
    QCOMPARE(tree.currentItem()->parent(), group500);
    tree.Rebuild();
    QCOMPARE(tree.currentItem()->parent()->text(0), u"500.CBD共通"_s);
}

void LeftViewTest::aChangeOfTypeRetitlesTheGroupsAndChoosesNothing()
{
    CKELDSectionDoc doc;
    CLeftView tree(&doc);
    tree.SelectBlock(301);
    const QSignalSpy chosen(&tree, &CLeftView::blockChosen);
    SetType(doc, kSectionType);
    QVERIFY(ItemWithText(tree, u"300.断面のみ自動設計MAIN_CONTROL"_s) != nullptr);
    QVERIFY(ItemWithText(tree, u"400.製図"_s) == nullptr);
    QCOMPARE(tree.currentItem()->text(0), u"301.断面のみ設計条件_CONTROL(必要)"_s);
    QCOMPARE(chosen.count(), 0);
}

void LeftViewTest::aRebuildKeepsWhatIsOpen()
{
    CKELDSectionDoc doc;
    CLeftView tree(&doc);
    ItemWithText(tree, u"400.製図"_s)->setExpanded(true);
    tree.Rebuild();
    QVERIFY(ItemWithText(tree, u"400.製図"_s)->isExpanded());
    QVERIFY(!ItemWithText(tree, u"500.CBD共通"_s)->isExpanded());
}

void LeftViewTest::contentTurnsBoldWhenTheSelectionMoves()
{
    CKELDSectionDoc doc;
    CLeftView tree(&doc);
    const auto bold = [&] { return ItemWithText(tree, u"405.ソールプレート寸法"_s)->font(0).bold(); };
    test::DataOf(doc).Table(405)->AppendRow({"G1"});
    QVERIFY(!bold());
    tree.setCurrentItem(ItemWithText(tree, u"401.製図基本条件"_s));
    QVERIFY(bold());
}

void LeftViewTest::boldStaysUntilTheNextRebuild()
{
    CKELDSectionDoc doc;
    test::DataOf(doc).Table(405)->AppendRow({"G1"});
    CLeftView tree(&doc);
    const auto bold = [&] { return ItemWithText(tree, u"405.ソールプレート寸法"_s)->font(0).bold(); };
    test::DataOf(doc).ClearBlocks();
    tree.MarkContent();
    QVERIFY(bold());
    tree.Rebuild();
    QVERIFY(!bold());
}

void LeftViewTest::enterAsksForThePanel()
{
    CKELDSectionDoc doc;
    CLeftView tree(&doc);
    const QSignalSpy wanted(&tree, &CLeftView::panelWanted);
    QTest::keyClick(&tree, Qt::Key_Return);
    QCOMPARE(wanted.count(), 1);
}

void LeftViewTest::everyTitleHasItsWholeWidth()
{
    CKELDSectionDoc doc;
    CLeftView tree(&doc);
    tree.resize(100, 600);
    tree.show();
    tree.expandAll();
    int longest = 0;
    const auto checkWidths = [&] {
        QApplication::processEvents();
        longest = 0;
        for (QTreeWidgetItemIterator it(&tree); *it != nullptr; ++it) {
            QFont font = tree.font();
            font.setBold((*it)->font(0).bold());
            const QRect place = tree.visualItemRect(*it);
            const int width = QFontMetrics(font).horizontalAdvance((*it)->text(0));
            QVERIFY2(place.width() >= width, qPrintable((*it)->text(0)));
            QVERIFY(place.height() >= QFontMetrics(font).height());
            longest = std::max(longest, width);
        }
    };
    checkWidths();
    const int longestAtFirst = longest;

    QFont larger = tree.font();
    larger.setPointSize(2 * larger.pointSize());
    tree.setFont(larger);
    checkWidths();
    QVERIFY(longest > longestAtFirst);

    for (QTreeWidgetItemIterator it(&tree); *it != nullptr; ++it) {
        QFont bold = (*it)->font(0);
        bold.setBold(true);
        (*it)->setFont(0, bold);
    }
    checkWidths();
}

void LeftViewTest::aTypedNumberFindsItsBlockInAClosedGroup()
{
    CKELDSectionDoc doc;
    CLeftView tree(&doc);
    tree.resize(300, 300);
    tree.show();
    QVERIFY(QTest::qWaitForWindowExposed(&tree));
    tree.collapseAll();
    tree.setCurrentItem(tree.topLevelItem(0));
    const QSignalSpy chosen(&tree, &CLeftView::blockChosen);
    QTest::keyClicks(&tree, u"734"_s);
    QCOMPARE(tree.SelectedNumber(), 734);
    QCOMPARE(chosen.last().first().toInt(), 734);
    QVERIFY(tree.currentItem()->parent()->isExpanded());
    QVERIFY(tree.viewport()->rect().contains(tree.visualItemRect(tree.currentItem()).center()));
    // At once another one: the fourth figure begins a new number.
    QTest::keyClicks(&tree, u"313"_s);
    QCOMPARE(tree.SelectedNumber(), 313);
    QTest::keyClicks(&tree, u"739"_s); // 73 is the first of the seventies; there is no 739
    QCOMPARE(tree.SelectedNumber(), 731);
    QTest::keyClicks(&tree, u"570"_s); // a group
    QCOMPARE(chosen.last().first().toInt(), 521);
}

QTEST_MAIN(LeftViewTest)
#include "left_view_test.moc"
