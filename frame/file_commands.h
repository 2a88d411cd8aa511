// The file commands: new, open, save, close, the runs, and what they ask and tell.
#pragma once

#include "frame/new_document.h"
#include "frame/prompts.h"

#include <QString>

#include <memory>
#include <optional>
#include <vector>

class QMdiArea;

namespace sbd {

class CChildFrame;
class CKELDSectionDoc;
class CProjectLock;
class CSbdData;
struct FileResult;
struct WantedRun;

/// A recovery copy beside its project's file as it stands now.
struct OfferedCopy {
    RecoveryCopy copy;
    QDateTime fileTime;                  ///< invalid: there is no file
    bool canCompare = false;             ///< both could be read
    std::vector<Difference> differences; ///< from the file to the copy
    [[nodiscard]] bool FileIsNewer() const { return fileTime.isValid() && fileTime > copy.time; }
};
/// The copies that hold anything else than their projects, newest first. Those that hold the same are removed.
[[nodiscard]] std::vector<OfferedCopy> CopiesWorthOffering();

/// Makes, opens, saves and runs the projects that stand as windows in an area.
class CFileCommands {
public:
    CFileCommands(QMdiArea& area, Prompts prompts);
    ~CFileCommands();

    /// A window with a new project; the first one is empty, before the others comes the start chooser. Null if the new
    /// project was given up.
    CChildFrame* New();

    /// Asks for a file and opens it; null if nothing was opened.
    CChildFrame* Open();
    /// Opens a project, or brings its window to the front. Takes the place of an empty project that nothing was entered
    /// into. Null if the file cannot be opened; the user has been told why.
    CChildFrame* OpenFile(const QString& path);
    /// The same without a box: `trouble` says why it cannot be opened.
    CChildFrame* OpenQuietly(const QString& path, QString& trouble);

    /// Where dialogs for files start.
    [[nodiscard]] QString Folder() const;

    /// Saves to the project's own file, or asks for one. False if it is not saved; the user has been told why.
    bool Save(CChildFrame& child);
    bool SaveAs(CChildFrame& child);

    /// Makes a run of a project that the user has asked for by a command.
    void Run(CChildFrame& child, EngineRun run);
    /// Makes the run that the page of a report asks for.
    void RunFromPage(CChildFrame& child, const WantedRun& run);
    [[nodiscard]] CEngineRunner& Runner() { return runner_; }

    /// Shows the kept inputs of a project.
    void ShowKeptInputs(CChildFrame& child);
    /// Writes the input of a project as a book: what the user chooses, where the user wants it.
    void WriteBook(CChildFrame& child);
    /// Compares a project with another one, its file or a kept input.
    void Compare(CChildFrame& child);

    /// Offers the recovery copies that a crash has left and that hold anything else than their projects. From here on a
    /// project that is opened tells of its own.
    void OfferRecoveryCopies();
    /// Keeps recovery copies of the projects with unsaved changes.
    void KeepRecoveryCopies();

    /// Asks what becomes of unsaved changes. False if the window has to stay.
    bool MayClose(CChildFrame& child);

    /// Called for each project when it has been made, before it has a window.
    std::function<void(CKELDSectionDoc&)> setUpDocument;
    /// Called for the window of each project when it has been made.
    std::function<void(CChildFrame&)> setUpChild;

    /// Called for the window of a project that was saved.
    std::function<void(CChildFrame&)> saved;

private:
    [[nodiscard]] std::unique_ptr<CChildFrame> MakeChild(std::unique_ptr<CKELDSectionDoc> doc,
                                                         std::unique_ptr<CProjectLock> lock);
    CChildFrame* Show(std::unique_ptr<CChildFrame> child);
    CChildFrame* OpenWith(const QString& path, const std::function<bool(const QString& question)>& ask,
                          QString& trouble);
    [[nodiscard]] bool OnNewDocument(CChildFrame& child);
    [[nodiscard]] NewDocumentPrompts NewPrompts();
    [[nodiscard]] RunProject ProjectOf(CChildFrame& child);
    [[nodiscard]] CChildFrame* FindOpen(const QString& path) const;
    [[nodiscard]] QString FreeTitle(const QString& title) const;
    [[nodiscard]] QString AskSaveName(CChildFrame& child);
    bool SaveTo(CChildFrame& child, const QString& path);
    /// What a save does behind the question about a changed file.
    enum class ChangedFileStep { Save, SaveElsewhere, Stop };
    [[nodiscard]] ChangedFileStep AskAboutChangedFile(CChildFrame& child);
    [[nodiscard]] bool CompareWithFile(CChildFrame& child);
    void KeepOverwritten(CChildFrame& child);
    [[nodiscard]] bool KeepReplaced(CChildFrame& child, const QString& project);
    [[nodiscard]] std::function<void(DifferenceView)> Differences();
    bool Wrap(CChildFrame& child, const std::function<bool()>& save);
    void OpenRecoveryCopy(const RecoveryCopy& copy);
    [[nodiscard]] bool TakeOver(CChildFrame& child, const RecoveryCopy& copy);
    [[nodiscard]] RecoveryAnswer AskAboutCopy(const OfferedCopy& offered, qsizetype number, qsizetype of);
    void TellOfCopies(CChildFrame& child);
    /// The project of another file, with the names of this one; nothing, and a message, if it cannot be read.
    [[nodiscard]] std::optional<CSbdData> ReadOther(CChildFrame& child, const QString& path);
    void SaveDifferences(CChildFrame& child, const QString& name, const std::vector<Difference>& differences);
    void OpenAsCopy(const KeptInput& input);
    [[nodiscard]] bool AskYesNo(const QString& text) const;
    void Warn(const QString& text) const;

    QMdiArea& area_;
    Prompts prompts_;
    CEngineRunner runner_;
    CNewDocumentFlow newDocument_;
    bool tellsOfCopies_ = false;
};

} // namespace sbd
