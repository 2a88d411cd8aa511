// CFigurePane: the figure of the model, or of the result that block 253 has chosen.
#pragma once

#include "commands/commands.h"
#include "results/diagram_curves.h"
#include "results/figure_pick.h"
#include "upperview/figure_hand.h"
#include "upperview/model_figure.h"

#include <QWidget>

class QPainter;

namespace sbd {

class CKELDSectionDoc;

/// Paints the figure that fits the pane, and takes the mouse: left a rectangle to fill the pane, right a drag; the wheel
/// zooms at the pointer, the middle button (or the left one with the space bar) moves, a double click fits, the left one
/// with Ctrl turns a frame. A click selects in the panel what lies under it, and the pointer at rest is told what that is.
class CFigurePane : public QWidget {
    Q_OBJECT

public:
    explicit CFigurePane(CKELDSectionDoc* doc, QWidget* parent = nullptr);

    /// Carries out a command of the figure.
    void RunViewCommand(Command command);
    [[nodiscard]] const FigureView& View() const { return view_; }

    /// Paints what belongs to the document's block. What the mouse has begun on a figure is not for the next one.
    void Refresh();

    /// Paints ground and figure as they stand in the pane.
    void PaintPicture(QPainter& painter);
    /// Paints the figure in the middle of the sheet, in the proportions that it has on the screen.
    void PrintFigure(QPainter& painter);

    /// What lies at a place of the pane, in words; empty: nothing.
    [[nodiscard]] QString WordsAt(QPointF place);

signals:
    /// A line was clicked that this row of a block has made; rows from 1.
    void cellWanted(int block, int row, int column);

protected:
    bool event(QEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    /// What a button that is down does with the figure, beside what CFigureMouse knows.
    enum class Hold { None, Slide, Turn };

    void Paint(QPainter& painter, const QColor& paper, const FigureScreen& screen);
    /// The pane as a sheet whose pixels are known, where `painter` paints on one.
    [[nodiscard]] FigureScreen ScreenFor(const QPainter& painter) const;
    void PickAt(QPointF place);
    [[nodiscard]] std::optional<DiagramPick> OrdinateAt(QPointF place);
    /// The frame as it stands in the pane; made once a paint.
    [[nodiscard]] const FramePlaces& Places();
    [[nodiscard]] bool ShowsDiagram() const;
    void HoldSpace(bool down);
    void Follow(FigureMouseEffect effect);
    void FigureIsAnother();
    [[nodiscard]] bool ShowsResult() const;
    [[nodiscard]] bool HasFigure() const;

    CKELDSectionDoc* doc_;
    FigureView view_;
    bool showedResult_ = false; // when it was refreshed last
    CFigureMouse mouse_{view_};
    Hold hold_ = Hold::None;
    CHeldButton held_;
    bool spaceDown_ = false;
    CHeldButton pressed_; // the left one, for a click
    std::optional<FramePlaces> places_;
    std::optional<std::vector<DiagramCurve>> curves_; ///< of the figure on show, for picks
};

} // namespace sbd
