// Result files as bytes: what the readers' tests read. Written from the layout of the files, not with the readers' code.
#pragma once

#include "results/byte_source.h"
#include "results/records.h"

#include <array>
#include <bit>
#include <concepts>
#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// The bytes of a result file, field behind field.
class FileBytes {
public:
    FileBytes& Word(std::int32_t word) { return Number(static_cast<std::uint32_t>(word)); }
    FileBytes& Real(double real) { return Number(std::bit_cast<std::uint64_t>(real)); }
    FileBytes& Raw(std::string_view bytes)
    {
        text_ += bytes;
        return *this;
    }
    /// A text padded with blanks to its field.
    FileBytes& Field(std::string_view text, std::size_t size)
    {
        text_ += text;
        text_.append(size - text.size(), ' ');
        return *this;
    }
    FileBytes& Name(std::string_view name) { return Field(name, 20); }
    FileBytes& Names(const std::vector<std::string>& names)
    {
        for (const std::string& name : names)
            Name(name);
        return *this;
    }

    /// Numbers of any shape: words, reals, lists and records of them.
    FileBytes& All(std::int32_t word) { return Word(word); }
    FileBytes& All(double real) { return Real(real); }
    FileBytes& All(unsigned char byte)
    {
        text_.push_back(static_cast<char>(byte));
        return *this;
    }
    template <typename List>
    requires requires(const List& list) { list.begin(); }
    FileBytes& All(const List& list)
    {
        for (const auto& entry : list)
            All(entry);
        return *this;
    }

    [[nodiscard]] const std::string& Text() const { return text_; }
    [[nodiscard]] std::string Front(std::size_t size) const { return text_.substr(0, size); }
    [[nodiscard]] std::size_t Size() const { return text_.size(); }

private:
    template <std::unsigned_integral T>
    FileBytes& Number(T number)
    {
        for (std::size_t i = 0; i < sizeof(T); ++i)
            text_.push_back(static_cast<char>((number >> (8 * i)) & 0xFF));
        return *this;
    }

    std::string text_;
};

inline FileBytes GridBytes(const AnalysisModel& model, bool ownGrid5)
{
    FileBytes bytes;
    bytes.Word(model.grid1).Word(model.grid2).Word(ownGrid5 ? -model.grid3 : model.grid3).Word(model.grid4);
    if (ownGrid5)
        bytes.Word(model.grid5);
    bytes.Word(model.pointCount).Word(model.lineCountA).Word(model.lineCountB);
    bytes.Word(model.girderCount).Word(model.stationCount).Word(model.grid6).Word(model.grid7);
    bytes.All(model.gridNodes).All(model.gridNodes2).All(model.girderElements).All(model.crossElements);
    bytes.Names(model.lineNamesA).Names(model.lineNamesB).Names(model.girderNames).Names(model.stationNames);
    bytes.All(model.stationWords).All(model.linePoints).All(model.girderPoints);
    bytes.All(model.pointPairs).All(model.pointIndex).Word(model.grid8).All(model.stationRecords);
    bytes.Word(model.tailCount).All(model.tailWords);
    return bytes;
}

/// The .Z1D file of a record; `ownGrid5` writes grid3 negative, so that grid5 has a word of its own.
inline FileBytes BytesOf(const AnalysisModel& model, bool ownGrid5 = false)
{
    FileBytes bytes;
    bytes.Field(model.title, 256).All(model.header);
    bytes.Word(model.loadCaseCount).Names(model.loadCaseNames);
    bytes.Word(model.secondNameCount).Names(model.secondNames);
    bytes.Word(model.nodeCount).Word(model.elementCount).Names(model.nodeNames).Names(model.elementNames);
    bytes.All(model.nodeWords).All(model.elementWords).All(model.elementLinks);
    bytes.Word(model.sectionCount).Word(model.secondSectionCount).All(model.sections).All(model.secondSections);
    bytes.Word(model.gridFlag);
    if (model.gridFlag != 0)
        bytes.Raw(GridBytes(model, ownGrid5).Text());
    bytes.Names(model.sectionNames).Names(model.secondSectionNames).Word(model.lastWord);
    return bytes;
}

inline FileBytes BytesOf(const ElementTable& table)
{
    return FileBytes().Word(table.elementTableCount).All(table.ends).All(table.elementValues);
}

inline FileBytes BytesOf(const NodeTable& table)
{
    return FileBytes().Word(table.nodeTableCount).All(table.coordinates).All(table.nodeFlags).All(table.nodeValues);
}

inline FileBytes BytesOf(const ResultCube& cube)
{
    return FileBytes().Word(cube.size1).Word(cube.size2).Word(cube.size3).All(cube.values);
}

/// A record read from bytes, and what its Read said.
template <typename Record>
struct ReadBack {
    Record record;
    bool read = false;
};

template <typename Record>
[[nodiscard]] ReadBack<Record> ReadFrom(std::string_view bytes)
{
    CMemorySource source(std::as_bytes(std::span(bytes)));
    ReadBack<Record> result;
    result.read = result.record.Read(source);
    return result;
}

inline void WriteFile(const std::filesystem::path& path, std::string_view bytes)
{
    std::filesystem::create_directories(path.parent_path());
    std::ofstream(path, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
}

} // namespace sbd
