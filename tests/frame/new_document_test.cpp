#include "document/project_lock.h"
#include "frame/new_document.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

/// Writes down what it is asked to do; the step named in `failing` fails.
class Recorder : public CNewDocumentSteps {
public:
    QStringList log;
    QString failing;

    bool SaveDocument(const QString& project) override { return Note(u"save "_s + project); }
    void SetPathName(const QString& project) override { Note(u"name "_s + project); }
    void ReadGridNames(const QString& file) override { Note(u"names "_s + file); }
    void ReadResultFiles(const QString& project) override { Note(u"results "_s + project); }
    bool OpenDocument(const QString& project) override { return Note(u"open "_s + project); }
    void SetUcGrid() override { Note(u"uc-grid"_s); }
    bool BoxWebFlow() override { return Note(u"webs"_s); }
    bool SaveWrapper() override { return Note(u"wrapper"_s); }
    bool RunMain() override { return Note(u"run"_s); }

private:
    bool Note(const QString& step)
    {
        log.append(step);
        return failing.isEmpty() || !step.startsWith(failing);
    }
};

/// The flow and a user before it.
struct Desk {
    StartChoice choice;
    QString file = u"/b/bridge.abd"_s;
    ProjectState state = ProjectState::New;
    bool yes = false;

    Recorder steps;
    int choosers = 0;
    QStringList filters;
    QStringList asked;
    QStringList warned;
    QStringList tried;
    CNewDocumentFlow flow{{[this] {
                               ++choosers;
                               return choice;
                           },
                           [this](const QStringList& offered) {
                               filters = offered;
                               return file;
                           },
                           [this](const QString& text) {
                               asked.append(text);
                               return yes;
                           },
                           [this](const QString& text) { warned.append(text); },
                           [this](const QString& project) {
                               tried.append(project);
                               return state;
                           }}};

    explicit Desk(int chosen = 0, int girderType = 0) : choice{chosen, girderType} { flow.skipChooser = false; }
    [[nodiscard]] bool Run() { return flow.OnNewDocument(steps); }
};

constexpr int kBox = 1;

const auto kProject = u"/b/bridge.sbd"_s;
const auto kSave = u"save "_s + kProject;
const auto kName = u"name "_s + kProject;
const auto kNames = u"names /b/bridge.abd"_s;
const auto kResults = u"results "_s + kProject;
const auto kOpen = u"open "_s + kProject;
const auto kUc = u"uc-grid"_s;
const auto kWebs = u"webs"_s;
const auto kWrapper = u"wrapper"_s;
const auto kRun = u"run"_s;

} // namespace

class NewDocumentTest : public QObject {
    Q_OBJECT

private slots:
    void theFirstDocumentComesUpWithoutTheChooser();
    void goGivesAnEmptyProject();
    void otherWaysOutOfTheChooserGiveNone_data();
    void otherWaysOutOfTheChooserGiveNone();
    void theFileDialogOffersWhatTheChoiceBeginsWith();
    void aFileDialogThatIsGivenUpEndsTheFlow();
    void theProjectStandsBesideTheChosenFile_data();
    void theProjectStandsBesideTheChosenFile();
    void aHeldProjectIsToldAndEndsTheFlow();

    void theStepsOfEveryRowRunInTheirOrder_data();
    void theStepsOfEveryRowRunInTheirOrder();
    void theTableHasARowForEverySituation();
    void aPlateGirderHasNoWebNames();
    void onlyARunAsksAboutOldResults();
    void theUserIsAskedWithTheProjectsPath();

    void aStepThatFailsEndsTheFlow_data();
    void aStepThatFailsEndsTheFlow();
    void aRunThatFailsKeepsTheNewProject();
    void aRunThatFailsOnAKeptProjectOpensIt();
    void aKeptProjectThatCannotBeOpenedEndsTheFlow();

    void aFreeAMissingAndAHeldFileAreToldApart();
};

void NewDocumentTest::theFirstDocumentComesUpWithoutTheChooser()
{
    Desk desk(6);
    QVERIFY(CNewDocumentFlow({}).skipChooser);
    desk.flow.skipChooser = true;
    QVERIFY(desk.Run());
    QCOMPARE(desk.choosers, 0);
    QVERIFY(!desk.Run());
    QCOMPARE(desk.choosers, 1);
}

void NewDocumentTest::goGivesAnEmptyProject()
{
    Desk desk(1, kBox);
    QVERIFY(desk.Run());
    QVERIFY(desk.steps.log.isEmpty());
    QVERIFY(desk.filters.isEmpty());
}

void NewDocumentTest::otherWaysOutOfTheChooserGiveNone_data()
{
    QTest::addColumn<int>("choice");
    QTest::newRow("cancel") << 6;
    QTest::newRow("closed") << 0;
    QTest::newRow("nonsense") << 7;
    QTest::newRow("less than nothing") << -1;
}

void NewDocumentTest::otherWaysOutOfTheChooserGiveNone()
{
    QFETCH(int, choice);
    Desk desk(choice);
    QVERIFY(!desk.Run());
    QVERIFY(desk.steps.log.isEmpty());
    QVERIFY(desk.tried.isEmpty());
}

void NewDocumentTest::theFileDialogOffersWhatTheChoiceBeginsWith()
{
    const QStringList abd = {u"ABD Files(*.abd)"_s, u"All Files(*.*)"_s};
    const QStringList grl = {u"GRL Files(*.GRL)"_s, u"All Files(*.*)"_s};
    for (int choice = 2; choice <= 5; ++choice) {
        Desk desk(choice);
        QVERIFY(desk.Run());
        QCOMPARE(desk.filters, choice == 2 || choice == 4 ? abd : grl);
    }
}

void NewDocumentTest::aFileDialogThatIsGivenUpEndsTheFlow()
{
    Desk desk(2);
    desk.file.clear();
    QVERIFY(!desk.Run());
    QVERIFY(desk.tried.isEmpty());
}

void NewDocumentTest::theProjectStandsBesideTheChosenFile_data()
{
    QTest::addColumn<QString>("file");
    QTest::addColumn<QString>("project");
    QTest::newRow("usual") << u"/b/x.abd"_s << u"/b/x.sbd"_s;
    QTest::newRow("two points") << u"/b/x.1.abd"_s << u"/b/x.1.sbd"_s;
    QTest::newRow("no point") << u"/b/x"_s << u"/b/x.sbd"_s;
    QTest::newRow("a project") << u"/b/x.sbd"_s << u"/b/x.sbd"_s;
    QTest::newRow("point in the folder") << u"/b.2/x"_s << u"/b.2/x.sbd"_s;
}

void NewDocumentTest::theProjectStandsBesideTheChosenFile()
{
    QFETCH(QString, file);
    QFETCH(QString, project);
    Desk desk(3);
    desk.file = file;
    QVERIFY(desk.Run());
    QCOMPARE(desk.tried, QStringList(project));
    QCOMPARE(desk.steps.log.constFirst(), u"name "_s + project);
}

void NewDocumentTest::aHeldProjectIsToldAndEndsTheFlow()
{
    for (int choice = 2; choice <= 5; ++choice) {
        Desk desk(choice);
        desk.state = ProjectState::Held;
        QVERIFY(!desk.Run());
        QCOMPARE(desk.warned, QStringList(u"このファイルは既に開いています！\n"
                                          u"(Opend by KELD section.exeか他のプログラムに利用されますか)"_s));
        QVERIFY(desk.asked.isEmpty());
        QVERIFY(desk.steps.log.isEmpty());
    }
}

void NewDocumentTest::theStepsOfEveryRowRunInTheirOrder_data()
{
    QTest::addColumn<int>("choice");
    QTest::addColumn<bool>("exists");
    QTest::addColumn<bool>("yes");
    QTest::addColumn<QStringList>("steps");
    const bool no = false;
    QTest::newRow("2 new") << 2 << false << no << QStringList{kSave, kName, kNames, kResults, kWebs};
    QTest::newRow("2 exists") << 2 << true << no << QStringList{kOpen, kName};
    QTest::newRow("3 new") << 3 << false << no << QStringList{kName, kSave, kUc, kWebs, kWrapper};
    QTest::newRow("3 exists") << 3 << true << no << QStringList{kOpen, kName};
    QTest::newRow("4 new") << 4 << false << no << QStringList{kSave, kName, kNames, kResults, kWebs, kWrapper, kRun};
    QTest::newRow("4 exists, yes") << 4 << true << true
                                   << QStringList{kName, kSave, kNames, kResults, kWebs, kWrapper, kRun};
    QTest::newRow("4 exists, no") << 4 << true << no << QStringList{kName, kRun};
    QTest::newRow("5 new") << 5 << false << no << QStringList{kName, kSave, kUc, kWebs, kWrapper, kRun};
    QTest::newRow("5 exists, yes") << 5 << true << true << QStringList{kName, kSave, kUc, kWebs, kWrapper, kRun};
    QTest::newRow("5 exists, no") << 5 << true << no << QStringList{kName, kRun};
}

void NewDocumentTest::theStepsOfEveryRowRunInTheirOrder()
{
    QFETCH(int, choice);
    QFETCH(bool, exists);
    QFETCH(bool, yes);
    QFETCH(QStringList, steps);
    Desk desk(choice, kBox);
    desk.state = exists ? ProjectState::Exists : ProjectState::New;
    desk.yes = yes;
    QVERIFY(desk.Run());
    QCOMPARE(desk.steps.log, steps);
}

void NewDocumentTest::theTableHasARowForEverySituation()
{
    using enum NewProjectSituation;
    for (int choice = 2; choice <= 5; ++choice) {
        for (const NewProjectSituation situation : {New, Exists, Replaced, Kept}) {
            int rows = 0;
            for (const NewProjectRow& row : NewProjectRows())
                rows += row.choice == choice && row.situation == situation ? 1 : 0;
            const bool possible = situation == New || (choice <= 3) == (situation == Exists);
            QCOMPARE(rows, possible ? 1 : 0);
        }
    }
}

void NewDocumentTest::aPlateGirderHasNoWebNames()
{
    for (int choice = 2; choice <= 5; ++choice) {
        Desk desk(choice);
        desk.steps.failing = kWebs;
        QVERIFY(desk.Run());
        QVERIFY(!desk.steps.log.contains(kWebs));
    }
}

void NewDocumentTest::onlyARunAsksAboutOldResults()
{
    for (int choice = 2; choice <= 5; ++choice) {
        for (const ProjectState state : {ProjectState::New, ProjectState::Exists}) {
            Desk desk(choice);
            desk.state = state;
            QVERIFY(desk.Run());
            QCOMPARE(desk.asked.size(), choice >= 4 && state == ProjectState::Exists ? 1 : 0);
        }
    }
}

void NewDocumentTest::theUserIsAskedWithTheProjectsPath()
{
    Desk desk(4);
    desk.state = ProjectState::Exists;
    QVERIFY(desk.Run());
    QCOMPARE(desk.asked.constFirst(),
             QDir::toNativeSeparators(kProject) + u"\n古い自動設計結果があります,廃棄しますか？"_s);
}

void NewDocumentTest::aStepThatFailsEndsTheFlow_data()
{
    QTest::addColumn<int>("choice");
    QTest::addColumn<bool>("exists");
    QTest::addColumn<QString>("failing");
    for (int choice = 2; choice <= 5; ++choice) {
        for (const bool exists : {false, true}) {
            for (const QString& step : {u"save"_s, u"open"_s, kWebs, kWrapper})
                QTest::addRow("%d %s %s", choice, exists ? "exists" : "new", qPrintable(step))
                    << choice << exists << step;
        }
    }
}

void NewDocumentTest::aStepThatFailsEndsTheFlow()
{
    QFETCH(int, choice);
    QFETCH(bool, exists);
    QFETCH(QString, failing);
    Desk whole(choice, kBox);
    whole.state = exists ? ProjectState::Exists : ProjectState::New;
    whole.yes = true;
    QVERIFY(whole.Run());

    Desk desk(choice, kBox);
    desk.state = whole.state;
    desk.yes = true;
    desk.steps.failing = failing;
    const QStringList all = whole.steps.log;
    const auto at = std::ranges::find_if(all, [&](const QString& step) { return step.startsWith(failing); });
    QCOMPARE(desk.Run(), at == all.end());
    QCOMPARE(desk.steps.log, at == all.end() ? all : all.mid(0, at - all.begin() + 1));
}

void NewDocumentTest::aRunThatFailsKeepsTheNewProject()
{
    for (const int choice : {4, 5}) {
        Desk desk(choice);
        desk.steps.failing = kRun;
        QVERIFY(desk.Run());
        QVERIFY(!desk.steps.log.contains(kOpen));
    }
}

/// The document is empty and has the project's path: saved so, it would wipe the project out.
void NewDocumentTest::aRunThatFailsOnAKeptProjectOpensIt()
{
    for (const int choice : {4, 5}) {
        Desk desk(choice);
        desk.state = ProjectState::Exists;
        desk.steps.failing = kRun;
        QVERIFY(desk.Run());
        QCOMPARE(desk.steps.log, (QStringList{kName, kRun, kOpen}));
    }
}

void NewDocumentTest::aKeptProjectThatCannotBeOpenedEndsTheFlow()
{
    class Broken : public Recorder {
        bool OpenDocument(const QString&) override { return false; }
        bool RunMain() override { return false; }
    };
    Desk desk(4);
    desk.state = ProjectState::Exists;
    Broken steps;
    QVERIFY(!desk.flow.OnNewDocument(steps));
}

void NewDocumentTest::aFreeAMissingAndAHeldFileAreToldApart()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"b.sbd"_s);
    QCOMPARE(TryOpenProject(path), ProjectState::New);
    QFile file(path);
    QVERIFY(file.open(QFile::WriteOnly));
    file.close();
    QCOMPARE(TryOpenProject(path), ProjectState::Exists);
    QVERIFY(QFile::setPermissions(path, QFile::ReadOwner));
    QCOMPARE(TryOpenProject(path), ProjectState::Exists);
    CProjectLock other;
    if (!other.Take(path)) // where a lock needs leave to write
        QVERIFY(QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner) && other.Take(path));
    QCOMPARE(TryOpenProject(path), ProjectState::Held);
    QCOMPARE(TryOpenProject(folder.filePath(u"no folder/b.sbd"_s)), ProjectState::New);
}

QTEST_GUILESS_MAIN(NewDocumentTest)
#include "new_document_test.moc"
