// What selected cells hold, in one line.
#pragma once

#include "panelmodel/panel_editor.h"

#include <functional>

namespace sbd {

/// "個数 3　合計 3750　平均 1250　最小 1000　最大 1500 (mm)": the number of filled cells, and of the numbers among them
/// sum, mean, least and greatest; the unit where the cells of one column, or one cell, are selected. CP932; empty: no cell
/// is filled and there is no unit.
[[nodiscard]] std::string SummaryOf(const CPanelModel& model, const CellRange& range,
                                    const std::function<bool(int row)>& isHidden);

/// What a cell takes, in a word or two: "数値", "一覧または文字", "入力不可"; "数値など" where a unit or
/// what stands in the column speaks for numbers, but words are not refused. CP932.
[[nodiscard]] std::string ExpectedIn(const CPanelModel& model, int row, int column);

/// The unit in a head or a label: "間隔(mm)" has "mm"; empty: none. CP932.
[[nodiscard]] std::string UnitIn(std::string_view text);

} // namespace sbd
