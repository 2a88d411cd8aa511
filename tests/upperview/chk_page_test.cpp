#include "document/section_doc.h"
#include "project/text.h"
#include "upperview/chk_page.h"

#include <QDateTime>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFontMetricsF>
#include <QImage>
#include <QPainter>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;
using namespace sbd::literals;

namespace {

constexpr unsigned kBlue = 0xFF0000;
constexpr unsigned kRed = 0xFF;

const std::string kStale = "データに修正があります or 計算結果は古いです．再実行を薦めます．"_cp932;
const std::string kAgain = "[254][255][256]: 再実行する場合，ダブルクリックしてください．"_cp932;

void Put(const QString& path, const QByteArray& bytes, qint64 secondsAgo = 0, int ms = 0)
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    QVERIFY(file.open(QFile::WriteOnly));
    file.write(bytes);
    file.flush();
    const QDateTime now = QDateTime::fromSecsSinceEpoch(QDateTime::currentSecsSinceEpoch() - secondsAgo);
    QVERIFY(file.setFileTime(now.addMSecs(ms), QFileDevice::FileModificationTime));
}

ChkText Report(const std::vector<std::string>& lines)
{
    return {true, false, lines};
}

/// The picture of some lines, and how many of its points have the colour.
int Points(const std::vector<ChkLine>& lines, QColor colour, const QRectF& visible = QRectF(0, 0, 2000, 1000))
{
    QImage image(1000, 500, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::TextAntialiasing, false);
    painter.scale(0.5, 0.5);
    QFont font;
    font.setPixelSize(40);
    font.setStyleStrategy(QFont::NoAntialias);
    painter.setFont(font);
    PaintChkPage(painter, lines, visible);
    painter.end();
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == colour ? 1 : 0;
    return count;
}

} // namespace

class ChkPageTest : public QObject {
    Q_OBJECT

private slots:
    void theReportLiesInTheResultsFolder_data();
    void theReportLiesInTheResultsFolder();
    void aReportIsStaleByItsTime();
    void withoutAPathOneRedLineStands();
    void aFreshReportStandsBelowTheHead();
    void aStaleReportIsToldInBlue();
    void withoutAReportTheHeadStandsAlone();
    void aCheckWithoutErrorsSaysSo();
    void linesAreReadAsTheyStand_data();
    void linesAreReadAsTheyStand();
    void anUnreadableReportIsNone();
    void aHugeReportIsCutAndSaysSo();
    void aBinaryReportIsShownInTime();
    void aReportOfLineEndsIsCut();
    void longLinesAreCutBetweenCharacters();
    void coloursAndPlacesReachThePaper();
    void onlyWhatIsVisibleIsPainted();
    void theSizeHoldsAllLines();
    void runsAreWantedByTheRules_data();
    void runsAreWantedByTheRules();
    void questionsAreWordByWord();
};

void ChkPageTest::theReportLiesInTheResultsFolder_data()
{
    QTest::addColumn<QString>("project");
    QTest::addColumn<QString>("report");
    QTest::newRow("drive") << uR"(D:\data\bridge1.sbd)"_s << uR"(D:\data\bridge1_計算結果\bridge1.CHK)"_s;
    QTest::newRow("root of a drive") << uR"(D:\b.sbd)"_s << uR"(D:\b_計算結果\b.CHK)"_s;
    QTest::newRow("drive with slashes") << u"D:/data/bridge1.sbd"_s << u"D:/data/bridge1_計算結果/bridge1.CHK"_s;
    QTest::newRow("network") << uR"(\\server\橋\ソ表.sbd)"_s << uR"(\\server\橋\ソ表_計算結果\ソ表.CHK)"_s;
    QTest::newRow("path of this system") << u"/home/設計/橋 1.sbd"_s << u"/home/設計/橋 1_計算結果/橋 1.CHK"_s;
    QTest::newRow("points in the name") << u"/a.b/c.d.SBD"_s << u"/a.b/c.d_計算結果/c.d.CHK"_s;
    QTest::newRow("point in the folder alone") << u"/a.b/c"_s << u"/a.b/c_計算結果/c.CHK"_s;
    QTest::newRow("hidden name") << u"/a/.sbd"_s << u"/a/.sbd_計算結果/.sbd.CHK"_s;
#ifndef Q_OS_WIN
    QTest::newRow("backslash in a name") << uR"(/a/b\c.sbd)"_s << uR"(/a/b\c_計算結果/b\c.CHK)"_s;
#endif
}

void ChkPageTest::theReportLiesInTheResultsFolder()
{
    QFETCH(const QString, project);
    QTEST(ChkPath(project), "report");
}

void ChkPageTest::aReportIsStaleByItsTime()
{
    const QTemporaryDir folder;
    const QString project = folder.filePath(u"a.sbd"_s);
    QVERIFY(!IsChkStale(project, false)); // neither is there
    QVERIFY(IsChkStale(project, true));
    Put(ChkPath(project), "x", 100);
    QVERIFY(!IsChkStale(project, false));
    Put(project, "x", 101);
    QVERIFY(!IsChkStale(project, false));
    Put(project, "x", 100, 900); // the same second
    QVERIFY(!IsChkStale(project, false));
    Put(project, "x", 99);
    QVERIFY(IsChkStale(project, false));
    Put(ChkPath(project), "x", 99);
    QVERIFY(!IsChkStale(project, false));
    QVERIFY(IsChkStale(project, true));
    QVERIFY(QFile::remove(ChkPath(project)));
    QVERIFY(IsChkStale(project, false));
}

void ChkPageTest::withoutAPathOneRedLineStands()
{
    const std::vector<ChkLine> wanted = {
        {"ファイルを開いてからダブルクリックし実行してください．"_cp932, kRed, 100, -30, 0}};
    QVERIFY(ChkPageLines({255, false, true, Report({"x"})}) == wanted);
}

void ChkPageTest::aFreshReportStandsBelowTheHead()
{
    const std::vector<ChkLine> wanted = {{kAgain, kBlue, 100, -10, 1},
                                         {"one", kRed, 100, -10, 2},
                                         {"", kRed, 100, -10, 3},
                                         {"three", kRed, 100, -10, 4}};
    for (int block : {254, 255, 256})
        QVERIFY(ChkPageLines({block, true, false, Report({"one", "", "three"})}) == wanted);
}

void ChkPageTest::aStaleReportIsToldInBlue()
{
    const std::vector<ChkLine> wanted = {
        {kStale, kBlue, 100, -10, 0}, {kAgain, kBlue, 100, -10, 1}, {"one", kRed, 100, -10, 2}};
    QVERIFY(ChkPageLines({255, true, true, Report({"one"})}) == wanted);
}

void ChkPageTest::withoutAReportTheHeadStandsAlone()
{
    QVERIFY(ChkPageLines({254, true, false, {}}) == std::vector<ChkLine>({{kAgain, kBlue, 100, -10, 1}}));
}

void ChkPageTest::aCheckWithoutErrorsSaysSo()
{
    const auto last = [](int block, const std::vector<std::string>& lines) {
        return ChkPageLines({block, true, false, Report(lines)}).back();
    };
    QVERIFY(last(254, {}) == ChkLine({"Error = 0", kRed, 100, -10, 2}));
    QVERIFY(last(254, {"head"}) == ChkLine({"Error = 0", kRed, 100, -10, 3}));
    QVERIFY(last(254, {"head", "error"}) == ChkLine({"error", kRed, 100, -10, 3}));
    QVERIFY(last(255, {"head"}) == ChkLine({"head", kRed, 100, -10, 2}));
    QVERIFY(last(256, {}) == ChkLine({kAgain, kBlue, 100, -10, 1}));
}

void ChkPageTest::linesAreReadAsTheyStand_data()
{
    QTest::addColumn<QByteArray>("bytes");
    QTest::addColumn<QStringList>("lines");
    QTest::newRow("empty") << QByteArray() << QStringList();
    QTest::newRow("ends of Windows") << QByteArray("a\r\n\r\nb\r\n") << QStringList({u"a"_s, u""_s, u"b"_s});
    QTest::newRow("ends of this system") << QByteArray("a\nb") << QStringList({u"a"_s, u"b"_s});
    QTest::newRow("one blank line") << QByteArray("\r\n") << QStringList({u""_s});
    QTest::newRow("blanks stay") << QByteArray("  a  \r\n") << QStringList({u"  a  "_s});
    QTest::newRow("Japanese") << QByteArray::fromStdString("ソ表：エラー\r\n"_cp932)
                              << QStringList({u"ソ表：エラー"_s});
}

void ChkPageTest::linesAreReadAsTheyStand()
{
    QFETCH(const QByteArray, bytes);
    const QTemporaryDir folder;
    Put(folder.filePath(u"a.CHK"_s), bytes);
    const ChkText text = ReadChkText(folder.filePath(u"a.CHK"_s));
    QVERIFY(text.opened);
    QVERIFY(!text.cut);
    QStringList lines;
    for (const std::string& line : text.lines)
        lines += toQString(line);
    QTEST(lines, "lines");
}

void ChkPageTest::anUnreadableReportIsNone()
{
    const QTemporaryDir folder;
    QVERIFY(!ReadChkText(folder.filePath(u"no.CHK"_s)).opened);
    QVERIFY(!ReadChkText(folder.path()).opened);
#ifdef Q_OS_UNIX
    QCOMPARE(QProcess::execute(u"mkfifo"_s, {folder.filePath(u"pipe.CHK"_s)}), 0);
    QVERIFY(!ReadChkText(folder.filePath(u"pipe.CHK"_s)).opened);
#endif
}

void ChkPageTest::aHugeReportIsCutAndSaysSo()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.CHK"_s);
    Put(path, QByteArray("0123456789 line\r\n").repeated(1000));
    QVERIFY(QFile::resize(path, 100 << 20)); // the rest is zero bytes
    QElapsedTimer clock;
    clock.start();
    const ChkText text = ReadChkText(path);
    const std::vector<ChkLine> lines = ChkPageLines({255, true, false, text});
    QVERIFY2(clock.elapsed() < 1000, qPrintable(QString::number(clock.elapsed())));
    QVERIFY(text.cut);
    QCOMPARE(text.lines.at(999), std::string("0123456789 line"));
    QCOMPARE(lines.back().text, "(ファイルが大きいため，この先は表示していません)"_cp932);
    QCOMPARE(lines.back().steps, static_cast<int>(text.lines.size()) + 2);
}

void ChkPageTest::aBinaryReportIsShownInTime()
{
    QByteArray bytes(2 << 20, '\0');
    for (qsizetype i = 0; i < bytes.size(); ++i)
        bytes[i] = static_cast<char>(i * 7919 >> 3);
    QElapsedTimer clock;
    clock.start();
    const ChkText text = SplitChkText({bytes.constData(), static_cast<std::size_t>(bytes.size())});
    const std::vector<ChkLine> lines = ChkPageLines({254, true, true, text});
    QVERIFY(Points(lines, Qt::red) > 0);
    QVERIFY2(clock.elapsed() < 3000, qPrintable(QString::number(clock.elapsed())));
}

void ChkPageTest::aReportOfLineEndsIsCut()
{
    const ChkText text = SplitChkText(std::string(2 << 20, '\n'));
    QVERIFY(text.cut);
    QCOMPARE(text.lines.size(), std::size_t(100'000));
    QVERIFY(!SplitChkText(std::string(100'000, '\n')).cut);
}

void ChkPageTest::longLinesAreCutBetweenCharacters()
{
    std::string line = "x";
    for (int i = 0; i < 1000; ++i)
        line += "表"_cp932;
    const ChkText text = SplitChkText(line + "\r\n" + std::string(1000, 'y'));
    QCOMPARE(text.lines.size(), std::size_t(2));
    QCOMPARE(toQString(text.lines[0]), u'x' + QString(499, u'表') + u'…');
    QCOMPARE(text.lines[1], std::string(1000, 'y'));
}

void ChkPageTest::coloursAndPlacesReachThePaper()
{
    QVERIFY(Points({{"MMM", kRed, 100, -10, 0}}, Qt::red) > 50);
    QCOMPARE(Points({{"MMM", kRed, 100, -10, 0}}, Qt::blue), 0);
    QVERIFY(Points({{"MMM", kBlue, 100, -10, 0}}, Qt::blue) > 50);

    QImage image(400, 400, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    QFont font;
    font.setPixelSize(40);
    painter.setFont(font);
    const double step = ChkLineStep(QFontMetricsF(font, &image));
    PaintChkPage(painter, {{"MMM", kRed, 100, -10, 2}}, image.rect());
    painter.end();
    QRect ink;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) != qRgb(255, 255, 255))
                ink |= QRect(x, y, 1, 1);
    QVERIFY(ink.left() >= 98 && ink.left() < 110);
    QVERIFY(ink.top() >= 10 + 2 * step && ink.bottom() <= 10 + 3 * step);
}

void ChkPageTest::onlyWhatIsVisibleIsPainted()
{
    const std::vector<ChkLine> lines = {{"MMM", kRed, 100, -10, 0}, {"MMM", kBlue, 100, -10, 5}};
    QCOMPARE(Points(lines, Qt::red, {0, 200, 2000, 1000}), 0);
    QVERIFY(Points(lines, Qt::blue, {0, 200, 2000, 1000}) > 50);
    QCOMPARE(Points(lines, Qt::blue, {0, 0, 2000, 60}), 0);
}

void ChkPageTest::theSizeHoldsAllLines()
{
    QFont font;
    font.setPixelSize(40);
    const QFontMetricsF metrics(font);
    const QSizeF size = ChkPageSize({{"ab", kRed, 100, -10, 2}, {"abcd", kRed, 100, -10, 7}}, metrics);
    QCOMPARE(size.width(), 150 + 4 * metrics.horizontalAdvance(u'A'));
    QCOMPARE(size.height(), 10 + 8 * ChkLineStep(metrics));
    QVERIFY(ChkPageSize({}, metrics).isNull());
}

void ChkPageTest::runsAreWantedByTheRules_data()
{
    QTest::addColumn<int>("block");
    QTest::addColumn<bool>("stale");
    QTest::addColumn<int>("run"); // -1: none
    QTest::addColumn<bool>("asks");
    QTest::newRow("254 stale") << 254 << true << static_cast<int>(EngineRun::Check) << true;
    QTest::newRow("254 fresh") << 254 << false << -1 << false;
    QTest::newRow("255 stale") << 255 << true << static_cast<int>(EngineRun::Main) << true;
    QTest::newRow("255 fresh") << 255 << false << static_cast<int>(EngineRun::Main) << false;
    QTest::newRow("256 stale") << 256 << true << static_cast<int>(EngineRun::Result) << true;
    QTest::newRow("256 fresh") << 256 << false << static_cast<int>(EngineRun::Result) << false;
    QTest::newRow("301") << 301 << true << -1 << false;
}

void ChkPageTest::runsAreWantedByTheRules()
{
    QFETCH(const int, block);
    QFETCH(const bool, stale);
    QFETCH(const int, run);
    const std::optional<WantedRun> wanted = RunToPost(block, true, stale, true);
    QCOMPARE(wanted ? static_cast<int>(wanted->run) : -1, run);
    QTEST(wanted && !wanted->question.isEmpty(), "asks");
    QVERIFY(!RunToPost(block, false, stale, true)); // no double click
    QVERIFY(!RunToPost(block, true, stale, false)); // no report yet
    QCOMPARE(IsChkBlock(block), block != 301);
}

void ChkPageTest::questionsAreWordByWord()
{
    QCOMPARE(RunToPost(254, true, true, true)->question, u"データに修正があり，チェック方法を選択してください：\n\n\t "
                                                         u"はい：　　　　データを保存し，チェックを行います．\n"
                                                         u"\t キャンセル：　チェックを行いません．"_s);
    QCOMPARE(RunToPost(255, true, true, true)->question, u"データに修正があり，解析実行方法を選択してください：\n\n\t "
                                                         u"はい：　　　　データを保存し，解析実行を行います．\n"
                                                         u"\t キャンセル：　解析実行を行いません．"_s);
    QCOMPARE(RunToPost(256, true, true, true)->question,
             u"データに修正があり，解析実行＆出力方法を選択してください：\n\n\t "
             u"はい：　　　　データを保存し，解析実行＆出力を行います．\n"
             u"\t キャンセル：　解析実行＆出力を行いません．"_s);
}

QTEST_MAIN(ChkPageTest)
#include "chk_page_test.moc"
