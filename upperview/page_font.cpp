#include "upperview/page_font.h"

namespace sbd {

using namespace Qt::StringLiterals;

QFont PageFont()
{
    constexpr int height = 38; // 0.1 mm
    QFont font(u"ＭＳ ゴシック"_s);
    font.setStyleHint(QFont::Monospace);
    font.setPixelSize(height);
    font.setHintingPreference(QFont::PreferNoHinting); // so that it scales as it is measured
    return font;
}

} // namespace sbd
