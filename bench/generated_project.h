// Projects of any size for the benchmarks.
#pragma once

#include "project/sbd_data.h"

#include <cstddef>
#include <string>

namespace sbd::bench {

/// A project and its file: the table blocks are filled evenly with names, numbers and words as bridges have them.
struct GeneratedProject {
    CSbdData data;
    std::string text;
};

/// A project whose file has some `bytes` bytes; the same at each call.
[[nodiscard]] GeneratedProject MakeProject(std::size_t bytes);

/// Made once for each number of megabytes (10^6 bytes).
[[nodiscard]] const GeneratedProject& ProjectOfMegabytes(std::size_t megabytes);

} // namespace sbd::bench
