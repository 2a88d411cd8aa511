// Find and replace in the cells of a block, or of all blocks of a project.
#pragma once

#include "panelmodel/panel_editor.h"
#include "panelmodel/text_match.h"

#include <optional>
#include <span>

namespace sbd {

/// What is looked for. Texts are CP932.
struct FindRequest {
    std::string wanted;
    MatchRule rule;
    std::optional<std::string> by; ///< nothing: it is found only, in labels too
    int block = 0;                 ///< 0: all blocks
};

/// What a replace can do with a cell.
enum class HitState {
    Free,
    Locked,   ///< it takes no text
    Hidden,   ///< its row is out of sight
    NoNumber, ///< a cell of numbers, and the new text is none
    LosesRow, ///< without this text the row, or the name, is none
};

/// A cell that holds the text; grid row and column.
struct CellHit {
    int block = 0;
    int row = 0;
    int column = 0;
    std::string before;
    std::string after; ///< the same where nothing is replaced
    HitState state = HitState::Free;
    std::string part = {};        ///< NoNumber: what of it is none
    bool leavesList = false;      ///< a word of the cell's list becomes another text
    std::vector<int> alsoIn = {}; ///< blocks that show the same value, and follow
    friend bool operator==(const CellHit&, const CellHit&) = default;
};

/// The grid of the block on show, where it holds more than the data, or shows less.
struct OpenGrid {
    int block = 0; ///< 0: none
    LooseRows loose = {};
    std::vector<char> hidden = {}; ///< by row - 1
};

/// Every cell of the panels that holds the text, by block, row and column. A value that several blocks share is there once.
/// A cell that would stay as it is, is not.
[[nodiscard]] std::vector<CellHit> FindCells(const CSbdData& data, const FindRequest& request,
                                             const OpenGrid& open = {});

/// What a replace did.
struct ReplaceOutcome {
    std::size_t put = 0;
    std::size_t stayed = 0; ///< another text stands there now, or the cell does not take the new one
};

/// Puts in what FindCells() has found: the cells that are free and still hold the text of then. What follows, follows.
ReplaceOutcome ReplaceCells(CProjectWriter& writer, std::span<const CellHit> hits);

/// The cells of a grid that such hits are for: those that are free and still hold the text of then.
[[nodiscard]] std::vector<CellEntry> TextsOf(const CPanelModel& panel, std::span<const CellHit> hits);

} // namespace sbd
