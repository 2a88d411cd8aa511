// The program itself, started as a user's desktop starts it.
#include "app/version_record.h"
#include "document/project_lock.h"
#include "document/recovery.h"
#include "document/section_doc.h"
#include "tests/surroundings.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QLockFile>
#include <QProcess>
#include <QSettings>
#include <QStandardPaths>
#include <QTcpServer>
#include <QTcpSocket>
#include <QTemporaryDir>
#include <QTest>

#include <memory>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

constexpr int kPatience = 30'000; // ms, of a busy machine

/// A user's home, and two projects in it.
class Home {
public:
    Home()
    {
        for (const QString& name : {u"config"_s, u"state"_s, u"run"_s, u"program"_s})
            QDir().mkpath(Path(name));
        QFile::setPermissions(Path(u"run"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        for (const QString& name : {u"plate4"_s, u"box2"_s}) {
            QFile::copy(QString::fromUtf8(test::ExamplesFolder()) + u'/' + name + u'/' + name + u".sbd"_s,
                        Project(name));
            QFile::setPermissions(Project(name), QFile::ReadOwner | QFile::WriteOwner);
        }
    }
    [[nodiscard]] QString Path(const QString& name) const { return folder_.filePath(name); }
    [[nodiscard]] QString Project(const QString& name) const { return Path(name + u" 橋.sbd"_s); }

    /// The program with this home and its folder of engines and settings.
    [[nodiscard]] QProcessEnvironment Environment() const
    {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(u"QT_QPA_PLATFORM"_s, u"offscreen"_s);
        environment.insert(u"XDG_CONFIG_HOME"_s, Path(u"config"_s));
        environment.insert(u"XDG_STATE_HOME"_s, Path(u"state"_s));
        environment.insert(u"XDG_RUNTIME_DIR"_s, Path(u"run"_s));
        for (const QString& name : {u"TMP"_s, u"TEMP"_s}) // where Windows has files of the run
            environment.insert(name, QDir::toNativeSeparators(Path(u"run"_s)));
        return environment;
    }

    /// What a start has left to say that it is the first one.
    [[nodiscard]] QString LockFile() const
    {
        const QFileInfoList locks = QDir(Path(u"run"_s)).entryInfoList({u"sbdstation-*.lock"_s});
        return locks.size() == 1 ? locks[0].filePath() : QString();
    }

    /// A copy of the program beside a deployment.ini of our own; its path.
    [[nodiscard]] QString DeployedProgram(const QByteArray& settings) const
    {
        const QString program = Path(u"program/"_s + QFileInfo(QStringLiteral(STATION)).fileName());
        QFile::copy(QStringLiteral(STATION), program);
        QFile ini(Path(u"program/deployment.ini"_s));
        if (ini.open(QFile::WriteOnly))
            ini.write(settings);
        return program;
    }

private:
    QTemporaryDir folder_;
};

class Start : public QProcess {
public:
    explicit Start(const Home& home, const QStringList& projects = {}, const QString& program = QStringLiteral(STATION))
    {
        setProcessEnvironment(home.Environment());
        setProcessChannelMode(ForwardedChannels);
        start(program, projects);
    }
    ~Start() override
    {
        kill();
        waitForFinished();
    }
};

/// True when somebody holds the project, and not only glances at it as an opening does before it reads.
bool IsHeld(const QString& project)
{
    return CProjectLock::LookPatiently(project) == CProjectLock::State::Held;
}

#ifdef Q_OS_WIN
/// On Windows record and profile of the program are those of the user: they are put aside for a test, and put back.
class UsersOwn {
public:
    UsersOwn()
    {
        QStandardPaths::setTestModeEnabled(false);
        QCoreApplication::setApplicationName(u"sbdstation"_s);
        Record().rename(Record().fileName() + u".aside"_s);
        files_ = Profile().value(kFiles);
    }
    ~UsersOwn()
    {
        Record().remove();
        QFile(Record().fileName() + u".aside"_s).rename(Record().fileName());
        if (files_.isValid())
            Profile().setValue(kFiles, files_);
        else
            Profile().remove(kFiles);
    }
    UsersOwn(const UsersOwn&) = delete;
    UsersOwn& operator=(const UsersOwn&) = delete;

    [[nodiscard]] static QFile Record()
    {
        const QString folder = VersionRecordFolder(qEnvironmentVariable("SystemRoot"), StateFolder());
        return QFile(folder + u"/KELD_VERSION.txt"_s);
    }

private:
    [[nodiscard]] static QSettings Profile()
    {
        return QSettings(QSettings::NativeFormat, QSettings::UserScope, u"KELD"_s, u"KELD section"_s);
    }
    static inline const QString kFiles = u"Recent File List/Files"_s;
    QVariant files_;
};
#endif

bool HasRecord(const Home& home)
{
#ifdef Q_OS_WIN
    (void)home;
    return UsersOwn::Record().exists();
#else
    return QFile::exists(home.Path(u"state/sbdstation/KELD_VERSION.txt"_s));
#endif
}

/// The third line of the record of the day: the result of the version check. Empty as long as there is none.
QString StoredResult(const Home& home)
{
#ifdef Q_OS_WIN
    (void)home;
    QFile file(UsersOwn::Record().fileName());
#else
    QFile file(home.Path(u"state/sbdstation/KELD_VERSION.txt"_s));
#endif
    if (!file.open(QFile::ReadOnly))
        return {};
    const QList<QByteArray> lines = file.readAll().split('\n');
    return lines.size() < 3 ? QString() : toQString(lines[2].toStdString());
}

/// Answers every request with one page, and counts them.
class PageServer : public QTcpServer {
public:
    explicit PageServer(QByteArray answer) : answer_(std::move(answer))
    {
        listen(QHostAddress::LocalHost);
        connect(this, &QTcpServer::newConnection, this, [this] {
            QTcpSocket* socket = nextPendingConnection();
            connect(socket, &QTcpSocket::readyRead, this, [this, socket] {
                requests += socket->readAll();
                socket->write(answer_);
                socket->disconnectFromHost();
            });
        });
    }
    QByteArray requests;

private:
    QByteArray answer_;
};

} // namespace

class StartTest : public QObject {
    Q_OBJECT

private slots:
#ifdef Q_OS_WIN
    void init()
    {
        own_ = std::make_unique<UsersOwn>();
    }
    void cleanup()
    {
        own_.reset();
    }
#endif
    void aSecondStartHandsItsProjectToTheFirst();
    void aFirstStartThatCrashedDoesNotBlockTheNext();
    void aSecondStartAloneEndsWithoutAWord();
    void aStartWhileTheFirstOneEndsOpensItsProject();
    void aNewerVersionIsWrittenToTheRecord();
    void withoutAServerNoRequestGoesOut();

#ifdef Q_OS_WIN
private:
    std::unique_ptr<UsersOwn> own_;
#endif
};

void StartTest::aSecondStartHandsItsProjectToTheFirst()
{
    const Home home;
    Start first(home, {home.Project(u"plate4"_s)});
    QTRY_VERIFY_WITH_TIMEOUT(IsHeld(home.Project(u"plate4"_s)), kPatience);
    Start second(home, {home.Project(u"box2"_s)});
    QVERIFY(second.waitForFinished(kPatience));
    QCOMPARE(second.exitCode(), 0);
    QTRY_VERIFY_WITH_TIMEOUT(IsHeld(home.Project(u"box2"_s)), kPatience);
    QCOMPARE(first.state(), QProcess::Running);
}

void StartTest::aFirstStartThatCrashedDoesNotBlockTheNext()
{
    const Home home;
    const QString project = home.Project(u"plate4"_s);
    {
        const Start first(home, {project});
        QTRY_VERIFY_WITH_TIMEOUT(IsHeld(project), kPatience);
    } // killed
    QVERIFY(!IsHeld(project));
    const Start next(home, {project});
    QTRY_VERIFY_WITH_TIMEOUT(IsHeld(project), kPatience);
}

void StartTest::aSecondStartAloneEndsWithoutAWord()
{
    const Home home;
    const Start first(home, {home.Project(u"plate4"_s)});
    QTRY_VERIFY_WITH_TIMEOUT(IsHeld(home.Project(u"plate4"_s)), kPatience);
    Start second(home);
    QVERIFY(second.waitForFinished(kPatience));
    QCOMPARE(second.exitCode(), 0);
}

void StartTest::aStartWhileTheFirstOneEndsOpensItsProject()
{
    const Home home;
    const QString project = home.Project(u"plate4"_s);
    {
        const Start first(home, {project});
        QTRY_VERIFY_WITH_TIMEOUT(IsHeld(project), kPatience);
    }
    QVERIFY(!home.LockFile().isEmpty());
    QLockFile ending(home.LockFile()); // we are the first one, which listens no more
    QVERIFY(ending.tryLock());
    const Start next(home, {project});
    QTest::qWait(2000);
    QCOMPARE(next.state(), QProcess::Running);
    QVERIFY(!IsHeld(project));
    ending.unlock();
    QTRY_VERIFY_WITH_TIMEOUT(IsHeld(project), kPatience);
}

void StartTest::aNewerVersionIsWrittenToTheRecord()
{
    const Home home;
    PageServer server("HTTP/1.1 200 OK\r\nConnection: close\r\n\r\n<p>Ver20991231</p>");
    const QString program =
        home.DeployedProgram("[Version]\nServer=127.0.0.1:" + QByteArray::number(server.serverPort()) + '\n');
    const Start start(home, {}, program);
    QTRY_VERIFY_WITH_TIMEOUT(server.requests.contains("\r\n\r\n"), kPatience);
    QVERIFY(server.requests.startsWith("GET /keld/public_html/KELD_newest.htm "));
    QTRY_COMPARE_WITH_TIMEOUT(StoredResult(home), OutdatedText(), kPatience);
}

void StartTest::withoutAServerNoRequestGoesOut()
{
    const Home home;
    const Start start(home, {home.Project(u"plate4"_s)});
    QTRY_VERIFY_WITH_TIMEOUT(IsHeld(home.Project(u"plate4"_s)), kPatience);
    QTRY_VERIFY_WITH_TIMEOUT(HasRecord(home), kPatience);
    QTest::qWait(500);
    QCOMPARE(StoredResult(home), QString()); // nobody was asked, so nothing has failed
}

QTEST_GUILESS_MAIN(StartTest)
#include "start_test.moc"
