#include "tests/surroundings.h"

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QJsonArray>
#include <QJsonDocument>
#include <QProcess>
#include <QTemporaryDir>
#include <QTest>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

struct Run {
    int code = -1;
    QString told;
};

Run RunPage(const QStringList& arguments)
{
    QProcess process;
    process.start(QStringLiteral(SBDPAGE), arguments);
    if (!process.waitForFinished())
        return {};
    return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
            QString::fromUtf8(process.readAllStandardError())};
}

QString Project(const QString& name)
{
    return QString::fromUtf8(test::ExamplesFolder()) + u"/%1/%1.sbd"_s.arg(name);
}

int CountPixels(const QImage& image, QColor colour)
{
    int count = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            count += image.pixelColor(x, y) == colour ? 1 : 0;
    return count;
}

} // namespace

class SbdpageFiguresTest : public QObject {
    Q_OBJECT

private:
    QTemporaryDir folder_;

    [[nodiscard]] QImage Picture(const QStringList& arguments) const
    {
        const QString file = folder_.filePath(u"picture.png"_s);
        QFile::remove(file);
        const Run run = RunPage(arguments + QStringList{u"--png"_s, file});
        if (run.code != 0)
            qWarning("%s", qPrintable(run.told));
        return QImage(file);
    }

private slots:
    void theFrameIsDrawnFromEachSide();
    void theRowUnderTheCursorIsRed();
    void aDiagramIsThatOfItsChoices();
    void severalCasesAndGirdersAreDrawn();
    void sheetsOfAllGirdersHaveBookmarks();
    void theTableOfResultsIsPrinted();
    void oneCallWritesAllThreeKindsOfFile();
    void aRecordGoesIntoAPipe();
    void nothingIsWrittenOverAProject_data();
    void nothingIsWrittenOverAProject();
    void aWrongCallSaysWhatThereIs_data();
    void aWrongCallSaysWhatThereIs();
};

void SbdpageFiguresTest::theFrameIsDrawnFromEachSide()
{
    QList<QImage> views;
    for (const QString& view : {u"XY"_s, u"YZ"_s, u"XZ"_s, u"ALL"_s}) {
        const QImage image = Picture({u"figure"_s, u"--project"_s, Project(u"plate4"_s), u"--view"_s, view,
                                      u"--width"_s, u"600"_s, u"--height"_s, u"300"_s});
        QCOMPARE(image.size(), QSize(600, 300));
        QVERIFY(CountPixels(image, Qt::blue) > 20); // members
        QVERIFY(!views.contains(image));
        views << image;
    }
    const QStringList turned{u"figure"_s,   u"--project"_s, Project(u"plate4"_s), u"--width"_s, u"600"_s,
                             u"--height"_s, u"300"_s};
    QVERIFY(Picture(turned + QStringList{u"--direction"_s, u"0,0,2"_s}) != Picture(turned));
    QVERIFY(!views.contains(Picture(turned + QStringList{u"--direction"_s, u"1,-2,0.5"_s})));
    QCOMPARE(RunPage(turned + QStringList{u"--direction"_s, u"0,0,0"_s, u"--png"_s, u"x.png"_s}).code, 2);
}

void SbdpageFiguresTest::theRowUnderTheCursorIsRed()
{
    const QStringList figure{u"figure"_s, u"--project"_s, Project(u"plate4"_s), u"--view"_s, u"XY"_s};
    const int dots = CountPixels(Picture(figure), Qt::red);
    const QImage row = Picture(figure + QStringList{u"--block"_s, u"573"_s, u"--row"_s, u"2"_s});
    QVERIFY(CountPixels(row, Qt::red) > dots + 20);
}

void SbdpageFiguresTest::aDiagramIsThatOfItsChoices()
{
    const QStringList diagram{u"diagram"_s, u"--project"_s, Project(u"plate4"_s)};
    const QStringList dead{u"--load"_s, u"前死荷重(鋼重+床版)"_s};
    QList<QImage> pictures;
    for (const QStringList& choices :
         {QStringList(), QStringList{u"--girder"_s, u"G2"_s}, QStringList{u"--item"_s, u"Sz"_s}, dead,
          dead + QStringList{u"--kind"_s, u"反力"_s}, dead + QStringList{u"--kind"_s, u"変位"_s},
          dead + QStringList{u"--kind"_s, u"変位"_s, u"--girder"_s, u"すべて"_s}}) {
        const QImage image = Picture(diagram + choices);
        QVERIFY(CountPixels(image, Qt::black) > 300);
        QVERIFY2(!pictures.contains(image), qPrintable(choices.join(u' ')));
        pictures << image;
    }
}

void SbdpageFiguresTest::severalCasesAndGirdersAreDrawn()
{
    const QStringList diagram{u"diagram"_s, u"--project"_s, Project(u"plate4"_s)};
    const QImage envelope = Picture(diagram + QStringList{u"--envelope"_s});
    QVERIFY(CountPixels(envelope, QColor(255, 0, 255)) > 300); // the largest values
    QVERIFY(CountPixels(envelope, QColor(0, 0, 255)) > 300);
    const QImage two = Picture(
        diagram
        + QStringList{u"--envelope"_s, u"--load"_s, u"前死荷重(鋼重+床版)"_s, u"--load"_s, u"温度変化(+30℃)"_s});
    QVERIFY(two != envelope);
    const QImage over = Picture(diagram + QStringList{u"--over-girder"_s, u"G3"_s});
    QVERIFY(CountPixels(over, QColor(0xB0, 0x50, 0)) > 100);
    QVERIFY(CountPixels(Picture(diagram), QColor(0xB0, 0x50, 0)) == 0);
    QCOMPARE(RunPage(diagram + QStringList{u"--over-load"_s, u"x"_s, u"--png"_s, u"x.png"_s}).code, 2);
    QCOMPARE(RunPage(diagram + QStringList{u"--envelope"_s, u"--load"_s, u"x"_s, u"--png"_s, u"x.png"_s}).code, 2);
}

void SbdpageFiguresTest::sheetsOfAllGirdersHaveBookmarks()
{
    const QString path = folder_.filePath(u"sheets.pdf"_s);
    const QStringList sheets{u"sheets"_s, u"--project"_s, Project(u"plate4"_s), u"--pdf"_s, path};
    const auto pdf = [&](const QStringList& more) {
        QFile::remove(path);
        const Run run = RunPage(sheets + more);
        if (run.code != 0)
            qWarning("%s", qPrintable(run.told));
        QFile file(path);
        return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
    };
    QByteArray bytes = pdf({});
    QCOMPARE(bytes.count("/Type /Page\n"), 4);
    QCOMPARE(bytes.count("/Dest ["), 16);
    QVERIFY(bytes.contains("/MediaBox [0 0 595")); // upright
    bytes = pdf({u"--items"_s, u"My"_s, u"--girder"_s, u"G2"_s, u"--envelope"_s});
    QCOMPARE(bytes.count("/Type /Page\n"), 1);
    QVERIFY(bytes.contains("/MediaBox [0 0 842") || bytes.contains("/MediaBox [0 0 841"));
    QCOMPARE(RunPage(sheets + QStringList{u"--items"_s, u"Qx"_s}).code, 2);
    QCOMPARE(RunPage(sheets + QStringList{u"--girder"_s, u"G9"_s}).code, 2);
    QCOMPARE(RunPage({u"sheets"_s, u"--project"_s, Project(u"plate4"_s)}).code, 2);
}

void SbdpageFiguresTest::theTableOfResultsIsPrinted()
{
    const QString path = folder_.filePath(u"table.pdf"_s);
    const QStringList table{u"table"_s, u"--project"_s, Project(u"plate4"_s), u"--pdf"_s, path};
    QCOMPARE(RunPage(table).code, 0);
    QFile file(path);
    QVERIFY(file.open(QFile::ReadOnly));
    QCOMPARE(file.readAll().count("/Type /Page\n"), 1);
    file.close();
    QCOMPARE(RunPage(table + QStringList{u"--envelope"_s}).code, 0);
    QVERIFY(file.open(QFile::ReadOnly));
    QVERIFY(file.readAll().count("/Type /Page\n") > 3); // so many columns can be read on several sheets only
    file.close();
    // Rows and columns as the window chooses them.
    const auto pages = [&](const QStringList& choice) {
        file.remove();
        const Run run = RunPage(table + choice);
        if (run.code != 0 || !file.open(QFile::ReadOnly))
            return qsizetype{-run.code};
        const qsizetype count = file.readAll().count("/Type /Page\n");
        file.close();
        return count;
    };
    const QStringList all{u"--girder"_s, u"すべて"_s};
    const qsizetype whole = pages(all);
    QVERIFY(whole > 1);
    const QStringList filtered{u"--filter"_s, u"S1"_s, u"--sort"_s, u"左My"_s, u"--descending"_s};
    QCOMPARE(pages(all + filtered), 1);
    QVERIFY(pages({u"--girder"_s, u"なし"_s, u"--station"_s, u"すべて"_s}) > whole); // cross beams too
    QCOMPARE(pages({u"--girder"_s, u"なし"_s, u"--station"_s, u"G2-S"_s, u"--off"_s, u"Nx"_s}), 1);
    QCOMPARE(pages({u"--exclude"_s, u"G1-S1"_s}), 1);
    // Without a load case it is that which the window shows first.
    const auto size = [&](const QStringList& choice) {
        return RunPage(table + choice).code == 0 ? QFileInfo(path).size() : -1;
    };
    const qint64 first = size({});
    QCOMPARE(size({u"--load=-(B-L:MY最大)"_s}), first);
    QVERIFY(size({u"--load=(B-L:MY最大)"_s}) != first);
    for (const QStringList& wrong : {QStringList{u"--sort"_s, u"右Qx"_s}, QStringList{u"--off"_s, u"Ux"_s},
                                     QStringList{u"--exclude"_s, u"G9-S1"_s}})
        QCOMPARE(pages(wrong), -2);
    QCOMPARE(pages({u"--filter"_s, u"no name has this"_s}), -1);
    QVERIFY(!QFile::exists(path));
    QCOMPARE(RunPage({u"table"_s, u"--project"_s, Project(u"plate4"_s)}).code, 2);
}

void SbdpageFiguresTest::oneCallWritesAllThreeKindsOfFile()
{
    const QStringList files{folder_.filePath(u"f.png"_s), folder_.filePath(u"f.pdf"_s), folder_.filePath(u"f.svg"_s)};
    const Run run = RunPage({u"figure"_s, u"--project"_s, Project(u"box2"_s), u"--png"_s, files[0], u"--pdf"_s,
                             files[1], u"--svg"_s, files[2]});
    QCOMPARE(run.code, 0);
    QList<QByteArray> bytes;
    for (const QString& path : files) {
        QFile file(path);
        QVERIFY(file.open(QFile::ReadOnly));
        bytes << file.readAll();
    }
    QVERIFY(bytes[0].startsWith("\x89PNG"));
    QVERIFY(bytes[1].startsWith("%PDF"));
    QVERIFY(bytes[1].trimmed().endsWith("%%EOF"));
    QCOMPARE(bytes[1].count("/Type /Page\n"), 1);
    QVERIFY(bytes[2].contains("viewBox=\"0 0 900 400\""));
    QVERIFY(bytes[2].trimmed().endsWith("</svg>"));
}

void SbdpageFiguresTest::aRecordGoesIntoAPipe()
{
    QStringList places = {u"-"_s};
#ifdef Q_OS_UNIX
    places += u"/dev/stdout"_s;
#endif
    for (const QString& place : places) {
        QProcess process;
        process.start(QStringLiteral(SBDPAGE), {u"313"_s, u"--record"_s, place});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.exitCode(), 0);
        const QJsonDocument record = QJsonDocument::fromJson(process.readAllStandardOutput());
        QVERIFY2(record.array().size() > 10, qPrintable(place));
    }
}

void SbdpageFiguresTest::nothingIsWrittenOverAProject_data()
{
    QTest::addColumn<QStringList>("arguments");
    const QString project = Project(u"plate4"_s);
    const QStringList page{u"--project"_s, project, u"313"_s};
    QTest::newRow("page as pixels") << page + QStringList{u"--png"_s};
    QTest::newRow("page as PDF") << page + QStringList{u"--pdf"_s};
    QTest::newRow("page as JSON") << page + QStringList{u"--record"_s};
    QTest::newRow("elevation as DXF") << QStringList{u"elevation"_s, project, u"--dxf"_s};
    QTest::newRow("sheet as DXF") << QStringList{u"sheet"_s, project, u"--dxf"_s};
    QTest::newRow("frame as lines") << QStringList{u"figure"_s, u"--project"_s, project, u"--svg"_s};
}

void SbdpageFiguresTest::nothingIsWrittenOverAProject()
{
    QFETCH(const QStringList, arguments);
    const QString file = folder_.filePath(u"a bridge.sbd"_s);
    QFile::remove(file);
    QVERIFY(QFile::copy(Project(u"plate4"_s), file));
    const auto bytes = [](const QString& path) {
        QFile opened(path);
        return opened.open(QFile::ReadOnly) ? opened.readAll() : QByteArray();
    };
    QVERIFY(RunPage(arguments + QStringList{file}).code != 0);
    QCOMPARE(bytes(file), bytes(Project(u"plate4"_s)));
    const QString other = folder_.filePath(u"a picture"_s); // the same call is sound
    QFile::remove(other);
    QCOMPARE(RunPage(arguments + QStringList{other}).code, 0);
    QVERIFY(QFileInfo(other).size() > 0);
}

void SbdpageFiguresTest::aWrongCallSaysWhatThereIs_data()
{
    QTest::addColumn<QStringList>("arguments");
    QTest::addColumn<QString>("told");
    const QString project = Project(u"plate4"_s);
    const QStringList figure{u"figure"_s, u"--project"_s, project, u"--png"_s, folder_.filePath(u"x.png"_s)};
    const QStringList diagram{u"diagram"_s, u"--project"_s, project, u"--png"_s, folder_.filePath(u"x.png"_s)};
    QTest::newRow("no project") << QStringList{u"figure"_s} << u"--project"_s;
    QTest::newRow("project missing") << QStringList{u"figure"_s, u"--project"_s, u"/no/such.sbd"_s}
                                     << u"/no/such.sbd"_s;
    QTest::newRow("no file") << figure.mid(0, 3) << u"--svg"_s;
    QTest::newRow("folder missing") << figure.mid(0, 3) + QStringList{u"--pdf"_s, u"/no/such/f.pdf"_s}
                                    << u"/no/such/f.pdf"_s;
    QTest::newRow("view") << figure + QStringList{u"--view"_s, u"front"_s} << u"XY, YZ, XZ"_s;
    QTest::newRow("width") << figure + QStringList{u"--width"_s, u"0"_s} << u"--width"_s;
    QTest::newRow("row") << figure + QStringList{u"--row"_s, u"first"_s} << u"--row"_s;
    QTest::newRow("kind") << diagram + QStringList{u"--kind"_s, u"応力"_s} << u"断面力"_s;
    QTest::newRow("load") << diagram + QStringList{u"--load"_s, u"風荷重"_s} << u"温度変化(+30℃)"_s;
    QTest::newRow("girder") << diagram + QStringList{u"--girder"_s, u"G9"_s} << u"G1, G2, G3, G4"_s;
    QTest::newRow("all girders") << diagram + QStringList{u"--girder"_s, u"すべて"_s} << u"G4"_s;
    QTest::newRow("item") << diagram + QStringList{u"--item"_s, u"Uz"_s} << u"Mz"_s;
}

void SbdpageFiguresTest::aWrongCallSaysWhatThereIs()
{
    QFETCH(QStringList, arguments);
    QFETCH(QString, told);
    const Run run = RunPage(arguments);
    QCOMPARE(run.code, 2);
    QVERIFY2(run.told.contains(told), qPrintable(run.told));
    QVERIFY(!QFile::exists(folder_.filePath(u"x.png"_s)));
}

} // namespace sbd

QTEST_MAIN(sbd::SbdpageFiguresTest)
#include "sbdpage_figures_test.moc"
