#include "results/diagram_curves.h"

#include "project/text.h"

#include <algorithm>

namespace sbd {

using namespace literals;

namespace {

std::size_t ComponentOfFigure(const ResultSelection& selection)
{
    return ComponentOf(selection.kind, selection.figureItem).value_or(InfoOf(selection.kind).defaultComponent);
}

template <typename Take>
void ForEachCase(const GirderDiagram& diagram, const Take& take)
{
    for (const DiagramBay& bay : diagram.bays) {
        take(bay.leftCase);
        take(bay.rightCase);
    }
}

/// Gives the load cases that decide their numbers, in the order of the results.
void NumberCases(std::vector<DiagramCurve>& curves, std::size_t loads)
{
    std::vector<std::int32_t> numbers(loads);
    for (const DiagramCurve& curve : curves)
        ForEachCase(curve.diagram, [&](std::int32_t loadCase) {
            if (loadCase >= 0 && static_cast<std::size_t>(loadCase) < loads)
                numbers[static_cast<std::size_t>(loadCase)] = 1;
        });
    std::int32_t next = 0;
    for (std::int32_t& number : numbers)
        number = number > 0 ? ++next : 0;
    for (DiagramCurve& curve : curves)
        curve.diagram.caseNumbers = numbers;
}

std::vector<DiagramCurve> EnvelopeCurves(const AnalysisResults& results, const ResultSelection& selection)
{
    const std::vector<std::size_t> cases = EnvelopeCases(results.model, selection);
    std::vector<DiagramCurve> curves;
    if (cases.empty())
        return curves;
    const auto add = [&](EnvelopeSide side, FigurePen pen, std::string name) {
        curves.push_back(
            {MakeEnvelopeDiagram(results, cases, side, selection.girder, selection.kind, ComponentOfFigure(selection)),
             pen, std::move(name)});
    };
    add(EnvelopeSide::Greatest, FigurePen::Greatest, "最大"_cp932);
    add(EnvelopeSide::Least, FigurePen::Least, "最小"_cp932);
    NumberCases(curves, results.model.loadCaseNames.size());
    return curves;
}

/// "G1　死荷重": what tells a curve from the other one.
std::string NameOf(const AnalysisResults& results, const GirderDiagram& diagram, const std::string& load)
{
    const std::vector<std::string>& girders = results.model.girderNames;
    return (diagram.girder < girders.size() ? girders[diagram.girder] + " " : std::string()) + ShownLoad(load);
}

} // namespace

std::vector<DiagramCurve> CurvesOf(const AnalysisResults& results, const ResultSelection& selection)
{
    if (selection.envelope)
        return EnvelopeCurves(results, selection);
    std::vector<DiagramCurve> curves;
    const auto add = [&](const std::string& load, const std::string& girder, FigurePen pen) {
        if (const std::optional<std::size_t> loadCase = LoadCaseOf(results.model, load))
            curves.push_back(
                {MakeGirderDiagram(results, *loadCase, girder, selection.kind, ComponentOfFigure(selection)), pen, {}});
    };
    add(selection.load, selection.girder, FigurePen::Plain);
    const std::string& load = selection.overLoad.empty() ? selection.load : selection.overLoad;
    const std::string& girder = selection.overGirder.empty() ? selection.girder : selection.overGirder;
    if (curves.empty() || (load == selection.load && girder == selection.girder))
        return curves;
    add(load, girder, FigurePen::Second);
    if (curves.size() < 2)
        return curves;
    curves[0].name = NameOf(results, curves[0].diagram, selection.load);
    curves[1].name = NameOf(results, curves[1].diagram, load);
    return curves;
}

bool ShowsEnvelope(std::span<const DiagramCurve> curves)
{
    return !curves.empty() && curves.front().pen == FigurePen::Greatest;
}

std::vector<std::size_t> DecidingCases(std::span<const DiagramCurve> curves)
{
    std::vector<std::size_t> cases;
    if (curves.empty())
        return cases;
    const std::vector<std::int32_t>& numbers = curves.front().diagram.caseNumbers;
    for (std::size_t i = 0; i < numbers.size(); ++i)
        if (numbers[i] > 0)
            cases.push_back(i);
    return cases;
}

DiagramScale FitCurves(std::span<const DiagramCurve> curves, const FigureScreen& screen, double zoom, FigurePan pan)
{
    GirderDiagram all; // as long and as high as the largest of them
    for (const DiagramCurve& curve : curves) {
        all.positions.back() = std::max(all.positions.back(), curve.diagram.Length());
        all.greatest = std::max(all.greatest, curve.diagram.Amplitude());
    }
    return FitDiagram(all, screen, zoom, pan);
}

} // namespace sbd
