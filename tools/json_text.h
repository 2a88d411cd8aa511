// Texts and numbers of a project and of its results in JSON.
#pragma once

#include "project/text.h"

#include <nlohmann/json.hpp>

#include <string>
#include <string_view>

namespace sbd {

/// Texts in CP932 as a list in UTF-8; a byte that is no CP932 character is \xNN.
template <typename Texts>
[[nodiscard]] nlohmann::json TextList(const Texts& texts)
{
    nlohmann::json list = nlohmann::json::array();
    for (const auto& text : texts)
        list.push_back(FromCp932(text));
    return list;
}

/// A number, or the word for it where JSON has none: "NaN", "Infinity", "-Infinity".
[[nodiscard]] nlohmann::json NumberJson(double number);

template <typename Numbers>
[[nodiscard]] nlohmann::json NumbersJson(const Numbers& numbers)
{
    nlohmann::json list = nlohmann::json::array();
    for (const double number : numbers)
        list.push_back(NumberJson(number));
    return list;
}

/// True if every byte belongs to a CP932 character.
[[nodiscard]] bool IsWholeText(std::string_view bytes);

/// Two lower-case digits a byte.
[[nodiscard]] std::string Hex(std::string_view bytes);

} // namespace sbd
