#include "drawing/bridge_drawing.h"

#include "project/text.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <tuple>
#include <utility>

namespace sbd {

namespace {

constexpr double kFarthest = 1e8; // mm; what lies beyond is no bridge

bool IsNear(const DrawnPoint& point)
{
    return std::abs(point.x) < kFarthest && std::abs(point.y) < kFarthest; // false for what is no number
}

} // namespace

const RowUse* BridgeDrawing::UseOf(int block, int row) const
{
    const auto found =
        std::ranges::find_if(rows, [&](const RowUse& use) { return use.row.block == block && use.row.row == row; });
    return found == rows.end() ? nullptr : &*found;
}

void CDrawingBuild::Shape(DrawingLayer layer, ShapeKind kind, std::vector<DrawnPoint> points, SourceCell source,
                          bool open)
{
    if (drawing.shapes.size() >= kMostShapes) {
        full_ = true;
        return;
    }
    if (!std::ranges::all_of(points, IsNear)) {
        Omit(source, "位置が遠すぎるため，図にできません．数値の単位を確認してください．");
        return;
    }
    drawing.shapes.push_back({layer, kind, std::move(points), 0, source, open});
}

void CDrawingBuild::Circle(DrawingLayer layer, DrawnPoint centre, double radius, SourceCell source)
{
    const std::size_t before = drawing.shapes.size();
    Shape(layer, ShapeKind::Circle, {centre}, source);
    if (drawing.shapes.size() > before)
        drawing.shapes.back().radius = radius;
}

void CDrawingBuild::Label(DrawnPoint at, std::string text, LabelRow place, SourceCell source)
{
    if (drawing.labels.size() < kMostShapes && IsNear(at))
        drawing.labels.push_back({at, std::move(text), place, source});
}

void CDrawingBuild::Omit(SourceCell place, std::string_view reason, std::string_view name, OmissionKind kind)
{
    if (drawing.omissions.size() >= kMostOmissions) {
        omitsMore_ = true;
        return;
    }
    std::string text;
    if (!name.empty())
        text = Cp932("「") + std::string(name) + Cp932("」");
    text += Cp932(reason);
    drawing.omissions.push_back({place, std::move(text), kind});
}

void CDrawingBuild::Note(std::string_view utf8)
{
    std::string text = Cp932(utf8);
    if (std::ranges::find(drawing.notes, text) == drawing.notes.end())
        drawing.notes.push_back(std::move(text));
}

void CDrawingBuild::Use(SourceCell row, std::vector<DrawnPoint> area, bool covered)
{
    row.column = 0;
    if (std::ranges::all_of(area, IsNear))
        drawing.rows.push_back({row, std::move(area), covered});
}

BridgeDrawing CDrawingBuild::Take()
{
    // A row that speaks of two plates is covered only if it is on both.
    std::map<std::pair<int, int>, std::size_t> uses;
    std::vector<RowUse> rows;
    for (RowUse& use : drawing.rows) {
        const auto [found, isNew] = uses.try_emplace({use.row.block, use.row.row}, rows.size());
        if (isNew)
            rows.push_back(std::move(use));
        else
            rows[found->second].covered = rows[found->second].covered && use.covered;
    }
    drawing.rows = std::move(rows);
    std::set<std::tuple<int, int, int, std::string>> told; // many parts of one row fail for one reason
    std::erase_if(drawing.omissions, [&](const Omission& each) {
        return !told.emplace(each.place.block, each.place.row, each.place.column, each.reason).second;
    });
    if (full_)
        Note("部品が多すぎるため，図は途中までです．");
    if (omitsMore_)
        Note("図にできない行が多すぎるため，一覧は途中までです．");
    return std::move(drawing);
}

std::string LengthText(double millimetres)
{
    std::string text;
    const double whole = std::round(millimetres);
    constexpr double least = 0.05; // less than the last decimal shows
    AppendFixed(text, millimetres, 0, std::abs(millimetres - whole) < least ? 0 : 1);
    return text == "-0" ? "0" : text;
}

} // namespace sbd
