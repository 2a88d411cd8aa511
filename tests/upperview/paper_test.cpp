#include "document/section_doc.h"
#include "tests/surroundings.h"
#include "upperview/model_figure.h"
#include "upperview/paper.h"
#include "upperview/up_view.h"

#include <QApplication>
#include <QPalette>
#include <QTest>

#include <cmath>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

/// The colours that mean something on pages and figures.
const QColor kInks[] = {Qt::black, Qt::blue, QColor(0, 255, 0), QColor(255, 0, 255), Qt::red, QColor(0x80, 0x80, 0x80)};
const QColor kDark(0x1e, 0x1e, 0x1e);

QPalette DarkPalette()
{
    QPalette palette;
    palette.setColor(QPalette::Window, QColor(0x2b, 0x2b, 0x2b));
    palette.setColor(QPalette::Base, kDark);
    palette.setColor(QPalette::Text, Qt::white);
    palette.setColor(QPalette::WindowText, Qt::white);
    return palette;
}

int Distance(const QColor& a, const QColor& b)
{
    return std::abs(a.red() - b.red()) + std::abs(a.green() - b.green()) + std::abs(a.blue() - b.blue());
}

} // namespace

class PaperTest : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { QApplication::setPalette(QPalette()); }

    void everyInkIsReadOnDarkPaperAndToldFromTheOthers();
    void onLightPaperNothingChanges();
    void onlyPaperThatNobodyChoseIsDark();
    void surfacesStayCloseToThePaper();
    void pagesAndFiguresAreDarkOnADarkScreen_data();
    void pagesAndFiguresAreDarkOnADarkScreen();
    void picturesAndPrintsStayOnWhitePaper();
};

void PaperTest::everyInkIsReadOnDarkPaperAndToldFromTheOthers()
{
    for (const QColor& paper : {kDark, QColor(Qt::black), QColor(0x30, 0x20, 0x10), QColor(0x2b, 0x2b, 0x2b)}) {
        for (const QColor& one : kInks) {
            const QColor ink = Ink(one, paper);
            QVERIFY2(Contrast(ink, paper) >= 4.5, qPrintable(one.name() + u' ' + ink.name()));
            for (const QColor& other : kInks)
                QVERIFY2(one == other || Distance(ink, Ink(other, paper)) > 80,
                         qPrintable(one.name() + u' ' + other.name()));
        }
    }
}

void PaperTest::onLightPaperNothingChanges()
{
    for (const QColor& paper : {QColor(Qt::white), QColor(0xff, 0xff, 0xe0), QColor(0xb0, 0xc0, 0xd0)}) {
        for (const QColor& ink : kInks) {
            QCOMPARE(Ink(ink, paper), ink);
            QCOMPARE(Surface(ink, paper), ink);
        }
    }
}

void PaperTest::onlyPaperThatNobodyChoseIsDark()
{
    QCOMPARE(PaperOnScreen(Qt::white, DarkPalette()), kDark);
    QCOMPARE(PaperOnScreen(Qt::white, QPalette(Qt::lightGray)), QColor(Qt::white));
    QCOMPARE(PaperOnScreen(QColor(0xff, 0xff, 0xe0), DarkPalette()), QColor(0xff, 0xff, 0xe0));
}

void PaperTest::surfacesStayCloseToThePaper()
{
    QVERIFY(Distance(Surface(Qt::white, kDark), kDark) < 6);
    QVERIFY(Contrast(Surface(QColor(0xff, 0xff, 0xe0), kDark), kDark) < 3);
}

void PaperTest::pagesAndFiguresAreDarkOnADarkScreen_data()
{
    QTest::addColumn<int>("block");
    QTest::addColumn<bool>("page");
    for (const int block : {301, 313, 311, 253, 255}) {
        QTest::addRow("%d page", block) << block << true;
        QTest::addRow("%d figure", block) << block << false;
    }
}

void PaperTest::pagesAndFiguresAreDarkOnADarkScreen()
{
    QFETCH(const int, block);
    QFETCH(const bool, page);
    QApplication::setPalette(DarkPalette());
    CKELDSectionDoc doc;
    QVERIFY(doc.OpenDocument(QString::fromUtf8(test::ExamplesFolder()) + u"/plate4/plate4.sbd"_s).Ok());
    CUpView view(&doc);
    view.resize(1000, 300);
    view.show();
    doc.showHelpPage = page;
    doc.SetCurrentBlock(block);
    if (block != 253 && block != 255)
        doc.SetHelpCell(block, 3, 6);
    view.Refresh();
    QApplication::processEvents();
    const QImage shown = view.grab().toImage().convertToFormat(QImage::Format_RGB32);
    int bright = 0;
    int readable = 0;
    for (int y = 0; y < shown.height(); ++y) {
        for (int x = 0; x < shown.width(); ++x) {
            const QColor pixel = shown.pixelColor(x, y);
            bright += Contrast(pixel, Qt::white) < 1.5 ? 1 : 0;
            readable += Contrast(pixel, kDark) > 4 ? 1 : 0;
        }
    }
    QVERIFY2(bright < shown.width() * shown.height() / 10, qPrintable(QString::number(bright)));
    if (block != 253) // nothing is chosen there
        QVERIFY2(readable > 200, qPrintable(QString::number(readable)));
}

void PaperTest::picturesAndPrintsStayOnWhitePaper()
{
    QApplication::setPalette(DarkPalette());
    CKELDSectionDoc doc;
    QVERIFY(doc.OpenDocument(QString::fromUtf8(test::ExamplesFolder()) + u"/plate4/plate4.sbd"_s).Ok());
    CUpView view(&doc);
    view.resize(1000, 300);
    view.show();
    doc.SetCurrentBlock(313);
    for (const bool page : {true, false}) {
        doc.showHelpPage = page;
        view.Refresh();
        const QString file = QDir::tempPath() + u"/paper_test_%1.png"_s.arg(QCoreApplication::applicationPid());
        QVERIFY(view.SavePicture(file));
        const QImage saved(file);
        QFile::remove(file);
        QImage sheet(2000, 2800, QImage::Format_RGB32);
        sheet.fill(Qt::white);
        view.Print(sheet);
        for (const QImage& image : {saved, sheet}) {
            int black = 0;
            int white = 0;
            for (int y = 0; y < image.height(); ++y) {
                for (int x = 0; x < image.width(); ++x) {
                    black += image.pixelColor(x, y) == QColor(Qt::black) ? 1 : 0;
                    white += image.pixelColor(x, y) == QColor(Qt::white) ? 1 : 0;
                }
            }
            QVERIFY(black > 100);
            QVERIFY(white > image.width() * image.height() / 2);
        }
    }
}

QTEST_MAIN(PaperTest)
#include "paper_test.moc"
