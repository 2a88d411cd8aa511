// CChkView: the report of the last run in the pane above the panel.
#pragma once

#include "check/report_place.h"
#include "upperview/chk_page.h"
#include "upperview/page_view.h"

#include <QDateTime>

#include <functional>
#include <memory>
#include <optional>
#include <unordered_map>

namespace sbd {

class CKELDSectionDoc;
class CRunPoster;

/// Shows the page of the blocks 254, 255 and 256 and hands on the run that it asks for. Every repaint looks at the
/// report on disk; it is read again when it has changed.
///
/// A line that speaks of a known place is a link to it: by the mouse, or by Tab and Enter. F8 and Shift+F8 go through the
/// errors and warnings while the page has the focus.
class CChkView : public CPageView {
    Q_OBJECT

public:
    explicit CChkView(CKELDSectionDoc* doc, QWidget* parent = nullptr);

    /// The page as it is now.
    [[nodiscard]] std::vector<ChkLine> Lines();

    /// The user has just asked for a run by hand: the next one does not wait.
    void UserAsked();
    /// A run that the page has asked for is over, or was not wanted.
    void RunEnded();

    /// The line of the report that the keyboard stands on, from 0; nothing: none.
    [[nodiscard]] std::optional<std::size_t> ChosenLine() const { return chosen_; }
    /// Where a line of the report leads; nothing: it is no link.
    [[nodiscard]] std::optional<ReportPlace> PlaceOfLine(std::size_t line);
    /// Where a line of the report stands in the pane, in pixels.
    [[nodiscard]] QRectF RectOfLine(std::size_t line);

signals:
    /// The user wants to see a cell, grid row and column; row 0: the block.
    void placeWanted(int block, int row, int column);
    /// The page's run is due: to be made after its question, if it has one.
    void runIsDue(const sbd::WantedRun& run);

protected:
    QSizeF PaintPage(QPainter& painter, const QRectF& visible) override;
    [[nodiscard]] QColor BackColour() const override;
    [[nodiscard]] double LineStep() const override;
    void Painted() override;
    bool event(QEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;

private:
    [[nodiscard]] bool IsShown() const;
    [[nodiscard]] QFont Font() const;
    void LookAtReport();
    void ForgetPlaces();
    void PaintLinks(QPainter& painter, const std::vector<ChkLine>& lines, const QRectF& visible);
    /// The link under a place of the pane.
    [[nodiscard]] std::optional<std::size_t> LinkAt(QPointF place);
    /// The next line behind (or before) one for which `wanted` holds, without going round.
    [[nodiscard]] std::optional<std::size_t> NextLine(std::optional<std::size_t> from, bool back,
                                                      const std::function<bool(std::size_t)>& wanted) const;
    [[nodiscard]] bool HasWeighedLines();
    void StepToWeighed(bool back);
    void Choose(std::optional<std::size_t> line);
    void Follow(std::size_t line);

    CKELDSectionDoc* doc_;
    CRunPoster* poster_;
    QString chkPath_;
    QDateTime chkTime_;
    qint64 chkSize_ = -1;
    ChkText text_;
    std::vector<ChkLine> painted_;          // on the screen
    std::unique_ptr<CReportPlaces> places_; // of the project as it is now
    std::unordered_map<std::size_t, std::optional<ReportPlace>> placeOfLine_;
    std::optional<bool> hasWeighed_;
    std::optional<std::size_t> chosen_;
    std::optional<std::size_t> pressed_;
};

} // namespace sbd
