#include "app/start_options.h"
#include "app/station.h"
#include "frame/child_frame.h"
#include "frame/main_frame.h"
#include "grid/grid_ctrl.h"
#include "panels/panel.h"
#include "tests/surroundings.h"

#include <QFontMetricsF>
#include <QImage>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

const auto kPlate = QString::fromUtf8(test::ExamplesFolder()) + QStringLiteral("/plate4/plate4.sbd");

/// Runs the program for a picture of `block`; the exit code.
int Draw(const QString& project, const QString& picture, int block = 0, QSize size = {1366, 768})
{
    StartOptions options;
    options.projects = {project};
    options.screenshot = picture;
    options.block = block;
    options.size = size;
    return RunStation(options);
}

} // namespace

class StationTest : public QObject {
    Q_OBJECT

private slots:
    void aPictureOfTheWholeWindowIsDrawn();
    void picturesOfTwoBlocksDiffer();
    void thePictureOfAnEmptyProjectIsDrawn();
    void aProjectThatCannotBeOpenedEndsWithTwo();
    void aPictureThatCannotBeWrittenEndsWithTwo();
    void aWrongCommandLineEndsWithTwo();
    void theKeyboardIsInTheCellThatTheCommandLineNames();
    void thePagesHaveAJapaneseFontOfOneWidth();
    void aStartThatOpensNothingEndsBehindItsMessage();
    void aStartThatOpensOneProjectOfTwoGoesOn();
};

/// Starts the window; each message box is closed by Enter, and the program when it stands and no box comes.
struct WindowStart {
    int boxes = 0;
    bool stood = false;
    bool maximised = false;

    int Run(const QStringList& projects)
    {
        StartOptions options;
        options.projects = projects;
        QTimer clock;
        QObject::connect(&clock, &QTimer::timeout, &clock, [&] {
            if (QWidget* box = QApplication::activeModalWidget()) {
                ++boxes;
                QTest::keyClick(box, Qt::Key_Return);
                return;
            }
            for (QWidget* window : QApplication::topLevelWidgets()) {
                if (qobject_cast<CMainFrame*>(window) != nullptr && window->isVisible() && ++quiet_ > 5) {
                    stood = true;
                    maximised = window->isMaximized();
                    QApplication::exit(0);
                }
            }
        });
        clock.start(100);
        return RunStation(options);
    }

private:
    int quiet_ = 0;
};

void StationTest::aPictureOfTheWholeWindowIsDrawn()
{
    const QTemporaryDir folder;
    QCOMPARE(Draw(kPlate, folder.filePath(u"o.png"_s), 313, {1024, 700}), kExitDone);
    const QImage picture(folder.filePath(u"o.png"_s));
    QCOMPARE(picture.size(), QSize(1024, 700));
    QVERIFY(!picture.allGray());
}

void StationTest::picturesOfTwoBlocksDiffer()
{
    const QTemporaryDir folder;
    QCOMPARE(Draw(kPlate, folder.filePath(u"a.png"_s), 301), kExitDone);
    QCOMPARE(Draw(kPlate, folder.filePath(u"b.png"_s), 406), kExitDone);
    QVERIFY(QImage(folder.filePath(u"a.png"_s)) != QImage(folder.filePath(u"b.png"_s)));
}

void StationTest::thePictureOfAnEmptyProjectIsDrawn()
{
    const QTemporaryDir folder;
    StartOptions options;
    options.screenshot = folder.filePath(u"o.png"_s);
    QCOMPARE(RunStation(options), kExitDone);
    QVERIFY(!QImage(options.screenshot).isNull());
}

void StationTest::aProjectThatCannotBeOpenedEndsWithTwo()
{
    const QTemporaryDir folder;
    QCOMPARE(Draw(folder.filePath(u"missing.sbd"_s), folder.filePath(u"o.png"_s)), kExitFailed);
    QVERIFY(!QFile::exists(folder.filePath(u"o.png"_s)));
}

void StationTest::aPictureThatCannotBeWrittenEndsWithTwo()
{
    const QTemporaryDir folder;
    QCOMPARE(Draw(kPlate, folder.filePath(u"no folder/o.png"_s)), kExitFailed);
}

void StationTest::aWrongCommandLineEndsWithTwo()
{
    QCOMPARE(RunStation(ReadStartOptions({u"sbdstation"_s, u"--block"_s, u"1"_s})), kExitFailed);
}

void StationTest::theKeyboardIsInTheCellThatTheCommandLineNames()
{
    CMainFrame frame(SilentPrompts([](const QString&) {}));
    QVERIFY(frame.OpenProject(kPlate) != nullptr);
    frame.show();
    QVERIFY(QTest::qWaitForWindowActive(&frame));
    StartOptions options;
    options.block = 313;
    ShowCell(frame, options);
    QVERIFY(frame.CurrentChild()->Panel()->Grid()->hasFocus());
    options.row = 3;
    options.column = 6;
    ShowCell(frame, options);
    CGridCtrl& grid = *frame.CurrentChild()->Panel()->Grid();
    QVERIFY(grid.hasFocus());
    QCOMPARE(grid.FocusCell(), (GridCell{3, 6}));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_7);
    QVERIFY(grid.IsEditing());
}

void StationTest::thePagesHaveAJapaneseFontOfOneWidth()
{
    const QFont font(u"ＭＳ ゴシック"_s, 12);
    const QFontMetricsF metrics(font);
    QCOMPARE(metrics.horizontalAdvance(u"桁"_s), 2 * metrics.horizontalAdvance(u"A"_s));
}

void StationTest::aStartThatOpensNothingEndsBehindItsMessage()
{
    const QTemporaryDir folder;
    WindowStart start;
    QCOMPARE(start.Run({folder.filePath(u"a.sbd"_s), folder.filePath(u"b.sbd"_s)}), 1);
    QCOMPARE(start.boxes, 2);
    QVERIFY(!start.stood);
}

void StationTest::aStartThatOpensOneProjectOfTwoGoesOn()
{
    const QTemporaryDir folder;
    const QString project = folder.filePath(u"plate4.sbd"_s);
    QVERIFY(QFile::copy(kPlate, project));
    WindowStart start;
    QCOMPARE(start.Run({folder.filePath(u"a.sbd"_s), project}), kExitDone);
    QCOMPARE(start.boxes, 1);
    QVERIFY(start.stood);
    QVERIFY(start.maximised);
}

QTEST_MAIN(StationTest)
#include "station_test.moc"
