// The results of the frame analysis of a project: six files, six records. This system only reads them.
// Members that are "kept" are the analysis program's own and carried without a use. Numbers of nodes, members and
// sections count from 1, as in the files. Lengths are m, forces kN, angles rad. Counts are as the file gives them and
// may lie: what a record really holds is the size of its lists.
#pragma once

#include "results/zeroed_memory.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <vector>

namespace sbd {

class CByteSource;

/// The .Z1D file: title, load cases, names, grid of the bridge. Names are CP932.
struct AnalysisModel {
    std::string title;
    std::array<std::int32_t, 9> header{}; ///< kept
    std::int32_t loadCaseCount = 0;
    std::vector<std::string> loadCaseNames;
    std::int32_t secondNameCount = 0;
    std::vector<std::string> secondNames; ///< kept
    std::int32_t nodeCount = 0;
    std::int32_t elementCount = 0;
    std::vector<std::string> nodeNames;                    ///< on a girder: its name, "-" and the node's own part
    std::vector<std::string> elementNames;                 ///< of the same form
    std::vector<std::int32_t> nodeWords;                   ///< kept
    std::vector<std::int32_t> elementWords;                ///< kept
    std::vector<std::array<std::int32_t, 4>> elementLinks; ///< third word: number of the section; the others kept
    std::int32_t sectionCount = 0;
    std::int32_t secondSectionCount = 0;
    std::vector<std::array<std::int32_t, 9>> sections;       ///< first word not 0: axes are turned; the others kept
    std::vector<std::array<std::int32_t, 4>> secondSections; ///< kept

    std::int32_t gridFlag = 0; ///< 0: the file has none of the fields from here to tailWords
    std::int32_t grid1 = 0;    ///< kept, as all numbered grid words
    std::int32_t grid2 = 0;
    std::int32_t grid3 = 0; ///< its amount; negative in the file: grid5 has a word of its own there
    std::int32_t grid4 = 0;
    std::int32_t grid5 = 0;
    std::int32_t pointCount = 0;
    std::int32_t lineCountA = 0;
    std::int32_t lineCountB = 0;
    std::int32_t girderCount = 0;
    std::int32_t stationCount = 0;
    std::int32_t grid6 = 0;
    std::int32_t grid7 = 0;
    std::vector<std::int32_t> gridNodes;      ///< a node a girder and station, the station running fastest
    std::vector<std::int32_t> gridNodes2;     ///< the same shape again, kept
    std::vector<std::int32_t> girderElements; ///< at girder * (stationCount - 1) + bay: the member; below 1: none
    std::vector<std::int32_t> crossElements;  ///< kept
    std::vector<std::string> lineNamesA;      ///< kept
    std::vector<std::string> lineNamesB;      ///< kept
    std::vector<std::string> girderNames;
    std::vector<std::string> stationNames;
    std::vector<std::int32_t> stationWords;              ///< kept
    std::vector<std::array<double, 3>> linePoints;       ///< kept
    std::vector<std::array<double, 3>> girderPoints;     ///< kept
    std::vector<std::array<std::int32_t, 2>> pointPairs; ///< kept
    std::vector<std::int32_t> pointIndex;                ///< kept
    std::int32_t grid8 = 0;
    std::vector<std::array<std::int32_t, 4>> stationRecords; ///< kept
    std::int32_t tailCount = 0;
    std::vector<std::int32_t> tailWords; ///< kept

    std::vector<std::string> sectionNames;
    std::vector<std::string> secondSectionNames; ///< kept
    std::int32_t lastWord = 0;                   ///< kept

    bool cut = false; ///< the file ended ahead of what its counts say

    /// Replaces the record by the file; false, and nothing changed, if it does not open. A file that ends early
    /// leaves the fields behind its end at 0 or empty, and is true.
    [[nodiscard]] bool Read(const std::filesystem::path& path);
    [[nodiscard]] bool Read(CByteSource& source);

    /// True if the record holds the member `element` (from 0) and its section, and the section's axes are turned.
    [[nodiscard]] bool HasTurnedAxes(std::size_t element) const;

    friend bool operator==(const AnalysisModel&, const AnalysisModel&) = default;
};

/// The .Z1F file: the members of the frame.
struct ElementTable {
    std::int32_t elementTableCount = 0;
    std::vector<std::array<std::int32_t, 3>> ends;            ///< first and second word: the end nodes; third kept
    std::vector<std::array<unsigned char, 48>> elementValues; ///< kept
    bool cut = false;                                         ///< the file ended ahead of what its counts say

    /// Replaces the record by the file; false, and nothing changed, if it does not open. False too if the file ends
    /// ahead of an array; what stands before that is in the record.
    [[nodiscard]] bool Read(const std::filesystem::path& path);
    [[nodiscard]] bool Read(CByteSource& source);

    friend bool operator==(const ElementTable&, const ElementTable&) = default;
};

/// The .Z1R file: the nodes of the frame.
struct NodeTable {
    std::int32_t nodeTableCount = 0;
    std::vector<std::array<double, 3>> coordinates;      ///< x, y, z
    std::vector<std::int32_t> nodeFlags;                 ///< -1: the node takes no part in the results
    std::vector<std::array<std::int32_t, 6>> nodeValues; ///< third word: support mark; the others kept
    bool cut = false;                                    ///< the file ended ahead of what its counts say

    /// Replaces the record by the file; false, and nothing changed, if it does not open.
    [[nodiscard]] bool Read(const std::filesystem::path& path);
    [[nodiscard]] bool Read(CByteSource& source);

    friend bool operator==(const NodeTable&, const NodeTable&) = default;
};

/// Components of a node in .Z3D (Ux, Uy, Uz, θx, θy, θz) and .Z3R (Fx, Fy, Fz, Mx, My, Mz).
inline constexpr std::size_t kNodeComponents = 6;
/// Components of a member in .Z3F: Nx, Sy, Sz, Tx, My, Mz at the left end, then the same at the right end.
inline constexpr std::size_t kElementComponents = 12;

/// The .Z3D, .Z3F and .Z3R files: a value for each node or member, load case and component.
struct ResultCube {
    std::int32_t size1 = 0; ///< nodes or members
    std::int32_t size2 = 0; ///< load cases
    std::int32_t size3 = 0; ///< components
    ResultValues values;    ///< the component running fastest; fewer than the sizes say if the file ends early
    bool cut = false;       ///< the file ended ahead of what its counts say

    /// The value of an item and load case (both from 0) in a model of `loadCaseCount` load cases and `components`
    /// components; nothing if the file had none.
    [[nodiscard]] std::optional<double> At(std::size_t item, std::size_t loadCase, std::size_t component,
                                           std::size_t loadCaseCount, std::size_t components) const;

    /// Replaces the record by the file; false, and nothing changed, if it does not open. False too if values are due
    /// and the file ends behind the sizes.
    [[nodiscard]] bool Read(const std::filesystem::path& path);
    [[nodiscard]] bool Read(CByteSource& source);

    friend bool operator==(const ResultCube&, const ResultCube&) = default;
};

/// All results of a project.
struct AnalysisResults {
    AnalysisModel model;
    ElementTable elementTable;
    NodeTable nodeTable;
    ResultCube displacement;
    ResultCube force; ///< in the axes of the girders, see TurnForceAxes
    ResultCube reaction;

    friend bool operator==(const AnalysisResults&, const AnalysisResults&) = default;
};

} // namespace sbd
