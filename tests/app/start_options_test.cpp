#include "app/start_options.h"

#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

StartOptions Read(const QStringList& arguments)
{
    return ReadStartOptions(QStringList{u"sbdstation"_s} + arguments);
}

} // namespace

class StartOptionsTest : public QObject {
    Q_OBJECT

private slots:
    void withoutArgumentsAWindowOpens();
    void projectsAreTakenInOrder();
    void aPictureHasASizeAndABlock();
    void aBlockMayBeGivenByItsAlias();
    void nonsenseIsRefusedByName_data();
    void nonsenseIsRefusedByName();
    void whatNeedsNoScreenIsKnownBeforehand();
    void theHelpNamesEveryOption();
};

void StartOptionsTest::withoutArgumentsAWindowOpens()
{
    const StartOptions options = Read({});
    QVERIFY(options.error.isEmpty());
    QVERIFY(options.projects.isEmpty());
    QVERIFY(options.screenshot.isEmpty());
    QVERIFY(!options.help && !options.version);
}

void StartOptionsTest::projectsAreTakenInOrder()
{
    QCOMPARE(Read({u"a.sbd"_s, u"--block"_s, u"313"_s, u"b.sbd"_s}).projects, (QStringList{u"a.sbd"_s, u"b.sbd"_s}));
}

void StartOptionsTest::aPictureHasASizeAndABlock()
{
    const StartOptions options =
        Read({u"--screenshot"_s, u"o.png"_s, u"--size"_s, u"1920x1080"_s, u"--block=313"_s, u"a.sbd"_s});
    QVERIFY2(options.error.isEmpty(), qPrintable(options.error));
    QCOMPARE(options.screenshot, u"o.png"_s);
    QCOMPARE(options.size, QSize(1920, 1080));
    QCOMPARE(options.block, 313);
    QCOMPARE(Read({u"--screenshot"_s, u"o.png"_s}).size, QSize(1366, 768));
    QCOMPARE(Read({u"--cell"_s, u"12,3"_s}).row, 12);
    QCOMPARE(Read({u"--cell"_s, u"12,3"_s}).column, 3);
}

void StartOptionsTest::aBlockMayBeGivenByItsAlias()
{
    QCOMPARE(Read({u"--block"_s, u"406"_s}).block, 406);
}

void StartOptionsTest::nonsenseIsRefusedByName_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("named");
    QTest::newRow("unknown option") << QStringList{u"--picture"_s} << u"picture"_s;
    QTest::newRow("picture without file") << QStringList{u"--screenshot"_s} << u"screenshot"_s;
    QTest::newRow("picture with empty file") << QStringList{u"--screenshot="_s} << u"--screenshot"_s;
    QTest::newRow("block of words") << QStringList{u"--block"_s, u"third"_s} << u"third"_s;
    QTest::newRow("block that is none") << QStringList{u"--block"_s, u"260"_s} << u"260"_s;
    QTest::newRow("cell of one number") << QStringList{u"--cell"_s, u"12"_s} << u"--cell 12"_s;
    QTest::newRow("cell 0") << QStringList{u"--cell"_s, u"0,1"_s} << u"0,1"_s;
    QTest::newRow("size of one number") << QStringList{u"--size"_s, u"1366"_s} << u"--size 1366"_s;
    QTest::newRow("size too small") << QStringList{u"--size"_s, u"1366x10"_s} << u"1366x10"_s;
    QTest::newRow("size too large") << QStringList{u"--size"_s, u"99999x99999"_s} << u"99999x99999"_s;
}

void StartOptionsTest::nonsenseIsRefusedByName()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, named);
    const StartOptions options = Read(arguments);
    QVERIFY2(options.error.contains(named), qPrintable(options.error));
}

void StartOptionsTest::whatNeedsNoScreenIsKnownBeforehand()
{
    const auto needsNone = [](std::vector<const char*> words) {
        words.insert(words.begin(), "sbdstation");
        return NeedsNoScreen(static_cast<int>(words.size()), const_cast<char**>(words.data()));
    };
    QVERIFY(needsNone({"--screenshot", "o.png"}));
    QVERIFY(needsNone({"a.sbd", "--screenshot=o.png"}));
    QVERIFY(needsNone({"--help"}));
    QVERIFY(needsNone({"-v"}));
    QVERIFY(!needsNone({}));
    QVERIFY(!needsNone({"a.sbd", "--block", "313"}));
}

void StartOptionsTest::theHelpNamesEveryOption()
{
    for (const char* option : {"--screenshot", "--block", "--cell", "--size", "--help", "--version", "project.sbd"})
        QVERIFY2(StartHelp().contains(QString::fromLatin1(option)), option);
}

QTEST_MAIN(StartOptionsTest)
#include "start_options_test.moc"
