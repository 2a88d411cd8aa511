// Read-back: which cells of a project in memory would come back from its file with another text.
#pragma once

#include "check/finding.h"
#include "check/round_trip.h"
#include "panelmodel/panel_model.h"

#include <map>
#include <set>
#include <span>
#include <vector>

namespace sbd {

class CRoundTrip;

/// The blocks that have a panel of their own, ascending.
[[nodiscard]] std::span<const int> ShownBlocks();

/// Every cell of a project that comes back different: one write and one read. `open`: what panels with edits show; a
/// block that is not among them is shown as it stands in `data`.
[[nodiscard]] std::vector<ReturnedCell> ReturnedCells(const CSbdData& data, std::span<const ShownBlock> open = {});

/// The finding that tells of such a cell.
[[nodiscard]] Finding FindingOf(const ReturnedCell& cell);

/// Keeps for each block the cells that come back different. Update() looks at changed blocks alone, and in their tables
/// only at rows that may not come back as they are.
class CReadBack {
public:
    /// Looks at everything.
    void Reset(const CSbdData& data);
    /// Looks again at what was changed since. A row of -1: rows of the block appeared or vanished.
    void Update(const CSbdData& data, std::span<const ChangedRow> changed);

    /// Blocks with such cells, ascending.
    [[nodiscard]] std::vector<int> Blocks() const;
    [[nodiscard]] std::span<const ReturnedCell> CellsOf(int block) const;
    [[nodiscard]] std::size_t Count() const;
    /// All of them, up to the bound.
    [[nodiscard]] FindingList Findings() const;

private:
    void LookAt(const CSbdData& data, const std::set<int>& blocks);
    void LookAtAll(const CSbdData& data);

    std::map<int, std::vector<int>> doubtful_; // of a table block: rows that may come back as others, ascending
    std::map<int, std::vector<ReturnedCell>> cells_;
    bool leaks_ = false; // a section takes others with it: the whole text must be looked at
};

} // namespace sbd
