// Differences in words that an engineer reads. Texts are UTF-8.
#pragma once

#include "compare/compare.h"

#include <string>
#include <string_view>

namespace sbd {

/// "313 垂直補剛材": number and title of a block.
[[nodiscard]] std::string NumberAndTitle(int block);
/// A text of the project between 「 and 」, cut where it is long.
[[nodiscard]] std::string Quoted(std::string_view cp932);

/// Where a difference is: "313 垂直補剛材 6行目 6列目(幅1)".
[[nodiscard]] std::string DifferencePlaceText(const Difference& difference);
/// One line: "313 垂直補剛材 6行目 6列目(幅1): 「130」→「150」".
[[nodiscard]] std::string DifferenceText(const Difference& difference);

} // namespace sbd
