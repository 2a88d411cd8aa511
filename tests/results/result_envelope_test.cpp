#include "project/text.h"
#include "results/diagram_curves.h"
#include "results/diagram_layout.h"
#include "results/figure_heading.h"
#include "results/figure_pick.h"
#include "results/result_csv.h"
#include "results/result_envelope.h"
#include "results/result_files.h"
#include "results/result_sheets.h"
#include "results/result_table.h"
#include "results/result_title.h"
#include "tests/results/result_fixture.h"
#include "tests/seed.h"
#include "tests/surroundings.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <random>

namespace sbd {

using namespace literals;
using testing::ElementsAre;
using testing::SizeIs;

namespace {

constexpr double kNone = std::numeric_limits<double>::quiet_NaN();
constexpr double kInfinite = std::numeric_limits<double>::infinity();

/// The load cases of the small bridge.
ResultSelection Both(const AnalysisResults& results, ResultKind kind)
{
    ResultSelection selection;
    selection.kind = kind;
    selection.girder = AllWord();
    selection.station = AllWord();
    selection.envelope = true;
    selection.envelopeLoads = results.model.loadCaseNames;
    return selection;
}

AnalysisResults Example(const char* name)
{
    AnalysisResults results;
    ReadResultFiles(std::filesystem::path(test::ExamplesFolder()) / name / (std::string(name) + ".sbd"), results);
    return results;
}

TextMetrics Metrics()
{
    return {[](std::string_view text) { return 6.0 * static_cast<double>(text.size()); }, 12};
}

} // namespace

TEST(Envelope, TakesTheFirstOfEqualValuesAndItsCase)
{
    const double values[] = {1, -5, 3, 0, 0, 0, /**/ 4, -5, 3, 0, 0, 1, /**/ 4, -6, 3, 0, 0, -1};
    const std::size_t cases[] = {0, 1, 2};
    std::array<EnvelopeValue, kNodeComponents> envelope;
    EXPECT_EQ(EnvelopeOfItem(values, cases, envelope), 0U);
    EXPECT_EQ(envelope[0].greatest, 4);
    EXPECT_EQ(envelope[0].greatestCase, 1);
    EXPECT_EQ(envelope[0].leastCase, 0);
    EXPECT_EQ(envelope[1].least, -6);
    EXPECT_EQ(envelope[1].greatestCase, 0);
    EXPECT_EQ(envelope[2].greatestCase, 0);
    EXPECT_EQ(envelope[2].leastCase, 0);
}

TEST(Envelope, OtherCasesThanTheChosenOnesDoNotCount)
{
    const double values[] = {9, 9, 9, 9, 9, 9, /**/ 1, 2, 3, 4, 5, 6};
    const std::size_t cases[] = {1};
    std::array<EnvelopeValue, kNodeComponents> envelope;
    static_cast<void>(EnvelopeOfItem(values, cases, envelope));
    EXPECT_EQ(envelope[0].greatest, 1);
    EXPECT_EQ(envelope[5].least, 6);
    EXPECT_EQ(envelope[5].leastCase, 1);
}

TEST(Envelope, WhatIsNoNumberIsPassedOverAndCounted)
{
    const double values[] = {kNone, 2, kInfinite, kNone, 5, 6, /**/ 1, -kInfinite, 3, kNone, 5, 6};
    const std::size_t cases[] = {0, 1};
    std::array<EnvelopeValue, kNodeComponents> envelope;
    EXPECT_EQ(EnvelopeOfItem(values, cases, envelope), 5U);
    EXPECT_EQ(envelope[0].greatest, 1);
    EXPECT_EQ(envelope[0].leastCase, 1);
    EXPECT_EQ(envelope[1].least, 2);
    EXPECT_EQ(envelope[2].greatest, 3);
    EXPECT_FALSE(envelope[3].IsThere());
}

TEST(Envelope, AFactorBelowZeroTurnsItRound)
{
    const EnvelopeValue value = EnvelopeValue{5, -3, 1, 2}.Times(-10);
    EXPECT_EQ(value.greatest, 30);
    EXPECT_EQ(value.greatestCase, 2);
    EXPECT_EQ(value.least, -50);
    EXPECT_EQ(value.leastCase, 1);
}

using EnvelopeAtRandom = RandomTest;

TEST_F(EnvelopeAtRandom, ValuesGiveWhatALoopGives)
{
    for (int round = 0; round < 200; ++round) {
        const std::size_t components = round % 2 == 0 ? kNodeComponents : kElementComponents;
        const std::size_t loads = 1 + random() % 50;
        std::vector<double> values(loads * components);
        for (double& value : values)
            value = random() % 500 == 0 ? kNone : static_cast<double>(static_cast<int>(random() % 21)) - 10;
        if (round % 5 == 0) // together they are more than a number can be
            for (double& value : values)
                value *= 1e307;
        std::vector<std::size_t> cases;
        for (std::size_t i = 0; i < loads; ++i)
            if (random() % 3 > 0)
                cases.push_back(i);
        std::vector<EnvelopeValue> envelope(components);
        static_cast<void>(EnvelopeOfItem(values.data(), cases, envelope));
        for (std::size_t k = 0; k < components; ++k) {
            EnvelopeValue wanted;
            for (const std::size_t load : cases) {
                const double value = values[load * components + k];
                if (std::isnan(value))
                    continue;
                if (!wanted.IsThere() || value > wanted.greatest) {
                    wanted.greatest = value;
                    wanted.greatestCase = static_cast<std::int32_t>(load);
                }
                if (wanted.leastCase < 0 || value < wanted.least) {
                    wanted.least = value;
                    wanted.leastCase = static_cast<std::int32_t>(load);
                }
            }
            ASSERT_EQ(envelope[k].greatestCase, wanted.greatestCase);
            ASSERT_EQ(envelope[k].leastCase, wanted.leastCase);
            ASSERT_EQ(envelope[k].greatest, wanted.greatest);
            ASSERT_EQ(envelope[k].least, wanted.least);
        }
    }
}

TEST(EnvelopeTable, EachColumnHasItsValueBesideTheCaseThatDecides)
{
    const AnalysisResults results = SmallBridge();
    ResultSelection selection = Both(results, ResultKind::Force);
    selection.columnOn = {true, false, false, false, false, false};
    const CResultTable table(results, selection);
    ASSERT_EQ(table.GridColumnCount(), 2 + 2 * 4U);
    EXPECT_EQ(table.CellText(0, 2), "左Nx最大"_cp932);
    EXPECT_EQ(table.CellText(0, 3), "荷重"_cp932);
    EXPECT_EQ(table.CellText(0, 8), "右Nx最小"_cp932);
    EXPECT_EQ(table.Unit(2), "kN");
    EXPECT_EQ(table.Unit(3), "");
    EXPECT_TRUE(table.HasWords(3));
    // Values are 1000 * item + 100 * load + component; those of the right end have the other sign.
    EXPECT_EQ(table.Value(1, 0), 1100);
    EXPECT_EQ(table.CellText(kFirstValueRow + 1, 3), ShownLoadAt(results.model, 1));
    EXPECT_EQ(table.Value(1, 2), 1000);
    EXPECT_EQ(table.CellText(kFirstValueRow + 1, 5), ShownLoadAt(results.model, 0));
    EXPECT_EQ(table.Value(1, 4), -1006);
    EXPECT_EQ(table.CellText(kFirstValueRow + 1, 7), ShownLoadAt(results.model, 0))
        << "the larger one is that of case 0";
    EXPECT_EQ(table.Value(1, 6), -1106);
    EXPECT_EQ(table.CellText(kMaxRow, 3), ShownLoadAt(results.model, 1)) << "the case of the largest value of all";
}

TEST(EnvelopeTable, OneCaseIsTheTableOfThatCase)
{
    for (const char* name : {"plate4", "single1", "box2"}) {
        const AnalysisResults results = Example(name);
        for (const ResultKindInfo& info : ResultKinds()) {
            ResultSelection selection = Both(results, info.kind);
            ResultSelection plain = selection;
            plain.envelope = false;
            plain.load = results.model.loadCaseNames[1];
            selection.envelopeLoads = {plain.load};
            const CResultTable envelope(results, selection);
            const CResultTable table(results, plain);
            ASSERT_EQ(envelope.RowCount(), table.RowCount());
            ASSERT_GT(table.RowCount(), 0U);
            for (std::size_t row = 0; row < table.RowCount(); ++row)
                for (std::size_t column = 0; column < table.Columns().size(); ++column) {
                    ASSERT_EQ(envelope.Value(row, 4 * column), table.Value(row, column));
                    ASSERT_EQ(envelope.Value(row, 4 * column + 2), table.Value(row, column));
                }
        }
    }
}

TEST(EnvelopeTable, NoCaseOfAnyExampleLiesOutsideOfIt)
{
    for (const char* name : {"plate4", "single1", "box2"}) {
        const AnalysisResults results = Example(name);
        for (const ResultKind kind : {ResultKind::Displacement, ResultKind::Force}) {
            ResultSelection selection = Both(results, kind);
            const CResultTable envelope(results, selection);
            std::vector<std::vector<double>> greatest(envelope.RowCount());
            selection.envelope = false;
            for (const std::size_t load : EnvelopeCases(results.model, Both(results, kind))) {
                selection.load = results.model.loadCaseNames[load];
                const CResultTable table(results, selection);
                for (std::size_t row = 0; row < table.RowCount(); ++row)
                    for (std::size_t column = 0; column < table.Columns().size(); ++column) {
                        ASSERT_LE(table.Value(row, column), envelope.Value(row, 4 * column));
                        ASSERT_GE(table.Value(row, column), envelope.Value(row, 4 * column + 2));
                        if (static_cast<std::size_t>(envelope.Value(row, 4 * column + 1)) == load) {
                            ASSERT_EQ(table.Value(row, column), envelope.Value(row, 4 * column));
                        }
                    }
            }
        }
    }
}

TEST(EnvelopeTable, RaisedForcesBelongToForcesOnly)
{
    const AnalysisResults results = Example("box2");
    const std::size_t all = results.model.loadCaseNames.size();
    EXPECT_EQ(EnvelopeCases(results.model, Both(results, ResultKind::Force)).size(), all);
    EXPECT_LT(EnvelopeCases(results.model, Both(results, ResultKind::Displacement)).size(), all);
}

TEST(EnvelopeTable, WithoutCasesItIsEmpty)
{
    const AnalysisResults results = SmallBridge();
    ResultSelection selection = Both(results, ResultKind::Force);
    selection.envelopeLoads = {"gone"};
    const CResultTable table(results, selection);
    EXPECT_FALSE(table.LoadIndex());
    EXPECT_EQ(table.RowCount(), 0U);
    EXPECT_TRUE(CurvesOf(results, selection).empty());
    selection.envelopeLoads = results.model.loadCaseNames;
    EXPECT_TRUE(KeptSelection(selection, AnalysisModel()).envelopeLoads.empty());
}

TEST(EnvelopeTable, IsSortedByValuesAndByCases)
{
    const AnalysisResults results = Example("plate4");
    ResultSelection selection = Both(results, ResultKind::Force);
    for (selection.sortColumn = kFirstValueColumn; selection.sortColumn < kFirstValueColumn + 8;
         ++selection.sortColumn) {
        const CResultTable table(results, selection);
        for (std::size_t row = 1; row < table.RowCount(); ++row)
            ASSERT_LE(table.Value(row - 1, selection.sortColumn - kFirstValueColumn),
                      table.Value(row, selection.sortColumn - kFirstValueColumn));
        EXPECT_FALSE(SortHead(selection).empty());
    }
}

TEST(EnvelopeTable, CsvHasUnitsAndCases)
{
    const AnalysisResults results = SmallBridge();
    ResultSelection selection = Both(results, ResultKind::Force);
    selection.columnOn = {false, false, false, false, true, false};
    const std::string csv = CsvOfTable(CResultTable(results, selection), selection, {});
    EXPECT_NE(csv.find("左My最大 [kN・m],荷重,左My最小 [kN・m],荷重,"), std::string::npos) << csv;
    EXPECT_NE(csv.find("最大・最小 (荷重 2 件)"), std::string::npos);
    EXPECT_NE(csv.find(FromCp932(ShownLoadAt(results.model, 1))), std::string::npos);
}

TEST(Curves, AnEnvelopeLiesAroundEveryCaseOfTheExamples)
{
    for (const char* name : {"plate4", "single1", "box2"}) {
        const AnalysisResults results = Example(name);
        for (const ResultKindInfo& info : ResultKinds())
            for (const std::string& girder : results.model.girderNames)
                for (std::size_t component = 0; component < kNodeComponents; ++component) {
                    ResultSelection selection = Both(results, info.kind);
                    selection.girder = girder;
                    selection.figureItem = ComponentWord(info.kind, component);
                    const std::vector<DiagramCurve> curves = CurvesOf(results, selection);
                    ASSERT_THAT(curves, SizeIs(2));
                    ASSERT_TRUE(ShowsEnvelope(curves));
                    for (const std::size_t load : EnvelopeCases(results.model, selection)) {
                        const GirderDiagram one = MakeGirderDiagram(results, load, girder, info.kind, component);
                        ASSERT_EQ(one.bays.size(), curves[0].diagram.bays.size());
                        for (std::size_t i = 0; i < one.bays.size(); ++i) {
                            const DiagramBay& most = curves[0].diagram.bays[i];
                            const DiagramBay& least = curves[1].diagram.bays[i];
                            ASSERT_LE(one.bays[i].left, most.left);
                            ASSERT_GE(one.bays[i].right, least.right);
                            if (most.leftCase == static_cast<std::int32_t>(load)) {
                                ASSERT_EQ(one.bays[i].left, most.left);
                            }
                            if (least.rightCase == static_cast<std::int32_t>(load)) {
                                ASSERT_EQ(one.bays[i].right, least.right);
                            }
                        }
                    }
                }
    }
}

TEST(Curves, ValuesOfAnEnvelopeSayWhichCaseDecides)
{
    const AnalysisResults results = Example("plate4");
    ResultSelection selection = Both(results, ResultKind::Force);
    selection.girder = "G1";
    selection.figureItem = "My";
    const std::vector<DiagramCurve> curves = CurvesOf(results, selection);
    const std::vector<std::size_t> deciding = DecidingCases(curves);
    ASSERT_GE(deciding.size(), 2U);
    const auto labels = LabelsOf(curves[0].diagram);
    bool any = false;
    for (const auto& point : labels)
        for (const DiagramLabel& label : point)
            any = any || label.text.find('[') != std::string::npos;
    EXPECT_TRUE(any);
    const DiagramScale scale = FitCurves(curves, {900, 500}, kFitZoom, {});
    std::string heading;
    for (const auto& line : DiagramHeading(results, selection, curves, scale, {}))
        for (const FigureWords& words : line)
            heading += FromCp932(words.text) + "\n";
    for (std::size_t i = 0; i < deciding.size(); ++i)
        EXPECT_NE(heading.find("[" + std::to_string(i + 1) + "] "
                               + FromCp932(ShownLoadAt(results.model, static_cast<std::int64_t>(deciding[i])))),
                  std::string::npos)
            << heading;
    const double x = scale.X(curves[0].diagram.positions[3]);
    const auto pick = PickOrdinate(results, curves, scale, {x, scale.Y(curves[0].diagram.bays[3].left)});
    ASSERT_TRUE(pick);
    EXPECT_EQ(pick->pen, FigurePen::Greatest);
    EXPECT_NE(FromCp932(pick->words).find("荷重 "), std::string::npos);
}

TEST(Curves, TwoCasesOrTwoGirdersLieOverEachOtherOnOneScale)
{
    const AnalysisResults results = Example("plate4");
    ResultSelection selection = FirstUseSelection(results.model);
    EXPECT_THAT(CurvesOf(results, selection), SizeIs(1));
    selection.overLoad = results.model.loadCaseNames[0];
    std::vector<DiagramCurve> curves = CurvesOf(results, selection);
    ASSERT_THAT(curves, SizeIs(2));
    EXPECT_EQ(curves[0].diagram.girder, curves[1].diagram.girder);
    EXPECT_NE(curves[0].name, curves[1].name);
    EXPECT_NE(curves[0].diagram.greatest, curves[1].diagram.greatest);
    selection.overLoad.clear();
    selection.overGirder = "G3";
    curves = CurvesOf(results, selection);
    ASSERT_THAT(curves, SizeIs(2));
    EXPECT_EQ(curves[1].diagram.girder, 2U);
    const DiagramScale scale = FitCurves(curves, {900, 500}, kFitZoom, {});
    const double amplitude = std::max(curves[0].diagram.Amplitude(), curves[1].diagram.Amplitude());
    EXPECT_DOUBLE_EQ(scale.syScale, 500 / (2 * amplitude) / kFitZoom);
    const FigureHeading heading = DiagramHeading(results, selection, curves, scale, {});
    std::vector<FigurePen> samples;
    for (const auto& line : heading)
        for (const FigureWords& words : line)
            if (words.sample)
                samples.push_back(*words.sample);
    EXPECT_THAT(samples, ElementsAre(FigurePen::Plain, FigurePen::Second));
}

TEST(Curves, NoTextOfSeveralDiagramsLiesOverAnother)
{
    for (const char* name : {"plate4", "single1", "box2"}) {
        const AnalysisResults results = Example(name);
        for (const ResultKindInfo& info : ResultKinds())
            for (const std::string& girder : results.model.girderNames)
                for (const double width : {600.0, 1200.0, 1900.0})
                    for (const bool envelope : {true, false}) {
                        ResultSelection selection = Both(results, info.kind);
                        selection.envelope = envelope;
                        selection.girder = girder;
                        selection.load = results.model.loadCaseNames[0];
                        selection.overLoad = results.model.loadCaseNames[1];
                        const std::vector<DiagramCurve> curves = CurvesOf(results, selection);
                        ASSERT_THAT(curves, SizeIs(2));
                        const DiagramScale scale = FitCurves(curves, {width, 400}, kFitZoom, {});
                        std::vector<LabelBox> taken;
                        for (const HeadingPart& part : PlaceHeading(
                                 DiagramHeading(results, selection, curves, scale, {}), Metrics(), 3, 3, width))
                            taken.push_back(part.box);
                        const DiagramPage page = LayOutDiagrams(curves, scale, Metrics(), taken);
                        EXPECT_GT(page.texts.size(), 4U);
                        std::vector<LabelBox> all = taken;
                        for (const PlacedText& text : page.texts)
                            all.push_back(text.box);
                        for (std::size_t i = 0; i < all.size(); ++i)
                            for (std::size_t k = i + 1; k < all.size(); ++k)
                                ASSERT_FALSE(all[i].Overlaps(all[k])) << name << " " << girder << " " << width;
                    }
    }
}

TEST(Sheets, AGirderHasAFigureForEachItem)
{
    const AnalysisResults results = Example("box2");
    ResultSelection selection = FirstUseSelection(results.model);
    ASSERT_TRUE(selection.load.starts_with("-("));
    const std::vector<ResultSheet> sheets = SheetsOfGirders(selection, results.model.girderNames, UsualItems());
    ASSERT_EQ(sheets.size(), results.model.girderNames.size());
    for (const ResultSheet& sheet : sheets) {
        ASSERT_THAT(sheet.figures, SizeIs(3));
        EXPECT_EQ(FigureName(sheet.figures[0]), "断面力 My"_cp932);
        EXPECT_EQ(sheet.figures[1].figureItem, "Sz");
        EXPECT_EQ(sheet.figures[2].kind, ResultKind::Displacement);
        for (const ResultSelection& figure : sheet.figures) {
            EXPECT_EQ(figure.girder, sheet.title);
            EXPECT_TRUE(LoadCaseOf(results.model, figure.load)) << "raised forces give way to the case itself";
        }
    }
}

} // namespace sbd
