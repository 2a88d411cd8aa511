#include "search/search_index.h"

#include "panelmodel/panel_model.h"
#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/page_titles.h"
#include "project/panel_columns.h"
#include "project/text.h"
#include "search/page_texts.h"
#include "search/understand.h"
#include "upperview/page/page_parser.h"
#include "upperview/page/page_store.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <utility>

namespace sbd {

namespace {

constexpr std::string_view kIndent = "   ";
constexpr std::string_view kArrow = " ---> ";
constexpr int kOptionColumn = 2;
constexpr char kBetween = '\n'; // no word reaches over it

/// Blocks with a grid of their own, in order of number.
std::vector<int> OwnBlocks()
{
    std::vector<int> blocks;
    for (const CatalogueRow& row : Catalogue())
        if (PanelBlock(row.block) == row.block)
            blocks.push_back(row.block);
    return blocks;
}

/// The texts of the menu and of the page that name a block, aliases included.
std::string NamesOfBlock(int block)
{
    std::string names;
    for (const CatalogueRow& row : Catalogue())
        if (PanelBlock(row.block) == block)
            names += std::string(row.menuText) + kBetween;
    return names + std::string(FindPageTitle(block));
}

/// A head in one line, without the marks of empty places and without what a line says again.
std::string HeadInOneLine(std::string_view head)
{
    std::vector<std::string_view> lines;
    while (!head.empty()) {
        const std::size_t end = std::min(head.find('\n'), head.size());
        const std::string_view line = Trim(head.substr(0, end));
        head.remove_prefix(std::min(end + 1, head.size()));
        const bool says = !line.empty() && line != "---" && line != "-" && line != "-1" && line != "〃";
        if (says && std::ranges::find(lines, line) == lines.end())
            lines.push_back(line);
    }
    std::string text;
    for (const std::string_view line : lines) {
        if (!text.empty())
            text += line.starts_with('(') ? "" : "／";
        text += line;
    }
    return text;
}

/// Title of a block without number, tag and marks.
std::string ShortTitle(int block)
{
    const std::string title = BlockTitle(block);
    return std::string(Trim(std::string_view(title).substr(0, title.find('['))));
}

/// "   313 ---> title", and behind it the row or column.
std::string ItemText(int block, std::string_view title, int number, std::string_view unit)
{
    return std::string(kIndent) + std::to_string(block) + std::string(kArrow) + std::string(title) + "の第"
           + std::to_string(number) + std::string(unit);
}

/// What the columns of a table or record panel are called. UTF-8.
class ColumnTexts {
public:
    explicit ColumnTexts(int block) : block_(block), table_(FindPanelTable(block)), record_(FindRecordPanel(block)) {}

    /// Columns, the row number included; 0: no such panel.
    [[nodiscard]] int Count() const
    {
        return static_cast<int>(table_ != nullptr    ? table_->columns.size()
                                : record_ != nullptr ? record_->heads.size()
                                                     : 0);
    }
    /// The first grid row behind the automatic rows and the rows of types.
    [[nodiscard]] int FirstDataRow() const
    {
        constexpr int typeRowsOf311 = 4;
        return table_ != nullptr ? table_->automaticRows + 1 : block_ == 311 ? typeRowsOf311 + 1 : 2;
    }
    /// The head in one line; of a column without a head its name in the file.
    [[nodiscard]] std::string Title(int column) const
    {
        std::string title = HeadInOneLine(Head(column));
        if (title.empty())
            title = NameInFile(column);
        const std::string other = HeadInOneLine(SectionHead(column));
        return other.empty() || other == title ? title : title + "［断面のみの場合：" + other + "］";
    }
    /// Everything by which a column is found.
    [[nodiscard]] std::string Words(int column) const
    {
        return Head(column) + kBetween + SectionHead(column) + kBetween + NameInFile(column);
    }

private:
    [[nodiscard]] std::string Head(int column) const
    {
        const auto i = static_cast<std::size_t>(column);
        return FromCp932(table_ != nullptr ? table_->columns[i].head : record_->heads[i]);
    }
    [[nodiscard]] std::string SectionHead(int column) const
    {
        const auto i = static_cast<std::size_t>(column);
        if (table_ != nullptr)
            return FromCp932(table_->columns[i].sectionHead);
        return i < record_->sectionHeads.size() ? FromCp932(record_->sectionHeads[i]) : std::string();
    }
    [[nodiscard]] std::string NameInFile(int column) const
    {
        return table_ != nullptr ? FromCp932(table_->columns[static_cast<std::size_t>(column)].name) : std::string();
    }

    int block_;
    const PanelTable* table_;
    const RecordPanel* record_;
};

} // namespace

std::string BlockTitle(int block)
{
    const CatalogueRow* row = FindBlock(block);
    std::string_view text = row != nullptr ? row->menuText : std::string_view();
    text.remove_prefix(std::min(text.find_first_not_of("0123456789."), text.size()));
    return std::string(Trim(text));
}

std::string PlaceText(const SearchPlace& place)
{
    std::string text = std::to_string(place.block) + "." + ShortTitle(place.block);
    if (place.row == 0)
        return text;
    if (const OptionBlock* options = FindOptionBlock(place.block)) {
        const auto row = static_cast<std::size_t>(place.row) - 1;
        text += "　第" + std::to_string(place.row) + "行";
        return row < options->rows.size() ? text + "　" + std::string(Trim(FromCp932(options->rows[row].panelLabel)))
                                          : text;
    }
    const ColumnTexts heads(place.block);
    if (place.row < heads.FirstDataRow())
        return text + "　第" + std::to_string(place.row) + "行";
    return place.column > 0 && place.column < heads.Count() ? text + "　" + heads.Title(place.column) : text;
}

std::vector<std::string> ChoicesAt(const SearchPlace& place)
{
    const auto at = [](const auto& list, int i) {
        return i >= 0 && static_cast<std::size_t>(i) < list.size() ? &list[static_cast<std::size_t>(i)] : nullptr;
    };
    const WordList* words = nullptr;
    if (const OptionPanel* options = FindOptionPanel(place.block)) {
        words = at(options->words, place.row - 1);
    } else if (place.row >= ColumnTexts(place.block).FirstDataRow()) {
        if (const PanelTable* table = FindPanelTable(place.block)) {
            const PanelColumn* column = at(table->columns, place.column);
            words = column != nullptr ? &column->words : nullptr;
        } else if (const RecordPanel* record = FindRecordPanel(place.block)) {
            words = at(record->words, place.column);
        }
    }
    std::vector<std::string> choices;
    for (const std::string& word : words != nullptr ? *words : WordList())
        choices.push_back(word == "@girders" ? "(主桁名)" : word == "@beams" ? "(横桁名)" : FromCp932(word));
    return choices;
}

// --- the entries -------------------------------------------------------------------------------------

CSearchIndex::CSearchIndex() : around_(1), choices_(1), pages_(1)
{
    AddTopics();
    AddQuestions();
    AddItems();
    AddPages();
    CountAlike();
    CollectWords();
}

CSearchIndex::Texts& CSearchIndex::Add(EntryKind kind, SearchPlace place, std::string text, std::string_view title,
                                       std::string_view more)
{
    entries_.push_back({kind, place, std::move(text)});
    Texts& texts = texts_.emplace_back();
    texts.own = Skeleton(title);
    texts.titleSize = texts.own.size();
    if (!more.empty())
        texts.own += u' ' + Skeleton(more);
    return texts;
}

/// A topic of a whole block is found by all that names the block; a block without one gets it from its title.
void CSearchIndex::AddTopics()
{
    std::vector<int> blocks = OwnBlocks();
    for (const HelpTopic& topic : HelpTopics()) {
        const SearchPlace place = PlaceOfKey(topic.key);
        const bool whole = place.row == 0 && std::erase(blocks, place.block) > 0;
        Add(EntryKind::Topic, place, TopicText(topic), topic.title, whole ? NamesOfBlock(place.block) : std::string());
    }
    for (const int block : blocks) {
        const std::string text = std::string(kIndent) + BlockTitle(block) + std::string(kArrow) + std::to_string(block);
        Add(EntryKind::Topic, {block}, text, ShortTitle(block), NamesOfBlock(block));
    }
    // Both kinds in order of block; the sort moves entries and texts alike.
    std::vector<std::size_t> order(entries_.size());
    for (std::size_t i = 0; i < order.size(); ++i)
        order[i] = i;
    std::ranges::stable_sort(order, {}, [this](std::size_t i) { return entries_[i].place.block; });
    std::vector<SearchEntry> entries;
    std::vector<Texts> texts;
    for (const std::size_t i : order) {
        entries.push_back(std::move(entries_[i]));
        texts.push_back(std::move(texts_[i]));
    }
    entries_ = std::move(entries);
    texts_ = std::move(texts);
}

void CSearchIndex::AddQuestions()
{
    for (const Question& question : Questions()) {
        Add(EntryKind::Question, question.places.empty() ? SearchPlace() : question.places.front(),
            std::string(question.question), question.question, question.answer);
        entries_.back().question = &question;
    }
}

void CSearchIndex::AddItems()
{
    ChoicePlaces places;
    for (const int block : OwnBlocks()) {
        around_.push_back(Skeleton(NamesOfBlock(block)));
        const std::size_t around = around_.size() - 1;
        const OptionBlock* options = FindOptionBlock(block);
        if (options == nullptr) {
            AddColumns(block, around, places);
            continue;
        }
        for (std::size_t i = 0; i < options->rows.size(); ++i) {
            const OptionRow& option = options->rows[i];
            const SearchPlace place{block, static_cast<int>(i) + 1, kOptionColumn};
            const std::string label = FromCp932(option.panelLabel);
            const std::string more = FromCp932(option.keyword) + kBetween + FromCp932(option.label);
            Texts& texts = Add(EntryKind::Item, place, ItemText(block, Trim(label), place.row, "行"), label, more);
            texts.around = around;
            SetChoices(texts, place, FromCp932(option.defaultValue), places);
        }
    }
}

void CSearchIndex::AddColumns(int block, std::size_t around, ChoicePlaces& places)
{
    const ColumnTexts heads(block);
    for (int column = 1; column < heads.Count(); ++column) {
        const SearchPlace place{block, heads.FirstDataRow(), column};
        const std::string title = heads.Title(column);
        Texts& texts = Add(EntryKind::Item, place, ItemText(block, ShortTitle(block) + "　" + title, column, "列"),
                           title, heads.Words(column));
        texts.around = around;
        SetChoices(texts, place, {}, places);
    }
}

void CSearchIndex::SetChoices(Texts& texts, const SearchPlace& place, std::string_view more, ChoicePlaces& places)
{
    std::string words(more);
    for (const std::string& choice : ChoicesAt(place))
        words += kBetween + choice;
    if (words.empty())
        return;
    const auto [known, added] = places.try_emplace(words, choices_.size());
    texts.choices = known->second;
    if (added)
        choices_.push_back(Skeleton(words));
}

/// The page of a block belongs to its topic; what tells of some rows alone, to these rows. A page without a file says
/// what labels and lists of words say already.
void CSearchIndex::AddPages()
{
    std::map<int, std::size_t> ofBlock;
    std::map<std::pair<int, int>, std::size_t> ofRow;
    for (const PageSource& source : PageSources()) {
        if (source.name == kSharedFile)
            continue;
        std::u16string whole;
        std::map<int, std::size_t> rows;
        for (const PageText& text : TextsOfPage(source.text)) {
            std::u16string skeleton = Skeleton(text.text);
            whole += skeleton + u' ';
            if (text.rows.empty())
                continue;
            pages_.push_back(std::move(skeleton));
            for (const int row : text.rows)
                rows.try_emplace(row, pages_.size() - 1);
        }
        pages_.push_back(std::move(whole));
        for (const int number : BlocksOfFileName(source.name)) {
            const int block = CanonicalBlock(number);
            ofBlock.try_emplace(block, pages_.size() - 1);
            for (const auto& [row, page] : rows)
                ofRow.try_emplace({block, row}, page);
        }
    }
    for (std::size_t i = 0; i < entries_.size(); ++i) {
        const SearchPlace& place = entries_[i].place;
        if (entries_[i].kind == EntryKind::Question)
            continue;
        if (place.row == 0) {
            if (const auto page = ofBlock.find(place.block); page != ofBlock.end())
                texts_[i].page = page->second;
        } else if (const auto page = ofRow.find({place.block, place.row}); page != ofRow.end()) {
            texts_[i].page = page->second;
        }
    }
}

/// A head that a hundred tables have tells little of any of them.
void CSearchIndex::CountAlike()
{
    std::map<std::u16string_view, std::size_t> counts;
    const auto title = [](const Texts& texts) { return std::u16string_view(texts.own).substr(0, texts.titleSize); };
    for (const Texts& texts : texts_)
        ++counts[title(texts)];
    for (Texts& texts : texts_)
        texts.alike = std::log2(double(counts[title(texts)]));
}

/// The runs of one script in titles, labels and heads: what a mistyped word may have meant.
void CSearchIndex::CollectWords()
{
    std::set<std::u16string> words;
    for (const Texts& texts : texts_)
        for (std::u16string& run : PlainRuns(std::u16string_view(texts.own).substr(0, texts.titleSize)))
            words.insert(std::move(run));
    words_.assign(words.begin(), words.end());
}

std::vector<const SearchEntry*> CSearchIndex::AllQuestions() const
{
    std::vector<const SearchEntry*> questions;
    for (const SearchEntry& entry : entries_)
        if (entry.kind == EntryKind::Question)
            questions.push_back(&entry);
    return questions;
}

const CSearchIndex& SearchIndex()
{
    static const CSearchIndex index;
    return index;
}

bool AsksForQuestions(std::string_view line)
{
    return line.substr(0, kQuestionsWord.size()) == kQuestionsWord;
}

} // namespace sbd
