// A benchmark beside its baseline: both measured in one process, the figure is the ratio of their shortest times.
#pragma once

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <ctime>
#include <limits>
#include <map>

#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace sbd::bench {

/// The shortest time a task took so far, by size.
class ShortestTimes {
public:
    void Take(std::int64_t size, double seconds)
    {
        const auto [place, fresh] = seconds_.try_emplace(size, seconds);
        if (!fresh)
            place->second = std::min(place->second, seconds);
    }
    /// Not a number if nothing was measured.
    [[nodiscard]] double Of(std::int64_t size) const
    {
        const auto found = seconds_.find(size);
        return found == seconds_.end() ? std::numeric_limits<double>::quiet_NaN() : found->second;
    }

private:
    std::map<std::int64_t, double> seconds_;
};

/// Runs `task` until the library has enough and measures it alone; what it gives is destroyed off the clock. The time
/// is that of the processor, so that other programs disturb little.
template <typename Task>
void Measure(benchmark::State& state, ShortestTimes& times, Task task)
{
    for (auto _ : state) {
        const std::clock_t begin = std::clock();
        auto result = task();
        benchmark::DoNotOptimize(result);
        const double seconds = static_cast<double>(std::clock() - begin) / CLOCKS_PER_SEC;
        state.SetIterationTime(seconds);
        times.Take(state.range(0), seconds);
    }
    state.counters["shortest_ms"] = times.Of(state.range(0)) * 1e3;
}

/// Bytes in use on the heap; 0 where the system does not tell.
[[nodiscard]] inline std::size_t HeapInUse()
{
#if defined(__GLIBC__)
    const struct mallinfo2 info = ::mallinfo2();
    return info.uordblks + info.hblkhd;
#else
    return 0;
#endif
}

inline void CountBytes(benchmark::State& state, std::size_t bytes)
{
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * static_cast<std::int64_t>(state.iterations()));
}

} // namespace sbd::bench
