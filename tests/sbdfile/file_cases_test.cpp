// Every folder of tests/data that holds an in.sbd is a case; docs/goldens.md tells the form of its answers.
#include "project/option_rows.h"
#include "tests/sbdfile/sections.h"
#include "tests/surroundings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <optional>

namespace sbd {

namespace {

namespace fs = std::filesystem;

constexpr int kMostTurns = 3; // loads and saves after which any file is at rest

std::optional<std::string> FileBytes(const fs::path& path)
{
    std::ifstream file(path, std::ios::binary);
    if (!file)
        return std::nullopt;
    return std::string(std::istreambuf_iterator<char>(file), {});
}

std::vector<fs::path> CaseFolders()
{
    std::vector<fs::path> folders;
    for (const fs::directory_entry& entry : fs::directory_iterator(test::TestDataFolder()))
        if (fs::exists(entry.path() / "in.sbd"))
            folders.push_back(entry.path());
    std::ranges::sort(folders);
    return folders;
}

/// A piece of a file: the title line, a section with the empty line behind it, or what stands behind the last section.
struct Piece {
    std::string key; ///< header line; "TITLE:"; empty behind the last section
    std::vector<std::string> lines;
};

std::vector<Piece> PiecesOf(std::string_view bytes)
{
    std::vector<Piece> pieces;
    const std::vector<std::string> lines = LinesOf(bytes);
    std::size_t i = 0;
    if (!lines.empty() && lines[0].starts_with("TITLE:"))
        pieces.push_back({"TITLE:", {lines[i++]}});
    bool behindLast = false;
    while (i < lines.size()) {
        Piece& piece = pieces.emplace_back();
        if (behindLast) {
            piece.lines.assign(lines.begin() + static_cast<std::ptrdiff_t>(i), lines.end());
            break;
        }
        piece.key = lines[i];
        behindLast = lines[i].starts_with("[MBD_CONTROL]");
        do
            piece.lines.push_back(lines[i++]);
        while (i < lines.size() && !piece.lines.back().starts_with("[E"));
        if (i < lines.size())
            piece.lines.push_back(lines[i++]);
    }
    return pieces;
}

bool IsOptionBlock(const Piece& piece)
{
    return std::ranges::any_of(OptionBlocks(),
                               [&](const OptionBlock& block) { return FromCp932(block.header) == piece.key; });
}

/// What a file holds that the file without content has not: sections that differ, of option blocks only the rows
/// that differ; "-" in front of a section that is missing.
std::vector<std::string> BeyondEmptyFile(std::string_view bytes)
{
    static const std::vector<Piece> empty =
        PiecesOf(*FileBytes(fs::path(test::TestDataFolder()) / "empty_file" / "expected.sbd"));
    std::vector<std::string> shown;
    auto next = empty.begin();
    const auto tellMissing = [&](auto end) {
        for (; next != end; ++next)
            shown.push_back("-" + next->lines[0]);
    };
    for (const Piece& piece : PiecesOf(bytes)) {
        const auto same = std::find_if(next, empty.end(), [&](const Piece& other) { return other.key == piece.key; });
        if (same != empty.end())
            tellMissing(same);
        else if (piece.key.empty())
            tellMissing(empty.end());
        const bool known = same != empty.end();
        if (known)
            ++next;
        if (known && same->lines == piece.lines)
            continue;
        if (!known || !IsOptionBlock(piece) || same->lines.size() != piece.lines.size()) {
            shown.insert(shown.end(), piece.lines.begin(), piece.lines.end());
            continue;
        }
        for (std::size_t i = 0; i < piece.lines.size(); ++i)
            if (i == 0 || i + 2 >= piece.lines.size() || piece.lines[i] != same->lines[i])
                shown.push_back(piece.lines[i]);
    }
    tellMissing(empty.end());
    return shown;
}

std::vector<std::string> TextLines(std::string_view text)
{
    std::vector<std::string> lines;
    for (; !text.empty(); text.remove_prefix(std::min(text.find('\n') + 1, text.size())))
        lines.emplace_back(text.substr(0, text.find('\n')));
    return lines;
}

std::string FirstDifference(const std::vector<std::string>& expected, const std::vector<std::string>& written)
{
    std::size_t line = 0;
    while (line < expected.size() && line < written.size() && expected[line] == written[line])
        ++line;
    if (line == expected.size() && line == written.size())
        return {};
    return "line " + std::to_string(line + 1) + " of the answer\n  expected |"
           + (line < expected.size() ? expected[line] : "(no line)") + "|\n  written  |"
           + (line < written.size() ? written[line] : "(no line)") + "|";
}

class FileCases : public testing::TestWithParam<fs::path> {
protected:
    /// One load into a new document and one save.
    [[nodiscard]] std::string Turn(std::string_view bytes) const
    {
        CSbdData data = LoadBytes(bytes, FileBytes(GetParam() / "in.abd").value_or(std::string()));
        return WriteProject(data);
    }
};

} // namespace

TEST_P(FileCases, WriteWhatTheirAnswersSayAndComeToRest)
{
    std::string bytes = *FileBytes(GetParam() / "in.sbd");
    bool answered = false;
    for (int turn = 1; turn <= kMostTurns + 1; ++turn) {
        const std::string written = Turn(bytes);
        const std::string number = turn == 1 ? "" : "." + std::to_string(turn);
        const std::optional<std::string> whole = FileBytes(GetParam() / ("expected" + number + ".sbd"));
        const std::optional<std::string> beyond = FileBytes(GetParam() / ("expected" + number + ".txt"));
        if (whole) {
            EXPECT_EQ(FirstDifference(*whole, written), "") << "turn " << turn;
        }
        if (beyond) {
            EXPECT_EQ(FirstDifference(TextLines(*beyond), BeyondEmptyFile(written)), "") << "turn " << turn;
        }
        // After the last answer, or the last turn allowed, a load and a save change nothing.
        if ((answered && !whole && !beyond) || turn == kMostTurns + 1) {
            EXPECT_EQ(FirstDifference(bytes, written), "") << "turn " << turn;
        }
        answered = answered || whole || beyond;
        bytes = written;
    }
}

INSTANTIATE_TEST_SUITE_P(Data, FileCases, testing::ValuesIn(CaseFolders()),
                         [](const testing::TestParamInfo<fs::path>& folder) {
                             return folder.param.filename().string();
                         });

TEST(FileCasesData, ADocumentWithoutContentIsTheFileThatTheOthersAreComparedWith)
{
    EXPECT_TRUE(fs::exists(fs::path(test::TestDataFolder()) / "empty_file" / "expected.sbd"));
}

TEST(Examples, ALoadAndASaveChangeNoByte)
{
    int count = 0;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(test::ExamplesFolder())) {
        if (entry.path().extension() != ".sbd")
            continue;
        const std::string bytes = *FileBytes(entry.path());
        fs::path names = entry.path();
        names.replace_extension(".abd");
        CSbdData data = LoadBytes(bytes, FileBytes(names).value_or(std::string()));
        EXPECT_EQ(FirstDifference(bytes, WriteProject(data)), "") << entry.path();
        ++count;
    }
    EXPECT_GE(count, 3);
}

} // namespace sbd
