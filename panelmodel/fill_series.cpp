#include "panelmodel/fill_series.h"

#include "project/text.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <utility>

namespace sbd {

namespace {

constexpr std::size_t kMostDigits =
    9; // with the decimals, and any number of steps, far from the end of a 64 bit number
constexpr int kMostDecimals = 4;

bool IsDigit(char c)
{
    return c >= '0' && c <= '9';
}

long long ValueOf(std::string_view digits)
{
    long long value = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), value);
    return value;
}

std::string WithZeros(long long value, int width)
{
    std::string digits = std::to_string(value);
    if (std::ssize(digits) < width)
        digits.insert(0, static_cast<std::size_t>(width) - digits.size(), '0');
    return digits;
}

/// A list of numbers, or a way of writing several, is no name.
bool IsName(std::string_view prefix)
{
    return prefix.find_first_of(" ,.@*+\t") == std::string_view::npos
           && !std::ranges::all_of(prefix, [](char c) { return IsDigit(c) || c == '-'; });
}

long long PowerOfTen(int exponent)
{
    long long power = 1;
    for (int i = 0; i < exponent; ++i)
        power *= 10;
    return power;
}

} // namespace

/// No second byte of a character is a digit, a sign or a point: the text can be looked at from its end.
std::optional<CFillSeries::Counted> CFillSeries::Parse(const std::string& text)
{
    std::size_t first = text.size();
    while (first > 0 && IsDigit(text[first - 1]))
        --first;
    const std::string_view digits = std::string_view(text).substr(first);
    if (digits.empty() || digits.size() > kMostDigits)
        return std::nullopt;
    std::string_view ahead = std::string_view(text).substr(0, first);
    if (ahead.empty() || ahead == "-") {
        const long long value = ValueOf(digits);
        return Counted{{}, ahead.empty() ? value : -value, 0, 0};
    }
    if (ahead.back() == '.') {
        std::string_view whole = ahead.substr(0, ahead.size() - 1);
        const bool negative = whole.starts_with('-');
        whole.remove_prefix(negative ? 1 : 0);
        const int decimals = static_cast<int>(digits.size());
        if (!std::ranges::all_of(whole, IsDigit) || decimals > kMostDecimals
            || whole.size() + digits.size() > kMostDigits)
            return std::nullopt;
        const long long value = ValueOf(whole) * PowerOfTen(decimals) + ValueOf(digits);
        return Counted{{}, negative ? -value : value, decimals, 0};
    }
    if (!IsName(ahead))
        return std::nullopt;
    return Counted{std::string(ahead), ValueOf(digits), 0, static_cast<int>(digits.size())};
}

std::string CFillSeries::Written(const Counted& counted)
{
    if (!counted.prefix.empty())
        return counted.prefix + WithZeros(counted.value, counted.width);
    if (counted.decimals == 0)
        return std::to_string(counted.value);
    const long long unit = PowerOfTen(counted.decimals);
    const long long size = counted.value < 0 ? -counted.value : counted.value;
    return (counted.value < 0 ? "-" : "") + std::to_string(size / unit) + '.'
           + WithZeros(size % unit, counted.decimals);
}

CFillSeries::CFillSeries(std::vector<std::string> texts, bool countOn) : texts_(std::move(texts))
{
    if (!countOn)
        return;
    for (const std::string& text : texts_)
        counted_.push_back(Parse(text));
    FindStep();
}

void CFillSeries::FindStep()
{
    const auto alike = [this](const std::optional<Counted>& counted) {
        return counted && counted_.front() && counted->prefix == counted_.front()->prefix;
    };
    if (counted_.empty() || !std::ranges::all_of(counted_, alike))
        return;
    int decimals = 0;
    for (const std::optional<Counted>& counted : counted_)
        decimals = std::max(decimals, counted->decimals);
    for (std::optional<Counted>& counted : counted_) {
        counted->value *= PowerOfTen(decimals - counted->decimals);
        counted->decimals = decimals;
    }
    if (counted_.size() == 1) {
        step_ = PowerOfTen(decimals);
        return;
    }
    const long long step = counted_[1]->value - counted_[0]->value;
    for (std::size_t i = 1; i < counted_.size(); ++i)
        if (counted_[i]->value - counted_[i - 1]->value != step)
            return;
    step_ = step;
}

const std::string& CFillSeries::Repeated(int index) const
{
    const int count = static_cast<int>(texts_.size());
    return texts_[static_cast<std::size_t>(((index % count) + count) % count)];
}

std::optional<std::string> CFillSeries::At(int index) const
{
    if (counted_.empty())
        return Repeated(index);
    const int count = static_cast<int>(texts_.size());
    if (step_) {
        Counted next = *counted_.front();
        next.width = counted_[static_cast<std::size_t>(((index % count) + count) % count)]->width;
        next.value += *step_ * index;
        if (!next.prefix.empty() && next.value < 0)
            return std::nullopt;
        return Written(next);
    }
    const int place = ((index % count) + count) % count;
    const std::optional<Counted>& own = counted_[static_cast<std::size_t>(place)];
    if (!own || own->prefix.empty()) // numbers without one difference are no series
        return Repeated(index);
    Counted next = *own;
    next.value += (index - place) / count;
    return next.value < 0 ? std::nullopt : std::optional(Written(next));
}

} // namespace sbd
