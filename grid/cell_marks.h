// Marks at cells: what somebody has to say of them, beside what they hold.
#pragma once

#include <QColor>
#include <QPalette>
#include <QString>

#include <map>
#include <optional>
#include <span>
#include <vector>

namespace sbd {

/// What a mark means, the one that weighs most first.
enum class MarkKind {
    Loss,    ///< the text will not come back as it is
    Doubt,   ///< it may be a mistake
    Hint,    ///< something is worth a look
    Changed, ///< somebody else than the user has written it
};

/// How a kind of mark is shown: in a cell by its tint, at the row by its sign as well.
struct MarkLook {
    MarkKind kind;
    char16_t sign;
    QRgb tintOnLight;
    QRgb tintOnDark;
    QRgb signOnLight;
    QRgb signOnDark;
};
[[nodiscard]] std::span<const MarkLook> MarkLooks();
[[nodiscard]] const MarkLook& LookOf(MarkKind kind);
[[nodiscard]] QColor TintOf(MarkKind kind, const QPalette& palette);
[[nodiscard]] QColor SignColorOf(MarkKind kind, const QPalette& palette);

/// One mark. Rows and columns are those of the grid, from 1; column 0: the row as a whole.
struct CellMark {
    int row = 0;
    int column = 0;
    MarkKind kind = MarkKind::Hint;
    QString toolTip; ///< a sentence
    friend bool operator==(const CellMark&, const CellMark&) = default;
};

/// Who supplies marks. Each sets and clears its own alone.
enum class MarkSource { Check, Run };

/// The marks of one grid, of all sources.
class CCellMarks {
public:
    /// Takes the place of what the source has set before. False if that was the same.
    bool Set(MarkSource source, std::vector<CellMark> marks);

    /// The mark of a cell that weighs most.
    [[nodiscard]] std::optional<MarkKind> Of(int row, int column) const;
    /// The mark that weighs most of a row and all its cells.
    [[nodiscard]] std::optional<MarkKind> OfRow(int row) const;
    /// What is said of a cell and of its row as a whole, line by line; empty: nothing.
    [[nodiscard]] QString ToolTip(int row, int column) const;
    /// What is said of a row and its cells, the first few lines.
    [[nodiscard]] QString RowToolTip(int row) const;

private:
    [[nodiscard]] std::vector<const CellMark*> In(int row, int firstColumn, int lastColumn) const;

    std::map<MarkSource, std::vector<CellMark>> marks_; // by row and column
};

} // namespace sbd
