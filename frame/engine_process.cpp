#include "frame/engine_process.h"

#include "commands/commands.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QEventLoop>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProcess>
#include <QPushButton>
#include <QThread>
#include <QTime>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <csignal>
#include <unistd.h>
#endif

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 560; // px
constexpr int kMostLines = 1000;
constexpr int kTick = 500;      // ms
constexpr int kPatience = 3000; // ms that an engine, and then its children, have to end by themselves

/// A run as it is called in the menu.
QString RunName(EngineRun run)
{
    const std::string_view text = RowOf(InfoOf(run).command).text;
    return QString::fromUtf8(text.data(), qsizetype(text.size())).section(u'　', 0, 0).trimmed();
}

void Prepare(QProcess& process, const EngineStart& start)
{
    process.setProgram(start.engine);
#ifdef Q_OS_WIN
    // The engine gets the text as it is, and nothing of ours: no handles, no flags.
    process.setCreateProcessArgumentsModifier(
        [line = EngineCommandText(start).toStdWString()](QProcess::CreateProcessArguments* arguments) mutable {
            arguments->arguments = line.data();
            arguments->inheritHandles = false;
            arguments->flags &= ~static_cast<unsigned long>(CREATE_NO_WINDOW);
            arguments->startupInfo->dwFlags &= ~static_cast<unsigned long>(STARTF_USESTDHANDLES);
        });
#else
    process.setArguments(SplitWindowsArguments(EngineArguments(start.run, start.project)));
    // A group of its own: with it ends what it has started, and with us it does not.
    process.setChildProcessModifier([] { ::setpgid(0, 0); });
#endif
    // Nobody reads what an engine prints: a pipe would keep it all, or break under the engine if we end first.
    process.setStandardInputFile(QProcess::nullDevice());
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
}

#ifdef Q_OS_WIN
/// What an engine inherits: a fault ends it, and no window of the system keeps us waiting for somebody to close it. Of
/// a library that the engine lacks the system still tells, since nobody else would.
class NoFaultWindow {
public:
    NoFaultWindow() { SetErrorMode(before_ | SEM_NOGPFAULTERRORBOX); }
    ~NoFaultWindow() { SetErrorMode(before_); }
    NoFaultWindow(const NoFaultWindow&) = delete;
    NoFaultWindow& operator=(const NoFaultWindow&) = delete;

private:
    UINT before_ = GetErrorMode();
};
#endif

void Start(QProcess& process)
{
#ifdef Q_OS_WIN
    const NoFaultWindow quiet;
#endif
    process.start();
}

/// An engine and what it has started.
class EngineFamily {
public:
    explicit EngineFamily(const QProcess& engine);
    ~EngineFamily();
    EngineFamily(const EngineFamily&) = delete;
    EngineFamily& operator=(const EngineFamily&) = delete;

    /// Ends them all.
    void End();
    /// True while one of them lives, behind a call of End(): the engine's end is not that of its children.
    [[nodiscard]] bool IsEnding();

private:
#ifdef Q_OS_WIN
    HANDLE job_ = nullptr;
#else
    void Kill();

    pid_t group_ = 0;
    QTimer patience_;
#endif
};

#ifdef Q_OS_WIN

EngineFamily::EngineFamily(const QProcess& engine) : job_(CreateJobObjectW(nullptr, nullptr))
{
    const HANDLE process =
        OpenProcess(PROCESS_SET_QUOTA | PROCESS_TERMINATE, FALSE, static_cast<DWORD>(engine.processId()));
    if (process == nullptr)
        return;
    AssignProcessToJobObject(job_, process);
    CloseHandle(process);
}

EngineFamily::~EngineFamily()
{
    if (job_ != nullptr)
        CloseHandle(job_); // ends nobody
}

void EngineFamily::End()
{
    TerminateJobObject(job_, 1);
}

bool EngineFamily::IsEnding()
{
    JOBOBJECT_BASIC_ACCOUNTING_INFORMATION about{};
    return job_ != nullptr
           && QueryInformationJobObject(job_, JobObjectBasicAccountingInformation, &about, sizeof about, nullptr) != 0
           && about.ActiveProcesses > 0;
}

#else

EngineFamily::EngineFamily(const QProcess& engine) : group_(static_cast<pid_t>(engine.processId()))
{
    patience_.setSingleShot(true);
    QObject::connect(&patience_, &QTimer::timeout, &patience_, [this] { Kill(); });
}

EngineFamily::~EngineFamily()
{
    if (patience_.isActive())
        Kill(); // the engine has ended, its children may not have
}

void EngineFamily::Kill()
{
    ::kill(-group_, SIGKILL);
}

void EngineFamily::End()
{
    ::kill(-group_, SIGTERM);
    patience_.start(kPatience);
}

bool EngineFamily::IsEnding()
{
    return patience_.isActive() && ::kill(-group_, 0) == 0;
}

#endif

/// The children of an engine that was told to end may still write. The window stands meanwhile.
void WaitForChildren(EngineFamily& family)
{
    constexpr int again = 50; // ms
    const QDeadlineTimer deadline(kPatience);
    while (family.IsEnding() && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::AllEvents, again);
        QThread::msleep(again);
    }
}

} // namespace

QString EngineCommandText(const EngineStart& start)
{
    const QString engine = start.engine.contains(u' ') ? u'"' + start.engine + u'"' : start.engine;
    return EngineCommandLine(start.run, engine, start.project);
}

EngineEnd RunEngineProcess(QWidget* parent, const EngineStart& start)
{
    QProcess process;
    Prepare(process, start);
    CReportTail report(start.report); // as it stands before the run
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    Start(process);
    EngineEnd end;
    if (!process.waitForStarted(-1))
        return end;
    end.started = true;
    EngineFamily family(process);

    // The parent may go while the engine runs, and takes the window with it.
    const QPointer<CEngineWindow> window = new CEngineWindow(start, std::move(report), parent);
    QObject::connect(window, &CEngineWindow::cancelled, &loop, [&] {
        end.cancelled = true;
        family.End();
    });
    window->show();
    if (process.state() != QProcess::NotRunning)
        loop.exec();
    // The loop also ends with the program. The engine is writing to the project: let it come to its end.
    while (process.state() != QProcess::NotRunning)
        process.waitForFinished(-1);
    if (end.cancelled)
        WaitForChildren(family);
    delete window;
    end.fault = process.exitStatus() == QProcess::CrashExit;
    end.code = process.exitCode();
    return end;
}

CEngineWindow::CEngineWindow(const EngineStart& start, CReportTail report, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
    , tail_(std::move(report))
{
    setObjectName(u"engineWindow"_s);
    setWindowTitle(u"KELD section"_s);
    setWindowModality(Qt::ApplicationModal);
    setMinimumWidth(kWidth);

    auto* run = new QLabel(RunName(start.run) + u"　開始 "_s + QTime::currentTime().toString(u"HH:mm:ss"_s), this);
    auto* name = new QLabel(QFileInfo(start.engine).fileName() + u" を実行しています。"_s, this);
    run->setTextFormat(Qt::PlainText);
    name->setTextFormat(Qt::PlainText);
    time_ = new QLabel(this);
    time_->setObjectName(u"time"_s);
    report_ = new QPlainTextEdit(this);
    report_->setObjectName(u"report"_s);
    report_->setReadOnly(true);
    report_->setUndoRedoEnabled(false);
    report_->setMaximumBlockCount(kMostLines);
    report_->setLineWrapMode(QPlainTextEdit::NoWrap);
    report_->setPlaceholderText(u"報告 (.CHK) はまだ書かれていません。"_s);
    report_->setAccessibleName(u"書かれている途中の報告"_s);
    auto* hint = new QLabel(u"終了すると、プロジェクトを読み込み直します。それまで入力はできません。"_s, this);
    hint->setWordWrap(true);
    cancel_ = new QPushButton(u"中止(&C)..."_s, this);
    cancel_->setAutoDefault(false);
    connect(cancel_, &QPushButton::clicked, this, &CEngineWindow::AskToCancel);

    auto* lines = new QVBoxLayout(this);
    for (QWidget* line : std::initializer_list<QWidget*>{run, name, time_, report_, hint})
        lines->addWidget(line);
    lines->addWidget(cancel_, 0, Qt::AlignRight);
    report_->setFocus(); // no key of the user's, typed on, presses the button

    clock_.start();
    ShowTime();
    auto* tick = new QTimer(this);
    connect(tick, &QTimer::timeout, this, &CEngineWindow::ShowTime);
    connect(tick, &QTimer::timeout, this, &CEngineWindow::ShowReport);
    tick->start(kTick);
}

QString CEngineWindow::TimeText(qint64 seconds)
{
    return u"%1:%2"_s.arg(seconds / 60, 2, 10, QChar(u'0')).arg(seconds % 60, 2, 10, QChar(u'0'));
}

void CEngineWindow::ShowTime()
{
    const QString text = u"経過時間 "_s + TimeText(clock_.elapsed() / 1000);
    if (time_->text() != text) // a run of hours costs nothing but this
        time_->setText(text);
}

void CEngineWindow::ShowReport()
{
    const QStringList lines = tail_.NewLines();
    // Of a flood no more is laid out than stays to be seen.
    if (!lines.isEmpty())
        report_->appendPlainText(lines.mid(std::max<qsizetype>(lines.size() - kMostLines, 0)).join(u'\n'));
}

/// The question goes with the window if the engine is faster than the answer.
void CEngineWindow::AskToCancel()
{
    cancel_->setEnabled(false);
    auto* box = new QMessageBox(
        QMessageBox::Question, u"KELD section"_s,
        u"実行を中止しますか。\n\n解析プログラムを途中で終了させます。プロジェクトファイルは書きかけのまま"
        u"残ることがあります。解析前の内容は「解析前の入力」に保管してあります。"_s,
        QMessageBox::NoButton, this);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->setTextFormat(Qt::PlainText);
    QPushButton* stop = box->addButton(u"中止する(&S)"_s, QMessageBox::DestructiveRole);
    QPushButton* goOn = box->addButton(u"続ける(&G)"_s, QMessageBox::RejectRole);
    box->setDefaultButton(goOn);
    box->setEscapeButton(goOn);
    connect(box, &QDialog::finished, this, [this, box, stop] {
        if (box->clickedButton() != stop) {
            cancel_->setEnabled(true);
            return;
        }
        cancel_->setText(u"中止しています..."_s);
        emit cancelled();
    });
    box->open();
}

void CEngineWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
}

} // namespace sbd
