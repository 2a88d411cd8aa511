// What draws an end of a cross member, one part of it a file: bracket_splice.cpp, lapped_web.cpp (with the plates that are
// welded to the girder's web), end_gussets.cpp. beam_end_detail.cpp says which of them an end has.
#pragma once

#include "drawing/beam_end_detail.h"
#include "drawing/bolted_splice.h"

#include <array>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

enum class MemberPart { Upper, Lower };

/// Bolts in columns of unequal steps: blocks 556 and 563.
struct LappedBolts {
    std::vector<double> columns; ///< from the edge at the girder
    std::vector<double> levels;  ///< down from the first bolt's edge
};

class CMemberEndDrawer {
public:
    CMemberEndDrawer(const CSbdData& data, const AnalysisResults& results, const MemberEnd& end)
        : data_(data)
        , results_(results)
        , end_(end)
        , grid_(data, results)
        , toBeam_(end.end == 0 ? 1 : -1)
        , sections_(data, kSections, 1)
    {
    }

    BridgeDrawing Make();

private:
    static constexpr double kTouch = 0.5;      // mm
    static constexpr double kMostSize = 5'000; // of a plate, mm
    static constexpr double kApart = 300;      // between parts
    static constexpr double kLeastHalf = 400;  // of the beam's plates from the middle of a splice
    static constexpr double kBeyond = 300;     // of the beam's plates beyond the splice plates
    static constexpr double kBeside = 300;     // names of the parts, behind those of the measures
    static constexpr int kSections = 533;

    /// The words of the blocks for a flange or a chord, and what it is called.
    [[nodiscard]] static const std::array<std::string, 2>& FlangeWords(MemberPart part);
    [[nodiscard]] static const std::array<std::string, 2>& ChordWords(MemberPart part);
    [[nodiscard]] static const char* FlangeName(MemberPart part);

    /// The row of a block for this end; nothing, and omitted, without any. `parts`: as LastMemberRow takes them.
    [[nodiscard]] std::optional<SpliceRow> RowOf(const CTableRows& rows, int block,
                                                 std::span<const std::string> parts = {}, std::string_view name = {});
    /// A length above 0 of a row; 0, and omitted, if it is none.
    [[nodiscard]] double Length(const SpliceRow& row, std::size_t column);
    [[nodiscard]] std::optional<double> WebHeight(std::optional<SpliceRow> spacings);
    /// Of a label at the end of the beam's plates.
    [[nodiscard]] LabelRow Outward() const { return toBeam_ > 0 ? LabelRow::Behind : LabelRow::Ahead; }
    void Rectangle(DrawingLayer layer, double from, double to, double bottom, double top, SourceCell source);
    void GirderLine(double x, double bottom, double top, SourceCell source);

    void Bracket();
    void BracketFlange(MemberPart part, double middle, const std::optional<SpliceRow>& bracket);
    void BracketWeb(double height, const std::optional<SpliceRow>& spacings, const std::optional<SpliceRow>& bracket);
    [[nodiscard]] bool IsEvenSided(const SpliceRow& row, std::span<const std::array<std::size_t, 2>> columns);
    void LappedWeb(double begin, double top);
    void WeldedPlate(MemberPart part, double middle);
    [[nodiscard]] std::optional<LappedBolts> LappedBoltsOf(const SpliceRow& row, std::size_t first);
    void Gussets();
    void Gusset(MemberPart part, double chord);

    const CSbdData& data_;
    const AnalysisResults& results_;
    MemberEnd end_;
    CDrawingBuild build_;
    CBridgeGrid grid_;
    double toBeam_; ///< x grows towards the beam, or falls
    CTableRows sections_;
    std::optional<SpliceRow> section_;
    double half_ = kLeastHalf;
    std::set<double> namedAt_; // where a line of the girder has its name already
};

} // namespace sbd
