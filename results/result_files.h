// Reading the results of a project.
#pragma once

#include "results/records.h"

#include <cstddef>
#include <filesystem>

namespace sbd {

/// Which files were read, and how many members have had their forces turned.
struct ResultFilesRead {
    bool model = false;        ///< .Z1D
    bool elementTable = false; ///< .Z1F
    bool nodeTable = false;    ///< .Z1R
    bool displacement = false; ///< .Z3D
    bool force = false;        ///< .Z3F
    bool reaction = false;     ///< .Z3R
    std::size_t turnedElements = 0;

    friend bool operator==(const ResultFilesRead&, const ResultFilesRead&) = default;
};

/// Reads the six result files of a project, whose own file need not be there. A file that is missing leaves its record
/// as it was. If the forces are read, they are turned into the axes of the girders.
ResultFilesRead ReadResultFiles(const std::filesystem::path& projectFile, AnalysisResults& results);

/// Turns the forces of each member whose section has turned axes: of each three values (Nx, Sy, Sz; Tx, My, Mz; at
/// both ends) the second and third, (a, b), become (-b, a). Gives the number of members that held values to turn.
std::size_t TurnForceAxes(const AnalysisModel& model, ResultCube& force);

} // namespace sbd
