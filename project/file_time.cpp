#include "project/file_time.h"

#include <array>
#include <ctime>

#ifdef _WIN32
#define WIN32_LEAN_AND_MEAN
#include <windows.h>
#endif

namespace sbd {

namespace {

constexpr const char* kForm = "%Y/%m/%d %H:%M"; // digits alone, in every locale

} // namespace

#ifdef _WIN32

std::int64_t FileTicksPerSecond()
{
    return 10'000'000;
}

std::int64_t FileTimeNow()
{
    FILETIME now = {};
    GetSystemTimeAsFileTime(&now);
    return static_cast<std::int64_t>((static_cast<std::uint64_t>(now.dwHighDateTime) << 32) | now.dwLowDateTime);
}

std::string LocalTimeText(std::int64_t changed)
{
    const auto ticks = static_cast<std::uint64_t>(changed);
    const FILETIME file{static_cast<DWORD>(ticks), static_cast<DWORD>(ticks >> 32)};
    SYSTEMTIME world = {};
    SYSTEMTIME here = {};
    if (!FileTimeToSystemTime(&file, &world) || !SystemTimeToTzSpecificLocalTime(nullptr, &world, &here))
        return {};
    std::tm time = {};
    time.tm_year = here.wYear - 1900;
    time.tm_mon = here.wMonth - 1;
    time.tm_mday = here.wDay;
    time.tm_hour = here.wHour;
    time.tm_min = here.wMinute;
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), kForm, &time)};
}

#else

std::int64_t FileTicksPerSecond()
{
    return 1'000'000'000;
}

std::int64_t FileTimeNow()
{
    return static_cast<std::int64_t>(std::time(nullptr)) * FileTicksPerSecond();
}

std::string LocalTimeText(std::int64_t changed)
{
    const auto seconds = static_cast<std::time_t>(changed / FileTicksPerSecond());
    std::tm time = {};
    if (::localtime_r(&seconds, &time) == nullptr)
        return {};
    std::array<char, 32> text{};
    return {text.data(), std::strftime(text.data(), text.size(), kForm, &time)};
}

#endif

} // namespace sbd
