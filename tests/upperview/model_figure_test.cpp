#include "document/section_doc.h"
#include "results/result_files.h"
#include "sbdfile/grid_names.h"
#include "tests/surroundings.h"
#include "upperview/model_figure.h"
#include "upperview/result_diagram.h"

#include <QImage>
#include <QMouseEvent>
#include <QPainter>
#include <QTest>

#include <cmath>
#include <limits>
#include <random>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize(900, 500);

/// A project of the examples with its results.
struct Bridge {
    explicit Bridge(const char* name)
    {
        const std::filesystem::path project =
            std::filesystem::path(test::ExamplesFolder()) / name / (std::string(name) + ".sbd");
        static_cast<void>(LoadProject(project, NamesFileBeside(project), data));
        ReadResultFiles(project, results);
    }
    CSbdData data;
    AnalysisResults results;
};

FigureScreen Screen()
{
    return {double(kSize.width()), double(kSize.height()), 1920, 1080};
}

FigureLook Look()
{
    FigureLook look;
    look.font = QFont(u"ＭＳ ゴシック"_s);
    look.font.setStyleHint(QFont::Monospace);
    look.font.setPixelSize(19);
    return look;
}

template <typename Draw>
QImage Painted(Draw draw)
{
    QImage image(kSize, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    draw(painter);
    painter.end();
    return image;
}

/// Kept where the environment says so, for a look at what is painted.
void Keep(const QImage& image, const QString& name)
{
    const QString folder = qEnvironmentVariable("SBD_FIGURES");
    if (!folder.isEmpty())
        QVERIFY(image.save(folder + u'/' + name + u".png"_s));
}

int Count(const QImage& image, QColor color)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixel(x, y) == color.rgb() ? 1 : 0;
    return count;
}

QImage Model(const Bridge& bridge, FigureView& view, FigureSelection selection = {})
{
    return Painted([&](QPainter& painter) {
        DrawModelFigure(painter, Screen(), bridge.results, bridge.data, selection, Look(), view);
    });
}

QImage Page(const Bridge& bridge, const ResultSelection& selection, FigureView& view)
{
    return Painted(
        [&](QPainter& painter) { DrawResultPage(painter, Screen(), bridge.results, selection, Look(), view); });
}

ResultSelection Selected(const Bridge& bridge, ResultKind kind, const char* item, const std::string& girder)
{
    ResultSelection selection;
    selection.kind = kind;
    selection.load = FirstLoad(bridge.results.model, kind).value();
    selection.girder = girder;
    selection.figureItem = item;
    return selection;
}

QMouseEvent Event(QEvent::Type type, QPointF at, Qt::MouseButton button)
{
    return {type, at, at, button, button, Qt::NoModifier};
}

} // namespace

class ModelFigureTest : public QObject {
    Q_OBJECT

private slots:
    void everyViewOfEveryExampleShowsMembersNodesAndSupports_data();
    void everyViewOfEveryExampleShowsMembersNodesAndSupports();
    void aPixelIsWhereTheProjectionSays();
    void theSelectedRowIsRedAndTheOthersAreNot();
    void membersThatAreNotThereAreInTheBackgroundColour();
    void everyKindHasADiagram_data();
    void everyKindHasADiagram();
    void theDeformedFrameTakesTheMarksOfTheMouse();
    void whatIsNotThereIsWhite();
    void brokenRecordsArePainted();
    void aRectangleZoomsAndAClickDoesNothing();
    void aDragIsShownFromTenPixelsOnAndStaysAtItsEnd();
    void aDragStaysWhereItWasShownLast();
    void thousandsOfLinesArePaintedAsOneByOne();
    void thousandsOfDotsArePaintedAsOneByOne();
};

void ModelFigureTest::everyViewOfEveryExampleShowsMembersNodesAndSupports_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<Command>("command");
    for (const char* const name : {"plate4", "box2", "single1"})
        for (const ViewCommand& view : kViewCommands)
            QTest::addRow("%s %s", name, view.name.data()) << QString::fromLatin1(name) << view.command;
}

void ModelFigureTest::everyViewOfEveryExampleShowsMembersNodesAndSupports()
{
    QFETCH(QString, name);
    QFETCH(const Command, command);
    const Bridge bridge(name.toLatin1().constData());
    FigureView view;
    QVERIFY(ApplyViewCommand(view, command));
    const QImage image = Model(bridge, view, {573, 5});
    Keep(image, u"model %1 %2"_s.arg(name).arg(static_cast<int>(command)));
    QVERIFY(Count(image, Qt::red) > 50);
    QVERIFY(Count(image, Qt::blue) > 50);
    QVERIFY(Count(image, Qt::black) > 50);
}

void ModelFigureTest::aPixelIsWhereTheProjectionSays()
{
    const Bridge bridge("plate4");
    FigureView view;
    QVERIFY(ApplyViewCommand(view, Command::ViewXY));
    const QImage image = Model(bridge, view);
    // Nodes 1, which has a support, and 2, at 128.57, 227.2 and 161.69, 227.2.
    QCOMPARE(QColor(image.pixel(128, 227)), QColor(Qt::black));
    QCOMPARE(QColor(image.pixel(126, 226)), QColor(Qt::red));
    QCOMPARE(QColor(image.pixel(161, 227)), QColor(Qt::red));
    QCOMPARE(QColor(image.pixel(145, 227)), QColor(Qt::blue));
    QCOMPARE(QColor(image.pixel(145, 220)), QColor(Qt::white));
}

void ModelFigureTest::theSelectedRowIsRedAndTheOthersAreNot()
{
    const Bridge bridge("plate4");
    FigureView view;
    const int without = Count(Model(bridge, view), Qt::red);
    QVERIFY(Count(Model(bridge, view, {573, 3}), Qt::red) > without + 30);
    QVERIFY(Count(Model(bridge, view, {523, 3}), Qt::red) > without + 10);
    QCOMPARE(Count(Model(bridge, view, {305, 3}), Qt::red), without);
    QCOMPARE(Count(Model(bridge, view, {573, 100000}), Qt::red), without);
}

void ModelFigureTest::membersThatAreNotThereAreInTheBackgroundColour()
{
    const Bridge bridge("plate4");
    FigureView view;
    FigureLook look = Look();
    look.backColor = QColor(12, 34, 56);
    const QImage image = Painted(
        [&](QPainter& painter) { DrawModelFigure(painter, Screen(), bridge.results, bridge.data, {}, look, view); });
    QVERIFY(Count(image, look.backColor) > 10);
}

void ModelFigureTest::everyKindHasADiagram_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<int>("kind");
    QTest::addColumn<QString>("item");
    for (const char* const name : {"plate4", "box2", "single1"})
        for (const ResultKindInfo& info : ResultKinds())
            for (const std::size_t component : {info.defaultComponent, std::size_t{2}})
                QTest::addRow("%s %s %d", name, info.word.data(), int(component))
                    << QString::fromLatin1(name) << int(info.kind)
                    << QString::fromUtf8(info.components[component].data());
}

void ModelFigureTest::everyKindHasADiagram()
{
    QFETCH(QString, name);
    QFETCH(int, kind);
    QFETCH(QString, item);
    const Bridge bridge(name.toLatin1().constData());
    FigureView view;
    const ResultSelection selection =
        Selected(bridge, ResultKind(kind), item.toLatin1().constData(), bridge.results.model.girderNames[0]);
    const QImage image = Page(bridge, selection, view);
    Keep(image, u"diagram %1 %2 %3"_s.arg(name).arg(kind).arg(item));
    QVERIFY(Count(image, Qt::black) > 500);
}

void ModelFigureTest::theDeformedFrameTakesTheMarksOfTheMouse()
{
    const Bridge bridge("box2");
    FigureView view;
    view.panPending = true;
    view.rightMovePoint = {200, 0};
    const ResultSelection selection = Selected(bridge, ResultKind::Displacement, "Uz", AllWord());
    const QImage image = Page(bridge, selection, view);
    Keep(image, u"deformed box2"_s);
    QVERIFY(Count(image, Qt::black) > 200);
    QVERIFY(Count(image, QColor(0x80, 0x80, 0x80)) > 200);
    QVERIFY(!view.panPending); // nothing is left for the next figure
    QCOMPARE(view.panX, 9);
    view.panX = 0;
    QVERIFY(image != Page(bridge, selection, view));
    FigureView above;
    QVERIFY(ApplyViewCommand(above, Command::ViewXY));
    QVERIFY(Page(bridge, selection, above) != Page(bridge, selection, view)); // a view turns it
}

void ModelFigureTest::whatIsNotThereIsWhite()
{
    Bridge bridge("single1");
    FigureView view;
    ResultSelection selection = Selected(bridge, ResultKind::Force, "My", "G1");
    selection.load = "?";
    QCOMPARE(Count(Page(bridge, selection, view), Qt::white), kSize.width() * kSize.height());
    bridge.results = {};
    QCOMPARE(Count(Model(bridge, view), Qt::white), kSize.width() * kSize.height());
}

void ModelFigureTest::brokenRecordsArePainted()
{
    Bridge bridge("plate4");
    constexpr double none = std::numeric_limits<double>::quiet_NaN();
    bridge.results.nodeTable.coordinates[3] = {none, 0, 0};
    bridge.results.nodeTable.coordinates[4] = {1e300, -1e300, 0};
    bridge.results.elementTable.ends[7] = {-5, 1'000'000, 0};
    bridge.results.elementTable.ends[8] = {0, 0, 0};
    bridge.results.force.values[5] = none;
    bridge.results.force.values[40] = 1e308;
    bridge.results.displacement.values.resize(30);
    FigureView view;
    for (const double zoom : {1.4, 0.0, -1.0, 1e-300, 1e300, none}) {
        view.zoom = zoom;
        static_cast<void>(Model(bridge, view, {573, 2}));
        for (const ResultKind kind : {ResultKind::Displacement, ResultKind::Force, ResultKind::Reaction})
            for (const std::string& girder : {std::string("G1"), AllWord()})
                static_cast<void>(Page(bridge, Selected(bridge, kind, "My", girder), view));
    }
}

void ModelFigureTest::aRectangleZoomsAndAClickDoesNothing()
{
    const Bridge bridge("plate4");
    FigureView view;
    CFigureMouse mouse(view);
    QVERIFY(!mouse.RubberBand());
    mouse.Press(Event(QEvent::MouseButtonPress, {600, 300}, Qt::LeftButton));
    QCOMPARE(mouse.Move(Event(QEvent::MouseMove, {300, 100}, Qt::LeftButton)), FigureMouseEffect::RubberBand);
    QCOMPARE(*mouse.RubberBand(), QRectF(300, 100, 300, 200));
    mouse.Move(Event(QEvent::MouseMove, {750, 350}, Qt::LeftButton));
    QCOMPARE(mouse.Release(Event(QEvent::MouseButtonRelease, {750, 350}, Qt::LeftButton)), FigureMouseEffect::Repaint);
    QVERIFY(!mouse.RubberBand());
    static_cast<void>(Model(bridge, view));
    QCOMPARE(view.zoom, 1.4 * 150 / 900);

    mouse.Press(Event(QEvent::MouseButtonPress, {10, 10}, Qt::LeftButton));
    mouse.Release(Event(QEvent::MouseButtonRelease, {10, 10}, Qt::LeftButton));
    const FigureView before = view;
    const QImage after = Model(bridge, view);
    QCOMPARE(view.zoom, before.zoom);
    QCOMPARE(view.panX, before.panX);
    QVERIFY(Count(after, Qt::blue) > 50);
}

void ModelFigureTest::aDragIsShownFromTenPixelsOnAndStaysAtItsEnd()
{
    const Bridge bridge("plate4");
    FigureView view;
    CFigureMouse mouse(view);
    mouse.Press(Event(QEvent::MouseButtonPress, {100, 100}, Qt::RightButton));
    QCOMPARE(mouse.Move(Event(QEvent::MouseMove, {110, 110}, Qt::RightButton)), FigureMouseEffect::None);
    QCOMPARE(mouse.Move(Event(QEvent::MouseMove, {150, 100}, Qt::RightButton)), FigureMouseEffect::Repaint);
    const QImage shown = Model(bridge, view);
    QCOMPARE(view.panX, 0);
    QVERIFY(shown != Model(bridge, view));
    mouse.Release(Event(QEvent::MouseButtonRelease, {150, 100}, Qt::RightButton));
    QVERIFY(shown == Model(bridge, view));
    QCOMPARE(view.panX, 2);
}

void ModelFigureTest::aDragStaysWhereItWasShownLast()
{
    const Bridge bridge("plate4");
    FigureView view;
    view.panX = -3;
    CFigureMouse mouse(view);
    // A click that trembles shows no drag, so it must not move the figure either.
    mouse.Press(Event(QEvent::MouseButtonPress, {100, 100}, Qt::RightButton));
    mouse.Move(Event(QEvent::MouseMove, {108, 104}, Qt::RightButton));
    QCOMPARE(mouse.Release(Event(QEvent::MouseButtonRelease, {109, 104}, Qt::RightButton)), FigureMouseEffect::None);
    static_cast<void>(Model(bridge, view));
    QCOMPARE(view.panX, -3);
    // Away and back again: the figure follows back.
    mouse.Press(Event(QEvent::MouseButtonPress, {100, 100}, Qt::RightButton));
    mouse.Move(Event(QEvent::MouseMove, {300, 100}, Qt::RightButton));
    QCOMPARE(mouse.Move(Event(QEvent::MouseMove, {100, 100}, Qt::RightButton)), FigureMouseEffect::Repaint);
    const QImage shown = Model(bridge, view);
    mouse.Release(Event(QEvent::MouseButtonRelease, {100, 100}, Qt::RightButton));
    QVERIFY(shown == Model(bridge, view));
    QCOMPARE(view.panX, -3);
    // What is forgotten has no end.
    mouse.Press(Event(QEvent::MouseButtonPress, {100, 100}, Qt::RightButton));
    mouse.Press(Event(QEvent::MouseButtonPress, {100, 100}, Qt::LeftButton));
    mouse.Forget();
    QVERIFY(!mouse.RubberBand());
    QCOMPARE(mouse.Release(Event(QEvent::MouseButtonRelease, {300, 300}, Qt::RightButton)), FigureMouseEffect::None);
    QCOMPARE(mouse.Release(Event(QEvent::MouseButtonRelease, {300, 300}, Qt::LeftButton)), FigureMouseEffect::None);
    QVERIFY(!view.panPending && !view.zoomBoxPending);
}

void ModelFigureTest::thousandsOfLinesArePaintedAsOneByOne()
{
    std::mt19937 random(20261122);
    const auto below = [&](int most) { return static_cast<int>(random() % static_cast<unsigned>(most)); };
    for (const double width : {1.0, 2.0, 3.0}) {
        std::vector<QLine> lines;
        for (int i = 0; i < 3000; ++i) {
            const QPoint from(below(300), below(200));
            const int length = below(12);
            lines.emplace_back(from, from
                                         + (i % 3 == 0   ? QPoint(length, 0)
                                            : i % 3 == 1 ? QPoint(0, -length)
                                                         : QPoint(-length, below(12))));
        }
        const QPen pen(Qt::blue, width);
        const QImage wanted = Painted([&](QPainter& painter) {
            painter.setPen(pen);
            painter.drawLines(lines.data(), static_cast<int>(lines.size()));
        });
        const QImage painted = Painted([&](QPainter& painter) {
            CFigureLines figure(Screen());
            for (const QLine& line : lines)
                figure.Add({double(line.x1()), double(line.y1())}, {double(line.x2()), double(line.y2())});
            figure.Paint(painter, pen);
        });
        QVERIFY(Count(wanted, Qt::blue) > 1000);
        QVERIFY(painted == wanted);
    }
}

void ModelFigureTest::thousandsOfDotsArePaintedAsOneByOne()
{
    AnalysisResults results;
    constexpr int count = 5000;              // more than the pane's size asks for
    for (int node = 0; node < count; ++node) // each on pixels of its own
        results.nodeTable.coordinates.push_back({double(node * 7 % 300), std::floor(node * 7 / 300.0), 0});
    results.nodeTable.nodeFlags.resize(count);
    results.nodeTable.nodeValues.resize(count);
    results.model.nodeCount = count;
    FigureView view;
    ApplyViewCommand(view, Command::ViewXY);
    const QImage painted =
        Painted([&](QPainter& painter) { DrawModelFigure(painter, Screen(), results, CSbdData(), {}, Look(), view); });
    const CModelProjection projection(FigurePlaces(results), view.viewDirection);
    const ModelScale scale = FitModel(projection.Bounds(), Screen(), view.zoom, PanOf(view));
    const QImage wanted = Painted([&](QPainter& painter) {
        painter.setPen(PenOf(FigurePen::Plain, Look()));
        painter.setBrush(Qt::red);
        for (std::int32_t node = 1; node <= count; ++node) {
            const FigurePoint at = ScreenOf(node, projection, scale);
            painter.drawEllipse(QPoint(static_cast<int>(at.x), static_cast<int>(at.y)), 3, 3);
        }
    });
    const QRect belowTheHeading(0, 100, kSize.width(), kSize.height() - 100);
    QVERIFY(Count(wanted.copy(belowTheHeading), Qt::red) > 1000);
    QVERIFY(painted.copy(belowTheHeading) == wanted.copy(belowTheHeading));
}

} // namespace sbd

QTEST_MAIN(sbd::ModelFigureTest)
#include "model_figure_test.moc"
