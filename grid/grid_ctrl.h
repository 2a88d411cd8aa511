// CGridCtrl: the spreadsheet of a panel.
#pragma once

#include "grid/cell_marks.h"
#include "grid/grid_source.h"

#include <QTableView>

#include <functional>
#include <map>

namespace sbd {

enum class Command;
class CGridCorner;
class CGridDrag;
class CGridHead;
class CGridModel;

/// A table with a head row, row numbers, locked cells, word lists and in-place editing. Typing begins an edit, as do
/// F2 and a double click; Enter and Tab end it and go on, Esc gives it up, arrows end an edit that typing began.
class CGridCtrl : public QTableView {
    Q_OBJECT

public:
    static constexpr int kZoomStep = 10; ///< percent

    explicit CGridCtrl(QWidget* parent = nullptr);
    ~CGridCtrl() override;

    /// The cells. The source must live until another one, or none, is set.
    void SetSource(CGridSource* source);
    [[nodiscard]] CGridSource* Source() const;
    /// What somebody has to say of the cells; it stays with the grid when it gets another source.
    void SetMarks(MarkSource source, std::vector<CellMark> marks);
    [[nodiscard]] const CCellMarks& Marks() const;
    /// Height of a row of one line, in pixels.
    void SetRowHeight(int pixels);

    /// The cell with the focus; row 0: none.
    [[nodiscard]] GridCell FocusCell() const;
    void SetFocusCell(int row, int column);
    void MoveFocus(int rows, int columns);
    /// To the next or the previous cell; at the end of a row to the nearest cell of the next row that takes text. Goes
    /// round inside a selected range.
    void MoveByTab(bool back);
    /// To the row below or above; behind cells that Tab went through, to the column where it began. Goes round inside a
    /// selected range.
    void MoveByEnter(bool back);
    /// True if more than one cell is selected, the focused one among them.
    [[nodiscard]] bool HasRange() const;
    void SelectRange(const GridRange& range);
    /// The selection reaches from the focused cell to `cell`; the focus stays.
    void ExtendTo(GridCell cell);
    /// The nearest row in sight from `row` in the direction of `step`; 0: there is none.
    [[nodiscard]] int SeenRow(int row, int step) const;
    /// The selected rectangle; the focused cell if nothing is selected.
    [[nodiscard]] GridRange SelectedRange() const;

    /// Takes the text of an open editor. False if the cell refused it: the user has been told, with what follows from
    /// it as the last sentence, and the editor stays open with the text.
    bool CommitEditor(const QString& consequence = {});
    [[nodiscard]] bool IsEditing() const { return state() == EditingState; }
    /// What stands in an open editor, and how it stands there.
    struct OpenText {
        QString text;
        int caret = 0;
        bool typing = false; ///< begun by typing
    };
    [[nodiscard]] std::optional<OpenText> Edited() const;
    /// Opens the editor of the focused cell with a text that Edited() gave; without effect if the cell takes none.
    void EditAgain(const OpenText& open);
    /// Opens the word list of the focused cell.
    void OpenList();
    /// True if Undo() would do something: end an edit, or take a step back.
    [[nodiscard]] bool CanUndo() const { return IsEditing() || (Source() != nullptr && Source()->CanUndo()); }
    /// Shows what is changed elsewhere.
    void ShowAll();

    /// Tells the user something; by default a message box.
    std::function<void(const QString& message)> showMessage;
    /// Says what a paste has left as it was; empty: it has left nothing. By default a message too; a window that has a
    /// place for what bars no way puts it there.
    std::function<void(const QString& text)> showNotice;

    /// Carries out a command of the grid; one that is not the grid's own is given to whoever listens. False: neither.
    bool RunCommand(Command command);
    /// True if the focused cell takes the text.
    [[nodiscard]] bool CanFillWith(const QString& text) const;
    /// One text into all selected cells that take it.
    void FillSelected(const QString& text);
    /// Fills from a range to a larger one.
    void FillFrom(const GridRange& from, const GridRange& to, bool countOn);
    /// The small square at the corner of the selection, in the viewport; empty where nothing can be filled.
    [[nodiscard]] QRect FillHandle() const;
    /// Where the cells of a range stand in the viewport.
    [[nodiscard]] QRect RectOf(const GridRange& range) const;
    /// Says something in the status bar, until the focus moves.
    void TellInStatusBar(const QString& text);
    /// Takes away what it has said.
    void ForgetTold();
    /// Size of texts and cells; 100: as they are.
    void SetZoom(int percent);
    [[nodiscard]] int Zoom() const { return zoom_; }

    /// The first columns stay in sight while the others are scrolled, as many of them as leave half of the room.
    void SetFrozenColumns(int columns);
    [[nodiscard]] int FrozenColumns() const { return frozen_; }
    /// Those that stay now, and the pixels that they take.
    [[nodiscard]] int SeenFrozen() const;
    [[nodiscard]] int FrozenWidth() const;
    /// The column at a place in the viewport; 0: none.
    [[nodiscard]] int ColumnAtX(int x) const;
    /// Pixels by which the user has made columns wider or narrower, without the zoom.
    void SetWidened(const std::map<int, int>& widened);
    [[nodiscard]] const std::map<int, int>& Widened() const { return widened_; }

    [[nodiscard]] QRect visualRect(const QModelIndex& index) const override;
    [[nodiscard]] QModelIndex indexAt(const QPoint& pos) const override;
    void scrollTo(const QModelIndex& index, ScrollHint hint = EnsureVisible) override;

public slots:
    void Undo();
    void Cut();
    void Copy();
    void Paste();
    void Delete();

signals:
    /// The focus leaves a cell; what was typed in it is in the source.
    void selectionChanging(int row, int column);
    /// The focus has come to a cell.
    void currentCellChanged(int row, int column);
    /// An editor has opened; it holds the cell's text, or the first key of a new one.
    void editorOpened(QWidget* editor);
    void editorClosed();
    /// A cell was edited.
    void cellEdited(int row, int column);
    /// A word was taken from a list.
    void listChosen();
    /// Cells were set by a command: undo, cut, paste, delete, fill.
    void cellsChanged();
    /// A command's key was pressed that is not the grid's own.
    void commandWanted(sbd::Command command);
    /// The user wants another size of texts and cells; what it should be.
    void zoomWanted(int percent);
    /// Other cells are selected, or the texts of the selected ones have changed.
    void rangeChanged();
    /// The user has made a column wider or narrower.
    void columnsChanged();

protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseDoubleClickEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void currentChanged(const QModelIndex& current, const QModelIndex& previous) override;
    bool edit(const QModelIndex& index, EditTrigger trigger, QEvent* event) override;
    void closeEditor(QWidget* editor, QAbstractItemDelegate::EndEditHint hint) override;
    bool focusNextPrevChild(bool next) override;
    void focusInEvent(QFocusEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;
    void updateGeometries() override;
    void resizeEvent(QResizeEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;

public:
    /// No jump to a row whose text begins with the key: the key was meant for the cell.
    void keyboardSearch(const QString&) override {}
    [[nodiscard]] QVariant inputMethodQuery(Qt::InputMethodQuery query) const override;

private:
    friend class CGridDelegate;

    struct RefusedText {
        GridCell cell;
        QString text;
        GridRefusal why;
    };

    // For the delegate.
    void StoreEdited(GridCell cell, const QString& typed);
    [[nodiscard]] bool HasRefused() const { return refused_.has_value(); }
    [[nodiscard]] bool IsTyping() const { return typing_; }
    void EndTyping() { typing_ = false; }

    void SetUpView();
    void ApplyRowHeights();
    void FitColumn(int section);
    void Show(GridEffect effect, GridCell cell);
    [[nodiscard]] std::optional<GridRefusal> Refusal(GridCell cell, const QString& text) const;
    void TellRefused(const QString& consequence);
    void TellPaste(const GridPaste& paste);
    void ReopenRefused(const QString& consequence);
    [[nodiscard]] QString CellName(GridCell cell) const;
    [[nodiscard]] bool HandleCommandKey(QKeyEvent* event);
    [[nodiscard]] Command OwnCommandOf(const QKeyEvent& event) const;
    /// True in a single cell with a list, where the keys with Alt are those of the list.
    [[nodiscard]] bool OpensList() const;
    [[nodiscard]] bool HandleMoveKey(QKeyEvent* event);
    void TellLocked(const QKeyEvent& event);
    void OpenMenu();
    void MoveInRange(bool back, bool alongRow);
    void ShowFilled(const GridPaste& fill, const QString& nothing);
    void Fill(GridFill::Kind kind);
    void CopyWithHeads();
    void PutOnClipboard(bool heads);
    [[nodiscard]] GridCell Extent() const;
    [[nodiscard]] GridCell Neighbour(GridCell from, int key) const;
    [[nodiscard]] int FirstFreeColumn() const;
    [[nodiscard]] GridCell PageTarget(GridCell from, bool down) const;
    [[nodiscard]] QString TellLeft(const GridPaste& paste) const;
    [[nodiscard]] GridCell JumpTarget(GridCell from, int key) const;
    void MoveTo(GridCell cell, bool extend);
    void SelectThrough(bool row);
    void GiveUpComposition();
    [[nodiscard]] QLineEdit* OpenLine() const;
    [[nodiscard]] bool IsSeenFrozen(const QModelIndex& index) const;
    void PaintFrozen(QPainter& painter);
    [[nodiscard]] QRect ClipOf(const GridRange& range) const;
    void KeepWidth(int section);
    [[nodiscard]] bool IsOnListButton(const QMouseEvent& event) const;

    CGridModel* model_;
    CGridHead* head_;
    CGridHead* numbers_;
    CGridCorner* corner_;
    CGridDrag* drag_;
    int rowHeight_;
    int zoom_ = 100;             // percent
    int frozen_ = 0;             // columns that are to stay in sight
    std::map<int, int> widened_; // by column, in pixels without the zoom
    int tabColumn_ = 0;          // where Tab began to go along a row; 0: it did not
    bool tabbing_ = false;       // the focus moves by Tab
    bool typing_ = false;        // the open edit was begun by typing
    bool closing_ = false;       // an editor
    bool hasTold_ = false;       // something in the status bar
    bool pressedButton_ = false; // the mouse is down on the button of a list
    bool pressedBeside_ = false; // the mouse is down where no cell is
    std::optional<RefusedText> refused_;
};

} // namespace sbd
