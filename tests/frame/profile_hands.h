// The profile of a test, a file of its own.
#pragma once

#include "frame/profile.h"
#include "frame/settings.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

namespace sbd::test {

using namespace Qt::StringLiterals;

inline void Write(const QString& path, const QByteArray& bytes)
{
    QVERIFY(QDir().mkpath(QFileInfo(path).path()));
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(file.write(bytes), bytes.size());
}

inline QByteArray Read(const QString& path)
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// The file of the profile, which a test sets before the program reads it.
inline QString ProfileFile()
{
    return CProfile().fileName();
}

inline QStringList Copies(const QString& profile)
{
    const QFileInfo file(profile);
    return file.dir().entryList({file.completeBaseName() + u".broken-*"_s}, QDir::Files, QDir::Name);
}

inline void Store(const QString& key, const QVariant& value)
{
    CProfile().setValue(key, value);
}

inline int Stored(const QString& key)
{
    return CProfile().value(key, -12345).toInt();
}

inline const PaneSizes kComputed{320, 400, 0};

/// Looks at every setting once: none of them may change the file or stop.
inline void ReadEverything()
{
    const CSettings settings;
    (void)settings.Language();
    (void)settings.Panes(kComputed);
    (void)settings.Display();
    (void)settings.RowHeight();
    (void)settings.RowWidthMode();
    (void)settings.ComboOrList();
    (void)settings.TabbedWindows();
    (void)CRecentFiles::List();
}

inline void VerifyDefaults()
{
    const CSettings settings;
    QVERIFY(settings.Language() == TitleLanguage::Japanese);
    QVERIFY(settings.Panes(kComputed) == kComputed);
    QVERIFY(settings.Display() == DisplaySettings());
    QCOMPARE(settings.RowHeight(), 18);
    QCOMPARE(settings.RowWidthMode(), 0);
    QCOMPARE(settings.ComboOrList(), 1);
    QVERIFY(!settings.TabbedWindows());
}

class ProfileHands : public QObject {
protected:
    void BeginProfile()
    {
        folder_ = std::make_unique<QTemporaryDir>();
        QSettings::setDefaultFormat(QSettings::IniFormat);
        QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, folder_->path());
    }
    void EndProfile() { folder_.reset(); }

private:
    std::unique_ptr<QTemporaryDir> folder_;
};

} // namespace sbd::test
