#include "frame/file_commands.h"

#include "document/file_messages.h"
#include "document/file_name.h"
#include "document/kept_inputs.h"
#include "document/project_lock.h"
#include "document/save_flow.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/document_steps.h"
#include "frame/notice_bar.h"
#include "frame/profile.h"
#include "frame/run_notices.h"
#include "panels/panel.h"
#include "sbdfile/writer.h"
#include "upperview/chk_view.h"
#include "upperview/up_view.h"

#include <QDir>
#include <QFileInfo>
#include <QMdiArea>
#include <QPointer>
#include <QStandardPaths>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kExtension = u".sbd"_s;

bool IsProjectName(const QString& path)
{
    return path.endsWith(kExtension, Qt::CaseInsensitive);
}

/// One spelling for all paths to a file. On Windows case does not count.
QString OnePath(const QString& path)
{
    const QFileInfo file(path);
    const QString canonical = file.canonicalFilePath(); // empty if there is no such file
    const QString full = canonical.isEmpty() ? file.absoluteFilePath() : canonical;
#ifdef Q_OS_WIN
    return full.toCaseFolded();
#else
    return full;
#endif
}

bool IsUntouched(CChildFrame& child)
{
    child.CommitPanel();
    return child.Doc().PathName().isEmpty() && !child.Doc().IsModified();
}

/// Of a project that is gone an input may be left, which no window of that project can show any more.
QString KeptParagraph(const QString& path, const FileResult& result, const QString& folder)
{
    if (result.error != FileError::NotFound)
        return {};
    for (const KeptInput& input : KeptInputsOf(path, folder)) {
        if (!input.project.isEmpty())
            return u"\n\nこのプロジェクトの入力が、次のファイルに保管してあります (%1)。\n%2"_s.arg(
                input.time.toString(u"yyyy/MM/dd HH:mm:ss"_s), QDir::toNativeSeparators(input.file));
    }
    return {};
}

/// The report of a project is from an earlier session: how its run has ended is known from there too.
void ShowLastRun(CKELDSectionDoc& doc, const std::function<QString()>& keptFolder)
{
    const auto show = [&doc, keptFolder] {
        doc.lastRun = doc.PathName().isEmpty() ? QString() : LastRunText(doc.PathName(), keptFolder());
    };
    show();
    QObject::connect(&doc, &CKELDSectionDoc::pathChanged, &doc, show);
}

} // namespace

CFileCommands::CFileCommands(QMdiArea& area, Prompts prompts)
    : area_(area)
    , prompts_(std::move(prompts))
    , runner_(prompts_.runs)
    , newDocument_(NewPrompts())
{
}

CFileCommands::~CFileCommands() = default;

NewDocumentPrompts CFileCommands::NewPrompts()
{
    NewDocumentPrompts prompts;
    prompts.chooser = [this] { return prompts_.chooseStart(area_.window()); };
    prompts.openFileName = [this](const QStringList& filters) {
        return prompts_.openNewProjectFile(area_.window(), Folder(), filters);
    };
    prompts.askYesNo = [this](const QString& text) { return AskYesNo(text); };
    prompts.warn = [this](const QString& text) { Warn(text); };
    return prompts;
}

CChildFrame* CFileCommands::New()
{
    std::unique_ptr<CChildFrame> child =
        MakeChild(std::make_unique<CKELDSectionDoc>(), std::make_unique<CProjectLock>());
    return OnNewDocument(*child) ? Show(std::move(child)) : nullptr;
}

bool CFileCommands::OnNewDocument(CChildFrame& child)
{
    CKELDSectionDoc& doc = child.Doc();
    DocumentHooks hooks;
    hooks.setPathName = [&doc](const QString& project) {
        doc.SetPathName(project);
        CRecentFiles::Add(doc.PathName());
    };
    hooks.readResultFiles = [&doc](const QString& project) { doc.ReadResults(project); };
    hooks.saveWrapper = [this, &child] { return Save(child); };
    hooks.runMain = [this, &child] { return runner_.RunAndReload(EngineRun::Main, ProjectOf(child)); };
    hooks.boxWebs.showSheet = [this](BoxWebNames& names) { return prompts_.showBoxWebs(area_.window(), names); };
    hooks.boxWebs.ask = [this](const QString& text) { return AskYesNo(text); };
    hooks.askAboutForeignFile = [this](const QString& text) { return AskYesNo(text); };
    hooks.askAboutHeldFile = [this](const QString& text) { return AskYesNo(text); };
    hooks.warn = [this](const QString& text) { Warn(text); };
    hooks.keepReplaced = [this, &child](const QString& project) { return KeepReplaced(child, project); };
    CDocumentSteps steps(doc, child.Lock(), std::move(hooks));
    return newDocument_.OnNewDocument(steps);
}

CChildFrame* CFileCommands::Open()
{
    const QString path = prompts_.openFileName(area_.window(), Folder());
    return path.isEmpty() ? nullptr : OpenFile(path);
}

CChildFrame* CFileCommands::OpenFile(const QString& path)
{
    QString trouble;
    CChildFrame* child = OpenWith(
        path, [this](const QString& text) { return AskYesNo(text); }, trouble);
    if (!trouble.isEmpty())
        Warn(trouble);
    return child;
}

CChildFrame* CFileCommands::OpenQuietly(const QString& path, QString& trouble)
{
    const auto no = [](const QString&) { return false; };
    CChildFrame* child = OpenWith(path, no, trouble);
    if (child == nullptr && trouble.isEmpty())
        trouble = u"ほかのプログラムで開かれています。"_s;
    return child;
}

CChildFrame* CFileCommands::OpenWith(const QString& path, const std::function<bool(const QString& question)>& ask,
                                     QString& trouble)
{
    if (CChildFrame* open = FindOpen(path)) {
        area_.setActiveSubWindow(open);
        return open;
    }
    if (!IsProjectName(path)) {
        trouble = NotAProjectMessage(path);
        return nullptr;
    }
    auto doc = std::make_unique<CKELDSectionDoc>();
    auto lock = std::make_unique<CProjectLock>();
    const OpenResult result = OnOpenDocument(*doc, *lock, path, ask);
    if (!result.Ok()) {
        if (result.outcome == OpenOutcome::Failed)
            trouble = FileMessage(FileOperation::Open, path, result.file)
                      + KeptParagraph(path, result.file, prompts_.runs.keptFolder());
        if (result.file.error == FileError::NotFound)
            CRecentFiles::Remove(path); // the user knows now
        return nullptr;
    }
    const QPointer before = qobject_cast<CChildFrame*>(area_.currentSubWindow());
    CRecentFiles::Add(path);
    CChildFrame* child = Show(MakeChild(std::move(doc), std::move(lock)));
    if (before != nullptr && IsUntouched(*before))
        before->close();
    if (tellsOfCopies_)
        TellOfCopies(*child);
    return child;
}

std::unique_ptr<CChildFrame> CFileCommands::MakeChild(std::unique_ptr<CKELDSectionDoc> doc,
                                                      std::unique_ptr<CProjectLock> lock)
{
    if (setUpDocument)
        setUpDocument(*doc);
    ShowLastRun(*doc, prompts_.runs.keptFolder);
    auto child = std::make_unique<CChildFrame>(std::move(doc), std::move(lock));
    child->mayClose = [this](CChildFrame& closing) { return MayClose(closing); };
    QObject::connect(child.get(), &CChildFrame::runIsDue, child.get(),
                     [this, frame = child.get()](const WantedRun& run) { RunFromPage(*frame, run); });
    if (setUpChild)
        setUpChild(*child);
    return child;
}

CChildFrame* CFileCommands::Show(std::unique_ptr<CChildFrame> child)
{
    if (child->Doc().PathName().isEmpty())
        child->SetTitle(FreeTitle(child->Doc().Title()));
    CChildFrame* shown = child.release(); // the area's from here on
    area_.addSubWindow(shown);
    shown->showMaximized();
    return shown;
}

RunProject CFileCommands::ProjectOf(CChildFrame& child)
{
    const QPointer<CChildFrame> frame = &child;
    RunProject project = RunProjectOf(child, child.Lock(), [this, frame] { return frame && Save(*frame); });
    project.window = area_.window(); // a new project has no window yet
    project.show = [this, frame](const RunReport& report) {
        if (frame)
            ShowRunReport(*frame, report, Differences());
    };
    return project;
}

void CFileCommands::Run(CChildFrame& child, EngineRun run)
{
    runner_.Run(run, ProjectOf(child));
}

void CFileCommands::RunFromPage(CChildFrame& child, const WantedRun& run)
{
    const QPointer<CChildFrame> frame = &child;
    runner_.RunFromPage(run.run, run.question, ProjectOf(child));
    if (frame)
        frame->UpView().Chk().RunEnded();
}

/// The title, with a number where a window has it already.
QString CFileCommands::FreeTitle(const QString& title) const
{
    QStringList taken;
    for (QMdiSubWindow* window : area_.subWindowList()) {
        if (auto* child = qobject_cast<CChildFrame*>(window))
            taken.append(child->Title());
    }
    QString free = title;
    for (int number = 2; taken.contains(free); ++number)
        free = u"%1 %2"_s.arg(title).arg(number);
    return free;
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
    if (!recent.isEmpty())
        return QFileInfo(recent.constFirst()).path();
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

bool CFileCommands::Wrap(CChildFrame& child, const std::function<bool()>& save)
{
    const QPointer<CChildFrame> frame = &child;
    const auto setTitle = [frame](const QString& title) {
        if (frame)
            frame->SetTitle(title);
    };
    const SaveOutcome outcome = SaveWrapper(child.Doc(), child.Lock(), {save, setTitle});
    if (!outcome.notCopied.isEmpty() && frame)
        frame->Notices().Show(
            {u"not-copied"_s,
             u"プロジェクトは保存しましたが、一緒に使う次のファイルを新しい名前でコピーできませんでした。"
             u"元のファイルはそのままです。ディスクの空きを確かめてから、コピーしてください。\n"_s
                 + QDir::toNativeSeparators(outcome.notCopied.join(u'\n')),
             {},
             true});
    return outcome.saved;
}

bool CFileCommands::Save(CChildFrame& child)
{
    if (child.Doc().PathName().isEmpty())
        return SaveAs(child);
    return Wrap(child, [&] { return SaveTo(child, child.Doc().PathName()); });
}

bool CFileCommands::SaveAs(CChildFrame& child)
{
    return Wrap(child, [&] {
        const QString path = AskSaveName(child);
        return !path.isEmpty() && SaveTo(child, path);
    });
}

QString CFileCommands::AskSaveName(CChildFrame& child)
{
    const QString own = child.Doc().PathName();
    const QString proposal =
        own.isEmpty() ? QDir(Folder()).filePath(SafeFileName(child.NameWithoutPath()) + kExtension) : own;
    QString path = prompts_.saveFileName(area_.window(), proposal);
    if (path.isEmpty())
        return {};
    if (!IsProjectName(path)) {
        path += kExtension; // only such files can be opened again
        if (QFileInfo::exists(path)) {
            Warn(u"保存しませんでした。\n"_s + QDir::toNativeSeparators(path)
                 + u"\n\n拡張子 .sbd を付けた名前のファイルがすでにあります。入力内容は画面に残っています。\n\n"
                   u"別の名前を付けるか、拡張子まで入力して保存し直してください。"_s);
            return {};
        }
    }
    CChildFrame* open = FindOpen(path);
    if (open != nullptr && open != &child) {
        Warn(u"保存しませんでした。\n"_s + QDir::toNativeSeparators(path)
             + u"\n\nこのファイルは別のウィンドウで開いています。入力内容は画面に残っています。\n\n"
               u"別の名前を付けるか、そのウィンドウを閉じてから保存し直してください。"_s);
        return {};
    }
    return path;
}

bool CFileCommands::SaveTo(CChildFrame& child, const QString& path)
{
    if (CProjectLock::LookPatiently(path) == CProjectLock::State::Held) {
        Warn(u"保存しませんでした。\n"_s + QDir::toNativeSeparators(path)
             + u"\n\nこのファイルは他のプログラムで使用中です。入力内容は画面に残っています。\n\n"
               u"そのプログラムでファイルを閉じてから保存し直すか、別の名前を付けて保存してください。"_s);
        return false;
    }
    const bool isOwn = !child.Doc().PathName().isEmpty() && OnePath(path) == OnePath(child.Doc().PathName());
    if (isOwn) {
        const bool isAnother = child.Doc().FileIsAnother();
        switch (AskAboutChangedFile(child)) {
        case ChangedFileStep::Save:
            if (isAnother)
                child.SetForeignFile(path); // whatever it holds, the answer has been given
            break;
        case ChangedFileStep::SaveElsewhere: {
            const QString other = AskSaveName(child);
            return !other.isEmpty() && SaveTo(child, other);
        }
        case ChangedFileStep::Stop:
            return false;
        }
    }
    if (const QString question = ForeignFileQuestion(path); !question.isEmpty() && path != child.ForeignFile()) {
        if (!AskYesNo(question))
            return false;
        child.SetForeignFile(path); // once is enough
    }
    bool controlBlockHeldBack = false;
    const FileResult result = child.Doc().SaveDocument(path, &controlBlockHeldBack);
    if (!result.Ok()) {
        Warn(FileMessage(FileOperation::Save, path, result));
        return false;
    }
    CRecentFiles::Add(path);
    if (saved)
        saved(child);
    if (controlBlockHeldBack)
        Warn(QString::fromUtf8(kControlBlockMessage));
    return true;
}

bool CFileCommands::MayClose(CChildFrame& child)
{
    if (child.Panel() != nullptr && !child.Panel()->MayClose())
        return false; // a refused text would go with the window
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

bool CFileCommands::AskYesNo(const QString& text) const
{
    return prompts_.askYesNo(area_.window(), text);
}

void CFileCommands::Warn(const QString& text) const
{
    prompts_.warn(area_.window(), text);
}

} // namespace sbd
