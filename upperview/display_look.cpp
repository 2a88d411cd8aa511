#include "upperview/display_look.h"

#include "upperview/help_page.h"

namespace sbd {

QColor PaperColour(const DisplaySettings& display)
{
    constexpr std::uint32_t byte = 0xFF;
    return QColor(static_cast<int>(display.backColor & byte), static_cast<int>(display.backColor >> 8 & byte),
                  static_cast<int>(display.backColor >> 16 & byte));
}

QFont FigureFont(const DisplaySettings& display)
{
    QFont font = HelpFont(display);
    font.setPixelSize(font.pixelSize() / 2);
    return font;
}

} // namespace sbd
