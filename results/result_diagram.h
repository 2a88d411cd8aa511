// The diagram of a result along a girder: bays, ordinates, labels, and how it is fitted into its pane.
#pragma once

#include "results/figure_view.h"
#include "results/result_kind.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// One bay of the girder that has a member. Lengths are m along the plan, ordinates in the unit of the table.
struct DiagramBay {
    std::size_t bay = 0;      ///< from 0; the station of the same number is its left end
    std::int32_t element = 0; ///< number of the member
    double x0 = 0;
    double x1 = 0;
    double left = 0;
    double right = 0;
    std::int32_t leftCase = -1; ///< load case, from 0, that decides; of an envelope
    std::int32_t rightCase = -1;
};

/// A value as it is written at a point.
struct DiagramLabel {
    double value = 0;
    std::string text;
};

/// Points stand between and around the bays that have a member; a bay without one has no length.
struct GirderDiagram {
    ResultKind kind = ResultKind::Displacement;
    std::size_t girder = 0; ///< from 0
    std::size_t component = 0;
    double sign = 1; ///< of the ordinates: displacements are drawn downward
    std::vector<DiagramBay> bays;
    std::vector<double> positions{0};      ///< of the points
    std::vector<std::string> stationNames; ///< of the points; none without bays
    std::vector<double> points;            ///< ordinates of the points; none for forces, which have two
    std::vector<std::int32_t> pointCases;  ///< the load cases that decide at the points, as in the bays
    std::vector<std::int32_t>
        caseNumbers;                   ///< the number that each load case has in the texts; none without an envelope
    std::vector<std::int32_t> nodes;   ///< numbers of the nodes at the points; none without bays
    std::vector<std::size_t> supports; ///< the points that stand on a support
    double least = 0;                  ///< of all ordinates that are numbers
    double greatest = 0;
    std::size_t notNumbers = 0; ///< ordinates that are none: they are not drawn

    [[nodiscard]] double Length() const { return positions.back(); }
    [[nodiscard]] double Amplitude() const;
};

/// Which of the values of several load cases a diagram shows.
enum class EnvelopeSide { Greatest, Least };

/// The largest or the smallest ordinate, and the first point at which it stands.
struct DiagramExtreme {
    double value = 0;
    std::string station;        ///< CP932
    std::int32_t loadCase = -1; ///< that decides it, from 0; below 0 where the diagram is no envelope
};

/// The extreme as it is told. Where nothing bears the girder there is no reaction: that is no smallest one, as in the table.
/// Nothing without an ordinate that is a number.
[[nodiscard]] std::optional<DiagramExtreme> ExtremeOf(const GirderDiagram& diagram, EnvelopeSide side);

/// A girder that is not there stands for the first one.
[[nodiscard]] GirderDiagram MakeGirderDiagram(const AnalysisResults& results, std::size_t loadCase,
                                              std::string_view girder, ResultKind kind, std::size_t component);

/// The same of the largest or the smallest ordinates in several load cases. A bay without a value that is a number is no
/// number.
[[nodiscard]] GirderDiagram MakeEnvelopeDiagram(const AnalysisResults& results, std::span<const std::size_t> cases,
                                                EnvelopeSide side, std::string_view girder, ResultKind kind,
                                                std::size_t component);

/// What is written at each point: the value, or for forces the value ahead of it and behind it, one if they differ by
/// 50 at most. Values below 1e-6 in amount are not written.
[[nodiscard]] std::vector<std::vector<DiagramLabel>> LabelsOf(const GirderDiagram& diagram);

/// The values of one paint of a diagram.
struct DiagramScale {
    FigureScreen screen;
    FigurePan pan;
    double length = 0;
    double sxScale = 1; ///< pixels per m
    double syScale = 1; ///< pixels per unit of the ordinates; positive values lie below the axis

    [[nodiscard]] double X(double position) const
    {
        return pan.x * screen.StepX() + (position - length / 2) * sxScale + screen.HalfWidth();
    }
    [[nodiscard]] double Y(double value) const { return AxisY() + value * syScale; }
    [[nodiscard]] double AxisY() const { return pan.y * screen.StepY() + screen.HalfHeight(); }
};

/// Fits the diagram into the pane. A girder without length and ordinates of 0 get the scale 1.
[[nodiscard]] DiagramScale FitDiagram(const GirderDiagram& diagram, const FigureScreen& screen, double zoom,
                                      FigurePan pan);

} // namespace sbd
