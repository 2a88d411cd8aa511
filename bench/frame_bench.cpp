// The station up to its first painted window, against a bare window; the tree of blocks built anew, against a plain tree
// of as many items. The limits stand in docs/performance.md.
#include "app/fonts.h"
#include "bench/baseline.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/left_view.h"
#include "frame/main_frame.h"
#include "tests/surroundings.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QMainWindow>
#include <QProcess>
#include <QSettings>
#include <QSplitter>
#include <QTableView>
#include <QTemporaryDir>
#include <QTranslator>
#include <QTreeWidgetItemIterator>

#include <clocale>
#include <cstdio>
#include <optional>
#include <sys/resource.h>
#include <vector>

namespace sbd::bench {

using namespace Qt::StringLiterals;

namespace {

// --- the start, in a process of its own --------------------------------------------------------------

constexpr QSize kWindow(1600, 900);
constexpr int kLongestStart = 60'000; // ms
const auto kBareStart = u"--start=bare"_s;
const auto kStationStart = u"--start=station"_s;

ShortestTimes bareStartTimes;
ShortestTimes stationStartTimes;

/// Sees the first paint of a widget.
class PaintWatch : public QObject {
public:
    explicit PaintWatch(QWidget& watched) { watched.installEventFilter(this); }
    [[nodiscard]] bool Painted() const { return painted_; }

    bool eventFilter(QObject*, QEvent* event) override
    {
        painted_ = painted_ || event->type() == QEvent::Paint;
        return false;
    }

private:
    bool painted_ = false;
};

void ShowUntilPainted(QMainWindow& window)
{
    const PaintWatch watch(window);
    window.resize(kWindow);
    window.show();
    while (!watch.Painted())
        QApplication::processEvents();
    QApplication::processEvents(); // what the first paint has put off
}

/// Processor time of this process since its start, the system's part included.
double ProcessorSeconds()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) * 1e-6;
    };
    return seconds(usage.ru_utime) + seconds(usage.ru_stime);
}

/// The window that any program with a tree and a table has at least.
double StartBare(int argc, char** argv)
{
    QApplication application(argc, argv);
    QMainWindow window;
    auto* panes = new QSplitter;
    panes->addWidget(new QTreeWidget);
    panes->addWidget(new QTableView);
    window.setCentralWidget(panes);
    ShowUntilPainted(window);
    return ProcessorSeconds();
}

/// As the program starts with an empty profile: what it does before its window stands.
double StartStation(int argc, char** argv)
{
    QApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    const QTemporaryDir profile;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, profile.path());
    QTranslator translator;
    if (translator.load(u"qtbase_ja"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&translator);
    SetUpFonts();
    CMainFrame frame;
    frame.NewProject();
    ShowUntilPainted(frame);
    return ProcessorSeconds();
}

/// What a process of this program says that its start has cost; nothing if it did not come up.
std::optional<double> SecondsOfStart(const QString& start)
{
    QProcess process;
    process.start(QApplication::applicationFilePath(), {start});
    if (!process.waitForFinished(kLongestStart) || process.exitCode() != 0)
        return std::nullopt;
    bool told = false;
    const double seconds = process.readAllStandardOutput().trimmed().toDouble(&told);
    return told ? std::optional(seconds) : std::nullopt;
}

void MeasureStart(benchmark::State& state, const QString& start, ShortestTimes& times)
{
    for (auto _ : state) {
        const std::optional<double> seconds = SecondsOfStart(start);
        if (!seconds) {
            state.SkipWithError("the window did not come up");
            return;
        }
        state.SetIterationTime(*seconds);
        times.Take(0, *seconds);
    }
    state.counters["shortest_ms"] = times.Of(0) * 1e3;
}

void BM_StartBareWindow(benchmark::State& state)
{
    MeasureStart(state, kBareStart, bareStartTimes);
}

void BM_StartStation(benchmark::State& state)
{
    MeasureStart(state, kStationStart, stationStartTimes);
    state.counters["times_bare"] = stationStartTimes.Of(0) / bareStartTimes.Of(0);
}

// --- the tree ----------------------------------------------------------------------------------------

constexpr QSize kTree(320, 800);

ShortestTimes plainTreeTimes;
ShortestTimes treeTimes;

/// A tree of the example project, shown, its groups open or closed.
class ShownTree {
public:
    explicit ShownTree(bool open) : tree_(Load())
    {
        tree_.resize(kTree);
        tree_.show();
        if (open)
            tree_.expandAll();
        QApplication::processEvents();
    }
    [[nodiscard]] CLeftView& Tree() { return tree_; }

private:
    CKELDSectionDoc* Load()
    {
        if (!doc_.OpenDocument(QString::fromUtf8(test::ExamplesFolder()) + u"/plate4/plate4.sbd"_s).Ok())
            qFatal("the example project cannot be read");
        return &doc_;
    }

    CKELDSectionDoc doc_;
    CLeftView tree_;
};

/// Draws a tree at once, and handles what that leaves, off the clock.
struct Picture {
    explicit Picture(QTreeWidget& tree) { tree.viewport()->repaint(); }
    ~Picture() { QApplication::processEvents(); }
    Picture(const Picture&) = delete;
    Picture& operator=(const Picture&) = delete;
};

/// Texts of the items, ready: those of a group behind its head.
std::vector<QStringList> TextsOf(const QTreeWidget& tree)
{
    std::vector<QStringList> groups;
    for (int i = 0; i < tree.topLevelItemCount(); ++i) {
        const QTreeWidgetItem* head = tree.topLevelItem(i);
        QStringList& texts = groups.emplace_back(head->text(0));
        for (int child = 0; child < head->childCount(); ++child)
            texts << head->child(child)->text(0);
    }
    return groups;
}

void BM_FillPlainTree(benchmark::State& state)
{
    const bool open = state.range(0) != 0;
    const std::vector<QStringList> groups = TextsOf(ShownTree(open).Tree());
    QTreeWidget tree;
    tree.setHeaderHidden(true);
    tree.setUniformRowHeights(true);
    tree.resize(kTree);
    tree.show();
    QApplication::processEvents();
    Measure(state, plainTreeTimes, [&] {
        tree.clear();
        for (const QStringList& texts : groups) {
            auto* head = new QTreeWidgetItem(&tree, {texts.front()});
            for (qsizetype i = 1; i < texts.size(); ++i)
                new QTreeWidgetItem(head, {texts[i]});
        }
        if (open)
            tree.expandAll();
        return Picture(tree);
    });
}

/// From the call to the picture.
void BM_RebuildTree(benchmark::State& state)
{
    ShownTree shown(state.range(0) != 0);
    Measure(state, treeTimes, [&] {
        shown.Tree().Rebuild();
        return Picture(shown.Tree());
    });
    int items = 0;
    for (QTreeWidgetItemIterator it(&shown.Tree()); *it != nullptr; ++it)
        ++items;
    state.counters["items"] = items;
    state.counters["times_bare"] = treeTimes.Of(state.range(0)) / plainTreeTimes.Of(state.range(0));
}

void ClosedAndOpen(benchmark::internal::Benchmark* benchmark)
{
    benchmark->ArgName("open")->Arg(0)->Arg(1)->UseManualTime()->Unit(benchmark::kMillisecond);
}

// The baseline first: the ratio is taken from the times measured so far.
BENCHMARK(BM_StartBareWindow)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_StartStation)->UseManualTime()->Unit(benchmark::kMillisecond);
BENCHMARK(BM_FillPlainTree)->Apply(ClosedAndOpen);
BENCHMARK(BM_RebuildTree)->Apply(ClosedAndOpen);

} // namespace

} // namespace sbd::bench

int main(int argc, char** argv)
{
    using namespace sbd::bench;

    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QString start = argc == 2 ? QString::fromLocal8Bit(argv[1]) : QString();
    if (start == kBareStart || start == kStationStart) {
        const double seconds = start == kBareStart ? StartBare(argc, argv) : StartStation(argc, argv);
        std::printf("%.6f\n", seconds);
        return 0;
    }
    QApplication application(argc, argv);
    sbd::SetUpFonts();
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
