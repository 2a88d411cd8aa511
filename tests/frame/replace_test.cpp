#include "frame/notice_bar.h"
#include "frame/project_findings.h"
#include "frame/project_replace.h"
#include "frame/replace_pane.h"
#include "grid/cell_editor.h"
#include "panel_desk.h"
#include "panels/input_panel.h"
#include "project/text.h"
#include "sbdfile/writer.h"
#include "tests/document/data_of.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QStatusBar>
#include <QTableView>

namespace sbd {

/// Find and replace by keys and mouse, in the window of a project.
class ReplaceTest : public QObject {
    Q_OBJECT

private slots:
    void ctrlFLeadsFromCellToCellAndRoundAgain();
    void f3GoesOnWithoutThePane();
    void theTextOfTheCellIsLookedFor();
    void aReplaceInTheBlockIsOneStep();
    void whatWasReplacedIsNotSaidBehindAnUndo();
    void aReplaceInTheProjectIsOneStepOverAllBlocks();
    void aLineThatIsTickedOffStays();
    void whatStaysIsListedWithItsReason();
    void rowsThatAreNotCompleteYetAreReplacedAndComeBack();
    void rowsOutOfSightStay();
    void anEditBehindTheListIsSeen();
    void aCharacterThatNoCellHoldsIsNamed();
    void aProjectWithoutAGridOnShowIsReplacedToo();
    void whatTheFileWouldNotGiveBackIsSaidBefore();
    void theKeysWorkWhileTheEditorIsOpen();
    void aPaneThatOpensLeavesTheFocusInSight();
    void aPasteThatIsTooWideBarsNoWay();
};

namespace {

CReplacePane& Pane(const Desk& desk)
{
    return *desk.child->Replace().Pane();
}

QByteArray Project(const Desk& desk)
{
    return QByteArray::fromStdString(WriteProject(desk.child->Doc().Data()));
}

QString Place(const Desk& desk)
{
    const GridCell focus = desk.Grid().FocusCell();
    return u"%1/%2/%3"_s.arg(desk.Panel().Block()).arg(focus.row).arg(focus.column);
}

/// Ctrl+H, the two texts typed, Tab between them.
void Ask(const Desk& desk, const QString& wanted, const QString& by, bool project, bool whole = true)
{
    Press(Qt::Key_H, Qt::ControlModifier);
    Type(wanted);
    Press(Qt::Key_Tab);
    Press(Qt::Key_A, Qt::ControlModifier);
    if (by.isEmpty())
        Press(Qt::Key_Delete);
    else
        Type(by);
    Pane(desk).Scope()->setCurrentIndex(project ? 1 : 0);
    Pane(desk).WholeCell()->setChecked(whole);
    desk.child->Replace().LookNow();
    QApplication::processEvents();
}

void ClickReplace(const Desk& desk)
{
    QTest::mouseClick(Pane(desk).ReplaceButton(), Qt::LeftButton);
    QApplication::processEvents();
}

int CellsOf(const Desk& desk, int block, std::string_view text)
{
    int count = 0;
    for (const CColumnVector& column : desk.child->Doc().Data().Table(block)->columns)
        for (std::size_t row = 0; row < column.size(); ++row)
            count += column[row] == text ? 1 : 0;
    return count;
}

/// 313 with rows of which some hold G1, one G10.
void FillBlock(Desk& desk)
{
    CSbdData& data = test::DataOf(desk.child->Doc());
    TableBlock& table = *data.Table(313);
    table = {};
    table.columns.resize(9);
    table.AppendRow({Cp932("自動計算(YES_NO)"), "YES_1"});
    for (const std::string name : {"G1", "G2", "G1", "G10"})
        table.AppendRow({name, "G4", "A1", "A2", Cp932("両面"), "110", "9", "2", "1000"});
    test::TellChanged(desk.child->Doc(), {313, -1});
    desk.child->Doc().SetModifiedFlag(false);
    QApplication::processEvents();
}

} // namespace

void ReplaceTest::ctrlFLeadsFromCellToCellAndRoundAgain()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    FillBlock(desk);
    desk.Grid().SetFocusCell(2, 6);
    Press(Qt::Key_F, Qt::ControlModifier);
    QVERIFY(Pane(desk).isVisible());
    QVERIFY(!Pane(desk).ByLine()->isVisible());
    Type(u"g1"_s);
    Press(Qt::Key_Return);
    QCOMPARE(Place(desk), u"313/4/1"_s);
    QVERIFY2(Pane(desk).WantedLine()->hasFocus(), "the keyboard stays in the line");
    Press(Qt::Key_Return);
    QCOMPARE(Place(desk), u"313/5/1"_s);
    Press(Qt::Key_Return);
    QCOMPARE(Place(desk), u"313/2/1"_s);
    Press(Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(Place(desk), u"313/5/1"_s);
    QVERIFY2(desk.frame.statusBar()->currentMessage().contains(u"3 / 3 件目"_s),
             qPrintable(desk.frame.statusBar()->currentMessage()));
    Press(Qt::Key_Escape);
    QVERIFY(!Pane(desk).isVisible());
    QVERIFY(desk.Grid().hasFocus());
    QVERIFY(!desk.child->Doc().IsModified());
}

void ReplaceTest::f3GoesOnWithoutThePane()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    FillBlock(desk);
    desk.Grid().SetFocusCell(1, 2);
    Press(Qt::Key_F, Qt::ControlModifier);
    Type(u"G10"_s);
    Press(Qt::Key_Escape);
    Press(Qt::Key_F3);
    QCOMPARE(Place(desk), u"313/5/1"_s);
    QVERIFY(desk.Grid().hasFocus());
    Press(Qt::Key_F, Qt::ControlModifier);
    Type(u"no such text"_s);
    Press(Qt::Key_Escape);
    Press(Qt::Key_F3, Qt::ShiftModifier);
    QCOMPARE(Place(desk), u"313/5/1"_s);
    QVERIFY(desk.frame.statusBar()->currentMessage().contains(u"ありません"_s));
}

void ReplaceTest::theTextOfTheCellIsLookedFor()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    FillBlock(desk);
    desk.Grid().SetFocusCell(5, 1);
    Press(Qt::Key_H, Qt::ControlModifier);
    QCOMPARE(Pane(desk).WantedLine()->text(), u"G10"_s);
    QCOMPARE(Pane(desk).WantedLine()->selectedText(), u"G10"_s);
    QVERIFY(Pane(desk).ByLine()->isVisible());
}

void ReplaceTest::aReplaceInTheBlockIsOneStep()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    FillBlock(desk);
    const QByteArray before = Project(desk);
    desk.Grid().SetFocusCell(3, 2);
    Ask(desk, u"g1"_s, u"GA"_s, false);
    QCOMPARE(Pane(desk).Hits().size(), 2U);
    QVERIFY2(Pane(desk).Said().contains(u"置換する 2 件"_s), qPrintable(Pane(desk).Said()));
    QCOMPARE(Project(desk), before); // the list alone changes nothing
    ClickReplace(desk);
    QCOMPARE(desk.Cell(2, 1), u"GA"_s);
    QCOMPARE(desk.Cell(4, 1), u"GA"_s);
    QCOMPARE(desk.Cell(5, 1), u"G10"_s);
    QCOMPARE(desk.Stored(313, 2, 1), u"GA"_s);
    QVERIFY(desk.child->Doc().IsModified());
    QCOMPARE(Place(desk), u"313/3/2"_s);
    QVERIFY2(Pane(desk).Said().startsWith(u"2 個のセルを置換しました"_s), qPrintable(Pane(desk).Said()));
    QVERIFY(Pane(desk).Hits().empty());
    desk.child->FocusPanel();
    Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Project(desk), before);
    QCOMPARE(desk.Cell(4, 1), u"G1"_s);
    QVERIFY(!desk.child->Doc().IsModified());
    Press(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(desk.Cell(4, 1), u"GA"_s);
    QVERIFY(desk.child->Doc().IsModified());
}

void ReplaceTest::whatWasReplacedIsNotSaidBehindAnUndo()
{
    Desk desk;
    desk.Open(desk.folder.Example(u"plate4"_s), 313);
    FillBlock(desk);
    Ask(desk, u"G1"_s, u"GA1"_s, false);
    ClickReplace(desk);
    QVERIFY(Pane(desk).Said().contains(u"置換しました"_s));
    QVERIFY(desk.frame.statusBar()->currentMessage().contains(u"置換しました"_s));
    desk.Grid().setFocus();
    Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(CellsOf(desk, 313, "GA1"), 0);
    desk.child->Replace().LookNow();
    QVERIFY2(!Pane(desk).Said().contains(u"置換しました"_s), qPrintable(Pane(desk).Said()));
    QVERIFY2(desk.frame.statusBar()->currentMessage().isEmpty(), qPrintable(desk.frame.statusBar()->currentMessage()));
}

void ReplaceTest::aReplaceInTheProjectIsOneStepOverAllBlocks()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    const QByteArray opened = Project(desk);
    desk.Grid().SetFocusCell(2, 6);
    Ask(desk, u"G1"_s, u"GX1"_s, true);
    std::map<int, int> inBlock;
    for (const CellHit& hit : Pane(desk).Hits())
        if (hit.state == HitState::Free)
            ++inBlock[hit.block];
    QVERIFY2(inBlock.size() >= 3, "the example has the name in several blocks");
    ClickReplace(desk);
    for (const auto& [block, count] : inBlock) {
        if (desk.child->Doc().Data().Table(block) == nullptr)
            continue;
        QVERIFY2(CellsOf(desk, block, "GX1") == count, qPrintable(QString::number(block)));
        QVERIFY2(CellsOf(desk, block, "G1") == 0, qPrintable(QString::number(block)));
    }
    QCOMPARE(Place(desk), u"313/2/6"_s);
    desk.Go(301);
    Press(Qt::Key_Z, Qt::ControlModifier);
    QTRY_COMPARE(desk.Panel().Block(), 313); // where the step belongs to
    QCOMPARE(Project(desk), opened);
    QVERIFY(!desk.child->Doc().IsModified());
    Press(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(CellsOf(desk, 313, "G1"), 0);
}

void ReplaceTest::aLineThatIsTickedOffStays()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    FillBlock(desk);
    desk.Grid().SetFocusCell(3, 2);
    Ask(desk, u"G1"_s, u"GA"_s, false);
    QTableView* lines = Pane(desk).Lines();
    lines->setFocus();
    lines->selectRow(0);
    Press(Qt::Key_Space);
    QVERIFY2(Pane(desk).Said().contains(u"置換する 1 件"_s), qPrintable(Pane(desk).Said()));
    ClickReplace(desk);
    QCOMPARE(desk.Cell(2, 1), u"G1"_s);
    QCOMPARE(desk.Cell(4, 1), u"GA"_s);
    QVERIFY2(Pane(desk).Said().startsWith(u"1 個のセルを置換しました（1 ブロック）。1 個は元のままです。"_s),
             qPrintable(Pane(desk).Said()));
    QVERIFY2(!Pane(desk).ReplaceButton()->isEnabled(), "what is ticked off stays so");
    lines->setFocus();
    lines->selectRow(0);
    Press(Qt::Key_Return); // to the cell
    QCOMPARE(Place(desk), u"313/2/1"_s);
}

void ReplaceTest::whatStaysIsListedWithItsReason()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    FillBlock(desk);
    Ask(desk, u"G1"_s, {}, false);
    QCOMPARE(Pane(desk).Hits().size(), 2U);
    QCOMPARE(Pane(desk).Hits()[0].state, HitState::LosesRow);
    QVERIFY(!Pane(desk).ReplaceButton()->isEnabled());
    const QModelIndex note = Pane(desk).Lines()->model()->index(0, 5);
    QVERIFY2(note.data().toString().contains(u"行や名称がなくなる"_s), qPrintable(note.data().toString()));
    QVERIFY2(Pane(desk).Said().contains(u"元のまま 2 件"_s), qPrintable(Pane(desk).Said()));
}

void ReplaceTest::rowsThatAreNotCompleteYetAreReplacedAndComeBack()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    FillBlock(desk);
    desk.Grid().SetFocusCell(8, 2); // a row without its first cell
    Type(u"G1"_s);
    Press(Qt::Key_Return);
    QCOMPARE(desk.Cell(8, 2), u"G1"_s);
    Ask(desk, u"G1"_s, u"GA"_s, true);
    ClickReplace(desk);
    QCOMPARE(desk.Cell(8, 2), u"GA"_s);
    QCOMPARE(desk.Cell(2, 1), u"GA"_s);
    desk.child->FocusPanel();
    Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(desk.Cell(8, 2), u"G1"_s);
    QCOMPARE(desk.Cell(2, 1), u"G1"_s);
    Press(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(desk.Cell(8, 2), u"GA"_s);
}

void ReplaceTest::rowsOutOfSightStay()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    FillBlock(desk);
    desk.Grid().SetFocusCell(5, 1);
    Press(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier); // G10 alone
    QVERIFY(desk.Grid().isRowHidden(1));
    Ask(desk, u"G1"_s, u"GA"_s, false, false);
    QCOMPARE(Pane(desk).Hits().size(), 3U);
    QCOMPARE(Pane(desk).Hits()[0].state, HitState::Hidden);
    ClickReplace(desk);
    QCOMPARE(desk.Stored(313, 2, 1), u"G1"_s);
    QCOMPARE(desk.Stored(313, 5, 1), u"GA0"_s);
}

void ReplaceTest::anEditBehindTheListIsSeen()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    FillBlock(desk);
    Ask(desk, u"G1"_s, u"GA"_s, false);
    desk.child->FocusPanel();
    desk.Grid().SetFocusCell(2, 1);
    Type(u"G7"_s);
    Press(Qt::Key_Return);
    QTRY_COMPARE(Pane(desk).Hits().size(), 1U);
    ClickReplace(desk);
    QCOMPARE(desk.Stored(313, 2, 1), u"G7"_s);
    QCOMPARE(desk.Stored(313, 4, 1), u"GA"_s);
}

void ReplaceTest::aCharacterThatNoCellHoldsIsNamed()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    FillBlock(desk);
    Ask(desk, u"G1"_s, u"GA"_s, false);
    Pane(desk).ByLine()->setText(u"G♥"_s);
    desk.child->Replace().LookNow();
    QVERIFY2(Pane(desk).Said().contains(u"「♥」"_s), qPrintable(Pane(desk).Said()));
    QVERIFY(!Pane(desk).ReplaceButton()->isEnabled());
}

void ReplaceTest::aProjectWithoutAGridOnShowIsReplacedToo()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    FillBlock(desk);
    const QByteArray before = Project(desk);
    desk.child->GoToBlock(999);
    QApplication::processEvents();
    QVERIFY(desk.Panel().Model() == nullptr);
    desk.frame.RunCommand(Command::ReplaceText);
    Pane(desk).WantedLine()->setText(u"G10"_s);
    Pane(desk).ByLine()->setText(u"G11"_s);
    Pane(desk).Scope()->setCurrentIndex(1);
    desk.child->Replace().LookNow();
    QApplication::processEvents(); // the pane gets its place
    QCOMPARE(Pane(desk).Hits().size(), 1U);
    QCOMPARE(Pane(desk).Hits()[0].block, 313);
    ClickReplace(desk);
    QVERIFY2(CellsOf(desk, 313, "G11") == 1, qPrintable(Pane(desk).Said()));
    desk.child->StepHistory(false);
    QCOMPARE(Project(desk), before);
}

void ReplaceTest::whatTheFileWouldNotGiveBackIsSaidBefore()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    FillBlock(desk);
    Ask(desk, u"G10"_s, u"G 1 0"_s, false);
    QCOMPARE(Pane(desk).Hits().size(), 1U);
    const QString note = Pane(desk).Lines()->model()->index(0, 5).data().toString();
    QVERIFY2(note.contains(u"保存して開き直すと"_s), qPrintable(note));
}

void ReplaceTest::theKeysWorkWhileTheEditorIsOpen()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    FillBlock(desk);
    desk.Grid().SetFocusCell(2, 6);
    Press(Qt::Key_F2);
    Type(u"5"_s);
    Press(Qt::Key_H, Qt::ControlModifier);
    QVERIFY(Pane(desk).WantedLine()->hasFocus());
    QVERIFY(!desk.Grid().IsEditing());
    QCOMPARE(desk.Stored(313, 2, 6), u"1105"_s); // what was typed is taken, not lost
    QCOMPARE(Pane(desk).WantedLine()->text(), u"1105"_s);

    desk.child->FocusPanel();
    desk.Grid().SetFocusCell(2, 1);
    Press(Qt::Key_F2);
    EditorLine(desk.Editor())->setText(u"♥"_s);
    Press(Qt::Key_F, Qt::ControlModifier);
    QVERIFY2(desk.Grid().IsEditing(), "a text that the cell refuses stays");
}

void ReplaceTest::aPaneThatOpensLeavesTheFocusInSight()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    const QRect view = desk.Grid().viewport()->rect();
    int last = 1;
    while (view.contains(desk.Grid().visualRect(desk.Index(last + 1, 1))))
        ++last;
    desk.Grid().SetFocusCell(last, 1);
    for (const bool list : {true, false}) {
        if (list)
            desk.frame.RunCommand(Command::FindingList);
        else
            desk.frame.RunCommand(Command::FindText);
        QApplication::processEvents();
        const QRect now = desk.Grid().viewport()->rect();
        QVERIFY(now.height() < view.height());
        QVERIFY2(now.contains(desk.Grid().visualRect(desk.Grid().currentIndex()).center()),
                 list ? "the list of findings hides the focused row" : "find hides the focused row");
    }
}

void ReplaceTest::aPasteThatIsTooWideBarsNoWay()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    FillBlock(desk);
    desk.Grid().SetFocusCell(2, 8);
    QApplication::clipboard()->setText(u"1\t2\t3\t4"_s);
    Press(Qt::Key_V, Qt::ControlModifier);
    QVERIFY(desk.told.isEmpty());
    const QString notice = desk.child->Notices().TextOf(u"paste"_s);
    QVERIFY2(notice.contains(u"はみ出した 2 個"_s), qPrintable(notice));
    QCOMPARE(desk.Cell(2, 9), u"2"_s);
    QApplication::clipboard()->setText(u"5"_s);
    desk.Grid().SetFocusCell(2, 8);
    Press(Qt::Key_V, Qt::ControlModifier);
    QVERIFY2(desk.child->Notices().TextOf(u"paste"_s).isEmpty(), "the next paste left nothing");
}

} // namespace sbd

QTEST_MAIN(sbd::ReplaceTest)
#include "replace_test.moc"
