// Measures taken from DXF files of the examples against the cells that they come from.
#include "drawing/bridge_plan.h"
#include "drawing/cross_section.h"
#include "drawing/drawing_views.h"
#include "drawing/dxf_writer.h"
#include "drawing/girder_elevation.h"
#include "tests/drawing/dxf_reader.h"
#include "tests/drawing/sample_bridges.h"

#include <cmath>
#include <map>
#include <tuple>

namespace sbd {

namespace {

constexpr double kNear = 0.05; // mm

enum class View { Elevation, Section, Plan, Joint, Sheet };
constexpr const char* kViewNames[] = {"elevation", "section", "plan", "joint", "sheet"};

/// What is measured of an entity, or between it and another one of its layer.
enum class Measure { Width, Height, Left, Middle, Top, Foot, Radius, ApartX, ApartY };
constexpr const char* kMeasureNames[] = {"width", "height", "left",  "middle",      "top",
                                         "foot",  "radius", "apart", "apart upward"};

/// A measure is `factor` times the cell's number, and `more`.
struct MeasureRow {
    const char* example;
    View view;
    std::size_t item; ///< girder, cross line or joint
    int block;
    int row;
    int column;
    const char* layer;
    std::size_t entity; ///< number among those of the layer
    Measure measure;
    double factor = 1;
    double more = 0;
    std::size_t other = 0; ///< entity, of a distance
};

constexpr MeasureRow kMeasures[] = {
    // Plates of the sections, stiffeners, depths.
    {"plate4", View::Elevation, 0, 332, 2, 8, "フランジ", 0, Measure::Height},
    {"plate4", View::Elevation, 0, 332, 3, 8, "フランジ", 1, Measure::Height},
    {"plate4", View::Elevation, 0, 332, 4, 8, "フランジ", 2, Measure::Height},
    {"plate4", View::Elevation, 0, 332, 5, 8, "フランジ", 3, Measure::Height},
    {"plate4", View::Elevation, 0, 313, 2, 7, "垂直補剛材", 0, Measure::Width},
    {"plate4", View::Elevation, 0, 313, 3, 7, "垂直補剛材", 3, Measure::Width},
    {"plate4", View::Elevation, 0, 314, 2, 7, "支点上補剛材", 0, Measure::Width},
    {"plate4", View::Elevation, 0, 314, 3, 7, "支点上補剛材", 1, Measure::Width},
    {"plate4", View::Elevation, 2, 332, 6, 8, "フランジ", 4, Measure::Height},
    {"plate4", View::Elevation, 0, 311, 5, 5, "主桁", 0, Measure::Height, 1000},
    {"box2", View::Elevation, 0, 311, 5, 5, "主桁", 0, Measure::Height, 1000},
    {"box2", View::Elevation, 0, 313, 2, 7, "垂直補剛材", 0, Measure::Width},
    {"box2", View::Elevation, 0, 314, 3, 7, "支点上補剛材", 1, Measure::Width},
    {"box2", View::Elevation, 0, 322, 3, 5, "断面変化", 0, Measure::Middle, 1000},
    {"box2", View::Elevation, 0, 322, 4, 5, "断面変化", 1, Measure::ApartX, 1000, 0, 0},
    {"box2", View::Elevation, 0, 404, 1, 3, "ウェブ", 0, Measure::Left, -1},
    {"single1", View::Elevation, 0, 321, 3, 5, "継手", 0, Measure::Middle, 1000},
    {"single1", View::Elevation, 0, 321, 4, 5, "継手", 1, Measure::ApartX, 1000, 0, 0},
    {"single1", View::Elevation, 0, 313, 2, 9, "垂直補剛材", 0, Measure::Middle, 1000},
    {"single1", View::Elevation, 0, 311, 5, 6, "主桁", 7, Measure::Height, 1000}, // at its end
    // Cross beams, girders and the deck of a section.
    {"plate4", View::Section, 3, 532, 2, 6, "横桁", 0, Measure::Top, -1},
    {"plate4", View::Section, 3, 532, 2, 7, "横桁", 0, Measure::Foot, 1, -2200},
    {"plate4", View::Section, 3, 533, 6, 6, "フランジ", 0, Measure::Height},
    {"plate4", View::Section, 3, 533, 6, 8, "フランジ", 1, Measure::Height},
    {"plate4", View::Section, 3, 332, 4, 7, "フランジ", 6, Measure::Width},
    {"plate4", View::Section, 3, 332, 4, 8, "フランジ", 6, Measure::Height},
    {"plate4", View::Section, 3, 332, 5, 7, "フランジ", 7, Measure::Width},
    {"plate4", View::Section, 3, 332, 5, 8, "フランジ", 7, Measure::Height},
    {"plate4", View::Section, 3, 331, 3, 7, "ウェブ", 0, Measure::Width},
    {"plate4", View::Section, 3, 312, 1, 8, "床版", 0, Measure::Height, 1000},
    {"plate4", View::Section, 3, 312, 1, 9, "床版", 0, Measure::Foot, 1000},
    {"plate4", View::Section, 3, 312, 1, 6, "舗装", 0, Measure::Height, 1000},
    {"plate4", View::Section, 1, 542, 2, 6, "対傾構", 0, Measure::Top, -1},
    {"plate4", View::Section, 1, 542, 2, 7, "対傾構", 1, Measure::Foot, 1, -2200},
    {"box2", View::Section, 11, 333, 2, 6, "フランジ", 2, Measure::Width, 2, 2200},
    {"box2", View::Section, 11, 326, 2, 6, "縦リブ", 0, Measure::Height},
    {"box2", View::Section, 11, 326, 2, 8, "縦リブ", 0, Measure::Width},
    // Places of girders and widths of beams of a plan.
    {"plate4", View::Plan, 0, 504, 22, 3, "主桁", 0, Measure::Width, 1000},
    {"plate4", View::Plan, 0, 504, 2, 4, "主桁", 0, Measure::ApartY, 2000, 0, 3},
    {"plate4", View::Plan, 0, 533, 2, 5, "フランジ", 0, Measure::Width},
    {"plate4", View::Plan, 0, 533, 6, 5, "フランジ", 3, Measure::Width},
    // Plates and bolts of a joint.
    {"plate4", View::Joint, 0, 342, 4, 8, "添接板", 0, Measure::Width},
    {"plate4", View::Joint, 0, 342, 4, 10, "添接板", 0, Measure::Height},
    {"plate4", View::Joint, 0, 342, 2, 10, "添接板", 1, Measure::Width},
    {"plate4", View::Joint, 0, 342, 2, 8, "添接板", 1, Measure::Height},
    {"plate4", View::Joint, 0, 342, 3, 10, "添接板", 2, Measure::Width},
    {"plate4", View::Joint, 0, 342, 3, 8, "添接板", 2, Measure::Height},
    {"plate4", View::Joint, 0, 341, 4, 6, "ボルト", 0, Measure::Radius, 0.5},
    {"plate4", View::Joint, 0, 344, 2, 10, "ボルト", 1, Measure::ApartX, 1, 0, 0},
    {"plate4", View::Joint, 0, 344, 2, 11, "ボルト", 2, Measure::ApartX, 1, 0, 0},
    {"plate4", View::Joint, 0, 344, 2, 7, "ボルト", 4, Measure::ApartY, 1, 0, 0},
    {"plate4", View::Joint, 0, 344, 2, 10, "ボルト", 0, Measure::Middle, -0.5},
    {"plate4", View::Joint, 0, 332, 2, 7, "ウェブ", 1, Measure::Height},
    {"box2", View::Joint, 0, 342, 3, 8, "添接板", 0, Measure::Width},
    {"box2", View::Joint, 0, 342, 3, 10, "添接板", 0, Measure::Height},
    {"box2", View::Joint, 0, 333, 2, 6, "ウェブ", 1, Measure::Height, 2, 2199.8},
    // The same in the file of a sheet, where plan and elevation stand ahead of the section.
    {"plate4", View::Sheet, 3, 504, 22, 3, "主桁", 0, Measure::Width, 1000},
    {"plate4", View::Sheet, 3, 332, 2, 8, "フランジ", 7 * 3, Measure::Height},
    {"plate4", View::Sheet, 3, 314, 3, 7, "支点上補剛材", 1, Measure::Width},
    {"plate4", View::Sheet, 3, 312, 1, 8, "床版", 0, Measure::Height, 1000},
    {"box2", View::Sheet, 11, 326, 2, 6, "縦リブ", 0, Measure::Height},
    {"single1", View::Sheet, 0, 321, 4, 5, "継手", 3, Measure::ApartX, 1000, 0, 2},
};

/// The number of a cell: the first one in it, behind a letter as in "M22(S10T)".
double NumberOf(const CSbdData& data, const MeasureRow& row)
{
    constexpr int heights = 311; // its rows stand behind four of types and have four names
    if (row.block == heights)
        return data.hGirder.records.at(static_cast<std::size_t>(row.row - 5))
            .numbers.at(static_cast<std::size_t>(row.column - 5));
    const TableBlock* table = data.Table(row.block);
    std::string text(
        table->columns.at(static_cast<std::size_t>(row.column - 1))[static_cast<std::size_t>(row.row - 1)]);
    if (!text.empty() && text.front() == 'M')
        text.erase(0, 1);
    char* end = nullptr;
    const double number = std::strtod(text.c_str(), &end);
    EXPECT_NE(end, text.c_str()) << "no number in the cell: " << FromCp932(text);
    return number;
}

std::string FileOf(const SampleBridge& bridge, View view, std::size_t item)
{
    constexpr double scale = 100;
    if (view == View::Sheet) {
        const BridgeDrawing plan = BridgePlan(bridge.data, bridge.results);
        const BridgeDrawing elevation = GirderElevation(bridge.data, bridge.results, {});
        const BridgeDrawing section = CrossSection(bridge.data, bridge.results, item);
        return DxfOfRows({{&plan}, {&elevation}, {&section}}, scale);
    }
    DrawingRequest request;
    request.view = view == View::Elevation ? DrawingView::Elevation
                   : view == View::Section ? DrawingView::Section
                   : view == View::Plan    ? DrawingView::Plan
                                           : DrawingView::Joint;
    if (view == View::Elevation)
        request.girder = item;
    if (view == View::Section)
        request.station = item;
    if (view == View::Joint)
        request.joint = item;
    return DxfOf(MakeDrawing(bridge.data, bridge.results, request), scale);
}

struct Box {
    double left = 0;
    double right = 0;
    double foot = 0;
    double top = 0;
};

Box BoxOf(const Entity& entity)
{
    Box box{1e12, -1e12, 1e12, -1e12};
    for (const DrawnPoint& point : entity.points)
        box = {std::min(box.left, point.x), std::max(box.right, point.x), std::min(box.foot, point.y),
               std::max(box.top, point.y)};
    return box;
}

double Taken(const MeasureRow& row, const Entity& entity, const Entity& other)
{
    const Box box = BoxOf(entity);
    const Box otherBox = BoxOf(other);
    switch (row.measure) {
    case Measure::Width:
        return box.right - box.left;
    case Measure::Height:
        return box.top - box.foot;
    case Measure::Left:
        return box.left;
    case Measure::Middle:
        return (box.left + box.right) / 2;
    case Measure::Top:
        return box.top;
    case Measure::Foot:
        return box.foot;
    case Measure::Radius:
        return entity.radius;
    case Measure::ApartX:
        return std::abs((box.left + box.right - otherBox.left - otherBox.right) / 2);
    case Measure::ApartY:
        break;
    }
    return std::abs((box.foot + box.top - otherBox.foot - otherBox.top) / 2);
}

} // namespace

TEST(DxfMeasures, EachIsThatOfItsCell)
{
    std::map<std::string, SampleBridge> bridges;
    std::map<std::tuple<std::string, View, std::size_t>, std::vector<Entity>> files;
    for (const MeasureRow& row : kMeasures) {
        if (!bridges.contains(row.example))
            bridges.emplace(row.example, ExampleBridge(row.example));
        const SampleBridge& bridge = bridges.at(row.example);
        const auto [file, isNew] = files.try_emplace({row.example, row.view, row.item});
        if (isNew)
            file->second = EntitiesOf(GroupsOf(FileOf(bridge, row.view, row.item)));
        std::vector<Entity> layer;
        for (const Entity& entity : file->second)
            if (FromCp932(entity.layer) == row.layer)
                layer.push_back(entity);
        const std::string told = std::string(row.example) + " " + kViewNames[static_cast<std::size_t>(row.view)] + ", "
                                 + std::to_string(row.block) + " row " + std::to_string(row.row) + " column "
                                 + std::to_string(row.column) + ", " + row.layer + " " + std::to_string(row.entity)
                                 + ", " + kMeasureNames[static_cast<std::size_t>(row.measure)];
        ASSERT_GT(layer.size(), std::max(row.entity, row.other)) << told;
        EXPECT_NEAR(Taken(row, layer[row.entity], layer[row.other]), NumberOf(bridge.data, row) * row.factor + row.more,
                    kNear)
            << told;
    }
    EXPECT_GE(std::size(kMeasures), 30U);
}

} // namespace sbd
