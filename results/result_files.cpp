#include "results/result_files.h"

#include "results/result_paths.h"

#include <algorithm>
#include <span>

namespace sbd {

namespace {

constexpr std::size_t kTriple = 3;

/// Turns the whole triples at the front of `values`; true if there was one.
bool TurnTriples(std::span<double> values)
{
    for (std::size_t at = 0; at + kTriple <= values.size(); at += kTriple) {
        const double second = values[at + 1];
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
    for (std::size_t element = 0; element < model.elementLinks.size() && !left.empty(); ++element) {
        const auto own = static_cast<std::size_t>(std::min<std::uint64_t>(valuesOfElement, left.size()));
        if (model.HasTurnedAxes(element) && TurnTriples(left.first(own)))
            ++turned;
        left = left.subspan(own);
    }
    return turned;
}

} // namespace sbd
