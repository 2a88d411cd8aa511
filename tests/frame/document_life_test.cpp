// The life of a document through the real window: how it begins, is held, saved, run and brought back.
#include "answers.h"
#include "document/project_lock.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/left_view.h"
#include "frame/main_frame.h"
#include "frame/profile.h"
#include "grid/grid_ctrl.h"
#include "panels/panel.h"
#include "tests/document/other_process.h"
#include "upperview/chk_view.h"
#include "upperview/up_view.h"

#include <QApplication>
#include <QDir>
#include <QMenuBar>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

struct Station {
    TestFolder folder;
    Answers user;
    CMainFrame frame{user.Dialogs()};

    Station()
    {
        user.engines = QStringLiteral(ENGINE_FOLDER);
        frame.resize(1366, 768);
        frame.show();
        frame.NewProject(); // as at the start of the program
    }

    /// A folder with the analysis input of an example under the name "bridge"; the path of that file.
    [[nodiscard]] QString AnalysisInput(const QString& example = u"box2"_s)
    {
        const QString file = folder.Path(u"bridge.abd"_s);
        QFile::copy(QStringLiteral(EXAMPLES_DIR) + u'/' + example + u'/' + example + u".abd"_s, file);
        return file;
    }
    [[nodiscard]] QString Project() const { return folder.Path(u"bridge.sbd"_s); }

    /// A new project by a choice of the chooser.
    CChildFrame* Begin(int choice, int girderType = 0)
    {
        user.start = {choice, girderType};
        user.newProjectFile = folder.Path(u"bridge.abd"_s);
        return frame.NewProject();
    }

    /// The next engines do this, one verb a line (tests/engine/engine.cpp).
    void Engine(const QString& base, const QByteArray& verbs) const
    {
        QFile file(folder.Path(base + u".engine"_s));
        QVERIFY(file.open(QFile::WriteOnly));
        file.write(verbs);
    }

    [[nodiscard]] QAction* Command(const QString& text) const
    {
        for (QAction* action : frame.findChildren<QAction*>()) {
            if (action->text().startsWith(text))
                return action;
        }
        return nullptr;
    }
    void Trigger(const QString& text) const
    {
        QAction* action = Command(text);
        QVERIFY2(action != nullptr, qPrintable(text));
        action->trigger();
        QApplication::processEvents();
    }
};

/// What the user enters.
void Enter(CChildFrame& child, const char* title)
{
    child.SwitchToBlock(302); // the panel of 301 would write its own
    child.Doc().Data().SetOption(301, 0, title);
    child.Doc().NotifyChanged({301, 0});
    child.Doc().SetModifiedFlag(true);
}

QPoint PlaceInTree(CLeftView& tree, int block)
{
    for (QTreeWidgetItemIterator it(&tree); *it != nullptr; ++it) {
        if (!(*it)->text(0).startsWith(QString::number(block)) || (*it)->childCount() > 0)
            continue;
        if ((*it)->parent() != nullptr)
            (*it)->parent()->setExpanded(true);
        tree.scrollToItem(*it);
        const QRect place = tree.visualItemRect(*it);
        return {place.left() + 20, place.center().y()};
    }
    return {};
}

void Click(CChildFrame& child, int block)
{
    QTest::mouseClick(child.Tree().viewport(), Qt::LeftButton, {}, PlaceInTree(child.Tree(), block));
    QApplication::processEvents();
}

void DoubleClick(CChildFrame& child, int block)
{
    Click(child, block);
    QTest::mouseDClick(child.Tree().viewport(), Qt::LeftButton, {}, PlaceInTree(child.Tree(), block));
}

QByteArray TitleLine(const QString& path)
{
    const QByteArray bytes = Bytes(path);
    return bytes.left(bytes.indexOf('\r'));
}

std::string_view TypeOf(CChildFrame& child)
{
    return child.Doc().Data().Option(301, 2);
}

/// The recovery copies of earlier tests are not those of this one.
void RemoveAllCopies()
{
    for (const RecoveryCopy& copy : FindRecoveryCopies())
        RemoveRecoveryCopy(copy);
}

/// The other process: opens a project, changes it again and again and keeps copies, until it is killed.
int EditUntilKilled(const QString& project)
{
    Answers user;
    CMainFrame frame(user.Dialogs());
    CChildFrame* child = frame.OpenProject(project);
    if (child == nullptr)
        return 1;
    for (int i = 1;; ++i) {
        Enter(*child, QByteArray::number(i).prepend("EDIT ").constData());
        if (!child->KeepRecoveryCopy())
            return 2;
        if (i == 1)
            OtherProcess::Say("edited");
    }
}

} // namespace

class DocumentLifeTest : public QObject {
    Q_OBJECT

private slots:
    void init() { RemoveAllCopies(); }

    // beginning
    void theFirstProjectComesUpWithoutTheChooser();
    void goMakesAnEmptyProject();
    void cancelMakesNone();
    void anAnalysisInputMakesAProjectWithNamesAndWebs();
    void theSecondTimeTheProjectIsOpened();
    void aUcGridProjectHasItsType();
    void runAtOnceShowsWhatTheEngineChanged();
    void runAtOnceOnAnOldProjectAsksAndKeepsIt();
    void runAtOnceOnAnOldProjectMayReplaceIt();
    void aProjectThatIsOpenIsNotTakenByTheChooser();

    // holding
    void anOpenProjectIsHeld();
    void closingLetsTheProjectGo();
    void aHeldProjectIsAskedFor();
    void savingKeepsTheHold();
    void savingOverAHeldProjectIsRefused();

    // saving
    void savingUnderANewNameTakesTheCompanionsAlong();
    void aCancelledFirstSaveLeavesNoTitle();
    void aSavedProjectHasItsWholePathAsTitle();

    // running
    void theRunsStandInTheirOrderInTheMenu();
    void aRunBringsTheChangesBack();
    void runsStandInTheDataMenuToo();
    void aSingleClickShowsTheReport();
    void aDoubleClickOnAFreshReportRuns();
    void aDoubleClickOnAStaleReportAsksFirst();
    void aBrokenProjectIsToldWithItsCopy();
    void strangePathsAreOpenedSavedAndRunOrRefused_data();
    void strangePathsAreOpenedSavedAndRunOrRefused();

    // coming back
    void aCrashLeavesACopyThatIsOffered();
    void aKilledProgramLosesNothingThatWasCopied();
    void aCleanEndLeavesNoCopy();
    void anUnwantedCopyIsRemoved();
    void laterOffersTheCopyAgain();
    void theCopyOfAProjectThatIsOpenComesWithoutAPath();
};

void DocumentLifeTest::theFirstProjectComesUpWithoutTheChooser()
{
    const Station station;
    QVERIFY(station.frame.CurrentChild() != nullptr);
    QVERIFY(station.frame.CurrentChild()->Doc().PathName().isEmpty());
}

void DocumentLifeTest::goMakesAnEmptyProject()
{
    Station station;
    CChildFrame* child = station.Begin(1);
    QVERIFY(child != nullptr);
    QVERIFY(child->Doc().PathName().isEmpty());
    QCOMPARE(station.frame.Children().size(), 2);
}

void DocumentLifeTest::cancelMakesNone()
{
    Station station;
    for (const int choice : {0, 6})
        QVERIFY(station.Begin(choice) == nullptr);
    QCOMPARE(station.frame.Children().size(), 1);
}

void DocumentLifeTest::anAnalysisInputMakesAProjectWithNamesAndWebs()
{
    Station station;
    (void)station.AnalysisInput();
    BoxWebNames proposed;
    station.user.boxWebs = [&proposed](BoxWebNames& names) {
        proposed = names;
        return true;
    };
    CChildFrame* child = station.Begin(2, 1);
    QVERIFY(child != nullptr);
    QCOMPARE(station.user.filters.value(0), u"ABD Files(*.abd)"_s);
    QCOMPARE(child->Doc().PathName(), station.Project());
    QVERIFY(QFile::exists(station.Project()));
    QVERIFY(!child->Doc().Data().gridNames.girderNames.empty());
    QCOMPARE(proposed.girderNames, child->Doc().Data().gridNames.girderNames);
    QCOMPARE(child->Doc().Data().RowCount(305), proposed.girderNames.size());
    QCOMPARE(CRecentFiles::List().value(0), station.Project());
}

void DocumentLifeTest::theSecondTimeTheProjectIsOpened()
{
    Station station;
    (void)station.AnalysisInput();
    CChildFrame* first = station.Begin(2);
    Enter(*first, "MINE");
    station.Trigger(u"上書き保存"_s);
    first->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    CChildFrame* second = station.Begin(2, 1);
    QVERIFY(second != nullptr);
    QCOMPARE(TitleLine(station.Project()), QByteArray("TITLE:MINE"));
    QVERIFY(second->Doc().Data().Option(301, 0).ends_with("INE"));
    QVERIFY(second->Lock().IsHeld());
    QVERIFY(!second->Doc().IsModified());
}

void DocumentLifeTest::aUcGridProjectHasItsType()
{
    Station station;
    station.user.newProjectFile = station.folder.Path(u"bridge.GRL"_s);
    CChildFrame* child = station.Begin(3);
    QVERIFY(child != nullptr);
    QCOMPARE(station.user.filters.value(0), u"GRL Files(*.GRL)"_s);
    QCOMPARE(TypeOf(*child), std::string_view("UC-GRID"));
    QVERIFY(Bytes(station.Project()).contains("UC-GRID"));
    QVERIFY(child->Lock().IsHeld());
}

void DocumentLifeTest::runAtOnceShowsWhatTheEngineChanged()
{
    Station station;
    (void)station.AnalysisInput();
    station.Engine(u"bridge"_s, "args\nvalue RESET_RESULTS NO\nchk ok\n");
    CChildFrame* child = station.Begin(4);
    QVERIFY(child != nullptr);
    QCOMPARE(Bytes(station.folder.Path(u"bridge.args"_s)), station.Project().toUtf8() + "\nRUN\n");
    QCOMPARE(child->Doc().Data().Option(301, 1), std::string_view("NO"));
    QVERIFY(child->Lock().IsHeld());
    QVERIFY(!child->Doc().IsModified());
}

void DocumentLifeTest::runAtOnceOnAnOldProjectAsksAndKeepsIt()
{
    Station station;
    (void)station.folder.Example(u"plate4"_s, u"bridge"_s);
    const QByteArray before = Bytes(station.Project());
    station.Engine(u"bridge"_s, "chk ok\n");
    station.user.yes = {false};
    CChildFrame* child = station.Begin(4);
    QVERIFY(child != nullptr);
    QCOMPARE(station.user.asked,
             QStringList(QDir::toNativeSeparators(station.Project())
                         + u"\n古い自動設計結果があります,廃棄しますか？"_s));
    QCOMPARE(Bytes(station.Project()), before);
    QVERIFY(child->Doc().Data().RowCount(313) > CSbdData().RowCount(313)); // the file's, read behind the run
}

void DocumentLifeTest::runAtOnceOnAnOldProjectMayReplaceIt()
{
    Station station;
    (void)station.folder.Example(u"plate4"_s, u"bridge"_s);
    station.Engine(u"bridge"_s, "chk ok\n");
    station.user.yes = {true};
    CChildFrame* child = station.Begin(4);
    QVERIFY(child != nullptr);
    QVERIFY(child->Doc().Data().RowCount(313) <= 1); // the row of the switch
}

void DocumentLifeTest::aProjectThatIsOpenIsNotTakenByTheChooser()
{
    Station station;
    station.frame.OpenProject(station.folder.Example(u"plate4"_s, u"bridge"_s));
    for (const int choice : {2, 3, 4, 5})
        QVERIFY(station.Begin(choice) == nullptr);
    QCOMPARE(station.user.warned.size(), 4);
    QCOMPARE(station.user.warned[0],
             u"このファイルは既に開いています！\n(Opend by KELD section.exeか他のプログラムに利用されますか)"_s);
}

void DocumentLifeTest::anOpenProjectIsHeld()
{
    Station station;
    const QString path = station.folder.Example(u"plate4"_s);
    QVERIFY(station.frame.OpenProject(path) != nullptr);
    QCOMPARE(CProjectLock::Look(path), CProjectLock::State::Held);
}

void DocumentLifeTest::closingLetsTheProjectGo()
{
    Station station;
    const QString path = station.folder.Example(u"plate4"_s);
    station.frame.OpenProject(path)->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(CProjectLock::Look(path), CProjectLock::State::Free);
}

void DocumentLifeTest::aHeldProjectIsAskedFor()
{
    Station station;
    const QString path = station.folder.Example(u"plate4"_s);
    CProjectLock other;
    QVERIFY(other.Take(path));
    QVERIFY(station.frame.OpenProject(path) == nullptr);
    QCOMPARE(station.user.asked.size(), 1);
    QCOMPARE(station.user.asked[0],
             QDir::toNativeSeparators(path)
                 + u"\n\nは他のプログラムで使用され，KELD sectionを継続しますか？"
                   u"\n\nはい　　=　ほかのプログラムは終了しましたので，継続します．"
                   u"\n\nいいえ　=　ファイルを開きません！\n"_s);
    QVERIFY(station.user.warned.isEmpty());
    other.Release();
    QVERIFY(station.frame.OpenProject(path) != nullptr);
}

void DocumentLifeTest::savingKeepsTheHold()
{
    Station station;
    const QString path = station.folder.Example(u"plate4"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    for (int i = 0; i < 3; ++i) {
        Enter(*child, "AGAIN");
        station.Trigger(u"上書き保存"_s);
        QVERIFY(!child->Doc().IsModified());
        QCOMPARE(CProjectLock::Look(path), CProjectLock::State::Held);
    }
}

void DocumentLifeTest::savingOverAHeldProjectIsRefused()
{
    Station station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    const QString other = station.folder.Example(u"box2"_s);
    const QByteArray before = Bytes(other);
    CProjectLock lock;
    QVERIFY(lock.Take(other));
    Enter(*child, "MINE");
    station.user.saveFile = other;
    station.Trigger(u"名前を付けて保存"_s);
    QCOMPARE(station.user.warned.size(), 1);
    QVERIFY(station.user.warned[0].contains(u"他のプログラムで使用中"_s));
    QCOMPARE(Bytes(other), before);
    QVERIFY(child->Doc().IsModified());
    QVERIFY(child->Lock().IsHeld());
}

void DocumentLifeTest::savingUnderANewNameTakesTheCompanionsAlong()
{
    Station station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    for (const char* extension : {".li9", ".ll2", ".abl", ".other"}) {
        QFile file(station.folder.Path(u"plate4"_s + QLatin1StringView(extension)));
        QVERIFY(file.open(QFile::WriteOnly));
        file.write(extension);
    }
    station.user.saveFile = station.folder.Path(u"新しい 橋.sbd"_s);
    station.Trigger(u"名前を付けて保存"_s);
    QCOMPARE(Bytes(station.folder.Path(u"新しい 橋.abd"_s)), Bytes(station.folder.Path(u"plate4.abd"_s)));
    for (const char* extension : {".li9", ".ll2", ".abl"})
        QCOMPARE(Bytes(station.folder.Path(u"新しい 橋"_s + QLatin1StringView(extension))), QByteArray(extension));
    QVERIFY(!QFile::exists(station.folder.Path(u"新しい 橋.other"_s)));
    QCOMPARE(child->Title(), QDir::toNativeSeparators(station.user.saveFile));
    QCOMPARE(CProjectLock::Look(station.user.saveFile), CProjectLock::State::Held);
    QCOMPARE(CProjectLock::Look(station.folder.Path(u"plate4.sbd"_s)), CProjectLock::State::Free);
}

void DocumentLifeTest::aCancelledFirstSaveLeavesNoTitle()
{
    Station station;
    station.Trigger(u"名前を付けて保存"_s);
    QCOMPARE(station.frame.CurrentChild()->Title(), QString());
}

void DocumentLifeTest::aSavedProjectHasItsWholePathAsTitle()
{
    Station station;
    const QString path = station.folder.Example(u"plate4"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    QCOMPARE(child->Title(), u"plate4.sbd"_s);
    station.Trigger(u"上書き保存"_s);
    QCOMPARE(child->Title(), QDir::toNativeSeparators(path));
}

void DocumentLifeTest::theRunsStandInTheirOrderInTheMenu()
{
    const Station station;
    QStringList texts;
    for (QAction* top : station.frame.menuBar()->actions()) {
        if (top->text() == u"解析&&結果(&A)"_s) {
            for (QAction* action : top->menu()->actions())
                texts.append(action->text());
        }
    }
    QCOMPARE(texts,
             QStringList(
                 {u"1.実行　　　　　　　　　　　（主桁・横桁・骨組などすべての計算を行います．主桁結果を画面表示）"_s,
                  u"2.データをチェック"_s,
                  u"3.計算結果出力　　　　　　　（主桁・横桁・骨組などすべての計算を行い，その後出力画面を表示)"_s,
                  u"4.横桁･対傾構結果表示; 選択出力 　　　　　　　　 (正しく表示には 1. 実行してから行ってください)"_s,
                  u"5.支点補剛材・ダイヤフラム結果表示; 選択出力　　(正しく表示には 1. 実行してから行ってください)"_s}));
}

void DocumentLifeTest::aRunBringsTheChangesBack()
{
    Station station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    Enter(*child, "MINE");
    child->GoToBlock(301);
    station.Engine(u"plate4"_s, "value RESET_RESULTS NO\nchk Error = 0\n");
    station.Trigger(u"1.実行"_s);
    QVERIFY(station.user.warned.value(0).startsWith(u"データに修正があり，解析方法を選択してください"_s));
    QCOMPARE(child->CurrentBlock(), 301);
    QCOMPARE(child->Panel()->Grid()->model()->index(1, 1).data().toString(), u"NO"_s);
    QVERIFY(!child->Doc().IsModified());
    QVERIFY(child->Lock().IsHeld());
    QVERIFY(FindRecoveryCopies().isEmpty());
}

void DocumentLifeTest::runsStandInTheDataMenuToo()
{
    Station station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    station.Engine(u"plate4"_s, "args\n");
    station.Trigger(u"254.データチェック"_s);
    QVERIFY(Bytes(station.folder.Path(u"plate4.args"_s)).endsWith("\nCHECK\n"));
    station.Trigger(u"256.解析実行＆出力"_s);
    QVERIFY(Bytes(station.folder.Path(u"plate4.args"_s)).endsWith("\nRESULT\n"));
    QCOMPARE(child->CurrentBlock(), 301);
}

void DocumentLifeTest::aSingleClickShowsTheReport()
{
    Station station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    station.Engine(u"plate4"_s, "chk first line\nchk second line\n");
    station.Trigger(u"2.データをチェック"_s);
    station.Engine(u"plate4"_s, "args\n");
    Click(*child, 255);
    QVERIFY(child->UpView().Chk().isVisible());
    const std::vector<ChkLine> lines = child->UpView().Chk().Lines();
    QVERIFY(lines.size() >= 3);
    QCOMPARE(lines.back().text, std::string("second line"));
    QTest::qWait(50);
    QVERIFY(!QFile::exists(station.folder.Path(u"plate4.args"_s))); // shown, not run
    Click(*child, 313);
    QVERIFY(!child->UpView().Chk().isVisible());
}

void DocumentLifeTest::aDoubleClickOnAFreshReportRuns()
{
    Station station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    station.Engine(u"plate4"_s, "chk ok\n");
    station.Trigger(u"2.データをチェック"_s);
    station.Engine(u"plate4"_s, "args\nchk ok\n");
    DoubleClick(*child, 255);
    QTRY_VERIFY(QFile::exists(station.folder.Path(u"plate4.args"_s)));
    QVERIFY(station.user.asked.isEmpty());
    QVERIFY(child->Doc().runOnShow); // stands until the next press
    Click(*child, 255);
    QVERIFY(!child->Doc().runOnShow);
}

void DocumentLifeTest::aDoubleClickOnAStaleReportAsksFirst()
{
    Station station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    station.Engine(u"plate4"_s, "chk ok\n");
    station.Trigger(u"2.データをチェック"_s);
    station.Engine(u"plate4"_s, "args\n");
    Enter(*child, "MINE");
    DoubleClick(*child, 256); // the user cancels
    QTRY_COMPARE(station.user.asked.size(), 1);
    QVERIFY(station.user.asked[0].startsWith(u"データに修正があり，解析実行＆出力方法を選択してください"_s));
    QVERIFY(!QFile::exists(station.folder.Path(u"plate4.args"_s)));
    QVERIFY(child->Doc().IsModified());

    station.user.yes = {true};
    DoubleClick(*child, 256);
    QTRY_VERIFY(QFile::exists(station.folder.Path(u"plate4.args"_s)));
    QCOMPARE(TitleLine(child->Doc().PathName()), QByteArray("TITLE:MINE"));
    child->Doc().runOnShow = false;
}

void DocumentLifeTest::aBrokenProjectIsToldWithItsCopy()
{
    Station station;
    const QString path = station.folder.Example(u"plate4"_s);
    const QByteArray before = Bytes(path);
    CChildFrame* child = station.frame.OpenProject(path);
    station.Engine(u"plate4"_s, "rubbish 3000\n");
    station.Trigger(u"1.実行"_s);
    const QList<RecoveryCopy> copies = FindRecoveryCopies();
    QCOMPARE(copies.size(), 1);
    QCOMPARE(station.user.warned.size(), 1);
    QVERIFY(station.user.warned[0].contains(QDir::toNativeSeparators(copies[0].file)));
    QCOMPARE(Bytes(copies[0].file), before);
    QVERIFY(child->Panel() != nullptr);

    // The next start offers it; saved, it is the project again.
    child->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    station.user.recovery = RecoveryAnswer::Open;
    station.frame.OfferRecoveryCopies();
    CChildFrame* recovered = station.frame.CurrentChild();
    QVERIFY(recovered->Doc().IsModified());
    QCOMPARE(recovered->Doc().PathName(), path);
    station.Trigger(u"上書き保存"_s);
    QVERIFY(Bytes(path).size() > before.size() / 2);
    QVERIFY(FindRecoveryCopies().isEmpty());
}

void DocumentLifeTest::strangePathsAreOpenedSavedAndRunOrRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("runs");
    QTest::newRow("blanks") << u"my  bridge 1"_s << true;
    QTest::newRow("Japanese") << u"第１橋（上り線） ソ表能"_s << true;
    QTest::newRow("apostrophe") << u"bridge's"_s << true;
    QTest::newRow("points") << u"bridge.v2.final"_s << true;
    QTest::newRow("quote") << u"5\" bridge"_s << false;
    QTest::newRow("no CP932 character") << u"橋😀"_s << false;
    QTest::newRow("Hangul") << u"다리"_s << false;
}

void DocumentLifeTest::strangePathsAreOpenedSavedAndRunOrRefused()
{
    QFETCH(const QString, name);
    QFETCH(const bool, runs);
    Station station;
    const QString path = station.folder.Example(u"plate4"_s, name);
    CChildFrame* child = station.frame.OpenProject(path);
    QVERIFY(child != nullptr);
    Enter(*child, "MINE");
    station.Trigger(u"上書き保存"_s);
    QCOMPARE(TitleLine(path), QByteArray("TITLE:MINE"));
    QVERIFY(child->Lock().IsHeld());

    station.Engine(name, "args\n");
    station.Trigger(u"1.実行"_s);
    QCOMPARE(QFile::exists(station.folder.Path(name + u".args"_s)), runs);
    QCOMPARE(station.user.warned.size(), runs ? 0 : 1); // refused with the reason
    if (runs)
        QCOMPARE(Bytes(station.folder.Path(name + u".args"_s)), path.toUtf8() + "\nRUN\n");
    QVERIFY(child->Lock().IsHeld());
}

void DocumentLifeTest::aCrashLeavesACopyThatIsOffered()
{
    Station station;
    const QString path = station.folder.Example(u"plate4"_s);
    const QByteArray before = Bytes(path);
    {
        const OtherProcess other({u"--edit"_s, path});
        QCOMPARE(other.Word(), u"edited"_s);
    } // killed
    QCOMPARE(Bytes(path), before);
    station.user.recovery = RecoveryAnswer::Open;
    station.frame.OfferRecoveryCopies();
    QCOMPARE(station.user.asked.size(), 1);
    QVERIFY(station.user.asked[0].contains(QDir::toNativeSeparators(path)));
    CChildFrame* child = station.frame.CurrentChild();
    QVERIFY(child->Doc().IsModified());
    QCOMPARE(child->Doc().PathName(), path);
    QVERIFY(child->Lock().IsHeld());
    QVERIFY(toQString(child->Doc().Data().Option(301, 0)).contains(u"DIT "_s));
    QCOMPARE(Bytes(path), before); // until it is saved
}

void DocumentLifeTest::aKilledProgramLosesNothingThatWasCopied()
{
    Station station;
    const QString path = station.folder.Example(u"plate4"_s);
    constexpr int kills = 12;
    for (int i = 0; i < kills; ++i) {
        RemoveAllCopies();
        OtherProcess other({u"--edit"_s, path});
        QCOMPARE(other.Word(), u"edited"_s);
        QTest::qWait(i * 3); // somewhere in the middle of writing
        other.Kill();
        const QList<RecoveryCopy> copies = FindRecoveryCopies();
        QCOMPARE(copies.size(), 1);
        QCOMPARE(copies[0].project, path);
        const QByteArray bytes = Bytes(copies[0].file);
        QVERIFY2(bytes.startsWith("TITLE:EDIT ") && bytes.size() > 10'000, bytes.left(40).constData());
        CKELDSectionDoc doc;
        QVERIFY(doc.OpenRecoveryCopy(copies[0].file, path).Ok());
        QVERIFY(doc.Data().RowCount(313) > CSbdData().RowCount(313));
        QCOMPARE(CProjectLock::Look(path), CProjectLock::State::Free);
    }
}

void DocumentLifeTest::aCleanEndLeavesNoCopy()
{
    Station station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    Enter(*child, "MINE");
    QVERIFY(child->KeepRecoveryCopy());
    QVERIFY(!QDir(RecoveryFolder()).isEmpty());
    station.user.save = SaveAnswer::Discard;
    child->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QVERIFY(QDir(RecoveryFolder()).isEmpty());
}

void DocumentLifeTest::anUnwantedCopyIsRemoved()
{
    Station station;
    {
        const OtherProcess other({u"--edit"_s, station.folder.Example(u"plate4"_s)});
    }
    station.user.recovery = RecoveryAnswer::Remove;
    station.frame.OfferRecoveryCopies();
    QVERIFY(FindRecoveryCopies().isEmpty());
    QCOMPARE(station.frame.Children().size(), 1);
}

void DocumentLifeTest::laterOffersTheCopyAgain()
{
    Station station;
    {
        const OtherProcess other({u"--edit"_s, station.folder.Example(u"plate4"_s)});
    }
    station.frame.OfferRecoveryCopies();
    QCOMPARE(FindRecoveryCopies().size(), 1);
    station.frame.OfferRecoveryCopies();
    QCOMPARE(station.user.asked.size(), 2);
}

void DocumentLifeTest::theCopyOfAProjectThatIsOpenComesWithoutAPath()
{
    Station station;
    const QString path = station.folder.Example(u"plate4"_s);
    {
        const OtherProcess other({u"--edit"_s, path});
    }
    CChildFrame* open = station.frame.OpenProject(path);
    station.user.recovery = RecoveryAnswer::Open;
    station.frame.OfferRecoveryCopies();
    QVERIFY(station.frame.CurrentChild() != open);
    QVERIFY(station.frame.CurrentChild()->Doc().PathName().isEmpty());
    QVERIFY(open->Lock().IsHeld());
}

int main(int argc, char** argv)
{
    QApplication app(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.value(1) == u"--edit"_s)
        return EditUntilKilled(arguments.value(2));
    DocumentLifeTest test;
    return QTest::qExec(&test, argc, argv);
}
#include "document_life_test.moc"
