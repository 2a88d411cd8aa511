// CHelpView: the help page of the cell under the cursor.
#pragma once

#include "upperview/help_page.h"
#include "upperview/page_view.h"

#include <vector>

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

    /// Height of the page on show, in pixels.
    [[nodiscard]] int PageHeight() const;

    /// The places of the page on show that lead to another block.
    [[nodiscard]] const std::vector<PageLink>& Links() const { return extent_.links; }
    /// The link that the keyboard stands on; -1: none.
    [[nodiscard]] int ChosenLink() const { return chosenLink_; }

public slots:
    /// Goes back to the block from which the last link led away.
    void OnBack();

signals:
    /// A link or the way back leads to a block, by any of its numbers: whoever holds the panel opens it. The page alone is shown without anybody.
    void blockWanted(int number);

protected:
    bool focusNextPrevChild(bool next) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    QSizeF PaintPage(QPainter& painter, const QRectF& visible) override;
    [[nodiscard]] QColor BackColour() const override;
    [[nodiscard]] double LineStep() const override;
    void Painted() override;

private:
    /// The link under a place of the pane; -1: none.
    [[nodiscard]] int LinkAt(QPointF place) const;
    void FollowLink(int link);
    void ShowPageOf(int number);
    /// Puts the keyboard on a link and scrolls it into view.
    void ChooseLink(int link);

    CKELDSectionDoc* doc_;
    QToolButton* backButton_; // there only after a link was followed
    int returnBlock_ = 0;     // 0: no way back
    int linkTarget_ = 0;      // where the last link led
    int chosenLink_ = -1;
    PageExtent extent_;
    HelpCell positionedFor_{-1, -1, -1};
    int positionedAt_ = 0; // page units
};

} // namespace sbd
