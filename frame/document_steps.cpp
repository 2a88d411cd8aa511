#include "frame/document_steps.h"

#include "document/file_messages.h"
#include "document/section_doc.h"

#include <QFileInfo>

namespace sbd {

CDocumentSteps::CDocumentSteps(CKELDSectionDoc& doc, CProjectLock& lock, DocumentHooks hooks)
    : doc_(doc)
    , lock_(lock)
    , hooks_(std::move(hooks))
{
}

bool CDocumentSteps::SaveDocument(const QString& project)
{
    if (const QString question = ForeignFileQuestion(project);
        !question.isEmpty() && hooks_.askAboutForeignFile && !hooks_.askAboutForeignFile(question))
        return false;
    // The file that a new project takes the place of.
    if (hooks_.keepReplaced && QFileInfo::exists(project) && !hooks_.keepReplaced(project))
        return false;
    const FileResult result = OnSaveDocument(doc_, lock_, project);
    if (!result.Ok())
        hooks_.warn(FileMessage(FileOperation::Save, project, result));
    return result.Ok();
}

void CDocumentSteps::SetPathName(const QString& project)
{
    hooks_.setPathName(project);
}

void CDocumentSteps::ReadGridNames(const QString& namesFile)
{
    doc_.ReadNames(namesFile);
}

void CDocumentSteps::ReadResultFiles(const QString& project)
{
    hooks_.readResultFiles(project);
}

bool CDocumentSteps::OpenDocument(const QString& project)
{
    const OpenResult result = OnOpenDocument(doc_, lock_, project, hooks_.askAboutHeldFile);
    if (result.outcome == OpenOutcome::Failed)
        hooks_.warn(FileMessage(FileOperation::Open, project, result.file));
    return result.Ok();
}

void CDocumentSteps::SetUcGrid()
{
    doc_.SetUcGrid();
}

bool CDocumentSteps::BoxWebFlow()
{
    return sbd::BoxWebFlow(doc_, hooks_.boxWebs);
}

bool CDocumentSteps::SaveWrapper()
{
    return hooks_.saveWrapper();
}

bool CDocumentSteps::RunMain()
{
    return hooks_.runMain();
}

} // namespace sbd
