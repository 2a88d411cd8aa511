// The example projects with their results, and a small bridge to change.
#pragma once

#include "drawing/bridge_drawing.h"
#include "project/text.h"
#include "results/result_files.h"
#include "sbdfile/grid_names.h"
#include "sbdfile/project_file.h"
#include "sbdfile/reader.h"
#include "tests/surroundings.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

namespace sbd {

struct SampleBridge {
    CSbdData data;
    AnalysisResults results;
};

[[nodiscard]] inline SampleBridge ExampleBridge(const std::string& name)
{
    const std::filesystem::path folder = std::filesystem::path(test::ExamplesFolder()) / name;
    SampleBridge bridge;
    ReadGridNames(folder / (name + ".abd"), bridge.data);
    std::string bytes;
    EXPECT_TRUE(ReadFileBytes(folder / (name + ".sbd"), bytes).Ok());
    ReadProject(bytes, bridge.data);
    EXPECT_TRUE(ReadResultFiles(folder / (name + ".sbd"), bridge.results).nodeTable);
    return bridge;
}

/// Adds a row whose texts are UTF-8.
inline void AddRow(CSbdData& data, int block, const std::vector<std::string>& cells)
{
    std::vector<std::string> bytes;
    for (const std::string& cell : cells)
        bytes.push_back(Cp932(cell));
    data.Table(block)->AppendRow({bytes.begin(), bytes.end()});
}

/// Two girders, 3 m apart, with two bays of 6 m and one of 4 m (S1 C1 C2 S2), by the coordinates of the input alone; depth
/// 2 m, two stiffeners a bay at equal spaces, one section.
[[nodiscard]] inline CSbdData SmallInput()
{
    CSbdData data;
    data.gridNames.girderNames = {"G1", "G2"};
    data.gridNames.swayNames = {"S1", "C1", "C2", "S2"};
    const std::vector<std::string> x = {"0", "6", "12", "16"};
    AddRow(data, 504, {"自動計算(YES_NO)", "NO"});
    for (std::size_t girder = 0; girder < 2; ++girder)
        for (std::size_t station = 0; station < x.size(); ++station)
            AddRow(data, 504,
                   {data.gridNames.girderNames[girder], data.gridNames.swayNames[station], x[station],
                    girder == 0 ? "3" : "0", "10"});
    data.hGirder.records.push_back(
        {{"G1", "G2", "S1", "S2"}, {2.0, kNotGiven, kNotGiven, kNotGiven, kNotGiven, kNotGiven, kNotGiven}});
    AddRow(data, 313, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 313, {"G1", "G2", "S1", "S2", "I桁", "120", "9", "2", "等間隔"});
    AddRow(data, 322, {"最大断面長", "12"});
    AddRow(data, 322, {"入力方法", "横桁と垂直補剛材より"});
    AddRow(data, 322, {"SEC1", "I桁", "G1", "G2", "終断面"});
    AddRow(data, 331, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 331, {"G1", "G2", "SEC1", "SEC1", "I桁", "SM400", "10"});
    AddRow(data, 332, {"自動計算(YES_NO)", "NO"});
    AddRow(data, 332, {"G1", "G2", "SEC1", "SEC1", "FLG", "SM400", "400", "20"});
    AddRow(data, 321, {"最大継手長", "12"});
    AddRow(data, 321, {"入力方法", "横桁と垂直補剛材より"});
    return data;
}

[[nodiscard]] inline std::vector<const DrawnShape*> ShapesOf(const BridgeDrawing& drawing, DrawingLayer layer)
{
    std::vector<const DrawnShape*> shapes;
    for (const DrawnShape& shape : drawing.shapes)
        if (shape.layer == layer)
            shapes.push_back(&shape);
    return shapes;
}

[[nodiscard]] inline double Least(const DrawnShape& shape, double DrawnPoint::*axis)
{
    return std::ranges::min(shape.points, {}, axis).*axis;
}
[[nodiscard]] inline double Most(const DrawnShape& shape, double DrawnPoint::*axis)
{
    return std::ranges::max(shape.points, {}, axis).*axis;
}
[[nodiscard]] inline double Width(const DrawnShape& shape)
{
    return Most(shape, &DrawnPoint::x) - Least(shape, &DrawnPoint::x);
}
[[nodiscard]] inline double Height(const DrawnShape& shape)
{
    return Most(shape, &DrawnPoint::y) - Least(shape, &DrawnPoint::y);
}
[[nodiscard]] inline double Middle(const DrawnShape& shape)
{
    return (Most(shape, &DrawnPoint::x) + Least(shape, &DrawnPoint::x)) / 2;
}

/// The reasons that tell of a cell, in UTF-8.
[[nodiscard]] inline std::vector<std::string> ReasonsAt(const BridgeDrawing& drawing, int block, int row, int column)
{
    std::vector<std::string> reasons;
    for (const Omission& omission : drawing.omissions)
        if (omission.place == SourceCell{block, row, column})
            reasons.push_back(FromCp932(omission.reason));
    return reasons;
}

} // namespace sbd
