// sbdtool: prints what the program knows, and reads and writes projects, without a window.
#include "tools/commands.h"

#include <csignal>
#include <cstdio>

#ifdef _WIN32
#include <fcntl.h>
#include <io.h>
#define WIN32_LEAN_AND_MEAN
#include <windows.h>

namespace {

std::string Utf8(const wchar_t* wide)
{
    const int size = WideCharToMultiByte(CP_UTF8, 0, wide, -1, nullptr, 0, nullptr, nullptr);
    std::string text(static_cast<std::size_t>(size), '\0');
    WideCharToMultiByte(CP_UTF8, 0, wide, -1, text.data(), size, nullptr, nullptr);
    text.resize(text.empty() ? 0 : text.size() - 1); // the closing zero
    return text;
}

} // namespace

int wmain(int count, wchar_t** values)
#else
int main(int count, char** values)
#endif
{
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN); // a limit on file sizes is told as a full disk, it does not end the program
#endif
    std::vector<std::string> arguments;
    for (int i = 1; i < count; ++i)
#ifdef _WIN32
        arguments.push_back(Utf8(values[i]));
    _setmode(_fileno(stdout), _O_BINARY);
    _setmode(_fileno(stderr), _O_BINARY);
#else
        arguments.emplace_back(values[i]);
#endif
    const sbd::CommandResult result = sbd::RunCommandLine(arguments);
    const std::size_t printed = std::fwrite(result.output.data(), 1, result.output.size(), stdout);
    std::fwrite(result.error.data(), 1, result.error.size(), stderr);
    if (printed != result.output.size() || std::fflush(stdout) != 0) {
        std::fputs("sbdtool: 結果を出力できません。\n", stderr);
        return 2;
    }
    return result.exitCode;
}
