// Which place of a project a line of an engine's report speaks of.
#pragma once

#include "check/shown_block.h"

#include <map>
#include <optional>
#include <string_view>

namespace sbd {

class CSbdData;

enum class ReportWeight { None, Warning, Error };

/// What a line says of itself by its first word; the totals at a report's end ("Error = 1") say nothing. CP932.
[[nodiscard]] ReportWeight WeightOfLine(std::string_view line);

/// A place as far as it is known: row and column are those of the grid, 0 for what is not.
struct ReportPlace {
    int block = 0;
    int row = 0;
    int column = 0;
    friend bool operator==(const ReportPlace&, const ReportPlace&) = default;
};

/// Looks for places in the lines of a report. The form of a line is its engine's own, so only this counts: a block by
/// "[313]", by number and title, or by its tag; a row by "5行目" or "行 = 5" if the block has it, by the label of an
/// option, or by names of the bridge that stand in one of its cells.
class CReportPlaces {
public:
    /// The data are looked at when a place is asked for; another finder is due when they have changed.
    explicit CReportPlaces(const CSbdData& data) : data_(data) {}

    /// Nothing for a line that names no block with a panel. CP932.
    [[nodiscard]] std::optional<ReportPlace> PlaceOf(std::string_view line);

private:
    [[nodiscard]] const ShownBlock& ShownOf(int block);
    void FindNamed(std::string_view line, ReportPlace& place);
    [[nodiscard]] bool IsName(std::string_view word) const;

    const CSbdData& data_;
    std::map<int, ShownBlock> shown_; // a panel is much to make for one line
};

} // namespace sbd
