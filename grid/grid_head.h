// The head row and the row numbers of a grid.
#pragma once

#include "grid/cell_marks.h"
#include "grid/grid_source.h"

#include <QHeaderView>

#include <functional>
#include <optional>
#include <utility>

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
    /// Who knows how many of the first sections stay in sight.
    void SetFrozen(std::function<int()> frozen) { frozen_ = std::move(frozen); }

signals:
    /// The user has made a section wider or narrower.
    void pulled(int section);

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void paintSection(QPainter* painter, const QRect& rect, int logicalIndex) const override;

private:
    [[nodiscard]] QRect TextRect(const QPainter& painter, const QRect& section, const QString& text, bool stays) const;
    [[nodiscard]] int Frozen() const { return frozen_ ? frozen_() : 0; }
    [[nodiscard]] int FrozenWidth() const;
    [[nodiscard]] int FrozenHandleAt(int x) const;
    [[nodiscard]] QMouseEvent InContents(const QMouseEvent& event) const;

    const CGridSource* source_ = nullptr;
    const CCellMarks* marks_ = nullptr;
    int focusRow_ = 0;
    std::function<int()> frozen_;
    bool pressed_ = false;             // the mouse
    int frozenHandle_ = -1;            // the section that stays in sight and is pulled; -1: none
    int pulledFrom_ = 0;               // where that one begins, as the pointer has it
    std::optional<int> pulledSection_; // since the press
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
