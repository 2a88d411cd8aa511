#include "document/project_stamp.h"

#include "document/path.h"
#include "sbdfile/project_file.h"

#include <QCryptographicHash>
#include <QFileInfo>

#include <string>

namespace sbd {

namespace {

QByteArray SumOf(std::string_view bytes)
{
    QCryptographicHash sum(QCryptographicHash::Sha256);
    sum.addData(QByteArrayView(bytes.data(), static_cast<qsizetype>(bytes.size())));
    return sum.result();
}

} // namespace

FileLook LookAt(const QString& path)
{
    const std::filesystem::path file = ToPath(path);
    const FileFacts facts = LookAtFile(file);
    return {facts.kind != FileFacts::Kind::NotThere, IdentityOfFile(file), facts.size, facts.changed};
}

ProjectStamp StampOfProject(const QString& path, const FileLook& look, std::string_view bytes)
{
    return {QFileInfo(path).absoluteFilePath(), look, SumOf(bytes)};
}

bool IsAnotherFile(const ProjectStamp& stamp, const QString& path)
{
    const QString full = QFileInfo(path).absoluteFilePath();
    const FileLook look = LookAt(full);
    if (!look.isThere || (stamp.path == full && stamp.look == look))
        return false;
    std::string bytes;
    // What cannot be read cannot be told to be the same.
    return stamp.path != full || !ReadFileBytes(ToPath(full), bytes).Ok() || SumOf(bytes) != stamp.content;
}

} // namespace sbd
