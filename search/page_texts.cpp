#include "search/page_texts.h"

#include "project/text.h"

#include <algorithm>

namespace sbd {

namespace {

constexpr std::string_view kBranch = "[[branch]]";
constexpr std::string_view kRows = "rows = [";
constexpr std::string_view kText = "text = '''";
constexpr std::string_view kTextEnd = "'''";

std::vector<int> Numbers(std::string_view list)
{
    std::vector<int> numbers;
    while (!list.empty() && list.front() != ']') {
        if (list.front() >= '0' && list.front() <= '9') {
            numbers.push_back(LeadingInteger(list));
            list.remove_prefix(std::min(list.find_first_not_of("0123456789"), list.size()));
        } else {
            list.remove_prefix(1);
        }
    }
    return numbers;
}

} // namespace

std::vector<PageText> TextsOfPage(std::string_view toml)
{
    std::vector<PageText> texts;
    std::vector<int> rows;
    while (!toml.empty()) {
        const std::size_t lineEnd = std::min(toml.find('\n'), toml.size());
        const std::string_view line = toml.substr(0, lineEnd);
        if (line.starts_with(kText)) {
            toml.remove_prefix(kText.size());
            const std::size_t end = std::min(toml.find(kTextEnd), toml.size());
            texts.push_back({rows, toml.substr(0, end)});
            toml.remove_prefix(end);
        } else if (line.starts_with(kBranch)) {
            rows.clear();
        } else if (line.starts_with(kRows)) {
            rows = Numbers(line.substr(kRows.size()));
        }
        toml.remove_prefix(std::min(toml.find('\n'), toml.size()));
        toml.remove_prefix(toml.empty() ? 0 : 1);
    }
    return texts;
}

} // namespace sbd
