#include "search/search_tables.h"

#include "project/text.h"

namespace sbd {

SearchPlace PlaceOfKey(std::string_view key)
{
    constexpr std::size_t columnAt = 3;
    constexpr std::size_t blockAt = 6;
    if (key.size() < blockAt)
        return {};
    return {LeadingInteger(key.substr(blockAt)), LeadingInteger(key), LeadingInteger(key.substr(columnAt))};
}

std::string TopicText(const HelpTopic& topic)
{
    const SearchPlace place = PlaceOfKey(topic.key);
    std::string text = "   " + std::string(topic.title) + std::string(topic.arrow) + std::to_string(place.block);
    if (place.row > 0)
        text += "の第" + std::to_string(place.row) + "行";
    return text;
}

} // namespace sbd
