// Proofs by force: the program is killed while it saves, keeps copies and runs engines, and nothing may be lost. As a
// test a few times; scripts/kill-proofs.sh does it as often as it takes to believe it (SBD_KILLS=whole).
// Starts itself as the other process: "--save PROJECT", "--copy PROJECT" and "--run MOMENT check|main PROJECT".
#include "frame/notice_bar.h"
#include "life_station.h"
#include "sbdfile/writer.h"
#include "tests/surroundings.h"
#include "upperview/chk_page.h"

#include <QDir>
#include <QElapsedTimer>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QThread>
#include <QTimer>

#include <algorithm>
#include <cstdio>
#include <random>

using namespace sbd;

namespace {

bool IsWholeProof()
{
    return qEnvironmentVariable("SBD_KILLS") == u"whole"_s;
}

// ---- the other process

void Say(const QByteArray& word)
{
    std::puts(word.constData());
    std::fflush(stdout);
}

[[noreturn]] void StayHere(const QByteArray& word)
{
    Say(word);
    for (;;)
        QThread::sleep(1000); // nothing goes on until it is killed
}

/// Titles of many lengths: no two files of a row are of one size.
QByteArray TitleOf(const char* word, int number)
{
    return word + (' ' + QByteArray::number(number)) + ' ' + QByteArray(number % 40, 'x');
}

/// Enters one title after the other and keeps it, as `keep` does.
int KeepUntilKilled(const QString& project, const char* word, bool (*keep)(CMainFrame&, CChildFrame&))
{
    return ChangeUntilKilled(project, [&](CMainFrame& frame, CChildFrame& child, int number) {
        Enter(child, TitleOf(word, number).constData());
        if (!keep(frame, child))
            return false;
        Say(QByteArray::number(number));
        return true;
    });
}

int SaveUntilKilled(const QString& project)
{
    return KeepUntilKilled(project, "SAVE", [](CMainFrame& frame, CChildFrame& child) {
        frame.RunCommand(Command::Save);
        return !child.Doc().IsModified();
    });
}

int CopyUntilKilled(const QString& project)
{
    return KeepUntilKilled(project, "COPY", [](CMainFrame&, CChildFrame& child) { return child.KeepRecoveryCopy(); });
}

void PressIn(QWidget* window, const QString& text)
{
    for (QPushButton* button : window == nullptr ? QList<QPushButton*>() : window->findChildren<QPushButton*>()) {
        if (button->text().startsWith(text))
            button->click();
    }
}

/// Goes on to a moment of a run with changes that are not saved, and stays there.
int RunUntil(const QByteArray& moment, const QByteArray& run, const QString& project)
{
    const auto stayAt = [moment](const QByteArray& here) {
        if (moment == here)
            StayHere(here);
    };
    Answers user;
    Prompts prompts = user.Dialogs();
    RunSeams& runs = prompts.runs;
    runs.programFolder = [] { return QString::fromUtf8(test::EngineFolder()); };
    runs.createMutex = [moment] { return AnalysisMutexHandle{moment == "question of the analysis", {}}; };
    runs.askYesNo = [stayAt](QWidget*, const QString& text) {
        stayAt(text.contains(u"保管できません"_s) ? "question without a copy" : "question of the analysis");
        return false;
    };
    runs.askOkCancel = [stayAt](QWidget*, const QString&) {
        stayAt("question of the page");
        return true;
    };
    runs.tell = [stayAt](QWidget*, const QString& text) {
        stayAt(text.contains(u"修正があり"_s) ? "box about changes" : "box about a broken file");
    };
    runs.runEngine = [stayAt](QWidget* parent, const EngineStart& start) {
        stayAt("before the start");
        const EngineEnd end = RunEngineProcess(parent, start);
        stayAt("engine ended");
        return end;
    };
    if (moment == "question without a copy")
        runs.keptFolder = [project] { return project + u"/no folder"_s; };
    CMainFrame frame(prompts);
    CChildFrame* child = frame.OpenProject(project);
    if (child == nullptr)
        return 1;
    Enter(*child, "ENTERED");
    QObject::connect(&child->Doc(), &CKELDSectionDoc::reloaded, [stayAt] { stayAt("reload"); });
    const qint64 size = QFileInfo(project).size();
    QTimer look; // goes on while an engine runs
    QObject::connect(&look, &QTimer::timeout, [&] {
        if (moment == "engine writing" && QFileInfo(project).size() < size * 3 / 4)
            StayHere(moment);
        if (moment != "question of the cancel")
            return;
        if (qobject_cast<QMessageBox*>(QApplication::activeModalWidget()) != nullptr)
            StayHere(moment);
        PressIn(QApplication::activeModalWidget(), u"中止("_s);
    });
    look.start(20);
    if (moment == "question of the page") {
        emit child->runIsDue({run == "main" ? EngineRun::Main : EngineRun::Check, u"?"_s});
    } else {
        frame.RunCommand(run == "main" ? Command::RunAll : Command::CheckData);
    }
    for (QElapsedTimer time; !time.isValid() || time.elapsed() < 300;) {
        if (!time.isValid())
            time.start();
        QApplication::processEvents();
    }
    const QStringList texts = child->Notices().Texts();
    if (std::ranges::any_of(texts, [](const QString& text) { return text.contains(u"まだ使用中"_s); }))
        stayAt("file held");
    stayAt("behind the run");
    return 3;
}

// ---- this side

/// The other process, until it is killed.
class Victim {
public:
    explicit Victim(const QStringList& arguments)
    {
        process_.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        process_.start(QCoreApplication::applicationFilePath(), arguments);
        while (!process_.canReadLine() && process_.waitForReadyRead(30000)) {
        }
        last_ = process_.readLine().trimmed();
    }
    ~Victim() { Kill(); }
    /// The first thing that it said.
    [[nodiscard]] QByteArray Word() const { return last_; }
    /// Ends it at once; the last thing that it said as a whole.
    QByteArray Kill()
    {
        process_.kill();
        process_.waitForFinished();
        while (process_.canReadLine())
            last_ = process_.readLine().trimmed();
        return last_;
    }

private:
    QProcess process_;
    QByteArray last_;
};

/// Number of the title "WORD NUMBER xxx" if the file is one that was written as a whole: behind its first line stands
/// `rest`. -1: it is another one.
int NumberOf(const QByteArray& bytes, const QByteArray& word, const QByteArray& rest)
{
    const qsizetype end = bytes.indexOf("\r\n");
    const QByteArray title = bytes.left(std::max<qsizetype>(end, 0));
    const QByteArray head = "TITLE:" + word + ' ';
    const int number = title.mid(head.size()).split(' ').value(0).toInt();
    return title == "TITLE:" + TitleOf(word.constData(), number) && bytes.mid(end) == rest ? number : -1;
}

/// What a save makes of the project but for its first line.
QByteArray RestOf(const QString& project)
{
    CKELDSectionDoc doc;
    (void)doc.OpenDocument(project);
    const QByteArray bytes = QByteArray::fromStdString(WriteProject(doc.Data()));
    return bytes.mid(bytes.indexOf("\r\n"));
}

/// Makes the project one that takes a while to write: lines of a section that nobody knows stay as they are.
void MakeLarge(const QString& project)
{
    QFile file(project);
    QVERIFY(file.open(QFile::Append));
    file.write("[OF_ANOTHER_VERSION]\r\n" + ("  LINE " + QByteArray(93, 'x') + "\r\n").repeated(40'000)
               + "[END OF_ANOTHER_VERSION]\r\n");
}

/// A new one each time; SBD_TEST_SEED repeats one.
unsigned Seed()
{
    const int given = qEnvironmentVariableIntValue("SBD_TEST_SEED");
    return given != 0 ? static_cast<unsigned>(given) : std::random_device()();
}

QList<QByteArray> FilesIn(const QString& folder)
{
    QList<QByteArray> files;
    for (const QFileInfo& file : QDir(folder).entryInfoList({u"*.sbd"_s}, QDir::Files))
        files += Bytes(file.filePath());
    return files;
}

qsizetype HalfWritten(const QString& project)
{
    return QDir(QFileInfo(project).path()).entryList({u".sbdsave-*"_s}, QDir::Files | QDir::Hidden).size();
}

} // namespace

class KillProofTest : public QObject {
    Q_OBJECT

private slots:
    void init() { RemoveAllCopies(); }

    void aKilledSaveLeavesTheOldFileOrTheNewOne();
    void aKilledCopyLeavesTheLastOneThatWasWritten();
    void aRunThatIsKilledAtAnyMomentLosesNothing_data();
    void aRunThatIsKilledAtAnyMomentLosesNothing();
};

void KillProofTest::aKilledSaveLeavesTheOldFileOrTheNewOne()
{
    const int kills = IsWholeProof() ? 250 : 6;
    const TestFolder folder;
    const QString path = folder.Example(u"plate4"_s);
    MakeLarge(path);
    const QByteArray rest = RestOf(path);
    QVERIFY(rest.size() > 4'000'000);
    const unsigned seed = Seed();
    std::mt19937 random(seed);
    QElapsedTimer time;
    time.start();
    int midway = 0;
    int behind = 0;
    qsizetype before = 0;
    for (int i = 0; i < kills; ++i) {
        Victim program({u"--save"_s, path});
        QVERIFY2(program.Word() == "1", program.Word().constData()); // it opens what the last one has left
        QThread::usleep(random() % 40'000);
        const int told = program.Kill().toInt();
        const int number = NumberOf(Bytes(path), "SAVE", rest);
        QVERIFY2(number == told || number == told + 1,
                 qPrintable(u"kill %1, seed %2: told %3, file %4"_s.arg(i).arg(seed).arg(told).arg(number)));
        QCOMPARE(CProjectLock::Look(path), CProjectLock::State::Free);
        const qsizetype left = HalfWritten(path);
        midway += left > before ? 1 : 0;
        before = left;
        behind += number > told ? 1 : 0;
        for (const OfferedCopy& offered : CopiesWorthOffering()) { // of a change that was not saved yet
            const int copied = NumberOf(Bytes(offered.copy.file), "SAVE", rest);
            QVERIFY(copied > 0);
            RemoveRecoveryCopy(offered.copy);
        }
    }
    qInfo("%d kills of saves, seed %u, %lld ms: %d while the new file was written, %d between the file and the word",
          kills, seed, static_cast<long long>(time.elapsed()), midway, behind);
}

void KillProofTest::aKilledCopyLeavesTheLastOneThatWasWritten()
{
    const int kills = IsWholeProof() ? 12 : 3;
    const TestFolder folder;
    const QString path = folder.Example(u"plate4"_s);
    const QByteArray file = Bytes(path);
    const QByteArray rest = RestOf(path);
    const unsigned seed = Seed();
    std::mt19937 random(seed);
    for (int i = 0; i < kills; ++i) {
        RemoveAllCopies();
        Victim program({u"--copy"_s, path});
        QVERIFY2(program.Word() == "1", program.Word().constData());
        QThread::usleep(random() % 40'000);
        const int told = program.Kill().toInt();
        QCOMPARE(Bytes(path), file);
        LifeStation station;
        station.user.recovery = RecoveryAnswer::Open;
        station.frame.OfferRecoveryCopies();
        QCOMPARE(station.user.asked.size(), 1);
        QCOMPARE(station.user.warned, QStringList());
        CChildFrame* child = station.frame.CurrentChild();
        QCOMPARE(child->Doc().PathName(), path);
        QVERIFY(child->Doc().IsModified());
        const QList<QByteArray> copies = FilesIn(RecoveryFolder());
        QCOMPARE(copies.size(), 1); // that of the window: the one before has been taken over
        // The title loses a letter of its keyword at each reading.
        const QByteArray title = QByteArray::fromStdString(std::string(child->Doc().Data().Option(301, 0)));
        const int number = title.split(' ').value(1).toInt();
        QVERIFY2(number == told || number == told + 1,
                 qPrintable(u"kill %1, seed %2: told %3, copy %4"_s.arg(i).arg(seed).arg(told).arg(number)));
        child->DropRecoveryCopy();
    }
    qInfo("%d kills of copies, seed %u", kills, seed);
}

void KillProofTest::aRunThatIsKilledAtAnyMomentLosesNothing_data()
{
    struct Row {
        const char* moment;
        const char* verbs;
        bool quick; // part of the short form
    };
    const Row rows[] = {
        {"question of the page", "\n", false},
        {"question of the analysis", "\n", false},
        {"box about changes", "\n", false},
        {"question without a copy", "\n", false},
        {"before the start", "\n", true},
        {"engine writing", "half 1500\nchk ok\n", true},
        {"question of the cancel", "value RESET_RESULTS NO\nsleep 2000\n", false},
        {"engine ended", "value RESET_RESULTS NO\nchk ok\n", false},
        {"reload", "value RESET_RESULTS NO\nchk ok\n", true},
        {"box about a broken file", "truncate 9000\n", true},
        {"file held", "value RESET_RESULTS NO\nhold 2000\n", true},
        {"behind the run", "value RESET_RESULTS NO\nchk ok\n", false},
    };
    QTest::addColumn<QByteArray>("moment");
    QTest::addColumn<QByteArray>("run");
    QTest::addColumn<QByteArray>("verbs");
    for (const Row& row : rows) {
        for (const QByteArray run : {"check", "main"}) {
            const bool never = run == "check" && QByteArray(row.moment) == "box about changes"; // a check saves nothing
            if (!never && (IsWholeProof() || (row.quick && run == "check")))
                QTest::newRow((row.moment + (", " + run)).constData())
                    << QByteArray(row.moment) << run << QByteArray(row.verbs);
        }
    }
}

void KillProofTest::aRunThatIsKilledAtAnyMomentLosesNothing()
{
    QFETCH(const QByteArray, moment);
    QFETCH(const QByteArray, run);
    QFETCH(const QByteArray, verbs);
    const TestFolder folder;
    const QString path = folder.Example(u"plate4"_s);
    const QByteArray original = Bytes(path);
    const QByteArray rest = RestOf(path);
    QFile engine(folder.Path(u"plate4.engine"_s));
    QVERIFY(engine.open(QFile::WriteOnly));
    engine.write(verbs);
    engine.close();
    {
        Victim program({u"--run"_s, QString::fromLatin1(moment), QString::fromLatin1(run), path});
        QCOMPARE(program.Word(), moment);
    }

    // What was entered stands somewhere as a whole, and so does what was handed over to the engine.
    const QByteArray entered = "TITLE:ENTERED" + rest;
    QList<QByteArray> held = FilesIn(KeptFolder()) + FilesIn(RecoveryFolder());
    held += Bytes(path);
    QVERIFY(held.contains(entered));
    const bool saved = run == "main" && moment != "question of the page" && moment != "question of the analysis"
                       && moment != "box about changes";
    QVERIFY(held.contains(saved ? entered : original));
    if (saved) // no save may stand between a file and what the user has put into it
        QVERIFY(held.contains(entered));

    // The engine comes to its end without us.
    QTRY_VERIFY_WITH_TIMEOUT(CProjectLock::Look(path) == CProjectLock::State::Free, 10000);
    if (moment == "engine writing")
        QTRY_COMPARE_WITH_TIMEOUT(Bytes(path).size(), saved ? entered.size() : original.size(), 10000);

    // The next start says so, or has nothing to say because the file holds it all.
    LifeStation station;
    station.user.recovery = RecoveryAnswer::Open;
    station.frame.OfferRecoveryCopies();
    CChildFrame* child = station.frame.OpenProject(path);
    QVERIFY(child != nullptr);
    QCOMPARE(station.user.warned, QStringList());
    const QString title = toQString(child->Doc().Data().Option(301, 0));
    const QStringList texts = child->Notices().Texts();
    const auto says = [&texts](const QString& what) {
        return std::ranges::any_of(texts, [&what](const QString& text) { return text.contains(what); });
    };
    const bool enteredIsShown = title.contains(u"NTERED"_s) || title.contains(u"TERED"_s);
    QVERIFY2(enteredIsShown || says(u"保存していなかった変更"_s) || says(u"前回の実行"_s),
             qPrintable(texts.join(u'\n')));
    const bool isHandedOver = QList<QByteArray>({"before the start", "engine writing", "question of the cancel",
                                                 "engine ended", "reload", "box about a broken file"})
                                  .contains(moment);
    if (isHandedOver && !station.user.asked.isEmpty())
        QVERIFY(!child->Notices().isHidden() || child->Doc().IsModified());
    if (isHandedOver && !child->Doc().IsModified())
        QVERIFY2(says(u"前回の実行"_s), qPrintable(texts.join(u'\n')));
    child->DropRecoveryCopy();
}

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() == 3 && arguments[1] == u"--save"_s)
        return SaveUntilKilled(arguments[2]);
    if (arguments.size() == 3 && arguments[1] == u"--copy"_s)
        return CopyUntilKilled(arguments[2]);
    if (arguments.size() == 5 && arguments[1] == u"--run"_s)
        return RunUntil(arguments[2].toLatin1(), arguments[3].toLatin1(), arguments[4]);
    KillProofTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "kill_proof_test.moc"
