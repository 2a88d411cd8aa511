#include "tests/results/sample_records.h"

#include "project/text.h"

namespace sbd {

using namespace literals;

namespace {

/// `count` entries of any shape with the numbers from `first` on.
template <typename T>
std::vector<T> Counting(std::size_t count, int first)
{
    std::vector<T> list(count);
    int number = first;
    for (T& entry : list) {
        if constexpr (requires { entry.begin(); }) {
            for (auto& value : entry)
                value = static_cast<typename T::value_type>(number++);
        } else {
            entry = static_cast<T>(number++);
        }
    }
    return list;
}

void AddGrid(AnalysisModel& model)
{
    model.gridFlag = 1;
    model.grid1 = 31;
    model.grid2 = 32;
    model.grid3 = 33;
    model.grid4 = 34;
    model.grid5 = 33;
    model.pointCount = 2;
    model.lineCountA = 2;
    model.lineCountB = 3;
    model.girderCount = 2;
    model.stationCount = 3;
    model.grid6 = 36;
    model.grid7 = 37;
    model.gridNodes = {1, 2, 3, 4, 5, 6};
    model.gridNodes2 = {61, 62, 63, 64, 65, 66};
    model.girderElements = {1, 2, 3, 4};
    model.crossElements = {5, 6, 7};
    model.lineNamesA = {"左"_cp932, "右"_cp932};
    model.lineNamesB = {"L1", "L2", "L3"};
    model.girderNames = {"G1", "G2"};
    model.stationNames = {"S1", "C1", "S2"};
    model.stationWords = {71, 72, 73};
    model.linePoints = Counting<std::array<double, 3>>(6, 1000);
    model.girderPoints = Counting<std::array<double, 3>>(6, 1100);
    model.pointPairs = Counting<std::array<std::int32_t, 2>>(2, 81);
    model.pointIndex = Counting<std::int32_t>(6, 91);
    model.grid8 = 38;
    model.stationRecords = Counting<std::array<std::int32_t, 4>>(3, 201);
    model.tailCount = 2;
    model.tailWords = {41, 42};
}

} // namespace

AnalysisModel SampleModel()
{
    AnalysisModel model;
    model.title = "橋梁の骨組解析"_cp932;
    model.header = {11, 12, 13, 14, 15, 16, 17, 18, 19};
    model.loadCaseCount = 2;
    model.loadCaseNames = {"死荷重"_cp932, "-(B-L)最大"_cp932};
    model.secondNameCount = 1;
    model.secondNames = {"補助"_cp932};
    model.nodeCount = 6;
    model.elementCount = 7;
    model.nodeNames = {"G1-S1", "G1-C1", "G1-S2", "G2-S1", "G2-C1", "G2-S2"};
    model.elementNames = {"G1-S1", "G1-C1", "G2-S1", "G2-C1", "S1-G1", "C1-G1", "S2-G1"};
    model.nodeWords = Counting<std::int32_t>(6, 101);
    model.elementWords = Counting<std::int32_t>(7, 111);
    model.elementLinks = Counting<std::array<std::int32_t, 4>>(7, 121);
    for (std::size_t element = 0; element < 7; ++element)
        model.elementLinks[element][2] = element < 4 ? 1 : 2;
    model.sectionCount = 2;
    model.secondSectionCount = 1;
    model.sections = Counting<std::array<std::int32_t, 9>>(2, 151);
    model.sections[0][0] = 1;
    model.sections[1][0] = 0;
    model.secondSections = Counting<std::array<std::int32_t, 4>>(1, 171);
    AddGrid(model);
    model.sectionNames = {"主桁"_cp932, "横桁"_cp932};
    model.secondSectionNames = {"鋼"_cp932};
    model.lastWord = 99;
    return model;
}

ElementTable SampleElements()
{
    ElementTable table;
    table.elementTableCount = 7;
    table.ends = {{1, 2, 10}, {2, 3, 20}, {4, 5, 30}, {5, 6, 40}, {1, 4, 50}, {2, 5, 60}, {3, 6, 70}};
    table.elementValues.resize(7);
    unsigned char byte = 0;
    for (auto& values : table.elementValues)
        for (unsigned char& value : values)
            value = ++byte;
    return table;
}

NodeTable SampleNodes()
{
    NodeTable table;
    table.nodeTableCount = 6;
    table.coordinates = Counting<std::array<double, 3>>(6, 500);
    table.nodeFlags = {0, 0, -1, 3, 4, 5};
    table.nodeValues = Counting<std::array<std::int32_t, 6>>(6, 600);
    return table;
}

ResultCube SampleCube(std::int32_t size1, std::int32_t size2, std::int32_t size3)
{
    ResultCube cube;
    cube.size1 = size1;
    cube.size2 = size2;
    cube.size3 = size3;
    const std::vector<double> values = Counting<double>(
        static_cast<std::size_t>(size1) * static_cast<std::size_t>(size2) * static_cast<std::size_t>(size3), 1);
    cube.values.assign(values.begin(), values.end());
    return cube;
}

} // namespace sbd
