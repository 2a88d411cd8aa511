#include "document/kept_inputs.h"

#include "document/path.h"
#include "document/recovery.h"
#include "sbdfile/project_file.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QUuid>

#include <algorithm>
#include <functional>
#include <iterator>
#include <map>
#include <optional>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kVersion = 1;
constexpr qint64 kLongestRecord = 64 * 1024;

struct KindRow {
    KeptKind kind;
    QLatin1StringView word;
    QStringView text;
    bool isRun = false;
};

constexpr KindRow kKinds[] = {
    {KeptKind::Check, "check"_L1, u"データのチェック", true},
    {KeptKind::Main, "run"_L1, u"解析実行", true},
    {KeptKind::Result, "result"_L1, u"解析実行＆出力", true},
    {KeptKind::Cross, "cross"_L1, u"横桁・対傾構結果", true},
    {KeptKind::Support, "support"_L1, u"支点補剛材・ダイヤフラム結果", true},
    {KeptKind::Unsaved, "unsaved"_L1, u"チェック前の保存していない入力"},
    {KeptKind::Replaced, "replaced"_L1, u"廃棄したプロジェクト"},
    {KeptKind::Overwritten, "overwritten"_L1, u"上書き前のファイル"},
    {KeptKind::Other, "other"_L1, u"(記録なし)"},
};

// Beside each input NAME.sbd stands NAME.json, its record.
QString RecordOf(const QString& file)
{
    return file.first(file.size() - 4) + u".json"_s;
}

/// One spelling of a project's path.
QString OneProject(const QString& project)
{
    const QString full = QFileInfo(project).absoluteFilePath();
#ifdef Q_OS_WIN
    return full.toCaseFolded();
#else
    return full;
#endif
}

bool WriteRecord(const KeptInput& input)
{
    QJsonObject record{{u"version"_s, kVersion},
                       {u"project"_s, input.project},
                       {u"time"_s, input.time.toUTC().toString(Qt::ISODateWithMs)},
                       {u"kind"_s, QString(std::ranges::find(kKinds, input.kind, &KindRow::kind)->word)},
                       {u"end"_s, RunEndWord(input.end.kind)},
                       {u"code"_s, input.end.code},
                       {u"errors"_s, input.end.errors},
                       {u"warnings"_s, input.end.warnings}};
    if (input.settled)
        record[u"settled"_s] = true;
    if (input.endTime.isValid())
        record[u"ended"_s] = input.endTime.toUTC().toString(Qt::ISODateWithMs);
    const QByteArray bytes = QJsonDocument(record).toJson();
    return ReplaceFileBytes(ToPath(RecordOf(input.file)), {bytes.constData(), static_cast<std::size_t>(bytes.size())})
        .Ok();
}

struct Record {
    KeptInput input;
    bool isNewer = false; ///< written by a newer version of the program: not ours to remove
    qint64 bytes = 0;
};

Record ReadRecord(const QFileInfo& info)
{
    Record record{{info.absoluteFilePath(), {}, info.lastModified(), KeptKind::Other, {}}, false, info.size()};
    QFile file(RecordOf(record.input.file));
    if (!QFileInfo(file.fileName()).isFile() || !file.open(QFile::ReadOnly))
        return record;
    const QJsonObject json = QJsonDocument::fromJson(file.read(kLongestRecord)).object();
    record.isNewer = json[u"version"_s].toInt() > kVersion;
    if (json[u"version"_s].toInt() != kVersion)
        return record;
    KeptInput& input = record.input;
    input.project = json[u"project"_s].toString();
    const QDateTime time = QDateTime::fromString(json[u"time"_s].toString(), Qt::ISODateWithMs);
    if (time.isValid())
        input.time = time.toLocalTime();
    input.settled = json[u"settled"_s].toBool();
    input.endTime = QDateTime::fromString(json[u"ended"_s].toString(), Qt::ISODateWithMs).toLocalTime();
    const QString word = json[u"kind"_s].toString();
    const auto* const kind = std::ranges::find(kKinds, word, [](const KindRow& row) { return QString(row.word); });
    input.kind = kind == std::end(kKinds) ? KeptKind::Other : kind->kind;
    input.end = {RunEndOfWord(json[u"end"_s].toString()), json[u"code"_s].toInt(), json[u"errors"_s].toInt(),
                 json[u"warnings"_s].toInt()};
    return record;
}

/// All inputs, newest first by their names, which begin with the time.
QList<Record> ReadRecords(const QString& folder)
{
    QList<Record> records;
    for (const QFileInfo& info : QDir(folder).entryInfoList({u"*.sbd"_s}, QDir::Files, QDir::Name | QDir::Reversed))
        records.append(ReadRecord(info));
    return records;
}

/// Lets the oldest go: of each project those beyond its number, of all those beyond the room. `kept` stays, whatever the
/// clock says of its age. What nobody can tell the project of counts for the room alone.
void LetOldOnesGo(const QString& folder, const KeptInput& kept, qint64 keptBytes, const KeptLimits& limits)
{
    std::map<QString, int> inputsOf{{OneProject(kept.project), 1}};
    qint64 bytes = keptBytes;
    for (const Record& record : ReadRecords(folder)) {
        if (record.isNewer || record.input.file == kept.file)
            continue;
        const QString& project = record.input.project;
        const int number = project.isEmpty() ? 1 : ++inputsOf[OneProject(project)];
        if (bytes + record.bytes <= limits.bytes && number <= limits.inputs)
            bytes += record.bytes;
        else
            RemoveKeptInput(record.input.file);
    }
}

void ChangeRecord(const QString& file, const std::function<void(KeptInput&)>& change)
{
    const QFileInfo info(file);
    if (file.isEmpty() || !info.exists())
        return; // others have taken its place meanwhile, or somebody has tidied up
    Record record = ReadRecord(info);
    if (record.input.kind == KeptKind::Other)
        return;
    change(record.input);
    (void)WriteRecord(record.input); // without it the input says less, but it is there
}

QString NewFile(const QString& folder)
{
    constexpr int digits = 8;
    return QDir(QDir(folder).absolutePath())
        .filePath(QDateTime::currentDateTimeUtc().toString(u"yyyyMMdd-HHmmss-zzz"_s) + u'-'
                  + QUuid::createUuid().toString(QUuid::Id128).first(digits) + u".sbd"_s);
}

} // namespace

QString KeptKindText(KeptKind kind)
{
    return std::ranges::find(kKinds, kind, &KindRow::kind)->text.toString();
}

QString KeptFolder()
{
    return StateFolder() + u"/inputs"_s;
}

QString KeepInput(const QString& project, std::string_view bytes, KeptKind kind, const QString& folder,
                  const KeptLimits& limits)
{
    if (static_cast<qint64>(bytes.size()) > limits.bytes || !QDir().mkpath(folder))
        return {};
    QFile::setPermissions(folder, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const KeptInput input{
        NewFile(folder), QFileInfo(project).absoluteFilePath(), QDateTime::currentDateTime(), kind, {}};
    // The record first: an input without one would be nobody's.
    if (!WriteRecord(input) || !ReplaceFileBytes(ToPath(input.file), bytes).Ok()) {
        RemoveKeptInput(input.file);
        return {};
    }
    LetOldOnesGo(folder, input, static_cast<qint64>(bytes.size()), limits);
    return input.file;
}

void SetKeptEnd(const QString& file, const RunEnd& end)
{
    ChangeRecord(file, [&end](KeptInput& input) {
        input.end = end;
        input.endTime = QDateTime::currentDateTime();
    });
}

void SettleKeptInput(const QString& file)
{
    ChangeRecord(file, [](KeptInput& input) { input.settled = true; });
}

QString RunText(KeptKind kind, const QDateTime& time, const RunEnd& end)
{
    return KeptKindText(kind) + u' ' + time.toString(u"yyyy/MM/dd HH:mm:ss"_s) + u": "_s + RunEndText(end);
}

QString LastRunText(const QString& project, const QString& folder)
{
    for (const KeptInput& input : KeptInputsOf(project, folder)) {
        const auto* const kind = std::ranges::find(kKinds, input.kind, &KindRow::kind);
        if (kind->isRun && !input.project.isEmpty())
            return RunText(input.kind, input.endTime.isValid() ? input.endTime : input.time, input.end);
    }
    return {};
}

void RemoveKeptInput(const QString& file)
{
    if (file.isEmpty())
        return;
    QFile::remove(file);
    QFile::remove(RecordOf(file));
}

QList<KeptInput> KeptInputsOf(const QString& project, const QString& folder)
{
    QList<KeptInput> inputs;
    const QString wanted = OneProject(project);
    for (const Record& record : ReadRecords(folder)) {
        if (record.input.project.isEmpty() || OneProject(record.input.project) == wanted)
            inputs.append(record.input);
    }
    return inputs;
}

} // namespace sbd
