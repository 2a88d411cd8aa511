#include "document/save_flow.h"

#include "check/file_findings.h"
#include "document/path.h"
#include "document/project_lock.h"
#include "document/section_doc.h"
#include "project/sbd_data.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr QLatin1StringView kCompanions[] = {".abd"_L1, ".li9"_L1, ".ll2"_L1, ".abl"_L1};

void TakeLock(CProjectLock& lock, const QString& path)
{
    lock.Release();
    if (!path.isEmpty())
        lock.Take(path); // a failure is nobody's hindrance
}

/// Puts a copy of `from` in place of `to`, as a whole or not at all.
bool CopyFile(const QString& from, const QString& to)
{
    constexpr qint64 piece = 1 << 20;
    QFile source(from);
    QSaveFile target(to);
    if (!source.open(QFile::ReadOnly) || !target.open(QFile::WriteOnly))
        return false;
    while (true) {
        const QByteArray bytes = source.read(piece);
        if (source.error() != QFile::NoError)
            return false; // the target's destructor drops what was written
        if (bytes.isEmpty())
            return target.commit();
        if (target.write(bytes) != bytes.size())
            return false;
    }
}

void CopyCompanions(const QString& oldBase, const QString& newBase, SaveOutcome& outcome)
{
    for (const QLatin1StringView extension : kCompanions) {
        const QString from = oldBase + extension;
        const QString to = newBase + extension;
        if (QFileInfo(from).isFile())
            (CopyFile(from, to) ? outcome.copied : outcome.notCopied).append(to);
    }
}

} // namespace

QString BasePath(const QString& path)
{
    const qsizetype name = path.size() - QFileInfo(path).fileName().size();
    const qsizetype point = path.lastIndexOf(u'.');
    return point > name ? path.first(point) : path;
}

bool IsReadOnly(const QString& path)
{
    const QFileInfo file(path);
    if (path.isEmpty() || !file.exists())
        return false;
#ifdef Q_OS_WIN
    return !file.isWritable(); // what this says of a folder means something else there
#else
    const QString target = file.canonicalFilePath(); // a link stays a link
    return !file.isWritable() || !QFileInfo(QFileInfo(target).path()).isWritable();
#endif
}

QString ForeignFileQuestion(const QString& path)
{
    std::string bytes;
    if (!QFileInfo(path).isFile() || !ReadFileBytes(ToPath(path), bytes).Ok())
        return {};
    CSbdData scratch;
    const FileFindings found = ReadWithFindings(bytes, scratch);
    if (found.isProject && !found.isForeign)
        return {};
    const QString what =
        found.findings.list.empty() ? QString() : QString::fromStdString(found.findings.list.front().text);
    return u"このファイルは本システムのプロジェクトの形ではありません。上書き保存しますか。\n"_s
           + QDir::toNativeSeparators(path) + u"\n\n"_s + what
           + u"\n\n「はい」を選ぶと、今ある内容は画面のプロジェクトに置き換わり、元に戻せません。"
             u"\n「いいえ」を選ぶと、ファイルはそのまま残り、入力内容も画面に残ります。別の名前で保存できます。"_s;
}

QString HeldProjectQuestion(const QString& path)
{
    return QDir::toNativeSeparators(path) + u"\n\nは他のプログラムで使用され，KELD sectionを継続しますか？"_s
           + u"\n\nはい　　=　ほかのプログラムは終了しましたので，継続します．"_s
           + u"\n\nいいえ　=　ファイルを開きません！\n"_s;
}

OpenResult OnOpenDocument(CKELDSectionDoc& doc, CProjectLock& lock, const QString& path, const YesNoQuestion& ask)
{
    if (!path.endsWith(".sbd"_L1, Qt::CaseInsensitive))
        return {OpenOutcome::WrongExtension, {}};
    const bool held = lock.IsHeld();
    lock.Release(); // our own hold must not look like somebody else's
    OpenResult result;
    // A file that is missing or not readable is no matter of waiting: the open itself says what is wrong.
    while (result.Ok() && CProjectLock::LookPatiently(path) == CProjectLock::State::Held) {
        if (!ask(HeldProjectQuestion(path)))
            result.outcome = OpenOutcome::GivenUp;
    }
    if (result.Ok()) {
        result.file = doc.OpenDocument(path);
        if (!result.file.Ok())
            result.outcome = OpenOutcome::Failed;
    }
    if (result.Ok() || held)
        TakeLock(lock, doc.PathName());
    return result;
}

FileResult OnSaveDocument(CKELDSectionDoc& doc, CProjectLock& lock, const QString& path)
{
    lock.Release();
    return doc.SaveDocument(path);
}

SaveOutcome SaveWrapper(CKELDSectionDoc& doc, CProjectLock& lock, const SaveSteps& steps)
{
    const QString oldBase = BasePath(doc.PathName());
    lock.Release();
    SaveOutcome outcome;
    outcome.saved = steps.save();
    const QString path = doc.PathName();
    TakeLock(lock, path);
    steps.setTitle(QDir::toNativeSeparators(path));
    const QString newBase = BasePath(path);
    // A project without a path had no files beside it: with an empty base, those of the current folder would be taken.
    if (newBase != oldBase && !oldBase.isEmpty())
        CopyCompanions(oldBase, newBase, outcome);
    return outcome;
}

bool ReloadDocument(CKELDSectionDoc& doc, CProjectLock& lock)
{
    const QString path = doc.PathName();
    if (path.isEmpty())
        return false;
    const bool read = doc.Reload();
    TakeLock(lock, path);
    return read;
}

} // namespace sbd
