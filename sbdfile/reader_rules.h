// The rows that a table block has ahead of its data rows, as the reader finds or adds them.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// A control row: how it is known, and the one that is put in where the file has none. Bytes in CP932.
struct ControlRowRule {
    std::vector<std::string> words; ///< beginnings of the first word by which the row is known
    std::vector<std::string> cells; ///< the row that is put in ahead of the first row
};

/// A key of a head row: the first word begins with it, or is it.
struct HeadKey {
    std::string text;
    bool whole = false;
};

/// A head row: its keys, and word and value where the file has none.
struct HeadRow {
    std::vector<HeadKey> keys;
    std::string word;
    std::string value;
};

/// The control row of a block; null for blocks without one.
[[nodiscard]] const ControlRowRule* ControlRowOf(int block);

/// The head rows of a block, in their order; none for most blocks.
[[nodiscard]] std::span<const HeadRow> HeadRowsOf(int block);

/// Place of the head row whose key the word meets, whole keys first; -1: none.
[[nodiscard]] int FindHeadRow(std::span<const HeadRow> rows, std::string_view word);

/// The heading words of the name blocks 501 and 702, one a list.
[[nodiscard]] std::span<const std::string> NameHeadings(int block);

} // namespace sbd
