// Recovery copies: what a crash would take with it.
#pragma once

#include <QDateTime>
#include <QList>
#include <QString>

#include <memory>
#include <string_view>

namespace sbd {

class CProcessLock;

/// One copy that a crashed session left.
struct RecoveryCopy {
    QString file;    ///< the copy, a project file of its own
    QString project; ///< path of the project it was made of; empty: a project that was never saved
    QDateTime time;  ///< when it was made
};

/// The user's folder for what the program keeps from start to start: below XDG_STATE_HOME, on Windows the local
/// application data.
[[nodiscard]] QString StateFolder();

/// The folder of the recovery copies: in the state folder, never beside a project.
[[nodiscard]] QString RecoveryFolder();

/// The recovery copy of one document. Its name begins with the time of its first write (UTC), so that names sort by
/// time. While it lives it holds a lock, so that another process can tell a copy in use
/// from one that a crash left. Removed at a clean end by Discard().
class CRecoveryCopy {
public:
    explicit CRecoveryCopy(const QString& folder = RecoveryFolder());
    ~CRecoveryCopy();
    CRecoveryCopy(const CRecoveryCopy&) = delete;
    CRecoveryCopy& operator=(const CRecoveryCopy&) = delete;

    /// Puts `bytes` in place of the copy; false if the folder takes none (full, read-only).
    bool Write(const QString& project, std::string_view bytes);
    /// Path of the copy if there is one.
    [[nodiscard]] QString File() const { return written_ ? file_ : QString(); }
    /// Removes the copy.
    void Discard();

private:
    bool Prepare();

    QString folder_;
    QString file_;
    std::unique_ptr<CProcessLock> lock_;
    bool written_ = false;
};

/// The copies that no living process holds, newest first.
[[nodiscard]] QList<RecoveryCopy> FindRecoveryCopies(const QString& folder = RecoveryFolder());

/// Removes a copy that the user does not want, or has taken over.
void RemoveRecoveryCopy(const RecoveryCopy& copy);

} // namespace sbd
