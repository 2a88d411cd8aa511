// CHelpView: the help page of the cell under the cursor.
#pragma once

#include "upperview/help_page.h"
#include "upperview/page_view.h"

#include <array>

class QToolButton;

namespace sbd {

class CKELDSectionDoc;

/// Shows the page of the block and cell at which the user is, scrolled to what the page says about the cell.
class CHelpView : public CPageView {
    Q_OBJECT

public:
    explicit CHelpView(CKELDSectionDoc* doc, QWidget* parent = nullptr);

    /// The cell on show.
    [[nodiscard]] HelpCell Cell() const;
    /// Paints the cell's page and scrolls to its place; the user's own scrolling stands as long as the cell does.
    void Refresh();

    /// The places of the page, in page units and y downward, that lead to another block; empty: none. A paint forgets
    /// them, so a page sets them while it draws. No page does so far.
    std::array<QRectF, 2> linkRects;

public slots:
    /// Goes back to the block that the last link stands for.
    void OnBack();

protected:
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    QSizeF PaintPage(QPainter& painter, const QRectF& visible) override;
    [[nodiscard]] QColor BackColour() const override;
    [[nodiscard]] double LineStep() const override;
    void Painted() override;

private:
    /// The link under a place of the pane; -1: none.
    [[nodiscard]] int LinkAt(QPointF place) const;
    void ShowPageOf(int block);

    CKELDSectionDoc* doc_;
    QToolButton* backButton_; // there only after a link was followed
    int returnBlock_ = 0;
    PageExtent extent_;
    HelpCell positionedFor_{-1, -1, -1};
    int positionedAt_ = 0; // page units
};

} // namespace sbd
