// What comes into the grid of the real window: input methods, screen readers, and bad input.
#include "document/save_flow.h"
#include "frame/left_view.h"
#include "frame/notice_bar.h"
#include "grid/cell_editor.h"
#include "panel_desk.h"
#include "project/text.h"
#include "tests/document/data_of.h"

#include <QAccessible>
#include <QElapsedTimer>
#include <QStatusBar>

using namespace Qt::StringLiterals;
using namespace sbd;

class PanelInputTest : public QObject {
    Q_OBJECT

private slots:
    void aCompositionBeginsInACellAndIsNotLost();
    void aCompositionInACellWithAListKeepsItsText();
    void aCompositionThatIsGivenUpLeavesTheCell();
    void aTextThatStandsIsConvertedAgain();
    void theCandidatesAreShownAtTheCell();
    void aLockedCellTakesNoComposition();
    void aScreenReaderFindsNamesOfGridHeadsAndCells();
    void withoutNamesOfTheAnalysisTheListsOfferThoseOf501();
    void whatColoursSayIsHeardToo();
    void aPasteNamesWhatItCannotTakeAndPutsTheRest();
    void aPasteOfMegabytesEnds();
    void aPasteOfBinaryLeavesOneLineCells();
    void aCellOfAHundredThousandCharactersComesBack();
    void columnsWithoutAHeadAreKept();
    void aRefusedTextIsToldAtASaveAndStaysInTheEditor();
    void aPanelWithARefusedTextMayNotClose();
    void theBlockSwitchWaitsForARefusedText();
    void rowsAreAddedByNumber();
    void whatWasSaidOfACellGoesWithItsPanel();
};
// --- input methods and screen readers ----------------------------------------------------------------

void PanelInputTest::aCompositionBeginsInACellAndIsNotLost()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 301));
    desk.Grid().SetFocusCell(1, 2);
    QVERIFY(desk.Grid().testAttribute(Qt::WA_InputMethodEnabled));
    QInputMethodQueryEvent query(Qt::ImEnabled);
    QApplication::sendEvent(&desk.Grid(), &query);
    QVERIFY(query.value(Qt::ImEnabled).toBool());
    Compose(u"は"_s); // the first key opens the editor
    QVERIFY(desk.Grid().IsEditing());
    Compose(u"はし"_s);
    Compose(u"橋"_s);
    QCOMPARE(EditorText(desk.Editor()), QString()); // nothing is entered while it is being composed
    Compose({}, u"橋"_s);
    QVERIFY(desk.Editor() == QApplication::focusWidget());
    Compose(u"りょう"_s);
    Compose({}, u"梁"_s);
    QCOMPARE(EditorText(desk.Editor()), u"橋梁"_s);
    Press(Qt::Key_Return);
    QCOMPARE(desk.Option(301, 1), u"橋梁"_s);
    QVERIFY(!desk.Grid().IsEditing());

    Press(Qt::Key_Up);
    Press(Qt::Key_F2); // into a text that stands
    Press(Qt::Key_End);
    Compose(u"ず"_s);
    Compose({}, u"図"_s);
    Press(Qt::Key_Return);
    QCOMPARE(desk.Option(301, 1), u"橋梁図"_s);
}

void PanelInputTest::aCompositionInACellWithAListKeepsItsText()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    desk.Grid().SetFocusCell(2, 5); // I左右両
    Compose(u"り"_s);
    QVERIFY(qobject_cast<CCellCombo*>(desk.Editor()) != nullptr);
    Compose(u"両"_s);
    Compose({}, u"両"_s); // the words that begin so are offered
    auto* combo = qobject_cast<CCellCombo*>(desk.Editor());
    QVERIFY(combo->OffersWords());
    QCOMPARE(EditorText(combo), u"両"_s);
    Compose(u"ふくばん"_s);
    Compose({}, u"腹板"_s);
    QCOMPARE(EditorText(combo), u"両腹板"_s);
    Press(Qt::Key_Tab);
    QCOMPARE(desk.Stored(313, 2, 5), u"両腹板"_s);
    QCOMPARE(FocusText(desk.Grid()), u"2,6"_s);
}

void PanelInputTest::aCompositionThatIsGivenUpLeavesTheCell()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 301));
    desk.Grid().SetFocusCell(1, 2);
    const QString before = desk.Option(301, 1);
    Compose(u"はし"_s);
    Compose({}); // Esc belongs to the input method while it composes
    QVERIFY(desk.Grid().IsEditing());
    QCOMPARE(EditorText(desk.Editor()), before); // selected, as it was
    Press(Qt::Key_Return);
    QCOMPARE(desk.Option(301, 1), before);
    desk.Grid().SetFocusCell(1, 2);
    Press(Qt::Key_F2); // in the middle of a text
    Press(Qt::Key_Home);
    Press(Qt::Key_Right);
    Compose(u"はし"_s);
    Compose({});
    QCOMPARE(EditorText(desk.Editor()), before);
    QCOMPARE(EditorLine(desk.Editor())->cursorPosition(), 1);
    Compose(u"はし"_s);
    Compose({}); // some clear the composition first
    Compose({}, u"橋"_s);
    QCOMPARE(EditorText(desk.Editor()), QString(before).insert(1, u"橋"_s));
    Press(Qt::Key_Escape);
    Compose(u"は"_s);
    Compose({});
    QVERIFY(desk.Grid().IsEditing());
    Press(Qt::Key_Escape);
    QVERIFY(!desk.Grid().IsEditing());
    QCOMPARE(desk.Option(301, 1), before);
    QCOMPARE(desk.Cell(1, 2), before);
    Compose(u"はし"_s);
    Press(Qt::Key_Escape); // or it reaches the editor
    QVERIFY(!desk.Grid().IsEditing());
    QCOMPARE(desk.Cell(1, 2), before);
    QVERIFY(!desk.child->Doc().IsModified());
}

/// An input method asks for the text at the caret and takes it back into a composition.
void PanelInputTest::aTextThatStandsIsConvertedAgain()
{
    Desk desk;
    desk.Open(desk.folder.Example(u"plate4"_s), 313);
    for (const int column : {9, 5}) { // free, and with a list
        desk.Grid().SetFocusCell(4, column);
        Press(Qt::Key_F2);
        EditorLine(desk.Editor())->setText(u"主箸"_s);
        const auto asked = [](Qt::InputMethodQuery query) {
            QInputMethodQueryEvent event(query);
            QApplication::sendEvent(QApplication::focusWidget(), &event);
            return event.value(query);
        };
        QCOMPARE(asked(Qt::ImSurroundingText).toString(), u"主箸"_s);
        QCOMPARE(asked(Qt::ImCursorPosition).toInt(), 2);
        EditorLine(desk.Editor())->setSelection(1, 1);
        QCOMPARE(asked(Qt::ImCurrentSelection).toString(), u"箸"_s);
        EditorLine(desk.Editor())->setCursorPosition(2);
        const auto takesItBack = [] {
            QInputMethodEvent event(u"はし"_s, {});
            event.setCommitString({}, -1, 1);
            QApplication::sendEvent(QApplication::focusWidget(), &event);
        };
        takesItBack();
        Compose({}); // given up
        QCOMPARE(EditorText(desk.Editor()), u"主箸"_s);
        takesItBack();
        Compose({}, u"橋"_s);
        QCOMPARE(EditorText(desk.Editor()), u"主橋"_s);
        Press(Qt::Key_Tab);
        QCOMPARE(desk.Stored(313, 4, column), u"主橋"_s);
    }
}

void PanelInputTest::theCandidatesAreShownAtTheCell()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    CGridCtrl& grid = desk.Grid();
    grid.SetFocusCell(3, 5);
    const QRect cell = grid.visualRect(grid.currentIndex()).translated(grid.viewport()->pos());
    const QRect cursor = grid.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    QVERIFY(cell.contains(cursor));
    QVERIFY(cursor.left() < cell.left() + 10);
    QCOMPARE(cursor.height(), cell.height());
    Compose(u"り"_s);
    QVERIFY(grid.IsEditing());
    const QRect composing = grid.inputMethodQuery(Qt::ImCursorRectangle).toRect();
    QVERIFY2(cell.adjusted(-2, -2, 60, 2).contains(composing.center()), "the candidates are away from the cell");
    Compose({}, u"両"_s);
    QWidget* editor = QApplication::focusWidget();
    const QRect inEditor = editor->inputMethodQuery(Qt::ImCursorRectangle).toRect();
    const QPoint place = editor->mapTo(&grid, inEditor.center());
    QVERIFY2(cell.adjusted(-2, -2, 60, 2).contains(place), "the candidates are away from the cell");
}

void PanelInputTest::aLockedCellTakesNoComposition()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 301));
    desk.Grid().SetFocusCell(4, 1);
    QVERIFY(!desk.Grid().testAttribute(Qt::WA_InputMethodEnabled));
    Compose(u"あ"_s);
    Compose({}, u"あ"_s);
    QVERIFY(!desk.Grid().IsEditing());
    desk.Grid().SetFocusCell(4, 2);
    QVERIFY(desk.Grid().testAttribute(Qt::WA_InputMethodEnabled));
}

void PanelInputTest::aScreenReaderFindsNamesOfGridHeadsAndCells()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 314));
    QAccessibleInterface* grid = QAccessible::queryAccessibleInterface(&desk.Grid());
    QVERIFY(grid != nullptr);
    QVERIFY2(grid->text(QAccessible::Name).startsWith(u"314"_s), qPrintable(grid->text(QAccessible::Name)));
    QCOMPARE(grid->role(), QAccessible::Table);
    QAccessibleTableInterface* table = grid->tableInterface();
    QVERIFY(table != nullptr);
    QCOMPARE(table->columnCount(), 8);
    QCOMPARE(table->rowCount(), desk.Grid().model()->rowCount());
    QAccessibleInterface* cell = table->cellAt(1, 7);
    QCOMPARE(cell->text(QAccessible::Name), desk.Cell(2, 8));
    const QString described = cell->text(QAccessible::Description);
    QVERIFY2(described.contains(u"材質"_s) && described.contains(u"2 行目"_s) && described.contains(u"一覧"_s),
             qPrintable(described));
    QVERIFY(cell->state().editable || desk.Index(2, 8).flags().testFlag(Qt::ItemIsEditable));
    const QList<QAccessibleInterface*> heads = table->cellAt(1, 5)->tableCellInterface()->columnHeaderCells();
    QCOMPARE(heads.size(), 1);
    QCOMPARE(heads[0]->text(QAccessible::Name), u"幅 (mm)"_s); // without its line break
    QVERIFY(table->cellAt(0, 4)->text(QAccessible::Description).contains(u"固定、入力不可"_s));
    QVERIFY(table->cellAt(1, 5)->text(QAccessible::Description).contains(u"単位 mm"_s));
    QVERIFY(table->cellAt(0, 1)->text(QAccessible::Description).contains(u"自動計算(YES_NO)"_s)); // what the row is
    desk.Go(301);
    QAccessibleInterface* option = QAccessible::queryAccessibleInterface(&desk.Grid());
    QVERIFY2(option->text(QAccessible::Name).startsWith(u"301"_s), qPrintable(option->text(QAccessible::Name)));
    const QString label = desk.Cell(3, 1).simplified();
    QVERIFY(!label.isEmpty());
    QVERIFY(option->tableInterface()->cellAt(2, 1)->text(QAccessible::Description).contains(label));
    desk.Go(314);

    desk.Grid().SetFocusCell(2, 8);
    Press(Qt::Key_F2);
    QAccessibleInterface* editor = QAccessible::queryAccessibleInterface(desk.Editor());
    QVERIFY(editor != nullptr);
    QVERIFY2(desk.Editor()->accessibleName().contains(u"材質"_s), qPrintable(desk.Editor()->accessibleName()));
}

void PanelInputTest::withoutNamesOfTheAnalysisTheListsOfferThoseOf501()
{
    Desk desk;
    const QString path = desk.EmptyProject();
    QVERIFY(QFile::remove(desk.folder.Path(u"new.abd"_s)));
    desk.Open(path, 313);
    desk.Grid().SetFocusCell(2, 1);
    QVERIFY(desk.Grid().Source()->Words(2, 1).isEmpty());
    desk.Go(501);
    desk.Grid().SetFocusCell(2, 1);
    for (const QString& name : {u"G1"_s, u"G2"_s, u"G3"_s}) {
        Type(name);
        Press(Qt::Key_Return);
    }
    desk.Grid().SetFocusCell(2, 2);
    for (const QString& name : {u"S1"_s, u"C1_2"_s}) {
        Type(name);
        Press(Qt::Key_Return);
    }
    desk.Go(313);
    QCOMPARE(desk.Grid().Source()->Words(2, 1), QStringList({u"G1"_s, u"G2"_s, u"G3"_s}));
    QCOMPARE(desk.Grid().Source()->Words(2, 3), QStringList({u"S1"_s, u"C1"_s}));
    desk.Grid().SetFocusCell(2, 2);
    Type(u"3"_s); // offered by any part of it
    Press(Qt::Key_Down);
    Press(Qt::Key_Return);
    QCOMPARE(desk.Cell(2, 2), u"G3"_s);
}

/// "ピンク色の項目のみ入力必要", says a head.
void PanelInputTest::whatColoursSayIsHeardToo()
{
    Desk desk;
    desk.Open(desk.EmptyProject(), 301);
    desk.Grid().SetFocusCell(3, 2);
    QCOMPARE(desk.Grid().Source()->ColorWord(3, 2), u"赤色"_s);
    desk.Grid().Source()->SetText(3, 2, QStringLiteral("断面1のみ"));
    desk.Grid().ShowAll();
    int pink = 0;
    for (int row = 1; row <= 36; ++row)
        pink += desk.Grid().Source()->ColorWord(row, 1).isEmpty() || row == 3 ? 0 : 1;
    QVERIFY(pink > 0 && pink < 35);
    QAccessibleTableInterface* table = QAccessible::queryAccessibleInterface(&desk.Grid())->tableInterface();
    bool heard = false;
    for (int row = 0; row < 36; ++row)
        heard = heard || table->cellAt(row, 0)->text(QAccessible::Description).contains(u"ピンク色"_s);
    QVERIFY(heard);
}

// --- bad input ---------------------------------------------------------------------------------------

void PanelInputTest::aPasteNamesWhatItCannotTakeAndPutsTheRest()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    const QStringList second = desk.Row(2);
    QApplication::clipboard()->setText(u"GA\tG♥\tC1\nGB\tGC\tC😀2\n"_s);
    desk.Grid().SetFocusCell(2, 1);
    Press(Qt::Key_V, Qt::ControlModifier);
    QVERIFY2(desk.told.isEmpty(), "a box bars the way");
    const QString notice = desk.child->Notices().TextOf(u"paste"_s);
    QVERIFY2(notice.contains(u"「♥」「😀」"_s), qPrintable(notice));
    QVERIFY2(notice.contains(u"2 個のセル"_s) && notice.contains(u"2 行目「主桁終」"_s), qPrintable(notice));
    QCOMPARE(desk.Row(2).mid(0, 3), (QStringList{u"GA"_s, second[1], u"C1"_s}));
    QCOMPARE(desk.Stored(313, 3, 2), u"GC"_s);
    Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(desk.Row(2), second);
    QVERIFY(!desk.child->Doc().IsModified());
}

void PanelInputTest::aPasteOfMegabytesEnds()
{
    Desk desk;
    desk.Open(desk.EmptyProject(), 313);
    const auto paste = [&desk](const QString& text) {
        QApplication::clipboard()->setText(text);
        desk.Grid().SetFocusCell(2, 1);
        QElapsedTimer clock;
        clock.start();
        Press(Qt::Key_V, Qt::ControlModifier);
        desk.Grid().grab();
        const qint64 pasted = clock.restart();
        Press(Qt::Key_Z, Qt::ControlModifier);
        qInfo() << text.size() << "characters: pasted in" << pasted << "ms, taken back in" << clock.elapsed() << "ms";
        return pasted;
    };
    constexpr qint64 most = 15000; // ms; wide of the mark, the machine may be busy
    const QString line = u"G1\tG2\tA1\tA2\t両腹板\t130\t10\t3\t2.5 2.5\n"_s;
    QVERIFY(paste(line.repeated(2 * 1024 * 1024 / int(line.size()))) < most);
    QVERIFY(paste(QString(2 * 1024 * 1024, u'x')) < most);  // one cell
    QVERIFY(paste(QString(2 * 1024 * 1024, u'\t')) < most); // columns that there are not
    QVERIFY(paste(QString(2 * 1024 * 1024, u'\n')) < most); // lines with nothing
    QVERIFY(paste(QString(2 * 1024 * 1024, u'"')) < most);  // marks
    QVERIFY(paste(u"\"x\t"_s.repeated(700000)) < most);     // marks that nothing closes
    QVERIFY(paste(QString(1024 * 1024, u'♥')) < most);      // nothing that can be stored
    QVERIFY(!desk.child->Doc().IsModified());
}

void PanelInputTest::aPasteOfBinaryLeavesOneLineCells()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    QString text;
    for (char16_t c = 1; c < 0x250; ++c)
        text += QChar(c);
    text += QChar(0xD800); // half a character
    text += u"\tG2\r\nG3\tG4"_s;
    QApplication::clipboard()->setText(text);
    desk.Grid().SetFocusCell(30, 1);
    Press(Qt::Key_V, Qt::ControlModifier);
    for (int row = 1; row <= desk.Grid().model()->rowCount(); ++row)
        for (const QString& cell : desk.Row(row))
            for (const QChar c : cell)
                QVERIFY2(c.unicode() >= 0x20 && c.unicode() != 0x7F, qPrintable(cell));
    QApplication::clipboard()->setText(u"G5\tG6"_s + QChar(0) + u"tail\nG7"_s);
    desk.Grid().SetFocusCell(40, 1);
    Press(Qt::Key_V, Qt::ControlModifier);
    QVERIFY(desk.Cell(40, 2).startsWith(u"G6"_s));

    Press(Qt::Key_F2); // a line break in the editor
    QApplication::clipboard()->setText(u"a\nb"_s);
    EditorLine(desk.Editor())->selectAll();
    EditorLine(desk.Editor())->paste();
    Press(Qt::Key_Return);
    QCOMPARE(desk.Cell(40, 1), u"a b"_s);
}

void PanelInputTest::aCellOfAHundredThousandCharactersComesBack()
{
    Desk desk;
    const QString path = desk.folder.Example(u"plate4"_s);
    desk.Open(path, 313);
    const QString text = u"1.25 "_s.repeated(20000).trimmed();
    QApplication::clipboard()->setText(text);
    desk.Grid().SetFocusCell(2, 9);
    Press(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(desk.Stored(313, 2, 9), text);
    desk.Grid().grab();
    Press(Qt::Key_F2);
    EditorLine(desk.Editor())->end(false);
    Type(u"7"_s);
    Press(Qt::Key_Return);
    QVERIFY2(desk.Stored(313, 2, 9) == text + u'7', "the editor cut the text");
    Press(Qt::Key_S, Qt::ControlModifier);
    CKELDSectionDoc again;
    QVERIFY(again.OpenDocument(path).Ok());
    QCOMPARE(toQString(again.Data().Table(313)->columns[8][1]), text + u'7');
}

void PanelInputTest::columnsWithoutAHeadAreKept()
{
    Desk desk;
    desk.child = desk.frame.OpenProject(desk.EmptyProject());
    TableBlock& table = *test::DataOf(desk.child->Doc()).Table(512); // more columns than heads
    table.AppendRow({Cp932("自動計算(YES_NO)"), "NO"});
    table.AppendRow({"G1", "G2", "A1", "A2", "1", "2", "3"});
    const std::size_t columns = table.columns.size();
    for (CColumnVector& column : table.columns)
        if (column[1].empty())
            column.Set(1, "9");
    const TableBlock before = table;
    desk.Go(512);
    desk.Grid().SetFocusCell(2, 5);
    Type(u"5"_s);
    Press(Qt::Key_Return);
    QCOMPARE(desk.child->Doc().Data().Table(512)->columns.size(), columns);
    for (std::size_t column = 0; column < columns; ++column)
        QVERIFY(desk.child->Doc().Data().Table(512)->columns[column][1]
                == (column == 4 ? "5" : before.columns[column][1]));
}

void PanelInputTest::aRefusedTextIsToldAtASaveAndStaysInTheEditor()
{
    Desk desk;
    const QString path = desk.folder.Example(u"plate4"_s);
    desk.Open(path, 301);
    desk.Grid().SetFocusCell(5, 2);
    Type(u"YES"_s);
    Press(Qt::Key_Return);
    desk.Grid().SetFocusCell(1, 2);
    const QString before = desk.Option(301, 1);
    Press(Qt::Key_F2);
    EditorLine(desk.Editor())->setText(u"橋♥"_s);
    QVERIFY(OnSaveDocument(desk.child->Doc(), desk.child->Lock(), path).Ok());
    QCOMPARE(desk.told.size(), 1);
    QVERIFY2(desk.told[0].startsWith(u"「♥」"_s) && desk.told[0].contains(u"1 行目「入力データ」"_s)
                 && desk.told[0].contains(u"元の値"_s),
             qPrintable(desk.told[0]));
    QVERIFY(desk.Grid().IsEditing());
    QCOMPARE(EditorText(desk.Editor()), u"橋♥"_s);
    QCOMPARE(desk.Option(301, 1), before); // the save went on, with the old value in this cell
    QVERIFY(Bytes(path).contains(QByteArray("DONOT_DESIGN_SWAY")));
    EditorLine(desk.Editor())->setText(u"橋"_s);
    Press(Qt::Key_Return);
    QCOMPARE(desk.Option(301, 1), u"橋"_s);
    QVERIFY(desk.child->Doc().IsModified());
}

void PanelInputTest::aPanelWithARefusedTextMayNotClose()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 301));
    desk.Grid().SetFocusCell(1, 2);
    Press(Qt::Key_F2);
    EditorLine(desk.Editor())->setText(u"橋♥"_s);
    QVERIFY(!desk.Panel().MayClose());
    QCOMPARE(desk.told.size(), 1);
    QCOMPARE(EditorText(desk.Editor()), u"橋♥"_s);
    desk.Panel().MoveRowDown(); // nothing is done with the text in between
    QCOMPARE(desk.told.size(), 2);
    QVERIFY(desk.Grid().IsEditing());

    desk.child->Tree().setFocus(); // the editor closes; the text is still there
    QVERIFY(!desk.Panel().MayClose());
    QCOMPARE(desk.told.size(), 3);
    QCOMPARE(EditorText(desk.Editor()), u"橋♥"_s);
    QTest::qWait(20);
    QCOMPARE(desk.told.size(), 3); // told once
    Press(Qt::Key_Escape);
    QVERIFY(desk.Panel().MayClose());
    QCOMPARE(desk.told.size(), 3);
}

void PanelInputTest::theBlockSwitchWaitsForARefusedText()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 301));
    desk.Grid().SetFocusCell(1, 2);
    Press(Qt::Key_F2);
    EditorLine(desk.Editor())->setText(u"橋♥"_s);
    QVERIFY(!desk.child->GoToBlock(313));
    QCOMPARE(desk.child->CurrentBlock(), 301);
    QCOMPARE(desk.told.size(), 1);
    QVERIFY(desk.Editor() != nullptr);
    QCOMPARE(EditorText(desk.Editor()), u"橋♥"_s);
    EditorLine(desk.Editor())->setText(u"橋"_s);
    QVERIFY(desk.child->GoToBlock(313)); // now it is taken on the way out
    QCOMPARE(desk.Option(301, 1), u"橋"_s);
    QCOMPARE(desk.told.size(), 1);
}

void PanelInputTest::rowsAreAddedByNumber()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    const int rows = desk.Grid().model()->rowCount();
    int asked = 0;
    const auto ask = [&asked](int answer) {
        return [&asked, answer](QWidget*) {
            ++asked;
            return answer;
        };
    };
    desk.Panel().askRowCount = ask(25);
    desk.Panel().AskRows();
    QCOMPARE(desk.Grid().model()->rowCount(), rows + 25);
    QCOMPARE(desk.Grid().model()->headerData(rows + 24, Qt::Vertical).toString(), QString::number(rows + 25));
    QVERIFY(desk.Grid().Source()->Words(rows + 25, 5).contains(u"両腹板"_s));
    desk.Panel().askRowCount = ask(0);
    desk.Panel().AskRows();
    QCOMPARE(desk.Grid().model()->rowCount(), rows + 25);
    for (const int block : {311, 324, 325, 501, 702, 602, 703}) {
        desk.Go(block);
        const int before = desk.Grid().model()->rowCount();
        desk.Panel().askRowCount = ask(3);
        desk.Panel().AskRows();
        QCOMPARE(desk.Grid().model()->rowCount(), before + 3);
    }
    asked = 0;
    desk.Go(301);
    desk.Panel().askRowCount = ask(3);
    desk.Panel().AskRows();
    QCOMPARE(asked, 0); // the rows of an option block are fixed
    QVERIFY(!desk.Panel().CanAddRows());
}

void PanelInputTest::whatWasSaidOfACellGoesWithItsPanel()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    desk.Grid().SetFocusCell(1, 5); // the control row takes nothing there
    QVERIFY(!desk.Grid().Source()->IsEditable(1, 5));
    Type(u"1"_s);
    const QStatusBar& bar = *desk.frame.statusBar();
    QVERIFY(!bar.currentMessage().isEmpty());
    desk.child->GoToBlock(302);
    QCOMPARE(bar.currentMessage(), QString());
}

QTEST_MAIN(PanelInputTest)
#include "panel_input_test.moc"
