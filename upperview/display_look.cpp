#include "upperview/display_look.h"

#include "upperview/help_page.h"

#include <QPainter>
#include <QWidget>

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

void DrawFocusFrame(QPainter& painter, const QWidget& pane)
{
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing, false);
    painter.setPen(QPen(pane.palette().color(QPalette::Highlight), 2));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(pane.rect().adjusted(1, 1, -1, -1));
    painter.restore();
}

} // namespace sbd
