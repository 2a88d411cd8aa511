// CDrawingCanvas: a drawing of the bridge in a pane, with zoom and pan.
#pragma once

#include "drawing/bridge_drawing.h"
#include "results/figure_view.h"
#include "upperview/bridge_sheet.h"
#include "upperview/figure_hand.h"
#include "upperview/model_figure.h"

#include <QColor>
#include <QFont>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

namespace sbd {

/// Paints a drawing and takes the mouse as the pane of the results does: left a rectangle to fill the pane, right
/// (or the middle one) a drag; the wheel zooms at the pointer, a double click fits. A click tells the cell that made what lies
/// there, the pointer at rest is told what it is. The parts of the row under the cursor are red.
class CDrawingCanvas : public QWidget {
    Q_OBJECT

public:
    explicit CDrawingCanvas(QWidget* parent = nullptr);

    /// Another drawing; the view stays as it is.
    void SetDrawing(BridgeDrawing drawing);
    [[nodiscard]] const BridgeDrawing& Drawing() const { return drawing_; }
    /// Another view of the same pane: where it was left.
    void SetView(const FigureView& view);
    [[nodiscard]] const FigureView& View() const { return view_; }
    void SetExaggeration(int times);
    void SetSelected(SourceCell row);
    void SetLook(const QColor& paper, const QFont& font);
    /// Carries out a command of the figure.
    void RunViewCommand(Command command);

    /// Paints ground and drawing as they stand in the pane.
    void PaintPicture(QPainter& painter, const QColor& paper);

    /// What a place of the pane comes from; block 0: nothing.
    [[nodiscard]] SourceCell PlaceAt(QPointF at);
    /// The middle of what a row has made, in the pane; nothing if it has made nothing.
    [[nodiscard]] std::optional<QPointF> MiddleOf(SourceCell row) const;

    /// What is told of a cell, set by whoever knows the project.
    std::function<QString(const SourceCell&)> wordsOf;

signals:
    void cellWanted(int block, int row, int column);

protected:
    bool event(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void hideEvent(QHideEvent* event) override;

private:
    /// How the sheet lies in the pane: its scale, and the pixels of its origin.
    struct Fit {
        SheetLook look;
        SheetPlaces places;
        double pixels = 1; ///< a unit
        QPointF origin;
        QPointF shift; ///< of the parts' middle from that of the pane, as long as nothing is moved
    };
    [[nodiscard]] std::optional<Fit> FitOf() const;
    void Paint(QPainter& painter);
    void ZoomTo(const QRectF& box);
    void Fitted();

    BridgeDrawing drawing_;
    FigureView view_;
    int exaggeration_ = 1;
    SourceCell selected_;
    QColor paper_ = Qt::white;
    QFont font_;
    CFigureMouse mouse_{view_};
    CHeldButton held_;           // the middle or the right one
    CHeldButton pressed_;        // the left one, for a click
    std::vector<SheetHit> hits_; // of the last paint, in units of the sheet
};

} // namespace sbd
