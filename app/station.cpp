#include "app/station.h"

#include "app/end_signals.h"
#include "app/fonts.h"
#include "app/outside_commands.h"
#include "app/request_queue.h"
#include "app/screenshot.h"
#include "app/single_instance.h"
#include "app/start_options.h"
#include "app/version_check.h"
#include "app/version_record.h"
#include "document/recovery.h"
#include "frame/child_frame.h"
#include "frame/main_frame.h"
#include "frame/yes_no_box.h"
#include "panels/panel.h"
#include "project/console.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QMessageBox>
#include <QSettings>
#include <QTemporaryDir>

#include <cstdio>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

void Print(std::FILE* stream, const QString& text)
{
    PrintText(stream, (text.endsWith(u'\n') ? text : text + u'\n').toStdString());
}

int RunScreenshot(const StartOptions& options)
{
    // A picture leaves no trace in the user's profile.
    const QTemporaryDir profile;
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, profile.path());

    CMainFrame frame(SilentPrompts([](const QString& text) { Print(stderr, text); }));
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

/// The folder in which the daily record has always stood; only Windows has one.
QString WindowsFolder()
{
#ifdef Q_OS_WIN
    wchar_t folder[MAX_PATH] = {};
    const UINT size = GetWindowsDirectoryW(folder, MAX_PATH);
    return size < MAX_PATH ? QDir::fromNativeSeparators(QString::fromWCharArray(folder, size)) : QString();
#else
    return {};
#endif
}

/// The daily question for a newer version, and its result in the menu bar.
void StartVersionCheck(CMainFrame& frame, const DeploymentSettings& settings)
{
    VersionCheckSeams seams;
    seams.ask = [&frame](const QString& text) { return AskYesNo(&frame, text); };
    seams.openPage = [](const QUrl& page) { return QDesktopServices::openUrl(page); };
    seams.tell = [&frame](const QString& text) { frame.Warn(text); };
    seams.quit = [&frame] { frame.close(); };
    auto* check =
        new CVersionCheck(VersionRecordFolder(WindowsFolder(), StateFolder()), settings, std::move(seams), &frame);
    frame.SetVersionText(VersionMenuText(kSystemVersion, {}));
    QObject::connect(check, &CVersionCheck::checked, &frame, [&frame](const QString& result) {
        frame.SetVersionText(VersionMenuText(kSystemVersion, result));
    });
    check->CheckVersion();
}

int RunWindow(const StartOptions& options)
{
    LeaveConsoleOfStarter();
    CSingleInstance instance;
    switch (instance.Start(RequestOf(options.projects))) {
    case CSingleInstance::Role::First:
        break;
    case CSingleInstance::Role::Second:
        return kExitDone;
    case CSingleInstance::Role::Unanswered:
        QMessageBox::warning(nullptr, u"KELD section"_s, UnansweredMessage());
        return kExitFailed;
    }
    const DeploymentSettings settings = ReadDeployment(DeploymentFile(QApplication::applicationDirPath()));
    CMainFrame frame;
    const CEndSignals ends(frame);
    ConnectSessionEnd(frame);
    ConnectOutside(frame, settings);
    frame.NewProject(); // stands until a project takes its place
    frame.ShowAtStart();
    CRequestQueue requests(frame);
    QObject::connect(&instance, &CSingleInstance::requested, &requests, &CRequestQueue::Take);
    if (options.projects.isEmpty())
        frame.RestoreSession();
    bool opened = options.projects.isEmpty();
    for (const QString& project : options.projects) {
        if (ends.ExitCode() == 0)
            opened = frame.OpenProject(project) != nullptr || opened;
    }
    if (!opened && ends.ExitCode() == 0 && !requests.HasWaiting())
        return kExitNothingOpened; // the user knows why
    ShowCell(frame, options);
    if (ends.ExitCode() == 0)
        frame.OfferRecoveryCopies();
    if (ends.ExitCode() == 0)
        StartVersionCheck(frame, settings);
    // What has ended the questions of the start would not end a loop that is begun after it.
    return ends.ExitCode() != 0 ? ends.ExitCode() : QApplication::exec();
}

} // namespace

void ShowCell(CMainFrame& frame, const StartOptions& options)
{
    CChildFrame* child = frame.CurrentChild();
    if (child == nullptr || (options.block == 0 && options.row == 0))
        return;
    if (options.block != 0)
        child->GoToBlock(options.block);
    if (options.row != 0 && child->Panel() != nullptr)
        child->Panel()->GoToCell(options.row, options.column);
    child->FocusPanel();
}

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
