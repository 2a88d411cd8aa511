// CMainFrame: the top window.
#pragma once

#include "frame/file_commands.h"
#include "frame/prompts.h"

#include <QList>
#include <QMainWindow>

class QLabel;
class QLineEdit;
class QMdiArea;
class QMenu;

namespace sbd {

class CChildFrame;
class CPanel;

/// Menus, tool bar and status bar around the windows of the open projects.
class CMainFrame : public QMainWindow {
    Q_OBJECT

public:
    explicit CMainFrame(Prompts prompts = ScreenPrompts(), QWidget* parent = nullptr);
    ~CMainFrame() override;

    /// A window with an empty project.
    CChildFrame* NewProject() { return files_->New(); }
    /// Opens a project; null if it cannot be opened, and the user has been told why.
    CChildFrame* OpenProject(const QString& path) { return files_->OpenFile(path); }

    /// The project that commands act on; null if none is open.
    [[nodiscard]] CChildFrame* CurrentChild() const;
    [[nodiscard]] QList<CChildFrame*> Children() const;

    /// Shows the window as it was left, at the first start maximised.
    void ShowAsLeft();

    /// Offers what a crash has left; to be called once, at the start.
    void OfferRecoveryCopies() { files_->OfferRecoveryCopies(); }

    /// The menu of the documents and home pages.
    [[nodiscard]] QMenu& HelpMenu() { return *helpMenu_; }
    /// Text of the last entry of the menu bar: the version, and whether it is the newest.
    void SetVersionText(const QString& text) { versionAction_->setText(text); }

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    QAction* AddAction(QMenu* menu, const QString& text, const QKeySequence& keys, std::function<void()> run);
    /// An action that needs an open project.
    QAction* AddChildAction(QMenu* menu, const QString& text, const QKeySequence& keys,
                            std::function<void(CChildFrame&)> run);
    /// An action on the open editor, or else on the panel.
    void AddEditAction(QMenu* menu, const QString& text, std::function<void(QLineEdit&)> inEditor,
                       std::function<void(CPanel&)> inPanel);
    /// An action on the row with the focus.
    void AddRowAction(QMenu* menu, const QString& text, std::function<void(CPanel&)> run,
                      std::function<bool(const CPanel&)> mayRun);
    void CreateFileMenu();
    void CreateEditMenu();
    void CreateDataMenu();
    void AddDataEntry(QMenu* menu, int block);
    void CreateRunMenu();
    void Run(EngineRun run);
    void CreateWindowMenu();
    void CreateHelpMenu();
    void CreateToolBar();
    void CreateStatusBar();
    void FillRecentMenu();
    void FillWindowMenu();
    void ShowAbout();
    void OnChildActivated();
    void UpdateStatus();

    QMdiArea* area_;
    std::unique_ptr<CFileCommands> files_;
    QMenu* recentMenu_ = nullptr;
    QMenu* windowMenu_ = nullptr;
    QMenu* helpMenu_ = nullptr;
    QAction* versionAction_ = nullptr;
    QAction* newAction_ = nullptr;
    QAction* openAction_ = nullptr;
    QAction* saveAction_ = nullptr;
    QList<QAction*> childActions_;  // enabled while a project is open
    QList<QAction*> windowEntries_; // one a project, made when the menu opens
    QLabel* pathLabel_ = nullptr;
    QLabel* cellLabel_ = nullptr;
    QList<QMetaObject::Connection> docConnections_;
};

} // namespace sbd
