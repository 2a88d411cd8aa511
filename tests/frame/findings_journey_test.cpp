#include "frame/command_actions.h"
#include "frame/finding_pane.h"
#include "frame/finding_text.h"
#include "frame/left_view.h"
#include "frame/notice_bar.h"
#include "frame/project_findings.h"
#include "frame/settings.h"
#include "panel_desk.h"
#include "sbdfile/writer.h"
#include "tests/document/data_of.h"

#include <QAction>
#include <QComboBox>
#include <QMenu>
#include <QPointer>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>
#include <QToolButton>

namespace sbd {

class FindingsJourneyTest : public QObject {
    Q_OBJECT

private slots:
    void aShiftedRowIsToldFoundAndRepairedByTheKeyboard();
    void f8StaysInABlockWhoseRowWouldGoWithItsPanel();
    void f8GoesRoundOverTheBlocksAndShiftF8Back();
    void aClickOnTheStatusBarGoesToTheNextFinding();
    void aTextThatItsCellRefusesStaysInTheEditor();
    void rowsThatAreNotWrittenAreToldWhereTheyStand();
    void theTreeMarksTheBlocksAndTheirGroups();
    void marksStandInAPanelThatIsBuiltAnew();
    void theListOpensByKeyAndGoesToTheCell();
    void theListIsFilteredBySeverityAndBlock();
    void kindsAreSwitchedOffForEveryProjectAndTheNextStart();
    void theListIsRemembered();
    void f6ReachesTheList();
    void aSaveSaysThatCellsWillComeBackDifferent();
    void aFileThatWasNotUnderstoodIsToldOnceWithAJump();
    void aFileThatIsNoProjectIsOpenedAllTheSameAndASaveAsksFirst();
    void aSaveOverAForeignFileKeepsItUntilTheUserSaysYes();
    void aPlainFileAsksNothing();
};

namespace {

constexpr auto kHinted = "? 疑い 2"; // of plate4

void EnterTitle(CChildFrame& child, const char* title)
{
    child.SwitchToBlock(302); // the panel of 301 would write its own
    test::DataOf(child.Doc()).SetOption(301, 0, title);
    test::TellChanged(child.Doc(), {301, 0});
    child.Doc().SetModifiedFlag(true);
}

QToolButton* Counts(const Desk& desk)
{
    for (QToolButton* button : desk.frame.statusBar()->findChildren<QToolButton*>())
        if (button->toolTip().contains(u"F8"_s))
            return button;
    return nullptr;
}

QString CountsShown(const Desk& desk)
{
    QToolButton* button = Counts(desk);
    return button == nullptr || button->isHidden() ? QString() : button->text();
}

QString Place(const Desk& desk)
{
    const GridCell focus = desk.Grid().FocusCell();
    return u"%1/%2/%3"_s.arg(desk.Panel().Block()).arg(focus.row).arg(focus.column);
}

QTreeWidgetItem* ItemOf(CLeftView& tree, int block, bool group = false)
{
    for (QTreeWidgetItemIterator it(&tree); *it != nullptr; ++it)
        if ((*it)->text(0).startsWith(QString::number(block)) && ((*it)->childCount() > 0) == group)
            return *it;
    return nullptr;
}

/// Empties a cell of a row of 313 that has others behind it.
void ShiftARow(Desk& desk)
{
    desk.Click(3, 6);
    Press(Qt::Key_Delete);
    QTRY_VERIFY(CountsShown(desk).startsWith(u"! 変わる"_s));
}

QString WriteFile(const Desk& desk, const QByteArray& bytes)
{
    QString path = desk.folder.Path(u"other.sbd"_s);
    QFile file(path);
    if (file.open(QFile::WriteOnly))
        file.write(bytes);
    return path;
}

} // namespace

void FindingsJourneyTest::aShiftedRowIsToldFoundAndRepairedByTheKeyboard()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    QTRY_COMPARE(CountsShown(desk), QString::fromUtf8(kHinted));
    const QString text = desk.Cell(3, 6);
    QVERIFY(!text.isEmpty() && !desk.Cell(3, 7).isEmpty());
    ShiftARow(desk);
    QVERIFY(desk.Grid().Marks().Of(3, 6) == MarkKind::Loss);
    QVERIFY(desk.Grid().Marks().OfRow(3) == MarkKind::Loss);
    QVERIFY(!desk.Grid().Marks().OfRow(4));
    QVERIFY2(desk.Grid().Marks().ToolTip(3, 6).contains(desk.Cell(3, 7)),
             qPrintable(desk.Grid().Marks().ToolTip(3, 6)));
    QVERIFY(!ItemOf(desk.child->Tree(), 313)->icon(0).isNull());

    desk.Go(301);
    Press(Qt::Key_F8);
    QTRY_COMPARE(Place(desk), u"313/3/6"_s);
    QVERIFY(desk.Grid().hasFocus());
    QVERIFY(desk.frame.statusBar()->currentMessage().contains(u"開き直すと"_s));

    Type(text);
    Press(Qt::Key_Return);
    QTRY_COMPARE(CountsShown(desk), QString::fromUtf8(kHinted));
    QVERIFY(!desk.Grid().Marks().OfRow(3));
    QVERIFY(ItemOf(desk.child->Tree(), 313)->icon(0).isNull());
    QVERIFY(QByteArray::fromStdString(WriteProject(desk.child->Doc().Data())) == Bytes(desk.child->Doc().PathName()));
}

void FindingsJourneyTest::f8StaysInABlockWhoseRowWouldGoWithItsPanel()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    desk.Grid().SetFocusCell(3, 1);
    Press(Qt::Key_Delete);
    Press(Qt::Key_Down);
    Press(Qt::Key_Down);
    QTRY_VERIFY(CountsShown(desk).contains(u"変わる"_s));
    for (int i = 0; i < 12; ++i) {
        Press(Qt::Key_F8);
        QCOMPARE(Place(desk).section(u'/', 0, 1), u"313/3"_s); // 523 and 573 have findings too
    }
    QCOMPARE(desk.Cell(3, 3), u"C1"_s);
}

void FindingsJourneyTest::f8GoesRoundOverTheBlocksAndShiftF8Back()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 301));
    const QStringList round{u"523/16/3"_s, u"573/45/2"_s, u"523/16/3"_s};
    for (const QString& place : round) {
        Press(Qt::Key_F8);
        QTRY_COMPARE(Place(desk), place);
    }
    Press(Qt::Key_F8, Qt::ShiftModifier);
    QTRY_COMPARE(Place(desk), u"573/45/2"_s);
    Press(Qt::Key_F8, Qt::ShiftModifier);
    QTRY_COMPARE(Place(desk), u"523/16/3"_s);
    // From where the user has gone on to.
    desk.Click(45, 1);
    desk.Go(573);
    desk.Click(46, 1);
    Press(Qt::Key_F8, Qt::ShiftModifier);
    QTRY_COMPARE(Place(desk), u"573/45/2"_s);
}

void FindingsJourneyTest::aClickOnTheStatusBarGoesToTheNextFinding()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 301));
    QTRY_COMPARE(CountsShown(desk), QString::fromUtf8(kHinted));
    QTest::mouseClick(Counts(desk), Qt::LeftButton);
    QTRY_COMPARE(Place(desk), u"523/16/3"_s);
    QVERIFY(desk.Grid().hasFocus());
}

void FindingsJourneyTest::aTextThatItsCellRefusesStaysInTheEditor()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 311));
    int row = 5;
    while (row < 20 && desk.Cell(row, 5).isEmpty())
        ++row;
    desk.Click(row, 5);
    Type(u"abc"_s);
    QVERIFY(desk.Grid().IsEditing());
    Press(Qt::Key_F8);
    QApplication::processEvents();
    QCOMPARE(desk.told.size(), 1);
    QCOMPARE(desk.child->CurrentBlock(), 311);
    QVERIFY(desk.Grid().IsEditing());
}

void FindingsJourneyTest::rowsThatAreNotWrittenAreToldWhereTheyStand()
{
    Desk desk;
    QVERIFY(desk.isActive);
    desk.Open(desk.EmptyProject(), 314);
    desk.Click(3, 6); // of a row without its first cell
    Type(u"180"_s);
    Press(Qt::Key_Return);
    QTRY_VERIFY(desk.Grid().Marks().Of(3, 6) == MarkKind::Loss);
    QVERIFY(desk.Grid().Marks().ToolTip(3, 6).contains(u"書かれません"_s));
    desk.Click(3, 1);
    Type(u"G1"_s);
    Press(Qt::Key_Return);
    QTRY_VERIFY(!desk.Grid().Marks().ToolTip(3, 6).contains(u"書かれません"_s));
}

void FindingsJourneyTest::theTreeMarksTheBlocksAndTheirGroups()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    CLeftView& tree = desk.child->Tree();
    QTRY_VERIFY(!ItemOf(tree, 523)->icon(0).isNull());
    const QString title = ItemOf(tree, 523)->text(0);
    QVERIFY(!ItemOf(tree, 520, true)->icon(0).isNull());
    QVERIFY(ItemOf(tree, 300, true)->icon(0).isNull());
    QVERIFY(ItemOf(tree, 313)->icon(0).isNull());
    QVERIFY(ItemOf(tree, 313)->font(0).bold());
    tree.Rebuild();
    QVERIFY(!ItemOf(tree, 523)->icon(0).isNull());
    QCOMPARE(ItemOf(tree, 523)->text(0), title);
    ShiftARow(desk);
    QVERIFY(!ItemOf(tree, 313)->icon(0).isNull());
    QVERIFY(ItemOf(tree, 313)->font(0).bold());
    QVERIFY(!ItemOf(tree, 300, true)->icon(0).isNull());
    desk.frame.RunCommand(Command::Undo);
    QTRY_VERIFY(ItemOf(tree, 313)->icon(0).isNull());
    QVERIFY(ItemOf(tree, 300, true)->icon(0).isNull());
}

void FindingsJourneyTest::marksStandInAPanelThatIsBuiltAnew()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    ShiftARow(desk);
    desk.frame.RunCommand(Command::RowsHigher);
    QVERIFY(desk.Grid().Marks().Of(3, 6) == MarkKind::Loss);
    desk.Go(301);
    QVERIFY(!desk.Grid().Marks().OfRow(3));
    desk.Go(313);
    QVERIFY(desk.Grid().Marks().Of(3, 6) == MarkKind::Loss);
}

void FindingsJourneyTest::theListOpensByKeyAndGoesToTheCell()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    ShiftARow(desk);
    desk.Go(301);
    Press(Qt::Key_F8, Qt::ControlModifier);
    QTableView* lines = desk.child->Findings().Pane()->Lines();
    QTRY_VERIFY(lines->isVisible());
    QTRY_VERIFY(lines->hasFocus());
    QVERIFY(desk.frame.Actions().Of(Command::FindingList)->isChecked());
    const auto cell = [lines](int row, int column) { return lines->model()->index(row, column).data().toString(); };
    QVERIFY(lines->model()->rowCount() >= 4);
    QCOMPARE(cell(0, 0), u"変わる"_s);
    QVERIFY2(cell(0, 1).startsWith(u"313 "_s), qPrintable(cell(0, 1)));
    QCOMPARE(cell(0, 2), u"3"_s);
    QVERIFY2(cell(0, 3).startsWith(u"6 "_s), qPrintable(cell(0, 3)));
    QCOMPARE(cell(0, 4), QString());
    QVERIFY(!cell(0, 5).isEmpty());
    QVERIFY(cell(0, 6).contains(u"確かめてください"_s));

    lines->selectRow(0);
    Press(Qt::Key_Return);
    QTRY_COMPARE(Place(desk), u"313/3/6"_s);
    QVERIFY(desk.Grid().hasFocus());

    const QRect last = lines->visualRect(lines->model()->index(lines->model()->rowCount() - 1, 6));
    lines->scrollToBottom();
    const QPoint at =
        lines->visualRect(lines->model()->index(lines->model()->rowCount() - 1, 6)).topLeft() + QPoint(20, 4);
    Q_UNUSED(last)
    QTest::mouseClick(lines->viewport(), Qt::LeftButton, {}, at);
    QTest::mouseDClick(lines->viewport(), Qt::LeftButton, {}, at);
    QTRY_COMPARE(Place(desk), u"573/45/2"_s);

    Press(Qt::Key_F8, Qt::ControlModifier);
    QTRY_VERIFY(!lines->isVisible());
    QVERIFY(!desk.frame.Actions().Of(Command::FindingList)->isChecked());
}

void FindingsJourneyTest::theListIsFilteredBySeverityAndBlock()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    ShiftARow(desk);
    desk.frame.RunCommand(Command::FindingList);
    CFindingPane& pane = *desk.child->Findings().Pane();
    const auto blocks = [&] {
        QStringList shown;
        for (int row = 0; row < pane.Lines()->model()->rowCount(); ++row)
            shown << pane.Lines()->model()->index(row, 1).data().toString().left(3);
        shown.removeDuplicates();
        return shown;
    };
    QCOMPARE(blocks(), (QStringList{u"313"_s, u"523"_s, u"573"_s}));
    pane.SeverityFilter()->setFocus();
    Press(Qt::Key_Down); // the first severity
    QTRY_COMPARE(blocks(), QStringList{u"313"_s});
    Press(Qt::Key_Down);
    QTRY_COMPARE(blocks(), (QStringList{u"523"_s, u"573"_s}));
    Press(Qt::Key_Home);
    pane.BlockFilter()->setFocus();
    Press(Qt::Key_Down); // the block on show
    QTRY_COMPARE(blocks(), QStringList{u"313"_s});
    desk.child->GoToBlock(523);
    QTRY_COMPARE(blocks(), QStringList{u"523"_s});
}

void FindingsJourneyTest::kindsAreSwitchedOffForEveryProjectAndTheNextStart()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    QTRY_COMPARE(CountsShown(desk), QString::fromUtf8(kHinted));
    const QList<QAction*> kinds = desk.child->Findings().Pane()->Kinds()->actions();
    QCOMPARE(std::size_t(kinds.size()), SwitchableKinds().size());
    CChildFrame* other = desk.frame.OpenProject(desk.folder.Example(u"plate4"_s, u"second"_s));
    QVERIFY(other != nullptr && other != desk.child);
    kinds[0]->trigger();
    QTRY_COMPARE(desk.child->Findings().Check().Counts()[2], std::size_t(1));
    QTRY_COMPARE(other->Findings().Check().Counts()[2], std::size_t(1));
    QVERIFY(!other->Findings().Pane()->Kinds()->actions()[0]->isChecked());
    QVERIFY(CSettings().SilentFindings() == SilentKinds{FindingKind::UnknownName});
    CChildFrame* third = desk.frame.OpenProject(desk.folder.Example(u"plate4"_s, u"third"_s));
    QTRY_COMPARE(third->Findings().Check().Counts()[2], std::size_t(1));
    kinds[0]->trigger();
    QTRY_COMPARE(third->Findings().Check().Counts()[2], std::size_t(2));
}

void FindingsJourneyTest::theListIsRemembered()
{
    const TestFolder folder;
    Answers user;
    CMainFrame frame{user.Dialogs()};
    frame.show();
    CChildFrame* first = frame.NewProject();
    QVERIFY(!first->Findings().ShowsPane());
    frame.RunCommand(Command::FindingList);
    QVERIFY(first->Findings().ShowsPane());
    CMainFrame next{user.Dialogs()};
    next.show();
    CChildFrame* again = next.NewProject();
    QVERIFY(again->Findings().ShowsPane());
    next.RunCommand(Command::FindingList);
    QVERIFY(!again->Findings().ShowsPane());
    QVERIFY(!CSettings().ShowsFindings());
}

void FindingsJourneyTest::f6ReachesTheList()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    desk.frame.RunCommand(Command::FindingList);
    desk.child->FocusPanel();
    bool reached = false;
    for (int i = 0; i < 5 && !reached; ++i) {
        Press(Qt::Key_F6);
        reached = desk.child->Findings().Pane()->Lines()->hasFocus();
    }
    QVERIFY(reached);
}

void FindingsJourneyTest::aSaveSaysThatCellsWillComeBackDifferent()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    ShiftARow(desk);
    desk.frame.statusBar()->clearMessage();
    Press(Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(!desk.child->Doc().IsModified());
    QVERIFY2(desk.frame.statusBar()->currentMessage().contains(u"開き直すと変わります"_s),
             qPrintable(desk.frame.statusBar()->currentMessage()));
    QVERIFY(desk.user.asked.isEmpty() && desk.user.warned.isEmpty());
    desk.frame.RunCommand(Command::Undo);
    desk.frame.statusBar()->clearMessage();
    Press(Qt::Key_S, Qt::ControlModifier);
    QTRY_VERIFY(!desk.child->Doc().IsModified());
    QVERIFY(!desk.frame.statusBar()->currentMessage().contains(u"変わります"_s));
}

void FindingsJourneyTest::aFileThatWasNotUnderstoodIsToldOnceWithAJump()
{
    Desk desk;
    QVERIFY(desk.isActive);
    // The end line of the first section is missing: the second one became its rows.
    desk.Open(WriteFile(desk, "[SEC_S_STIFF]\r\n G1 G4 S1 S1 A 180 19 SM400\r\n[SEC_GROUP]\r\n G1 G4\r\n[END]\r\n"),
              301);
    CNoticeBar& notices = desk.child->Notices();
    QCOMPARE(notices.Texts().size(), 1);
    QVERIFY2(notices.Texts()[0].contains(u"行目"_s), qPrintable(notices.Texts()[0]));
    const QList<QPushButton*> buttons = notices.findChildren<QPushButton*>();
    QCOMPARE(buttons.size(), 2);
    buttons[0]->click();
    QCOMPARE(desk.child->CurrentBlock(), 314);
    QVERIFY(notices.isVisible()); // until it is closed
    buttons[1]->click();
    QVERIFY(desk.child->Findings().ShowsPane());
    QCOMPARE(desk.child->Findings().Pane()->Lines()->model()->index(0, 0).data().toString(), u"読込み"_s);
    notices.findChild<QToolButton*>()->click();
    QVERIFY(!notices.isVisible());
    desk.Go(302);
    QVERIFY(!notices.isVisible());
    desk.child->ChangeProject([&] { QVERIFY(desk.child->Doc().Reload()); }); // as behind a run
    QVERIFY(!notices.isVisible());
}

void FindingsJourneyTest::aFileThatIsNoProjectIsOpenedAllTheSameAndASaveAsksFirst()
{
    Desk desk;
    QVERIFY(desk.isActive);
    const QByteArray bytes("\x00\x01\x02 not a project\r\n", 20);
    const QString path = WriteFile(desk, bytes);
    desk.Open(path, 301);
    QVERIFY(desk.user.asked.isEmpty() && desk.user.warned.isEmpty());
    QCOMPARE(desk.child->Notices().Texts().size(), 1);
    QVERIFY(desk.child->Notices().Texts()[0].contains(u"プロジェクトとして読めない"_s));

    EnterTitle(*desk.child, "TITLE");
    desk.frame.RunCommand(Command::Save);
    QCOMPARE(desk.user.asked.size(), 1);
    QVERIFY(desk.user.asked[0].contains(path));
    QCOMPARE(Bytes(path), bytes);
    QVERIFY(desk.child->Doc().IsModified());

    desk.user.yes = {true};
    desk.frame.RunCommand(Command::Save);
    QCOMPARE(desk.user.asked.size(), 2);
    QVERIFY(Bytes(path) != bytes);
    QVERIFY(!desk.child->Doc().IsModified());
    EnterTitle(*desk.child, "SECOND");
    desk.frame.RunCommand(Command::Save);
    QCOMPARE(desk.user.asked.size(), 2); // it is a project now
    desk.child->Doc().SetModifiedFlag(false);
}

void FindingsJourneyTest::aSaveOverAForeignFileKeepsItUntilTheUserSaysYes()
{
    Desk desk;
    QVERIFY(desk.isActive);
    const QByteArray bytes("[SEC_GROUP]\r\n 主桁 横桁 断面\r\n 補剛材 継手\r\n[END]\r\n");
    const QString path = WriteFile(desk, bytes);
    desk.Open(path, 301);
    QCOMPARE(desk.child->Notices().Texts().size(), 1);
    QVERIFY2(desk.child->Notices().Texts()[0].contains(u"UTF-8"_s), qPrintable(desk.child->Notices().Texts()[0]));
    EnterTitle(*desk.child, "TITLE");
    desk.frame.RunCommand(Command::Save);
    QCOMPARE(desk.user.asked.size(), 1);
    QCOMPARE(Bytes(path), bytes);
    // Another project over the same file asks as well.
    CChildFrame* other = desk.frame.OpenProject(desk.folder.Example(u"plate4"_s));
    desk.child->Doc().SetModifiedFlag(false);
    const QPointer<CChildFrame> first = desk.child;
    desk.child->close();
    QVERIFY(other != nullptr);
    QTRY_VERIFY(first == nullptr); // and with it its lock
    desk.user.saveFile = path;
    desk.frame.RunCommand(Command::SaveAs);
    QVERIFY2(desk.user.warned.isEmpty(), qPrintable(desk.user.warned.join(u' ')));
    QCOMPARE(desk.user.asked.size(), 2);
    QCOMPARE(Bytes(path), bytes);
}

void FindingsJourneyTest::aPlainFileAsksNothing()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 301));
    QVERIFY(desk.child->Notices().Texts().isEmpty());
    EnterTitle(*desk.child, "TITLE");
    desk.frame.RunCommand(Command::Save);
    QVERIFY(desk.user.asked.isEmpty());
    QVERIFY(!desk.child->Doc().IsModified());
}

} // namespace sbd

using sbd::FindingsJourneyTest;
QTEST_MAIN(FindingsJourneyTest)
#include "findings_journey_test.moc"
