#include "grid/grid_style.h"

namespace sbd::gridstyle {

QFont GridFont()
{
    constexpr int height = 12; // pixels; the column widths of the panels are made for it
    QFont font;
    font.setFamilies({QStringLiteral("ＭＳ ゴシック"), QStringLiteral("MS Gothic"), QStringLiteral("IPAGothic"),
                      QStringLiteral("IPAゴシック")});
    font.setStyleHint(QFont::Monospace);
    font.setPixelSize(height);
    return font;
}

} // namespace sbd::gridstyle
