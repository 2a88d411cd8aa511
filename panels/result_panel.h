// CDown253: the panel that shows the results of the frame analysis.
#pragma once

#include "panels/panel.h"

#include <QString>

#include <memory>

class QLabel;
class QPushButton;

namespace sbd {

class CResultChoices;
class CResultNotes;
class CResultSaver;
class CResultSession;
class CResultSource;
class CResultTable;
struct PickedPoint;

/// The table of results beside the choices of what is shown. The choices are kept by the document; the table is read from its
/// results, of which it makes the texts in view alone.
class CDown253 : public CPanel {
    Q_OBJECT

public:
    explicit CDown253(CKELDSectionDoc* doc, QWidget* parent = nullptr);
    ~CDown253() override;

    [[nodiscard]] const CResultTable& Table() const;
    /// The table as a file and on paper.
    [[nodiscard]] CResultSaver& Saver() { return *saver_; }

    bool eventFilter(QObject* watched, QEvent* event) override;

protected:
    void contextMenuEvent(QContextMenuEvent* event) override;

private:
    void LayOut();
    /// Controls and table from the selection.
    void ShowSelection();
    void FillResultTable();
    /// The figure goes on showing the item that was chosen.
    void FillKeepingTheItem();
    void ShowState();
    /// The figure marks the row under the cursor.
    void MarkRow();
    /// The cursor goes to what was clicked in the figure.
    void OnPicked(const PickedPoint& point);
    /// What is laid over in the figure comes into the table.
    void ShowOver();
    /// Columns that the mouse has made wider or narrower stay so.
    void KeepWidths();
    /// Upward, downward, and then in the order of the files again; 0: at once in that.
    void SortBy(int column);
    void ShowOrder();
    /// Shows results that were read anew; what is chosen stays as far as they have it.
    void ShowNewResults();

    CKELDSectionDoc* shown_;
    CResultSession& session_;
    std::unique_ptr<CResultSource> cells_;
    CResultChoices* choices_;
    CResultSaver* saver_;
    CResultNotes* notes_;
    QPushButton* fileOrder_; // there while the rows stand in another one
    QLabel* state_;
    std::unique_ptr<PickedPoint> point_; // that the notes tell of
};

} // namespace sbd
