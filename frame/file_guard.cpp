// How the file commands keep what a save, a new project or a run would put out of reach.
#include "document/file_messages.h"
#include "document/kept_inputs.h"
#include "document/path.h"
#include "document/project_lock.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/file_commands.h"
#include "frame/notice_bar.h"
#include "frame/run_notices.h"
#include "sbdfile/project_file.h"

#include <QDir>
#include <QFileInfo>
#include <QMdiArea>
#include <QPointer>

#include <optional>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kChangedFileKey = u"changed-file"_s;

QString ChangedFileText(const QString& path)
{
    return u"プロジェクトのファイルが、このウィンドウで最後に読み書きした後に、ほかで変更されています。\n"_s
           + QDir::toNativeSeparators(path) + u"\nファイルの時刻: "_s
           + QFileInfo(path).lastModified().toString(u"yyyy/MM/dd HH:mm:ss"_s)
           + u"\n\nまだ保存していません。入力内容は画面に残っています。\n\n"
             u"「比べる」　　　画面とファイルの違いを見ます。\n"
             u"「上書き」　　　画面の内容で置き換えます。今のファイルの内容は「解析前の入力」に保管します。\n"
             u"「別名で保存」　画面の内容を別のファイルに保存します。\n"
             u"「読み直す」　　ファイルの内容を画面に読み込みます。画面の変更は「元に戻す」で戻せます。"_s;
}

} // namespace

std::function<void(DifferenceView)> CFileCommands::Differences()
{
    return [this](DifferenceView view) { prompts_.showDifferences(area_.window(), std::move(view)); };
}

CFileCommands::ChangedFileStep CFileCommands::AskAboutChangedFile(CChildFrame& child)
{
    const QPointer<CChildFrame> frame = &child;
    child.CommitPanel();
    while (frame && child.Doc().FileIsAnother()) {
        switch (prompts_.askChangedFile(area_.window(), ChangedFileText(child.Doc().PathName()))) {
        case ChangedFileAnswer::Overwrite:
            KeepOverwritten(child);
            return ChangedFileStep::Save;
        case ChangedFileAnswer::SaveAs:
            return ChangedFileStep::SaveElsewhere;
        case ChangedFileAnswer::Reload:
            if (!ReadAgain(child, Differences()))
                Warn(u"ファイルを読み直せませんでした。画面の内容は変わっていません。"_s);
            return ChangedFileStep::Stop;
        case ChangedFileAnswer::Compare:
            if (!CompareWithFile(child))
                break;
            return ChangedFileStep::Stop; // the user goes on in the window
        case ChangedFileAnswer::Cancel:
            return ChangedFileStep::Stop;
        }
    }
    return frame ? ChangedFileStep::Save : ChangedFileStep::Stop;
}

/// True if the user has left the list for the window.
bool CFileCommands::CompareWithFile(CChildFrame& child)
{
    std::string bytes;
    const QString path = child.Doc().PathName();
    if (const FileResult result = ReadFileBytes(ToPath(path), bytes); !result.Ok()) {
        Warn(FileMessage(FileOperation::Open, path, result));
        return false;
    }
    bool left = false;
    CompareWith(child, child.Doc().DataOf(bytes), u"ファイル"_s, [this, &left](DifferenceView view) {
        view.takeBack = [&left, act = view.takeBack](const std::vector<Difference>& chosen) {
            left = true;
            act(chosen);
        };
        view.goTo = [&left, act = view.goTo](const Difference& difference) {
            left = true;
            act(difference);
        };
        prompts_.showDifferences(area_.window(), std::move(view));
    });
    return left;
}

void CFileCommands::KeepOverwritten(CChildFrame& child)
{
    const QString path = child.Doc().PathName();
    std::string bytes;
    const QString kept = ReadFileBytes(ToPath(path), bytes).Ok()
                             ? KeepInput(path, bytes, KeptKind::Overwritten, prompts_.runs.keptFolder())
                             : QString();
    child.Notices().Show({kChangedFileKey,
                          kept.isEmpty() ? u"上書き前のファイルの内容は保管できませんでした。"_s
                                         : u"上書き前のファイルの内容は「解析前の入力」に保管してあります。\n"_s
                                               + QDir::toNativeSeparators(kept),
                          {},
                          kept.isEmpty()});
}

bool CFileCommands::KeepReplaced(CChildFrame& child, const QString& project)
{
    std::string bytes;
    const QString kept = ReadFileBytes(ToPath(project), bytes).Ok()
                             ? KeepInput(project, bytes, KeptKind::Replaced, prompts_.runs.keptFolder())
                             : QString();
    if (kept.isEmpty())
        return AskYesNo(u"廃棄するプロジェクトを保管できません。\n"_s + QDir::toNativeSeparators(project)
                        + u"\n\nこのまま続けると、このファイルの内容は失われます。\n\n続けますか。"_s);
    child.Notices().Show(
        {u"replaced"_s,
         u"廃棄したプロジェクトの内容は「解析前の入力」に保管してあります。\n"_s + QDir::toNativeSeparators(kept),
         {},
         false});
    return true;
}

void CFileCommands::ShowKeptInputs(CChildFrame& child)
{
    const QPointer<CChildFrame> frame = &child;
    KeptInputsView view;
    view.project = child.Doc().Title();
    if (!child.Doc().PathName().isEmpty())
        view.inputs = KeptInputsOf(child.Doc().PathName(), prompts_.runs.keptFolder());
    const auto read = [this, frame](const KeptInput& input) -> std::optional<CSbdData> {
        std::string bytes;
        const FileResult result = ReadFileBytes(ToPath(input.file), bytes);
        if (!result.Ok())
            Warn(FileMessage(FileOperation::Open, input.file, result));
        return result.Ok() && frame ? std::optional(frame->Doc().DataOf(bytes)) : std::nullopt;
    };
    const auto nameOf = [](const KeptInput& input) { return input.time.toString(u"MM/dd HH:mm"_s) + u" の入力"_s; };
    view.compare = [this, frame, read, nameOf](const KeptInput& input) {
        if (const std::optional<CSbdData> before = read(input))
            CompareWith(*frame, *before, nameOf(input), Differences());
    };
    view.restore = [frame, read, nameOf](const KeptInput& input) {
        const std::optional<CSbdData> before = read(input);
        const std::optional<std::string> name = fromQString(nameOf(input) + u"に戻す"_s);
        if (before)
            frame->ChangeProject([&] { frame->Doc().ReplaceProject(*before, name.value_or(std::string())); });
    };
    view.openCopy = [this](const KeptInput& input) { OpenAsCopy(input); };
    prompts_.showKeptInputs(area_.window(), view);
}

/// A window of its own without a path: nothing of the project is in danger.
void CFileCommands::OpenAsCopy(const KeptInput& input)
{
    auto doc = std::make_unique<CKELDSectionDoc>();
    const FileResult result = doc->OpenRecoveryCopy(input.file, {});
    if (!result.Ok()) {
        Warn(FileMessage(FileOperation::Open, input.file, result));
        return;
    }
    CChildFrame* child = Show(MakeChild(std::move(doc), std::make_unique<CProjectLock>()));
    child->SetTitle(
        FreeTitle(QFileInfo(input.project).completeBaseName() + input.time.toString(u"_yyyyMMdd_HHmmss"_s)));
}

} // namespace sbd
