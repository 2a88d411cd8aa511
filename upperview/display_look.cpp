#include "upperview/display_look.h"

#include "upperview/help_page.h"

#include <algorithm>
#include <cmath>

namespace sbd {

QColor PaperColour(const DisplaySettings& display)
{
    constexpr std::uint32_t byte = 0xFF;
    return QColor(static_cast<int>(display.backColor & byte), static_cast<int>(display.backColor >> 8 & byte),
                  static_cast<int>(display.backColor >> 16 & byte));
}

namespace {

/// Share of light, from 0 (black) to 1 (white), as the eye weighs the colours.
double LuminanceOf(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

bool IsDark(const QColor& ground)
{
    constexpr double middle = 0.18; // black and white are equally far from it
    return LuminanceOf(ground) < middle;
}

QColor WithLightness(const QColor& colour, double lightness)
{
    const QColor hsl = colour.toHsl();
    return QColor::fromHslF(std::max(0.0F, hsl.hslHueF()), hsl.hslSaturationF(), static_cast<float>(lightness)).toRgb();
}

} // namespace

double ContrastOf(const QColor& a, const QColor& b)
{
    constexpr double flare = 0.05;
    const double first = LuminanceOf(a) + flare;
    const double second = LuminanceOf(b) + flare;
    return std::max(first, second) / std::min(first, second);
}

QColor ReadableOn(const QColor& ground, const QColor& colour)
{
    constexpr double enough = 4.5;
    if (!IsDark(ground))
        return colour;
    const double own = static_cast<double>(colour.lightnessF());
    double lightness = std::max(own, 1 - own);
    QColor lighter = WithLightness(colour, lightness);
    while (ContrastOf(ground, lighter) < enough && lightness < 1) {
        lightness = std::min(1.0, lightness + 0.02);
        lighter = WithLightness(colour, lightness);
    }
    return lighter;
}

QColor FillOn(const QColor& ground, const QColor& colour)
{
    constexpr double least = 0.12;
    constexpr double span = 0.15;
    if (!IsDark(ground))
        return colour;
    constexpr double most = 2.0; // so that letters, which are readable on the ground, are so on the filling
    double lightness =
        static_cast<double>(ground.lightnessF()) + least + span * (1 - static_cast<double>(colour.lightnessF()));
    QColor filling = WithLightness(colour, lightness);
    while (ContrastOf(ground, filling) > most && lightness > 0.01) {
        lightness -= 0.01;
        filling = WithLightness(colour, lightness);
    }
    return filling;
}

QFont FigureFont(const DisplaySettings& display)
{
    QFont font = HelpFont(display);
    font.setPixelSize(font.pixelSize() / 2);
    return font;
}

} // namespace sbd
