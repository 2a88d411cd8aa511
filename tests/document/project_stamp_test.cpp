#include "document/project_stamp.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

void Put(const QString& path, const QByteArray& bytes)
{
    QFile file(path);
    QVERIFY(file.open(QFile::WriteOnly));
    file.write(bytes);
}

void SetTime(const QString& path, const QDateTime& time)
{
    QFile file(path);
    QVERIFY(file.open(QFile::ReadWrite));
    QVERIFY(file.setFileTime(time, QFileDevice::FileModificationTime));
}

} // namespace

class ProjectStampTest : public QObject {
    Q_OBJECT

private slots:
    void onlyAnotherContentMakesAnotherFile();
    void aFileOfTheSameSizeAndTimeInItsPlaceIsSeen();
    void aFileThatWasNeverReadIsAnother();
    void withoutAFileThereIsNoOther();
    void aChangeBetweenLookAndReadingIsSeen();
};

void ProjectStampTest::onlyAnotherContentMakesAnotherFile()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"橋.sbd"_s);
    Put(path, "one");
    const ProjectStamp stamp = StampOfProject(path, LookAt(path), "one");
    QVERIFY(!IsAnotherFile(stamp, path));
    SetTime(path, QDateTime::currentDateTime().addSecs(100));
    QVERIFY(!IsAnotherFile(stamp, path)); // touched
    QFile::remove(path);
    Put(path, "one");
    QVERIFY(!IsAnotherFile(stamp, path)); // restored
    Put(path, "two");
    QVERIFY(IsAnotherFile(stamp, path));
}

void ProjectStampTest::aFileOfTheSameSizeAndTimeInItsPlaceIsSeen()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.sbd"_s);
    const QDateTime time = QDateTime::currentDateTime().addSecs(-1000);
    Put(path, "one");
    SetTime(path, time);
    const ProjectStamp stamp = StampOfProject(path, LookAt(path), "one");
    const QString other = folder.filePath(u"b.sbd"_s);
    Put(other, "two");
    SetTime(other, time);
    QVERIFY(QFile::remove(path) && QFile::rename(other, path));
    QVERIFY(IsAnotherFile(stamp, path));
}

void ProjectStampTest::aFileThatWasNeverReadIsAnother()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.sbd"_s);
    Put(path, "one");
    QVERIFY(IsAnotherFile(ProjectStamp(), path));
}

void ProjectStampTest::withoutAFileThereIsNoOther()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.sbd"_s);
    QVERIFY(!IsAnotherFile(ProjectStamp(), path));
    Put(path, "one");
    const ProjectStamp stamp = StampOfProject(path, LookAt(path), "one");
    QVERIFY(QFile::remove(path));
    QVERIFY(!IsAnotherFile(stamp, path));
}

void ProjectStampTest::aChangeBetweenLookAndReadingIsSeen()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.sbd"_s);
    Put(path, "one");
    const FileLook look = LookAt(path);
    Put(path, "another");
    QVERIFY(IsAnotherFile(StampOfProject(path, look, "one"), path));
}

QTEST_MAIN(ProjectStampTest)
#include "project_stamp_test.moc"
