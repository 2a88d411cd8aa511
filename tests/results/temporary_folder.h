// A folder that goes with the test.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>
#include <random>
#include <string>

namespace sbd {

class TemporaryFolder {
public:
    TemporaryFolder()
        : path_(std::filesystem::path(testing::TempDir()) / ("sbd-results-" + std::to_string(std::random_device()())))
    {
        std::filesystem::create_directories(path_);
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder()
    {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    [[nodiscard]] const std::filesystem::path& Path() const { return path_; }

private:
    std::filesystem::path path_;
};

} // namespace sbd
