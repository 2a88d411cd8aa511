#include <QFile>
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
    return QStringLiteral(EXAMPLES_DIR) + u"/%1/%1.sbd"_s.arg(name);
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
    void oneCallWritesAllThreeKindsOfFile();
    void aRecordGoesIntoAPipe();
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
