// A lock file that stands for a living process.
#pragma once

#include <QLockFile>
#include <QString>

namespace sbd {

/// Holds a lock file as long as it lives and has not let go. A file that a process left which has ended is in nobody's
/// way. Not even one with our own process number, which systems give again: in a container and after a restart often
/// at once.
class CProcessLock {
public:
    explicit CProcessLock(const QString& file);
    ~CProcessLock();
    CProcessLock(const CProcessLock&) = delete;
    CProcessLock& operator=(const CProcessLock&) = delete;

    enum class Result {
        Taken,
        Held,   ///< by another process, or by another object of this one
        Failed, ///< the folder takes no lock file
    };
    [[nodiscard]] Result Take();

private:
    [[nodiscard]] bool IsOfAnEarlierProcess() const;

    QString file_;
    QLockFile lock_;
};

} // namespace sbd
