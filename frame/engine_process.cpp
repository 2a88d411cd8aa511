#include "frame/engine_process.h"

#include <QCloseEvent>
#include <QEventLoop>
#include <QFileInfo>
#include <QLabel>
#include <QPointer>
#include <QProcess>
#include <QProgressBar>
#include <QTimer>
#include <QVBoxLayout>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 480; // px

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

} // namespace

QString EngineCommandText(const EngineStart& start)
{
    const QString engine = start.engine.contains(u' ') ? u'"' + start.engine + u'"' : start.engine;
    return EngineCommandLine(start.run, engine, start.project);
}

bool RunEngineProcess(QWidget* parent, const EngineStart& start)
{
    QProcess process;
    Prepare(process, start);
    QEventLoop loop;
    QObject::connect(&process, &QProcess::finished, &loop, &QEventLoop::quit);
    Start(process);
    if (!process.waitForStarted(-1))
        return false;

    // The parent may go while the engine runs, and takes the window with it.
    const QPointer<CEngineWindow> window = new CEngineWindow(QFileInfo(start.engine).fileName(), parent);
    window->show();
    if (process.state() != QProcess::NotRunning)
        loop.exec();
    // The loop also ends with the program. The engine is writing to the project: let it come to its end.
    while (process.state() != QProcess::NotRunning)
        process.waitForFinished(-1);
    delete window;
    return true;
}

CEngineWindow::CEngineWindow(const QString& engine, QWidget* parent)
    : QDialog(parent, Qt::Dialog | Qt::CustomizeWindowHint | Qt::WindowTitleHint)
{
    setObjectName(u"engineWindow"_s);
    setWindowTitle(u"KELD section"_s);
    setWindowModality(Qt::ApplicationModal);
    setMinimumWidth(kWidth);

    auto* name = new QLabel(engine + u" を実行しています。"_s, this);
    name->setTextFormat(Qt::PlainText);
    auto* bar = new QProgressBar(this);
    bar->setRange(0, 0); // how far the engine is, it does not say
    bar->setTextVisible(false);
    time_ = new QLabel(this);
    time_->setObjectName(u"time"_s);
    auto* hint = new QLabel(u"終了すると、プロジェクトを読み込み直します。それまで入力はできません。"_s, this);
    hint->setWordWrap(true);

    auto* lines = new QVBoxLayout(this);
    for (QWidget* line : std::initializer_list<QWidget*>{name, bar, time_, hint})
        lines->addWidget(line);

    clock_.start();
    ShowTime();
    auto* tick = new QTimer(this);
    connect(tick, &QTimer::timeout, this, &CEngineWindow::ShowTime);
    tick->start(200); // ms, so that no second is left out
}

QString CEngineWindow::TimeText(qint64 seconds)
{
    return u"%1:%2"_s.arg(seconds / 60, 2, 10, QChar(u'0')).arg(seconds % 60, 2, 10, QChar(u'0'));
}

void CEngineWindow::ShowTime()
{
    time_->setText(u"経過時間 "_s + TimeText(clock_.elapsed() / 1000));
}

void CEngineWindow::closeEvent(QCloseEvent* event)
{
    event->ignore();
}

} // namespace sbd
