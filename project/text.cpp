#include "project/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <limits>
#include <system_error>

namespace sbd {

std::string_view TrimLeft(std::string_view text)
{
    std::size_t begin = 0;
    while (begin < text.size() && IsTrimmed(text[begin]))
        ++begin;
    return text.substr(begin);
}

std::string_view TrimRight(std::string_view text)
{
    std::size_t end = text.size();
    while (end > 0 && IsTrimmed(text[end - 1]))
        --end;
    return text.substr(0, end);
}

std::string_view Trim(std::string_view text)
{
    return TrimLeft(TrimRight(text));
}

std::string_view CutTrailingBlanks(std::string_view text)
{
    const std::size_t last = text.find_last_not_of(' ');
    return last == std::string_view::npos ? std::string_view() : text.substr(0, last + 1);
}

std::string_view TakeToken(std::string_view& rest)
{
    const std::size_t blank = rest.find(' ');
    const std::string_view token = rest.substr(0, blank);
    rest.remove_prefix(token.size());
    return token;
}

std::vector<std::string_view> SplitWords(std::string_view text)
{
    std::vector<std::string_view> words;
    std::size_t pos = 0;
    while ((pos = text.find_first_not_of(" ,", pos)) != std::string_view::npos) {
        const std::size_t end = std::min(text.find_first_of(" ,", pos), text.size());
        words.push_back(text.substr(pos, end - pos));
        pos = end;
    }
    return words;
}

namespace {

/// `text` from its first sign or digit on: blanks skipped, and a "+" in front of a number, which from_chars does not take.
std::string_view NumberText(std::string_view text)
{
    text = TrimLeft(text);
    if (text.size() > 1 && text[0] == '+' && text[1] != '-')
        text.remove_prefix(1);
    return text;
}

/// Is a number that no double can hold too small, not too large? Told by the place of its first digit that counts.
bool IsTooSmall(std::string_view number)
{
    const std::string_view mantissa = number.substr(0, number.find_first_of("eE"));
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = std::min(mantissa.find_first_of("123456789"), mantissa.size());
    const int exponent = mantissa.size() < number.size() ? LeadingInteger(number.substr(mantissa.size() + 1)) : 0;
    return static_cast<double>(point) - static_cast<double>(first) + exponent < 0;
}

} // namespace

std::optional<double> LeadingNumber(std::string_view text)
{
    text = NumberText(text);
    const std::size_t digits = text.empty() || text[0] != '-' ? 0 : 1;
    if (digits >= text.size() || !(text[digits] == '.' || (text[digits] >= '0' && text[digits] <= '9')))
        return std::nullopt; // "inf" and "nan" are words here
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::invalid_argument)
        return std::nullopt;
    if (error == std::errc::result_out_of_range) {
        const std::string_view read(text.data(), static_cast<std::size_t>(end - text.data()));
        const double largest = std::numeric_limits<double>::max();
        return IsTooSmall(read) ? 0.0 : text[0] == '-' ? -largest : largest;
    }
    return value;
}

int LeadingInteger(std::string_view text)
{
    text = NumberText(text);
    int value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    if (error == std::errc::result_out_of_range)
        return text[0] == '-' ? std::numeric_limits<int>::min() : std::numeric_limits<int>::max();
    return error == std::errc() ? value : 0;
}

void AppendFixed(std::string& out, double value, int width, int decimals)
{
    std::array<char, 400> buffer; // the largest double has 309 digits in front of the point
    const auto [end, error] =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), value, std::chars_format::fixed, decimals);
    const std::string_view number(buffer.data(),
                                  error == std::errc() ? static_cast<std::size_t>(end - buffer.data()) : 0);
    AppendPadded(out, number, static_cast<std::size_t>(width), false);
}

void AppendPadded(std::string& out, std::string_view text, std::size_t width, bool left)
{
    const std::size_t pad = text.size() < width ? width - text.size() : 0;
    if (!left)
        out.append(pad, ' ');
    out.append(text);
    if (left)
        out.append(pad, ' ');
}

std::string Cp932(std::string_view utf8)
{
    Cp932Result result = ToCp932(utf8);
    if (result.refused) {
        const std::string words = "A literal of the program has a character that CP932 has not: ";
        std::fputs((words + std::string(utf8) + "\n").c_str(), stderr);
        std::abort();
    }
    return std::move(result.bytes);
}

} // namespace sbd
