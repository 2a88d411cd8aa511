// From which files results come, from when, and whether the input has changed since.
#pragma once

#include "results/result_stamp.h"

#include <filesystem>
#include <string>
#include <vector>

namespace sbd {

/// Texts are CP932.
struct ResultState {
    std::string project;                 ///< name of its file; empty: it has none
    std::string time;                    ///< of the result file that changed last; empty: none was read
    std::vector<std::string> files;      ///< that were read: "Z1D"
    std::vector<std::string> missing;    ///< that were not
    std::vector<std::string> newerInput; ///< what changed after the results: "box2.sbd (2026/11/22 09:30)"

    friend bool operator==(const ResultState&, const ResultState&) = default;
};

/// Looks at the project and at its file of names beside it, and reads neither. Input counts as newer when it changed more
/// than two seconds after the oldest result file, as times of some disks are no finer. `unsaved`: it has changes in memory.
[[nodiscard]] ResultState ResultStateOf(const std::filesystem::path& projectFile, const ResultStamp& asRead,
                                        bool unsaved);

/// "結果: 2026/11/22 09:30　ファイル: Z1D, Z1F, …　ない: Z3R"; empty when nothing was read.
[[nodiscard]] std::string ResultStateLine(const ResultState& state);

/// "結果は入力より古い: box2.sbd (2026/11/22 09:30)"; empty when it is not.
[[nodiscard]] std::string StaleLine(const ResultState& state);

} // namespace sbd
