// Which figures stand together on a sheet of paper.
#pragma once

#include "results/result_selection.h"

#include <cstddef>
#include <span>
#include <string>
#include <vector>

namespace sbd {

/// A component that a sheet shows.
struct SheetItem {
    ResultKind kind = ResultKind::Force;
    std::size_t component = 0;

    friend bool operator==(const SheetItem&, const SheetItem&) = default;
};

/// My, Sz and Uz: what a girder is looked through by.
[[nodiscard]] std::vector<SheetItem> UsualItems();

/// The figures of one sheet, one below the other. The title is CP932: a bookmark's.
struct ResultSheet {
    std::string title;
    std::vector<ResultSelection> figures;
};

/// A sheet for each of the girders with a figure for each of the items; load case, envelope and what is laid over are
/// those of the selection. A load case that is there for forces only gives way to its plain form.
[[nodiscard]] std::vector<ResultSheet> SheetsOfGirders(const ResultSelection& selection,
                                                       std::span<const std::string> girders,
                                                       std::span<const SheetItem> items);

/// "断面力 My": a figure among those of its sheet, in CP932.
[[nodiscard]] std::string FigureName(const ResultSelection& figure);

} // namespace sbd
