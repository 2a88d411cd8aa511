// CDown999: the panel that searches topics, questions and input items, and leads to their cells.
#pragma once

#include "panels/panel.h"
#include "search/search_index.h"

#include <memory>

class QCheckBox;
class QGroupBox;
class QRadioButton;
class QTextBrowser;
class QUrl;

namespace sbd {

class CSearchPanelSource;
class CSearchSession;

/// The search line with its results, the choices beside it, and what is told of the selected result. Writes nothing to
/// the project.
class CDown999 : public CPanel {
    Q_OBJECT

public:
    explicit CDown999(CKELDSectionDoc* doc, QWidget* parent = nullptr);
    ~CDown999() override;

    /// Whether the focused row leads to a cell.
    [[nodiscard]] bool CanJump() const;
    /// Where the focused row leads; block 0: nowhere.
    [[nodiscard]] SearchPlace FocusedPlace() const;
    /// Puts the keyboard into the search line: what is typed next are new words.
    void GoToLine();
    /// Searches for a line that was typed elsewhere.
    void SearchFor(const QString& line);

public slots:
    /// Asks for the cell of the focused row.
    void JumpToHit();

signals:
    /// The user wants to go to a cell: 301 to 998, grid row and column; row 0: the block as it was left. Emitted from the
    /// event loop, so that the panel may be removed at once.
    void jumpRequested(int block, int row, int column);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void showEvent(QShowEvent* event) override;

private:
    void SetUpGrid();
    [[nodiscard]] QWidget* MakeSide();
    [[nodiscard]] QGroupBox* MakeScope();
    [[nodiscard]] QGroupBox* MakeWordsChoice();
    void FollowEditor(QWidget* editor);
    void OnTyped(const QString& line);
    void Search();
    void ShowRows();
    void FitColumn();
    void ShowDetail();
    void RestoreCell();
    void RestoreScroll();
    void Remember();
    void OnLink(const QUrl& link);
    void Ask(const SearchPlace& place);
    void KeepSession();

    CKELDSectionDoc* searched_;
    CSearchSession& session_;
    std::unique_ptr<CSearchPanelSource> cells_;
    QGroupBox* scope_ = nullptr;
    QGroupBox* wordsChoice_ = nullptr;
    QCheckBox* topics_ = nullptr;
    QCheckBox* items_ = nullptr;
    QRadioButton* allWords_ = nullptr;
    QRadioButton* anyWord_ = nullptr;
    QTextBrowser* detail_ = nullptr;
    int shownRows_ = 0; // grid rows that are not hidden
    bool restored_ = false;
};

} // namespace sbd
