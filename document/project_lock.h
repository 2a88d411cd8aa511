// Holding a project file, so that nobody else takes it while it is in the editor.
#pragma once

#include <QString>

#include <memory>

namespace sbd {

/// Holds one file. On Windows by its sharing mode, elsewhere by an advisory lock that every copy of this program
/// asks for. The lock goes away with the process, whatever way that ends. It belongs to the file that stands there
/// when it is taken: a file that is replaced has to be locked again.
class CProjectLock {
public:
    CProjectLock();
    ~CProjectLock();
    CProjectLock(const CProjectLock&) = delete;
    CProjectLock& operator=(const CProjectLock&) = delete;

    /// How long somebody's glance at a file may last: a second copy of this program, a virus scanner. In ms.
    static constexpr int kGlance = 200;

    /// Takes the lock, if need be when a glance of somebody else is over; false if somebody holds it or the file cannot
    /// be opened. What was held before is let go.
    bool Take(const QString& path);
    void Release();
    [[nodiscard]] bool IsHeld() const;

    /// What a look at a file's lock tells.
    enum class State {
        Free,
        Held,     ///< by somebody else
        NotFound, ///< no such file
        Failed,   ///< it cannot be opened at all
    };
    [[nodiscard]] static State Look(const QString& path);
    /// The same, but what is held a moment only is not held: before a user is told.
    [[nodiscard]] static State LookPatiently(const QString& path);

private:
    struct Handle;
    static std::unique_ptr<Handle> Patiently(const QString& path);
    std::unique_ptr<Handle> handle_;
};

} // namespace sbd
