// Delete, copy and paste in a grid.
#include "tests/grid/grid_bench.h"

#include <QApplication>
#include <QClipboard>
#include <QSignalSpy>

namespace sbd {

using namespace Qt::StringLiterals;

class GridClipboardTest : public test::GridBench {
    Q_OBJECT

private slots:
    void init() { PutGrid(); }
    void cleanup() { TakeGrid(); }

    void DeleteClearsTheSelectedCells();
    void CopyAndPasteGoThroughTheClipboard();
    void PasteOfARefusedCharacterPutsNothing();
    void PasteBelowTheLastRowShowsTheNewRows();
};

void GridClipboardTest::DeleteClearsTheSelectedCells()
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

void GridClipboardTest::CopyAndPasteGoThroughTheClipboard()
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

void GridClipboardTest::PasteOfARefusedCharacterPutsNothing()
{
    QApplication::clipboard()->setText(u"1\t♥"_s);
    Key(Qt::Key_Insert, Qt::ShiftModifier);
    QCOMPARE(messages_.size(), 1);
    QVERIFY(messages_[0].contains(u"貼り付けは行いませんでした"_s));
    QCOMPARE(Cell(2, 2), u"b2"_s);
}

void GridClipboardTest::PasteBelowTheLastRowShowsTheNewRows()
{
    QApplication::clipboard()->setText(u"1\n2\n3"_s);
    grid_->SetFocusCell(60, 1);
    Key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(grid_->model()->rowCount(), 62);
    QCOMPARE(grid_->model()->index(61, 0).data().toString(), u"3"_s);
}

} // namespace sbd

QTEST_MAIN(sbd::GridClipboardTest)
#include "grid_clipboard_test.moc"
