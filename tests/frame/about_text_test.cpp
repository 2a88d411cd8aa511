#include "frame/about_text.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

/// The path as the user reads it, once an empty file stands there.
QString MakeFile(const QString& path)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly))
        return {};
    file.close();
    return QDir::toNativeSeparators(QFileInfo(path).canonicalFilePath());
}

} // namespace

class AboutTextTest : public QObject {
    Q_OBJECT

private slots:
    void licencesAreNamedWithTheQtThatRuns();
    void theFullTextsAreFoundBesideTheProgram();
    void theFullTextsAreFoundWhereDebianPutsThem();
    void nothingIsSaidOfTextsThatAreNotThere();
};

void AboutTextTest::licencesAreNamedWithTheQtThatRuns()
{
    const QString text = AboutText(u"Ver9.9"_s, u"1.2.3"_s, QDir::tempPath());
    for (const QString& said : {u"システムの版: Ver9.9\n"_s, u"このプログラムの版: 1.2.3\n"_s, u"MIT License"_s,
                                u"Qt %1　GNU LGPL 第 3 版"_s.arg(QString::fromLatin1(qVersion())), u"toml++"_s})
        QVERIFY2(text.contains(said), qPrintable(said));
}

void AboutTextTest::theFullTextsAreFoundBesideTheProgram()
{
    const QTemporaryDir folder;
    const QString file = MakeFile(folder.filePath(u"KELD section/licences/README.ja.txt"_s));
    QVERIFY(!file.isEmpty());
    const QString text = AboutText({}, {}, folder.filePath(u"KELD section"_s));
    QVERIFY2(text.endsWith(u"ライセンスの全文:\n"_s + file), qPrintable(text));
}

void AboutTextTest::theFullTextsAreFoundWhereDebianPutsThem()
{
    const QTemporaryDir folder;
    QVERIFY(QDir().mkpath(folder.filePath(u"usr/bin"_s)));
    const QString file = MakeFile(folder.filePath(u"usr/share/doc/sbdstation/copyright"_s));
    QVERIFY(!file.isEmpty());
    const QString text = AboutText({}, {}, folder.filePath(u"usr/bin"_s));
    QVERIFY2(text.endsWith(u"ライセンスの全文:\n"_s + file), qPrintable(text));
}

void AboutTextTest::nothingIsSaidOfTextsThatAreNotThere()
{
    const QTemporaryDir folder;
    QVERIFY(!AboutText({}, {}, folder.path()).contains(u"全文"_s));
}

QTEST_GUILESS_MAIN(AboutTextTest)
#include "about_text_test.moc"
