#include "upperview/page/page_link.h"

#include "project/catalogue.h"
#include "project/text.h"

namespace sbd {

namespace {

constexpr int kNotes = 100;
constexpr std::size_t kDigits = 3;

bool HasBlockNumber(std::string_view text)
{
    const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
    return text.size() >= kDigits && isDigit(text[0]) && isDigit(text[1]) && isDigit(text[2])
           && (text.size() == kDigits || text[kDigits] == '.' || text.substr(kDigits).starts_with(Cp932("．")));
}

} // namespace

std::vector<TextLink> LinksOf(std::string_view line)
{
    static const std::string open = Cp932("「");
    static const std::string close = Cp932("」");
    std::vector<TextLink> links;
    std::size_t start = std::string_view::npos; // behind the last bracket that is open
    for (std::size_t at = 0; at < line.size(); at += CharacterLength(line, at)) {
        const std::string_view rest = line.substr(at);
        if (rest.starts_with(open)) {
            start = at + open.size();
        } else if (rest.starts_with(close) && start != std::string_view::npos) {
            const std::string_view words = line.substr(start, at - start);
            if (HasBlockNumber(words))
                links.push_back({start, words.size(), LeadingInteger(words.substr(0, kDigits))});
            start = std::string_view::npos;
        }
    }
    return links;
}

bool IsLinkTarget(int block)
{
    return block == kNotes || FindBlock(CanonicalBlock(block)) != nullptr;
}

} // namespace sbd
