// How the section of a table block stands in the project file.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// What decides the format of a row and the place of the comment lines.
enum class RowRule {
    ShortestThatHolds,    ///< the first format behind whose fields all columns are empty, else the last one
    FirstRowApart,        ///< row 0 by the first format, then the further comments, all other rows by the last format
    ControlRowFirst,      ///< first comment, row 0, the further comments, all other rows; one format
    CommentByInputMethod, ///< one of two comments, by the value of the head row 入力方法
    RecordsOfTheirOwn,    ///< no columns: written by the block's own writer
};

/// One field of a row: text in front of it, least width in bytes, and the side on which the text stands.
struct RowField {
    std::string before;
    std::size_t width = 0;
    bool left = false;
};

/// A row format: fields for the columns from 0 on, and the text behind the last.
struct RowFormat {
    std::vector<RowField> fields;
    std::string behind;
};

/// The layout of one section. Bytes in CP932.
struct SectionLayout {
    int block = 0;
    int leastRows = 0; ///< with fewer rows the section is not written; 0: always written
    bool cutTrailingBlanks = true;
    RowRule rule = RowRule::ShortestThatHolds;
    std::string header;
    std::vector<std::string> comments;
    std::vector<std::string> rowComments; ///< behind row 0
    std::vector<RowFormat> formats;       ///< by number of fields, the shortest first
    std::string end;
};

/// The sections of table blocks.
[[nodiscard]] std::span<const SectionLayout> SectionLayouts();
/// The layout of a table block; null if it has none.
[[nodiscard]] const SectionLayout* FindSectionLayout(int block);

} // namespace sbd
