// What is wrong with the result files of a project, in words.
#pragma once

#include "results/records.h"

#include <string>
#include <vector>

namespace sbd {

/// One file that does not hold what it should.
struct ResultFault {
    std::string file; ///< "Z1D"
    std::string text; ///< CP932: what is missing or does not fit, and what follows for tables and figures
};

/// The files that end early or do not belong to the others, in the order of reading. A file that is not there is no
/// fault: its record is empty.
[[nodiscard]] std::vector<ResultFault> ResultFaults(const AnalysisResults& results);

/// The same as one line for titles of tables and figures: "注意: Z1D, Z3F が不完全です"; empty without a fault.
[[nodiscard]] std::string ResultFaultLine(const AnalysisResults& results);

} // namespace sbd
