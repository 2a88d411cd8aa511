// The cursor and the selection by keys, and whose keys they are.
#include "commands/commands.h"
#include "grid/grid_model.h"
#include "tests/grid/grid_bench.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QScrollBar>
#include <QSignalSpy>

namespace sbd {

using namespace Qt::StringLiterals;

class GridMovesTest : public test::GridBench {
    Q_OBJECT

private slots:
    void init() { PutGrid(); }
    void cleanup() { TakeGrid(); }

    void EnterAndTabMoveWithoutAnEdit();
    void TabGoesOnInTheNextRowWhetherACellIsEditedOrNot();
    void SignalsTellTheCellLeftAndTheCellEntered();
    void KeysOfTheGridAreNotTakenByTheWindow();
    void ControlArrowsJumpOverFilledCells();
    void ControlHomeAndEndGoToTheCorners();
    void ShiftArrowsSelectABlock();
    void ShiftF10AsksForTheMenuOfTheCell();
    void KeyboardFocusComesToTheFirstCellThatTakesText();
};

void GridMovesTest::EnterAndTabMoveWithoutAnEdit()
{
    Key(Qt::Key_Return);
    QCOMPARE(grid_->FocusCell(), (GridCell{3, 2}));
    Key(Qt::Key_Return, Qt::ShiftModifier);
    Key(Qt::Key_Tab);
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 3}));
    Key(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(grid_->FocusCell(), (GridCell{2, 2}));
}

void GridMovesTest::TabGoesOnInTheNextRowWhetherACellIsEditedOrNot()
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

void GridMovesTest::SignalsTellTheCellLeftAndTheCellEntered()
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

void GridMovesTest::KeysOfTheGridAreNotTakenByTheWindow()
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

void GridMovesTest::ControlArrowsJumpOverFilledCells()
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

void GridMovesTest::ControlHomeAndEndGoToTheCorners()
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

void GridMovesTest::ShiftArrowsSelectABlock()
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

void GridMovesTest::ShiftF10AsksForTheMenuOfTheCell()
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

void GridMovesTest::KeyboardFocusComesToTheFirstCellThatTakesText()
{
    source_->locked.insert({1, 1});
    grid_->SetSource(source_.get());
    grid_->clearFocus();
    QCOMPARE(grid_->FocusCell().row, 0);
    grid_->setFocus(Qt::TabFocusReason);
    QCOMPARE(grid_->FocusCell(), (GridCell{1, 2}));
}

} // namespace sbd

QTEST_MAIN(sbd::GridMovesTest)
#include "grid_moves_test.moc"
