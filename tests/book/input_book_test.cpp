// The blocks of a book, and the book as a spreadsheet.
#include "book/book_sheets.h"
#include "book/difference_report.h"
#include "compare/difference_text.h"
#include "panelmodel/panel_model.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "sheets/zip_parts.h"
#include "tests/surroundings.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>

namespace sbd {

namespace {

using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

CSbdData Plate4()
{
    const std::filesystem::path path = std::filesystem::path(test::ExamplesFolder()) / "plate4" / "plate4.sbd";
    CSbdData data;
    EXPECT_TRUE(LoadProject(path, NamesFileBeside(path), data).Ok());
    return data;
}

class InputBook : public testing::Test {
protected:
    InputBook() : folder_(std::filesystem::temp_directory_path() / ("book-" + std::to_string(std::random_device()())))
    {
        std::filesystem::create_directory(folder_);
    }
    ~InputBook() override { std::filesystem::remove_all(folder_); }

    [[nodiscard]] std::filesystem::path At(const char* name) const { return folder_ / name; }
    [[nodiscard]] static std::map<std::string, std::string> Parts(const std::filesystem::path& path)
    {
        std::string bytes;
        EXPECT_TRUE(ReadFileBytes(path, bytes).Ok());
        std::map<std::string, std::string> parts;
        EXPECT_TRUE(
            ReadZipParts(bytes, [&](const std::string& name, const std::string& content) { parts[name] = content; }));
        return parts;
    }

private:
    std::filesystem::path folder_;
};

std::size_t CountOf(const std::string& text, std::string_view what)
{
    std::size_t count = 0;
    for (std::size_t at = text.find(what); at != std::string::npos; at = text.find(what, at + 1))
        ++count;
    return count;
}

} // namespace

TEST_F(InputBook, HoldsTheBlocksWithInputInTheOrderOfTheirNumbers)
{
    const CSbdData data = Plate4();
    const std::vector<int> filled = FilledBlocks(data);
    EXPECT_TRUE(std::ranges::is_sorted(filled));
    EXPECT_THAT(filled, Contains(301));
    EXPECT_THAT(filled, Contains(311));
    EXPECT_THAT(filled, Contains(313));
    EXPECT_THAT(filled, Not(Contains(253))) << "results are no input";
    EXPECT_THAT(filled, Not(Contains(324))) << "a plate girder bridge has no cross ribs";
    for (const int block : filled)
        EXPECT_FALSE(MakeBookBlock(data, block).rows.empty()) << block;
}

TEST_F(InputBook, HasNoTableOfAFreshProject)
{
    for (const int block : FilledBlocks(CSbdData()))
        EXPECT_EQ(CSbdData().Table(block), nullptr) << block;
}

TEST_F(InputBook, ShowsEveryCellAsThePanelDoes)
{
    const CSbdData data = Plate4();
    std::size_t cells = 0;
    for (const int block : FilledBlocks(data)) {
        const BookBlock shown = MakeBookBlock(data, block);
        const std::unique_ptr<CPanelModel> panel = MakePanelModel(data, block);
        ASSERT_TRUE(panel) << block;
        ASSERT_EQ(shown.rows.size(), static_cast<std::size_t>(panel->BlockRows())) << block;
        ASSERT_EQ(shown.columns.size(), static_cast<std::size_t>(panel->ColumnCount())) << block;
        for (int row = 1; row <= panel->BlockRows(); ++row)
            for (int column = 1; column < panel->ColumnCount(); ++column, ++cells)
                ASSERT_EQ(shown.rows[static_cast<std::size_t>(row - 1)][static_cast<std::size_t>(column)],
                          FromCp932(TrimRight(panel->Text(row, column))))
                    << block << " " << row << " " << column;
    }
    EXPECT_GT(cells, 10'000U);
}

TEST_F(InputBook, TheColumnsThatNameTheRowAreThoseOfGirdersAndBeams)
{
    const CSbdData data = Plate4();
    EXPECT_EQ(MakeBookBlock(data, 313).nameColumns, 5U); // row number, girders and cross beams from and to
    EXPECT_EQ(MakeBookBlock(data, 301).nameColumns, 2U);
}

TEST_F(InputBook, OnlyBlocksThatChangedAreThoseThatDiffer)
{
    const CSbdData before = Plate4();
    CSbdData now = before;
    EXPECT_THAT(ChangedBlocks(before, now), IsEmpty());
    now.SetOption(301, 0, "X");
    now.Table(313)->columns[5].Set(1, "999");
    EXPECT_THAT(ChangedBlocks(before, now), ElementsAre(301, 313));
}

TEST_F(InputBook, AListOfBlocksIsReadWithItsRanges)
{
    EXPECT_THAT(ReadBlockList("301,313 315-317").value(), ElementsAre(301, 313, 315, 316, 317));
    EXPECT_THAT(ReadBlockList("").value(), IsEmpty());
    for (const char* wrong : {"x", "301-", "-5", "3 1x", "1000", "1-99999999"})
        EXPECT_FALSE(ReadBlockList(wrong)) << wrong;
    EXPECT_THAT(BookBlocks({313, 406, 313, 301, 999}), ElementsAre(301, 313, 713)) << "by the number of their data";
}

TEST_F(InputBook, TheSpreadsheetHasASheetABlockWithNumbersThatAreNumbers)
{
    const CSbdData data = Plate4();
    BookFacts facts =
        FactsOf(data, {}, std::filesystem::path(test::ExamplesFolder()) / "plate4" / "plate4.sbd", "KELD section 9");
    const std::optional<FileResult> result = WriteBookSheets(At("a.xlsx"), data, {301, 313}, facts);
    ASSERT_TRUE(result && result->Ok());
    auto parts = Parts(At("a.xlsx"));
    const std::string& book = parts["xl/workbook.xml"];
    EXPECT_EQ(CountOf(book, "<sheet "), 3U);
    EXPECT_THAT(book, HasSubstr("name=\"表紙\""));
    EXPECT_THAT(book, HasSubstr("name=\"" + NumberAndTitle(313) + "\""));
    const std::string& sheet = parts["xl/worksheets/sheet3.xml"];
    EXPECT_THAT(sheet, HasSubstr("ySplit=\"2\"")) << "heads do not stay";
    EXPECT_THAT(sheet, HasSubstr("xSplit=\"5\"")) << "names do not stay";
    const BookBlock block = MakeBookBlock(data, 313);
    std::size_t numbers = 0;
    for (const auto& row : block.rows)
        for (const std::string& cell : row)
            numbers += !cell.empty() && cell.find_first_not_of("0123456789.") == std::string::npos ? 1U : 0U;
    EXPECT_GT(numbers, 50U);
    EXPECT_GE(CountOf(sheet, "\"><v>"), numbers); // texts have t="s" and are counted as well
    EXPECT_THAT(parts["xl/sharedStrings.xml"], Not(HasSubstr("<t>130</t>"))) << "a number is kept as a text";
    EXPECT_THAT(parts["xl/sharedStrings.xml"], HasSubstr("<t>plate4</t>"));
    EXPECT_THAT(parts["xl/worksheets/sheet1.xml"], HasSubstr("<hyperlink ")) << "contents do not lead to the sheets";
}

TEST_F(InputBook, NoTextOfASheetEndsAtTheNextCell)
{
    CSbdData data = Plate4();
    data.Table(313)->columns[8].Set(1, std::string(100, 'x'));
    ASSERT_TRUE(WriteBookSheets(At("a.xlsx"), data, {301, 313}, {})->Ok());
    auto parts = Parts(At("a.xlsx"));
    const auto widthOf = [&](const std::string& sheet, const std::string& column) {
        const std::string& text = parts["xl/worksheets/" + sheet];
        const std::size_t at = text.find("<col min=\"" + column + "\"");
        const std::size_t width = text.find("width=\"", at);
        return at == std::string::npos ? 0 : std::atof(text.c_str() + width + 7);
    };
    const BookBlock options = MakeBookBlock(data, 301);
    std::size_t longest = 0; // an item of Japanese and Latin characters; two bytes each is less than it takes
    for (const auto& row : options.rows)
        longest = std::max(longest, Cp932(row[1]).size());
    EXPECT_GT(longest, 60U);
    EXPECT_GT(widthOf("sheet2.xml", "2"), double(longest)) << "the items of 301 are cut";
    const std::string& table = parts["xl/worksheets/sheet3.xml"];
    EXPECT_THAT(table, HasSubstr("r=\"2\" spans=\"1:10\" ht=\"30\"")) << "heads of two lines are cut";
    EXPECT_THAT(table, HasSubstr("ht=\"45\"")) << "a long text does not go on in the next line";
    EXPECT_THAT(parts["xl/worksheets/sheet1.xml"], HasSubstr("fitToHeight=\"0\""))
        << "the contents fill sheets side by side";
}

TEST_F(InputBook, GivingUpWritesNoFile)
{
    const CSbdData data = Plate4();
    int asked = 0;
    const auto progress = [&](int, int of) {
        EXPECT_EQ(of, 3);
        return ++asked < 2;
    };
    EXPECT_FALSE(WriteBookSheets(At("a.xlsx"), data, {301, 302, 313}, {}, progress));
    EXPECT_FALSE(std::filesystem::exists(At("a.xlsx")));
    EXPECT_EQ(asked, 2);
}

TEST_F(InputBook, AReportOfDifferencesNamesBlockRowAndBothTexts)
{
    const CSbdData before = Plate4();
    CSbdData now = before;
    now.SetOption(301, 0, "NEW");
    now.Table(313)->columns[5].Set(1, "999");
    const std::vector<Difference> differences = CompareProjects(before, now);
    const ReportSides sides{"plate4", "ファイル", "画面", "2026/11/22 09:00"};
    const std::string text = DifferenceReport(sides, differences);
    EXPECT_THAT(text, HasSubstr("違い: 2 か所 (2 ブロック)\n"));
    EXPECT_THAT(text, HasSubstr("\n[" + NumberAndTitle(313) + "]\n  "));
    EXPECT_THAT(text, HasSubstr("→「999」\n"));
    EXPECT_THAT(DifferenceReport(sides, {}), HasSubstr("違い: ありません"));

    ASSERT_TRUE(WriteDifferenceSheets(At("d.xlsx"), sides, differences).Ok());
    auto parts = Parts(At("d.xlsx"));
    EXPECT_THAT(parts["xl/worksheets/sheet1.xml"], HasSubstr("<v>999</v>"));
    EXPECT_THAT(parts["xl/sharedStrings.xml"], HasSubstr("<t>NEW</t>"));
}

} // namespace sbd
