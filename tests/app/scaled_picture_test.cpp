#include "app/start_options.h"
#include "app/station.h"

#include <QApplication>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

class ScaledPictureTest : public QObject {
    Q_OBJECT

private slots:
    void aPictureHasThePixelsOfTheScreen();
};

void ScaledPictureTest::aPictureHasThePixelsOfTheScreen()
{
    const QTemporaryDir folder;
    StartOptions options;
    options.screenshot = folder.filePath(u"o.png"_s);
    options.size = {800, 600};
    QCOMPARE(RunStation(options), kExitDone);
    QCOMPARE(QImage(options.screenshot).size(), QSize(1600, 1200));
}

int main(int argc, char** argv)
{
    qputenv("QT_SCALE_FACTOR", "2"); // read when the application starts
    QApplication app(argc, argv);
    ScaledPictureTest test;
    return QTest::qExec(&test, argc, argv);
}

#include "scaled_picture_test.moc"
