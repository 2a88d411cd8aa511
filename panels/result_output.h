// The table of results for other programs and for paper.
#pragma once

#include "results/result_state.h"
#include "results/result_table.h"

#include <QByteArray>
#include <QString>

#include <functional>

class QFont;
class QPagedPaintDevice;

namespace sbd {

/// "断面力　荷重: 死荷重　主桁: G1": all that decides what stands in the table.
[[nodiscard]] QString ResultTitle(const ResultSelection& selection);

/// Title, origin, heads with units, extremes and rows, divided by commas; UTF-8 with its mark, by which spreadsheets know it.
[[nodiscard]] QByteArray ResultCsv(const CResultTable& table, const ResultSelection& selection,
                                   const ResultState& state = {});

/// Told ahead of each page; false: the print is not wanted any more.
using PrintProgress = std::function<bool(int done, int all)>;

/// True for a table that is read better on a sheet that lies.
[[nodiscard]] bool IsWideTable(const CResultTable& table);

/// Paints the table page by page, as many rows as fit under title and heads. Columns that are too wide for the
/// paper together are made smaller, with their font; where that could not be read they go on on another sheet, with the
/// names. False if the device cannot be painted on, or if it is not wanted any
/// more.
[[nodiscard]] bool PrintResultTable(QPagedPaintDevice& device, const CResultTable& table,
                                    const ResultSelection& selection, const QFont& font, const ResultState& state = {},
                                    const PrintProgress& progress = {});

} // namespace sbd
