// CDrawingPane: the bridge as its input describes it, while one types.
#pragma once

#include "commands/commands.h"
#include "drawing/drawing_views.h"
#include "results/figure_view.h"

#include <QTimer>
#include <QWidget>

#include <array>
#include <optional>
#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QPainter;
class QToolButton;

namespace sbd {

class CDrawingCanvas;
class CKELDSectionDoc;

/// A girder from the side, a cross section or the plan; what cannot be drawn is listed below. Drawn anew only when a
/// block that the view reads has changed, and only while it is seen.
class CDrawingPane : public QWidget {
    Q_OBJECT

public:
    explicit CDrawingPane(CKELDSectionDoc* doc, QWidget* parent = nullptr);

    /// Follows the document: its row under the cursor, its settings, what has changed of it.
    void Refresh();
    /// Carries out a command of the figure: a view of a plane chooses the drawing that is seen so.
    void RunViewCommand(Command command);
    /// Chooses a view.
    void Show(DrawingView view);
    [[nodiscard]] DrawingRequest Request() const;
    /// Shows a girder or a cross line of the bridge by its number.
    void ShowItem(std::size_t number);
    /// Shows the next drawing that speaks of the row under the cursor, of another view where this one has none; where no
    /// drawing does, that is told.
    void GoToRow();
    void SetExaggeration(int times);

    [[nodiscard]] CDrawingCanvas& Canvas() { return *canvas_; }
    [[nodiscard]] QListWidget& Omissions() { return *omissions_; }
    /// How often a drawing was made.
    [[nodiscard]] int TimesMade() const { return timesMade_; }

    /// The drawing as it stands in the pane, with its ground.
    void PaintPicture(QPainter& painter);
    /// The general drawing on one sheet: elevation, section and plan as they are chosen, in a frame with a title.
    void PrintSheet(QPainter& painter);

    /// What a cell has made, in words: block, row, values.
    [[nodiscard]] QString WordsOf(const SourceCell& place) const;

signals:
    /// A part was clicked that this row of a block has made; rows and columns from 1.
    void cellWanted(int block, int row, int column);

protected:
    void showEvent(QShowEvent* event) override;

private:
    void MakeChoosers();
    [[nodiscard]] std::size_t ChosenGirder() const;
    [[nodiscard]] GirderSide ChosenSide() const;
    void FillItems();
    void OnChoice();
    void OnChanged(int block);
    /// Makes the drawing if it is not as it should be.
    void Update();
    void ShowOmissions();
    void ShowSelected();
    [[nodiscard]] SourceCell Selected() const;
    [[nodiscard]] bool MayBeElsewhere(const SourceCell& row) const;

    CKELDSectionDoc* doc_;
    QComboBox* views_;
    QComboBox* items_; // girders or cross lines
    QComboBox* sides_;
    QCheckBox* camber_;
    QComboBox* exaggerations_;
    QToolButton* goToRow_; // while the drawing does not speak of the row under the cursor
    QLabel* told_;
    CDrawingCanvas* canvas_;
    QLabel* listTitle_;
    QListWidget* omissions_;

    std::array<std::string, kDrawingViews> chosen_; // names, so that they stay where others come or go
    std::array<FigureView, kDrawingViews> figureViews_;
    DrawingView shown_ = DrawingView::Elevation;
    std::optional<DrawingRequest> made_; // nothing: to be made anew
    QTimer soon_;                        // a change of many rows is told row by row, and drawn once
    std::vector<std::string> names_;     // in the chooser
    int timesMade_ = 0;
};

} // namespace sbd
