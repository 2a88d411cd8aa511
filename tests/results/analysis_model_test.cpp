#include "project/text.h"
#include "results/records.h"
#include "tests/results/file_bytes.h"
#include "tests/results/sample_records.h"

#include <gtest/gtest.h>

#include <limits>

namespace sbd {

using namespace literals;

namespace {

constexpr std::int32_t kLie = 2'000'000'000;

std::size_t BytesUpToNodeNames(const AnalysisModel& model)
{
    return 256 + 9 * 4 + 4 + 20 * model.loadCaseNames.size() + 4 + 20 * model.secondNames.size() + 2 * 4;
}

} // namespace

TEST(AnalysisModel, EveryFieldIsReadFromItsPlace)
{
    const AnalysisModel model = SampleModel();
    const auto [record, read] = ReadFrom<AnalysisModel>(BytesOf(model).Text());
    EXPECT_TRUE(read);
    EXPECT_EQ(record, model);
}

TEST(AnalysisModel, WithoutAGridTheSectionNamesFollowTheFlag)
{
    AnalysisModel model = SampleModel();
    model.gridFlag = 0;
    const auto [record, read] = ReadFrom<AnalysisModel>(BytesOf(model).Text());
    EXPECT_TRUE(read);
    EXPECT_EQ(record.sectionNames, model.sectionNames);
    EXPECT_EQ(record.lastWord, 99);
    EXPECT_EQ(record.girderCount, 0);
    EXPECT_TRUE(record.girderNames.empty());
    EXPECT_EQ(record.grid5, 0);
}

TEST(AnalysisModel, AnyFlagButZeroMeansAGrid)
{
    AnalysisModel model = SampleModel();
    model.gridFlag = -7;
    EXPECT_EQ(ReadFrom<AnalysisModel>(BytesOf(model).Text()).record, model);
}

TEST(AnalysisModel, Grid5TakesTheValueOfGrid3)
{
    AnalysisModel model = SampleModel();
    model.grid5 = 1234;
    EXPECT_EQ(ReadFrom<AnalysisModel>(BytesOf(model).Text()).record.grid5, model.grid3);
}

TEST(AnalysisModel, ANegativeGrid3LosesItsSignAndGrid5StandsInTheFile)
{
    AnalysisModel model = SampleModel();
    model.grid5 = 55;
    const AnalysisModel record = ReadFrom<AnalysisModel>(BytesOf(model, true).Text()).record;
    EXPECT_EQ(record.grid3, 33);
    EXPECT_EQ(record.grid5, 55);
    EXPECT_EQ(record, model) << "what follows stands one word later";
}

TEST(AnalysisModel, TheSmallestGrid3HasNoAmountAndStays)
{
    AnalysisModel model = SampleModel();
    model.grid3 = std::numeric_limits<std::int32_t>::min();
    std::string text = BytesOf(SampleModel(), true).Text();
    const std::size_t grid = text.size() - (3 * 20 + 4) - GridBytes(SampleModel(), true).Size();
    const std::size_t at = grid + 2 * 4;
    text.replace(at, 4, FileBytes().Word(model.grid3).Text());
    const AnalysisModel record = ReadFrom<AnalysisModel>(text).record;
    EXPECT_EQ(record.grid3, model.grid3);
    EXPECT_EQ(record.girderNames, model.girderNames);
}

TEST(AnalysisModel, OneGirderWithOneStationHasNoMembersOfTheGrid)
{
    AnalysisModel model = SampleModel();
    model.lineCountB = 1;
    model.girderCount = 1;
    model.stationCount = 1;
    model.gridNodes = {1};
    model.gridNodes2 = {1};
    model.girderElements.clear();
    model.crossElements.clear();
    model.lineNamesB.resize(1);
    model.girderNames.resize(1);
    model.stationNames.resize(1);
    model.stationWords.resize(1);
    model.linePoints.resize(2);
    model.girderPoints.resize(1);
    model.stationRecords.resize(1);
    EXPECT_EQ(ReadFrom<AnalysisModel>(BytesOf(model).Text()).record, model);
}

TEST(AnalysisModel, TwoGirdersWithOneStationHaveNoCrossMembersEither)
{
    AnalysisModel model = SampleModel();
    model.lineCountB = 0;
    model.girderCount = 2;
    model.stationCount = 1;
    model.gridNodes = {1, 2};
    model.gridNodes2 = {3, 4};
    model.girderElements.clear();
    model.crossElements.clear();
    model.lineNamesB.clear();
    model.linePoints.clear();
    model.girderPoints.clear();
    model.stationNames.resize(1);
    model.stationWords.resize(1);
    model.stationRecords.resize(1);
    EXPECT_EQ(ReadFrom<AnalysisModel>(BytesOf(model).Text()).record, model);
}

TEST(AnalysisModel, NegativeCountsHaveNoLists)
{
    AnalysisModel model;
    model.title = " ";
    model.loadCaseCount = model.secondNameCount = model.nodeCount = model.elementCount = -1;
    model.sectionCount = model.secondSectionCount = -2;
    model.gridFlag = 1;
    model.pointCount = model.lineCountA = model.lineCountB = model.girderCount = model.stationCount = -3;
    model.tailCount = std::numeric_limits<std::int32_t>::min();
    model.lastWord = 99;
    EXPECT_EQ(ReadFrom<AnalysisModel>(BytesOf(model).Text()).record, model);
}

TEST(AnalysisModel, AnEmptyFileReadsTrueAndEmpty)
{
    const auto [record, read] = ReadFrom<AnalysisModel>("");
    EXPECT_TRUE(read);
    AnalysisModel empty;
    empty.cut = true;
    EXPECT_EQ(record, empty);
}

TEST(AnalysisModel, AFileCutInTheTitleKeepsTheBytesOfTheTitle)
{
    EXPECT_EQ(ReadFrom<AnalysisModel>("CASE  ").record.title, "CASE  ");
}

TEST(AnalysisModel, AFileCutInTheNodeNamesHasTheNamesAheadAndCountsOfZeroBehind)
{
    const AnalysisModel model = SampleModel();
    const std::string cut = BytesOf(model).Front(BytesUpToNodeNames(model) + 2 * 20 + 7);
    const auto [record, read] = ReadFrom<AnalysisModel>(cut);
    EXPECT_TRUE(read);
    EXPECT_EQ(record.loadCaseNames, model.loadCaseNames);
    EXPECT_EQ(record.nodeCount, 6);
    EXPECT_EQ(record.elementCount, 7);
    EXPECT_EQ(record.nodeNames, (std::vector<std::string>{"G1-S1", "G1-C1", "G1-S2  "}));
    EXPECT_TRUE(record.elementNames.empty());
    EXPECT_TRUE(record.elementLinks.empty());
    EXPECT_EQ(record.sectionCount, 0);
    EXPECT_EQ(record.gridFlag, 0);
    EXPECT_EQ(record.lastWord, 0);
}

TEST(AnalysisModel, AFileCutAnywhereKeepsWhatStandsAheadOfTheCut)
{
    const AnalysisModel model = SampleModel();
    const std::string bytes = BytesOf(model).Text();
    const std::size_t nodesEnd = BytesUpToNodeNames(model) + 6 * 20;
    const std::size_t sectionsEnd = bytes.size() - 4 - 20;
    for (std::size_t size = 0; size < bytes.size(); ++size) {
        const auto [record, read] = ReadFrom<AnalysisModel>(std::string_view(bytes).substr(0, size));
        ASSERT_TRUE(read) << size;
        ASSERT_EQ(record.title.substr(0, 14), model.title.substr(0, size)) << size;
        ASSERT_EQ(record.nodeNames.size() == 6, size > nodesEnd - 20) << size;
        ASSERT_TRUE(size < nodesEnd || record.nodeNames == model.nodeNames) << size;
        ASSERT_EQ(record.sectionNames.size() == 2, size > sectionsEnd - 20) << size;
        ASSERT_TRUE(size < sectionsEnd || record.sectionNames == model.sectionNames) << size;
        ASSERT_EQ(record.lastWord, 0) << size;
    }
}

TEST(AnalysisModel, CountsThatLieTakeWhatTheFileHolds)
{
    const std::string head = FileBytes().Field("LIE", 256).All(SampleModel().header).Text();
    const std::string rest(400, '\x01');
    const auto loads = ReadFrom<AnalysisModel>(head + FileBytes().Word(kLie).Text() + rest);
    EXPECT_TRUE(loads.read);
    EXPECT_EQ(loads.record.loadCaseCount, kLie);
    EXPECT_EQ(loads.record.loadCaseNames.size(), 20U);
    EXPECT_EQ(loads.record.nodeCount, 0);

    const auto members = ReadFrom<AnalysisModel>(head + FileBytes().Word(0).Word(0).Word(0).Word(kLie).Text() + rest);
    EXPECT_EQ(members.record.elementCount, kLie);
    EXPECT_EQ(members.record.elementNames.size(), 20U);
    EXPECT_TRUE(members.record.elementLinks.empty());
}

TEST(AnalysisModel, ProductsOfCountsThatLieTakeWhatTheFileHolds)
{
    AnalysisModel model = SampleModel();
    model.girderCount = kLie;
    model.stationCount = kLie;
    model.lineCountA = kLie;
    model.lineCountB = kLie;
    const std::size_t held = GridBytes(model, false).Size() - 11 * 4 + 3 * 20 + 4;
    const AnalysisModel record = ReadFrom<AnalysisModel>(BytesOf(model).Text()).record;
    EXPECT_EQ(record.girderCount, kLie);
    EXPECT_EQ(record.gridNodes.size(), held / 4);
    EXPECT_LE(record.gridNodes.capacity(), held / 4);
    EXPECT_TRUE(record.girderNames.empty());
    EXPECT_TRUE(record.sectionNames.empty());
}

TEST(AnalysisModel, ALargestPointCountOverflowsNothing)
{
    AnalysisModel model = SampleModel();
    model.pointCount = std::numeric_limits<std::int32_t>::max();
    const AnalysisModel record = ReadFrom<AnalysisModel>(BytesOf(model).Text()).record;
    EXPECT_EQ(record.girderPoints, model.girderPoints);
    EXPECT_GT(record.pointPairs.size(), 2U);
    EXPECT_TRUE(record.pointIndex.empty());
}

TEST(AnalysisModel, BytesBehindTheLastFieldAreNotRead)
{
    EXPECT_EQ(ReadFrom<AnalysisModel>(BytesOf(SampleModel()).Text() + "more").record, SampleModel());
}

TEST(AnalysisModel, ReadingAgainLeavesNothingOfTheOldRecord)
{
    AnalysisModel title;
    title.title = "T";
    AnalysisModel record = SampleModel();
    const std::string bytes = BytesOf(title).Text();
    CMemorySource source(std::as_bytes(std::span(bytes)));
    EXPECT_TRUE(record.Read(source));
    EXPECT_EQ(record, title);
}

TEST(AnalysisModel, AxesAreTurnedByTheFirstWordOfTheMembersSection)
{
    AnalysisModel model = SampleModel();
    EXPECT_TRUE(model.HasTurnedAxes(0));
    EXPECT_FALSE(model.HasTurnedAxes(4)) << "its section's word is 0";
    EXPECT_FALSE(model.HasTurnedAxes(7)) << "there is no such member";
    for (const std::int32_t section : {0, -1, 3, std::numeric_limits<std::int32_t>::min(), kLie}) {
        model.elementLinks[0][2] = section;
        EXPECT_FALSE(model.HasTurnedAxes(0)) << "section " << section;
    }
    model.elementLinks[0] = {0, 0, 2, 0};
    model.sections[1][0] = -5;
    EXPECT_TRUE(model.HasTurnedAxes(0)) << "any word but 0";
}

} // namespace sbd
