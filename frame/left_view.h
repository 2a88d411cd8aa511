// CLeftView: the tree of blocks, the left pane.
#pragma once

#include "grid/cell_marks.h"
#include "panelmodel/tree_rows.h"

#include <QElapsedTimer>
#include <QTreeWidget>

#include <functional>
#include <optional>
#include <set>

class QMenu;

namespace sbd {

class CKELDSectionDoc;
struct BlockChange;

/// The tree of a project's blocks. Says which block is chosen; follows the project's type.
class CLeftView : public QTreeWidget {
    Q_OBJECT

public:
    explicit CLeftView(CKELDSectionDoc* doc, QWidget* parent = nullptr);

    /// What is shown, and in which language; builds the tree anew.
    void SetView(TreeView view);
    [[nodiscard]] const TreeView& View() const { return view_; }

    /// Builds the tree anew; what is open and selected stays so, and no block is chosen by it.
    void Rebuild();

    /// Selects and shows the item of a number (an item of a group before one of its own), without choosing it.
    /// False if the tree does not show the number.
    bool SelectBlock(int number);

    /// Number of the selected item; 0 if none.
    [[nodiscard]] int SelectedNumber() const;

    /// The blocks that show a sign beside their title; a group shows the one that weighs most of its blocks.
    /// Each source sets its own alone.
    void SetMarks(std::map<int, MarkKind> marks, MarkSource source = MarkSource::Check);

    /// Shows the items whose title, number or tag holds all words of the line, in any width and case, or that a search
    /// for it would find by their title; empty: all.
    void SetFilter(const QString& line);
    /// Shows only blocks that hold input.
    void ShowOnlyFilled(bool only);
    [[nodiscard]] bool ShowsOnlyFilled() const { return onlyFilled_; }
    /// Chooses the first item that the filter left.
    void ChooseFirst();

    /// Adds entries to the menu of the right mouse button.
    std::function<void(QMenu& menu)> addToMenu;

    /// Goes to the block whose number is typed, whether its group is open or not; other keys search what is in view.
    void keyboardSearch(const QString& typed) override;

signals:
    /// The user has come to an item; a group head stands for the first block below it.
    void blockChosen(int block);
    /// The user has asked for the panel of the selected block (Enter).
    void panelWanted();
    /// The left mouse button was pressed on the item of a number.
    void itemWasPressed(int number);
    /// The item of a number was double clicked, or Enter pressed on one that stands for a run.
    void runAskedAt(int number);
    /// So many blocks are left by the filter.
    void filtered(int left);

public slots:
    /// Sets what holds input to bold. Bold stays until the next rebuild.
    void MarkContent();

protected:
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void OnCurrentItemChanged(QTreeWidgetItem* item);
    void OnDocumentChanged(const BlockChange& change);
    void Fill();
    void ShowMarks();
    void ShowFill(QTreeWidgetItem* item);
    void Filter();
    [[nodiscard]] bool IsWanted(const QTreeWidgetItem* item) const;
    void Unhide(QTreeWidgetItem* item);
    [[nodiscard]] QTreeWidgetItem* FindItem(int number, int group);
    [[nodiscard]] QTreeWidgetItem* FindTyped(const QString& digits);

    CKELDSectionDoc* doc_;
    TreeView view_;
    std::map<MarkSource, std::map<int, MarkKind>> marks_;
    std::string key_; // of the project, when the tree was built
    bool rebuilding_ = false;
    QString filter_;
    bool onlyFilled_ = false;
    std::optional<std::set<int>> openBefore_; // groups that were open before the filter
    QString digits_;                          // typed so far
    QElapsedTimer sinceDigit_;
};

} // namespace sbd
