// A help page as data.
#pragma once

#include "upperview/page/draw_context.h"
#include "upperview/page/page_value.h"

#include <map>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace sbd {

/// A line of text in pieces: constant text and quoted values in turn. CP932.
struct PageLine {
    std::vector<std::variant<std::string, PageOperand>> pieces;
    int column = 0; ///< grid column that it tells of: red when the cursor is there
    [[nodiscard]] std::string Text(const PageView& view) const;
    [[nodiscard]] bool Empty() const { return pieces.empty(); }
};

enum class ElementKind {
    Line,
    Path,
    Rect,
    Polygon,
    Circle,
    Dot,
    Bolts,
    Arc,
    Dimension,
    Arrow,
    BlockArrow,
    Text,
    Balloon,
};

/// Where a label stands: against its point, or for a dimension on which side of the line.
enum class LabelPlace {
    Default, ///< a text to the right of and below its point; a dimension's under or to the right of the line
    Centre,
    Left,
    Right,
    Above,
    Below,
};

/// One thing of a sketch. Coordinates in sketch units, y upward.
struct SketchElement {
    ElementKind kind = ElementKind::Line;
    std::vector<double> numbers; ///< as the kind needs them, see docs/add-a-help-page.md
    PageLine label;
    DrawPen pen;
    DrawBrush brush;
    LabelPlace place = LabelPlace::Default;
    DrawPoint offset;          ///< page units, added to the label
    bool arrows = true;        ///< of a dimension
    bool value = false;        ///< a dimension or text of one column shows the text of the current row's cell
    bool onlySelected = false; ///< drawn only in red
    std::vector<int> columns;  ///< grid columns that it explains
    std::vector<int> rows;     ///< grid rows that it explains
    PageCondition when;
};

struct Sketch {
    double width = 0;  ///< last x, sketch units
    double height = 0; ///< depth of the last y, sketch units
    double fx = 0.4;
    double fy = 0.4;
    int margin = 40; ///< least left margin, page units
    int gap = 100;   ///< below the text or the sketch above, page units
    PageCondition when;
    std::vector<SketchElement> elements;
};

/// The text of some rows of an option block, or of a table block under a condition.
struct PageBranch {
    std::vector<int> rows; ///< grid rows; empty: all
    PageCondition when;
    bool hasHeading = false;     ///< the heading of the current option row follows the title
    std::string heading;         ///< in place of the row's own
    std::vector<PageLine> lines; ///< behind title, blank and heading
    std::vector<int> redLines;   ///< by index on the page; the title has 0
    std::vector<int> blueLines;
    std::vector<std::string> sketches; ///< from top to bottom
};

/// A bound of a limit: a number of the page, or a value of the project.
using PageBound = std::variant<double, PageOperand>;

/// What the values of some columns of a table may be. Bounds that are empty or 0 do not count.
struct PageLimit {
    std::vector<int> columns;
    std::optional<PageBound> least;
    std::optional<PageBound> most;
    PageCondition when;
    std::string name;   ///< of what is limited, in place of the columns' names; CP932
    std::string source; ///< where the bounds stand; CP932
};

struct Page {
    std::string title;                ///< CP932; empty: that of the block
    int originX = 20;                 ///< left edge of the text, page units
    bool full = true;                 ///< false: made from the tables
    std::vector<PageBranch> branches; ///< the first that holds is shown
    std::map<std::string, Sketch> sketches;
    std::vector<PageLimit> limits;

    [[nodiscard]] const PageBranch* BranchOf(const PageView& view) const;
};

/// Title line of a block's page without a title of its own. CP932.
[[nodiscard]] std::string PageTitleText(int block);
/// "name (choices)  (初期値: default)" of a row (from 1) of an option block; empty if there is none. CP932.
[[nodiscard]] std::string OptionHeading(int block, int row);

} // namespace sbd
