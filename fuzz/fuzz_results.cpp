// Any bytes are each of the six result files: reading ends, and no record holds more than the bytes had.
#include "fuzz/property.h"
#include "results/byte_source.h"
#include "results/result_files.h"

#include <algorithm>
#include <cstring>

namespace {

using sbd::fuzz::Require;

template <typename Record>
Record Read(std::span<const std::byte> bytes)
{
    sbd::CMemorySource source(bytes);
    Record record;
    static_cast<void>(record.Read(source));
    return record;
}

template <typename T, typename Memory>
std::size_t Reserved(const std::vector<T, Memory>& list)
{
    return list.capacity() * sizeof(T);
}

void CheckNames(const std::vector<std::string>& names, std::size_t size)
{
    Require(names.size() <= size / 20 + 1, "a name stands for bytes of the file");
    for (const std::string& name : names) {
        Require(name.size() < 20, "the last byte of a field is no part of its name");
        Require(name.find('\0') == std::string::npos, "a zero ends a name");
    }
}

void CheckModel(const sbd::AnalysisModel& model, std::size_t size)
{
    Require(model.title.size() < 256, "the last byte of the title's field is no part of it");
    for (const auto* names :
         {&model.loadCaseNames, &model.secondNames, &model.nodeNames, &model.elementNames, &model.lineNamesA,
          &model.lineNamesB, &model.girderNames, &model.stationNames, &model.sectionNames, &model.secondSectionNames})
        CheckNames(*names, size);
    std::size_t reserved = 0;
    for (const auto* words :
         {&model.nodeWords, &model.elementWords, &model.gridNodes, &model.gridNodes2, &model.girderElements,
          &model.crossElements, &model.stationWords, &model.pointIndex, &model.tailWords})
        reserved += Reserved(*words);
    reserved += Reserved(model.elementLinks) + Reserved(model.sections) + Reserved(model.secondSections)
                + Reserved(model.linePoints) + Reserved(model.girderPoints) + Reserved(model.pointPairs)
                + Reserved(model.stationRecords);
    Require(reserved <= size, "no memory is taken for what is not there");
    Require(model.gridFlag != 0 || model.girderNames.empty(), "without a grid there are no girders");
}

void CheckTurn(const sbd::AnalysisModel& model, sbd::ResultCube cube)
{
    const std::size_t count = cube.values.size();
    const sbd::ResultValues before = cube.values;
    std::size_t turned = 0;
    for (int turn = 0; turn < 4; ++turn)
        turned = sbd::TurnForceAxes(model, cube);
    Require(turned <= model.elementLinks.size(), "no more members turn than there are");
    Require(cube.values.size() == count, "a turn keeps the number of values");
    Require(count == 0 || std::memcmp(before.data(), cube.values.data(), count * sizeof(double)) == 0,
            "four turns give the forces back");
}

void CheckCube(const sbd::ResultCube& cube, std::size_t size)
{
    Require(Reserved(cube.values) <= size, "no memory is taken for what is not there");
    const auto items = static_cast<std::size_t>(std::max(cube.size1, 0));
    const auto loads = static_cast<std::size_t>(std::max(cube.size2, 0));
    const auto components = static_cast<std::size_t>(std::max(cube.size3, 0));
    static_cast<void>(cube.At(items, loads, components, loads, components));
    Require(cube.At(0, 0, 0, loads, components).has_value() == (!cube.values.empty() && loads > 0 && components > 0),
            "the first value is there if any is");
    for (const std::size_t item : {items, items / 2})
        if (const auto value = cube.At(item, 0, 0, loads, components))
            Require(item * loads * components < cube.values.size(), "a value that is given is in the cube");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size)
{
    const std::span<const std::byte> file = std::as_bytes(std::span(bytes, size));
    const auto model = Read<sbd::AnalysisModel>(file);
    CheckModel(model, size);
    const auto elements = Read<sbd::ElementTable>(file);
    Require(Reserved(elements.ends) + Reserved(elements.elementValues) <= size,
            "no memory is taken for what is not there");
    const auto nodes = Read<sbd::NodeTable>(file);
    Require(Reserved(nodes.coordinates) + Reserved(nodes.nodeFlags) + Reserved(nodes.nodeValues) <= size,
            "no memory is taken for what is not there");
    const auto cube = Read<sbd::ResultCube>(file);
    CheckCube(cube, size);
    CheckTurn(model, cube);
    return 0;
}
