#include "panelmodel/row_panel.h"

#include "project/text.h"

#include <algorithm>
#include <utility>

namespace sbd {

namespace {

/// With more rows than this to insert or to erase, the columns are built anew.
constexpr std::ptrdiff_t kFewRows = 16;

} // namespace

CRowPanelModel::CRowPanelModel(const CSbdData& data, int block, const PanelSettings& settings, int headRows,
                               int fixedRows)
    : CPanelModel(data, block, settings)
    , headRows_(headRows)
    , fixedRows_(fixedRows)
{
}

void CRowPanelModel::StartEntries(int stored, int spare)
{
    AppendEmptyEntries(spare);
    stored_.assign(static_cast<std::size_t>(EntryCount()), 0);
    std::fill_n(stored_.begin(), stored, 1);
    if (Settings().tellsWhatChanged) {
        baseline_ = stored_;
        CopyToBaseline();
    }
    for (int entry = 0; entry < stored; ++entry)
        if (!IsKept(entry))
            Touch(entry);
}

void CRowPanelModel::StartWithNewEntry(int entry)
{
    stored_[static_cast<std::size_t>(entry)] = 0;
    dirty_.insert(entry);
}

int CRowPanelModel::BlockRows() const
{
    for (int row = GridRows(); row > headRows_; --row)
        if (IsKept(EntryOf(row)) || !IsBlankRow(row))
            return row;
    return headRows_;
}

std::string CRowPanelModel::WhyLocked(int row, int) const
{
    return Cp932(row <= fixedRows_ ? "設定の行です。この欄には入力できません。"
                                   : "この欄は、ほかの欄の設定により使わないため、入力できません。");
}

bool CRowPanelModel::IsWritten(int row) const
{
    return row >= 1 && row <= GridRows() && (row <= headRows_ || IsKept(EntryOf(row)));
}

bool CRowPanelModel::AddRows(int count)
{
    const int again = std::min(dropped_, count);
    dropped_ -= again;
    AppendEmptyEntries(count - again);
    stored_.resize(static_cast<std::size_t>(EntryCount()), 0);
    return true;
}

void CRowPanelModel::Touch(int entry)
{
    dirty_.insert(entry);
    Compare(entry);
}

void CRowPanelModel::TouchAll()
{
    for (int entry = 0; entry < EntryCount(); ++entry)
        Touch(entry);
}

bool CRowPanelModel::WasInBaseline(int entry) const
{
    const std::size_t index = static_cast<std::size_t>(entry);
    return index < baseline_.size() && baseline_[index];
}

void CRowPanelModel::Compare(int entry)
{
    if (!Settings().tellsWhatChanged)
        return;
    const bool was = WasInBaseline(entry);
    const bool is = IsKept(entry);
    changed_.erase(entry);
    comeOrGone_.erase(entry);
    if (was != is)
        comeOrGone_.insert(entry);
    else if (is && !SameAsBaseline(entry, entry))
        changed_.insert(entry);
}

bool CRowPanelModel::IsChanged() const
{
    if (comeOrGone_.empty())
        return !changed_.empty();
    std::ptrdiff_t come = 0;
    for (const int entry : comeOrGone_)
        come += WasInBaseline(entry) ? -1 : 1;
    if (come != 0)
        return true;
    // As many have come as have gone: only between the first and the last of them rows stand against others.
    const int first = *comeOrGone_.begin();
    const int last = *comeOrGone_.rbegin();
    const bool otherwise =
        std::ranges::any_of(changed_, [first, last](int entry) { return entry < first || entry > last; });
    return otherwise || !SameRowsAsBaseline(first, last);
}

/// Compares the rows of the entries `first` to `last`, closed up, with those of the baseline there.
bool CRowPanelModel::SameRowsAsBaseline(int first, int last) const
{
    int kept = first;
    for (int before = first; before <= last; ++before) {
        if (!WasInBaseline(before))
            continue;
        while (!IsKept(kept)) // as many are kept as stood there before
            ++kept;
        if (!SameAsBaseline(kept++, before))
            return false;
    }
    return true;
}

std::vector<int> CRowPanelModel::KeptEntries() const
{
    std::vector<int> kept;
    for (int entry = 0; entry < EntryCount(); ++entry)
        if (IsKept(entry))
            kept.push_back(entry);
    return kept;
}

void CRowPanelModel::TakeBaseline()
{
    if (!Settings().tellsWhatChanged)
        return;
    CopyToBaseline();
    baseline_.assign(static_cast<std::size_t>(EntryCount()), 0);
    for (const int entry : KeptEntries())
        baseline_[static_cast<std::size_t>(entry)] = 1;
    changed_.clear();
    comeOrGone_.clear();
}

void CRowPanelModel::Commit(CProjectWriter& writer)
{
    const auto comesOrGoes = [this](int entry) {
        return IsKept(entry) != bool(stored_[static_cast<std::size_t>(entry)]);
    };
    const std::ptrdiff_t erased = std::ssize(erased_);
    if (std::ranges::count_if(dirty_, comesOrGoes) + erased > kFewRows) {
        erased_.clear();
        const std::vector<int> kept = KeptEntries();
        StoreAll(writer, kept);
        std::ranges::fill(stored_, 0);
        for (const int entry : kept)
            stored_[static_cast<std::size_t>(entry)] = 1;
        dirty_.clear();
        return;
    }
    for (const int row : std::exchange(erased_, {}))
        EraseStored(writer, row);
    std::ptrdiff_t counted = 0;
    int storedRow = 0; // stored entries ahead of `counted`
    for (const int entry : dirty_) {
        const auto begin = stored_.begin();
        storedRow += static_cast<int>(std::count(begin + counted, begin + entry, 1));
        counted = entry;
        if (!comesOrGoes(entry)) {
            if (IsKept(entry))
                Store(writer, entry, storedRow);
            continue;
        }
        if (IsKept(entry))
            InsertStored(writer, entry, storedRow);
        else
            EraseStored(writer, storedRow);
        stored_[static_cast<std::size_t>(entry)] = IsKept(entry) ? 1 : 0;
    }
    dirty_.clear();
}

LooseRows CRowPanelModel::Loose() const
{
    LooseRows loose{GridRows(), {}};
    const auto lastStored = std::find(stored_.rbegin(), stored_.rend(), 1).base();
    for (auto entry = std::find(stored_.begin(), stored_.end(), 0); entry != stored_.end();
         entry = std::find(entry + 1, stored_.end(), 0)) {
        const int row = headRows_ + 1 + static_cast<int>(entry - stored_.begin());
        // A row that is kept waits for the commit: the panel puts it there itself.
        const bool isKept = IsKept(static_cast<int>(entry - stored_.begin()));
        if (isKept || row > loose.gridRows || (entry >= lastStored && IsBlankRow(row)))
            continue;
        LooseRow& kept = loose.rows.emplace_back(LooseRow{row, {}});
        for (int column = 1; column < ColumnCount(); ++column)
            kept.cells.push_back(Text(row, column));
    }
    return loose;
}

void CRowPanelModel::PutLoose(const LooseRows& loose)
{
    for (const LooseRow& row : loose.rows) {
        AddRows(1);
        if (row.row < GridRows())
            MoveRow(GridRows(), row.row);
        for (int column = 1; column < ColumnCount(); ++column)
            if (const std::string& text = row.cells[static_cast<std::size_t>(column) - 1];
                !text.empty() && !IsLocked(row.row, column))
                DoSetCell(row.row, column, text);
    }
    if (loose.gridRows == 0)
        return;
    if (GridRows() < loose.gridRows)
        AddRows(loose.gridRows - GridRows());
    TakeBackRows(GridRows() - loose.gridRows);
}

bool CRowPanelModel::CanMoveUp(int row) const
{
    return row > fixedRows_ + 1 && row <= GridRows();
}

bool CRowPanelModel::CanMoveDown(int row) const
{
    return row > fixedRows_ && row < GridRows();
}

bool CRowPanelModel::CanInsert(int row) const
{
    return row > fixedRows_ && row < GridRows();
}

void CRowPanelModel::MoveRow(int from, int to)
{
    MoveEntry(EntryOf(from), EntryOf(to));
    // Whether it stands in the data goes with a row: a blank row moves without a write.
    const auto first = stored_.begin() + std::min(EntryOf(from), EntryOf(to));
    const auto last = stored_.begin() + std::max(EntryOf(from), EntryOf(to)) + 1;
    std::rotate(first, from < to ? first + 1 : last - 1, last);
    for (int row = std::min(from, to); row <= std::max(from, to); ++row)
        Touch(EntryOf(row));
}

/// Its stored row is erased as a whole, so that the rows below are not written again.
void CRowPanelModel::RemoveRow(int row)
{
    const int entry = EntryOf(row);
    char& stored = stored_[static_cast<std::size_t>(entry)];
    if (stored)
        erased_.push_back(static_cast<int>(std::count(stored_.begin(), stored_.begin() + entry, 1)));
    stored = 0;
    ClearEntry(entry);
    if (row < GridRows())
        MoveRow(row, GridRows());
    else
        Touch(entry);
}

} // namespace sbd
