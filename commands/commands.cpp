#include "commands/commands.h"

#include "commands/commands_table.h"

#include <algorithm>
#include <cassert>

namespace sbd {

namespace {

/// True if `keys` ("Ctrl+C; Ctrl+Ins") has the key.
bool HasKey(std::string_view keys, std::string_view key)
{
    constexpr std::string_view between = "; ";
    while (!keys.empty()) {
        const std::size_t end = keys.find(between);
        if (keys.substr(0, end) == key)
            return true;
        keys = end == std::string_view::npos ? std::string_view() : keys.substr(end + between.size());
    }
    return false;
}

} // namespace

std::span<const CommandRow> CommandTable()
{
    return command_rows::kRows;
}

const CommandRow& RowOf(Command command)
{
    assert(command > Command::None && command < Command::Count);
    return command_rows::kRows[static_cast<std::size_t>(command) - 1];
}

std::optional<Command> CommandOfNumber(int number)
{
    const auto* const row = std::ranges::find(command_rows::kRows, number, &CommandRow::number);
    return number == 0 || row == std::end(command_rows::kRows) ? std::nullopt : std::optional(row->command);
}

std::optional<Command> CommandOfKey(KeyScope scope, std::string_view key)
{
    for (const CommandRow& row : CommandTable()) {
        if (row.scope == scope && HasKey(row.keys, key))
            return row.command;
    }
    return std::nullopt;
}

} // namespace sbd
