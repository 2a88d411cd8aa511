#include "tools/command_support.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <cstdlib>
#include <system_error>

#ifdef _WIN32
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#endif

namespace sbd {

using nlohmann::json;

std::filesystem::path PathOf(const std::string& utf8)
{
    try {
        return std::filesystem::path(std::u8string(utf8.begin(), utf8.end()));
    } catch (const std::system_error&) {
        return {}; // no text: Windows has no such path
    }
}

CommandResult Fail(std::string message)
{
    return {2, {}, std::move(message) + "\n"};
}

CommandResult Print(const json& value)
{
    return {0, value.dump(-1, ' ', false, json::error_handler_t::replace) + "\n", {}};
}

bool SpeaksJapanese()
{
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"})
        if (const char* value = std::getenv(name); value != nullptr && *value != '\0')
            return std::string_view(value).starts_with("ja");
#ifdef _WIN32
    return PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_JAPANESE;
#else
    return false;
#endif
}

std::string WithoutControls(std::string_view utf8)
{
    constexpr std::string_view digits = "0123456789abcdef";
    std::string text;
    text.reserve(utf8.size());
    for (std::size_t i = 0; i < utf8.size(); ++i) {
        const auto byte = [&](std::size_t at) { return at < utf8.size() ? static_cast<unsigned char>(utf8[at]) : 0U; };
        // Of two bytes: U+0080 to U+009F, which some terminals obey like ESC.
        const bool high = byte(i) == 0xC2 && byte(i + 1) >= 0x80 && byte(i + 1) <= 0x9F;
        const unsigned code = high ? byte(i + 1) : byte(i);
        if (!high && ((code >= 0x20 && code != 0x7F) || code == '\n')) {
            text.push_back(utf8[i]);
            continue;
        }
        text += "\\u00";
        text += digits[code >> 4U];
        text += digits[code & 0xFU];
        i += high ? 1 : 0;
    }
    return text;
}

CommandResult WrongUse(std::string_view command, const std::string& why)
{
    const auto entry = std::ranges::find(ToolCommands(), command, &ToolCommand::name);
    const std::string_view usage = entry != ToolCommands().end() ? entry->usage : command;
    return Fail("sbdtool " + std::string(command) + ": " + why + "\n使い方: sbdtool " + std::string(usage));
}

} // namespace sbd
