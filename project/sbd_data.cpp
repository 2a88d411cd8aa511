#include "project/sbd_data.h"

#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/text.h"

#include <algorithm>

namespace sbd {

namespace {

constexpr int kFirstBlock = 253;
constexpr int kLastBlock = 999;

/// Place of a table block among the stores, by number; -1: no store. Name lists and records have stores of their own.
const std::array<int, kLastBlock + 1>& TableIndex()
{
    static const std::array<int, kLastBlock + 1> index = [] {
        std::array<int, kLastBlock + 1> result{};
        result.fill(-1);
        int next = 0;
        for (const CatalogueRow& row : Catalogue())
            if (row.columns > 0 && row.block != 702)
                result[static_cast<std::size_t>(row.block)] = next++;
        return result;
    }();
    return index;
}

} // namespace

std::string NumberCell(double value)
{
    if (!IsGiven(value))
        return {};
    std::string text;
    AppendFixed(text, value, 0, 6);
    text.erase(text.find_last_not_of('0') + 1);
    if (text.ends_with('.'))
        text.pop_back();
    return text;
}

void TableBlock::AppendRow(const std::vector<std::string_view>& cells)
{
    for (std::size_t column = 0; column < columns.size(); ++column)
        columns[column].Append(column < cells.size() ? cells[column] : std::string_view());
}

std::vector<std::string_view> TableBlock::Row(std::size_t row) const
{
    std::vector<std::string_view> cells;
    cells.reserve(columns.size());
    for (const CColumnVector& column : columns)
        cells.push_back(column[row]);
    return cells;
}

void RibSpacing::Tidy()
{
    while (!numbers.empty() && numbers.back() == 0.0)
        numbers.pop_back();
}

CSbdData::CSbdData()
{
    using namespace literals;
    for (const CatalogueRow& row : Catalogue()) {
        if (TableIndex()[static_cast<std::size_t>(row.block)] >= 0) {
            tables_.emplace_back();
            tables_.back().columns.resize(static_cast<std::size_t>(row.columns));
        }
    }
    for (const OptionBlock& block : OptionBlocks()) {
        std::vector<std::string>& values = options_.emplace_back();
        for (const OptionRow& row : block.rows)
            values.push_back(row.defaultValue);
    }
    hGirder.types = {"桁高に含む"_cp932, "桁高に含む"_cp932, "線形(入力)"_cp932, "線形(入力)"_cp932};
    names501_.lists.resize(3);
    names702_.lists.resize(4);
    versionWord = "NEW_VERSION_20051205";
}

void CSbdData::ClearBlocks()
{
    for (TableBlock& table : tables_)
        for (CColumnVector& column : table.columns)
            column = CColumnVector();
    hGirder.records.clear();
    crossRibs.clear();
    lRibs.clear();
    for (NameLists* names : {&names501_, &names702_})
        for (std::vector<std::string>& list : names->lists)
            list.clear();
    unknownLines.clear();
}

int CSbdData::ColumnCount(int block) const
{
    const CatalogueRow* row = FindBlock(block);
    return row != nullptr && row->columns > 0 ? row->columns : 2;
}

void CSbdData::Append(int block, int column, std::string_view text)
{
    TableBlock* table = Table(block);
    if (table != nullptr && column >= 0 && static_cast<std::size_t>(column) < table->columns.size())
        table->columns[static_cast<std::size_t>(column)].Append(text);
}

std::size_t CSbdData::RowCount(int block) const
{
    if (const TableBlock* table = Table(block))
        return table->RowCount();
    if (const std::vector<std::string>* values = Options(block))
        return values->size();
    switch (block) {
    case 311:
        return hGirder.records.size();
    case 324:
        return crossRibs.size();
    case 325:
        return lRibs.size();
    default:
        return 0;
    }
}

TableBlock* CSbdData::Table(int block)
{
    return const_cast<TableBlock*>(std::as_const(*this).Table(block));
}

const TableBlock* CSbdData::Table(int block) const
{
    if (block < kFirstBlock || block > kLastBlock)
        return nullptr;
    const int index = TableIndex()[static_cast<std::size_t>(block)];
    return index < 0 ? nullptr : &tables_[static_cast<std::size_t>(index)];
}

std::vector<std::string>* CSbdData::Options(int block)
{
    return const_cast<std::vector<std::string>*>(std::as_const(*this).Options(block));
}

const std::vector<std::string>* CSbdData::Options(int block) const
{
    const int index = OptionBlockIndex(block);
    return index < 0 ? nullptr : &options_[static_cast<std::size_t>(index)];
}

std::string_view CSbdData::Option(int block, std::size_t row) const
{
    const std::vector<std::string>* values = Options(block);
    return values != nullptr && row < values->size() ? std::string_view((*values)[row]) : std::string_view();
}

void CSbdData::SetOption(int block, std::size_t row, std::string_view value)
{
    const OptionBlock* definition = FindOptionBlock(block);
    if (definition == nullptr || row >= definition->rows.size())
        return;
    std::vector<std::string>& values = *Options(block);
    if (row >= values.size())
        values.resize(row + 1);
    values[row] = value;
}

NameLists* CSbdData::Names(int block)
{
    return block == 501 ? &names501_ : block == 702 ? &names702_ : nullptr;
}

const NameLists* CSbdData::Names(int block) const
{
    return block == 501 ? &names501_ : block == 702 ? &names702_ : nullptr;
}

std::size_t CSbdData::MemoryUsed() const
{
    std::size_t bytes = 0;
    for (const TableBlock& table : tables_)
        for (const CColumnVector& column : table.columns)
            bytes += column.MemoryUsed();
    for (const std::string& line : unknownLines)
        bytes += sizeof(std::string) + line.capacity();
    return bytes;
}

void CSbdData::Shrink()
{
    for (TableBlock& table : tables_)
        for (CColumnVector& column : table.columns)
            column.Shrink();
}

bool CSbdData::SameProject(const CSbdData& other) const
{
    return tables_ == other.tables_ && options_ == other.options_ && names501_ == other.names501_
           && names702_ == other.names702_ && hGirder == other.hGirder && crossRibs == other.crossRibs
           && lRibs == other.lRibs && versionWord == other.versionWord && unknownLines == other.unknownLines;
}

} // namespace sbd
