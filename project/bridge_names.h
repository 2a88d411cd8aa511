// The names of a bridge's girders and cross beams, as the word lists offer them.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sbd {

class CSbdData;

/// Those of the *.abd file. If it names none, or is not there: those that the project itself gives, each once, in the
/// order of 501, 702 and the ranges of 523. CP932.
[[nodiscard]] std::vector<std::string> GirderNamesOf(const CSbdData& data);
/// The same for cross beams; those of 501 stand behind the ones of the file, where there is one.
[[nodiscard]] std::vector<std::string> BeamNamesOf(const CSbdData& data);

/// True for a table block whose cells give names to the lists.
[[nodiscard]] bool GivesNames(int block);

/// A beam name of block 501 up to its first "_" behind the first character.
[[nodiscard]] std::string_view BeamNameOf(std::string_view name);

} // namespace sbd
