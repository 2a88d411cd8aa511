// Slips of an engineer's finger, planted one by one into an example: each is seen in a drawing or told in its list. The
// same ones are drawn before and after by scripts/planted-mistakes.sh.
#include "drawing/drawing_views.h"
#include "tests/drawing/sample_bridges.h"

#include <cmath>
#include <map>
#include <tuple>

namespace sbd {

namespace {

enum class Seen {
    Picture, ///< parts, plates of the bands or dimensions are others
    List,    ///< a line of what cannot be drawn
};

struct Mistake {
    const char* name;
    int block;
    int row; ///< grid row and column, from 1
    int column;
    const char* text; ///< UTF-8
    DrawingView view;
    std::size_t station; ///< of a section
    Seen seen;
};

using enum DrawingView;

// S1 C1 .. C5 S2 C6 .. C12 S3 C13 .. C17 S4
const Mistake kMistakes[] = {
    {"depth of 18 m", 311, 0, 5, "18", Elevation, 0, Seen::Picture},
    {"splice 60 m behind its stiffener", 321, 3, 7, "60", Elevation, 0, Seen::List},
    {"splice at another cross beam", 321, 4, 5, "C4", Elevation, 0, Seen::Picture},
    {"splice at a stiffener that is not there", 321, 5, 6, "8", Elevation, 0, Seen::List},
    {"50 stiffeners in a bay", 313, 2, 8, "50", Elevation, 0, Seen::Picture},
    {"500 stiffeners in a bay", 313, 2, 8, "500", Elevation, 0, Seen::List},
    {"stiffeners from the wrong cross beam on", 313, 7, 3, "S1", Elevation, 0, Seen::Picture},
    {"stiffeners to an unknown cross beam", 313, 7, 4, "S22", Elevation, 0, Seen::List},
    {"flange of 160 mm", 332, 2, 8, "160", Elevation, 0, Seen::Picture},
    {"flange 50 mm wide", 332, 4, 7, "50", Elevation, 0, Seen::Picture},
    {"flange of an unknown section", 332, 6, 3, "SEC33", Elevation, 0, Seen::List},
    {"web of 100 mm", 331, 3, 7, "100", Elevation, 0, Seen::Picture},
    {"sections out of order", 322, 6, 5, "C4", Elevation, 0, Seen::List},
    {"bearing line at another cross beam", 307, 2, 3, "C6", Elevation, 0, Seen::Picture},
    {"horizontal stiffeners without their side", 315, 2, 7, "9", Elevation, 0, Seen::List},
    {"end of the girder in another unit", 404, 1, 3, "3500", Elevation, 0, Seen::Picture},
    {"end cross beam of no element", 523, 2, 5, "要素無し", Plan, 0, Seen::Picture},
    {"lateral with swapped cross lines", 573, 2, 3, "C1", Plan, 0, Seen::Picture},
    {"lateral to a girder further away", 573, 2, 2, "G4", Plan, 0, Seen::Picture},
    {"slab of 2.3 m", 312, 1, 8, "2.300", Section, 0, Seen::Picture},
    {"cross beam 1.5 m below the flange", 532, 2, 6, "1500", Section, 0, Seen::Picture},
    {"cross beam flange 2.6 m wide", 533, 2, 5, "2600", Plan, 0, Seen::Picture},
    {"sway bracing below itself", 542, 2, 7, "2700", Section, 1, Seen::List},
};

void Plant(CSbdData& data, const Mistake& mistake)
{
    if (mistake.block == 311) { // records of numbers
        data.hGirder.records.at(1).numbers[0] = std::atof(mistake.text);
        return;
    }
    TableBlock* table = data.Table(mistake.block);
    ASSERT_TRUE(table != nullptr && mistake.row <= static_cast<int>(table->RowCount())) << mistake.name;
    CColumnVector& column = table->columns.at(static_cast<std::size_t>(mistake.column) - 1);
    ASSERT_NE(column[static_cast<std::size_t>(mistake.row) - 1], Cp932(mistake.text)) << mistake.name;
    column.Set(static_cast<std::size_t>(mistake.row) - 1, Cp932(mistake.text));
}

struct Extent {
    double width = 0;
    double height = 0;
};

Extent ExtentOf(const BridgeDrawing& drawing)
{
    double left = 1e9;
    double right = -1e9;
    double low = 1e9;
    double high = -1e9;
    for (const DrawnShape& shape : drawing.shapes)
        for (const DrawnPoint& point : shape.points) {
            left = std::min(left, point.x);
            right = std::max(right, point.x);
            low = std::min(low, point.y);
            high = std::max(high, point.y);
        }
    return {right - left, high - low};
}

/// Parts by what they are and where they stand, to a hundredth of the drawing: less is not seen at a glance.
std::map<std::tuple<int, long, long, long, long>, int> PartsOf(const BridgeDrawing& drawing, const Extent& extent)
{
    std::map<std::tuple<int, long, long, long, long>, int> parts;
    for (const DrawnShape& shape : drawing.shapes) {
        double left = 1e9;
        double right = -1e9;
        double low = 1e9;
        double high = -1e9;
        for (const DrawnPoint& point : shape.points) {
            left = std::min(left, point.x);
            right = std::max(right, point.x);
            low = std::min(low, point.y);
            high = std::max(high, point.y);
        }
        const auto x = [&](double value) { return std::lround(value / extent.width * 100); };
        const auto y = [&](double value) { return std::lround(value / extent.height * 100); };
        ++parts[{static_cast<int>(shape.layer), x(left), x(right), y(low), y(high)}];
    }
    return parts;
}

/// The bands, where a plate differs by half from before or is not there.
bool BandsDiffer(const BridgeDrawing& before, const BridgeDrawing& after)
{
    if (before.bands.size() != after.bands.size())
        return true;
    for (std::size_t i = 0; i < before.bands.size(); ++i) {
        if (before.bands[i].parts.size() != after.bands[i].parts.size())
            return true;
        for (std::size_t k = 0; k < before.bands[i].parts.size(); ++k)
            if (const double ratio = before.bands[i].parts[k].thickFrom / after.bands[i].parts[k].thickFrom;
                ratio > 1.5 || ratio < 1 / 1.5)
                return true;
    }
    return false;
}

} // namespace

TEST(PlantedMistakes, EachIsSeenInThePictureOrToldInTheList)
{
    const SampleBridge bridge = ExampleBridge("plate4");
    for (const Mistake& mistake : kMistakes) {
        SCOPED_TRACE(mistake.name);
        DrawingRequest request;
        request.view = mistake.view;
        request.station = mistake.station;
        CSbdData planted = bridge.data;
        Plant(planted, mistake);
        const BridgeDrawing before = MakeDrawing(bridge.data, bridge.results, request);
        const BridgeDrawing after = MakeDrawing(planted, bridge.results, request);
        const Extent extent = ExtentOf(before);
        const bool inPicture = PartsOf(before, extent) != PartsOf(after, extent) || BandsDiffer(before, after);
        const bool inList = std::ranges::any_of(after.omissions, [&](const Omission& omission) {
            return omission.place.block == mistake.block && omission.place.row == mistake.row
                   && omission.place.column == mistake.column;
        });
        EXPECT_TRUE(mistake.seen == Seen::Picture ? inPicture : inList)
            << (inPicture ? "seen" : "not seen") << ", " << (inList ? "listed" : "not listed");
    }
}

} // namespace sbd
