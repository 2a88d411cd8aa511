// Load and save settles: after a few turns the text stands still, and what stands still is read as the same project.
#include "fuzz/property.h"
#include "project/catalogue.h"
#include "project/sbd_data.h"
#include "sbdfile/reader.h"
#include "sbdfile/writer.h"

#include <string>
#include <vector>

namespace {

constexpr int kMostTurns = 3; // a file of other origin takes one or two to come to rest

std::string LoadAndSave(std::string_view text)
{
    sbd::CSbdData data;
    sbd::ReadProject(text, data);
    return sbd::WriteProject(data);
}

/// The option blocks of a project that says nothing, as they stand in its file, from header to end line.
std::vector<std::string> MakeDefaultOptionBlocks()
{
    const std::string text = LoadAndSave({});
    std::vector<std::string> blocks;
    for (const sbd::CatalogueRow& row : sbd::Catalogue()) {
        if (row.kind != sbd::BlockKind::Option)
            continue;
        const std::size_t begin = text.find("\r\n[" + std::string(row.tag) + "]");
        if (begin != std::string::npos)
            blocks.push_back(text.substr(begin, text.find("\r\n[E", begin) + 4 - begin));
    }
    return blocks;
}

/// A saved text without option blocks that stand at their defaults. To read them changes nothing, and they are nearly
/// all of a short project's text: without them a turn takes a tenth of the time.
std::string WithoutDefaults(std::string text)
{
    static const std::vector<std::string> blocks = MakeDefaultOptionBlocks();
    for (const std::string& block : blocks) {
        const std::string_view header = std::string_view(block).substr(0, block.find("\r\n", 2) + 2);
        const std::size_t begin = text.find(header); // the first is the writer's own
        if (begin != std::string::npos && text.compare(begin, block.size(), block) == 0)
            text.erase(begin + 2, text.find("\r\n", begin + block.size()) - begin);
    }
    return text;
}

std::string Settled(std::string_view input)
{
    std::string text = LoadAndSave(input);
    for (int turn = 0; turn < kMostTurns; ++turn) {
        std::string next = LoadAndSave(WithoutDefaults(text));
        if (next == text)
            return text;
        text = std::move(next);
    }
    sbd::fuzz::Require(false, "load and save comes to rest");
    return text;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string text = Settled(sbd::fuzz::Text(bytes, size));
    const std::string file = WithoutDefaults(text);
    sbd::CSbdData data;
    sbd::ReadProject(file, data);
    sbd::CSbdData again = data;
    sbd::ReadProject(file, again);
    sbd::fuzz::Require(again.SameProject(data), "a file that is loaded a second time gives the same project");
    sbd::fuzz::Require(sbd::WriteProject(again) == text, "a project that is loaded a second time gives the same text");
    return 0;
}
