#include "frame/command_icon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>
#include <QSvgRenderer>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

QColor InkOf(QIcon::Mode mode)
{
    const QPalette palette = QGuiApplication::palette();
    switch (mode) {
    case QIcon::Disabled:
        return palette.color(QPalette::Disabled, QPalette::ButtonText);
    case QIcon::Selected:
        return palette.color(QPalette::Active, QPalette::HighlightedText);
    case QIcon::Normal:
    case QIcon::Active:
        break;
    }
    return palette.color(QPalette::Active, QPalette::ButtonText);
}

/// Draws an SVG file with one ink in place of its own colours.
class InkEngine : public QIconEngine {
public:
    explicit InkEngine(QString file) : file_(std::move(file)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const qreal ratio = painter->device()->devicePixelRatioF();
        QPixmap picture = Picture(rect.size() * ratio, InkOf(mode));
        picture.setDevicePixelRatio(ratio);
        painter->drawPixmap(rect, picture);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override { return Picture(size, InkOf(mode)); }

    [[nodiscard]] QIconEngine* clone() const override { return new InkEngine(file_); }
    [[nodiscard]] QString key() const override { return u"CommandIcon"_s; }

private:
    /// `size` in pixels of the device.
    [[nodiscard]] QPixmap Picture(const QSize& size, const QColor& ink) const
    {
        const QString key = u"%1 %2x%3 %4"_s.arg(file_).arg(size.width()).arg(size.height()).arg(ink.rgba(), 0, 16);
        QPixmap picture;
        if (size.isEmpty() || QPixmapCache::find(key, &picture))
            return picture;
        picture = QPixmap(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        const int side = std::min(size.width(), size.height());
        QSvgRenderer(file_).render(&painter, QRectF((size.width() - side) / 2, (size.height() - side) / 2, side, side));
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(picture.rect(), ink);
        painter.end();
        QPixmapCache::insert(key, picture);
        return picture;
    }

    QString file_;
};

} // namespace

QIcon CommandIcon(const QString& name)
{
    const QString file = u":/icons/%1.svg"_s.arg(name);
    return QFile::exists(file) ? QIcon(new InkEngine(file)) : QIcon();
}

} // namespace sbd
