// What the tree and the panels show, as JSON.
#pragma once

#include <nlohmann/json_fwd.hpp>

namespace sbd {

class CPanelModel;
class CSbdData;
struct TreeView;

/// The tree from top to bottom: level, block, text, bold.
[[nodiscard]] nlohmann::json TreeListing(const CSbdData& data, const TreeView& view);

/// A panel as set up, before any cell has the focus. Word lists stand once in "lists"; a cell holds the number of its.
[[nodiscard]] nlohmann::json PanelListing(const CPanelModel& panel);

} // namespace sbd
