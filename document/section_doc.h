// CKELDSectionDoc: one open project, its path and its session state.
#pragma once

#include "check/file_findings.h"
#include "document/display_settings.h"
#include "document/project_stamp.h"
#include "project/edit_history.h"
#include "results/result_stamp.h"
#include "sbdfile/project_file.h"

#include <QObject>
#include <QString>

#include <functional>
#include <map>

namespace sbd {

/// What changed: a block, and the stored row (from 0); row -1 means the whole block.
struct BlockChange {
    int block = 0;
    int row = -1;
};

/// Where a panel stood when its block was left: scroll position and focus cell (grid row and column).
struct CellMemory {
    int horizontal = 0;
    int vertical = 0;
    int row = 0;
    int column = 0;
};

/// Writes to the project's data.
using ProjectWrite = std::function<void(CProjectWriter& writer)>;

/// What a panel hands over.
struct PanelEdit {
    EditPlace place; ///< of the command; its block is the panel's
    /// The name of the step (CP932); empty: no command was given, the panel puts in order what it shows.
    std::string name;
    ProjectWrite write;
    std::function<bool()> isModified; ///< asked behind the writing
    LooseRows looseBefore;            ///< as the grid was ahead of the command
    std::function<LooseRows()> looseAfter;
};

/// One open project. Owns the data and writes them; panels hand over what they have to write. Views follow by signals.
class CKELDSectionDoc : public QObject {
    Q_OBJECT

public:
    explicit CKELDSectionDoc(QObject* parent = nullptr);
    ~CKELDSectionDoc() override;

    [[nodiscard]] const CSbdData& Data() const { return data_; }

    /// What of the project's file was not understood when it was read last; nothing once it was saved.
    [[nodiscard]] const FileFindings& AsRead() const { return asRead_; }

    /// Results of the frame analysis, as they were at the last open.
    [[nodiscard]] const AnalysisResults& Results() const { return results_; }
    /// Reads the result files of a project. A file that is missing leaves its record as it was.
    void ReadResults(const QString& project);
    /// True if result files of this project were written after they were read, or have come since. Reads none.
    [[nodiscard]] bool HasNewerResults() const;
    /// The files that Results() was read from, as they stood then.
    [[nodiscard]] const ResultStamp& ResultsAsRead() const { return resultsAsRead_; }

    /// Full path of the project file; empty for a project that was never saved.
    [[nodiscard]] QString PathName() const { return path_; }
    /// Makes `path` the document's own without reading or writing a file.
    void SetPathName(const QString& path);
    /// Name for titles: the file name, or "New SBD File".
    [[nodiscard]] QString Title() const;

    [[nodiscard]] bool IsModified() const { return modified_; }
    /// A step is being taken back or made again: what `changed` tells is not all yet.
    [[nodiscard]] bool IsStepping() const { return stepping_; }
    void SetModifiedFlag(bool modified);

    /// Loads `path` with the names of the *.abd file beside it and the results. On failure the document stays as it is.
    [[nodiscard]] FileResult OpenDocument(const QString& path);
    /// Loads a recovery copy, and what stands beside `project`, which it was made of (empty: a project that was never
    /// saved). The document is modified then: only a save puts the copy in the project's place.
    [[nodiscard]] FileResult OpenRecoveryCopy(const QString& copy, const QString& project);
    /// Asks the panels to commit, writes the project to `path`; on success that is its path and it is not modified.
    /// On failure nothing changes, the old file stands. `controlBlockHeldBack` tells of a "<?>" in block 301.
    [[nodiscard]] FileResult SaveDocument(const QString& path, bool* controlBlockHeldBack = nullptr);

    /// Lets a panel write; what follows its block follows, who shows it is told, and it is one step that can be taken
    /// back. What no command was given for is left for later while there is something to make again.
    void Commit(const PanelEdit& edit);
    /// Asks the panels to commit, open editors included.
    void CommitPanels() { emit aboutToSave(); }
    /// "Go with UC GRID": the project takes its analysis from there.
    void SetUcGrid();
    /// Appends rows to block 305.
    void AppendBoxWebs(const std::vector<std::vector<std::string>>& rows);
    /// The names of a bridge from an *.abd file.
    void ReadNames(const QString& namesFile);
    /// Reads the project's file again; what is typed and not saved goes. False if it cannot be read.
    [[nodiscard]] bool Reload();

    /// Makes the project `other`, as far as a file stores it, as one step `name` (CP932) that can be taken back.
    void ReplaceProject(const CSbdData& other, const std::string& name);

    /// What a Reload() would make of the project if its file held `bytes`.
    [[nodiscard]] CSbdData DataOf(std::string_view bytes) const;

    /// True if the project's file is another one than was read or written last: somebody else has changed or replaced
    /// it, or this document stands for a file that it has never read. Without a file there is nothing to be wiped out.
    [[nodiscard]] bool FileIsAnother() const { return !path_.isEmpty() && IsAnotherFile(stamp_, path_); }

    /// The step that is taken back, or made again, next; null if there is none.
    [[nodiscard]] const EditStep* NextUndo() const { return history_.NextUndo(); }
    [[nodiscard]] const EditStep* NextRedo() const { return history_.NextRedo(); }
    /// Takes the last step back, or makes the next one again. Panels have committed before.
    void Undo();
    void Redo();
    /// A panel closes, and with it goes what it held beside the data.
    void ForgetGrid(int block);

    /// The block on the panel (300 before the first).
    [[nodiscard]] int CurrentBlock() const { return currentBlock_; }
    void SetCurrentBlock(int block) { currentBlock_ = block; }

    /// The cell the help pane follows: block (-1: none), grid row, grid column.
    [[nodiscard]] int HelpBlock() const { return helpBlock_; }
    [[nodiscard]] int HelpRow() const { return helpRow_; }
    [[nodiscard]] int HelpColumn() const { return helpColumn_; }
    void SetHelpCell(int block, int row, int column);
    /// Shows the page anew at the same cell: what it stands for is another one.
    void ShowHelpAnew() { emit helpCellChanged(); }

    /// Memory of a block's cell and scroll position.
    [[nodiscard]] CellMemory& MemoryOf(int block) { return memory_[block]; }

    // Session settings (see the display settings): 1 word lists, 2 plain cells; widening of the columns in pixels.
    int comboOrList = 1;
    int rowWidthMode = 0;
    DisplaySettings display;
    /// The pane above the panel shows the help page; false: the model figure.
    bool showHelpPage = true;
    /// The drawing of the bridge stands in front of both.
    bool showDrawing = false;
    /// A double click in the tree asked for the run of a report page; its repaint starts it.
    bool runOnShow = false;
    /// How the last run has ended, a line for the report pages; empty: not known.
    QString lastRun;

signals:
    void changed(const sbd::BlockChange& change);
    /// A step was taken back or made again; `changed` has been emitted for what it concerns. `loose`: what the grid of
    /// the step's block held beside the data.
    void stepped(const sbd::EditPlace& place, const sbd::LooseRows& loose);
    /// What can be taken back or made again is something else.
    void historyChanged();
    void reloaded();
    void modifiedChanged(bool modified);
    void pathChanged();
    void helpCellChanged();
    /// ReadResults() has read.
    void resultsRead();
    /// Panels commit what is still in their grids.
    void aboutToSave();

private:
    [[nodiscard]] FileResult Load(const QString& file, const QString& project);
    void StampProject(const QString& project);
    void WriteOwn(int block, const char* name, const ProjectWrite& write);
    void Step(const EditStep& step, const EditPlace& where, const LooseRows& loose);
    void ShowModified(bool modified);
    void AddStep(EditStep step, bool modified);
    void Tell(const std::vector<ChangedRow>& places);

    CSbdData data_;
    FileFindings asRead_;
    CEditHistory history_;
    bool stepping_ = false;
    AnalysisResults results_;
    ResultStamp resultsAsRead_;
    QString path_;
    ProjectStamp stamp_; // of the project's file as this document knows it
    bool modified_ = false;
    int currentBlock_ = 300;
    int helpBlock_ = -1;
    int helpRow_ = 0;
    int helpColumn_ = 0;
    std::map<int, CellMemory> memory_;
};

/// CP932 bytes to the screen and back; the only edge between the two. A byte that is no CP932 character
/// becomes U+DC00 + byte on the way out and the same byte on the way back.
[[nodiscard]] QString toQString(std::string_view bytes);
/// Nothing with `refused` set to the first character that CP932 has not, if there is one.
[[nodiscard]] std::optional<std::string> fromQString(const QString& text, QString* refused = nullptr);

} // namespace sbd
