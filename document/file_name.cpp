#include "document/file_name.h"

#include "document/section_doc.h"

#include <QDir>
#include <QFileInfo>
#include <QRegularExpression>
#include <QStandardPaths>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr qsizetype kMostCharacters = 80; // 240 bytes of Japanese; file systems take 255 with the extension

} // namespace

QString SafeFileName(const QString& text)
{
    static const QRegularExpression refused(u"[\\\\/:*?\"<>|\\x00-\\x1f\\x7f]"_s);
    static const QRegularExpression device(u"^(con|prn|aux|nul|com[0-9]|lpt[0-9])(\\.|$)"_s,
                                           QRegularExpression::CaseInsensitiveOption);
    QString name = text;
    name.replace(refused, u"_"_s);
    if (name.size() > kMostCharacters)
        name.truncate(name[kMostCharacters - 1].isHighSurrogate() ? kMostCharacters - 1 : kMostCharacters);
    while (name.endsWith(u'.') || name.endsWith(u' '))
        name.chop(1);
    if (device.match(name).hasMatch() || name.isEmpty())
        name.prepend(u'_');
    return name;
}

QString ProjectFolder(const CKELDSectionDoc& doc)
{
    if (!doc.PathName().isEmpty())
        return QFileInfo(doc.PathName()).absolutePath();
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    return QFileInfo(documents).isDir() ? documents : QDir::homePath();
}

QString ProposedFile(const CKELDSectionDoc& doc, const QString& text, const QString& extension)
{
    return QDir(ProjectFolder(doc)).filePath(SafeFileName(text) + extension);
}

} // namespace sbd
