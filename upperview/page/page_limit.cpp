#include "upperview/page/page_limit.h"

#include "project/sbd_data.h"
#include "project/text.h"
#include "upperview/page/column_head.h"

namespace sbd {

namespace {

/// A bound as a number; nothing where it is none, or 0, which stands for "no limit".
std::optional<double> NumberOf(const std::optional<PageBound>& bound, const PageView& view)
{
    if (!bound)
        return std::nullopt;
    const auto* constant = std::get_if<double>(&*bound);
    const std::optional<double> number =
        constant != nullptr ? *constant : WholeNumber(std::get<PageOperand>(*bound).Text(view));
    return number && *number != 0 ? number : std::nullopt;
}

std::string RangeText(const std::optional<double>& least, const std::optional<double>& most)
{
    if (least && most)
        return NumberCell(*least) + Cp932(" ～ ") + NumberCell(*most);
    return least ? NumberCell(*least) + Cp932(" 以上") : NumberCell(*most) + Cp932(" 以下");
}

std::string NameOf(const PageLimit& limit, const std::vector<ColumnHead>& heads, int column)
{
    if (!limit.name.empty())
        return limit.name;
    const std::vector<std::string> names = NamesOf(heads[static_cast<std::size_t>(column - 1)].head);
    return names.empty() ? std::to_string(column) + Cp932("列目") : Cp932(names.front());
}

} // namespace

std::vector<LimitLine> LimitLines(const Page& page, const PageView& view)
{
    std::vector<LimitLine> lines;
    const std::vector<ColumnHead> heads = ColumnHeads(view.block);
    for (const PageLimit& limit : page.limits) {
        const std::optional<double> least = NumberOf(limit.least, view);
        const std::optional<double> most = NumberOf(limit.most, view);
        if ((!least && !most) || !limit.when.Holds(view))
            continue;
        std::string names;
        std::vector<LimitLine> outside;
        for (const int column : limit.columns) {
            if (column < 1 || static_cast<std::size_t>(column) > heads.size())
                continue;
            const std::string name = NameOf(limit, heads, column);
            if (limit.name.empty() || names.empty())
                names += (names.empty() ? "" : Cp932("，")) + name;
            const std::optional<double> value = view.row > HeadRows(view.block)
                                                    ? WholeNumber(CellText(view.data, view.block, view.row, column))
                                                    : std::nullopt;
            if (value && *value != 0 && ((least && *value < *least) || (most && *value > *most)))
                outside.push_back({"    " + name + " = " + NumberCell(*value) + Cp932("：制限値 ")
                                       + RangeText(least, most) + Cp932(" の範囲外です．"),
                                   true});
        }
        lines.push_back({Cp932("    制限値： ") + names + "  " + RangeText(least, most)
                             + (limit.source.empty() ? std::string() : "  (" + limit.source + ")"),
                         false});
        lines.insert(lines.end(), outside.begin(), outside.end());
    }
    return lines;
}

} // namespace sbd
