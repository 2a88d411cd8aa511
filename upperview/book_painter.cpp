#include "upperview/book_painter.h"

#include "sheets/workbook.h"
#include "upperview/book_layout.h"
#include "upperview/book_sketches.h"
#include "upperview/book_table.h"

#include <QPainter>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;
using namespace book_page;

namespace {

// 0.1 mm
constexpr int kCoverTitleSize = 80;
constexpr int kCoverTextSize = 40;
constexpr int kContentsTextSize = 34;

void DrawText(QPainter& painter, const QFont& font, QRectF place, int flags, const QString& text)
{
    painter.setFont(font);
    painter.drawText(place, flags | Qt::TextDontClip | Qt::TextSingleLine, text);
}

/// As in the window, and numbers wherever they do not name the row.
bool IsRight(const BookBlock& block, std::size_t column, const std::string& text)
{
    return block.columns[column].rightAligned || (column >= block.nameColumns && PlainNumberOf(text).has_value());
}

/// "313 垂直補剛材 (続き)  列 8～14 / 22  行 1～40 / 120".
QString Continuation(const BookTable& table, const BookPiece& piece)
{
    QString text = BookText(table.block.name);
    if (piece.row > 0 || piece.column > table.repeated)
        text += u" (続き)"_s;
    const std::size_t columns = table.widths.size();
    if (piece.columns + table.repeated < columns)
        text += u"   列 %1～%2 / %3"_s.arg(piece.column).arg(piece.column + piece.columns - 1).arg(columns - 1);
    if (piece.rows > 0 && piece.rows < table.block.rows.size())
        text += u"   行 %1～%2 / %3"_s.arg(piece.row + 1).arg(piece.row + piece.rows).arg(table.block.rows.size());
    return text;
}

/// The columns of a piece: those that each part has, then its own.
std::vector<std::size_t> ColumnsOf(const BookTable& table, const BookPiece& piece)
{
    std::vector<std::size_t> columns;
    for (std::size_t i = 0; i < table.repeated; ++i)
        columns.push_back(i);
    for (std::size_t i = piece.column; i < piece.column + piece.columns; ++i)
        columns.push_back(i);
    return columns;
}

} // namespace

CBookPainter::CBookPainter(CBookTables& tables, const CBookSketches& sketches, const CBookLayout& layout,
                           const BookFacts& facts, const BookLook& look)
    : tables_(tables)
    , sketches_(sketches)
    , layout_(layout)
    , facts_(facts)
    , look_(look)
    , page_(look)
    , font_(BookFont(look, kTextSize))
    , boldFont_(BookFont(look, kTextSize, true))
    , titleFont_(BookFont(look, kBlockTitleSize, true))
{
}

bool CBookPainter::Paint(QPainter& painter, const std::function<void()>& newPage, const BookProgress& progress)
{
    PaintCover(painter);
    for (int page = 0; page < layout_.ContentsPages(); ++page) {
        newPage();
        PaintContents(painter, page);
        PaintFrame(painter, 1 + page, u"目次"_s);
    }
    for (std::size_t page = 0; page < layout_.Pieces().size(); ++page) {
        const std::vector<BookPiece>& pieces = layout_.Pieces()[page];
        const auto done = static_cast<int>(kBookSteps / 2 * page / layout_.Pieces().size());
        if (progress && !progress(kBookSteps / 2 + done, kBookSteps))
            return false;
        newPage();
        for (const BookPiece& piece : pieces)
            PaintPiece(painter, piece);
        PaintFrame(painter, 1 + layout_.ContentsPages() + static_cast<int>(page),
                   BookText(layout_.Starts()[static_cast<std::size_t>(pieces.front().block)].name));
    }
    return true;
}

void CBookPainter::PaintCover(QPainter& painter) const
{
    const double middle = page_.size.height() * 0.26;
    const double right = page_.size.width() - kRight;
    painter.setPen(QPen(Qt::black, 6));
    painter.drawLine(QPointF(kLeft, middle - 60), QPointF(right, middle - 60));
    painter.drawLine(QPointF(kLeft, middle + 190), QPointF(right, middle + 190));
    DrawText(painter, BookFont(look_, kCoverTitleSize, true), QRectF(kLeft, middle, page_.Room(), 130), Qt::AlignCenter,
             u"入力データ"_s);
    const QFont font = BookFont(look_, kCoverTextSize);
    CBookMeasure measure(font);
    double y = middle + 320;
    std::vector<std::pair<std::string, std::string>> lines = CoverLines(facts_);
    lines.emplace_back("ブロック数", std::to_string(tables_.Count()));
    lines.emplace_back("ページ数", std::to_string(layout_.Pages()));
    for (const auto& line : lines) {
        const QStringList texts = measure.Lines(BookText(line.second), page_.Room() - 460);
        painter.setPen(QPen(QColor(0xB0, 0xB0, 0xB0), 2));
        painter.drawLine(QPointF(kLeft, y - 18), QPointF(right, y - 18));
        painter.setPen(Qt::black);
        DrawText(painter, font, QRectF(kLeft + 20, y, 400, 50), Qt::AlignLeft, BookText(line.first));
        for (const QString& text : texts) {
            DrawText(painter, font, QRectF(kLeft + 440, y, page_.Room() - 460, 50), Qt::AlignLeft, text);
            y += measure.LineHeight();
        }
        y += 40;
    }
}

void CBookPainter::PaintContents(QPainter& painter, int page) const
{
    painter.setPen(Qt::black);
    DrawText(painter, titleFont_, QRectF(kLeft, kTop, page_.Room(), 60), Qt::AlignLeft,
             page == 0 ? u"目次"_s : u"目次 (続き)"_s);
    const std::vector<BookStart>& starts = layout_.Starts();
    const auto lines = static_cast<std::size_t>(page_.ContentsLines());
    const std::size_t from = static_cast<std::size_t>(page) * lines;
    const QFont font = BookFont(look_, kContentsTextSize);
    CBookMeasure measure(font);
    for (std::size_t i = from; i < std::min(from + lines, starts.size()); ++i) {
        const double y = kContentsTop + static_cast<double>(i - from) * kContentsLine;
        const QRectF line(kLeft + 20, y, page_.Room() - 40, kContentsLine);
        const QString name = BookText(starts[i].name);
        const QString number = QString::number(starts[i].page + 1);
        DrawText(painter, font, line, Qt::AlignLeft | Qt::AlignVCenter, name);
        DrawText(painter, font, line, Qt::AlignRight | Qt::AlignVCenter, number);
        painter.setPen(QPen(QColor(0x90, 0x90, 0x90), 2, Qt::DotLine));
        const double base = y + kContentsLine * 0.68;
        const double start = line.left() + measure.Width(name) + 25;
        const double end = line.right() - measure.Width(number) - 25;
        if (end > start)
            painter.drawLine(QPointF(start, base), QPointF(end, base));
        painter.setPen(Qt::black);
    }
}

/// Head and foot of a page.
void CBookPainter::PaintFrame(QPainter& painter, int page, const QString& what)
{
    painter.setPen(Qt::black);
    const double right = page_.size.width() - kRight;
    const QRectF head(kLeft, kHeadLine - 45, page_.Room(), 40);
    DrawText(painter, font_, head, Qt::AlignLeft | Qt::AlignVCenter,
             tables_.Measure().Lines(BookText(facts_.project), page_.Room() * 0.6).value(0));
    DrawText(painter, font_, head, Qt::AlignRight | Qt::AlignVCenter, what);
    painter.setPen(QPen(Qt::black, 2));
    painter.drawLine(QPointF(kLeft, kHeadLine), QPointF(right, kHeadLine));
    const double footLine = page_.size.height() - kFootLine;
    painter.drawLine(QPointF(kLeft, footLine), QPointF(right, footLine));
    const QRectF foot(kLeft, footLine + 8, page_.Room(), 40);
    DrawText(painter, font_, foot, Qt::AlignLeft | Qt::AlignVCenter,
             BookText(facts_.made) + u"   "_s + BookText(facts_.program));
    DrawText(painter, font_, foot, Qt::AlignRight | Qt::AlignVCenter,
             QString::number(page + 1) + u" / "_s + QString::number(layout_.Pages()));
}

void CBookPainter::PaintTitle(QPainter& painter, const BookBlock& block, double y) const
{
    const QString tag = block.tag.empty() ? QString() : u"  ["_s + BookText(block.tag) + u']';
    painter.fillRect(QRectF(kLeft, y + 6, 12, kBlockTitleSize * 1.2), QColor(0x30, 0x50, 0x80));
    DrawText(painter, titleFont_, QRectF(kLeft + 26, y, page_.Room(), kTitleHeight - 12),
             Qt::AlignLeft | Qt::AlignVCenter, BookText(block.name));
    DrawText(painter, font_, QRectF(kLeft, y, page_.Room(), kTitleHeight - 12), Qt::AlignRight | Qt::AlignVCenter, tag);
}

void CBookPainter::PaintPiece(QPainter& painter, const BookPiece& piece)
{
    const BookTable& table = tables_.At(piece.block);
    double y = piece.top;
    painter.setPen(Qt::black);
    if (piece.first) {
        PaintTitle(painter, table.block, y);
        y += kTitleHeight;
    }
    if (piece.sketch) {
        sketches_.Paint(painter, tables_.BlockAt(piece.block), y);
        return;
    }
    if (!piece.first) {
        DrawText(painter, font_, QRectF(kLeft, y, page_.Room(), layout_.NoteHeight()), Qt::AlignLeft | Qt::AlignVCenter,
                 Continuation(table, piece));
        y += layout_.NoteHeight();
    }
    PaintTable(painter, table, piece, y);
}

void CBookPainter::PaintTable(QPainter& painter, const BookTable& table, const BookPiece& piece, double y)
{
    const BookBlock& block = table.block;
    const std::vector<std::size_t> columns = ColumnsOf(table, piece);
    double width = 0;
    for (const std::size_t column : columns)
        width += table.widths[column];
    double x = kLeft;
    painter.fillRect(QRectF(kLeft, y, width, table.headHeight), QColor(0xE4, 0xE9, 0xF0));
    for (const std::size_t column : columns) {
        PaintLines(painter, boldFont_, tables_.HeadLines(table, column),
                   QRectF(x, y, table.widths[column], table.headHeight), Qt::AlignHCenter);
        x += table.widths[column];
    }
    std::vector<double> lines = {y, y + table.headHeight};
    y += table.headHeight;
    for (std::size_t row = piece.row; row < piece.row + piece.rows; ++row) {
        const double height = table.heights[row];
        if (row < block.headRows)
            painter.fillRect(QRectF(kLeft, y, width, height), QColor(0xF4, 0xF4, 0xF4));
        x = kLeft;
        for (const std::size_t column : columns) {
            const std::string& text = block.rows[row][column];
            if (!text.empty())
                PaintLines(painter, font_, tables_.CellLines(table, column, text),
                           QRectF(x, y, table.widths[column], height),
                           IsRight(block, column, text) ? Qt::AlignRight : Qt::AlignLeft);
            x += table.widths[column];
        }
        y += height;
        lines.push_back(y);
    }
    painter.setPen(QPen(QColor(0x60, 0x60, 0x60), 1.5));
    for (const double line : lines)
        painter.drawLine(QPointF(kLeft, line), QPointF(kLeft + width, line));
    x = kLeft;
    painter.drawLine(QPointF(x, lines.front()), QPointF(x, lines.back()));
    for (const std::size_t column : columns) {
        x += table.widths[column];
        painter.drawLine(QPointF(x, lines.front()), QPointF(x, lines.back()));
    }
    painter.setPen(Qt::black);
}

void CBookPainter::PaintLines(QPainter& painter, const QFont& font, const QStringList& lines, QRectF cell,
                              Qt::Alignment side)
{
    CBookMeasure& measure = tables_.Measure();
    painter.setFont(font);
    double y = cell.top() + (cell.height() - static_cast<double>(lines.size()) * measure.LineHeight()) / 2;
    for (const QString& line : lines) {
        const double width = measure.Width(line);
        const double left = side == Qt::AlignRight     ? cell.right() - kPadding - width
                            : side == Qt::AlignHCenter ? cell.left() + (cell.width() - width) / 2
                                                       : cell.left() + kPadding;
        painter.drawText(QPointF(left, y + measure.Ascent()), line);
        y += measure.LineHeight();
    }
}

} // namespace sbd
