// What the panels show of a block before any data: heads, widths, heights, word lists.
#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

class CSbdData;

/// A word list as the tables give it: words, and the marks "@girders" and "@beams" for the name lists. CP932.
using WordList = std::vector<std::string>;

/// One grid column of a table panel. Texts in CP932, a line break is "\n".
struct PanelColumn {
    int width = 0; ///< pixels at row width mode 0
    std::string head;
    std::string sectionHead; ///< head when the project's type begins with "断面"; empty: no second set in this block
    std::string name;        ///< column name in the file; empty where the file's rows have several forms
    WordList words;          ///< of the data rows; empty: free text
    int rightAlignedFromRow = 0; ///< grid row from which the cells are right-aligned; 0: never
};

/// The panel of a table block (640 and 670 included, not 311, 324, 325, 501, 702).
struct PanelTable {
    int block = 0;
    int headHeight = 30;   ///< pixels
    int automaticRows = 1; ///< rows at the top that are no data rows
    int usable = 3;        ///< columns usable in an automatic row, column 0 counted
    WordList fixedTexts;   ///< of row 1, from column 3 on
    bool hasSectionHeads = false;
    std::vector<PanelColumn> columns; ///< column 0 is the row number
};

/// The 198 table panels in order of number.
[[nodiscard]] std::span<const PanelTable> PanelTables();
/// The table panel of a canonical block; null if it has none.
[[nodiscard]] const PanelTable* FindPanelTable(int block);

/// The panel of an option block: three columns, widths by base and row width mode.
struct OptionPanel {
    int block = 0;
    std::array<std::string, 3> heads;
    int labelWidth = 0;          ///< base 1, pixels
    int valueWidth = 0;          ///< base 2, pixels
    int lowerLimit = 0;          ///< least row width mode for the value column
    std::vector<WordList> words; ///< one a row of the block; empty: free text
};

/// The 17 option panels with a class of their own in order of number (not 640, 670).
[[nodiscard]] std::span<const OptionPanel> OptionPanels();
[[nodiscard]] const OptionPanel* FindOptionPanel(int block);

/// The panels of 311, 324, 325, 501 and 702: heads and widths by column, column 0 included.
struct RecordPanel {
    int block = 0;
    int headHeight = 30;
    std::vector<std::string> heads;
    std::vector<std::string> sectionHeads; ///< empty: no second set
    std::vector<int> widths;
    std::vector<WordList> words; ///< by column, of the data rows
};
[[nodiscard]] std::span<const RecordPanel> RecordPanels();
[[nodiscard]] const RecordPanel* FindRecordPanel(int block);

/// True for a column that says what its row is of: it takes names of girders or cross beams, or is the start, the end
/// or the name of something, and no length.
[[nodiscard]] bool IsNameColumn(std::string_view head, const WordList& words);

/// Whose names of girders and cross beams a word list offers.
enum class ListNames {
    OfTheAnalysis, ///< those of the *.abd file alone
    OfTheProject,  ///< without these, those that the project itself gives (bridge_names.h)
};

/// The names that word lists offer. Those of the project are looked for once, when a list first asks for them.
class CListNames {
public:
    /// The data must outlive the names.
    CListNames(const CSbdData& data, ListNames names) : data_(data), names_(names) {}

    [[nodiscard]] ListNames Of() const { return names_; }
    [[nodiscard]] const std::vector<std::string>& Girders();
    [[nodiscard]] const std::vector<std::string>& Beams();

private:
    const CSbdData& data_;
    ListNames names_;
    std::optional<std::vector<std::string>> girders_;
    std::optional<std::vector<std::string>> beams_;
};

/// A word list with its name marks resolved.
[[nodiscard]] WordList ResolveWords(const WordList& words, CListNames& names);
[[nodiscard]] WordList ResolveWords(const WordList& words, const CSbdData& data,
                                    ListNames names = ListNames::OfTheAnalysis);

} // namespace sbd
