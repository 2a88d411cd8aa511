#include "sheets/work_folder.h"

#include <random>
#include <system_error>

#ifdef _WIN32
#include <windows.h>
#endif

namespace sbd {

namespace {

/// The bytes by which the C library finds a path; empty if there are none.
std::string NarrowPath(const std::filesystem::path& path)
{
#ifdef _WIN32
    // The code page of the machine may not have every character of a user's name; the short form has plain letters.
    const auto narrow = [](const std::wstring& wide) {
        BOOL replaced = FALSE;
        std::string bytes(wide.size() * 4 + 1, '\0');
        const int size = WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, wide.c_str(), static_cast<int>(wide.size()),
                                             bytes.data(), static_cast<int>(bytes.size()), nullptr, &replaced);
        bytes.resize(size > 0 && replaced == FALSE ? static_cast<std::size_t>(size) : 0);
        return bytes;
    };
    std::string bytes = narrow(path.wstring());
    if (bytes.empty()) {
        std::wstring brief(32768, L'\0');
        brief.resize(GetShortPathNameW(path.c_str(), brief.data(), static_cast<DWORD>(brief.size())));
        bytes = narrow(brief);
    }
    return bytes;
#else
    return path.string();
#endif
}

} // namespace

CWorkFolder::CWorkFolder()
{
    std::error_code error;
    const std::filesystem::path place = std::filesystem::temp_directory_path(error);
    std::random_device chance;
    for (int tries = 0; !error && path_.empty() && tries < 20; ++tries) {
        const std::filesystem::path folder = place / ("sbdsheet-" + std::to_string(chance()));
        if (std::filesystem::create_directory(folder, error)) {
            std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
            path_ = folder;
        }
    }
    if (!path_.empty())
        narrow_ = NarrowPath(path_);
}

CWorkFolder::~CWorkFolder()
{
    std::error_code ignored;
    if (!path_.empty())
        std::filesystem::remove_all(path_, ignored);
}

} // namespace sbd
