#include "document/section_doc.h"

#include "document/path.h"
#include "sbdfile/grid_names.h"
#include "sbdfile/reader.h"
#include "sbdfile/writer.h"

#include <QFileInfo>

namespace sbd {

using namespace Qt::StringLiterals;

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

FileResult CKELDSectionDoc::OpenDocument(const QString& path)
{
    const std::filesystem::path file = ToPath(path);
    std::string bytes;
    FileResult result = ReadFileBytes(file, bytes);
    if (!result.Ok())
        return result;

    // The names come first: repairs behind the last line add to them.
    CSbdData data;
    ReadGridNames(NamesFileBeside(file), data);
    ReadProject(bytes, data);
    data.Shrink();

    data_ = std::move(data);
    path_ = QFileInfo(path).absoluteFilePath();
    memory_.clear();
    SetHelpCell(-1, 0, 0);
    SetModifiedFlag(false);
    emit pathChanged();
    emit reloaded();
    return result;
}

FileResult CKELDSectionDoc::SaveDocument(const QString& path, bool* controlBlockHeldBack)
{
    emit aboutToSave();
    WriteReport report;
    const std::string bytes = WriteProject(data_, &report);
    FileResult result = ReplaceFile(ToPath(path), bytes);
    if (!result.Ok())
        return result;

    if (controlBlockHeldBack != nullptr)
        *controlBlockHeldBack = report.controlBlockHeldBack;
    const QString saved = QFileInfo(path).absoluteFilePath();
    SetModifiedFlag(false);
    if (saved != path_) {
        path_ = saved;
        emit pathChanged();
    }
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
