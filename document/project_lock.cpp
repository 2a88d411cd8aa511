#include "document/project_lock.h"

#include <QDeadlineTimer>
#include <QThread>

#ifdef Q_OS_WIN
#include "document/path.h"
#include "project/file_access.h"

#include <windows.h>
#else
#include <QFile>

#include <cerrno>
#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>
#endif

namespace sbd {

#ifdef Q_OS_WIN

struct CProjectLock::Handle {
    HANDLE file = INVALID_HANDLE_VALUE;
    State state = State::Failed;

    explicit Handle(const QString& path)
    {
        const std::wstring name = SystemPath(ToPath(path));
        file = Open(name, GENERIC_READ | GENERIC_WRITE);
        DWORD error = file == INVALID_HANDLE_VALUE ? GetLastError() : ERROR_SUCCESS;
        // Who may only read takes no lock, which would keep the writers out, but sees theirs.
        if (error == ERROR_ACCESS_DENIED) {
            const HANDLE look = Open(name, GENERIC_READ);
            if (look != INVALID_HANDLE_VALUE)
                CloseHandle(look);
            else
                error = GetLastError();
        }
        state = error == ERROR_SUCCESS                                              ? State::Free
                : error == ERROR_SHARING_VIOLATION || error == ERROR_LOCK_VIOLATION ? State::Held
                : error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND    ? State::NotFound
                                                                                    : State::Failed;
    }
    /// Others may read meanwhile; none may write.
    static HANDLE Open(const std::wstring& name, DWORD access)
    {
        return CreateFileW(name.c_str(), access, FILE_SHARE_READ, nullptr, OPEN_EXISTING, FILE_ATTRIBUTE_NORMAL,
                           nullptr);
    }
    ~Handle()
    {
        if (file != INVALID_HANDLE_VALUE)
            CloseHandle(file);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
};

#else

struct CProjectLock::Handle {
    int file = -1;
    State state = State::Failed;

    explicit Handle(const QString& path)
    {
        const QByteArray name = QFile::encodeName(path);
        // Network drives lock only what is open for writing. A pipe must not keep us waiting for its other end.
        file = ::open(name.constData(), O_RDWR | O_CLOEXEC | O_NONBLOCK);
        if (file < 0 && (errno == EACCES || errno == EROFS))
            file = ::open(name.constData(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
        struct stat about = {};
        if (file < 0)
            state = errno == ENOENT || errno == ENOTDIR ? State::NotFound : State::Failed;
        else if (::fstat(file, &about) != 0 || !S_ISREG(about.st_mode))
            state = State::Failed;
        else if (::flock(file, LOCK_EX | LOCK_NB) == 0)
            state = State::Free;
        else
            // A file system without locks (some network drives) must not keep the user from working.
            state = errno == EWOULDBLOCK ? State::Held : State::Free;
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

/// A handle when whoever glances at the file is done with it.
std::unique_ptr<CProjectLock::Handle> CProjectLock::Patiently(const QString& path)
{
    constexpr int pause = 20; // ms
    const QDeadlineTimer deadline(kGlance);
    auto handle = std::make_unique<Handle>(path);
    while (handle->state == State::Held && !deadline.hasExpired()) {
        QThread::msleep(pause);
        handle = std::make_unique<Handle>(path);
    }
    return handle;
}

CProjectLock::CProjectLock() = default;

CProjectLock::~CProjectLock() = default;

bool CProjectLock::Take(const QString& path)
{
    Release();
    auto handle = Patiently(path);
    if (handle->state != State::Free)
        return false;
    handle_ = std::move(handle);
    return true;
}

void CProjectLock::Release()
{
    handle_.reset();
}

bool CProjectLock::IsHeld() const
{
    return handle_ != nullptr;
}

CProjectLock::State CProjectLock::Look(const QString& path)
{
    return Handle(path).state;
}

CProjectLock::State CProjectLock::LookPatiently(const QString& path)
{
    return Patiently(path)->state;
}

} // namespace sbd
