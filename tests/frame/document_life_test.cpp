// The life of a document through the real window: how it begins, is held, saved, run and brought back.
#include "document/path.h"
#include "document/project_lock.h"
#include "frame/notice_bar.h"
#include "frame/profile.h"
#include "grid/grid_ctrl.h"
#include "life_station.h"
#include "panels/panel.h"
#include "upperview/chk_view.h"
#include "upperview/up_view.h"

#include <QDir>
#include <QMenuBar>
#include <QPushButton>

using namespace sbd;

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
};

void DocumentLifeTest::theFirstProjectComesUpWithoutTheChooser()
{
    const LifeStation station;
    QVERIFY(station.frame.CurrentChild() != nullptr);
    QVERIFY(station.frame.CurrentChild()->Doc().PathName().isEmpty());
}

void DocumentLifeTest::goMakesAnEmptyProject()
{
    LifeStation station;
    CChildFrame* child = station.Begin(1);
    QVERIFY(child != nullptr);
    QVERIFY(child->Doc().PathName().isEmpty());
    QCOMPARE(station.frame.Children().size(), 2);
}

void DocumentLifeTest::cancelMakesNone()
{
    LifeStation station;
    for (const int choice : {0, 6})
        QVERIFY(station.Begin(choice) == nullptr);
    QCOMPARE(station.frame.Children().size(), 1);
}

void DocumentLifeTest::anAnalysisInputMakesAProjectWithNamesAndWebs()
{
    LifeStation station;
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
    LifeStation station;
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
    LifeStation station;
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
    LifeStation station;
    (void)station.AnalysisInput();
    station.Engine(u"bridge"_s, "args\nvalue RESET_RESULTS NO\nchk ok\n");
    CChildFrame* child = station.Begin(4);
    QVERIFY(child != nullptr);
    QCOMPARE(Bytes(station.folder.Path(u"bridge.args"_s)),
             QDir::toNativeSeparators(station.Project()).toUtf8() + "\nRUN\n");
    QCOMPARE(child->Doc().Data().Option(301, 1), std::string_view("NO"));
    QVERIFY(child->Lock().IsHeld());
    QVERIFY(!child->Doc().IsModified());
}

void DocumentLifeTest::runAtOnceOnAnOldProjectAsksAndKeepsIt()
{
    LifeStation station;
    (void)station.folder.Example(u"plate4"_s, u"bridge"_s);
    const QByteArray before = Bytes(station.Project());
    station.Engine(u"bridge"_s, "chk ok\n");
    station.user.yes = {false};
    CChildFrame* child = station.Begin(4);
    QVERIFY(child != nullptr);
    QCOMPARE(station.user.asked, QStringList(QDir::toNativeSeparators(station.Project())
                                             + u"\n古い自動設計結果があります,廃棄しますか？"_s));
    QCOMPARE(Bytes(station.Project()), before);
    QVERIFY(child->Doc().Data().RowCount(313) > CSbdData().RowCount(313)); // the file's, read after the run
}

void DocumentLifeTest::runAtOnceOnAnOldProjectMayReplaceIt()
{
    LifeStation station;
    (void)station.folder.Example(u"plate4"_s, u"bridge"_s);
    station.Engine(u"bridge"_s, "chk ok\n");
    station.user.yes = {true};
    CChildFrame* child = station.Begin(4);
    QVERIFY(child != nullptr);
    QVERIFY(child->Doc().Data().RowCount(313) <= 1); // the row of the switch
}

void DocumentLifeTest::aProjectThatIsOpenIsNotTakenByTheChooser()
{
    LifeStation station;
    station.frame.OpenProject(station.folder.Example(u"plate4"_s, u"bridge"_s));
    for (const int choice : {2, 3, 4, 5})
        QVERIFY(station.Begin(choice) == nullptr);
    QCOMPARE(station.user.warned.size(), 4);
    QCOMPARE(station.user.warned[0],
             u"このファイルは既に開いています！\n(Opend by KELD section.exeか他のプログラムに利用されますか)"_s);
}

void DocumentLifeTest::anOpenProjectIsHeld()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    QVERIFY(station.frame.OpenProject(path) != nullptr);
    QCOMPARE(CProjectLock::Look(path), CProjectLock::State::Held);
}

void DocumentLifeTest::closingLetsTheProjectGo()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    station.frame.OpenProject(path)->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(CProjectLock::Look(path), CProjectLock::State::Free);
}

void DocumentLifeTest::aHeldProjectIsAskedFor()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    CProjectLock other;
    QVERIFY(other.Take(path));
    QVERIFY(station.frame.OpenProject(path) == nullptr);
    QCOMPARE(station.user.asked.size(), 1);
    QCOMPARE(station.user.asked[0], QDir::toNativeSeparators(path)
                                        + u"\n\nは他のプログラムで使用され，KELD sectionを継続しますか？"
                                          u"\n\nはい　　=　ほかのプログラムは終了しましたので，継続します．"
                                          u"\n\nいいえ　=　ファイルを開きません！\n"_s);
    QVERIFY(station.user.warned.isEmpty());
    other.Release();
    QVERIFY(station.frame.OpenProject(path) != nullptr);
}

void DocumentLifeTest::savingKeepsTheHold()
{
    LifeStation station;
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
    LifeStation station;
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
    LifeStation station;
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
    LifeStation station;
    station.Trigger(u"名前を付けて保存"_s);
    QCOMPARE(station.frame.CurrentChild()->Title(), QString());
}

void DocumentLifeTest::aSavedProjectHasItsWholePathAsTitle()
{
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    QCOMPARE(child->Title(), u"plate4.sbd"_s);
    station.Trigger(u"上書き保存"_s);
    QCOMPARE(child->Title(), QDir::toNativeSeparators(path));
}

void DocumentLifeTest::theRunsStandInTheirOrderInTheMenu()
{
    const LifeStation station;
    QStringList texts;
    for (QAction* top : station.frame.menuBar()->actions()) {
        if (top->text() == u"解析&&結果(&A)"_s) {
            for (QAction* action : top->menu()->actions())
                texts.append(action->text());
        }
    }
    QCOMPARE(
        texts.first(5),
        QStringList(
            {u"1.実行　　　　　　　　　　　（主桁・横桁・骨組などすべての計算を行います．主桁結果を画面表示）"_s,
             u"2.データをチェック"_s,
             u"3.計算結果出力　　　　　　　（主桁・横桁・骨組などすべての計算を行い，その後出力画面を表示)"_s,
             u"4.横桁･対傾構結果表示; 選択出力 　　　　　　　　 (正しく表示には 1. 実行してから行ってください)"_s,
             u"5.支点補剛材・ダイヤフラム結果表示; 選択出力　　(正しく表示には 1. 実行してから行ってください)"_s}));
}

void DocumentLifeTest::aRunBringsTheChangesBack()
{
    LifeStation station;
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
    LifeStation station;
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
    LifeStation station;
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
    LifeStation station;
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
    LifeStation station;
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
    LifeStation station;
    const QString path = station.folder.Example(u"plate4"_s);
    const QByteArray before = Bytes(path);
    CChildFrame* child = station.frame.OpenProject(path);
    station.Engine(u"plate4"_s, "rubbish 3000\n");
    station.Trigger(u"1.実行"_s);
    const QList<KeptInput> copies = KeptInputsOf(path);
    QCOMPARE(copies.size(), 1);
    QCOMPARE(station.user.warned.size(), 1);
    QVERIFY(station.user.warned[0].contains(QDir::toNativeSeparators(copies[0].file)));
    QCOMPARE(Bytes(copies[0].file), before);
    QVERIFY(child->Panel() != nullptr);

    // The bar says it too, and brings it back; saved, it is the project again.
    QVERIFY(child->Notices().Texts().value(0).contains(QDir::toNativeSeparators(copies[0].file)));
    for (QPushButton* button : child->Notices().findChildren<QPushButton*>()) {
        if (button->text().startsWith(u"元に戻す"_s))
            button->click();
    }
    QVERIFY(child->Doc().IsModified());
    // What the engine has left is no project: a save over it asks, and yes is the answer here.
    const qsizetype asked = station.user.asked.size();
    station.user.yes = {true};
    station.Trigger(u"上書き保存"_s);
    QCOMPARE(station.user.asked.size(), asked + 1);
    QVERIFY(Bytes(path).size() > before.size() / 2);
    CSbdData restored;
    CSbdData wanted;
    const auto read = [&](const QString& file, CSbdData& data) {
        return LoadProject(ToPath(file), NamesFileBeside(ToPath(path)), data).Ok();
    };
    QVERIFY(read(path, restored) && read(copies[0].file, wanted));
    // The rubbish has brought a section that nobody knows, or none: all that the project had is there.
    for (const Difference& difference : CompareProjects(wanted, restored))
        QVERIFY2(difference.block == 301 && difference.row == 1, qPrintable(QString::number(difference.block)));
}

void DocumentLifeTest::strangePathsAreOpenedSavedAndRunOrRefused_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("runs");
    QTest::newRow("blanks") << u"my  bridge 1"_s << true;
    QTest::newRow("Japanese") << u"第１橋（上り線） ソ表能"_s << true;
    QTest::newRow("apostrophe") << u"bridge's"_s << true;
    QTest::newRow("points") << u"bridge.v2.final"_s << true;
#ifndef Q_OS_WIN // where no name has it
    QTest::newRow("quote") << u"5\" bridge"_s << false;
#endif
    QTest::newRow("no CP932 character") << u"橋😀"_s << false;
    QTest::newRow("Hangul") << u"다리"_s << false;
}

void DocumentLifeTest::strangePathsAreOpenedSavedAndRunOrRefused()
{
    QFETCH(const QString, name);
    QFETCH(const bool, runs);
    LifeStation station;
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
        QCOMPARE(Bytes(station.folder.Path(name + u".args"_s)), QDir::toNativeSeparators(path).toUtf8() + "\nRUN\n");
    QVERIFY(child->Lock().IsHeld());
}

QTEST_MAIN(DocumentLifeTest)
#include "document_life_test.moc"
