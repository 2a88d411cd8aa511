// CPageView: a page in 0.1 mm that scrolls in its pane.
#pragma once

#include <QAbstractScrollArea>
#include <QColor>
#include <QRectF>
#include <QSizeF>
#include <QString>

class QPainter;

namespace sbd {

/// What stands at the foot of a printed page.
struct PrintFoot {
    QString left;
    QString right;
};

/// Scrolls and scales a page; what stands on it is told by the class on top. The page is composed at each repaint.
class CPageView : public QAbstractScrollArea {
    Q_OBJECT

public:
    explicit CPageView(QWidget* parent = nullptr);

    /// Paints the page on one sheet with margins of 10 mm, smaller where it is wider or longer than the sheet, and a line at
    /// the foot. What is too long even for half the size is cut, and the foot says so.
    void PrintPage(QPainter& painter, const PrintFoot& foot);

    /// The whole page in pixels, and on a painter whose unit they are.
    [[nodiscard]] QSize PictureSize();
    void PaintPicture(QPainter& painter);

    /// Pixels of a page unit.
    [[nodiscard]] double Scale() const;

protected:
    /// Paints the page, in 0.1 mm and y downward from its top; what is not in `visible` may be left out. The painter's
    /// background is the paper. Gives the page's size.
    virtual QSizeF PaintPage(QPainter& painter, const QRectF& visible) = 0;
    /// The colour behind the page; on a dark screen another one may stand in its place.
    [[nodiscard]] virtual QColor BackColour() const = 0;
    /// Height of a line, the step of the wheel and the arrow keys.
    [[nodiscard]] virtual double LineStep() const = 0;
    /// Called after a paint.
    virtual void Painted() {}

    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;

private:
    /// The size of the page in its own units.
    [[nodiscard]] QSizeF MeasurePage();
    void SetScrollSize(QSizeF page);
};

} // namespace sbd
