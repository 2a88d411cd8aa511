// Two projects from the two halves of the input: comparing ends, and finds nothing exactly where they are the same.
#include "compare/compare.h"
#include "fuzz/property.h"
#include "project/sbd_data.h"
#include "sbdfile/reader.h"

namespace {

void CheckDifference(const sbd::Difference& difference)
{
    sbd::fuzz::Require(difference.row >= 0 && difference.column >= 0, "rows and columns count from 1");
    if (difference.kind == sbd::DifferenceKind::Value)
        sbd::fuzz::Require(difference.before != difference.after, "a difference shows two values");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string_view text = sbd::fuzz::Text(bytes, size);
    sbd::CSbdData first;
    sbd::CSbdData second;
    sbd::ReadProject(text.substr(0, size / 2), first);
    sbd::ReadProject(text.substr(size / 2), second);

    sbd::fuzz::Require(sbd::CompareProjects(first, first).empty(), "a project does not differ from itself");
    const std::vector<sbd::Difference> there = sbd::CompareProjects(first, second);
    const std::vector<sbd::Difference> back = sbd::CompareProjects(second, first);
    sbd::fuzz::Require(there.empty() == first.SameProject(second), "two projects are the same or differ somewhere");
    sbd::fuzz::Require(there.empty() == back.empty(), "to differ goes both ways");
    for (const sbd::Difference& difference : there)
        CheckDifference(difference);
    return 0;
}
