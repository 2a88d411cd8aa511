#include "frame/file_commands.h"

#include "document/file_messages.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/profile.h"
#include "sbdfile/writer.h"

#include <QDir>
#include <QFileInfo>
#include <QMdiArea>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kExtension = u".sbd"_s;

bool IsProjectName(const QString& path)
{
    return path.endsWith(kExtension, Qt::CaseInsensitive);
}

/// One spelling for all paths to a file.
QString OnePath(const QString& path)
{
    const QFileInfo file(path);
    const QString canonical = file.canonicalFilePath(); // empty if there is no such file
    return canonical.isEmpty() ? file.absoluteFilePath() : canonical;
}

bool IsUntouched(CChildFrame& child)
{
    child.CommitPanel();
    return child.Doc().PathName().isEmpty() && !child.Doc().IsModified();
}

} // namespace

CFileCommands::CFileCommands(QMdiArea& area, Prompts prompts) : area_(area), prompts_(std::move(prompts)) {}

CChildFrame* CFileCommands::New()
{
    return AddChild(std::make_unique<CKELDSectionDoc>());
}

CChildFrame* CFileCommands::Open()
{
    const QString path = prompts_.openFileName(area_.window(), Folder());
    return path.isEmpty() ? nullptr : OpenFile(path);
}

CChildFrame* CFileCommands::OpenFile(const QString& path)
{
    if (CChildFrame* open = FindOpen(path)) {
        area_.setActiveSubWindow(open);
        return open;
    }
    if (!IsProjectName(path)) {
        Warn(NotAProjectMessage(path));
        return nullptr;
    }
    auto doc = std::make_unique<CKELDSectionDoc>();
    const FileResult result = doc->OpenDocument(path);
    if (!result.Ok()) {
        Warn(FileMessage(FileOperation::Open, path, result));
        return nullptr;
    }
    auto* before = qobject_cast<CChildFrame*>(area_.currentSubWindow());
    CRecentFiles::Add(path);
    CChildFrame* child = AddChild(std::move(doc));
    if (before != nullptr && IsUntouched(*before))
        before->close();
    return child;
}

CChildFrame* CFileCommands::AddChild(std::unique_ptr<CKELDSectionDoc> doc)
{
    auto* child = new CChildFrame(std::move(doc));
    child->mayClose = [this](CChildFrame& closing) { return MayClose(closing); };
    area_.addSubWindow(child);
    child->showMaximized();
    return child;
}

CChildFrame* CFileCommands::FindOpen(const QString& path) const
{
    const QString wanted = OnePath(path);
    for (QMdiSubWindow* window : area_.subWindowList()) {
        auto* child = qobject_cast<CChildFrame*>(window);
        if (child != nullptr && !child->Doc().PathName().isEmpty() && OnePath(child->Doc().PathName()) == wanted)
            return child;
    }
    return nullptr;
}

QString CFileCommands::Folder() const
{
    if (auto* child = qobject_cast<CChildFrame*>(area_.currentSubWindow())) {
        if (!child->Doc().PathName().isEmpty())
            return QFileInfo(child->Doc().PathName()).path();
    }
    const QStringList recent = CRecentFiles::List();
    return recent.isEmpty() ? QDir::homePath() : QFileInfo(recent.constFirst()).path();
}

bool CFileCommands::Save(CChildFrame& child)
{
    const QString path = child.Doc().PathName();
    return path.isEmpty() ? SaveAs(child) : SaveTo(child, path);
}

bool CFileCommands::SaveAs(CChildFrame& child)
{
    const QString own = child.Doc().PathName();
    const QString proposal = own.isEmpty() ? Folder() + u'/' + child.Doc().Title() + kExtension : own;
    QString path = prompts_.saveFileName(area_.window(), proposal);
    if (path.isEmpty())
        return false;
    if (!IsProjectName(path)) {
        path += kExtension; // only such files can be opened again
        if (QFileInfo::exists(path)) {
            Warn(u"保存しませんでした。\n"_s + QDir::toNativeSeparators(path)
                 + u"\n\n拡張子 .sbd を付けた名前のファイルがすでにあります。入力内容は画面に残っています。\n\n"
                   u"別の名前を付けるか、拡張子まで入力して保存し直してください。"_s);
            return false;
        }
    }
    CChildFrame* open = FindOpen(path);
    if (open != nullptr && open != &child) {
        Warn(u"保存しませんでした。\n"_s + QDir::toNativeSeparators(path)
             + u"\n\nこのファイルは別のウィンドウで開いています。入力内容は画面に残っています。\n\n"
               u"別の名前を付けるか、そのウィンドウを閉じてから保存し直してください。"_s);
        return false;
    }
    return SaveTo(child, path);
}

bool CFileCommands::SaveTo(CChildFrame& child, const QString& path)
{
    bool controlBlockHeldBack = false;
    const FileResult result = child.Doc().SaveDocument(path, &controlBlockHeldBack);
    if (!result.Ok()) {
        Warn(FileMessage(FileOperation::Save, path, result));
        return false;
    }
    CRecentFiles::Add(path);
    if (controlBlockHeldBack)
        Warn(QString::fromUtf8(kControlBlockMessage));
    return true;
}

bool CFileCommands::MayClose(CChildFrame& child)
{
    child.CommitPanel();
    if (!child.Doc().IsModified())
        return true;
    area_.setActiveSubWindow(&child);
    const QString question = u"「"_s + child.Doc().Title()
                             + u"」の変更を保存しますか。\n\n保存しないと、前回保存した後の入力内容は失われます。"_s;
    switch (prompts_.ask(area_.window(), question)) {
    case SaveAnswer::Save:
        return Save(child);
    case SaveAnswer::Discard:
        return true;
    case SaveAnswer::Cancel:
        break;
    }
    return false;
}

void CFileCommands::Warn(const QString& text) const
{
    prompts_.warn(area_.window(), text);
}

} // namespace sbd
