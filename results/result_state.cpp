#include "results/result_state.h"

#include "project/file_access.h"
#include "project/file_time.h"
#include "project/text.h"

#include <algorithm>
#include <limits>

namespace sbd {

using namespace literals;

namespace {

constexpr std::int64_t kTolerance = 2; // seconds

/// The name of a file; a character that CP932 has not becomes "?".
std::string NameOf(const std::filesystem::path& file)
{
    const std::u8string name = file.filename().u8string();
    std::string cp932;
    for (std::size_t at = 0; at < name.size();) {
        std::size_t end = at + 1;
        while (end < name.size() && (static_cast<unsigned char>(name[end]) & 0xC0U) == 0x80U)
            ++end;
        const Cp932Result character = ToCp932(std::string(name.begin() + static_cast<std::ptrdiff_t>(at),
                                                          name.begin() + static_cast<std::ptrdiff_t>(end)));
        cp932 += character.refused ? std::string("?") : character.bytes;
        at = end;
    }
    return cp932;
}

std::string Joined(const std::vector<std::string>& texts)
{
    std::string joined;
    for (const std::string& text : texts)
        joined += (joined.empty() ? "" : ", ") + text;
    return joined;
}

} // namespace

ResultState ResultStateOf(const std::filesystem::path& projectFile, const ResultStamp& asRead, bool unsaved)
{
    ResultState state;
    std::int64_t oldest = std::numeric_limits<std::int64_t>::max();
    std::int64_t newest = std::numeric_limits<std::int64_t>::min();
    for (std::size_t i = 0; i < asRead.size(); ++i) {
        (asRead[i] ? state.files : state.missing).emplace_back(kResultExtensions[i].substr(1));
        if (!asRead[i])
            continue;
        oldest = std::min(oldest, asRead[i]->changed);
        newest = std::max(newest, asRead[i]->changed);
    }
    if (!projectFile.empty())
        state.project = NameOf(projectFile);
    if (state.files.empty())
        return state;
    state.time = LocalTimeText(newest);
    if (unsaved)
        state.newerInput.push_back("保存していない変更"_cp932);
    if (projectFile.empty())
        return state;
    std::filesystem::path names = projectFile;
    for (const std::filesystem::path& input : {projectFile, names.replace_extension(".abd")}) {
        const FileFacts facts = LookAtFile(input);
        if (facts.kind == FileFacts::Kind::File && facts.changed > oldest + kTolerance * FileTicksPerSecond())
            state.newerInput.push_back(NameOf(input) + " (" + LocalTimeText(facts.changed) + ")");
    }
    return state;
}

std::string ResultStateLine(const ResultState& state)
{
    if (state.files.empty())
        return {};
    std::string line = "結果: "_cp932 + state.time + "　ファイル: "_cp932 + Joined(state.files);
    if (!state.missing.empty())
        line += "　ない: "_cp932 + Joined(state.missing);
    return line;
}

std::string StaleLine(const ResultState& state)
{
    return state.newerInput.empty() ? std::string() : "結果は入力より古い: "_cp932 + Joined(state.newerInput);
}

} // namespace sbd
