// What a page of the book measures, and its fonts. Lengths are in 0.1 mm.
#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QSizeF>
#include <QString>
#include <QStringList>

#include <string>

namespace sbd {

/// What the book shows beside its blocks, and how.
struct BookLook {
    QString fontFamily;     ///< empty: the usual Japanese one
    bool sketches = false;  ///< with the sketches of each block's help page
    bool landscape = false; ///< A4 lying
};

namespace book_page {

inline constexpr double kLeft = 200; // for the binding
inline constexpr double kRight = 120;
inline constexpr double kTop = 200;
inline constexpr double kBottom = 180;
inline constexpr double kHeadLine = 130; // of the page's head, from the top
inline constexpr double kFootLine = 130; // of its foot, from the bottom
inline constexpr double kPadding = 9;    // of a cell, left and right
inline constexpr double kContentsLine = 52;
inline constexpr double kContentsTop = kTop + 110;

inline constexpr int kTextSize = 27; // 7.7 points
inline constexpr int kBlockTitleSize = 36;
inline constexpr double kTitleHeight = kBlockTitleSize * 1.7;

} // namespace book_page

/// A sheet and what it has room for.
struct BookPage {
    QSizeF size;

    explicit BookPage(const BookLook& look);
    [[nodiscard]] double Room() const { return size.width() - book_page::kLeft - book_page::kRight; }
    [[nodiscard]] double Foot() const { return size.height() - book_page::kBottom; }
    [[nodiscard]] int ContentsLines() const
    {
        return static_cast<int>((Foot() - book_page::kContentsTop) / book_page::kContentsLine);
    }
};

[[nodiscard]] QFont BookFont(const BookLook& look, int size, bool bold = false);

[[nodiscard]] inline QString BookText(const std::string& utf8)
{
    return QString::fromStdString(utf8);
}

/// Widths of texts in one font; a column has the same words again and again.
class CBookMeasure {
public:
    explicit CBookMeasure(const QFont& font) : metrics_(font) {}

    [[nodiscard]] double Width(const QString& text);
    /// The lines of a text that are not wider than `width`, or one character.
    [[nodiscard]] QStringList Lines(const QString& text, double width);
    [[nodiscard]] double LineHeight() const;
    [[nodiscard]] double Ascent() const { return metrics_.ascent(); }

private:
    QFontMetricsF metrics_;
    QHash<QString, double> widths_;
};

} // namespace sbd
