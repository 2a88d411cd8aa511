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

/// Where the copy stands, as a paragraph of its own.
QString CopyParagraph(const QString& copy)
{
    return copy.isEmpty()
               ? u"\n\n回復用コピーは作成できていません。"_s
               : u"\n\n解析前の内容は、次の回復用コピーに残っています。\n"_s + QDir::toNativeSeparators(copy);
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
           + (copy.isEmpty() ? u"\n\n保存する前に、内容を確かめてください。"_s
                             : u"\n\nこのプロジェクトを保存する前に、回復用コピーを開いて内容を確かめてください。"_s);
}

QString MissingFileMessage(const QString& project, const QString& copy)
{
    return u"解析プログラムの終了後、プロジェクトファイルが見つかりません。\n"_s + QDir::toNativeSeparators(project)
           + u"\n\n入力内容は画面に残っています。"_s + CopyParagraph(copy)
           + u"\n\n「上書き保存」でファイルを作り直してください。"_s;
}

QString NoCopyMessage(const QString& project, const QString& folder)
{
    return u"データのチェックを始めませんでした。\n"_s + QDir::toNativeSeparators(project)
           + u"\n\n保存していない変更があり、その回復用コピーを次のフォルダーに作成できません。\n"_s
           + QDir::toNativeSeparators(folder)
           + u"\n\nチェックが終わるとプロジェクトを読み込み直すため、コピーがないと変更が失われます。"_s
           + u"入力内容は画面に残っています。\n\n「上書き保存」で保存してから、もう一度実行してください。"_s;
}

QString NotReadNotice(const QString& copy)
{
    const auto text = u"プロジェクトファイルがまだ使用中のため、解析後の内容を読み込んでいません。"_s;
    return copy.isEmpty() ? text : text + u"解析前の内容の回復用コピー: "_s + QDir::toNativeSeparators(copy);
}

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
    if (record->unsaved && record->copy.File().isEmpty()) {
        Tell(project, NoCopyMessage(record->path, seams_.recoveryFolder()));
        return false;
    }
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
    // After the messages that wait already, and before of what the user does next.
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
    // Without a copy a saved project runs all the same: the file itself is as it always was.
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

/// Leaves the copy of before for the next start to find, or removes it if the file holds all that it does. Copies of
/// earlier runs are not touched: one of them may be the only good one.
void CEngineRunner::JudgeFile(const RunProject& project, AfterRunResult result, Record& record)
{
    const bool gone = !record.before.empty() && !QFileInfo::exists(record.path);
    const bool held = result == AfterRunResult::NotRead && !gone;
    const std::string after = gone || held ? std::string() : BytesOf(record.path);
    const bool broken = !gone && !held && LooksBroken(record.before, after);
    const QString copy = record.copy.File();
    if (!gone && !broken && !held && !record.unsaved)
        record.copy.Discard();
    if (gone)
        Tell(project, MissingFileMessage(record.path, copy));
    else if (broken)
        Tell(project, BrokenFileMessage(record.path, copy, SectionsThatLostTheirRows(record.before, after),
                                        result == AfterRunResult::Reloaded));
    else if (held)
        emit notice(NotReadNotice(copy));
    else if (record.unsaved && !copy.isEmpty())
        emit notice(LostChangesNotice(copy));
}

void CEngineRunner::Tell(const RunProject& project, const QString& text) const
{
    seams_.tell(project.window, text);
}

} // namespace sbd
