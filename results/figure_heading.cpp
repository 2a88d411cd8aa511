#include "results/figure_heading.h"

#include "project/text.h"
#include "results/result_faults.h"
#include "results/result_title.h"

#include <algorithm>
#include <cmath>

namespace sbd {

using namespace literals;

namespace {

constexpr double kMillimetresPerMetre = 1000;
constexpr double kMillimetresPerCentimetre = 10;
constexpr std::size_t kVertical = 2; // Uz, positive downward in tables and figures
constexpr int kValueDecimals = 1;

std::string Number(double value, int decimals)
{
    std::string text;
    AppendFixed(text, value, 0, decimals);
    return text;
}

/// Three digits that tell something, without an exponent.
std::string Rounded(double value)
{
    const int before = value > 0 ? static_cast<int>(std::floor(std::log10(value))) + 1 : 1;
    return Number(value, std::clamp(3 - before, 0, 9));
}

/// "1/237": millimetres of the bridge a millimetre of the figure.
std::string Ratio(double pixelsPerMetre, const FigureScreen& screen)
{
    return "1/" + Number(kMillimetresPerMetre / (pixelsPerMetre * screen.millimetresPerPixel), 0);
}

std::string Place(const FigureScreen& screen)
{
    return screen.isPaper ? std::string() : " (96 dpi の画面で)"_cp932;
}

bool CanTell(double pixels)
{
    return std::isfinite(pixels) && pixels > 0;
}

void AppendOrigin(FigureHeading& heading, const ResultState& state, const std::string& scale)
{
    std::vector<FigureWords> line;
    if (std::string origin = OriginText(state); !origin.empty())
        line.push_back({std::move(origin)});
    if (!scale.empty())
        line.push_back({"縮尺: "_cp932 + scale});
    if (!line.empty())
        heading.push_back(std::move(line));
}

void AppendWarnings(FigureHeading& heading, const AnalysisResults& results, const ResultState& state,
                    std::size_t notNumbers)
{
    for (std::string line :
         {StaleLine(state), ResultFaultLine(results),
          notNumbers == 0 ? std::string()
                          : Cp932("数でない値が " + std::to_string(notNumbers) + " 個あり、図に含まれません")})
        if (!line.empty())
            heading.push_back({{std::move(line), FigureMark::Warning}});
}

std::string DiagramScaleText(const GirderDiagram& diagram, const DiagramScale& scale)
{
    if (!CanTell(scale.sxScale) || !CanTell(scale.syScale) || diagram.Length() <= 0 || diagram.Amplitude() <= 0)
        return {};
    const double perCentimetre = kMillimetresPerCentimetre / (scale.syScale * scale.screen.millimetresPerPixel);
    const double metresPerPixel = 1 / scale.sxScale;
    if (!CanTell(perCentimetre) || !CanTell(metresPerPixel))
        return {};
    return "横 "_cp932 + Ratio(scale.sxScale, scale.screen) + "、縦 1cm = "_cp932 + Rounded(perCentimetre) + " "
           + UnitWord(diagram.kind, diagram.component) + Place(scale.screen);
}

/// The table has displacements but Uz as they are, the figure draws them all the other way round.
bool IsTurned(const GirderDiagram& diagram)
{
    return diagram.kind == ResultKind::Displacement && diagram.component != kVertical;
}

std::vector<FigureWords> ExtremesLine(const GirderDiagram& diagram)
{
    const auto part = [&](std::string_view word, double value, FigureMark mark) {
        const std::string station = StationOf(diagram, value);
        return FigureWords{Cp932(word) + " " + Number(value, kValueDecimals)
                               + (station.empty() ? station : " (" + station + ")"),
                           mark};
    };
    std::vector<FigureWords> line{part("最大", diagram.greatest, FigureMark::Greatest),
                                  part("最小", diagram.least, FigureMark::Least),
                                  {"正の値は軸の下側"_cp932}};
    if (IsTurned(diagram))
        line.push_back({"表とは正負が逆"_cp932});
    return line;
}

} // namespace

std::string OriginText(const ResultState& state)
{
    std::string text;
    if (!state.project.empty())
        text += "計画: "_cp932 + state.project;
    if (!state.time.empty())
        text += (text.empty() ? "結果: "_cp932 : "　結果: "_cp932) + state.time;
    return text;
}

FigureHeading DiagramHeading(const AnalysisResults& results, const ResultSelection& selection,
                             const GirderDiagram& diagram, const DiagramScale& scale, const ResultState& state)
{
    FigureHeading heading{{{FigureTitle(results.model, selection)}}};
    AppendOrigin(heading, state, DiagramScaleText(diagram, scale));
    if (!diagram.bays.empty())
        heading.push_back(ExtremesLine(diagram));
    AppendWarnings(heading, results, state, diagram.notNumbers);
    return heading;
}

FigureHeading FrameHeading(const AnalysisResults& results, const std::string& title, const FigureScreen& screen,
                           double pixelsPerMetre, const ResultState& state)
{
    FigureHeading heading{{{title}}};
    AppendOrigin(heading, state,
                 CanTell(pixelsPerMetre) && CanTell(1 / pixelsPerMetre) ? Ratio(pixelsPerMetre, screen) + Place(screen)
                                                                        : std::string());
    AppendWarnings(heading, results, state, 0);
    return heading;
}

std::string ModelTitle(const std::array<double, 3>& viewDirection)
{
    std::string title = "モデル図"_cp932;
    const auto* const side = std::ranges::find(kViewCommands, viewDirection, &ViewCommand::direction);
    if (side == std::end(kViewCommands))
        return title;
    return title + "　"_cp932
           + (side->command == Command::ViewAll ? "全体"_cp932 : std::string(side->name) + "面"_cp932);
}

std::vector<HeadingPart> PlaceHeading(const FigureHeading& heading, const TextMetrics& metrics, double left, double top,
                                      double width)
{
    const std::string blank = "　"_cp932;
    const double gap = metrics.width(blank);
    std::vector<HeadingPart> placed;
    double y = top;
    for (const std::vector<FigureWords>& line : heading) {
        double x = left;
        for (const FigureWords& words : line)
            for (std::size_t begin = 0; begin < words.text.size();) {
                // Parts are divided by wide blanks, which a second byte of another character cannot be taken for.
                std::size_t end = begin;
                while (end < words.text.size() && !std::string_view(words.text).substr(end).starts_with(blank))
                    end += CharacterLength(words.text, end);
                const std::string part = words.text.substr(begin, end - begin);
                begin = std::min(end + blank.size(), words.text.size());
                if (part.empty())
                    continue;
                const double wide = metrics.width(part);
                if (x > left && x + wide > left + width) {
                    x = left;
                    y += metrics.height;
                }
                placed.push_back({{part, words.mark}, {x, y, wide, metrics.height}});
                x += wide + gap;
            }
        y += metrics.height;
    }
    return placed;
}

} // namespace sbd
