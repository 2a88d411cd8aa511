// Opens and leaves every word list of the examples: looking at a list must not change a project.
#include "document/section_doc.h"
#include "grid/cell_editor.h"
#include "grid/grid_ctrl.h"
#include "grid/grid_delegate.h"
#include "panels/panel.h"
#include "project/catalogue.h"
#include "sbdfile/writer.h"
#include "tests/share.h"
#include "tests/surroundings.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLoggingCategory>
#include <QTest>

#include <algorithm>
#include <vector>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

/// How a list is opened and left again.
enum class Way { Key, Mouse };

struct Counts {
    int cells = 0;   // lists that were opened and left
    int foreign = 0; // of these: cells with a text that is not in the list
};

std::string BytesOf(CKELDSectionDoc& doc)
{
    return WriteProject(doc.Data());
}

/// Every block that has a panel of its own, none twice.
std::vector<int> Blocks()
{
    std::vector<int> blocks;
    for (const CatalogueRow& row : Catalogue())
        if (CanonicalBlock(row.block) == row.block && test::IsOfThisShare(row.block))
            blocks.push_back(row.block);
    return blocks;
}

} // namespace

class ListCellsTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<CKELDSectionDoc> doc_;
    std::unique_ptr<CPanel> panel_;

    [[nodiscard]] CGridCtrl& Grid() const { return *panel_->Grid(); }
    [[nodiscard]] CCellCombo* Combo() const
    {
        return Grid().IsEditing() ? qobject_cast<CCellCombo*>(Grid().indexWidget(Grid().currentIndex())) : nullptr;
    }
    [[nodiscard]] QRect CellRect() const { return Grid().visualRect(Grid().currentIndex()); }

    bool Open(int block);
    bool OpenAndLeaveByKey();
    bool OpenAndLeaveByMouse();
    void VisitBlock(Way way, Counts& counts);

private slots:
    void EveryListIsOpenedAndLeftWithoutAChange_data();
    void EveryListIsOpenedAndLeftWithoutAChange();
};

/// Puts the panel of a block on show; false if it has no grid of its own.
bool ListCellsTest::Open(int block)
{
    panel_ = CreatePanel(doc_.get(), block);
    if (!panel_ || panel_->Model() == nullptr)
        return false;
    panel_->resize(1200, 600);
    panel_->show();
    panel_->activateWindow();
    panel_->Grid()->setFocus();
    return true;
}

/// Alt+Down, Esc for the list, Enter for the cell.
bool ListCellsTest::OpenAndLeaveByKey()
{
    QTest::keyClick(&Grid(), Qt::Key_Down, Qt::AltModifier);
    CCellCombo* combo = Combo();
    if (combo == nullptr || !combo->view()->isVisible())
        return false;
    QTest::keyClick(combo->view(), Qt::Key_Escape);
    if (combo->view()->isVisible() || Combo() == nullptr)
        return false;
    QTest::keyClick(combo, Qt::Key_Return);
    return !Grid().IsEditing();
}

/// A click on the arrow, then one on another cell, which closes the list first.
bool ListCellsTest::OpenAndLeaveByMouse()
{
    const GridCell cell = Grid().FocusCell();
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, CGridDelegate::ButtonRect(CellRect()).center());
    CCellCombo* combo = Combo();
    if (combo == nullptr || !combo->view()->isVisible())
        return false;
    combo->hidePopup();
    const int elsewhere = cell.row == 1 ? 2 : cell.row - 1;
    const QRect other = Grid().visualRect(Grid().model()->index(elsewhere - 1, cell.column - 1));
    QTest::mouseClick(Grid().viewport(), Qt::LeftButton, {}, other.center());
    return !Grid().IsEditing() && Grid().FocusCell().row == elsewhere;
}

void ListCellsTest::VisitBlock(Way way, Counts& counts)
{
    const CGridSource& source = *Grid().Source();
    const int rows = std::min(source.UsedRows() + 1, source.RowCount()); // all empty rows behind are like the first
    for (int row = 1; row <= rows; ++row) {
        for (int column = 1; column <= source.ColumnCount(); ++column) {
            if (!source.HasWords(row, column) || !source.IsEditable(row, column))
                continue;
            Grid().SetFocusCell(row, column);
            const QString text = source.Text(row, column);
            const bool done = way == Way::Key ? OpenAndLeaveByKey() : OpenAndLeaveByMouse();
            const QString where = u"%1, row %2, column %3"_s.arg(panel_->Block()).arg(row).arg(column);
            QVERIFY2(done, qPrintable(where));
            QVERIFY2(source.Text(row, column) == text, qPrintable(where + u": the text was "_s + text));
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete); // the editors that are done with
            QCoreApplication::sendPostedEvents();
            ++counts.cells;
            counts.foreign += !text.isEmpty() && !source.Words(row, column).contains(text);
        }
    }
}

void ListCellsTest::EveryListIsOpenedAndLeftWithoutAChange_data()
{
    QTest::addColumn<QString>("project");
    QTest::addColumn<bool>("byKey");
#ifdef __SANITIZE_ADDRESS__ // ten times as long, and no list of the larger ones is of another kind
    const QList<const char*> projects{"single1"};
#else
    const QList<const char*> projects{"plate4", "box2", "single1"};
#endif
    for (const char* name : projects) {
        for (const bool byKey : {true, false}) {
            const QString title = QString::fromLatin1(name) + (byKey ? u", key"_s : u", mouse"_s);
            QTest::newRow(qPrintable(title))
                << u"%1/%2/%2.sbd"_s.arg(QString::fromUtf8(test::ExamplesFolder()), QLatin1String(name)) << byKey;
        }
    }
}

void ListCellsTest::EveryListIsOpenedAndLeftWithoutAChange()
{
    QFETCH(QString, project);
    QFETCH(bool, byKey);
    QLoggingCategory::setFilterRules(u"default.warning=false"_s); // what the offscreen platform says of each list
    doc_ = std::make_unique<CKELDSectionDoc>();
    QVERIFY(doc_->OpenDocument(project).Ok());
    for (const int block : Blocks()) // what a panel puts in by opening, as a missing automatic row, is there before
        if (Open(block))
            panel_->ClosePanel();
    const std::string before = BytesOf(*doc_);
    Counts counts;
    for (const int block : Blocks()) {
        if (!Open(block))
            continue;
        VisitBlock(byKey ? Way::Key : Way::Mouse, counts);
        if (QTest::currentTestFailed())
            break;
        panel_->ClosePanel();
        QVERIFY2(BytesOf(*doc_) == before, qPrintable(u"the file changes by %1"_s.arg(block)));
        QVERIFY2(!doc_->IsModified(), qPrintable(QString::number(block)));
    }
    qInfo("%d lists opened and left, %d of them in cells whose text is not in the list", counts.cells, counts.foreign);
    panel_.reset();
    QVERIFY(counts.cells > 0);
    QVERIFY(counts.foreign > 0);
}

} // namespace sbd

QTEST_MAIN(sbd::ListCellsTest)
#include "list_cells_test.moc"
