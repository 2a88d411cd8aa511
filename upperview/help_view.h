// CHelpView: the help page of the cell under the cursor.
#pragma once

#include "upperview/help_page.h"
#include "upperview/page_view.h"

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

protected:
    QSizeF PaintPage(QPainter& painter, const QRectF& visible) override;
    [[nodiscard]] QColor BackColour() const override;
    [[nodiscard]] double LineStep() const override;
    void Painted() override;

private:
    CKELDSectionDoc* doc_;
    PageExtent extent_;
    HelpCell positionedFor_{-1, -1, -1};
    int positionedAt_ = 0; // page units
};

} // namespace sbd
