#include "app/version_check.h"
#include "document/section_doc.h"

#include <QDir>
#include <QFile>
#include <QSignalSpy>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

const auto kHome = u"https://home.example.com/keld/"_s;
const QDateTime kNow(QDate(2024, 3, 7), QTime(9, 5, 0));
const auto kToday = u"2024 3 7\n"_s;
const auto kYesterday = u"2024 3 6\n"_s;
const auto kVersionLine = u"Ver20110808\n"_s;

/// A web server on this machine that gives every request the same answer.
class Server : public QTcpServer {
public:
    QByteArray answer;      ///< as it goes over the wire; empty: none, the connection stays open
    QByteArray lastRequest; ///< head of the last request

    explicit Server(const QByteArray& reply = {}) : answer(reply)
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
                lastRequest += socket->readAll();
                if (!lastRequest.contains("\r\n\r\n") || answer.isEmpty())
                    return;
                socket->write(answer);
                socket->disconnectFromHost();
            });
        });
    }
    [[nodiscard]] QUrl Page() const
    {
        return u"http://127.0.0.1:%1/keld/public_html/KELD_newest.htm"_s.arg(serverPort());
    }
};

QByteArray Reply(const QByteArray& status, const QByteArray& body, const QByteArray& head = {})
{
    return "HTTP/1.1 " + status + "\r\nContent-Length: " + QByteArray::number(body.size()) + "\r\n" + head + "\r\n"
           + body;
}

/// One program start: a folder for the record, a user, a clock.
struct Day {
    QTemporaryDir folder;
    DeploymentSettings settings;
    QDateTime now = kNow;
    bool yes = false;
    bool hasBrowser = true;
    int requests = 0;
    QStringList asked;
    QStringList done;
    HttpAnswer answer{200, {}};
    bool network = false; ///< ask a real server instead of giving `answer`

    Day()
    {
        settings.versionPage = QUrl(u"http://version.example.com/"_s);
        settings.homePage = QUrl(kHome);
    }

    [[nodiscard]] QString File() const { return folder.filePath(u"KELD_VERSION.txt"_s); }
    [[nodiscard]] QByteArray RecordBytes() const
    {
        QFile file(File());
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray("(none)");
    }
    /// The record in Unicode; it stands in CP932.
    [[nodiscard]] QString Record() const
    {
        QString text;
        for (const QByteArray& line : RecordBytes().split('\n'))
            text += toQString(line.toStdString()) + u'\n';
        text.chop(1);
        return text;
    }
    void SetRecord(const QString& firstLines, const QString& result) const
    {
        // Written by the record itself, then the day is put in its place.
        QVERIFY(CVersionRecord(folder.path()).Write(kNow.date(), {}, result));
        const QByteArray last = RecordBytes().split('\n').value(2);
        QFile file(File());
        QVERIFY(file.open(QFile::WriteOnly));
        file.write(firstLines.toLatin1() + last);
    }

    /// What the check says; "(nothing)" if it says nothing.
    QString Check(const QString& version = kSystemVersion)
    {
        VersionCheckSeams seams;
        if (!network)
            seams.get = [this](const QUrl&, QObject*, const std::function<void(const HttpAnswer&)>& answered) {
                ++requests;
                answered(answer);
            };
        seams.now = [this] { return now; };
        seams.ask = [this](const QString& text) {
            asked.append(text);
            return yes;
        };
        seams.openPage = [this](const QUrl& page) {
            done.append(page.toString());
            return hasBrowser;
        };
        seams.tell = [this](const QString& text) { done.append(text); };
        seams.quit = [this] { done.append(u"quit"_s); };
        CVersionCheck check(folder.path(), settings, seams);
        QSignalSpy spy(&check, &CVersionCheck::checked);
        check.CheckVersion(version);
        if (network && spy.isEmpty())
            spy.wait(2 * kHttpTimeout);
        return spy.isEmpty() ? u"(nothing)"_s : spy.constFirst().constFirst().toString();
    }
};

} // namespace

class VersionCheckTest : public QObject {
    Q_OBJECT

private slots:
    void theTextsStandAsTheyAre();
    void theVersionIsFoundOnThePage_data();
    void theVersionIsFoundOnThePage();

    void theSameOrAnOlderVersionIsUpToDate_data();
    void theSameOrAnOlderVersionIsUpToDate();
    void aNewerVersionIsAskedAboutAndTold();
    void yesOpensTheHomePageAndEnds();
    void afterAYesTheNextStartAsksAgain();
    void theUserIsAskedOnceADay();
    void aVersionThatComesOutDuringTheDayIsAskedAbout();
    void aNewDayAsksAgain();
    void afterNoAnswerNoBoxComesThatDay();
    void aBrokenRecordCountsAsNone_data();
    void aBrokenRecordCountsAsNone();
    void statusesFrom300OnAreNoAnswer_data();
    void statusesFrom300OnAreNoAnswer();
    void aPageWithoutAVersionIsNoAnswer();
    void aPageWithHalfAVersionIsNoAnswer();
    void withoutABrowserTheAddressIsTold();
    void withoutAServerNoRequestGoesOut();
    void withoutAHomePageNothingIsAsked();
    void aRecordThatCannotBeWrittenEndsTheCheck();
    void theRecordStandsInTheSystemsFolderWhereItMayBeWritten();
    void theMenuShowsVersionAndResult();

    void aServerIsAskedPastAllCaches();
    void overTheNetwork_data();
    void overTheNetwork();
    void aServerThatDoesNotAnswerIsGivenUp();
    void aServerThatIsNotThereIsNoAnswer();
    void anAnswerAfterTheEndIsNobodys();
    void theCheckDoesNotWaitForTheServer();
};

void VersionCheckTest::theTextsStandAsTheyAre()
{
    QCOMPARE(QString(kSystemVersion), u"Ver20110808"_s);
    QCOMPARE(UpToDateText(), u" ← 最新版KELD"_s);
    QCOMPARE(OutdatedText(), u"　← 現在の KELD は最新版ではありません！"_s);
    QCOMPARE(NoAnswerText(QTime(9, 5, 0)), u"　最新版確認できません．インターネット接続エラー (9時5分0秒)\n"_s);
    QCOMPARE(OutdatedQuestion(QUrl(kHome)), u"現在の KELD は最新版ではありません！\n\n"_s + kHome
                                                + u" より，KELD最新版をダウンロードできます. \n\n"_s + kHome
                                                + u"を開きますか？\n\n( この表示は１日１回のみ )"_s);
}

void VersionCheckTest::theVersionIsFoundOnThePage_data()
{
    QTest::addColumn<QByteArray>("page");
    QTest::addColumn<QString>("version");
    QTest::newRow("alone") << QByteArray("Ver20120101") << u"Ver20120101"_s;
    QTest::newRow("in a page") << QByteArray("<html>\r\n<b>Ver20120101</b>Ver20130101") << u"Ver20120101"_s;
    QTest::newRow("behind other words") << QByteArray("Ver1 Ver\nKELDVer20120101x") << u"Ver20120101"_s;
    QTest::newRow("short line") << QByteArray("Ver2012\r\n0101") << QString();
    QTest::newRow("end of the page") << QByteArray("Ver2") << QString();
    QTest::newRow("other words") << QByteArray("Ver2 is out, see Ver20120101") << QString();
    QTest::newRow("full-width digits") << QByteArray("Ver2\xEF\xBC\x90\xEF\xBC\x91 1") << QString();
    QTest::newRow("none") << QByteArray("ver20120101 VER20120101 Ver1") << QString();
    QTest::newRow("empty") << QByteArray() << QString();
}

void VersionCheckTest::theVersionIsFoundOnThePage()
{
    QFETCH(QByteArray, page);
    QFETCH(QString, version);
    QCOMPARE(VersionOnPage(page).value_or(QString()), version);
}

void VersionCheckTest::theSameOrAnOlderVersionIsUpToDate_data()
{
    QTest::addColumn<QByteArray>("server");
    QTest::newRow("same") << QByteArray("Ver20110808");
    QTest::newRow("older") << QByteArray("Ver20110807");
}

void VersionCheckTest::theSameOrAnOlderVersionIsUpToDate()
{
    QFETCH(QByteArray, server);
    Day day;
    day.answer.body = server;
    QCOMPARE(day.Check(), UpToDateText());
    QVERIFY(day.asked.isEmpty());
    QCOMPARE(day.Record(), kToday + kVersionLine + UpToDateText());
}

void VersionCheckTest::aNewerVersionIsAskedAboutAndTold()
{
    Day day;
    day.answer.body = "Ver20110809";
    QCOMPARE(day.Check(), OutdatedText());
    QCOMPARE(day.asked, QStringList(OutdatedQuestion(QUrl(kHome))));
    QVERIFY(day.done.isEmpty());
    QCOMPARE(day.Record(), kToday + kVersionLine + OutdatedText());
}

void VersionCheckTest::yesOpensTheHomePageAndEnds()
{
    Day day;
    day.answer.body = "Ver20110809";
    day.yes = true;
    QCOMPARE(day.Check(), u"(nothing)"_s);
    QCOMPARE(day.done, (QStringList{kHome, u"quit"_s}));
    QCOMPARE(day.Record(), kToday + kVersionLine);
}

void VersionCheckTest::afterAYesTheNextStartAsksAgain()
{
    Day day;
    day.answer.body = "Ver20110809";
    day.yes = true;
    day.Check();
    day.Check();
    QCOMPARE(day.asked.size(), 2);
}

void VersionCheckTest::theUserIsAskedOnceADay()
{
    Day day;
    day.answer.body = "Ver20110809";
    for (int start = 0; start < 3; ++start)
        QCOMPARE(day.Check(), OutdatedText());
    QCOMPARE(day.asked.size(), 1);
    QCOMPARE(day.requests, 3);
}

void VersionCheckTest::aVersionThatComesOutDuringTheDayIsAskedAbout()
{
    Day day;
    day.answer.body = "Ver20110808";
    QCOMPARE(day.Check(), UpToDateText());
    day.answer.body = "Ver20110809";
    QCOMPARE(day.Check(), OutdatedText());
    QCOMPARE(day.asked.size(), 1);
}

void VersionCheckTest::aNewDayAsksAgain()
{
    Day day;
    day.answer.body = "Ver20110809";
    day.SetRecord(kYesterday + kVersionLine, OutdatedText());
    day.Check();
    QCOMPARE(day.asked.size(), 1);
    day.now = kNow.addDays(1);
    day.Check();
    QCOMPARE(day.asked.size(), 2);
}

void VersionCheckTest::afterNoAnswerNoBoxComesThatDay()
{
    Day day;
    day.answer.status = 0;
    QCOMPARE(day.Check(), NoAnswerText(kNow.time()));
    QCOMPARE(day.Record(), kToday + kVersionLine + NoAnswerText(kNow.time()));
    day.now = kNow.addSecs(3600);
    QCOMPARE(day.Check(), NoAnswerText(QTime(10, 5, 0)));
    day.answer = {200, "Ver20110809"};
    QCOMPARE(day.Check(), OutdatedText());
    QVERIFY(day.asked.isEmpty());
    QCOMPARE(day.requests, 3);
}

void VersionCheckTest::aBrokenRecordCountsAsNone_data()
{
    QTest::addColumn<QString>("lines");
    QTest::newRow("empty") << QString();
    QTest::newRow("words") << u"today\n"_s;
    QTest::newRow("two numbers") << u"2024 3\n"_s + kVersionLine;
    QTest::newRow("no day at all") << u"2024 13 45\n"_s + kVersionLine;
    QTest::newRow("nulls") << QString(40, QChar(u'\0'));
}

void VersionCheckTest::aBrokenRecordCountsAsNone()
{
    QFETCH(QString, lines);
    Day day;
    day.SetRecord(lines, lines.isEmpty() ? QString() : OutdatedText());
    day.answer.body = "Ver20110809";
    QCOMPARE(day.Check(), OutdatedText());
    QCOMPARE(day.asked.size(), 1);
    QCOMPARE(day.Record(), kToday + kVersionLine + OutdatedText());
}

void VersionCheckTest::statusesFrom300OnAreNoAnswer_data()
{
    QTest::addColumn<int>("status");
    QTest::addColumn<bool>("answers");
    for (const int status : {0, 300, 302, 304, 404, 500})
        QTest::addRow("%d", status) << status << false;
    QTest::addRow("200") << 200 << true;
    QTest::addRow("299") << 299 << true;
}

void VersionCheckTest::statusesFrom300OnAreNoAnswer()
{
    QFETCH(int, status);
    QFETCH(bool, answers);
    Day day;
    day.answer = {status, "Ver20110808"};
    QCOMPARE(day.Check(), answers ? UpToDateText() : NoAnswerText(kNow.time()));
}

void VersionCheckTest::aPageWithoutAVersionIsNoAnswer()
{
    Day day;
    day.answer.body = "<html>under construction</html>";
    QCOMPARE(day.Check(), NoAnswerText(kNow.time()));
}

void VersionCheckTest::aPageWithHalfAVersionIsNoAnswer()
{
    Day day;
    day.answer.body = "<html>Ver2 is coming</html>";
    day.yes = true;
    QCOMPARE(day.Check(), NoAnswerText(kNow.time()));
    QVERIFY(day.asked.isEmpty());
}

void VersionCheckTest::withoutABrowserTheAddressIsTold()
{
    Day day;
    day.answer.body = "Ver20110809";
    day.yes = true;
    day.hasBrowser = false;
    QCOMPARE(day.Check(), u"(nothing)"_s);
    QCOMPARE(day.done.size(), 3);
    QCOMPARE(day.done[1], NoBrowserMessage(day.settings.homePage));
    QVERIFY(day.done[1].contains(day.settings.homePage.toString()));
    QCOMPARE(day.done[2], u"quit"_s);
}

void VersionCheckTest::withoutAServerNoRequestGoesOut()
{
    Day day;
    day.settings = {};
    QCOMPARE(day.Check(), QString());
    QCOMPARE(day.requests, 0);
    QCOMPARE(day.Record(), kToday + kVersionLine);
}

void VersionCheckTest::withoutAHomePageNothingIsAsked()
{
    Day day;
    day.settings.homePage.clear();
    day.answer.body = "Ver20110809";
    day.yes = true;
    QCOMPARE(day.Check(), OutdatedText());
    QVERIFY(day.asked.isEmpty());
    QVERIFY(day.done.isEmpty());
}

void VersionCheckTest::aRecordThatCannotBeWrittenEndsTheCheck()
{
    Day day;
    QVERIFY(QDir().mkdir(day.File())); // a folder where the file belongs
    QCOMPARE(day.Check(), QString());
    QCOMPARE(day.requests, 0);
}

void VersionCheckTest::theRecordStandsInTheSystemsFolderWhereItMayBeWritten()
{
    const QTemporaryDir system;
    const QTemporaryDir user;
    QCOMPARE(VersionRecordFolder(system.path(), user.path()), system.path());
    QVERIFY2(QDir(system.path()).isEmpty(), "the trial leaves something behind");
    QVERIFY(CVersionRecord(system.path()).Write(kNow.date(), {}, {}));
    QCOMPARE(VersionRecordFolder(system.path(), user.path()), system.path());

    QCOMPARE(VersionRecordFolder({}, user.path()), user.path());
    QCOMPARE(VersionRecordFolder(system.filePath(u"none"_s), user.path()), user.path());
    const QTemporaryDir taken;
    QVERIFY(QDir(taken.path()).mkdir(u"KELD_VERSION.txt"_s)); // somebody else's
    QCOMPARE(VersionRecordFolder(taken.path(), user.path()), user.path());
}

void VersionCheckTest::theMenuShowsVersionAndResult()
{
    QCOMPARE(VersionMenuText(kSystemVersion, UpToDateText()), u"Ver20110808 ← 最新版KELD"_s);
    QCOMPARE(VersionMenuText(kSystemVersion, NoAnswerText(QTime(1, 2, 3))),
             u"Ver20110808　最新版確認できません．インターネット接続エラー (1時2分3秒)"_s);
    QCOMPARE(VersionMenuText(kSystemVersion, {}), u"Ver20110808"_s);
}

void VersionCheckTest::aServerIsAskedPastAllCaches()
{
    Server server(Reply("200 OK", "Ver20110808"));
    Day day;
    day.network = true;
    day.settings.versionPage = server.Page();
    QCOMPARE(day.Check(), UpToDateText());
    QVERIFY2(server.lastRequest.startsWith("GET /keld/public_html/KELD_newest.htm HTTP/1.1\r\n"), server.lastRequest);
    QVERIFY2(server.lastRequest.toLower().contains("cache-control: no-cache"), server.lastRequest);
}

void VersionCheckTest::overTheNetwork_data()
{
    QTest::addColumn<QByteArray>("reply");
    QTest::addColumn<QString>("result");
    const QString noAnswer = NoAnswerText(kNow.time());
    QTest::newRow("newer") << Reply("200 OK", "<p>Ver20240101</p>") << OutdatedText();
    QTest::newRow("same") << Reply("200 OK", "Ver20110808\r\n") << UpToDateText();
    QTest::newRow("older") << Reply("200 OK", "Ver20100101") << UpToDateText();
    QTest::newRow("accepted") << Reply("202 Accepted", "Ver20110808") << UpToDateText();
    QTest::newRow("choices") << Reply("300 Multiple Choices", "Ver20110808") << noAnswer;
    QTest::newRow("redirection") << Reply("302 Found", "Ver20110808", "Location: /elsewhere\r\n") << noAnswer;
    QTest::newRow("not found") << Reply("404 Not Found", "Ver20110808") << noAnswer;
    QTest::newRow("server error") << Reply("500 Error", "Ver20110808") << noAnswer;
    QTest::newRow("no version") << Reply("200 OK", "maintenance") << noAnswer;
    QTest::newRow("empty page") << Reply("200 OK", "") << noAnswer;
    QTest::newRow("no HTTP") << QByteArray("Ver20110808\r\n\r\n") << noAnswer;
    QTest::newRow("cut off") << QByteArray("HTTP/1.1 200 OK\r\nContent-Length: 1000\r\n\r\nVer20110808") << noAnswer;
    QTest::newRow("endless") << Reply("200 OK", QByteArray(8 << 20, 'x') + "Ver20110808") << noAnswer;
}

void VersionCheckTest::overTheNetwork()
{
    QFETCH(QByteArray, reply);
    QFETCH(QString, result);
    const Server server(reply);
    Day day;
    day.network = true;
    day.settings.versionPage = server.Page();
    QCOMPARE(day.Check(), result);
}

void VersionCheckTest::aServerThatDoesNotAnswerIsGivenUp()
{
    const Server server;
    Day day;
    day.network = true;
    day.settings.versionPage = server.Page();
    QElapsedTimer timer;
    timer.start();
    QCOMPARE(day.Check(), NoAnswerText(kNow.time()));
    QVERIFY(timer.elapsed() >= kHttpTimeout * 9 / 10); // the timer is a coarse one
    QVERIFY(timer.elapsed() < 2 * kHttpTimeout);
}

void VersionCheckTest::aServerThatIsNotThereIsNoAnswer()
{
    Day day;
    day.network = true;
    {
        const Server closed;
        day.settings.versionPage = closed.Page();
    }
    QCOMPARE(day.Check(), NoAnswerText(kNow.time()));
}

void VersionCheckTest::anAnswerAfterTheEndIsNobodys()
{
    Server server(Reply("200 OK", "Ver20110808"));
    const QTemporaryDir folder;
    DeploymentSettings settings;
    settings.versionPage = server.Page();
    {
        CVersionCheck check(folder.path(), settings, {});
        check.CheckVersion();
    }
    QTest::qWait(100); // a crash would show here
    QVERIFY(QFile::exists(folder.filePath(u"KELD_VERSION.txt"_s)));
}

void VersionCheckTest::theCheckDoesNotWaitForTheServer()
{
    const Server server;
    const QTemporaryDir folder;
    DeploymentSettings settings;
    settings.versionPage = server.Page();
    CVersionCheck check(folder.filePath(u"new folder"_s), settings, {});
    QElapsedTimer timer;
    timer.start();
    check.CheckVersion();
    QVERIFY(timer.elapsed() < 500);
}

QTEST_GUILESS_MAIN(VersionCheckTest)
#include "version_check_test.moc"
