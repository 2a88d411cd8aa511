// The tables of the block tree.
#pragma once

#include "panelmodel/tree_rows.h"

namespace sbd {

struct BlockRange {
    int first;
    int last;
};
using BlockRanges = std::vector<BlockRange>;

/// A group of the tree.
struct TreeGroup {
    int block;
    std::string_view title; ///< UTF-8; empty: by the project's type
};
/// In the order of the tree. What stands in them is told by the rows of the catalogue.
[[nodiscard]] const std::vector<TreeGroup>& TreeGroups();

/// What the tree shows of a project by the beginning of its type.
struct ProjectKind {
    std::string_view typeBegins; ///< UTF-8; empty: every other type, a whole bridge
    std::string_view group290;
    std::string_view group300;
    std::string_view block301;
    std::vector<int> groups; ///< groups shown; empty: by mode and filters
    BlockRanges items;       ///< items shown
};
/// The first row that fits holds; the last one fits all types.
[[nodiscard]] const std::vector<ProjectKind>& ProjectKinds();

/// What a filter command leaves out.
struct FilteredItems {
    Command command;
    TreeFilter filter;
    int group; ///< head left out with it; 0: none
    BlockRanges items;
};
[[nodiscard]] const std::vector<FilteredItems>& FilteredItemTable();

} // namespace sbd
