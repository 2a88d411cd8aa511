#include "tools/command_support.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <system_error>

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

CommandResult WrongUse(std::string_view command, const std::string& why)
{
    const auto entry = std::ranges::find(ToolCommands(), command, &Command::name);
    const std::string_view usage = entry != ToolCommands().end() ? entry->usage : command;
    return Fail("sbdtool " + std::string(command) + ": " + why + "\n使い方: sbdtool " + std::string(usage));
}

} // namespace sbd
