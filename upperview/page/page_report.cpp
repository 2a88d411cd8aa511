#include "upperview/page/page_report.h"

#include "project/option_rows.h"
#include "project/text.h"
#include "upperview/page/page_store.h"

#include <algorithm>
#include <set>

namespace sbd {

namespace {

/// A line passes through the inside of a box: the part of it within has a length.
bool Crosses(DrawPoint a, DrawPoint b, const DrawBox& box)
{
    double from = 0;
    double to = 1;
    const auto cut = [&](double start, double step, double low, double high) {
        if (step == 0) {
            if (start <= low || start >= high)
                to = -1;
            return;
        }
        const double t1 = (low - start) / step;
        const double t2 = (high - start) / step;
        from = std::max(from, std::min(t1, t2));
        to = std::min(to, std::max(t1, t2));
    };
    cut(a.x, b.x - a.x, box.left, box.right);
    cut(a.y, b.y - a.y, box.bottom, box.top);
    return from < to;
}

bool IsLabel(const Primitive& primitive)
{
    return primitive.kind == PrimitiveKind::Text && !primitive.text.empty();
}

} // namespace

PageReport ReportOf(int block)
{
    PageReport report;
    report.block = block;
    const Page* page = FindPage(block);
    if (page == nullptr)
        return report;
    report.full = page->full;
    report.branches = static_cast<int>(page->branches.size());
    std::set<int> columns;
    std::set<int> rows;
    std::set<std::string> sketches;
    for (const PageBranch& branch : page->branches) {
        report.lines += static_cast<int>(branch.lines.size());
        rows.insert(branch.rows.begin(), branch.rows.end());
        sketches.insert(branch.sketches.begin(), branch.sketches.end());
    }
    for (const std::string& name : sketches)
        if (const Sketch* sketch = FindSketch(*page, name))
            for (const SketchElement& element : sketch->elements)
                columns.insert(element.columns.begin(), element.columns.end());
    report.sketches = static_cast<int>(sketches.size());
    report.columns.assign(columns.begin(), columns.end());
    if (const OptionBlock* options = FindOptionBlock(block))
        for (int row = 1; row <= static_cast<int>(options->rows.size()); ++row)
            if (!rows.contains(row))
                report.rowsWithout.push_back(row);
    return report;
}

std::vector<std::string> LabelFaults(const CDrawRecorder& recorder, const PageExtent& extent, bool crossings)
{
    std::vector<std::string> faults;
    const std::vector<Primitive>& all = recorder.Primitives();
    const auto name = [](const Primitive& primitive) { return "\"" + FromCp932(primitive.text) + "\""; };
    for (std::size_t i = 0; i < all.size(); ++i) {
        if (!IsLabel(all[i]))
            continue;
        const DrawBox box = recorder.BoxOf(all[i]);
        if (box.left < 0 || box.top > 0 || box.right > extent.width || box.bottom < -extent.height)
            faults.push_back(name(all[i]) + " leaves the page");
        for (std::size_t k = i + 1; k < all.size(); ++k) {
            const bool itself = all[k].text == all[i].text && all[k].points == all[i].points;
            if (IsLabel(all[k]) && !itself && box.Overlaps(recorder.BoxOf(all[k])))
                faults.push_back(name(all[i]) + " overlaps " + name(all[k]));
        }
        const auto crosses = [&](const Primitive& line) {
            return line.kind == PrimitiveKind::Line && Crosses(line.points[0], line.points[1], box);
        };
        if (crossings && std::ranges::any_of(all, crosses))
            faults.push_back(name(all[i]) + " is crossed by a line");
    }
    return faults;
}

} // namespace sbd
