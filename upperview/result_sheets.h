// Sheets with several figures of results, as a PDF or on a printer.
#pragma once

#include "results/result_sheets.h"
#include "results/result_state.h"
#include "upperview/model_figure.h"

#include <QByteArray>
#include <QPageLayout>
#include <QPageSize>

#include <functional>
#include <span>

class QPagedPaintDevice;

namespace sbd {

struct AnalysisResults;

/// Told ahead of each sheet; false: it is not wanted any more.
using SheetProgress = std::function<bool(int done, int all)>;

/// How sheets lie that the user gives no other way: up to two figures are wide, three and more stand on a sheet upright.
[[nodiscard]] QPageLayout::Orientation OrientationOf(std::span<const ResultSheet> sheets);
/// A4 or A3 with the margins of the sheets.
[[nodiscard]] QPageLayout SheetLayout(QPageSize::PageSizeId size, QPageLayout::Orientation orientation);

/// Paints the sheets, each on a page of its own with the number at its foot. False if the device cannot be painted on, or
/// if they are not wanted any more.
[[nodiscard]] bool PaintSheets(QPagedPaintDevice& device, const AnalysisResults& results,
                               std::span<const ResultSheet> sheets, const QFont& font, const ResultState& state,
                               const SheetProgress& progress);

/// The sheets as a PDF with a bookmark for each of them and its figures. Empty if they are not wanted any more.
[[nodiscard]] QByteArray SheetsPdf(const QPageLayout& layout, const AnalysisResults& results,
                                   std::span<const ResultSheet> sheets, const QFont& font, const ResultState& state,
                                   const SheetProgress& progress);

} // namespace sbd
