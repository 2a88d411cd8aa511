#include "app/end_signals.h"

#include "frame/main_frame.h"

#include <QCoreApplication>
#include <QGuiApplication>
#include <QSessionManager>
#include <QSocketNotifier>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <csignal>
#include <fcntl.h>
#include <unistd.h>
#endif

namespace sbd {

namespace {

#ifdef Q_OS_UNIX
/// The toolkit calls exit() when it loses the screen, which Windows does not take from a program. What belongs to a thread
/// goes first then, before the tables that a copy is written by. No window can be used any more.
class KeepsCopiesAtExit {
public:
    KeepsCopiesAtExit() = default;
    ~KeepsCopiesAtExit()
    {
        if (watchedFrame != nullptr)
            watchedFrame->KeepRecoveryCopies();
    }
    KeepsCopiesAtExit(const KeepsCopiesAtExit&) = delete;
    KeepsCopiesAtExit& operator=(const KeepsCopiesAtExit&) = delete;
    void Watch(CMainFrame* frame) { watchedFrame = frame; }

private:
    CMainFrame* watchedFrame = nullptr;
};

thread_local KeepsCopiesAtExit atExit;

constexpr int kEndSignals[] = {SIGTERM, SIGHUP, SIGINT};
constexpr int kExitOfSignal = 128; // what shells report for a program that a signal has ended

std::array<int, 2> signalPipe = {-1, -1}; // read, write

extern "C" void TellEndSignal(int number)
{
    // Nothing but this is allowed here.
    const char byte = static_cast<char>(number);
    [[maybe_unused]] const ssize_t written = ::write(signalPipe[1], &byte, 1);
}

void SetHandler(void (*handler)(int))
{
    for (const int number : kEndSignals) {
        struct sigaction before = {};
        ::sigaction(number, nullptr, &before);
        if (before.sa_handler == SIG_IGN)
            continue; // started to survive it, by nohup for one
        struct sigaction action = {};
        action.sa_handler = handler;
        action.sa_flags = SA_RESTART;
        ::sigaction(number, &action, nullptr);
    }
}
#endif

} // namespace

CEndSignals::CEndSignals(CMainFrame& frame) : frame_(frame)
{
#ifdef Q_OS_UNIX
    atExit.Watch(&frame);
    if (::pipe(signalPipe.data()) != 0)
        return;
    for (const int end : signalPipe) {
        ::fcntl(end, F_SETFD, FD_CLOEXEC); // no engine inherits it
        ::fcntl(end, F_SETFL, O_NONBLOCK);
    }
    notifier_ = new QSocketNotifier(signalPipe[0], QSocketNotifier::Read, this);
    connect(notifier_, &QSocketNotifier::activated, this, &CEndSignals::TakeSignal);
    SetHandler(TellEndSignal);
#endif
}

CEndSignals::~CEndSignals()
{
#ifdef Q_OS_UNIX
    atExit.Watch(nullptr);
    if (notifier_ == nullptr)
        return;
    SetHandler(SIG_DFL);
    delete notifier_;
    for (int& end : signalPipe) {
        ::close(end);
        end = -1;
    }
#endif
}

void CEndSignals::TakeSignal()
{
#ifdef Q_OS_UNIX
    char number = 0;
    if (::read(signalPipe[0], &number, 1) != 1 || exitCode_ != 0)
        return;
    frame_.EndNow();
    exitCode_ = kExitOfSignal + number;
    QCoreApplication::exit(exitCode_);
#endif
}

void ConnectSessionEnd(CMainFrame& frame)
{
    QObject::connect(
        qGuiApp, &QGuiApplication::commitDataRequest, &frame,
        [&frame](QSessionManager& manager) {
#ifdef Q_OS_WIN
            // Stands on the system's own screen of what keeps it from ending, while our question waits below it.
            const auto window = reinterpret_cast<HWND>(frame.winId());
            ShutdownBlockReasonCreate(window, L"保存していない変更があります。");
#endif
            frame.OnSessionEnd({[&manager] { return manager.allowsInteraction(); }, [&manager] { manager.cancel(); }});
#ifdef Q_OS_WIN
            ShutdownBlockReasonDestroy(window);
#endif
        },
        Qt::DirectConnection);
}

} // namespace sbd
