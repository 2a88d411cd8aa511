#include "document/section_doc.h"
#include "drawing/bridge_plan.h"
#include "drawing/cross_section.h"
#include "drawing/girder_elevation.h"
#include "tests/surroundings.h"
#include "upperview/bridge_sheet.h"
#include "upperview/page/draw_recorder.h"

#include <QTest>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr TextMetrics kMetrics{28, 0, 14};

CDrawRecorder Recorded(const BridgeDrawing& drawing, const SheetLook& look = {}, SheetExtent* extent = nullptr)
{
    CDrawRecorder recorder(kMetrics);
    const SheetExtent size = DrawBridgeSheet(recorder, drawing, look);
    if (extent != nullptr)
        *extent = size;
    return recorder;
}

std::vector<const Primitive*> Texts(const CDrawRecorder& recorder)
{
    std::vector<const Primitive*> texts;
    for (const Primitive& primitive : recorder.Primitives())
        if (primitive.kind == PrimitiveKind::Text)
            texts.push_back(&primitive);
    return texts;
}

int RedCount(const CDrawRecorder& recorder)
{
    return static_cast<int>(std::ranges::count_if(recorder.Primitives(), [](const Primitive& each) {
        return each.kind != PrimitiveKind::Text && CDrawRecorder::IsRed(each);
    }));
}

} // namespace

class BridgeSheetTest : public QObject {
    Q_OBJECT

private slots:
    void TextsOfTheExamplesDoNotLieOnEachOther_data();
    void TextsOfTheExamplesDoNotLieOnEachOther();
    void TheRowUnderTheCursorIsRedAndItsRangeShaded();
    void ACoveredRowIsShadedGreyAndSaysWhy();
    void TheSheetKeepsItsScale();
    void ASlipOfTheUnitMakesNoEndlessSheet();
};

void BridgeSheetTest::TextsOfTheExamplesDoNotLieOnEachOther_data()
{
    QTest::addColumn<QString>("name");
    for (const char* name : {"plate4", "box2", "single1"})
        QTest::newRow(name) << QString::fromLatin1(name);
}

void BridgeSheetTest::TextsOfTheExamplesDoNotLieOnEachOther()
{
    QFETCH(QString, name);
    CKELDSectionDoc doc;
    QVERIFY(doc.OpenDocument((QString::fromUtf8(test::ExamplesFolder()) + u"/%1/%1.sbd"_s).arg(name)).Ok());
    std::vector<BridgeDrawing> drawings = {BridgePlan(doc.Data(), doc.Results())};
    for (std::size_t girder = 0; girder < doc.Data().gridNames.girderNames.size(); ++girder)
        drawings.push_back(GirderElevation(doc.Data(), doc.Results(), {girder, GirderSide::Left, true}));
    for (std::size_t station = 0; station < doc.Data().gridNames.swayNames.size(); ++station)
        drawings.push_back(CrossSection(doc.Data(), doc.Results(), station));
    for (const BridgeDrawing& drawing : drawings) {
        SheetExtent extent;
        const CDrawRecorder recorder = Recorded(drawing, {}, &extent);
        const auto texts = Texts(recorder);
        for (std::size_t i = 0; i < texts.size(); ++i) {
            const DrawBox box = recorder.BoxOf(*texts[i]);
            const QByteArray text = toQString(texts[i]->text).toUtf8();
            QVERIFY2(box.left >= 0 && box.right <= extent.width && box.bottom >= -extent.height, text.constData());
            for (std::size_t k = 0; k < i; ++k)
                QVERIFY2(!box.Overlaps(recorder.BoxOf(*texts[k])),
                         (toQString(drawing.title).toUtf8() + ": " + text + " / " + toQString(texts[k]->text).toUtf8())
                             .constData());
        }
    }
}

namespace {

/// A girder of one plate from a row that a later one may cover.
BridgeDrawing OnePlate(bool covered)
{
    CDrawingBuild build;
    build.Shape(DrawingLayer::Flange, ShapeKind::Polygon, {{0, 0}, {10'000, 0}, {10'000, -200}, {0, -200}},
                {332, 2, 8});
    build.Shape(DrawingLayer::Girder, ShapeKind::Line, {{0, 0}, {10'000, 0}}, {311, 5, 5});
    build.Use({332, 2, 0}, {{0, 0}, {10'000, 0}, {10'000, -200}, {0, -200}}, covered);
    return build.Take();
}

const Primitive* FirstFill(const CDrawRecorder& recorder)
{
    const auto found = std::ranges::find_if(
        recorder.Primitives(), [](const Primitive& each) { return each.kind == PrimitiveKind::FillPolygon; });
    return found == recorder.Primitives().end() ? nullptr : &*found;
}

} // namespace

void BridgeSheetTest::TheRowUnderTheCursorIsRedAndItsRangeShaded()
{
    const BridgeDrawing drawing = OnePlate(false);
    QCOMPARE(RedCount(Recorded(drawing)), 0);
    const CDrawRecorder recorder = Recorded(drawing, {.selected = {332, 2, 0}});
    QVERIFY(RedCount(recorder) > 0);
    const Primitive* shade = FirstFill(recorder);
    QVERIFY(shade != nullptr);
    QVERIFY(shade->brush.colour != colours::kRed);
    QCOMPARE(RedCount(Recorded(drawing, {.selected = {332, 3, 0}})), 0);
}

void BridgeSheetTest::ACoveredRowIsShadedGreyAndSaysWhy()
{
    const CDrawRecorder recorder = Recorded(OnePlate(true), {.selected = {332, 2, 0}});
    const Primitive* shade = FirstFill(recorder);
    QVERIFY(shade != nullptr);
    QCOMPARE(shade->brush.colour & 0xFFU, shade->brush.colour >> 16); // as much blue as red
    QVERIFY(std::ranges::any_of(Texts(recorder),
                                [](const Primitive* text) { return toQString(text->text).contains(u"後の行"_s); }));
}

void BridgeSheetTest::TheSheetKeepsItsScale()
{
    const BridgeDrawing drawing = OnePlate(false);
    const CDrawRecorder recorder = Recorded(drawing, {.scale = 100});
    const Primitive* plate = FirstFill(recorder);
    QVERIFY(plate != nullptr);
    QCOMPARE(plate->points[1].x - plate->points[0].x, 1000); // 10 m at 1:100 are 100 mm
    const CDrawRecorder higher = Recorded(drawing, {.scale = 100, .exaggeration = 5});
    QCOMPARE(FirstFill(higher)->points[0].y - FirstFill(higher)->points[2].y, 100); // 200 mm, five times
}

void BridgeSheetTest::ASlipOfTheUnitMakesNoEndlessSheet()
{
    CDrawingBuild build;
    build.Shape(DrawingLayer::Girder, ShapeKind::Line, {{0, 0}, {9e7, -9e7}}, {});
    build.Shape(DrawingLayer::Girder, ShapeKind::Line, {{0, 0}, {1e300, 0}}, {311, 5, 5}); // left out
    const BridgeDrawing drawing = build.Take();
    QCOMPARE(drawing.shapes.size(), std::size_t{1});
    QCOMPARE(drawing.omissions.size(), std::size_t{1});
    for (const double scale : {0.0, 1.0}) {
        SheetExtent extent;
        Recorded(drawing, {.scale = scale}, &extent);
        QVERIFY(extent.width < 40'000 && extent.height < 40'000);
    }
}

} // namespace sbd

QTEST_MAIN(sbd::BridgeSheetTest)
#include "bridge_sheet_test.moc"
