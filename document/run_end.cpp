#include "document/run_end.h"

#include <algorithm>
#include <iterator>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

struct EndRow {
    RunEndKind kind;
    QLatin1StringView word;
    QStringView text;
};

constexpr EndRow kEnds[] = {
    {RunEndKind::Unknown, "unknown"_L1, u"終了を確認できていません"},
    {RunEndKind::Report, "report"_L1, u"終了 (報告あり)"},
    {RunEndKind::NoReport, "no-report"_L1, u"終了 (報告なし)"},
    {RunEndKind::ExitCode, "exit-code"_L1, u"異常終了"},
    {RunEndKind::Fault, "fault"_L1, u"異常終了"},
    {RunEndKind::Cancelled, "cancelled"_L1, u"中止"},
    {RunEndKind::NotStarted, "not-started"_L1, u"起動できませんでした"},
    {RunEndKind::Held, "held"_L1, u"終了後もファイルが使用中"},
};

struct FaultRow {
    unsigned code;
    QStringView name;
};

#ifdef Q_OS_WIN
constexpr FaultRow kFaults[] = {
    {0xC0000005U, u"アクセス違反"},         {0xC000001DU, u"不正な命令"},       {0xC0000094U, u"整数のゼロ除算"},
    {0xC000008EU, u"浮動小数点のゼロ除算"}, {0xC00000FDU, u"スタック不足"},     {0xC0000135U, u"DLL が見つかりません"},
    {0xC0000409U, u"スタックの破壊"},       {0xC0000142U, u"DLL の初期化失敗"},
};
#else
constexpr FaultRow kFaults[] = {
    {1, u"SIGHUP"}, {2, u"SIGINT"},  {3, u"SIGQUIT"},  {4, u"SIGILL"},   {6, u"SIGABRT"},  {7, u"SIGBUS"},
    {8, u"SIGFPE"}, {9, u"SIGKILL"}, {11, u"SIGSEGV"}, {13, u"SIGPIPE"}, {15, u"SIGTERM"}, {24, u"SIGXCPU"},
};
#endif

QString FaultText(int code)
{
    const auto number = static_cast<unsigned>(code);
    const auto* const fault = std::ranges::find(kFaults, number, &FaultRow::code);
    const QString name = fault == std::end(kFaults) ? QString() : u": "_s + fault->name.toString();
#ifdef Q_OS_WIN
    return u" (例外 0x"_s + QString::number(number, 16).toUpper() + name + u')';
#else
    return u" (シグナル "_s + QString::number(code) + name + u')';
#endif
}

} // namespace

QString RunEndText(const RunEnd& end)
{
    const QString text = std::ranges::find(kEnds, end.kind, &EndRow::kind)->text.toString();
    switch (end.kind) {
    case RunEndKind::Report:
        return text + u"　エラー %1 件、警告 %2 件"_s.arg(end.errors).arg(end.warnings);
    case RunEndKind::ExitCode:
        return text + u" (終了コード %1)"_s.arg(end.code);
    case RunEndKind::Fault:
        return text + FaultText(end.code);
    default:
        return text;
    }
}

bool TellsOfAWholeRun(const QString& line)
{
    const auto tellsOf = [&line](RunEndKind kind) {
        return line.contains(u": "_s + RunEndText({kind}).section(u'　', 0, 0));
    };
    return tellsOf(RunEndKind::Report) || tellsOf(RunEndKind::NoReport);
}

QString RunEndWord(RunEndKind kind)
{
    return std::ranges::find(kEnds, kind, &EndRow::kind)->word;
}

RunEndKind RunEndOfWord(const QString& word)
{
    const auto* const row = std::ranges::find(kEnds, word, [](const EndRow& end) { return QString(end.word); });
    return row == std::end(kEnds) ? RunEndKind::Unknown : row->kind;
}

} // namespace sbd
