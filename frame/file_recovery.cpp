// How the file commands keep recovery copies, and offer those that a crash has left.
#include "document/file_messages.h"
#include "document/kept_inputs.h"
#include "document/path.h"
#include "document/project_lock.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/file_commands.h"
#include "frame/notice_bar.h"
#include "frame/run_notices.h"
#include "project/sbd_data.h"
#include "sbdfile/project_file.h"

#include <QDir>
#include <QFileInfo>
#include <QLocale>
#include <QMdiArea>
#include <QPointer>

#include <algorithm>
#include <optional>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kNoCopyKey = u"no-copy"_s;
const auto kCopyKey = u"recovery-copy"_s;
const auto kUnfinishedKey = u"unfinished-run"_s;

QString TimeText(const QDateTime& time)
{
    return QLocale(QLocale::Japanese).toString(time, u"yyyy/MM/dd HH:mm:ss"_s);
}

/// Looks at a copy beside its project. Nothing if both hold the same.
std::optional<OfferedCopy> Beside(const RecoveryCopy& copy)
{
    OfferedCopy offered{copy, {}, false, {}};
    const QFileInfo file(copy.project);
    std::string inCopy;
    std::string inFile;
    if (copy.project.isEmpty() || !file.exists())
        return offered;
    offered.fileTime = file.lastModified();
    if (!ReadFileBytes(ToPath(copy.file), inCopy).Ok() || !ReadFileBytes(ToPath(copy.project), inFile).Ok())
        return offered;
    if (inCopy == inFile)
        return std::nullopt;
    CSbdData then;
    CSbdData now;
    const std::filesystem::path names = NamesFileBeside(ToPath(copy.project));
    if (!LoadProject(ToPath(copy.project), names, then).Ok() || !LoadProject(ToPath(copy.file), names, now).Ok())
        return offered;
    offered.canCompare = true;
    offered.differences = CompareProjects(then, now);
    if (offered.differences.empty() && then.SameProject(now))
        return std::nullopt;
    return offered;
}

QString OfferText(const OfferedCopy& offered, qsizetype number, qsizetype of)
{
    const RecoveryCopy& copy = offered.copy;
    QString text = u"前回、保存されないまま残った入力内容の回復用コピーがあります。\n\n"_s;
    text += copy.project.isEmpty() ? u"(まだ保存していないプロジェクト)"_s : QDir::toNativeSeparators(copy.project);
    text += u"\nコピーの時刻: "_s + TimeText(copy.time);
    if (of > 1)
        text += u"　(%1 個のうち %2 個目、新しい順)"_s.arg(of).arg(number);
    if (offered.fileTime.isValid())
        text += u"\nファイルの時刻: "_s + TimeText(offered.fileTime)
                + (offered.FileIsNewer() ? u" (コピーより新しい)"_s : u" (コピーより古い)"_s);
    else if (!copy.project.isEmpty())
        text += u"\nファイルは見つかりません。"_s;
    if (offered.canCompare)
        text += u"\nファイルとの違い: "_s + CountText(offered.differences);
    text += u"\nコピーの場所: "_s + QDir::toNativeSeparators(copy.file);
    if (offered.FileIsNewer())
        text +=
            u"\n\nファイルはコピーの後に保存されています。コピーを開いて保存すると、ファイルの新しい内容が失われます。"_s;
    return text
           + u"\n\n「開く」を選ぶと、変更のあるプロジェクトとして開きます。元のファイルは、保存するまで変わりません。"
             u"\n「破棄する」を選ぶと、コピーを削除します。"
             u"\n「あとで」を選ぶと、次に起動したときにもう一度お知らせします。"_s;
}

/// Nothing was entered since it was opened.
bool IsUnedited(CChildFrame& child)
{
    child.CommitPanel();
    return !child.Doc().IsModified() && child.Doc().NextUndo() == nullptr && child.Doc().NextRedo() == nullptr;
}

} // namespace

std::vector<OfferedCopy> CopiesWorthOffering()
{
    std::vector<OfferedCopy> worth;
    for (const RecoveryCopy& copy : FindRecoveryCopies()) {
        if (std::optional<OfferedCopy> offered = Beside(copy))
            worth.push_back(std::move(*offered));
        else
            RemoveRecoveryCopy(copy); // the file holds all of it
    }
    return worth;
}

void CFileCommands::KeepRecoveryCopies()
{
    for (QMdiSubWindow* window : area_.subWindowList()) {
        auto* child = qobject_cast<CChildFrame*>(window);
        if (child == nullptr)
            continue;
        const bool kept = child->KeepRecoveryCopy() || !child->Doc().IsModified();
        constexpr const char* told = "toldOfNoCopy"; // once, until it works again
        if (kept) {
            child->setProperty(told, false);
            child->Notices().Close(kNoCopyKey);
        } else if (!child->property(told).toBool()) {
            child->setProperty(told, true);
            child->Notices().Show({kNoCopyKey,
                                   u"保存していない変更の回復用コピーを作成できません。こまめに保存してください。\n"_s
                                       + QDir::toNativeSeparators(RecoveryFolder()),
                                   {},
                                   true});
        }
    }
}

RecoveryAnswer CFileCommands::AskAboutCopy(const OfferedCopy& offered, qsizetype number, qsizetype of)
{
    const RecoveryQuestion question{OfferText(offered, number, of), of - number, offered.FileIsNewer(),
                                    offered.canCompare};
    RecoveryAnswer answer = prompts_.askRecovery(area_.window(), question);
    while (answer == RecoveryAnswer::Compare) {
        DifferenceView view;
        view.title = u"回復用コピーとの比較"_s;
        view.intro = QDir::toNativeSeparators(offered.copy.project);
        view.before = u"ファイル"_s;
        view.after = u"回復用コピー"_s;
        view.differences = offered.differences;
        prompts_.showDifferences(area_.window(), std::move(view));
        answer = prompts_.askRecovery(area_.window(), question);
    }
    return answer;
}

void CFileCommands::OfferRecoveryCopies()
{
    tellsOfCopies_ = true;
    const std::vector<OfferedCopy> copies = CopiesWorthOffering();
    for (std::size_t i = 0; i < copies.size(); ++i) {
        const RecoveryCopy& copy = copies[i].copy;
        switch (AskAboutCopy(copies[i], static_cast<qsizetype>(i) + 1, static_cast<qsizetype>(copies.size()))) {
        case RecoveryAnswer::Open:
            OpenRecoveryCopy(copy);
            break;
        case RecoveryAnswer::Remove:
            RemoveRecoveryCopy(copy);
            break;
        case RecoveryAnswer::Compare:
        case RecoveryAnswer::Later:
            break;
        case RecoveryAnswer::AllLater:
            i = copies.size() - 1;
            break;
        }
    }
    for (QMdiSubWindow* window : area_.subWindowList()) {
        if (auto* child = qobject_cast<CChildFrame*>(window))
            TellOfCopies(*child);
    }
}

/// Puts the copy into the window of its project, which nothing was entered into.
bool CFileCommands::TakeOver(CChildFrame& child, const RecoveryCopy& copy)
{
    FileResult result;
    child.ChangeProject([&] { result = child.Doc().OpenRecoveryCopy(copy.file, child.Doc().PathName()); });
    if (!result.Ok())
        Warn(FileMessage(FileOperation::Open, copy.file, result));
    area_.setActiveSubWindow(&child);
    child.Notices().Close(kCopyKey);
    return result.Ok();
}

void CFileCommands::OpenRecoveryCopy(const RecoveryCopy& copy)
{
    CChildFrame* child = copy.project.isEmpty() ? nullptr : FindOpen(copy.project);
    if (child != nullptr && IsUnedited(*child)) {
        if (!TakeOver(*child, copy))
            return;
    } else {
        // A project that somebody works in, here or elsewhere, keeps its file: the copy comes up without a path.
        auto lock = std::make_unique<CProjectLock>();
        const bool mayTake = !copy.project.isEmpty() && child == nullptr
                             && CProjectLock::Look(copy.project) != CProjectLock::State::Held;
        auto doc = std::make_unique<CKELDSectionDoc>();
        const FileResult result = doc->OpenRecoveryCopy(copy.file, mayTake ? copy.project : QString());
        if (!result.Ok()) {
            Warn(FileMessage(FileOperation::Open, copy.file, result));
            return;
        }
        if (mayTake)
            lock->Take(copy.project);
        child = Show(MakeChild(std::move(doc), std::move(lock)));
    }
    if (child->KeepRecoveryCopy()) // a crash from here on finds it again
        RemoveRecoveryCopy(copy);
}

/// A project with a copy that was put off, or with a run whose end nobody has seen, says so in its window.
void CFileCommands::TellOfCopies(CChildFrame& child)
{
    const QString path = child.Doc().PathName();
    if (path.isEmpty())
        return;
    const QPointer<CChildFrame> frame = &child;
    // What has been taken over is not offered again.
    for (const OfferedCopy& offered : child.Doc().IsModified() ? std::vector<OfferedCopy>() : CopiesWorthOffering()) {
        if (offered.copy.project.isEmpty() || FindOpen(offered.copy.project) != &child)
            continue;
        const NoticeAction open{u"コピーを開く(&O)"_s, [this, frame, copy = offered.copy] {
                                    if (!frame)
                                        return;
                                    frame->Notices().Close(kCopyKey);
                                    if (QFileInfo::exists(copy.file))
                                        OpenRecoveryCopy(copy);
                                }};
        child.Notices().Show(
            {kCopyKey,
             u"このプロジェクトには、保存されないまま残った回復用コピーがあります (コピー %1、ファイル %2%3)。"_s.arg(
                 TimeText(offered.copy.time), TimeText(offered.fileTime),
                 offered.FileIsNewer() ? u"。ファイルのほうが新しい"_s : QString()),
             {open},
             !offered.FileIsNewer()});
        break; // the newest
    }
    const QList<KeptInput> inputs = KeptInputsOf(path, prompts_.runs.keptFolder());
    const auto unsaved = std::ranges::find(inputs, KeptKind::Unsaved, &KeptInput::kind); // the newest
    if (unsaved != inputs.end() && !unsaved->settled && !unsaved->project.isEmpty())
        ShowKeptChanges(child, *unsaved, Differences());
    if (inputs.isEmpty() || inputs[0].settled || inputs[0].project.isEmpty()
        || inputs[0].end.kind != RunEndKind::Unknown || inputs[0].kind == KeptKind::Replaced
        || inputs[0].kind == KeptKind::Overwritten)
        return;
    child.Notices().Show(
        {kUnfinishedKey,
         u"前回の実行 (%1、%2) は、終わりを確認する前にこのプログラムが終了しました。"
         u"ファイルが書きかけでないか、「解析前の入力」と比べて確かめてください。\n%3"_s.arg(
             KeptKindText(inputs[0].kind), TimeText(inputs[0].time), QDir::toNativeSeparators(inputs[0].file)),
         {{u"解析前の入力(&K)..."_s,
           [this, frame] {
               if (frame)
                   ShowKeptInputs(*frame);
           }}},
         true,
         [file = inputs[0].file] { SettleKeptInput(file); }});
}

} // namespace sbd
