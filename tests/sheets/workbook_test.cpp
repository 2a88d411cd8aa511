// What a spreadsheet file holds, read from its parts.
#include "sheets/workbook.h"
#include "sheets/zip_parts.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <clocale>
#include <cstdlib>
#include <map>
#include <random>
#include <thread>

#ifndef _WIN32
#include <csignal>
#include <sys/resource.h>
#endif

namespace sbd {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

/// A folder that goes with the test.
class Folder {
public:
    Folder() : path_(std::filesystem::temp_directory_path() / ("sheets-" + std::to_string(std::random_device()())))
    {
        std::filesystem::create_directory(path_);
    }
    ~Folder() { std::filesystem::remove_all(path_); }
    Folder(const Folder&) = delete;
    Folder& operator=(const Folder&) = delete;
    [[nodiscard]] std::filesystem::path operator/(const char8_t* name) const { return path_ / name; }
    [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
};

std::map<std::string, std::string> PartsOf(const std::filesystem::path& path)
{
    std::string bytes;
    EXPECT_TRUE(ReadFileBytes(path, bytes).Ok());
    std::map<std::string, std::string> parts;
    EXPECT_TRUE(
        ReadZipParts(bytes, [&](const std::string& name, const std::string& content) { parts[name] = content; }));
    return parts;
}

} // namespace

TEST(Workbook, TextsStayTextsAndNumbersNumbersWithTheDigitsThatWereTyped)
{
    const Folder folder;
    CWorkbook book("四主桁橋", "KELD section 0.1");
    EXPECT_EQ(book.AddSheet("313 垂直補剛材"), "313 垂直補剛材");
    book.SetText(0, 0, "主桁始", HeadLook());
    book.SetText(1, 0, "G1");
    book.SetText(2, 0, "=1+1");
    book.SetText(3, 0, "0130");
    book.SetValue(1, 1, "130");
    book.SetValue(2, 1, "1.50");
    book.SetValue(3, 1, "-0.25");
    book.SetValue(4, 1, "等間隔");
    book.SetValue(5, 1, "");
    ASSERT_TRUE(book.Save(folder / u8"帳票.xlsx").Ok());

    auto parts = PartsOf(folder / u8"帳票.xlsx");
    const std::string& sheet = parts["xl/worksheets/sheet1.xml"];
    EXPECT_THAT(sheet, HasSubstr(R"(<c r="A3" t="s">)")) << "a text that begins with = became something else";
    EXPECT_THAT(sheet, HasSubstr(R"(<c r="A4" t="s">)")) << "a text of digits lost its zero";
    EXPECT_THAT(sheet, Not(HasSubstr("<f>")));
    EXPECT_THAT(sheet, HasSubstr(R"(<c r="B2" s="2"><v>130</v>)"));
    EXPECT_THAT(sheet, HasSubstr(R"(<c r="B3" s="3"><v>1.5</v>)"));
    EXPECT_THAT(sheet, HasSubstr(R"(<c r="B4" s="3"><v>-0.25</v>)"));
    EXPECT_THAT(sheet, HasSubstr(R"(<c r="B5" t="s">)"));
    EXPECT_THAT(sheet, Not(HasSubstr(R"(r="B6")")));
    EXPECT_THAT(parts["xl/styles.xml"], HasSubstr("formatCode=\"0.00\"")) << "1.50 shows as something else than 0.00";
    EXPECT_THAT(parts["xl/sharedStrings.xml"], HasSubstr("<t>等間隔</t>"));
    EXPECT_THAT(parts["xl/sharedStrings.xml"], HasSubstr("<t>0130</t>"));
    EXPECT_THAT(parts["xl/workbook.xml"], HasSubstr("name=\"313 垂直補剛材\""));
    EXPECT_THAT(parts["docProps/core.xml"], HasSubstr("四主桁橋"));
}

TEST(Workbook, HeadsStayAndLinksLeadToTheirSheet)
{
    const Folder folder;
    CWorkbook book;
    const std::string contents = book.AddSheet("目次");
    const std::string sheet = book.AddSheet("it's");
    book.SetText(0, 0, "x", HeadLook());
    book.SetWidth(0, 12);
    book.Freeze(1, 2);
    book.SetLandscape();
    book.AddSheet("links");
    book.SetLink(0, 0, sheet, "開く");
    ASSERT_TRUE(book.Save(folder / u8"a.xlsx").Ok());

    auto parts = PartsOf(folder / u8"a.xlsx");
    EXPECT_THAT(parts["xl/worksheets/sheet2.xml"], HasSubstr(R"(<pane xSplit="2" ySplit="1" topLeftCell="C2")"));
    EXPECT_THAT(parts["xl/worksheets/sheet2.xml"], HasSubstr("orientation=\"landscape\""));
    EXPECT_THAT(parts["xl/worksheets/sheet2.xml"], HasSubstr("<col min=\"1\" max=\"1\""));
    EXPECT_THAT(parts["xl/worksheets/sheet3.xml"], HasSubstr("location=\"'it''s'!A1\""));
    EXPECT_THAT(parts["xl/styles.xml"], HasSubstr("<b/>"));
    EXPECT_EQ(contents, "目次");
}

TEST(Workbook, RowsAreAsHighAsTheLinesInThem)
{
    const Folder folder;
    CWorkbook book;
    book.AddSheet("a");
    book.SetText(0, 0, "幅1\n(mm)", HeadLook());
    book.SetText(0, 1, "材質", HeadLook()); // does not make it lower again
    book.SetText(1, 0, "x\ny");             // as a spreadsheet shows it: in one line
    book.SetText(2, 0, "z");
    book.SetLines(2, 3);
    book.SetLines(3, 1000);
    book.AddSheet("b");
    book.SetText(0, 0, "材質", HeadLook());
    book.SetPortrait();
    ASSERT_TRUE(book.Save(folder / u8"a.xlsx").Ok());
    auto parts = PartsOf(folder / u8"a.xlsx");
    const std::string& sheet = parts["xl/worksheets/sheet1.xml"];
    EXPECT_THAT(sheet, HasSubstr(R"(<row r="1" spans="1:2" ht="30" customHeight="1">)")) << "heads are cut";
    EXPECT_THAT(sheet, HasSubstr(R"(<row r="2" spans="1:2">)"));
    EXPECT_THAT(sheet, HasSubstr(R"(<row r="3" spans="1:2" ht="45" customHeight="1">)"));
    EXPECT_THAT(sheet, HasSubstr("ht=\"409\"")) << "no spreadsheet has higher rows";
    EXPECT_THAT(parts["xl/worksheets/sheet2.xml"], Not(HasSubstr("customHeight")));
    EXPECT_THAT(parts["xl/worksheets/sheet2.xml"], HasSubstr("fitToHeight=\"0\""));
}

TEST(Workbook, NamesOfSheetsAreWhatSpreadsheetsTake)
{
    CWorkbook book;
    EXPECT_EQ(book.AddSheet("a/b[c]:*?\\#d"), "a_b_c______d");
    EXPECT_EQ(book.AddSheet("'名'"), "_名_");
    EXPECT_EQ(book.AddSheet(""), "Sheet");
    EXPECT_EQ(book.AddSheet("sheet"), "sheet (2)");
    std::string longName;
    for (int i = 0; i < 40; ++i)
        longName += "桁";
    const std::string cut = book.AddSheet(longName);
    EXPECT_EQ(cut.size(), 31U * 3U);
    EXPECT_EQ(book.AddSheet(longName).size(), 27U * 3U + 4U);
}

TEST(Workbook, WhatIsNoTextDoesNotSpoilTheFile)
{
    const Folder folder;
    CWorkbook book;
    book.AddSheet("a");
    book.SetText(0, 0, "a\x01\x80 \xED\xA0\x80<&>\"\n次");
    book.SetText(1, 0, std::string(40000, 'x'));
    ASSERT_TRUE(book.Save(folder / u8"a.xlsx").Ok());
    auto parts = PartsOf(folder / u8"a.xlsx");
    EXPECT_THAT(parts["xl/sharedStrings.xml"], HasSubstr("a\uFFFD\uFFFD \uFFFD\uFFFD\uFFFD&lt;&amp;&gt;\"\n次"));
    EXPECT_THAT(parts["xl/sharedStrings.xml"], HasSubstr("<t>" + std::string(32767, 'x') + "</t>"));
}

TEST(Workbook, OnlyPlainNumbersAreNumbers)
{
    for (const std::string_view text : {"", "-", ".", "-.", "007", "1e3", "1,5", "+1", " 1", "1 ", "0x10", "-0", "-0.0",
                                        "1-2", "1234567890123456", "nan", "１"})
        EXPECT_FALSE(PlainNumberOf(text)) << text;
    const auto formatOf = [](std::string_view text) { return PlainNumberOf(text).value().format; };
    EXPECT_EQ(formatOf("0"), "0");
    EXPECT_EQ(formatOf("-12"), "0");
    EXPECT_EQ(formatOf("0.050"), "0.000");
    EXPECT_EQ(formatOf(".5"), "#.0");
    EXPECT_EQ(formatOf("5."), "0.");
    EXPECT_EQ(PlainNumberOf("-12.5").value().value, -12.5);
}

TEST(Workbook, AFileThatCannotBeWrittenIsSaidAndTheOldOneStays)
{
    const Folder folder;
    CWorkbook book;
    book.AddSheet("a");
    EXPECT_EQ(book.Save(folder.Path() / "none" / "a.xlsx").error, FileError::NotFound);
    CWorkbook onFolder;
    EXPECT_FALSE(onFolder.Save(folder.Path()).Ok());
}

TEST(Workbook, WhoGivesUpWhileItIsWrittenKeepsTheFileThatWasThere)
{
    const Folder folder;
    for (const int patience : {0, 1, 1'000'000}) {
        const auto path = folder / u8"a.xlsx";
        ASSERT_TRUE(ReplaceFileBytes(path, "before").Ok());
        CWorkbook book;
        book.AddSheet("a");
        for (std::uint32_t row = 0; row < 20'000; ++row) // some time is needed for it
            for (std::uint16_t column = 0; column < 10; ++column)
                book.SetNumber(row, column, row * 0.001 + column);
        int asked = 0;
        const std::thread::id own = std::this_thread::get_id();
        EXPECT_TRUE(book.Save(path,
                              [&] {
                                  EXPECT_EQ(std::this_thread::get_id(), own) << "windows belong to their thread";
                                  return asked++ < patience;
                              })
                        .Ok());
        std::string bytes;
        ASSERT_TRUE(ReadFileBytes(path, bytes).Ok());
        EXPECT_EQ(bytes == "before", patience < 1'000'000) << patience;
        EXPECT_GT(asked, patience < 2 ? patience : 1);
        if (patience > 1) {
            EXPECT_THAT(PartsOf(path)["xl/worksheets/sheet1.xml"], HasSubstr("r=\"J20000\""));
        }
    }
    const auto files = std::filesystem::directory_iterator(folder.Path());
    EXPECT_EQ(std::distance(begin(files), end(files)), 1);
}

TEST(Workbook, CutOffBytesAreNoZipFile)
{
    const Folder folder;
    CWorkbook book;
    book.AddSheet("a");
    for (std::uint32_t row = 0; row < 500; ++row)
        book.SetNumber(row, 0, row);
    ASSERT_TRUE(book.Save(folder / u8"a.xlsx").Ok());
    std::string bytes;
    ASSERT_TRUE(ReadFileBytes(folder / u8"a.xlsx", bytes).Ok());
    const auto nothing = [](const std::string&, const std::string&) {};
    ASSERT_TRUE(ReadZipParts(bytes, nothing));
    for (std::size_t size = 0; size < bytes.size(); size += 7)
        EXPECT_FALSE(ReadZipParts(std::string_view(bytes).substr(0, size), nothing)) << size;
    const unsigned seed = std::random_device()();
    std::mt19937 random(seed);
    for (int i = 0; i < 2000; ++i) { // no verdict asked for: the readers must not leave the bytes
        std::string broken = bytes;
        broken[random() % broken.size()] = static_cast<char>(random());
        static_cast<void>(ReadZipParts(broken, nothing));
    }
    RecordProperty("seed", std::to_string(seed));
}

#ifndef _WIN32
TEST(Workbook, AFullDiskIsSeenThoughTheLibraryDoesNotTell)
{
    const Folder folder;
    CWorkbook book;
    book.AddSheet("a");
    for (std::uint32_t row = 0; row < 20000; ++row)
        book.SetNumber(row, 0, row * 1.37);
    // No file of this process may be longer: the sheet on its way is cut off, the packed one would fit.
    rlimit before{};
    ASSERT_EQ(::getrlimit(RLIMIT_FSIZE, &before), 0);
    const auto handler = std::signal(SIGXFSZ, SIG_IGN);
    const rlimit small{400000, before.rlim_max};
    ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &small), 0);
    const FileResult result = book.Save(folder / u8"a.xlsx");
    ::setrlimit(RLIMIT_FSIZE, &before);
    std::signal(SIGXFSZ, handler);
    EXPECT_EQ(result.error, FileError::DiskFull) << result.detail;
    EXPECT_FALSE(std::filesystem::exists(folder / u8"a.xlsx"));
}
#endif

TEST(Workbook, TheUsersDecimalCommaDoesNotReachTheFile)
{
    const Folder folder;
    const std::string before = std::setlocale(LC_ALL, nullptr);
#ifndef _WIN32
    // Most machines have no such language ready; it is made where the C library's own tool is.
    const std::string made = folder.Path().string();
    if (std::system(("localedef -i de_DE -f UTF-8 " + made + "/de_DE.UTF-8 >/dev/null 2>&1").c_str()) == 0)
        ::setenv("LOCPATH", made.c_str(), 1);
#endif
    bool comma = false;
    for (const char* name : {"de_DE.UTF-8", "German_Germany.1252"})
        comma = comma || std::setlocale(LC_ALL, name) != nullptr;
    if (!comma)
        GTEST_SKIP() << "this machine has no language with a decimal comma";
    ASSERT_STREQ(std::localeconv()->decimal_point, ",");
    CWorkbook book;
    book.AddSheet("a");
    book.SetNumber(0, 0, 1.5);
    const bool saved = book.Save(folder / u8"a.xlsx").Ok();
    std::setlocale(LC_ALL, before.c_str());
#ifndef _WIN32
    ::unsetenv("LOCPATH");
#endif
    ASSERT_TRUE(saved);
    EXPECT_THAT(PartsOf(folder / u8"a.xlsx")["xl/worksheets/sheet1.xml"], HasSubstr("<v>1.5</v>"));
}

} // namespace sbd
