// Differences between two projects to hand in: as lines of text and as a spreadsheet. Texts are UTF-8.
#pragma once

#include "compare/compare.h"
#include "sbdfile/project_file.h"

#include <filesystem>
#include <string>
#include <vector>

namespace sbd {

/// What was compared with what.
struct ReportSides {
    std::string project;
    std::string before; ///< "ファイル", "07/21 10:30 の入力"
    std::string after;
    std::string made;
};

/// A head, then the differences in order, under the name of each block.
[[nodiscard]] std::string DifferenceReport(const ReportSides& sides, const std::vector<Difference>& differences);

/// One row a difference: block, row, column, both texts; numbers as numbers, heads that stay.
[[nodiscard]] FileResult WriteDifferenceSheets(const std::filesystem::path& path, const ReportSides& sides,
                                               const std::vector<Difference>& differences);

} // namespace sbd
