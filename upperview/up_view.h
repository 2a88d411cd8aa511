// CUpView: the pane above the panel.
#pragma once

#include "upperview/chk_page.h"

#include <QStackedWidget>

class QLabel;

namespace sbd {

class CChkView;
class CKELDSectionDoc;

/// Shows the title of the block on the panel and what the current cell means, or the report of the last run. Read-only;
/// follows the document.
class CUpView : public QStackedWidget {
    Q_OBJECT

public:
    explicit CUpView(CKELDSectionDoc* doc, QWidget* parent = nullptr);

    [[nodiscard]] QString TitleText() const;
    [[nodiscard]] QString CellText() const;
    /// The report of the last run, shown for the blocks 254, 255 and 256.
    [[nodiscard]] CChkView& Chk() { return *chk_; }

public slots:
    /// Composes the page anew from the document.
    void Refresh();

private:
    [[nodiscard]] QWidget* CreatePage();

    CKELDSectionDoc* doc_;
    QWidget* page_ = nullptr;
    CChkView* chk_;
    QLabel* title_ = nullptr;
    QLabel* cell_ = nullptr;
};

} // namespace sbd
