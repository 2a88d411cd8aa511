// The seed of a random test: a new one each run, told when the test fails; SBD_TEST_SEED=<number> repeats a run.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <random>
#include <string>

namespace sbd {

class RandomTest : public testing::Test {
protected:
    RandomTest() : random(seed_), trace_(__FILE__, __LINE__, "repeat with SBD_TEST_SEED=" + std::to_string(seed_)) {}

    /// A number from 0 to `last`.
    std::size_t UpTo(std::size_t last) { return std::uniform_int_distribution<std::size_t>(0, last)(random); }

private:
    static unsigned Seed()
    {
        const char* given = std::getenv("SBD_TEST_SEED");
        return given != nullptr ? static_cast<unsigned>(std::strtoul(given, nullptr, 10)) : std::random_device()();
    }

    const unsigned seed_ = Seed();

protected:
    std::mt19937_64 random;

private:
    testing::ScopedTrace trace_;
};

} // namespace sbd
