// Lists of cells below the grid (findings, changes of a run, find and replace): their look, and how a row, a column and a
// text of the project stand in them.
#pragma once

#include <QStringView>

#include <map>
#include <span>
#include <string>
#include <utility>

class QAbstractItemModel;
class QTableView;
class QToolButton;

namespace sbd {

class CSbdData;

struct LineColumn {
    QStringView head;
    int width = 0; ///< px at first
};

/// Shows `model` in `lines`: whole rows, one at a time, without a frame; Tab leaves the list. `name` is what a screen
/// reader hears.
void SetUpLines(QTableView& lines, QAbstractItemModel& model, std::span<const LineColumn> columns, const QString& name);

/// The cross at a pane's upper right.
[[nodiscard]] QToolButton* MakeCloseButton(const QString& toolTip);

/// A text of the project (CP932) on one line, cut after some hundred characters; "（空欄）" for none.
[[nodiscard]] QString TextOnOneLine(const std::string& text);

/// The number of a grid row, with its label in a block of options.
[[nodiscard]] QString RowNumberAndLabel(int block, int row);

/// Numbers and heads of columns, each on one line ("6 幅1 (mm)"); kept, since a panel is much to make for one head.
class CColumnHeads {
public:
    /// As the panel of `data` has it; the number alone where there is no such column.
    [[nodiscard]] QString At(const CSbdData& data, int block, int column);
    void Clear() { heads_.clear(); }

private:
    std::map<std::pair<int, int>, QString> heads_;
};

} // namespace sbd
