// Opening, saving and reloading a project together with its lock and the files beside it.
#pragma once

#include "sbdfile/project_file.h"

#include <QString>
#include <QStringList>

#include <functional>

namespace sbd {

class CKELDSectionDoc;
class CProjectLock;

/// The base path of a project and of the files beside it: the path before the last "." of the file name; the whole path
/// if the name has no "." behind its first character.
[[nodiscard]] QString BasePath(const QString& path);

/// True if a save would not put a new file in the place of this one: the file may only be read, or its folder. False for
/// a project that has no file yet.
[[nodiscard]] bool IsReadOnly(const QString& path);

/// What is to be asked before a save puts a project in the place of a file that holds none, or stands in another
/// encoding; empty: nothing, as for a file that is not there or cannot be read.
[[nodiscard]] QString ForeignFileQuestion(const QString& path);

/// Shows a question with the answers yes and no; true: yes.
using YesNoQuestion = std::function<bool(const QString& text)>;

/// How an open ended.
enum class OpenOutcome {
    Opened,
    WrongExtension, ///< the name does not end in ".sbd"
    GivenUp,        ///< another program holds the file, and the user does not want to wait for it
    Failed,         ///< see OpenResult::file
};

struct OpenResult {
    OpenOutcome outcome = OpenOutcome::Opened;
    FileResult file;
    [[nodiscard]] bool Ok() const { return outcome == OpenOutcome::Opened; }
};

/// What is asked while another program holds the project.
[[nodiscard]] QString HeldProjectQuestion(const QString& path);

/// Opens a project into `doc` and takes its lock. While another program holds the file, `ask` is shown again and again:
/// yes tries once more, no gives up. Unless the project was opened, `doc` stays as it is. A lock that cannot be taken
/// afterwards (a read-only folder, say) keeps nobody from working.
[[nodiscard]] OpenResult OnOpenDocument(CKELDSectionDoc& doc, CProjectLock& lock, const QString& path,
                                        const YesNoQuestion& ask);

/// Lets the lock go and writes the project. The lock is not taken again: SaveWrapper or ReloadDocument does that.
[[nodiscard]] FileResult OnSaveDocument(CKELDSectionDoc& doc, CProjectLock& lock, const QString& path);

/// What differs between save and save-as.
struct SaveSteps {
    /// Saves the document, with a dialog where one is needed. False: given up or failed, the user knows.
    std::function<bool()> save;
    /// Makes a text the document's title.
    std::function<void(const QString& title)> setTitle;
};

struct SaveOutcome {
    bool saved = false;
    QStringList copied;    ///< files beside the project that were copied to its new name
    QStringList notCopied; ///< what they would have been called where that failed
};

/// The way around save and save-as: lets the lock go, saves, takes the lock of the path as it is now and makes that path
/// the title (empty for a project that still has none). A project that got a new base path takes its companions along:
/// ".abd", ".li9", ".ll2", ".abl", as far as they exist, in place of what stands there. The results stay behind. What
/// cannot be copied is passed over, and named; the file that stood there stands whole.
SaveOutcome SaveWrapper(CKELDSectionDoc& doc, CProjectLock& lock, const SaveSteps& steps);

/// Reads the project's file into the document again, after an engine may have changed it, and takes the lock. Option
/// values that the file does not hold stay, as do the names of the analysis. A file that cannot be read leaves the
/// document as it is. True if it was read.
bool ReloadDocument(CKELDSectionDoc& doc, CProjectLock& lock);

} // namespace sbd
