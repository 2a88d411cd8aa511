// pagecheck FILE...: checks page files when building. Faults go to stderr as FILE:LINE: text; any of them is an error.
#include "upperview/page/page_check.h"
#include "upperview/page/page_store.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <iterator>

namespace {

std::string ReadFile(const std::filesystem::path& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

} // namespace

int main(int count, char** values)
{
    const std::vector<std::filesystem::path> paths(values + 1, values + count);
    std::map<std::string, sbd::Sketch> shared;
    for (const std::filesystem::path& path : paths)
        if (path.filename() == sbd::kSharedFile)
            shared = sbd::ParsePage(ReadFile(path), 0).page.sketches;

    if (const std::filesystem::path beside = paths.empty() ? "" : paths.front().parent_path() / sbd::kSharedFile;
        shared.empty() && std::filesystem::exists(beside)) // some pages alone: the sketches of their folder
        shared = sbd::ParsePage(ReadFile(beside), 0).page.sketches;

    bool bad = false;
    for (const std::filesystem::path& path : paths) {
        for (const sbd::PageFault& fault : sbd::CheckPage(path.filename().string(), ReadFile(path), shared)) {
            std::cerr << path.string() << ':' << fault.line << ": error: " << fault.message << '\n';
            bad = true;
        }
    }
    return bad ? 1 : 0;
}
