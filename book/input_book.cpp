#include "book/input_book.h"

#include "compare/compare.h"
#include "compare/difference_text.h"
#include "panelmodel/panel_model.h"
#include "panelmodel/tree_rows.h"
#include "project/catalogue.h"
#include "project/file_access.h"
#include "project/file_time.h"
#include "project/option_rows.h"
#include "project/panel_columns.h"
#include "project/sbd_data.h"
#include "project/text.h"

#include <algorithm>
#include <charconv>
#include <memory>
#include <set>

namespace sbd {

namespace {

bool IsDefault(const CSbdData& data, const OptionBlock& block)
{
    static const CSbdData fresh;
    for (std::size_t row = 0; row < block.rows.size(); ++row)
        if (Trim(data.Option(block.block, row)) != Trim(fresh.Option(block.block, row)))
            return false;
    return true;
}

bool HasFilledRow(const CPanelModel& model)
{
    for (int row = model.FixedRows() + 1; row <= model.BlockRows(); ++row)
        if (!model.IsBlankRow(row))
            return true;
    return false;
}

bool IsFilled(const CSbdData& data, int block)
{
    if (const OptionBlock* options = FindOptionBlock(block))
        return HasInputInForce(data, block) || !IsDefault(data, *options);
    const std::unique_ptr<CPanelModel> model = MakePanelModel(data, block);
    return model && HasFilledRow(*model);
}

/// The numbers that have a panel and a section of their own.
std::vector<int> ShownBlocks()
{
    std::vector<int> blocks;
    for (const CatalogueRow& row : Catalogue())
        if (PanelBlock(row.block) == row.block && row.kind != BlockKind::None)
            blocks.push_back(row.block);
    return blocks;
}

bool IsNameMark(const WordList& words)
{
    return std::ranges::any_of(words, [](const std::string& word) { return word.starts_with('@'); });
}

/// How many columns at the left say of which girder and cross beam a row is, the row number included.
std::size_t NameColumns(int block)
{
    std::size_t count = 1;
    if (const PanelTable* table = FindPanelTable(block))
        while (count < table->columns.size() && IsNameMark(table->columns[count].words))
            ++count;
    else if (const RecordPanel* record = FindRecordPanel(block))
        while (count < record->words.size() && IsNameMark(record->words[count]))
            ++count;
    else if (FindOptionBlock(block) != nullptr)
        count = 2; // what the row is of
    return count;
}

} // namespace

std::vector<int> FilledBlocks(const CSbdData& data)
{
    std::vector<int> blocks = ShownBlocks();
    std::erase_if(blocks, [&](int block) { return !IsFilled(data, block); });
    return blocks;
}

std::vector<int> ChangedBlocks(const CSbdData& before, const CSbdData& now)
{
    std::set<int> changed;
    for (const Difference& difference : CompareProjects(before, now))
        changed.insert(difference.block);
    std::vector<int> blocks = ShownBlocks();
    std::erase_if(blocks, [&](int block) { return !changed.contains(block); });
    return blocks;
}

std::vector<int> BookBlocks(const std::vector<int>& numbers)
{
    std::set<int> wanted;
    for (const int number : numbers)
        wanted.insert(PanelBlock(number));
    std::vector<int> blocks = ShownBlocks();
    std::erase_if(blocks, [&](int block) { return !wanted.contains(block); });
    return blocks;
}

std::optional<std::vector<int>> ReadBlockList(std::string_view text)
{
    const auto number = [](std::string_view word) -> std::optional<int> {
        int value = 0;
        const auto [end, error] = std::from_chars(word.data(), word.data() + word.size(), value);
        const bool whole = error == std::errc() && end == word.data() + word.size() && value >= 0 && value <= 999;
        return whole ? std::optional(value) : std::nullopt;
    };
    std::vector<int> blocks;
    for (const std::string_view word : SplitWords(text)) {
        const std::size_t dash = word.find('-');
        const std::optional<int> first = number(word.substr(0, dash));
        const std::optional<int> last = dash == std::string_view::npos ? first : number(word.substr(dash + 1));
        if (!first || !last)
            return std::nullopt;
        for (int block = *first; block <= *last; ++block)
            blocks.push_back(block);
    }
    return blocks;
}

BookFacts FactsOf(const CSbdData& data, std::string_view project, const std::filesystem::path& file,
                  std::string_view program)
{
    BookFacts facts;
    facts.project = project;
    facts.title = BookTitle(data);
    facts.program = program;
    facts.made = LocalTimeText(FileTimeNow());
    if (!file.empty()) {
        const std::u8string name = file.u8string();
        facts.file.assign(name.begin(), name.end());
        const std::u8string stem = file.stem().u8string();
        if (facts.project.empty())
            facts.project.assign(stem.begin(), stem.end());
        const FileFacts stands = LookAtFile(file);
        if (stands.kind == FileFacts::Kind::File)
            facts.saved = LocalTimeText(stands.changed);
    }
    return facts;
}

std::string BookTitle(const CSbdData& data)
{
    return FromCp932(Trim(data.Option(301, 0)));
}

BookBlock MakeBookBlock(const CSbdData& data, int block)
{
    BookBlock made;
    made.block = block;
    made.name = NumberAndTitle(block);
    if (const CatalogueRow* row = FindBlock(block))
        made.tag = row->tag;
    const std::unique_ptr<CPanelModel> model = MakePanelModel(data, block);
    if (!model)
        return made;
    made.headRows = static_cast<std::size_t>(std::max(model->FixedRows(), 0));
    const int columns = model->ColumnCount();
    const int rows = model->BlockRows();
    made.nameColumns = std::min(NameColumns(block), static_cast<std::size_t>(columns));
    for (int column = 0; column < columns; ++column) {
        const int sample = std::min(rows, static_cast<int>(made.headRows) + 1);
        made.columns.push_back({column == 0 ? "行" : FromCp932(model->Head(column)),
                                column == 0 || (rows > 0 && model->IsRightAligned(sample, column))});
    }
    for (int row = 1; row <= rows; ++row) {
        std::vector<std::string> cells = {FromCp932(Trim(model->RowNumber(row)))};
        for (int column = 1; column < columns; ++column)
            cells.push_back(FromCp932(TrimRight(model->Text(row, column))));
        made.rows.push_back(std::move(cells));
    }
    return made;
}

} // namespace sbd
