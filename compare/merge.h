// Two projects that were made from a third one, put together row by row.
#pragma once

#include "project/sbd_data.h"

#include <string>
#include <vector>

namespace sbd {

enum class ConflictKind {
    Value,            ///< a value that both have changed, each in another way; ours stays
    RemovedOrChanged, ///< a row that one has removed and the other changed; the changed one stays
    AddedTwice,       ///< rows for the same place in the bridge that both have added; both stay
};

/// What a person has to decide. Texts in CP932.
struct MergeConflict {
    ConflictKind kind = ConflictKind::Value;
    int block = 0;     ///< 0: sections that are not known, the version word
    int row = 0;       ///< of the merged project, from 1, as the grids count; 0: none
    int column = 0;    ///< from 1; 0: none, or the row as a whole
    std::string place; ///< row's label or column's name, as far as there is one
    std::string base;
    std::string ours;
    std::string theirs;
};

struct MergeResult {
    CSbdData data;
    std::vector<MergeConflict> conflicts;
    std::size_t taken = 0; ///< changes that came from theirs
};

/// What `ours` and `theirs` have made of `base`, together. Rows are matched as CompareProjects matches them. Where both
/// have changed the same value, ours stays and the conflict is named. No row that only one of them has removed stays, and
/// none that one of them has added or changed is lost.
[[nodiscard]] MergeResult MergeProjects(const CSbdData& base, const CSbdData& ours, const CSbdData& theirs);

/// One line, UTF-8: "313 垂直補剛材 6行目 6列目(幅1): 元「130」 こちら「150」 相手「160」".
[[nodiscard]] std::string ConflictText(const MergeConflict& conflict);

} // namespace sbd
