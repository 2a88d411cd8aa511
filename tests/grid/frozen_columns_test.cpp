// The first columns of a grid stay in sight while the others are scrolled; whatever works with cells works there too.
#include "grid/cell_editor.h"
#include "grid/grid_ctrl.h"
#include "grid/grid_delegate.h"
#include "grid/grid_style.h"
#include "tests/grid/table_source.h"

#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTest>

namespace sbd {

using namespace Qt::StringLiterals;
using test::CTableSource;

namespace {

/// Cells that can be filled, so that the grid has its fill handle.
class FillSource : public CTableSource {
public:
    using CTableSource::CTableSource;
    [[nodiscard]] bool CanFill() const override { return true; }
    GridPaste Fill(const GridFill& fill) override
    {
        filled = fill;
        return {};
    }
    GridFill filled;
};

} // namespace

class FrozenColumnsTest : public QObject {
    Q_OBJECT

private:
    static constexpr int kColumns = 20; // of 90 pixels; 2 of them stay

    std::unique_ptr<FillSource> source_;
    std::unique_ptr<CGridCtrl> grid_;

    [[nodiscard]] QRect Rect(int row, int column) const
    {
        return grid_->visualRect(grid_->model()->index(row - 1, column - 1));
    }
    [[nodiscard]] GridCell At(QPoint pos) const
    {
        const QModelIndex index = grid_->indexAt(pos);
        return {index.row() + 1, index.column() + 1};
    }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
    }
    void ScrollTo(int pixels) { grid_->horizontalScrollBar()->setValue(pixels); }
    /// What is seen of the columns that stay, without the border behind them.
    [[nodiscard]] QImage FrozenPart() const
    {
        const QImage cells = grid_->viewport()->grab().toImage();
        return cells.copy(0, 0, grid_->FrozenWidth() - 2, cells.height());
    }
    [[nodiscard]] QImage FrozenHead() const
    {
        const QImage head = grid_->horizontalHeader()->viewport()->grab().toImage();
        return head.copy(0, 0, grid_->FrozenWidth() - 2, head.height());
    }
    void Drag(QWidget* widget, QPoint from, QPoint to)
    {
        QTest::mousePress(widget, Qt::LeftButton, {}, from);
        for (const QPoint& pos : {(from + to) / 2, to}) {
            QMouseEvent move(QEvent::MouseMove, pos, widget->mapToGlobal(pos), Qt::NoButton, Qt::LeftButton, {});
            QApplication::sendEvent(widget, &move);
        }
        QTest::mouseRelease(widget, Qt::LeftButton, {}, to);
    }

private slots:
    void init();
    void cleanup();

    void TheyStandWhereTheyAreAndLookAsTheyDoWhileTheOthersAreScrolled();
    void NothingStaysWhereAllIsSeenAndNothingThatLeavesNoRoom();
    void AClickAndTypingGoToTheCellThatIsSeen();
    void AnOpenEditorStaysAtItsCell();
    void TheEditorOfAScrolledCellIsNotSeenOverThem();
    void KeysBringAScrolledCellOutFromBelowThem();
    void ASelectionGoesAcrossTheBorder();
    void TheFrameOfASelectionIsNotDrawnOverThem();
    void TheFillHandleIsNoneBelowThem();
    void ADragFromAScrolledColumnScrollsBackFirst();
    void AFillIsDraggedAcrossTheBorder();
    void ClicksOnTheirHeadsAreForThem();
    void TheirBordersArePulledWhereTheyAreSeen();
    void PagesAreAsWideAsTheRestOfTheRoom();
};

void FrozenColumnsTest::init()
{
    source_ = std::make_unique<FillSource>(60, kColumns);
    for (int row = 1; row <= 60; ++row)
        for (int column = 1; column <= kColumns; ++column)
            source_->SetText(row, column, u"%1-%2"_s.arg(row).arg(column));
    grid_ = std::make_unique<CGridCtrl>();
    grid_->SetSource(source_.get());
    grid_->resize(640, 400);
    grid_->show();
    QVERIFY(QTest::qWaitForWindowActive(grid_.get()));
    grid_->setFocus();
    grid_->SetFrozenColumns(2);
    grid_->SetFocusCell(2, 1);
}

void FrozenColumnsTest::cleanup()
{
    grid_.reset();
    source_.reset();
}

void FrozenColumnsTest::TheyStandWhereTheyAreAndLookAsTheyDoWhileTheOthersAreScrolled()
{
    QCOMPARE(grid_->SeenFrozen(), 2);
    QCOMPARE(grid_->FrozenWidth(), 180);
    const QImage before = FrozenPart();
    const QImage headBefore = FrozenHead();
    const QRect first = Rect(3, 1);
    const QRect second = Rect(3, 2);
    ScrollTo(400);
    QCOMPARE(Rect(3, 1), first);
    QCOMPARE(Rect(3, 2), second);
    QCOMPARE(At(first.center()), (GridCell{3, 1}));
    QCOMPARE(At(second.center()), (GridCell{3, 2}));
    QCOMPARE(At({second.right() + 1, second.top()}), (GridCell{3, 7})); // 400 + 180 pixels from the first column
    QCOMPARE(Rect(3, 7).left(), 6 * 90 - 400);
    QVERIFY(FrozenPart() == before);
    QVERIFY(FrozenHead() == headBefore);
    grid_->verticalScrollBar()->setValue(10); // rows go along
    QCOMPARE(At({5, 5}), (GridCell{11, 1}));
    QVERIFY(FrozenPart() != before);
}

void FrozenColumnsTest::NothingStaysWhereAllIsSeenAndNothingThatLeavesNoRoom()
{
    grid_->SetFrozenColumns(6); // 540 of 605 pixels
    QCOMPARE(grid_->SeenFrozen(), 3);
    grid_->setColumnWidth(0, 400);
    QCOMPARE(grid_->SeenFrozen(), 0);
    grid_->setColumnWidth(0, 90);
    grid_->resize(2000, 400);
    QApplication::processEvents();
    QCOMPARE(grid_->SeenFrozen(), 0); // the table is no wider than the pane
    grid_->resize(640, 400);
    QApplication::processEvents();
    QCOMPARE(grid_->SeenFrozen(), 3);
    grid_->SetFrozenColumns(0);
    ScrollTo(400);
    QVERIFY(Rect(3, 1).right() < 0);
    QCOMPARE(At({5, 5}).column, 5);
}

void FrozenColumnsTest::AClickAndTypingGoToTheCellThatIsSeen()
{
    ScrollTo(500);
    QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {}, Rect(4, 2).center());
    QCOMPARE(grid_->FocusCell(), (GridCell{4, 2}));
    QCOMPARE(grid_->horizontalScrollBar()->value(), 500);
    QTest::keyClick(grid_.get(), 'x');
    QVERIFY(grid_->IsEditing());
    Key(Qt::Key_Return);
    QCOMPARE(source_->Text(4, 2), u"x"_s);
    QCOMPARE(grid_->FocusCell(), (GridCell{5, 2}));
    QCOMPARE(grid_->horizontalScrollBar()->value(), 500); // such a cell needs no scrolling
    QTest::mouseClick(grid_->viewport(), Qt::LeftButton, {}, {190, Rect(6, 2).center().y()});
    QCOMPARE(grid_->FocusCell(), (GridCell{6, 8}));
}

void FrozenColumnsTest::AnOpenEditorStaysAtItsCell()
{
    grid_->SetFocusCell(4, 2);
    Key(Qt::Key_F2);
    QWidget* editor = grid_->indexWidget(grid_->currentIndex());
    const QPoint place = editor->pos();
    ScrollTo(300);
    QCOMPARE(editor->pos(), place);
    QCOMPARE(place, Rect(4, 2).topLeft());
    Key(Qt::Key_Escape);
}

void FrozenColumnsTest::TheEditorOfAScrolledCellIsNotSeenOverThem()
{
    grid_->SetFocusCell(4, 5);
    Key(Qt::Key_F2);
    QWidget* editor = grid_->indexWidget(grid_->currentIndex());
    QVERIFY(editor->mask().isEmpty());
    ScrollTo(220); // the cell begins at 140
    QCOMPARE(editor->x(), 140);
    QCOMPARE(editor->mask().boundingRect().left(), 40);
    ScrollTo(0);
    QVERIFY(editor->mask().isEmpty());
    Key(Qt::Key_Escape);
}

void FrozenColumnsTest::KeysBringAScrolledCellOutFromBelowThem()
{
    grid_->SetFocusCell(2, 20);
    QCOMPARE(Rect(2, 20).right() + 1, grid_->viewport()->width());
    for (int column = 19; column > 2; --column) {
        Key(Qt::Key_Left);
        QVERIFY2(Rect(2, column).left() >= 180, qPrintable(QString::number(column)));
    }
    QCOMPARE(grid_->horizontalScrollBar()->value(), 0);
    grid_->setColumnWidth(10, 600); // wider than the rest of the room: its beginning is seen
    grid_->SetFocusCell(2, 20);
    grid_->SetFocusCell(2, 11);
    QCOMPARE(Rect(2, 11).left(), 180);
    Key(Qt::Key_Home);
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 1}));
    QCOMPARE(Rect(2, 1).left(), 0);
}

void FrozenColumnsTest::ASelectionGoesAcrossTheBorder()
{
    grid_->SetFocusCell(3, 2);
    ScrollTo(400);
    Drag(grid_->viewport(), Rect(3, 2).center(), Rect(5, 8).center());
    const GridRange range = grid_->SelectedRange();
    QCOMPARE(range.left, 2);
    QCOMPARE(range.right, 8);
    QCOMPARE(range.bottom, 5);
    QCOMPARE(grid_->FocusCell(), (GridCell{3, 2}));
    QCOMPARE(grid_->RectOf(range).left(), 90);
    QCOMPARE(grid_->RectOf(range).right(), Rect(5, 8).right());
    ScrollTo(1100); // the selected columns behind the border are out of sight: the frame is open there
    QVERIFY(grid_->RectOf(range).right() >= 180);
    QVERIFY(grid_->FillHandle().isEmpty());
}

void FrozenColumnsTest::TheFrameOfASelectionIsNotDrawnOverThem()
{
    grid_->SetFocusCell(3, 4);
    ScrollTo(200); // column 4 stands at 70, below the second one
    const QImage before = FrozenPart();
    grid_->ExtendTo({6, 4});
    ScrollTo(200);
    const QImage after = FrozenPart();
    int different = 0; // but for the green of the focused row nothing is another
    for (int y = 0; y < after.height(); ++y)
        for (int x = 0; x < after.width(); ++x)
            different += after.pixel(x, y) == before.pixel(x, y) ? 0 : 1;
    QCOMPARE(different, 0);
    ScrollTo(50);
    QVERIFY(grid_->viewport()->grab().toImage().pixelColor(Rect(4, 4).left() + 5, Rect(6, 4).bottom() - 1)
            == QColor::fromRgba(gridstyle::kLight.focusFrame));
}

void FrozenColumnsTest::TheFillHandleIsNoneBelowThem()
{
    grid_->SetFocusCell(3, 4);
    QVERIFY(!grid_->FillHandle().isEmpty());
    ScrollTo(200);
    QVERIFY(grid_->FillHandle().isEmpty());
    ScrollTo(800);
    QVERIFY(grid_->FillHandle().isEmpty());
    grid_->SetFocusCell(3, 2);
    QCOMPARE(grid_->FillHandle().right(), 179);
}

void FrozenColumnsTest::ADragFromAScrolledColumnScrollsBackFirst()
{
    ScrollTo(400);
    const QPoint from = Rect(3, 9).center();
    QTest::mousePress(grid_->viewport(), Qt::LeftButton, {}, from);
    const QPoint over(20, from.y()); // over the first column
    QMouseEvent move(QEvent::MouseMove, over, grid_->viewport()->mapToGlobal(over), Qt::NoButton, Qt::LeftButton, {});
    QApplication::sendEvent(grid_->viewport(), &move);
    QVERIFY(grid_->SelectedRange().left > 2);
    QTRY_COMPARE(grid_->horizontalScrollBar()->value(), 0); // the pointer rests, the grid goes on
    QTRY_COMPARE(grid_->SelectedRange().left, 1);
    QTest::mouseRelease(grid_->viewport(), Qt::LeftButton, {}, over);
    QCOMPARE(grid_->SelectedRange().right, 9);
}

void FrozenColumnsTest::AFillIsDraggedAcrossTheBorder()
{
    grid_->SetFocusCell(3, 2);
    ScrollTo(90); // column 4 stands beside the border
    Drag(grid_->viewport(), grid_->FillHandle().center(), Rect(3, 5).center());
    QCOMPARE(source_->filled.from.right, 2);
    QCOMPARE(source_->filled.range.left, 2);
    QCOMPARE(source_->filled.range.right, 5);
}

void FrozenColumnsTest::ClicksOnTheirHeadsAreForThem()
{
    QWidget* head = grid_->horizontalHeader()->viewport();
    ScrollTo(400);
    QTest::mouseClick(head, Qt::LeftButton, {}, {135, 10});
    QCOMPARE(grid_->SelectedRange().left, 2);
    QCOMPARE(grid_->SelectedRange().right, 2);
    QCOMPARE(grid_->SelectedRange().bottom, 60);
    QTest::mouseClick(head, Qt::LeftButton, {}, {200, 10});
    QCOMPARE(grid_->SelectedRange().left, 7);
}

void FrozenColumnsTest::TheirBordersArePulledWhereTheyAreSeen()
{
    QWidget* head = grid_->horizontalHeader()->viewport();
    QSignalSpy changed(grid_.get(), &CGridCtrl::columnsChanged);
    ScrollTo(400);
    Drag(head, {89, 10}, {119, 10});
    QCOMPARE(grid_->columnWidth(0), 120);
    QCOMPARE(changed.count(), 1);
    QCOMPARE(grid_->Widened().at(1), 30);
    Drag(head, {209, 10}, {189, 10});
    QCOMPARE(grid_->columnWidth(1), 70);
    for (int column = 2; column < kColumns; ++column)
        QCOMPARE(grid_->columnWidth(column), 90);
    source_->SetText(9, 2, u"a text that needs more room"_s);
    QTest::mouseDClick(head, Qt::LeftButton, {}, {189, 10});
    QVERIFY(grid_->columnWidth(1) > 150);
    QCOMPARE(grid_->Widened().at(2), grid_->columnWidth(1) - 90);
    // What the user pulled comes back with the next source, at any zoom.
    const std::map<int, int> kept = grid_->Widened();
    grid_->SetZoom(200);
    grid_->SetSource(source_.get());
    QCOMPARE(grid_->columnWidth(0), 180);
    grid_->SetWidened(kept);
    QCOMPARE(grid_->columnWidth(0), 240);
}

void FrozenColumnsTest::PagesAreAsWideAsTheRestOfTheRoom()
{
    QCOMPARE(grid_->horizontalScrollBar()->pageStep(), grid_->viewport()->width() - 180);
}

} // namespace sbd

QTEST_MAIN(sbd::FrozenColumnsTest)
#include "frozen_columns_test.moc"
