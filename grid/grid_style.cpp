#include "grid/grid_style.h"

#include <cmath>

namespace sbd::gridstyle {

namespace {

/// How light a colour is to the eye, 0 to 1.
double Light(const QColor& color)
{
    const auto part = [](double value) {
        return value <= 0.04045 ? value / 12.92 : std::pow((value + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * part(color.redF()) + 0.7152 * part(color.greenF()) + 0.0722 * part(color.blueF());
}

/// `color`, no lighter than it must be to be read on `ground`, which is darker.
QColor ReadableOn(const QColor& ground, const QColor& color)
{
    constexpr double contrast = 4.6;
    constexpr int most = 255;
    const double least = contrast * (Light(ground) + 0.05) - 0.05;
    QColor lighter = color;
    for (int lightness = color.lightness(); lightness < most && Light(lighter) < least; ++lightness)
        lighter = QColor::fromHsl(color.hslHue(), color.hslSaturation(), lightness + 1);
    return lighter;
}

} // namespace

bool IsDark(const QPalette& palette)
{
    return palette.color(QPalette::Window).lightness() < palette.color(QPalette::WindowText).lightness();
}

const Colors& ColorsFor(const QPalette& palette)
{
    return IsDark(palette) ? kDark : kLight;
}

QColor TextColorFor(const QPalette& palette, const QColor& color)
{
    if (!color.isValid())
        return QColor::fromRgba(ColorsFor(palette).text);
    if (!IsDark(palette))
        return color;
    return ReadableOn(QColor::fromRgba(kDark.locked), color); // the lightest of the grounds
}

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
