// CUpView: the pane above the panel that explains the cell under the cursor.
#pragma once

#include <QScrollArea>

class QLabel;

namespace sbd {

class CKELDSectionDoc;

/// Shows the title of the block on the panel and what the current cell means. Read-only; follows the document.
class CUpView : public QScrollArea {
    Q_OBJECT

public:
    explicit CUpView(CKELDSectionDoc* doc, QWidget* parent = nullptr);

    [[nodiscard]] QString TitleText() const;
    [[nodiscard]] QString CellText() const;

public slots:
    /// Composes the page anew from the document.
    void Refresh();

private:
    CKELDSectionDoc* doc_;
    QLabel* title_;
    QLabel* cell_;
};

} // namespace sbd
