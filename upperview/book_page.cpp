#include "upperview/book_page.h"

#include <cmath>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr QSizeF kA4(2100, 2970);

} // namespace

BookPage::BookPage(const BookLook& look) : size(look.landscape ? kA4.transposed() : kA4) {}

QFont BookFont(const BookLook& look, int size, bool bold)
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

double CBookMeasure::Width(const QString& text)
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

QStringList CBookMeasure::Lines(const QString& text, double width)
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

double CBookMeasure::LineHeight() const
{
    return std::ceil(metrics_.height() * 1.08);
}

} // namespace sbd
