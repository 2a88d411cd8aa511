// CUpView: the pane above the panel.
#pragma once

#include "commands/commands.h"
#include "upperview/page_view.h"

#include <QStackedWidget>

class QPaintDevice;
class QPainter;

namespace sbd {

class CChkView;
class CDrawingPane;
class CFigurePane;
class CHelpView;
class CKELDSectionDoc;

/// Shows what belongs to the block and cell at which the user is: the help page, for 253 to 256 the chosen result and
/// the report of the last run; or the figure of the model, or the drawing of the bridge, instead. Read-only; follows the
/// document.
class CUpView : public QStackedWidget {
    Q_OBJECT

public:
    explicit CUpView(CKELDSectionDoc* doc, QWidget* parent = nullptr);

    [[nodiscard]] CHelpView& Help() { return *help_; }
    [[nodiscard]] CChkView& Chk() { return *chk_; }
    [[nodiscard]] CFigurePane& Figure() { return *figure_; }
    [[nodiscard]] CDrawingPane& Drawing() { return *drawing_; }

    /// Carries out a command of the figure and shows the figure. In block 253 the result stays on
    /// show: a view fits its diagram or turns its deformed frame. The drawing takes the commands while it is on show.
    void RunViewCommand(Command command);

    /// Prints what is on show, on one sheet: a printer or a PDF file. A page stands on it whole.
    void Print(QPaintDevice& sheet);

    /// True for a figure that is read better on a sheet that lies.
    [[nodiscard]] bool IsWide() const;

    /// Saves what is on show as a picture, by the file's ending in PNG, SVG or PDF: a page whole, a figure as it stands in
    /// the pane. False for another ending, or if the file cannot be written.
    [[nodiscard]] bool SavePicture(const QString& file);

public slots:
    /// Shows what belongs to the document's block and cell.
    void Refresh();

private:
    /// Project, block, date and page number.
    [[nodiscard]] PrintFoot Foot() const;
    [[nodiscard]] QSize PictureSize();
    void PaintPicture(QPainter& painter);

    CKELDSectionDoc* doc_;
    CHelpView* help_;
    CChkView* chk_;
    CFigurePane* figure_;
    CDrawingPane* drawing_;
};

} // namespace sbd
