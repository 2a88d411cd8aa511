// What a screen reader hears of a grid: by the tree that it walks.
#include "grid/grid_ctrl.h"
#include "tests/grid/table_source.h"

#include <QAccessible>
#include <QApplication>
#include <QHeaderView>
#include <QScrollBar>
#include <QTest>

namespace sbd {

using namespace Qt::StringLiterals;
using test::CTableSource;

namespace {

/// Column 4 is one of millimetres; row 1 has a label.
class LabelSource : public CTableSource {
public:
    using CTableSource::CTableSource;
    [[nodiscard]] QString RowTitle(int row) const override { return row == 1 ? u"設計\n条件"_s : QString(); }
    [[nodiscard]] QString Unit(int, int column) const override { return column == 4 ? u"mm"_s : QString(); }
};

} // namespace

class GridAccessibleTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<LabelSource> source_;
    std::unique_ptr<CGridCtrl> grid_;

    [[nodiscard]] QAccessibleInterface* Grid() const { return QAccessible::queryAccessibleInterface(grid_.get()); }
    [[nodiscard]] QAccessibleTableInterface* Table() const { return Grid()->tableInterface(); }
    [[nodiscard]] static QString Told(QAccessibleInterface* cell) { return cell->text(QAccessible::Description); }

private slots:
    void init();
    void cleanup();

    void ACellTellsHeadRowLabelUnitAndWhetherItIsFixed();
    void WhatIsMarkedIsHeardWithTheCellAndItsRow();
    void TheFocusIsFoundAtItsCellByTheNumberThatTheViewTells();
    void RowsOutOfSightAreNoRows();
    void HeadsAndNumbersBelongToTheirCells();
    void ACellIsFoundWhereItIsSeenAndSaysWhereItStands();
    void WhatIsSelectedIsTold();
    void TheTableHoldsWhenItsCellsAreOthers();
};

void GridAccessibleTest::init()
{
    source_ = std::make_unique<LabelSource>(20, 12);
    for (int row = 1; row <= 20; ++row)
        source_->SetText(row, 4, QString::number(row * 10));
    source_->locked.insert({2, 4});
    source_->words[3] = {u"SM400"_s};
    grid_ = std::make_unique<CGridCtrl>();
    grid_->setAccessibleName(u"313 垂直補剛材"_s);
    grid_->SetSource(source_.get());
    grid_->resize(640, 300);
    grid_->show();
    QVERIFY(QTest::qWaitForWindowActive(grid_.get()));
    grid_->setFocus();
}

void GridAccessibleTest::cleanup()
{
    grid_.reset();
    source_.reset();
}

void GridAccessibleTest::ACellTellsHeadRowLabelUnitAndWhetherItIsFixed()
{
    QCOMPARE(Grid()->role(), QAccessible::Table);
    QCOMPARE(Grid()->text(QAccessible::Name), u"313 垂直補剛材"_s);
    QAccessibleInterface* cell = Table()->cellAt(2, 3);
    QCOMPARE(cell->text(QAccessible::Name), u"30"_s);
    QCOMPARE(Told(cell), u"H4 (mm)、3 行目、単位 mm"_s);
    QVERIFY(cell->state().editable && !cell->state().readOnly);
    QCOMPARE(Told(Table()->cellAt(1, 3)), u"H4 (mm)、2 行目、単位 mm、固定、入力不可"_s);
    QVERIFY(Table()->cellAt(1, 3)->state().readOnly);
    QCOMPARE(Told(Table()->cellAt(3, 2)), u"H3 (mm)、4 行目、一覧あり"_s);
    QVERIFY(Table()->cellAt(3, 2)->state().hasPopup);
    QCOMPARE(Told(Table()->cellAt(0, 1)), u"H2 (mm)、1 行目、設計 条件"_s);
    QCOMPARE(cell->parent(), Grid());
}

void GridAccessibleTest::WhatIsMarkedIsHeardWithTheCellAndItsRow()
{
    grid_->SetMarks(MarkSource::Check, {{3, 4, MarkKind::Loss, u"開き直すと 0 に変わります。"_s}});
    QVERIFY2(Told(Table()->cellAt(2, 3)).endsWith(u"、開き直すと 0 に変わります。"_s),
             qPrintable(Told(Table()->cellAt(2, 3))));
    QAccessibleInterface* number = Table()->cellAt(2, 3)->tableCellInterface()->rowHeaderCells().value(0);
    QVERIFY(Told(number).contains(u"開き直すと"_s));
}

/// Where a platform has screen readers, the view tells them of the focus by a number: row by row, heads among them.
void GridAccessibleTest::TheFocusIsFoundAtItsCellByTheNumberThatTheViewTells()
{
    const auto told = [this] {
        const QModelIndex focus = grid_->currentIndex();
        return Grid()->child((focus.row() + 1) * (source_->ColumnCount() + 1) + focus.column() + 1);
    };
    grid_->SetFocusCell(3, 4);
    QCOMPARE(told()->text(QAccessible::Name), u"30"_s);
    grid_->setRowHidden(3, true);
    grid_->setRowHidden(4, true);
    QTest::keyClick(grid_.get(), Qt::Key_Down); // past the rows that are out of sight
    QCOMPARE(told()->text(QAccessible::Name), u"60"_s);
    QCOMPARE(Told(told()), u"H4 (mm)、6 行目、単位 mm"_s);
    QCOMPARE(Grid()->focusChild(), told());
    QVERIFY(told()->state().focused);
}

void GridAccessibleTest::RowsOutOfSightAreNoRows()
{
    QCOMPARE(Table()->rowCount(), 20);
    for (int row = 4; row <= 18; ++row)
        grid_->setRowHidden(row - 1, true);
    QCOMPARE(Table()->rowCount(), 5);
    QCOMPARE(Table()->cellAt(3, 3)->text(QAccessible::Name), u"190"_s);
    QCOMPARE(Table()->cellAt(3, 3)->tableCellInterface()->rowIndex(), 3);
    QCOMPARE(Table()->rowDescription(3), u"19"_s);
    QVERIFY(Table()->cellAt(5, 3) == nullptr);
    QVERIFY(Table()->cellAt(-1, 3) == nullptr);
    QVERIFY(Table()->cellAt(0, 12) == nullptr);
    QVERIFY(Grid()->child(5 * 13 + 4)->state().invisible);
    QVERIFY(!Grid()->child(19 * 13 + 4)->state().invisible);
}

void GridAccessibleTest::HeadsAndNumbersBelongToTheirCells()
{
    QAccessibleTableCellInterface* cell = Table()->cellAt(2, 3)->tableCellInterface();
    QCOMPARE(cell->table(), Grid());
    QCOMPARE(cell->columnIndex(), 3);
    QCOMPARE(cell->rowIndex(), 2);
    QCOMPARE(cell->columnHeaderCells().value(0)->text(QAccessible::Name), u"H4 (mm)"_s);
    QCOMPARE(cell->columnHeaderCells().value(0)->role(), QAccessible::ColumnHeader);
    QCOMPARE(cell->rowHeaderCells().value(0)->text(QAccessible::Name), u"3"_s);
    QCOMPARE(cell->rowHeaderCells().value(0)->role(), QAccessible::RowHeader);
    QCOMPARE(Table()->columnDescription(3), u"H4 (mm)"_s);
    QCOMPARE(Grid()->indexOfChild(Table()->cellAt(2, 3)), 3 * 13 + 4);
    QCOMPARE(Grid()->child(3 * 13 + 4), Table()->cellAt(2, 3)); // one cell is one object
    QVERIFY(Grid()->child(Grid()->childCount()) == nullptr);
}

void GridAccessibleTest::ACellIsFoundWhereItIsSeenAndSaysWhereItStands()
{
    grid_->SetFrozenColumns(2);
    grid_->horizontalScrollBar()->setValue(300);
    QAccessibleInterface* frozen = Table()->cellAt(2, 1);
    const QPoint middle = frozen->rect().center();
    QCOMPARE(frozen->rect().topLeft(), grid_->viewport()->mapToGlobal(QPoint(90, 2 * 18)));
    QCOMPARE(Grid()->childAt(middle.x(), middle.y()), frozen);
    QAccessibleInterface* head = frozen->tableCellInterface()->columnHeaderCells().value(0);
    QCOMPARE(head->rect().left(), frozen->rect().left());
    QCOMPARE(head->rect().top(), grid_->horizontalHeader()->mapToGlobal(QPoint()).y());
    QVERIFY(Table()->cellAt(19, 1)->state().offscreen);
    QVERIFY(!frozen->state().offscreen);
}

void GridAccessibleTest::WhatIsSelectedIsTold()
{
    grid_->SetFocusCell(2, 2);
    grid_->ExtendTo({5, 4});
    grid_->setRowHidden(2, true);
    QCOMPARE(Table()->selectedCellCount(), 9);
    QCOMPARE(Table()->selectedRowCount(), 0);
    QVERIFY(Table()->cellAt(1, 2)->state().selected);
    QVERIFY(Table()->selectRow(1));
    QCOMPARE(Table()->selectedRows(), QList<int>{1});
    QVERIFY(Table()->selectColumn(3));
    QCOMPARE(Table()->selectedColumns(), QList<int>{3});
    QVERIFY(!Table()->selectRow(40));
    QVERIFY(!Table()->selectColumn(12));
}

void GridAccessibleTest::TheTableHoldsWhenItsCellsAreOthers()
{
    QAccessibleInterface* cell = Table()->cellAt(19, 11);
    QVERIFY(cell->isValid());
    CTableSource fewer(2, 3);
    grid_->SetSource(&fewer);
    QCOMPARE(Table()->rowCount(), 2);
    QCOMPARE(Table()->columnCount(), 3);
    QVERIFY(Table()->cellAt(19, 11) == nullptr);
    QCOMPARE(Grid()->childCount(), 3 * 4);
    grid_->SetSource(nullptr);
    QCOMPARE(Grid()->childCount(), 0);
    QVERIFY(Grid()->focusChild() == nullptr);
}

} // namespace sbd

QTEST_MAIN(sbd::GridAccessibleTest)
#include "grid_accessible_test.moc"
