#include "project/option_rows.h"

#include "project/option_rows_table.h"
#include "project/text.h"

#include <algorithm>

namespace sbd {

namespace {

OptionRow MakeRow(const RawOptionRow& raw, OptionShape shape)
{
    OptionRow row;
    row.keyword = Cp932(raw.keyword);
    row.shortKey = raw.shortKey.empty() ? row.keyword : Cp932(raw.shortKey);
    row.defaultValue = Cp932(raw.defaultValue);
    row.label = Cp932(raw.label);
    row.panelLabel = !raw.panelLabel.empty()              ? Cp932(raw.panelLabel)
                     : shape == OptionShape::KeywordValue ? row.keyword
                                                          : row.label;
    return row;
}

OptionBlock MakeBlock(const RawOptionBlock& raw)
{
    OptionBlock block{raw.block,      Cp932(raw.header), Cp932(raw.comment),
                      Cp932(raw.end), raw.shape,         raw.keywordWidth,
                      raw.labelWidth, raw.valueWidth,    {}};
    for (const RawOptionRow& row : raw.rows)
        block.rows.push_back(MakeRow(row, raw.shape));
    return block;
}

} // namespace

std::span<const OptionBlock> OptionBlocks()
{
    static const std::vector<OptionBlock> blocks = [] {
        std::vector<OptionBlock> result;
        for (const RawOptionBlock& raw : RawOptionBlocks())
            result.push_back(MakeBlock(raw));
        return result;
    }();
    return blocks;
}

int OptionBlockIndex(int block)
{
    const std::span<const OptionBlock> blocks = OptionBlocks();
    const auto found = std::ranges::lower_bound(blocks, block, {}, &OptionBlock::block);
    return found != blocks.end() && found->block == block ? static_cast<int>(found - blocks.begin()) : -1;
}

const OptionBlock* FindOptionBlock(int block)
{
    const int index = OptionBlockIndex(block);
    return index < 0 ? nullptr : &OptionBlocks()[static_cast<std::size_t>(index)];
}

} // namespace sbd
