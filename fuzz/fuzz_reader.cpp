// Any bytes are a project file: reading ends, and holds no more memory than the bytes account for.
#include "fuzz/property.h"
#include "project/sbd_data.h"
#include "sbdfile/reader.h"
#include "sbdfile/repairs.h"

namespace {

// A row of one byte and its line end opens a cell in each column of its block; the widest block has 30.
constexpr std::size_t kMostMemoryOfAByte = 30 * 8;
// What the repairs add: control rows, the hand hole types, the buffers of their columns.
constexpr std::size_t kMemoryOfRepairs = 32768;

/// What the reader says of a line it passed over must be true.
void CheckNotes(std::string_view bytes, const std::vector<sbd::ReadNote>& notes)
{
    std::size_t last = 0;
    for (const sbd::ReadNote& note : notes) {
        sbd::fuzz::Require(note.line >= last, "notes stand in the order of the lines");
        sbd::fuzz::Require(note.line >= 1 && note.line <= bytes.size(), "a note names a line of the file");
        sbd::fuzz::Require(!note.text.empty(), "a note shows what was passed over");
        last = note.line;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::string_view text = sbd::fuzz::Text(bytes, size);
    sbd::CSbdData data;
    std::vector<sbd::ReadNote> notes;
    sbd::ReadSections(text, data, &notes);
    CheckNotes(text, notes);
    sbd::RepairAfterRead(data);
    data.Shrink();
    sbd::fuzz::Require(data.MemoryUsed() <= size * kMostMemoryOfAByte + kMemoryOfRepairs,
                       "the memory held is bounded by the file's size");
    return 0;
}
