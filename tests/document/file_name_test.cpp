#include "document/file_name.h"
#include "document/section_doc.h"

#include <QDir>
#include <QFileInfo>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

class FileNameTest : public QObject {
    Q_OBJECT

private slots:
    void everySystemTakesTheName_data();
    void everySystemTakesTheName();
    void longNamesAreCut();
    void proposalsStandBesideTheProject();
};

void FileNameTest::everySystemTakesTheName_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << u"橋 1_313"_s << u"橋 1_313"_s;
    QTest::newRow("load case") << u"荷重: (B-L:MY最大)"_s << u"荷重_ (B-L_MY最大)"_s;
    QTest::newRow("path") << u"/a/b\\c"_s << u"_a_b_c"_s;
    QTest::newRow("all refused") << u"a<b>c\"d|e?f*g\nh"_s << u"a_b_c_d_e_f_g_h"_s;
    QTest::newRow("end") << u"a. ."_s << u"a"_s;
    QTest::newRow("device") << u"Con"_s << u"_Con"_s;
    QTest::newRow("device with ending") << u"nul.x"_s << u"_nul.x"_s;
    QTest::newRow("no device") << u"console"_s << u"console"_s;
    QTest::newRow("empty") << QString() << u"_"_s;
}

void FileNameTest::everySystemTakesTheName()
{
    QFETCH(const QString, text);
    QFETCH(const QString, name);
    QCOMPARE(SafeFileName(text), name);
}

void FileNameTest::longNamesAreCut()
{
    const QString name = SafeFileName(QString(300, u'橋'));
    QVERIFY(name.toUtf8().size() <= 250);
    QVERIFY(SafeFileName(QString(79, u'a') + u"\U00020B9F"_s).isValidUtf16()); // not in the middle of a character
}

void FileNameTest::proposalsStandBesideTheProject()
{
    CKELDSectionDoc doc;
    QVERIFY(QFileInfo(ProjectFolder(doc)).isDir());
    doc.SetPathName(QDir::tempPath() + u"/some/bridge.sbd"_s);
    QCOMPARE(ProposedFile(doc, u"a:b"_s, u".csv"_s), QDir::tempPath() + u"/some/a_b.csv"_s);
}

QTEST_MAIN(FileNameTest)
#include "file_name_test.moc"
