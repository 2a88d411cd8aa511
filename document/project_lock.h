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

    /// Takes the lock; false if somebody else holds it or the file cannot be opened. What was held before is let go.
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

private:
    struct Handle;
    std::unique_ptr<Handle> handle_;
};

} // namespace sbd
