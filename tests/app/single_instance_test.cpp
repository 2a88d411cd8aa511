// Starts itself as the other processes: "--start NAME PATIENCE PATH..." is one start of a program. It prints its role;
// as the first one it then prints the requests that come in, until its input closes.
#include "app/single_instance.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLocalServer>
#include <QLocalSocket>
#include <QLockFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <QWidget>

#include <cstdio>
#include <memory>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

const auto kStart = u"--start"_s;

void Print(const QString& text)
{
    std::printf("%s\n", text.toUtf8().constData());
    std::fflush(stdout);
}

QString RoleName(CSingleInstance::Role role)
{
    switch (role) {
    case CSingleInstance::Role::First:
        return u"first"_s;
    case CSingleInstance::Role::Second:
        return u"second"_s;
    case CSingleInstance::Role::Unanswered:
        return u"unanswered"_s;
    }
    return {};
}

/// One start of the program.
int RunStart(const QStringList& arguments)
{
    CSingleInstance instance(arguments[2]);
    instance.patience = arguments[3].toInt();
    QObject::connect(&instance, &CSingleInstance::requested, [](const StartRequest& request) {
        Print(u"request "_s + request.paths.join(u'|') + u' ' + QString::fromUtf8(request.activationToken));
    });
    const CSingleInstance::Role role = instance.Start(RequestOf(arguments.mid(4)));
    Print(RoleName(role));
    if (role != CSingleInstance::Role::First)
        return 0;
    const std::unique_ptr<QThread> input(QThread::create([] {
        while (std::getchar() != EOF) {
        }
        QMetaObject::invokeMethod(qApp, &QCoreApplication::quit, Qt::QueuedConnection);
    }));
    input->start();
    const int code = QCoreApplication::exec();
    input->wait();
    return code;
}

/// Another process.
class Start : public QProcess {
public:
    explicit Start(const QString& name, const QStringList& paths = {}, int patience = 5000, const QString& folder = {})
    {
        if (!folder.isEmpty())
            setWorkingDirectory(folder);
        start(QCoreApplication::applicationFilePath(), QStringList{kStart, name, QString::number(patience)} + paths);
    }
    ~Start() override
    {
        kill();
        waitForFinished();
    }
    /// The next line that it prints.
    QString Line()
    {
        while (!canReadLine()) {
            if (!waitForReadyRead(10000))
                return u"(nothing)"_s;
        }
        return QString::fromUtf8(readLine()).trimmed();
    }
};

/// A path as a request has it: with a drive where there are drives.
QString Full(const QString& path)
{
    return QFileInfo(path).absoluteFilePath();
}

struct Name {
    QTemporaryDir folder;
    QString name = folder.filePath(u"socket"_s);
};

} // namespace

class SingleInstanceTest : public QObject {
    Q_OBJECT

private slots:
    void theSecondStartHandsItsProjectsOver();
    void relativePathsAreThoseOfTheSecondStart();
    void aStartWithoutProjectsBringsTheFirstOneToTheFront();
    void theActivationTokenIsHandedOver();
    void afterTheFirstOneHasEndedTheNextIsFirst();
    void aCrashedOneDoesNotStandInTheWay();
    void aCrashedOneThatHadOurNumberDoesNotStandInTheWay();
    void ofManyStartsAtOneMomentOneIsFirst();
    void aBusyFirstOneFindsTheRequestLater();
    void aFirstOneThatDoesNotListenIsToldApart();
    void aStartWhileTheFirstOneEndsBecomesTheFirst();
    void aFirstOneThatHangsUpWithoutAWordHasNotTakenTheRequest();
    void whoTakesTheLockOfAnEndingOneIsHeard();
    void aBoxOnTheFirstOneOutlivesTheSecond();
    void otherNamesAreOtherPrograms();
    void nonsenseOnTheSocketIsPassedOver();
    void aFolderThatTakesNoLockLetsTheProgramStart();
    void theNameIsShortAndOfTheSession();
    void aMinimisedWindowComesBack();
};

void SingleInstanceTest::theSecondStartHandsItsProjectsOver()
{
    const Name name;
    Start first(name.name);
    QCOMPARE(first.Line(), u"first"_s);
    Start second(name.name, {u"/data/a.sbd"_s, u"/data/橋 二.sbd"_s});
    QCOMPARE(second.Line(), u"second"_s);
    QVERIFY(second.waitForFinished());
    QCOMPARE(second.exitCode(), 0);
    QCOMPARE(first.Line(), u"request "_s + Full(u"/data/a.sbd"_s) + u'|' + Full(u"/data/橋 二.sbd"_s));
}

void SingleInstanceTest::relativePathsAreThoseOfTheSecondStart()
{
    const Name name;
    Start first(name.name);
    QCOMPARE(first.Line(), u"first"_s);
    const QTemporaryDir there;
    Start second(name.name, {u"b.sbd"_s}, 5000, there.path());
    QCOMPARE(second.Line(), u"second"_s);
    QCOMPARE(first.Line(), u"request "_s + QDir(there.path()).canonicalPath() + u"/b.sbd"_s);
}

void SingleInstanceTest::aStartWithoutProjectsBringsTheFirstOneToTheFront()
{
    const Name name;
    CSingleInstance first(name.name);
    int requests = 0;
    connect(&first, &CSingleInstance::requested, this, [&](const StartRequest& request) {
        ++requests;
        QVERIFY(request.paths.isEmpty());
    });
    QCOMPARE(first.Start({}), CSingleInstance::Role::First);
    for (int i = 1; i <= 3; ++i) {
        Start second(name.name);
        QTRY_COMPARE(requests, i);
    }
}

void SingleInstanceTest::theActivationTokenIsHandedOver()
{
    const Name name;
    Start first(name.name);
    QCOMPARE(first.Line(), u"first"_s);
    qputenv("XDG_ACTIVATION_TOKEN", "token-1");
    Start second(name.name);
    QCOMPARE(second.Line(), u"second"_s);
    qunsetenv("XDG_ACTIVATION_TOKEN");
    QCOMPARE(first.Line(), u"request  token-1"_s);
}

void SingleInstanceTest::afterTheFirstOneHasEndedTheNextIsFirst()
{
    const Name name;
    Start first(name.name);
    QCOMPARE(first.Line(), u"first"_s);
    first.closeWriteChannel();
    QVERIFY(first.waitForFinished());
    Start next(name.name);
    QCOMPARE(next.Line(), u"first"_s);
}

void SingleInstanceTest::aCrashedOneDoesNotStandInTheWay()
{
    const Name name;
    for (int i = 0; i < 2; ++i) {
        Start crashing(name.name);
        QCOMPARE(crashing.Line(), u"first"_s);
        crashing.kill(); // leaves its socket and its lock file
        QVERIFY(crashing.waitForFinished());
    }
    Start next(name.name);
    QCOMPARE(next.Line(), u"first"_s);
    Start second(name.name, {u"/a.sbd"_s});
    QCOMPARE(second.Line(), u"second"_s);
    QCOMPARE(next.Line(), u"request "_s + Full(u"/a.sbd"_s));
}

void SingleInstanceTest::aCrashedOneThatHadOurNumberDoesNotStandInTheWay()
{
    const Name name;
    QByteArray bytes;
    {
        CSingleInstance before(name.name);
        QCOMPARE(before.Start({}), CSingleInstance::Role::First);
        QFile lock(name.name + u".lock"_s);
        QVERIFY(lock.open(QFile::ReadOnly));
        bytes = lock.readAll();
    }
    QVERIFY(bytes.startsWith(QByteArray::number(QCoreApplication::applicationPid()) + '\n'));
    QFile lock(name.name + u".lock"_s);
    QVERIFY(lock.open(QFile::WriteOnly));
    lock.write(bytes); // as a process with our number leaves it that is killed
    lock.close();
    CSingleInstance next(name.name);
    next.patience = 200;
    QCOMPARE(next.Start({}), CSingleInstance::Role::First);
    Start second(name.name); // and it is locked again
    QTRY_COMPARE(second.bytesAvailable() > 0, true);
    QCOMPARE(second.Line(), u"second"_s);
}

void SingleInstanceTest::ofManyStartsAtOneMomentOneIsFirst()
{
    const Name name;
    std::vector<std::unique_ptr<Start>> starts;
    for (int i = 0; i < 6; ++i)
        starts.push_back(std::make_unique<Start>(name.name));
    int firsts = 0;
    for (const std::unique_ptr<Start>& start : starts) {
        const QString role = start->Line();
        QVERIFY2(role == u"first"_s || role == u"second"_s, qPrintable(role));
        firsts += role == u"first"_s ? 1 : 0;
    }
    QCOMPARE(firsts, 1);
}

void SingleInstanceTest::aBusyFirstOneFindsTheRequestLater()
{
    const Name name;
    CSingleInstance first(name.name);
    QStringList paths;
    connect(&first, &CSingleInstance::requested, this, [&](const StartRequest& request) { paths += request.paths; });
    QCOMPARE(first.Start({}), CSingleInstance::Role::First);
    Start second(name.name, {u"/a.sbd"_s}, 300);
    const QString role = second.Line(); // while no event loop runs here
    QVERIFY(second.waitForFinished());
    QVERIFY(paths.isEmpty());
#ifdef Q_OS_WIN
    QCOMPARE(role, u"unanswered"_s); // a pipe takes no byte ahead of its reader, so that the user is told
#else
    QCOMPARE(role, u"second"_s);
    QTRY_COMPARE(paths, QStringList(u"/a.sbd"_s));
#endif
}

void SingleInstanceTest::aFirstOneThatDoesNotListenIsToldApart()
{
    const Name name;
    QLockFile first(name.name + u".lock"_s);
    QVERIFY(first.tryLock());
    Start second(name.name, {u"/a.sbd"_s}, 300);
    QCOMPARE(second.Line(), u"unanswered"_s);
    QVERIFY(!UnansweredMessage().isEmpty());
}

void SingleInstanceTest::aStartWhileTheFirstOneEndsBecomesTheFirst()
{
    const Name name;
    QLockFile ending(name.name + u".lock"_s); // it listens no more
    QVERIFY(ending.tryLock());
    Start next(name.name, {u"/a.sbd"_s});
    QVERIFY(next.waitForStarted());
    QVERIFY(!next.waitForReadyRead(700));
    ending.unlock();
    QCOMPARE(next.Line(), u"first"_s);
    Start second(name.name, {u"/b.sbd"_s});
    QCOMPARE(second.Line(), u"second"_s);
    QCOMPARE(next.Line(), u"request "_s + Full(u"/b.sbd"_s));
}

void SingleInstanceTest::aFirstOneThatHangsUpWithoutAWordHasNotTakenTheRequest()
{
    const Name name;
    auto lock = std::make_unique<QLockFile>(name.name + u".lock"_s);
    QVERIFY(lock->tryLock());
    auto server = std::make_unique<QLocalServer>();
    QVERIFY(server->listen(name.name));
    Start next(name.name, {u"/a.sbd"_s});
    QVERIFY(server->waitForNewConnection(10000));
    server.reset(); // its end, with a request on the way
    lock.reset();
    QCOMPARE(next.Line(), u"first"_s);
}

void SingleInstanceTest::whoTakesTheLockOfAnEndingOneIsHeard()
{
    const Name name;
    for (int i = 0; i < 10; ++i) {
        auto ending = std::make_unique<CSingleInstance>(name.name);
        QCOMPARE(ending->Start({}), CSingleInstance::Role::First);
        Start next(name.name);
        QTest::qWait(i * 10);
        ending.reset();
        const QString role = next.Line();
        if (role == u"second"_s)
            continue; // it has come in time
        QCOMPARE(role, u"first"_s);
        Start second(name.name, {u"/a.sbd"_s});
        QCOMPARE(second.Line(), u"second"_s);
        QCOMPARE(next.Line(), u"request "_s + Full(u"/a.sbd"_s));
    }
}

void SingleInstanceTest::aBoxOnTheFirstOneOutlivesTheSecond()
{
    const Name name;
    CSingleInstance first(name.name);
    QLocalSocket second;
    bool wordsAreRead = false; // the socket has come to the end of its own call
    bool requestCameBehind = false;
    bool boxIsClosed = false;
    connect(&first, &CSingleInstance::requested, this, [&] {
        requestCameBehind = wordsAreRead;
        // A message about the project, which the user reads while the second start ends and its socket goes.
        QEventLoop box;
        QTimer::singleShot(100, &second, &QLocalSocket::disconnectFromServer);
        QTimer::singleShot(500, &box, &QEventLoop::quit);
        box.exec();
        boxIsClosed = true;
    });
    QCOMPARE(first.Start({}), CSingleInstance::Role::First);
    second.connectToServer(name.name);
    QVERIFY(second.waitForConnected());
    QTRY_VERIFY(first.findChild<QLocalSocket*>() != nullptr);
    auto* socket = first.findChild<QLocalSocket*>();
    connect(socket, &QLocalSocket::readyRead, this, [&] { wordsAreRead = true; });
    second.write("{\"paths\":[\"/a.sbd\"]}\n");
    QTRY_VERIFY(boxIsClosed);
    QVERIFY(requestCameBehind);
}

void SingleInstanceTest::otherNamesAreOtherPrograms()
{
    const Name a;
    const Name b;
    CSingleInstance first(a.name);
    CSingleInstance other(b.name);
    QCOMPARE(first.Start({}), CSingleInstance::Role::First);
    QCOMPARE(other.Start({}), CSingleInstance::Role::First);
}

void SingleInstanceTest::nonsenseOnTheSocketIsPassedOver()
{
    const Name name;
    CSingleInstance first(name.name);
    int requests = 0;
    connect(&first, &CSingleInstance::requested, this, [&] { ++requests; });
    QCOMPARE(first.Start({}), CSingleInstance::Role::First);
    const QList<QByteArray> nonsense = {"GET / HTTP/1.0\r\n\r\n",
                                        "[1,2]\n",
                                        "{\"paths\":",
                                        QByteArray(3 << 20, 'x'),
                                        QByteArray(100000, '[') + '\n',
                                        QByteArray(16, '\xff') + '\n',
                                        {}};
    for (const QByteArray& bytes : nonsense) {
        QLocalSocket socket;
        socket.connectToServer(name.name);
        QVERIFY(socket.waitForConnected());
        socket.write(bytes);
        socket.flush();
        QTest::qWait(20);
    }
    Start second(name.name);
    QTRY_COMPARE(requests, 1);
}

void SingleInstanceTest::aFolderThatTakesNoLockLetsTheProgramStart()
{
    const Name name;
    CSingleInstance first(name.folder.filePath(u"no folder/socket"_s));
    QCOMPARE(first.Start({}), CSingleInstance::Role::First);
}

void SingleInstanceTest::theNameIsShortAndOfTheSession()
{
    const QString name = CSingleInstance::SessionName();
    QCOMPARE(CSingleInstance::SessionName(), name);
    const QString file = name.section(u'/', -1);
    QVERIFY(file.startsWith(u"sbdstation-"_s) && file.size() < 32);
#ifndef Q_OS_WIN
    const QByteArray display = qgetenv("DISPLAY");
    qputenv("DISPLAY", display + "9");
    QVERIFY(CSingleInstance::SessionName() != name);
    qputenv("DISPLAY", display);
#else
    const QByteArray folder = qgetenv("TMP");
    qputenv("TMP", "C:\\"); // the lock file would be another
    QVERIFY(CSingleInstance::SessionName() != name);
    qputenv("TMP", folder);
#endif
}

void SingleInstanceTest::aMinimisedWindowComesBack()
{
    QWidget window;
    window.showMinimized();
    QVERIFY(window.isMinimized());
    BringToFront(window, {});
    QVERIFY(!window.isMinimized());
    QVERIFY(window.isVisible());

    window.showMaximized();
    window.setWindowState(window.windowState() | Qt::WindowMinimized);
    BringToFront(window, {});
    QVERIFY(window.isMaximized());
}

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    if (app.arguments().value(1) == kStart)
        return RunStart(app.arguments());
    SingleInstanceTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "single_instance_test.moc"
