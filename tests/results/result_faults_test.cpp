#include "project/text.h"
#include "results/result_faults.h"
#include "results/result_files.h"
#include "results/result_paths.h"
#include "results/result_title.h"
#include "tests/results/file_bytes.h"
#include "tests/results/result_fixture.h"
#include "tests/results/temporary_folder.h"

#include <gtest/gtest.h>

namespace sbd {

using namespace literals;

namespace {

class ResultFaultsTest : public testing::Test {
protected:
    void Write(std::string_view extension, std::string_view bytes) { WriteFile(ResultFile(project, extension), bytes); }

    void WriteAll()
    {
        Write(".Z1D", BytesOf(SampleModel()).Text());
        Write(".Z1F", BytesOf(SampleElements()).Text());
        Write(".Z1R", BytesOf(SampleNodes()).Text());
        Write(".Z3D", BytesOf(SampleCube(6, 2, 6)).Text());
        Write(".Z3F", BytesOf(SampleCube(7, 2, 12)).Text());
        Write(".Z3R", BytesOf(SampleCube(6, 2, 6)).Text());
    }

    [[nodiscard]] AnalysisResults Results() const
    {
        AnalysisResults results;
        ReadResultFiles(project, results);
        return results;
    }

    /// The only fault of the files, in UTF-8.
    [[nodiscard]] std::string Only(std::string_view file) const
    {
        const std::vector<ResultFault> faults = ResultFaults(Results());
        EXPECT_EQ(faults.size(), 1U);
        if (faults.size() != 1)
            return {};
        EXPECT_EQ(faults[0].file, file);
        return FromCp932(faults[0].text);
    }

    TemporaryFolder folder;
    const std::filesystem::path project = folder.Path() / "p.sbd";
};

bool Holds(const std::string& text, std::string_view part)
{
    return text.find(part) != std::string::npos;
}

} // namespace

TEST_F(ResultFaultsTest, WholeFilesHaveNone)
{
    WriteAll();
    EXPECT_TRUE(ResultFaults(Results()).empty());
    EXPECT_TRUE(ResultFaultLine(Results()).empty());
}

TEST_F(ResultFaultsTest, FilesThatAreNotThereAreNone)
{
    EXPECT_TRUE(ResultFaults(Results()).empty());
    WriteAll();
    for (const char* extension : {".Z1D", ".Z3F", ".Z3R"})
        std::filesystem::remove(ResultFile(project, extension));
    EXPECT_TRUE(ResultFaults(Results()).empty());
}

TEST_F(ResultFaultsTest, EveryCutOfEveryFileIsTold)
{
    const std::pair<const char*, std::string> files[] = {
        {"Z1D", BytesOf(SampleModel()).Text()},        {"Z1F", BytesOf(SampleElements()).Text()},
        {"Z1R", BytesOf(SampleNodes()).Text()},        {"Z3D", BytesOf(SampleCube(6, 2, 6)).Text()},
        {"Z3F", BytesOf(SampleCube(7, 2, 12)).Text()}, {"Z3R", BytesOf(SampleCube(6, 2, 6)).Text()}};
    for (const auto& [file, bytes] : files) {
        WriteAll();
        for (std::size_t size = 0; size < bytes.size(); size += 1 + size / 7) {
            Write(std::string(".") + file, std::string_view(bytes).substr(0, size));
            const std::vector<ResultFault> faults = ResultFaults(Results());
            ASSERT_EQ(faults.size(), 1U) << file << " cut at " << size;
            EXPECT_EQ(faults[0].file, file) << size;
            EXPECT_TRUE(Holds(FromCp932(faults[0].text), std::string(file) + " が途中で終わっています。")) << size;
        }
    }
}

TEST_F(ResultFaultsTest, HalfAModelTellsThatNoAxisWasTurned)
{
    WriteAll();
    const std::string bytes = BytesOf(SampleModel()).Text();
    Write(".Z1D", std::string_view(bytes).substr(0, bytes.size() / 4));
    ASSERT_EQ(Results().force.values[1], 2) << "the example does not show what is told";
    const std::string text = Only("Z1D");
    EXPECT_TRUE(Holds(text, "。軸の変換は行っていません。")) << text;
    EXPECT_TRUE(Holds(text, "Sy と Sz")) << text;
}

TEST_F(ResultFaultsTest, AModelWhoseSectionsAreReadTellsNothingOfAxes)
{
    WriteAll();
    const std::string bytes = BytesOf(SampleModel()).Text();
    Write(".Z1D", std::string_view(bytes).substr(0, bytes.size() - 1));
    ASSERT_EQ(Results().force.values[1], -3);
    const std::string text = Only("Z1D");
    EXPECT_FALSE(Holds(text, "軸")) << text;
    EXPECT_TRUE(Holds(text, "表と図に使う部分は読めています")) << text;
}

TEST(ResultFaults, SectionsThatAreReadInPartTellForHowManyMembersTheAxesAreUnknown)
{
    AnalysisResults results = SmallBridge();
    results.model.sections.resize(1);
    results.model.cut = true;
    std::size_t unknown = 0;
    for (const auto& link : results.model.elementLinks)
        unknown += link[2] > 1 ? 1 : 0;
    ASSERT_TRUE(unknown > 0 && unknown < 7) << unknown;
    const std::string text = FromCp932(ResultFaults(results).at(0).text);
    EXPECT_TRUE(Holds(text, "要素 7 のうち " + std::to_string(unknown) + " の軸の変換は行っていません")) << text;
}

TEST_F(ResultFaultsTest, WhatIsMissingIsCounted)
{
    WriteAll();
    const std::string bytes = BytesOf(SampleCube(7, 2, 12)).Text();
    Write(".Z3F", std::string_view(bytes).substr(0, 12 + 3 * 2 * 12 * 8 + 5));
    EXPECT_TRUE(Holds(Only("Z3F"), "要素 (7 のうち 3)")) << Only("Z3F");
}

TEST_F(ResultFaultsTest, ResultsOfAnotherAnalysisAreTold)
{
    WriteAll();
    Write(".Z3F", BytesOf(SampleCube(7, 3, 12)).Text());
    EXPECT_TRUE(Holds(Only("Z3F"), "要素 7・荷重 3・成分 12")) << Only("Z3F");
    EXPECT_EQ(FromCp932(ResultFaultLine(Results())), "注意: 結果ファイル Z3F が不完全です");
}

TEST(TableTitle, NamesEveryChoiceThatIsInForce)
{
    ResultSelection selection;
    selection.kind = ResultKind::Force;
    selection.load = "-(B-L:MY)";
    selection.girder = "G1";
    selection.station = NoneWord();
    const auto title = [&] { return FromCp932(TableTitle(selection)); };
    EXPECT_EQ(title(), "断面力　荷重: (B-L:MY)(相反応力考慮)　主桁: G1");
    selection.station = "G2-C"; // chosen before the girder; its rows stand in the table too
    EXPECT_EQ(title(), "断面力　荷重: (B-L:MY)(相反応力考慮)　主桁: G1　名称: G2-C");
    selection.station.clear(); // each name begins with nothing
    EXPECT_TRUE(title().ends_with("　名称: すべて")) << title();
    selection.girder = selection.station = NoneWord();
    EXPECT_TRUE(title().ends_with("　主桁: なし　名称: なし")) << title();
    selection.excludedNames = {"G1-S1", "G1-S2"};
    EXPECT_TRUE(title().ends_with("　出力しない名称: G1-S1, G1-S2")) << title();
    EXPECT_FALSE(FromCp932(ShortTableTitle(selection)).ends_with("G1-S2"));
    selection.excludedNames.resize(20, "G1-C1");
    EXPECT_TRUE(title().ends_with(" ほか 12 件")) << title();
}

TEST(FigureTitle, NamesWhatTheFigureDraws)
{
    const AnalysisModel model = SampleModel();
    ResultSelection selection;
    selection.kind = ResultKind::Displacement;
    selection.load = "D";
    selection.girder = "G2";
    selection.station = "G1-S1"; // the figure has none
    selection.figureItem = "Uz";
    const auto title = [&] { return FromCp932(FigureTitle(model, selection)); };
    EXPECT_EQ(title(), "変位 Uz [mm]　荷重: D　主桁: G2");
    selection.girder = NoneWord();
    EXPECT_EQ(title(), "変位 Uz [mm]　荷重: D　主桁: G1 (最初の主桁)");
    selection.girder = AllWord();
    EXPECT_EQ(title(), "変位　荷重: D　主桁: すべて　変形の倍率: 100");
    selection.kind = ResultKind::Reaction;
    selection.figureItem = "?";
    EXPECT_EQ(title(), "反力 Fz [kN]　荷重: D　主桁: G1 (最初の主桁)");
}

} // namespace sbd
