#include "project/project_writer.h"

#include "project/catalogue.h"
#include "project/option_rows.h"

#include <set>
#include <type_traits>
#include <utility>

namespace sbd {

namespace {

template <typename Record>
constexpr int BlockOf()
{
    return std::is_same_v<Record, HGirderRecord> ? 311 : std::is_same_v<Record, CrossRibRecord> ? 324 : 325;
}

std::vector<std::string> CellsOf(const TableBlock& table, std::size_t row)
{
    const std::vector<std::string_view> cells = table.Row(row);
    return {cells.begin(), cells.end()};
}

// --- exchanging --------------------------------------------------------------------------------------

struct Exchanger {
    CSbdData& data;

    void operator()(OptionChange& change) const
    {
        std::string before(data.Option(change.block, change.row));
        data.SetOption(change.block, change.row, change.value);
        change.value = std::move(before);
    }
    void operator()(CellChange& change) const
    {
        CColumnVector& cells = data.Table(change.block)->columns[change.column];
        std::string before(cells[change.row]);
        cells.Set(change.row, change.text);
        change.text = std::move(before);
    }
    void operator()(RowChange& change) const
    {
        TableBlock& table = *data.Table(change.block);
        if (!change.cells) {
            change.cells = CellsOf(table, change.row);
            for (CColumnVector& column : table.columns)
                column.Erase(change.row);
            return;
        }
        for (std::size_t column = 0; column < table.columns.size(); ++column)
            table.columns[column].Insert(change.row,
                                         column < change.cells->size() ? (*change.cells)[column] : std::string());
        change.cells.reset();
    }
    void operator()(TableChange& change) const { std::swap(*data.Table(change.block), change.table); }
    template <typename Record>
    void operator()(RecordChange<Record>& change) const
    {
        std::swap(RecordsOf<Record>(data)[change.row], change.record);
    }
    template <typename Record>
    void operator()(RecordRowChange<Record>& change) const
    {
        std::vector<Record>& records = RecordsOf<Record>(data);
        const auto place = records.begin() + static_cast<std::ptrdiff_t>(change.row);
        if (change.record) {
            records.insert(place, *std::move(change.record));
            change.record.reset();
        } else {
            change.record = std::move(*place);
            records.erase(place);
        }
    }
    template <typename Record>
    void operator()(RecordsChange<Record>& change) const
    {
        std::swap(RecordsOf<Record>(data), change.records);
    }
    void operator()(HeightTypesChange& change) const { std::swap(data.hGirder.types, change.types); }
    void operator()(NamesChange& change) const { std::swap(*data.Names(change.block), change.names); }
    void operator()(SurroundingsChange& change) const
    {
        std::swap(data.versionWord, change.versionWord);
        std::swap(data.unknownLines, change.unknownLines);
        std::swap(data.stringerNames, change.stringerNames);
    }
};

// --- what a change concerns --------------------------------------------------------------------------

struct PlaceFinder {
    ChangedRow operator()(const OptionChange& change) const { return {change.block, static_cast<int>(change.row)}; }
    ChangedRow operator()(const CellChange& change) const { return {change.block, static_cast<int>(change.row)}; }
    ChangedRow operator()(const RowChange& change) const { return {change.block, -1}; }
    ChangedRow operator()(const TableChange& change) const { return {change.block, -1}; }
    template <typename Record>
    ChangedRow operator()(const RecordChange<Record>& change) const
    {
        return {BlockOf<Record>(), static_cast<int>(change.row)};
    }
    template <typename Record>
    ChangedRow operator()(const RecordRowChange<Record>&) const
    {
        return {BlockOf<Record>(), -1};
    }
    template <typename Record>
    ChangedRow operator()(const RecordsChange<Record>&) const
    {
        return {BlockOf<Record>(), -1};
    }
    ChangedRow operator()(const HeightTypesChange&) const { return {311, -1}; }
    ChangedRow operator()(const NamesChange& change) const { return {change.block, -1}; }
    ChangedRow operator()(const SurroundingsChange&) const { return {0, -1}; }
};

// --- sizes -------------------------------------------------------------------------------------------

std::size_t Bytes(const std::string& text)
{
    return sizeof(std::string) + text.capacity();
}

template <typename Range>
std::size_t BytesOfTexts(const Range& texts)
{
    std::size_t bytes = 0;
    for (const std::string& text : texts)
        bytes += Bytes(text);
    return bytes;
}

std::size_t Bytes(const HGirderRecord& record)
{
    return sizeof(record) + BytesOfTexts(record.names);
}

std::size_t Bytes(const LRibRecord& record)
{
    return sizeof(record) + BytesOfTexts(record.names)
           + (record.left.numbers.capacity() + record.right.numbers.capacity()) * sizeof(double);
}

std::size_t Bytes(const CrossRibRecord& record)
{
    return sizeof(record) + BytesOfTexts(record.names)
           + (record.left.numbers.capacity() + record.right.numbers.capacity()) * sizeof(double)
           + record.furtherSizes.capacity() * sizeof(record.furtherSizes.front());
}

struct Sizer {
    std::size_t operator()(const OptionChange& change) const { return Bytes(change.value); }
    std::size_t operator()(const CellChange& change) const { return Bytes(change.text); }
    std::size_t operator()(const RowChange& change) const { return change.cells ? BytesOfTexts(*change.cells) : 0; }
    std::size_t operator()(const TableChange& change) const
    {
        std::size_t bytes = 0;
        for (const CColumnVector& column : change.table.columns)
            bytes += sizeof(column) + column.MemoryUsed();
        return bytes;
    }
    template <typename Record>
    std::size_t operator()(const RecordChange<Record>& change) const
    {
        return Bytes(change.record);
    }
    template <typename Record>
    std::size_t operator()(const RecordRowChange<Record>& change) const
    {
        return change.record ? Bytes(*change.record) : 0;
    }
    template <typename Record>
    std::size_t operator()(const RecordsChange<Record>& change) const
    {
        std::size_t bytes = 0;
        for (const Record& record : change.records)
            bytes += Bytes(record);
        return bytes;
    }
    std::size_t operator()(const HeightTypesChange& change) const { return BytesOfTexts(change.types); }
    std::size_t operator()(const NamesChange& change) const
    {
        std::size_t bytes = 0;
        for (const std::vector<std::string>& list : change.names.lists)
            bytes += BytesOfTexts(list);
        return bytes;
    }
    std::size_t operator()(const SurroundingsChange& change) const
    {
        return BytesOfTexts(change.unknownLines) + BytesOfTexts(change.stringerNames);
    }
};

} // namespace

void Exchange(CSbdData& data, ProjectChange& change)
{
    std::visit(Exchanger{data}, change);
}

void TakeBack(CSbdData& data, std::span<ProjectChange> changes)
{
    for (std::size_t i = changes.size(); i > 0; --i)
        Exchange(data, changes[i - 1]);
}

void MakeAgain(CSbdData& data, std::span<ProjectChange> changes)
{
    for (ProjectChange& change : changes)
        Exchange(data, change);
}

std::size_t SizeOf(const ProjectChange& change)
{
    return sizeof(change) + std::visit(Sizer{}, change);
}

std::vector<ChangedRow> ChangedRows(std::span<const ProjectChange> changes)
{
    std::set<int> moved; // blocks whose rows appeared or vanished
    for (const ProjectChange& change : changes)
        if (const ChangedRow place = std::visit(PlaceFinder{}, change); place.row < 0)
            moved.insert(place.block);
    std::vector<ChangedRow> places;
    std::set<std::pair<int, int>> known;
    for (const ProjectChange& change : changes) {
        ChangedRow place = std::visit(PlaceFinder{}, change);
        if (moved.contains(place.block))
            place.row = -1;
        if (place.block != 0 && known.emplace(place.block, place.row).second)
            places.push_back(place);
    }
    return places;
}

// --- the writer --------------------------------------------------------------------------------------

void CProjectWriter::Keep(ProjectChange change)
{
    Exchange(data_, change);
    changes_.push_back(std::move(change));
}

void CProjectWriter::SetOption(int block, std::size_t row, std::string_view value)
{
    if (data_.Option(block, row) != value)
        Keep(OptionChange{block, row, std::string(value)});
}

void CProjectWriter::SetCell(int block, std::size_t row, std::size_t column, std::string_view text)
{
    if (data_.Table(block)->columns[column][row] != text)
        Keep(CellChange{block, row, column, std::string(text)});
}

void CProjectWriter::InsertRow(int block, std::size_t row, std::vector<std::string> cells)
{
    Keep(RowChange{block, row, std::move(cells)});
}

void CProjectWriter::EraseRow(int block, std::size_t row)
{
    Keep(RowChange{block, row, std::nullopt});
}

void CProjectWriter::ReplaceTable(int block, TableBlock table)
{
    Keep(TableChange{block, std::move(table)});
}

void CProjectWriter::SetHeightTypes(const std::array<std::string, 4>& types)
{
    if (data_.hGirder.types != types)
        Keep(HeightTypesChange{types});
}

void CProjectWriter::SetNames(int block, NameLists names)
{
    if (!(*data_.Names(block) == names))
        Keep(NamesChange{block, std::move(names)});
}

void CProjectWriter::Replace(const CSbdData& other)
{
    for (const CatalogueRow& row : Catalogue())
        if (const TableBlock* table = other.Table(row.block);
            (table != nullptr) && !(*table == *data_.Table(row.block)))
            ReplaceTable(row.block, *table);
    for (const OptionBlock& block : OptionBlocks())
        for (std::size_t row = 0; row < block.rows.size(); ++row)
            SetOption(block.block, row, other.Option(block.block, row));
    SetHeightTypes(other.hGirder.types);
    if (data_.hGirder.records != other.hGirder.records)
        ReplaceRecords(other.hGirder.records);
    if (data_.crossRibs != other.crossRibs)
        ReplaceRecords(other.crossRibs);
    if (data_.lRibs != other.lRibs)
        ReplaceRecords(other.lRibs);
    for (const int block : {501, 702})
        SetNames(block, *other.Names(block));
    if (data_.versionWord != other.versionWord || data_.unknownLines != other.unknownLines
        || data_.stringerNames != other.stringerNames)
        Keep(SurroundingsChange{other.versionWord, other.unknownLines, other.stringerNames});
}

} // namespace sbd
