// Panels whose rows come and go: what was changed, and what of it must be written.
#pragma once

#include "panelmodel/panel_model.h"

#include <set>
#include <vector>

namespace sbd {

/// Bookkeeping for a block of rows. The working copy has one entry a grid row below HeadRows(), spare rows included;
/// entries count from 0. Only entries that are kept (their first cell is filled, or whatever the block asks for) stand
/// in the data, closed up, in the same order.
class CRowPanelModel : public CPanelModel {
public:
    [[nodiscard]] int BlockRows() const override;
    [[nodiscard]] int GridRows() const override { return headRows_ + EntryCount() - dropped_; }
    [[nodiscard]] bool TakesRows() const override { return true; }
    [[nodiscard]] std::string WhyLocked(int row, int column) const override;
    bool AddRows(int count) override;
    [[nodiscard]] bool IsWritten(int row) const override;
    [[nodiscard]] int RowsAhead() const override { return headRows_; }

    [[nodiscard]] bool IsChanged() const override;
    void TakeBaseline() override;

    [[nodiscard]] bool CanMoveUp(int row) const override;
    [[nodiscard]] bool CanMoveDown(int row) const override;
    [[nodiscard]] bool CanInsert(int row) const override;
    void MoveRow(int from, int to) override;
    [[nodiscard]] int FixedRows() const override { return fixedRows_; }
    [[nodiscard]] bool MovesRows() const override { return true; }
    void RemoveRow(int row) override;

    void Commit(CProjectWriter& writer) override;
    [[nodiscard]] LooseRows Loose() const override;
    void PutLoose(const LooseRows& loose) override;

protected:
    /// `headRows`: rows of the grid above the first entry. `fixedRows`: rows at the top that do not move, these included.
    CRowPanelModel(const CSbdData& data, int block, const PanelSettings& settings, int headRows, int fixedRows);

    /// To be called by the constructor of the derived class when its working copy stands. The first `stored` entries
    /// are those in the data; `spare` entries are put behind them.
    void StartEntries(int stored, int spare);
    /// An entry at the top that is not in the data yet was added at set-up. It is written at the first commit and
    /// does not count as a change of the user's.
    void StartWithNewEntry(int entry);

    [[nodiscard]] int HeadRows() const { return headRows_; }
    [[nodiscard]] int EntryOf(int row) const { return row - headRows_ - 1; }
    void Touch(int entry);
    void TouchAll();

    void DropLastRow() override { ++dropped_; }

    // --- what the derived class knows about its entries --------------------------------------------
    [[nodiscard]] virtual int EntryCount() const = 0;
    virtual void AppendEmptyEntries(int count) = 0;
    virtual void MoveEntry(int from, int to) = 0;
    virtual void ClearEntry(int entry) = 0;
    [[nodiscard]] virtual bool IsKept(int entry) const = 0;
    /// True if the entry would be written as the entry `baseline` of the last baseline was.
    [[nodiscard]] virtual bool SameAsBaseline(int entry, int baseline) const = 0;
    virtual void CopyToBaseline() = 0;
    /// Writes the entry over a stored row.
    virtual void Store(CProjectWriter& writer, int entry, int storedRow) = 0;
    virtual void InsertStored(CProjectWriter& writer, int entry, int storedRow) = 0;
    virtual void EraseStored(CProjectWriter& writer, int storedRow) = 0;
    virtual void StoreAll(CProjectWriter& writer, const std::vector<int>& entries) = 0;

private:
    [[nodiscard]] bool WasInBaseline(int entry) const;
    [[nodiscard]] bool SameRowsAsBaseline(int first, int last) const;
    [[nodiscard]] std::vector<int> KeptEntries() const;
    void Compare(int entry);

    int headRows_;
    int fixedRows_;
    int dropped_ = 0;          // entries at the end without a row: blank, but perhaps still to be taken out of the data
    std::vector<char> stored_; // an entry: does it stand in the data
    std::vector<int> erased_;  // stored rows to be erased at the next commit, one after the other
    std::vector<char> baseline_; // an entry: did it stand in the baseline
    std::set<int> dirty_;        // entries that Commit looks at
    std::set<int> changed_;      // entries in data and baseline that differ
    std::set<int> comeOrGone_;   // entries that stand in just one of both
};

} // namespace sbd
