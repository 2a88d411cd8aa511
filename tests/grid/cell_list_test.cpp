// A cell with a list of words: opened, taken from, typed beside, and what is offered while one types.
#include "grid/cell_editor.h"
#include "grid/grid_delegate.h"
#include "tests/grid/grid_bench.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QCompleter>
#include <QSignalSpy>

namespace sbd {

using namespace Qt::StringLiterals;

class CellListTest : public test::GridBench {
    Q_OBJECT

private slots:
    void init() { PutGrid(); }
    void cleanup() { TakeGrid(); }

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
    void WordsAreOfferedByAnyPartInAnyWidthAndCase();
};

void CellListTest::AltDownOpensTheList()
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

void CellListTest::AWordFromTheListIsTakenAtOnce()
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

void CellListTest::TheButtonOfTheFocusedCellOpensTheList()
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

void CellListTest::TheArrowOfAnOpenEditorOpensTheListOnRelease()
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

void CellListTest::TwoQuickClicksOnTheButtonFocusTheCellAndOpenTheList()
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

void CellListTest::ATextThatIsNotInTheListStaysWhenTheListIsOpened()
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

void CellListTest::ATypedTextStaysWhenTheListIsOpened()
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

void CellListTest::TypingOffersWordsButPutsNoneIntoTheText()
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

void CellListTest::AnOfferedWordIsTakenWithDownAndEnter()
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

void CellListTest::AnyTextMayBeTypedBesideAList()
{
    grid_->SetFocusCell(2, 3);
    Type(u"12,14"_s);
    QVERIFY(!Combo()->OffersWords());
    Key(Qt::Key_Tab);
    QCOMPARE(Cell(2, 3), u"12,14"_s);
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 4}));
}

void CellListTest::ArrowsInAListCellDoNotChangeItUnseen()
{
    source_->SetText(2, 3, u"SM400"_s);
    grid_->SetFocusCell(2, 3);
    Key(Qt::Key_F2);
    QTest::keyClick(Combo(), Qt::Key_Down);
    QTRY_VERIFY(Combo()->view()->isVisible());
    QCOMPARE(Cell(2, 3), u"SM400"_s);
    Combo()->hidePopup();
}

void CellListTest::WordsAreOfferedByAnyPartInAnyWidthAndCase()
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

} // namespace sbd

QTEST_MAIN(sbd::CellListTest)
#include "cell_list_test.moc"
