#include "document/analysis_mutex.h"

#include <QDir>
#include <QFile>
#include <QStandardPaths>

#ifdef Q_OS_WIN
#include <windows.h>
#else
#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <unistd.h>
#endif

namespace sbd {

namespace {

constexpr const char* kName = "0x48a72353,0x76f4,0x4be7,0x9a,0x77,0x23,0xa0,0x6d,0xa7,0x51,0x81";

#ifndef Q_OS_WIN
constexpr int kTries = 20;
constexpr useconds_t kPause = 2000; // microseconds
#endif

} // namespace

#ifdef Q_OS_WIN

struct CAnalysisMutex::Handle {
    HANDLE mutex = nullptr;
    bool existed = false;

    explicit Handle(const QString&)
    {
        mutex = CreateMutexA(nullptr, FALSE, kName);
        existed = mutex != nullptr && GetLastError() == ERROR_ALREADY_EXISTS;
    }
    ~Handle()
    {
        if (mutex != nullptr)
            CloseHandle(mutex);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
};

#else

// A file whose lock all holders share. Who can have it alone is the first.
struct CAnalysisMutex::Handle {
    int file = -1;
    bool existed = false;

    explicit Handle(const QString& folder)
    {
        const QByteArray name = QFile::encodeName(QDir(folder).filePath(QLatin1StringView(kName)));
        file = ::open(name.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600);
        if (file < 0)
            return;
        existed = ::flock(file, LOCK_EX | LOCK_NB) != 0 && errno == EWOULDBLOCK;
        // Blocked by somebody between these two lines, for a moment, or by a program that keeps the file to itself: it
        // is not waited for, and that it holds the mutex is known by now.
        for (int tries = 0; tries < kTries && ::flock(file, LOCK_SH | LOCK_NB) != 0; ++tries)
            ::usleep(kPause);
    }
    ~Handle()
    {
        if (file >= 0)
            ::close(file);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
};

#endif

QString AnalysisMutexFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
}

CAnalysisMutex::CAnalysisMutex(const QString& folder) : handle_(std::make_unique<Handle>(folder)) {}

CAnalysisMutex::~CAnalysisMutex() = default;

bool CAnalysisMutex::Existed() const
{
    return handle_->existed;
}

} // namespace sbd
