#include "document/engine_command.h"

#include <QDir>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr auto kMainEngine = "HOLM4_W_GIRDER_SECTION.exe"_L1;

constexpr EngineRunInfo kRuns[] = {
    {EngineRun::Check, Command::CheckData, 254, kMainEngine, " CHECK"_L1, true, false},
    {EngineRun::Main, Command::RunAll, 255, kMainEngine, " RUN"_L1, true, true},
    {EngineRun::Result, Command::RunAndPrint, 256, kMainEngine, " RESULT"_L1, true, true},
    {EngineRun::Cross, Command::ShowCrossResults, 0, "HOLM4_W_CROSS.exe"_L1, {}, false, true},
    {EngineRun::Support, Command::ShowSupportResults, 0, "KELD_Support_Stiff_Diaphragm.exe"_L1, {}, false, true},
};

} // namespace

std::span<const EngineRunInfo> EngineRuns()
{
    return kRuns;
}

const EngineRunInfo& InfoOf(EngineRun run)
{
    return kRuns[static_cast<std::size_t>(run)];
}

std::optional<EngineRun> RunOfBlock(int block)
{
    const auto* const row = std::ranges::find(kRuns, block, &EngineRunInfo::block);
    return block == 0 || row == std::end(kRuns) ? std::nullopt : std::optional(row->run);
}

QString EngineMissingMessage(EngineRun run)
{
    return InfoOf(run).engine + u"は存在しないか別のフォルダにあるか，解析できません．"_s;
}

QString EnginePath(EngineRun run, const QString& programFolder)
{
    return QDir::toNativeSeparators(QDir(programFolder).filePath(InfoOf(run).engine));
}

QString EngineArguments(EngineRun run, const QString& projectPath)
{
    const EngineRunInfo& info = InfoOf(run);
    QString text = u" \""_s + projectPath;
    if (info.closingQuote)
        text += u'"';
    return text + info.argument;
}

QString EngineCommandLine(EngineRun run, const QString& enginePath, const QString& projectPath)
{
    return enginePath + EngineArguments(run, projectPath);
}

QStringList SplitWindowsArguments(QStringView text)
{
    QStringList arguments;
    qsizetype pos = 0;
    const auto isBlank = [](QChar c) { return c == u' ' || c == u'\t'; };
    while (true) {
        while (pos < text.size() && isBlank(text[pos]))
            ++pos;
        if (pos >= text.size())
            return arguments;
        QString argument;
        bool quoted = false;
        while (pos < text.size() && (quoted || !isBlank(text[pos]))) {
            qsizetype backslashes = 0;
            while (pos < text.size() && text[pos] == u'\\') {
                ++backslashes;
                ++pos;
            }
            const bool beforeQuote = pos < text.size() && text[pos] == u'"';
            argument += QString(beforeQuote ? backslashes / 2 : backslashes, u'\\');
            if (beforeQuote && backslashes % 2 == 1) {
                argument += u'"';
                ++pos;
            } else if (beforeQuote && quoted && pos + 1 < text.size() && text[pos + 1] == u'"') {
                argument += u'"'; // two quotes inside quotes
                pos += 2;
            } else if (beforeQuote) {
                quoted = !quoted;
                ++pos;
            } else if (pos < text.size() && (quoted || !isBlank(text[pos]))) {
                argument += text[pos++];
            }
        }
        arguments += argument;
    }
}

} // namespace sbd
