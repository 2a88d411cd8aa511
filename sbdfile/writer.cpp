#include "sbdfile/writer.h"

#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "sbdfile/camber.h"
#include "sbdfile/layout.h"
#include "sbdfile/writer_records.h"

#include <algorithm>

namespace sbd {

namespace {

using namespace literals;

void AppendLine(std::string& out, std::string_view line)
{
    out.append(line);
    out.append(kLineEnd);
}

/// The 32 values of a block 301 that has lost its rows.
std::vector<std::string> RebuiltControlValues()
{
    std::vector<std::string> values = {"SBD1", "YES", "YES"};
    values.insert(values.end(), 5, "NO");
    values.insert(values.end(), 13, "YES"); // up to row 20
    for (const char* value : {"死荷重", "1", "一般", "YES", "NO", "100", "0.03", "非合成", "自動", "横桁腹板", "3次"})
        values.push_back(Cp932(value));
    return values;
}

/// A value that marks a block as not ready to be written.
constexpr std::string_view kPlaceholder = "<?>";

void WriteOptions(std::string& out, const OptionBlock& block, const std::vector<std::string>& values)
{
    const std::size_t firstRow = block.block == 301 ? 1 : 0; // row 0 of 301 is the title, on a line of its own
    AppendLine(out, block.header);
    AppendLine(out, block.comment);
    for (std::size_t i = firstRow; i < block.rows.size() && i < values.size(); ++i) {
        out.append("  ");
        AppendPadded(out, block.rows[i].keyword, static_cast<std::size_t>(block.keywordWidth), true);
        out.push_back(' ');
        if (block.shape == OptionShape::KeywordLabelValue) {
            AppendPadded(out, block.rows[i].label, static_cast<std::size_t>(block.labelWidth), true);
            out.push_back(' ');
        }
        AppendPadded(out, values[i], static_cast<std::size_t>(block.valueWidth), false);
        out.append(kLineEnd);
    }
    AppendLine(out, block.end);
    out.append(kLineEnd);
}

/// The first format that has a field for every cell that holds something, else the last.
const RowFormat& FormatFor(const SectionLayout& layout, const TableBlock& table, std::size_t row)
{
    if (layout.formats.size() == 1 || (layout.rule == RowRule::FirstRowApart && row > 0))
        return layout.formats.back();
    if (layout.rule == RowRule::FirstRowApart)
        return layout.formats.front();
    for (const RowFormat& format : layout.formats) {
        const auto behind = table.columns.begin() + static_cast<std::ptrdiff_t>(format.fields.size());
        if (std::all_of(behind, table.columns.end(), [&](const CColumnVector& column) { return column[row].empty(); }))
            return format;
    }
    return layout.formats.back();
}

void WriteRow(std::string& out, const SectionLayout& layout, const TableBlock& table, std::size_t row)
{
    const RowFormat& format = FormatFor(layout, table, row);
    const auto widthOf = [](const RowField& field, std::string_view cell) {
        return std::max(field.width, cell.size());
    };
    const std::size_t lineStart = out.size();
    std::size_t size = format.behind.size();
    for (std::size_t column = 0; column < format.fields.size(); ++column)
        size += format.fields[column].before.size() + widthOf(format.fields[column], table.columns[column][row]);
    // The line as blanks first, then the texts over them.
    out.resize(lineStart + size, ' ');
    char* place = out.data() + lineStart;
    for (std::size_t column = 0; column < format.fields.size(); ++column) {
        const RowField& field = format.fields[column];
        const std::string_view cell = table.columns[column][row];
        const std::size_t width = widthOf(field, cell);
        place = std::ranges::copy(field.before, place).out;
        std::ranges::copy(cell, field.left ? place : place + (width - cell.size()));
        place += width;
    }
    std::ranges::copy(format.behind, place);
    if (layout.cutTrailingBlanks)
        while (out.size() > lineStart && out.back() == ' ')
            out.pop_back();
    out.append(kLineEnd);
}

/// Place of the one comment that 321 and 322 write: 1 if the input method says lengths.
std::size_t InputMethodComment(const TableBlock& table)
{
    static const std::vector<std::string> lengths = {"継手長"_cp932, "断面長"_cp932, "自動_継手長"_cp932,
                                                     "自動_断面長"_cp932};
    if (table.RowCount() < 2)
        return 0;
    const std::string_view method = table.columns[1][1];
    return std::ranges::any_of(lengths, [&](const std::string& word) { return method.starts_with(word); }) ? 1 : 0;
}

void WriteComments(std::string& out, const std::vector<std::string>& comments)
{
    for (const std::string& comment : comments)
        AppendLine(out, comment);
}

/// Comments and rows; `ahead` is a line of the block's own in front of its rows, if it is not empty.
void WriteTableRows(std::string& out, const SectionLayout& layout, const TableBlock& table, WriteTrace* trace,
                    std::string_view ahead = {})
{
    const auto writeRow = [&](std::size_t row) {
        if (trace != nullptr)
            trace->rows.push_back({out.size(), layout.block, static_cast<int>(row)});
        WriteRow(out, layout, table, row);
    };
    if (layout.rule == RowRule::CommentByInputMethod)
        AppendLine(out, layout.comments[InputMethodComment(table)]);
    else
        WriteComments(out, layout.comments);
    if (!ahead.empty())
        AppendLine(out, ahead);
    const std::size_t rows = table.RowCount();
    const bool firstApart = layout.rule == RowRule::FirstRowApart || layout.rule == RowRule::ControlRowFirst;
    if (firstApart && rows > 0)
        writeRow(0);
    WriteComments(out, layout.rowComments);
    for (std::size_t row = firstApart ? 1 : 0; row < rows; ++row)
        writeRow(row);
}

/// Block 259 without its marks; a row that is left out has none.
void WriteCamber(std::string& out, const SectionLayout& layout, const TableBlock& table, WriteTrace* trace)
{
    std::vector<int> from;
    const std::size_t first = trace != nullptr ? trace->rows.size() : 0;
    WriteTableRows(out, layout, CleanedCamber(table, &from), trace);
    if (trace == nullptr)
        return;
    for (std::size_t i = first; i < trace->rows.size(); ++i)
        trace->rows[i].row = from[static_cast<std::size_t>(trace->rows[i].row)];
}

/// 702 counts as having rows if one of its lists holds a name.
std::size_t NamesOf(const NameLists& names)
{
    std::size_t count = 0;
    for (const std::vector<std::string>& list : names.lists)
        count += list.size();
    return count;
}

void WriteSection(std::string& out, const SectionLayout& layout, const CSbdData& data, WriteTrace* trace)
{
    const NameLists* names = data.Names(layout.block);
    const std::size_t rows = names != nullptr ? NamesOf(*names) : data.RowCount(layout.block);
    if (rows < static_cast<std::size_t>(layout.leastRows))
        return;
    const std::size_t begin = out.size();
    AppendLine(out, layout.header);
    if (layout.block == 315) {
        const bool known = data.versionWord.starts_with("NEW_VERSION_");
        WriteTableRows(out, layout, *data.Table(315), trace,
                       known ? std::string_view(data.versionWord) : std::string_view());
    } else if (layout.block == 259) {
        WriteCamber(out, layout, *data.Table(259), trace);
    } else if (layout.block == 311) {
        WriteHGirder(out, data, trace);
    } else if (layout.block == 324) {
        WriteCrossRibs(out, data, trace);
    } else if (layout.block == 325) {
        WriteLRibs(out, data, trace);
    } else if (names != nullptr) {
        WriteNames(out, layout.block, data);
    } else {
        WriteTableRows(out, layout, *data.Table(layout.block), trace);
    }
    if (trace != nullptr)
        trace->sections.push_back({layout.block, begin, out.size()});
    AppendLine(out, layout.end);
    out.append(kLineEnd);
}

/// About as many bytes as the text will have, so that a large one need not move while it grows.
std::size_t ExpectedSize(const CSbdData& data)
{
    std::size_t size = 1U << 17; // option blocks, heads and comments
    for (const SectionLayout& layout : SectionLayouts()) {
        if (layout.formats.empty())
            continue;
        std::size_t width = kLineEnd.size();
        for (const RowField& field : layout.formats.back().fields)
            width += field.before.size() + std::max<std::size_t>(field.width, 4);
        size += width * data.RowCount(layout.block);
    }
    return size;
}

bool IsHeldBack(const std::vector<std::string>& control)
{
    return std::ranges::find(control, kPlaceholder) != control.end();
}

/// The values of block 301; of one that has lost them, those of `rebuilt`, which are put there.
const std::vector<std::string>& ControlValues(const CSbdData& data, std::vector<std::string>& rebuilt)
{
    if (!data.Options(301)->empty())
        return *data.Options(301);
    rebuilt = RebuiltControlValues();
    return rebuilt;
}

void WriteBlock(std::string& out, int block, const CSbdData& data, const std::vector<std::string>& control,
                WriteTrace* trace)
{
    const OptionBlock* options = FindOptionBlock(block);
    if (options == nullptr)
        return WriteSection(out, *FindSectionLayout(block), data, trace);
    if (block == 301 && IsHeldBack(control))
        return;
    const std::size_t begin = out.size();
    WriteOptions(out, *options, block == 301 ? control : *data.Options(block));
    if (trace != nullptr)
        trace->sections.push_back({block, begin, out.size() - options->end.size() - 2 * kLineEnd.size()});
}

std::string WriteAll(const CSbdData& data, WriteReport* report, WriteTrace* trace)
{
    std::string out;
    out.reserve(ExpectedSize(data));
    std::vector<std::string> rebuilt;
    const std::vector<std::string>& control = ControlValues(data, rebuilt);
    const bool heldBack = IsHeldBack(control);
    if (report != nullptr)
        report->controlBlockHeldBack = heldBack;
    if (!heldBack)
        AppendLine(out, "TITLE:" + control[0]);
    for (const int block : SectionOrder())
        WriteBlock(out, block, data, control, trace);
    for (const std::string& line : data.unknownLines)
        AppendLine(out, line);
    return out;
}

} // namespace

std::string WriteProject(const CSbdData& data, WriteReport* report)
{
    return WriteAll(data, report, nullptr);
}

std::string WriteProject(const CSbdData& data, WriteTrace& trace)
{
    return WriteAll(data, nullptr, &trace);
}

std::string WriteBlocks(const CSbdData& data, std::span<const int> blocks, WriteTrace& trace)
{
    std::string out;
    std::vector<std::string> rebuilt;
    const std::vector<std::string>& control = ControlValues(data, rebuilt);
    const auto isWanted = [&](int block) { return std::ranges::binary_search(blocks, block); };
    if (isWanted(301) && !IsHeldBack(control))
        AppendLine(out, "TITLE:" + control[0]);
    for (const int block : SectionOrder())
        if (isWanted(block))
            WriteBlock(out, block, data, control, &trace);
    return out;
}

} // namespace sbd
