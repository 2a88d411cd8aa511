// CPanelModel: what the panel of one block shows, and how it is written back.
#pragma once

#include "panelmodel/number_text.h"
#include "project/edit_history.h"
#include "project/panel_columns.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// Display settings that a panel follows.
struct PanelSettings {
    bool wordLists = true; ///< false: no cell has a word list
    int rowWidthMode = 0;  ///< pixels by which columns are wider (or narrower) than their base
    ListNames listNames = ListNames::OfTheAnalysis;

    // Of whoever makes many models at once, each for a moment.
    CListNames* names = nullptr;  ///< for the lists, in the place of `listNames`; they outlive the model
    bool tellsWhatChanged = true; ///< false: IsChanged() is not asked, so nothing is kept to compare with
};

/// What a view has to show again after a cell was set.
enum class CellEffect {
    None,  ///< nothing was changed
    Cell,  ///< that cell
    Panel, ///< other cells, their locks or lists, or the heads as well
};

/// 0xRRGGBB; nothing: the default.
using CellColor = std::optional<std::uint32_t>;

inline constexpr std::uint32_t kMandatoryColor = 0xFF00FF;
inline constexpr std::uint32_t kEmphasisColor = 0xFF0000;

/// One block as a grid. Rows and columns are those of the grid: both count from 1 behind the head row and the row
/// numbers, column 0 is the row number. The cells are a working copy; the data change at
/// Commit(). A cell outside of
/// the grid is empty and locked. Texts are CP932.
class CPanelModel {
public:
    virtual ~CPanelModel() = default;
    CPanelModel(const CPanelModel&) = delete;
    CPanelModel& operator=(const CPanelModel&) = delete;

    /// The block whose data are shown, aliases resolved.
    [[nodiscard]] int Block() const { return block_; }
    /// Class of the panel, as the catalogue names it.
    [[nodiscard]] std::string_view ClassName() const { return className_; }

    // --- columns -----------------------------------------------------------------------------------
    /// Columns, the row number included.
    [[nodiscard]] virtual int ColumnCount() const = 0;
    /// Pixels at 96 dpi.
    [[nodiscard]] virtual int ColumnWidth(int column) const = 0;
    [[nodiscard]] virtual int HeadHeight() const = 0;
    /// The first columns, which say what a row is of (names, ranges).
    [[nodiscard]] virtual int NameColumns() const { return 0; }
    /// Head of a column while the focus is in `focusRow` (0: nowhere); a line break is "\n".
    [[nodiscard]] virtual std::string Head(int column, int focusRow = 0) const = 0;
    [[nodiscard]] virtual CellColor HeadColor(int column, int focusRow = 0) const;

    // --- rows --------------------------------------------------------------------------------------
    /// Rows of the block, automatic and head rows included.
    [[nodiscard]] virtual int BlockRows() const = 0;
    /// Rows of the grid, spare rows included.
    [[nodiscard]] virtual int GridRows() const = 0;
    /// True for a row that stands in the block once it is written back; a row ahead of the stored ones always does.
    [[nodiscard]] virtual bool IsWritten(int row) const;
    /// Rows of the grid ahead of the block's stored rows.
    [[nodiscard]] virtual int RowsAhead() const { return 0; }
    [[nodiscard]] int SpareRows() const { return GridRows() - BlockRows(); }
    /// True if spare rows can be appended.
    [[nodiscard]] virtual bool TakesRows() const { return false; }
    /// Appends spare rows; false where the block's rows are fixed.
    virtual bool AddRows(int count);
    /// Takes up to `count` rows off the end again, as far as they are blank.
    void TakeBackRows(int count);
    [[nodiscard]] virtual std::string RowNumber(int row) const;
    /// Lines that the texts of a row need.
    [[nodiscard]] virtual int RowLines(int row) const;

    // --- cells -------------------------------------------------------------------------------------
    [[nodiscard]] virtual std::string Text(int row, int column) const = 0;
    /// The word list, name lists resolved; empty: free text. Any text may be typed beside a list.
    [[nodiscard]] const WordList& Words(int row, int column) const;
    /// True for a cell that is shown grey and cannot be edited.
    [[nodiscard]] virtual bool IsLocked(int row, int column) const = 0;
    /// Why a cell takes no text, as a sentence; CP932.
    [[nodiscard]] virtual std::string WhyLocked(int row, int column) const;
    /// True for a cell that takes text. A cell may refuse text without being grey.
    [[nodiscard]] bool IsEditable(int row, int column) const;
    [[nodiscard]] virtual CellColor TextColor(int row, int column) const;
    [[nodiscard]] virtual bool IsRightAligned(int row, int column) const;

    /// Why a cell of numbers does not take a text: the part that is none, and what the cell takes.
    struct Refusal {
        std::string part;
        CellTakes takes = CellTakes::Text;
    };
    /// True for a cell that takes numbers and, beside them, only words of its list.
    [[nodiscard]] bool TakesNumbers(int row, int column) const;
    /// Nothing if the cell takes the text.
    [[nodiscard]] std::optional<Refusal> WhyNot(int row, int column, std::string_view text) const;

    /// Sets a cell of the working copy. A cell that is not editable, or does not take the text, stays as it is. In a cell
    /// of numbers full-width digits and signs become those of ASCII.
    CellEffect SetCell(int row, int column, std::string_view text);

    // --- writing back ------------------------------------------------------------------------------
    /// Writes to the block what was changed since the last call; the outcome is that of writing the whole grid.
    /// `writer` writes to the data that the model reads.
    virtual void Commit(CProjectWriter& writer) = 0;
    /// What the grid holds beside the data, behind a Commit(), and back into a grid that was built from the data.
    [[nodiscard]] virtual LooseRows Loose() const { return {GridRows(), {}}; }
    virtual void PutLoose(const LooseRows&) {}
    /// True if the block as it would be written differs from the block as it was opened, or from the last TakeBaseline().
    [[nodiscard]] virtual bool IsChanged() const = 0;
    /// From now on IsChanged() compares with the present state. To be called after a save.
    virtual void TakeBaseline() = 0;

    // --- moving rows -------------------------------------------------------------------------------
    /// Rows at the top that stay where they are and are no rows of the table: automatic rows, rows of heads.
    [[nodiscard]] virtual int FixedRows() const { return 0; }
    /// True if rows can be moved, put in and taken out.
    [[nodiscard]] virtual bool MovesRows() const { return false; }
    [[nodiscard]] virtual bool CanMoveUp(int row) const;
    [[nodiscard]] virtual bool CanMoveDown(int row) const;
    [[nodiscard]] virtual bool CanInsert(int row) const;
    /// Takes row `from` out and puts it in again as row `to`; the rows between close up.
    virtual void MoveRow(int from, int to);
    /// Takes row `row` out, whatever its cells take; the rows below close up, a blank one comes at the end.
    virtual void RemoveRow(int row);
    /// True if no cell of the row holds more than blanks.
    [[nodiscard]] bool IsBlankRow(int row) const;

protected:
    CPanelModel(const CSbdData& data, int block, const PanelSettings& settings);

    [[nodiscard]] const CSbdData& Data() const { return data_; }
    [[nodiscard]] const PanelSettings& Settings() const { return settings_; }
    [[nodiscard]] bool IsInside(int row, int column) const;
    [[nodiscard]] bool HoldsWordOf(int row, int column, std::string_view text) const;

    [[nodiscard]] virtual const WordList& DoWords(int row, int column) const;
    [[nodiscard]] virtual bool DoIsEditable(int row, int column) const;
    /// What a cell takes beside the words of its list.
    [[nodiscard]] virtual CellTakes Takes(int row, int column) const;
    /// Sets an editable cell whose text is another one.
    virtual CellEffect DoSetCell(int row, int column, std::string_view text) = 0;
    /// Takes off the last row, which is blank.
    virtual void DropLastRow() {}

private:
    const CSbdData& data_;
    int block_;
    std::string_view className_;
    PanelSettings settings_;
};

/// The model of the panel that opens for a number, alias step included; null if nothing with a grid opens.
/// The data must outlive the model.
[[nodiscard]] std::unique_ptr<CPanelModel> MakePanelModel(const CSbdData& data, int block,
                                                          const PanelSettings& settings = {});

/// Writes what was changed in a panel to the data that it shows, and the values of other blocks that follow it. Returns
/// what became different.
std::vector<ChangedRow> CommitPanel(CPanelModel& panel, CSbdData& data);

/// The block whose data the panel of a number shows (406: 713, 361: 521); 0 if nothing with a grid opens.
[[nodiscard]] int PanelBlock(int block);

} // namespace sbd
