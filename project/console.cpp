#include "project/console.h"

#include <memory>

#ifdef _WIN32
#include <algorithm>
#include <fcntl.h>
#include <io.h>
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#endif

namespace sbd {

bool PrintText(std::FILE* stream, std::string_view utf8)
{
#ifdef _WIN32
    const HANDLE handle = reinterpret_cast<HANDLE>(_get_osfhandle(_fileno(stream)));
    DWORD mode = 0;
    if (GetConsoleMode(handle, &mode)) {
        const int size = static_cast<int>(utf8.size());
        std::wstring wide(static_cast<std::size_t>(MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, nullptr, 0)),
                          L'\0');
        MultiByteToWideChar(CP_UTF8, 0, utf8.data(), size, wide.data(), static_cast<int>(wide.size()));
        constexpr std::size_t most = 8192; // an old console takes no more at once
        for (std::wstring_view left = wide; !left.empty();) {
            DWORD count = 0;
            if (!WriteConsoleW(handle, left.data(), static_cast<DWORD>(std::min(left.size(), most)), &count, nullptr)
                || count == 0)
                return false;
            left.remove_prefix(count);
        }
        return true;
    }
#endif
    return PrintBytes(stream, utf8);
}

bool PrintBytes(std::FILE* stream, std::string_view bytes)
{
#ifdef _WIN32
    std::fflush(stream);
    _setmode(_fileno(stream), _O_BINARY);
#endif
    return std::fwrite(bytes.data(), 1, bytes.size(), stream) == bytes.size() && std::fflush(stream) == 0;
}

bool ReadAll(std::FILE* stream, std::string& bytes)
{
#ifdef _WIN32
    _setmode(_fileno(stream), _O_BINARY);
#endif
    constexpr std::size_t most = 1U << 20;
    const std::unique_ptr<char[]> buffer = std::make_unique<char[]>(most);
    bytes.clear();
    while (const std::size_t count = std::fread(buffer.get(), 1, most, stream))
        bytes.append(buffer.get(), count);
    return std::ferror(stream) == 0;
}

void UseConsoleOfStarter()
{
#ifdef _WIN32
    if (_get_osfhandle(_fileno(stdout)) >= 0 || !AttachConsole(ATTACH_PARENT_PROCESS))
        return;
    std::freopen("CONOUT$", "w", stdout);
    std::freopen("CONOUT$", "w", stderr);
#endif
}

void LeaveConsoleOfStarter()
{
#ifdef _WIN32
    std::fflush(stdout);
    std::fflush(stderr);
    FreeConsole();
#endif
}

} // namespace sbd
