#include "upperview/chk_page.h"

#include "document/section_doc.h"
#include "project/text.h"
#include "upperview/paper.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QPainter>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;
using namespace literals;

namespace {

constexpr qint64 kMostBytes = 2 << 20;      // read anew at each repaint
constexpr std::size_t kMostLines = 100'000; // a file of line ends alone would be millions
constexpr std::size_t kMostLineBytes = 1000;
constexpr std::size_t kHeadSteps = 2; // lines above the report
constexpr unsigned kBlue = 0xFF0000;
constexpr unsigned kRed = 0xFF;

struct ChkRun {
    int block;
    EngineRun run;
    bool runsWhenFresh;
    QStringView question;
};

constexpr ChkRun kRuns[] = {
    {254, EngineRun::Check, false,
     u"データに修正があり，チェック方法を選択してください：\n\n"
     u"\t はい：　　　　データを保存し，チェックを行います．\n"
     u"\t キャンセル：　チェックを行いません．"},
    {255, EngineRun::Main, true,
     u"データに修正があり，解析実行方法を選択してください：\n\n"
     u"\t はい：　　　　データを保存し，解析実行を行います．\n"
     u"\t キャンセル：　解析実行を行いません．"},
    {256, EngineRun::Result, true,
     u"データに修正があり，解析実行＆出力方法を選択してください：\n\n"
     u"\t はい：　　　　データを保存し，解析実行＆出力を行います．\n"
     u"\t キャンセル：　解析実行＆出力を行いません．"},
};

bool IsSeparator([[maybe_unused]] const QString& path, QChar c)
{
#ifndef Q_OS_WIN
    if (path.startsWith(u'/'))
        return c == u'/'; // a backslash is part of a name
#endif
    return c == u'/' || c == u'\\';
}

/// Seconds: a run that writes the project and its report at once leaves neither of them newer.
qint64 TimeOf(const QString& path)
{
    const QFileInfo info(path);
    return info.exists() ? info.lastModified().toSecsSinceEpoch() : 0;
}

/// At most `kMostLineBytes` of a line, whole characters.
std::string Shortened(std::string line)
{
    if (line.size() <= kMostLineBytes)
        return line;
    std::size_t end = 0;
    while (end + CharacterLength(line, end) <= kMostLineBytes)
        end += CharacterLength(line, end);
    line.resize(end);
    return line + "…"_cp932;
}

/// A line as it can be painted: what is no character becomes a mark, what is no sign a blank.
QString Visible(std::string_view line)
{
    QString text = toQString(line);
    for (QChar& c : text) {
        if (c.isSurrogate())
            c = QChar(QChar::ReplacementCharacter);
        else if (c < u' ' || c == QChar(0x7F))
            c = u' ';
    }
    return text;
}

} // namespace

QString ChkPath(const QString& projectPath)
{
    qsizetype nameAt = projectPath.size();
    while (nameAt > 0 && !IsSeparator(projectPath, projectPath[nameAt - 1]))
        --nameAt;
    const qsizetype point = projectPath.lastIndexOf(u'.');
    const QString base = point > nameAt ? projectPath.first(point) : projectPath;
    const QChar separator = nameAt > 0 ? projectPath[nameAt - 1] : QChar(u'\\');
    return base + u"_計算結果"_s + separator + base.mid(nameAt) + u".CHK"_s;
}

bool IsChkStale(const QString& projectPath, bool modified)
{
    return modified || TimeOf(projectPath) > TimeOf(ChkPath(projectPath));
}

ChkText ReadChkText(const QString& chkPath)
{
    QFile file(chkPath);
    // A folder or a pipe of that name is no report.
    if (!QFileInfo(chkPath).isFile() || !file.open(QFile::ReadOnly))
        return {};
    const QByteArray bytes = file.read(kMostBytes);
    ChkText text = SplitChkText({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    text.cut = text.cut || !file.atEnd();
    return text;
}

ChkText SplitChkText(std::string_view bytes)
{
    ChkText text;
    text.opened = true;
    while (!bytes.empty()) {
        if (text.lines.size() == kMostLines) {
            text.cut = true;
            break;
        }
        const std::size_t end = bytes.find('\n');
        std::string_view line = bytes.substr(0, end);
        if (line.ends_with('\r'))
            line.remove_suffix(1);
        text.lines.push_back(Shortened(std::string(line)));
        bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
    }
    return text;
}

std::vector<ChkLine> ChkPageLines(const ChkPage& page)
{
    if (!page.hasPath)
        return {{"ファイルを開いてからダブルクリックし実行してください．"_cp932, kRed, 100, -30, 0}};
    std::vector<ChkLine> lines;
    std::string first =
        page.stale ? "データに修正があります or 計算結果は古いです．再実行を薦めます．"_cp932 : std::string();
    if (!page.lastRun.empty())
        first += (first.empty() ? std::string() : "　"_cp932) + page.lastRun;
    if (!first.empty())
        lines.push_back({first, kBlue, 100, -10, 0});
    lines.push_back({"[254][255][256]: 再実行する場合，ダブルクリックしてください．"_cp932, kBlue, 100, -10, 1});
    if (!page.text.opened)
        return lines;
    int steps = static_cast<int>(kHeadSteps);
    for (const std::string& line : page.text.lines)
        lines.push_back({line, kRed, 100, -10, steps++});
    if (page.block == 254 && page.text.lines.size() <= 1)
        lines.push_back({"Error = 0", kRed, 100, -10, steps++});
    if (page.text.cut)
        lines.push_back({"(ファイルが大きいため，この先は表示していません)"_cp932, kBlue, 100, -10, steps++});
    return lines;
}

double ChkLineStep(const QFontMetricsF& metrics)
{
    return metrics.height() + 2 * metrics.leading();
}

QSizeF ChkPageSize(const std::vector<ChkLine>& lines, const QFontMetricsF& metrics)
{
    constexpr double margin = 50;
    QSizeF size(0, 0);
    std::size_t longest = 0;
    for (const ChkLine& line : lines) {
        longest = std::max(longest, line.text.size());
        size = size.expandedTo({line.x + margin, -line.y + (line.steps + 1) * ChkLineStep(metrics)});
    }
    // The pages' fonts have one width: a byte is half a square.
    size.rwidth() += static_cast<double>(longest) * metrics.horizontalAdvance(u'A');
    return size;
}

void PaintChkPage(QPainter& painter, const std::vector<ChkLine>& lines, const QRectF& visible)
{
    const QFontMetricsF metrics(painter.font(), painter.device());
    const double step = ChkLineStep(metrics);
    for (const ChkLine& line : lines) {
        const double top = -line.y + line.steps * step;
        if (top + step < visible.top() || top > visible.bottom())
            continue;
        const QColor colour(static_cast<int>(line.colour & 0xFF), static_cast<int>(line.colour >> 8 & 0xFF),
                            static_cast<int>(line.colour >> 16 & 0xFF));
        painter.setPen(Ink(colour, painter.background().color()));
        painter.drawText(QPointF(line.x, top + metrics.ascent()), Visible(line.text));
    }
}

ChkRange ChkLinesWithin(const std::vector<ChkLine>& lines, double top, double bottom, const QFontMetricsF& metrics)
{
    const double step = ChkLineStep(metrics);
    const auto topOf = [step](const ChkLine& line) { return -line.y + line.steps * step; };
    const auto first = std::ranges::lower_bound(lines, top - step, {}, topOf);
    const auto end = std::ranges::upper_bound(lines, bottom, {}, topOf);
    const auto index = [&lines](auto place) { return static_cast<std::size_t>(place - lines.begin()); };
    return {index(first), std::max(index(first), index(end))};
}

QRectF ChkTextRect(const ChkLine& line, const QFontMetricsF& metrics)
{
    const QString text = Visible(line.text);
    qsizetype start = 0;
    while (start < text.size() && text[start].isSpace())
        ++start;
    const double from = metrics.horizontalAdvance(text.first(start));
    const double width = metrics.horizontalAdvance(text.mid(start).trimmed());
    return {line.x + from, -line.y + line.steps * ChkLineStep(metrics), width, metrics.height()};
}

std::optional<std::size_t> ReportLineOf(const ChkLine& line, const ChkText& text)
{
    const auto index = static_cast<std::size_t>(line.steps) - kHeadSteps;
    return line.steps < static_cast<int>(kHeadSteps) || index >= text.lines.size() ? std::nullopt
                                                                                   : std::optional(index);
}

std::optional<WantedRun> RunToPost(int block, bool runOnShow, bool stale, bool chkExists)
{
    const auto* const run = std::ranges::find(kRuns, block, &ChkRun::block);
    if (run == std::end(kRuns) || !runOnShow || !chkExists || (!stale && !run->runsWhenFresh))
        return std::nullopt;
    return WantedRun{run->run, stale ? run->question.toString() : QString()};
}

} // namespace sbd
