// A finding: one thing that an engineer should know of a project or its file.
#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

enum class FindingKind {
    // Of a file: what a load makes of it.
    UnterminatedSection,
    SwallowedHeader,
    StrayEnd,
    UnknownSection,
    SectionTwice,
    OptionTwice,
    TitleTwice,
    UnknownOptionRow,
    OptionWithoutValue,
    NamesBeyondCount,
    NamesWithoutHeading,
    TokensBeyondRow,
    LineTooManyCells,
    LineOutside,
    NotAProject,
    ForeignEncoding,
    Shift,
    Form,
    Repair,
    // Of a project in memory.
    ReturnsDifferent, ///< a cell would come back from the file with another text
    UnknownName,      ///< a girder, beam or line that the project has not
    NotANumber,       ///< text where the column holds a number
    NotInList,        ///< a word that is none of a closed list
    RangeReversed,    ///< a range ends before it starts
    RowCovered,       ///< a later row rules all that the row says
    NeededBlockEmpty, ///< a block that the project's type needs holds nothing
    BlocksDisagree,   ///< two blocks say the same thing differently
    NotDrawable,      ///< the drawing of the bridge leaves out what the cell says
};

/// How much a finding weighs: 1 a loss or a misreading, 2 a doubt at a cell or a row, 3 a doubt at a block.
enum class Severity { Loss = 1, Doubt = 2, Hint = 3 };

/// What holds for all findings of a kind.
struct FindingRule {
    FindingKind kind;
    std::string_view word; ///< its name in JSON
    Severity severity;
    bool harmless; ///< of a file: nothing is lost or read as something else
};

[[nodiscard]] std::span<const FindingRule> FindingRules();
[[nodiscard]] const FindingRule& RuleOf(FindingKind kind);

/// One finding. Rows and columns are those of the block's panel, from 1; 0: none.
struct Finding {
    FindingKind kind = FindingKind::Form;
    std::size_t line = 0; ///< of the file, from 1; 0: none
    int block = 0;        ///< 0: none
    int row = 0;
    int column = 0;
    std::string text;    ///< a sentence in Japanese, UTF-8: what stands there, what becomes of it, what to do
    std::string is;      ///< CP932: the text of the cell
    std::string returns; ///< CP932: the text that comes back
    friend bool operator==(const Finding&, const Finding&) = default;
};

/// True for a finding that costs nothing: the form, a repair, a section that is unknown but for its name.
[[nodiscard]] bool IsHarmless(const Finding& finding);

/// Findings up to a bound: what a file of nothing but faults gives stays readable.
inline constexpr std::size_t kMostFindings = 10000;
struct FindingList {
    std::vector<Finding> list;
    std::size_t more = 0; ///< found, but not in the list
    bool anyLoss = false; ///< one of all that were found is a loss or a misreading

    void Add(Finding finding);
};

} // namespace sbd
