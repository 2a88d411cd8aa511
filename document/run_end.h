// How a run has ended.
#pragma once

#include <QString>

namespace sbd {

enum class RunEndKind {
    Unknown,    ///< it has not ended, or our program did before it
    Report,     ///< with a report
    NoReport,   ///< without one
    ExitCode,   ///< with a code that is not 0
    Fault,      ///< by a signal, or on Windows by an exception
    Cancelled,  ///< by the user
    NotStarted, ///< it never began
    Held,       ///< something still holds the project's file
};

struct RunEnd {
    RunEndKind kind = RunEndKind::Unknown;
    int code = 0;   ///< exit code, number of the signal or of the exception
    int errors = 0; ///< in the report, as far as it says
    int warnings = 0;
    friend bool operator==(const RunEnd&, const RunEnd&) = default;
};

/// "異常終了 (シグナル 11: SIGSEGV)", as a line of a list.
[[nodiscard]] QString RunEndText(const RunEnd& end);

/// True for a line that tells of a run (LastRunText) which went to its end by itself, with a report or without.
[[nodiscard]] bool TellsOfAWholeRun(const QString& line);

/// The word of an end in a record, and back; Unknown for a word that is none.
[[nodiscard]] QString RunEndWord(RunEndKind kind);
[[nodiscard]] RunEndKind RunEndOfWord(const QString& word);

} // namespace sbd
