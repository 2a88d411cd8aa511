#include "search/go_line.h"

#include "panelmodel/panel_model.h"
#include "project/catalogue.h"
#include "project/text.h"
#include "search/fold.h"
#include "search/search_index.h"

#include <algorithm>
#include <array>
#include <set>

namespace sbd {

namespace {

constexpr std::size_t kMostBlocks = 12;
constexpr std::size_t kMostCommands = 8;
constexpr std::string_view kRowWord = "行";
constexpr std::string_view kColumnWord = "列";
/// What may stand between the numbers.
constexpr std::string_view kBetween[] = {" ",  ",",  ".",  "-",  "/",  ":",  "(", ")",
                                         "の", "第", "目", "ー", "．", "・", "　"};

enum class Unit { None, Row, Column };
struct NumberInLine {
    int value = 0;
    std::size_t digits = 0;
    Unit unit = Unit::None;
};

/// The numbers of a folded line with their units; nothing if there is anything else in it.
std::optional<std::vector<NumberInLine>> NumbersOf(std::string_view line)
{
    constexpr std::size_t mostDigits = 6;
    constexpr std::size_t mostNumbers = 3;
    std::vector<NumberInLine> numbers;
    const auto skip = [&line](std::string_view word) {
        if (!line.starts_with(word))
            return false;
        line.remove_prefix(word.size());
        return true;
    };
    while (!line.empty()) {
        if (line[0] >= '0' && line[0] <= '9') {
            NumberInLine number;
            while (!line.empty() && line[0] >= '0' && line[0] <= '9') {
                if (++number.digits > mostDigits)
                    return std::nullopt;
                number.value = number.value * 10 + (line[0] - '0');
                line.remove_prefix(1);
            }
            while (skip(" ")) {
            }
            if (skip(kRowWord))
                number.unit = Unit::Row;
            else if (skip(kColumnWord))
                number.unit = Unit::Column;
            numbers.push_back(number);
        } else if (std::ranges::none_of(kBetween, skip)) {
            return std::nullopt;
        }
    }
    if (numbers.empty() || numbers.size() > mostNumbers)
        return std::nullopt;
    return numbers;
}

/// A head in one line, UTF-8.
std::string OneLine(std::string_view cp932)
{
    std::string text = FromCp932(cp932);
    std::ranges::replace(text, '\n', ' ');
    return std::string(Trim(text));
}

bool HoldsAll(std::string_view folded, const std::vector<std::string>& words)
{
    return std::ranges::all_of(words, [&](const std::string& word) { return folded.find(word) != folded.npos; });
}

/// Titles and names in the form in which they are compared; made once.
struct FoldedBlock {
    int block;
    std::string title;
};
const std::vector<FoldedBlock>& FoldedBlocks()
{
    static const std::vector<FoldedBlock> blocks = [] {
        std::vector<FoldedBlock> made;
        std::set<int> known;
        for (const CatalogueRow& row : Catalogue())
            if (!PanelOfBlock(row.block).empty() && !row.menuText.empty() && known.insert(row.block).second)
                made.push_back({row.block, Fold(row.menuText)});
        return made;
    }();
    return blocks;
}
struct FoldedCommand {
    const CommandRow* row;
    std::string name;
    std::string keys;
};
const std::vector<FoldedCommand>& FoldedCommands()
{
    static const std::vector<FoldedCommand> commands = [] {
        std::vector<FoldedCommand> made;
        for (const CommandRow& row : CommandTable())
            if (row.command != Command::Version && row.command != Command::SecondHomePage)
                made.push_back({&row, Fold(NameOf(row) + ' ' + std::string(row.tip)), Fold(row.keys)});
        return made;
    }();
    return commands;
}

/// Puts the targets of one line together.
class TargetMaker {
public:
    TargetMaker(std::string_view line, const CSbdData& data, int currentBlock)
        : line_(Trim(line))
        , words_(SearchWords(line))
        , data_(data)
        , currentBlock_(currentBlock)
    {
    }

    std::vector<GoTarget> Make(GoScope scope)
    {
        if (words_.empty())
            return {};
        AddNumbers();
        const std::optional<SearchPlace> place = PlaceOfLine(line_, currentBlock_);
        const bool isCell = place && place->row > 0; // what it says is said in full
        if (scope == GoScope::All && !isCell) {
            AddCommands(true);
            AddTitles();
            AddCommands(false);
            AddHits();
        }
        if (scope == GoScope::All) {
            targets_.push_back({GoTarget::Kind::Search,
                                {999, 0, 0},
                                Command::None,
                                "「" + std::string(line_) + "」を 999 で検索",
                                {}});
        }
        return std::move(targets_);
    }

private:
    void AddPlace(SearchPlace place, std::string text, std::string detail = {})
    {
        const bool known = std::ranges::any_of(targets_, [&](const GoTarget& target) {
            return target.kind == GoTarget::Kind::Place && target.place == place;
        });
        if (!known && targets_.size() + 1 < kMostTargets)
            targets_.push_back({GoTarget::Kind::Place, place, Command::None, std::move(text), std::move(detail)});
    }

    void AddCell(SearchPlace place)
    {
        std::string text = PlaceInWords(data_, place);
        std::string detail;
        if (place.row > 0 && place.column > 0)
            if (const auto model = MakePanelModel(data_, place.block))
                detail = OneLine(model->Text(place.row, place.column));
        AddPlace(place, std::move(text), std::move(detail));
    }

    void AddNumbers()
    {
        const std::string folded = Fold(line_);
        const auto numbers = NumbersOf(folded);
        if (!numbers)
            return;
        if (const auto place = PlaceOfLine(line_, currentBlock_))
            AddCell(*place);
        const NumberInLine& first = numbers->front();
        if (numbers->size() > 1 || first.unit != Unit::None)
            return;
        const auto shown = MakePanelModel(data_, currentBlock_);
        if (shown != nullptr && first.value > 0 && first.value <= shown->GridRows())
            AddCell({currentBlock_, first.value, 0});
        for (const FoldedBlock& block : FoldedBlocks()) // whose number begins so
            if (first.digits < 3 && std::to_string(block.block).starts_with(std::to_string(first.value)))
                AddPlace({block.block, 0, 0}, Title(block.block));
    }

    [[nodiscard]] std::string Title(int block) const
    {
        SearchPlace place{block, 0, 0};
        return PlaceInWords(data_, place);
    }

    /// `first`: commands whose name begins with the line; else the others that hold its words.
    void AddCommands(bool first)
    {
        std::size_t added = 0;
        for (const FoldedCommand& command : FoldedCommands()) {
            const bool begins = command.name.starts_with(words_[0]);
            const bool holds = HoldsAll(command.name, words_);
            const bool byKey = words_.size() == 1 && !command.keys.empty() && command.keys == words_[0];
            if (((begins && holds) || byKey) == first && (holds || byKey) && added++ < kMostCommands
                && targets_.size() + 1 < kMostTargets)
                targets_.push_back({GoTarget::Kind::Command,
                                    {},
                                    command.row->command,
                                    NameOf(*command.row),
                                    std::string(command.row->keys.substr(0, command.row->keys.find("; ")))});
        }
    }

    void AddTitles()
    {
        std::size_t added = 0;
        for (const FoldedBlock& block : FoldedBlocks())
            if (HoldsAll(block.title, words_) && added++ < kMostBlocks)
                AddPlace({block.block, 0, 0}, Title(block.block));
    }

    void AddHits()
    {
        for (const SearchEntry* hit : SearchIndex().Search(line_, {}).hits) {
            if (targets_.size() + 1 >= kMostTargets)
                return;
            if (hit->place.block > 0 && !PanelOfBlock(hit->place.block).empty())
                AddPlace(hit->place, std::string(Trim(hit->text)));
        }
    }

    std::string_view line_;
    std::vector<std::string> words_;
    const CSbdData& data_;
    int currentBlock_;
    std::vector<GoTarget> targets_;
};

} // namespace

std::string NameOf(const CommandRow& command)
{
    std::string name(command.text);
    if (const std::size_t letter = name.find("(&"); letter != std::string::npos && name.find(')', letter) == letter + 3)
        name.erase(letter, 4);
    for (const std::string_view wide = "　"; name.find(wide) != std::string::npos;)
        name.replace(name.find(wide), wide.size(), " ");
    name.erase(std::unique(name.begin(), name.end(), [](char a, char b) { return a == ' ' && b == ' '; }), name.end());
    if (name.ends_with("..."))
        name.resize(name.size() - 3);
    return std::string(Trim(name));
}

std::optional<SearchPlace> PlaceOfLine(std::string_view line, int currentBlock)
{
    const std::string folded = Fold(Trim(line));
    const auto numbers = NumbersOf(folded);
    if (!numbers)
        return std::nullopt;
    SearchPlace place{currentBlock, 0, 0};
    std::size_t next = 0;
    if (numbers->front().unit == Unit::None) {
        place.block = CanonicalBlock(numbers->front().value);
        if (FindBlock(numbers->front().value) == nullptr || PanelOfBlock(place.block).empty())
            return std::nullopt;
        next = 1;
    }
    for (; next < numbers->size(); ++next) {
        const NumberInLine& number = (*numbers)[next];
        const bool column = number.unit == Unit::Column || (number.unit == Unit::None && place.row > 0);
        int& part = column ? place.column : place.row;
        if (part != 0 || number.value == 0)
            return std::nullopt;
        part = number.value;
    }
    if (place.column > 0 && place.row == 0)
        place.row = 1;
    return place;
}

std::string PlaceInWords(const CSbdData& data, SearchPlace& place)
{
    const int shown = place.block;
    std::string text = std::to_string(shown) + '.' + BlockTitle(shown);
    if (const std::size_t open = text.find('['); open != std::string::npos) {
        const std::size_t close = text.find(']', open);
        text.erase(open, close == std::string::npos ? std::string::npos : close + 1 - open);
    }
    if (place.row == 0)
        return text;
    const auto model = MakePanelModel(data, place.block);
    if (model == nullptr) {
        place.row = place.column = 0;
        return text;
    }
    const int rows = model->GridRows();
    const int columns = model->ColumnCount() - 1;
    const auto part = [&text](int& number, int most, std::string_view unit) {
        text += "　" + std::to_string(std::min(number, most)) + std::string(unit);
        if (number > most)
            text += "（" + std::to_string(number) + std::string(unit) + "はありません）";
        number = std::min(number, most);
    };
    part(place.row, rows, kRowWord);
    if (place.column == 0) {
        const bool option = columns == 2 && !model->MovesRows(); // a label and its value
        place.column = option ? 2 : 1;
        return option ? text + "　" + OneLine(model->Text(place.row, 1)) : text;
    }
    part(place.column, columns, kColumnWord);
    return text + "　" + OneLine(model->Head(place.column, place.row));
}

std::vector<GoTarget> GoTargets(std::string_view line, const CSbdData& data, int currentBlock, GoScope scope)
{
    return TargetMaker(line, data, currentBlock).Make(scope);
}

} // namespace sbd
