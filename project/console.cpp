#include "project/console.h"

#ifdef _WIN32
#include <algorithm>
#include <fcntl.h>
#include <io.h>
#include <string>
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
    std::fflush(stream);
    _setmode(_fileno(stream), _O_BINARY);
#endif
    return std::fwrite(utf8.data(), 1, utf8.size(), stream) == utf8.size() && std::fflush(stream) == 0;
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
