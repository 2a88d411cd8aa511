#include "results/result_files.h"
#include "results/result_paths.h"
#include "tests/results/file_bytes.h"
#include "tests/results/sample_records.h"
#include "tests/results/temporary_folder.h"
#include "tests/seed.h"
#include "tests/surroundings.h"

#include <gtest/gtest.h>

#include <fstream>
#include <set>

namespace sbd {

namespace {

class ResultFiles : public testing::Test {
protected:
    void Write(std::string_view extension, std::string_view bytes) { WriteFile(ResultFile(project, extension), bytes); }
    void Remove(std::string_view extension) { std::filesystem::remove(ResultFile(project, extension)); }

    void WriteAll()
    {
        Write(".Z1D", BytesOf(SampleModel()).Text());
        Write(".Z1F", BytesOf(SampleElements()).Text());
        Write(".Z1R", BytesOf(SampleNodes()).Text());
        Write(".Z3D", BytesOf(SampleCube(6, 2, 6)).Text());
        Write(".Z3F", BytesOf(SampleCube(7, 2, 12)).Text());
        Write(".Z3R", BytesOf(SampleCube(6, 2, 6)).Text());
    }

    TemporaryFolder folder;
    const std::filesystem::path project = folder.Path() / u8"橋 1.sbd";
};

constexpr ResultFilesRead kAllRead{true, true, true, true, true, true, 4};

} // namespace

TEST_F(ResultFiles, AllSixAreRead)
{
    WriteAll();
    AnalysisResults results;
    EXPECT_EQ(ReadResultFiles(project, results), kAllRead);
    EXPECT_EQ(results.model, SampleModel());
    EXPECT_EQ(results.elementTable, SampleElements());
    EXPECT_EQ(results.nodeTable, SampleNodes());
    EXPECT_EQ(results.displacement, SampleCube(6, 2, 6));
    EXPECT_EQ(results.reaction, SampleCube(6, 2, 6));
}

#if defined(__linux__) && !defined(__SANITIZE_ADDRESS__) // memory checkers have their own

/// Kilobytes that are in memory for this process.
std::size_t KilobytesInMemory()
{
    std::ifstream status("/proc/self/status");
    std::string word;
    while (status >> word)
        if (word == "VmRSS:") {
            std::size_t kilobytes = 0;
            status >> kilobytes;
            return kilobytes;
        }
    return 0;
}

TEST_F(ResultFiles, HolesOfAFileCostNoMemory)
{
    WriteAll();
    // 768 MB: values at the front and at the end, nothing between them.
    constexpr std::int32_t members = 1 << 20;
    constexpr std::uint64_t size = 12 + std::uint64_t{members} * 96;
    const std::filesystem::path file = ResultFile(project, ".Z3F");
    WriteFile(file, FileBytes().Word(members).Word(8).Word(12).All(std::vector<double>{1, 2, 3}).Text());
    std::filesystem::resize_file(file, 12 + std::uint64_t{members} * 8 * 12 * 8);
    std::ofstream(file, std::ios::binary | std::ios::in | std::ios::ate)
        .seekp(-8, std::ios::end)
        .write("\0\0\0\0\0\0\xF0?", 8);
    ASSERT_GT(std::filesystem::file_size(file), size);
    AnalysisResults results;
    results.force = {};
    const std::size_t before = KilobytesInMemory();
    ReadResultFiles(project, results);
    ASSERT_EQ(results.force.values.size(), std::size_t{members} * 96);
    EXPECT_EQ(results.force.values[0], 1);
    EXPECT_EQ(results.force.values[1], -3) << "turned";
    EXPECT_EQ(results.force.values[5000], 0);
    EXPECT_EQ(results.force.values.back(), 1);
    EXPECT_LT(KilobytesInMemory(), before + 64 * 1024);
}

#endif

TEST_F(ResultFiles, ForcesAreTurnedWhenTheyAreRead)
{
    WriteAll();
    AnalysisResults results;
    ReadResultFiles(project, results);
    const ResultValues& values = results.force.values;
    EXPECT_EQ(std::vector<double>(values.begin(), values.begin() + 12),
              (std::vector<double>{1, -3, 2, 4, -6, 5, 7, -9, 8, 10, -12, 11}));
    EXPECT_EQ(values[4 * 24 + 1], 4 * 24 + 2) << "the fifth member's section is not turned";
}

TEST_F(ResultFiles, AProjectWithoutARunHasNoResults)
{
    AnalysisResults results;
    EXPECT_EQ(ReadResultFiles(project, results), ResultFilesRead());
    EXPECT_EQ(results, AnalysisResults());
}

TEST_F(ResultFiles, ReadingTwiceGivesTheSame)
{
    WriteAll();
    AnalysisResults results;
    ReadResultFiles(project, results);
    const AnalysisResults first = results;
    ReadResultFiles(project, results);
    EXPECT_EQ(results, first) << "the forces are turned once";
}

TEST_F(ResultFiles, AFileThatHasGoneLeavesItsRecord)
{
    WriteAll();
    AnalysisResults results;
    ReadResultFiles(project, results);
    const AnalysisResults before = results;
    for (const char* extension : {".Z1F", ".Z3D", ".Z3F", ".Z3R"})
        Remove(extension);
    Write(".Z1R", BytesOf(NodeTable()).Text());
    const ResultFilesRead read = ReadResultFiles(project, results);
    EXPECT_EQ(read, (ResultFilesRead{.model = true, .nodeTable = true}));
    EXPECT_EQ(results.elementTable, before.elementTable);
    EXPECT_EQ(results.displacement, before.displacement);
    EXPECT_EQ(results.force, before.force) << "turned once, at its own reading";
    EXPECT_EQ(results.reaction, before.reaction);
    EXPECT_EQ(results.nodeTable, NodeTable());
}

TEST_F(ResultFiles, ForcesAreTurnedByTheModelInHand)
{
    WriteAll();
    AnalysisResults results;
    ReadResultFiles(project, results);
    Remove(".Z1D");
    Write(".Z3F", BytesOf(SampleCube(1, 2, 12)).Text());
    EXPECT_EQ(ReadResultFiles(project, results).turnedElements, 1U);
    EXPECT_EQ(results.force.values[1], -3);
}

TEST_F(ResultFiles, ForcesThatReadFalseAreNotTurned)
{
    WriteAll();
    Write(".Z3F", FileBytes().Word(7).Word(2).Word(12).Text());
    AnalysisResults results;
    const ResultFilesRead read = ReadResultFiles(project, results);
    EXPECT_FALSE(read.force);
    EXPECT_EQ(read.turnedElements, 0U);
    EXPECT_EQ(results.force.size1, 7);
    EXPECT_TRUE(read.reaction) << "the next file is read all the same";
}

TEST_F(ResultFiles, AFolderInPlaceOfAFileDoesNotOpen)
{
    WriteAll();
    AnalysisResults results;
    ReadResultFiles(project, results);
    Remove(".Z1D");
    std::filesystem::create_directories(ResultFile(project, ".Z1D"));
    EXPECT_FALSE(ReadResultFiles(project, results).model);
    EXPECT_EQ(results.model, SampleModel());
}

#ifndef _WIN32
TEST_F(ResultFiles, ADeviceWithoutAnEndDoesNotOpen)
{
    WriteAll();
    Remove(".Z3D");
    std::filesystem::create_symlink("/dev/zero", ResultFile(project, ".Z3D"));
    AnalysisResults results;
    EXPECT_FALSE(ReadResultFiles(project, results).displacement);
}
#endif

TEST(TurnForceAxes, OnlyMembersWithTurnedSectionsTurn)
{
    AnalysisModel model = SampleModel();
    model.elementLinks = {{0, 0, 2, 0}, {0, 0, 1, 0}};
    ResultCube force = SampleCube(2, 2, 12);
    EXPECT_EQ(TurnForceAxes(model, force), 1U);
    const ResultValues expected = {
        1,  2,   3,  4,  5,   6,  7,  8,   9,  10, 11,  12, //
        13, 14,  15, 16, 17,  18, 19, 20,  21, 22, 23,  24, //
        25, -27, 26, 28, -30, 29, 31, -33, 32, 34, -36, 35, // second member, first load case
        37, -39, 38, 40, -42, 41, 43, -45, 44, 46, -48, 47,
    };
    EXPECT_EQ(force.values, expected);
}

TEST(TurnForceAxes, FourTurnsGiveTheForcesBack)
{
    const AnalysisModel model = SampleModel();
    ResultCube force = SampleCube(7, 2, 12);
    for (int turn = 0; turn < 4; ++turn)
        EXPECT_EQ(TurnForceAxes(model, force), 4U);
    EXPECT_EQ(force, SampleCube(7, 2, 12));
}

TEST(TurnForceAxes, ASectionOutsideTheListTurnsNothing)
{
    AnalysisModel model = SampleModel();
    for (auto& link : model.elementLinks)
        link[2] = 3;
    ResultCube force = SampleCube(7, 2, 12);
    EXPECT_EQ(TurnForceAxes(model, force), 0U);
    EXPECT_EQ(force, SampleCube(7, 2, 12));
}

TEST(TurnForceAxes, AShortCubeTurnsItsWholeTriples)
{
    const AnalysisModel model = SampleModel();
    ResultCube force = SampleCube(7, 2, 12);
    force.values.resize(24 + 5);
    EXPECT_EQ(TurnForceAxes(model, force), 2U);
    EXPECT_EQ(force.values[24 + 1], -27);
    EXPECT_EQ(force.values[24 + 4], 29) << "its third value is not there";
}

TEST(TurnForceAxes, ALoadCaseCountThatLiesTurnsWhatThereIs)
{
    AnalysisModel model = SampleModel();
    model.loadCaseCount = 0x7FFFFFFF;
    ResultCube force = SampleCube(7, 2, 12);
    EXPECT_EQ(TurnForceAxes(model, force), 1U) << "all values belong to the first member";
    model.loadCaseCount = -1;
    EXPECT_EQ(TurnForceAxes(model, force), 0U);
    EXPECT_EQ(TurnForceAxes(AnalysisModel(), force), 0U);
}

using AnyBytes = RandomTest;

TEST_F(AnyBytes, AreReadWithoutTakingMoreThanTheyAre)
{
    const std::array<std::string, 4> files = {BytesOf(SampleModel()).Text(), BytesOf(SampleElements()).Text(),
                                              BytesOf(SampleNodes()).Text(), BytesOf(SampleCube(3, 2, 12)).Text()};
    for (int round = 0; round < 2000; ++round) {
        std::string bytes = files[UpTo(3)];
        for (std::size_t changes = UpTo(8); changes > 0; --changes)
            bytes[UpTo(bytes.size() - 1)] = static_cast<char>(UpTo(255));
        bytes.resize(UpTo(bytes.size()));
        const AnalysisModel model = ReadFrom<AnalysisModel>(bytes).record;
        ASSERT_LE(model.gridNodes.capacity() * 4, bytes.size());
        static_cast<void>(ReadFrom<ElementTable>(bytes));
        static_cast<void>(ReadFrom<NodeTable>(bytes));
        ResultCube cube = ReadFrom<ResultCube>(bytes).record;
        ASSERT_LE(cube.values.capacity() * 8, bytes.size());
        static_cast<void>(TurnForceAxes(model, cube));
    }
}

/// What the examples hold, as their README tells it.
struct Example {
    const char* name;
    std::size_t nodes;
    std::size_t members;
    std::size_t loadCases;
    std::vector<std::string> girders;
    std::vector<std::string> stations;
};

class Examples : public testing::TestWithParam<Example> {};

TEST_P(Examples, HoldWhatTheirReadmeSays)
{
    const Example& example = GetParam();
    AnalysisResults results;
    const std::filesystem::path project =
        std::filesystem::path(test::ExamplesFolder()) / example.name / (std::string(example.name) + ".sbd");
    const ResultFilesRead read = ReadResultFiles(project, results);
    EXPECT_TRUE(read.model && read.elementTable && read.nodeTable && read.displacement && read.force && read.reaction);
    const AnalysisModel& model = results.model;
    EXPECT_EQ(model.nodeNames.size(), example.nodes);
    EXPECT_EQ(model.elementNames.size(), example.members);
    EXPECT_EQ(model.loadCaseNames.size(), example.loadCases);
    EXPECT_EQ(model.girderNames, example.girders);
    EXPECT_EQ(model.stationNames, example.stations);
    EXPECT_EQ(results.elementTable.ends.size(), example.members);
    EXPECT_EQ(results.nodeTable.coordinates.size(), example.nodes);
    EXPECT_EQ(results.displacement.values.size(), example.nodes * example.loadCases * kNodeComponents);
    EXPECT_EQ(results.force.values.size(), example.members * example.loadCases * kElementComponents);
    EXPECT_EQ(results.reaction.values.size(), example.nodes * example.loadCases * kNodeComponents);
}

TEST_P(Examples, HangTogether)
{
    AnalysisResults results;
    const std::string name = GetParam().name;
    ReadResultFiles(std::filesystem::path(test::ExamplesFolder()) / name / (name + ".sbd"), results);
    for (const std::int32_t element : results.model.girderElements)
        EXPECT_LE(element, results.model.elementCount);
    for (const auto& ends : results.elementTable.ends)
        for (const std::int32_t node : {ends[0], ends[1]})
            EXPECT_TRUE(node >= 1 && node <= results.model.nodeCount) << node;
    const std::set<std::string> nodes(results.model.nodeNames.begin(), results.model.nodeNames.end());
    for (const std::string& girder : results.model.girderNames)
        for (const std::string& station : results.model.stationNames)
            EXPECT_TRUE(nodes.contains(girder + "-" + station)) << girder << "-" << station;
}

INSTANTIATE_TEST_SUITE_P(
    All, Examples,
    testing::Values(Example{"plate4", 86, 145, 13, {"G1", "G2", "G3", "G4"}, {"S1",  "C1",  "C2", "C3",  "C4",  "C5",
                                                                              "S2",  "C6",  "C7", "C8",  "C9",  "C10",
                                                                              "C11", "C12", "S3", "C13", "C14", "C15",
                                                                              "C16", "C17", "S4"}},
                    Example{"box2", 126, 145, 12, {"G1", "G2"}, {"S1",  "C1",  "C2",  "C3",  "C4",  "C5",  "C6",
                                                                 "C7",  "C8",  "C9",  "S2",  "C10", "C11", "C12",
                                                                 "C13", "C14", "C15", "C16", "C17", "C18", "S3"}},
                    Example{"single1", 9, 8, 10, {"G1"}, {"A1", "C1", "C2", "C3", "C4", "C5", "C6", "C7", "A2"}}),
    [](const auto& tested) { return std::string(tested.param.name); });

} // namespace sbd
