#include "compare/difference_text.h"

#include "project/catalogue.h"
#include "project/text.h"

#include <algorithm>

namespace sbd {

std::string NumberAndTitle(int block)
{
    const CatalogueRow* row = FindBlock(block);
    const std::string number = std::to_string(block);
    if (row == nullptr)
        return number;
    std::string_view title = row->menuText.substr(0, row->menuText.find('['));
    title.remove_prefix(std::min(title.find_first_not_of("0123456789."), title.size()));
    return number + " " + std::string(CutTrailingBlanks(title));
}

std::string Quoted(std::string_view cp932)
{
    constexpr std::size_t longest = 60;
    std::size_t end = 0;
    while (end < cp932.size() && end < longest)
        end += CharacterLength(cp932, end);
    return "「" + FromCp932(cp932.substr(0, end)) + (end < cp932.size() ? "…" : "") + "」";
}

std::string DifferencePlaceText(const Difference& difference)
{
    std::string text = NumberAndTitle(difference.block);
    if (difference.row > 0)
        text += " " + std::to_string(difference.row) + "行目";
    if (difference.column > 0)
        text += " " + std::to_string(difference.column) + "列目";
    if (!difference.place.empty())
        text += "(" + FromCp932(difference.place) + ")";
    return text;
}

std::string DifferenceText(const Difference& difference)
{
    const std::string place = DifferencePlaceText(difference);
    switch (difference.kind) {
    case DifferenceKind::Value:
        return place + ": " + Quoted(difference.before) + "→" + Quoted(difference.after);
    case DifferenceKind::RowAdded:
        return place + ": 行が増える " + Quoted(difference.after);
    case DifferenceKind::RowRemoved:
        return place + ": 行がなくなる " + Quoted(difference.before);
    case DifferenceKind::RowMoved:
        return place + ": この列から後ろの値が別の列に移る " + Quoted(difference.after);
    case DifferenceKind::UnknownLine:
        return "未知の区分の行: " + Quoted(difference.before) + "→" + Quoted(difference.after);
    }
    return {};
}

} // namespace sbd
