#include "frame/program_icon.h"

#include <QPainter>
#include <QPixmap>

namespace sbd {

QIcon ProgramIcon()
{
    constexpr QColor blue(0x1F, 0x4E, 0x79);
    QIcon icon;
    for (const int size : {16, 24, 32, 48, 64}) {
        QPixmap picture(size, size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        const auto plate = [&](int left, int top, int width, int height) { // in sixteenths of the size
            painter.fillRect(QRect(left * size / 16, top * size / 16, width * size / 16, height * size / 16), blue);
        };
        plate(2, 1, 12, 3);
        plate(7, 4, 2, 8);
        plate(1, 12, 14, 3);
        icon.addPixmap(picture);
    }
    return icon;
}

} // namespace sbd
