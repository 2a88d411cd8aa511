#include "sbdfile/output_file.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <system_error>
#include <type_traits>

namespace sbd {

namespace {

/// In small letters.
constexpr std::string_view kOwnExtensions[] = {".sbd", ".abd", ".li9", ".ll2", ".abl", ".z1d",
                                               ".z1f", ".z1r", ".z3d", ".z3f", ".z3r", ".chk"};

bool HasOwnExtension(const std::filesystem::path& path)
{
    const std::filesystem::path name = path.filename();
    std::string letters;                         // small ones; what is not ASCII is none of the extensions'
    for (const auto character : name.native()) { // wide on Windows
        const auto code = static_cast<std::make_unsigned_t<std::filesystem::path::value_type>>(character);
        const char letter = code > 0x7F ? '?' : static_cast<char>(character);
        letters += letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
    }
    while (letters.ends_with('.') || letters.ends_with(' ')) // which Windows leaves out
        letters.pop_back();
    return std::ranges::any_of(kOwnExtensions, [&](std::string_view own) { return letters.ends_with(own); });
}

} // namespace

bool IsFileOfAProject(const std::filesystem::path& path)
{
    std::error_code error;
    return HasOwnExtension(path) || HasOwnExtension(std::filesystem::weakly_canonical(path, error));
}

FileResult WriteOutputFile(const std::filesystem::path& path, std::string_view bytes)
{
    if (IsFileOfAProject(path)) {
        FileResult result;
        result.error = FileError::Other;
        result.detail = "プロジェクトや計算結果のファイルには上書きしません。別の名前を付けてください";
        return result;
    }
    return ReplaceFileBytes(path, bytes);
}

} // namespace sbd
