// The grid of the bridge: its girders, cross lines and lines by name, and where they cross.
#pragma once

#include "project/sbd_data.h"
#include "results/records.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace sbd {

/// A place in m: x, y, z.
using GridPoint = std::array<double, 3>;

/// Names in the order of the bridge, the first of equal ones found.
class CNameIndex {
public:
    CNameIndex() = default;
    /// Takes `most` names at most; the names must outlive the index.
    CNameIndex(const std::vector<std::string>& names, std::size_t most);
    [[nodiscard]] std::size_t Count() const { return names_.size(); }
    [[nodiscard]] std::string_view Name(std::size_t i) const { return names_[i]; }
    [[nodiscard]] std::optional<std::size_t> Find(std::string_view name) const;

private:
    std::vector<std::string_view> names_;
    std::unordered_map<std::string_view, std::size_t> index_;
};

enum class GridSource {
    Analysis,    ///< nodes of the frame analysis
    Input,       ///< block 504
    Provisional, ///< nothing known: equal bays
};

/// Equal bays and spacings that stand for unknown ones, in m.
inline constexpr double kProvisionalBay = 5;
inline constexpr double kProvisionalSpacing = 3;

/// Names of `data` with the places of `results` or, without any, of block 504. Both must outlive it.
class CBridgeGrid {
public:
    CBridgeGrid(const CSbdData& data, const AnalysisResults& results);

    CNameIndex girders;
    CNameIndex stations; ///< cross beams and sway bracings
    CNameIndex lines;

    [[nodiscard]] GridSource Source() const { return source_; }
    /// Where a girder, web or line crosses a station; nothing if that is not known.
    [[nodiscard]] std::optional<GridPoint> Place(std::string_view name, std::size_t station) const;
    /// The same of a girder; equal bays where nothing is known of the whole bridge.
    [[nodiscard]] std::optional<GridPoint> GirderPlace(std::size_t girder, std::size_t station) const;

private:
    using Places = std::unordered_map<std::string, GridPoint>;
    void ReadAnalysis(const AnalysisResults& results);
    void ReadInput(const CSbdData& data);
    [[nodiscard]] bool KnowsAGirder(const Places& places) const;

    Places analysis_; ///< by "girder-station"
    Places input_;
    GridSource source_ = GridSource::Provisional;
};

/// The webs of a girder by block 305; empty names: an I girder.
struct GirderWebs {
    std::string_view left;
    std::string_view right;
    [[nodiscard]] bool IsBox() const { return !left.empty(); }
};
[[nodiscard]] GirderWebs WebsOf(const CSbdData& data, std::string_view girder);

} // namespace sbd
