#include "project/text.h"
#include "results/diagram_layout.h"
#include "results/figure_heading.h"
#include "results/model_labels.h"
#include "results/result_files.h"
#include "results/result_table.h"
#include "tests/results/result_fixture.h"
#include "tests/surroundings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <limits>

namespace sbd {

using namespace literals;

namespace {

constexpr double kLetter = 6;
constexpr double kHeight = 12;
constexpr double kNone = std::numeric_limits<double>::quiet_NaN();

TextMetrics Metrics()
{
    return {[](std::string_view text) { return kLetter * static_cast<double>(text.size()); }, kHeight};
}

AnalysisResults Example(const char* name)
{
    AnalysisResults results;
    ReadResultFiles(std::filesystem::path(test::ExamplesFolder()) / name / (std::string(name) + ".sbd"), results);
    return results;
}

DiagramPage PageOf(const GirderDiagram& diagram, double width, double height, double zoom = kFitZoom,
                   const std::vector<LabelBox>& taken = {})
{
    const FigureScreen screen{width, height};
    return LayOutDiagram(diagram, FitDiagram(diagram, screen, zoom, {}), Metrics(), taken);
}

/// Pairs of texts, and of a text and a box of `taken`, that lie over each other.
std::vector<std::string> Overprints(const std::vector<PlacedText>& texts, const std::vector<LabelBox>& taken = {})
{
    std::vector<std::string> pairs;
    for (std::size_t i = 0; i < texts.size(); ++i) {
        for (std::size_t k = i + 1; k < texts.size(); ++k)
            if (texts[i].box.Overlaps(texts[k].box))
                pairs.push_back(FromCp932(texts[i].text) + " | " + FromCp932(texts[k].text));
        for (const LabelBox& box : taken)
            if (texts[i].box.Overlaps(box))
                pairs.push_back(FromCp932(texts[i].text) + " | heading");
    }
    return pairs;
}

std::size_t Marked(const DiagramPage& page, FigureMark mark)
{
    return static_cast<std::size_t>(std::ranges::count(page.texts, mark, &PlacedText::mark));
}

bool Says(const std::vector<PlacedText>& texts, const std::string& cp932)
{
    return std::ranges::find(texts, cp932, &PlacedText::text) != texts.end();
}

/// A girder of one metre a bay with `stations` stations.
AnalysisResults LongGirder(std::size_t stations)
{
    AnalysisResults results;
    results.model.loadCaseCount = 1;
    results.model.stationCount = static_cast<std::int32_t>(stations);
    results.force.size1 = static_cast<std::int32_t>(stations) - 1;
    for (std::size_t i = 0; i < stations; ++i) {
        results.model.stationNames.push_back("ST" + std::to_string(i));
        results.nodeTable.coordinates.push_back({static_cast<double>(i), 0, 0});
        results.nodeTable.nodeValues.push_back({0, 0, i == stations / 2 ? 1 : 0});
        if (i + 1 == stations)
            break;
        results.model.girderElements.push_back(static_cast<std::int32_t>(i) + 1);
        results.elementTable.ends.push_back({static_cast<std::int32_t>(i) + 1, static_cast<std::int32_t>(i) + 2, 0});
        for (std::size_t k = 0; k < kElementComponents; ++k)
            results.force.values.push_back(static_cast<double>((i * 37) % 1009) * (k < 6 ? 1 : -1) - 300);
    }
    return results;
}

} // namespace

TEST(DiagramLayout, NoTextLiesOverAnotherInAnyDiagramOfTheExamples)
{
    std::size_t diagrams = 0;
    std::size_t values = 0;
    std::size_t shown = 0;
    for (const char* const name : {"plate4", "box2", "single1"}) {
        const AnalysisResults results = Example(name);
        ASSERT_FALSE(results.model.girderNames.empty()) << name;
        for (const ResultKindInfo& info : ResultKinds())
            for (std::size_t load = 0; load < results.model.loadCaseNames.size(); ++load)
                for (const std::string& girder : results.model.girderNames)
                    for (std::size_t k = 0; k < kNodeComponents; ++k) {
                        const GirderDiagram diagram = MakeGirderDiagram(results, load, girder, info.kind, k);
                        ResultSelection selection;
                        selection.kind = info.kind;
                        selection.load = results.model.loadCaseNames[load];
                        selection.girder = girder;
                        selection.figureItem = ComponentWord(info.kind, k);
                        for (const double width : {600.0, 1200.0, 1900.0}) {
                            const FigureScreen screen{width, width / 2};
                            const DiagramScale scale = FitDiagram(diagram, screen, kFitZoom, {});
                            std::vector<LabelBox> heading;
                            for (const HeadingPart& part : PlaceHeading(
                                     DiagramHeading(results, selection, diagram, scale, {}), Metrics(), 3, 3, width))
                                heading.push_back(part.box);
                            const DiagramPage page = LayOutDiagram(diagram, scale, Metrics(), heading);
                            ASSERT_THAT(Overprints(page.texts, heading), testing::IsEmpty())
                                << name << ' ' << info.word << ' ' << load << ' ' << girder << ' ' << k << ' ' << width;
                            const auto asks = [&](double value) {
                                return std::ranges::find(page.drawing.values, value, &FigureText::value)
                                       != page.drawing.values.end();
                            };
                            const double greatest = ExtremeOf(diagram, EnvelopeSide::Greatest).value().value;
                            const double least = ExtremeOf(diagram, EnvelopeSide::Least).value().value;
                            ASSERT_EQ(Marked(page, FigureMark::Greatest), asks(greatest) ? 1U : 0U) << name;
                            ASSERT_EQ(Marked(page, FigureMark::Least), least < greatest && asks(least) ? 1U : 0U)
                                << name << ' ' << info.word << ' ' << load << ' ' << girder << ' ' << k << ' ' << width;
                            ++diagrams;
                            values += page.values;
                            shown += page.valuesShown;
                        }
                    }
    }
    RecordProperty("diagrams", std::to_string(diagrams));
    EXPECT_GT(diagrams, 1000U);
    EXPECT_GT(shown * 10, values * 9) << shown << " of " << values << " values have a place";
}

TEST(DiagramLayout, FourteenHundredStationsKeepExtremesEndsAndSupports)
{
    const AnalysisResults results = LongGirder(1428);
    const GirderDiagram diagram = MakeGirderDiagram(results, 0, "", ResultKind::Force, 4);
    for (const double width : {600.0, 1200.0, 1900.0}) {
        const DiagramPage page = PageOf(diagram, width, 500);
        EXPECT_THAT(Overprints(page.texts), testing::IsEmpty()) << width;
        EXPECT_EQ(Marked(page, FigureMark::Greatest), 1U) << width;
        EXPECT_EQ(Marked(page, FigureMark::Least), 1U) << width;
        EXPECT_TRUE(Says(page.texts, "ST0")) << width;
        EXPECT_TRUE(Says(page.texts, "ST1427")) << width;
        EXPECT_TRUE(Says(page.texts, "ST714")) << "the support, " << width;
        EXPECT_LT(page.valuesShown, page.values);
        EXPECT_GT(page.valuesShown, static_cast<std::size_t>(width / 40)) << width;
        const std::string note = Cp932("値 " + std::to_string(page.valuesShown) + "/" + std::to_string(page.values)
                                       + " を表示 (拡大すると残りも出ます)");
        EXPECT_TRUE(Says(page.texts, note)) << width;
    }
    const DiagramPage enlarged = PageOf(diagram, 1200, 500, kFitZoom / 100);
    EXPECT_EQ(enlarged.valuesShown, enlarged.values) << "an enlarged figure shows the rest";
}

TEST(DiagramLayout, WhatIsWrittenAsZeroHasNoSignAndTakesNoPlaceFromAName)
{
    AnalysisResults results = LongGirder(21);
    std::ranges::fill(results.force.values, 0);
    for (std::size_t bay = 0; bay < 20; ++bay) { // one end of a bay has the sign of the other one turned round
        results.force.values[bay * kElementComponents + 4] = bay == 0 ? -0.03 : -0.02;
        results.force.values[bay * kElementComponents + 10] = bay == 10 ? -30 : 0.02;
    }
    const DiagramPage page = PageOf(MakeGirderDiagram(results, 0, "", ResultKind::Force, 4), 900, 500);
    EXPECT_TRUE(Says(page.texts, "0.0"));
    EXPECT_TRUE(Says(page.texts, "30.0"));
    EXPECT_FALSE(Says(page.texts, "-0.0"));
    for (std::size_t station = 0; station < 21; ++station)
        EXPECT_TRUE(Says(page.texts, "ST" + std::to_string(station))) << station;
}

TEST(DiagramExtremes, ReactionsAreThoseOfTheTable)
{
    std::size_t compared = 0;
    for (const char* const name : {"plate4", "box2", "single1"}) {
        const AnalysisResults results = Example(name);
        for (std::size_t load = 0; load < results.model.loadCaseNames.size(); ++load)
            for (const std::string& girder : results.model.girderNames) {
                ResultSelection selection;
                selection.kind = ResultKind::Reaction;
                selection.load = results.model.loadCaseNames[load];
                selection.girder = girder;
                selection.station = NoneWord();
                const CResultTable table(results, selection);
                if (table.RowCount() == 0)
                    continue;
                constexpr std::size_t vertical = 2;
                const GirderDiagram diagram = MakeGirderDiagram(results, load, girder, selection.kind, vertical);
                const auto least = ExtremeOf(diagram, EnvelopeSide::Least);
                ASSERT_TRUE(least);
                EXPECT_EQ(least->value, table.Extremes(vertical).min) << name << ' ' << load << ' ' << girder;
                EXPECT_EQ(ExtremeOf(diagram, EnvelopeSide::Greatest)->value, table.Extremes(vertical).max);
                const std::string row(table.Name(*table.Extremes(vertical).minRow));
                EXPECT_TRUE(row.ends_with("-" + least->station)) << row << ' ' << least->station;
                ++compared;
            }
    }
    EXPECT_GT(compared, 20U);
}

TEST(DiagramExtremes, SmallOnesAreToldWithTheDigitsOfTheTable)
{
    AnalysisResults results = LongGirder(5);
    const auto extremes = [&](double times) {
        AnalysisResults own = results;
        for (double& value : own.force.values)
            value *= times;
        const GirderDiagram diagram = MakeGirderDiagram(own, 0, "", ResultKind::Force, 4);
        std::string all;
        for (const auto& line : DiagramHeading(own, {}, diagram, FitDiagram(diagram, {900, 500}, kFitZoom, {}), {}))
            for (const FigureWords& words : line)
                all += FromCp932(words.text) + "\n";
        return all;
    };
    const std::string noise = "表では 0.000 (計算の端数)";
    EXPECT_NE(extremes(1).find("最小 -300.0 (ST0)"), std::string::npos) << extremes(1);
    EXPECT_NE(extremes(0.001).find("最小 -0.300 (ST0)"), std::string::npos) << extremes(0.001);
    EXPECT_EQ(extremes(0.001).find(noise), std::string::npos);
    EXPECT_NE(extremes(1e-9).find("最小 0.000 (ST0)"), std::string::npos) << extremes(1e-9);
    EXPECT_NE(extremes(1e-9).find(noise), std::string::npos) << "what is drawn is what the computer left over";
    EXPECT_EQ(extremes(0).find(noise), std::string::npos) << "a line along the axis says enough";
}

TEST(DiagramLayout, SpansStandUnderTheDiagramWithTheirLengths)
{
    const DiagramPage page = PageOf(MakeGirderDiagram(LongGirder(41), 0, "", ResultKind::Force, 4), 900, 500);
    EXPECT_TRUE(Says(page.texts, "20.000 m"));
    EXPECT_TRUE(Says(page.texts, "(+)"));
    EXPECT_TRUE(Says(page.texts, "(-)"));
}

TEST(DiagramLayout, WhatIsNoNumberIsLeftOutAndCounted)
{
    AnalysisResults results = LongGirder(5);
    results.force.values[4] = kNone;
    results.force.values[12 + 10] = std::numeric_limits<double>::infinity();
    const GirderDiagram diagram = MakeGirderDiagram(results, 0, "", ResultKind::Force, 4);
    EXPECT_EQ(diagram.notNumbers, 2U);
    for (const PlacedText& text : PageOf(diagram, 900, 500).texts)
        EXPECT_EQ(text.text.find('n'), std::string::npos) << text.text;
    const FigureHeading heading =
        DiagramHeading(results, {}, diagram, FitDiagram(diagram, {900, 500}, kFitZoom, {}), {});
    EXPECT_EQ(heading.back().front(),
              (FigureWords{"数でない値が 2 個あり、図に含まれません"_cp932, FigureMark::Warning}));
}

TEST(DiagramLayout, ValuesAtTheEndOfWhatANumberHoldsHaveNoScaleAndHarmNothing)
{
    for (const double value : {1e308, -1e308, 1e-308, 5e-324}) {
        AnalysisResults results = LongGirder(5);
        results.force.values[4] = value;
        const GirderDiagram diagram = MakeGirderDiagram(results, 0, "", ResultKind::Force, 4);
        for (const double zoom : {1e-6, kFitZoom, 1e6, kNone}) {
            const DiagramScale scale = FitDiagram(diagram, {900, 500}, zoom, {});
            const DiagramPage page = LayOutDiagram(diagram, scale, Metrics(), {});
            EXPECT_THAT(Overprints(page.texts), testing::IsEmpty()) << value << ' ' << zoom;
            for (const auto& line : DiagramHeading(results, {}, diagram, scale, {}))
                for (const FigureWords& words : line)
                    EXPECT_EQ(words.text.find("inf"), std::string::npos) << value << ' ' << zoom;
        }
    }
}

TEST(DiagramLayout, APaneWithoutRoomHasNoTexts)
{
    const GirderDiagram diagram = MakeGirderDiagram(LongGirder(5), 0, "", ResultKind::Force, 4);
    for (const double size : {0.0, 1.0, 10.0})
        EXPECT_THAT(PageOf(diagram, size, size).texts, testing::IsEmpty()) << size;
}

TEST(FigureHeading, SaysWhatAndWhenAndAtWhichScale)
{
    const AnalysisResults results = Example("box2");
    ResultSelection selection;
    selection.kind = ResultKind::Force;
    selection.load = results.model.loadCaseNames.front();
    selection.girder = NoneWord();
    selection.figureItem = "My";
    const GirderDiagram diagram = MakeGirderDiagram(results, 0, selection.girder, selection.kind, 4);
    FigureScreen screen{900, 500};
    screen.isPaper = true;
    ResultState state;
    state.project = "box2.sbd";
    state.time = "2026/11/22 09:30";
    state.newerInput = {"box2.abd (2026/11/22 10:00)"};
    const DiagramScale scale = FitDiagram(diagram, screen, kFitZoom, {});
    const FigureHeading heading = DiagramHeading(results, selection, diagram, scale, state);
    ASSERT_EQ(heading.size(), 4U);
    EXPECT_EQ(FromCp932(heading[0][0].text), "断面力 My [kN・m]　荷重: " + FromCp932(selection.load) + "　主桁: "
                                                 + FromCp932(results.model.girderNames[0]) + " (最初の主桁)");
    EXPECT_EQ(FromCp932(heading[1][0].text), "計画: box2.sbd　結果: 2026/11/22 09:30");
    EXPECT_TRUE(FromCp932(heading[1][1].text).starts_with("縮尺: 横 1/")) << FromCp932(heading[1][1].text);
    EXPECT_TRUE(FromCp932(heading[1][1].text).ends_with(" kN・m")) << FromCp932(heading[1][1].text);
    EXPECT_EQ(heading[2][0].mark, FigureMark::Greatest);
    EXPECT_EQ(heading[2][1].mark, FigureMark::Least);
    EXPECT_EQ(FromCp932(heading[3][0].text), "結果は入力より古い: box2.abd (2026/11/22 10:00)");
    EXPECT_EQ(heading[3][0].mark, FigureMark::Warning);
}

TEST(FigureHeading, TheRatioIsThatOfThePaper)
{
    const GirderDiagram diagram = MakeGirderDiagram(LongGirder(51), 0, "", ResultKind::Force, 4);
    FigureScreen screen{1000, 500};
    screen.isPaper = true;
    screen.millimetresPerPixel = 0.25;
    // 50 m on 1000 pixels of 0.25 mm: 250 mm.
    const FigureHeading heading = DiagramHeading({}, {}, diagram, FitDiagram(diagram, screen, 1, {}), {});
    EXPECT_TRUE(FromCp932(heading[1][0].text).starts_with("縮尺: 横 1/200、")) << FromCp932(heading[1][0].text);
}

TEST(ModelLabels, NamesOfAllViewsAndExamplesStandApart)
{
    for (const char* const name : {"plate4", "box2", "single1"}) {
        const AnalysisResults results = Example(name);
        for (const ViewCommand& view : kViewCommands)
            for (const double width : {600.0, 1200.0, 1900.0}) {
                const CModelProjection projection(FigurePlaces(results), view.direction);
                const FigureScreen screen{width, width / 2};
                const ModelScale scale = FitModel(projection.Bounds(), screen, kFitZoom, {});
                CLabelRoom room({0, 0, width, width / 2});
                const std::vector<FigureLabel> girders = GirderLabels(results, projection, scale, 8);
                const std::vector<PlacedText> texts =
                    PlaceModelLabels(girders, StationLabels(results.model, projection, scale, 8), Metrics(), room);
                EXPECT_THAT(Overprints(texts), testing::IsEmpty()) << name << ' ' << view.name << ' ' << width;
                const bool all = std::ranges::all_of(
                    girders, [&](const FigureLabel& label) { return Says(texts, std::string(label.text)); });
                EXPECT_TRUE(all || view.command != Command::ViewAll) << name << ' ' << width << ": a girder unnamed";
            }
    }
}

} // namespace sbd
