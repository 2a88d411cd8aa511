#include "upperview/page/page.h"

#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/page_titles.h"
#include "project/text.h"

#include <algorithm>

namespace sbd {

namespace {

const std::string kCurrentInput = Cp932("<--- 現在の入力");
const std::string kNoInput = Cp932("(空白)"); // a cell without a text is told, not left out

} // namespace

std::string PageLine::Text(const PageView& view) const
{
    const bool tellsInput = std::ranges::any_of(pieces, [](const auto& piece) {
        const auto* words = std::get_if<std::string>(&piece);
        return words != nullptr && words->find(kCurrentInput) != std::string::npos;
    });
    std::string text;
    for (const auto& piece : pieces) {
        if (const auto* words = std::get_if<std::string>(&piece)) {
            text += *words;
            continue;
        }
        const std::string value = std::get<PageOperand>(piece).Text(view);
        text += tellsInput && Trim(value).empty() ? kNoInput : value;
    }
    return text;
}

const PageBranch* Page::BranchOf(const PageView& view) const
{
    const auto holds = [&](const PageBranch& branch) {
        return (branch.rows.empty() || std::ranges::find(branch.rows, view.row) != branch.rows.end())
               && branch.when.Holds(view);
    };
    const auto found = std::ranges::find_if(branches, holds);
    return found == branches.end() ? nullptr : &*found;
}

std::string PageTitleText(int block)
{
    if (const std::string_view title = FindPageTitle(block); !title.empty())
        return Cp932(title);
    const CatalogueRow* row = FindBlock(block);
    return row == nullptr ? std::string() : Cp932(row->menuText);
}

std::string OptionHeading(int block, int row)
{
    const OptionBlock* options = FindOptionBlock(block);
    if (options == nullptr || row < 1 || static_cast<std::size_t>(row) > options->rows.size())
        return {};
    const OptionRow& option = options->rows[static_cast<std::size_t>(row - 1)];
    std::string heading(Trim(option.panelLabel));
    if (!option.defaultValue.empty())
        heading += Cp932("  (初期値:") + option.defaultValue + ")";
    return heading;
}

} // namespace sbd
