#include "sbdfile/reader_rules.h"

#include "project/catalogue.h"
#include "project/text.h"

#include <algorithm>
#include <array>
#include <map>

namespace sbd {

namespace {

using namespace literals;

/// Table blocks whose first row is data.
bool HasNoControlRow(int block)
{
    constexpr std::array blocks = {304, 305, 307, 312, 323, 329, 351, 352, 353, 354, 402, 403, 404, 405, 407, 422};
    return block <= 296 || std::ranges::find(blocks, block) != blocks.end();
}

std::map<int, ControlRowRule> MakeControlRows()
{
    const std::string automatic = "自動"_cp932;
    const std::string calculation = "自動計算"_cp932;
    std::map<int, ControlRowRule> rules;
    for (const CatalogueRow& row : Catalogue())
        if (row.kind == BlockKind::Table && !HasNoControlRow(row.block))
            rules[row.block] = {{automatic}, {calculation + "(YES_NO)", row.block == 651 ? "YES-1" : "YES"}};
    rules[306] = {{"主荷重"_cp932}, {"主荷重と比較する"_cp932, "YES"}};
    rules[335] = {{automatic}, {calculation, "YES", automatic, automatic, automatic}};
    rules[336] = {{automatic}, {calculation, "YES", "16", "19", "200", "100", "100", "100", "40", "40", "19"}};
    rules[337] = {{automatic}, {calculation, "YES", "20", "1", "10", "1", "1"}};
    rules[338] = {{automatic}, {calculation, "YES", "0", "0", "0", "0", "0", "0", "断面優先"_cp932}};
    rules[662] = {{automatic, "手動"_cp932},
                  {automatic, "スラブ止め_RB_SS400"_cp932, "16", "600", "50", "200", "1000", "250", "100"}};
    return rules;
}

std::map<int, std::vector<HeadRow>> MakeHeadRows()
{
    const HeadRow automatic{{{"自動"_cp932}}, "自動計算(YES_NO)"_cp932, "YES"};
    const HeadRow automaticLargest{{{"自動"_cp932}}, "自動計算(YES_NO)"_cp932, "YES_最大断面"_cp932};
    const HeadRow inputMethod{{{"入力方法"_cp932}, {"INPUT_METHOD"}}, "入力方法"_cp932, "横桁と垂直補剛材より"_cp932};
    const std::vector<HeadKey> largest = {{"最大"_cp932}, {"MAX_LENGTH_S"}};
    const HeadRow upperFlange{{{"上FLG厚を主桁高"_cp932}}, "上FLG厚を主桁高に含むか"_cp932, "YES"};
    const HeadRow lowerFlange{{{"下FLG厚を主桁高"_cp932}}, "下FLG厚を主桁高に含むか"_cp932, "YES"};
    const std::string outside = "桁高に含まない"_cp932;

    std::map<int, std::vector<HeadRow>> rows;
    rows[321] = {{largest, "最大継手長"_cp932, "12"}, inputMethod};
    rows[322] = {{largest, "最大断面長"_cp932, "12"}, inputMethod};
    rows[511] = {automatic, upperFlange, lowerFlange};
    rows[611] = {automatic, upperFlange, lowerFlange};
    rows[643] = {automatic, {{{"横断差DZ"_cp932}}, "横断差DZ_TYPE"_cp932, "下縁_横桁UFLG"_cp932}};
    rows[644] = {automaticLargest,
                 {{{"桁高HBHE上"_cp932}}, "桁高HBHE上FLGタイプ"_cp932, outside},
                 {{{"桁高HBHE下"_cp932}}, "桁高HBHE下FLGタイプ"_cp932, outside}};
    rows[672] = {automatic,
                 {{{"DZ_TYPE_G", true}, {"DZ_TYPE"}}, "DZ_TYPE_G", "下縁_主桁UFLG"_cp932},
                 {{{"DZ_TYPE_S", true}}, "DZ_TYPE_S", "下縁_側縦桁・ブラケットUFLG"_cp932}};
    rows[674] = {automaticLargest,
                 {{{"桁高HG上"_cp932}}, "桁高HG上FLGタイプ"_cp932, outside},
                 {{{"桁高HG下"_cp932}}, "桁高HG下FLGタイプ"_cp932, outside}};
    return rows;
}

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

int FindHeadRow(std::span<const HeadRow> rows, std::string_view word)
{
    for (const bool whole : {true, false})
        for (std::size_t row = 0; row < rows.size(); ++row)
            for (const HeadKey& key : rows[row].keys)
                if (key.whole == whole && (whole ? word == key.text : word.starts_with(key.text)))
                    return static_cast<int>(row);
    return -1;
}

std::span<const std::string> NameHeadings(int block)
{
    static const std::vector<std::string> grid = {"主桁"_cp932, "横桁(対傾構)"_cp932, "ライン"_cp932};
    static const std::vector<std::string> support = {"主桁"_cp932, "横桁(対傾構)"_cp932, "支承線"_cp932, "箱桁"_cp932};
    return block == 702 ? support : grid;
}

} // namespace sbd
