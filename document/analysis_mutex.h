// The mutex that the analysis program and the runs of the engines share.
#pragma once

#include <QString>

#include <memory>

namespace sbd {

/// Where the mutex is kept on systems whose mutexes have no names: the user's run-time folder.
[[nodiscard]] QString AnalysisMutexFolder();

/// Stands while one of its holders lives, in whatever process; goes away with the last one. Never waits.
class CAnalysisMutex {
public:
    /// Creates the mutex or joins those who hold it. `folder` is of no use on Windows.
    explicit CAnalysisMutex(const QString& folder = AnalysisMutexFolder());
    ~CAnalysisMutex();
    CAnalysisMutex(const CAnalysisMutex&) = delete;
    CAnalysisMutex& operator=(const CAnalysisMutex&) = delete;

    /// Somebody held it already. False too if it could not be created.
    [[nodiscard]] bool Existed() const;

private:
    struct Handle;
    std::unique_ptr<Handle> handle_;
};

} // namespace sbd
