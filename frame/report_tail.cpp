#include "frame/report_tail.h"

#include "document/section_doc.h"

#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <limits>
#include <optional>
#include <utility>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kSample = 256;      // bytes that tell whether a report goes on behind that of before
constexpr qint64 kPiece = 64 * 1024; // bytes at one look
constexpr qsizetype kLongest = 1000; // bytes of a line as it is shown

QByteArray ReadPiece(const QString& path, qint64 begin, qint64 count)
{
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QFile::ReadOnly) || !file.seek(begin))
        return {};
    return file.read(count);
}

/// A line as it can be shown: what is no sign becomes a blank.
QString Shown(QByteArray line)
{
    if (line.endsWith('\r'))
        line.chop(1);
    QString text = toQString({line.constData(), static_cast<std::size_t>(std::min(line.size(), kLongest))});
    for (QChar& c : text) {
        if (c.isSurrogate())
            c = QChar(QChar::ReplacementCharacter);
        else if (c < u' ' || c == QChar(0x7F))
            c = u' ';
    }
    return text;
}

/// The number behind `word` and "=", if the line says one.
std::optional<int> NumberBehind(const QString& line, const QString& word)
{
    const qsizetype at = line.indexOf(word, 0, Qt::CaseInsensitive);
    if (at < 0)
        return std::nullopt;
    QString rest = line.mid(at + word.size());
    if (rest.startsWith(u's', Qt::CaseInsensitive))
        rest.remove(0, 1);
    rest = rest.trimmed();
    if (!rest.startsWith(u'=') && !rest.startsWith(u'＝') && !rest.startsWith(u':') && !rest.startsWith(u'：'))
        return std::nullopt;
    bool isNumber = false;
    const int number = rest.mid(1).trimmed().section(u' ', 0, 0).toInt(&isNumber);
    return isNumber && number >= 0 ? std::optional(number) : std::nullopt;
}

/// A word of a report in its two languages, and the same as bytes of CP932.
struct ReportWord {
    QString english;
    QString japanese;
    std::string japaneseBytes;
};

char LowerCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
}

/// Counts by words; a number that the report gives itself is the better one.
class WordCount {
public:
    explicit WordCount(ReportWord word) : word_(std::move(word)) {}

    void Add(std::string_view bytes)
    {
        if (!MaySpeak(bytes))
            return;
        const QString line = toQString(bytes);
        std::optional<int> number = NumberBehind(line, word_.english);
        if (!number)
            number = NumberBehind(line, word_.japanese);
        if (number)
            told_ = Sum(told_.value_or(0), *number);
        else if (line.contains(word_.english, Qt::CaseInsensitive) || line.contains(word_.japanese))
            count_ = Sum(count_, 1);
    }
    [[nodiscard]] int Count() const { return told_.value_or(count_); }

private:
    /// A look at the bytes, since a report may have millions of lines; what it lets through is looked at again.
    [[nodiscard]] bool MaySpeak(std::string_view bytes) const
    {
        const auto isSame = [](char c, QChar of) { return QChar(QLatin1Char(LowerCase(c))) == of; };
        return std::ranges::search(bytes, word_.english, isSame).begin() != bytes.end()
               || bytes.find(word_.japaneseBytes) != std::string_view::npos;
    }
    [[nodiscard]] static int Sum(int a, int b) { return a > std::numeric_limits<int>::max() - b ? a : a + b; }

    ReportWord word_;
    int count_ = 0;
    std::optional<int> told_;
};

class ReportCounter {
public:
    void Add(std::string_view line)
    {
        errors_.Add(line);
        warnings_.Add(line);
    }
    [[nodiscard]] ReportCount Count() const { return {errors_.Count(), warnings_.Count()}; }

private:
    static ReportWord Word(const QString& english, const QString& japanese)
    {
        return {english, japanese, fromQString(japanese).value_or(std::string())};
    }
    WordCount errors_{Word(u"error"_s, u"エラー"_s)};
    WordCount warnings_{Word(u"warning"_s, u"警告"_s)};
};

} // namespace

CReportTail::CReportTail(QString path) : path_(std::move(path)), seen_(LookAt(path_))
{
    sizeBefore_ = seen_.isThere ? static_cast<qint64>(seen_.size) : 0;
    const qint64 begin = std::max<qint64>(sizeBefore_ - kSample, 0);
    endBefore_ = ReadPiece(path_, begin, sizeBefore_ - begin);
}

/// A report that goes on behind the old one begins there, any other at its begin.
void CReportTail::FindBegin(const FileLook& look)
{
    const qint64 begin = sizeBefore_ - endBefore_.size();
    const bool goesOn = sizeBefore_ > 0 && static_cast<qint64>(look.size) > sizeBefore_
                        && ReadPiece(path_, begin, endBefore_.size()) == endBefore_;
    read_ = goesOn ? sizeBefore_ : 0;
}

QStringList CReportTail::NewLines()
{
    const FileLook look = LookAt(path_);
    if (!look.isThere || look == seen_)
        return {};
    seen_ = look;
    const auto size = static_cast<qint64>(look.size);
    if (read_ < 0)
        FindBegin(look);
    QStringList lines;
    if (size < read_) { // begun anew
        read_ = 0;
        open_.clear();
    }
    if (size - read_ > kPiece) {
        read_ = size - kPiece;
        open_.clear();
        lines.append(u"…"_s);
    }
    QByteArray piece = open_ + ReadPiece(path_, read_, size - read_);
    read_ = size;
    qsizetype begin = 0;
    for (qsizetype end = piece.indexOf('\n'); end >= 0; end = piece.indexOf('\n', begin)) {
        lines.append(Shown(piece.mid(begin, end - begin)));
        begin = end + 1;
    }
    open_ = piece.mid(begin);
    if (open_.size() > kPiece) { // a file without line ends
        lines.append(Shown(open_));
        open_.clear();
    }
    return lines;
}

ReportCount CountReport(const QString& path)
{
    constexpr qint64 piece = 1 << 20;
    constexpr qsizetype longest = 64 * 1024; // bytes of a line; a longer one counts as several
    QFile file(path);
    if (!QFileInfo(path).isFile() || !file.open(QFile::ReadOnly))
        return {};
    ReportCounter counter;
    QByteArray bytes; // from the begin of a line
    for (qint64 left = file.size(); left > 0;) {
        const QByteArray next = file.read(std::min(left, piece));
        if (next.isEmpty())
            break;
        left -= next.size();
        bytes += next;
        qsizetype begin = 0;
        for (qsizetype end = bytes.indexOf('\n'); end >= 0; end = bytes.indexOf('\n', begin)) {
            counter.Add({bytes.constData() + begin, static_cast<std::size_t>(end - begin)});
            begin = end + 1;
        }
        for (; bytes.size() - begin > longest; begin += longest)
            counter.Add({bytes.constData() + begin, static_cast<std::size_t>(longest)});
        bytes = bytes.mid(begin);
    }
    counter.Add({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    return counter.Count();
}

ReportCount CountReport(const std::vector<std::string>& lines)
{
    ReportCounter counter;
    for (const std::string& line : lines)
        counter.Add(line);
    return counter.Count();
}

} // namespace sbd
