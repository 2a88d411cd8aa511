// The figure of the model on a painter, and the mouse that moves it.
#pragma once

#include "results/figure_view.h"
#include "results/model_overlay.h"
#include "results/result_state.h"

#include <QColor>
#include <QFont>
#include <QLine>
#include <QRectF>

#include <optional>
#include <vector>

class QMouseEvent;
class QPainter;
class QWidget;

namespace sbd {

/// How the figures are drawn: on which ground, in the colours that it makes of those for white paper. The font is measured
/// in pixels.
struct FigureLook {
    QColor backColor = Qt::white;
    QFont font;
};

/// The size of a pane and the resolution of its screen.
[[nodiscard]] FigureScreen FigureScreenOf(const QWidget& pane);

/// Paints the frame with bracing, cross beams, nodes and names into the pane of `screen`, whose ground is painted
/// already. Carries out the marks of the mouse in `view`. Without results it paints nothing.
void DrawModelFigure(QPainter& painter, const FigureScreen& screen, const AnalysisResults& results,
                     const CSbdData& data, FigureSelection selection, const FigureLook& look, FigureView& view,
                     const ResultState& state = {});

/// The pen of a line; those of the members are two pixels wide, that of the selected row three.
[[nodiscard]] QPen PenOf(FigurePen pen, const FigureLook& look);

/// Lines of one pen, cut to whole pixels. Lines that are no numbers or lie far outside of the pane are left out.
class CFigureLines {
public:
    explicit CFigureLines(const FigureScreen& screen) : screen_(screen) {}

    void Reserve(std::size_t count) { lines_.reserve(count); }
    void Add(FigurePoint from, FigurePoint to);
    /// Paints what was added and forgets it.
    void Paint(QPainter& painter, const QPen& pen);

private:
    FigureScreen screen_;
    std::vector<QLine> lines_;
};

/// What the mouse asks for after an event.
enum class FigureMouseEffect {
    None,
    RubberBand, ///< the rectangle of a zoom has changed; the figure has not
    Repaint,
};

/// Left button: a rectangle that is to fill the pane. Right button: a drag of the figure. The marks are left in the
/// view for the next paint, which carries them out.
class CFigureMouse {
public:
    /// The view must outlive the mouse.
    explicit CFigureMouse(FigureView& view) : view_(view) {}

    FigureMouseEffect Press(const QMouseEvent& event);
    FigureMouseEffect Move(const QMouseEvent& event);
    FigureMouseEffect Release(const QMouseEvent& event);
    /// As if no button were down; what was begun has no effect.
    void Forget();

    /// A drag is on its way and shown.
    [[nodiscard]] bool Drags() const { return dragShown_; }

    /// The rectangle to show while the left button is down.
    [[nodiscard]] std::optional<QRectF> RubberBand() const;

private:
    FigureMouseEffect FollowDrag(const QMouseEvent& event);

    FigureView& view_;
    FigurePoint rubberCorner_;
    bool leftButtonDown_ = false;
    bool rightButtonDown_ = false;
    bool dragShown_ = false; // it has once been far enough
};

/// Paints RubberBand() over a figure.
void DrawRubberBand(QPainter& painter, const QRectF& band, const QColor& paper = Qt::white);

} // namespace sbd
