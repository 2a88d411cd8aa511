#include "document/result_session.h"
#include "document/section_doc.h"
#include "upperview/chk_view.h"
#include "upperview/figure_pane.h"
#include "upperview/help_view.h"
#include "upperview/up_view.h"

#include <QDir>
#include <QMouseEvent>
#include <QPdfWriter>
#include <QScrollBar>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

struct Pane {
    CKELDSectionDoc doc;
    CUpView view{&doc};

    Pane()
    {
        (void)doc.OpenDocument(QStringLiteral(EXAMPLES_DIR) + u"/plate4/plate4.sbd"_s);
        view.resize(1000, 300);
        view.show();
    }
    void GoTo(int block, int row, int column)
    {
        doc.SetCurrentBlock(block);
        doc.SetHelpCell(row > 0 ? block : -1, row, column);
        view.Refresh();
        QApplication::processEvents();
        QApplication::processEvents(); // a page that has found its place paints again
    }
    [[nodiscard]] int Scroll() { return view.Help().verticalScrollBar()->value(); }
};

/// Pixels of a colour in what the pane shows.
int CountPixels(CUpView& view, QRgb colour)
{
    const QImage picture = view.grab().toImage().convertToFormat(QImage::Format_RGB32);
    int count = 0;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x)
            count += (picture.pixel(x, y) & RGB_MASK) == (colour & RGB_MASK) ? 1 : 0;
    }
    return count;
}

} // namespace

class UpViewTest : public QObject {
    Q_OBJECT

private slots:
    void eachBlockHasItsPane();
    void theModelFigureTakesThePlaceOfEveryPage();
    void aViewCommandLeavesTheHelpPage();
    void noViewCommandTakesTheResultAway();
    void marksOfTheMouseAreNotForTheNextFigure();
    void thePageScrollsToTheColumn();
    void theUsersOwnScrollingStands();
    void anotherCellMovesThePageAgain();
    void theColumnOfTheCellIsRed();
    void theBackgroundIsTheUsers();
    void aLinkLeadsToItsPageAndTheButtonBack();
    void picturesAreSavedByTheEndingOfTheFile_data();
    void picturesAreSavedByTheEndingOfTheFile();
    void anotherEndingAndAFullFolderAreTold();
    void everyPagePrintsOnOneSheet_data();
    void everyPagePrintsOnOneSheet();
};

void UpViewTest::eachBlockHasItsPane()
{
    Pane pane;
    pane.GoTo(313, 2, 6);
    QVERIFY(pane.view.currentWidget() == &pane.view.Help());
    pane.GoTo(255, 0, 0);
    QVERIFY(pane.view.currentWidget() == &pane.view.Chk());
    pane.GoTo(253, 0, 0);
    QVERIFY(pane.view.currentWidget() == &pane.view.Figure());
    pane.GoTo(999, 0, 0);
    QVERIFY(pane.view.currentWidget() == &pane.view.Help());
}

void UpViewTest::theModelFigureTakesThePlaceOfEveryPage()
{
    Pane pane;
    pane.doc.showHelpPage = false;
    for (const int block : {313, 255, 253}) {
        pane.GoTo(block, 0, 0);
        QVERIFY(pane.view.currentWidget() == &pane.view.Figure());
    }
}

void UpViewTest::aViewCommandLeavesTheHelpPage()
{
    Pane pane;
    for (const Command command :
         {Command::ViewXY, Command::ViewYZ, Command::ViewXZ, Command::ViewAll, Command::ZoomOut, Command::ZoomIn,
          Command::MoveUp, Command::MoveDown, Command::MoveLeft, Command::MoveRight}) {
        pane.doc.showHelpPage = true;
        pane.GoTo(301, 1, 2);
        pane.view.RunViewCommand(command);
        QVERIFY(!pane.doc.showHelpPage);
        QVERIFY(pane.view.currentWidget() == &pane.view.Figure());
    }
}

void UpViewTest::noViewCommandTakesTheResultAway()
{
    Pane pane;
    ResultSessionOf(pane.doc).selection = FirstUseSelection(pane.doc.Results().model);
    pane.GoTo(253, 0, 0);
    const double zoom = pane.view.Figure().View().zoom;
    pane.view.RunViewCommand(Command::ZoomIn);
    QCOMPARE(pane.view.Figure().View().zoom, zoom / 1.2); // whatever its tip says
    const QImage zoomed = pane.view.grab().toImage();
    pane.view.RunViewCommand(Command::ViewAll);
    const QImage fitted = pane.view.grab().toImage();
    QVERIFY(fitted != zoomed);
    for (const Command command :
         {Command::ViewXY, Command::ViewYZ, Command::ViewXZ, Command::ViewAll}) { // all fit the diagram
        pane.view.RunViewCommand(command);
        QVERIFY(pane.doc.showHelpPage); // of the blocks to come
        QVERIFY(pane.view.grab().toImage() == fitted);
    }
    pane.doc.showHelpPage = false; // the model figure of another block was left for this one
    pane.GoTo(253, 0, 0);
    QVERIFY2(pane.view.grab().toImage() == fitted, "253 shows the model in place of the result");
    QVERIFY(!pane.doc.showHelpPage);
}

void UpViewTest::marksOfTheMouseAreNotForTheNextFigure()
{
    Pane pane;
    ResultSessionOf(pane.doc).selection = FirstUseSelection(pane.doc.Results().model);
    pane.doc.showHelpPage = false;
    CFigurePane& figure = pane.view.Figure();
    const FigureView before = figure.View();
    // Pressed over the result, let go over the model; then the other way round, and over a pane that has gone.
    for (const auto& [pressed, released] : {std::pair(253, 301), std::pair(301, 253)}) {
        for (const Qt::MouseButton button : {Qt::LeftButton, Qt::RightButton}) {
            pane.GoTo(pressed, 0, 0);
            QTest::mousePress(&figure, button, {}, {100, 100});
            QTest::mouseMove(&figure, {200, 150});
            pane.GoTo(released, 0, 0);
            QTest::mouseRelease(&figure, button, {}, {300, 200});
            pane.GoTo(released, 0, 0);
            QCOMPARE(figure.View().zoom, before.zoom);
            QCOMPARE(figure.View().panX, before.panX);
        }
    }
    pane.GoTo(301, 0, 0);
    QTest::mousePress(&figure, Qt::LeftButton, {}, {100, 100});
    pane.doc.showHelpPage = true;
    pane.GoTo(301, 0, 0);
    pane.doc.showHelpPage = false;
    pane.GoTo(301, 0, 0);
    QTest::mouseRelease(&figure, Qt::LeftButton, {}, {300, 200});
    QCOMPARE(figure.View().zoom, before.zoom);
    // The end of a drag over the result stays, also while the pages of the other blocks are switched on.
    pane.doc.showHelpPage = true;
    pane.GoTo(253, 0, 0);
    QTest::mousePress(&figure, Qt::RightButton, {}, {100, 100});
    QTest::mouseMove(&figure, {200, 100});
    QTest::mouseRelease(&figure, Qt::RightButton, {}, {200, 100});
    QVERIFY(figure.View().panX > 0);
    QVERIFY(!figure.View().panPending); // at once: the next paint may be of another figure
}

void UpViewTest::thePageScrollsToTheColumn()
{
    Pane pane;
    pane.GoTo(313, 0, 0);
    QCOMPARE(pane.Scroll(), 0);
    pane.GoTo(313, 3, 6); // its width stands in a sketch below the text
    QVERIFY(pane.Scroll() > 50);
    pane.GoTo(313, 3, 1); // the girder stands in none
    QCOMPARE(pane.Scroll(), 0);
}

void UpViewTest::theUsersOwnScrollingStands()
{
    Pane pane;
    pane.GoTo(313, 3, 6);
    pane.view.Help().verticalScrollBar()->setValue(10);
    pane.GoTo(313, 3, 6);
    QCOMPARE(pane.Scroll(), 10);
}

void UpViewTest::anotherCellMovesThePageAgain()
{
    Pane pane;
    pane.GoTo(313, 3, 6);
    const int place = pane.Scroll();
    pane.view.Help().verticalScrollBar()->setValue(10);
    pane.GoTo(313, 4, 6);
    QCOMPARE(pane.Scroll(), place);
}

void UpViewTest::theColumnOfTheCellIsRed()
{
    Pane pane;
    pane.GoTo(313, 3, 6);
    const int inColumn = CountPixels(pane.view, qRgb(255, 0, 0));
    pane.GoTo(313, 3, 1);
    pane.view.Help().verticalScrollBar()->setValue(pane.view.Help().verticalScrollBar()->maximum());
    QVERIFY2(inColumn > 20, qPrintable(QString::number(inColumn)));
}

void UpViewTest::theBackgroundIsTheUsers()
{
    Pane pane;
    pane.doc.display.backColor = 0x102030; // blue, green, red
    for (const int block : {313, 255, 253}) {
        pane.GoTo(block, 0, 0);
        QVERIFY(CountPixels(pane.view, qRgb(0x30, 0x20, 0x10)) > 1000);
    }
}

void UpViewTest::aLinkLeadsToItsPageAndTheButtonBack()
{
    Pane pane;
    pane.GoTo(513, 0, 0);
    CHelpView& help = pane.view.Help();
    auto* back = help.findChild<QToolButton*>();
    QVERIFY(!back->isVisible());
    help.linkRects = {QRectF(0, 0, 100, 100), QRectF(200, 0, 100, 100)};
    // At once: the next paint forgets them.
    QMouseEvent press(QEvent::MouseButtonPress, QPointF(5, 5), help.viewport()->mapToGlobal(QPointF(5, 5)),
                      Qt::LeftButton, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(help.viewport(), &press);
    QCOMPARE(pane.doc.CurrentBlock(), 514);
    QVERIFY(back->isVisible());
    back->click();
    QCOMPARE(pane.doc.CurrentBlock(), 513);
    QVERIFY(!back->isVisible());
    QTest::mouseClick(help.viewport(), Qt::LeftButton, {}, QPoint(5, 5)); // no page sets a link by itself
    QCOMPARE(pane.doc.CurrentBlock(), 513);
}

void UpViewTest::picturesAreSavedByTheEndingOfTheFile_data()
{
    QTest::addColumn<int>("block");
    QTest::addColumn<QString>("name");
    QTest::addColumn<QByteArray>("begin");
    for (const int block : {313, 255, 253}) {
        QTest::addRow("%d png", block) << block << u"図.png"_s << QByteArray("\x89PNG");
        QTest::addRow("%d svg", block) << block << u"図.SVG"_s << QByteArray("<?xml");
        QTest::addRow("%d pdf", block) << block << u"図.pdf"_s << QByteArray("%PDF");
    }
}

void UpViewTest::picturesAreSavedByTheEndingOfTheFile()
{
    QFETCH(const int, block);
    QFETCH(const QString, name);
    QFETCH(const QByteArray, begin);
    const QTemporaryDir folder;
    Pane pane;
    pane.GoTo(block, 0, 0);
    QVERIFY(pane.view.SavePicture(folder.filePath(name)));
    QFile file(folder.filePath(name));
    QVERIFY(file.open(QFile::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY(bytes.startsWith(begin));
    if (block == 313 && name.endsWith(u"png"_s)) // the whole page, not what is in view
        QVERIFY(QImage::fromData(bytes).height() > 2 * pane.view.height() + 100);
}

void UpViewTest::anotherEndingAndAFullFolderAreTold()
{
    const QTemporaryDir folder;
    Pane pane;
    QVERIFY(!pane.view.SavePicture(folder.filePath(u"picture.bmp"_s)));
    QVERIFY(!pane.view.SavePicture(folder.filePath(u"no folder/picture.png"_s)));
    QVERIFY(QDir(folder.path()).isEmpty());
}

void UpViewTest::everyPagePrintsOnOneSheet_data()
{
    QTest::addColumn<int>("block");
    for (const int block : {301, 313, 255, 253})
        QTest::addRow("%d", block) << block;
}

void UpViewTest::everyPagePrintsOnOneSheet()
{
    QFETCH(const int, block);
    const QTemporaryDir folder;
    Pane pane;
    pane.GoTo(block, 0, 0);
    const QString file = folder.filePath(u"page.pdf"_s);
    {
        QPdfWriter sheet(file);
        pane.view.Print(sheet);
    }
    QFile pdf(file);
    QVERIFY(pdf.open(QFile::ReadOnly));
    const QByteArray bytes = pdf.readAll();
    QVERIFY(bytes.startsWith("%PDF"));
    QCOMPARE(bytes.count("/Type /Page\n"), 1);
}

QTEST_MAIN(UpViewTest)
#include "up_view_test.moc"
