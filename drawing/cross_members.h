// Which member stands between two girders at a cross line (block 523).
#pragma once

#include "drawing/bridge_grid.h"
#include "drawing/table_rows.h"

#include <optional>
#include <span>
#include <string>
#include <vector>

namespace sbd {

enum class CrossMemberKind {
    None, ///< no row, or a row that says that nothing is there
    Beam,
    Sway,
};

struct CrossMember {
    CrossMemberKind kind = CrossMemberKind::None;
    std::string type;  ///< CP932, as the cell has it
    SourceCell source; ///< block 0 without a row
};

/// The last row of a block of members that names a gap and a station. `end`: 0 the end at the first girder, 1 the other
/// one, -1 where the block has no word for it; `parts`: words of which the cell behind must be one, none: any.
[[nodiscard]] std::optional<std::size_t> LastMemberRow(CDrawingBuild& build, const CTableRows& rows,
                                                       const CBridgeGrid& grid, std::size_t gap, std::size_t station,
                                                       int end, std::span<const std::string> parts = {});

/// The members of the bridge by the rule that later rows win.
class CCrossMembers {
public:
    CCrossMembers(CDrawingBuild& build, const CSbdData& data, const CBridgeGrid& grid);

    /// The member between the girders `gap` and `gap` + 1.
    [[nodiscard]] CrossMember At(std::size_t gap, std::size_t station) const;

    /// A row and where it stands.
    struct Row {
        SourceCell place;
        IndexRange girders;
        IndexRange stations;
        bool covered = false;
    };
    [[nodiscard]] const std::vector<Row>& Rows() const { return named_; }

private:
    CTableRows rows_;
    std::vector<Row> named_;
    std::vector<CLastRowWins> gaps_;
};

} // namespace sbd
