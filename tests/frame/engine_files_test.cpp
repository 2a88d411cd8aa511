// The project file behind a run: held, broken, gone; and the copies that are kept of it.
#include "document/path.h"
#include "document/section_doc.h"
#include "run_bench.h"

#include <QDir>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace sbd;

class EngineFilesTest : public QObject {
    Q_OBJECT

private slots:
    void aFileThatIsStillHeldIsReadWhenItIsFree();
    void aFileThatIsFreeAgainWaitsForWhoHasGoneOn();
    void aHeldFileThatDidNotChangeIsTakenBack();
    void rubbishIsToldAndTheCopyHasTheProject();
    void aCutFileIsTold();
    void aFileThatIsGoneIsTold();
    void aFileCutAtASectionsEndIsTold();
    void aKeptCopyOutlivesFurtherRuns();
    void everyCopyIsKept();
    void aFileThatBrokeWhileItsProjectWasClosedKeepsItsCopy();
    void withoutRoomForTheCopyARunAsksFirst();
};

void EngineFilesTest::aFileThatIsStillHeldIsReadWhenItIsFree()
{
    RunBench bench;
    bench.Enter("ENTERED");
    bench.Engine("value RESET_RESULTS NO\nhold 1500\n");
    QVERIFY(!bench.runner.RunAndReload(EngineRun::Check, bench.Project()));
    QCOMPARE(bench.log.last(), u"not read"_s);
    QVERIFY(!bench.log.contains(u"panel away"_s));
    QCOMPARE(bench.Title(), u"ENTERED"_s);
    QVERIFY(!bench.Doc().IsModified());
    QVERIFY(!bench.lock.IsHeld());
    QCOMPARE(bench.Notices().size(), 1);
    QVERIFY(bench.Notices()[0].contains(u"まだ使用中"_s));
    QCOMPARE(bench.Kept().value(0).end.kind, RunEndKind::Held);
    QVERIFY(Bytes(bench.Kept().value(0).file).startsWith("TITLE:ENTERED\r\n"));
    QVERIFY(bench.Doc().FileIsAnother()); // a save would ask

    QTRY_COMPARE_WITH_TIMEOUT(bench.Doc().Data().Option(301, 1), std::string_view("NO"), 20000);
    QVERIFY(bench.lock.IsHeld());
    QVERIFY(!bench.Doc().FileIsAnother());
    QCOMPARE(bench.Notices().size(), 1); // the held one has gone
    QVERIFY(bench.Notices()[0].contains(u"保存していなかった変更"_s));
    QVERIFY(bench.Press(u"元に戻す"_s));
    QCOMPARE(bench.Title(), u"ENTERED"_s);
}

void EngineFilesTest::aFileThatIsFreeAgainWaitsForWhoHasGoneOn()
{
    RunBench bench;
    bench.Engine("value RESET_RESULTS NO\nhold 1500\n");
    QVERIFY(!bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    bench.Enter("GONE ON");
    QTRY_VERIFY_WITH_TIMEOUT(bench.Notices().value(0).startsWith(u"使用中だったプロジェクトファイルが空きました"_s),
                             20000);
    QCOMPARE(bench.Title(), u"GONE ON"_s);
    QVERIFY(bench.Press(u"読み込む"_s));
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("NO"));
    QVERIFY(bench.Notices().value(0).startsWith(u"ファイルを読み直しました"_s));
    QVERIFY(bench.Press(u"元に戻す"_s));
    QCOMPARE(bench.Title(), u"GONE ON"_s);
}

void EngineFilesTest::aHeldFileThatDidNotChangeIsTakenBack()
{
    RunBench bench;
    bench.Enter("ENTERED");
    bench.Engine("hold 800\n");
    QVERIFY(!bench.runner.RunAndReload(EngineRun::Check, bench.Project()));
    QTRY_VERIFY_WITH_TIMEOUT(bench.lock.IsHeld(), 20000);
    QCOMPARE(bench.Title(), u"ENTERED"_s);
    QVERIFY(bench.Doc().IsModified()); // the file lacks it
    QCOMPARE(bench.Notices(), QStringList());
}

void EngineFilesTest::rubbishIsToldAndTheCopyHasTheProject()
{
    RunBench bench;
    const QByteArray before = Bytes(bench.path);
    bench.Engine("rubbish "_ba + QByteArray::number(before.size()) + '\n');
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QVERIFY(Bytes(bench.path) != before);
    const QList<KeptInput> copies = bench.Kept();
    QCOMPARE(copies.size(), 1);
    QCOMPARE(Bytes(copies[0].file), before);
    QCOMPARE(Told(bench).size(), 1);
    QVERIFY(Told(bench)[0].startsWith(u"told: 解析プログラムが書いたプロジェクトファイルが壊れているようです。\n"_s));
    QVERIFY(Told(bench)[0].contains(QDir::toNativeSeparators(bench.path)));
    QVERIFY(Told(bench)[0].contains(QDir::toNativeSeparators(copies[0].file)));
    QVERIFY(bench.lock.IsHeld());

    // The way back that the message tells of.
    CKELDSectionDoc copy;
    CSbdData project;
    QVERIFY(copy.OpenDocument(copies[0].file).Ok());
    QVERIFY(LoadProject(ToPath(copies[0].file), NamesFileBeside(ToPath(bench.path)), project).Ok());
    QVERIFY(copy.Data().SameProject(project));
}

void EngineFilesTest::aCutFileIsTold()
{
    RunBench bench;
    const QByteArray before = Bytes(bench.path);
    bench.Engine("truncate "_ba + QByteArray::number(before.size() - 100) + "\ncrash\n");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QCOMPARE(Told(bench).size(), 1);
    QCOMPARE(Bytes(bench.Kept().at(0).file), before);
}

void EngineFilesTest::aFileThatIsGoneIsTold()
{
    RunBench bench;
    const QByteArray before = Bytes(bench.path);
    const QString title = bench.Title();
    bench.Engine("delete\n");
    QVERIFY(!bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QCOMPARE(bench.Title(), title);
    QCOMPARE(Told(bench).size(), 1);
    QVERIFY(Told(bench)[0].contains(u"見つかりません"_s));
    QCOMPARE(Bytes(bench.Kept().at(0).file), before);
}

void EngineFilesTest::aFileCutAtASectionsEndIsTold()
{
    RunBench bench;
    const QByteArray before = Bytes(bench.path);
    const qsizetype end = before.indexOf("[CBD_GRID]");
    QVERIFY(end > before.size() / 2);
    bench.Engine("truncate "_ba + QByteArray::number(end) + '\n');
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QCOMPARE(Told(bench).size(), 1);
    QVERIFY2(Told(bench)[0].contains(u"データがなくなったブロック: 501, 503, 504, 505, 506, 511, "_s),
             qPrintable(Told(bench)[0]));
    const QList<KeptInput> copies = bench.Kept();
    QCOMPARE(copies.size(), 1);
    QCOMPARE(Bytes(copies[0].file), before);
    QVERIFY(Told(bench)[0].contains(QDir::toNativeSeparators(copies[0].file)));
}

void EngineFilesTest::aKeptCopyOutlivesFurtherRuns()
{
    RunBench bench;
    const QByteArray before = Bytes(bench.path);
    bench.Engine("truncate "_ba + QByteArray::number(before.indexOf("[CBD_GRID]")) + '\n');
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    bench.Engine("chk ok\n");
    bench.Enter("ON TOP OF A BROKEN FILE");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Check, bench.Project()));
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    bench.Engine("rubbish 1000\n");
    QVERIFY(bench.runner.RunAndReload(EngineRun::Result, bench.Project()));
    const QList<KeptInput> copies = bench.Kept();
    QCOMPARE(copies.size(), 5);
    QVERIFY(std::ranges::any_of(copies, [&](const KeptInput& copy) { return Bytes(copy.file) == before; }));
}

void EngineFilesTest::everyCopyIsKept()
{
    RunBench bench;
    bench.Engine("chk ok\n");
    for (const char* title : {"AAA", "BBB", "CCC"}) {
        bench.Enter(title);
        QVERIFY(bench.runner.RunAndReload(EngineRun::Check, bench.Project()));
    }
    QStringList titles;
    for (const KeptInput& input : bench.Kept()) {
        const QByteArray bytes = Bytes(input.file);
        if (input.kind == KeptKind::Unsaved)
            titles += QString::fromLatin1(bytes.left(bytes.indexOf('\r')));
    }
    QCOMPARE(titles, QStringList({u"TITLE:CCC"_s, u"TITLE:BBB"_s, u"TITLE:AAA"_s})); // newest first
}

void EngineFilesTest::aFileThatBrokeWhileItsProjectWasClosedKeepsItsCopy()
{
    RunBench bench;
    const QByteArray before = Bytes(bench.path);
    bench.Engine("truncate "_ba + QByteArray::number(before.indexOf("[CBD_GRID]")) + '\n');
    bench.whileEngineRuns = [&] { delete bench.child; };
    QVERIFY(bench.runner.Run(EngineRun::Main, bench.Project()));
    Settle();
    QCOMPARE(bench.log.last(), u"not read"_s);
    QCOMPARE(Bytes(bench.Kept().at(0).file), before);
    QCOMPARE(Told(bench).size(), 1);
    QVERIFY(!Told(bench)[0].contains(u"画面には"_s));
}

void EngineFilesTest::withoutRoomForTheCopyARunAsksFirst()
{
    RunBench bench;
    QFile file(bench.KeptIn());
    QVERIFY(file.open(QFile::WriteOnly)); // no folder can be made in its place
    bench.Engine("value RESET_RESULTS NO\n");
    bench.Enter("ENTERED");
    for (const EngineRun run : {EngineRun::Check, EngineRun::Main}) {
        bench.log.clear();
        QVERIFY(!bench.runner.RunAndReload(run, bench.Project())); // the user says no
        const QStringList asked = bench.log.filter(u"yes or no: 解析前の入力を次のフォルダーに保管できません。"_s);
        QCOMPARE(asked.size(), 1);
        QVERIFY(asked[0].contains(QDir::toNativeSeparators(bench.KeptIn())));
        QCOMPARE(asked[0].contains(u"保存していない変更があります"_s), run == EngineRun::Check);
        QVERIFY(bench.lock.IsHeld());
        QCOMPARE(bench.Doc().IsModified(), run == EngineRun::Check);
    }
    bench.Enter("ENTERED");
    bench.yes = true;
    QVERIFY(bench.runner.RunAndReload(EngineRun::Check, bench.Project()));
    QCOMPARE(bench.Doc().Data().Option(301, 1), std::string_view("NO"));
    QVERIFY(bench.Press(u"元に戻す"_s)); // the window still has them
    QCOMPARE(bench.Title(), u"ENTERED"_s);
}

QTEST_MAIN(EngineFilesTest)
#include "engine_files_test.moc"
