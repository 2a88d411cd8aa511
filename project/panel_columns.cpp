#include "project/panel_columns.h"

#include "project/bridge_names.h"
#include "project/option_rows.h"
#include "project/panel_raw_tables.h"
#include "project/sbd_data.h"
#include "project/text.h"

#include <algorithm>
#include <array>

namespace sbd {

namespace {

using namespace literals;

constexpr std::string_view kGirderMark = "@girders";
constexpr std::string_view kBeamMark = "@beams";
constexpr int kFirstDataRow = 2; // grid row behind the automatic row
constexpr int kRecordNumberWidth = 35;

std::string NumberHead(int block)
{
    std::string head;
    AppendFixed(head, block, 0, 0);
    return head;
}

WordList MakeWords(std::string_view list)
{
    WordList words;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find('|'), list.size());
        words.push_back(Cp932(list.substr(0, end)));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return words;
}

bool HasSectionHeads(std::span<const RawColumn> columns)
{
    return std::ranges::any_of(columns, [](const RawColumn& column) { return !column.sectionHead.empty(); });
}

std::string MakeSectionHead(const RawColumn& column)
{
    return Cp932(column.sectionHead.empty() ? column.head : column.sectionHead);
}

PanelColumn MakeColumn(const RawColumn& raw, bool hasSectionHeads)
{
    PanelColumn column;
    column.width = raw.width;
    column.head = Cp932(raw.head);
    if (hasSectionHeads)
        column.sectionHead = MakeSectionHead(raw);
    column.name = Cp932(raw.name);
    column.words = MakeWords(raw.words);
    column.rightAlignedFromRow = raw.align == kNumber ? kFirstDataRow : 0;
    return column;
}

PanelTable MakePanel(const RawPanel& raw, int block)
{
    PanelTable panel;
    panel.block = block;
    panel.headHeight = raw.headHeight;
    panel.automaticRows = raw.automaticRows;
    panel.usable = raw.usable;
    panel.fixedTexts = MakeWords(raw.fixedTexts);
    panel.hasSectionHeads = HasSectionHeads(raw.columns);
    PanelColumn& number = panel.columns.emplace_back();
    number.width = raw.numberWidth;
    number.head = NumberHead(block);
    for (const RawColumn& column : raw.columns)
        panel.columns.push_back(MakeColumn(column, panel.hasSectionHeads));
    return panel;
}

RecordPanel MakeRecordPanel(const RawRecordPanel& raw)
{
    RecordPanel panel;
    panel.block = raw.block;
    panel.headHeight = raw.headHeight;
    const bool hasSectionHeads = HasSectionHeads(raw.columns);
    panel.heads.push_back(Cp932(raw.numberHead));
    if (hasSectionHeads)
        panel.sectionHeads = panel.heads;
    panel.widths.push_back(kRecordNumberWidth);
    panel.words.emplace_back();
    for (const RawColumn& column : raw.columns) {
        panel.heads.push_back(Cp932(column.head));
        if (hasSectionHeads)
            panel.sectionHeads.push_back(MakeSectionHead(column));
        panel.widths.push_back(column.width);
        panel.words.push_back(MakeWords(column.words));
    }
    return panel;
}

/// Gives the list to the rows that `raw` names; rows that the block has not are left out.
void PutRowWords(std::vector<WordList>& rows, const RawRowWords& raw)
{
    const WordList words = MakeWords(raw.words);
    for (const std::string_view range : SplitWords(raw.rows)) {
        const int first = LeadingInteger(range);
        const std::size_t dash = range.find('-');
        const int last = dash == std::string_view::npos ? first : LeadingInteger(range.substr(dash + 1));
        for (int row = first; row <= last && row <= static_cast<int>(rows.size()); ++row)
            rows[static_cast<std::size_t>(row) - 1] = words;
    }
}

OptionPanel MakeOptionPanel(const RawOptionPanel& raw)
{
    OptionPanel panel;
    panel.block = raw.block;
    panel.heads = {NumberHead(raw.block), Cp932(raw.labelHead), Cp932(raw.valueHead)};
    panel.labelWidth = raw.labelWidth;
    panel.valueWidth = raw.valueWidth;
    panel.lowerLimit = raw.lowerLimit;
    if (const OptionBlock* block = FindOptionBlock(raw.block))
        panel.words.resize(block->rows.size());
    for (const RawRowWords& rowWords : raw.rowWords)
        PutRowWords(panel.words, rowWords);
    return panel;
}

/// The panel of a number among panels in order of number; null if there is none.
template <typename Panel>
const Panel* FindPanel(std::span<const Panel> panels, int block)
{
    const auto found = std::ranges::lower_bound(panels, block, {}, &Panel::block);
    return found != panels.end() && found->block == block ? &*found : nullptr;
}

} // namespace

bool IsNameColumn(std::string_view head, const WordList& words)
{
    static const std::array<std::string, 3> kNames = {"始"_cp932, "終"_cp932, "名"_cp932};
    const auto takesName = [](const std::string& word) { return word == kGirderMark || word == kBeamMark; };
    const auto isInHead = [head](std::string_view text) { return head.find(text) != std::string_view::npos; };
    return std::ranges::any_of(words, takesName)
           || (std::ranges::any_of(kNames, isInHead) && !isInHead("(m)") && !isInHead("(mm)"));
}

std::span<const PanelTable> PanelTables()
{
    static const std::vector<PanelTable> panels = [] {
        std::vector<PanelTable> result;
        for (const RawPanel& raw : RawPanels())
            for (int block = raw.block; block <= std::max(raw.block, raw.last); ++block)
                result.push_back(MakePanel(raw, block));
        return result;
    }();
    return panels;
}

const PanelTable* FindPanelTable(int block)
{
    return FindPanel(PanelTables(), block);
}

std::span<const OptionPanel> OptionPanels()
{
    static const std::vector<OptionPanel> panels = [] {
        std::vector<OptionPanel> result;
        for (const RawOptionPanel& raw : RawOptionPanels())
            result.push_back(MakeOptionPanel(raw));
        return result;
    }();
    return panels;
}

const OptionPanel* FindOptionPanel(int block)
{
    return FindPanel(OptionPanels(), block);
}

std::span<const RecordPanel> RecordPanels()
{
    static const std::vector<RecordPanel> panels = [] {
        std::vector<RecordPanel> result;
        for (const RawRecordPanel& raw : RawRecordPanels())
            result.push_back(MakeRecordPanel(raw));
        return result;
    }();
    return panels;
}

const RecordPanel* FindRecordPanel(int block)
{
    return FindPanel(RecordPanels(), block);
}

const std::vector<std::string>& CListNames::Girders()
{
    if (names_ == ListNames::OfTheAnalysis)
        return data_.gridNames.girderNames;
    if (!girders_)
        girders_ = GirderNamesOf(data_);
    return *girders_;
}

const std::vector<std::string>& CListNames::Beams()
{
    if (names_ == ListNames::OfTheAnalysis)
        return data_.gridNames.swayNames;
    if (!beams_)
        beams_ = BeamNamesOf(data_);
    return *beams_;
}

WordList ResolveWords(const WordList& words, CListNames& names)
{
    WordList resolved;
    const auto add = [&](const std::vector<std::string>& found) {
        for (const std::string& name : found)
            if (names.Of() == ListNames::OfTheAnalysis
                || std::ranges::find(words, name) == words.end()) // "G" can be a word of the list already
                resolved.push_back(name);
    };
    for (const std::string& word : words) {
        if (word == kGirderMark)
            add(names.Girders());
        else if (word == kBeamMark)
            add(names.Beams());
        else
            resolved.push_back(word);
    }
    return resolved;
}

WordList ResolveWords(const WordList& words, const CSbdData& data, ListNames names)
{
    CListNames found(data, names);
    return ResolveWords(words, found);
}

} // namespace sbd
