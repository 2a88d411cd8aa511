// What takes five times as long under sanitizers does less there. Proofs over all blocks look at a third of them, drawn by
// lot: which block is at fault stands in what they tell; SBD_TEST_SHARE=0, 1 or 2 takes the same third again.
#pragma once

#include <cstdlib>
#include <random>

namespace sbd::test {

#ifdef __SANITIZE_ADDRESS__
inline constexpr bool kIsSanitized = true;
#else
inline constexpr bool kIsSanitized = false;
#endif

[[nodiscard]] inline bool IsOfThisShare(int block)
{
    constexpr int shares = 3;
    static const int share = [] {
        const char* given = std::getenv("SBD_TEST_SHARE");
        return given != nullptr ? std::atoi(given) % shares : static_cast<int>(std::random_device()() % shares);
    }();
    return !kIsSanitized || block % shares == share;
}

} // namespace sbd::test
