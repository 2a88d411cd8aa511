// What the mouse does in a grid while its button is down: selects, or fills from the corner of the selection.
#pragma once

#include "grid/grid_source.h"

#include <QObject>
#include <QPoint>
#include <QTimer>

class QMouseEvent;

namespace sbd {

class CGridCtrl;

/// A drag over the cells selects a range from the pressed cell on, which keeps the focus; one from the fill handle makes
/// the range larger in one direction. The grid scrolls while the pointer is beyond its edge.
class CGridDrag : public QObject {
    Q_OBJECT

public:
    explicit CGridDrag(CGridCtrl& grid);

    // True: the event is done with.
    [[nodiscard]] bool Press(const QMouseEvent& event);
    [[nodiscard]] bool Move(const QMouseEvent& event);
    [[nodiscard]] bool Release(const QMouseEvent& event);
    /// The range that a fill would cover; nothing while none is dragged.
    [[nodiscard]] std::optional<GridRange> Covered() const { return covered_; }

private:
    enum class Drag { None, Select, Fill };

    [[nodiscard]] GridCell CellAt(QPoint pos) const;
    [[nodiscard]] GridRange WithCell(GridCell cell) const;
    [[nodiscard]] bool IsPastFrozen() const;
    void Follow();

    CGridCtrl& grid_;
    QTimer timer_;
    Drag drag_ = Drag::None;
    QPoint pos_;              // of the pointer in the viewport
    bool fromFrozen_ = false; // the drag began in a column that stays in sight
    GridRange from_;
    std::optional<GridRange> covered_;
};

} // namespace sbd
