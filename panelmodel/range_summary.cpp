#include "panelmodel/range_summary.h"

#include "project/text.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace sbd {

namespace {

constexpr int kMostDecimals = 6;
constexpr int kDecimalsOfMean = 3; // more than the numbers have

int DecimalsOf(std::string_view number)
{
    const std::size_t point = number.find('.');
    if (number.find_first_of("eE") != std::string_view::npos)
        return kMostDecimals;
    return point == std::string_view::npos ? 0 : static_cast<int>(number.size() - point - 1);
}

/// Without zeros at the end.
std::string Written(double value, int decimals)
{
    std::string text;
    AppendFixed(text, value, 0, decimals);
    if (text.find('.') != std::string::npos) {
        text.erase(text.find_last_not_of('0') + 1);
        if (text.ends_with('.'))
            text.pop_back();
    }
    return text == "-0" ? "0" : text;
}

struct Numbers {
    int filled = 0;
    int numbers = 0;
    double sum = 0;
    double least = std::numeric_limits<double>::max();
    double greatest = std::numeric_limits<double>::lowest();
    int decimals = 0;

    void Take(std::string_view text)
    {
        if (Trim(text).empty())
            return;
        ++filled;
        const std::string folded = FoldNumber(text);
        if (!IsNumber(folded))
            return;
        const std::string_view digits = std::string_view(folded).substr(folded.starts_with('+') ? 1 : 0);
        double value = 0;
        if (std::from_chars(digits.data(), digits.data() + digits.size(), value).ec != std::errc())
            return;
        ++numbers;
        sum += value;
        least = std::min(least, value);
        greatest = std::max(greatest, value);
        decimals = std::max(decimals, std::min(DecimalsOf(digits), kMostDecimals));
    }
};

/// The unit of a cell: in its head, or in the label ahead of an option's value.
std::string UnitAt(const CPanelModel& model, int row, int column)
{
    const bool option = !model.MovesRows() && column > 1;
    return UnitIn(option ? model.Text(row, column - 1) : model.Head(column, row));
}

/// True if what stands in the column, or in an option's own cell, is numbers and nothing else.
bool HoldsNumbers(const CPanelModel& model, int row, int column)
{
    constexpr int most = 50; // rows that are looked at
    const bool table = model.MovesRows();
    const int first = table ? model.FixedRows() + 1 : row;
    const int last = table ? std::min(model.BlockRows(), model.FixedRows() + most) : row;
    Numbers found;
    for (int r = first; r <= last; ++r)
        found.Take(model.Text(r, column));
    return found.filled > 0 && found.numbers == found.filled;
}

} // namespace

std::string UnitIn(std::string_view text)
{
    static const std::vector<std::string> units = [] {
        std::vector<std::string> bytes;
        for (const std::string_view unit : {"mm", "m", "cm", "kN", "kN/m", "kN/m2", "kN/mm2", "N/mm2", "N／mm2", "kN･m",
                                            "kN・m", "%", "°", "deg", "mm2", "mm4", "cm2"})
            bytes.push_back(Cp932(unit));
        return bytes;
    }();
    std::string found;
    for (std::size_t open = text.find('('); open != std::string_view::npos; open = text.find('(', open + 1)) {
        const std::string_view inside = text.substr(open + 1, text.find(')', open) - open - 1);
        const std::string_view unit = inside.substr(0, inside.find('_'));
        if (std::ranges::find(units, unit) != units.end())
            found = unit;
    }
    return found;
}

std::string ExpectedIn(const CPanelModel& model, int row, int column)
{
    if (!model.IsEditable(row, column))
        return Cp932("入力不可");
    const bool numbers = model.TakesNumbers(row, column);
    const bool likely = !UnitAt(model, row, column).empty() || HoldsNumbers(model, row, column);
    if (!model.Words(row, column).empty())
        return Cp932(numbers ? "一覧または数値" : "一覧または文字");
    if (!numbers)
        return Cp932(likely ? "数値など" : "文字");
    const auto refusal = model.WhyNot(row, column, "x");
    switch (refusal ? refusal->takes : CellTakes::Number) {
    case CellTakes::Count:
        return Cp932("整数 (0 以上)");
    case CellTakes::Numbers:
        return Cp932("数値 (いくつでも)");
    default:
        return Cp932("数値");
    }
}

std::string SummaryOf(const CPanelModel& model, const CellRange& range, const std::function<bool(int row)>& isHidden)
{
    Numbers found;
    for (int row = range.top; row <= range.bottom; ++row)
        for (int column = range.left; column <= range.right && !isHidden(row); ++column)
            found.Take(model.Text(row, column));
    const bool oneCell = range.top == range.bottom && range.left == range.right;
    std::string unit;
    if (range.left == range.right)
        unit = oneCell ? UnitAt(model, range.top, range.left) : UnitIn(model.Head(range.left, range.top));
    std::string summary;
    const auto add = [&summary](std::string_view name, const std::string& value) {
        summary += (summary.empty() ? std::string() : Cp932("　")) + Cp932(name) + ' ' + value;
    };
    if (!oneCell && found.filled > 0)
        add("個数", std::to_string(found.filled));
    if (!oneCell && found.numbers > 0) {
        if (found.numbers != found.filled)
            add("数値", std::to_string(found.numbers));
        add("合計", Written(found.sum, found.decimals));
        add("平均", Written(found.sum / found.numbers, std::min(found.decimals + kDecimalsOfMean, 2 * kMostDecimals)));
        add("最小", Written(found.least, found.decimals));
        add("最大", Written(found.greatest, found.decimals));
    }
    if (!unit.empty())
        summary += (summary.empty() ? Cp932("単位 ") : std::string(" ")) + '(' + unit + ')';
    return summary;
}

} // namespace sbd
