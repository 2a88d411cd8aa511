#include "document/engine_command.h"
#include "document/engine_path.h"

#include <QDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

class EngineCommandTest : public QObject {
    Q_OBJECT

private slots:
    void fiveRunsStandInTheOrderOfTheirNames();
    void theMessagesNameTheEngine();
    void engineLiesInTheProgramFolder();
    void commandLinesAreAsTheEnginesExpect_data();
    void commandLinesAreAsTheEnginesExpect();
    void argumentsAreSplitAsOnWindows_data();
    void argumentsAreSplitAsOnWindows();
    void anEngineGetsThePathWhole_data();
    void anEngineGetsThePathWhole();
    void charactersOutsideCp932AreFound_data();
    void charactersOutsideCp932AreFound();
    void theRefusalNamesPathAndCharacter();
};

void EngineCommandTest::fiveRunsStandInTheOrderOfTheirNames()
{
    const std::span<const EngineRunInfo> runs = EngineRuns();
    QCOMPARE(runs.size(), std::size_t(5));
    const Command commands[] = {Command::CheckData, Command::RunAll, Command::RunAndPrint, Command::ShowCrossResults,
                                Command::ShowSupportResults};
    for (std::size_t i = 0; i < runs.size(); ++i) {
        QCOMPARE(static_cast<std::size_t>(runs[i].run), i);
        QCOMPARE(runs[i].command, commands[i]);
        QCOMPARE(&InfoOf(runs[i].run), &runs[i]);
        QCOMPARE(runs[i].savesChanges, runs[i].run != EngineRun::Check);
    }
}

void EngineCommandTest::theMessagesNameTheEngine()
{
    const auto main = u"HOLM4_W_GIRDER_SECTION.exeは存在しないか別のフォルダにあるか，解析できません．"_s;
    QCOMPARE(EngineMissingMessage(EngineRun::Check), main);
    QCOMPARE(EngineMissingMessage(EngineRun::Main), main);
    QCOMPARE(EngineMissingMessage(EngineRun::Result), main);
    QCOMPARE(EngineMissingMessage(EngineRun::Cross),
             u"HOLM4_W_CROSS.exeは存在しないか別のフォルダにあるか，解析できません．"_s);
    QCOMPARE(EngineMissingMessage(EngineRun::Support),
             u"KELD_Support_Stiff_Diaphragm.exeは存在しないか別のフォルダにあるか，解析できません．"_s);
}

void EngineCommandTest::engineLiesInTheProgramFolder()
{
    QCOMPARE(EnginePath(EngineRun::Cross, u"/opt/station"_s),
             QDir::toNativeSeparators(u"/opt/station/HOLM4_W_CROSS.exe"_s));
    QCOMPARE(EnginePath(EngineRun::Cross, u"/opt/station/"_s),
             QDir::toNativeSeparators(u"/opt/station/HOLM4_W_CROSS.exe"_s));
}

void EngineCommandTest::commandLinesAreAsTheEnginesExpect_data()
{
    QTest::addColumn<EngineRun>("run");
    QTest::addColumn<QString>("line");
    const auto girder = uR"(C:\KELD\HOLM4_W_GIRDER_SECTION.exe)"_s;
    QTest::newRow("check") << EngineRun::Check << girder + uR"( "D:\my data\橋 1.sbd" CHECK)"_s;
    QTest::newRow("run") << EngineRun::Main << girder + uR"( "D:\my data\橋 1.sbd" RUN)"_s;
    QTest::newRow("result") << EngineRun::Result << girder + uR"( "D:\my data\橋 1.sbd" RESULT)"_s;
    QTest::newRow("cross, no closing quote")
        << EngineRun::Cross << uR"(C:\KELD\HOLM4_W_CROSS.exe "D:\my data\橋 1.sbd)"_s;
    QTest::newRow("support, no closing quote")
        << EngineRun::Support << uR"(C:\KELD\KELD_Support_Stiff_Diaphragm.exe "D:\my data\橋 1.sbd)"_s;
}

void EngineCommandTest::commandLinesAreAsTheEnginesExpect()
{
    QFETCH(const EngineRun, run);
    QTEST(EngineCommandLine(run, uR"(C:\KELD\)"_s + InfoOf(run).engine, uR"(D:\my data\橋 1.sbd)"_s), "line");
}

void EngineCommandTest::argumentsAreSplitAsOnWindows_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<QStringList>("arguments");
    const auto row = [](const char* name, const char16_t* text, const QStringList& arguments) {
        QTest::newRow(name) << QString::fromUtf16(text) << arguments;
    };
    row("nothing", u"", {});
    row("blanks alone", u" \t  ", {});
    row("words", u" a  b\tc ", {u"a"_s, u"b"_s, u"c"_s});
    row("quotes hold together", uR"("a b" c)", {u"a b"_s, u"c"_s});
    row("quotes in the middle", uR"(a" "b c)", {u"a b"_s, u"c"_s});
    row("empty argument", uR"("" a)", {u""_s, u"a"_s});
    row("empty argument at the end", uR"(a "")", {u"a"_s, u""_s});
    row("two quotes inside quotes are one", uR"("a""b" c)", {uR"(a"b)"_s, u"c"_s});
    row("two quotes outside are an empty piece", uR"(a""b c)", {u"ab"_s, u"c"_s});
    row("an open quote holds to the end", uR"("a b  c)", {u"a b  c"_s});
    row("an open quote behind words", uR"(a "b c )", {u"a"_s, u"b c "_s});
    row("backslashes without a quote stay", uR"(a\\b\c d\)", {uR"(a\\b\c)"_s, uR"(d\)"_s});
    row("a backslash before a blank ends the word", uR"(a\ b)", {uR"(a\)"_s, u"b"_s});
    row("a backslash takes the quote", uR"(a\"b c)", {uR"(a"b)"_s, u"c"_s});
    row("two backslashes are one and leave the quote", uR"("a\\" b)", {uR"(a\)"_s, u"b"_s});
    row("three backslashes are one and a plain quote", uR"("a\\\" b" c)", {uR"(a\" b)"_s, u"c"_s});
    row("four backslashes are two", uR"("a\\\\" b)", {uR"(a\\)"_s, u"b"_s});
    row("backslashes at the very end", uR"("a\\)", {uR"(a\\)"_s});
    row("Japanese", u"\"橋梁　設計\" ソ表 ＲＵＮ", {u"橋梁　設計"_s, u"ソ表"_s, u"ＲＵＮ"_s});
    row("other white space does not divide", u"a\u00A0b\nc", {u"a\u00A0b\nc"_s});
}

void EngineCommandTest::argumentsAreSplitAsOnWindows()
{
    QFETCH(const QString, text);
    QTEST(SplitWindowsArguments(text), "arguments");
}

void EngineCommandTest::anEngineGetsThePathWhole_data()
{
    QTest::addColumn<QString>("path");
    QTest::newRow("plain") << u"/home/user/bridge.sbd"_s;
    QTest::newRow("blanks") << u"/home/my user/the  bridge.sbd"_s;
    QTest::newRow("Japanese") << u"/home/設計　課/ソ表能.sbd"_s;
    QTest::newRow("backslashes") << uR"(D:\data\\bridge.sbd)"_s;
    QTest::newRow("network") << uR"(\\server\設計\a b.sbd)"_s;
    QTest::newRow("signs") << u"/tmp/a'b(c)&d;e$f%g.sbd"_s;
}

void EngineCommandTest::anEngineGetsThePathWhole()
{
    QFETCH(const QString, path);
    for (const EngineRunInfo& info : EngineRuns()) {
        QStringList wanted = {path};
        if (!info.argument.isEmpty())
            wanted += QString(info.argument).trimmed();
        QCOMPARE(SplitWindowsArguments(EngineArguments(info.run, path)), wanted);
    }
}

void EngineCommandTest::charactersOutsideCp932AreFound_data()
{
    QTest::addColumn<QString>("path");
    QTest::addColumn<QString>("character");
    QTest::newRow("ASCII") << uR"(D:\a b\c-1_(2).sbd)"_s << QString();
    QTest::newRow("Japanese") << u"/設計/①ソ表能髙﨑ｱｲｳ～－∥.sbd"_s << QString();
    QTest::newRow("beyond 16 bits") << u"/data/𠮷野川橋.sbd"_s << u"𠮷"_s;
    QTest::newRow("Korean") << u"/data/한강.sbd"_s << u"한"_s;
    QTest::newRow("umlaut") << u"/Brücke.sbd"_s << u"ü"_s;
    QTest::newRow("decomposed kana") << u"/か\u3099.sbd"_s << u"\u3099"_s;
    // CP932 has a look-alike, but the file's name is another.
    QTest::newRow("wave dash") << u"/A\u301CB.sbd"_s << u"\u301C"_s;
    QTest::newRow("yen sign") << u"/\u00A5100.sbd"_s << u"\u00A5"_s;
    QTest::newRow("quote") << u"/a\"b.sbd"_s << u"\""_s;
    QTest::newRow("line break") << u"/a\nb.sbd"_s << u"\n"_s;
    QTest::newRow("byte that is no character") << u"/a"_s + QChar(0xDCFF) + u".sbd"_s << QString(QChar(0xDCFF));
}

void EngineCommandTest::charactersOutsideCp932AreFound()
{
    QFETCH(const QString, path);
    QTEST(CharacterEnginesCannotTake(path), "character");
}

void EngineCommandTest::theRefusalNamesPathAndCharacter()
{
    const QString text = EngineCannotTakeMessage(u"/data/𠮷野川橋.sbd"_s, u"𠮷"_s);
    QVERIFY(text.contains(u"𠮷野川橋.sbd"_s));
    QVERIFY(text.contains(u"「𠮷」"_s));
    QVERIFY(text.contains(u"何も変更を加えていません"_s));
}

QTEST_GUILESS_MAIN(EngineCommandTest)
#include "engine_command_test.moc"
