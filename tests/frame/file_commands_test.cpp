#include "answers.h"
#include "document/save_flow.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/file_commands.h"
#include "frame/profile.h"
#include "tests/document/data_of.h"

#include <QDir>
#include <QMdiArea>
#include <QStandardPaths>
#include <QTest>

#ifdef Q_OS_UNIX
#include <unistd.h>
#endif

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

/// An area for windows, the commands on it and a user who answers.
struct Desk {
    TestFolder folder;
    Answers user;
    QMdiArea area;
    CFileCommands files{area, user.Dialogs()};

    ~Desk()
    {
        for (QMdiSubWindow* window : area.subWindowList())
            delete window; // before the commands that they call
    }
    [[nodiscard]] qsizetype Windows() const { return area.subWindowList().size(); }
    [[nodiscard]] CChildFrame* OpenExample(const QString& name, const QString& as = {})
    {
        return files.OpenFile(folder.Example(name, as));
    }
};

/// What the user enters.
void Enter(CChildFrame& child, const char* title)
{
    child.SwitchToBlock(302); // the panel of 301 would write its own
    test::DataOf(child.Doc()).SetOption(301, 0, title);
    child.Doc().SetModifiedFlag(true);
}

} // namespace

class FileCommandsTest : public QObject {
    Q_OBJECT

private slots:
    void openingTakesThePlaceOfTheEmptyProject();
    void openingLeavesAnEmptyProjectThatWasEnteredInto();
    void openingAFileThatIsOpenBringsItsWindowToTheFront();
    void openingALinkToAnOpenFileBringsItsWindowToTheFront();
    void aFileThatCannotBeOpenedIsToldAndChangesNothing();
    void aRecentFileThatIsGoneLeavesTheListOnceThatIsTold();
#ifdef Q_OS_UNIX
    void aReadOnlyProjectSaysSoInItsTitle();
#endif
    void theFirstOpenDialogStandsInTheDocumentsFolder();
    void aFileOfAnotherKindIsRefused();
    void givingUpTheDialogsDoesNothing();

    void savingWritesTheProject();
    void projectsWithoutAFileHaveNumbers();
    void theFirstSaveAsksForAName();
    void aNameWithoutExtensionGetsIt();
    void aNameThatGetsItsExtensionReplacesNothing();
    void savingOverAnotherOpenProjectIsRefused();
    void aFileThatTakesNothingIsToldAndTheProjectStaysModified();
    void aPlaceholderInTheControlBlockIsToldInItsOwnWords();

    void anUnchangedProjectClosesWithoutAQuestion();
    void cancelKeepsTheWindow();
    void discardClosesAndLeavesTheFile();
    void saveClosesWithTheFileWritten();
    void aSaveThatFailsKeepsTheWindow();

    void recentFilesStandNewestFirst();
    void twentyRecentFilesAreKept();
};

void FileCommandsTest::openingTakesThePlaceOfTheEmptyProject()
{
    Desk desk;
    desk.files.New();
    CChildFrame* child = desk.OpenExample(u"plate4"_s);
    QVERIFY(child != nullptr);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(desk.Windows(), 1);
    QCOMPARE(child->Doc().Title(), u"plate4.sbd"_s);
    QVERIFY(desk.user.asked.isEmpty());
}

void FileCommandsTest::openingLeavesAnEmptyProjectThatWasEnteredInto()
{
    Desk desk;
    Enter(*desk.files.New(), "MINE");
    QVERIFY(desk.OpenExample(u"plate4"_s) != nullptr);
    QVERIFY(desk.OpenExample(u"box2"_s) != nullptr);
    QCOMPARE(desk.Windows(), 3);
}

void FileCommandsTest::openingAFileThatIsOpenBringsItsWindowToTheFront()
{
    Desk desk;
    CChildFrame* plate = desk.OpenExample(u"plate4"_s);
    CChildFrame* box = desk.OpenExample(u"box2"_s);
    QCOMPARE(desk.area.currentSubWindow(), box);
    QCOMPARE(desk.files.OpenFile(desk.folder.Path(u"plate4.sbd"_s)), plate);
    QCOMPARE(desk.area.currentSubWindow(), plate);
#ifdef Q_OS_WIN
    QCOMPARE(desk.files.OpenFile(desk.folder.Path(u"BOX2.sbd"_s)), box);
    QCOMPARE(desk.files.OpenFile(QDir::toNativeSeparators(desk.folder.Path(u"plate4.SBD"_s))), plate);
#endif
    QCOMPARE(desk.Windows(), 2);
}

void FileCommandsTest::openingALinkToAnOpenFileBringsItsWindowToTheFront()
{
    Desk desk;
    CChildFrame* plate = desk.OpenExample(u"plate4"_s);
    const QString link = desk.folder.Path(u"link.sbd"_s);
    QVERIFY(QFile::link(desk.folder.Path(u"plate4.sbd"_s), link));
#ifdef Q_OS_UNIX
    QCOMPARE(desk.files.OpenFile(link), plate);
#else
    Q_UNUSED(plate); // links of the shell end in .lnk
#endif
}

void FileCommandsTest::aFileThatCannotBeOpenedIsToldAndChangesNothing()
{
    Desk desk;
    desk.files.New();
    QVERIFY(desk.files.OpenFile(desk.folder.Path(u"missing.sbd"_s)) == nullptr);
    QCOMPARE(desk.Windows(), 1);
    QCOMPARE(desk.user.warned.size(), 1);
    QVERIFY2(desk.user.warned[0].contains(u"見つかりません"_s), qPrintable(desk.user.warned[0]));
    QVERIFY(CRecentFiles::List().isEmpty());
}

void FileCommandsTest::aRecentFileThatIsGoneLeavesTheListOnceThatIsTold()
{
    Desk desk;
    const QString path = desk.folder.Example(u"plate4"_s);
    QVERIFY(desk.files.OpenFile(path) != nullptr);
    QVERIFY(desk.OpenExample(u"box2"_s) != nullptr);
    QCOMPARE(CRecentFiles::List().size(), 2);
    for (QMdiSubWindow* window : desk.area.subWindowList())
        delete window;
    QVERIFY(QFile::remove(path));
    QCOMPARE(CRecentFiles::List().size(), 2); // not told yet
    QVERIFY(desk.files.OpenFile(path) == nullptr);
    QCOMPARE(desk.user.warned.size(), 1);
    QCOMPARE(CRecentFiles::List(), QStringList({desk.folder.Path(u"box2.sbd"_s)}));
    // A file that stands there and cannot be read stays.
    CRecentFiles::Add(desk.folder.Path(u"folder.sbd"_s));
    QVERIFY(QDir().mkpath(desk.folder.Path(u"folder.sbd"_s)));
    QVERIFY(desk.files.OpenFile(desk.folder.Path(u"folder.sbd"_s)) == nullptr);
    QCOMPARE(CRecentFiles::List().size(), 2);
}

#ifdef Q_OS_UNIX
void FileCommandsTest::aReadOnlyProjectSaysSoInItsTitle()
{
    Desk desk;
    const QString path = desk.folder.Example(u"plate4"_s);
    const QString folder = QFileInfo(path).path();
    QFile::setPermissions(folder, QFile::Permissions(0x7755)); // for everybody to look into
    QFile::setPermissions(path, QFile::Permissions(0x6644));
    const bool isRoot = ::geteuid() == 0; // who may write whatever the rights say
    constexpr uid_t nobody = 65534;
    QVERIFY(!isRoot || ::setresuid(nobody, nobody, 0) == 0);
    QFile::setPermissions(path, QFile::Permissions(0x4444)); // no effect as somebody else
    const bool readOnly = IsReadOnly(path);
    CChildFrame* child = desk.files.OpenFile(path);
    const QString title = child == nullptr ? QString() : child->windowTitle();
    QVERIFY(!isRoot || ::setresuid(0, 0, 0) == 0);
    QVERIFY(readOnly);
    QCOMPARE(title, u"plate4.sbd[*] (読み取り専用)"_s);
    QFile::setPermissions(path, QFile::ReadOwner | QFile::WriteOwner);
    QVERIFY(!IsReadOnly(path));
    QVERIFY(!IsReadOnly({}));
    QVERIFY(!IsReadOnly(folder + u"/missing.sbd"_s));
}
#endif

void FileCommandsTest::theFirstOpenDialogStandsInTheDocumentsFolder()
{
    Desk desk;
    QVERIFY(CRecentFiles::List().isEmpty());
    const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
    QVERIFY(QDir().mkpath(documents));
    QString folder;
    Prompts prompts = desk.user.Dialogs();
    prompts.openFileName = [&](QWidget*, const QString& from) {
        folder = from;
        return QString();
    };
    CFileCommands files(desk.area, prompts);
    QVERIFY(files.Open() == nullptr);
    QCOMPARE(folder, documents);
}

void FileCommandsTest::aFileOfAnotherKindIsRefused()
{
    Desk desk;
    const QString path = desk.folder.Path(u"plate4.txt"_s);
    QVERIFY(QFile::copy(desk.folder.Example(u"plate4"_s), path));
    QVERIFY(desk.files.OpenFile(path) == nullptr);
    QVERIFY(desk.user.warned.value(0).contains(u".sbd"_s));
    QVERIFY(QFile::copy(path, desk.folder.Path(u"UPPER.SBD"_s)));
    QVERIFY(desk.files.OpenFile(desk.folder.Path(u"UPPER.SBD"_s)) != nullptr);
}

void FileCommandsTest::givingUpTheDialogsDoesNothing()
{
    Desk desk;
    CChildFrame* child = desk.files.New();
    QVERIFY(desk.files.Open() == nullptr);
    QVERIFY(!desk.files.Save(*child));
    QCOMPARE(child->Doc().PathName(), QString());
    QVERIFY(desk.user.warned.isEmpty());
}

void FileCommandsTest::savingWritesTheProject()
{
    Desk desk;
    CChildFrame* child = desk.OpenExample(u"plate4"_s);
    Enter(*child, "SAVED");
    QVERIFY(desk.files.Save(*child));
    QVERIFY(Bytes(child->Doc().PathName()).startsWith("TITLE:SAVED\r\n"));
    QVERIFY(!child->Doc().IsModified());
}

void FileCommandsTest::projectsWithoutAFileHaveNumbers()
{
    Desk desk;
    desk.user.start.choice = 1; // an empty project
    CChildFrame* first = desk.files.New();
    CChildFrame* second = desk.files.New();
    QVERIFY(first != nullptr && second != nullptr);
    QCOMPARE(first->Title(), u"New SBD File"_s);
    QCOMPARE(second->Title(), u"New SBD File 2"_s);
    QVERIFY(!desk.files.Save(*second)); // given up
    QVERIFY(desk.user.proposal.endsWith(u"/New SBD File 2.sbd"_s));
    desk.user.saveFile = desk.folder.Path(u"a.sbd"_s);
    QVERIFY(desk.files.Save(*first));
    CChildFrame* third = desk.files.New();
    QVERIFY(third != nullptr);
    QCOMPARE(third->Title(), u"New SBD File"_s); // is free again
}

void FileCommandsTest::theFirstSaveAsksForAName()
{
    Desk desk;
    CChildFrame* child = desk.files.New();
    desk.user.saveFile = desk.folder.Path(u"first.sbd"_s);
    QVERIFY(desk.files.Save(*child));
    QVERIFY(desk.user.proposal.endsWith(u"New SBD File.sbd"_s));
    QCOMPARE(child->Doc().PathName(), desk.user.saveFile);
    QVERIFY(QFile::exists(desk.user.saveFile));
}

void FileCommandsTest::aNameWithoutExtensionGetsIt()
{
    Desk desk;
    CChildFrame* child = desk.files.New();
    desk.user.saveFile = desk.folder.Path(u"bridge.v2"_s);
    QVERIFY(desk.files.SaveAs(*child));
    QCOMPARE(child->Doc().Title(), u"bridge.v2.sbd"_s);
}

void FileCommandsTest::aNameThatGetsItsExtensionReplacesNothing()
{
    Desk desk;
    const QString existing = desk.folder.Example(u"plate4"_s, u"bridge"_s);
    const QByteArray before = Bytes(existing);
    CChildFrame* child = desk.files.New();
    desk.user.saveFile = desk.folder.Path(u"bridge"_s);
    QVERIFY(!desk.files.SaveAs(*child));
    QCOMPARE(desk.user.warned.size(), 1);
    QCOMPARE(Bytes(existing), before);
}

void FileCommandsTest::savingOverAnotherOpenProjectIsRefused()
{
    Desk desk;
    CChildFrame* plate = desk.OpenExample(u"plate4"_s);
    CChildFrame* box = desk.OpenExample(u"box2"_s);
    const QByteArray before = Bytes(plate->Doc().PathName());
    desk.user.saveFile = plate->Doc().PathName();
    QVERIFY(!desk.files.SaveAs(*box));
    QVERIFY(desk.user.warned.value(0).contains(u"別のウィンドウ"_s));
    QCOMPARE(Bytes(plate->Doc().PathName()), before);
    QVERIFY(desk.files.SaveAs(*plate)); // its own name is no other project's
}

void FileCommandsTest::aFileThatTakesNothingIsToldAndTheProjectStaysModified()
{
    Desk desk;
    CChildFrame* child = desk.OpenExample(u"plate4"_s);
    Enter(*child, "KEPT");
    desk.user.saveFile = desk.folder.Path(u"full.sbd"_s);
#ifdef Q_OS_LINUX
    QVERIFY(QFile::link(u"/dev/full"_s, desk.user.saveFile));
    const auto cause = u"空き容量"_s;
#else // which has no device that is always full
    QVERIFY(QFile::copy(child->Doc().PathName(), desk.user.saveFile));
    QVERIFY(QFile::setPermissions(desk.user.saveFile, QFile::ReadOwner));
    const auto cause = u"読み取り専用"_s;
#endif
    QVERIFY(!desk.files.SaveAs(*child));
    QCOMPARE(desk.user.warned.size(), 1);
    QVERIFY2(desk.user.warned[0].contains(cause), qPrintable(desk.user.warned[0]));
    QVERIFY2(desk.user.warned[0].contains(u"入力内容は画面に残っています"_s), qPrintable(desk.user.warned[0]));
    QVERIFY(child->Doc().IsModified());
    QCOMPARE(child->Doc().Title(), u"plate4.sbd"_s);
    QVERIFY(child->Doc().Data().Option(301, 0) == "KEPT");
}

void FileCommandsTest::aPlaceholderInTheControlBlockIsToldInItsOwnWords()
{
    Desk desk;
    CChildFrame* child = desk.OpenExample(u"plate4"_s);
    Enter(*child, "<?>");
    QVERIFY(desk.files.Save(*child));
    QCOMPARE(desk.user.warned, QStringList{u"Input error in 301 [SEC_CONTROL]"_s});
    QVERIFY(!child->Doc().IsModified());
}

void FileCommandsTest::anUnchangedProjectClosesWithoutAQuestion()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s)->close());
    QVERIFY(desk.user.asked.isEmpty());
}

void FileCommandsTest::cancelKeepsTheWindow()
{
    Desk desk;
    CChildFrame* child = desk.OpenExample(u"plate4"_s);
    Enter(*child, "MINE");
    QVERIFY(!child->close());
    QCOMPARE(desk.user.asked.size(), 1);
    QVERIFY2(desk.user.asked[0].contains(u"「plate4.sbd」"_s), qPrintable(desk.user.asked[0]));
    QCOMPARE(desk.Windows(), 1);
    QVERIFY(child->Doc().IsModified());
}

void FileCommandsTest::discardClosesAndLeavesTheFile()
{
    Desk desk;
    CChildFrame* child = desk.OpenExample(u"plate4"_s);
    const QString path = child->Doc().PathName();
    const QByteArray before = Bytes(path);
    Enter(*child, "MINE");
    desk.user.save = SaveAnswer::Discard;
    QVERIFY(child->close());
    QCOMPARE(Bytes(path), before);
}

void FileCommandsTest::saveClosesWithTheFileWritten()
{
    Desk desk;
    CChildFrame* child = desk.OpenExample(u"plate4"_s);
    const QString path = child->Doc().PathName();
    Enter(*child, "MINE");
    desk.user.save = SaveAnswer::Save;
    QVERIFY(child->close());
    QVERIFY(Bytes(path).startsWith("TITLE:MINE\r\n"));
}

void FileCommandsTest::aSaveThatFailsKeepsTheWindow()
{
    Desk desk;
    CChildFrame* child = desk.files.New();
    Enter(*child, "MINE");
    desk.user.save = SaveAnswer::Save;
    desk.user.saveFile = desk.folder.Path(u"no folder/new.sbd"_s);
    QVERIFY(!child->close());
    QCOMPARE(desk.user.warned.size(), 1);
    QCOMPARE(desk.Windows(), 1);
}

void FileCommandsTest::recentFilesStandNewestFirst()
{
    Desk desk;
    const QString plate = desk.OpenExample(u"plate4"_s)->Doc().PathName();
    CChildFrame* box = desk.OpenExample(u"box2"_s);
    const QString boxPath = box->Doc().PathName();
    QCOMPARE(CRecentFiles::List(), (QStringList{boxPath, plate}));
    desk.user.saveFile = desk.folder.Path(u"copy.sbd"_s);
    QVERIFY(desk.files.SaveAs(*box));
    QCOMPARE(CRecentFiles::List(), (QStringList{desk.user.saveFile, boxPath, plate}));
    CRecentFiles::Add(plate);
    QCOMPARE(CRecentFiles::List(), (QStringList{plate, desk.user.saveFile, boxPath}));
}

void FileCommandsTest::twentyRecentFilesAreKept()
{
    const TestFolder folder;
    for (int i = 0; i < 25; ++i)
        CRecentFiles::Add(folder.Path(u"%1, 100%.sbd"_s.arg(i))); // commas and per cent signs are names too
    QCOMPARE(CRecentFiles::List().size(), 20);
    QCOMPARE(CRecentFiles::List().constFirst(), folder.Path(u"24, 100%.sbd"_s));
    QCOMPARE(CRecentFiles::List().constLast(), folder.Path(u"5, 100%.sbd"_s));
}

QTEST_MAIN(FileCommandsTest)
#include "file_commands_test.moc"
