#include "app/version_record.h"

#include "document/section_doc.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryFile>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kRecordName = u"KELD_VERSION.txt"_s;

QByteArray ToBytes(const QString& text)
{
    return QByteArray::fromStdString(fromQString(text).value_or(std::string()));
}

/// A line without its end; nothing at the end of the file.
std::optional<QString> ReadLine(QFile& file)
{
    constexpr qint64 longest = 1024;
    if (file.atEnd())
        return std::nullopt;
    QByteArray line = file.readLine(longest);
    while (line.endsWith('\n') || line.endsWith('\r'))
        line.chop(1);
    return toQString(line.toStdString());
}

bool IsDay(const QString& line, QDate day)
{
    static const QRegularExpression form(u"^\\s*(\\d{1,4})\\s+(\\d{1,2})\\s+(\\d{1,2})"_s);
    const QRegularExpressionMatch match = form.match(line);
    return QDate(match.captured(1).toInt(), match.captured(2).toInt(), match.captured(3).toInt()) == day;
}

} // namespace

QString UpToDateText()
{
    return u" ← 最新版KELD"_s;
}

QString OutdatedText()
{
    return u"　← 現在の KELD は最新版ではありません！"_s;
}

QString NoAnswerText(QTime time)
{
    return u"　最新版確認できません．インターネット接続エラー (%1時%2分%3秒)\n"_s.arg(time.hour())
        .arg(time.minute())
        .arg(time.second());
}

std::optional<QString> VersionOnPage(const QByteArray& page)
{
    constexpr qsizetype length = 11;
    const qsizetype start = page.indexOf("Ver2");
    if (start < 0)
        return std::nullopt;
    static const QRegularExpression form(u"^Ver[0-9]{8}$"_s);
    const QString version = QString::fromLatin1(page.mid(start, length));
    return form.match(version).hasMatch() ? std::optional(version) : std::nullopt;
}

QString VersionRecordFolder(const QString& systemFolder, const QString& userFolder)
{
    if (systemFolder.isEmpty())
        return userFolder;
    // A record of another user may stand there and not be ours to write.
    QFile record(QDir(systemFolder).filePath(kRecordName));
    QTemporaryFile trial(QDir(systemFolder).filePath(u"KELD_VERSION.XXXXXX"_s));
    const bool mayWrite = trial.open() && (!record.exists() || record.open(QFile::ReadWrite));
    return mayWrite ? systemFolder : userFolder;
}

CVersionRecord::CVersionRecord(const QString& folder) : file_(QDir(folder).filePath(kRecordName)) {}

std::optional<QString> CVersionRecord::Take(QDate today) const
{
    QFile file(file_);
    if (!file.open(QFile::ReadOnly))
        return std::nullopt;
    std::optional<QString> result;
    if (const std::optional<QString> day = ReadLine(file); day && IsDay(*day, today)) {
        if (ReadLine(file)) // the version
            result = ReadLine(file);
    }
    file.close();
    file.remove();
    return result;
}

bool CVersionRecord::Write(QDate today, const QString& version, const QString& result) const
{
    QFile file(file_);
    if (!file.open(QFile::WriteOnly))
        return false;
    const QString text =
        u"%1 %2 %3\n"_s.arg(today.year()).arg(today.month()).arg(today.day()) + version + u'\n' + result;
    const QByteArray bytes = ToBytes(text);
    return file.write(bytes) == bytes.size() && file.flush();
}

} // namespace sbd
