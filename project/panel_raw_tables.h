// Private to the panel tables: the tables as they are written, in UTF-8.
#pragma once

#include <span>
#include <string_view>

namespace sbd {

/// How the cells of a column's data rows stand.
enum RawAlign { kText, kNumber };

/// One grid column but for the row number. A word list is one text, see word_lists_table.h.
struct RawColumn {
    int width;
    std::string_view head;
    std::string_view name = {};
    std::string_view words = {};
    RawAlign align = kText;
    std::string_view sectionHead = {};
};

/// A table panel, or the panels of the blocks `block` to `last`, which share their columns.
struct RawPanel {
    int block;
    int last = 0;
    std::span<const RawColumn> columns = {};
    int headHeight = 30;
    int automaticRows = 1;
    int usable = 3;
    std::string_view fixedTexts = {}; ///< written like a word list
    int numberWidth = 35;             ///< of the row number column
};

/// The panel of a block of records or name lists.
struct RawRecordPanel {
    int block;
    std::string_view numberHead;
    std::span<const RawColumn> columns;
    int headHeight = 30;
};

/// Rows of an option block ("4-5, 7", counted from 1) and their word list.
struct RawRowWords {
    std::string_view rows;
    std::string_view words;
};

struct RawOptionPanel {
    int block;
    std::string_view labelHead;
    std::string_view valueHead;
    int labelWidth;
    int valueWidth;
    int lowerLimit;
    std::span<const RawRowWords> rowWords;
};

[[nodiscard]] std::span<const RawPanel> RawPanels();
[[nodiscard]] std::span<const RawRecordPanel> RawRecordPanels();
[[nodiscard]] std::span<const RawOptionPanel> RawOptionPanels();

} // namespace sbd
