// docs/commands.md is what the table says.
#include "commands/commands.h"
#include "tests/surroundings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>
#include <string_view>
#include <utility>

namespace sbd {

namespace {

/// A text as the user reads it: without the letter of a menu, on one line of a table.
std::string Words(std::string_view text)
{
    std::string words(text);
    if (const std::size_t letter = words.find("(&");
        letter != std::string::npos && words.find(')', letter) == letter + 3)
        words.erase(letter, 4);
    return words;
}

/// Where each command stands: "ファイル", "表示 → 入力欄".
void CollectPlaces(std::span<const MenuItem> items, const std::string& path, std::map<Command, std::string>& places)
{
    for (const MenuItem& item : items) {
        if (const Command* command = std::get_if<Command>(&item); command != nullptr && *command != kSeparator) {
            places[*command] = path;
        } else if (const MenuId* menu = std::get_if<MenuId>(&item)) {
            const std::string title = Words(MenuOf(*menu).title);
            CollectPlaces(MenuOf(*menu).items, path.empty() ? title : path + " → " + title, places);
        }
    }
}

std::string KeysInWords(const CommandRow& row)
{
    std::string keys(row.keys);
    for (std::size_t at = keys.find("; "); at != std::string::npos; at = keys.find("; "))
        keys.replace(at, 2, "、");
    if (!keys.empty() && row.scope == KeyScope::Grid)
        return keys + " (入力欄)";
    return !keys.empty() && row.scope == KeyScope::Search ? keys + " (検索欄)" : keys;
}

std::string Listing()
{
    std::map<Command, std::string> places;
    CollectPlaces(MenuBarItems(), {}, places);
    std::string text = "| コマンド | キー | メニュー | 番号 |\n|---|---|---|---|\n";
    for (const CommandRow& row : CommandTable()) {
        std::string place = places[row.command];
        if (!places.contains(row.command) || place.empty())
            place = row.scope == KeyScope::Search ? "右ボタン (検索欄)" : "メニューバー";
        text += "| " + Words(row.text) + " | " + KeysInWords(row) + " | " + place + " | "
                + (row.number == 0 ? std::string() : std::to_string(row.number)) + " |\n";
    }
    return text;
}

/// A file of the tree, by its path there.
std::string FileOfTheTree(const std::string& path)
{
    std::ifstream in(std::filesystem::path(test::ExamplesFolder()) / ".." / path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

/// A key as it is written for readers.
std::string KeyInFull(std::string key)
{
    for (const auto& [abbreviated, full] : {std::pair("Ins", "Insert"), std::pair("Del", "Delete")}) {
        if (key.ends_with(abbreviated))
            key.replace(key.size() - 3, 3, full);
    }
    return key;
}

/// True if a text names a key, not only one that begins or ends like it.
bool NamesKey(const std::string& text, const std::string& key)
{
    const auto ofKey = [](char c) {
        return c == '+' || (c >= '0' && c <= '9') || (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z');
    };
    for (std::size_t at = text.find(key); at != std::string::npos; at = text.find(key, at + 1)) {
        const std::size_t end = at + key.size();
        if ((at == 0 || !ofKey(text[at - 1])) && (end == text.size() || !ofKey(text[end])))
            return true;
    }
    return false;
}

} // namespace

TEST(CommandsDocument, TellsUsersEachKeyInTheReadme)
{
    const std::string readme = FileOfTheTree("README.ja.md");
    const std::size_t start = readme.find("## キー操作");
    ASSERT_NE(start, std::string::npos);
    const std::string keys = readme.substr(start, readme.find("\n## ", start + 1) - start);
    for (const CommandRow& row : CommandTable()) {
        std::string_view left = row.keys;
        while (!left.empty()) {
            const std::size_t end = left.find("; ");
            const std::string key = KeyInFull(std::string(left.substr(0, end)));
            EXPECT_TRUE(NamesKey(keys, key)) << "README.ja.md does not tell of " << key << ": " << row.text;
            left = end == std::string_view::npos ? std::string_view() : left.substr(end + 2);
        }
    }
}

TEST(CommandsDocument, ListsTheCommandsAsTheTableHasThem)
{
    const std::string document = FileOfTheTree("docs/commands.md");
    const std::size_t start = document.find("| コマンド");
    ASSERT_NE(start, std::string::npos) << "docs/commands.md";
    const std::size_t end = document.find("\n\n", start);
    const std::string there = document.substr(start, end == std::string::npos ? end : end + 1 - start);
    EXPECT_TRUE(there == Listing()) << "put this in the place of the table in docs/commands.md:\n" << Listing();
}

} // namespace sbd
