#include "document/result_session.h"
#include "document/section_doc.h"
#include "svg_scenes.h"
#include "tests/surroundings.h"
#include "upperview/help_view.h"
#include "upperview/svg_picture.h"
#include "upperview/up_view.h"

#include <QBuffer>
#include <QImage>
#include <QLocale>
#include <QPainter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QTest>
#include <QXmlStreamReader>

#include <cmath>
#include <functional>
#include <limits>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

constexpr int kDpi = 96;

using Paint = std::function<void(QPainter&)>;

QByteArray SvgOf(const Paint& paint, QSize size = kSceneSize, const QString& title = {})
{
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    CSvgPicture picture(bytes, size, kDpi, title);
    QPainter painter(&picture);
    if (painter.isActive())
        paint(painter);
    painter.end();
    return bytes.data();
}

QImage PixelsOf(const Paint& paint, QSize size = kSceneSize)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    image.setDotsPerMeterX(qRound(kDpi / 0.0254));
    image.setDotsPerMeterY(qRound(kDpi / 0.0254));
    QPainter painter(&image);
    paint(painter);
    return image;
}

/// What another program makes of the file, on white.
QImage Drawn(const QByteArray& svg, QSize size = kSceneSize)
{
    QProcess process;
    process.start(QStringLiteral(RSVG_CONVERT), {u"-b"_s, u"white"_s, u"-w"_s, QString::number(size.width()), u"-h"_s,
                                                 QString::number(size.height())});
    process.write(svg);
    process.closeWriteChannel();
    if (!process.waitForFinished() || process.exitCode() != 0)
        qWarning("%s", process.readAllStandardError().constData());
    return QImage::fromData(process.readAllStandardOutput(), "PNG").convertToFormat(QImage::Format_RGB32);
}

/// Sums of a colour over all that is above and left.
class Sums {
public:
    Sums(const QImage& image, int shift) : width_(image.width() + 1)
    {
        sums_.resize(qsizetype(width_) * (image.height() + 1));
        for (int y = 0; y < image.height(); ++y) {
            qint64 row = 0;
            for (int x = 0; x < image.width(); ++x) {
                row += image.pixel(x, y) >> shift & 0xFF;
                At(x + 1, y + 1) = At(x + 1, y) + row;
            }
        }
    }

    /// The mean of a square.
    [[nodiscard]] double Mean(int x, int y, int side)
    {
        const qint64 sum = At(x + side, y + side) - At(x, y + side) - At(x + side, y) + At(x, y);
        return double(sum) / (side * side);
    }

private:
    [[nodiscard]] qint64& At(int x, int y) { return sums_[qsizetype(y) * width_ + x]; }

    int width_;
    QList<qint64> sums_;
};

/// Where two pictures differ: the square of 9 pixels whose mean colours lie farthest apart; empty if all are alike. Two
/// ways of smoothing edges are no difference, a missing line of one pixel is one.
QString Difference(const QImage& painted, const QImage& drawn, double tolerance = 20)
{
    if (painted.size() != drawn.size())
        return u"%1 x %2 pixels"_s.arg(drawn.width()).arg(drawn.height());
    constexpr int side = 9;
    double worst = 0;
    QString place;
    for (const int shift : {0, 8, 16}) {
        Sums left(painted, shift);
        Sums right(drawn, shift);
        for (int y = 0; y + side <= painted.height(); ++y) {
            for (int x = 0; x + side <= painted.width(); ++x) {
                const double difference = std::abs(left.Mean(x, y, side) - right.Mean(x, y, side));
                if (difference > worst) {
                    worst = difference;
                    place = u"at %1, %2 by %3"_s.arg(x + side / 2).arg(y + side / 2).arg(difference);
                }
            }
        }
    }
    if (const QString folder = qEnvironmentVariable("SVG_PICTURES"); !folder.isEmpty()) { // to look at
        const QString name = QString::fromUtf8(QTest::currentTestFunction()) + u'_'
                             + QString::fromUtf8(QTest::currentDataTag()).replace(u' ', u'_');
        painted.save(folder + u'/' + name + u"_painted.png"_s);
        drawn.save(folder + u'/' + name + u"_drawn.png"_s);
        qInfo("worst %s", qPrintable(place));
    }
    return worst > tolerance ? place : QString();
}

/// What is wrong with the file as XML, or with the numbers in it; empty: nothing.
QString FaultOf(const QByteArray& svg)
{
    static const QRegularExpression noNumber(u"\\b(nan|inf)\\b"_s, QRegularExpression::CaseInsensitiveOption);
    QXmlStreamReader xml(svg);
    while (!xml.atEnd()) {
        xml.readNext();
        for (const QXmlStreamAttribute& attribute : xml.attributes()) {
            if (noNumber.match(attribute.value()).hasMatch())
                return attribute.name().toString() + u'=' + attribute.value().toString();
        }
    }
    return xml.errorString();
}

/// The texts of the elements of a name.
QStringList TextsOf(const QByteArray& svg, const QString& name)
{
    QStringList texts;
    QXmlStreamReader xml(svg);
    while (!xml.atEnd()) {
        if (xml.readNext() == QXmlStreamReader::StartElement && xml.name() == name)
            texts << xml.readElementText();
    }
    return texts;
}

int CountElements(const QByteArray& svg, const QString& name)
{
    int count = 0;
    QXmlStreamReader xml(svg);
    while (!xml.atEnd())
        count += xml.readNext() == QXmlStreamReader::StartElement && xml.name() == name ? 1 : 0;
    return count;
}

Paint Smooth(void (*paint)(QPainter&))
{
    return [paint](QPainter& painter) {
        painter.setRenderHint(QPainter::Antialiasing);
        paint(painter);
    };
}

constexpr const char* kCannotDraw = "rsvg-convert, which draws the pictures anew, does not run here";

} // namespace

class SvgPictureTest : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void aFileShowsWhatWasPainted_data();
    void aFileShowsWhatWasPainted();
    void anElementThatIsMissingOrMisplacedIsSeen_data();
    void anElementThatIsMissingOrMisplacedIsSeen();
    void thePaneIsSavedAsItIsShown_data();
    void thePaneIsSavedAsItIsShown();
    void theHeadSaysSizeAndTitle();
    void aTextStaysATextWithItsBlanks();
    void charactersThatXmlHasNotAreLeftOut();
    void theNumbersAreThoseOfEveryLanguage();
    void whatIsNoNumberIsNotPainted();
    void nothingIsWrittenForAnEmptySizeOrAClosedFile();
    void onePictureIsOneFile();
    void aFullDiskIsTold();

private:
    bool draws_ = false;
};

void SvgPictureTest::initTestCase()
{
    QProcess process;
    process.start(QStringLiteral(RSVG_CONVERT), {u"--version"_s});
    // Wine starts the program of this machine, but hands nothing to it or back.
    draws_ = process.waitForFinished() && process.readAllStandardOutput().startsWith("rsvg-convert");
}

void SvgPictureTest::aFileShowsWhatWasPainted_data()
{
    QTest::addColumn<int>("scene");
    for (int i = 0; i < std::ssize(SvgScenes()); ++i)
        QTest::newRow(SvgScenes()[i].name) << i;
}

void SvgPictureTest::aFileShowsWhatWasPainted()
{
    QFETCH(const int, scene);
    const Paint paint = Smooth(SvgScenes()[scene].paint);
    const QByteArray svg = SvgOf(paint);
    QCOMPARE(FaultOf(svg), QString());
    if (!draws_)
        QSKIP(kCannotDraw);
    QCOMPARE(Difference(PixelsOf(paint), Drawn(svg)), QString());
}

void SvgPictureTest::anElementThatIsMissingOrMisplacedIsSeen_data()
{
    QTest::addColumn<int>("scene");
    for (int i = 0; i < std::ssize(SvgScenes()); ++i) {
        if (SvgScenes()[i].needsEveryElement)
            QTest::newRow(SvgScenes()[i].name) << i;
    }
}

void SvgPictureTest::anElementThatIsMissingOrMisplacedIsSeen()
{
    QFETCH(const int, scene);
    if (!draws_)
        QSKIP(kCannotDraw);
    const Paint paint = Smooth(SvgScenes()[scene].paint);
    const QImage painted = PixelsOf(paint);
    const QByteArray svg = SvgOf(paint);
    const QList<QByteArray> lines = svg.split('\n'); // one element a line
    int left = 0;
    for (qsizetype i = 0; i < lines.size(); ++i) {
        if (!lines[i].startsWith("<path") && !lines[i].startsWith("<ellipse") && !lines[i].startsWith("<text")
            && !lines[i].startsWith("<image"))
            continue;
        QList<QByteArray> others = lines;
        others.removeAt(i);
        QVERIFY2(!Difference(painted, Drawn(others.join('\n'))).isEmpty(), lines[i].left(100).constData());
        ++left;
    }
    QVERIFY(left > 0);
    QByteArray moved = svg;
    moved.replace("viewBox=\"0 0", "viewBox=\"3 3");
    QVERIFY(!Difference(painted, Drawn(moved)).isEmpty());
}

void SvgPictureTest::thePaneIsSavedAsItIsShown_data()
{
    QTest::addColumn<int>("block");
    QTest::addColumn<bool>("isFigure");
    QTest::newRow("help page") << 313 << false;
    QTest::newRow("long help page") << 326 << false;
    QTest::newRow("report of a run") << 255 << false;
    QTest::newRow("result diagram") << 253 << false;
    QTest::newRow("model figure") << 301 << true;
}

void SvgPictureTest::thePaneIsSavedAsItIsShown()
{
    QFETCH(const int, block);
    QFETCH(const bool, isFigure);
    const QTemporaryDir folder;
    CKELDSectionDoc doc;
    QVERIFY(doc.OpenDocument(QString::fromUtf8(test::ExamplesFolder()) + u"/plate4/plate4.sbd"_s).Ok());
    doc.showHelpPage = !isFigure;
    doc.SetCurrentBlock(block);
    doc.SetHelpCell(block, 2, 2);
    ResultSessionOf(doc).selection = FirstUseSelection(doc.Results().model);
    CUpView view(&doc);
    view.resize(1000, 2600); // a page whole
    view.show();
    view.Refresh();
    QApplication::processEvents();
    const QString png = folder.filePath(u"f.png"_s);
    const QString svg = folder.filePath(u"f.svg"_s);
    QVERIFY(view.SavePicture(png));
    QVERIFY(view.SavePicture(svg));
    QFile file(svg);
    QVERIFY(file.open(QFile::ReadOnly));
    const QByteArray bytes = file.readAll();
    QCOMPARE(FaultOf(bytes), QString());
    QVERIFY(CountElements(bytes, u"text"_s) > 10);
    if (!draws_)
        QSKIP(kCannotDraw);
    // The lines of a help page are as thin as the device has them, so it is compared at the scale of the screen, where
    // unsmoothed lines stand half a pixel aside.
    const bool isHelp = view.currentWidget() == &view.Help();
    view.currentWidget()->clearFocus(); // a picture has no frame that shows where the keyboard is
    const QImage shown = isHelp ? view.grab().toImage() : QImage(png);
    const QImage drawn = Drawn(bytes, shown.size());
    // The heading of a figure says of which measure its scale is: of the screen, or of the picture, whose inches are true.
    const QRect below = shown.rect().adjusted(0, isFigure || block == 253 ? 80 : 0, 0, 0);
    constexpr double halfPixel = 55; // where such lines cross, on a filled ground
    constexpr double smooth = 20;
    QCOMPARE(Difference(shown.copy(below), drawn.copy(below), isHelp ? halfPixel : smooth), QString());
}

void SvgPictureTest::theHeadSaysSizeAndTitle()
{
    const QByteArray svg = SvgOf([](QPainter&) {}, {192, 96}, u"主桁 <G1>\x01"_s);
    QXmlStreamReader xml(svg);
    QVERIFY(xml.readNextStartElement());
    QCOMPARE(xml.name(), u"svg");
    QCOMPARE(xml.namespaceUri(), u"http://www.w3.org/2000/svg");
    QCOMPARE(xml.attributes().value(u"width"_s), u"192");
    QCOMPARE(xml.attributes().value(u"height"_s), u"96");
    QCOMPARE(xml.attributes().value(u"viewBox"_s), u"0 0 192 96");
    QCOMPARE(TextsOf(svg, u"title"_s), QStringList{u"主桁 <G1>"_s});
    QCOMPARE(TextsOf(SvgOf([](QPainter&) {}), u"title"_s), QStringList());
}

void SvgPictureTest::aTextStaysATextWithItsBlanks()
{
    const QByteArray svg = SvgOf([](QPainter& painter) {
        painter.setFont(Gothic(20));
        painter.translate(5, 0);
        painter.drawText(QPointF(10, 30), u"  A  <&>  B "_s);
    });
    QCOMPARE(TextsOf(svg, u"text"_s).join(QString()), u"  A  <&>  B "_s);
    QVERIFY(svg.contains("x=\"10\" y=\"30\" textLength=\"120\""));
    QVERIFY(svg.contains("xml:space=\"preserve\""));
    QVERIFY(svg.contains("font-family=\"'IPAGothic', 'ＭＳ ゴシック', "));
    QVERIFY(svg.contains(", monospace\" font-size=\"20\""));
}

void SvgPictureTest::charactersThatXmlHasNotAreLeftOut()
{
    QString text = u"a\x01\x1F\x0B"_s + QChar(0xD800) + u"b"_s + QChar(0xDC00) + QChar(0xFFFE) + QChar(0xFFFF) + u"c"_s;
    text += u"\U0002000B"_s; // outside of the first plane, as some names are
    const QByteArray svg = SvgOf([&](QPainter& painter) {
        painter.setFont(Gothic(20));
        painter.drawText(QPointF(10, 30), text);
        painter.drawText(QPointF(10, 60), u"\x01\x02"_s);
    });
    QCOMPARE(FaultOf(svg), QString());
    QCOMPARE(TextsOf(svg, u"text"_s).join(QString()), u"abc\U0002000B"_s);
}

void SvgPictureTest::theNumbersAreThoseOfEveryLanguage()
{
    const Paint paint = [](QPainter& painter) {
        painter.setPen(QPen(Qt::black, 1.5));
        painter.drawLine(QPointF(1234.25, -0.0), QPointF(1.0 / 3, 1e-20));
    };
    const QByteArray svg = SvgOf(paint);
    QLocale::setDefault(QLocale(QLocale::German));
    const QByteArray german = SvgOf(paint);
    QLocale::setDefault(QLocale::c());
    QCOMPARE(german, svg);
    QVERIFY(svg.contains("d=\"M1234.25 0L0.3333333 1e-20\""));
    QVERIFY(svg.contains("stroke-width=\"1.5\""));
}

void SvgPictureTest::whatIsNoNumberIsNotPainted()
{
    constexpr double nan = std::numeric_limits<double>::quiet_NaN();
    constexpr double infinite = std::numeric_limits<double>::infinity();
    for (const double bad : {nan, infinite, -infinite}) {
        const QByteArray svg = SvgOf([&](QPainter& painter) {
            const QPointF corners[] = {{0, 0}, {bad, 10}, {20, 20}};
            painter.setFont(Gothic(20));
            const auto paintAll = [&] {
                painter.drawLine(QPointF(0, bad), QPointF(10, 10));
                painter.drawPolygon(corners, 3);
                painter.drawPolyline(corners, 3);
                painter.drawEllipse(QRectF(0, bad, 10, 10));
                painter.drawEllipse(QRectF(0, 0, bad, 10));
                painter.drawRect(QRectF(bad, 0, 10, 10));
                painter.drawText(QPointF(bad, 10), u"x"_s);
                painter.drawImage(QRectF(0, bad, 10, 10), QImage(2, 2, QImage::Format_RGB32));
            };
            paintAll();
            painter.setBrush(QBrush(Qt::red, Qt::HorPattern));
            painter.setPen(QPen(Qt::black, bad));
            paintAll();
            painter.drawLine(0, 0, 10, 10);
            painter.setClipRect(QRectF(bad, 0, 10, 10));
            painter.setPen(Qt::NoPen);
            paintAll();
            painter.setClipping(false);
            painter.setTransform(QTransform(bad, 0, 0, 1, 0, 0));
            paintAll();
            painter.drawRect(0, 0, 10, 10);
            painter.drawText(QPointF(10, 10), u"x"_s);
            painter.setTransform(QTransform());
            painter.setPen(Qt::black);
            painter.drawText(QPointF(10, 10), u"end"_s);
        });
        QCOMPARE(FaultOf(svg), QString());
        QVERIFY(TextsOf(svg, u"text"_s).endsWith(u"end"_s));
        QVERIFY(svg.endsWith("</svg>\n"));
    }
}

void SvgPictureTest::nothingIsWrittenForAnEmptySizeOrAClosedFile()
{
    for (const QSize size : {QSize(), QSize(0, 10), QSize(10, 0), QSize(-5, 10)}) {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(u".*"_s));
        QCOMPARE(SvgOf([](QPainter&) { QFAIL("begun"); }, size), QByteArray());
    }
    QBuffer closed;
    CSvgPicture picture(closed, kSceneSize, kDpi);
    QPainter painter;
    QVERIFY(!painter.begin(&picture));
    QCOMPARE(closed.data(), QByteArray());
}

void SvgPictureTest::onePictureIsOneFile()
{
    QBuffer bytes;
    bytes.open(QIODevice::WriteOnly);
    CSvgPicture picture(bytes, kSceneSize, kDpi);
    QPainter painter;
    QVERIFY(painter.begin(&picture));
    painter.drawLine(0, 0, 10, 10);
    QVERIFY(painter.end());
    const QByteArray once = bytes.data();
    QVERIFY(!painter.begin(&picture));
    QCOMPARE(bytes.data(), once);
}

void SvgPictureTest::aFullDiskIsTold()
{
    /// Takes a few bytes only.
    class FullDisk : public QIODevice {
    protected:
        qint64 readData(char*, qint64) override { return -1; }
        qint64 writeData(const char*, qint64 size) override
        {
            room_ -= size;
            return room_ >= 0 ? size : -1;
        }

    private:
        qint64 room_ = 300;
    };
    FullDisk disk;
    disk.open(QIODevice::WriteOnly);
    CSvgPicture picture(disk, kSceneSize, kDpi);
    QPainter painter;
    QVERIFY(painter.begin(&picture));
    painter.drawText(QPointF(10, 10), u"主桁"_s);
    painter.drawLine(0, 0, 10, 10);
    QVERIFY(!painter.end());
}

QTEST_MAIN(SvgPictureTest)
#include "svg_picture_test.moc"
