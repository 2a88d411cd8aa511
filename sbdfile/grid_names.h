// The names of a bridge from the input file of its frame analysis (*.abd).
#pragma once

#include <filesystem>
#include <string_view>

namespace sbd {

class CSbdData;

/// ReadGridNames: girder, cross beam and line names from section [GRID_GRID]. A file that is missing or cannot be
/// read leaves the lists empty. The widths only grow.
void ReadGridNames(const std::filesystem::path& path, CSbdData& data);

/// The same from the file's bytes.
void ReadGridNamesFromBytes(std::string_view bytes, CSbdData& data);

} // namespace sbd
