// What an engine gets on Windows: the text that it is started with, and nothing else of ours.
#include "answers.h"
#include "document/engine_command.h"
#include "document/project_lock.h"
#include "document/save_flow.h"
#include "frame/engine_process.h"
#include "tests/surroundings.h"

#include <QDir>
#include <QTest>
#include <QTimer>

#include <windows.h>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

/// A folder with the engines and one with a project, by the names that a test gives them.
struct Place {
    TestFolder folder;
    QString engines;
    QString project;

    explicit Place(const QString& engineFolder = u"KELD"_s, const QString& name = u"bridge"_s)
        : engines(folder.Path(engineFolder))
        , project(QDir::toNativeSeparators(folder.Example(u"plate4"_s, name)))
    {
        QDir().mkpath(engines);
        for (const EngineRunInfo& info : EngineRuns())
            QFile::copy(QString::fromUtf8(test::EngineFolder()) + u'/' + info.engine, engines + u'/' + info.engine);
    }

    /// Runs an engine that does this, one verb a line (tests/engine/engine.cpp).
    [[nodiscard]] bool Run(EngineRun run, const QByteArray& verbs) const
    {
        QFile file(BasePath(project) + u".engine"_s);
        if (!file.open(QFile::WriteOnly))
            return false;
        file.write(verbs);
        file.close();
        return RunEngineProcess(nullptr, {run, EnginePath(run, engines), project}).started;
    }

    /// What the engine wrote.
    [[nodiscard]] QString Written(const QString& extension) const
    {
        return QString::fromUtf8(Bytes(BasePath(project) + extension));
    }
};

} // namespace

class EngineProcessTest : public QObject {
    Q_OBJECT

private slots:
    void theCommandLineIsTheText_data();
    void theCommandLineIsTheText();
    void theFolderAndTheVariablesAreOurs();
    void noHandleIsHandedDown();
    void theProjectIsFreeForTheEngine();
    void aFaultOpensNoWindowAndComesBack();
    void aProjectOfALongPathReachesTheEngine();
};

void EngineProcessTest::theCommandLineIsTheText_data()
{
    QTest::addColumn<QString>("engines");
    QTest::addColumn<QString>("name");
    QTest::newRow("plain") << u"KELD"_s << u"bridge"_s;
    QTest::newRow("project with blanks") << u"KELD"_s << u"the  bridge 1"_s;
    QTest::newRow("Japanese project") << u"KELD"_s << u"県道１２号線　ソ表能"_s;
    QTest::newRow("engine with blanks") << u"my programs"_s << u"bridge"_s;
    QTest::newRow("Japanese engine") << u"設計ソ"_s << u"橋"_s;
    QTest::newRow("all") << u"設計 課　ソ"_s << u"橋 ソ 1"_s;
}

void EngineProcessTest::theCommandLineIsTheText()
{
    QFETCH(const QString, engines);
    QFETCH(const QString, name);
    const Place place(engines, name);
    const std::pair<EngineRun, QString> behindThePath[] = {
        {EngineRun::Check, u"\" CHECK"_s}, {EngineRun::Main, u"\" RUN"_s}, {EngineRun::Result, u"\" RESULT"_s},
        {EngineRun::Cross, u""_s},         {EngineRun::Support, u""_s}, // these get no closing quote
    };
    for (const auto& [run, ending] : behindThePath) {
        QVERIFY(place.Run(run, "args\ncommandline\n"));
        QString engine = QDir::toNativeSeparators(place.engines) + u'\\' + InfoOf(run).engine;
        if (engine.contains(u' '))
            engine = u'"' + engine + u'"';
        QCOMPARE(place.Written(u".commandline"_s), engine + u" \""_s + place.project + ending);
        QCOMPARE(place.Written(u".args"_s).section(u'\n', 0, 0), place.project);
    }
}

void EngineProcessTest::theFolderAndTheVariablesAreOurs()
{
    const Place place;
    qputenv("SBD_ENGINE_TEST", "a value");
    QVERIFY(place.Run(EngineRun::Main, "surroundings\n"));
    qunsetenv("SBD_ENGINE_TEST");
    const QStringList lines = place.Written(u".surroundings"_s).split(u'\n');
    QCOMPARE(lines[0], QDir::toNativeSeparators(QDir::currentPath()));
    QCOMPARE(lines[1], u"a value"_s);
}

void EngineProcessTest::noHandleIsHandedDown()
{
    const Place place;
    const QString ours = place.folder.Path(u"ours.txt"_s);
    SECURITY_ATTRIBUTES inheritable{sizeof inheritable, nullptr, TRUE};
    const HANDLE file =
        CreateFileW(ours.toStdWString().c_str(), GENERIC_WRITE, 0, &inheritable, CREATE_NEW, 0, nullptr);
    QVERIFY(file != INVALID_HANDLE_VALUE);
    auto state = CProjectLock::State::Failed;
    QTimer::singleShot(300, [&] { // while the engine runs
        CloseHandle(file);
        state = CProjectLock::Look(ours);
    });
    QVERIFY(place.Run(EngineRun::Main, "sleep 1000\n"));
    QCOMPARE(state, CProjectLock::State::Free);
}

void EngineProcessTest::theProjectIsFreeForTheEngine()
{
    const Place place;
    QVERIFY(place.Run(EngineRun::Main, "value RESET_RESULTS NO\n"));
    QVERIFY(Bytes(place.project).contains("RESET_RESULTS"));
    QCOMPARE(CProjectLock::Look(place.project), CProjectLock::State::Free);
}

void EngineProcessTest::aFaultOpensNoWindowAndComesBack()
{
    const Place place;
    const UINT before = SetErrorMode(0); // as it is in the program; a test has its own
    QVERIFY(place.Run(EngineRun::Main, "surroundings\ncrash\nexit 0\n"));
    QCOMPARE(SetErrorMode(before), UINT{0});
    if (GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr)
        QSKIP("Wine does not hand the error mode down");
    QCOMPARE(place.Written(u".surroundings"_s).section(u'\n', 2, 2), QString::number(SEM_NOGPFAULTERRORBOX));
}

void EngineProcessTest::aProjectOfALongPathReachesTheEngine()
{
    const Place place;
    QString folder = place.folder.Path(u"deep"_s);
    while (folder.size() < 400)
        folder += u'/' + QString(80, u'd');
    QVERIFY(QDir().mkpath(folder));
    const QString project = QDir::toNativeSeparators(folder + u"/橋.sbd"_s);
    QVERIFY(QFile::copy(place.project, project));
    QCOMPARE(EngineCommandText({EngineRun::Main, u"C:\\e.exe"_s, project}), u"C:\\e.exe \""_s + project + u"\" RUN"_s);
    // Whether an engine can open it is up to the engine.
    QVERIFY(RunEngineProcess(nullptr, {EngineRun::Main, EnginePath(EngineRun::Main, place.engines), project}).started);
}

QTEST_MAIN(EngineProcessTest)
#include "engine_process_windows_test.moc"
