// Starts itself as the other process: "--edit PROJECT" is the program with a change and an open editor, "--exit PROJECT"
// the same when the toolkit ends it because the screen has gone.
#include "app/end_signals.h"
#include "document/recovery.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/main_frame.h"
#include "grid/grid_ctrl.h"
#include "panels/panel.h"
#include "tests/document/data_of.h"
#include "tests/surroundings.h"

#include <QApplication>
#include <QFile>
#include <QLineEdit>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

#include <csignal>
#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

int EditUntilEnded(const QString& how, const QString& project)
{
    CMainFrame frame(SilentPrompts([](const QString& text) { std::fprintf(stderr, "%s\n", qPrintable(text)); }));
    const CEndSignals ends(frame);
    frame.show();
    CChildFrame* child = frame.OpenProject(project);
    if (child == nullptr)
        return 3;
    child->GoToBlock(301);
    child->Panel()->GoToCell(1, 2);
    child->FocusPanel();
    if (how == u"--edit"_s) {
        QTest::keyClick(child->Panel()->Grid(), Qt::Key_A);
        child->Panel()->Grid()->viewport()->findChild<QLineEdit*>()->setText(u"TYPED"_s); // stands there alone
    } else {
        test::DataOf(child->Doc()).SetOption(301, 0, "ENTERED");
        child->Doc().SetModifiedFlag(true);
        QTimer::singleShot(0, [] { std::exit(1); });
    }
    std::puts("ready");
    std::fflush(stdout);
    return QApplication::exec();
}

/// The other process.
class Program : public QProcess {
public:
    Program(const QString& how, const QString& project)
    {
        setProcessChannelMode(ForwardedErrorChannel);
        start(QCoreApplication::applicationFilePath(), {how, project});
        while (!canReadLine() && waitForReadyRead(20000)) {
        }
        isReady = readLine().trimmed() == "ready";
    }
    ~Program() override
    {
        kill();
        waitForFinished();
    }
    bool isReady = false;
};

QString Example(const QTemporaryDir& folder)
{
    const QString path = folder.filePath(u"橋.sbd"_s);
    QFile::copy(QString::fromUtf8(test::ExamplesFolder()) + u"/plate4/plate4.sbd"_s, path);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    return path;
}

QByteArray Bytes(const QString& path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class EndSignalsTest : public QObject {
    Q_OBJECT

private slots:
    void init()
    {
        for (const RecoveryCopy& copy : FindRecoveryCopies())
            RemoveRecoveryCopy(copy);
    }
#ifndef Q_OS_WIN
    void aSignalEndsTheProgramBehindItsCopies_data();
    void aSignalEndsTheProgramBehindItsCopies();
    void aSignalThatIsIgnoredStaysIgnored();
#endif
    void aLostScreenLeavesItsCopies();
};

#ifndef Q_OS_WIN
void EndSignalsTest::aSignalEndsTheProgramBehindItsCopies_data()
{
    QTest::addColumn<int>("number");
    QTest::newRow("SIGTERM") << SIGTERM;
    QTest::newRow("SIGHUP") << SIGHUP;
    QTest::newRow("SIGINT") << SIGINT;
}

void EndSignalsTest::aSignalEndsTheProgramBehindItsCopies()
{
    QFETCH(const int, number);
    const QTemporaryDir folder;
    const QString path = Example(folder);
    const QByteArray before = Bytes(path);
    Program program(u"--edit"_s, path);
    QVERIFY(program.isReady);
    // A session that ends sends more than one.
    QCOMPARE(::kill(static_cast<pid_t>(program.processId()), number), 0);
    QCOMPARE(::kill(static_cast<pid_t>(program.processId()), SIGHUP), 0);
    QVERIFY(program.waitForFinished(20000));
    QCOMPARE(program.exitStatus(), QProcess::NormalExit);
    QVERIFY(program.exitCode() == 128 + number || program.exitCode() == 128 + SIGHUP);
    const QList<RecoveryCopy> copies = FindRecoveryCopies();
    QCOMPARE(copies.size(), 1);
    QCOMPARE(copies[0].project, path);
    QVERIFY(Bytes(copies[0].file).startsWith("TITLE:TYPED\r\n"));
    QCOMPARE(Bytes(path), before);
}

void EndSignalsTest::aSignalThatIsIgnoredStaysIgnored()
{
    const QTemporaryDir folder;
    std::signal(SIGHUP, SIG_IGN); // what is started under nohup inherits it
    Program program(u"--edit"_s, Example(folder));
    std::signal(SIGHUP, SIG_DFL);
    QVERIFY(program.isReady);
    QCOMPARE(::kill(static_cast<pid_t>(program.processId()), SIGHUP), 0);
    QVERIFY(!program.waitForFinished(1000));
    QCOMPARE(program.state(), QProcess::Running);
}
#endif

void EndSignalsTest::aLostScreenLeavesItsCopies()
{
#ifdef Q_OS_WIN
    QSKIP("Windows takes no screen from a program; a session that ends asks first");
#endif
    const QTemporaryDir folder;
    const QString path = Example(folder);
    Program program(u"--exit"_s, path);
    QVERIFY(program.isReady);
    QVERIFY(program.waitForFinished(20000));
    QCOMPARE(program.exitCode(), 1);
    const QList<RecoveryCopy> copies = FindRecoveryCopies();
    QCOMPARE(copies.size(), 1);
    QVERIFY(Bytes(copies[0].file).startsWith("TITLE:ENTERED\r\n"));
}

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() == 3 && arguments[1].startsWith(u"--e"_s))
        return EditUntilEnded(arguments[1], arguments[2]);
    EndSignalsTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "end_signals_test.moc"
