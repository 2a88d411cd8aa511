// Paintings that show what a picture of lines has to keep.
#pragma once

#include <QFont>
#include <QSize>

#include <span>

class QPainter;

namespace sbd {

constexpr QSize kSceneSize(320, 240);

struct SvgScene {
    const char* name;
    void (*paint)(QPainter&);
    bool needsEveryElement = true; ///< false: something is painted twice
};

[[nodiscard]] std::span<const SvgScene> SvgScenes();

/// The font of the scenes, as high as told in pixels.
[[nodiscard]] QFont Gothic(int pixels);

} // namespace sbd
