#include "app/screenshot.h"

#include "frame/main_frame.h"

#include <QApplication>
#include <QImageWriter>

namespace sbd {

using namespace Qt::StringLiterals;

void ShowInSize(CMainFrame& frame, QSize size)
{
    frame.setAttribute(Qt::WA_DontShowOnScreen); // a picture, not a window that flashes up
    frame.resize(size);
    frame.show();
    QApplication::processEvents();
}

QString TakeScreenshot(CMainFrame& frame, const QString& path)
{
    QApplication::processEvents(); // layout, then the paints that it asks for
    QApplication::processEvents();
    QImageWriter writer(path, "png");
    if (writer.write(frame.grab().toImage()))
        return {};
    return u"%1: 画像を書き込めませんでした (%2)。"_s.arg(path, writer.errorString());
}

} // namespace sbd
