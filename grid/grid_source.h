// What a grid shows: the interface between the grid control and whoever has the cells.
#pragma once

#include <QColor>
#include <QString>
#include <QStringList>

#include <optional>

namespace sbd {

/// A cell of the grid; rows and columns count from 1 behind the head row and the row numbers.
struct GridCell {
    int row = 0;
    int column = 0;
    friend bool operator==(const GridCell&, const GridCell&) = default;
};

/// A rectangle of cells, bounds included.
struct GridRange {
    int top = 0;
    int left = 0;
    int bottom = 0;
    int right = 0;
};

/// What the grid must show again after cells were set.
enum class GridEffect {
    None,
    Cell, ///< the cell itself
    All,  ///< any cell, any head, the number of rows
};

/// What a paste or a fill did.
struct GridPaste {
    GridEffect effect = GridEffect::None;
    GridRange filled;
    QStringList refused; ///< characters that the cells cannot hold, each once
    int keptCells = 0;   ///< cells that stayed as they were because of them; 0 with `refused`: all did
    GridCell firstKept;
    int notNumbers = 0; ///< cells of numbers that stayed as they were because their text is none
    GridCell firstNotNumber;
    QString notNumber; ///< what the first of them did not take
    int locked = 0;    ///< cells that take no text and would have become another one
    GridCell firstLocked;
    int beyond = 0; ///< texts for which there is no cell
    int put = 0;    ///< cells that became another text
};

/// A text, or the texts of cells, that go into several cells.
struct GridFill {
    enum Kind {
        Down,   ///< the first row of the range
        Right,  ///< its first column
        Text,   ///< one text
        Repeat, ///< the texts of `from`, which stands in the range
        Count,  ///< the same, counted on
    };
    Kind kind = Down;
    GridRange range;
    GridRange from;
    QString text;
};

/// Why a cell does not take a text.
struct GridRefusal {
    QString part;   ///< of the text; the user is shown it
    QString what;   ///< "「abc」は数値ではありません。"
    QString remedy; ///< what to enter instead
};

/// The cells of a grid. Column 0 holds the row numbers; its head stands in the corner.
class CGridSource {
public:
    virtual ~CGridSource() = default;

    [[nodiscard]] virtual int RowCount() const = 0;
    /// The last row that holds anything, for the key that goes to the end.
    [[nodiscard]] virtual int UsedRows() const = 0;
    /// Columns without the row numbers.
    [[nodiscard]] virtual int ColumnCount() const = 0;

    /// Pixels, column 0 included.
    [[nodiscard]] virtual int ColumnWidth(int column) const = 0;
    [[nodiscard]] virtual int HeadHeight() const = 0;
    /// The first columns, which say what a row is of: they stay in sight unless the user wants it otherwise.
    [[nodiscard]] virtual int NameColumns() const { return 0; }
    /// Head of a column, 0 included, while the focus is in `focusRow` (0: nowhere).
    [[nodiscard]] virtual QString Head(int column, int focusRow) const = 0;
    /// An invalid colour is the default.
    [[nodiscard]] virtual QColor HeadColor(int column, int focusRow) const = 0;

    [[nodiscard]] virtual QString RowNumber(int row) const = 0;
    /// What the row is of, where its first cell says it and takes no text: a label; empty: nothing.
    [[nodiscard]] virtual QString RowTitle(int row) const;
    /// The unit of a cell's number ("mm"); empty: none.
    [[nodiscard]] virtual QString Unit(int row, int column) const;
    /// Lines that the texts of a row need.
    [[nodiscard]] virtual int RowLines(int row) const = 0;
    [[nodiscard]] virtual QString Text(int row, int column) const = 0;
    [[nodiscard]] virtual bool HasWords(int row, int column) const = 0;
    [[nodiscard]] virtual QStringList Words(int row, int column) const = 0;
    /// Shown grey; not editable.
    [[nodiscard]] virtual bool IsLocked(int row, int column) const = 0;
    [[nodiscard]] virtual bool IsEditable(int row, int column) const = 0;
    /// Why a cell takes no text, as a sentence.
    [[nodiscard]] virtual QString WhyLocked(int row, int column) const;
    /// An invalid colour is the default.
    [[nodiscard]] virtual QColor TextColor(int row, int column) const = 0;
    /// What a text is called by its colour, where heads speak of it ("ピンク色"); empty: it says nothing by its colour.
    [[nodiscard]] QString ColorWord(int row, int column) const;
    [[nodiscard]] virtual bool IsRightAligned(int row, int column) const = 0;

    /// The first character of `text` that the cells cannot hold.
    [[nodiscard]] virtual std::optional<QString> RefusedCharacter(const QString& text) const = 0;

    /// `text` as the cell would hold it: a cell of numbers takes full-width digits for the others.
    [[nodiscard]] virtual QString Folded(int row, int column, const QString& text) const;
    /// Why the cell does not take `text`, which it could hold as far as characters go; nothing if it takes it.
    [[nodiscard]] virtual std::optional<GridRefusal> WhyNot(int row, int column, const QString& text) const;

    /// What a screen reader says of a cell beside its text.
    [[nodiscard]] QString Description(int row, int column) const;

    virtual GridEffect SetText(int row, int column, const QString& text) = 0;
    /// Empties the cells that take text.
    virtual GridEffect Clear(const GridRange& range) = 0;
    [[nodiscard]] virtual QString Copy(const GridRange& range) const = 0;
    /// Fills cells from (row, column) on; `filled` tells which.
    virtual GridEffect Paste(int row, int column, const QString& text, GridRange* filled) = 0;
    /// The same with a text that may hold refused characters. Unless a source can tell the cells apart, such a text is
    /// refused as a whole.
    [[nodiscard]] virtual GridPaste PasteChecked(int row, int column, const QString& text);
    /// The same into a selected range, in which a smaller block may be repeated.
    [[nodiscard]] virtual GridPaste PasteOver(const GridRange& range, const QString& text);
    virtual GridPaste Fill(const GridFill& fill);
    /// True if cells can be filled from others.
    [[nodiscard]] virtual bool CanFill() const { return false; }
    /// True if rows can be moved, put in and taken out.
    [[nodiscard]] virtual bool MovesRows() const { return false; }
    /// Takes back the last step; the cell where it was done (column 0: the row alone is known).
    virtual std::optional<GridCell> Undo() = 0;
    /// False: there is no step to take back.
    [[nodiscard]] virtual bool CanUndo() const { return true; }
};

/// A head without its line breaks, for messages and screen readers.
[[nodiscard]] QString HeadOnOneLine(const QString& head);

} // namespace sbd
