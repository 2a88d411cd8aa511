#include "results/result_files.h"

#include "results/byte_source.h"
#include "results/result_paths.h"

#include <algorithm>
#include <bit>
#include <cstdint>
#include <span>

namespace sbd {

namespace {

constexpr std::size_t kTriple = 3;

/// Tells of a place in a list whether a large piece around it holds nothing but zeros.
class Holes {
public:
    explicit Holes(std::span<const double> values) : values_(values) {}

    [[nodiscard]] bool IsInHole(std::size_t place)
    {
        constexpr std::size_t piece = kPiece / sizeof(double);
        if (place / piece != looked_) {
            looked_ = place / piece;
            const std::span own =
                values_.subspan(looked_ * piece).first(std::min(piece, values_.size() - looked_ * piece));
            isHole_ = own.size() == piece && std::ranges::all_of(own, IsZero);
        }
        return isHole_;
    }
    [[nodiscard]] static bool IsZero(double value) { return std::bit_cast<std::uint64_t>(value) == 0; }

private:
    std::span<const double> values_;
    std::size_t looked_ = static_cast<std::size_t>(-1);
    bool isHole_ = false;
};

/// Turns the whole triples at the front of `values`, which begin at the place `from` of the list; true if there was one.
/// In a hole the zeros stay as they are: a sign for each of them would fill the memory.
bool TurnTriples(std::span<double> values, std::size_t from, Holes& holes)
{
    for (std::size_t at = 0; at + kTriple <= values.size(); at += kTriple) {
        const double second = values[at + 1];
        if (Holes::IsZero(second) && Holes::IsZero(values[at + 2]) && holes.IsInHole(from + at + 1)
            && holes.IsInHole(from + at + 2))
            continue;
        values[at + 1] = -values[at + 2];
        values[at + 2] = second;
    }
    return values.size() >= kTriple;
}

} // namespace

ResultFilesRead ReadResultFiles(const std::filesystem::path& projectFile, AnalysisResults& results)
{
    ResultFilesRead read;
    read.model = results.model.Read(ResultFile(projectFile, ".Z1D"));
    read.elementTable = results.elementTable.Read(ResultFile(projectFile, ".Z1F"));
    read.nodeTable = results.nodeTable.Read(ResultFile(projectFile, ".Z1R"));
    read.displacement = results.displacement.Read(ResultFile(projectFile, ".Z3D"));
    read.force = results.force.Read(ResultFile(projectFile, ".Z3F"));
    if (read.force)
        read.turnedElements = TurnForceAxes(results.model, results.force);
    read.reaction = results.reaction.Read(ResultFile(projectFile, ".Z3R"));
    return read;
}

std::size_t TurnForceAxes(const AnalysisModel& model, ResultCube& force)
{
    if (model.loadCaseCount <= 0)
        return 0;
    // The load cases of the model rule the places in the cube, whatever the cube's own sizes say.
    const std::uint64_t valuesOfElement =
        std::uint64_t{kElementComponents} * static_cast<std::uint32_t>(model.loadCaseCount);
    std::size_t turned = 0;
    std::span<double> left(force.values);
    Holes holes(force.values);
    for (std::size_t element = 0; element < model.elementLinks.size() && !left.empty(); ++element) {
        const auto own = static_cast<std::size_t>(std::min<std::uint64_t>(valuesOfElement, left.size()));
        if (model.HasTurnedAxes(element) && TurnTriples(left.first(own), force.values.size() - left.size(), holes))
            ++turned;
        left = left.subspan(own);
    }
    return turned;
}

} // namespace sbd
