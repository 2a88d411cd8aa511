#include "frame/engine_runner.h"

#include "document/broken_file.h"
#include "document/engine_path.h"
#include "document/path.h"
#include "document/project_lock.h"
#include "document/save_flow.h"
#include "document/section_doc.h"
#include "sbdfile/writer.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QFileInfo>

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

QString BrokenFileMessage(const QString& project, const QString& copy)
{
    const QString head = u"解析プログラムが書いたプロジェクトファイルが壊れているようです。\n"_s
                         + QDir::toNativeSeparators(project)
                         + u"\n\n画面には、このファイルから読み取れた内容だけが表示されています。"_s;
    if (copy.isEmpty())
        return head + u"回復用コピーは作成できていません。\n\n保存する前に、内容を確かめてください。"_s;
    return head + u"解析前の内容は、次の回復用コピーに残っています。\n"_s + QDir::toNativeSeparators(copy)
           + u"\n\nこのプロジェクトを保存する前に、回復用コピーを開いて内容を確かめてください。"_s;
}

QString MissingFileMessage(const QString& project)
{
    return u"解析プログラムの終了後、プロジェクトファイルが見つかりません。\n"_s + QDir::toNativeSeparators(project)
           + u"\n\n入力内容は画面に残っています。\n\n「上書き保存」でファイルを作り直してください。"_s;
}

const auto kNotReadNotice = u"プロジェクトファイルがまだ使用中のため、解析後の内容を読み込んでいません。"_s;

QString LostChangesNotice(const QString& copy)
{
    return u"保存していなかった変更は回復用コピーに残っています: "_s + QDir::toNativeSeparators(copy);
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

/// What is known of a project from before its run.
struct CEngineRunner::Record {
    QString path;
    std::string before;   ///< the file
    bool unsaved = false; ///< the file lacks changes; the copy has them
    CRecoveryCopy copy;

    explicit Record(const QString& folder) : copy(folder) {}
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
    if (!question.isEmpty() && (!seams_.askOkCancel(project.window, question) || !project.doc || !project.save()))
        return false;
    return Run(run, project);
}

bool CEngineRunner::RunSteps(EngineRun run, const RunProject& project)
{
    // A cell that is still being edited belongs to the data that is saved, or else to the recovery copy.
    project.doc->CommitPanels();
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

bool CEngineRunner::StartAndWait(EngineRun run, const QString& engine, const RunProject& project)
{
    const std::shared_ptr<Record> record = MakeRecord(project);
    const EngineStart start{run, engine, QDir::toNativeSeparators(record->path)};
    project.lock->Release(); // the engine needs the file for itself
    const QPointer<CEngineRunner> self = this;
    const bool started = seams_.runEngine(project.window, start);
    if (!self)
        return started;
    if (!started) {
        record->copy.Discard();
        Tell(project, EngineMissingMessage(run));
        return false;
    }
    // Behind the messages that wait already, and ahead of what the user does next.
    QMetaObject::invokeMethod(
        this, [this, project, record] { BringBack(project, record); }, Qt::QueuedConnection);
    return true;
}

std::shared_ptr<CEngineRunner::Record> CEngineRunner::MakeRecord(const RunProject& project) const
{
    CKELDSectionDoc& doc = *project.doc;
    auto record = std::make_shared<Record>(seams_.recoveryFolder());
    record->path = doc.PathName();
    record->before = BytesOf(record->path);
    record->unsaved = doc.IsModified();
    // Without changes the file says it best: a document may stand for a file that it has not read yet.
    const bool fromMemory = record->unsaved || record->before.empty();
    // Without a copy the run goes on: the file itself is as it always was.
    (void)record->copy.Write(record->path, fromMemory ? WriteProject(doc.Data()) : record->before);
    return record;
}

void CEngineRunner::BringBack(const RunProject& project, const std::shared_ptr<Record>& record)
{
    const AfterRunResult result = AfterRun(project);
    running_ = false;
    reloaded_ = result == AfterRunResult::Reloaded;
    JudgeFile(project, result, *record);
    emit projectIsBack(reloaded_);
}

void CEngineRunner::JudgeFile(const RunProject& project, AfterRunResult result, Record& record)
{
    const bool gone = !record.before.empty() && !QFileInfo::exists(record.path);
    const bool broken = result == AfterRunResult::Reloaded && LooksBroken(record.before, BytesOf(record.path));
    const bool held = result == AfterRunResult::NotRead && !gone;
    const QString copy = record.copy.File();
    if (!copy.isEmpty() && (gone || broken || held || record.unsaved))
        KeepCopy(record);
    else
        record.copy.Discard();
    if (gone)
        Tell(project, MissingFileMessage(record.path));
    else if (broken)
        Tell(project, BrokenFileMessage(record.path, copy));
    else if (held)
        emit notice(kNotReadNotice);
    else if (record.unsaved && !copy.isEmpty())
        emit notice(LostChangesNotice(copy));
}

/// Leaves the copy to be found at the next start, in place of the one kept before.
void CEngineRunner::KeepCopy(Record& record)
{
    QString& kept = keptCopies_[record.path];
    if (!kept.isEmpty())
        RemoveRecoveryCopy({kept, record.path, {}});
    kept = record.copy.File();
}

void CEngineRunner::Tell(const RunProject& project, const QString& text) const
{
    seams_.tell(project.window, text);
}

} // namespace sbd
