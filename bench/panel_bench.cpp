// Switching to a block of 10,000 rows against a plain table view of the same cells. The limit stands in
// docs/performance.md.
#include "bench/baseline.h"
#include "document/section_doc.h"
#include "panels/panel.h"
#include "project/text.h"

#include <QAbstractTableModel>
#include <QApplication>
#include <QTableView>

#include <memory>
#include <vector>

namespace sbd::bench {

namespace {

constexpr int kBlock = 313;
constexpr QSize kSize(900, 400);

ShortestTimes plainTimes;
ShortestTimes panelTimes;

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
        return role == Qt::DisplayRole ? rows_[static_cast<std::size_t>(index.row())][index.column()] : QVariant();
    }

private:
    std::vector<QStringList> rows_;
};

/// A project with as many rows of vertical stiffeners.
std::unique_ptr<CKELDSectionDoc> DocumentOf(std::int64_t rows)
{
    auto doc = std::make_unique<CKELDSectionDoc>();
    TableBlock& table = *doc->Data().Table(kBlock);
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

void Sizes(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgName("rows")->Arg(100)->Arg(10'000)->UseManualTime()->Unit(benchmark::kMillisecond);
}

// The baseline first: the ratio is taken from the times measured so far.
BENCHMARK(BM_PlainTableView)->Apply(Sizes);
BENCHMARK(BM_SwitchToBlock)->Apply(Sizes);

} // namespace

} // namespace sbd::bench

int main(int argc, char** argv)
{
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
