// CChkView: the report of the last run in the pane above the panel.
#pragma once

#include "upperview/chk_page.h"
#include "upperview/page_view.h"

#include <QDateTime>

namespace sbd {

class CKELDSectionDoc;
class CRunPoster;

/// Shows the page of the blocks 254, 255 and 256 and hands on the run that it asks for. Every repaint looks at the
/// report on disk; it is read again when it has changed.
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

signals:
    /// The page's run is due: to be made after its question, if it has one.
    void runIsDue(const sbd::WantedRun& run);

protected:
    QSizeF PaintPage(QPainter& painter, const QRectF& visible) override;
    [[nodiscard]] QColor BackColour() const override;
    [[nodiscard]] double LineStep() const override;
    void Painted() override;

private:
    [[nodiscard]] bool IsShown() const;
    [[nodiscard]] QFont Font() const;
    void LookAtReport();

    CKELDSectionDoc* doc_;
    CRunPoster* poster_;
    QString chkPath_;
    QDateTime chkTime_;
    qint64 chkSize_ = -1;
    ChkText text_;
};

} // namespace sbd
