#include "frame/engine_runner.h"

#include "document/broken_file.h"
#include "document/engine_path.h"
#include "document/kept_inputs.h"
#include "document/path.h"
#include "document/project_lock.h"
#include "document/project_stamp.h"
#include "document/save_flow.h"
#include "document/section_doc.h"
#include "frame/report_tail.h"
#include "project/sbd_data.h"
#include "sbdfile/writer.h"
#include "upperview/chk_page.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QEvent>
#include <QFileInfo>
#include <QThread>
#include <QTimer>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kNoProject = u"物件ファイルを開いてから操作できます！"_s;
const auto kAnalysisRuns = u"KELD analysis.exe は既に実行されています！"
                           u"自動設計を行う場合，KELD analysis.exe を終了してください！"_s;
// Speaks of two answers, but there is none to give.
const auto kChangesAreSaved = u"データに修正があり，解析方法を選択してください：\n\n"
                              u"\t はい：　　　　データを保存し，解析を行います．\n"
                              u"\t キャンセル：　解析を行いません．"_s;

/// Where the project of before stands, as a paragraph of its own.
QString CopyParagraph(const QString& copy)
{
    return copy.isEmpty()
               ? u"\n\n解析前の入力は保管できていません。"_s
               : u"\n\n解析前の内容は、次のファイルに保管してあります。\n"_s + QDir::toNativeSeparators(copy);
}

/// The sections whose rows have gone, as many as a box has room for.
QString LostSectionsParagraph(const std::vector<std::string>& sections)
{
    constexpr std::size_t most = 12;
    if (sections.empty())
        return {};
    QStringList names;
    for (std::size_t i = 0; i < std::min(sections.size(), most); ++i)
        names.append(toQString(sections[i]));
    QString text = u"\n\nデータがなくなったブロック: "_s + names.join(u", "_s);
    if (sections.size() > most)
        text += u" ほか %1 個"_s.arg(sections.size() - most);
    return text;
}

QString BrokenFileMessage(const QString& project, const QString& copy, const std::vector<std::string>& lost, bool shown)
{
    QString text = u"解析プログラムが書いたプロジェクトファイルが壊れているようです。\n"_s
                   + QDir::toNativeSeparators(project) + LostSectionsParagraph(lost);
    if (shown)
        text += u"\n\n画面には、このファイルから読み取れた内容だけが表示されています。"_s;
    text += CopyParagraph(copy);
    return text
           + (copy.isEmpty()
                  ? u"\n\n保存する前に、内容を確かめてください。"_s
                  : u"\n\nこのプロジェクトを保存する前に、「解析前の入力」と比べて内容を確かめてください。"_s);
}

QString MissingFileMessage(const QString& project, const QString& copy)
{
    return u"解析プログラムの終了後、プロジェクトファイルが見つかりません。\n"_s + QDir::toNativeSeparators(project)
           + u"\n\n入力内容は画面に残っています。"_s + CopyParagraph(copy)
           + u"\n\n「上書き保存」でファイルを作り直してください。"_s;
}

QString NoCopyQuestion(const QString& project, const QString& folder, bool unsaved)
{
    QString text = u"解析前の入力を次のフォルダーに保管できません。\n"_s + QDir::toNativeSeparators(folder)
                   + u"\n\n解析プログラムは次のプロジェクトファイルを書き換えることがあります。保管がないと、"_s
                   + u"解析前の内容に戻せません。\n"_s + QDir::toNativeSeparators(project);
    if (unsaved)
        text += u"\n\n保存していない変更があります。チェックの後の読み直しで画面から消え、"
                u"このウィンドウの「元に戻す」でしか戻せません。"_s;
    return text
           + u"\n\nディスクの空きを確かめるか、「上書き保存」と「名前を付けて保存」で控えを作ることをお勧めします。"_s
           + u"\n\nこのまま実行しますか。"_s;
}

KeptKind KeptKindOf(EngineRun run)
{
    switch (run) {
    case EngineRun::Check:
        return KeptKind::Check;
    case EngineRun::Main:
        return KeptKind::Main;
    case EngineRun::Result:
        return KeptKind::Result;
    case EngineRun::Cross:
        return KeptKind::Cross;
    case EngineRun::Support:
        return KeptKind::Support;
    }
    return KeptKind::Other;
}

/// Of a run that has just ended.
QString TextOfRun(EngineRun run, const RunEnd& end)
{
    return RunText(KeptKindOf(run), QDateTime::currentDateTime(), end);
}

/// How a run has ended. Only a report that has come or changed with it is its own.
RunEnd RunEndOf(const EngineEnd& ended, const FileLook& reportBefore, const QString& reportPath)
{
    if (ended.cancelled)
        return {RunEndKind::Cancelled};
    if (ended.fault)
        return {RunEndKind::Fault, ended.code};
    if (ended.code != 0)
        return {RunEndKind::ExitCode, ended.code};
    const FileLook report = LookAt(reportPath);
    if (!report.isThere || report == reportBefore)
        return {RunEndKind::NoReport};
    const ReportCount count = CountReport(reportPath);
    return {RunEndKind::Report, 0, count.errors, count.warnings};
}

/// What was ended by force lets go of its files when the system has taken it down.
void WaitAMoment(const QString& path)
{
    constexpr int most = 2000; // ms
    constexpr int again = 20;
    const QDeadlineTimer deadline(most);
    while (CProjectLock::Look(path) == CProjectLock::State::Held && !deadline.hasExpired())
        QThread::msleep(again);
}

bool CanBeReadAgain(const QString& path)
{
    return CProjectLock::Look(path) == CProjectLock::State::Free && QFileInfo(path).isWritable();
}

std::string BytesOf(const QString& path)
{
    std::string bytes;
    return ReadFileBytes(ToPath(path), bytes).Ok() ? bytes : std::string();
}

} // namespace

/// What is known of a project from before its run, and how the run has ended.
struct CEngineRunner::Record {
    EngineRun run = EngineRun::Main;
    QString path;
    std::string before;                      ///< the file
    QString kept;                            ///< the same, kept; empty: it could not be
    QString keptUnsaved;                     ///< changes that the file lacks, kept
    std::shared_ptr<const CSbdData> unsaved; ///< the same, as they stood in the window; null: there were none
    FileLook report;                         ///< of the engine, ahead of the run
    RunEnd end;

    [[nodiscard]] bool IsKept() const { return !kept.isEmpty() && (!unsaved || !keptUnsaved.isEmpty()); }
};

AfterRunResult AfterRun(const RunProject& project)
{
    if (!project.doc)
        return AfterRunResult::NoDocument;
    CKELDSectionDoc& doc = *project.doc;
    bool reloaded = false;
    if (doc.PathName().isEmpty() || CanBeReadAgain(doc.PathName()))
        project.changeProject([&] { reloaded = ReloadDocument(doc, *project.lock); });
    doc.SetModifiedFlag(false);
    return reloaded ? AfterRunResult::Reloaded : AfterRunResult::NotRead;
}

CEngineRunner::CEngineRunner(RunSeams seams, QObject* parent) : QObject(parent), seams_(std::move(seams)) {}

CEngineRunner::~CEngineRunner() = default;

bool CEngineRunner::Run(EngineRun run, const RunProject& project)
{
    if (running_ || !project.doc)
        return false;
    running_ = true;
    emit begun();
    const QPointer<CEngineRunner> self = this; // the program may end while an engine runs
    const bool started = RunSteps(run, project);
    if (!self)
        return started;
    if (!started)
        running_ = false;
    emit finished(started);
    return started;
}

bool CEngineRunner::RunAndReload(EngineRun run, const RunProject& project)
{
    reloaded_ = false;
    const QPointer<CEngineRunner> self = this;
    if (!Run(run, project) || !self)
        return false;
    QCoreApplication::sendPostedEvents(this, QEvent::MetaCall);
    return reloaded_;
}

bool CEngineRunner::RunFromPage(EngineRun run, const QString& question, const RunProject& project)
{
    if (running_ || !project.doc)
        return false;
    project.keepRecoveryCopy();
    if (!question.isEmpty() && (!seams_.askOkCancel(project.window, question) || !project.doc || !project.save()))
        return false;
    return Run(run, project);
}

bool CEngineRunner::RunSteps(EngineRun run, const RunProject& project)
{
    // A cell that is still being edited belongs to the data that is saved, or else to the recovery copy.
    project.doc->CommitPanels();
    project.keepRecoveryCopy(); // a question may stand for hours
    if (!MayStart(project))
        return false;
    const QString engine = EnginePath(run, seams_.programFolder());
    const AnalysisMutexHandle mutex = seams_.createMutex();
    if (mutex.existed && seams_.askYesNo(project.window, kAnalysisRuns))
        return false;
    if (!project.doc || (InfoOf(run).savesChanges && !SaveChanges(project)))
        return false;
    return StartAndWait(run, engine, project);
}

bool CEngineRunner::MayStart(const RunProject& project) const
{
    const QString path = project.doc->PathName();
    if (path.isEmpty()) {
        Tell(project, kNoProject);
        return false;
    }
    const QString refused = CharacterEnginesCannotTake(path);
    if (!refused.isEmpty())
        Tell(project, EngineCannotTakeMessage(path, refused));
    return refused.isEmpty();
}

bool CEngineRunner::SaveChanges(const RunProject& project) const
{
    if (!project.doc->IsModified())
        return true;
    Tell(project, kChangesAreSaved);
    // What could not be saved would be lost when the project is read again.
    return project.doc && project.save() && project.doc;
}

bool CEngineRunner::MayRunWithoutCopy(const RunProject& project, const Record& record) const
{
    return record.IsKept()
           || seams_.askYesNo(project.window,
                              NoCopyQuestion(record.path, seams_.keptFolder(), record.unsaved != nullptr));
}

bool CEngineRunner::StartAndWait(EngineRun run, const QString& engine, const RunProject& project)
{
    const std::shared_ptr<Record> record = MakeRecord(run, project);
    if (!MayRunWithoutCopy(project, *record) || !project.doc) {
        RemoveKeptInput(record->kept);
        RemoveKeptInput(record->keptUnsaved);
        return false;
    }
    project.keepRecoveryCopy();
    const EngineStart start{run, engine, QDir::toNativeSeparators(record->path), ChkPath(record->path)};
    project.lock->Release(); // the engine needs the file for itself
    const QPointer<CEngineRunner> self = this;
    const EngineEnd ended = seams_.runEngine(project.window, start);
    if (!self)
        return ended.started;
    if (!ended.started) {
        RemoveKeptInput(record->kept);
        RemoveKeptInput(record->keptUnsaved);
        if (project.doc)
            project.doc->lastRun = TextOfRun(run, {RunEndKind::NotStarted});
        Tell(project, EngineMissingMessage(run));
        return false;
    }
    record->end = RunEndOf(ended, record->report, ChkPath(record->path));
    // After the messages that wait already, and before of what the user does next.
    QMetaObject::invokeMethod(
        this, [this, project, record] { BringBack(project, record); }, Qt::QueuedConnection);
    return true;
}

std::shared_ptr<CEngineRunner::Record> CEngineRunner::MakeRecord(EngineRun run, const RunProject& project) const
{
    CKELDSectionDoc& doc = *project.doc;
    auto record = std::make_shared<Record>();
    record->run = run;
    record->path = doc.PathName();
    record->before = BytesOf(record->path);
    record->report = LookAt(ChkPath(record->path));
    const QString folder = seams_.keptFolder();
    // A document may stand for a file that it has not read yet: what is handed over is the file.
    record->kept = KeepInput(record->path, record->before.empty() ? WriteProject(doc.Data()) : record->before,
                             KeptKindOf(run), folder);
    if (doc.IsModified()) {
        record->unsaved = std::make_shared<const CSbdData>(doc.Data());
        record->keptUnsaved = KeepInput(record->path, WriteProject(doc.Data()), KeptKind::Unsaved, folder);
        if (!QFileInfo::exists(record->kept))
            record->kept.clear(); // there is not room for both
    }
    return record;
}

void CEngineRunner::BringBack(const RunProject& project, const std::shared_ptr<Record>& record)
{
    if (record->end.kind == RunEndKind::Cancelled)
        WaitAMoment(record->path);
    const AfterRunResult result = AfterRun(project);
    running_ = false;
    reloaded_ = result == AfterRunResult::Reloaded;
    const bool held =
        result == AfterRunResult::NotRead && CProjectLock::Look(record->path) == CProjectLock::State::Held;
    if (held && record->end.kind != RunEndKind::Cancelled && record->end.kind != RunEndKind::Fault)
        record->end.kind = RunEndKind::Held;
    if (project.doc)
        project.doc->lastRun = TextOfRun(record->run, record->end);
    if (held)
        WaitForFile(project, record);
    const QPointer<CEngineRunner> self = this; // a box may outlive it
    JudgeFile(project, result, *record);
    // Behind the box: who ends before it is closed is told at the next opening.
    SetKeptEnd(record->kept, record->end);
    SetKeptEnd(record->keptUnsaved, record->end);
    if (self)
        emit projectIsBack(reloaded_);
}

/// Tells what nothing else than the kept input holds.
void CEngineRunner::JudgeFile(const RunProject& project, AfterRunResult result, Record& record)
{
    RunReport report{.run = record.run, .path = record.path, .end = record.end};
    report.kept = record.kept;
    report.keptUnsaved = record.keptUnsaved;
    report.unsaved = record.unsaved;
    report.reloaded = result == AfterRunResult::Reloaded;
    const bool gone = !record.before.empty() && !QFileInfo::exists(record.path);
    const bool held = result == AfterRunResult::NotRead && !gone;
    const std::string after = gone || held ? std::string() : BytesOf(record.path);
    report.fileChanged = !gone && !held && after != record.before;
    if (gone) {
        report.trouble = RunTrouble::Gone;
    } else if (held) {
        report.trouble = RunTrouble::Held;
    } else if (LooksBroken(record.before, after)) {
        report.trouble = RunTrouble::Broken;
        report.lostSections = SectionsThatLostTheirRows(record.before, after);
    }
    if (gone && project.doc)
        project.doc->SetModifiedFlag(true); // no file holds what the window does: closing it has to ask
    if (project.doc)
        project.show(report);
    if (report.trouble == RunTrouble::Gone)
        Tell(project, MissingFileMessage(record.path, record.kept));
    else if (report.trouble == RunTrouble::Broken)
        Tell(project, BrokenFileMessage(record.path, record.kept, report.lostSections, report.reloaded));
}

/// Something that the engine has left behind still holds the file: looks again until it has let go.
void CEngineRunner::WaitForFile(const RunProject& project, const std::shared_ptr<Record>& record)
{
    auto* timer = new QTimer(project.doc); // goes with its project
    connect(timer, &QTimer::timeout, this, [this, timer, project, record] {
        if (running_)
            return; // another run is looking after the file
        const bool isOurs = project.doc->PathName() != record->path || project.lock->IsHeld();
        if (!isOurs && CProjectLock::Look(record->path) == CProjectLock::State::Held)
            return;
        timer->stop();
        timer->deleteLater();
        if (!isOurs)
            OnFileFree(project, record);
    });
    constexpr int again = 1000; // ms
    timer->start(again);
}

/// Reads the file as the end of the run would have done; if the user has gone on meanwhile, the user decides.
void CEngineRunner::OnFileFree(const RunProject& project, const std::shared_ptr<Record>& record)
{
    CKELDSectionDoc& doc = *project.doc;
    doc.CommitPanels();
    if (doc.IsModified() && doc.FileIsAnother()) {
        RunReport report{.run = record->run, .path = record->path, .end = record->end};
        report.trouble = RunTrouble::FreeAgain;
        report.fileChanged = true;
        report.kept = record->kept;
        project.show(report);
        return;
    }
    const bool goneOn = doc.IsModified(); // on top of what the file holds
    AfterRunResult result = AfterRunResult::NotRead;
    if (goneOn || (record->unsaved && !doc.FileIsAnother())) {
        project.lock->Take(record->path);
        doc.SetModifiedFlag(true); // the file is as it was, the window has more
    } else {
        result = AfterRun(project);
    }
    RunReport report{.run = record->run, .path = record->path, .end = record->end};
    if (result == AfterRunResult::Reloaded) {
        JudgeFile(project, result, *record);
    } else if (CProjectLock::Look(record->path) == CProjectLock::State::NotFound) {
        JudgeFile(project, result, *record);
    } else {
        project.show(report); // nothing is open any more
    }
}

void CEngineRunner::Tell(const RunProject& project, const QString& text) const
{
    seams_.tell(project.window, text);
}

} // namespace sbd
