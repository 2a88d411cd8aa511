#include "upperview/paper.h"

#include <QPalette>

#include <algorithm>
#include <cmath>

namespace sbd {

namespace {

constexpr double kLightest = 0.93; // lightness of what is black on white paper
constexpr double kReadable = 5;    // contrast of texts
constexpr double kSeenOnWhite = 2; // what is not seen on white need not be seen on dark paper
constexpr float kLightnessStep = 0.03F;
constexpr double kDarkPaper = 0.18; // luminance: halfway between black and white for the eye

/// Of light, 0 to 1, weighted as the eye does.
double Luminance(const QColor& colour)
{
    const auto linear = [](double part) {
        return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * linear(colour.redF()) + 0.7152 * linear(colour.greenF()) + 0.0722 * linear(colour.blueF());
}

bool IsDark(const QColor& colour)
{
    return Luminance(colour) < kDarkPaper;
}

QColor WithLightness(const QColor& colour, float lightness)
{
    float hue = 0;
    float saturation = 0;
    float old = 0;
    colour.getHslF(&hue, &saturation, &old);
    return QColor::fromHslF(std::max(hue, 0.0F), saturation, std::clamp(lightness, 0.0F, 1.0F));
}

} // namespace

double Contrast(const QColor& one, const QColor& other)
{
    constexpr double glare = 0.05;
    const auto [less, more] = std::minmax({Luminance(one), Luminance(other)});
    return (more + glare) / (less + glare);
}

QColor PaperOnScreen(const QColor& paper, const QPalette& palette)
{
    const QColor base = palette.color(QPalette::Active, QPalette::Base);
    return paper == QColor(Qt::white) && IsDark(base) ? base : paper;
}

QColor Surface(const QColor& colour, const QColor& paper)
{
    if (!IsDark(paper))
        return colour;
    const double bottom = paper.lightnessF();
    return WithLightness(colour, static_cast<float>(bottom + (1 - colour.lightnessF()) * (kLightest - bottom)));
}

QColor Ink(const QColor& colour, const QColor& paper)
{
    QColor ink = Surface(colour, paper);
    if (!IsDark(paper) || Contrast(colour, Qt::white) < kSeenOnWhite)
        return ink;
    while (Contrast(ink, paper) < kReadable && ink.lightnessF() < static_cast<float>(kLightest))
        ink = WithLightness(ink, ink.lightnessF() + kLightnessStep);
    return ink;
}

} // namespace sbd
