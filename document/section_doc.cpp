#include "document/section_doc.h"

#include "document/path.h"
#include "sbdfile/grid_names.h"
#include "sbdfile/reader.h"
#include "sbdfile/writer.h"

#include <QFileInfo>

#include <filesystem>
#include <system_error>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

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
    ReadProject(bytes, data);
    data.Shrink();

    data_ = std::move(data);
    results_ = std::move(results);
    resultsAsRead_ = std::move(resultsAsRead);
    path_ = project.isEmpty() ? QString() : QFileInfo(project).absoluteFilePath();
    memory_.clear();
    SetHelpCell(-1, 0, 0);
    SetModifiedFlag(false);
    emit pathChanged();
    emit reloaded();
    return result;
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
    SetModifiedFlag(false);
    SetPathName(path);
    return result;
}

void CKELDSectionDoc::NotifyChanged(const BlockChange& change)
{
    emit changed(change);
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
