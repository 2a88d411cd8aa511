// The rows of the option blocks: data of the program.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// One row of an option block. Bytes in CP932.
struct OptionRow {
    std::string keyword;      ///< as written to the file
    std::string shortKey;     ///< the reader finds the row by a word that begins with it
    std::string defaultValue; ///< value of a new document
    std::string label;        ///< middle of the file's line; empty in blocks of keyword and value
    std::string panelLabel;   ///< label column of the panel
};

/// How the rows of a block stand in the file.
enum class OptionShape {
    KeywordLabelValue,
    KeywordValue,
};

/// One option block. Bytes in CP932.
struct OptionBlock {
    int block;
    std::string header;
    std::string comment; ///< the line that names the columns
    std::string end;
    OptionShape shape;
    int keywordWidth; ///< bytes, left-aligned behind two blanks
    int labelWidth;   ///< bytes, left-aligned; 0 without label
    int valueWidth;   ///< bytes, least width of the value, right-aligned (a value of 1 byte is as long)
    std::vector<OptionRow> rows;
};

/// All 19 option blocks in order of number.
[[nodiscard]] std::span<const OptionBlock> OptionBlocks();
/// The option block of a number; null if it is none.
[[nodiscard]] const OptionBlock* FindOptionBlock(int block);
/// Place of an option block in OptionBlocks(); -1 if it is none.
[[nodiscard]] int OptionBlockIndex(int block);

} // namespace sbd
