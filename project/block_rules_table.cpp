// What is a block's own in its rows, as tables. Laid out by hand.
#include "project/block_rules.h"
#include "project/catalogue.h"
#include "project/panel_columns.h"
#include "project/text.h"

#include <algorithm>
#include <map>

namespace sbd {

namespace {

using namespace literals;

const std::string& AutomaticWord()
{
    static const std::string word = "自動計算(YES_NO)"_cp932;
    return word;
}

bool HasPlainControlRow(const CatalogueRow& row)
{
    const PanelTable* panel = FindPanelTable(row.block);
    return row.kind == BlockKind::Table && panel != nullptr && panel->automaticRows > 0;
}

std::map<int, ControlRowRule> MakeControlRows()
{
    const std::string automatic = "自動"_cp932;
    const std::string calculation = "自動計算"_cp932;
    std::map<int, ControlRowRule> rules;
    for (const CatalogueRow& row : Catalogue())
        if (HasPlainControlRow(row))
            rules[row.block] = {{automatic}, {AutomaticWord(), "YES"}};
    rules[306] = {{"主荷重"_cp932}, {"主荷重と比較する"_cp932, "YES"}};
    rules[335] = {{automatic}, {calculation, "YES", automatic, automatic, automatic}};
    rules[336] = {{automatic}, {calculation, "YES", "16", "19", "200", "100", "100", "100", "40", "40", "19"}};
    rules[337] = {{automatic}, {calculation, "YES", "20", "1", "10", "1", "1"}};
    rules[338] = {{automatic}, {calculation, "YES", "0", "0", "0", "0", "0", "0", "断面優先"_cp932}};
    rules[651] = {{automatic}, {AutomaticWord(), "YES-1"}};
    rules[662] = {{automatic, "手動"_cp932},
                  {automatic, "スラブ止め_RB_SS400"_cp932, "16", "600", "50", "200", "1000", "250", "100"}};
    return rules;
}

std::map<int, std::vector<HeadRow>> MakeHeadRows()
{
    const HeadRow automatic{{{"自動"_cp932}}, AutomaticWord(), "YES"};
    const HeadRow automaticLargest{{{"自動"_cp932}}, AutomaticWord(), "YES_最大断面"_cp932};
    const HeadRow inputMethod{{{"入力方法"_cp932}, {"INPUT_METHOD"}}, "入力方法"_cp932, "横桁と垂直補剛材より"_cp932};
    const std::vector<HeadKey> largest = {{"最大"_cp932}, {"MAX_LENGTH_S"}};
    const HeadRow upperFlange{{{"上FLG厚を主桁高"_cp932}}, "上FLG厚を主桁高に含むか"_cp932, "YES"};
    const HeadRow lowerFlange{{{"下FLG厚を主桁高"_cp932}}, "下FLG厚を主桁高に含むか"_cp932, "YES"};

    std::map<int, std::vector<HeadRow>> rows;
    rows[321] = {{largest, "最大継手長"_cp932, "12"}, inputMethod};
    rows[322] = {{largest, "最大断面長"_cp932, "12"}, inputMethod};
    rows[511] = {automatic, upperFlange, lowerFlange};
    rows[611] = {automatic, upperFlange, lowerFlange};
    rows[643] = {automatic, {{{"横断差DZ"_cp932}}, "横断差DZ_TYPE"_cp932, "下縁_横桁UFLG"_cp932}};
    rows[644] = {automaticLargest,
                 {{{"桁高HBHE上"_cp932}}, "桁高HBHE上FLGタイプ"_cp932, OutsideOfHeight()},
                 {{{"桁高HBHE下"_cp932}}, "桁高HBHE下FLGタイプ"_cp932, OutsideOfHeight()}};
    rows[672] = {automatic,
                 {{{"DZ_TYPE_G", true}, {"DZ_TYPE"}}, "DZ_TYPE_G", "下縁_主桁UFLG"_cp932},
                 {{{"DZ_TYPE_S", true}}, "DZ_TYPE_S", "下縁_側縦桁・ブラケットUFLG"_cp932}};
    rows[674] = {automaticLargest,
                 {{{"桁高HG上"_cp932}}, "桁高HG上FLGタイプ"_cp932, OutsideOfHeight()},
                 {{{"桁高HG下"_cp932}}, "桁高HG下FLGタイプ"_cp932, OutsideOfHeight()}};
    return rows;
}

constexpr OwnFirstRow kOwnFirstRows[] = {{402, {}}, {403, {}}, {412, "YES"}};

// What a project opened with is told by the first place; the scallops and welds are ruled by 701.
constexpr SharedOption kSharedOptions[] = {
    {{{301, 30}, {521, 3}}},
    {{{301, 31}, {521, 4}}},
    {{{301, 17}, {521, 5}, {721, 10}, {701, 17}}},
    {{{301, 29}, {721, 3}}},
    {{{302, 35}, {521, 34}}},
    {{{303, 31}, {521, 35}}},
    {{{701, 10}, {401, 12}, {721, 5}}},
    {{{701, 11}, {401, 13}, {721, 6}}},
    {{{701, 12}, {401, 14}, {721, 7}}},
    {{{701, 13}, {401, 15}, {721, 8}}},
    {{{701, 14}, {401, 16}, {721, 9}}},
};

constexpr AutomaticLink kAutomaticLinks[] = {
    {9, {331, 332}}, {10, {341, 342, 343, 344}}, {11, {315}}, {12, {313}}, {13, {327}}, {14, {328}},
    {18, {324}},     {19, {325, 326}},
};

constexpr std::array<int, 4> kTiedBlocks[] = {{557, 558, 559, 560}, {657, 658, 659, 660}, {677, 678, 679, 680}};

} // namespace

const ControlRowRule* ControlRowOf(int block)
{
    static const std::map<int, ControlRowRule> rules = MakeControlRows();
    const auto found = rules.find(block);
    return found == rules.end() ? nullptr : &found->second;
}

std::span<const HeadRow> HeadRowsOf(int block)
{
    static const std::map<int, std::vector<HeadRow>> rows = MakeHeadRows();
    const auto found = rows.find(block);
    return found == rows.end() ? std::span<const HeadRow>() : std::span<const HeadRow>(found->second);
}

std::string_view AutomaticWordOf(int block)
{
    const ControlRowRule* rule = ControlRowOf(block);
    const bool known = rule == nullptr || std::ranges::any_of(rule->words, [](const std::string& word) {
                           return AutomaticWord().starts_with(word);
                       });
    return known ? AutomaticWord() : rule->cells.front();
}

std::string_view AutomaticValueOf(int block)
{
    const ControlRowRule* rule = ControlRowOf(block);
    return rule != nullptr && rule->cells.front() == AutomaticWord() ? std::string_view(rule->cells[1]) : "YES";
}

const OwnFirstRow* FindOwnFirstRow(int block)
{
    const OwnFirstRow* const row = std::ranges::find(kOwnFirstRows, block, &OwnFirstRow::block);
    return row == std::end(kOwnFirstRows) ? nullptr : row;
}

std::span<const std::string> NameHeadings(int block)
{
    static const std::vector<std::string> grid = {"主桁"_cp932, "横桁(対傾構)"_cp932, "ライン"_cp932};
    static const std::vector<std::string> support = {"主桁"_cp932, "横桁(対傾構)"_cp932, "支承線"_cp932, "箱桁"_cp932};
    return block == 702 ? support : grid;
}

std::span<const SharedOption> SharedOptions()
{
    return kSharedOptions;
}

std::span<const AutomaticLink> AutomaticLinks()
{
    return kAutomaticLinks;
}

std::span<const std::array<int, 4>> TiedBlocks()
{
    return kTiedBlocks;
}

const std::string& OutsideOfHeight()
{
    static const std::string word = "桁高に含まない"_cp932;
    return word;
}

} // namespace sbd
