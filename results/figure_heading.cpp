#include "results/figure_heading.h"

#include "project/text.h"
#include "results/result_faults.h"
#include "results/result_title.h"

#include <algorithm>
#include <cmath>
#include <limits>

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

std::string DiagramScaleText(std::span<const DiagramCurve> curves, const DiagramScale& scale)
{
    const bool isDrawn = std::ranges::any_of(
        curves, [](const DiagramCurve& curve) { return curve.diagram.Length() > 0 && curve.diagram.Amplitude() > 0; });
    if (!CanTell(scale.sxScale) || !CanTell(scale.syScale) || !isDrawn)
        return {};
    const GirderDiagram& diagram = curves.front().diagram;
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

/// Nothing that the table would show: a figure is drawn over its whole height all the same.
bool AreLeftovers(std::span<const DiagramCurve> curves)
{
    constexpr double shown = 0.0005;
    const auto isBelow = [](double limit) {
        return [limit](const DiagramCurve& curve) { return curve.diagram.Amplitude() < limit; };
    };
    return std::ranges::all_of(curves, isBelow(shown))
           && !std::ranges::all_of(curves, isBelow(std::numeric_limits<double>::min()));
}

/// As the table has them where one digit would not tell them apart.
int DecimalsOf(std::span<const DiagramCurve> curves)
{
    constexpr double fewDigits = 10;
    constexpr int ofTheTable = 3;
    return std::ranges::any_of(curves, [](const DiagramCurve& curve) { return curve.diagram.Amplitude() >= fewDigits; })
               ? kValueDecimals
               : ofTheTable;
}

/// "最大 1234.5 (C5)", of an envelope with the load case; empty where no value is a number.
FigureWords ExtremeWords(const AnalysisModel& model, const GirderDiagram& diagram, EnvelopeSide which, int decimals)
{
    const bool isGreatest = which == EnvelopeSide::Greatest;
    const std::optional<DiagramExtreme> extreme = ExtremeOf(diagram, which);
    if (!extreme)
        return {};
    std::string place = extreme->station;
    if (const std::string load = ShownLoadAt(model, extreme->loadCase); !load.empty())
        place += (place.empty() ? "" : ", ") + load;
    std::string value = Number(extreme->value, decimals);
    if (value.starts_with('-') && value.find_first_not_of("-0.") == std::string::npos)
        value.erase(0, 1); // nothing has no sign
    return {Cp932(isGreatest ? "最大" : "最小") + " " + value + (place.empty() ? place : " (" + place + ")"),
            isGreatest ? FigureMark::Greatest : FigureMark::Least};
}

void AppendExtremes(FigureHeading& heading, const AnalysisModel& model, std::span<const DiagramCurve> curves)
{
    const int decimals = DecimalsOf(curves);
    std::vector<FigureWords> signs{{"正の値は軸の下側"_cp932}};
    if (IsTurned(curves.front().diagram))
        signs.push_back({"表とは正負が逆"_cp932});
    if (AreLeftovers(curves))
        signs.push_back({"表では 0.000 (計算の端数)"_cp932});
    if (ShowsEnvelope(curves)) {
        std::vector<FigureWords> line;
        for (const DiagramCurve& curve : curves) {
            line.push_back(ExtremeWords(model, curve.diagram,
                                        curve.pen == FigurePen::Greatest ? EnvelopeSide::Greatest : EnvelopeSide::Least,
                                        decimals));
            line.back().sample = curve.pen;
        }
        line.insert(line.end(), signs.begin(), signs.end());
        heading.push_back(std::move(line));
        return;
    }
    for (const DiagramCurve& curve : curves) {
        std::vector<FigureWords> line;
        if (curves.size() > 1)
            line.push_back({curve.name, FigureMark::None, curve.pen});
        if (!curve.diagram.bays.empty())
            for (const EnvelopeSide which : {EnvelopeSide::Greatest, EnvelopeSide::Least})
                line.push_back(ExtremeWords(model, curve.diagram, which, decimals));
        if (&curve == &curves.back())
            line.insert(line.end(), signs.begin(), signs.end());
        heading.push_back(std::move(line));
    }
}

/// "[1] 死荷重　[2] ...": the load cases whose numbers stand at the values.
void AppendCases(FigureHeading& heading, const AnalysisModel& model, std::span<const DiagramCurve> curves)
{
    constexpr std::size_t most = 20; // more would leave no room for the figure
    const std::vector<std::size_t> cases = DecidingCases(curves);
    std::vector<FigureWords> line;
    for (std::size_t i = 0; i < std::min(cases.size(), most); ++i)
        line.push_back({"[" + std::to_string(i + 1) + "] " + ShownLoadAt(model, static_cast<std::int64_t>(cases[i]))});
    if (cases.size() > most)
        line.push_back({Cp932("ほか " + std::to_string(cases.size() - most) + " 件 (表に荷重名)")});
    if (!line.empty())
        heading.push_back(std::move(line));
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
                             std::span<const DiagramCurve> curves, const DiagramScale& scale, const ResultState& state)
{
    FigureHeading heading{{{FigureTitle(results.model, selection)}}};
    AppendOrigin(heading, state, DiagramScaleText(curves, scale));
    std::size_t notNumbers = 0;
    for (const DiagramCurve& curve : curves)
        notNumbers += curve.diagram.notNumbers;
    if (std::ranges::any_of(curves, [](const DiagramCurve& curve) { return !curve.diagram.bays.empty(); })) {
        AppendExtremes(heading, results.model, curves);
        AppendCases(heading, results.model, curves);
    } else {
        heading.push_back({{"図にする結果がありません"_cp932, FigureMark::Warning}});
    }
    AppendWarnings(heading, results, state, notNumbers);
    return heading;
}

FigureHeading DiagramHeading(const AnalysisResults& results, const ResultSelection& selection,
                             const GirderDiagram& diagram, const DiagramScale& scale, const ResultState& state)
{
    const DiagramCurve curve{diagram, FigurePen::Plain, {}};
    return DiagramHeading(results, selection, std::span(&curve, 1), scale, state);
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
        for (const FigureWords& words : line) {
            bool isFirst = true;
            for (std::size_t begin = 0; begin < words.text.size();) {
                // Parts are divided by wide blanks, which a second byte of another character cannot be taken for.
                std::size_t end = begin;
                while (end < words.text.size() && !std::string_view(words.text).substr(end).starts_with(blank))
                    end += CharacterLength(words.text, end);
                const std::string part = words.text.substr(begin, end - begin);
                begin = std::min(end + blank.size(), words.text.size());
                if (part.empty())
                    continue;
                const std::optional<FigurePen> sample = isFirst ? words.sample : std::nullopt;
                isFirst = false;
                const double wide = metrics.width(part) + (sample ? kSamplePlace : 0);
                if (x > left && x + wide > left + width) {
                    x = left;
                    y += metrics.height;
                }
                placed.push_back({{part, words.mark, sample}, {x, y, wide, metrics.height}});
                x += wide + gap;
            }
        }
        y += metrics.height;
    }
    return placed;
}

} // namespace sbd
