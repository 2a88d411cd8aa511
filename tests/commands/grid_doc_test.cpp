// docs/grid.md names tests that exist.
#include "tests/surroundings.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <string>

namespace sbd {

namespace {

std::string FileOfTheTree(const std::string& path)
{
    std::ifstream file(std::filesystem::path(test::TestDataFolder()) / ".." / ".." / path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

TEST(GridDoc, NamesTestsThatExist)
{
    const std::string document = FileOfTheTree("docs/grid.md");
    std::map<std::string, std::string> sources;
    int named = 0;
    // `folder/file: Function`
    for (std::size_t begin = document.find('`'); begin != std::string::npos; begin = document.find('`', begin)) {
        const std::size_t end = document.find('`', begin + 1);
        ASSERT_NE(end, std::string::npos);
        const std::string quoted = document.substr(begin + 1, end - begin - 1);
        begin = end + 1;
        const std::size_t colon = quoted.find("_test: ");
        if (colon == std::string::npos)
            continue;
        const std::string path = "tests/" + quoted.substr(0, colon) + "_test.cpp";
        const std::string function = quoted.substr(colon + 7);
        const auto [source, isNew] = sources.try_emplace(path);
        if (isNew)
            source->second = FileOfTheTree(path);
        const bool isThere = source->second.find("::" + function + "()") != std::string::npos
                             || source->second.find(", " + function + ")") != std::string::npos;
        EXPECT_TRUE(isThere) << path << " has no " << function;
        ++named;
    }
    EXPECT_GE(named, 90);
}

} // namespace

} // namespace sbd
