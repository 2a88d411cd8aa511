#include "drawing/dxf_writer.h"

#include "project/text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <span>
#include <vector>

namespace sbd {

namespace {

struct LayerKind {
    const char* name; // UTF-8
    int colour; // number of the colour table: 1 red, 2 yellow, 3 green, 4 cyan, 5 blue, 6 magenta, 7 black, 8 grey
    const char* lineType;
};

constexpr const char* kSolid = "Continuous";
constexpr const char* kCentre = "CENTER";
constexpr const char* kHidden = "HIDDEN";

constexpr LayerKind kLayers[] = {
    {"主桁", 7, kSolid},       {"横断線", 8, kCentre},    {"ライン", 8, kSolid},       {"ウェブ", 7, kSolid},
    {"フランジ", 5, kSolid},   {"垂直補剛材", 7, kSolid}, {"支点上補剛材", 5, kSolid}, {"水平補剛材", 3, kSolid},
    {"継手", 6, kSolid},       {"断面変化", 8, kHidden},  {"支点", 7, kSolid},         {"不連続点", 5, kSolid},
    {"マンホール", 7, kSolid}, {"ずれ止め", 8, kSolid},   {"キャンバー", 4, kSolid},   {"横桁", 7, kSolid},
    {"対傾構", 3, kSolid},     {"下横構", 5, kSolid},     {"床版", 8, kSolid},         {"舗装", 8, kSolid},
    {"縦リブ", 7, kSolid},     {"添接板", 4, kSolid},     {"ボルト", 3, kSolid},       {"ガセット", 4, kSolid},
};
static_assert(std::size(kLayers) == kDrawingLayers);
constexpr const char* kDimensions = "寸法";
constexpr const char* kTexts = "文字";

/// LibreCAD takes the name of a style for that of one of its own fonts, and this one has Japanese characters; other
/// programs take the font that the style tells.
constexpr const char* kStyle = "kst32b";
constexpr const char* kFont = "msgothic.ttc";

constexpr double kTextHeight = 2.5; // mm of paper
constexpr double kChainStep = 9;
constexpr double kRowStep = 4;

/// Writes pairs of a group code and a value, each on a line of its own.
class DxfText {
public:
    void Pair(int code, std::string_view value)
    {
        out_ += std::to_string(code);
        out_ += "\r\n";
        for (const char c : value)
            if (static_cast<unsigned char>(c) >= ' ') // a line end would break the file
                out_ += c;
        out_ += "\r\n";
    }
    void Pair(int code, int value) { Pair(code, std::to_string(value)); }
    void Number(int code, double value)
    {
        std::string text;
        constexpr int decimals = 6;
        AppendFixed(text, value, 0, decimals);
        Pair(code, text);
    }
    /// A handle of its own, in the group that holds it; gives it.
    std::string Handle(int code = 5)
    {
        std::array<char, 16> text{};
        const auto end = std::to_chars(text.data(), text.data() + text.size(), ++handle_, 16).ptr;
        std::string handle(text.data(), end);
        std::ranges::transform(handle, handle.begin(),
                               [](char c) { return c >= 'a' ? static_cast<char>(c - 'a' + 'A') : c; });
        Pair(code, handle);
        return handle;
    }
    void Section(std::string_view name)
    {
        Pair(0, "SECTION");
        Pair(2, name);
    }
    void End() { Pair(0, "ENDSEC"); }
    [[nodiscard]] std::string Take() { return std::move(out_); }

private:
    std::string out_;
    unsigned handle_ = 0x20;
};

// Handles that others point at.
constexpr const char* kModelSpace = "10";
constexpr const char* kPaperSpace = "11";
constexpr const char* kRoot = "12";
constexpr const char* kGroups = "13";

void TableHead(DxfText& dxf, std::string_view name, int count, std::string& handle)
{
    dxf.Pair(0, "TABLE");
    dxf.Pair(2, name);
    handle = dxf.Handle();
    dxf.Pair(330, "0");
    dxf.Pair(100, "AcDbSymbolTable");
    dxf.Pair(70, count);
}

/// Head of a table's entry; its handle has its own group in the table of dimension styles.
void Entry(DxfText& dxf, std::string_view type, std::string_view table, std::string_view subclass,
           std::string_view name)
{
    dxf.Pair(0, type);
    dxf.Handle(type == "DIMSTYLE" ? 105 : 5);
    dxf.Pair(330, table);
    dxf.Pair(100, "AcDbSymbolTableRecord");
    dxf.Pair(100, subclass);
    dxf.Pair(2, name);
    dxf.Pair(70, 0);
}

void LineTypes(DxfText& dxf, double scale)
{
    struct Type {
        const char* name;
        std::vector<double> dashes; // mm of paper; below 0 a gap
    };
    const Type types[] = {
        {"ByBlock", {}}, {"ByLayer", {}}, {kSolid, {}}, {kHidden, {3, -1.5}}, {kCentre, {12, -1.5, 1.5, -1.5}}};
    std::string table;
    TableHead(dxf, "LTYPE", static_cast<int>(std::size(types)), table);
    for (const Type& type : types) {
        Entry(dxf, "LTYPE", table, "AcDbLinetypeTableRecord", type.name);
        dxf.Pair(3, "");
        dxf.Pair(72, 65);
        dxf.Pair(73, static_cast<int>(type.dashes.size()));
        double length = 0;
        for (const double dash : type.dashes)
            length += std::abs(dash) * scale;
        dxf.Number(40, length);
        for (const double dash : type.dashes) {
            dxf.Number(49, dash * scale);
            dxf.Pair(74, 0);
        }
    }
    dxf.Pair(0, "ENDTAB");
}

void LayerEntry(DxfText& dxf, const std::string& table, std::string_view name, int colour, std::string_view lineType)
{
    Entry(dxf, "LAYER", table, "AcDbLayerTableRecord", name);
    dxf.Pair(62, colour);
    dxf.Pair(6, lineType);
    dxf.Pair(370, -3);
    dxf.Pair(390, "0");
}

void Layers(DxfText& dxf)
{
    constexpr int black = 7;
    std::string table;
    TableHead(dxf, "LAYER", static_cast<int>(std::size(kLayers)) + 3, table);
    LayerEntry(dxf, table, "0", black, kSolid);
    for (const LayerKind& layer : kLayers)
        LayerEntry(dxf, table, Cp932(layer.name), layer.colour, layer.lineType);
    LayerEntry(dxf, table, Cp932(kDimensions), black, kSolid);
    LayerEntry(dxf, table, Cp932(kTexts), black, kSolid);
    dxf.Pair(0, "ENDTAB");
}

void Styles(DxfText& dxf)
{
    constexpr std::array<const char*, 2> names{"Standard", kStyle};
    std::string table;
    TableHead(dxf, "STYLE", static_cast<int>(names.size()), table);
    for (const char* name : names) {
        Entry(dxf, "STYLE", table, "AcDbTextStyleTableRecord", name);
        dxf.Number(40, 0);
        dxf.Number(41, 1);
        dxf.Number(50, 0);
        dxf.Pair(71, 0);
        dxf.Number(42, kTextHeight);
        dxf.Pair(3, kFont);
        dxf.Pair(4, "");
    }
    dxf.Pair(0, "ENDTAB");
}

void EmptyTable(DxfText& dxf, std::string_view name)
{
    std::string table;
    TableHead(dxf, name, 0, table);
    dxf.Pair(0, "ENDTAB");
}

void BlockRecords(DxfText& dxf)
{
    std::string table;
    TableHead(dxf, "BLOCK_RECORD", 2, table);
    constexpr std::array<std::array<const char*, 2>, 2> records{
        {{"*Model_Space", kModelSpace}, {"*Paper_Space", kPaperSpace}}};
    for (const auto& record : records) {
        dxf.Pair(0, "BLOCK_RECORD");
        dxf.Pair(5, record[1]);
        dxf.Pair(330, table);
        dxf.Pair(100, "AcDbSymbolTableRecord");
        dxf.Pair(100, "AcDbBlockTableRecord");
        dxf.Pair(2, record[0]);
        dxf.Pair(340, "0");
    }
    dxf.Pair(0, "ENDTAB");
}

void Tables(DxfText& dxf, double scale)
{
    dxf.Section("TABLES");
    EmptyTable(dxf, "VPORT");
    LineTypes(dxf, scale);
    Layers(dxf);
    Styles(dxf);
    EmptyTable(dxf, "VIEW");
    EmptyTable(dxf, "UCS");
    std::string table;
    TableHead(dxf, "APPID", 1, table);
    Entry(dxf, "APPID", table, "AcDbRegAppTableRecord", "ACAD");
    dxf.Pair(0, "ENDTAB");
    TableHead(dxf, "DIMSTYLE", 1, table);
    dxf.Pair(100, "AcDbDimStyleTable");
    Entry(dxf, "DIMSTYLE", table, "AcDbDimStyleTableRecord", "Standard");
    dxf.Pair(0, "ENDTAB");
    BlockRecords(dxf);
    dxf.End();
}

void Blocks(DxfText& dxf)
{
    dxf.Section("BLOCKS");
    constexpr std::array<std::array<const char*, 2>, 2> blocks{
        {{"*Model_Space", kModelSpace}, {"*Paper_Space", kPaperSpace}}};
    for (const auto& block : blocks) {
        dxf.Pair(0, "BLOCK");
        dxf.Handle();
        dxf.Pair(330, block[1]);
        dxf.Pair(100, "AcDbEntity");
        dxf.Pair(8, "0");
        dxf.Pair(100, "AcDbBlockBegin");
        dxf.Pair(2, block[0]);
        dxf.Pair(70, 0);
        for (const int code : {10, 20, 30})
            dxf.Number(code, 0);
        dxf.Pair(3, block[0]);
        dxf.Pair(1, "");
        dxf.Pair(0, "ENDBLK");
        dxf.Handle();
        dxf.Pair(330, block[1]);
        dxf.Pair(100, "AcDbEntity");
        dxf.Pair(8, "0");
        dxf.Pair(100, "AcDbBlockEnd");
    }
    dxf.End();
}

void Objects(DxfText& dxf)
{
    dxf.Section("OBJECTS");
    dxf.Pair(0, "DICTIONARY");
    dxf.Pair(5, kRoot);
    dxf.Pair(330, "0");
    dxf.Pair(100, "AcDbDictionary");
    dxf.Pair(281, 1);
    dxf.Pair(3, "ACAD_GROUP");
    dxf.Pair(350, kGroups);
    dxf.Pair(0, "DICTIONARY");
    dxf.Pair(5, kGroups);
    dxf.Pair(330, kRoot);
    dxf.Pair(100, "AcDbDictionary");
    dxf.Pair(281, 1);
    dxf.End();
}

// --- entities ----------------------------------------------------------------------------------------

void EntityHead(DxfText& dxf, std::string_view type, std::string_view layer)
{
    dxf.Pair(0, type);
    dxf.Handle();
    dxf.Pair(330, kModelSpace);
    dxf.Pair(100, "AcDbEntity");
    dxf.Pair(8, layer);
}

void Point(DxfText& dxf, int code, const DrawnPoint& point)
{
    constexpr int y = 10; // codes of y and z stand 10 and 20 behind that of x
    dxf.Number(code, point.x);
    dxf.Number(code + y, point.y);
    dxf.Number(code + 2 * y, 0);
}

void Line(DxfText& dxf, std::string_view layer, const DrawnPoint& from, const DrawnPoint& to, bool broken = false)
{
    EntityHead(dxf, "LINE", layer);
    if (broken)
        dxf.Pair(6, kHidden);
    dxf.Pair(100, "AcDbLine");
    Point(dxf, 10, from);
    Point(dxf, 11, to);
}

/// Which point of its base line stands at a text's point.
enum class TextAlign { Left = 0, Middle = 1, Right = 2 };

void Text(DxfText& dxf, std::string_view layer, const DrawnPoint& at, std::string_view text, double height,
          TextAlign align = TextAlign::Middle)
{
    EntityHead(dxf, "TEXT", layer);
    dxf.Pair(100, "AcDbText");
    Point(dxf, 10, at);
    dxf.Number(40, height);
    dxf.Pair(1, text);
    dxf.Pair(7, kStyle);
    dxf.Pair(72, static_cast<int>(align));
    Point(dxf, 11, at);
    dxf.Pair(100, "AcDbText");
}

void Shape(DxfText& dxf, const DrawnShape& shape)
{
    const std::string layer = LayerName(shape.layer);
    if (shape.points.empty())
        return;
    if (shape.kind == ShapeKind::Circle) {
        EntityHead(dxf, "CIRCLE", layer);
        dxf.Pair(100, "AcDbCircle");
        Point(dxf, 10, shape.points.front());
        dxf.Number(40, shape.radius);
        return;
    }
    if (shape.points.size() == 2) {
        Line(dxf, layer, shape.points[0], shape.points[1], shape.open);
        return;
    }
    EntityHead(dxf, "LWPOLYLINE", layer);
    if (shape.open)
        dxf.Pair(6, kHidden);
    dxf.Pair(100, "AcDbPolyline");
    dxf.Pair(90, static_cast<int>(shape.points.size()));
    dxf.Pair(70, shape.kind == ShapeKind::Polygon ? 1 : 0);
    for (const DrawnPoint& point : shape.points) {
        dxf.Number(10, point.x);
        dxf.Number(20, point.y);
    }
}

struct Extent {
    DrawnPoint least{0, 0};
    DrawnPoint most{0, 0};
};

Extent ExtentOf(const BridgeDrawing& drawing)
{
    Extent extent;
    bool any = false;
    for (const DrawnShape& shape : drawing.shapes)
        for (const DrawnPoint& point : shape.points) {
            if (!any)
                extent = {point, point};
            any = true;
            extent.least = {std::min(extent.least.x, point.x), std::min(extent.least.y, point.y)};
            extent.most = {std::max(extent.most.x, point.x), std::max(extent.most.y, point.y)};
        }
    return extent;
}

void Chains(DxfText& dxf, const BridgeDrawing& drawing, double top, double scale)
{
    const std::string layer = Cp932(kDimensions);
    double y = top - kChainStep * scale;
    for (const DimensionChain& chain : drawing.chains) {
        for (const ChainPart& part : chain.parts) {
            Line(dxf, layer, {part.from, y}, {part.to, y});
            for (const double x : {part.from, part.to})
                Line(dxf, layer, {x, y - scale}, {x, y + scale});
            Text(dxf, layer, {(part.from + part.to) / 2, y + scale / 2}, part.text, kTextHeight * scale);
        }
        y -= kChainStep * scale;
    }
}

void Labels(DxfText& dxf, const BridgeDrawing& drawing, const Extent& extent, double scale)
{
    const std::string layer = Cp932(kTexts);
    for (const DrawnLabel& label : drawing.labels) {
        DrawnPoint at = label.at;
        if (label.place == LabelRow::Above)
            at.y = extent.most.y + scale;
        else if (label.place == LabelRow::FarAbove)
            at.y = extent.most.y + (1 + kRowStep) * scale;
        else if (label.place == LabelRow::Below)
            at.y = extent.least.y - kRowStep * scale;
        Text(dxf, layer, at, label.text, kTextHeight * scale,
             label.place == LabelRow::Behind  ? TextAlign::Left
             : label.place == LabelRow::Ahead ? TextAlign::Right
                                              : TextAlign::Middle);
    }
    double y = extent.most.y + 4 * kRowStep * scale;
    for (auto note = drawing.notes.rbegin(); note != drawing.notes.rend(); ++note, y += kRowStep * scale)
        Text(dxf, layer, {(extent.least.x + extent.most.x) / 2, y}, *note, kTextHeight * scale);
    Text(dxf, layer, {(extent.least.x + extent.most.x) / 2, y}, drawing.title, 2 * kTextHeight * scale);
}

void Header(DxfText& dxf, const Extent& extent)
{
    dxf.Section("HEADER");
    dxf.Pair(9, "$ACADVER");
    dxf.Pair(1, "AC1015");
    dxf.Pair(9, "$DWGCODEPAGE");
    dxf.Pair(3, "ANSI_932");
    dxf.Pair(9, "$INSUNITS");
    constexpr int millimetres = 4;
    dxf.Pair(70, millimetres);
    dxf.Pair(9, "$EXTMIN");
    Point(dxf, 10, extent.least);
    dxf.Pair(9, "$EXTMAX");
    Point(dxf, 10, extent.most);
    dxf.Pair(9, "$HANDSEED");
    dxf.Pair(5, "FFFFFF"); // above all that are given
    dxf.End();
}

double SoundScale(double scale)
{
    constexpr double usual = 100;
    return scale > 0 && std::isfinite(scale) ? scale : usual;
}

BridgeDrawing Shifted(BridgeDrawing drawing, DrawnPoint by)
{
    for (DrawnShape& shape : drawing.shapes)
        for (DrawnPoint& point : shape.points)
            point = {point.x + by.x, point.y + by.y};
    for (DrawnLabel& label : drawing.labels)
        label.at = {label.at.x + by.x, label.at.y + by.y};
    for (DimensionChain& chain : drawing.chains)
        for (ChainPart& part : chain.parts) {
            part.from += by.x;
            part.to += by.x;
        }
    return drawing;
}

std::string FileOf(std::span<const BridgeDrawing> drawings, double scale)
{
    scale = SoundScale(scale);
    std::vector<Extent> extents;
    for (const BridgeDrawing& drawing : drawings)
        extents.push_back(ExtentOf(drawing));
    Extent whole = extents.empty() ? Extent() : extents.front();
    for (const Extent& extent : extents) {
        whole.least = {std::min(whole.least.x, extent.least.x), std::min(whole.least.y, extent.least.y)};
        whole.most = {std::max(whole.most.x, extent.most.x), std::max(whole.most.y, extent.most.y)};
    }
    DxfText dxf;
    Header(dxf, whole);
    dxf.Section("CLASSES");
    dxf.End();
    Tables(dxf, scale);
    Blocks(dxf);
    dxf.Section("ENTITIES");
    for (std::size_t i = 0; i < drawings.size(); ++i) {
        for (const DrawnShape& shape : drawings[i].shapes)
            Shape(dxf, shape);
        Labels(dxf, drawings[i], extents[i], scale);
        Chains(dxf, drawings[i], extents[i].least.y - 2 * kRowStep * scale, scale);
    }
    dxf.End();
    Objects(dxf);
    dxf.Pair(0, "EOF");
    return dxf.Take();
}

} // namespace

std::string LayerName(DrawingLayer layer)
{
    return Cp932(kLayers[static_cast<std::size_t>(layer)].name);
}

std::string DxfOf(const BridgeDrawing& drawing, double scale)
{
    return FileOf({&drawing, 1}, scale);
}

std::string DxfOfRows(const std::vector<std::vector<const BridgeDrawing*>>& rows, double scale)
{
    scale = SoundScale(scale);
    std::vector<BridgeDrawing> placed;
    double top = 0;
    for (const auto& row : rows) {
        double left = 0;
        double lowest = top;
        for (const BridgeDrawing* drawing : row) {
            if (drawing->shapes.empty())
                continue;
            const Extent extent = ExtentOf(*drawing);
            const double above = (5.0 + static_cast<double>(drawing->notes.size())) * kRowStep * scale;
            const double below = (3 * kRowStep + static_cast<double>(drawing->chains.size()) * kChainStep) * scale;
            placed.push_back(Shifted(*drawing, {left - extent.least.x, top - above - extent.most.y}));
            left += extent.most.x - extent.least.x + 2 * kChainStep * scale;
            lowest = std::min(lowest, top - above - (extent.most.y - extent.least.y) - below);
        }
        top = lowest;
    }
    return FileOf(placed, scale);
}

} // namespace sbd
