// What hands do in the grid of the real window: journeys by keys, mouse and clipboard, and what follows elsewhere.
#include "frame/left_view.h"
#include "grid/cell_editor.h"
#include "panel_desk.h"
#include "project/text.h"
#include "tests/document/data_of.h"

#include <QAbstractItemView>
#include <QCompleter>
#include <QContextMenuEvent>
#include <QHeaderView>
#include <QMenu>
#include <QScrollBar>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace sbd;

class PanelJourneyTest : public QObject {
    Q_OBJECT

private slots:
    void aNew313IsFilledFromTheKeyboardAlone();
    void twoHundredRowsArePastedFromLibreOffice_data();
    void twoHundredRowsArePastedFromLibreOffice();
    void everythingIsUndoneBackToTheStart();
    void undoTakesBackWhatWasDoneBeforeRowsWereDeleted();
    void aRowWithADropDownMovesWithItsList();
    void deletingAcrossReadOnlyCellsEmptiesTheOthers();
    void keysMoveAsInASpreadsheet_data();
    void keysMoveAsInASpreadsheet();
    void theListOpensByKeyAndCompletesWhileTyping();
    void theMouseSelectsBlocksColumnsAndRows();
    void theContextMenuKnowsWhatTheRowAllows_data();
    void theContextMenuKnowsWhatTheRowAllows();
    void theMouseWidensAColumnAndTheWheelScrolls();
    void linksAreSeenInTheOtherPanels();
    void theMethodOf321TurnsColumnsOnAndOff();
    void theTypeOf301ChangesTheOtherPanels();
};

// --- journeys ----------------------------------------------------------------------------------------

void PanelJourneyTest::aNew313IsFilledFromTheKeyboardAlone()
{
    Desk desk;
    QVERIFY(desk.isActive);
    const QString path = desk.EmptyProject();
    desk.child = desk.frame.OpenProject(path);
    desk.child->GoToBlock(313);
    desk.child->Tree().setFocus();
    Press(Qt::Key_Return); // from the tree into the grid
    QCOMPARE(FocusText(desk.Grid()), u"1,2"_s);
    Type(u"NO_1"_s); // 自動計算
    Press(Qt::Key_Return);
    for (int row = 2; row <= 4; ++row) {
        Press(Qt::Key_Home);
        QCOMPARE(FocusText(desk.Grid()), u"%1,1"_s.arg(row));
        Type(u"G1"_s);
        Press(Qt::Key_Tab);
        Type(u"g"_s); // the names that begin so are offered
        Press(Qt::Key_Down);
        Press(Qt::Key_Down);
        Press(Qt::Key_Tab);
        Press(Qt::Key_F4); // the first of the cross beams
        QAbstractItemView* list = qobject_cast<CCellCombo*>(desk.Editor())->view();
        QTRY_VERIFY(list->isVisible());
        QTest::keyClick(list, Qt::Key_Down);
        QTest::keyClick(list, Qt::Key_Return);
        Press(Qt::Key_Right);
        Type(u"A2"_s);
        Press(Qt::Key_Right); // an arrow leaves an edit that typing began
        Type(u"I"_s);
        for (const char* text : {"130", "10", "3", "2.5 2.5 2.5"}) {
            Press(Qt::Key_Tab);
            Type(QString::fromLatin1(text));
        }
        Press(Qt::Key_Return);
    }
    QCOMPARE(desk.child->Doc().Data().RowCount(313), std::size_t(4));
    Press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(!desk.child->Doc().IsModified());

    CKELDSectionDoc again;
    QVERIFY(again.OpenDocument(path).Ok());
    const TableBlock& table = *again.Data().Table(313);
    QCOMPARE(table.RowCount(), std::size_t(4));
    const QStringList beams = [&] {
        QStringList names;
        for (const std::string& name : again.Data().gridNames.swayNames)
            names << toQString(name);
        return names;
    }();
    for (std::size_t row = 1; row < 4; ++row) {
        QStringList cells;
        for (const std::string_view cell : table.Row(row))
            cells << toQString(cell);
        QCOMPARE(cells[0], u"G1"_s);
        QVERIFY2(cells[1].startsWith(u'G'), qPrintable(cells[1]));
        QVERIFY2(beams.contains(cells[2]), qPrintable(cells[2]));
        QCOMPARE(cells.mid(3), (QStringList{u"A2"_s, u"I"_s, u"130"_s, u"10"_s, u"3"_s, u"2.5 2.5 2.5"_s}));
    }
}

void PanelJourneyTest::twoHundredRowsArePastedFromLibreOffice_data()
{
    QTest::addColumn<QString>("lineEnd");
    QTest::newRow("LF") << u"\n"_s;
    QTest::newRow("CR LF") << u"\r\n"_s;
}

void PanelJourneyTest::twoHundredRowsArePastedFromLibreOffice()
{
    QFETCH(QString, lineEnd);
    Desk desk;
    const QString path = desk.folder.Example(u"plate4"_s);
    desk.Open(path, 313);
    const int first = int(desk.child->Doc().Data().RowCount(313)) + 1;
    QString text;
    for (int row = 0; row < 200; ++row) {
        const QString spacing = row % 10 == 0 ? u"\"2.5\n2.5\""_s : u"1.25 \"%1\""_s.arg(row);
        text += u"G1\tG2\tA1\tA2\t両腹板\t%1\t10\t2\t"_s.arg(100 + row) + spacing + lineEnd;
    }
    Desk::CopyFromLibreOffice(text);
    desk.Grid().SetFocusCell(first, 1);
    Press(Qt::Key_V, Qt::ControlModifier);
    QVERIFY2(desk.told.isEmpty(), qPrintable(desk.told.join(u' ')));
    QCOMPARE(RangeText(desk.Grid().SelectedRange()), u"%1,1-%2,9"_s.arg(first).arg(first + 199));
    QCOMPARE(int(desk.child->Doc().Data().RowCount(313)), first - 1 + 200);
    QCOMPARE(desk.Row(first + 9), (QStringList{u"G1"_s, u"G2"_s, u"A1"_s, u"A2"_s, u"両腹板"_s, u"109"_s, u"10"_s,
                                               u"2"_s, u"1.25 \"9\""_s}));
    QCOMPARE(desk.Cell(first + 190, 9), u"2.5 2.5"_s); // a row of the file is one line
    Press(Qt::Key_S, Qt::ControlModifier);
    CKELDSectionDoc again;
    QVERIFY(again.OpenDocument(path).Ok());
    QVERIFY(*again.Data().Table(313) == *desk.child->Doc().Data().Table(313));
    Press(Qt::Key_Z, Qt::ControlModifier); // one step takes the whole paste back
    QCOMPARE(int(desk.child->Doc().Data().RowCount(313)), first - 1);
}

void PanelJourneyTest::everythingIsUndoneBackToTheStart()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    const TableBlock before = *desk.child->Doc().Data().Table(313);
    int steps = 0;
    for (int round = 0; round < 60; ++round) {
        const int row = 2 + round % 7;
        desk.Grid().SetFocusCell(row, 6);
        Type(QString::number(500 + round));
        Press(Qt::Key_Return);
        desk.Grid().SetFocusCell(row, 7);
        Press(Qt::Key_Delete);
        desk.Grid().SetFocusCell(row, 1);
        desk.Panel().MoveRowDown();
        Desk::CopyFromLibreOffice(u"p%1\tq\nr\ts\n"_s.arg(round));
        desk.Grid().SetFocusCell(row + 20, 1);
        Press(Qt::Key_V, Qt::ControlModifier);
        desk.Grid().SetFocusCell(row + 1, 1);
        desk.Panel().InsertRow();
        steps += 5;
    }
    QVERIFY(desk.child->Doc().IsModified());
    for (int step = 0; step < steps; ++step)
        Press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(*desk.child->Doc().Data().Table(313) == before);
    QVERIFY(!desk.child->Doc().IsModified());
    Press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(*desk.child->Doc().Data().Table(313) == before);

    // Many edits of one cell; more than a thousand are those of a panel by itself (history_test).
    constexpr int edits = 130;
    for (int edit = 0; edit < edits; ++edit) {
        desk.Grid().SetFocusCell(2, 6);
        Type(QString::number(edit % 2 == 0 ? edit : edit + 5));
        Press(Qt::Key_Return);
    }
    for (int step = 0; step < edits + 70; ++step)
        Press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(*desk.child->Doc().Data().Table(313) == before);
}

void PanelJourneyTest::undoTakesBackWhatWasDoneBeforeRowsWereDeleted()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    const TableBlock before = *desk.child->Doc().Data().Table(313);
    const int last = int(before.RowCount());
    desk.Grid().SetFocusCell(last, 6);
    Type(u"777"_s);
    Press(Qt::Key_Return);
    desk.Grid().SetFocusCell(2, 1);
    Press(Qt::Key_Space, Qt::ShiftModifier); // the whole row
    Press(Qt::Key_Delete);                   // the row goes, those below close up in the document
    QCOMPARE(int(desk.child->Doc().Data().RowCount(313)), last - 1);
    Press(Qt::Key_Z, Qt::ControlModifier);
    Press(Qt::Key_Z, Qt::ControlModifier);
    QVERIFY(*desk.child->Doc().Data().Table(313) == before);
    QVERIFY(!desk.child->Doc().IsModified());
}

void PanelJourneyTest::aRowWithADropDownMovesWithItsList()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    const QStringList second = desk.Row(2);
    const QStringList third = desk.Row(3);
    const QStringList list = desk.Grid().Source()->Words(2, 5);
    QVERIFY(list.size() > 3);
    desk.Grid().SetFocusCell(2, 5);
    desk.Panel().MoveRowDown();
    QCOMPARE(desk.Row(3), second);
    QCOMPARE(desk.Row(2), third);
    QCOMPARE(FocusText(desk.Grid()), u"3,5"_s);
    QCOMPARE(desk.Stored(313, 3, 6), second[5]);
    Press(Qt::Key_F2);
    auto* combo = qobject_cast<CCellCombo*>(desk.Editor());
    QVERIFY(combo != nullptr);
    QCOMPARE(combo->count(), int(list.size()));
    QCOMPARE(EditorText(combo), second[4]);
    desk.Panel().MoveRowUp(); // the open editor is taken first
    QCOMPARE(desk.Row(2), second);
    QVERIFY(!desk.child->Doc().IsModified());
}

void PanelJourneyTest::deletingAcrossReadOnlyCellsEmptiesTheOthers()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 331));
    const QStringList first = desk.Row(1);
    const QStringList second = desk.Row(2);
    Drag(*desk.Grid().viewport(), desk.Middle(1, 1), desk.Middle(2, 4));
    QCOMPARE(RangeText(desk.Grid().SelectedRange()), u"1,1-2,4"_s);
    Press(Qt::Key_Delete);
    QCOMPARE(desk.Cell(1, 1), first[0]);
    QCOMPARE(desk.Cell(1, 2), QString());
    QCOMPARE(desk.Row(1).mid(2), first.mid(2));
    QCOMPARE(desk.Row(2).mid(0, 4), (QStringList{{}, {}, {}, {}}));
    QCOMPARE(desk.Row(2).mid(4), second.mid(4));
    Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(desk.Row(1), first);
    QCOMPARE(desk.Row(2), second);

    desk.Go(301);
    const QString label = desk.Cell(5, 1);
    desk.Grid().SetFocusCell(5, 1);
    Press(Qt::Key_Right, Qt::ShiftModifier);
    Press(Qt::Key_Delete);
    QCOMPARE(desk.Cell(5, 1), label);
    QCOMPARE(desk.Option(301, 5), QString());
}

// --- keys and mouse ----------------------------------------------------------------------------------

void PanelJourneyTest::keysMoveAsInASpreadsheet_data()
{
    QTest::addColumn<QList<int>>("keys"); // with modifiers
    QTest::addColumn<QString>("focus");
    QTest::addColumn<QString>("selected");
    const int ctrl = Qt::ControlModifier;
    const int shift = Qt::ShiftModifier;
    const auto row = [](const char* name, const QList<int>& keys, const char* focus, const char* selected) {
        QTest::newRow(name) << keys << QString::fromLatin1(focus) << QString::fromLatin1(selected);
    };
    // From cell (3, 5) of block 313 with 9 columns and filled rows 1 to 5.
    row("Tab", {Qt::Key_Tab}, "3,6", "3,6-3,6");
    row("Shift+Tab", {shift | Qt::Key_Backtab}, "3,4", "3,4-3,4");
    row("Enter", {Qt::Key_Return}, "4,5", "4,5-4,5");
    row("Enter of the number pad", {int(Qt::KeypadModifier) | Qt::Key_Enter}, "4,5", "4,5-4,5");
    row("Shift+Enter", {shift | Qt::Key_Return}, "2,5", "2,5-2,5");
    row("Home", {Qt::Key_Home}, "3,1", "3,1-3,1");
    row("End", {Qt::Key_End}, "3,9", "3,9-3,9");
    row("Ctrl+Home", {ctrl | Qt::Key_Home}, "1,1", "1,1-1,1");
    row("Ctrl+End", {ctrl | Qt::Key_End}, "5,9", "5,9-5,9");
    row("Ctrl+Down", {ctrl | Qt::Key_Down}, "5,5", "5,5-5,5");
    row("Ctrl+Right", {ctrl | Qt::Key_Right}, "3,9", "3,9-3,9");
    row("Ctrl+Left", {ctrl | Qt::Key_Left}, "3,1", "3,1-3,1");
    row("Shift+Down, Shift+Right", {shift | Qt::Key_Down, shift | Qt::Key_Right}, "3,5", "3,5-4,6");
    row("Shift+Up beyond the start", {shift | Qt::Key_Down, shift | Qt::Key_Up, shift | Qt::Key_Up}, "3,5", "2,5-3,5");
    row("Ctrl+Shift+Down", {ctrl | shift | Qt::Key_Down}, "3,5", "3,5-5,5");
    row("Ctrl+Shift+Right twice", {ctrl | shift | Qt::Key_Right, ctrl | shift | Qt::Key_Down}, "3,5", "3,5-5,9");
    row("Shift+Home", {shift | Qt::Key_Home}, "3,5", "3,1-3,5");
    row("Shift+End", {shift | Qt::Key_End}, "3,5", "3,5-3,9");
    row("Ctrl+Shift+End", {ctrl | shift | Qt::Key_End}, "3,5", "3,5-5,9");
    row("Ctrl+Shift+Home", {ctrl | shift | Qt::Key_Home}, "3,5", "1,1-3,5");
    row("Ctrl+A", {ctrl | Qt::Key_A}, "3,5", "1,1-55,9");
    row("Tab at the end of a row", {Qt::Key_End, Qt::Key_Tab}, "4,1", "4,1-4,1");
    row("Shift+Tab at the first cell", {ctrl | Qt::Key_Home, shift | Qt::Key_Backtab}, "1,1", "1,1-1,1");
    row("Shift+Tab at the start of a row", {Qt::Key_Home, shift | Qt::Key_Backtab}, "2,9", "2,9-2,9");
    row("Shift+Tab into the automatic row", {Qt::Key_Up, Qt::Key_Home, shift | Qt::Key_Backtab}, "1,2", "1,2-1,2");
    row("Shift+Space", {shift | Qt::Key_Space}, "3,5", "3,1-3,9");
    row("Ctrl+Space", {ctrl | Qt::Key_Space}, "3,5", "1,5-55,5");
    row("PageDown, PageUp", {Qt::Key_PageDown, Qt::Key_PageUp}, "3,5", "3,5-3,5");
    row("PageDown to the end", QList<int>(12, Qt::Key_PageDown), "55,5", "55,5-55,5");
    row("arrows collapse a selection", {shift | Qt::Key_Down, Qt::Key_Right}, "3,6", "3,6-3,6");
}

void PanelJourneyTest::keysMoveAsInASpreadsheet()
{
    QFETCH(QList<int>, keys);
    Desk desk;
    desk.child = desk.frame.OpenProject(desk.EmptyProject());
    TableBlock& table = *test::DataOf(desk.child->Doc()).Table(313);
    table.AppendRow({Cp932("自動計算(YES_NO)"), "YES_1", "x", "x", "x", "x", "x", "x", "x"});
    while (table.RowCount() < 5)
        table.AppendRow({"G1", "G2", "A1", "A2", "I", "130", "10", "3", "2.5"});
    desk.Go(313);
    QCOMPARE(desk.Grid().model()->rowCount(), 55);
    desk.Grid().SetFocusCell(3, 5);
    for (const int key : keys) {
        const QKeyCombination combination = QKeyCombination::fromCombined(key);
        Press(combination.key(), combination.keyboardModifiers());
    }
    QTEST(FocusText(desk.Grid()), "focus");
    QTEST(RangeText(desk.Grid().SelectedRange()), "selected");
    QVERIFY(!desk.Grid().IsEditing());
}

void PanelJourneyTest::theListOpensByKeyAndCompletesWhileTyping()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 314));
    desk.Grid().SetFocusCell(2, 8); // 材質
    Type(u"sm49"_s);
    auto* combo = qobject_cast<CCellCombo*>(desk.Editor());
    QVERIFY(combo != nullptr);
    QVERIFY(combo->OffersWords());
    QCOMPARE(EditorText(combo), u"sm49"_s);
    QAbstractItemView* offers = combo->findChild<QCompleter*>()->popup();
    QTest::keyClick(offers, Qt::Key_Down);
    QTest::keyClick(offers, Qt::Key_Return);
    QVERIFY2(desk.Cell(2, 8).startsWith(u"SM490"_s), qPrintable(desk.Cell(2, 8)));
    QCOMPARE(desk.Stored(314, 2, 8), desk.Cell(2, 8));
    QCOMPARE(FocusText(desk.Grid()), u"3,8"_s);

    const QString before = desk.Cell(3, 8);
    Press(Qt::Key_F4);
    combo = qobject_cast<CCellCombo*>(desk.Editor());
    QTRY_VERIFY(combo->view()->isVisible());
    QCOMPARE(combo->view()->currentIndex().data().toString(), before); // the list stands at the cell's word
    QTest::keyClick(combo->view(), Qt::Key_Escape);
    Press(Qt::Key_Escape);
    QCOMPARE(desk.Cell(3, 8), before);
    QVERIFY(!desk.Grid().IsEditing());

    Press(Qt::Key_F2); // an edit that keeps the text
    QCOMPARE(EditorText(desk.Editor()), before);
    Press(Qt::Key_Escape);
    QCOMPARE(desk.Cell(3, 8), before);
}

void PanelJourneyTest::theMouseSelectsBlocksColumnsAndRows()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    CGridCtrl& grid = desk.Grid();
    Drag(*grid.viewport(), desk.Middle(5, 6), desk.Middle(2, 3)); // upward and to the left
    QCOMPARE(RangeText(grid.SelectedRange()), u"2,3-5,6"_s);
    Press(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text().count(u'\t'), 12);
    QCOMPARE(QApplication::clipboard()->text().count(u'\n'), 3);

    desk.Click(2, 2);
    desk.Click(4, 4, Qt::ShiftModifier);
    QCOMPARE(RangeText(grid.SelectedRange()), u"2,2-4,4"_s);

    QHeaderView& heads = *grid.horizontalHeader();
    QTest::mouseClick(heads.viewport(), Qt::LeftButton, {},
                      {heads.sectionViewportPosition(2) + 20, heads.height() / 2});
    QCOMPARE(RangeText(grid.SelectedRange()), u"1,3-%1,3"_s.arg(grid.model()->rowCount()));
    QHeaderView& numbers = *grid.verticalHeader();
    QTest::mouseClick(numbers.viewport(), Qt::LeftButton, {}, {10, numbers.sectionViewportPosition(3) + 5});
    QCOMPARE(RangeText(grid.SelectedRange()), u"4,1-4,9"_s);
    desk.Click(3, 3);
    QCOMPARE(RangeText(grid.SelectedRange()), u"3,3-3,3"_s);
}

void PanelJourneyTest::theContextMenuKnowsWhatTheRowAllows_data()
{
    QTest::addColumn<int>("block");
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("enabled"); // up, down, insert
    const auto row = [](int block, int gridRow, const char* enabled) {
        QTest::addRow("%d row %d", block, gridRow) << block << gridRow << QString::fromLatin1(enabled);
    };
    row(301, 4, "---");
    row(313, 1, "---");
    row(313, 2, "-di");
    row(313, 3, "udi");
    row(305, 1, "-di");
    row(305, 2, "udi");
    row(321, 1, "---");
    row(321, 2, "---");
    row(322, 2, "---");
    row(322, 3, "-di");
    row(322, 4, "udi");
    row(311, 4, "---");
    row(311, 5, "-di");
    row(324, 1, "---");
    row(324, 2, "-di");
    row(501, 3, "---");
    row(507, 3, "udi");
    row(351, 1, "-di");
    row(645, 2, "-di");
}

void PanelJourneyTest::theContextMenuKnowsWhatTheRowAllows()
{
    QFETCH(int, block);
    QFETCH(int, row);
    Desk desk;
    desk.Open(desk.folder.Example(u"box2"_s), block);
    QTest::mouseClick(desk.Grid().viewport(), Qt::RightButton, {}, desk.Middle(row, 2)); // the focus follows
    QCOMPARE(FocusText(desk.Grid()), u"%1,2"_s.arg(row));
    QStringList texts;
    QString enabled;
    QTimer::singleShot(0, qApp, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr)
            return;
        for (const QAction* action : menu->actions())
            texts << action->text();
        for (int i = 0; i < 3 && texts.size() == 7; ++i)
            enabled += menu->actions()[4 + i]->isEnabled() ? QChar(u"udi"[i]) : QChar(u'-');
        menu->close();
    });
    const QPoint at = desk.Middle(row, 2);
    QContextMenuEvent event(QContextMenuEvent::Mouse, at, desk.Grid().viewport()->mapToGlobal(at));
    QApplication::sendEvent(desk.Grid().viewport(), &event);
    QCOMPARE(texts, (QStringList{u"切り取り"_s, u"コピー"_s, u"貼り付け"_s, u"Delete"_s, u"順序上へ移動"_s,
                                 u"順序下へ移動"_s, u"挿入行"_s}));
    QTEST(enabled, "enabled");
}

void PanelJourneyTest::theMouseWidensAColumnAndTheWheelScrolls()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    CGridCtrl& grid = desk.Grid();
    QHeaderView& heads = *grid.horizontalHeader();
    const int width = grid.columnWidth(1);
    const int edge = heads.sectionViewportPosition(1) + width;
    Drag(*heads.viewport(), {edge - 1, 10}, {edge + 49, 10});
    QCOMPARE(grid.columnWidth(1), width + 50);
    Drag(*heads.viewport(), {edge + 49, 10}, {edge - 500, 10}); // never narrower than can be widened again
    QVERIFY(grid.columnWidth(1) >= 10);

    QCOMPARE(grid.verticalScrollBar()->value(), 0);
    Wheel(*grid.viewport(), -2);
    const int scrolled = grid.verticalScrollBar()->value();
    QVERIFY(scrolled > 0);
    desk.Grid().SetFocusCell(12, 5);
    Press(Qt::Key_F2);
    const QString text = EditorText(desk.Editor());
    Wheel(*desk.Editor(), -1); // over an open list the grid scrolls and the word stays
    QVERIFY(desk.Grid().IsEditing());
    QCOMPARE(EditorText(desk.Editor()), text);
}

// --- what stands in several blocks -------------------------------------------------------------------

void PanelJourneyTest::linksAreSeenInTheOtherPanels()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 301));
    const auto type = [&desk](int block, int row, int column, const QString& text) {
        desk.Go(block);
        desk.Grid().SetFocusCell(row, column);
        Type(text);
        Press(Qt::Key_Return);
    };
    const auto shown = [&desk](int block, int row, int column) {
        desk.Go(block);
        return desk.Cell(row, column);
    };
    type(301, 17, 2, u"A17"_s);
    QCOMPARE(shown(521, 5, 2), u"A17"_s);
    QCOMPARE(shown(361, 5, 2), u"A17"_s); // the same panel by another number
    QCOMPARE(shown(701, 17, 2), u"A17"_s);
    QCOMPARE(shown(721, 10, 2), u"A17"_s);
    type(721, 10, 2, u"B10"_s);
    QCOMPARE(shown(301, 17, 2), u"B10"_s);
    type(331, 1, 2, u"NO"_s);
    QCOMPARE(shown(332, 1, 2), u"NO"_s);
    QCOMPARE(shown(301, 9, 2), u"NO"_s);
    type(301, 10, 2, u"YES"_s);
    for (const int block : {341, 342, 343, 344})
        QCOMPARE(shown(block, 1, 2), u"YES"_s);
    type(324, 1, 2, u"W"_s);
    QCOMPARE(shown(301, 18, 2), u"W"_s);
    type(301, 19, 2, u"V"_s);
    QCOMPARE(shown(325, 1, 2), u"V"_s);
    QCOMPARE(shown(326, 1, 2), u"V"_s);
}

void PanelJourneyTest::theMethodOf321TurnsColumnsOnAndOff()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 321));
    const auto choose = [&desk](const QString& word) {
        desk.Grid().SetFocusCell(2, 2);
        desk.Grid().OpenList();
        auto* combo = qobject_cast<CCellCombo*>(desk.Editor());
        combo->hidePopup();
        combo->setCurrentText(word);
        emit combo->activated(combo->findText(word));
    };
    choose(u"継手長"_s);
    QVERIFY(desk.Grid().Source()->IsLocked(3, 7));
    QVERIFY(desk.Grid().Source()->IsLocked(3, 8));
    QCOMPARE(desk.Cell(3, 7), QString());
    QCOMPARE(desk.Grid().Source()->Words(3, 5), QStringList{u"終断面"_s});
    choose(u"横桁と垂直補剛材より"_s);
    QVERIFY(!desk.Grid().Source()->IsLocked(3, 7));
    QCOMPARE(desk.Grid().Source()->Words(3, 7), QStringList{u"CENTER"_s});
    const std::string& beam = desk.child->Doc().Data().gridNames.swayNames.front();
    QVERIFY(desk.Grid().Source()->Words(3, 5).contains(toQString(beam)));
}

void PanelJourneyTest::theTypeOf301ChangesTheOtherPanels()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 301));
    desk.Grid().SetFocusCell(3, 2);
    QApplication::clipboard()->setText(u"断面1のみ"_s);
    Press(Qt::Key_V, Qt::ControlModifier);
    desk.Go(302);
    QCOMPARE(desk.Grid().Source()->TextColor(11, 2), QColor(Qt::magenta));
    QVERIFY(!desk.Grid().Source()->TextColor(12, 2).isValid());
    desk.Go(331);
    QCOMPARE(desk.Grid().model()->headerData(0, Qt::Horizontal).toString(), u"G(固定)"_s);
    desk.Go(311);
    QCOMPARE(desk.Grid().model()->headerData(0, Qt::Horizontal).toString(), u"\nG(固定)"_s);
    QVERIFY(desk.Grid().Source()->Words(5, 1).contains(u"G"_s));
    desk.Go(305);
    QCOMPARE(desk.Grid().model()->headerData(0, Qt::Horizontal).toString(), u"G(固定)\n箱桁入力必須"_s);
}

QTEST_MAIN(PanelJourneyTest)
#include "panel_journey_test.moc"
