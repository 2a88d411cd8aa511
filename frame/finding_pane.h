// CFindingPane: the list of what is to be told of a project.
#pragma once

#include "check/doubts.h"
#include "check/finding.h"

#include <QWidget>

#include <optional>
#include <vector>

class QComboBox;
class QLabel;
class QMenu;
class QSortFilterProxyModel;
class QTableView;
class QToolButton;

namespace sbd {

class CFindingModel;

/// A finding at its place in the order of the list: those of the file that was read, then those of the project.
struct ListedFinding {
    Finding finding;
    bool ofFile = false;
    friend bool operator==(const ListedFinding&, const ListedFinding&) = default;
};

/// Findings line by line, filtered by severity and block. Enter and a double click go to the cell.
class CFindingPane : public QWidget {
    Q_OBJECT

public:
    explicit CFindingPane(QWidget* parent = nullptr);
    ~CFindingPane() override;

    /// What is listed; `more` were found and are not. The line that is selected stays selected.
    void SetFindings(std::vector<ListedFinding> findings, std::size_t more);
    /// The block that stands for "the block on show".
    void SetCurrentBlock(int block);
    void SetSilent(const SilentKinds& kinds);

    /// Selects the line of a finding, if it is listed.
    void Select(const Finding& finding);
    /// Where the keyboard goes.
    [[nodiscard]] QTableView* Lines() const { return lines_; }
    [[nodiscard]] QComboBox* SeverityFilter() const { return severities_; }
    [[nodiscard]] QComboBox* BlockFilter() const { return blocks_; }
    [[nodiscard]] QMenu* Kinds() const { return kinds_; }

signals:
    /// The user wants to see a finding's place.
    void wanted(const sbd::Finding& finding);
    void silentChosen(const sbd::SilentKinds& kinds);
    void closeWanted();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;

private:
    void MakeKinds();
    void FillBlocks();
    void Filter();
    void ShowCount();
    void GoToSelected();
    [[nodiscard]] std::optional<ListedFinding> Selected() const;

    CFindingModel* model_;
    QSortFilterProxyModel* filtered_;
    QComboBox* severities_;
    QComboBox* blocks_;
    QToolButton* kindsButton_;
    QMenu* kinds_;
    QLabel* count_;
    QTableView* lines_;
    int currentBlock_ = 0;
    std::size_t more_ = 0;
};

} // namespace sbd
