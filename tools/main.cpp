// sbdtool: prints what the program knows, and reads and writes projects, without a window.
#include "project/console.h"
#include "tools/commands.h"

#include <csignal>

#ifdef _WIN32
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
#else
        arguments.emplace_back(values[i]);
#endif
    const sbd::CommandResult result = sbd::RunCommandLine(arguments);
    const bool printed =
        result.bytes.empty() ? sbd::PrintText(stdout, result.output) : sbd::PrintBytes(stdout, result.bytes);
    sbd::PrintText(stderr, result.error);
    if (!printed) {
        sbd::PrintText(stderr, "sbdtool: 結果を出力できません。\n");
        return 2;
    }
    return result.exitCode;
}
