// What a drawing of the bridge holds: shapes in true measure, the cells that they come from, and what could not be drawn.
#pragma once

#include <cstddef>
#include <string>
#include <vector>

namespace sbd {

/// A point of a drawing in mm; y grows upward.
struct DrawnPoint {
    double x = 0;
    double y = 0;
    friend bool operator==(const DrawnPoint&, const DrawnPoint&) = default;
};

/// A cell: its block, grid row and grid column, both from 1; 0 stands for the whole block or the whole row.
struct SourceCell {
    int block = 0;
    int row = 0;
    int column = 0;
    friend bool operator==(const SourceCell&, const SourceCell&) = default;
    [[nodiscard]] bool SameRow(const SourceCell& other) const { return block == other.block && row == other.row; }
};

/// The kind of a part; a layer of its own in files for other programs.
enum class DrawingLayer {
    Girder, ///< outline, axis
    CrossLine,
    Line,
    Web,
    Flange,
    VerticalStiffener,
    SupportStiffener,
    HorizontalStiffener,
    Splice,
    Section, ///< change of section
    Support,
    Break, ///< point where the line or the forces have a kink
    ManHole,
    Stud,
    Camber,
    CrossBeam,
    SwayBracing,
    LateralBracing,
    Slab,
    Pavement,
    Rib,
    SplicePlate,
    Bolt,
    Gusset,
};
inline constexpr std::size_t kDrawingLayers = static_cast<std::size_t>(DrawingLayer::Gusset) + 1;

enum class ShapeKind { Line, Polygon, Circle };

/// A part of the bridge. Line: two or more points; polygon: three or more; circle: its centre.
struct DrawnShape {
    DrawingLayer layer = DrawingLayer::Girder;
    ShapeKind kind = ShapeKind::Line;
    std::vector<DrawnPoint> points;
    double radius = 0;
    SourceCell source;
    bool open = false; ///< its true form is not told; drawn with a broken line
};

/// Where the text of a label stands: in a row above or below the drawing, around its point, behind or ahead of it.
enum class LabelRow { Above, FarAbove, AtPoint, Below, Behind, Ahead };

struct DrawnLabel {
    DrawnPoint at;
    std::string text; ///< CP932
    LabelRow place = LabelRow::AtPoint;
    SourceCell source;
};

/// A length along x, with its text (CP932).
struct ChainPart {
    double from = 0;
    double to = 0;
    std::string text;
    SourceCell source;
};
/// Dimensions side by side, one chain below the other.
struct DimensionChain {
    std::string title;
    std::vector<ChainPart> parts;
};

/// A plate along x; its thickness (or width) in mm at both ends.
struct BandPart {
    double from = 0;
    double to = 0;
    double thickFrom = 0;
    double thickTo = 0;
    std::string text;
    SourceCell source;
};
/// The thicknesses, or the widths, of one plate of a girder.
struct PlateBand {
    std::string title;
    std::vector<BandPart> parts;
    bool ofWidths = false;
};

/// A row that speaks of this drawing: the area of its range. `covered`: later rows win everywhere in it.
struct RowUse {
    SourceCell row;
    std::vector<DrawnPoint> area;
    bool covered = false;
};

/// Why something could not be drawn.
enum class OmissionKind {
    Input,  ///< a cell is missing, names something unknown, or is no such measure
    Length, ///< likewise, judged by the lengths of the bridge
    Limit,  ///< the input may well be right: its meaning is open, or drawings do not show such things
};

/// What could not be drawn, and why (CP932).
struct Omission {
    SourceCell place;
    std::string reason;
    OmissionKind kind = OmissionKind::Input;
};

struct BridgeDrawing {
    std::string title;
    std::vector<DrawnShape> shapes;
    std::vector<DrawnLabel> labels;
    std::vector<DimensionChain> chains;
    std::vector<PlateBand> bands;
    std::vector<RowUse> rows;
    std::vector<Omission> omissions;
    std::vector<std::string> notes;
    bool provisional = false; ///< lengths are not known; equal bays stand for them

    /// The use of a row; null if it does not speak of this drawing.
    [[nodiscard]] const RowUse* UseOf(int block, int row) const;
};

/// Bounds of a drawing, whatever the input says.
inline constexpr std::size_t kMostShapes = 200'000;
inline constexpr std::size_t kMostOmissions = 2'000;
inline constexpr std::size_t kMostGirders = 200;
inline constexpr std::size_t kMostStations = 4'000;
inline constexpr int kMostPerBay = 200; ///< stiffeners, ribs

/// A drawing while it is made; keeps the bounds.
class CDrawingBuild {
public:
    void Shape(DrawingLayer layer, ShapeKind kind, std::vector<DrawnPoint> points, SourceCell source,
               bool open = false);
    void Circle(DrawingLayer layer, DrawnPoint centre, double radius, SourceCell source);
    void Label(DrawnPoint at, std::string text, LabelRow place, SourceCell source);
    /// `reason` is UTF-8 and made of CP932 characters; `name` is CP932 and stands in front of it in brackets.
    void Omit(SourceCell place, std::string_view reason, std::string_view name = {},
              OmissionKind kind = OmissionKind::Input);
    void Note(std::string_view utf8);
    void Use(SourceCell row, std::vector<DrawnPoint> area, bool covered);

    [[nodiscard]] BridgeDrawing Take();

    BridgeDrawing drawing;

private:
    bool full_ = false;
    bool omitsMore_ = false;
};

/// A length in mm as drawings show it: one decimal, none where it is whole.
[[nodiscard]] std::string LengthText(double millimetres);

} // namespace sbd
