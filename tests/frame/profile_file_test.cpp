// A profile that is broken, foreign or cannot be written.
#include "frame/profile.h"
#include "frame/settings.h"
#include "profile_hands.h"

#include <QDir>
#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;
using namespace sbd::test;

class ProfileFileTest : public test::ProfileHands {
    Q_OBJECT

private slots:
    void init() { BeginProfile(); }
    void cleanup() { EndProfile(); }

    void aRubbishFileGivesDefaultsAndStaysAsItIs_data();
    void aRubbishFileGivesDefaultsAndStaysAsItIs();
    void aRubbishFileIsKeptBesideBeforeTheFirstWrite_data();
    void aRubbishFileIsKeptBesideBeforeTheFirstWrite();
    void theSameRubbishIsKeptOnce();
    void otherRubbishIsKeptToo();
    void aSoundFileIsNotCopied();
    void whatCouldBeReadOfABrokenFileStays();
    void aFileThatCannotBeWrittenStaysAsItIs();
    void aFolderInPlaceOfTheFileStopsNothing();
    void theRecentFilesDoNotDestroyARubbishFile();
};

void ProfileFileTest::aRubbishFileGivesDefaultsAndStaysAsItIs_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::newRow("a text") << QByteArray("this is\nno INI file at all\n");
    QTest::newRow("broken head of a section") << QByteArray("[row_height\n\n\n");
    QTest::newRow("a line without a value in a section") << QByteArray("[BackColor]\nthere is no value\n");
    QTest::newRow("zeros") << QByteArray(5000, '\0');
    QTest::newRow("bytes of no text") << QByteArray("[General]\nk=\xFF\xFE\x80\x81\n");
    QByteArray noise;
    for (int i = 0; i < 20'000; ++i)
        noise.append(static_cast<char>((i * 7919 + i / 13 * 104729) >> 3 & 0xFF));
    QTest::newRow("noise") << noise;
}

void ProfileFileTest::aRubbishFileGivesDefaultsAndStaysAsItIs()
{
    QFETCH(QByteArray, bytes);
    const QString file = ProfileFile();
    Write(file, bytes);
    ReadEverything();
    VerifyDefaults();
    QCOMPARE(Read(file), bytes);
    QVERIFY(Copies(file).isEmpty());
}

void ProfileFileTest::aRubbishFileIsKeptBesideBeforeTheFirstWrite_data()
{
    aRubbishFileGivesDefaultsAndStaysAsItIs_data();
}

void ProfileFileTest::aRubbishFileIsKeptBesideBeforeTheFirstWrite()
{
    QFETCH(QByteArray, bytes);
    const QString file = ProfileFile();
    Write(file, bytes);
    ReadEverything(); // what has been read once is known to the library, and still broken
    {
        CSettings settings;
        settings.SetPanes({1, 2, 3});
        settings.ChangeRowHeight(3);
    }
    QCOMPARE(Copies(file).size(), 1);
    QCOMPARE(Read(QFileInfo(file).dir().filePath(Copies(file).constFirst())), bytes);
    QVERIFY(CSettings().Panes(kComputed) == (PaneSizes{1, 2, 3}));
    QCOMPARE(CSettings().RowHeight(), 21);
    CSettings().SetLanguage(TitleLanguage::English);
    QCOMPARE(Copies(file).size(), 1); // the file is sound now
}

void ProfileFileTest::theSameRubbishIsKeptOnce()
{
    const QString file = ProfileFile();
    for (int i = 0; i < 3; ++i) {
        Write(file, "no settings here\n");
        Store(u"row_height/up"_s, 30 + i);
    }
    QCOMPARE(Copies(file).size(), 1);
}

void ProfileFileTest::otherRubbishIsKeptToo()
{
    const QString file = ProfileFile();
    Write(file, "no settings here\n");
    Store(u"row_height/up"_s, 30);
    Write(file, "nor here, and longer than before\n");
    Store(u"row_height/up"_s, 31);
    const QDir folder = QFileInfo(file).dir();
    QCOMPARE(Copies(file).size(), 2);
    QCOMPARE(Read(folder.filePath(Copies(file)[0])), QByteArray("no settings here\n"));
    QCOMPARE(Read(folder.filePath(Copies(file)[1])), QByteArray("nor here, and longer than before\n"));
}

void ProfileFileTest::aSoundFileIsNotCopied()
{
    const QString file = ProfileFile();
    Write(file,
          "; a remark\n[row_height]\nup=40\n\n[SYSTEMFONT]\nF=\xEF\xBC\xAD\xEF\xBC\xB3 \xE6\x98\x8E\xE6\x9C\x9D\n");
    QCOMPARE(CSettings().RowHeight(), 40);
    QCOMPARE(CSettings().Display().fontFaceName, u"ＭＳ 明朝"_s);
    CSettings().ChangeRowHeight(3);
    QVERIFY(Copies(file).isEmpty());
    QCOMPARE(CSettings().RowHeight(), 43);
}

void ProfileFileTest::whatCouldBeReadOfABrokenFileStays()
{
    Write(ProfileFile(), "[row_height]\nup=40\n[BackColor]\nR=1\nthis line is broken\nG=2\n");
    CSettings().SetLanguage(TitleLanguage::English);
    QCOMPARE(CSettings().RowHeight(), 40);
    QCOMPARE(CSettings().Display().backColor, 0xFF0201U);
}

void ProfileFileTest::aFileThatCannotBeWrittenStaysAsItIs()
{
    const QString file = ProfileFile();
    const QByteArray bytes("[row_height]\nup=40\n");
    Write(file, bytes);
    QVERIFY(QFile::setPermissions(file, QFile::ReadOwner));
    if (QFileInfo(file).isWritable())
        QSKIP("this user may write everything");
    CSettings settings;
    QCOMPARE(settings.ChangeRowHeight(3), 43); // holds for this session
    settings.SetLanguage(TitleLanguage::English);
    QCOMPARE(Read(file), bytes);
}

void ProfileFileTest::aFolderInPlaceOfTheFileStopsNothing()
{
    const QString file = ProfileFile();
    QVERIFY(QDir().mkpath(file + u"/inside"_s));
    ReadEverything();
    CSettings().SetLanguage(TitleLanguage::English);
    CSettings().ChangeRowHeight(3);
    QVERIFY(QDir(file).exists(u"inside"_s));
}

void ProfileFileTest::theRecentFilesDoNotDestroyARubbishFile()
{
    const QString file = ProfileFile();
    Write(file, "a text in the wrong place\n");
    CRecentFiles::Add(u"/tmp/bridge.sbd"_s);
    QCOMPARE(CRecentFiles::List().size(), 1);
    QCOMPARE(Copies(file).size(), 1);
}

QTEST_MAIN(ProfileFileTest)
#include "profile_file_test.moc"
