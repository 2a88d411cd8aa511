#include "sbdpage_drawings.h"

#include "document/section_doc.h"
#include "drawing/drawing_views.h"
#include "drawing/dxf_writer.h"
#include "drawing/joint_detail.h"
#include "project/console.h"
#include "project/text.h"
#include "sbdpage_pictures.h"
#include "upperview/bridge_sheet.h"
#include "upperview/display_look.h"
#include "upperview/draw_painter.h"
#include "upperview/drawing_sheet.h"
#include "upperview/page/draw_recorder.h"

#include <QCommandLineParser>
#include <QPainter>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kNothing = 1;
constexpr double kUnitsPerInch = 254; // of 0.1 mm
constexpr double kScreenDpi = 96;
constexpr int kTextUnits = 28;
constexpr const char* kSheet = "sheet";

struct DrawingCommand {
    const char* name;
    const char* help;
    DrawingRequest (*request)(const QCommandLineParser& parser, const CKELDSectionDoc& doc);
};

/// The number of the name that an option gives among `names`; the first one without the option, nothing if there is no
/// such name.
std::optional<std::size_t> Named(const QCommandLineParser& parser, const QString& option,
                                 const std::vector<std::string>& names)
{
    if (!parser.isSet(option))
        return 0;
    const std::optional<std::string> name = fromQString(parser.value(option));
    const auto found = name ? std::ranges::find(names, *name) : names.end();
    if (found == names.end())
        return std::nullopt;
    return static_cast<std::size_t>(found - names.begin());
}

GirderSide Side(const QCommandLineParser& parser)
{
    return parser.value(u"side"_s).compare(u"right"_s, Qt::CaseInsensitive) == 0 ? GirderSide::Right : GirderSide::Left;
}

DrawingRequest Elevation(const QCommandLineParser& parser, const CKELDSectionDoc& doc)
{
    DrawingRequest request;
    request.girder = *Named(parser, u"girder"_s, doc.Data().gridNames.girderNames);
    request.side = Side(parser);
    request.camber = parser.isSet(u"camber"_s);
    return request;
}

DrawingRequest Section(const QCommandLineParser& parser, const CKELDSectionDoc& doc)
{
    DrawingRequest request;
    request.view = DrawingView::Section;
    request.station = *Named(parser, u"station"_s, doc.Data().gridNames.swayNames);
    return request;
}

DrawingRequest Plan(const QCommandLineParser&, const CKELDSectionDoc&)
{
    DrawingRequest request;
    request.view = DrawingView::Plan;
    return request;
}

/// A joint that there is not has a number behind all.
DrawingRequest Joint(const QCommandLineParser& parser, const CKELDSectionDoc& doc)
{
    DrawingRequest request = Elevation(parser, doc);
    request.view = DrawingView::Joint;
    const std::vector<std::string> names = JointNames(doc.Data(), doc.Results(), request.girder, request.side);
    request.joint = Named(parser, u"joint"_s, names).value_or(names.size());
    return request;
}

constexpr DrawingCommand kCommands[] = {
    {"elevation", "sbdpage elevation: draws a girder from the side.", Elevation},
    {"section", "sbdpage section: draws the bridge across at a cross line.", Section},
    {"plan", "sbdpage plan: draws the bridge from above.", Plan},
    {"joint",
     "sbdpage joint: draws the splice of a girder at a joint, or the end of a cross beam or sway bracing at it.",
     Joint},
    {kSheet, "sbdpage sheet: plan, elevation and sections on a sheet A3 with a title block.", nullptr},
};

void AddOptions(QCommandLineParser& parser, const DrawingCommand& command)
{
    parser.setApplicationDescription(QString::fromLatin1(command.help));
    parser.addHelpOption();
    parser.addPositionalArgument(u"IN"_s, u"The project; its names and results lie beside it."_s);
    parser.addOptions(
        {{u"girder"_s, u"elevation, joint, sheet: the girder; the first one if not given."_s, u"name"_s},
         {u"side"_s, u"elevation, sheet: the web of a box girder, left or right."_s, u"word"_s, u"left"_s},
         {u"camber"_s, u"elevation, sheet: with the deflections of block 259."_s},
         {u"station"_s, u"section, sheet: the cross line; the first one if not given (sheet: and the middle one)."_s,
          u"name"_s},
         {u"joint"_s,
          u"joint: its name, or that of an end as the window's list shows it; the first joint if not given."_s,
          u"name"_s},
         {u"scale"_s, u"1 : number; 0 takes a usual one that fits."_s, u"number"_s, u"0"_s},
         {u"exaggerate"_s, u"Heights are drawn 1, 2 or 5 times larger."_s, u"number"_s, u"1"_s},
         {u"block"_s, u"Block under the cursor."_s, u"number"_s, u"0"_s},
         {u"row"_s, u"Grid row under the cursor, from 1."_s, u"number"_s, u"0"_s},
         {u"dxf"_s, u"Writes the parts in true measure for other drawing programs."_s, u"file"_s},
         {u"list"_s, u"Prints what could not be drawn."_s}});
    AddPictureOptions(parser);
}

void PrintOmissions(const BridgeDrawing& drawing)
{
    std::string text;
    for (const Omission& omission : drawing.omissions)
        text += std::to_string(omission.place.block) + " " + std::to_string(omission.place.row) + " "
                + std::to_string(omission.place.column) + " " + FromCp932(omission.reason) + "\n";
    PrintText(stdout, text);
}

/// The look of the call; nothing if a number is none, which is told.
std::optional<SheetLook> LookOf(const QCommandLineParser& parser)
{
    bool sound = true;
    const auto number = [&](const QString& option, double least, double most) {
        bool isNumber = false;
        const double value = parser.value(option).toDouble(&isNumber);
        if (!isNumber || !(value >= least && value <= most)) {
            FailCall(u"--%1 takes a number from %2 to %3"_s.arg(option).arg(least).arg(most));
            sound = false;
            return least;
        }
        return value;
    };
    constexpr double mostScale = 100'000;
    constexpr double mostBlock = 999;
    constexpr double mostRow = 1'000'000;
    SheetLook look;
    look.scale = number(u"scale"_s, 0, mostScale);
    look.exaggeration = static_cast<int>(number(u"exaggerate"_s, 1, 5));
    look.selected.block = static_cast<int>(number(u"block"_s, 0, mostBlock));
    look.selected.row = static_cast<int>(number(u"row"_s, 0, mostRow));
    return sound ? std::optional(look) : std::nullopt;
}

int WriteDxf(const QCommandLineParser& parser, const std::string& bytes)
{
    const QString path = parser.value(u"dxf"_s);
    return WriteFile(path, QByteArray::fromStdString(bytes)) ? 0 : FailCall(u"cannot write "_s + path);
}

/// The general drawing as a picture of A3; as a DXF file in true measure, without frame and title block.
int RunSheet(const QCommandLineParser& parser, const CKELDSectionDoc& doc)
{
    if (!AsksForPicture(parser) && !parser.isSet(u"dxf"_s))
        return FailCall(u"one of --png, --pdf, --svg and --dxf says what to make"_s);
    GeneralChoice choice;
    choice.girder = *Named(parser, u"girder"_s, doc.Data().gridNames.girderNames);
    choice.side = Side(parser);
    choice.camber = parser.isSet(u"camber"_s);
    if (parser.isSet(u"station"_s))
        choice.stations = {*Named(parser, u"station"_s, doc.Data().gridNames.swayNames)};
    const GeneralDrawing drawing = MakeGeneralDrawing(doc.Data(), doc.Results(), choice, doc.Title());
    if (parser.isSet(u"dxf"_s)) {
        const double asked = parser.value(u"scale"_s).toDouble();
        const int code =
            WriteDxf(parser, DxfOfRows(RowsOf(drawing), asked > 0 ? asked : UsualScale(drawing.elevation)));
        if (code != 0)
            return code;
    }
    const double scale = kScreenDpi / kUnitsPerInch;
    const QSize size = (kSheetUnits * scale).toSize();
    const int code = !AsksForPicture(parser) ? 0 : WritePictures(parser, size, [&](QPainter& painter) {
        painter.fillRect(QRect(QPoint(0, 0), size), Qt::white);
        painter.scale(scale, scale);
        PaintGeneralDrawing(painter, kSheetUnits, FigureFont(doc.display), drawing);
    });
    if (code != 0)
        return code;
    return drawing.elevation.shapes.empty() ? kNothing : 0;
}

int Run(const DrawingCommand& command, const QStringList& arguments)
{
    QCommandLineParser parser;
    AddOptions(parser, command);
    parser.process(arguments);
    const QStringList words = parser.positionalArguments();
    if (words.size() != 1)
        return FailCall(u"one project is needed"_s);
    CKELDSectionDoc doc;
    if (!doc.OpenDocument(words.front()).Ok())
        return FailCall(u"cannot read "_s + words.front());
    const struct {
        QString option;
        const std::vector<std::string>& names;
    } choices[] = {{u"girder"_s, doc.Data().gridNames.girderNames}, {u"station"_s, doc.Data().gridNames.swayNames}};
    for (const auto& choice : choices)
        if (!Named(parser, choice.option, choice.names)) {
            QStringList names;
            for (const std::string& name : choice.names)
                names << toQString(name);
            return FailCall(u"no such %1; there are "_s.arg(choice.option) + names.join(u", "_s));
        }
    const std::optional<SheetLook> look = LookOf(parser);
    if (!look)
        return kBadPictureCall;
    if (command.request == nullptr)
        return RunSheet(parser, doc);
    const BridgeDrawing drawing = MakeDrawing(doc.Data(), doc.Results(), command.request(parser, doc));
    if (parser.isSet(u"list"_s))
        PrintOmissions(drawing);
    if (parser.isSet(u"dxf"_s)) {
        const int code = WriteDxf(parser, DxfOf(drawing, look->scale > 0 ? look->scale : UsualScale(drawing)));
        if (code != 0)
            return code;
    }
    if (AsksForPicture(parser)) {
        QFont font = FigureFont(doc.display);
        font.setPixelSize(kTextUnits);
        CDrawRecorder recorder(MetricsOf(font));
        const SheetExtent extent = DrawBridgeSheet(recorder, drawing, *look);
        const double scale = kScreenDpi / kUnitsPerInch;
        const QSize size(qCeil(extent.width * scale) + 1, qCeil(extent.height * scale) + 1);
        const int code = WritePictures(parser, size, [&](QPainter& painter) {
            painter.fillRect(QRect(QPoint(0, 0), size), Qt::white);
            painter.setBackground(Qt::white);
            painter.scale(scale, scale);
            CPainterContext context(painter, font);
            DrawBridgeSheet(context, drawing, *look);
        });
        if (code != 0)
            return code;
    } else if (!parser.isSet(u"list"_s) && !parser.isSet(u"dxf"_s)) {
        return FailCall(u"one of --png, --pdf, --svg, --dxf and --list says what to make"_s);
    }
    return drawing.shapes.empty() ? kNothing : 0;
}

} // namespace

std::optional<int> RunDrawingCommand(const QStringList& arguments)
{
    const QString name = arguments.value(1);
    for (const DrawingCommand& command : kCommands)
        if (name == QString::fromLatin1(command.name))
            return Run(command, arguments.mid(0, 1) + arguments.mid(2));
    return std::nullopt;
}

} // namespace sbd
