#include "upperview/book_paper.h"

#include "document/path.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "sbdfile/output_file.h"
#include "sheets/workbook.h"
#include "upperview/draw_painter.h"
#include "upperview/page/draw_recorder.h"
#include "upperview/page/page_drawing.h"
#include "upperview/page/page_store.h"
#include "upperview/pdf_outline.h"

#include <QFontMetricsF>
#include <QHash>
#include <QPainter>
#include <QPdfWriter>
#include <QStringList>
#include <QTemporaryFile>

#include <algorithm>
#include <cmath>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

// Lengths are in 0.1 mm.
constexpr double kUnitsPerInch = 254;
constexpr double kPointsPerUnit = 72 / kUnitsPerInch;
constexpr int kPdfDpi = 1200;
constexpr QSizeF kA4(2100, 2970);
constexpr double kLeft = 200; // for the binding
constexpr double kRight = 120;
constexpr double kTop = 200;
constexpr double kBottom = 180;
constexpr double kHeadLine = 130; // of the page's head, from the top
constexpr int kTextSize = 27;     // 7.7 points
constexpr int kBlockTitleSize = 36;
constexpr int kCoverTitleSize = 80;
constexpr int kSketchTextSize = 32;
constexpr double kPadding = 9;      // of a cell, left and right
constexpr double kWidestCell = 560; // longer texts take several lines
constexpr double kWidestHead = 260;
constexpr std::size_t kOptionColumns = 3; // row, item, value
constexpr double kAboveBlock = 60;
constexpr int kLeastRows = 3; // a block begins on a page that has room for so many
constexpr double kHighestSketch = 800;
constexpr double kLargestSketch = 0.75; // of its size on the screen
constexpr double kContentsLine = 52;

QFont FontOf(const BookLook& look, int size, bool bold = false)
{
    QFont font;
    QStringList families = {u"ＭＳ ゴシック"_s, u"MS Gothic"_s, u"IPAGothic"_s, u"IPAゴシック"_s};
    if (!look.fontFamily.isEmpty())
        families.prepend(look.fontFamily);
    font.setFamilies(families);
    font.setStyleHint(QFont::Monospace);
    font.setPixelSize(size);
    font.setBold(bold);
    font.setHintingPreference(QFont::PreferNoHinting); // so that it prints as it is measured
    return font;
}

QString Text(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}

/// Widths of texts in one font; a column has the same words again and again.
class Measure {
public:
    explicit Measure(const QFont& font) : metrics_(font) {}

    [[nodiscard]] double Width(const QString& text)
    {
        if (const auto known = widths_.constFind(text); known != widths_.cend())
            return *known;
        constexpr qsizetype most = 20'000;
        if (widths_.size() >= most)
            widths_.clear();
        const double width = metrics_.horizontalAdvance(text);
        widths_.insert(text, width);
        return width;
    }

    /// The lines of a text that are not wider than `width`, or one character.
    [[nodiscard]] QStringList Lines(const QString& text, double width)
    {
        QStringList lines;
        for (const QString& part : text.split(u'\n')) {
            QString rest = part;
            while (rest.size() > 1 && Width(rest) > width) {
                qsizetype fits = 1;
                double taken = 0;
                for (qsizetype i = 0; i < rest.size(); ++i) {
                    const bool pair = rest[i].isHighSurrogate() && i + 1 < rest.size();
                    taken += Width(rest.mid(i, pair ? 2 : 1));
                    if (taken > width && i > 0)
                        break;
                    i += pair ? 1 : 0;
                    fits = i + 1;
                }
                lines << rest.left(fits);
                rest = rest.mid(fits);
            }
            lines << rest;
        }
        return lines;
    }

    [[nodiscard]] double LineHeight() const { return std::ceil(metrics_.height() * 1.08); }
    [[nodiscard]] double Ascent() const { return metrics_.ascent(); }

private:
    QFontMetricsF metrics_;
    QHash<QString, double> widths_;
};

/// A block as it is put on paper: widths and heights.
struct Table {
    BookBlock block;
    std::vector<double> widths;
    std::vector<double> heights; // of the rows
    double headHeight = 0;
    std::size_t repeated = 1; // columns at the left that each part has
};

/// A part of a block on a page.
struct Piece {
    int block = 0; // place in the list of blocks
    double top = 0;
    bool first = false;  // the block begins here
    bool sketch = false; // a title with the sketches, no table
    std::size_t row = 0;
    std::size_t rows = 0;
    std::size_t column = 0; // the first one behind those that are repeated
    std::size_t columns = 0;
};

struct Start {
    int page = 0; // from 0, in the whole book
    double top = 0;
};

class Book {
public:
    Book(const CSbdData& data, const std::vector<int>& blocks, const BookFacts& facts, const BookLook& look)
        : data_(data)
        , blocks_(blocks)
        , facts_(facts)
        , look_(look)
        , page_(look.landscape ? kA4.transposed() : kA4)
        , font_(FontOf(look, kTextSize))
        , boldFont_(FontOf(look, kTextSize, true))
        , titleFont_(FontOf(look, kBlockTitleSize, true))
        , measure_(font_)
    {
    }

    /// Finds the place of everything. False if the user gave up.
    [[nodiscard]] bool LayOut(const BookProgress& progress)
    {
        const auto count = static_cast<int>(blocks_.size());
        contentsPages_ = std::max(1, (count + ContentsLines() - 1) / ContentsLines());
        for (int i = 0; i < count; ++i) {
            if (progress && !progress(i, 2 * count))
                return false;
            Place(i);
        }
        return true;
    }

    [[nodiscard]] int Pages() const { return 1 + contentsPages_ + static_cast<int>(pieces_.size()); }
    [[nodiscard]] QSizeF PageSize() const { return page_; }

    /// Paints all pages; `newPage` opens the next one. False if the user gave up.
    [[nodiscard]] bool Paint(QPainter& painter, const std::function<void()>& newPage, const BookProgress& progress)
    {
        PaintCover(painter);
        for (int page = 0; page < contentsPages_; ++page) {
            newPage();
            PaintContents(painter, page);
            PaintFrame(painter, 1 + page, u"目次"_s);
        }
        const auto count = static_cast<int>(blocks_.size());
        for (std::size_t page = 0; page < pieces_.size(); ++page) {
            if (progress && !progress(count + pieces_[page].front().block, 2 * count))
                return false;
            newPage();
            for (const Piece& piece : pieces_[page])
                PaintPiece(painter, piece);
            const std::string first = TableOf(pieces_[page].front().block).block.name;
            PaintFrame(painter, 1 + contentsPages_ + static_cast<int>(page), Text(first));
        }
        return true;
    }

    [[nodiscard]] std::vector<PdfBookmark> Bookmarks() const
    {
        std::vector<PdfBookmark> bookmarks = {{u"表紙"_s, 0, 0, 0}, {u"目次"_s, 1, 0, 0}};
        for (std::size_t i = 0; i < starts_.size(); ++i)
            bookmarks.push_back({Text(names_[i]), starts_[i].page, starts_[i].top * kPointsPerUnit, 0});
        return bookmarks;
    }

    [[nodiscard]] std::vector<PdfLink> Links() const
    {
        std::vector<PdfLink> links;
        for (std::size_t i = 0; i < starts_.size(); ++i) {
            const auto line = static_cast<int>(i) % ContentsLines();
            const QRectF place(kLeft, ContentsTop() + line * kContentsLine, Room(), kContentsLine);
            links.push_back({1 + static_cast<int>(i) / ContentsLines(),
                             QRectF(place.topLeft() * kPointsPerUnit, place.size() * kPointsPerUnit), starts_[i].page,
                             starts_[i].top * kPointsPerUnit});
        }
        return links;
    }

private:
    [[nodiscard]] double Room() const { return page_.width() - kLeft - kRight; }
    [[nodiscard]] double Foot() const { return page_.height() - kBottom; }
    [[nodiscard]] static double ContentsTop() { return kTop + 110; }
    [[nodiscard]] int ContentsLines() const { return static_cast<int>((Foot() - ContentsTop()) / kContentsLine); }
    [[nodiscard]] double TitleHeight() const { return kBlockTitleSize * 1.7; }
    [[nodiscard]] double NoteHeight() const { return measure_.LineHeight() + 6; }

    /// The table of a block; the last one is kept.
    const Table& TableOf(int index)
    {
        if (index != tableIndex_) {
            table_ = MakeTable(index);
            tableIndex_ = index;
        }
        return table_;
    }

    Table MakeTable(int index)
    {
        Table table;
        table.block = MakeBookBlock(data_, blocks_[static_cast<std::size_t>(index)]);
        const BookBlock& block = table.block;
        const std::size_t columns = block.columns.size();
        int headLines = 1;
        for (std::size_t column = 0; column < columns; ++column) {
            double width = 0;
            for (const auto& row : block.rows)
                width = std::max(width, measure_.Width(Text(row[column])));
            double head = 0;
            for (const QString& line : Text(block.columns[column].head).split(u'\n'))
                head = std::max(head, measure_.Width(line));
            const bool option = columns == kOptionColumns; // its texts are sentences, and it is not broken by columns
            const double widest = option ? Room() * (column == 1 ? 0.58 : 0.34) : kWidestCell;
            table.widths.push_back(std::max({std::min(width, widest), std::min(head, kWidestHead), 40.0})
                                   + 2 * kPadding);
            headLines = std::max(headLines, static_cast<int>(HeadLines(table, column).size()));
        }
        table.headHeight = headLines * measure_.LineHeight() + kPadding;
        for (const auto& row : block.rows) {
            qsizetype lines = 1;
            for (std::size_t column = 0; column < columns; ++column)
                lines = std::max(lines, CellLines(table, column, row[column]).size());
            table.heights.push_back(static_cast<double>(lines) * measure_.LineHeight() + kPadding);
        }
        table.repeated = std::min(block.nameColumns, columns);
        if (columns > kOptionColumns && WidthOf(table, 0, table.repeated) > Room() / 2)
            table.repeated = std::min<std::size_t>(1, columns);
        return table;
    }

    [[nodiscard]] static double WidthOf(const Table& table, std::size_t column, std::size_t count)
    {
        double width = 0;
        for (std::size_t i = column; i < column + count; ++i)
            width += table.widths[i];
        return width;
    }

    QStringList HeadLines(const Table& table, std::size_t column)
    {
        return measure_.Lines(Text(table.block.columns[column].head), table.widths[column] - 2 * kPadding + 1);
    }

    QStringList CellLines(const Table& table, std::size_t column, const std::string& text)
    {
        return measure_.Lines(Text(text), table.widths[column] - 2 * kPadding + 1);
    }

    // --- where things are --------------------------------------------------------------------------

    void NewPage()
    {
        pieces_.emplace_back();
        y_ = kTop;
    }

    void Place(int index)
    {
        const Table& table = TableOf(index);
        const std::size_t rows = table.block.rows.size();
        double least = TitleHeight() + table.headHeight;
        for (std::size_t row = 0; row < std::min<std::size_t>(rows, kLeastRows); ++row)
            least += table.heights[row];
        const double sketches = SketchHeight(index);
        const double above = pieces_.empty() || pieces_.back().empty() ? 0 : kAboveBlock;
        if (pieces_.empty() || y_ + above + least + sketches > Foot())
            NewPage();
        else
            y_ += above;
        names_.push_back(table.block.name);
        starts_.push_back({1 + contentsPages_ + static_cast<int>(pieces_.size()) - 1, y_});
        bool first = true;
        if (sketches > 0) {
            pieces_.back().push_back({index, y_, true, true});
            y_ += TitleHeight() + sketches;
            first = false;
        }
        const std::size_t columns = table.widths.size();
        for (std::size_t column = table.repeated; first || column < columns;) {
            const std::size_t count = ColumnsThatFit(table, column);
            PlaceColumns(index, table, column, count, first);
            first = false;
            column += std::max<std::size_t>(count, 1);
            if (column < columns)
                y_ += kPadding * 3;
        }
    }

    [[nodiscard]] std::size_t ColumnsThatFit(const Table& table, std::size_t column) const
    {
        double left = Room() - WidthOf(table, 0, table.repeated);
        std::size_t count = 0;
        while (column + count < table.widths.size() && (count == 0 || table.widths[column + count] <= left)) {
            left -= table.widths[column + count];
            ++count;
        }
        return count;
    }

    /// One group of columns, with all rows, over as many pages as it takes.
    void PlaceColumns(int index, const Table& table, std::size_t column, std::size_t count, bool first)
    {
        const std::size_t rows = table.block.rows.size();
        std::size_t row = 0;
        do {
            const double head = (first ? TitleHeight() : NoteHeight()) + table.headHeight;
            const double least = row < rows ? table.heights[row] : 0;
            if (y_ + head + least > Foot() && y_ > kTop)
                NewPage();
            Piece piece{index, y_, first, false, row, 0, column, count};
            y_ += head;
            do {
                if (row == rows)
                    break;
                y_ += table.heights[row];
                ++row;
                ++piece.rows;
            } while (row < rows && y_ + table.heights[row] <= Foot());
            pieces_.back().push_back(piece);
            first = false;
        } while (row < rows);
    }

    // --- sketches ----------------------------------------------------------------------------------

    struct SketchPlace {
        const Sketch* sketch = nullptr;
        QRectF box; // what it takes, y downward
        double scale = 1;
    };

    [[nodiscard]] PageView ViewOf(int index) const { return {data_, blocks_[static_cast<std::size_t>(index)], 0, 0}; }

    std::vector<SketchPlace> SketchesOf(int index)
    {
        std::vector<SketchPlace> places;
        const Page* page = look_.sketches ? FindPage(blocks_[static_cast<std::size_t>(index)]) : nullptr;
        const PageView view = ViewOf(index);
        const PageBranch* branch = page != nullptr ? page->BranchOf(view) : nullptr;
        if (branch == nullptr)
            return places;
        for (const std::string& name : branch->sketches) {
            const Sketch* sketch = FindSketch(*page, name);
            if (sketch == nullptr || !sketch->when.Holds(view))
                continue;
            CDrawRecorder recorder(MetricsOf(FontOf(look_, kSketchTextSize)));
            (void)DrawSketch(recorder, *sketch, view, {0, 0});
            QRectF box;
            for (const Primitive& primitive : recorder.Primitives()) {
                const DrawBox room = recorder.BoxOf(primitive);
                box = box.united(QRectF(QPointF(room.left, -room.top), QPointF(room.right + 1, -room.bottom + 1)));
            }
            if (!box.isEmpty())
                places.push_back(
                    {sketch, box, std::min({kLargestSketch, Room() / box.width(), kHighestSketch / box.height()})});
        }
        return places;
    }

    double SketchHeight(int index)
    {
        double height = 0;
        for (const SketchPlace& place : SketchesOf(index)) // those that a page has no room for are left out
            if (height + place.box.height() * place.scale + 30 < (Foot() - kTop) / 2)
                height += place.box.height() * place.scale + 30;
        return height;
    }

    void PaintSketches(QPainter& painter, int index, double top)
    {
        double height = 0;
        for (const SketchPlace& place : SketchesOf(index)) {
            if (height + place.box.height() * place.scale + 30 >= (Foot() - kTop) / 2)
                continue;
            painter.save();
            painter.translate(kLeft + 20, top + height);
            painter.scale(place.scale, place.scale);
            painter.translate(-place.box.topLeft());
            painter.setBackground(Qt::white);
            {
                CPainterContext context(painter, FontOf(look_, kSketchTextSize));
                (void)DrawSketch(context, *place.sketch, ViewOf(index), {0, 0});
            }
            painter.restore();
            height += place.box.height() * place.scale + 30;
        }
    }

    // --- paint -------------------------------------------------------------------------------------

    void DrawText(QPainter& painter, const QFont& font, QRectF place, int flags, const QString& text)
    {
        painter.setFont(font);
        painter.drawText(place, flags | Qt::TextDontClip | Qt::TextSingleLine, text);
    }

    void PaintCover(QPainter& painter)
    {
        const double middle = page_.height() * 0.26;
        painter.setPen(QPen(Qt::black, 6));
        painter.drawLine(QPointF(kLeft, middle - 60), QPointF(page_.width() - kRight, middle - 60));
        painter.drawLine(QPointF(kLeft, middle + 190), QPointF(page_.width() - kRight, middle + 190));
        DrawText(painter, FontOf(look_, kCoverTitleSize, true), QRectF(kLeft, middle, Room(), 130), Qt::AlignCenter,
                 u"入力データ"_s);
        const QFont font = FontOf(look_, 40);
        Measure measure(font);
        double y = middle + 320;
        std::vector<std::pair<std::string, std::string>> lines = CoverLines(facts_);
        lines.emplace_back("ブロック数", std::to_string(blocks_.size()));
        lines.emplace_back("ページ数", std::to_string(Pages()));
        for (const auto& line : lines) {
            const QStringList texts = measure.Lines(Text(line.second), Room() - 460);
            painter.setPen(QPen(QColor(0xB0, 0xB0, 0xB0), 2));
            painter.drawLine(QPointF(kLeft, y - 18), QPointF(page_.width() - kRight, y - 18));
            painter.setPen(Qt::black);
            DrawText(painter, font, QRectF(kLeft + 20, y, 400, 50), Qt::AlignLeft, Text(line.first));
            for (const QString& text : texts) {
                DrawText(painter, font, QRectF(kLeft + 440, y, Room() - 460, 50), Qt::AlignLeft, text);
                y += measure.LineHeight();
            }
            y += 40;
        }
    }

    void PaintContents(QPainter& painter, int page)
    {
        painter.setPen(Qt::black);
        DrawText(painter, titleFont_, QRectF(kLeft, kTop, Room(), 60), Qt::AlignLeft,
                 page == 0 ? u"目次"_s : u"目次 (続き)"_s);
        const auto from = static_cast<std::size_t>(page) * static_cast<std::size_t>(ContentsLines());
        const std::size_t to = std::min(from + static_cast<std::size_t>(ContentsLines()), names_.size());
        const QFont font = FontOf(look_, 34);
        Measure measure(font);
        for (std::size_t i = from; i < to; ++i) {
            const double y = ContentsTop() + static_cast<double>(i - from) * kContentsLine;
            const QRectF line(kLeft + 20, y, Room() - 40, kContentsLine);
            const QString name = Text(names_[i]);
            const QString number = QString::number(starts_[i].page + 1);
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
    void PaintFrame(QPainter& painter, int page, const QString& what)
    {
        painter.setPen(Qt::black);
        const double right = page_.width() - kRight;
        const QRectF head(kLeft, kHeadLine - 45, Room(), 40);
        const double nameRoom = Room() * 0.6;
        DrawText(painter, font_, head, Qt::AlignLeft | Qt::AlignVCenter,
                 measure_.Lines(Text(facts_.project), nameRoom).value(0));
        DrawText(painter, font_, head, Qt::AlignRight | Qt::AlignVCenter, what);
        painter.setPen(QPen(Qt::black, 2));
        painter.drawLine(QPointF(kLeft, kHeadLine), QPointF(right, kHeadLine));
        const double footLine = page_.height() - 130;
        painter.drawLine(QPointF(kLeft, footLine), QPointF(right, footLine));
        const QRectF foot(kLeft, footLine + 8, Room(), 40);
        DrawText(painter, font_, foot, Qt::AlignLeft | Qt::AlignVCenter,
                 Text(facts_.made) + u"   "_s + Text(facts_.program));
        DrawText(painter, font_, foot, Qt::AlignRight | Qt::AlignVCenter,
                 QString::number(page + 1) + u" / "_s + QString::number(Pages()));
    }

    void PaintPiece(QPainter& painter, const Piece& piece)
    {
        const Table& table = TableOf(piece.block);
        const BookBlock& block = table.block;
        double y = piece.top;
        painter.setPen(Qt::black);
        if (piece.first) {
            const QString tag = block.tag.empty() ? QString() : u"  ["_s + Text(block.tag) + u']';
            painter.fillRect(QRectF(kLeft, y + 6, 12, kBlockTitleSize * 1.2), QColor(0x30, 0x50, 0x80));
            DrawText(painter, titleFont_, QRectF(kLeft + 26, y, Room(), TitleHeight() - 12),
                     Qt::AlignLeft | Qt::AlignVCenter, Text(block.name));
            DrawText(painter, font_, QRectF(kLeft, y, Room(), TitleHeight() - 12), Qt::AlignRight | Qt::AlignVCenter,
                     tag);
            y += TitleHeight();
        }
        if (piece.sketch) {
            PaintSketches(painter, piece.block, y);
            return;
        }
        if (!piece.first) {
            DrawText(painter, font_, QRectF(kLeft, y, Room(), NoteHeight()), Qt::AlignLeft | Qt::AlignVCenter,
                     Continuation(table, piece));
            y += NoteHeight();
        }
        std::vector<std::size_t> columns;
        for (std::size_t i = 0; i < table.repeated; ++i)
            columns.push_back(i);
        for (std::size_t i = piece.column; i < piece.column + piece.columns; ++i)
            columns.push_back(i);
        double width = 0;
        for (const std::size_t column : columns)
            width += table.widths[column];
        double x = kLeft;
        painter.fillRect(QRectF(kLeft, y, width, table.headHeight), QColor(0xE4, 0xE9, 0xF0));
        for (const std::size_t column : columns) {
            PaintLines(painter, boldFont_, HeadLines(table, column),
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
                    PaintLines(painter, font_, CellLines(table, column, text),
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

    /// As in the window, and numbers wherever they do not name the row.
    [[nodiscard]] static bool IsRight(const BookBlock& block, std::size_t column, const std::string& text)
    {
        return block.columns[column].rightAligned || (column >= block.nameColumns && PlainNumberOf(text).has_value());
    }

    void PaintLines(QPainter& painter, const QFont& font, const QStringList& lines, QRectF cell, Qt::Alignment side)
    {
        painter.setFont(font);
        double y = cell.top() + (cell.height() - static_cast<double>(lines.size()) * measure_.LineHeight()) / 2;
        for (const QString& line : lines) {
            const double width = measure_.Width(line);
            const double left = side == Qt::AlignRight     ? cell.right() - kPadding - width
                                : side == Qt::AlignHCenter ? cell.left() + (cell.width() - width) / 2
                                                           : cell.left() + kPadding;
            painter.drawText(QPointF(left, y + measure_.Ascent()), line);
            y += measure_.LineHeight();
        }
    }

    /// "313 垂直補剛材 (続き)  列 8～14 / 22  行 1～40 / 120".
    [[nodiscard]] static QString Continuation(const Table& table, const Piece& piece)
    {
        QString text = Text(table.block.name);
        if (piece.row > 0 || piece.column > table.repeated)
            text += u" (続き)"_s;
        const std::size_t columns = table.widths.size();
        if (piece.columns + table.repeated < columns)
            text += u"   列 %1～%2 / %3"_s.arg(piece.column).arg(piece.column + piece.columns - 1).arg(columns - 1);
        if (piece.rows > 0 && piece.rows < table.block.rows.size())
            text += u"   行 %1～%2 / %3"_s.arg(piece.row + 1).arg(piece.row + piece.rows).arg(table.block.rows.size());
        return text;
    }

    const CSbdData& data_;
    const std::vector<int>& blocks_;
    const BookFacts& facts_;
    const BookLook& look_;
    QSizeF page_;
    QFont font_;
    QFont boldFont_;
    QFont titleFont_;
    Measure measure_;
    int contentsPages_ = 1;
    std::vector<std::vector<Piece>> pieces_; // of each page behind the contents
    std::vector<std::string> names_;
    std::vector<Start> starts_;
    double y_ = kTop;
    Table table_;
    int tableIndex_ = -1;
};

FileResult NoRoom()
{
    FileResult result;
    result.error = FileError::DiskFull;
    result.detail = "作業用フォルダーに書き込めません";
    return result;
}

} // namespace

std::optional<BookReport> WriteBookPdf(const QString& path, const CSbdData& data, const std::vector<int>& blocks,
                                       const BookFacts& facts, const BookLook& look, const BookProgress& progress)
{
    Book book(data, blocks, facts, look);
    if (!book.LayOut(progress))
        return std::nullopt;
    BookReport report;
    report.pages = book.Pages();
    QTemporaryFile file;
    if (!file.open()) {
        report.result = NoRoom();
        return report;
    }
    {
        QPdfWriter writer(&file);
        writer.setResolution(kPdfDpi);
        writer.setTitle(u"入力データ "_s + Text(facts.project));
        writer.setCreator(Text(facts.program));
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageOrientation(look.landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
        writer.setPageMargins({0, 0, 0, 0});
        QPainter painter;
        if (!painter.begin(&writer)) {
            report.result = NoRoom();
            return report;
        }
        painter.scale(kPdfDpi / kUnitsPerInch, kPdfDpi / kUnitsPerInch);
        const bool whole = book.Paint(
            painter, [&writer] { writer.newPage(); }, progress);
        painter.end();
        if (!whole)
            return std::nullopt;
    }
    if (!AppendPdfOutline(file, book.Bookmarks(), book.Links()) || !file.seek(0)) {
        report.result = NoRoom();
        return report;
    }
    const QByteArray bytes = file.readAll();
    report.result =
        WriteOutputFile(ToPath(path), std::string_view(bytes.constData(), static_cast<std::size_t>(bytes.size())));
    return report;
}

} // namespace sbd
