#include "frame/new_document.h"

#include "document/project_lock.h"
#include "document/save_flow.h"

#include <QDir>
#include <QFile>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

using enum NewProjectStep;

constexpr int kGo = 1;
constexpr int kGoWithAnalysis = 2;
constexpr int kGoWithUcGrid = 3;
constexpr int kRunWithAnalysis = 4;
constexpr int kRunWithUcGrid = 5;

constexpr int kBoxGirder = 1;

constexpr NewProjectStep kNew2[] = {SaveDocument, SetPathName, ReadGridNames, ReadResultFiles, BoxWebFlow};
constexpr NewProjectStep kOpen[] = {OpenDocument, SetPathName};
constexpr NewProjectStep kNew3[] = {SetPathName, SaveDocument, SetUcGrid, BoxWebFlow, SaveWrapper};
constexpr NewProjectStep kNew4[] = {SaveDocument, SetPathName, ReadGridNames, ReadResultFiles,
                                    BoxWebFlow,   SaveWrapper, RunMain};
constexpr NewProjectStep kReplaced4[] = {SetPathName, SaveDocument, ReadGridNames, ReadResultFiles,
                                         BoxWebFlow,  SaveWrapper,  RunMain};
constexpr NewProjectStep kRun5[] = {SetPathName, SaveDocument, SetUcGrid, BoxWebFlow, SaveWrapper, RunMain};
constexpr NewProjectStep kKept[] = {SetPathName, RunMain};

// The order of saving and naming differs from row to row; it is what it is.
constexpr NewProjectRow kRows[] = {
    {kGoWithAnalysis, NewProjectSituation::New, kNew2},
    {kGoWithAnalysis, NewProjectSituation::Exists, kOpen},
    {kGoWithUcGrid, NewProjectSituation::New, kNew3},
    {kGoWithUcGrid, NewProjectSituation::Exists, kOpen},
    {kRunWithAnalysis, NewProjectSituation::New, kNew4},
    {kRunWithAnalysis, NewProjectSituation::Replaced, kReplaced4},
    {kRunWithAnalysis, NewProjectSituation::Kept, kKept},
    {kRunWithUcGrid, NewProjectSituation::New, kRun5},
    {kRunWithUcGrid, NewProjectSituation::Replaced, kRun5},
    {kRunWithUcGrid, NewProjectSituation::Kept, kKept},
};

/// The choices that run the engine at once.
bool RunsAtOnce(int choice)
{
    return choice == kRunWithAnalysis || choice == kRunWithUcGrid;
}

bool RunStep(NewProjectStep step, const QString& base, int girderType, CNewDocumentSteps& steps)
{
    const QString project = base + u".sbd"_s;
    switch (step) {
    case SaveDocument:
        return steps.SaveDocument(project);
    case SetPathName:
        steps.SetPathName(project);
        return true;
    case ReadGridNames:
        steps.ReadGridNames(base + u".abd"_s);
        return true;
    case ReadResultFiles:
        steps.ReadResultFiles(project);
        return true;
    case OpenDocument:
        return steps.OpenDocument(project);
    case SetUcGrid:
        steps.SetUcGrid();
        return true;
    case BoxWebFlow:
        return girderType != kBoxGirder || steps.BoxWebFlow();
    case SaveWrapper:
        return steps.SaveWrapper();
    case RunMain:
        return steps.RunMain();
    }
    return false;
}

/// What becomes of a flow whose run did not bring the project back.
bool AfterFailedRun(NewProjectSituation situation, const QString& base, CNewDocumentSteps& steps)
{
    // The document was saved before the run, or else it is still empty while its project is full: the next save
    // would wipe that out.
    return situation != NewProjectSituation::Kept || steps.OpenDocument(base + u".sbd"_s);
}

} // namespace

std::span<const NewProjectRow> NewProjectRows()
{
    return kRows;
}

ProjectState TryOpenProject(const QString& project)
{
    switch (CProjectLock::LookPatiently(project)) {
    case CProjectLock::State::Free:
        return ProjectState::Exists;
    case CProjectLock::State::NotFound:
        return ProjectState::New;
    case CProjectLock::State::Held:
        return ProjectState::Held;
    case CProjectLock::State::Failed: // a read-only file cannot be locked everywhere
        break;
    }
    return QFile(project).open(QFile::ReadOnly) ? ProjectState::Exists : ProjectState::Held;
}

QStringList NewProjectFilters(int choice)
{
    const bool analysis = choice == kGoWithAnalysis || choice == kRunWithAnalysis;
    return {analysis ? u"ABD Files(*.abd)"_s : u"GRL Files(*.GRL)"_s, u"All Files(*.*)"_s};
}

QString ProjectHeldMessage()
{
    return u"このファイルは既に開いています！\n(Opend by KELD section.exeか他のプログラムに利用されますか)"_s;
}

QString OldResultsQuestion(const QString& project)
{
    return QDir::toNativeSeparators(project) + u"\n古い自動設計結果があります,廃棄しますか？"_s;
}

bool CNewDocumentFlow::OnNewDocument(CNewDocumentSteps& steps)
{
    if (skipChooser) {
        skipChooser = false;
        return true;
    }
    const StartChoice choice = prompts_.chooser();
    if (choice.choice == kGo)
        return true;
    if (choice.choice < kGoWithAnalysis || choice.choice > kRunWithUcGrid)
        return false;
    return BeginFromFile(choice, steps);
}

bool CNewDocumentFlow::BeginFromFile(const StartChoice& choice, CNewDocumentSteps& steps) const
{
    const QString chosen = prompts_.openFileName(NewProjectFilters(choice.choice));
    if (chosen.isEmpty())
        return false;
    const QString base = BasePath(chosen);
    const QString project = base + u".sbd"_s;

    NewProjectSituation situation = NewProjectSituation::New;
    switch (prompts_.tryOpen(project)) {
    case ProjectState::Held:
        prompts_.warn(ProjectHeldMessage());
        return false;
    case ProjectState::New:
        break;
    case ProjectState::Exists:
        situation = !RunsAtOnce(choice.choice)                       ? NewProjectSituation::Exists
                    : prompts_.askYesNo(OldResultsQuestion(project)) ? NewProjectSituation::Replaced
                                                                     : NewProjectSituation::Kept;
    }

    const auto row = std::ranges::find_if(kRows, [&](const NewProjectRow& candidate) {
        return candidate.choice == choice.choice && candidate.situation == situation;
    });
    for (const NewProjectStep step : row->steps) {
        if (RunStep(step, base, choice.girderType, steps))
            continue;
        return step == RunMain && AfterFailedRun(situation, base, steps);
    }
    return true;
}

} // namespace sbd
