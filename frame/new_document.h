// OnNewDocument: how a new project comes into being.
#pragma once

#include "frame/start_chooser.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <span>

namespace sbd {

/// What the flow does with the new document. A step that gives false has told the user why.
class CNewDocumentSteps {
public:
    virtual ~CNewDocumentSteps() = default;

    /// Writes the document, as it is, as the project file.
    virtual bool SaveDocument(const QString& project) = 0;
    /// Makes a path the document's own and puts it among the recent files.
    virtual void SetPathName(const QString& project) = 0;
    virtual void ReadGridNames(const QString& namesFile) = 0;
    virtual void ReadResultFiles(const QString& project) = 0;
    /// Opens a project into the document.
    virtual bool OpenDocument(const QString& project) = 0;
    /// Sets the row "KELD_analysis_used" of block 301 to "UC-GRID".
    virtual void SetUcGrid() = 0;
    /// Asks for the web names of a box girder; false: the user goes back.
    virtual bool BoxWebFlow() = 0;
    virtual bool SaveWrapper() = 0;
    /// Runs the engine on the project file and reads the project again; false: the document was not read again.
    virtual bool RunMain() = 0;
};

/// The steps by name.
enum class NewProjectStep {
    SaveDocument,
    SetPathName,
    ReadGridNames,
    ReadResultFiles,
    OpenDocument,
    SetUcGrid,
    BoxWebFlow, ///< for box girders alone
    SaveWrapper,
    RunMain,
};

/// What is found where the project file belongs, and what the user wants with it.
enum class NewProjectSituation {
    New,      ///< there is no project
    Exists,   ///< there is one, and it is opened
    Replaced, ///< there is one, and its results may go
    Kept,     ///< there is one, and its results stay
};

/// One row of the flow's table.
struct NewProjectRow {
    int choice; ///< of the start chooser, 2 to 5
    NewProjectSituation situation;
    std::span<const NewProjectStep> steps;
};

[[nodiscard]] std::span<const NewProjectRow> NewProjectRows();

/// What a try to open the project file for reading tells.
enum class ProjectState {
    New,    ///< no such file
    Exists, ///< it opens
    Held,   ///< it is there but does not open
};
[[nodiscard]] ProjectState TryOpenProject(const QString& project);

/// What the flow asks and tells.
struct NewDocumentPrompts {
    std::function<StartChoice()> chooser;
    /// File to begin with; empty: the user gave up.
    std::function<QString(const QStringList& filters)> openFileName;
    std::function<bool(const QString& text)> askYesNo;
    std::function<void(const QString& text)> warn;
    std::function<ProjectState(const QString& project)> tryOpen = TryOpenProject;
};

/// The filters of the file dialog for a choice of the start chooser.
[[nodiscard]] QStringList NewProjectFilters(int choice);
/// Told when the project file is there but does not open.
[[nodiscard]] QString ProjectHeldMessage();
/// Asked before a run on a project that is there already: may its results go?
[[nodiscard]] QString OldResultsQuestion(const QString& project);

/// The flow; one a main window.
class CNewDocumentFlow {
public:
    explicit CNewDocumentFlow(NewDocumentPrompts prompts) : prompts_(std::move(prompts)) {}

    /// Fills a document that has just been made. False: the document is given up. A step that fails ends the flow: the
    /// document must not stand for a file that it was not saved to or read from.
    [[nodiscard]] bool OnNewDocument(CNewDocumentSteps& steps);

    /// The next document comes up empty, without the chooser: the first one of the program.
    bool skipChooser = true;

private:
    [[nodiscard]] bool BeginFromFile(const StartChoice& choice, CNewDocumentSteps& steps) const;

    NewDocumentPrompts prompts_;
};

} // namespace sbd
