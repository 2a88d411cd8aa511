// A block of 10,000 rows: opened, and typed in, against a plain table view of the same cells; written at a focus change,
// against a block of 10 rows. The limits stand in docs/performance.md.
#include "bench/baseline.h"
#include "bench/window_main.h"
#include "document/section_doc.h"
#include "grid/grid_ctrl.h"
#include "panelmodel/panel_model.h"
#include "panels/panel.h"
#include "project/text.h"
#include "tests/document/data_of.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QTableView>

#include <memory>
#include <vector>

namespace sbd::bench {

namespace {

constexpr int kBlock = 313;
constexpr QSize kSize(900, 400);

ShortestTimes plainTimes;
ShortestTimes panelTimes;
ShortestTimes plainKeyTimes;
ShortestTimes panelKeyTimes;
ShortestTimes listKeyTimes;
ShortestTimes plainNextKeyTimes;
ShortestTimes panelNextKeyTimes;
ShortestTimes commitTimes;
ShortestTimes rowTimes;
ShortestTimes bareTimes;
ShortestTimes fillTimes;
ShortestTimes filterTimes;

/// Cells that are ready to be shown.
class PlainModel : public QAbstractTableModel {
public:
    explicit PlainModel(const TableBlock& table)
    {
        for (std::size_t row = 0; row < table.RowCount(); ++row) {
            QStringList& cells = rows_.emplace_back();
            for (const std::string_view cell : table.Row(row))
                cells << toQString(cell);
        }
    }
    [[nodiscard]] int rowCount(const QModelIndex& parent) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(rows_.size());
    }
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override
    {
        return parent.isValid() || rows_.empty() ? 0 : static_cast<int>(rows_.front().size());
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        return role == Qt::DisplayRole || role == Qt::EditRole
                   ? rows_[static_cast<std::size_t>(index.row())][index.column()]
                   : QVariant();
    }

    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        return QAbstractTableModel::flags(index) | Qt::ItemIsEditable;
    }

private:
    std::vector<QStringList> rows_;
};

/// A project with as many rows of vertical stiffeners.
std::unique_ptr<CKELDSectionDoc> DocumentOf(std::int64_t rows)
{
    auto doc = std::make_unique<CKELDSectionDoc>();
    TableBlock& table = *test::DataOf(*doc).Table(kBlock);
    table.AppendRow({Cp932("自動計算(YES_NO)"), "YES_1"});
    const std::string girderType = Cp932("両面");
    for (std::int64_t row = 0; row < rows; ++row) {
        const std::string station = "C" + std::to_string(row);
        const std::string spacing = std::to_string(1000 + row % 700) + " 1250 1250.5";
        table.AppendRow({"G1", "G4", station, "A2", girderType, "110", "9", "2", spacing});
    }
    return doc;
}

template <typename Widget>
std::unique_ptr<Widget> Show(std::unique_ptr<Widget> widget)
{
    widget->resize(kSize);
    widget->show();
    QApplication::processEvents();
    return widget;
}

void BM_PlainTableView(benchmark::State& state)
{
    const std::unique_ptr<CKELDSectionDoc> doc = DocumentOf(state.range(0));
    PlainModel model(*doc->Data().Table(kBlock));
    Measure(state, plainTimes, [&] {
        auto view = std::make_unique<QTableView>();
        view->setModel(&model);
        return Show(std::move(view));
    });
}

void BM_SwitchToBlock(benchmark::State& state)
{
    const std::unique_ptr<CKELDSectionDoc> doc = DocumentOf(state.range(0));
    Measure(state, panelTimes, [&] { return Show(CreatePanel(doc.get(), kBlock)); });
    state.counters["times_bare"] = panelTimes.Of(state.range(0)) / plainTimes.Of(state.range(0));
}

// --- typing ------------------------------------------------------------------------------------------

constexpr int kTypedRow = 50;
constexpr int kFreeColumn = 6;
constexpr int kListColumn = 5;

void SendKey(QWidget* widget, int key, const QString& text)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QKeyEvent event(type, key, Qt::NoModifier, text);
        QApplication::sendEvent(widget, &event);
    }
}

/// Ends the edit, off the clock.
struct EndOfEdit {
    QTableView* view;
    ~EndOfEdit()
    {
        SendKey(QApplication::focusWidget(), Qt::Key_Escape, {});
        QApplication::processEvents();
        view->setFocus();
    }
    EndOfEdit(QTableView* edited) : view(edited) {}
    EndOfEdit(EndOfEdit&& other) noexcept : view(other.view) {}
};

void PutFocus(QTableView& view, int column)
{
    view.activateWindow();
    view.setFocus();
    view.setCurrentIndex(view.model()->index(kTypedRow - 1, column - 1));
    QApplication::processEvents();
}

/// From the key that opens the editor to its picture.
void MeasureFirstKey(benchmark::State& state, QTableView& view, int column, ShortestTimes& times)
{
    PutFocus(view, column);
    Measure(state, times, [&] {
        SendKey(&view, Qt::Key_1, QStringLiteral("1"));
        QApplication::processEvents();
        return EndOfEdit(&view);
    });
}

/// From a key in an open editor to its picture.
void MeasureNextKey(benchmark::State& state, QTableView& view, ShortestTimes& times)
{
    PutFocus(view, kFreeColumn);
    SendKey(&view, Qt::Key_1, QStringLiteral("1"));
    QApplication::processEvents();
    Measure(state, times, [&] {
        SendKey(QApplication::focusWidget(), Qt::Key_2, QStringLiteral("2"));
        QApplication::processEvents();
        SendKey(QApplication::focusWidget(), Qt::Key_Backspace, {});
        QApplication::processEvents();
        return 0;
    });
    SendKey(QApplication::focusWidget(), Qt::Key_Escape, {});
}

void BM_PlainKey(benchmark::State& state)
{
    const std::unique_ptr<CKELDSectionDoc> doc = DocumentOf(state.range(0));
    PlainModel model(*doc->Data().Table(kBlock));
    auto view = std::make_unique<QTableView>();
    view->setModel(&model);
    view->setEditTriggers(QAbstractItemView::AnyKeyPressed);
    view = Show(std::move(view));
    MeasureFirstKey(state, *view, kFreeColumn, plainKeyTimes);
}

void BM_KeyInACell(benchmark::State& state)
{
    const std::unique_ptr<CKELDSectionDoc> doc = DocumentOf(state.range(0));
    const std::unique_ptr<CPanel> panel = Show(CreatePanel(doc.get(), kBlock));
    MeasureFirstKey(state, *panel->Grid(), kFreeColumn, panelKeyTimes);
    state.counters["times_bare"] = panelKeyTimes.Of(state.range(0)) / plainKeyTimes.Of(state.range(0));
}

void BM_KeyInACellWithAList(benchmark::State& state)
{
    const std::unique_ptr<CKELDSectionDoc> doc = DocumentOf(state.range(0));
    const std::unique_ptr<CPanel> panel = Show(CreatePanel(doc.get(), kBlock));
    MeasureFirstKey(state, *panel->Grid(), kListColumn, listKeyTimes);
    state.counters["times_bare"] = listKeyTimes.Of(state.range(0)) / plainKeyTimes.Of(state.range(0));
}

void BM_NextPlainKey(benchmark::State& state)
{
    const std::unique_ptr<CKELDSectionDoc> doc = DocumentOf(state.range(0));
    PlainModel model(*doc->Data().Table(kBlock));
    auto view = std::make_unique<QTableView>();
    view->setModel(&model);
    view->setEditTriggers(QAbstractItemView::AnyKeyPressed);
    view = Show(std::move(view));
    MeasureNextKey(state, *view, plainNextKeyTimes);
}

void BM_NextKeyInACell(benchmark::State& state)
{
    const std::unique_ptr<CKELDSectionDoc> doc = DocumentOf(state.range(0));
    const std::unique_ptr<CPanel> panel = Show(CreatePanel(doc.get(), kBlock));
    MeasureNextKey(state, *panel->Grid(), panelNextKeyTimes);
    state.counters["times_bare"] = panelNextKeyTimes.Of(state.range(0)) / plainNextKeyTimes.Of(state.range(0));
}

// --- writing back ------------------------------------------------------------------------------------

constexpr int kCommits = 100; // a task, so that the clock can tell

/// Cells are edited and left: each is written when the focus moves on.
void BM_CommitAtFocusChange(benchmark::State& state)
{
    const std::unique_ptr<CKELDSectionDoc> doc = DocumentOf(state.range(0));
    const std::unique_ptr<CPanel> panel = Show(CreatePanel(doc.get(), kBlock));
    CGridCtrl& grid = *panel->Grid();
    int value = 0;
    Measure(state, commitTimes, [&] {
        for (int i = 0; i < kCommits; ++i) {
            const int row = 2 + i % 9;
            grid.SetFocusCell(row, kFreeColumn);
            grid.Source()->SetText(row, kFreeColumn, QString::number(++value % 1000));
            grid.SetFocusCell(row, kFreeColumn + 1);
        }
        return 0;
    });
    state.counters["times_10_rows"] = commitTimes.Of(state.range(0)) / commitTimes.Of(10);
}

/// The same where each edit adds a row to the block, or takes it away again.
void BM_CommitOfARow(benchmark::State& state)
{
    const std::unique_ptr<CKELDSectionDoc> doc = DocumentOf(state.range(0));
    const std::unique_ptr<CPanel> panel = Show(CreatePanel(doc.get(), kBlock));
    CGridCtrl& grid = *panel->Grid();
    const int row = static_cast<int>(state.range(0)) + 2;
    bool there = false;
    Measure(state, rowTimes, [&] {
        for (int i = 0; i < kCommits; ++i) {
            grid.SetFocusCell(row, 1);
            there = !there;
            grid.Source()->SetText(row, 1, there ? QStringLiteral("G1") : QString());
            grid.SetFocusCell(row, 2);
        }
        return 0;
    });
    state.counters["times_10_rows"] = rowTimes.Of(state.range(0)) / rowTimes.Of(10);
}

// --- many cells at once ------------------------------------------------------------------------------

QString Other(const QString& text)
{
    return text == QStringLiteral("120") ? QStringLiteral("130") : QStringLiteral("120");
}

/// The cells of one column are set in the model and written to the data, without a window.
void BM_BareChange(benchmark::State& state)
{
    const std::unique_ptr<CKELDSectionDoc> doc = DocumentOf(state.range(0));
    CSbdData& data = test::DataOf(*doc);
    const std::unique_ptr<CPanelModel> model = MakePanelModel(data, kBlock);
    const int last = static_cast<int>(state.range(0)) + 1;
    QString text;
    Measure(state, bareTimes, [&] {
        text = Other(text);
        const std::string bytes = text.toStdString();
        for (int row = 2; row <= last; ++row)
            model->SetCell(row, kFreeColumn, bytes);
        return CommitPanel(*model, data);
    });
}

/// One text into the same cells by the grid's command, as one step of the project, to its picture.
void BM_FillOfAColumn(benchmark::State& state)
{
    const std::unique_ptr<CKELDSectionDoc> doc = DocumentOf(state.range(0));
    const std::unique_ptr<CPanel> panel = Show(CreatePanel(doc.get(), kBlock));
    CGridCtrl& grid = *panel->Grid();
    grid.SetFocusCell(2, kFreeColumn);
    grid.SelectRange({2, kFreeColumn, static_cast<int>(state.range(0)) + 1, kFreeColumn});
    QString text;
    Measure(state, fillTimes, [&] {
        text = Other(text);
        grid.FillSelected(text);
        QApplication::processEvents();
        return 0;
    });
    state.counters["times_bare"] = fillTimes.Of(state.range(0)) / bareTimes.Of(state.range(0));
}

void ShowAllRows(QLineEdit& line)
{
    line.clear();
    QApplication::processEvents();
}

/// Shows all rows again, off the clock.
struct EndOfFilter {
    QLineEdit* line;
    ~EndOfFilter() { ShowAllRows(*line); }
    EndOfFilter(QLineEdit* used) : line(used) {}
    EndOfFilter(EndOfFilter&& other) noexcept : line(other.line) {}
};

/// All rows are in sight; put out of it by the text of a column, to the picture: about a tenth of them stays.
void BM_Filter(benchmark::State& state)
{
    const std::unique_ptr<CKELDSectionDoc> doc = DocumentOf(state.range(0));
    const std::unique_ptr<CPanel> panel = Show(CreatePanel(doc.get(), kBlock));
    constexpr int stationColumn = 3;
    panel->Grid()->SetFocusCell(1, stationColumn);
    panel->FilterRows();
    QLineEdit* line = panel->findChild<QLineEdit*>();
    ShowAllRows(*line);
    Measure(state, filterTimes, [&] {
        line->setText(QStringLiteral("c1"));
        QApplication::processEvents();
        return EndOfFilter(line);
    });
    state.counters["times_bare"] = filterTimes.Of(state.range(0)) / bareTimes.Of(state.range(0));
}

void LargeAndSmall(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgName("rows")->Arg(10)->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);
}

void Sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgName("rows")->Arg(100)->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);
}

// The baseline first: the ratio is taken from the times measured so far.
BENCHMARK(BM_PlainTableView)->Apply(Sizes);
BENCHMARK(BM_SwitchToBlock)->Apply(Sizes);
BENCHMARK(BM_PlainKey)->Apply(Sizes);
BENCHMARK(BM_KeyInACell)->Apply(Sizes);
BENCHMARK(BM_KeyInACellWithAList)->Apply(Sizes);
BENCHMARK(BM_NextPlainKey)->Apply(Sizes);
BENCHMARK(BM_NextKeyInACell)->Apply(Sizes);
BENCHMARK(BM_CommitAtFocusChange)->Apply(LargeAndSmall);
BENCHMARK(BM_CommitOfARow)->Apply(LargeAndSmall);
BENCHMARK(BM_BareChange)->Apply(Sizes);
BENCHMARK(BM_FillOfAColumn)->Apply(Sizes);
BENCHMARK(BM_Filter)->Apply(Sizes);

} // namespace

} // namespace sbd::bench

int main(int argc, char** argv)
{
    return sbd::bench::RunBenchmarks<QApplication>(argc, argv);
}
