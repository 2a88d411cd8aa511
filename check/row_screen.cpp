#include "check/row_screen.h"

#include "project/block_rules.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "sbdfile/layout.h"

#include <algorithm>
#include <array>

namespace sbd {

namespace {

using namespace literals;

/// What of a cell's bytes matters.
struct CellBytes {
    bool divides = false; ///< a blank or what becomes one
    bool changes = false; ///< what becomes a blank, a tab among them
};

/// For each byte: 1 a blank, 2 what becomes one or begins a character that does.
constexpr std::array<unsigned char, 256> kByteKinds = [] {
    std::array<unsigned char, 256> kinds{};
    for (const unsigned char c : {'\t', '\n', '\v', '\f', '\r', ',', '\x1A'})
        kinds[c] = 2;
    kinds[static_cast<unsigned char>(' ')] = 1;
    kinds[0x81] = 2; // the wide blank and the wide commas begin with it
    return kinds;
}();

CellBytes BytesOf(std::string_view cell)
{
    unsigned kinds = 0;
    for (const char c : cell)
        kinds |= kByteKinds[static_cast<unsigned char>(c)];
    if ((kinds & 2U) != 0) {
        // Only some of the characters that begin with 0x81 become blanks.
        bool changes = false;
        for (std::size_t i = 0; i < cell.size() && !changes; ++i) {
            const unsigned char byte = static_cast<unsigned char>(cell[i]);
            const unsigned char next = i + 1 < cell.size() ? static_cast<unsigned char>(cell[i + 1]) : 0x40;
            changes = kByteKinds[byte] == 2 && (byte != 0x81 || next == 0x40 || next == 0x41 || next == 0x43);
        }
        if (!changes)
            kinds &= 1U;
    }
    return {kinds != 0, (kinds & 2U) != 0};
}

/// First words by which the reader knows a line that is no row of its block.
struct LineWord {
    int block;
    std::string_view word;
};
constexpr LineWord kLineWords[] = {
    {306, "YES_MAIN_LOAD"}, // becomes the cell 主荷重
    {315, "NEW_VERSION_"},  // the version word
};

} // namespace

CRowScreen::CRowScreen(int block) : block_(block)
{
    const SectionLayout* layout = FindSectionLayout(block);
    if (layout != nullptr && !layout->formats.empty())
        fields_ = layout->formats.back().fields.size();
}

bool CRowScreen::PassesFirst(std::string_view cell) const
{
    if (cell.empty() || cell.starts_with('!') || cell.starts_with("[E"))
        return false;
    if (FindHeadRow(HeadRowsOf(block_), cell) >= 0)
        return false;
    return std::ranges::none_of(
        kLineWords, [&](const LineWord& line) { return line.block == block_ && cell.starts_with(line.word); });
}

bool CRowScreen::Passes(const TableBlock& table, std::size_t row) const
{
    // The marks of a camber row are taken away, and a row of the old layout of 331 is moved: rare, so not judged here.
    if (block_ == 259 || (block_ == 331 && table.columns[10][row].empty()))
        return false;
    const std::size_t last = table.columns.size() - 1;
    if (!PassesFirst(table.columns[0][row]))
        return false;
    bool ended = false; // an empty cell: none behind it may be filled
    for (std::size_t column = 0; column <= last; ++column) {
        const std::string_view cell = table.columns[column][row];
        if (cell.empty()) {
            ended = true;
            continue;
        }
        if (ended || column >= fields_)
            return false;
        const CellBytes bytes = BytesOf(cell);
        if (bytes.changes || (bytes.divides && column < last))
            return false;
        if (bytes.divides && Trim(cell).size() != cell.size())
            return false;
    }
    return true;
}

std::vector<int> CRowScreen::Doubtful(const TableBlock& table) const
{
    std::vector<int> rows;
    for (std::size_t row = 0; row < table.RowCount(); ++row)
        if (!Passes(table, row))
            rows.push_back(static_cast<int>(row));
    return rows;
}

} // namespace sbd
