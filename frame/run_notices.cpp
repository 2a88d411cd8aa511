#include "frame/run_notices.h"

#include "compare/take_back.h"
#include "document/kept_inputs.h"
#include "document/path.h"
#include "document/save_flow.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/difference_dialog.h"
#include "frame/engine_runner.h"
#include "frame/notice_bar.h"
#include "project/sbd_data.h"

#include <QDir>
#include <QPointer>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kRunKey = u"run"_s;
const auto kLostKey = u"lost-changes"_s;

std::string StepName(const QString& name)
{
    return fromQString(name).value_or(std::string());
}

/// Makes the project what it was, as one step that undo takes back.
void Restore(CChildFrame& child, const CSbdData& before, const QString& name)
{
    child.ChangeProject([&] { child.Doc().ReplaceProject(before, StepName(name + u"に戻す"_s)); });
}

/// The project of a kept file, as a reload would read it; nothing, and a notice, if it cannot be read.
std::shared_ptr<const CSbdData> ReadKept(CChildFrame& child, const QString& file)
{
    std::string bytes;
    if (ReadFileBytes(ToPath(file), bytes).Ok())
        return std::make_shared<const CSbdData>(child.Doc().DataOf(bytes));
    child.Notices().Show(
        {u"kept-unreadable"_s,
         u"保管した入力を読み取れません。画面の内容は変わっていません。\n"_s + QDir::toNativeSeparators(file),
         {},
         true});
    return nullptr;
}

/// "元に戻す" and "比べる" for a state that stands in memory, or in a file that is read when it is wanted. Several notices
/// may offer a way back: each says to what.
QList<NoticeAction> WaysBack(CChildFrame& child, const std::function<std::shared_ptr<const CSbdData>()>& before,
                             const QString& name, const QString& key, const ShowDifferences& show)
{
    const QPointer<CChildFrame> frame = &child;
    QList<NoticeAction> actions;
    const bool isRun = key == kRunKey; // each key once
    actions.append({u"元に戻す: %1(&%2)"_s.arg(name, isRun ? u"B"_s : u"R"_s), [=] {
                        const std::shared_ptr<const CSbdData> data = frame ? before() : nullptr;
                        if (!data || !frame)
                            return;
                        Restore(*frame, *data, name);
                        frame->Notices().Close(key);
                    }});
    if (show) {
        actions.append({isRun ? u"比べる(&M)..."_s : u"比べる(&C)..."_s, [=] {
                            const std::shared_ptr<const CSbdData> data = frame ? before() : nullptr;
                            if (data && frame)
                                CompareWith(*frame, *data, name, show);
                        }});
    }
    return actions;
}

/// Changes that were not saved, until the user closes the notice or takes them back: then no session tells of them again.
void ShowUntilSettled(CChildFrame& child, const QString& text,
                      const std::function<std::shared_ptr<const CSbdData>()>& unsaved, const QString& keptIn,
                      const ShowDifferences& show)
{
    const QPointer<CChildFrame> frame = &child;
    QList<NoticeAction> actions = WaysBack(child, unsaved, u"保存していなかった入力"_s, kLostKey, show);
    actions[0].act = [frame, keptIn, act = actions[0].act] {
        act();
        if (frame && !frame->Notices().Shows(kLostKey))
            SettleKeptInput(keptIn);
    };
    child.Notices().Show({kLostKey, text, actions, true, [keptIn] { SettleKeptInput(keptIn); }});
}

/// Closes the notice of lost changes when undo, in place of its button, has brought them back into the window.
void CloseWhenBack(CChildFrame& child, const std::shared_ptr<const CSbdData>& unsaved)
{
    auto* watch = new QObject(&child);
    const QString text = child.Notices().TextOf(kLostKey);
    QObject::connect(&child.Doc(), &CKELDSectionDoc::stepped, watch, [&child, watch, text, unsaved] {
        const bool stands = child.Notices().TextOf(kLostKey) == text;
        if (stands && !unsaved->SameProject(child.Doc().Data()))
            return;
        if (stands)
            child.Notices().Close(kLostKey);
        watch->deleteLater(); // or the notice has gone, or another one has its place
    });
}

QString KeptText(const QString& kept)
{
    return kept.isEmpty() ? u"\n解析前の入力は保管できていません。"_s
                          : u"\n解析前の入力: "_s + QDir::toNativeSeparators(kept);
}

/// Only an end that is not the usual one is worth a word.
bool IsUsual(RunEndKind kind)
{
    return kind == RunEndKind::Report || kind == RunEndKind::NoReport || kind == RunEndKind::Unknown;
}

QString TroubleText(const RunReport& report)
{
    const QString file = QDir::toNativeSeparators(report.path);
    switch (report.trouble) {
    case RunTrouble::Gone:
        return u"解析プログラムの終了後、プロジェクトファイルがなくなっています。入力内容は画面に残っています。"
               u"「上書き保存」でファイルを作り直してください。\n"_s
               + file;
    case RunTrouble::Broken:
        return u"解析プログラムが書いたプロジェクトファイルが壊れているようです。保存する前に比べてください。\n"_s
               + file;
    case RunTrouble::Held:
        return u"解析は終わりましたが、プロジェクトファイルがまだ使用中か読み取り専用のため、解析後の内容を読み込んでいません。"
               u"使用が終わると読み込みます。\n"_s
               + file;
    case RunTrouble::FreeAgain:
        return u"使用中だったプロジェクトファイルが空きました。解析後の内容はまだ読み込んでいません (その後の入力が画面にあるため)。\n"_s
               + file;
    case RunTrouble::None:
        break;
    }
    if (report.fileChanged)
        return u"解析プログラムが途中で終わりました: "_s + RunEndText(report.end)
               + u"。プロジェクトファイルは書き換えられています。保存する前に比べてください。"_s;
    return u"解析プログラムが途中で終わりました: "_s + RunEndText(report.end)
           + u"。プロジェクトファイルは変わっていません。"_s;
}

} // namespace

void CompareWith(CChildFrame& child, const CSbdData& before, const QString& name, const ShowDifferences& show)
{
    child.CommitPanel();
    DifferenceView view;
    view.title = name + u"との比較"_s;
    view.intro = u"「"_s + child.Doc().Title() + u"」の画面の内容を、"_s + name + u"と比べています。"_s;
    view.before = name;
    view.after = u"画面"_s;
    view.differences = CompareProjects(before, child.Doc().Data());
    struct Sides {
        QPointer<CChildFrame> frame;
        CSbdData now;
        CSbdData then;
    };
    const auto sides = std::make_shared<const Sides>(Sides{&child, child.Doc().Data(), before});
    view.takeBack = [sides, name](const std::vector<Difference>& chosen) {
        if (sides->frame)
            Restore(*sides->frame, WithTakenBack(sides->now, sides->then, chosen), name);
    };
    view.goTo = [sides](const Difference& difference) {
        if (sides->frame && difference.block != 0)
            sides->frame->JumpTo(difference.block, difference.row, std::max(difference.column, 1));
    };
    show(std::move(view));
}

void ShowLostChanges(CChildFrame& child, const QString& why, const std::shared_ptr<const CSbdData>& unsaved,
                     const QString& keptIn, const ShowDifferences& show)
{
    QString text = why;
    if (!keptIn.isEmpty())
        text += u"\n保管した場所: "_s + QDir::toNativeSeparators(keptIn);
    ShowUntilSettled(
        child, text, [unsaved] { return unsaved; }, keptIn, show);
    CloseWhenBack(child, unsaved);
}

void ShowKeptChanges(CChildFrame& child, const KeptInput& kept, const ShowDifferences& show)
{
    std::string bytes;
    if (!ReadFileBytes(ToPath(kept.file), bytes).Ok() || child.Doc().DataOf(bytes).SameProject(child.Doc().Data()))
        return;
    const QString text =
        u"前回のチェック (%1) の読み直しで画面から消えた、保存していなかった変更があります。\n保管した場所: %2"_s.arg(
            kept.time.toString(u"yyyy/MM/dd HH:mm:ss"_s), QDir::toNativeSeparators(kept.file));
    const QPointer<CChildFrame> frame = &child;
    const auto read = [frame, file = kept.file] {
        return frame ? ReadKept(*frame, file) : std::shared_ptr<const CSbdData>();
    };
    ShowUntilSettled(child, text, read, kept.file, show);
}

void ShowRunReport(CChildFrame& child, const RunReport& report, const ShowDifferences& show)
{
    if (report.unsaved && report.reloaded)
        ShowLostChanges(child, u"チェックの後の読み直しで、保存していなかった変更が画面から消えました。"_s,
                        report.unsaved, report.keptUnsaved, show);
    if (report.trouble == RunTrouble::None && IsUsual(report.end.kind)) {
        child.Notices().Close(kRunKey); // of the run before
        return;
    }
    if (report.trouble == RunTrouble::None && report.end.kind == RunEndKind::Held) { // it has let go since
        child.Notices().Close(kRunKey);
        return;
    }
    const bool weighs = report.trouble != RunTrouble::None || report.fileChanged;
    Notice notice{kRunKey, TroubleText(report), {}, weighs};
    if (report.trouble == RunTrouble::Held && !report.keptUnsaved.isEmpty())
        notice.text += u"\n保存していなかった変更: "_s + QDir::toNativeSeparators(report.keptUnsaved);
    const QPointer<CChildFrame> frame = &child;
    if (report.trouble == RunTrouble::FreeAgain) {
        notice.actions.append({u"読み込む(&R)"_s, [frame, show] {
                                   if (frame && ReadAgain(*frame, show))
                                       frame->Notices().Close(kRunKey);
                               }});
    }
    if (weighs) {
        notice.text += KeptText(report.kept);
        if (!report.kept.isEmpty() && report.trouble != RunTrouble::Held && report.trouble != RunTrouble::FreeAgain) {
            const auto before = [frame, kept = report.kept] {
                return frame ? ReadKept(*frame, kept) : std::shared_ptr<const CSbdData>();
            };
            notice.actions += WaysBack(child, before, u"解析前の入力"_s, kRunKey, show);
        }
    }
    child.Notices().Show(notice);
}

bool ReadAgain(CChildFrame& child, const ShowDifferences& show)
{
    child.CommitPanel();
    CKELDSectionDoc& doc = child.Doc();
    const auto unsaved = doc.IsModified() ? std::make_shared<const CSbdData>(doc.Data()) : nullptr;
    bool read = false;
    child.ChangeProject([&] { read = ReloadDocument(doc, child.Lock()); });
    if (!read)
        return false;
    doc.SetModifiedFlag(false);
    if (unsaved)
        ShowLostChanges(child, u"ファイルを読み直しました。保存していなかった変更は画面から消えています。"_s, unsaved,
                        {}, show);
    return true;
}

} // namespace sbd
