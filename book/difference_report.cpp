#include "book/difference_report.h"

#include "compare/difference_text.h"
#include "project/text.h"
#include "sheets/workbook.h"

#include <algorithm>
#include <set>

namespace sbd {

namespace {

std::size_t BlockCount(const std::vector<Difference>& differences)
{
    std::set<int> blocks;
    for (const Difference& difference : differences)
        blocks.insert(difference.block);
    return blocks.size();
}

std::string CountText(const std::vector<Difference>& differences)
{
    return std::to_string(differences.size()) + " か所 (" + std::to_string(BlockCount(differences)) + " ブロック)";
}

std::string BlockText(int block)
{
    return block == 0 ? "未知の区分" : NumberAndTitle(block);
}

std::string_view KindText(DifferenceKind kind)
{
    switch (kind) {
    case DifferenceKind::Value:
        return "値";
    case DifferenceKind::RowAdded:
        return "増えた行";
    case DifferenceKind::RowRemoved:
        return "なくなった行";
    case DifferenceKind::RowMoved:
        return "列の移動";
    case DifferenceKind::UnknownLine:
        return "未知の行";
    }
    return {};
}

} // namespace

std::string DifferenceReport(const ReportSides& sides, const std::vector<Difference>& differences)
{
    std::string text = "物件の比較  " + sides.project + "\n元: " + sides.before + "\n比較先: " + sides.after
                       + "\n作成: " + sides.made
                       + "\n違い: " + (differences.empty() ? "ありません" : CountText(differences)) + "\n";
    int block = -1;
    for (const Difference& difference : differences) {
        if (difference.block != block) {
            block = difference.block;
            text += "\n[" + BlockText(block) + "]\n";
        }
        std::string line = DifferenceText(difference);
        const std::string name = NumberAndTitle(block);
        if (line.starts_with(name + " ")) // the block stands above
            line.erase(0, name.size() + 1);
        text += "  " + line + "\n";
    }
    return text;
}

FileResult WriteDifferenceSheets(const std::filesystem::path& path, const ReportSides& sides,
                                 const std::vector<Difference>& differences)
{
    constexpr double widths[] = {30, 14, 8, 8, 26, 34, 34};
    CWorkbook book("物件の比較 " + sides.project);
    CellLook bold;
    bold.bold = true;
    CellLook plain;
    plain.border = true;
    book.AddSheet("違い");
    book.SetText(0, 0, "物件の比較  " + sides.project, bold);
    book.SetText(1, 0,
                 "作成: " + sides.made + "  違い: " + (differences.empty() ? "ありません" : CountText(differences)));
    const std::string heads[] = {"ブロック", "種類", "行", "列", "列・項目", sides.before, sides.after};
    constexpr std::uint32_t headRow = 2;
    constexpr std::uint16_t columns{std::size(widths)};
    static_assert(std::size(heads) == columns);
    for (std::uint16_t column = 0; column < columns; ++column) {
        book.SetText(headRow, column, heads[column], HeadLook());
        book.SetWidth(column, widths[column]);
    }
    std::uint32_t row = headRow;
    for (const Difference& difference : differences) {
        ++row;
        CellLook look = plain;
        if (difference.kind == DifferenceKind::RowAdded)
            look.fill = 0xE2F2DE;
        else if (difference.kind == DifferenceKind::RowRemoved)
            look.fill = 0xF6E0DE;
        book.SetText(row, 0, BlockText(difference.block), look);
        book.SetText(row, 1, KindText(difference.kind), look);
        book.SetValue(row, 2, difference.row > 0 ? std::to_string(difference.row) : std::string(), look);
        book.SetValue(row, 3, difference.column > 0 ? std::to_string(difference.column) : std::string(), look);
        book.SetText(row, 4, FromCp932(difference.place), look);
        book.SetValue(row, 5, FromCp932(difference.before), look);
        book.SetValue(row, 6, FromCp932(difference.after), look);
    }
    book.Freeze(headRow + 1, 1);
    book.SetLandscape();
    return book.Save(path);
}

} // namespace sbd
