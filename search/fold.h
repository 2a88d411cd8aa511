// How texts are compared in a search: without regard to width and case.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// `utf8` in the form in which texts are compared: full-width letters, digits and signs narrow, half-width katakana
/// wide, letters small, commas of any kind and the ideographic blank as they are typed on a narrow keyboard. Bytes that
/// are no UTF-8 stay as they are.
[[nodiscard]] std::string Fold(std::string_view utf8);

/// The words of a search line, folded: commas (also "，", "、") are blanks, blanks of any width divide.
[[nodiscard]] std::vector<std::string> SearchWords(std::string_view utf8);

} // namespace sbd
