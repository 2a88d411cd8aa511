#include "app/station.h"

#include "app/fonts.h"
#include "app/screenshot.h"
#include "app/start_options.h"
#include "frame/child_frame.h"
#include "frame/main_frame.h"
#include "panels/panel.h"

#include <QApplication>
#include <QSettings>
#include <QTemporaryDir>

#include <cstdio>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

void Print(std::FILE* stream, const QString& text)
{
    std::fputs(qUtf8Printable(text), stream);
    if (!text.endsWith(u'\n'))
        std::fputs("\n", stream);
}

/// Nobody is there to answer: messages are printed, changes are never saved.
Prompts SilentPrompts()
{
    return {[](QWidget*, const QString&) { return QString(); }, [](QWidget*, const QString&) { return QString(); },
            [](QWidget*, const QString&) { return SaveAnswer::Discard; },
            [](QWidget*, const QString& text) { Print(stderr, text); }};
}

/// Goes where the command line says.
void ShowCell(CMainFrame& frame, const StartOptions& options)
{
    CChildFrame* child = frame.CurrentChild();
    if (child == nullptr)
        return;
    if (options.block != 0)
        child->GoToBlock(options.block);
    if (options.row != 0 && child->Panel() != nullptr)
        child->Panel()->GoToCell(options.row, options.column);
}

int RunScreenshot(const StartOptions& options)
{
    // A picture leaves no trace in the user's profile.
    const QTemporaryDir profile;
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, profile.path());

    CMainFrame frame(SilentPrompts());
    if (options.projects.isEmpty())
        frame.NewProject();
    for (const QString& project : options.projects) {
        if (frame.OpenProject(project) == nullptr)
            return kExitFailed;
    }
    ShowInSize(frame, options.size);
    ShowCell(frame, options);
    const QString error = TakeScreenshot(frame, options.screenshot);
    if (error.isEmpty())
        return kExitDone;
    Print(stderr, error);
    return kExitFailed;
}

int RunWindow(const StartOptions& options)
{
    CMainFrame frame;
    frame.NewProject(); // stands until a project takes its place
    frame.ShowAsLeft();
    for (const QString& project : options.projects)
        frame.OpenProject(project);
    ShowCell(frame, options);
    return QApplication::exec();
}

} // namespace

int RunStation(const StartOptions& options)
{
    if (!options.error.isEmpty()) {
        Print(stderr, options.error);
        return kExitFailed;
    }
    if (options.help) {
        Print(stdout, StartHelp());
        return kExitDone;
    }
    if (options.version) {
        Print(stdout, u"sbdstation "_s + QApplication::applicationVersion());
        return kExitDone;
    }
    SetUpFonts();
    return options.screenshot.isEmpty() ? RunWindow(options) : RunScreenshot(options);
}

} // namespace sbd
