#include "tools/result_arguments.h"

#include "project/text.h"

#include <algorithm>
#include <charconv>

namespace sbd {

namespace {

constexpr int kMostPixels = 100'000;

} // namespace

CResultArguments::CResultArguments(std::span<const std::string> arguments, const ResultOptions& options)
{
    Parse(arguments, options);
}

void CResultArguments::Parse(std::span<const std::string> arguments, const ResultOptions& options)
{
    std::vector<std::string> words;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (std::ranges::find(options.alone, argument) != options.alone.end()) {
            values_[argument];
        } else if (std::ranges::find(options.withValue, argument) != options.withValue.end()) {
            if (i + 1 == arguments.size())
                return Refuse("値がありません: " + argument);
            Cp932Result value = ToCp932(arguments[++i]);
            if (value.refused)
                return Refuse("CP932 にない文字です: " + value.refused->character);
            values_[argument].push_back(std::move(value.bytes));
        } else if (argument.starts_with("--")) {
            return Refuse("知らないオプションです: " + argument);
        } else {
            words.push_back(argument);
        }
    }
    if (words.size() != 1)
        return Refuse("引数の数が違います");
    project_ = words.front();
}

void CResultArguments::Refuse(std::string why)
{
    if (!wrong_)
        wrong_ = std::move(why);
}

std::vector<std::string> CResultArguments::Values(std::string_view option) const
{
    const auto found = values_.find(option);
    return found == values_.end() ? std::vector<std::string>() : found->second;
}

std::string CResultArguments::Text(std::string_view option)
{
    const std::vector<std::string> values = Values(option);
    if (values.size() == 1)
        return values.front();
    Refuse(std::string(option) + (values.empty() ? " がありません" : " は一度だけ指定できます"));
    return {};
}

ResultKind CResultArguments::Kind()
{
    const std::string word = Text("--kind");
    const std::optional<ResultKind> kind = ResultKindOf(word);
    if (!kind)
        Refuse("変位、断面力、反力のどれでもありません: " + FromCp932(word));
    return kind.value_or(ResultKind::Displacement);
}

std::size_t CResultArguments::Component(ResultKind kind, const std::string& component)
{
    const std::optional<std::size_t> place = ComponentOf(kind, component);
    if (!place)
        Refuse(FromCp932(KindWord(kind)) + "の成分ではありません: " + FromCp932(component));
    return place.value_or(0);
}

int CResultArguments::Pixels(std::string_view option)
{
    const std::string text = Text(option);
    int pixels = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), pixels);
    if (error == std::errc() && end == text.data() + text.size() && pixels > 0 && pixels <= kMostPixels)
        return pixels;
    Refuse("画素数ではありません: " + FromCp932(text));
    return 1;
}

} // namespace sbd
