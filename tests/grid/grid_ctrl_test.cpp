#include "commands/commands.h"
#include "grid/cell_editor.h"
#include "grid/grid_ctrl.h"
#include "grid/grid_delegate.h"
#include "grid/grid_model.h"
#include "grid/grid_style.h"
#include "tests/grid/table_source.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QClipboard>
#include <QCompleter>
#include <QContextMenuEvent>
#include <QElapsedTimer>
#include <QHeaderView>
#include <QInputMethodEvent>
#include <QScrollBar>
#include <QSignalSpy>
#include <QStatusTipEvent>
#include <QTest>

#include <cmath>
#include <set>

namespace sbd {

using namespace Qt::StringLiterals;
using test::CTableSource;

class GridCtrlTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<CTableSource> source_;
    std::unique_ptr<CGridCtrl> grid_;
    QStringList messages_;

    [[nodiscard]] QWidget* Editor() const
    {
        return grid_->IsEditing() ? grid_->indexWidget(grid_->currentIndex()) : nullptr;
    }
    [[nodiscard]] CCellCombo* Combo() const { return qobject_cast<CCellCombo*>(Editor()); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void Type(const QString& text)
    {
        for (const QChar c : text) // the first key moves the focus to the editor
            QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
    }
    [[nodiscard]] QString Cell(int row, int column) const
    {
        return source_->cells[std::size_t(row) - 1][std::size_t(column) - 1];
    }
    [[nodiscard]] QPoint Middle(int row, int column) const
    {
        return grid_->visualRect(grid_->model()->index(row - 1, column - 1)).center();
    }

private slots:
    void init();
    void cleanup();

    void TypingBeginsAnEditThatReplacesTheText();
    void F2AndADoubleClickKeepTheText();
    void BackspaceBeginsWithAnEmptyCell();
    void EnterAndTabEndTheEditAndGoOn();
    void EscGivesTheEditUp();
    void ArrowsLeaveAnEditThatTypingBegan();
    void ArrowsStayInAnEditThatF2Began();
    void EnterAndTabMoveWithoutAnEdit();
    void TabGoesOnInTheNextRowWhetherACellIsEditedOrNot();
    void ATextLongerThanALineEditTakesIsNotCut();
    void AVeryLongTextIsPaintedAtOnce();
    void EscGivesUpACompositionThatTheGridStillLeads();
    void AClickEndsTheCompositionInItsOwnCell();
    void TheRefusalNamesTheCell();
    void LockedCellsDoNotOpen();
    void AKeyOnALockedCellSaysWhyNothingHappens();
    void F2PutsTheCaretBehindTheText();
    void PageKeysTakeTheTextInEveryKindOfCell();
    void ClickingElsewhereTakesTheText();
    void SignalsTellTheCellLeftAndTheCellEntered();
    void AltDownOpensTheList();
    void AWordFromTheListIsTakenAtOnce();
    void TheButtonOfTheFocusedCellOpensTheList();
    void TheArrowOfAnOpenEditorOpensTheListOnRelease();
    void TwoQuickClicksOnTheButtonFocusTheCellAndOpenTheList();
    void ATextThatIsNotInTheListStaysWhenTheListIsOpened();
    void ATypedTextStaysWhenTheListIsOpened();
    void TypingOffersWordsButPutsNoneIntoTheText();
    void AnOfferedWordIsTakenWithDownAndEnter();
    void AnyTextMayBeTypedBesideAList();
    void ArrowsInAListCellDoNotChangeItUnseen();
    void ARefusedCharacterIsToldAndTheTextStaysInTheEditor();
    void ARefusedTextIsNotLostWhenAnotherCellIsClicked();
    void ARefusedTextIsToldWhenTheGridIsCommitted();
    void DeleteClearsTheSelectedCells();
    void CopyAndPasteGoThroughTheClipboard();
    void PasteOfARefusedCharacterPutsNothing();
    void PasteBelowTheLastRowShowsTheNewRows();
    void KeysOfTheGridAreNotTakenByTheWindow();
    void CommitTakesAnOpenEditor();
    void ControlArrowsJumpOverFilledCells();
    void ControlHomeAndEndGoToTheCorners();
    void ShiftArrowsSelectABlock();
    void TheHeadKeepsItsHeightAndTheRowNumbersTheirWidth();
    void ARowOfTwoLinesIsTaller();
    void TheFocusedRowIsGreenAndLockedCellsAreGrey();
    void ALockedCellOfTheGreenRowIsHatched();
    void WithADarkPaletteEveryColourIsDarkAndStillAnotherOne();
    void TextsCanBeReadOnEveryGround();
    void ShiftF10AsksForTheMenuOfTheCell();
    void TenThousandRowsAreShownWithoutReadingThemAll();
    void KeyboardFocusComesToTheFirstCellThatTakesText();
};

void GridCtrlTest::init()
{
    source_ = std::make_unique<CTableSource>(60, 6);
    for (int row = 1; row <= 5; ++row)
        for (int column = 1; column <= 3; ++column)
            source_->SetText(row, column, u"%1%2"_s.arg(QChar(u'a' + column - 1)).arg(row));
    source_->words[3] = {u"SM400"_s, u"SM490Y"_s, u"SS400"_s, u"等間隔"_s};
    grid_ = std::make_unique<CGridCtrl>();
    messages_.clear();
    grid_->showMessage = [this](const QString& message) { messages_ << message; };
    grid_->SetSource(source_.get());
    grid_->resize(640, 400);
    grid_->show();
    QVERIFY(QTest::qWaitForWindowActive(grid_.get()));
    grid_->setFocus();
    grid_->SetFocusCell(2, 2);
}

void GridCtrlTest::cleanup()
{
    grid_.reset();
    source_.reset();
}

void GridCtrlTest::TypingBeginsAnEditThatReplacesTheText()
{
    Type(u"xy"_s);
    QVERIFY(grid_->IsEditing());
    QCOMPARE(EditorText(Editor()), u"xy"_s);
    QCOMPARE(Cell(2, 2), u"b2"_s);
    Key(Qt::Key_Return);
    QCOMPARE(Cell(2, 2), u"xy"_s);
}

void GridCtrlTest::F2AndADoubleClickKeepTheText()
{
    Key(Qt::Key_F2);
    QCOMPARE(EditorText(Editor()), u"b2"_s);
    Key(Qt::Key_Escape);
    QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {}, Middle(4, 1));
    QTest::mouseDClick(grid_->viewport(), Qt::LeftButton, {}, Middle(4, 1));
    QVERIFY(grid_->IsEditing());
    QCOMPARE(EditorText(Editor()), u"a4"_s);
}

void GridCtrlTest::BackspaceBeginsWithAnEmptyCell()
{
    Key(Qt::Key_Backspace);
    QVERIFY(grid_->IsEditing());
    QCOMPARE(EditorText(Editor()), QString());
    Key(Qt::Key_Return);
    QCOMPARE(Cell(2, 2), QString());
}

void GridCtrlTest::EnterAndTabEndTheEditAndGoOn()
{
    Type(u"1"_s);
    Key(Qt::Key_Return);
    QCOMPARE(grid_->FocusCell(), (GridCell{3, 2}));
    QVERIFY(!grid_->IsEditing());
    Type(u"2"_s);
    Key(Qt::Key_Tab);
    QCOMPARE(grid_->FocusCell(), (GridCell{3, 3}));
    Type(u"3"_s);
    Key(Qt::Key_Tab, Qt::ShiftModifier);
    QCOMPARE(grid_->FocusCell(), (GridCell{3, 2}));
    Type(u"4"_s);
    Key(Qt::Key_Return, Qt::ShiftModifier);
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 2}));
    QCOMPARE(Cell(2, 2), u"1"_s);
    QCOMPARE(Cell(3, 2), u"4"_s);
    QCOMPARE(Cell(3, 3), u"3"_s);
}

void GridCtrlTest::EscGivesTheEditUp()
{
    Type(u"xy"_s);
    Key(Qt::Key_Escape);
    QVERIFY(!grid_->IsEditing());
    QCOMPARE(Cell(2, 2), u"b2"_s);
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 2}));
    QVERIFY(grid_->hasFocus());
    grid_->SetFocusCell(2, 3); // a cell with a list
    Type(u"X"_s);
    Key(Qt::Key_Escape);
    QVERIFY(!grid_->IsEditing());
    QCOMPARE(Cell(2, 3), u"c2"_s);
}

void GridCtrlTest::ArrowsLeaveAnEditThatTypingBegan()
{
    Type(u"1"_s);
    Key(Qt::Key_Right);
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 3}));
    Type(u"Q"_s);
    Key(Qt::Key_Down);
    QCOMPARE(grid_->FocusCell(), (GridCell{3, 3}));
    QCOMPARE(Cell(2, 2), u"1"_s);
    QCOMPARE(Cell(2, 3), u"Q"_s);
}

void GridCtrlTest::ArrowsStayInAnEditThatF2Began()
{
    Key(Qt::Key_F2);
    Key(Qt::Key_Left);
    Key(Qt::Key_Right);
    QVERIFY(grid_->IsEditing());
    Type(u"!"_s);
    Key(Qt::Key_Return);
    QVERIFY(Cell(2, 2).contains(u'b') && Cell(2, 2).contains(u'!'));
    Type(u"z"_s);
    Key(Qt::Key_F2); // from now on the arrows belong to the text
    Key(Qt::Key_Left);
    QVERIFY(grid_->IsEditing());
}

void GridCtrlTest::EnterAndTabMoveWithoutAnEdit()
{
    Key(Qt::Key_Return);
    QCOMPARE(grid_->FocusCell(), (GridCell{3, 2}));
    Key(Qt::Key_Return, Qt::ShiftModifier);
    Key(Qt::Key_Tab);
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 3}));
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 2}));
}

void GridCtrlTest::TabGoesOnInTheNextRowWhetherACellIsEditedOrNot()
{
    source_->locked.insert({4, 1});
    grid_->SetFocusCell(3, 6);
    Key(Qt::Key_Tab);
    QCOMPARE(grid_->FocusCell(), (GridCell{4, 2})); // the first cell that takes text
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(grid_->FocusCell(), (GridCell{4, 1}));
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(grid_->FocusCell(), (GridCell{3, 6}));
    Type(u"7"_s);
    Key(Qt::Key_Tab);
    QCOMPARE(grid_->FocusCell(), (GridCell{4, 2}));
    QCOMPARE(Cell(3, 6), u"7"_s);
    grid_->SetFocusCell(60, 6);
    Key(Qt::Key_Tab); // there is no further row
    QCOMPARE(grid_->FocusCell(), (GridCell{60, 6}));
    QVERIFY(grid_->hasFocus());
}

void GridCtrlTest::ATextLongerThanALineEditTakesIsNotCut()
{
    const QString text(100000, u'x');
    for (const int column : {2, 3}) { // without and with a list
        source_->SetText(2, column, text);
        grid_->SetFocusCell(2, column);
        Key(Qt::Key_F2);
        QCOMPARE(EditorText(Editor()).size(), text.size());
        Key(Qt::Key_End);
        Type(u"y"_s);
        QTest::keyClick(Editor(), Qt::Key_Return);
        QVERIFY(Cell(2, column) == text + u'y');
    }
}

void GridCtrlTest::AVeryLongTextIsPaintedAtOnce()
{
    source_->SetText(2, 2, QString(5000000, u'x'));
    QElapsedTimer clock;
    clock.start();
    grid_->grab();
    const qint64 elapsed = clock.elapsed();
    QVERIFY2(elapsed < 1000, qPrintable(QString::number(elapsed)));
}

void GridCtrlTest::EscGivesUpACompositionThatTheGridStillLeads()
{
    QInputMethodEvent composing(u"はし"_s, {});
    QApplication::sendEvent(grid_.get(), &composing);
    QVERIFY(grid_->IsEditing());
    QVERIFY(grid_->hasFocus()); // until the first composition has ended
    Key(Qt::Key_Escape);
    QVERIFY(!grid_->IsEditing());
    QCOMPARE(Cell(2, 2), u"b2"_s);
    Type(u"n"_s); // the next edit is an ordinary one
    QVERIFY(EditorLine(Editor())->hasFocus());
    Key(Qt::Key_Return);
    QCOMPARE(Cell(2, 2), u"n"_s);
}

void GridCtrlTest::AClickEndsTheCompositionInItsOwnCell()
{
    QInputMethodEvent composing(u"はし"_s, {});
    QApplication::sendEvent(grid_.get(), &composing);
    QInputMethodEvent done;
    done.setCommitString(u"橋"_s); // what the platform sends when it is asked to come to an end
    QApplication::sendEvent(grid_.get(), &done);
    QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {}, Middle(4, 4));
    QCOMPARE(Cell(2, 2), u"橋"_s);
    QCOMPARE(Cell(4, 4), QString());
    QVERIFY(!grid_->IsEditing());
}

void GridCtrlTest::TheRefusalNamesTheCell()
{
    Key(Qt::Key_F2);
    EditorLine(Editor())->setText(u"x♥"_s);
    QVERIFY(!grid_->CommitEditor(u"そのあと。"_s));
    QVERIFY2(messages_[0].contains(u"2 行目「H2 (mm)」"_s), qPrintable(messages_[0]));
    QVERIFY(messages_[0].endsWith(u"そのあと。"_s));
    Key(Qt::Key_Escape);
    QVERIFY(grid_->CommitEditor());
    QCOMPARE(Cell(2, 2), u"b2"_s);
}

void GridCtrlTest::LockedCellsDoNotOpen()
{
    source_->locked.insert({2, 2});
    Type(u"a"_s);
    Key(Qt::Key_F2);
    QTest::mouseDClick(grid_->viewport(), Qt::LeftButton, {}, Middle(2, 2));
    QVERIFY(!grid_->IsEditing());
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 2}));
    QCOMPARE(Cell(2, 2), u"b2"_s);
}

void GridCtrlTest::AKeyOnALockedCellSaysWhyNothingHappens()
{
    class CTips : public QObject {
    public:
        QStringList tips;
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::StatusTip)
                tips << static_cast<QStatusTipEvent*>(event)->tip();
            return false;
        }
    } seen;
    grid_->installEventFilter(&seen);
    source_->locked.insert({2, 2});
    for (const Qt::Key key : {Qt::Key_A, Qt::Key_F2, Qt::Key_Backspace, Qt::Key_Delete}) {
        seen.tips.clear();
        Key(key);
        QCOMPARE(seen.tips, QStringList{u"このセルには入力できません。"_s});
        QCOMPARE(Cell(2, 2), u"b2"_s);
    }
    seen.tips.clear();
    Key(Qt::Key_Down); // the message goes with the cell
    QCOMPARE(seen.tips, QStringList{QString()});
    seen.tips.clear();
    Key(Qt::Key_Up);
    Key(Qt::Key_C, Qt::ControlModifier); // changes nothing
    Key(Qt::Key_Home);
    QCOMPARE(seen.tips, QStringList());
}

void GridCtrlTest::F2PutsTheCaretBehindTheText()
{
    for (const int column : {2, 3}) { // without and with a list
        grid_->SetFocusCell(2, column);
        const QString before = Cell(2, column);
        Key(Qt::Key_F2);
        Type(u"!"_s);
        QTest::keyClick(Editor(), Qt::Key_Return);
        QCOMPARE(Cell(2, column), before + u'!');
    }
}

void GridCtrlTest::PageKeysTakeTheTextInEveryKindOfCell()
{
    for (const int column : {2, 3}) { // without and with a list
        grid_->SetFocusCell(2, column);
        Type(u"7"_s);
        QTest::keyClick(Editor(), Qt::Key_PageDown);
        QVERIFY(!grid_->IsEditing());
        QCOMPARE(Cell(2, column), u"7"_s);
        const int down = grid_->FocusCell().row;
        QVERIFY(down > 5);
        QCOMPARE(grid_->FocusCell().column, column);
        Type(u"8"_s);
        QTest::keyClick(Editor(), Qt::Key_PageUp);
        QCOMPARE(Cell(down, column), u"8"_s);
        QVERIFY(grid_->FocusCell().row < down);
    }
}

void GridCtrlTest::ClickingElsewhereTakesTheText()
{
    Type(u"xy"_s);
    QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {}, Middle(4, 4));
    QVERIFY(!grid_->IsEditing());
    QCOMPARE(Cell(2, 2), u"xy"_s);
    QCOMPARE(grid_->FocusCell(), (GridCell{4, 4}));
}

void GridCtrlTest::SignalsTellTheCellLeftAndTheCellEntered()
{
    QSignalSpy left(grid_.get(), &CGridCtrl::selectionChanging);
    QSignalSpy entered(grid_.get(), &CGridCtrl::currentCellChanged);
    QString seen;
    connect(grid_.get(), &CGridCtrl::selectionChanging, this, [&](int row, int column) { seen = Cell(row, column); });
    Type(u"n"_s);
    Key(Qt::Key_Down);
    QCOMPARE(left.size(), 1);
    QCOMPARE(left[0], (QList<QVariant>{2, 2}));
    QCOMPARE(entered[0], (QList<QVariant>{3, 2}));
    QCOMPARE(seen, u"n"_s); // what was typed is there before the cell is left
}

void GridCtrlTest::AltDownOpensTheList()
{
    grid_->SetFocusCell(2, 3);
    Key(Qt::Key_Down, Qt::AltModifier);
    QVERIFY(Combo());
    QTRY_VERIFY(Combo()->view()->isVisible());
    QCOMPARE(Combo()->count(), 4);
    Combo()->hidePopup();
    Key(Qt::Key_Escape);
    QVERIFY(!grid_->IsEditing());
    grid_->SetFocusCell(2, 2);
    Key(Qt::Key_Down, Qt::AltModifier);
    QVERIFY(!grid_->IsEditing());
}

void GridCtrlTest::AWordFromTheListIsTakenAtOnce()
{
    QSignalSpy chosen(grid_.get(), &CGridCtrl::listChosen);
    source_->SetText(2, 3, u"SM400"_s);
    grid_->SetFocusCell(2, 3);
    grid_->OpenList();
    QTRY_VERIFY(Combo()->view()->isVisible());
    QAbstractItemView* list = Combo()->view();
    QTest::keyClick(list, Qt::Key_Down);
    QTest::keyClick(list, Qt::Key_Return);
    QCOMPARE(Cell(2, 3), u"SM490Y"_s);
    QVERIFY(!grid_->IsEditing());
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 3}));
    QCOMPARE(chosen.size(), 1);
}

void GridCtrlTest::TheButtonOfTheFocusedCellOpensTheList()
{
    const QRect cell = grid_->visualRect(grid_->model()->index(1, 2));
    const QPoint button = CGridDelegate::ButtonRect(cell).center();
    QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {}, button);
    QVERIFY(!grid_->IsEditing()); // the first click brings the focus
    QTest::mousePress(grid_->viewport(), Qt::LeftButton, {}, button);
    QVERIFY(!grid_->IsEditing()); // a list that the press opens would be closed by the release
    QTest::mouseRelease(grid_->viewport(), Qt::LeftButton, {}, button);
    QVERIFY(Combo());
    QVERIFY(Combo()->view()->isVisible());
    Combo()->hidePopup();
}

void GridCtrlTest::TheArrowOfAnOpenEditorOpensTheListOnRelease()
{
    grid_->SetFocusCell(2, 3);
    Key(Qt::Key_F2);
    const QPoint arrow(Combo()->width() - 6, Combo()->height() / 2);
    QTest::mousePress(Combo(), Qt::LeftButton, {}, arrow);
    QVERIFY(!Combo()->view()->isVisible());
    QTest::mouseRelease(Combo(), Qt::LeftButton, {}, arrow);
    QVERIFY(Combo()->view()->isVisible());
    Combo()->hidePopup();
    QTest::mouseRelease(Combo(), Qt::LeftButton, {}, arrow); // of the press that closed the list
    QVERIFY(!Combo()->view()->isVisible());
}

void GridCtrlTest::TwoQuickClicksOnTheButtonFocusTheCellAndOpenTheList()
{
    const QPoint button = CGridDelegate::ButtonRect(grid_->visualRect(grid_->model()->index(1, 2))).center();
    QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {}, button);
    QMouseEvent second(QEvent::MouseButtonDblClick, button, grid_->viewport()->mapToGlobal(button), Qt::LeftButton,
                       Qt::LeftButton, {}); // the second press of two quick ones
    QApplication::sendEvent(grid_->viewport(), &second);
    QVERIFY(!grid_->IsEditing());
    QTest::mouseRelease(grid_->viewport(), Qt::LeftButton, {}, button);
    QVERIFY(Combo());
    QVERIFY(Combo()->view()->isVisible());
    Combo()->hidePopup();
}

void GridCtrlTest::ATextThatIsNotInTheListStaysWhenTheListIsOpened()
{
    for (const Qt::Key leave : {Qt::Key_Escape, Qt::Key_Return}) {
        source_->SetText(2, 3, u"特別な鋼"_s);
        grid_->SetFocusCell(2, 3);
        grid_->OpenList();
        QTRY_VERIFY(Combo()->view()->isVisible());
        QCOMPARE(EditorText(Combo()), u"特別な鋼"_s);
        QVERIFY(!Combo()->view()->currentIndex().isValid()); // no word is marked
        QTest::keyClick(Combo()->view(), leave);
        QVERIFY(!Combo()->view()->isVisible());
        QCOMPARE(EditorText(Combo()), u"特別な鋼"_s);
        Key(Qt::Key_Return);
        QCOMPARE(Cell(2, 3), u"特別な鋼"_s);
    }
}

void GridCtrlTest::ATypedTextStaysWhenTheListIsOpened()
{
    source_->SetText(2, 3, u"SM400"_s); // a word, which the list had marked
    grid_->SetFocusCell(2, 3);
    Type(u"SM4X"_s);
    QTest::keyClick(Combo(), Qt::Key_Down, Qt::AltModifier);
    QVERIFY(Combo()->view()->isVisible());
    QVERIFY(!Combo()->view()->currentIndex().isValid());
    QTest::keyClick(Combo()->view(), Qt::Key_Escape);
    QTest::keyClick(Combo(), Qt::Key_Return);
    QCOMPARE(Cell(2, 3), u"SM4X"_s);
}

void GridCtrlTest::TypingOffersWordsButPutsNoneIntoTheText()
{
    grid_->SetFocusCell(2, 3);
    Type(u"sm4"_s);
    QVERIFY(Combo());
    QVERIFY(Combo()->OffersWords());
    QCOMPARE(EditorText(Editor()), u"sm4"_s);
    QTest::keyClick(Combo(), Qt::Key_Return);
    QCOMPARE(Cell(2, 3), u"sm4"_s);
    QCOMPARE(grid_->FocusCell(), (GridCell{3, 3}));
}

void GridCtrlTest::AnOfferedWordIsTakenWithDownAndEnter()
{
    grid_->SetFocusCell(2, 3);
    Type(u"SM"_s);
    QVERIFY(Combo()->OffersWords());
    QAbstractItemView* offers = Combo()->findChild<QCompleter*>()->popup();
    QTest::keyClick(offers, Qt::Key_Down);
    QTest::keyClick(offers, Qt::Key_Down);
    QCOMPARE(EditorText(Editor()), u"SM490Y"_s);
    QTest::keyClick(offers, Qt::Key_Return);
    QCOMPARE(Cell(2, 3), u"SM490Y"_s);
    QCOMPARE(grid_->FocusCell(), (GridCell{3, 3}));
}

void GridCtrlTest::AnyTextMayBeTypedBesideAList()
{
    grid_->SetFocusCell(2, 3);
    Type(u"12,14"_s);
    QVERIFY(!Combo()->OffersWords());
    Key(Qt::Key_Tab);
    QCOMPARE(Cell(2, 3), u"12,14"_s);
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 4}));
}

void GridCtrlTest::ArrowsInAListCellDoNotChangeItUnseen()
{
    source_->SetText(2, 3, u"SM400"_s);
    grid_->SetFocusCell(2, 3);
    Key(Qt::Key_F2);
    QTest::keyClick(Combo(), Qt::Key_Down);
    QTRY_VERIFY(Combo()->view()->isVisible());
    QCOMPARE(Cell(2, 3), u"SM400"_s);
    Combo()->hidePopup();
}

void GridCtrlTest::ARefusedCharacterIsToldAndTheTextStaysInTheEditor()
{
    Type(u"a"_s);
    EditorLine(Editor())->insert(u"♥b"_s);
    Key(Qt::Key_Return);
    QTRY_COMPARE(messages_.size(), 1);
    QVERIFY(messages_[0].startsWith(u"「♥」はこのシステムの文字コード（シフトJIS）にない文字です。"_s));
    QCOMPARE(Cell(2, 2), u"b2"_s);
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 2}));
    QTRY_VERIFY(grid_->IsEditing());
    QCOMPARE(EditorText(Editor()), u"a♥b"_s);
    QCOMPARE(EditorLine(Editor())->selectedText(), u"♥"_s);
    Type(u"-"_s);
    Key(Qt::Key_Return);
    QCOMPARE(Cell(2, 2), u"a-b"_s);
    QCOMPARE(messages_.size(), 1);
}

void GridCtrlTest::ARefusedTextIsNotLostWhenAnotherCellIsClicked()
{
    Key(Qt::Key_F2);
    EditorLine(Editor())->setText(u"x♥"_s);
    QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {}, Middle(4, 4));
    QTRY_COMPARE(messages_.size(), 1);
    QTRY_VERIFY(grid_->IsEditing());
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 2}));
    QCOMPARE(EditorText(Editor()), u"x♥"_s);
    QCOMPARE(Cell(2, 2), u"b2"_s);
}

void GridCtrlTest::ARefusedTextIsToldWhenTheGridIsCommitted()
{
    Key(Qt::Key_F2);
    EditorLine(Editor())->setText(u"x♥"_s);
    QVERIFY(!grid_->CommitEditor());
    QCOMPARE(messages_.size(), 1);
    QVERIFY(grid_->IsEditing());
    QCOMPARE(EditorText(Editor()), u"x♥"_s);
    QTest::qWait(20);
    QCOMPARE(messages_.size(), 1);
}

void GridCtrlTest::DeleteClearsTheSelectedCells()
{
    QSignalSpy changed(grid_.get(), &CGridCtrl::cellsChanged);
    source_->locked.insert({3, 2});
    Key(Qt::Key_Down, Qt::ShiftModifier);
    Key(Qt::Key_Right, Qt::ShiftModifier);
    Key(Qt::Key_Delete);
    QCOMPARE(Cell(2, 2), QString());
    QCOMPARE(Cell(2, 3), QString());
    QCOMPARE(Cell(3, 2), u"b3"_s);
    QCOMPARE(Cell(3, 3), QString());
    QCOMPARE(Cell(4, 2), u"b4"_s);
    QCOMPARE(changed.size(), 1);
}

void GridCtrlTest::CopyAndPasteGoThroughTheClipboard()
{
    grid_->SetFocusCell(1, 1);
    Key(Qt::Key_Down, Qt::ShiftModifier);
    Key(Qt::Key_Right, Qt::ShiftModifier);
    Key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), u"a1\tb1\na2\tb2"_s);
    grid_->SetFocusCell(10, 4);
    Key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Cell(11, 5), u"b2"_s);
    QCOMPARE(grid_->FocusCell(), (GridCell{10, 4}));
    QCOMPARE(grid_->SelectedRange().bottom, 11);
    QCOMPARE(grid_->SelectedRange().right, 5);
    Key(Qt::Key_X, Qt::ControlModifier);
    QCOMPARE(Cell(11, 5), QString());
    Key(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(source_->undone, 1);
}

void GridCtrlTest::PasteOfARefusedCharacterPutsNothing()
{
    QApplication::clipboard()->setText(u"1\t♥"_s);
    Key(Qt::Key_Insert, Qt::ShiftModifier);
    QCOMPARE(messages_.size(), 1);
    QVERIFY(messages_[0].contains(u"貼り付けは行いませんでした"_s));
    QCOMPARE(Cell(2, 2), u"b2"_s);
}

void GridCtrlTest::PasteBelowTheLastRowShowsTheNewRows()
{
    QApplication::clipboard()->setText(u"1\n2\n3"_s);
    grid_->SetFocusCell(60, 1);
    Key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(grid_->model()->rowCount(), 62);
    QCOMPARE(grid_->model()->index(61, 0).data().toString(), u"3"_s);
}

void GridCtrlTest::KeysOfTheGridAreNotTakenByTheWindow()
{
    QList<QKeySequence> keys = {QKeySequence(QKeySequence::Copy), QKeySequence(Qt::SHIFT | Qt::Key_Delete)};
    for (const CommandRow& row : CommandTable()) {
        const auto names = QString::fromUtf8(row.keys.data(), static_cast<qsizetype>(row.keys.size()));
        // What fills is the window's where cells cannot be filled, as in this grid.
        const bool fills = row.command == Command::FillDown || row.command == Command::FillRight
                           || row.command == Command::FillSelection;
        if (row.scope == KeyScope::Grid && !fills)
            keys += QKeySequence::listFromString(names, QKeySequence::PortableText);
    }
    QVERIFY(keys.size() > 6);
    for (const QKeySequence& key : keys) {
        QKeyEvent event(QEvent::ShortcutOverride, key[0].key(), key[0].keyboardModifiers());
        event.ignore();
        QApplication::sendEvent(grid_.get(), &event);
        QVERIFY2(event.isAccepted(), qPrintable(key.toString()));
    }
}

void GridCtrlTest::CommitTakesAnOpenEditor()
{
    Type(u"half"_s);
    QVERIFY(grid_->CommitEditor());
    QCOMPARE(Cell(2, 2), u"half"_s);
    QVERIFY(!grid_->IsEditing());
    QVERIFY(grid_->CommitEditor());
}

void GridCtrlTest::ControlArrowsJumpOverFilledCells()
{
    Key(Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(grid_->FocusCell(), (GridCell{5, 2}));
    source_->SetText(20, 2, u"far"_s);
    Key(Qt::Key_Down, Qt::ControlModifier);
    QCOMPARE(grid_->FocusCell(), (GridCell{20, 2}));
    Key(Qt::Key_Up, Qt::ControlModifier);
    QCOMPARE(grid_->FocusCell(), (GridCell{5, 2}));
    Key(Qt::Key_Right, Qt::ControlModifier);
    QCOMPARE(grid_->FocusCell(), (GridCell{5, 3}));
    Key(Qt::Key_Left, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(grid_->FocusCell(), (GridCell{5, 3})); // where the selection began
    QCOMPARE(grid_->SelectedRange().left, 1);
    QCOMPARE(grid_->SelectedRange().right, 3);
}

void GridCtrlTest::ControlHomeAndEndGoToTheCorners()
{
    Key(Qt::Key_End, Qt::ControlModifier);
    QCOMPARE(grid_->FocusCell(), (GridCell{5, 6})); // the last row that holds anything
    Key(Qt::Key_Home, Qt::ControlModifier);
    QCOMPARE(grid_->FocusCell(), (GridCell{1, 1}));
    Key(Qt::Key_End);
    QCOMPARE(grid_->FocusCell(), (GridCell{1, 6}));
    Key(Qt::Key_Home);
    QCOMPARE(grid_->FocusCell(), (GridCell{1, 1}));
}

void GridCtrlTest::ShiftArrowsSelectABlock()
{
    Key(Qt::Key_Down, Qt::ShiftModifier);
    Key(Qt::Key_Down, Qt::ShiftModifier);
    Key(Qt::Key_Left, Qt::ShiftModifier);
    const GridRange range = grid_->SelectedRange();
    QCOMPARE(range.top, 2);
    QCOMPARE(range.bottom, 4);
    QCOMPARE(range.left, 1);
    QCOMPARE(range.right, 2);
}

void GridCtrlTest::TheHeadKeepsItsHeightAndTheRowNumbersTheirWidth()
{
    QCOMPARE(grid_->horizontalHeader()->height(), 30);
    QCOMPARE(grid_->verticalHeader()->width(), 35);
    QCOMPARE(grid_->columnWidth(0), 90);
    QCOMPARE(grid_->rowHeight(0), gridstyle::kRowHeight);
    grid_->SetRowHeight(24);
    QCOMPARE(grid_->rowHeight(7), 24);
}

void GridCtrlTest::ARowOfTwoLinesIsTaller()
{
    source_->tallRow = 4;
    grid_->ShowAll();
    QVERIFY(grid_->rowHeight(3) >= 2 * grid_->fontMetrics().height());
    source_->tallRow = 0;
    grid_->ShowAll();
    QCOMPARE(grid_->rowHeight(3), gridstyle::kRowHeight);
}

void GridCtrlTest::TheFocusedRowIsGreenAndLockedCellsAreGrey()
{
    source_->locked.insert({4, 4});
    const QImage image = grid_->viewport()->grab().toImage();
    const auto ground = [&](int row, int column) {
        const QRect rect = grid_->visualRect(grid_->model()->index(row - 1, column - 1));
        return image.pixelColor(rect.right() - 4, rect.top() + 3).rgb();
    };
    QCOMPARE(ground(2, 4), gridstyle::kLight.focusRow);
    QCOMPARE(ground(2, 2), gridstyle::kLight.cell);
    QCOMPARE(ground(3, 1), gridstyle::kLight.labelBesideFocus);
    QCOMPARE(ground(3, 4), gridstyle::kLight.cell);
    QCOMPARE(ground(4, 4), gridstyle::kLight.locked);
}

void GridCtrlTest::ALockedCellOfTheGreenRowIsHatched()
{
    source_->locked.insert({7, 4}); // a row without texts
    grid_->SetFocusCell(7, 2);
    const QImage image = grid_->viewport()->grab().toImage();
    const auto colors = [&](int column) {
        const QRect cell = grid_->visualRect(grid_->model()->index(6, column - 1)).adjusted(2, 2, -3, -3);
        std::set<QRgb> seen;
        for (int y = cell.top(); y <= cell.bottom(); ++y)
            for (int x = cell.left(); x <= cell.right(); ++x)
                seen.insert(image.pixel(x, y));
        return seen.size();
    };
    QCOMPARE(colors(3), std::size_t(1));
    QVERIFY(colors(4) > 1);
}

void GridCtrlTest::WithADarkPaletteEveryColourIsDarkAndStillAnotherOne()
{
    QPalette dark;
    dark.setColor(QPalette::Window, QColor(45, 45, 45));
    dark.setColor(QPalette::WindowText, Qt::white);
    dark.setColor(QPalette::Base, QColor(30, 30, 30));
    dark.setColor(QPalette::Text, Qt::white);
    grid_->setPalette(dark);
    source_->locked.insert({4, 4});
    const QImage picture = grid_->grab().toImage();
    const auto ground = [&](int row, int column) {
        const QRect cell = grid_->visualRect(grid_->model()->index(row - 1, column - 1));
        return picture.pixel(grid_->viewport()->mapTo(grid_.get(), cell.topRight() + QPoint(-4, 3)));
    };
    QCOMPARE(ground(2, 4), gridstyle::kDark.focusRow);
    QCOMPARE(ground(2, 2), gridstyle::kDark.cell);
    QCOMPARE(ground(3, 1), gridstyle::kDark.labelBesideFocus);
    QCOMPARE(ground(3, 4), gridstyle::kDark.cell);
    QCOMPARE(ground(4, 4), gridstyle::kDark.locked);
    QCOMPARE(picture.pixel(3, 3), gridstyle::kDark.head);                    // the corner
    QCOMPARE(picture.pixel(picture.width() / 2, 3), gridstyle::kDark.head);  // the heads
    QCOMPARE(picture.pixel(3, picture.height() / 2), gridstyle::kDark.head); // the row numbers
    const std::set<QRgb> grounds{gridstyle::kDark.cell, gridstyle::kDark.locked, gridstyle::kDark.labelBesideFocus,
                                 gridstyle::kDark.focusRow, gridstyle::kDark.head};
    QCOMPARE(grounds.size(), 5U);
    for (const QRgb color : grounds)
        QVERIFY(QColor(color).lightness() < 100);
}

/// The ratio of two lights as the guidelines for readable pages reckon it.
static double Contrast(const QColor& a, const QColor& b)
{
    const auto light = [](const QColor& color) {
        const auto part = [](double value) {
            return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
        };
        return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
    };
    const double bright = std::max(light(a), light(b));
    return (bright + 0.05) / (std::min(light(a), light(b)) + 0.05);
}

void GridCtrlTest::TextsCanBeReadOnEveryGround()
{
    constexpr double readable = 4.5;
    QPalette dark;
    dark.setColor(QPalette::Window, Qt::black);
    dark.setColor(QPalette::WindowText, Qt::white);
    const gridstyle::Colors& colors = gridstyle::ColorsFor(dark);
    std::set<QRgb> texts;
    for (const QColor& wanted : {QColor(), QColor(Qt::red), QColor(Qt::blue), QColor(Qt::magenta)}) {
        const QColor text = gridstyle::TextColorFor(dark, wanted);
        texts.insert(text.rgba());
        for (const QRgb ground : {colors.cell, colors.locked, colors.labelBesideFocus, colors.head}) {
            const double contrast = Contrast(text, QColor(ground));
            QVERIFY2(contrast >= readable,
                     qPrintable(u"%1 on %2: %3"_s.arg(text.name(), QColor(ground).name()).arg(contrast)));
        }
    }
    QCOMPARE(texts.size(), 4U); // each still says something else
    QVERIFY(Contrast(QColor(colors.text), QColor(colors.focusRow)) >= readable);
}

void GridCtrlTest::ShiftF10AsksForTheMenuOfTheCell()
{
    class CMenus : public QObject {
    public:
        QList<QPoint> places;
        bool eventFilter(QObject*, QEvent* event) override
        {
            if (event->type() == QEvent::ContextMenu)
                places << static_cast<QContextMenuEvent*>(event)->globalPos();
            return false;
        }
    } seen;
    grid_->installEventFilter(&seen);
    for (const GridCell cell : {GridCell{3, 4}, GridCell{55, 1}}) { // the second is out of sight at first
        grid_->SetFocusCell(cell.row, cell.column);
        grid_->verticalScrollBar()->setValue(0);
        seen.places.clear();
        Key(Qt::Key_F10, Qt::ShiftModifier);
        QCOMPARE(seen.places.size(), 1);
        const QModelIndex index = grid_->indexAt(grid_->viewport()->mapFromGlobal(seen.places[0]));
        QCOMPARE(CGridModel::CellOf(index), cell);
    }
}

void GridCtrlTest::TenThousandRowsAreShownWithoutReadingThemAll()
{
    CTableSource large(10000, 20);
    large.textsAsked = 0;
    grid_->SetSource(&large);
    grid_->grab();
    QVERIFY2(large.textsAsked < 5000, qPrintable(u"%1 texts"_s.arg(large.textsAsked)));
    QElapsedTimer clock;
    clock.start();
    grid_->SetFocusCell(9999, 3);
    grid_->grab();
    QVERIFY(large.textsAsked < 10000);
    QVERIFY2(clock.elapsed() < 1000, qPrintable(u"%1 ms"_s.arg(clock.elapsed())));
    grid_->SetSource(nullptr);
}

void GridCtrlTest::KeyboardFocusComesToTheFirstCellThatTakesText()
{
    source_->locked.insert({1, 1});
    grid_->SetSource(source_.get());
    grid_->clearFocus();
    QCOMPARE(grid_->FocusCell().row, 0);
    grid_->setFocus(Qt::TabFocusReason);
    QCOMPARE(grid_->FocusCell(), (GridCell{1, 2}));
}

} // namespace sbd

QTEST_MAIN(sbd::GridCtrlTest)
#include "grid_ctrl_test.moc"
