#include "sbdfile/writer_records.h"

#include "project/block_rules.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "sbdfile/writer.h"

#include <algorithm>
#include <array>

namespace sbd {

namespace {

using namespace literals;

void AppendLine(std::string& out, std::string_view line)
{
    out.append(line);
    out.append(kLineEnd);
}

void TraceRow(WriteTrace* trace, const std::string& out, int block, std::ptrdiff_t row)
{
    if (trace != nullptr)
        trace->rows.push_back({out.size(), block, static_cast<int>(row)});
}

/// Metres in block 311: " %12.6f", as many blanks for a number that is not given.
void AppendMetres(std::string& out, double value)
{
    constexpr int width = 12;
    constexpr int decimals = 6;
    out.push_back(' ');
    if (IsGiven(value))
        AppendFixed(out, value, width, decimals);
    else
        out.append(width, ' ');
}

template <std::size_t N>
void AppendNames(std::string& out, const std::array<std::string, N>& names, std::array<int, N> widths)
{
    for (std::size_t i = 0; i < N; ++i) {
        if (i > 0)
            out.push_back(' ');
        AppendPadded(out, names[i], static_cast<std::size_t>(std::abs(widths[i])), widths[i] < 0);
    }
}

/// The three shapes of block 311, by the Z types.
enum class GirderShape {
    Alignment,       ///< height, DXL, DXR
    AlignmentAndEnd, ///< heights at both ends, DXB, DXE
    Curve,           ///< seven numbers
};

GirderShape ShapeOf(const HGirder& girder)
{
    if (girder.types[2].find("線形"_cp932) == std::string::npos)
        return GirderShape::Curve;
    return girder.types[3].find("入力"_cp932) != std::string::npos ? GirderShape::Alignment
                                                                   : GirderShape::AlignmentAndEnd;
}

std::string GirderComment(GirderShape shape, const GridNames& names)
{
    if (shape == GirderShape::Alignment)
        return "!  主桁始    主桁終    横桁始    横桁終         桁高        [DXL]        [DXR]"_cp932;
    if (shape == GirderShape::AlignmentAndEnd)
        return "!  主桁始    主桁終    横桁始    横桁終       桁高始       桁高終          DXB          DXE  X_LFLGX(-H_LFLG)"_cp932;
    // The heads stand over the names as wide as the bridge's longest ones, the numbers over 12 bytes.
    std::string comment;
    const std::array<std::string, 4> nameHeads = {"! 主桁始"_cp932, "主桁終"_cp932, "横桁始"_cp932, "横桁終"_cp932};
    AppendNames(comment, nameHeads,
                {-names.girderNameWidth, -names.girderNameWidth, -names.swayNameWidth, -names.swayNameWidth});
    for (const char* head : {"桁高始", "桁高終", "DXB", "DXE", "X(-H)_LFLG", "DZ_LFLG", "X(-H)_UFLG"}) {
        comment.push_back(' ');
        AppendPadded(comment, Cp932(head), 12, false);
    }
    return comment;
}

} // namespace

void WriteHGirder(std::string& out, const CSbdData& data, WriteTrace* trace)
{
    constexpr std::array<std::string_view, 4> keywords = {"T_U_FLG_TYPE", "T_L_FLG_TYPE", "Z_U_FLG_TYPE",
                                                          "Z_L_FLG_TYPE"};
    const HGirder& girder = data.hGirder;
    for (std::size_t type = 0; type < keywords.size(); ++type) {
        if (type == 0)
            AppendLine(out, "! フランジ厚タイプ　桁高に含む／桁高に含まない"_cp932);
        if (type == 2)
            AppendLine(out, "! フランジＺタイプ  線形(入力)／直線／２次"_cp932);
        out.append("  ");
        AppendPadded(out, keywords[type], 17, true);
        out.push_back(' ');
        AppendPadded(out, girder.types[type], 1, true);
        out.append(kLineEnd);
    }
    const GirderShape shape = ShapeOf(girder);
    AppendLine(out, GirderComment(shape, data.gridNames));
    const std::size_t numbers = shape == GirderShape::Alignment ? 3 : shape == GirderShape::AlignmentAndEnd ? 5 : 7;
    for (const HGirderRecord& record : girder.records) {
        TraceRow(trace, out, 311, &record - girder.records.data());
        if (shape == GirderShape::Curve) {
            out.append("  ");
            AppendNames(out, record.names, {-6, -6, -6, -6});
        } else {
            AppendNames(out, record.names, {9, 9, 9, 9});
        }
        for (std::size_t i = 0; i < numbers; ++i)
            AppendMetres(out, record.numbers[i]);
        out.append(kLineEnd);
    }
}

namespace {

void AppendStandIn(std::string& out, std::string_view word)
{
    out.push_back(' ');
    AppendPadded(out, word, 8, false);
}

/// Spacings of cross ribs, m: " %8.4f" each.
void AppendCrossSpacing(std::string& out, const RibSpacing& spacing, int count)
{
    if (!spacing.word.empty())
        return AppendStandIn(out, spacing.word);
    for (int i = 0; i < count; ++i) {
        out.push_back(' ');
        AppendFixed(out, spacing.At(static_cast<std::size_t>(i)), 8, 4);
    }
}

/// Spacings of longitudinal ribs, mm: six decimals, then the zeros at the end and a point at the end are cut.
void AppendLongitudinalSpacing(std::string& out, const RibSpacing& spacing, int count)
{
    if (!spacing.word.empty())
        return AppendStandIn(out, spacing.word);
    for (int i = 0; i < count; ++i) {
        out.push_back(' ');
        AppendFixed(out, spacing.At(static_cast<std::size_t>(i)), 0, 6);
        while (out.back() == '0')
            out.pop_back();
        if (out.back() == '.')
            out.pop_back();
    }
}

void AppendSize(std::string& out, double size)
{
    out.push_back(' ');
    AppendFixed(out, size, 5, 1);
}

void AppendCount(std::string& out, int count)
{
    out.push_back(' ');
    AppendPadded(out, std::to_string(count), 5, false);
}

} // namespace

void WriteCrossRibs(std::string& out, const CSbdData& data, WriteTrace* trace)
{
    AppendLine(
        out,
        "! 主桁始 主桁終 横桁始 横桁終 [U][L]FLG   Bri   Tri   Bfi   Tfi 本数n 左腹板間隔(n個) 右腹板間隔(n個) (寸法2～寸法n)"_cp932);
    for (const CrossRibRecord& record : data.crossRibs) {
        TraceRow(trace, out, 324, &record - data.crossRibs.data());
        const int count = std::min(record.n, kMostRibs);
        out.append("  ");
        AppendNames(out, record.names, {-6, -6, -6, -6, -9});
        for (const double size : record.sizes)
            AppendSize(out, size);
        AppendCount(out, count);
        AppendCrossSpacing(out, record.left, count);
        AppendCrossSpacing(out, record.right, count);
        for (int i = 0; i + 1 < count; ++i)
            for (const double size : record.FurtherSizesAt(static_cast<std::size_t>(i)))
                if (IsGiven(size))
                    AppendSize(out, size);
        out.append(kLineEnd);
    }
}

void WriteLRibs(std::string& out, const CSbdData& data, WriteTrace* trace)
{
    AppendLine(out, "! 主桁始 終 左側横桁 U_LFLG 横RIB番号 左側本数n1 右側本数n2 左側間隔(n1個) 右側間隔(n2個)"_cp932);
    for (const LRibRecord& record : data.lRibs) {
        TraceRow(trace, out, 325, &record - data.lRibs.data());
        const int left = std::min(record.n1, kMostRibs);
        const int right = std::min(record.n2, kMostRibs);
        out.append("  ");
        AppendNames(out, record.names, {-6, -6, -6, -6, 6});
        AppendCount(out, left);
        AppendCount(out, right);
        AppendLongitudinalSpacing(out, record.left, left);
        out.push_back(' '); // with the blank of the next format: two between the sides
        AppendLongitudinalSpacing(out, record.right, right);
        out.append(kLineEnd);
    }
}

namespace {

/// Names, five a line; a further line begins with 26 blanks. Ends at the first empty name.
void WriteNameList(std::string& out, const std::string& heading, const std::vector<std::string>& list, bool narrowEmpty)
{
    constexpr std::size_t namesOfLine = 5;
    const auto end = std::ranges::find(list, std::string());
    const std::size_t count = static_cast<std::size_t>(end - list.begin());
    std::string line = "  ";
    AppendPadded(line, heading, 13, true);
    line.push_back(' ');
    AppendPadded(line, std::to_string(count), narrowEmpty && count == 0 ? 1 : 10, !(narrowEmpty && count == 0));
    for (std::size_t i = 0; i < count; ++i) {
        if (i > 0 && i % namesOfLine == 0) {
            AppendLine(out, CutTrailingBlanks(line));
            line.assign(26, ' ');
        }
        AppendPadded(line, list[i], 9, true);
        line.push_back(' ');
    }
    AppendLine(out, CutTrailingBlanks(line));
}

} // namespace

void WriteNames(std::string& out, int block, const CSbdData& data)
{
    const NameLists& names = *data.Names(block);
    std::string line = "  自動取得(YES_NO)       "_cp932;
    line.push_back(' ');
    AppendPadded(line, names.autoValue, 1, false);
    AppendLine(out, CutTrailingBlanks(line));
    AppendLine(out, "! ﾀｲﾌﾟ  桁(ライン)数      桁(ライン)名"_cp932);
    const std::span<const std::string> headings = NameHeadings(block);
    for (std::size_t i = 0; i < headings.size(); ++i)
        WriteNameList(out, headings[i], names.lists[i], block == 702 && i == 3);
}

} // namespace sbd
