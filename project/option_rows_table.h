// Private to the option rows: the tables in UTF-8.
#pragma once

#include "project/option_rows.h"

namespace sbd {

struct RawOptionRow {
    std::string_view keyword;
    std::string_view shortKey;
    std::string_view defaultValue;
    std::string_view label;
    std::string_view panelLabel;
};

struct RawOptionBlock {
    int block;
    std::string_view header;
    std::string_view comment;
    std::string_view end;
    OptionShape shape;
    int keywordWidth;
    int labelWidth;
    int valueWidth;
    std::span<const RawOptionRow> rows;
};

[[nodiscard]] std::span<const RawOptionBlock> RawOptionBlocks();

} // namespace sbd
