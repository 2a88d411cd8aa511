// The five engine runs, and the command lines that start them.
#pragma once

#include "commands/commands.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <span>

namespace sbd {

enum class EngineRun {
    Check,   ///< data check
    Main,    ///< run
    Result,  ///< run and print
    Cross,   ///< cross beam results
    Support, ///< support stiffener and diaphragm results
};

/// One run. Texts are ASCII.
struct EngineRunInfo {
    EngineRun run;
    Command command;            ///< menu command
    int block;                  ///< block of the tree and the data menu that stands for the run; 0: none
    QLatin1StringView engine;   ///< file name of the program, beside our own
    QLatin1StringView argument; ///< behind the quoted path, with its blank; empty: none
    bool closingQuote;          ///< the path's closing quote stands; two engines are started without it, as they expect
    bool savesChanges;          ///< a modified project is saved first; a check sees the file as it stands on disk
};

/// The five runs in the order of EngineRun.
[[nodiscard]] std::span<const EngineRunInfo> EngineRuns();
[[nodiscard]] const EngineRunInfo& InfoOf(EngineRun run);
/// The run that a block of the data menu stands for (254, 255, 256), or nothing.
[[nodiscard]] std::optional<EngineRun> RunOfBlock(int block);

/// What is told when the engine cannot be started.
[[nodiscard]] QString EngineMissingMessage(EngineRun run);

/// The engine's place: in the program's own folder.
[[nodiscard]] QString EnginePath(EngineRun run, const QString& programFolder);

/// What stands behind the engine's path: a blank, the quoted project path, the argument.
[[nodiscard]] QString EngineArguments(EngineRun run, const QString& projectPath);

/// The whole command line: the engine's path and its arguments.
[[nodiscard]] QString EngineCommandLine(EngineRun run, const QString& enginePath, const QString& projectPath);

/// Arguments as a Windows program would find them in its command line, for systems that start programs by a list:
/// blanks and tabs divide, quotes hold together, 2n backslashes before a quote are n, one more makes the quote a plain
/// one, two quotes inside quotes are one, and an open quote holds to the end. `text` is what stands behind the program.
[[nodiscard]] QStringList SplitWindowsArguments(QStringView text);

} // namespace sbd
