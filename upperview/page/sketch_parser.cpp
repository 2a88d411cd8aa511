#include "upperview/page/sketch_parser.h"

#include "project/text.h"

#include <array>
#include <optional>

namespace sbd {

namespace {

constexpr std::size_t kAny = 1000;

struct ElementForm {
    std::string_view word;
    ElementKind kind;
    std::size_t least; ///< numbers
    std::size_t most;
    bool label;
};

constexpr std::array<ElementForm, 13> kForms = {{
    {"line", ElementKind::Line, 4, 4, false},
    {"path", ElementKind::Path, 4, kAny, false},
    {"rect", ElementKind::Rect, 4, 4, false},
    {"poly", ElementKind::Polygon, 6, kAny, false},
    {"circle", ElementKind::Circle, 3, 3, false},
    {"dot", ElementKind::Dot, 3, 3, false},
    {"bolts", ElementKind::Bolts, 7, 7, false},
    {"arc", ElementKind::Arc, 6, 6, false},
    {"dim", ElementKind::Dimension, 4, 4, true},
    {"arrow", ElementKind::Arrow, 4, 4, false},
    {"block", ElementKind::BlockArrow, 5, 5, false},
    {"text", ElementKind::Text, 2, 2, true},
    {"balloon", ElementKind::Balloon, 2, 2, true},
}};

template <typename Value>
using Words = std::initializer_list<std::pair<std::string_view, Value>>;

template <typename Value>
std::optional<Value> Find(Words<Value> words, std::string_view word)
{
    for (const auto& [name, value] : words)
        if (name == word)
            return value;
    return std::nullopt;
}

/// The value that the key's word stands for; `otherwise` where there is no key, and a fault for a strange word.
template <typename Value>
Value WordOf(const toml::table& table, std::string_view key, const CPageReader& reader, Words<Value> words,
             Value otherwise)
{
    const toml::node* node = table.get(key);
    if (node == nullptr)
        return otherwise;
    const std::optional<Value> found = Find(words, reader.TextOf(table, key));
    if (!found)
        reader.Complain(*node, "unknown word for " + std::string(key));
    return found.value_or(otherwise);
}

DrawColour ColourOf(const toml::table& table, std::string_view key, const CPageReader& reader, DrawColour otherwise)
{
    return WordOf<DrawColour>(table, key, reader,
                              {{"black", colours::kBlack},
                               {"red", colours::kRed},
                               {"blue", colours::kBlue},
                               {"lightgreen", colours::kLightGreen},
                               {"darkgreen", colours::kDarkGreen},
                               {"yellow", colours::kYellow},
                               {"pink", colours::kPink},
                               {"steel", 0xD2C8BE},
                               {"grey", 0xC8C8C8},
                               {"concrete", 0xC8DCDC},
                               {"sand", 0xB4F0F0},
                               {"dark", 0x323232}},
                              otherwise);
}

void ReadOptions(SketchElement& element, const toml::table& options, const CPageReader& reader)
{
    reader.CheckKeys(options, {"col", "row", "pen", "width", "colour", "fill", "hatch", "place", "off", "arrows",
                               "value", "selected", "when"});
    element.columns = reader.IntegersOf(options, "col");
    element.rows = reader.IntegersOf(options, "row");
    element.pen.style = WordOf<PenStyle>(
        options, "pen", reader,
        {{"solid", PenStyle::Solid}, {"dash", PenStyle::Dash}, {"dot", PenStyle::Dot}, {"dashdot", PenStyle::DashDot}},
        PenStyle::Solid);
    element.pen.width = reader.IntegerOf(options, "width", 1);
    element.pen.colour = ColourOf(options, "colour", reader, element.pen.colour);
    if (options.contains("fill"))
        element.brush = {BrushStyle::Solid, ColourOf(options, "fill", reader, colours::kBlack)};
    element.brush.style = WordOf<BrushStyle>(options, "hatch", reader,
                                             {{"up", BrushStyle::UpwardDiagonal},
                                              {"horizontal", BrushStyle::Horizontal},
                                              {"cross", BrushStyle::DiagonalCross}},
                                             element.brush.style);
    if (options.contains("hatch"))
        element.brush.colour = element.pen.colour;
    element.place = WordOf<LabelPlace>(options, "place", reader,
                                       {{"centre", LabelPlace::Centre},
                                        {"left", LabelPlace::Left},
                                        {"right", LabelPlace::Right},
                                        {"above", LabelPlace::Above},
                                        {"below", LabelPlace::Below}},
                                       LabelPlace::Default);
    if (const std::vector<int> off = reader.IntegersOf(options, "off"); off.size() == 2)
        element.offset = {off[0], off[1]};
    else if (options.contains("off"))
        reader.Complain(*options.get("off"), "off needs two numbers");
    element.arrows = reader.BoolOf(options, "arrows", true);
    element.value = reader.BoolOf(options, "value", element.value);
    element.onlySelected = reader.BoolOf(options, "selected", false);
    if (element.onlySelected && element.columns.empty() && element.rows.empty())
        reader.Complain(options, "what is drawn only when selected needs a column or a row");
    element.when = reader.ConditionOf(options);
}

std::optional<SketchElement> ParseElement(const toml::node& node, const CPageReader& reader)
{
    const toml::array* array = node.as_array();
    const auto word = array == nullptr || array->empty() ? std::nullopt : (*array)[0].value<std::string_view>();
    const ElementForm* form = nullptr;
    for (const ElementForm& candidate : kForms)
        if (word && candidate.word == *word)
            form = &candidate;
    if (form == nullptr) {
        reader.Complain(node, "an element begins with a word for what is drawn");
        return std::nullopt;
    }
    SketchElement element;
    element.kind = form->kind;
    element.value = form->kind == ElementKind::Dimension;
    for (std::size_t i = 1; i < array->size(); ++i) {
        const toml::node& part = (*array)[i];
        if (part.is_number())
            element.numbers.push_back(*part.value<double>());
        else if (part.is_string() && form->label)
            element.label = reader.LineOf(part, *part.value<std::string_view>());
        else if (const toml::table* options = part.as_table(); options != nullptr && i + 1 == array->size())
            ReadOptions(element, *options, reader);
        else
            reader.Complain(part, "this has no place in \"" + std::string(*word) + "\"");
    }
    const std::size_t count = element.numbers.size();
    const bool pairs = form->kind == ElementKind::Path || form->kind == ElementKind::Polygon;
    if (count < form->least || count > form->most || (pairs && count % 2 != 0)) {
        reader.Complain(node, "wrong count of numbers for \"" + std::string(*word) + "\"");
        return std::nullopt;
    }
    return element;
}

} // namespace

Sketch ParseSketch(const toml::table& table, const CPageReader& reader)
{
    reader.CheckKeys(table, {"size", "scale", "margin", "gap", "when", "draw"});
    Sketch sketch;
    const std::vector<double> size = reader.NumbersOf(table, "size");
    if (size.size() == 2 && size[0] > 0 && size[1] > 0) {
        sketch.width = size[0];
        sketch.height = size[1];
    } else {
        reader.Complain(table, "a sketch needs its size: width and height in sketch units");
    }
    if (const std::vector<double> scale = reader.NumbersOf(table, "scale"); scale.size() == 2) {
        sketch.fx = scale[0];
        sketch.fy = scale[1];
    } else if (table.contains("scale")) {
        reader.Complain(*table.get("scale"), "scale needs two numbers");
    }
    sketch.margin = reader.IntegerOf(table, "margin", sketch.margin);
    sketch.gap = reader.IntegerOf(table, "gap", sketch.gap);
    sketch.when = reader.ConditionOf(table);
    const toml::array* draw = table.get_as<toml::array>("draw");
    if (draw == nullptr || draw->empty()) {
        reader.Complain(table, "a sketch needs something to draw");
        return sketch;
    }
    for (const toml::node& node : *draw)
        if (std::optional<SketchElement> element = ParseElement(node, reader))
            sketch.elements.push_back(std::move(*element));
    return sketch;
}

} // namespace sbd
