// CFigurePane: the figure of the model, or of the result that block 253 has chosen.
#pragma once

#include "commands/commands.h"
#include "upperview/model_figure.h"

#include <QWidget>

class QPainter;

namespace sbd {

class CKELDSectionDoc;

/// Paints the figure that fits the pane, and takes the mouse: left a rectangle to fill the pane, right a drag.
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

protected:
    void paintEvent(QPaintEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    void Paint(QPainter& painter, const QColor& paper);
    void Follow(FigureMouseEffect effect);
    void FigureIsAnother();
    [[nodiscard]] bool ShowsResult() const;
    [[nodiscard]] bool HasFigure() const;

    CKELDSectionDoc* doc_;
    FigureView view_;
    bool showedResult_ = false; // when it was refreshed last
    CFigureMouse mouse_{view_};
};

} // namespace sbd
