#include "app/fonts.h"

#include <QApplication>
#include <QFont>
#include <QFontDatabase>

namespace sbd {

using namespace Qt::StringLiterals;

void SetUpFonts()
{
    const auto fixedFont = u"ＭＳ ゴシック"_s;
    if (!QFontDatabase::hasFamily(fixedFont))
        QFont::insertSubstitutions(fixedFont, {u"MS Gothic"_s, u"IPAGothic"_s, u"IPAゴシック"_s});

#ifndef _WIN32
    // The desktop's own font may lack Japanese; a mixture of two fonts reads badly.
    constexpr int points = 10;
    for (const QString& family : {u"Noto Sans CJK JP"_s, u"IPAPGothic"_s, u"IPA Pゴシック"_s}) {
        if (QFontDatabase::hasFamily(family)) {
            QApplication::setFont(QFont(family, points));
            break;
        }
    }
#endif
}

} // namespace sbd
