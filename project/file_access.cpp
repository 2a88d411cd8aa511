#include "project/file_access.h"

#include <cerrno>

#ifdef _WIN32
#define WIN32_LEAN_AND_MEAN
#include <io.h>
#include <windows.h>
#else
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace sbd {

#ifdef _WIN32

std::wstring SystemPath(const std::filesystem::path& path)
{
    if (path.empty())
        return {};
    const DWORD room = GetFullPathNameW(path.c_str(), 0, nullptr, nullptr);
    std::wstring full(room, L'\0');
    const DWORD size = GetFullPathNameW(path.c_str(), room, full.data(), nullptr);
    if (size == 0 || size >= room)
        return path.native();
    full.resize(size);
    if (full.starts_with(LR"(\\?\)") || full.starts_with(LR"(\\.\)"))
        return full; // already such a form, or a device
    return full.starts_with(LR"(\\)") ? LR"(\\?\UNC\)" + full.substr(2) : LR"(\\?\)" + full;
}

FileHandle OpenForReading(const std::filesystem::path& path)
{
    FileHandle file(_wfopen(SystemPath(path).c_str(), L"rb"));
    if (file && GetFileType(reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(file.get())))) != FILE_TYPE_DISK) {
        errno = ENXIO;
        return nullptr;
    }
    return file;
}

FileFacts LookAtFile(const std::filesystem::path& path)
{
    FileFacts facts;
    WIN32_FILE_ATTRIBUTE_DATA data = {};
    if (!GetFileAttributesExW(SystemPath(path).c_str(), GetFileExInfoStandard, &data))
        return facts;
    if (data.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY)
        facts.kind = FileFacts::Kind::Folder;
    else if (data.dwFileAttributes & FILE_ATTRIBUTE_DEVICE)
        facts.kind = FileFacts::Kind::Other;
    else
        facts.kind = FileFacts::Kind::File;
    facts.size = std::uintmax_t{data.nFileSizeHigh} << 32 | data.nFileSizeLow;
    facts.changed = static_cast<std::int64_t>(std::uint64_t{data.ftLastWriteTime.dwHighDateTime} << 32
                                              | data.ftLastWriteTime.dwLowDateTime);
    return facts;
}

FileIdentity IdentityOfFile(const std::filesystem::path& path)
{
    // Asks for no right to read, so that nobody's sharing mode is in the way.
    const HANDLE file = CreateFileW(SystemPath(path).c_str(), 0, FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE,
                                    nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file == INVALID_HANDLE_VALUE)
        return {};
    BY_HANDLE_FILE_INFORMATION data = {};
    const bool known = GetFileInformationByHandle(file, &data) != 0;
    CloseHandle(file);
    return known
               ? FileIdentity{data.dwVolumeSerialNumber, std::uint64_t{data.nFileIndexHigh} << 32 | data.nFileIndexLow}
               : FileIdentity();
}

#else

FileHandle OpenForReading(const std::filesystem::path& path)
{
    const int file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (file < 0)
        return nullptr;
    struct stat status = {};
    if (::fstat(file, &status) != 0 || !(S_ISREG(status.st_mode) || S_ISDIR(status.st_mode))) {
        ::close(file);
        errno = ENXIO;
        return nullptr;
    }
    return FileHandle(::fdopen(file, "rb"));
}

FileFacts LookAtFile(const std::filesystem::path& path)
{
    FileFacts facts;
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        return facts;
    facts.kind = S_ISREG(status.st_mode)   ? FileFacts::Kind::File
                 : S_ISDIR(status.st_mode) ? FileFacts::Kind::Folder
                                           : FileFacts::Kind::Other;
    facts.size = static_cast<std::uintmax_t>(status.st_size);
    constexpr std::int64_t ticks = 1'000'000'000;
    facts.changed = status.st_mtim.tv_sec * ticks + status.st_mtim.tv_nsec;
    return facts;
}

FileIdentity IdentityOfFile(const std::filesystem::path& path)
{
    struct stat status = {};
    if (::stat(path.c_str(), &status) != 0)
        return {};
    return {static_cast<std::uint64_t>(status.st_dev), static_cast<std::uint64_t>(status.st_ino)};
}

#endif

} // namespace sbd
