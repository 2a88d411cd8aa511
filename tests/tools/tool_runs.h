// Runs of the tool's commands, in a folder of their own.
#pragma once

#include "tests/sbdfile/sections.h"
#include "tools/commands.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

inline std::string BytesOf(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

/// Runs commands in a folder of their own.
class ToolRuns : public testing::Test {
protected:
    ToolRuns()
        : folder_(std::filesystem::temp_directory_path()
                  / ("sbdtool_commands_" + std::to_string(std::random_device()())))
    {
        std::filesystem::create_directory(folder_);
    }
    ~ToolRuns() override
    {
        std::error_code ignored;
        std::filesystem::remove_all(folder_, ignored);
    }

    [[nodiscard]] std::string At(const std::string& name) const
    {
        const std::u8string path =
            (folder_ / std::filesystem::path(std::u8string(name.begin(), name.end()))).u8string();
        return {path.begin(), path.end()};
    }

    std::string PutBytes(const std::string& name, std::string_view bytes)
    {
        const std::string path = At(name);
        std::ofstream(std::filesystem::path(std::u8string(path.begin(), path.end())), std::ios::binary)
            .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
        return path;
    }
    /// A file of these lines in CP932.
    std::string Put(const std::string& name, std::string_view utf8) { return PutBytes(name, FileOf(utf8)); }

    [[nodiscard]] std::vector<std::string> Files() const
    {
        std::vector<std::string> names;
        for (const std::filesystem::directory_entry& entry : std::filesystem::directory_iterator(folder_))
            names.push_back(entry.path().filename().string());
        return names;
    }

private:
    std::filesystem::path folder_;
};

inline CommandResult Tool(const std::vector<std::string>& arguments)
{
    return RunCommandLine(arguments);
}

inline nlohmann::json Printed(const CommandResult& result)
{
    EXPECT_EQ(result.exitCode, 0) << result.error;
    EXPECT_EQ(result.error, "");
    EXPECT_EQ(std::ranges::count(result.output, '\n'), 1) << "one value on one line";
    return nlohmann::json::parse(result.output);
}

/// It could not be done: exit code 2, nothing on the output, and a message that holds `words`.
inline void ExpectRefused(const CommandResult& result, const std::string& words)
{
    EXPECT_EQ(result.exitCode, 2);
    EXPECT_EQ(result.output, "");
    EXPECT_THAT(result.error, testing::HasSubstr(words));
    EXPECT_THAT(result.error, testing::EndsWith("\n"));
}

} // namespace sbd
