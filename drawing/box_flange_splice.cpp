#include "drawing/box_flange_splice.h"

#include <algorithm>
#include <cmath>

namespace sbd {

namespace {

constexpr double kTouch = 0.5; // mm
constexpr std::size_t kMostRows = 60;

/// How many steps lie beyond the webs on both sides.
struct Outside {
    std::size_t left = 0;
    std::size_t right = 0;
};

} // namespace

std::optional<BoxFlangeRows> BoxFlangeRowsOf(CDrawingBuild& build, const SpliceRow& spacings,
                                             const BoxFlangeWidths& widths, double plateWidth, SourceCell plateSource)
{
    constexpr std::size_t firstColumn = 8; // from the left web to the bolts on its left
    constexpr std::size_t edgeColumn = 9;
    constexpr std::size_t listColumn = 10;
    const auto first = spacings.Size(firstColumn);
    const auto edge = spacings.Size(edgeColumn);
    std::vector<double> list;
    for (const std::string_view word : CellWords(spacings.Cell(listColumn)))
        if (const auto value = NumberIn(word); value && *value >= 0)
            list.push_back(*value);
    const std::size_t plates = widths.ribs.size() + 2;
    if (!first || !edge || list.size() != 3 * plates + 1) {
        build.Omit(spacings.Place(!first  ? firstColumn
                                  : !edge ? edgeColumn
                                          : listColumn),
                   !first || !edge ? "ボルトの間隔が数値ではないため，ボルトを図にできません．"
                                   : "間隔の数が，腹板と縦リブの枚数から決まる数(" + std::to_string(3 * plates + 1)
                                         + "個)と違うため，ボルトを図にできません．");
        return std::nullopt;
    }
    // Bd1 Bc1R, then Bd, BcL and BcR of each further plate, then Bd and BeR.
    std::vector<double> places{0};
    places.insert(places.end(), widths.ribs.begin(), widths.ribs.end());
    places.push_back(widths.webs);
    BoxFlangeRows result;
    double before = list[1]; // from the plate on the left to the first row on its right
    for (std::size_t i = 1; i < plates; ++i) {
        const double step = list[3 * i - 1];
        const double beside = list[3 * i];
        const double from = places[i - 1] + before;
        const auto steps = StepsIn(places[i] - beside - from, step);
        if (!steps) {
            build.Omit(spacings.Place(listColumn),
                       "腹板，縦リブの間隔とボルトの間隔が合わないため，ボルトを図にできません．");
            return std::nullopt;
        }
        for (std::size_t row = 0; row <= *steps; ++row)
            result.rows.push_back(from + static_cast<double>(row) * step);
        before = list[3 * i + 1];
    }
    const double leftStep = list.front();
    const double rightStep = list[list.size() - 2];
    const double rightEdge = list.back();
    const double inner = *edge + *first + widths.webs + before + rightEdge;
    std::vector<Outside> fitting;
    for (std::size_t left = 0; left < kMostRows; ++left) {
        const double leftWidth = *edge + *first + static_cast<double>(left) * leftStep;
        if (leftWidth > widths.leftOut + kTouch || (left > 0 && !(leftStep > 0)))
            break;
        const auto right = StepsIn(plateWidth - inner - static_cast<double>(left) * leftStep, rightStep);
        if (right && before + static_cast<double>(*right) * rightStep + rightEdge <= widths.rightOut + kTouch)
            fitting.push_back({left, *right});
    }
    if (fitting.size() != 1) {
        build.Omit(plateSource,
                   fitting.empty() ? "外側幅が，腹板の間隔とボルトの間隔から決まる幅に合わないか，フランジからはみ出す"
                                     "ため，添接板とボルトを図にできません．"
                                   : "外側幅に合うボルトの並びが2通り以上あるため，図にできません．",
                   {}, fitting.empty() ? OmissionKind::Input : OmissionKind::Limit);
        return std::nullopt;
    }
    for (std::size_t row = 0; row <= fitting.front().left; ++row)
        result.rows.push_back(-*first - static_cast<double>(row) * leftStep);
    for (std::size_t row = 0; row <= fitting.front().right; ++row)
        result.rows.push_back(widths.webs + before + static_cast<double>(row) * rightStep);
    std::ranges::sort(result.rows);
    result.left = result.rows.front() - *edge;
    result.right = result.rows.back() + rightEdge;
    return result;
}

} // namespace sbd
