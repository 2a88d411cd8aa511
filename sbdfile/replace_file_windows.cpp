// ReplaceFileBytes on Windows: the whole new file or the whole old one, through power loss, a full disk or a kill.
#include "project/file_access.h"
#include "sbdfile/file_errors.h"
#include "sbdfile/project_file.h"

#include <algorithm>
#include <cerrno>
#include <memory>
#include <string>
#include <vector>

#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace sbd {

namespace {

// Short: the target's own name may be as long as names can be.
constexpr std::wstring_view kNewFilePrefix = L".sbdsave-";
constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;

struct CloseTheHandle {
    using pointer = HANDLE;
    void operator()(HANDLE handle) const { CloseHandle(handle); }
};
/// An open handle; null if it is none.
using Handle = std::unique_ptr<HANDLE, CloseTheHandle>;

/// CreateFileW. Null, with GetLastError set, if that cannot be.
Handle OpenFile(const std::wstring& path, DWORD access, DWORD sharing, DWORD disposition, DWORD flags = 0)
{
    const HANDLE handle = CreateFileW(path.c_str(), access, sharing, nullptr, disposition, flags, nullptr);
    return Handle(handle == INVALID_HANDLE_VALUE ? nullptr : handle);
}

std::uint64_t Ticks(const FILETIME& time)
{
    return std::uint64_t{time.dwHighDateTime} << 32 | time.dwLowDateTime;
}

/// The folder of a system path, with its last backslash.
std::wstring FolderOf(const std::wstring& path)
{
    return path.substr(0, path.find_last_of(L'\\') + 1);
}

/// Where the links lead that the file at `path` may be; `path` itself if it is none, or leads nowhere.
std::wstring BehindLinks(const std::wstring& path)
{
    const DWORD attributes = GetFileAttributesW(path.c_str());
    if (attributes == INVALID_FILE_ATTRIBUTES || !(attributes & FILE_ATTRIBUTE_REPARSE_POINT))
        return path;
    const Handle file = OpenFile(path, 0, kShareAll, OPEN_EXISTING);
    if (!file)
        return path;
    const DWORD room = GetFinalPathNameByHandleW(file.get(), nullptr, 0, FILE_NAME_NORMALIZED);
    std::wstring target(room, L'\0');
    const DWORD size = GetFinalPathNameByHandleW(file.get(), target.data(), room, FILE_NAME_NORMALIZED);
    if (size == 0 || size >= room)
        return path;
    target.resize(size);
    return target;
}

/// Who may do what with `from`, given to `to` too. A file system that knows no such rights has none to lose.
void CarryRightsOver(const std::wstring& from, const std::wstring& to)
{
    DWORD size = 0;
    GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &size);
    std::vector<unsigned char> rights(size);
    if (size > 0 && GetFileSecurityW(from.c_str(), DACL_SECURITY_INFORMATION, rights.data(), size, &size))
        SetFileSecurityW(to.c_str(), DACL_SECURITY_INFORMATION, rights.data());
}

DWORD WriteAll(HANDLE file, std::string_view bytes)
{
    constexpr std::size_t piece = 1U << 24;
    while (!bytes.empty()) {
        DWORD count = 0;
        if (!::WriteFile(file, bytes.data(), static_cast<DWORD>(std::min(bytes.size(), piece)), &count, nullptr))
            return GetLastError();
        if (count == 0)
            return ERROR_DISK_FULL;
        bytes.remove_prefix(count);
    }
    return FlushFileBuffers(file) ? ERROR_SUCCESS : GetLastError();
}

/// True for the errors of a file that another program has open.
bool IsHeld(DWORD error)
{
    return error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION;
}

/// Renames over `target`. A virus scanner or an indexer may hold one of the two for a moment.
DWORD TakePlace(const std::wstring& name, const std::wstring& target)
{
    constexpr int tries = 20;
    constexpr DWORD pause = 50; // ms
    for (int i = 1;; ++i) {
        if (MoveFileExW(name.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING | MOVEFILE_WRITE_THROUGH))
            return ERROR_SUCCESS;
        const DWORD error = GetLastError();
        const bool mayPass = IsHeld(error) || error == ERROR_ACCESS_DENIED; // the latter for a held target
        if (!mayPass || i == tries)
            return error;
        Sleep(pause);
    }
}

/// Writes the new file under a name of its own and lets it take the target's place.
DWORD Replace(const std::wstring& target, DWORD oldAttributes, std::string_view bytes)
{
    const bool isThere = oldAttributes != INVALID_FILE_ATTRIBUTES;
    std::wstring name;
    Handle file;
    for (unsigned number = 0; !file; ++number) {
        name = FolderOf(target) + std::wstring(kNewFilePrefix) + std::to_wstring(GetCurrentProcessId()) + L'-'
               + std::to_wstring(number);
        // Shared with nobody: that says that we live.
        file = OpenFile(name, GENERIC_WRITE, 0, CREATE_NEW, isThere ? oldAttributes : FILE_ATTRIBUTE_NORMAL);
        if (!file && GetLastError() != ERROR_FILE_EXISTS)
            return GetLastError();
    }
    DWORD error = WriteAll(file.get(), bytes);
    file.reset();
    if (error == ERROR_SUCCESS && isThere)
        CarryRightsOver(target, name);
    if (error == ERROR_SUCCESS)
        error = TakePlace(name, target);
    if (error != ERROR_SUCCESS)
        DeleteFileW(name.c_str());
    return error;
}

/// Removes what saves left behind that were killed on their way: new files that no process holds any more.
void SweepLeftovers(const std::wstring& folder)
{
    WIN32_FIND_DATAW found = {};
    const HANDLE search = FindFirstFileW((folder + std::wstring(kNewFilePrefix) + L"*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE)
        return;
    FILETIME now = {};
    GetSystemTimeAsFileTime(&now);
    constexpr std::uint64_t minute = 600'000'000; // of 100 ns
    do {
        // A fresh one may be a save between its last byte and its new name.
        if (Ticks(now) > Ticks(found.ftLastWriteTime) + minute)
            OpenFile(folder + found.cFileName, DELETE, 0, OPEN_EXISTING, FILE_FLAG_DELETE_ON_CLOSE);
    } while (FindNextFileW(search, &found));
    FindClose(search);
}

/// The system's words, in UTF-8 as all details are. The standard library has them in the user's code page.
std::string MessageOf(DWORD error)
{
    wchar_t words[512] = {};
    DWORD size =
        FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
                       nullptr, error, 0, words, static_cast<DWORD>(std::size(words)), nullptr);
    while (size > 0 && words[size - 1] == L' ')
        --size;
    const std::u8string text = std::filesystem::path(std::wstring_view(words, size)).u8string();
    return size == 0 ? "error " + std::to_string(error) : std::string(text.begin(), text.end());
}

} // namespace

FileResult ErrorOfSystem(unsigned long error)
{
    FileResult result;
    result.detail = MessageOf(error);
    switch (error) {
    case ERROR_FILE_NOT_FOUND:
    case ERROR_PATH_NOT_FOUND:
    case ERROR_INVALID_DRIVE:
    case ERROR_BAD_NETPATH:
    case ERROR_BAD_NET_NAME:
        result.error = FileError::NotFound;
        break;
    case ERROR_ACCESS_DENIED:
    case ERROR_WRITE_PROTECT:
    case ERROR_SHARING_VIOLATION:
    case ERROR_LOCK_VIOLATION:
        result.error = FileError::NoPermission;
        break;
    case ERROR_DISK_FULL:
    case ERROR_HANDLE_DISK_FULL:
    case ERROR_FILE_TOO_LARGE:
        result.error = FileError::DiskFull;
        break;
    default:
        result.error = FileError::Other;
    }
    return result;
}

FileResult ReplaceFileBytes(const std::filesystem::path& path, std::string_view bytes)
{
    const std::wstring target = BehindLinks(SystemPath(path));
    const DWORD attributes = GetFileAttributesW(target.c_str());
    if (attributes != INVALID_FILE_ATTRIBUTES) {
        if (attributes & FILE_ATTRIBUTE_DIRECTORY)
            return ErrorOfCode(EISDIR);
        // A file that may not be written to is not replaced behind its owner's back either. One that is only held at
        // the moment is waited for when the new one is to take its place.
        if (attributes & FILE_ATTRIBUTE_READONLY)
            return ErrorOfSystem(ERROR_ACCESS_DENIED);
        if (!OpenFile(target, GENERIC_WRITE, kShareAll, OPEN_EXISTING) && !IsHeld(GetLastError()))
            return ErrorOfSystem(GetLastError());
    }
    if (const DWORD error = Replace(target, attributes, bytes); error != ERROR_SUCCESS)
        return ErrorOfSystem(error);
    SweepLeftovers(FolderOf(target));
    return {};
}

} // namespace sbd
