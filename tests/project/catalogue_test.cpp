#include "project/catalogue.h"
#include "project/text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <set>
#include <string>
#include <vector>

namespace sbd {

namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Not;
using testing::Pair;

std::string LowerCase(std::string_view text)
{
    std::string lower(text);
    for (char& c : lower)
        if (c >= 'A' && c <= 'Z')
            c = static_cast<char>(c - 'A' + 'a');
    return lower;
}

} // namespace

TEST(Catalogue, ItsRowsStandInOrderOfNumber)
{
    EXPECT_EQ(Catalogue().front().block, 253);
    EXPECT_EQ(Catalogue().back().block, 999);
    EXPECT_EQ(std::ranges::adjacent_find(Catalogue(), std::ranges::greater_equal(), &CatalogueRow::block),
              Catalogue().end());
}

TEST(Catalogue, ABlockHasATagAndPrefixesExactlyIfItHasASection)
{
    for (const CatalogueRow& row : Catalogue()) {
        const bool section = row.kind != BlockKind::None;
        EXPECT_EQ(!row.tag.empty(), section) << row.block;
        EXPECT_EQ(!row.prefixes[0].empty(), section) << row.block;
        EXPECT_EQ(!row.prefixes[1].empty(), section) << row.block;
        EXPECT_EQ(row.prefixes[2].empty(), row.prefixes[3].empty()) << row.block;
    }
}

TEST(Catalogue, ColumnsBelongToTableBlocksButForTheRecordsAndNameListsOf311And324And325And501)
{
    std::vector<int> without;
    for (const CatalogueRow& row : Catalogue()) {
        const bool table = row.kind == BlockKind::Table || row.kind == BlockKind::OwnTable;
        if (table && row.columns == 0)
            without.push_back(row.block);
        EXPECT_TRUE(table || row.columns == 0) << row.block;
    }
    EXPECT_THAT(without, ElementsAre(311, 324, 325, 501));
}

TEST(Catalogue, TagsAreUnique)
{
    std::set<std::string_view> tags;
    for (const CatalogueRow& row : Catalogue())
        if (!row.tag.empty()) {
            EXPECT_TRUE(tags.insert(row.tag).second) << row.block;
        }
}

TEST(Catalogue, TheFirstPrefixIsTheBeginningOfTheHeader)
{
    for (const CatalogueRow& row : Catalogue()) {
        if (row.tag.empty())
            continue;
        // 309 is tested by its old name first.
        const std::string_view prefix = row.block == 309 ? row.prefixes[2] : row.prefixes[0];
        EXPECT_TRUE(("[" + std::string(row.tag) + "]").starts_with(prefix)) << row.block << " " << prefix;
    }
}

TEST(Catalogue, NoPrefixOpensTheHeaderOfAnotherBlock)
{
    for (const CatalogueRow& row : Catalogue())
        for (const CatalogueRow& other : Catalogue())
            for (const std::string_view prefix : row.prefixes)
                if (&row != &other && !prefix.empty() && !other.tag.empty()) {
                    EXPECT_FALSE(("[" + std::string(other.tag) + "]").starts_with(prefix))
                        << prefix << " " << other.block;
                }
}

TEST(Catalogue, TheLowerCasePrefixDiffersInNineBlocksByMoreThanItsCase)
{
    std::map<int, std::string> odd;
    for (const CatalogueRow& row : Catalogue())
        for (const std::size_t upper : {0U, 2U})
            if (row.prefixes[upper + 1] != LowerCase(row.prefixes[upper]))
                odd[row.block] = row.prefixes[upper + 1];
    EXPECT_THAT(odd,
                ElementsAre(Pair(316, "[sec_name_h_sway"), Pair(483, "[cbd_sheet_LAT"), Pair(486, "[mbd_sheet_LAT"),
                            Pair(641, "[stringer_range"), Pair(642, "[stringer_type_load]"),
                            Pair(672, "[bracker_dz_angle]"), Pair(682, "[bracket_v_stiff"),
                            Pair(683, "[bracket_h_stiff"), Pair(689, "[bracket_output")));
}

TEST(Catalogue, TwoBlocksAreAlsoOpenedByOldNames)
{
    std::vector<int> blocks;
    for (const CatalogueRow& row : Catalogue())
        if (!row.prefixes[2].empty())
            blocks.push_back(row.block);
    EXPECT_THAT(blocks, ElementsAre(309, 335));
    EXPECT_EQ(FindBlock(309)->prefixes[0], "[SEC_OPTION_PCP");
    EXPECT_EQ(FindBlock(335)->prefixes[2], "[SEC_SLAB_PCPRC]");
}

TEST(Catalogue, NineTitlesShowAnotherWordThanTheFileHas)
{
    std::vector<int> blocks;
    for (const CatalogueRow& row : Catalogue())
        if (!row.tag.empty() && row.menuText.find("[" + std::string(row.tag) + "]") == std::string_view::npos)
            blocks.push_back(row.block);
    EXPECT_THAT(blocks, ElementsAre(307, 327, 329, 351, 354, 606, 640, 642, 726));
}

TEST(Catalogue, TitlesStandAsTheyAre)
{
    EXPECT_EQ(FindBlock(396)->menuText, "396継手部面外 SY (kN)[SPL_SF_SY]") << "no point behind the number";
    EXPECT_EQ(FindBlock(640)->menuText, "640..縦桁名定義・縦桁設計基本条件 [STRINGER_NAME_COMMON]") << "two points";
    EXPECT_TRUE(FindBlock(332)->menuText.ends_with("] ")) << "a blank at the end";
    for (const CatalogueRow& row : Catalogue())
        EXPECT_FALSE(ToCp932(row.menuText).refused) << row.block;
}

TEST(Catalogue, FiveNumbersHaveACommandAndNoMenuEntry)
{
    std::vector<int> blocks;
    for (const CatalogueRow& row : Catalogue())
        if (row.menuText.empty() && row.commandOpens)
            blocks.push_back(row.block);
    EXPECT_THAT(blocks, ElementsAre(361, 362, 363, 500, 600));
    EXPECT_EQ(PanelOfBlock(361), "CDown521");
    EXPECT_EQ(PanelOfBlock(362), "CDown531");
    EXPECT_EQ(PanelOfBlock(363), "CDown541");
}

TEST(Catalogue, SecondCommandsShowTitleAndPanelOf521And522)
{
    EXPECT_EQ(FindBlock(569)->menuText, FindBlock(521)->menuText);
    EXPECT_EQ(FindBlock(570)->menuText, FindBlock(522)->menuText);
    EXPECT_EQ(PanelOfBlock(569), "CDown521");
    EXPECT_EQ(PanelOfBlock(570), "CDown522");
}

TEST(Catalogue, ANumberWithoutARowIsNotFound)
{
    for (const int block : {-1, 0, 252, 257, 260, 300, 330, 1000})
        EXPECT_EQ(FindBlock(block), nullptr) << block;
}

TEST(Catalogue, NoTextHasAnythingButItsOwnBytesInItsFileWords)
{
    for (const CatalogueRow& row : Catalogue()) {
        for (const std::string_view text :
             {row.tag, row.prefixes[0], row.prefixes[1], row.prefixes[2], row.prefixes[3]})
            EXPECT_TRUE(std::ranges::all_of(text, [](char c) { return c > ' ' && c < '\x7F'; })) << row.block;
    }
}

// --- commands ----------------------------------------------------------------------------------

TEST(CatalogueCommands, ArePairsUniqueBothWays)
{
    std::set<int> commands;
    std::set<int> blocks;
    for (const auto& [command, block] : Commands()) {
        EXPECT_TRUE(commands.insert(command).second) << command;
        EXPECT_TRUE(blocks.insert(block).second) << block;
        EXPECT_TRUE(command > 0 && command < 0x10000) << command;
    }
}

TEST(CatalogueCommands, OfBlocks292And293AreCrossed)
{
    EXPECT_EQ(FindBlock(292)->command, 40293);
    EXPECT_EQ(FindBlock(293)->command, 40292);
}

TEST(CatalogueCommands, SixStandInTheMenuAlone)
{
    std::map<int, int> menuOnly;
    for (const CatalogueRow& row : Catalogue())
        if (!row.commandOpens)
            menuOnly[row.command] = row.block;
    EXPECT_THAT(menuOnly, ElementsAre(Pair(47120, 712), Pair(47140, 714), Pair(47220, 722), Pair(47270, 727),
                                      Pair(47320, 732), Pair(47330, 733)));
    for (const auto& [command, block] : menuOnly) {
        EXPECT_THAT(Commands(), Not(Contains(Pair(command, block))));
        EXPECT_FALSE(PanelOfBlock(block).empty()) << "the alias step still knows " << block;
    }
}

// --- aliases and panels ------------------------------------------------------------------------

TEST(CatalogueAliases, NineNumbersShowTheDataOfAnother)
{
    EXPECT_THAT(Aliases(), ElementsAre(Pair(406, 713), Pair(567, 482), Pair(584, 483), Pair(712, 405), Pair(714, 514),
                                       Pair(722, 702), Pair(727, 707), Pair(732, 405), Pair(733, 713)));
    for (const auto& [alias, canonical] : Aliases()) {
        EXPECT_EQ(CanonicalBlock(alias), canonical);
        EXPECT_EQ(FindBlock(alias)->kind, BlockKind::None) << "an alias has no section of its own";
        EXPECT_NE(FindBlock(canonical)->kind, BlockKind::None);
        EXPECT_EQ(PanelOfBlock(alias), PanelOfBlock(canonical));
    }
}

TEST(CatalogueAliases, EveryOtherNumberIsItself)
{
    std::set<int> aliases;
    for (const auto& [alias, canonical] : Aliases())
        aliases.insert(alias);
    for (int block = 0; block <= 1000; ++block)
        if (!aliases.contains(block)) {
            EXPECT_EQ(CanonicalBlock(block), block);
        }
}

TEST(CataloguePanels, NothingOpensOutsideTheNumbers)
{
    for (int block = -10; block < 253; ++block)
        EXPECT_THAT(PanelOfBlock(block), IsEmpty()) << block;
    for (int block = 1000; block < 1100; ++block)
        EXPECT_THAT(PanelOfBlock(block), IsEmpty()) << block;
}

TEST(CataloguePanels, EveryRangeHasItsPanelUpToItsEnds)
{
    const std::map<std::string_view, std::vector<std::pair<int, int>>> ranges = {
        {"CDown_DATA_400",
         {{304, 307},
          {312, 316},
          {321, 323},
          {326, 329},
          {331, 359},
          {400, 400},
          {402, 405},
          {407, 420},
          {422, 429},
          {481, 486}}},
        {"CDown_DATA_500",
         {{500, 500}, {502, 507}, {511, 517}, {523, 524}, {532, 535}, {542, 543}, {551, 566}, {572, 579}, {581, 583}}},
        {"CDown_DATA_600", {{259, 259}, {291, 296}, {391, 396}, {600, 600}, {602, 689}}},
        {"CDown_DATA_700", {{700, 700}, {703, 711}, {713, 713}, {723, 726}, {728, 731}, {734, 799}}},
    };
    for (const auto& [panel, list] : ranges)
        for (const auto& [from, to] : list)
            for (int block = from; block <= to; ++block)
                EXPECT_EQ(PanelOfBlock(block), panel) << block;
    for (const int none :
         {252, 257, 258, 260, 290, 297, 300, 317, 320, 330, 360, 364, 390, 397, 399, 430, 480, 487, 508,
          518, 520, 525, 530, 536, 540, 544, 550, 568, 580, 585, 599, 690, 699, 715, 720, 800, 802, 998})
        EXPECT_THAT(PanelOfBlock(none), IsEmpty()) << none;
}

TEST(CataloguePanels, BlocksWithAPanelOfTheirOwnAreNamedAfterTheirNumber)
{
    for (const int block : {253, 254, 255, 256, 301, 302, 303, 308, 309, 310, 311, 324, 325, 401,
                            421, 501, 521, 522, 531, 541, 571, 601, 701, 702, 721, 801, 999})
        EXPECT_EQ(PanelOfBlock(block), "CDown" + std::to_string(block));
    EXPECT_EQ(PanelOfBlock(722), "CDown702");
}

} // namespace sbd
