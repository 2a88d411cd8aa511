// Pictures of lines.
#pragma once

#include <QPaintDevice>
#include <QSize>
#include <QString>

#include <memory>

class QIODevice;

namespace sbd {

/// Writes what a QPainter paints as an SVG file: lines, areas, hatches and images keep their place and look at any
/// scale, texts stay texts. Gradients and the perspective become pixels; composition modes are passed over.
class CSvgPicture : public QPaintDevice {
public:
    /// A picture of `size` units, one unit a pixel of `dpi` pixels an inch. `target` is open for writing and outlives
    /// the picture. The file is whole once the painter has ended, which fails where it could not be written; one
    /// painter paints one file. A painter does not begin where the size is empty or the target closed.
    CSvgPicture(QIODevice& target, QSize size, int dpi, QString title = {});
    ~CSvgPicture() override;

    [[nodiscard]] QPaintEngine* paintEngine() const override;

protected:
    [[nodiscard]] int metric(PaintDeviceMetric metric) const override;

private:
    QSize size_;
    int dpi_;
    std::unique_ptr<QPaintEngine> engine_;
};

} // namespace sbd
