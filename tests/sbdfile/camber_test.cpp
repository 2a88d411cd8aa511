#include "sbdfile/camber.h"
#include "tests/sbdfile/sections.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>
#include <vector>

namespace sbd {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;
using Rows = std::vector<std::pair<std::string, std::string>>;

/// The rows that are written of these two columns.
Rows Cleaned(const Rows& rows)
{
    TableBlock table;
    table.columns.resize(2);
    for (const auto& [kind, load] : rows)
        table.AppendRow({Cp932(kind), Cp932(load)});
    const TableBlock cleaned = CleanedCamber(table);
    Rows result;
    for (std::size_t row = 0; row < cleaned.RowCount(); ++row)
        result.emplace_back(FromCp932(cleaned.columns[0][row]), FromCp932(cleaned.columns[1][row]));
    return result;
}

/// A load name as it is written.
std::string CleanedLoad(const std::string& load)
{
    const Rows rows = Cleaned({{"x", load}});
    return rows.empty() ? "(skipped)" : rows[0].second;
}

} // namespace

TEST(Camber, TheMarkGoesInAllItsSpellings)
{
    for (const char* arrow : {"-->", "→"})
        for (const char* opening : {"(", "（"})
            for (const char* closing : {")", "）"})
                for (const char* blank : {"", " ", "   "})
                    EXPECT_EQ(CleanedLoad(std::string("D1") + arrow + blank + opening + blank + "荷重名は無効" + blank
                                          + closing),
                              "D1")
                        << arrow << opening << closing << "'" << blank << "'";
}

TEST(Camber, TheMarkGoesWhereverItStandsAndHoweverOften)
{
    EXPECT_EQ(CleanedLoad("-->(荷重名は無効)D1"), "D1");
    EXPECT_EQ(CleanedLoad("D1-->(荷重名は無効)D2→（荷重名は無効）"), "D1D2");
    EXPECT_THAT(Cleaned({{"主桁→(荷重名は無効)", "D1"}}), ElementsAre(Pair("主桁", "D1"))) << "in the first column too";
}

TEST(Camber, WithoutArrowOrBracketsTheWordsStay)
{
    for (const char* text : {"D1(荷重名は無効)", "D1-->荷重名は無効", "D1->(荷重名は無効)", "D1-->(荷重名は無効",
                             "D1-->", "D1-->(荷重名は有効)", "D1--> (荷 重名は無効)"})
        EXPECT_EQ(CleanedLoad(text), text);
}

TEST(Camber, BlanksAroundWhatIsLeftAreTrimmed)
{
    EXPECT_EQ(CleanedLoad("  D1 -->(荷重名は無効) "), "D1");
}

TEST(Camber, ARowWithoutALoadNameIsSkipped)
{
    EXPECT_THAT(Cleaned({{"a", ""}, {"b", "?"}, {"c", "-->(荷重名は無効)"}, {"d", "?→(荷重名は無効)"}, {"e", "??"}}),
                ElementsAre(Pair("e", "??")));
    EXPECT_THAT(Cleaned({}), IsEmpty());
}

TEST(Camber, ARowWithoutAKindIsKept)
{
    EXPECT_THAT(Cleaned({{"→(荷重名は無効)", "D1"}}), ElementsAre(Pair("", "D1")));
}

TEST(Camber, OtherCharactersKeepTheirBytes)
{
    TableBlock table;
    table.columns.resize(2);
    table.AppendRow({"\x85\xFF", "\x83\x5C--\x81"});
    const TableBlock cleaned = CleanedCamber(table);
    EXPECT_EQ(cleaned.columns[0][0], "\x85\xFF");
    EXPECT_EQ(cleaned.columns[1][0], "\x83\x5C--\x81");
}

TEST(Camber, TheDocumentKeepsTheMarks)
{
    const char* const text = "[CAMBER]\n  主桁 D1-->(荷重名は無効)\n[END]\n";
    const CSbdData data = Load(text);
    static_cast<void>(WriteProject(data));
    EXPECT_TRUE(data.SameProject(Load(text)));
    EXPECT_EQ(RowText(data, 259, 0), "主桁|D1-->(荷重名は無効)");
}

} // namespace sbd
