// CMainFrame: the top window.
#pragma once

#include "commands/commands.h"
#include "frame/file_commands.h"
#include "frame/prompts.h"
#include "panelmodel/tree_rows.h"

#include <QElapsedTimer>
#include <QList>
#include <QMainWindow>
#include <QPointer>

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>

class QLabel;
class QLineEdit;
class QMdiArea;
class QMenu;
class QPrinter;
class QToolButton;

namespace sbd {

class CChildFrame;
class CCommandActions;
class CGoLine;
class CPanel;
enum class GoScope;
struct GoTarget;

/// What the deployment knows of the home pages in the help menu.
struct HomePages {
    bool first = false; ///< there is an address
    bool second = false;
    QString secondText; ///< the second entry's text; empty: there is no such entry
};

/// What the system grants a program when it ends the session.
struct SessionEnd {
    /// Leave to ask the user; false: no question may be shown.
    std::function<bool()> mayAsk;
    /// Stops the end of the session.
    std::function<void()> cancel;
};

/// Menus, tool bar and status bar around the windows of the open projects. Carries out the commands.
class CMainFrame : public QMainWindow {
    Q_OBJECT

public:
    explicit CMainFrame(Prompts prompts = ScreenPrompts(), QWidget* parent = nullptr);
    ~CMainFrame() override;

    /// A window with a new project; null if it was given up.
    CChildFrame* NewProject() { return files_->New(); }
    /// Opens a project; null if it cannot be opened, and the user has been told why.
    CChildFrame* OpenProject(const QString& path) { return files_->OpenFile(path); }

    /// The project that commands act on; null if none is open.
    [[nodiscard]] CChildFrame* CurrentChild() const;
    [[nodiscard]] QList<CChildFrame*> Children() const;

    /// The actions of menus and tool bar.
    [[nodiscard]] const CCommandActions& Actions() const { return *actions_; }

    /// Carries out a command. Nothing happens while it may not be given.
    void RunCommand(Command command);
    /// What the data menu's entry of a block does: shows the block, or starts the run that it stands for.
    void OpenBlock(int block);
    /// True for what the frame carries out by itself; what it does not is for outside.
    [[nodiscard]] bool HasHandler(Command command) const { return handlers_.contains(command); }

    /// Shows the window maximised. Made smaller, it has the size in which it was left, as far as the screen has room.
    void ShowAtStart();

    /// Opens the projects that were open at the end of the last session, each at its cell, if the user wants that. What
    /// cannot be opened is told in one message. False: nothing was opened.
    bool RestoreSession();

    /// Offers what a crash has left; to be called once, at the start.
    void OfferRecoveryCopies() { files_->OfferRecoveryCopies(); }

    /// The session is about to end: copies first, then the questions about unsaved changes. A cancel, or an engine that
    /// is writing to a project, stops the end.
    void OnSessionEnd(const SessionEnd& end);
    /// The program will be ended by force: keeps a copy of all that is not saved, for the next start to find. From here
    /// on nothing is asked any more.
    void EndNow();
    /// The same without a look at the windows, which may be beyond use.
    void KeepRecoveryCopies() { files_->KeepRecoveryCopies(); }

    /// Tells the user something that there is nothing to decide about.
    void Warn(const QString& text) { prompts_.warn(this, text); }

    void SetHomePages(const HomePages& pages);
    /// Text of the last entry of the menu bar: the version, and whether it is the newest.
    void SetVersionText(const QString& text);

signals:
    /// A command whose owner is outside: documents and home pages.
    void commandForOutside(Command command);

protected:
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    /// An entry of the data menu.
    struct DataEntry {
        QAction* action;
        int block;
        std::string_view menuText;
        bool group;
    };

    // Menus
    void CreateMenus();
    void FillMenu(QMenu& menu, MenuFill entries);
    void FillDataMenu(QMenu& menu);
    void AddDataEntry(QMenu& menu, int block);
    void TitleDataMenu();
    void FillRecentMenu(QMenu& menu);
    void FillWindowMenu(QMenu& menu);
    void CreateStatusBar();
    void UpdateCommands();
    void ShowHistory();
    void UpdateMarks();
    [[nodiscard]] bool Holds(CommandNeeds needs) const;
    [[nodiscard]] bool MayBeGiven(Command command) const;

    // Commands
    void CreateHandlers();
    void AddFileHandlers();
    void AddEditHandlers();
    void AddRunHandlers();
    void AddViewHandlers();
    void AddTreeHandlers();
    void AddSettingsHandlers();
    void AddWindowHandlers();
    void AddPlaceHandlers();
    void OnChild(Command command, std::function<void(CChildFrame&)> run);
    void OnEditor(Command command, std::function<void(QLineEdit&)> inEditor, void (CPanel::*inPanel)());
    void OnRow(Command command, void (CPanel::*run)());
    void ChangeCells(const std::function<void(CChildFrame& child)>& change);
    void OpenGoLine(GoScope scope);
    [[nodiscard]] std::vector<GoTarget> FindTargets(const QString& line, GoScope scope) const;
    void GoTo(const GoTarget& target);
    void EndEditBehindLine();
    void ShowShortcuts();
    void ShowGuide();
    void KeepSessionPlaces() const;
    void SetTreeView();
    void SetTabbed(bool tabbed);
    void ShowTitle();
    void Print(CChildFrame& child, bool preview);
    void SavePicture(CChildFrame& child);
    void ShowAbout();

    // The end of a session
    [[nodiscard]] bool KeepAllCopies();
    [[nodiscard]] bool AskAboutAll(QList<QPointer<CChildFrame>>& letGo);
    void OnQuit();

    void SetUpChild(CChildFrame& child);
    void OnChildActivated();
    void UpdateStatus();
    void ShowIndicators();
    void ShowFindingCounts();
    void ShowFindingList(bool show);

    QMdiArea* area_;
    Prompts prompts_;
    std::unique_ptr<CFileCommands> files_;
    CCommandActions* actions_ = nullptr;
    std::map<Command, std::function<void()>> handlers_;
    std::vector<DataEntry> dataEntries_;
    std::optional<std::pair<TitleLanguage, std::string>> titledFor_; // what the data menu's titles stand for
    TreeView treeView_;                                              // of all projects
    HomePages homePages_;
    QList<QAction*> windowEntries_; // one a project, made when the menu opens
    bool printing_ = false;
    bool sessionEnds_ = false;                  // the user has answered for all projects
    bool asksNothing_ = false;                  // the program ends, whatever is not saved
    QList<QPointer<CChildFrame>> letGo_;        // changes that the user does not want to save
    QList<QMetaObject::Connection> letGoLinks_; // look out for changes behind that answer
    QLabel* pathLabel_ = nullptr;
    QLabel* cellLabel_ = nullptr;
    QToolButton* findingsButton_ = nullptr;
    QLabel* summaryLabel_ = nullptr;
    QLabel* expectsLabel_ = nullptr;
    QLabel* savedLabel_ = nullptr;
    QLabel* engineLabel_ = nullptr;
    CGoLine* goLine_ = nullptr;   // made when it is first wanted
    QPointer<QWidget> shortcuts_; // the sheet, while it is open
    QPointer<QWidget> guide_;     // while it is open
    QElapsedTimer sinceSearchKey_;
    QList<QMetaObject::Connection> docConnections_;
};

} // namespace sbd
