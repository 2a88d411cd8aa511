#include "upperview/drawing_sheet.h"

#include "document/section_doc.h"
#include "drawing/bridge_plan.h"
#include "drawing/cross_section.h"
#include "drawing/girder_elevation.h"
#include "project/text.h"
#include "upperview/bridge_sheet.h"
#include "upperview/draw_painter.h"

#include <QDate>
#include <QPainter>

#include <algorithm>
#include <cmath>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

// Units of 0.1 mm.
constexpr double kFrame = 100; // from the edge of the paper
constexpr double kInner = 30;
constexpr double kTitleWidth = 1250;
constexpr double kTitleRow = 62;
constexpr double kTitleHead = 260;
constexpr int kTextHeight = 28;

/// The first scale that engineers use at or above one.
double UsualAbove(double scale)
{
    for (double decade = 1;; decade *= 10)
        for (const double step : {1.0, 1.5, 2.0, 2.5, 3.0, 4.0, 5.0, 6.0, 8.0})
            if (step * decade >= scale || decade > 1e6)
                return step * decade;
}

/// A drawing in its place on the sheet, as large as a usual scale lets it be.
void PaintView(QPainter& painter, const QRectF& box, const QFont& font, const BridgeDrawing& drawing)
{
    painter.save();
    painter.setClipRect(box);
    painter.translate(box.topLeft());
    CPainterContext context(painter, font);
    SheetLook look;
    look.compact = true;
    look.printed = true;
    look.scale = UsualAbove(ScaleThatFills(drawing, context.Metrics(), look, box.width(), box.height()));
    DrawBridgeSheet(context, drawing, look);
    painter.restore();
}

/// Notes of all views, each once, and what is left out.
std::vector<QString> NotesOf(const GeneralDrawing& drawing)
{
    std::vector<QString> notes;
    std::size_t omitted = 0;
    const auto add = [&](const BridgeDrawing& view) {
        omitted += view.omissions.size();
        for (const std::string& note : view.notes)
            if (const QString text = toQString(note); std::ranges::find(notes, text) == notes.end())
                notes.push_back(text);
    };
    add(drawing.plan);
    add(drawing.elevation);
    for (const BridgeDrawing& section : drawing.sections)
        add(section);
    if (omitted > 0)
        notes.push_back(u"図にできないものが%1件あります(一覧は画面にあります)．"_s.arg(omitted));
    return notes;
}

/// The title block in the lower right corner; gives its upper edge.
double PaintTitle(QPainter& painter, const QRectF& frame, const GeneralDrawing& drawing)
{
    const double height = kTitleRow * static_cast<double>(drawing.titles.size());
    const QRectF block(frame.right() - kTitleWidth, frame.bottom() - height, kTitleWidth, height);
    painter.setPen(QPen(Qt::black, 5));
    painter.drawRect(block);
    painter.setPen(QPen(Qt::black, 2));
    painter.drawLine(QPointF(block.left() + kTitleHead, block.top()),
                     QPointF(block.left() + kTitleHead, block.bottom()));
    double y = block.top();
    for (const auto& [head, text] : drawing.titles) {
        if (y > block.top())
            painter.drawLine(QPointF(block.left(), y), QPointF(block.right(), y));
        const QRectF row(block.left() + 15, y, kTitleHead - 20, kTitleRow);
        const QRectF value(block.left() + kTitleHead + 15, y, kTitleWidth - kTitleHead - 30, kTitleRow);
        painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter, head);
        painter.drawText(value, Qt::AlignLeft | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(text, Qt::ElideMiddle, static_cast<int>(value.width())));
        y += kTitleRow;
    }
    return block.top();
}

} // namespace

GeneralDrawing MakeGeneralDrawing(const CSbdData& data, const AnalysisResults& results, const GeneralChoice& choice,
                                  const QString& project)
{
    GeneralDrawing drawing;
    drawing.plan = BridgePlan(data, results);
    drawing.elevation = GirderElevation(data, results, {choice.girder, choice.side, choice.camber});
    std::vector<std::size_t> stations = choice.stations;
    const std::vector<std::string>& names = data.gridNames.swayNames;
    if (stations.empty() && !names.empty()) {
        stations.push_back(0);
        if (names.size() > 2)
            stations.push_back(names.size() / 2);
    }
    QStringList sections;
    for (const std::size_t station : stations)
        if (station < names.size()) {
            drawing.sections.push_back(CrossSection(data, results, station));
            sections << toQString(names[station]);
        }
    const bool provisional = drawing.plan.provisional || drawing.elevation.provisional;
    const std::vector<std::string>& girders = data.gridNames.girderNames;
    drawing.titles = {{u"図名"_s, u"一般図"_s},
                      {u"プロジェクト"_s, project},
                      {u"主桁"_s, choice.girder < girders.size() ? toQString(girders[choice.girder]) : QString()},
                      {u"断面"_s, sections.join(u"，"_s)},
                      {u"寸法"_s, provisional ? u"仮(座標がないため)"_s : u"mm"_s},
                      {u"作成日"_s, QDate::currentDate().toString(u"yyyy/MM/dd"_s)}};
    return drawing;
}

std::vector<std::vector<const BridgeDrawing*>> RowsOf(const GeneralDrawing& drawing)
{
    std::vector<std::vector<const BridgeDrawing*>> rows{{&drawing.plan}, {&drawing.elevation}, {}};
    for (const BridgeDrawing& section : drawing.sections)
        rows.back().push_back(&section);
    return rows;
}

void PaintGeneralDrawing(QPainter& painter, QSizeF units, const QFont& font, const GeneralDrawing& drawing)
{
    painter.save();
    painter.setBackground(Qt::white);
    QFont lettering = font;
    lettering.setPixelSize(kTextHeight);
    painter.setFont(lettering);
    const QRectF frame = QRectF(QPointF(), units).adjusted(kFrame, kFrame, -kFrame, -kFrame);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(Qt::black, 7));
    painter.drawRect(frame);
    const double titleTop = PaintTitle(painter, frame, drawing);

    const std::vector<QString> notes = NotesOf(drawing);
    const double line = QFontMetricsF(lettering).height() * 1.1;
    double y = titleTop - kInner - line * static_cast<double>(notes.size());
    painter.setPen(Qt::black);
    for (const QString& note : notes) {
        const QRectF row(frame.right() - kTitleWidth, y, kTitleWidth, line);
        painter.drawText(row, Qt::AlignLeft | Qt::AlignVCenter,
                         painter.fontMetrics().elidedText(note, Qt::ElideRight, static_cast<int>(kTitleWidth)));
        y += line;
    }

    const QRectF inner = frame.adjusted(kInner, kInner, -kInner, -kInner);
    constexpr double planShare = 0.23;
    constexpr double elevationShare = 0.46;
    const double planHeight = inner.height() * planShare;
    const double elevationHeight = inner.height() * elevationShare;
    PaintView(painter, QRectF(inner.left(), inner.top(), inner.width(), planHeight), lettering, drawing.plan);
    PaintView(painter, QRectF(inner.left(), inner.top() + planHeight, inner.width(), elevationHeight), lettering,
              drawing.elevation);
    const double top = inner.top() + planHeight + elevationHeight;
    const double width = inner.width() - kTitleWidth - kInner;
    const auto count = static_cast<double>(drawing.sections.size());
    for (std::size_t i = 0; i < drawing.sections.size(); ++i)
        PaintView(
            painter,
            QRectF(inner.left() + width / count * static_cast<double>(i), top, width / count, inner.bottom() - top),
            lettering, drawing.sections[i]);
    painter.restore();
}

} // namespace sbd
