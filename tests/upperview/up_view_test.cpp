#include "document/result_session.h"
#include "document/section_doc.h"
#include "tests/surroundings.h"
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
        (void)doc.OpenDocument(QString::fromUtf8(test::ExamplesFolder()) + u"/plate4/plate4.sbd"_s);
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
    void thePageFollowsAnEditThatLeavesTheCursorWhereItIs();
    void thePageScrollsToTheColumn();
    void theUsersOwnScrollingStands();
    void anotherCellMovesThePageAgain();
    void theColumnOfTheCellIsRed();
    void theBackgroundIsTheUsers();
    void aLinkLeadsToItsPageAndTheButtonBack();
    void theWayBackEndsWhereTheUserGoesElsewhere();
    void theKeyboardReachesTheLinks();
    void picturesAreSavedByTheEndingOfTheFile_data();
    void picturesAreSavedByTheEndingOfTheFile();
    void anotherEndingAndAFullFolderAreTold();
    void everyPagePrintsOnOneSheet_data();
    void everyPagePrintsOnOneSheet();
    void aPageStandsWholeOnTheSheetWithItsFoot_data();
    void aPageStandsWholeOnTheSheetWithItsFoot();
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

/// Ctrl+Enter, Delete, a fill, a save with an open editor.
void UpViewTest::thePageFollowsAnEditThatLeavesTheCursorWhereItIs()
{
    Pane pane;
    QVERIFY(QTest::qWaitForWindowExposed(&pane.view));
    pane.GoTo(313, 3, 6);
    QTest::qWait(50); // what the first pictures have asked for
    class : public QObject {
    public:
        int paints = 0;
        bool eventFilter(QObject*, QEvent* event) override
        {
            paints += event->type() == QEvent::Paint ? 1 : 0;
            return false;
        }
    } counter;
    pane.view.Help().viewport()->installEventFilter(&counter);
    PanelEdit edit;
    edit.place = {313, 3, 6};
    edit.name = "edit";
    edit.write = [](CProjectWriter& writer) { writer.SetCell(313, 2, 5, "777"); };
    edit.isModified = [] { return true; };
    edit.looseAfter = [] { return LooseRows(); };
    pane.doc.Commit(edit);
    QTRY_VERIFY(counter.paints > 0);
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

namespace {

/// The middle of the first link of the page on show that leads to a block, in pixels of the pane.
QPoint PlaceOfLink(CHelpView& help, int block)
{
    for (const PageLink& link : help.Links())
        if (link.block == block) {
            const QPointF middle((link.box.left + link.box.right) / 2.0, -(link.box.top + link.box.bottom) / 2.0);
            return (middle * help.Scale()).toPoint()
                   - QPoint(help.horizontalScrollBar()->value(), help.verticalScrollBar()->value());
        }
    return {-1, -1};
}

} // namespace

void UpViewTest::aLinkLeadsToItsPageAndTheButtonBack()
{
    Pane pane;
    pane.GoTo(313, 2, 1);
    CHelpView& help = pane.view.Help();
    auto* back = help.findChild<QToolButton*>();
    QVERIFY(!back->isVisible());
    const QPoint place = PlaceOfLink(help, 314);
    QVERIFY(help.viewport()->rect().contains(place));
    QTest::mouseMove(help.viewport(), place);
    QTRY_COMPARE(help.viewport()->cursor().shape(), Qt::PointingHandCursor);
    QTest::mouseMove(help.viewport(), QPoint(1, 1));
    QTRY_COMPARE(help.viewport()->cursor().shape(), Qt::ArrowCursor);

    QSignalSpy wanted(&help, &CHelpView::blockWanted);
    QTest::mouseClick(help.viewport(), Qt::LeftButton, {}, place);
    QCOMPARE(wanted.size(), 1);
    QCOMPARE(wanted.front().front().toInt(), 314);
    QCOMPARE(pane.doc.CurrentBlock(), 314);
    QCOMPARE(help.Cell().block, 314);
    QVERIFY(back->isVisible());
    QApplication::processEvents();
    QVERIFY(back->isVisible());
    back->click();
    QCOMPARE(help.Cell().block, 313);
    QVERIFY(!back->isVisible());
    QTest::mouseClick(help.viewport(), Qt::LeftButton, {}, QPoint(1, 1)); // no link there
    QCOMPARE(help.Cell().block, 313);
}

void UpViewTest::theWayBackEndsWhereTheUserGoesElsewhere()
{
    Pane pane;
    pane.GoTo(313, 2, 1);
    CHelpView& help = pane.view.Help();
    auto* back = help.findChild<QToolButton*>();
    QTest::mouseClick(help.viewport(), Qt::LeftButton, {}, PlaceOfLink(help, 314));
    QVERIFY(back->isVisible());
    pane.GoTo(332, 2, 1);
    QVERIFY(!back->isVisible());
    QTest::keyClick(&help, Qt::Key_Backspace);
    QCOMPARE(help.Cell().block, 332);
}

void UpViewTest::theKeyboardReachesTheLinks()
{
    Pane pane;
    pane.GoTo(313, 2, 1);
    CHelpView& help = pane.view.Help();
    pane.view.activateWindow();
    help.setFocus(Qt::TabFocusReason);
    QTRY_VERIFY(help.hasFocus());
    QCOMPARE(help.ChosenLink(), -1);
    for (std::size_t i = 0; i < help.Links().size(); ++i) {
        QTest::keyClick(&help, Qt::Key_Tab);
        QCOMPARE(help.ChosenLink(), static_cast<int>(i));
    }
    QTest::keyClick(&help, Qt::Key_Backtab);
    QTest::keyClick(&help, Qt::Key_Tab);
    const int target = help.Links().back().block;
    QTest::keyClick(&help, Qt::Key_Return);
    QCOMPARE(help.Cell().block, target);
    QCOMPARE(help.ChosenLink(), -1);
    QTest::keyClick(&help, Qt::Key_Backspace);
    QCOMPARE(help.Cell().block, 313);
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

namespace {

/// What a page puts on a sheet of A4, 4 pixels a millimetre.
QImage Printed(CUpView& view)
{
    constexpr int perMillimetre = 4;
    QImage sheet(210 * perMillimetre, 297 * perMillimetre, QImage::Format_RGB32);
    sheet.setDotsPerMeterX(1000 * perMillimetre);
    sheet.setDotsPerMeterY(1000 * perMillimetre);
    sheet.fill(Qt::white);
    view.Print(sheet);
    return sheet;
}

/// The room of what is not white, above a line.
QRect InkAbove(const QImage& sheet, int bottom)
{
    QRect ink;
    for (int y = 0; y < bottom; ++y)
        for (int x = 0; x < sheet.width(); ++x)
            if (sheet.pixelColor(x, y) != Qt::white)
                ink |= QRect(x, y, 1, 1);
    return ink;
}

} // namespace

void UpViewTest::aPageStandsWholeOnTheSheetWithItsFoot_data()
{
    QTest::addColumn<int>("block");
    QTest::addColumn<int>("row");
    QTest::addRow("wide") << 402 << 1;
    QTest::addRow("long") << 543 << 2;
    QTest::addRow("as it is") << 310 << 1;
}

void UpViewTest::aPageStandsWholeOnTheSheetWithItsFoot()
{
    QFETCH(const int, block);
    QFETCH(const int, row);
    Pane pane;
    pane.GoTo(block, row, 1);
    const QImage sheet = Printed(pane.view);
    constexpr int margin = 40; // 10 mm
    constexpr int foot = 297 * 4 - margin - 16;
    const QRect page = InkAbove(sheet, foot - 4);
    QVERIFY(page.left() >= margin && page.right() <= sheet.width() - margin);
    QVERIFY(page.top() >= margin && page.bottom() < foot - 8);
    const QSize size = pane.view.Help().PictureSize(); // of the whole page, at the screen's size
    QVERIFY(size.isValid());
    // All of it: the last ink of the page lies where the page ends.
    const double fitting = std::min({1.0, (210 - 20) * 10.0 / (size.width() / pane.view.Help().Scale()),
                                     (297 - 20 - 7) * 10.0 / (size.height() / pane.view.Help().Scale())});
    if (fitting < 1.0)
        QVERIFY(page.right() > sheet.width() * 2 / 3 || page.bottom() > sheet.height() * 2 / 3);
    const QRect all = InkAbove(sheet, sheet.height());
    QVERIFY(all.bottom() > foot && all.bottom() < sheet.height() - margin + 4);
    QVERIFY(all.right() > sheet.width() - margin - 8); // the page number at the right
}

QTEST_MAIN(UpViewTest)
#include "up_view_test.moc"
