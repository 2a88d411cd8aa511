#include "frame/report_tail.h"

#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

void Write(const QString& path, const QByteArray& bytes, QFile::OpenMode mode = QFile::Append)
{
    QFile file(path);
    QVERIFY(file.open(QFile::WriteOnly | mode));
    file.write(bytes);
}

} // namespace

class ReportTailTest : public QObject {
    Q_OBJECT

private slots:
    void linesComeAsTheyAreWritten();
    void aReportOfBeforeIsNotShown();
    void aReportThatGoesOnBehindTheOldOneIsShownFromThere();
    void aReportThatIsBegunAnewIsShown();
    void ofALongPieceTheEndIsShown();
    void bytesThatAreNoTextAreShownAsBlanks();
    void errorsAndWarningsAreCounted_data();
    void errorsAndWarningsAreCounted();
};

void ReportTailTest::linesComeAsTheyAreWritten()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"橋.CHK"_s);
    CReportTail tail(path);
    QCOMPARE(tail.NewLines(), QStringList());
    Write(path, "one\r\ntw");
    QCOMPARE(tail.NewLines(), QStringList({u"one"_s}));
    QCOMPARE(tail.NewLines(), QStringList());
    Write(path, "o\r\n\r\nthree\n");
    QCOMPARE(tail.NewLines(), QStringList({u"two"_s, u""_s, u"three"_s}));
}

void ReportTailTest::aReportOfBeforeIsNotShown()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.CHK"_s);
    Write(path, "old\r\n");
    CReportTail tail(path);
    QCOMPARE(tail.NewLines(), QStringList());
}

void ReportTailTest::aReportThatGoesOnBehindTheOldOneIsShownFromThere()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.CHK"_s);
    Write(path, "old\r\n");
    CReportTail tail(path);
    Write(path, "new\r\n");
    QCOMPARE(tail.NewLines(), QStringList({u"new"_s}));
}

void ReportTailTest::aReportThatIsBegunAnewIsShown()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.CHK"_s);
    Write(path, "old line\r\n");
    CReportTail tail(path);
    Write(path, "first\r\nsecond\r\n", QFile::Truncate);
    QCOMPARE(tail.NewLines(), QStringList({u"first"_s, u"second"_s}));
    Write(path, "again\r\n", QFile::Truncate);
    QCOMPARE(tail.NewLines(), QStringList({u"again"_s}));
}

void ReportTailTest::ofALongPieceTheEndIsShown()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.CHK"_s);
    CReportTail tail(path);
    Write(path, QByteArray(200 << 20, 'x')); // 200 MB without a line end
    QElapsedTimer clock;
    clock.start();
    QStringList lines = tail.NewLines();
    QVERIFY2(clock.elapsed() < 200, qPrintable(QString::number(clock.elapsed())));
    for (const QString& line : lines)
        QVERIFY(line.size() <= 1000);
    Write(path, QByteArray(100'000, 'y') + "\nend\n");
    lines = tail.NewLines();
    QCOMPARE(lines.last(), u"end"_s);
    QCOMPARE(lines.first(), u"…"_s);
}

void ReportTailTest::bytesThatAreNoTextAreShownAsBlanks()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.CHK"_s);
    CReportTail tail(path);
    Write(path, QByteArray("\x01\x1b[2J\0\xff\x83\x5c\n", 10));
    const QStringList lines = tail.NewLines();
    QCOMPARE(lines.size(), 1);
    for (const QChar c : lines[0])
        QVERIFY(c >= u' ' && !c.isSurrogate());
    QVERIFY(lines[0].endsWith(u"ソ"_s));
}

void ReportTailTest::errorsAndWarningsAreCounted_data()
{
    QTest::addColumn<QByteArray>("lines");
    QTest::addColumn<int>("errors");
    QTest::addColumn<int>("warnings");
    QTest::newRow("none") << "all is well"_ba << 0 << 0;
    QTest::newRow("number") << "Error = 3\nWARNING=12"_ba << 3 << 12;
    QTest::newRow("plural") << "2 spans\nErrors: 4"_ba << 4 << 0;
    QTest::newRow("lines") << "ERROR in block 313\nan error\nWarning: thin"_ba << 2 << 1;
    QTest::newRow("number beside lines") << "error in 313\nerror in 314\nError = 2"_ba << 2 << 0;
    QTest::newRow("none by number") << "Error = 0"_ba << 0 << 0;
    QTest::newRow("Japanese") << "\x83\x47\x83\x89\x81\x5b 313\n\x8c\x78\x8d\x90"_ba << 1 << 1; // エラー, 警告
}

void ReportTailTest::errorsAndWarningsAreCounted()
{
    QFETCH(const QByteArray, lines);
    QFETCH(const int, errors);
    QFETCH(const int, warnings);
    std::vector<std::string> list;
    for (const QByteArray& line : lines.split('\n'))
        list.push_back(line.toStdString());
    const ReportCount count{errors, warnings};
    QCOMPARE(CountReport(list), count);
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.CHK"_s);
    Write(path, lines);
    QCOMPARE(CountReport(path), count);
    // Behind what a page shows, and over the edges of pieces.
    for (const int blanks : {3'000'000, 1'048'570}) {
        Write(path, QByteArray(blanks, ' ') + '\n' + lines, QFile::Truncate);
        QCOMPARE(CountReport(path), count);
    }
    QCOMPARE(CountReport(folder.filePath(u"none.CHK"_s)), ReportCount());
}

QTEST_MAIN(ReportTailTest)
#include "report_tail_test.moc"
