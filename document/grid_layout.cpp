#include "document/grid_layout.h"

#include <QStringList>

#include <algorithm>

namespace sbd {

namespace {

constexpr int kMostColumns = 100;
constexpr int kMostPixels = 16'000;

} // namespace

QString GridLayoutLine(const GridLayout& layout)
{
    if (layout == GridLayout{})
        return {};
    QStringList words{layout.frozen ? QString::number(*layout.frozen) : QStringLiteral("-")};
    for (const auto& [column, pixels] : layout.widened)
        words << QStringLiteral("%1:%2").arg(column).arg(pixels);
    return words.join(u' ');
}

GridLayout GridLayoutOf(const QString& line)
{
    const QStringList words = line.split(u' ', Qt::SkipEmptyParts);
    GridLayout layout;
    for (int i = 0; i < words.size() && i <= kMostColumns; ++i) {
        bool isNumber = false;
        if (const int frozen = words[i].toInt(&isNumber); i == 0 && isNumber)
            layout.frozen = std::clamp(frozen, 0, kMostColumns);
        const QStringList parts = words[i].split(u':');
        if (parts.size() != 2)
            continue;
        bool isColumn = false;
        const int column = parts[0].toInt(&isColumn);
        const int pixels = parts[1].toInt(&isNumber);
        if (isColumn && isNumber && column >= 1 && column <= kMostColumns)
            layout.widened[column] = std::clamp(pixels, -kMostPixels, kMostPixels);
    }
    return layout;
}

} // namespace sbd
