#include "document/project_lock.h"
#include "document/section_doc.h"
#include "frame/document_steps.h"
#include "tests/surroundings.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

/// A new document in a folder with the names file of an example in it, and a user who picks that file.
struct Desk {
    QTemporaryDir folder;
    CKELDSectionDoc doc;
    CProjectLock lock;
    StartChoice choice;
    bool yes = false;
    bool runs = true;
    QStringList asked;
    QStringList warned;
    QStringList log;

    explicit Desk(int chosen, int girderType = 0) : choice{chosen, girderType}
    {
        QFile::copy(QString::fromUtf8(test::ExamplesFolder()) + u"/box2/box2.abd"_s, Path(u"bridge.abd"_s));
    }
    [[nodiscard]] QString Path(const QString& name) const { return folder.filePath(name); }
    [[nodiscard]] QString Project() const { return Path(u"bridge.sbd"_s); }
    [[nodiscard]] QByteArray Bytes() const
    {
        QFile file(Project());
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    }

    bool Run()
    {
        const auto ask = [this](const QString& text) {
            asked.append(text);
            return yes;
        };
        const auto warn = [this](const QString& text) { warned.append(text); };
        CDocumentSteps steps(doc, lock,
                             {[this](const QString&) { log.append(u"name"_s); },
                              [this](const QString&) { log.append(u"results"_s); },
                              [this] {
                                  log.append(u"wrapper"_s);
                                  return sbd::SaveWrapper(doc, lock,
                                                          {[this] { return doc.SaveDocument(doc.PathName()).Ok(); },
                                                           [](const QString&) {}})
                                      .saved;
                              },
                              [this] {
                                  log.append(u"run"_s);
                                  return runs;
                              },
                              {[](BoxWebNames&) { return true; }, ask},
                              ask,
                              warn});
        CNewDocumentFlow flow(
            {[this] { return choice; }, [this](const QStringList&) { return Path(u"bridge.abd"_s); }, ask, warn});
        flow.skipChooser = false;
        return flow.OnNewDocument(steps);
    }
};

} // namespace

class DocumentStepsTest : public QObject {
    Q_OBJECT

private slots:
    void aBoxGirderBeginsWithNamesAndWebs();
    void aProjectOfTheOtherProductHasItsType();
    void aProjectThatExistsIsOpenedAndLocked();
    void aFolderThatTakesNoFileEndsTheFlow();
    void aKeptProjectComesBackAfterAFailedRun();
    void aReplacedProjectHasTheDefaults();
};

void DocumentStepsTest::aBoxGirderBeginsWithNamesAndWebs()
{
    Desk desk(2, 1);
    QVERIFY(desk.Run());
    QVERIFY(desk.warned.isEmpty());
    QVERIFY(QFile::exists(desk.Project()));
    const CSbdData& data = desk.doc.Data();
    QVERIFY(!data.gridNames.girderNames.empty());
    QCOMPARE(data.RowCount(305), data.gridNames.girderNames.size());
    QVERIFY2(desk.doc.IsModified(), "the web names are not in the file yet");
    QVERIFY(!desk.lock.IsHeld());
}

void DocumentStepsTest::aProjectOfTheOtherProductHasItsType()
{
    Desk desk(5);
    QVERIFY(desk.Run());
    QVERIFY(desk.doc.Data().Type() == "UC-GRID");
    QVERIFY(desk.Bytes().contains("UC-GRID"));
    QVERIFY(!desk.doc.IsModified());
    QVERIFY(desk.lock.IsHeld());
    QCOMPARE(desk.log, (QStringList{u"name"_s, u"wrapper"_s, u"run"_s}));
}

void DocumentStepsTest::aProjectThatExistsIsOpenedAndLocked()
{
    Desk desk(2);
    QVERIFY(QFile::copy(QString::fromUtf8(test::ExamplesFolder()) + u"/box2/box2.sbd"_s, desk.Project()));
    const QByteArray before = desk.Bytes();
    QVERIFY(desk.Run());
    QCOMPARE(desk.doc.PathName(), desk.Project());
    QVERIFY(desk.doc.Data().RowCount(305) > 0);
    QVERIFY(desk.lock.IsHeld());
    QCOMPARE(desk.Bytes(), before);
}

void DocumentStepsTest::aFolderThatTakesNoFileEndsTheFlow()
{
    Desk desk(3);
    QVERIFY(QDir().mkdir(desk.Project())); // no file can take its place
    QVERIFY(!desk.Run());
    QCOMPARE(desk.warned.size(), 1);
    QVERIFY(desk.doc.PathName().isEmpty());
}

void DocumentStepsTest::aKeptProjectComesBackAfterAFailedRun()
{
    Desk desk(4);
    QVERIFY(QFile::copy(QString::fromUtf8(test::ExamplesFolder()) + u"/box2/box2.sbd"_s, desk.Project()));
    const QByteArray before = desk.Bytes();
    desk.runs = false;
    QVERIFY(desk.Run());
    QCOMPARE(desk.asked.size(), 1);
    QCOMPARE(desk.log, (QStringList{u"name"_s, u"run"_s}));
    QVERIFY(desk.doc.Data().RowCount(305) > 0);
    QCOMPARE(desk.Bytes(), before);
}

void DocumentStepsTest::aReplacedProjectHasTheDefaults()
{
    Desk desk(4);
    QVERIFY(QFile::copy(QString::fromUtf8(test::ExamplesFolder()) + u"/box2/box2.sbd"_s, desk.Project()));
    QVERIFY(QFile::setPermissions(desk.Project(), QFile::ReadOwner | QFile::WriteOwner));
    const QByteArray before = desk.Bytes();
    desk.yes = true;
    QVERIFY(desk.Run());
    QVERIFY(desk.Bytes() != before);
    QCOMPARE(desk.doc.Data().RowCount(305), std::size_t(0));
    QCOMPARE(desk.log, (QStringList{u"name"_s, u"results"_s, u"wrapper"_s, u"run"_s}));
}

QTEST_GUILESS_MAIN(DocumentStepsTest)
#include "document_steps_test.moc"
