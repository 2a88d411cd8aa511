#include "sbdfile/layout.h"

#include "project/text.h"
#include "sbdfile/layout_table.h"

#include <map>

namespace sbd {

namespace {

/// Cuts a format of the form "  %-9s %9s" into its fields.
RowFormat ParseFormat(const std::string& format)
{
    RowFormat result;
    std::string text;
    for (std::size_t pos = 0; pos < format.size(); ++pos) {
        if (format[pos] != '%') {
            text.push_back(format[pos]);
            continue;
        }
        RowField field;
        field.before = std::move(text);
        text.clear();
        field.left = format[++pos] == '-';
        if (field.left)
            ++pos;
        while (format[pos] >= '0' && format[pos] <= '9')
            field.width = field.width * 10 + static_cast<std::size_t>(format[pos++] - '0');
        result.fields.push_back(std::move(field)); // format[pos] is the "s"
    }
    result.behind = std::move(text);
    return result;
}

std::vector<std::string> Lines(std::span<const std::string_view> raw)
{
    std::vector<std::string> lines;
    for (const std::string_view line : raw)
        lines.push_back(Cp932(line));
    return lines;
}

SectionLayout MakeLayout(const RawSectionLayout& raw)
{
    SectionLayout layout;
    layout.block = raw.block;
    layout.leastRows = raw.leastRows;
    layout.cutTrailingBlanks = raw.cutTrailingBlanks;
    layout.rule = raw.rule;
    layout.header = Cp932(raw.header);
    layout.comments = Lines(raw.comments);
    layout.rowComments = Lines(raw.rowComments);
    for (const std::string_view format : raw.formats)
        layout.formats.push_back(ParseFormat(Cp932(format)));
    layout.end = Cp932(raw.end);
    return layout;
}

} // namespace

std::span<const SectionLayout> SectionLayouts()
{
    static const std::vector<SectionLayout> layouts = [] {
        std::vector<SectionLayout> result;
        for (const RawSectionLayout& raw : RawSectionLayouts())
            result.push_back(MakeLayout(raw));
        return result;
    }();
    return layouts;
}

const SectionLayout* FindSectionLayout(int block)
{
    static const std::map<int, const SectionLayout*> byBlock = [] {
        std::map<int, const SectionLayout*> result;
        for (const SectionLayout& layout : SectionLayouts())
            result[layout.block] = &layout;
        return result;
    }();
    const auto found = byBlock.find(block);
    return found == byBlock.end() ? nullptr : found->second;
}

} // namespace sbd
