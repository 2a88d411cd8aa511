#include "results/result_paths.h"

#include "project/text.h"

#include <algorithm>

namespace sbd {

namespace {

/// Behind the path of the project without its extension, UTF-8.
constexpr std::string_view kFolderSuffix = "_計算結果";
constexpr std::size_t kExtension = 4;

template <typename Text>
Text WithoutExtension(const Text& path)
{
    return path.substr(0, path.size() - std::min(path.size(), kExtension));
}

} // namespace

std::filesystem::path ResultFile(const std::filesystem::path& projectFile, std::string_view extension)
{
    const auto name = WithoutExtension(projectFile.filename().native());
    std::filesystem::path folder = name;
    folder += std::u8string(kFolderSuffix.begin(), kFolderSuffix.end());
    std::filesystem::path file = name;
    file += extension;
    return projectFile.parent_path() / folder / file;
}

std::size_t LastBackslash(std::string_view projectPath)
{
    std::size_t last = 0;
    for (std::size_t pos = 0; pos < projectPath.size(); pos += CharacterLength(projectPath, pos))
        if (pos >= 2 && projectPath[pos] == '\\')
            last = pos;
    return last;
}

std::string ResultPath(std::string_view projectPath, std::string_view extension)
{
    const std::string_view base = WithoutExtension(projectPath);
    const std::string_view own = base.substr(std::min(base.size(), LastBackslash(projectPath)));
    return std::string(base) + Cp932(kFolderSuffix) + std::string(own) + std::string(extension);
}

std::string ReportPath(std::string_view projectPath)
{
    // A point is never the second byte of a character.
    const std::string_view base = projectPath.substr(0, projectPath.rfind('.'));
    const std::string_view own = base.substr(std::min(base.size(), LastBackslash(projectPath) + 1));
    return std::string(base) + Cp932(kFolderSuffix) + "\\" + std::string(own) + ".CHK";
}

} // namespace sbd
