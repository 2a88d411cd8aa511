#include "compare/take_back.h"

#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/project_writer.h"

#include <algorithm>
#include <map>
#include <tuple>

namespace sbd {

namespace {

constexpr int kVersionBlock = 315; // its section holds the version word

void TakeBlockBack(CSbdData& data, const CSbdData& before, int block)
{
    if (block == 311)
        data.hGirder = before.hGirder;
    else if (block == 324)
        data.crossRibs = before.crossRibs;
    else if (block == 325)
        data.lRibs = before.lRibs;
    else if (const NameLists* names = before.Names(block))
        *data.Names(block) = *names;
    else if (block == 0)
        data.unknownLines = before.unknownLines;
}

/// The row of the table as it stands now at which a difference is, from 0.
std::size_t RowNow(const Difference& difference)
{
    const int row = difference.kind == DifferenceKind::RowRemoved ? difference.otherRow : difference.row;
    return static_cast<std::size_t>(row - 1);
}

/// The same in the table as it stood.
int RowBefore(const Difference& difference)
{
    return difference.kind == DifferenceKind::RowRemoved ? difference.row : difference.otherRow;
}

std::vector<std::string> CellsOf(const TableBlock& table, std::size_t row)
{
    std::vector<std::string> cells;
    for (const CColumnVector& column : table.columns)
        cells.emplace_back(column[row]);
    return cells;
}

void TakeTableBack(CProjectWriter& writer, const TableBlock& before, int block, std::vector<Difference> chosen)
{
    // From the last row to the first in the order of both tables, so that what comes and goes moves nothing that is
    // still to be done.
    std::ranges::sort(chosen, std::greater(), [](const Difference& difference) {
        return std::tuple(RowNow(difference), RowBefore(difference), difference.column);
    });
    for (const Difference& difference : chosen) {
        const std::size_t row = RowNow(difference);
        switch (difference.kind) {
        case DifferenceKind::RowAdded:
            writer.EraseRow(block, row);
            break;
        case DifferenceKind::RowRemoved:
            writer.InsertRow(block, row, difference.cells);
            break;
        case DifferenceKind::RowMoved: {
            const std::vector<std::string> cells = CellsOf(before, static_cast<std::size_t>(difference.otherRow - 1));
            for (std::size_t column = 0; column < cells.size(); ++column)
                writer.SetCell(block, row, column, cells[column]);
            break;
        }
        case DifferenceKind::Value:
            writer.SetCell(block, row, static_cast<std::size_t>(difference.column - 1), difference.before);
            break;
        case DifferenceKind::UnknownLine:
            break;
        }
    }
}

} // namespace

bool ComesBackWithItsBlock(const Difference& difference)
{
    const int block = difference.block;
    return block == 0 || block == 311 || block == 324 || block == 325 || block == 501 || block == 702;
}

CSbdData WithTakenBack(const CSbdData& now, const CSbdData& before, std::span<const Difference> chosen)
{
    CSbdData data = now;
    CProjectWriter writer(data);
    std::map<int, std::vector<Difference>> ofTables;
    for (const Difference& difference : chosen) {
        if (ComesBackWithItsBlock(difference))
            TakeBlockBack(data, before, difference.block);
        else if (FindOptionBlock(difference.block) != nullptr)
            writer.SetOption(difference.block, static_cast<std::size_t>(difference.row - 1), difference.before);
        else if (difference.block == kVersionBlock && difference.row == 0)
            data.versionWord = difference.before;
        else
            ofTables[difference.block].push_back(difference);
    }
    for (const auto& [block, differences] : ofTables)
        TakeTableBack(writer, *before.Table(block), block, differences);
    return data;
}

} // namespace sbd
