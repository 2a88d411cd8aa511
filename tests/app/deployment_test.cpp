#include "app/deployment.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

/// A program folder with a deployment.ini in it.
struct Folder {
    QTemporaryDir folder;

    explicit Folder(const QByteArray& bytes)
    {
        QFile file(DeploymentFile(folder.path()));
        QVERIFY(file.open(QFile::WriteOnly));
        file.write(bytes);
    }
    [[nodiscard]] DeploymentSettings Read() const { return ReadDeployment(DeploymentFile(folder.path())); }
};

} // namespace

class DeploymentTest : public QObject {
    Q_OBJECT

private slots:
    void theSettingsStandBesideTheProgram();
    void theSettingsAreRead();
    void aFileThatIsNotThereSetsNothing();
    void onlyWebAddressesCount_data();
    void onlyWebAddressesCount();
};

void DeploymentTest::theSettingsStandBesideTheProgram()
{
    QCOMPARE(DeploymentFile(u"/opt/keld"_s), u"/opt/keld/deployment.ini"_s);
}

void DeploymentTest::theSettingsAreRead()
{
    const Folder folder(
        "[Version]\nServer=version.example.com\n\n[HomePage]\nAddress=https://home.example.com/keld/\n\n"
        "[SecondHomePage]\nName=橋梁\nAddress=second.example.com/a\n");
    const DeploymentSettings settings = folder.Read();
    QCOMPARE(settings.versionPage, QUrl(u"http://version.example.com/keld/public_html/KELD_newest.htm"_s));
    QCOMPARE(settings.homePage, QUrl(u"https://home.example.com/keld/"_s));
    QCOMPARE(settings.secondHomePage, QUrl(u"http://second.example.com/a"_s));
    QCOMPARE(settings.secondHomePageName, u"橋梁"_s);
}

void DeploymentTest::aFileThatIsNotThereSetsNothing()
{
    const QTemporaryDir folder;
    const DeploymentSettings settings = ReadDeployment(DeploymentFile(folder.path()));
    QVERIFY(settings.versionPage.isEmpty());
    QVERIFY(settings.homePage.isEmpty());
    QVERIFY(settings.secondHomePage.isEmpty());
    QVERIFY(settings.secondHomePageName.isEmpty());
    QVERIFY(!QFile::exists(DeploymentFile(folder.path())));
}

void DeploymentTest::onlyWebAddressesCount_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("page");
    QTest::newRow("host and port") << u"127.0.0.1:8080"_s
                                   << u"http://127.0.0.1:8080/keld/public_html/KELD_newest.htm"_s;
    QTest::newRow("root") << u"http://h.example.com/"_s << u"http://h.example.com/keld/public_html/KELD_newest.htm"_s;
    QTest::newRow("own path") << u"https://h.example.com/v.txt"_s << u"https://h.example.com/v.txt"_s;
    QTest::newRow("file") << u"file:///etc/passwd"_s << QString();
    QTest::newRow("blank") << u"   "_s << QString();
    QTest::newRow("no host") << u"http:///path"_s << QString();
    QTest::newRow("words") << u"ask the administrator"_s << QString();
}

void DeploymentTest::onlyWebAddressesCount()
{
    QFETCH(QString, text);
    QFETCH(QString, page);
    QCOMPARE(Folder("[Version]\nServer=" + text.toUtf8() + "\n").Read().versionPage.toString(), page);
}

QTEST_GUILESS_MAIN(DeploymentTest)
#include "deployment_test.moc"
