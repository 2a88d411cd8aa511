// Kept inputs: the project as it was before a run, or before it was replaced.
#pragma once

#include "document/run_end.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <string_view>

namespace sbd {

/// Why an input was kept.
enum class KeptKind {
    Check, ///< the five runs: the file as the engine got it
    Main,
    Result,
    Cross,
    Support,
    Unsaved,     ///< what a check did not see: changes that were not saved
    Replaced,    ///< the file of a project that was begun anew
    Overwritten, ///< the file of somebody else that a save has replaced
    Other,       ///< the record cannot be read, or is of a newer version
};
/// As a list calls it.
[[nodiscard]] QString KeptKindText(KeptKind kind);

/// One kept input: a project file of its own with a record beside it.
struct KeptInput {
    QString file;
    QString project; ///< path of the project it is of; empty where the record does not say
    QDateTime time;
    KeptKind kind = KeptKind::Other;
    RunEnd end;
    QDateTime endTime = {}; ///< of the run; invalid: it is not known
    bool settled = false;   ///< the user knows of it, and wants no word of it any more
};

/// How much is kept.
struct KeptLimits {
    int inputs = 10;                   ///< a project
    qint64 bytes = 50LL * 1024 * 1024; ///< together
};

/// The folder of the kept inputs: in the user's state folder.
[[nodiscard]] QString KeptFolder();

/// Keeps `bytes` as the input of a project, and lets the oldest ones go. The file's path, or nothing if the folder takes
/// none (full, read-only, larger than all that may be kept). Records of a newer version are neither read nor removed.
[[nodiscard]] QString KeepInput(const QString& project, std::string_view bytes, KeptKind kind,
                                const QString& folder = KeptFolder(), const KeptLimits& limits = {});

/// Writes down how the run of a kept input has ended.
void SetKeptEnd(const QString& file, const RunEnd& end);

/// The user knows of this one.
void SettleKeptInput(const QString& file);

/// How the last run of a project has ended, as a line of a report page: "解析実行 2026/11/22 10:15:00: 終了 (報告なし)". Empty:
/// no input of a run is kept.
[[nodiscard]] QString LastRunText(const QString& project, const QString& folder = KeptFolder());
/// The same of a run that is known. `time` is that of its end.
[[nodiscard]] QString RunText(KeptKind kind, const QDateTime& time, const RunEnd& end);

/// Removes one that stands for nothing: its run did not begin.
void RemoveKeptInput(const QString& file);

/// The inputs of a project, newest first, and those whose record does not say of which project they are.
[[nodiscard]] QList<KeptInput> KeptInputsOf(const QString& project, const QString& folder = KeptFolder());

} // namespace sbd
