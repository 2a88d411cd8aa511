// The head row and the row numbers of a grid.
#pragma once

#include "grid/cell_marks.h"
#include "grid/grid_source.h"

#include <QHeaderView>

namespace sbd {

/// Draws the heads with their line breaks, centred; the row numbers right-aligned.
class CGridHead : public QHeaderView {
    Q_OBJECT

public:
    CGridHead(Qt::Orientation orientation, QWidget* parent);

    void SetSource(const CGridSource* source) { source_ = source; }
    /// What row numbers show the signs of; must live as long as the head.
    void SetMarks(const CCellMarks* marks) { marks_ = marks; }
    /// The heads may follow the focused row.
    void SetFocusRow(int row);

protected:
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;

private:
    [[nodiscard]] QRect TextRect(const QPainter& painter, const QRect& section, const QString& text) const;

    const CGridSource* source_ = nullptr;
    const CCellMarks* marks_ = nullptr;
    int focusRow_ = 0;
};

/// The corner above the row numbers: the head of column 0. A click selects everything.
class CGridCorner : public QWidget {
    Q_OBJECT

public:
    explicit CGridCorner(QWidget* parent);
    void SetText(const QString& text);

signals:
    void clicked();

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

private:
    QString text_;
};

/// Draws the lines of a head centred in `rect`; a line that is too wide is drawn narrower.
void DrawHead(QPainter& painter, const QRect& rect, const QString& text, const QColor& color);
/// Pixels that the lines of a head need.
[[nodiscard]] int HeadTextHeight(const QFontMetrics& metrics, const QString& text);

} // namespace sbd
