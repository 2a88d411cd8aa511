// What hands do in a panel reaches the document, and nothing else does.
#include "document/section_doc.h"
#include "grid/cell_editor.h"
#include "grid/grid_ctrl.h"
#include "panelmodel/panel_model.h"
#include "tests/panels/example_panel.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QTemporaryDir>
#include <QTest>

namespace sbd {

using namespace Qt::StringLiterals;

class PanelEditTest : public test::ExamplePanel {
    Q_OBJECT

private slots:
    void init() { OpenExample(); }
    void cleanup() { CloseExample(); }

    void WhatIsTypedIsInTheDocumentWhenTheFocusMoves();
    void TypingBackGivesAnUnmodifiedDocument();
    void AWordTakenFromTheListReachesTheDocumentAtOnce();
    void EscLeavesTheDocumentAlone();
    void ACharacterThatCannotBeStoredIsRefused();
    void WhatIsNoNumberIsToldAndStaysInTheEditor();
    void FullWidthNumbersAreTaken();
    void APastedWordLeavesTheNumberAndIsTold();
    void ClosingTakesTheCellUnderEdit();
    void SavingTakesTheCellUnderEdit();
    void AfterASaveOnlyNewChangesCount();
    void NamesOf501BecomeBeamNames();
    void CopyPasteAndUndoReachTheDocument();
    void UndoOfAPasteAndOfAnInsertedRowLeaveTheCursorThere();
    void RowsMoveByCommand();
    void AddedRowsTakeText();
};

void PanelEditTest::WhatIsTypedIsInTheDocumentWhenTheFocusMoves()
{
    Open(302);
    Focus(6, 2);
    Type(u"14"_s);
    Key(Qt::Key_Return);
    QCOMPARE(Option(302, 6), u"14"_s);
    QVERIFY(doc_->IsModified());
    Open(313);
    Focus(3, 6);
    Type(u"155"_s);
    Key(Qt::Key_Tab);
    QCOMPARE(Stored(313, 3, 6), u"155"_s);
    QCOMPARE(panel_->Grid()->FocusCell(), (GridCell{3, 7}));
}

void PanelEditTest::TypingBackGivesAnUnmodifiedDocument()
{
    Open(302);
    Focus(6, 2);
    const QString before = Option(302, 6);
    Type(u"14"_s);
    Key(Qt::Key_Return);
    QVERIFY(doc_->IsModified());
    Focus(6, 2);
    Type(before);
    Key(Qt::Key_Return);
    QVERIFY(!doc_->IsModified());
}

void PanelEditTest::AWordTakenFromTheListReachesTheDocumentAtOnce()
{
    Open(301);
    Focus(4, 2);
    panel_->Grid()->OpenList();
    CCellCombo* combo = qobject_cast<CCellCombo*>(Editor());
    QVERIFY(combo);
    QTRY_VERIFY(combo->view()->isVisible());
    QCOMPARE(Option(301, 4), u"NO"_s);
    QTest::keyClick(combo->view(), Qt::Key_Up);
    QTest::keyClick(combo->view(), Qt::Key_Return);
    QCOMPARE(Option(301, 4), u"YES"_s);
    QVERIFY(Notified(301, 3));
}

void PanelEditTest::EscLeavesTheDocumentAlone()
{
    Open(302);
    Focus(6, 2);
    const QString before = Option(302, 6);
    Type(u"14"_s);
    Key(Qt::Key_Escape);
    Key(Qt::Key_Return);
    QCOMPARE(Option(302, 6), before);
    QVERIFY(!doc_->IsModified());
}

void PanelEditTest::ACharacterThatCannotBeStoredIsRefused()
{
    Open(301);
    Focus(1, 2);
    const QString before = Option(301, 1);
    Key(Qt::Key_F2);
    EditorLine(Editor())->setText(u"橋♥梁"_s);
    Key(Qt::Key_Return);
    QTRY_COMPARE(messages_.size(), 1);
    QVERIFY(messages_[0].startsWith(u"「♥」"_s));
    QCOMPARE(Option(301, 1), before);
    QTRY_VERIFY(panel_->Grid()->IsEditing());
    QCOMPARE(EditorText(Editor()), u"橋♥梁"_s);
    EditorLine(Editor())->setText(u"橋梁①"_s);
    Key(Qt::Key_Return);
    QCOMPARE(Option(301, 1), u"橋梁①"_s);
}

void PanelEditTest::WhatIsNoNumberIsToldAndStaysInTheEditor()
{
    for (const QString& text : {u"abc"_s, u"1,2"_s, u"1e50"_s}) {
        Open(311);
        messages_.clear();
        Focus(5, 5);
        const QString before = panel_->Grid()->Source()->Text(5, 5);
        QVERIFY(!before.isEmpty());
        Key(Qt::Key_F2);
        EditorLine(Editor())->setText(text);
        Key(Qt::Key_Return);
        QTRY_COMPARE(messages_.size(), 1);
        QVERIFY2(messages_[0].startsWith(u"「%1」は数値として読めません。5 行目「"_s.arg(text)),
                 qPrintable(messages_[0]));
        QVERIFY(messages_[0].contains(u"元のままです"_s));
        QTRY_VERIFY(panel_->Grid()->IsEditing());
        QCOMPARE(EditorText(Editor()), text); // nothing that was typed is lost
        QCOMPARE(panel_->Grid()->Source()->Text(5, 5), before);
        QVERIFY(!panel_->MayClose());
        Key(Qt::Key_Escape);
        QVERIFY(panel_->MayClose());
        QVERIFY(!doc_->IsModified());
    }
}

void PanelEditTest::FullWidthNumbersAreTaken()
{
    Open(311);
    for (const auto& [typed, shown] : std::vector<std::pair<QString, QString>>{
             {u"２．５"_s, u"2.5"_s}, {u"－１"_s, u"-1"_s}, {u"\u2212１"_s, u"-1"_s}}) {
        Focus(5, 5);
        Key(Qt::Key_F2);
        EditorLine(Editor())->setText(typed);
        Key(Qt::Key_Return);
        QCOMPARE(panel_->Grid()->Source()->Text(5, 5), shown);
    }
    QCOMPARE(messages_, QStringList());
}

void PanelEditTest::APastedWordLeavesTheNumberAndIsTold()
{
    Open(311);
    Focus(5, 5);
    const QString before = panel_->Grid()->Source()->Text(5, 5);
    QApplication::clipboard()->setText(u"abc\t４．５"_s);
    panel_->Grid()->Paste();
    QCOMPARE(panel_->Grid()->Source()->Text(5, 5), before);
    QCOMPARE(panel_->Grid()->Source()->Text(5, 6), u"4.5"_s);
    QCOMPARE(messages_.size(), 1);
    QVERIFY2(messages_[0].startsWith(u"「abc」は数値として読めません。数値だけが入る 1 個のセル（最初は 5 行目「"_s),
             qPrintable(messages_[0]));
}

void PanelEditTest::ClosingTakesTheCellUnderEdit()
{
    Open(302);
    Focus(6, 2);
    Type(u"15"_s);
    QVERIFY(panel_->Grid()->IsEditing());
    Close();
    QCOMPARE(Option(302, 6), u"15"_s);
    QVERIFY(doc_->IsModified());
}

void PanelEditTest::SavingTakesTheCellUnderEdit()
{
    QTemporaryDir folder;
    Open(302);
    Focus(6, 2);
    Type(u"15"_s);
    QVERIFY(doc_->SaveDocument(folder.filePath(u"a.sbd"_s)).Ok());
    QCOMPARE(Option(302, 6), u"15"_s);
    QVERIFY(!doc_->IsModified());
    CKELDSectionDoc again;
    QVERIFY(again.OpenDocument(folder.filePath(u"a.sbd"_s)).Ok());
    QCOMPARE(toQString(again.Data().Option(302, 5)), u"15"_s);
}

void PanelEditTest::AfterASaveOnlyNewChangesCount()
{
    QTemporaryDir folder;
    Open(302);
    Focus(6, 2);
    const QString before = Option(302, 6);
    Type(u"15"_s);
    Key(Qt::Key_Return);
    QVERIFY(doc_->SaveDocument(folder.filePath(u"a.sbd"_s)).Ok());
    Focus(8, 2);
    QVERIFY(!doc_->IsModified());
    Focus(6, 2);
    Type(before); // no longer what the file holds
    Key(Qt::Key_Return);
    QVERIFY(doc_->IsModified());
}

void PanelEditTest::NamesOf501BecomeBeamNames()
{
    Open(501);
    const std::size_t before = doc_->Data().gridNames.swayNames.size();
    Focus(int(panel_->Model()->BlockRows()) + 1, 2);
    Type(u"X9_2"_s);
    Key(Qt::Key_Return);
    QCOMPARE(doc_->Data().gridNames.swayNames.size(), before + 1);
    QCOMPARE(doc_->Data().gridNames.swayNames.back(), std::string("X9"));
}

void PanelEditTest::CopyPasteAndUndoReachTheDocument()
{
    Open(313);
    Focus(2, 1);
    Key(Qt::Key_Right, Qt::ShiftModifier);
    panel_->Copy();
    QCOMPARE(QApplication::clipboard()->text(), u"G1\tG4"_s);
    const std::size_t rows = doc_->Data().RowCount(313);
    Focus(int(rows) + 1, 1);
    panel_->Paste();
    QCOMPARE(doc_->Data().RowCount(313), rows + 1);
    QVERIFY(doc_->IsModified());
    panel_->Undo();
    QCOMPARE(doc_->Data().RowCount(313), rows);
    QVERIFY(!doc_->IsModified());
    Focus(2, 6);
    panel_->Delete();
    QCOMPARE(Stored(313, 2, 6), QString());
    Key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Stored(313, 2, 6), u"130"_s);
}

void PanelEditTest::UndoOfAPasteAndOfAnInsertedRowLeaveTheCursorThere()
{
    Open(313);
    CGridCtrl& grid = *panel_->Grid();
    const int rows = grid.model()->rowCount();
    Focus(rows - 1, 2);
    QApplication::clipboard()->setText(u"1\n2\n3\n4\n5"_s);
    panel_->Paste();
    QCOMPARE(grid.model()->rowCount(), rows + 3);
    grid.SetFocusCell(rows + 3, 2); // in a row that is going to go
    panel_->Undo();
    QCOMPARE(grid.model()->rowCount(), rows);
    QCOMPARE(grid.FocusCell().row, rows - 1);
    QVERIFY(!doc_->IsModified());
    Focus(3, 4);
    panel_->InsertRow();
    panel_->Undo();
    QCOMPARE(grid.FocusCell(), (GridCell{3, 4}));
    QVERIFY(!doc_->IsModified());
}

void PanelEditTest::RowsMoveByCommand()
{
    Open(313);
    Focus(2, 3);
    QVERIFY(!panel_->CanMoveRowUp());
    QVERIFY(panel_->CanMoveRowDown());
    const QString first = Stored(313, 2, 3);
    panel_->MoveRowDown();
    QCOMPARE(Stored(313, 3, 3), first);
    QCOMPARE(panel_->Grid()->FocusCell(), (GridCell{3, 3}));
    panel_->MoveRowUp();
    QVERIFY(!doc_->IsModified());
    panel_->InsertRow();
    Type(u"C9"_s); // a row without its first cell is not stored
    Key(Qt::Key_Return);
    QVERIFY(!doc_->IsModified());
    Focus(2, 1);
    Type(u"G2"_s);
    Key(Qt::Key_Return);
    QCOMPARE(Stored(313, 2, 3), u"C9"_s);
    QCOMPARE(Stored(313, 3, 3), first);
}

void PanelEditTest::AddedRowsTakeText()
{
    Open(313);
    const int rows = panel_->Grid()->model()->rowCount();
    panel_->AddRows(25);
    QCOMPARE(panel_->Grid()->model()->rowCount(), rows + 25);
    Focus(rows + 25, 1);
    Type(u"G3"_s);
    Key(Qt::Key_Return);
    QTRY_COMPARE(Stored(313, int(doc_->Data().RowCount(313)), 1), u"G3"_s); // though the focus had nowhere to go
    Open(301);
    const int options = panel_->Grid()->model()->rowCount();
    panel_->AddRows(5);
    QCOMPARE(panel_->Grid()->model()->rowCount(), options);
}

} // namespace sbd

QTEST_MAIN(sbd::PanelEditTest)
#include "panel_edit_test.moc"
