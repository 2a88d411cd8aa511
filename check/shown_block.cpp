#include "check/shown_block.h"

#include "panelmodel/panel_model.h"
#include "project/block_rules.h"
#include "project/option_rows.h"

#include <algorithm>
#include <limits>

namespace sbd {

namespace {

/// Blocks whose rows at the top are no rows of a table.
struct RowsAtTop {
    int block;
    int rows;
};
constexpr RowsAtTop kRowsAtTop[] = {{311, 4}, {324, 1}, {325, 1}, {412, 1}, {501, 1}, {702, 1}};

std::size_t Place(const ShownBlock& shown, int row, int column)
{
    return static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(shown.columns)
           + static_cast<std::size_t>(column);
}

/// The word that heads a row which keeps its place: what makes the row what it is.
bool IsHeadWord(const ShownBlock& shown, int row, int column)
{
    return column == 1 && row <= shown.fixedRows && shown.block != 412 && FindOptionBlock(shown.block) == nullptr;
}

/// A panel of a block without rows shows its automatic row alone: what is typed below it is no head row.
int HeadRowsThere(const CPanelModel& panel, std::span<const HeadRow> heads)
{
    const int most = static_cast<int>(heads.size());
    int there = 0;
    while (there < most && FindHeadRow(heads, panel.Text(there + 1, 1)) == there)
        ++there;
    return there;
}

} // namespace

int FixedRowsOf(int block)
{
    if (FindOptionBlock(block) != nullptr)
        return std::numeric_limits<int>::max();
    const RowsAtTop* const own = std::ranges::find(kRowsAtTop, block, &RowsAtTop::block);
    return own != std::end(kRowsAtTop) ? own->rows : WordRowsOf(block);
}

const std::string& ShownBlock::Text(int row, int column) const
{
    static const std::string empty;
    return row >= 1 && row <= rows && column >= 1 && column < columns ? texts[Place(*this, row, column)] : empty;
}

void ShownBlock::SetText(int row, int column, std::string text)
{
    texts[Place(*this, row, column)] = std::move(text);
}

bool ShownBlock::IsTold(int row, int column) const
{
    return row >= 1 && row <= rows && column >= 1 && column < columns && told[Place(*this, row, column)] != 0;
}

ShownBlock Show(const CPanelModel& panel)
{
    ShownBlock shown;
    shown.block = panel.Block();
    shown.fixedRows = FixedRowsOf(shown.block);
    if (const std::span<const HeadRow> heads = HeadRowsOf(shown.block); !heads.empty())
        shown.fixedRows = HeadRowsThere(panel, heads);
    shown.columns = panel.ColumnCount();
    shown.rows = panel.BlockRows();
    if (FindOptionBlock(shown.block) == nullptr)
        shown.rows = std::min(panel.GridRows(), std::max(shown.rows, shown.fixedRows));
    const std::size_t cells = static_cast<std::size_t>(shown.rows) * static_cast<std::size_t>(shown.columns);
    shown.texts.resize(cells);
    shown.told.resize(cells);
    shown.stored.assign(static_cast<std::size_t>(shown.rows) + 1, -1);
    int stored = 0;
    for (int row = 1; row <= shown.rows; ++row) {
        if (row > panel.RowsAhead() && panel.IsWritten(row))
            shown.stored[static_cast<std::size_t>(row)] = stored++;
        for (int column = 1; column < shown.columns; ++column) {
            shown.texts[Place(shown, row, column)] = panel.Text(row, column);
            const bool told = !panel.IsLocked(row, column) && !IsHeadWord(shown, row, column);
            shown.told[Place(shown, row, column)] = told ? 1 : 0;
        }
    }
    return shown;
}

} // namespace sbd
