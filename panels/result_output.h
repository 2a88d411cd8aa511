// The table of results for other programs and for paper.
#pragma once

#include "results/result_state.h"
#include "results/result_table.h"

#include <QByteArray>
#include <QString>

class QFont;
class QPagedPaintDevice;

namespace sbd {

/// "断面力　荷重: 死荷重　主桁: G1": all that decides what stands in the table.
[[nodiscard]] QString ResultTitle(const ResultSelection& selection);

/// Title, origin, heads with units, extremes and rows, divided by commas; UTF-8 with its mark, by which spreadsheets know it.
[[nodiscard]] QByteArray ResultCsv(const CResultTable& table, const ResultSelection& selection,
                                   const ResultState& state = {});

/// Paints the table page by page, as many rows as fit under title and heads. Columns that are too wide for the paper
/// together are made narrower, with their font. False if the device cannot be painted on.
[[nodiscard]] bool PrintResultTable(QPagedPaintDevice& device, const CResultTable& table,
                                    const ResultSelection& selection, const QFont& font, const ResultState& state = {});

} // namespace sbd
