#include "document/result_session.h"
#include "document/section_doc.h"
#include "project/block_numbers.h"
#include "results/diagram_layout.h"
#include "results/figure_pick.h"
#include "results/result_title.h"
#include "tests/surroundings.h"
#include "upperview/figure_pane.h"
#include "upperview/figure_texts.h"
#include "upperview/result_diagram.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <QToolTip>
#include <QWheelEvent>

#include <cmath>
#include <memory>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

struct Shown {
    CKELDSectionDoc doc;
    std::unique_ptr<CFigurePane> pane;

    Shown(const char* name, int block)
    {
        const QString project = QString::fromLatin1(name);
        static_cast<void>(doc.OpenDocument(QString::fromUtf8(test::ExamplesFolder()) + u"/%1/%1.sbd"_s.arg(project)));
        Session().selection = FirstUseSelection(doc.Results().model);
        doc.SetCurrentBlock(block);
        doc.showHelpPage = false;
        pane = std::make_unique<CFigurePane>(&doc);
        pane->resize(1000, 500);
        pane->show();
        pane->Refresh();
        QApplication::processEvents();
    }
    [[nodiscard]] CResultSession& Session() { return ResultSessionOf(doc); }
    [[nodiscard]] GirderDiagram Diagram()
    {
        const ResultSelection& selection = Session().selection;
        return CurvesOf(doc.Results(), selection).front().diagram;
    }
    [[nodiscard]] DiagramScale Scale()
    {
        return FitDiagram(Diagram(), FigureScreenOf(*pane), pane->View().zoom, PanOf(pane->View()));
    }
    void Click(QPoint at) { QTest::mouseClick(pane.get(), Qt::LeftButton, {}, at); }
    void Wheel(QPoint at, int notches)
    {
        QWheelEvent event(at, pane->mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(pane.get(), &event);
    }
    void Drag(Qt::MouseButton button, Qt::KeyboardModifiers keys, QPoint from, QPoint to)
    {
        QTest::mousePress(pane.get(), button, keys, from);
        QTest::mouseMove(pane.get(), to);
        QTest::mouseRelease(pane.get(), button, keys, to);
    }
};

} // namespace

class FigurePaneTest : public QObject {
    Q_OBJECT

private slots:
    void realFontsLeaveNoTwoLabelsOverEachOther();
    void aClickOnAnOrdinatePicksItsRow();
    void aRowUnderTheCursorIsRinged();
    void aClickOnAMemberOfTheModelWantsItsRow();
    void everyLineOfTheExamplesLeadsToARowAndEveryNodeToItself();
    void aNodeTellsItsNameAndPlace();
    void theWheelZoomsAtThePointer();
    void theMiddleButtonAndTheSpaceBarMoveTheFigure();
    void aDoubleClickFits();
    void controlAndTheLeftButtonTurnTheFrame();
    void theMagnificationIsInTheTitle();
    void staleResultsAreSaidInTheFigure();
};

void FigurePaneTest::realFontsLeaveNoTwoLabelsOverEachOther()
{
    int diagrams = 0;
    for (const char* const name : {"plate4", "box2", "single1"}) {
        Shown shown(name, kResultBlock);
        const AnalysisResults& results = shown.doc.Results();
        FigureLook look;
        look.font = QFont(u"ＭＳ ゴシック"_s);
        look.font.setPixelSize(19);
        for (const int width : {600, 1200, 1900}) {
            const FigureScreen screen{double(width), 500};
            QImage image(width, 500, QImage::Format_RGB32);
            const QPainter painter(&image);
            const TextMetrics metrics = MetricsOf(painter, SmallFont(look));
            for (const ResultKindInfo& info : ResultKinds())
                for (std::size_t load = 0; load < results.model.loadCaseNames.size(); load += 3)
                    for (const std::string& girder : results.model.girderNames) {
                        const std::size_t component = (load / 3) % kNodeComponents;
                        const GirderDiagram diagram = MakeGirderDiagram(results, load, girder, info.kind, component);
                        const DiagramScale scale = FitDiagram(diagram, screen, kFitZoom, {});
                        const FigureHeading heading =
                            DiagramHeading(results, shown.Session().selection, diagram, scale, shown.Session().State());
                        const std::vector<LabelBox> taken = BoxesOfHeading(painter, heading, screen, look);
                        const DiagramPage page = LayOutDiagram(diagram, scale, metrics, taken);
                        for (std::size_t i = 0; i < page.texts.size(); ++i) {
                            for (std::size_t k = 0; k < i; ++k)
                                QVERIFY2(!page.texts[i].box.Overlaps(page.texts[k].box), name);
                            for (const LabelBox& box : taken)
                                QVERIFY2(!page.texts[i].box.Overlaps(box), name);
                        }
                        ++diagrams;
                    }
        }
    }
    QVERIFY(diagrams > 200);
}

void FigurePaneTest::aClickOnAnOrdinatePicksItsRow()
{
    Shown shown("box2", kResultBlock);
    const GirderDiagram diagram = shown.Diagram();
    const DiagramScale scale = shown.Scale();
    QSignalSpy picked(&shown.Session(), &CResultSession::picked);
    const DiagramBay& bay = diagram.bays[5];
    const QPoint tip(int(scale.X(bay.x0 + 0.4)),
                     int(scale.Y(bay.left + (bay.right - bay.left) * 0.4 / (bay.x1 - bay.x0))));
    shown.Click(tip);
    QCOMPARE(picked.count(), 1);
    const std::string name = picked[0][0].value<PickedPoint>().name;
    const std::vector<std::string>& names = shown.doc.Results().model.elementNames;
    QVERIFY(name == names[std::size_t(bay.element) - 1] || name == names[std::size_t(diagram.bays[4].element) - 1]);
    QVERIFY(shown.pane->WordsAt(tip).contains(u"kN・m"_s));
    QVERIFY(shown.pane->WordsAt(tip).contains(toQString(name)));
    shown.Click({2, 498});
    QCOMPARE(picked.count(), 1); // there is nothing
    QVERIFY(shown.pane->WordsAt({2, 498}).isEmpty());
}

void FigurePaneTest::aRowUnderTheCursorIsRinged()
{
    Shown shown("box2", kResultBlock);
    const QImage before = shown.pane->grab().toImage();
    shown.Session().Mark(shown.doc.Results().model.elementNames[std::size_t(shown.Diagram().bays[3].element) - 1]);
    const QImage after = shown.pane->grab().toImage();
    QVERIFY(before != after);
    const FigurePoint tip{shown.Scale().X(shown.Diagram().bays[3].x0), shown.Scale().Y(shown.Diagram().bays[3].left)};
    QCOMPARE(QColor(after.pixel(int(tip.x + 6), int(tip.y))), QColor(Qt::red));
}

void FigurePaneTest::aClickOnAMemberOfTheModelWantsItsRow()
{
    Shown shown("plate4", 301);
    shown.pane->RunViewCommand(Command::ViewXY);
    const CModelProjection projection(FigurePlaces(shown.doc.Results()), shown.pane->View().viewDirection);
    const ModelScale scale =
        FitModel(projection.Bounds(), FigureScreenOf(*shown.pane), shown.pane->View().zoom, PanOf(shown.pane->View()));
    const FramePlaces places = PlacesOnScreen(shown.doc.Results(), shown.doc.Data(), projection, scale);
    QVERIFY(!places.lines.empty());
    QSignalSpy wanted(shown.pane.get(), &CFigurePane::cellWanted);
    const PickLine& line = places.lines.front();
    QCOMPARE(line.block, 573);
    // Nearer to an end, where no other brace crosses it and no node is.
    const QPoint at(int(line.from.x + (line.to.x - line.from.x) * 0.3),
                    int(line.from.y + (line.to.y - line.from.y) * 0.3));
    shown.Click(at);
    QCOMPARE(wanted.count(), 1);
    QCOMPARE(wanted[0][0].toInt(), 573);
    QCOMPARE(wanted[0][1].toInt(), int(line.row) + 1);
    QVERIFY(shown.pane->WordsAt(at).startsWith(u"573 %1行"_s.arg(line.row + 1)));
    QTest::mousePress(shown.pane.get(), Qt::LeftButton, {}, at);
    QTest::mouseRelease(shown.pane.get(), Qt::LeftButton, {}, at + QPoint(60, 40));
    QCOMPARE(wanted.count(), 1); // a rectangle is no click
}

void FigurePaneTest::everyLineOfTheExamplesLeadsToARowAndEveryNodeToItself()
{
    for (const char* const name : {"plate4", "box2", "single1"}) {
        CKELDSectionDoc doc;
        static_cast<void>(doc.OpenDocument(QString::fromUtf8(test::ExamplesFolder())
                                           + u"/%1/%1.sbd"_s.arg(QString::fromLatin1(name))));
        const CModelProjection projection(FigurePlaces(doc.Results()), {0, 0, 1});
        const ModelScale scale = FitModel(projection.Bounds(), {900, 500}, kFitZoom, {});
        const FramePlaces places = PlacesOnScreen(doc.Results(), doc.Data(), projection, scale);
        QVERIFY(!places.nodes.empty());
        for (const PickLine& line : places.lines) {
            // A third of the way: the middle of a brace is where two of them cross.
            const auto picked = PickRow(
                places, {line.from.x + (line.to.x - line.from.x) / 3, line.from.y + (line.to.y - line.from.y) / 3});
            QVERIFY2(picked && (picked->block == 523 || picked->block == 573), name);
            QVERIFY2(picked->row < doc.Data().Table(picked->block)->RowCount(), name);
        }
        for (std::size_t i = 0; i < places.nodes.size(); ++i) {
            const std::optional<std::int32_t> node = PickNode(places, places.nodes[i]);
            QVERIFY2(node && places.nodes[std::size_t(*node) - 1] == places.nodes[i], name);
        }
        QVERIFY(!PickNode(places, {-100, -100}) && !PickRow(places, {-100, -100}));
    }
}

void FigurePaneTest::aNodeTellsItsNameAndPlace()
{
    Shown shown("plate4", 301);
    shown.pane->RunViewCommand(Command::ViewXY);
    const CModelProjection projection(FigurePlaces(shown.doc.Results()), shown.pane->View().viewDirection);
    const ModelScale scale = FitModel(projection.Bounds(), FigureScreenOf(*shown.pane), shown.pane->View().zoom, {});
    const FigurePoint at = ScreenOf(1, projection, scale);
    const QString words = shown.pane->WordsAt({at.x, at.y});
    QVERIFY2(words.startsWith(u"格点 "_s + toQString(shown.doc.Results().model.nodeNames[0]) + u" (1)\n"_s),
             qPrintable(words));
    QVERIFY(words.contains(u"x = "_s));
    QSignalSpy wanted(shown.pane.get(), &CFigurePane::cellWanted);
    shown.Click(QPoint(int(at.x), int(at.y)));
    QCOMPARE(wanted.count(), 0);
    QToolTip::hideText();
}

void FigurePaneTest::theWheelZoomsAtThePointer()
{
    Shown shown("box2", kResultBlock);
    const GirderDiagram diagram = shown.Diagram();
    const DiagramBay& bay = diagram.bays[3];
    const FigurePoint before{shown.Scale().X(bay.x0), shown.Scale().Y(bay.left)};
    const QPoint pointer(int(before.x), int(before.y));
    shown.Wheel(pointer, 3);
    QVERIFY(shown.pane->View().zoom < kFitZoom / 1.7);
    const FigurePoint after{shown.Scale().X(bay.x0), shown.Scale().Y(bay.left)};
    QVERIFY2(std::hypot(after.x - before.x, after.y - before.y) < 2, "what lies at the pointer stays there");
    shown.Wheel(pointer, -3);
    QVERIFY(std::abs(shown.pane->View().zoom - kFitZoom) < 1e-9);
    QVERIFY(std::abs(PanOf(shown.pane->View()).x) < 1e-9);
    for (int i = 0; i < 200; ++i)
        shown.Wheel(pointer, 10);
    QVERIFY(shown.pane->View().zoom > 0);
    QVERIFY(std::isfinite(PanOf(shown.pane->View()).x));
}

void FigurePaneTest::theMiddleButtonAndTheSpaceBarMoveTheFigure()
{
    Shown shown("box2", kResultBlock);
    const double before = shown.Scale().X(0);
    shown.Drag(Qt::MiddleButton, {}, {300, 200}, {317, 200});
    QVERIFY(std::abs(shown.Scale().X(0) - before - 17) < 1e-6);
    QTest::keyPress(shown.pane.get(), Qt::Key_Space);
    shown.Drag(Qt::LeftButton, {}, {300, 200}, {283, 200});
    QTest::keyRelease(shown.pane.get(), Qt::Key_Space);
    QVERIFY(std::abs(shown.Scale().X(0) - before) < 1e-6);
    QCOMPARE(shown.pane->View().zoom, kFitZoom);
    shown.Drag(Qt::LeftButton, {}, {300, 200}, {600, 400}); // without the bar it is a rectangle
    QVERIFY(shown.pane->View().zoom < kFitZoom);
}

void FigurePaneTest::aDoubleClickFits()
{
    Shown shown("box2", kResultBlock);
    shown.Wheel({100, 100}, 5);
    shown.Drag(Qt::MiddleButton, {}, {300, 200}, {350, 300});
    QTest::mouseDClick(shown.pane.get(), Qt::LeftButton, {}, {5, 250});
    QCOMPARE(shown.pane->View().zoom, kFitZoom);
    QCOMPARE(PanOf(shown.pane->View()).x, 0.0);
    QCOMPARE(PanOf(shown.pane->View()).y, 0.0);
}

void FigurePaneTest::controlAndTheLeftButtonTurnTheFrame()
{
    Shown shown("plate4", 301);
    shown.pane->RunViewCommand(Command::ViewXY);
    shown.Drag(Qt::LeftButton, Qt::ControlModifier, {300, 200}, {340, 150});
    const std::array<double, 3> turned = shown.pane->View().viewDirection;
    QVERIFY(turned != (std::array<double, 3>{0, 0, 1}));
    QVERIFY(std::abs(std::hypot(turned[0], turned[1], turned[2]) - 1) < 1e-9);
    QCOMPARE(shown.pane->View().zoom, kFitZoom); // no rectangle
    shown.pane->RunViewCommand(Command::ViewXZ);
    QCOMPARE(shown.pane->View().viewDirection, (std::array<double, 3>{0, 1, 0}));
}

void FigurePaneTest::theMagnificationIsInTheTitle()
{
    Shown shown("box2", kResultBlock);
    ResultSelection& selection = shown.Session().selection;
    selection.kind = ResultKind::Displacement;
    selection.girder = AllWord();
    selection.load = *FirstLoad(shown.doc.Results().model, ResultKind::Displacement);
    const std::size_t load = *LoadCaseOf(shown.doc.Results().model, selection.load);
    QImage before;
    for (const int times : kMagnifications) {
        selection.magnification = times;
        const double used = MagnificationOf(shown.doc.Results(), selection, load);
        QVERIFY(times == 0 ? used >= 1 : used == times);
        const QString title = toQString(FigureTitle(shown.doc.Results().model, selection, used));
        QVERIFY2(title.contains(u"変形の倍率: %1"_s.arg(used, 0, 'f', 0)), qPrintable(title));
        QCOMPARE(title.endsWith(u"(自動)"_s), times == 0);
        const QImage picture = shown.pane->grab().toImage();
        QVERIFY(picture != before);
        before = picture;
    }
}

void FigurePaneTest::staleResultsAreSaidInTheFigure()
{
    Shown shown("box2", kResultBlock);
    const QImage before = shown.pane->grab().toImage();
    shown.doc.SetModifiedFlag(true);
    QVERIFY(!StaleLine(shown.Session().State()).empty());
    QVERIFY(shown.pane->grab().toImage() != before);
    shown.doc.SetModifiedFlag(false);
    QVERIFY(shown.pane->grab().toImage() == before);
}

} // namespace sbd

using sbd::FigurePaneTest;
QTEST_MAIN(FigurePaneTest)
#include "figure_pane_test.moc"
