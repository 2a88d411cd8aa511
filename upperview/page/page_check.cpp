#include "upperview/page/page_check.h"

#include "project/catalogue.h"
#include "project/option_rows.h"
#include "upperview/page/page_store.h"

#include <algorithm>
#include <set>

namespace sbd {

namespace {

class Checker {
public:
    Checker(std::string_view text, int block, std::vector<PageFault>& faults)
        : text_(text)
        , block_(block)
        , faults_(&faults)
    {
    }

    void CheckRows(const Page& page) const
    {
        const OptionBlock* options = FindOptionBlock(block_);
        if (options == nullptr)
            return;
        const int last = static_cast<int>(options->rows.size());
        std::set<int> served;
        bool all = false;
        for (const PageBranch& branch : page.branches) {
            for (const int row : branch.rows)
                if (row < 1 || row > last)
                    Complain("rows", "block " + std::to_string(block_) + " has no row " + std::to_string(row));
            if (!branch.when.tests.empty())
                continue;
            served.insert(branch.rows.begin(), branch.rows.end());
            all = all || branch.rows.empty();
        }
        for (int row = 1; row <= last; ++row)
            if (!served.contains(row))
                Complain("[[branch]]", "option row " + std::to_string(row) + " has no branch");
        if (!all)
            Complain("[[branch]]", "a last branch without rows serves the rows out of range");
    }

    void CheckBranches(const Page& page, const std::map<std::string, Sketch>& shared) const
    {
        if (page.branches.empty())
            Complain("", "the page has no branch");
        std::set<std::string> shown;
        for (const PageBranch& branch : page.branches)
            for (const std::string& name : branch.sketches) {
                shown.insert(name);
                if (!page.sketches.contains(name) && !shared.contains(name))
                    Complain("\"" + name + "\"", "no sketch \"" + name + "\"");
            }
        for (const auto& [name, sketch] : page.sketches) {
            const std::string place = "[sketch." + name + "]";
            if (!shown.contains(name))
                Complain(place, "no branch shows the sketch \"" + name + "\"");
            CheckColumns(sketch, place);
        }
        for (const PageLimit& limit : page.limits)
            for (const int column : limit.columns)
                if (column < 1 || column > GridColumns(block_) || FindOptionBlock(block_) != nullptr)
                    Complain("[[limit]]", "block " + std::to_string(block_) + " has no column " + std::to_string(column)
                                              + " to limit");
    }

private:
    void CheckColumns(const Sketch& sketch, const std::string& place) const
    {
        const int columns = GridColumns(block_);
        const OptionBlock* options = FindOptionBlock(block_);
        for (const SketchElement& element : sketch.elements) {
            for (const int column : element.columns)
                if (column < 1 || column > columns)
                    Complain(place, "block " + std::to_string(block_) + " has no column " + std::to_string(column));
            for (const int row : element.rows)
                if (row < 1 || (options != nullptr && static_cast<std::size_t>(row) > options->rows.size()))
                    Complain(place, "block " + std::to_string(block_) + " has no row " + std::to_string(row));
        }
    }

    /// Faults that no single value has carry the line where their place first stands.
    void Complain(const std::string& place, std::string message) const
    {
        const std::size_t found = std::min(text_.find(place), text_.size());
        const auto line = std::count(text_.begin(), text_.begin() + static_cast<std::ptrdiff_t>(found), '\n');
        faults_->push_back({static_cast<int>(line) + 1, std::move(message)});
    }

    std::string_view text_;
    int block_;
    std::vector<PageFault>* faults_;
};

} // namespace

std::vector<PageFault> CheckPage(std::string_view fileName, std::string_view text,
                                 const std::map<std::string, Sketch>& shared)
{
    if (fileName == kSharedFile)
        return ParsePage(text, 0).faults;
    const std::vector<int> blocks = BlocksOfFileName(fileName);
    std::vector<PageFault> faults;
    if (blocks.empty())
        faults.push_back({1, "the file name says no block"});
    for (const int named : blocks) {
        const int block = CanonicalBlock(named);
        if (!HasPage(block)) {
            faults.push_back({1, "there is no block " + std::to_string(named)});
            continue;
        }
        ParsedPage parsed = ParsePage(text, block);
        const bool unread = parsed.page.branches.empty() && !parsed.faults.empty();
        std::ranges::move(parsed.faults, std::back_inserter(faults));
        if (unread)
            continue;
        const Checker checker(text, block, faults);
        checker.CheckRows(parsed.page);
        checker.CheckBranches(parsed.page, shared);
    }
    return faults;
}

} // namespace sbd
