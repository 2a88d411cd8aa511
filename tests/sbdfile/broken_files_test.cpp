// Files that are no project, or were one. None is refused, none takes long, and each is at rest after a few turns of
// loading and saving: what is written reads back the same.
#include "project/block_rules.h"
#include "project/catalogue.h"
#include "project/option_rows.h"
#include "sbdfile/layout.h"
#include "tests/sbdfile/sections.h"
#include "tests/seed.h"

#include <gtest/gtest.h>

#include <ctime>
#include <functional>
#include <ostream>
#include <string>
#include <vector>

namespace sbd {

namespace {

constexpr int kMostTurns = 3;
constexpr double kMostSeconds = 20; // of the processor for all turns together, on a slow machine with sanitizers

std::string Repeated(std::string_view text, std::size_t count)
{
    std::string result;
    result.reserve(text.size() * count);
    for (std::size_t i = 0; i < count; ++i)
        result += text;
    return result;
}

std::string Turn(std::string_view bytes)
{
    CSbdData data = LoadBytes(bytes);
    return WriteProject(data);
}

/// What the file is like after the turns after which it has to be at rest, and after one more.
void ExpectRest(std::string bytes)
{
    for (int turn = 0; turn < kMostTurns; ++turn)
        bytes = Turn(bytes);
    EXPECT_EQ(FirstDifference(bytes, Turn(bytes)), "");
}

/// A section of every block with a row each, written as one text.
std::string EverySection(std::string_view row)
{
    std::string bytes;
    for (const CatalogueRow& block : Catalogue())
        if (!block.tag.empty())
            bytes += "[" + std::string(block.tag) + "]\r\n" + std::string(row) + "\r\n[END]\r\n";
    return bytes;
}

struct BrokenFile {
    const char* name;
    std::function<std::string()> bytes;
};

std::ostream& operator<<(std::ostream& out, const BrokenFile& file)
{
    return out << file.name;
}

class BrokenFiles : public testing::TestWithParam<BrokenFile> {};

const BrokenFile kFiles[] = {
    {"one_bracket", [] { return std::string("["); }},
    {"one_end_mark", [] { return std::string("[E"); }},
    {"one_lead_byte", [] { return std::string("\x81"); }},
    {"one_line_end", [] { return std::string("\n"); }},
    {"title_keyword_alone", [] { return std::string("TITLE:"); }},
    {"brackets_only", [] { return Repeated("[]\r\n", 50000); }},
    {"open_brackets_only", [] { return std::string(1000000, '['); }},
    {"end_lines_only", [] { return Repeated("[END]\r\n", 50000); }},
    {"empty_lines_only", [] { return Repeated("\r\n", 500000); }},
    {"carriage_returns_only", [] { return std::string(100000, '\r'); }},
    {"zero_bytes_only", [] { return std::string(1000000, '\0'); }},
    {"zero_bytes_in_every_section", [] { return EverySection(std::string_view("\0 G\0 1\0", 7)); }},
    {"ff_bytes_in_every_section", [] { return EverySection("\xFF \xFE\xFD \x80 \xA0"); }},
    {"lead_byte_at_every_line_end", [] { return EverySection("a\x81 b\x83 c\xE0 d\xFC e\x81"); }},
    {"lead_byte_ahead_of_every_divider", [] { return EverySection("a\x81\tb\x81,c\x81  d\x81"); }},
    {"control_characters_in_every_section", [] { return EverySection("\x01 \x0B \x0C a\x0B\x0C b\x1A \x7F"); }},
    {"no_section_has_an_end",
     [] {
         std::string bytes;
         for (const CatalogueRow& block : Catalogue())
             bytes = "[" + std::string(block.tag) + "]\r\n  a b\r\n" + bytes;
         return bytes;
     }},
    {"cut_in_the_middle_of_a_line", [] { return EverySection("a b c d e f g").substr(0, 9999); }},
    {"every_section_empty", [] { return EverySection(""); }},
    {"every_section_twice", [] { return EverySection("a b c") + EverySection("d e f"); }},
    {"a_header_inside_every_section", [] { return EverySection("[SEC_CONTROL] 301"); }},
    {"ten_thousand_sections", [] { return Repeated("[SEC_S_STIFF]\r\n G1 G2\r\n[END]\r\n", 10000); }},
    {"ten_thousand_unknown_sections", [] { return Repeated("[NO_SUCH_BLOCK]\r\n G1 G2\r\n[END]\r\n", 10000); }},
    {"ten_thousand_option_sections", [] { return Repeated("[SEC_CONTROL]\r\n RESET x NO\r\n[END]\r\n", 10000); }},
    {"ten_thousand_head_row_sections", [] { return Repeated("[CBD_GIRDER_H]\r\n G1 G2\r\n[END]\r\n", 10000); }},
    {"a_line_of_a_megabyte", [] { return EverySection("G1 ").substr(0, 5000) + std::string(1 << 20, 'x'); }},
    {"a_megabyte_of_words_in_one_row", [] { return "[SEC_V_STIFF]\r\n" + Repeated("w ", 1 << 19) + "\r\n[END]\r\n"; }},
    {"a_megabyte_of_commas", [] { return "[SEC_V_STIFF]\r\n" + std::string(1 << 20, ',') + "1\r\n[END]\r\n"; }},
    {"a_megabyte_as_an_option_value",
     [] { return "[SEC_CONTROL]\r\n RESET x " + std::string(1 << 20, 'v') + "\r\n[END]\r\n"; }},
    {"a_megabyte_as_the_title", [] { return "TITLE:" + std::string(1 << 20, 't'); }},
    {"a_switch_of_a_hundred_thousand_words",
     [] {
         const std::string words = Repeated(" w", 100000);
         return "[SEC_CONTROL]\r\n AUTOMATIC_V_STIFF x" + words + "\r\n[END]\r\n[SEC_V_STIFF]\r\n" + FileOf(" 自動")
                + words + "\r\n G1\r\n[END]\r\n";
     }},
    {"counts_of_two_milliards",
     [] {
         return FileOf("[SEC_CROSS_RIB]\n G1 G2 A1 A2 U 1 2 3 4 2000000000 1.5\n[END]\n"
                       "[SEC_CROSS_RIB]\n G1 G2 A1 A2 U 1 2 3 4 2000000000 等間隔 等間隔 1\n[END]\n"
                       "[SEC_NUMBER_L_RIB]\n G1 G2 A1 U 0 2000000000 2000000000 5 6\n[END]\n"
                       "[CBD_GRID]\n 主桁 2000000000 G1\n 横桁(対傾構) 2000000000\n[END]\n"
                       "[2BD_GRID]\n 主桁 2000000000 G1\n 箱桁 2000000000 B1\n[END]\n");
     }},
    {"counts_of_two_milliards_on_every_line",
     [] {
         return "[SEC_CROSS_RIB]\r\n" + Repeated(" a b c d e 1 2 3 4 2000000000 1\r\n", 10000)
                + "[END]\r\n[SEC_NUMBER_L_RIB]\r\n" + Repeated(" a b c d e 2000000000 2000000000\r\n", 10000)
                + "[END]\r\n";
     }},
    {"counts_below_zero",
     [] {
         return FileOf(
             "[SEC_CROSS_RIB]\n G1 G2 A1 A2 U 1 2 3 4 -2147483648 1.5\n[END]\n"
             "[SEC_NUMBER_L_RIB]\n G1 G2 A1 U 0 -99999999999 -1 5 6\n[END]\n[CBD_GRID]\n 主桁 -5 G1\n[END]\n");
     }},
    {"numbers_out_of_range",
     [] {
         return "[SEC_H_GIRDER]\r\n Z_U x\r\n a b c d 1e999 -1e999 1e-999 " + std::string(1000, '9') + " 0."
                + std::string(1000, '0')
                + "1 1e308 -1e308\r\n[END]\r\n[SEC_CROSS_RIB]\r\n a b c d e 1e308 -1e308 1e39 1e40 2 "
                  "1e300 1 1e38 -0 1e41 1 1e41 2\r\n[END]\r\n[SEC_NUMBER_L_RIB]\r\n a b c d e 2 1 1e308 -1e-9 "
                  "-0\r\n[END]\r\n";
     }},
    {"words_for_numbers",
     [] {
         return EverySection(FileOf("主桁 横桁 等間隔 基準線 nan inf 0x10 1e 1,5 - + . 等間隔等間隔 基準線"))
             .substr(0, 40000);
     }},
    {"nothing_but_headings_of_names",
     [] {
         return FileOf("[CBD_GRID]\n")
                + Repeated(FileOf(" 主桁 主桁 主桁\n 主桁 9 ライン\n ライン 9\n 自動取得\n"), 5000) + "[END]\r\n";
     }},
    {"head_row_replaced_again_and_again",
     [] {
         std::string bytes = "[CBD_GIRDER_H]\r\n" + Repeated(" a\r\n", 50000);
         for (std::size_t i = 0; i < 2000; ++i)
             bytes += FileOf(" 自動 ") + std::string(i % 2 == 0 ? 4000 : 1, 'v') + "\r\n";
         return bytes;
     }},
    {"names_that_are_all_alike",
     [] { return FileOf("[CBD_GRID]\n 横桁(対傾構) 200000\n") + Repeated(" C1_1 C1_2 C1_3\r\n", 60000); }},
    {"camber_of_arrows", [] { return FileOf("[CAMBER]\n x " + Repeated("-->(→（ ", 50000)) + "\r\n[END]\r\n"; }},
    {"placeholders_everywhere", [] { return EverySection("<?> <?> <?> <?> <?> <?>") + "TITLE:<?>\r\n"; }},
    {"a_picture", // begins as a file of another kind does
     [] {
         std::string bytes = "\x89PNG\r\n\x1A\n";
         std::mt19937 random(1);
         for (int i = 0; i < 200000; ++i)
             bytes.push_back(static_cast<char>(random() & 0xFF));
         return bytes;
     }},
    {"text_in_two_bytes_a_character",
     [] {
         std::string bytes = "\xFF\xFE";
         for (const char c : EverySection("a b c").substr(0, 5000))
             bytes += {c, '\0'};
         return bytes;
     }},
    {"text_in_utf8_with_mark",
     [] { return "\xEF\xBB\xBFTITLE:A\r\n[SEC_BOX_WEB]\r\n  主桁 左腹板 右腹板\r\n[END]\r\n"; }},
};

} // namespace

TEST_P(BrokenFiles, LoadQuicklyAndComeToRest)
{
    const std::string bytes = GetParam().bytes();
    const std::clock_t begin = std::clock();
    ExpectRest(bytes);
    EXPECT_LT(static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC, kMostSeconds);
}

TEST_P(BrokenFiles, KeepEveryTableRectangular)
{
    const CSbdData data = LoadBytes(GetParam().bytes());
    for (const CatalogueRow& row : Catalogue()) {
        if (const TableBlock* table = data.Table(row.block)) {
            for (const CColumnVector& column : table->columns)
                ASSERT_EQ(column.size(), table->RowCount()) << row.block;
        }
    }
    for (const OptionBlock& block : OptionBlocks())
        EXPECT_EQ(data.Options(block.block)->size(), block.rows.size()) << block.block;
}

INSTANTIATE_TEST_SUITE_P(Files, BrokenFiles, testing::ValuesIn(kFiles),
                         [](const testing::TestParamInfo<BrokenFile>& file) { return std::string(file.param.name); });

// --- files made at random ----------------------------------------------------------------------

class RandomFiles : public RandomTest {
protected:
    RandomFiles()
    {
        for (const CatalogueRow& block : Catalogue())
            for (const std::string_view prefix : block.prefixes)
                if (!prefix.empty())
                    headers_.push_back(std::string(prefix) + (prefix.ends_with(']') ? "" : "]"));
        for (const OptionBlock& block : OptionBlocks())
            for (const OptionRow& row : block.rows)
                words_.push_back(row.keyword);
        for (const CatalogueRow& block : Catalogue()) {
            for (const HeadRow& head : HeadRowsOf(block.block))
                words_.push_back(head.word);
        }
        for (const int block : {501, 702})
            for (const std::string& heading : NameHeadings(block))
                words_.push_back(heading);
        for (const char* word : {"自動計算(YES_NO)",
                                 "自動取得(YES_NO)",
                                 "自動",
                                 "手動",
                                 "YES",
                                 "NO",
                                 "Y",
                                 "G1",
                                 "A1",
                                 "C1_1",
                                 "内面",
                                 "中心",
                                 "等間隔",
                                 "基準線",
                                 "0",
                                 "1",
                                 "2",
                                 "3",
                                 "7",
                                 "1.5",
                                 "-0.25",
                                 "300",
                                 "1e40",
                                 "YES, 3",
                                 "T_U_FLG_TYPE",
                                 "Z_U",
                                 "Z_L_FLG_TYPE",
                                 "直線",
                                 "桁高に含まない",
                                 "-->(荷重名は無効)",
                                 "→",
                                 "?",
                                 "!",
                                 "[X]",
                                 "TITLE:TE",
                                 "NEW_VERSION_1",
                                 "DZ_TYPE",
                                 "INPUT_METHOD",
                                 "MAX_LENGTH_S",
                                 "YES_MAIN_LOAD",
                                 "主荷重",
                                 "<?>",
                                 "表",
                                 "ポ",
                                 "　",
                                 "，",
                                 ",",
                                 "、",
                                 "\t",
                                 "",
                                 "ソ"})
            words_.push_back(Cp932(word));
    }

    template <typename List>
    const auto& Any(const List& list)
    {
        return list[UpTo(list.size() - 1)];
    }

    std::string AnyLine()
    {
        std::string line;
        for (std::size_t words = UpTo(UpTo(3) == 0 ? 25 : 8); words > 0; --words) {
            line += UpTo(30) == 0 ? std::string(1, static_cast<char>(UpTo(255))) : Any(words_);
            line += UpTo(20) == 0 ? "" : std::string(1 + UpTo(2), ' ');
        }
        return line + (UpTo(50) == 0 ? "\n" : "\r\n");
    }

    std::string AnyFile()
    {
        std::string bytes;
        for (std::size_t sections = UpTo(40); sections > 0; --sections) {
            bytes += UpTo(20) == 0 ? "[UNKNOWN" + std::to_string(UpTo(9)) + "]" : Any(headers_);
            bytes += "\r\n";
            for (std::size_t lines = UpTo(8); lines > 0; --lines)
                bytes += AnyLine();
            if (UpTo(15) > 0)
                bytes += "[END]\r\n";
        }
        return bytes;
    }

private:
    std::vector<std::string> headers_;
    std::vector<std::string> words_;
};

TEST_F(RandomFiles, OfHeadersKeywordsAndValuesComeToRest)
{
    for (int i = 0; i < 300; ++i)
        ExpectRest(AnyFile());
}

TEST_F(RandomFiles, BytesAtRandomAreReadAndWritten)
{
    for (int i = 0; i < 200; ++i) {
        std::string bytes;
        for (std::size_t size = UpTo(400); size > 0; --size)
            bytes.push_back(static_cast<char>(UpTo(5) == 0 ? UpTo(255) : " \t\r\n[],!E"[UpTo(8)]));
        ExpectRest(bytes);
    }
}

TEST_F(RandomFiles, AFileCutAnywhereIsReadAndWritten)
{
    CSbdData data = LoadBytes(EverySection("a b c d e f g"));
    const std::string whole = WriteProject(data);
    for (int i = 0; i < 100; ++i)
        ExpectRest(whole.substr(0, UpTo(whole.size())));
}

TEST_F(RandomFiles, AFileWithOneByteChangedIsReadAndWritten)
{
    CSbdData data = LoadBytes(EverySection("a b c d e f g"));
    const std::string whole = WriteProject(data);
    for (int i = 0; i < 100; ++i) {
        std::string changed = whole;
        changed[UpTo(whole.size() - 1)] = static_cast<char>(UpTo(255));
        ExpectRest(changed);
    }
}

} // namespace sbd
