// A user whose answers are known beforehand, and copies of the examples to work on.
#pragma once

#include "frame/prompts.h"

#include <QFile>
#include <QSettings>
#include <QStringList>
#include <QTemporaryDir>

namespace sbd {

/// What the user will answer, and what was asked and told.
struct Answers {
    QString openFile;
    QString saveFile;
    SaveAnswer save = SaveAnswer::Cancel;

    QString proposal; ///< name the save dialog began with
    QStringList asked;
    QStringList warned;

    [[nodiscard]] Prompts Dialogs()
    {
        return {[this](QWidget*, const QString&) { return openFile; },
                [this](QWidget*, const QString& name) {
                    proposal = name;
                    return saveFile;
                },
                [this](QWidget*, const QString& text) {
                    asked.append(text);
                    return save;
                },
                [this](QWidget*, const QString& text) { warned.append(text); }};
    }
};

/// A folder for one test, and the profile in it.
class TestFolder {
public:
    TestFolder()
    {
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder_.filePath(QStringLiteral("profile")));
    }

    [[nodiscard]] QString Path(const QString& name) const { return folder_.filePath(name); }

    /// A writable copy of an example project with its *.abd file; its path.
    [[nodiscard]] QString Example(const QString& name, const QString& as = {}) const
    {
        const QString base = QStringLiteral(EXAMPLES_DIR) + u'/' + name + u'/' + name;
        const QString copy = Path(as.isEmpty() ? name : as);
        for (const QString& extension : {QStringLiteral(".sbd"), QStringLiteral(".abd")}) {
            QFile::copy(base + extension, copy + extension);
            QFile::setPermissions(copy + extension, QFile::ReadOwner | QFile::WriteOwner);
        }
        return copy + QStringLiteral(".sbd");
    }

private:
    QTemporaryDir folder_;
};

[[nodiscard]] inline QByteArray Bytes(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace sbd
