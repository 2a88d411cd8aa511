// Writing to a project: what is written is kept together with what stood there, so that it can be taken back.
#pragma once

#include "project/sbd_data.h"

#include <optional>
#include <span>
#include <variant>

namespace sbd {

/// A place in the data that was written: block and stored row from 0; row -1 means that rows appeared or vanished.
struct ChangedRow {
    int block = 0;
    int row = -1;
    friend bool operator==(const ChangedRow&, const ChangedRow&) = default;
};

// One change each. It holds the state that does not stand in the data: once exchanged with the data, the one before.

struct OptionChange {
    int block;
    std::size_t row;
    std::string value;
};
struct CellChange {
    int block;
    std::size_t row;
    std::size_t column;
    std::string text;
};
/// A row of a table that comes (with its cells) or goes.
struct RowChange {
    int block;
    std::size_t row;
    std::optional<std::vector<std::string>> cells;
};
/// A table as a whole.
struct TableChange {
    int block;
    TableBlock table;
};
/// A record that is replaced.
template <typename Record>
struct RecordChange {
    std::size_t row;
    Record record;
};
/// A record that comes (given) or goes.
template <typename Record>
struct RecordRowChange {
    std::size_t row;
    std::optional<Record> record;
};
/// The records of a block as a whole.
template <typename Record>
struct RecordsChange {
    std::vector<Record> records;
};
/// The types at the head of block 311.
struct HeightTypesChange {
    std::array<std::string, 4> types;
};
/// The name lists of 501 or 702.
struct NamesChange {
    int block;
    NameLists names;
};
/// What a file holds beside its blocks, and what is read out of them.
struct SurroundingsChange {
    std::string versionWord;
    std::vector<std::string> unknownLines;
    std::vector<std::string> stringerNames;
};

using ProjectChange =
    std::variant<OptionChange, CellChange, RowChange, TableChange, RecordChange<HGirderRecord>,
                 RecordChange<CrossRibRecord>, RecordChange<LRibRecord>, RecordRowChange<HGirderRecord>,
                 RecordRowChange<CrossRibRecord>, RecordRowChange<LRibRecord>, RecordsChange<HGirderRecord>,
                 RecordsChange<CrossRibRecord>, RecordsChange<LRibRecord>, HeightTypesChange, NamesChange,
                 SurroundingsChange>;

/// Exchanges the state that a change holds with that in the data. Called twice, nothing has changed.
void Exchange(CSbdData& data, ProjectChange& change);
/// Takes changes back, the last one first, or makes them again.
void TakeBack(CSbdData& data, std::span<ProjectChange> changes);
void MakeAgain(CSbdData& data, std::span<ProjectChange> changes);
/// Bytes that a change holds, about.
[[nodiscard]] std::size_t SizeOf(const ProjectChange& change);
/// What the changes concern, each place once; row -1 alone where rows of a block appeared or vanished.
[[nodiscard]] std::vector<ChangedRow> ChangedRows(std::span<const ProjectChange> changes);

/// Writes to a project and keeps the changes. A write of what stands there already changes nothing and is not kept.
class CProjectWriter {
public:
    explicit CProjectWriter(CSbdData& data) : data_(data) {}

    [[nodiscard]] const CSbdData& Data() const { return data_; }
    [[nodiscard]] const std::vector<ProjectChange>& Changes() const { return changes_; }
    [[nodiscard]] std::vector<ProjectChange> TakeChanges() { return std::move(changes_); }

    /// Row from 0.
    void SetOption(int block, std::size_t row, std::string_view value);

    // Tables; rows and columns from 0.
    void SetCell(int block, std::size_t row, std::size_t column, std::string_view text);
    void InsertRow(int block, std::size_t row, std::vector<std::string> cells);
    void EraseRow(int block, std::size_t row);
    void ReplaceTable(int block, TableBlock table);

    // Records of 311, 324 and 325: the type tells the block.
    template <typename Record>
    void SetRecord(std::size_t row, Record record)
    {
        Keep(RecordChange<Record>{row, std::move(record)});
    }
    template <typename Record>
    void InsertRecord(std::size_t row, Record record)
    {
        Keep(RecordRowChange<Record>{row, std::move(record)});
    }
    template <typename Record>
    void EraseRecord(std::size_t row)
    {
        Keep(RecordRowChange<Record>{row, std::nullopt});
    }
    template <typename Record>
    void ReplaceRecords(std::vector<Record> records)
    {
        Keep(RecordsChange<Record>{std::move(records)});
    }

    void SetHeightTypes(const std::array<std::string, 4>& types);
    void SetNames(int block, NameLists names);
    /// Makes the project `other`, as far as a file stores it. Keeps the blocks that differ.
    void Replace(const CSbdData& other);

private:
    void Keep(ProjectChange change);

    CSbdData& data_;
    std::vector<ProjectChange> changes_;
};

/// The records of a type.
template <typename Record>
[[nodiscard]] std::vector<Record>& RecordsOf(CSbdData& data)
{
    if constexpr (std::is_same_v<Record, HGirderRecord>)
        return data.hGirder.records;
    else if constexpr (std::is_same_v<Record, CrossRibRecord>)
        return data.crossRibs;
    else
        return data.lRibs;
}

} // namespace sbd
