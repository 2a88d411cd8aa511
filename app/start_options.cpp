#include "app/start_options.h"

#include "project/catalogue.h"

#include <QCommandLineParser>
#include <QRegularExpression>

#include <algorithm>
#include <array>
#include <string_view>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kHelp = u"help"_s;
const auto kVersion = u"version"_s;
const auto kScreenshot = u"screenshot"_s;
const auto kBlock = u"block"_s;
const auto kCell = u"cell"_s;
const auto kSize = u"size"_s;

constexpr int kLeastSize = 200;    // px
constexpr int kLargestSize = 8192; // px, a picture of 268 MB

void Describe(QCommandLineParser& parser)
{
    parser.setApplicationDescription(u"鋼橋上部工 自動設計システム 入力ステーション"_s);
    parser.addPositionalArgument(u"project"_s, u"開くプロジェクトファイル (*.sbd)"_s, u"[project.sbd ...]"_s);
    parser.addOption({{u"h"_s, kHelp}, u"この説明を表示して終了します。"_s});
    parser.addOption({{u"v"_s, kVersion}, u"バージョンを表示して終了します。"_s});
    parser.addOption({kScreenshot, u"ウィンドウを表示せずに PNG ファイルに描いて終了します。"_s, u"file"_s});
    parser.addOption({kBlock, u"表示するブロックの番号 (例: 313)"_s, u"number"_s});
    parser.addOption({kCell, u"カーソルを置くセルの行と列 (例: 3,6)"_s, u"row,column"_s});
    parser.addOption({kSize, u"--screenshot のウィンドウの大きさ (既定: 1366x768)"_s, u"WxH"_s});
}

QString ReadBlock(const QString& text, StartOptions& options)
{
    bool isNumber = false;
    options.block = text.toInt(&isNumber);
    if (!isNumber || PanelOfBlock(options.block).empty())
        return u"--block %1: このブロックはありません。"_s.arg(text);
    return {};
}

QString ReadCell(const QString& text, StartOptions& options)
{
    static const QRegularExpression form(u"^([1-9]\\d{0,5}),([1-9]\\d{0,2})$"_s);
    const QRegularExpressionMatch match = form.match(text);
    if (!match.hasMatch())
        return u"--cell %1: 3,6 のように行と列を 1 からの番号で指定してください。"_s.arg(text);
    options.row = match.captured(1).toInt();
    options.column = match.captured(2).toInt();
    return {};
}

QString ReadSize(const QString& text, StartOptions& options)
{
    static const QRegularExpression form(u"^(\\d{1,5})x(\\d{1,5})$"_s);
    const QRegularExpressionMatch match = form.match(text);
    options.size = {match.captured(1).toInt(), match.captured(2).toInt()};
    const auto [least, most] = std::minmax({options.size.width(), options.size.height()});
    if (!match.hasMatch() || least < kLeastSize || most > kLargestSize)
        return u"--size %1: 1366x768 のように %2 から %3 までの数で指定してください。"_s.arg(text)
            .arg(kLeastSize)
            .arg(kLargestSize);
    return {};
}

} // namespace

StartOptions ReadStartOptions(const QStringList& arguments)
{
    QCommandLineParser parser;
    Describe(parser);
    StartOptions options;
    if (!parser.parse(arguments)) {
        options.error = parser.errorText();
        return options;
    }
    options.help = parser.isSet(kHelp);
    options.version = parser.isSet(kVersion);
    options.projects = parser.positionalArguments();
    options.screenshot = parser.value(kScreenshot);
    if (parser.isSet(kScreenshot) && options.screenshot.isEmpty())
        options.error = u"--screenshot: ファイル名を指定してください。"_s;
    if (options.error.isEmpty() && parser.isSet(kBlock))
        options.error = ReadBlock(parser.value(kBlock), options);
    if (options.error.isEmpty() && parser.isSet(kCell))
        options.error = ReadCell(parser.value(kCell), options);
    if (options.error.isEmpty() && parser.isSet(kSize))
        options.error = ReadSize(parser.value(kSize), options);
    return options;
}

QString StartHelp()
{
    QCommandLineParser parser;
    Describe(parser);
    return parser.helpText();
}

bool NeedsNoScreen(int argc, char** argv)
{
    constexpr std::array<std::string_view, 5> words = {"--screenshot", "--help", "-h", "--version", "-v"};
    return std::any_of(argv + std::min(argc, 1), argv + argc, [&](std::string_view argument) {
        return std::ranges::count(words, argument.substr(0, argument.find('='))) != 0;
    });
}

} // namespace sbd
