// CTreePane: the tree of a project's blocks under the line that filters it.
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace sbd {

class CKELDSectionDoc;
class CLeftView;

/// The left pane. Down and Enter lead from the line into the tree, Esc empties the line and goes there too.
class CTreePane : public QWidget {
    Q_OBJECT

public:
    explicit CTreePane(CKELDSectionDoc* doc, QWidget* parent = nullptr);

    [[nodiscard]] CLeftView& Tree() { return *tree_; }
    [[nodiscard]] QLineEdit& Line() { return *line_; }

protected:
    void changeEvent(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void Filter();

    QLineEdit* line_;
    CLeftView* tree_;
    QLabel* nothing_;
};

} // namespace sbd
