// A bridge of many spans, as input.
#pragma once

#include "project/sbd_data.h"
#include "project/text.h"

#include <string>
#include <vector>

namespace sbd::bench {

inline void AddBridgeRow(CSbdData& data, int block, const std::vector<std::string>& cells)
{
    std::vector<std::string> bytes;
    for (const std::string& cell : cells)
        bytes.push_back(Cp932(cell));
    data.Table(block)->AppendRow({bytes.begin(), bytes.end()});
}

/// Girders of 20 spans of 40 m: a row of stiffeners, a section and a splice a bay, the rows for all girders.
inline CSbdData LongBridge(int girders = 1)
{
    constexpr int kSpans = 20;
    constexpr int kBaysPerSpan = 10;
    constexpr int kStiffenersPerBay = 10; // 2,000 in all
    CSbdData data;
    for (int girder = 1; girder <= girders; ++girder)
        data.gridNames.girderNames.push_back("G" + std::to_string(girder));
    const std::string& last = data.gridNames.girderNames.back();
    const int bays = kSpans * kBaysPerSpan;
    const auto station = [](int i) { return "C" + std::to_string(i); };
    AddBridgeRow(data, 504, {"自動計算(YES_NO)", "NO"});
    for (int i = 0; i <= bays; ++i) {
        data.gridNames.swayNames.push_back(station(i));
        for (int girder = 0; girder < girders; ++girder)
            AddBridgeRow(data, 504,
                         {data.gridNames.girderNames[static_cast<std::size_t>(girder)], station(i),
                          std::to_string(4 * i), std::to_string(-3 * girder), "0"});
    }
    for (int i = 0; i <= bays; i += kBaysPerSpan)
        AddBridgeRow(data, 307, {"G1", last, station(i), station(i), "0", "支点"});
    data.hGirder.records.push_back({{"G1", last, station(0), station(bays)},
                                    {2.4, kNotGiven, kNotGiven, kNotGiven, kNotGiven, kNotGiven, kNotGiven}});
    AddBridgeRow(data, 313, {"自動計算(YES_NO)", "NO"});
    AddBridgeRow(data, 321, {"最大継手長", "12"});
    AddBridgeRow(data, 321, {"入力方法", "横桁と垂直補剛材より"});
    AddBridgeRow(data, 322, {"最大断面長", "12"});
    AddBridgeRow(data, 322, {"入力方法", "横桁と垂直補剛材より"});
    AddBridgeRow(data, 331, {"自動計算(YES_NO)", "NO"});
    AddBridgeRow(data, 332, {"自動計算(YES_NO)", "NO"});
    for (int bay = 0; bay < bays; ++bay) {
        const std::string number = std::to_string(bay + 1);
        const std::string section = "SEC" + number;
        AddBridgeRow(data, 313,
                     {"G1", last, station(bay), station(bay + 1), "I桁", "120", "9", std::to_string(kStiffenersPerBay),
                      "等間隔"});
        AddBridgeRow(data, 321, {"J" + number, "I桁", "G1", last, station(bay), "5", "CENTER", ""});
        if (bay + 1 < bays)
            AddBridgeRow(data, 322, {section, "I桁", "G1", last, station(bay), "5", "CENTER"});
        else
            AddBridgeRow(data, 322, {section, "I桁", "G1", last, "終断面", "", ""});
        AddBridgeRow(data, 331, {"G1", last, section, section, "I桁", "SM490Y", "11"});
        AddBridgeRow(data, 332, {"G1", last, section, section, "FLG", "SM490Y", "500", std::to_string(20 + bay % 7)});
    }
    return data;
}

} // namespace sbd::bench
