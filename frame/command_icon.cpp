#include "frame/command_icon.h"

#include <QFile>
#include <QGuiApplication>
#include <QIconEngine>
#include <QPainter>
#include <QPalette>
#include <QPixmapCache>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

/// The sides that a drawing is there in, in pixels, rising.
constexpr int kSides[] = {SBD_ICON_SIZES};

QString FileOf(const QString& name, int side)
{
    return u":/icons/%1/%2.png"_s.arg(name).arg(side);
}

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

/// Draws a drawing with one ink in place of its own colours.
class InkEngine : public QIconEngine {
public:
    explicit InkEngine(QString name) : name_(std::move(name)) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode, QIcon::State) override
    {
        const qreal ratio = painter->device()->devicePixelRatioF();
        QPixmap picture = Picture(rect.size() * ratio, InkOf(mode));
        picture.setDevicePixelRatio(ratio);
        painter->drawPixmap(rect, picture);
    }

    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State) override { return Picture(size, InkOf(mode)); }

    [[nodiscard]] QIconEngine* clone() const override { return new InkEngine(name_); }
    [[nodiscard]] QString key() const override { return u"CommandIcon"_s; }

private:
    /// `size` in pixels of the device.
    [[nodiscard]] QPixmap Picture(const QSize& size, const QColor& ink) const
    {
        const QString key = u"%1 %2x%3 %4"_s.arg(name_).arg(size.width()).arg(size.height()).arg(ink.rgba(), 0, 16);
        QPixmap picture;
        if (size.isEmpty() || QPixmapCache::find(key, &picture))
            return picture;
        picture = QPixmap(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        const int side = std::min(size.width(), size.height());
        painter.drawImage((size.width() - side) / 2, (size.height() - side) / 2, Mask(side));
        painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
        painter.fillRect(picture.rect(), ink);
        painter.end();
        QPixmapCache::insert(key, picture);
        return picture;
    }

    /// The drawing with a side of `side` pixels; between the sides that are there, the next larger one made smaller.
    [[nodiscard]] QImage Mask(int side) const
    {
        const auto* fitting = std::ranges::lower_bound(kSides, side);
        const QImage mask(FileOf(name_, fitting == std::end(kSides) ? std::end(kSides)[-1] : *fitting));
        return mask.width() == side ? mask : mask.scaled(side, side, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    }

    QString name_;
};

} // namespace

QIcon CommandIcon(const QString& name)
{
    return QFile::exists(FileOf(name, kSides[0])) ? QIcon(new InkEngine(name)) : QIcon();
}

} // namespace sbd
