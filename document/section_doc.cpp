#include "document/section_doc.h"

#include "document/path.h"
#include "project/links.h"
#include "project/text.h"
#include "sbdfile/grid_names.h"
#include "sbdfile/repairs.h"
#include "sbdfile/writer.h"

#include <QFileInfo>
#include <QScopedValueRollback>

#include <algorithm>
#include <filesystem>
#include <map>
#include <system_error>
#include <utility>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kControlBlock = 301;
constexpr std::size_t kAnalysisUsedRow = 2; // "KELD_analysis_used", the project's type
constexpr int kBoxWebBlock = 305;
constexpr int kNamesBlock = 501;

bool HoldsNames(const std::vector<ChangedRow>& places)
{
    return std::ranges::find(places, kNamesBlock, &ChangedRow::block) != places.end();
}

/// Reads a project as ReadProject() does, and says what of it was not understood.
FileFindings ReadWhole(std::string_view bytes, CSbdData& data)
{
    data.ClearBlocks();
    FileFindings found = ReadWithFindings(bytes, data);
    RepairAfterRead(data);
    data.Shrink();
    return found;
}

/// The project of the result files; its full path, so that the stamps of two readings compare.
std::filesystem::path FullPath(const QString& project)
{
    return ToPath(QFileInfo(project).absoluteFilePath());
}

} // namespace

CKELDSectionDoc::CKELDSectionDoc(QObject* parent) : QObject(parent) {}

CKELDSectionDoc::~CKELDSectionDoc() = default;

QString CKELDSectionDoc::Title() const
{
    return path_.isEmpty() ? u"New SBD File"_s : QFileInfo(path_).fileName();
}

void CKELDSectionDoc::SetModifiedFlag(bool modified)
{
    if (modified)
        history_.SetClean(false);
    else
        history_.MarkSaved();
    ShowModified(modified);
}

void CKELDSectionDoc::ShowModified(bool modified)
{
    if (modified_ == modified)
        return;
    modified_ = modified;
    emit modifiedChanged(modified);
}

void CKELDSectionDoc::SetPathName(const QString& path)
{
    const QString own = path.isEmpty() ? QString() : QFileInfo(path).absoluteFilePath();
    if (own == path_)
        return;
    path_ = own;
    emit pathChanged();
}

void CKELDSectionDoc::ReadResults(const QString& project)
{
    ReadStampedResultFiles(FullPath(project), results_, resultsAsRead_);
    emit resultsRead();
}

bool CKELDSectionDoc::HasNewerResults() const
{
    return !path_.isEmpty() && HasOtherFiles(StampOf(ToPath(path_)), resultsAsRead_);
}

FileResult CKELDSectionDoc::Load(const QString& file, const QString& project)
{
    std::string bytes;
    const FileLook look = LookAt(file);
    FileResult result = ReadFileBytes(ToPath(file), bytes);
    if (!result.Ok())
        return result;

    // Results and names come first: repairs behind the last line add to the names.
    AnalysisResults results;
    ResultStamp resultsAsRead;
    CSbdData data;
    if (!project.isEmpty()) {
        ReadStampedResultFiles(FullPath(project), results, resultsAsRead);
        ReadGridNames(NamesFileBeside(ToPath(project)), data);
    }
    FileFindings asRead = ReadWhole(bytes, data);

    data_ = std::move(data);
    asRead_ = std::move(asRead);
    results_ = std::move(results);
    resultsAsRead_ = std::move(resultsAsRead);
    path_ = project.isEmpty() ? QString() : QFileInfo(project).absoluteFilePath();
    if (file == project)
        stamp_ = StampOfProject(path_, look, bytes);
    else
        StampProject(path_);
    memory_.clear();
    history_.Clear();
    SetHelpCell(-1, 0, 0);
    SetModifiedFlag(false);
    emit pathChanged();
    emit reloaded();
    emit historyChanged();
    return result;
}

/// The user has been told what stands in the file of a copy: from here on it must not change.
void CKELDSectionDoc::StampProject(const QString& project)
{
    std::string bytes;
    const FileLook look = LookAt(project);
    stamp_ = !project.isEmpty() && ReadFileBytes(ToPath(project), bytes).Ok() ? StampOfProject(project, look, bytes)
                                                                              : ProjectStamp();
}

FileResult CKELDSectionDoc::OpenDocument(const QString& path)
{
    return Load(path, path);
}

FileResult CKELDSectionDoc::OpenRecoveryCopy(const QString& copy, const QString& project)
{
    FileResult result = Load(copy, project);
    if (result.Ok())
        SetModifiedFlag(true);
    return result;
}

FileResult CKELDSectionDoc::SaveDocument(const QString& path, bool* controlBlockHeldBack)
{
    emit aboutToSave();
    // A save would wait for whoever reads the other end, and what it has read is kept nowhere.
    std::error_code noFile;
    const std::filesystem::file_type type = std::filesystem::status(ToPath(path), noFile).type();
    if (type == std::filesystem::file_type::fifo || type == std::filesystem::file_type::socket)
        return {FileError::NoPlainFile, "パイプまたはソケットです"};
    WriteReport report;
    const std::string bytes = WriteProject(data_, &report);
    FileResult result = ReplaceFileBytes(ToPath(path), bytes);
    if (!result.Ok())
        return result;

    if (controlBlockHeldBack != nullptr)
        *controlBlockHeldBack = report.controlBlockHeldBack;
    asRead_ = {};
    SetModifiedFlag(false);
    SetPathName(path);
    stamp_ = StampOfProject(path_, LookAt(path_), bytes);
    if (stamp_.look.size != bytes.size())
        stamp_.look = {}; // somebody was faster: the content decides
    return result;
}

void CKELDSectionDoc::Commit(const PanelEdit& edit)
{
    if (edit.name.empty() && NextRedo() != nullptr)
        return; // it would have no place among the steps
    CProjectWriter writer(data_);
    edit.write(writer);
    FollowLinks(writer, edit.place.block);
    const std::vector<ChangedRow> places = ChangedRows(writer.Changes());
    if (HoldsNames(places))
        RefreshSwayNames(data_);
    const bool modified = edit.isModified();
    if (edit.name.empty()) {
        history_.Extend(writer.TakeChanges());
        history_.SetClean(!modified);
    } else {
        AddStep({edit.place, edit.name, writer.TakeChanges(), edit.looseBefore, edit.looseAfter()}, modified);
    }
    ShowModified(modified);
    Tell(places);
    emit historyChanged();
}

/// A step that changed nothing, neither the data nor the grid, is none.
void CKELDSectionDoc::AddStep(EditStep step, bool modified)
{
    if (!step.changes.empty() || !(step.looseBefore == step.looseAfter))
        history_.Add(std::move(step));
    history_.SetClean(!modified);
}

void CKELDSectionDoc::Undo()
{
    if (NextUndo() == nullptr)
        return;
    const EditStep& step = history_.Undo(data_);
    Step(step, step.place, step.looseBefore);
}

void CKELDSectionDoc::Redo()
{
    if (NextRedo() == nullptr)
        return;
    const EditStep& step = history_.Redo(data_);
    EditPlace place = step.place;
    if (place.movedRow > 0) // the user is shown the row where it stands now
        std::swap(place.row, place.movedRow);
    Step(step, place, step.looseAfter);
}

/// Tells of a step that was taken back or made again.
void CKELDSectionDoc::Step(const EditStep& step, const EditPlace& where, const LooseRows& loose)
{
    const EditPlace place = where;
    // Who is told may add steps. NOLINTNEXTLINE(performance-unnecessary-copy-initialization)
    const LooseRows shown = loose;
    const std::vector<ChangedRow> places = ChangedRows(step.changes);
    if (HoldsNames(places))
        RefreshSwayNames(data_);
    {
        const QScopedValueRollback stepping(stepping_, true);
        ShowModified(!history_.IsClean());
        Tell(places);
    }
    emit stepped(place, shown);
    emit historyChanged();
}

void CKELDSectionDoc::ForgetGrid(int block)
{
    history_.ForgetGrid(block);
    emit historyChanged();
}

/// One signal a row, or one for the whole block where many rows are concerned.
void CKELDSectionDoc::Tell(const std::vector<ChangedRow>& places)
{
    constexpr std::size_t fewRows = 20;
    std::map<int, std::vector<int>> rowsOfBlock;
    for (const ChangedRow& place : places)
        rowsOfBlock[place.block].push_back(place.row);
    for (const auto& [block, rows] : rowsOfBlock) {
        if (rows.size() > fewRows) {
            emit changed({block, -1});
            continue;
        }
        for (const int row : rows)
            emit changed({block, row});
    }
}

void CKELDSectionDoc::WriteOwn(int block, const char* name, const ProjectWrite& write)
{
    const auto nothing = [] { return LooseRows(); };
    Commit({{block, 1, 1}, Cp932(name), write, [] { return true; }, {}, nothing});
}

void CKELDSectionDoc::SetUcGrid()
{
    WriteOwn(kControlBlock, "301 UC-GRID",
             [](CProjectWriter& writer) { writer.SetOption(kControlBlock, kAnalysisUsedRow, "UC-GRID"); });
}

void CKELDSectionDoc::AppendBoxWebs(const std::vector<std::vector<std::string>>& rows)
{
    WriteOwn(kBoxWebBlock, "305 左右腹板名", [&](CProjectWriter& writer) {
        for (const std::vector<std::string>& row : rows)
            writer.InsertRow(kBoxWebBlock, writer.Data().RowCount(kBoxWebBlock), row);
    });
}

void CKELDSectionDoc::ReadNames(const QString& namesFile)
{
    ReadGridNames(ToPath(namesFile), data_);
}

CSbdData CKELDSectionDoc::DataOf(std::string_view bytes) const
{
    CSbdData read = data_;
    ReadWhole(bytes, read);
    return read;
}

bool CKELDSectionDoc::Reload()
{
    std::string bytes;
    const FileLook look = LookAt(path_);
    if (path_.isEmpty() || !ReadFileBytes(ToPath(path_), bytes).Ok())
        return false;
    stamp_ = StampOfProject(path_, look, bytes);
    CSbdData read = data_;
    asRead_ = ReadWhole(bytes, read);
    CProjectWriter writer(data_);
    writer.Replace(read);
    data_.gridNames = std::move(read.gridNames);
    AddStep({{0, 0, 0}, Cp932("ファイルの再読込"), writer.TakeChanges(), {}, {}}, false);
    emit reloaded();
    emit historyChanged();
    return true;
}

void CKELDSectionDoc::ReplaceProject(const CSbdData& other, const std::string& name)
{
    CProjectWriter writer(data_);
    writer.Replace(other);
    if (writer.Changes().empty())
        return;
    AddStep({{0, 0, 0}, name, writer.TakeChanges(), {}, {}}, true);
    RefreshSwayNames(data_);
    modified_ = true;
    emit reloaded();
    emit modifiedChanged(true); // also where it was before: the panels have just been set up
    emit historyChanged();
}

void CKELDSectionDoc::SetHelpCell(int block, int row, int column)
{
    if (helpBlock_ == block && helpRow_ == row && helpColumn_ == column)
        return;
    helpBlock_ = block;
    helpRow_ = row;
    helpColumn_ = column;
    emit helpCellChanged();
}

} // namespace sbd
