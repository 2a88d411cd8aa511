// What fingers expect of a grid that stays open all day, by keys and mouse in real panels.
#include "document/section_doc.h"
#include "grid/cell_editor.h"
#include "grid/grid_ctrl.h"
#include "panelmodel/panel_model.h"
#include "panels/input_panel.h"
#include "panels/row_filter.h"
#include "project/catalogue.h"
#include "project/text.h"
#include "tests/document/data_of.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QImage>
#include <QLineEdit>
#include <QMimeData>
#include <QSignalSpy>
#include <QStatusTipEvent>
#include <QTest>
#include <QWheelEvent>

namespace sbd {

using namespace Qt::StringLiterals;

class GridKeysTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<CKELDSectionDoc> doc_;
    std::unique_ptr<CPanel> panel_;
    QStringList messages_;
    QString status_;

    bool eventFilter(QObject* object, QEvent* event) override
    {
        if (event->type() == QEvent::StatusTip)
            status_ = static_cast<QStatusTipEvent*>(event)->tip();
        return QObject::eventFilter(object, event);
    }

    void Open(int block)
    {
        if (panel_ != nullptr)
            panel_->ClosePanel();
        panel_ = CreatePanel(doc_.get(), CanonicalBlock(block));
        QVERIFY(panel_ != nullptr);
        panel_->installEventFilter(this);
        Grid().showMessage = [this](const QString& message) { messages_ << message; };
        panel_->resize(1000, 420);
        panel_->show();
        QVERIFY(QTest::qWaitForWindowActive(panel_.get()));
        Grid().setFocus();
    }
    [[nodiscard]] CGridCtrl& Grid() const { return *panel_->Grid(); }
    [[nodiscard]] CInputPanel& Input() const { return static_cast<CInputPanel&>(*panel_); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void Type(const QString& text)
    {
        for (const QChar c : text)
            QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
    }
    void Select(int top, int left, int bottom, int right)
    {
        Grid().SetFocusCell(top, left);
        for (int row = top; row < bottom; ++row)
            Key(Qt::Key_Down, Qt::ShiftModifier);
        for (int column = left; column < right; ++column)
            Key(Qt::Key_Right, Qt::ShiftModifier);
    }
    [[nodiscard]] QString Cell(int row, int column) const { return Grid().Source()->Text(row, column); }
    [[nodiscard]] QStringList Column(int top, int column, int bottom) const
    {
        QStringList cells;
        for (int row = top; row <= bottom; ++row)
            cells << Cell(row, column);
        return cells;
    }
    [[nodiscard]] QString Stored(int row, int column) const
    {
        return toQString(doc_->Data().Table(313)->columns[std::size_t(column) - 1][std::size_t(row) - 1]);
    }
    [[nodiscard]] int StoredRows() const { return int(doc_->Data().Table(313)->RowCount()); }
    [[nodiscard]] QPoint Middle(int row, int column) const
    {
        return Grid().visualRect(Grid().model()->index(row - 1, column - 1)).center();
    }
    void Drag(QPoint from, QPoint to, Qt::KeyboardModifiers modifiers = {})
    {
        QWidget* cells = Grid().viewport();
        QTest::mousePress(cells, Qt::LeftButton, {}, from);
        for (const QPoint& pos : {(from + to) / 2, to}) {
            QMouseEvent move(QEvent::MouseMove, pos, cells->mapToGlobal(pos), Qt::NoButton, Qt::LeftButton, modifiers);
            QApplication::sendEvent(cells, &move);
        }
        QTest::mouseRelease(cells, Qt::LeftButton, modifiers, to);
    }
    /// One undo takes the command back, one redo makes it again.
    void IsOneStep(const QStringList& before, int top, int column, int bottom)
    {
        const QStringList after = Column(top, column, bottom);
        QVERIFY(after != before);
        doc_->Undo();
        QCOMPARE(Column(top, column, bottom), before);
        doc_->Redo();
        QCOMPARE(Column(top, column, bottom), after);
    }

private slots:
    void init();
    void cleanup();

    void ControlDFillsDownAndControlRToTheRight();
    void ControlEnterPutsTheTypedTextIntoTheWholeSelection();
    void ControlEnterWithATextThatTheCellRefusesFillsNothing();
    void OneCopiedValueFillsASelection();
    void ACopiedBlockTilesIntoAMultipleOfItself();
    void TheHandleCopiesAndCountsOnWithControl();
    void AClickOnTheHandleOverAListsButtonOpensTheList();
    void TheMenuPutsAnOpenTextIntoTheSelectionInOneStep();
    void TypingWithASelectionGoesToItsAnchor();
    void ADragKeepsTheFocusWhereItBegan();
    void AShiftClickExtendsTheSelection();
    void EnterAndTabGoRoundInsideASelection();
    void EnterBehindTabsReturnsToTheColumnWhereTheyBegan();
    void RowsAreInsertedDeletedAndDuplicatedByKey();
    void RowsMoveByKeySeveralAtOnce();
    void RedoOfAMoveShowsTheRowWhereItStandsAndSaysWhereItCameFrom();
    void AltDownOpensTheListOfACellAndMovesTheSelectedRow();
    void CopyWithHeadsAndATableForWordProcessors();
    void ATableFromABrowserIsPastedCellByCell();
    void APasteBeyondTheEdgeOrIntoLockedCellsSaysHowManyStayed();
    void TheSummaryFollowsTheSelection();
    void TheWheelWithControlZoomsAndControl0Resets();
    void HomePageAndControlShiftKeysSelect();
    void AFilterHidesRowsAndNoCommandTouchesThem();
    void AFilterStaysThroughUndoAndEndsWithEscape();
    void WordsAreOfferedByAnyPartInAnyWidthAndCase();
    void TheSelectionIsSeenOnTheGreenRow();
    void TheFocusedRowHasASignBesideItsColour();
    void ADoubleClickOnABorderFitsTheColumn();
};

void GridKeysTest::init()
{
    doc_ = std::make_unique<CKELDSectionDoc>();
    CSbdData& data = test::DataOf(*doc_);
    const auto add = [&data](std::initializer_list<const char*> cells) {
        std::vector<std::string> bytes;
        for (const char* cell : cells)
            bytes.push_back(Cp932(cell));
        data.Table(313)->AppendRow({bytes.begin(), bytes.end()});
    };
    add({"自動計算(YES_NO)", "NO"});
    for (const char* station : {"C1", "C2", "C3", "C4", "C5", "C6"})
        add({"G1", "G4", station, "A2", "両面", "110", "9", "2", "1000"});
    messages_.clear();
    Open(313);
}

void GridKeysTest::cleanup()
{
    panel_.reset();
    doc_.reset();
}

void GridKeysTest::ControlDFillsDownAndControlRToTheRight()
{
    Grid().SetFocusCell(2, 6);
    Type(u"150"_s);
    Key(Qt::Key_Return);
    const QStringList before = Column(2, 6, 6);
    Select(2, 6, 5, 6);
    Key(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(Column(2, 6, 6), QStringList({u"150"_s, u"150"_s, u"150"_s, u"150"_s, u"110"_s}));
    QCOMPARE(Stored(4, 6), u"150"_s);
    QVERIFY(status_.contains(u"3 個のセル"_s));
    IsOneStep(before, 2, 6, 6);
    Grid().SetFocusCell(6, 6); // from the row above
    Key(Qt::Key_D, Qt::ControlModifier);
    QCOMPARE(Cell(6, 6), u"150"_s);
    Select(3, 6, 3, 8);
    Key(Qt::Key_R, Qt::ControlModifier);
    QCOMPARE(Cell(3, 7) + Cell(3, 8), u"150150"_s);
    Grid().SetFocusCell(2, 2);
    Key(Qt::Key_D, Qt::ControlModifier); // the row above is the automatic one
    QCOMPARE(Cell(2, 2), u"G4"_s);
    QVERIFY(status_.contains(u"コピーできる行がありません"_s));
}

void GridKeysTest::ControlEnterPutsTheTypedTextIntoTheWholeSelection()
{
    const QStringList before = Column(2, 7, 6);
    Select(2, 7, 5, 7);
    Type(u"12"_s);
    Key(Qt::Key_Return, Qt::ControlModifier);
    QVERIFY(!Grid().IsEditing());
    QCOMPARE(Column(2, 7, 6), QStringList({u"12"_s, u"12"_s, u"12"_s, u"12"_s, u"9"_s}));
    QCOMPARE(Grid().FocusCell(), (GridCell{2, 7}));
    QCOMPARE(Grid().SelectedRange().bottom, 5);
    IsOneStep(before, 2, 7, 6);
    Select(2, 5, 3, 5); // a cell with a list
    Type(u"x"_s);
    Key(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(Column(2, 5, 4), QStringList({u"x"_s, u"x"_s, u"両面"_s}));
    Grid().SetFocusCell(2, 8);
    Type(u"5"_s);
    Key(Qt::Key_Return, Qt::ControlModifier); // one cell: taken, and the focus stays
    QCOMPARE(Cell(2, 8), u"5"_s);
    QCOMPARE(Grid().FocusCell(), (GridCell{2, 8}));
}

void GridKeysTest::ControlEnterWithATextThatTheCellRefusesFillsNothing()
{
    Select(2, 7, 4, 7);
    Type(u"1"_s);
    qobject_cast<QLineEdit*>(QApplication::focusWidget())->setText(u"♥"_s);
    Key(Qt::Key_Return, Qt::ControlModifier);
    QTRY_COMPARE(messages_.size(), 1);
    QCOMPARE(Column(2, 7, 4), QStringList({u"9"_s, u"9"_s, u"9"_s}));
    QVERIFY(Grid().IsEditing()); // with what was typed
}

void GridKeysTest::OneCopiedValueFillsASelection()
{
    Grid().SetFocusCell(2, 3);
    Key(Qt::Key_C, Qt::ControlModifier);
    const QStringList before = Column(2, 4, 6);
    Select(2, 4, 5, 4);
    Key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Column(2, 4, 6), QStringList({u"C1"_s, u"C1"_s, u"C1"_s, u"C1"_s, u"A2"_s}));
    IsOneStep(before, 2, 4, 6);
}

void GridKeysTest::ACopiedBlockTilesIntoAMultipleOfItself()
{
    QApplication::clipboard()->setText(u"1\t2\n3\t4"_s);
    const QStringList before = Column(2, 7, 5);
    Select(2, 7, 5, 8);
    Key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Column(2, 7, 5), QStringList({u"1"_s, u"3"_s, u"1"_s, u"3"_s}));
    QCOMPARE(Column(2, 8, 5), QStringList({u"2"_s, u"4"_s, u"2"_s, u"4"_s}));
    QCOMPARE(Grid().SelectedRange().bottom, 5);
    IsOneStep(before, 2, 7, 5);
}

void GridKeysTest::TheHandleCopiesAndCountsOnWithControl()
{
    Grid().SetFocusCell(2, 9);
    const QStringList before = Column(2, 9, 6);
    Drag(Grid().FillHandle().center(), Middle(4, 9), Qt::ControlModifier);
    QCOMPARE(Column(2, 9, 5), QStringList({u"1000"_s, u"1001"_s, u"1002"_s, u"1000"_s}));
    QCOMPARE(Grid().SelectedRange().bottom, 4);
    QCOMPARE(Grid().FocusCell(), (GridCell{2, 9}));
    IsOneStep(before, 2, 9, 6);
    Grid().SetFocusCell(2, 3);
    Drag(Grid().FillHandle().center(), Middle(4, 3));
    QCOMPARE(Column(2, 3, 5), QStringList({u"C1"_s, u"C1"_s, u"C1"_s, u"C4"_s}));
    Grid().SetFocusCell(6, 3);
    Drag(Grid().FillHandle().center(), Middle(1, 3), Qt::ControlModifier); // upward, the automatic row stays
    QCOMPARE(Column(2, 3, 6), QStringList({u"C1"_s, u"C2"_s, u"C3"_s, u"C4"_s, u"C5"_s}));
}

void GridKeysTest::AClickOnTheHandleOverAListsButtonOpensTheList()
{
    Grid().SetFocusCell(2, 5);
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Grid().FillHandle().center());
    auto* combo = qobject_cast<CCellCombo*>(Grid().indexWidget(Grid().currentIndex()));
    QVERIFY(combo != nullptr);
    combo->hidePopup();
}

void GridKeysTest::TheMenuPutsAnOpenTextIntoTheSelectionInOneStep()
{
    const QStringList before = Column(2, 7, 4);
    Select(2, 7, 4, 7);
    Type(u"14"_s);
    panel_->RunGridCommand(Command::FillSelection);
    QCOMPARE(Column(2, 7, 4), QStringList({u"14"_s, u"14"_s, u"14"_s}));
    IsOneStep(before, 2, 7, 4);
}

void GridKeysTest::TypingWithASelectionGoesToItsAnchor()
{
    Select(3, 6, 5, 7);
    QCOMPARE(Grid().FocusCell(), (GridCell{3, 6}));
    Type(u"88"_s);
    Key(Qt::Key_Return);
    QCOMPARE(Cell(3, 6), u"88"_s);
    QCOMPARE(Cell(5, 7), u"9"_s);
}

void GridKeysTest::ADragKeepsTheFocusWhereItBegan()
{
    Drag(Middle(2, 6), Middle(4, 8));
    QCOMPARE(Grid().FocusCell(), (GridCell{2, 6}));
    const GridRange range = Grid().SelectedRange();
    QCOMPARE(range.bottom, 4);
    QCOMPARE(range.right, 8);
    Drag(Middle(4, 8), Middle(2, 6));
    QCOMPARE(Grid().FocusCell(), (GridCell{4, 8}));
    QCOMPARE(Grid().SelectedRange().top, 2);
}

void GridKeysTest::AShiftClickExtendsTheSelection()
{
    Grid().SetFocusCell(3, 6);
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, Qt::ShiftModifier, Middle(5, 7));
    QCOMPARE(Grid().FocusCell(), (GridCell{3, 6}));
    QCOMPARE(Grid().SelectedRange().bottom, 5);
    QCOMPARE(Grid().SelectedRange().right, 7);
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, Middle(4, 7));
    QCOMPARE(Grid().SelectedRange().top, 4);
    QCOMPARE(Grid().SelectedRange().bottom, 4);
}

void GridKeysTest::EnterAndTabGoRoundInsideASelection()
{
    Select(2, 6, 3, 7);
    const auto goes = [this](Qt::Key key, Qt::KeyboardModifiers modifiers, GridCell cell) {
        Key(key, modifiers);
        QCOMPARE(Grid().FocusCell(), cell);
        QCOMPARE(Grid().SelectedRange().bottom, 3);
        QCOMPARE(Grid().SelectedRange().right, 7);
    };
    goes(Qt::Key_Return, {}, {3, 6});
    goes(Qt::Key_Return, {}, {2, 7});
    Type(u"1"_s);
    goes(Qt::Key_Return, {}, {3, 7});
    goes(Qt::Key_Return, {}, {2, 6});
    goes(Qt::Key_Return, Qt::ShiftModifier, {3, 7});
    goes(Qt::Key_Tab, {}, {2, 6});
    Type(u"2"_s);
    goes(Qt::Key_Tab, {}, {2, 7});
    goes(Qt::Key_Tab, {}, {3, 6});
    goes(Qt::Key_Backtab, Qt::ShiftModifier, {2, 7});
    QCOMPARE(Cell(2, 7), u"1"_s);
    QCOMPARE(Cell(2, 6), u"2"_s);
    Select(1, 2, 2, 3); // of the automatic row only its value takes text
    Key(Qt::Key_Tab);
    QCOMPARE(Grid().FocusCell(), (GridCell{2, 2}));
}

void GridKeysTest::EnterBehindTabsReturnsToTheColumnWhereTheyBegan()
{
    Grid().SetFocusCell(2, 6);
    Type(u"1"_s);
    Key(Qt::Key_Tab);
    Type(u"2"_s);
    Key(Qt::Key_Tab);
    Type(u"3"_s);
    Key(Qt::Key_Return);
    QCOMPARE(Grid().FocusCell(), (GridCell{3, 6}));
    Key(Qt::Key_Tab);
    Key(Qt::Key_Right); // another way has begun
    Key(Qt::Key_Return);
    QCOMPARE(Grid().FocusCell(), (GridCell{4, 8}));
}

void GridKeysTest::RowsAreInsertedDeletedAndDuplicatedByKey()
{
    const QStringList before = Column(2, 3, 8);
    Select(3, 1, 4, 1);
    Key(Qt::Key_Plus, Qt::ControlModifier | Qt::ShiftModifier); // as on a Japanese keyboard
    QCOMPARE(Column(2, 3, 8), QStringList({u"C1"_s, {}, {}, u"C2"_s, u"C3"_s, u"C4"_s, u"C5"_s}));
    IsOneStep(before, 2, 3, 8);
    Select(3, 1, 4, 1);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(Column(2, 3, 8), before);
    Select(3, 3, 4, 3);
    Key(Qt::Key_Minus, Qt::ControlModifier | Qt::KeypadModifier);
    QCOMPARE(Column(2, 3, 6), QStringList({u"C1"_s, u"C4"_s, u"C5"_s, u"C6"_s, {}}));
    QCOMPARE(StoredRows(), 5);
    IsOneStep(before, 2, 3, 8);
    QCOMPARE(StoredRows(), 5);
    doc_->Undo();
    QCOMPARE(StoredRows(), 7);
    Select(2, 1, 3, 1);
    Key(Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(Column(2, 3, 6), QStringList({u"C1"_s, u"C2"_s, u"C1"_s, u"C2"_s, u"C3"_s}));
    QCOMPARE(Grid().SelectedRange().top, 4);
    QCOMPARE(StoredRows(), 9);
    IsOneStep(before, 2, 3, 8);
    Grid().SetFocusCell(1, 1);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(Cell(1, 2), u"NO"_s);
    QVERIFY(status_.contains(u"削除できません"_s));
}

void GridKeysTest::RowsMoveByKeySeveralAtOnce()
{
    const QStringList before = Column(2, 3, 7);
    Select(3, 1, 4, 3);
    Key(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(Column(2, 3, 6), QStringList({u"C1"_s, u"C4"_s, u"C2"_s, u"C3"_s, u"C5"_s}));
    QCOMPARE(Grid().FocusCell(), (GridCell{4, 1}));
    QCOMPARE(Grid().SelectedRange().bottom, 5);
    QCOMPARE(Stored(5, 3), u"C3"_s);
    IsOneStep(before, 2, 3, 7);
    Grid().SetFocusCell(3, 3);
    Key(Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(Cell(2, 3), u"C4"_s);
    Key(Qt::Key_Up, Qt::AltModifier);
    QCOMPARE(Cell(2, 3), u"C4"_s);
    QVERIFY(status_.contains(u"上へは移動できません"_s));
}

void GridKeysTest::RedoOfAMoveShowsTheRowWhereItStandsAndSaysWhereItCameFrom()
{
    Grid().SetFocusCell(5, 3);
    Key(Qt::Key_Up, Qt::AltModifier);
    doc_->Undo();
    QCOMPARE(Grid().FocusCell(), (GridCell{5, 3}));
    QCOMPARE(Cell(5, 3), u"C4"_s);
    doc_->Redo();
    QCOMPARE(Grid().FocusCell(), (GridCell{4, 3}));
    QCOMPARE(Cell(4, 3), u"C4"_s);
    QCOMPARE(status_, u"5 行目から 4 行目へ移りました。"_s);
}

void GridKeysTest::AltDownOpensTheListOfACellAndMovesTheSelectedRow()
{
    Grid().SetFocusCell(2, 5);
    Key(Qt::Key_F4);
    QVERIFY(qobject_cast<CCellCombo*>(Grid().indexWidget(Grid().currentIndex())) != nullptr);
    Key(Qt::Key_Escape);
    Key(Qt::Key_Escape);
    const QStringList before = Column(2, 3, 7);
    for (const Qt::Key key : {Qt::Key_Down, Qt::Key_Up}) {
        Grid().SetFocusCell(3, 5);
        Key(key, Qt::AltModifier);
        QVERIFY(qobject_cast<CCellCombo*>(Grid().indexWidget(Grid().currentIndex())) != nullptr);
        QCOMPARE(Column(2, 3, 7), before); // whoever wanted the list has moved no row
        Key(Qt::Key_Escape);
        Key(Qt::Key_Escape);
    }
    Key(Qt::Key_Space, Qt::ShiftModifier);
    Key(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(Cell(4, 3), before[1]);
    Open(301);
    Grid().SetFocusCell(3, 2);
    Key(Qt::Key_Down, Qt::AltModifier);
    QVERIFY(qobject_cast<CCellCombo*>(Grid().indexWidget(Grid().currentIndex())) != nullptr);
}

void GridKeysTest::CopyWithHeadsAndATableForWordProcessors()
{
    Select(2, 3, 3, 4);
    Key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), u"C1\tA2\nC2\tA2"_s);
    QVERIFY(QApplication::clipboard()->mimeData()->html().contains(u"<tr><td>C2</td><td>A2</td></tr>"_s));
    Key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    const QString text = QApplication::clipboard()->text();
    QCOMPARE(text.count(u'\n'), 2);
    QVERIFY(text.startsWith(HeadOnOneLine(Grid().Source()->Head(3, 2)) + u'\t'));
    QVERIFY(text.endsWith(u"C1\tA2\nC2\tA2"_s));
    QVERIFY(QApplication::clipboard()->mimeData()->html().contains(u"<th>"_s));
    Grid().SetFocusCell(5, 7);
    Key(Qt::Key_C, Qt::ControlModifier);
    Grid().SetFocusCell(6, 7);
    Key(Qt::Key_V, Qt::ControlModifier); // the table that goes with it does not matter here
    QCOMPARE(Cell(6, 7), u"9"_s);
}

void GridKeysTest::ATableFromABrowserIsPastedCellByCell()
{
    auto* data = new QMimeData;
    data->setText(u"G1\nG2\n1\n2\n"_s); // as some word processors give a table
    data->setHtml(u"<p>x</p><table><tr><td>G1</td><td><p>G2</p></td></tr><tr><td>1<br>5</td><td>2</td></tr></table>"_s);
    QApplication::clipboard()->setMimeData(data);
    Grid().SetFocusCell(3, 7);
    Key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Cell(3, 7) + u'|' + Cell(3, 8), u"G1|G2"_s);
    QCOMPARE(Cell(4, 8), u"2"_s);
    QVERIFY(Cell(4, 7).startsWith(u"1"_s) && Cell(4, 7).endsWith(u"5"_s));
    QCOMPARE(Cell(5, 7), u"9"_s);
}

void GridKeysTest::APasteBeyondTheEdgeOrIntoLockedCellsSaysHowManyStayed()
{
    const int last = Grid().Source()->ColumnCount();
    QApplication::clipboard()->setText(u"1\t2\t3"_s);
    Grid().SetFocusCell(2, last);
    Key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(messages_.size(), 1);
    QVERIFY2(messages_[0].contains(u"はみ出した 2 個"_s), qPrintable(messages_[0]));
    Grid().SetFocusCell(1, 4);
    Key(Qt::Key_V, Qt::ControlModifier); // the automatic row takes none of them
    QCOMPARE(messages_.size(), 2);
    QVERIFY2(messages_[1].contains(u"入力できない 3 個のセル"_s), qPrintable(messages_[1]));
    Grid().SetFocusCell(2, 6);
    Key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(messages_.size(), 2);
}

void GridKeysTest::TheSummaryFollowsTheSelection()
{
    QSignalSpy said(panel_.get(), &CPanel::summaryChanged);
    Select(2, 6, 4, 6);
    QTRY_VERIFY(!said.isEmpty());
    QVERIFY2(said.last()[0].toString().startsWith(u"個数 3　合計 330　平均 110　最小 110　最大 110"_s),
             qPrintable(said.last()[0].toString()));
    said.clear();
    Type(u"140"_s);
    Key(Qt::Key_Return, Qt::ControlModifier);
    QTRY_VERIFY(!said.isEmpty());
    QVERIFY(said.last()[0].toString().contains(u"合計 420"_s));
}

void GridKeysTest::TheWheelWithControlZoomsAndControl0Resets()
{
    const int width = Grid().columnWidth(2);
    const int height = Grid().rowHeight(2);
    QWheelEvent wheel(Middle(3, 3), Grid().viewport()->mapToGlobal(Middle(3, 3)), {}, {0, 120}, Qt::NoButton,
                      Qt::ControlModifier, Qt::NoScrollPhase, false);
    for (int i = 0; i < 5; ++i)
        QApplication::sendEvent(Grid().viewport(), &wheel);
    QCOMPARE(Grid().Zoom(), 150);
    QCOMPARE(Grid().rowHeight(2), height * 3 / 2);
    QVERIFY(Grid().columnWidth(2) > width * 14 / 10);
    QCOMPARE(Grid().font().pixelSize(), 18);
    Open(301); // stays for other blocks
    QCOMPARE(Grid().Zoom(), 150);
    Open(313);
    Key(Qt::Key_0, Qt::ControlModifier);
    QCOMPARE(Grid().Zoom(), 100);
    QCOMPARE(Grid().rowHeight(2), height);
    QVERIFY(std::abs(Grid().columnWidth(2) - width) <= 1);
}

void GridKeysTest::HomePageAndControlShiftKeysSelect()
{
    Grid().SetFocusCell(1, 3);
    Key(Qt::Key_Home);
    QCOMPARE(Grid().FocusCell(), (GridCell{1, 2})); // its first word is fixed
    Grid().SetFocusCell(3, 3);
    Key(Qt::Key_End, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(Grid().FocusCell(), (GridCell{3, 3}));
    QCOMPARE(Grid().SelectedRange().bottom, 7);
    QCOMPARE(Grid().SelectedRange().right, Grid().Source()->ColumnCount());
    Grid().SetFocusCell(3, 3);
    Key(Qt::Key_Down, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(Grid().SelectedRange().bottom, 7);
    Key(Qt::Key_Up, Qt::ShiftModifier);
    QCOMPARE(Grid().SelectedRange().bottom, 6);
    Key(Qt::Key_Home, Qt::ShiftModifier);
    QCOMPARE(Grid().SelectedRange().left, 1);
    Grid().SetFocusCell(3, 3);
    Key(Qt::Key_PageDown, Qt::ShiftModifier);
    const int page = Grid().SelectedRange().bottom;
    QVERIFY(page > 10);
    QCOMPARE(Grid().FocusCell(), (GridCell{3, 3}));
    Key(Qt::Key_PageDown);
    QCOMPARE(Grid().FocusCell(), (GridCell{page, 3}));
    Key(Qt::Key_PageUp);
    QCOMPARE(Grid().FocusCell(), (GridCell{3, 3}));
    Key(Qt::Key_Space, Qt::ShiftModifier);
    QCOMPARE(Grid().SelectedRange().left, 1);
    QCOMPARE(Grid().SelectedRange().right, Grid().Source()->ColumnCount());
    Key(Qt::Key_Space, Qt::ControlModifier);
    QCOMPARE(Grid().SelectedRange().bottom, Grid().Source()->RowCount());
    QCOMPARE(Grid().FocusCell(), (GridCell{3, 3}));
    Type(u"C9"_s); // a whole column: the rows of the table
    Key(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(Column(1, 3, 8).filter(u"C9"_s).size(), 6);
    Key(Qt::Key_A, Qt::ControlModifier);
    QCOMPARE(Grid().SelectedRange().left, 1);
    QCOMPARE(Grid().SelectedRange().bottom, Grid().Source()->RowCount());
}

void GridKeysTest::AFilterHidesRowsAndNoCommandTouchesThem()
{
    Grid().SetFocusCell(3, 4);
    Type(u"P9"_s);
    Key(Qt::Key_Return);
    Type(u"P9"_s);
    Key(Qt::Key_Return);
    Grid().SetFocusCell(3, 4);
    Key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(panel_->FiltersRows());
    Type(u"a"_s); // capital or small
    QCOMPARE(Input().RowFilter()->Told(), u"4 行を表示中。見えない 2 行は、どの操作でも変わりません。"_s);
    Key(Qt::Key_Return);
    QVERIFY(Grid().hasFocus());
    QVERIFY(Grid().isRowHidden(2) && Grid().isRowHidden(3) && !Grid().isRowHidden(0) && !Grid().isRowHidden(1));
    Select(2, 6, 5, 6); // rows 2, 5, 6, 7 are seen
    QCOMPARE(Grid().SelectedRange().bottom, 7);
    Type(u"55"_s);
    Key(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(Column(2, 6, 7), QStringList({u"55"_s, u"110"_s, u"110"_s, u"55"_s, u"55"_s, u"55"_s}));
    Select(2, 7, 3, 7);
    Key(Qt::Key_Delete);
    QCOMPARE(Column(2, 7, 6), QStringList({{}, u"9"_s, u"9"_s, {}, u"9"_s}));
    Key(Qt::Key_Down, Qt::AltModifier);
    QCOMPARE(Column(2, 3, 4), QStringList({u"C1"_s, u"C2"_s, u"C3"_s}));
    Grid().SetFocusCell(5, 3);
    Key(Qt::Key_Minus, Qt::ControlModifier);
    QCOMPARE(Column(2, 3, 6), QStringList({u"C1"_s, u"C2"_s, u"C3"_s, u"C5"_s, u"C6"_s}));
    QVERIFY(Grid().isRowHidden(2) && Grid().isRowHidden(3) && !Grid().isRowHidden(4));
    Key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(!panel_->FiltersRows());
    QVERIFY(!Grid().isRowHidden(2));
}

void GridKeysTest::AFilterStaysThroughUndoAndEndsWithEscape()
{
    Grid().SetFocusCell(3, 3);
    Key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier); // the text of the cell is wanted at once
    QVERIFY(Grid().isRowHidden(1) && !Grid().isRowHidden(2) && Grid().isRowHidden(3));
    Key(Qt::Key_Return);
    Grid().SetFocusCell(3, 6);
    Type(u"70"_s);
    Key(Qt::Key_Return);
    panel_->CommitGrid();
    doc_->Undo();
    QCOMPARE(Cell(3, 6), u"110"_s);
    QVERIFY(Grid().isRowHidden(1) && !Grid().isRowHidden(2) && Grid().isRowHidden(3));
    panel_->GoToCell(5, 3); // a search goes there
    QVERIFY(!panel_->FiltersRows());
    QCOMPARE(Grid().FocusCell(), (GridCell{5, 3}));
    Key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    QVERIFY(Grid().isRowHidden(1));
    Key(Qt::Key_Escape);
    QVERIFY(!Grid().isRowHidden(1));
    QVERIFY(Grid().hasFocus());
}

void GridKeysTest::WordsAreOfferedByAnyPartInAnyWidthAndCase()
{
    const QStringList words{u"SM400"_s, u"SM490Y"_s, u"カナ"_s, u"SS400"_s};
    QWidget window;
    CCellCombo combo(&window, words, [](QWidget*, QKeyEvent*) { return false; });
    combo.show();
    window.show();
    QVERIFY(QTest::qWaitForWindowActive(&window));
    combo.setFocus();
    combo.lineEdit()->clear();
    QTest::keyClicks(combo.lineEdit(), u"490y"_s);
    QVERIFY(combo.OffersWords());
    QCOMPARE(combo.currentText(), u"490y"_s); // nothing is put in unasked
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Down);
    QCOMPARE(combo.currentText(), u"SM490Y"_s);
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Return);
    combo.lineEdit()->setText({});
    emit combo.lineEdit()->textEdited(u"ｶﾅ"_s);
    QVERIFY(combo.OffersWords());
    emit combo.lineEdit()->textEdited(u"ｓｓ"_s);
    QVERIFY(combo.OffersWords());
    emit combo.lineEdit()->textEdited(u"zz"_s);
    QVERIFY(!combo.OffersWords());
}

void GridKeysTest::TheSelectionIsSeenOnTheGreenRow()
{
    Grid().SetFocusCell(3, 6);
    const QPoint inside = Middle(3, 8);
    const QRect cell = Grid().visualRect(Grid().model()->index(2, 7));
    const QPoint edge(cell.center().x(), cell.top() + 1);
    const auto pixel = [this](QPoint pos) { return Grid().viewport()->grab().toImage().pixelColor(pos); };
    const QColor plainEdge = pixel(edge);
    const QColor plain = pixel({cell.right() - 4, inside.y()});
    Select(3, 6, 3, 8);
    QVERIFY(pixel(edge) != plainEdge); // a frame, whatever the colours are to the eye
    QVERIFY(pixel({cell.right() - 4, inside.y() - 4}) != plain);
}

void GridKeysTest::TheFocusedRowHasASignBesideItsColour()
{
    Grid().SetFocusCell(3, 6);
    const QImage rows = Grid().verticalHeader()->viewport()->grab().toImage();
    const auto at = [this, &rows](int row) {
        return rows.pixelColor(3, Grid().rowViewportPosition(row - 1) + Grid().rowHeight(row - 1) / 2 - 1);
    };
    QVERIFY(at(3) != at(4));
    QCOMPARE(at(2), at(4));
}

void GridKeysTest::ADoubleClickOnABorderFitsTheColumn()
{
    Grid().SetFocusCell(2, 6);
    Type(u"1234567890 1234567890 1234567890"_s);
    Key(Qt::Key_Return);
    QWidget* head = Grid().horizontalHeader()->viewport();
    const auto border = [this] { return QPoint(Grid().columnViewportPosition(5) + Grid().columnWidth(5) - 1, 5); };
    QTest::mouseDClick(head, Qt::LeftButton, {}, border());
    const int needed = Grid().fontMetrics().horizontalAdvance(Cell(2, 6));
    QVERIFY2(Grid().columnWidth(5) >= needed && Grid().columnWidth(5) < needed + 20,
             qPrintable(QString::number(Grid().columnWidth(5))));
}

} // namespace sbd

QTEST_MAIN(sbd::GridKeysTest)
#include "grid_keys_test.moc"
