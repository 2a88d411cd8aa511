// CChangePane: the list of what a run has changed.
#pragma once

#include "check/cell_changes.h"

#include <QWidget>

class QLabel;
class QTableView;

namespace sbd {

class CChangeModel;
class CKELDSectionDoc;

/// Changes line by line: block, row, column, the texts before and behind. Enter and a double click go to the cell, F8 and
/// Shift+F8 to the next line and the one before.
class CChangePane : public QWidget {
    Q_OBJECT

public:
    explicit CChangePane(CKELDSectionDoc* doc, QWidget* parent = nullptr);
    ~CChangePane() override;

    /// What is listed; `more` there were and are not. The line that is selected stays selected.
    void SetChanges(const std::vector<ShownChange>& changes, std::size_t more);
    void Select(std::size_t line);
    /// Where the keyboard goes.
    [[nodiscard]] QTableView* Lines() const { return lines_; }

signals:
    /// The user wants to see the place of a line.
    void wanted(std::size_t line);
    /// The next line, or the one before it, and its place; the cursor stays in the list.
    void nextWanted(bool back);
    void closeWanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void GoToSelected();

    CChangeModel* model_;
    QLabel* count_;
    QTableView* lines_;
};

} // namespace sbd
