// A girder along its length: stations, bays, ends, and which rows speak of it.
#pragma once

#include "drawing/bridge_grid.h"
#include "drawing/table_rows.h"

#include <optional>
#include <string_view>
#include <vector>

namespace sbd {

/// The webs of a girder; an I girder has its sides instead.
enum class GirderSide { Left, Right };

/// A girder unrolled: x in mm along its stations, measured in plan from station to station, 0 at the first one.
class CGirderLine {
public:
    /// Stations of the grid that the girder has not are left out; they are omitted if the girder runs on behind them.
    CGirderLine(CDrawingBuild& build, const CSbdData& data, const CBridgeGrid& grid, std::size_t girder,
                GirderSide side);

    [[nodiscard]] const CBridgeGrid& Grid() const { return grid_; }
    [[nodiscard]] std::size_t Girder() const { return girder_; }
    [[nodiscard]] bool IsBox() const { return webs_.IsBox(); }
    [[nodiscard]] const GirderWebs& Webs() const { return webs_; }
    [[nodiscard]] GirderSide Side() const { return side_; }

    /// Stations that the girder has, and bays between them.
    [[nodiscard]] std::size_t StationCount() const { return x_.size(); }
    [[nodiscard]] std::size_t BayCount() const { return x_.empty() ? 0 : x_.size() - 1; }
    [[nodiscard]] double X(std::size_t i) const { return x_[i]; }
    [[nodiscard]] std::string_view StationName(std::size_t i) const { return grid_.stations.Name(stations_[i]); }
    [[nodiscard]] std::size_t GridStation(std::size_t i) const { return stations_[i]; }
    /// The number among the girder's stations.
    [[nodiscard]] std::optional<std::size_t> Find(std::string_view station) const;
    /// Begin and end of the steel, with the lengths of block 404.
    [[nodiscard]] double Begin() const { return begin_; }
    [[nodiscard]] double End() const { return end_; }

    /// Stations and bays of a range of the grid: the first, and one behind the last.
    struct Part {
        std::size_t first = 0;
        std::size_t end = 0;
        [[nodiscard]] bool IsEmpty() const { return first >= end; }
    };
    [[nodiscard]] Part StationsIn(IndexRange range) const;
    [[nodiscard]] Part BaysIn(IndexRange range) const;

    /// Is the girder in the range that the two cells from `column` on name? Unknown names are omitted.
    [[nodiscard]] bool IsNamed(CDrawingBuild& build, const CTableRows& rows, std::size_t row, std::size_t column) const;
    /// The stations that the two cells from `column` on name.
    [[nodiscard]] std::optional<IndexRange> NamedStations(CDrawingBuild& build, const CTableRows& rows, std::size_t row,
                                                          std::size_t column) const;
    /// The sides that a word names on this girder: bit 0 left, bit 1 right; 0, and omitted, if it is none of its words.
    [[nodiscard]] int SidesOf(CDrawingBuild& build, std::string_view word, SourceCell place) const;
    /// The bit of the side on show: both sides of an I girder are.
    [[nodiscard]] bool Shows(int sides) const { return (sides & (IsBox() ? 1 << static_cast<int>(side_) : 3)) != 0; }

private:
    void ReadEnds(CDrawingBuild& build, const CSbdData& data);

    const CBridgeGrid& grid_;
    std::size_t girder_;
    GirderWebs webs_;
    GirderSide side_;
    std::vector<std::size_t> stations_;
    std::vector<double> x_;
    double begin_ = 0;
    double end_ = 0;
};

} // namespace sbd
