// Panels of the blocks that keep records.
#pragma once

#include "panelmodel/row_panel.h"
#include "project/sbd_data.h"

#include <algorithm>

namespace sbd {

/// A block whose rows are records of type `Record`. The cells are made from the record; a record whose cells are all
/// empty is not written.
template <typename Record>
class CRecordPanelModel : public CRowPanelModel {
public:
    [[nodiscard]] int ColumnCount() const override { return static_cast<int>(panel_.widths.size()); }
    [[nodiscard]] int HeadHeight() const override { return panel_.headHeight; }
    [[nodiscard]] int NameColumns() const override
    {
        std::size_t column = 1;
        while (column < panel_.heads.size() && IsNameColumn(panel_.heads[column], panel_.words[column]))
            ++column;
        return std::max(1, static_cast<int>(column) - 1);
    }
    [[nodiscard]] std::string Text(int row, int column) const override
    {
        if (!IsInside(row, column))
            return {};
        return row <= HeadRows() ? HeadRowText(row, column) : Field(EntryAt(EntryOf(row)), column);
    }

protected:
    CRecordPanelModel(const CSbdData& data, int block, const PanelSettings& settings, int headRows,
                      const std::vector<Record>& stored)
        : CRowPanelModel(data, block, settings, headRows, headRows)
        , panel_(*FindRecordPanel(block))
        , store_(stored)
        , entries_(stored)
    {
        CListNames own(data, settings.listNames);
        for (const WordList& words : panel_.words)
            words_.push_back(ResolveWords(words, settings.names != nullptr ? *settings.names : own));
    }

    /// To be called by the constructor of the derived class.
    void Start()
    {
        constexpr int spareRows = 100;
        for (Record& record : entries_)
            Unfold(record);
        StartEntries(EntryCount(), spareRows);
    }

    // --- what the block knows about its records ----------------------------------------------------
    [[nodiscard]] virtual std::string HeadRowText(int row, int column) const = 0;
    virtual CellEffect SetHeadRowCell(int row, int column, std::string_view text) = 0;
    [[nodiscard]] virtual std::string Field(const Record& record, int column) const = 0;
    virtual void SetField(Record& record, int column, std::string_view text) const = 0;
    /// A record of empty cells.
    [[nodiscard]] virtual Record Empty() const = 0;
    /// The record as the data shall hold it.
    [[nodiscard]] virtual Record ToBeStored(const Record& record) const { return record; }
    /// True for a column whose number rules what other cells of the row show.
    [[nodiscard]] virtual bool RulesOthers(int) const { return false; }
    /// What the data leave out, put in: the record as its cells show it.
    virtual void Unfold(Record&) const {}
    [[nodiscard]] virtual bool Same(const Record& a, const Record& b) const { return a == b; }

    [[nodiscard]] const RecordPanel& Panel() const { return panel_; }
    [[nodiscard]] WordList& ColumnWords(int column) { return words_[static_cast<std::size_t>(column)]; }
    [[nodiscard]] const WordList& DoWords(int, int column) const override
    {
        return words_[static_cast<std::size_t>(column)];
    }

    CellEffect DoSetCell(int row, int column, std::string_view text) override
    {
        if (row <= HeadRows())
            return SetHeadRowCell(row, column, text);
        SetField(entries_[static_cast<std::size_t>(EntryOf(row))], column, text);
        Touch(EntryOf(row));
        return RulesOthers(column) ? CellEffect::Panel : CellEffect::Cell;
    }

    // --- entries -----------------------------------------------------------------------------------
    [[nodiscard]] const Record& EntryAt(int entry) const { return entries_[static_cast<std::size_t>(entry)]; }
    [[nodiscard]] int EntryCount() const override { return static_cast<int>(entries_.size()); }
    void AppendEmptyEntries(int count) override
    {
        entries_.insert(entries_.end(), static_cast<std::size_t>(count), Empty());
    }
    void MoveEntry(int from, int to) override
    {
        const auto begin = entries_.begin();
        if (from < to)
            std::rotate(begin + from, begin + from + 1, begin + to + 1);
        else
            std::rotate(begin + to, begin + from, begin + from + 1);
    }
    void ClearEntry(int entry) override { entries_[static_cast<std::size_t>(entry)] = Empty(); }
    [[nodiscard]] bool IsKept(int entry) const override
    {
        for (int column = 1; column < ColumnCount(); ++column)
            if (!Field(EntryAt(entry), column).empty())
                return true;
        return false;
    }
    [[nodiscard]] bool SameAsBaseline(int entry, int baseline) const override
    {
        return Same(ToBeStored(EntryAt(entry)), baseline_[static_cast<std::size_t>(baseline)]);
    }
    void CopyToBaseline() override
    {
        baseline_.clear();
        for (const Record& entry : entries_)
            baseline_.push_back(ToBeStored(entry));
    }
    void Store(CProjectWriter& writer, int entry, int storedRow) override
    {
        const std::size_t row = static_cast<std::size_t>(storedRow);
        if (Record record = ToBeStored(EntryAt(entry)); record != store_[row])
            writer.SetRecord(row, std::move(record));
    }
    void InsertStored(CProjectWriter& writer, int entry, int storedRow) override
    {
        writer.InsertRecord(static_cast<std::size_t>(storedRow), ToBeStored(EntryAt(entry)));
    }
    void EraseStored(CProjectWriter& writer, int storedRow) override
    {
        writer.template EraseRecord<Record>(static_cast<std::size_t>(storedRow));
    }
    void StoreAll(CProjectWriter& writer, const std::vector<int>& entries) override
    {
        std::vector<Record> records;
        for (const int entry : entries)
            records.push_back(ToBeStored(EntryAt(entry)));
        writer.ReplaceRecords(std::move(records));
    }

private:
    const RecordPanel& panel_;
    const std::vector<Record>& store_;
    std::vector<Record> entries_;
    std::vector<Record> baseline_;
    std::vector<WordList> words_;
};

/// The number of a cell that takes one; not given if it is empty.
[[nodiscard]] double CellNumber(std::string_view text);

} // namespace sbd
