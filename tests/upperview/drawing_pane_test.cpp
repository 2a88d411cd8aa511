#include "document/section_doc.h"
#include "panelmodel/panel_editor.h"
#include "panelmodel/panel_model.h"
#include "project/text.h"
#include "tests/surroundings.h"
#include "upperview/drawing_canvas.h"
#include "upperview/drawing_pane.h"
#include "upperview/up_view.h"

#include <QApplication>
#include <QComboBox>
#include <QImage>
#include <QLabel>
#include <QListWidget>
#include <QPainter>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>
#include <memory>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

struct Shown {
    CKELDSectionDoc doc;
    std::unique_ptr<CDrawingPane> pane;

    explicit Shown(const char* name = "plate4")
    {
        const QString project = QString::fromLatin1(name);
        static_cast<void>(doc.OpenDocument(QString::fromUtf8(test::ExamplesFolder()) + u"/%1/%1.sbd"_s.arg(project)));
        pane = std::make_unique<CDrawingPane>(&doc);
        pane->resize(1200, 500);
        pane->show();
        QApplication::processEvents();
    }
    [[nodiscard]] CDrawingCanvas& Canvas() const { return pane->Canvas(); }
    [[nodiscard]] QImage Picture() const
    {
        QImage picture(Canvas().size(), QImage::Format_RGB32);
        QPainter painter(&picture);
        pane->PaintPicture(painter);
        return picture;
    }
    void Wheel(QPointF at, int notches) const
    {
        QWheelEvent event(at, Canvas().mapToGlobal(at), {}, {0, 120 * notches}, Qt::NoButton, Qt::NoModifier,
                          Qt::NoScrollPhase, false);
        QApplication::sendEvent(&Canvas(), &event);
        QApplication::processEvents();
    }
    /// Writes a cell as a panel does.
    void Type(int block, int row, int column, const char* utf8)
    {
        const std::unique_ptr<CPanelModel> panel = MakePanelModel(doc.Data(), block);
        CPanelEditor(*panel).SetCell(row, column, Cp932(utf8));
        PanelEdit edit;
        edit.place.block = block;
        edit.name = "x";
        edit.write = [&](CProjectWriter& writer) { panel->Commit(writer); };
        edit.isModified = [] { return true; };
        edit.looseAfter = [] { return LooseRows(); };
        doc.Commit(edit);
        QApplication::processEvents();
    }
};

int RedPixels(const QImage& picture)
{
    int count = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); ++x) {
            const QColor colour = picture.pixelColor(x, y);
            count += colour.red() > 200 && colour.green() < 60 && colour.blue() < 60 ? 1 : 0;
        }
    return count;
}

} // namespace

class DrawingPaneTest : public QObject {
    Q_OBJECT

private slots:
    void eachViewIsDrawnOfEachExample_data();
    void eachViewIsDrawnOfEachExample();
    void aClickOnAPartWantsTheRowThatMadeIt();
    void thePointerIsToldBlockRowAndValues();
    void theRowUnderTheCursorIsRed();
    void aRowThatIsNotInTheDrawingIsSaid();
    void theDrawingOfTheRowIsAClickAway();
    void aRowThatNoDrawingShowsIsSaid();
    void onlyWhatAChangeConcernsIsMadeAgain();
    void theWheelKeepsWhatLiesUnderThePointer();
    void aRectangleFillsThePaneAndADoubleClickFits();
    void eachViewStaysWhereItWasLeft();
    void theChosenGirderStaysWhereAnotherViewIsChosen();
    void whatCannotBeDrawnIsListedAndLeadsToItsCell();
    void heightsAreStretched();
    void theCommandsOfThePlanesChooseTheView();
    void aProjectWithoutNamesSaysWhyNothingIsThere();
    void theSheetIsPrinted();
};

void DrawingPaneTest::eachViewIsDrawnOfEachExample_data()
{
    QTest::addColumn<int>("view");
    for (const char* name : {"plate4", "box2", "single1"})
        for (const int view : {0, 1, 2, 3})
            QTest::addRow("%s %d", name, view) << view;
}

void DrawingPaneTest::eachViewIsDrawnOfEachExample()
{
    QFETCH(int, view);
    const QByteArray name = QByteArray(QTest::currentDataTag()).split(' ').front();
    Shown shown(name.constData());
    shown.pane->Show(static_cast<DrawingView>(view));
    QApplication::processEvents();
    const BridgeDrawing& drawing = shown.Canvas().Drawing();
    QVERIFY(!drawing.title.empty() || !drawing.notes.empty());
    QVERIFY(name == "single1" || drawing.shapes.size() > 5);
    const QImage picture = shown.Picture();
    int inked = 0;
    for (int y = 0; y < picture.height(); ++y)
        for (int x = 0; x < picture.width(); x += 3)
            inked += picture.pixelColor(x, y) != picture.pixelColor(0, 0) ? 1 : 0;
    const int least = drawing.shapes.empty() ? 20 : 100;
    QVERIFY2(inked > least, qPrintable(u"only %1 pixels for %2 shapes"_s.arg(inked).arg(drawing.shapes.size())));
}

void DrawingPaneTest::aClickOnAPartWantsTheRowThatMadeIt()
{
    const Shown shown;
    QSignalSpy wanted(shown.pane.get(), &CDrawingPane::cellWanted);
    for (const int block : {321, 313, 314}) {
        const auto& shapes = shown.Canvas().Drawing().shapes;
        const auto part =
            std::ranges::find_if(shapes, [&](const DrawnShape& each) { return each.source.block == block; });
        QVERIFY(part != shapes.end());
        const std::optional<QPointF> at = shown.Canvas().MiddleOf(part->source);
        QVERIFY(at);
        QTest::mouseClick(&shown.Canvas(), Qt::LeftButton, {}, at->toPoint());
        QCOMPARE(wanted.size(), 1);
        QCOMPARE(wanted[0][0].toInt(), block);
        QCOMPARE(wanted[0][1].toInt(), part->source.row);
        wanted.clear();
    }
}

void DrawingPaneTest::thePointerIsToldBlockRowAndValues()
{
    const Shown shown;
    const QString words = shown.pane->WordsOf({313, 2, 8});
    QVERIFY2(words.contains(u"313"_s) && words.contains(u"2 行目"_s), qPrintable(words));
    QVERIFY2(words.contains(u"G1"_s) && words.contains(u"▶"_s), qPrintable(words));
}

void DrawingPaneTest::theRowUnderTheCursorIsRed()
{
    Shown shown;
    const int before = RedPixels(shown.Picture());
    shown.doc.SetCurrentBlock(332);
    shown.doc.SetHelpCell(332, 5, 8);
    shown.pane->Refresh();
    QVERIFY(RedPixels(shown.Picture()) > before + 20);
    QCOMPARE(shown.pane->TimesMade(), 1); // the parts are the same
}

void DrawingPaneTest::aRowThatIsNotInTheDrawingIsSaid()
{
    Shown shown;
    shown.Type(313, 2, 2, "G1"); // the first row is of G1 alone now
    shown.pane->ShowItem(3);
    shown.doc.SetCurrentBlock(313);
    shown.doc.SetHelpCell(313, 2, 1);
    shown.pane->Refresh();
    const QList<QLabel*> labels = shown.pane->findChildren<QLabel*>();
    QVERIFY(std::ranges::any_of(labels,
                                [](const QLabel* label) { return label->text().contains(u"この図にありません"_s); }));
}

void DrawingPaneTest::theDrawingOfTheRowIsAClickAway()
{
    Shown shown;
    auto* button = shown.pane->findChild<QToolButton*>();
    QVERIFY(button->isHidden());
    const auto goTo = [&](int block, int row) {
        shown.doc.SetCurrentBlock(block);
        shown.doc.SetHelpCell(block, row, 1);
        shown.pane->Refresh();
        QVERIFY2(button->isVisible(), qPrintable(u"%1 row %2"_s.arg(block).arg(row)));
        QTest::mouseClick(button, Qt::LeftButton);
        QVERIFY(button->isHidden());
        QVERIFY(SpeaksOf(shown.Canvas().Drawing(), {block, row, 0}));
    };
    shown.Type(313, 2, 2, "G1"); // the first row is of G1 alone now
    shown.pane->ShowItem(3);
    goTo(313, 2);
    QCOMPARE(shown.pane->Request().view, DrawingView::Elevation);
    QCOMPARE(shown.pane->Request().girder, 0U);
    goTo(341, 24); // another view: the eighth joint
    QCOMPARE(shown.pane->Request().view, DrawingView::Joint);
    QCOMPARE(shown.pane->Request().joint, 7U);
    goTo(341, 2); // the same view, round the end of its names
    QCOMPARE(shown.pane->Request().joint, 0U);
}

void DrawingPaneTest::aRowThatNoDrawingShowsIsSaid()
{
    Shown shown;
    auto* button = shown.pane->findChild<QToolButton*>();
    shown.doc.SetCurrentBlock(341);
    for (const int row : {1, 900}) { // the control row; one that is yet to be typed
        shown.doc.SetHelpCell(341, row, 1);
        shown.pane->Refresh();
        QVERIFY(button->isHidden());
    }
    shown.Type(341, 24, 3, "J99");
    shown.doc.SetHelpCell(341, 24, 3);
    shown.pane->Refresh();
    QVERIFY(button->isVisible());
    const DrawingRequest before = shown.pane->Request();
    QTest::mouseClick(button, Qt::LeftButton);
    QVERIFY(button->isHidden());
    QCOMPARE(shown.pane->Request(), before);
    const QList<QLabel*> labels = shown.pane->findChildren<QLabel*>();
    QVERIFY(std::ranges::any_of(labels, [](const QLabel* label) { return label->text().contains(u"どの図にも"_s); }));
}

void DrawingPaneTest::onlyWhatAChangeConcernsIsMadeAgain()
{
    Shown shown;
    QCOMPARE(shown.pane->TimesMade(), 1);
    shown.Type(573, 3, 1, "G2"); // the plan alone
    QCOMPARE(shown.pane->TimesMade(), 1);
    const std::size_t parts = shown.Canvas().Drawing().shapes.size();
    shown.Type(313, 2, 8, "9");
    QCOMPARE(shown.pane->TimesMade(), 2);
    QVERIFY(shown.Canvas().Drawing().shapes.size() != parts);
    shown.pane->hide();
    shown.Type(313, 2, 8, "8");
    QCOMPARE(shown.pane->TimesMade(), 2); // nobody sees it
    shown.pane->show();
    QApplication::processEvents();
    QCOMPARE(shown.pane->TimesMade(), 3);
}

void DrawingPaneTest::theWheelKeepsWhatLiesUnderThePointer()
{
    const Shown shown;
    const SourceCell splice = [&] {
        for (const DrawnShape& shape : shown.Canvas().Drawing().shapes)
            if (shape.source.block == 321)
                return shape.source;
        return SourceCell();
    }();
    const QPointF at = *shown.Canvas().MiddleOf(splice);
    for (const int notches : {3, 5, -2, 20, -40}) {
        shown.Wheel(at, notches);
        const QPointF now = *shown.Canvas().MiddleOf(splice);
        QVERIFY2((now - at).manhattanLength() < 3, qPrintable(u"%1 %2"_s.arg(now.x()).arg(now.y())));
    }
}

void DrawingPaneTest::aRectangleFillsThePaneAndADoubleClickFits()
{
    const Shown shown;
    const QRect box(300, 40, 120, 60);
    QTest::mousePress(&shown.Canvas(), Qt::LeftButton, {}, box.topLeft());
    QTest::mouseMove(&shown.Canvas(), box.bottomRight());
    QTest::mouseRelease(&shown.Canvas(), Qt::LeftButton, {}, box.bottomRight());
    QVERIFY(shown.Canvas().View().zoom < kFitZoom / 3);
    QTest::mouseDClick(&shown.Canvas(), Qt::LeftButton, {}, QPoint(100, 100));
    QCOMPARE(shown.Canvas().View().zoom, kFitZoom);
    QTest::mousePress(&shown.Canvas(), Qt::RightButton, {}, QPoint(100, 100));
    QTest::mouseMove(&shown.Canvas(), QPoint(150, 120));
    QTest::mouseRelease(&shown.Canvas(), Qt::RightButton, {}, QPoint(150, 120));
    QVERIFY(shown.Canvas().View().slideX > 0 && shown.Canvas().View().slideY > 0);
}

void DrawingPaneTest::eachViewStaysWhereItWasLeft()
{
    const Shown shown;
    shown.Wheel({400, 100}, 4);
    const FigureView left = shown.Canvas().View();
    shown.pane->Show(DrawingView::Plan);
    QVERIFY(!(shown.Canvas().View() == left));
    shown.pane->Show(DrawingView::Elevation);
    QVERIFY(shown.Canvas().View() == left);
}

void DrawingPaneTest::theChosenGirderStaysWhereAnotherViewIsChosen()
{
    Shown shown;
    shown.pane->ShowItem(2);
    QCOMPARE(shown.pane->Request().girder, std::size_t{2});
    shown.pane->Show(DrawingView::Section);
    shown.pane->ShowItem(4);
    QCOMPARE(shown.pane->Request().station, std::size_t{4});
    shown.pane->Show(DrawingView::Elevation);
    QCOMPARE(shown.pane->Request().girder, std::size_t{2});
    QVERIFY(shown.doc.Reload());
    QCOMPARE(shown.pane->Request().girder, std::size_t{2});
    shown.pane->Show(DrawingView::Joint);
    QVERIFY(toQString(shown.Canvas().Drawing().title).startsWith(u"G3 J1"_s));
}

void DrawingPaneTest::whatCannotBeDrawnIsListedAndLeadsToItsCell()
{
    Shown shown;
    shown.Type(321, 3, 7, "60"); // m: outside of its bay
    QListWidget& list = shown.pane->Omissions();
    const QList<QListWidgetItem*> lines = list.findItems(u"321 の 3行目"_s, Qt::MatchContains);
    QCOMPARE(lines.size(), 1);
    QVERIFY(list.isVisible());
    QSignalSpy wanted(shown.pane.get(), &CDrawingPane::cellWanted);
    list.setCurrentItem(lines[0]);
    QTest::keyClick(&list, Qt::Key_Return);
    QCOMPARE(wanted.size(), 1);
    QCOMPARE(wanted[0], (QList<QVariant>{321, 3, 7}));
}

void DrawingPaneTest::heightsAreStretched()
{
    const Shown shown;
    const auto height = [&] {
        const auto& shapes = shown.Canvas().Drawing().shapes;
        const auto part = std::ranges::find_if(shapes, [](const DrawnShape& each) { return each.source.block == 315; });
        const auto other =
            std::ranges::find_if(shapes, [](const DrawnShape& each) { return each.source.block == 332; });
        return shown.Canvas().MiddleOf(part->source)->y() - shown.Canvas().MiddleOf(other->source)->y();
    };
    const double once = height();
    shown.pane->SetExaggeration(5);
    QVERIFY(std::abs(height()) > 2 * std::abs(once));
}

void DrawingPaneTest::theCommandsOfThePlanesChooseTheView()
{
    CKELDSectionDoc doc;
    QVERIFY(doc.OpenDocument(QString::fromUtf8(test::ExamplesFolder()) + u"/plate4/plate4.sbd"_s).Ok());
    CUpView view(&doc);
    view.resize(900, 400);
    view.show();
    doc.showDrawing = true;
    view.Refresh();
    QVERIFY(view.currentWidget() == &view.Drawing());
    view.RunViewCommand(Command::ViewXY);
    QVERIFY(view.Drawing().Request().view == DrawingView::Plan);
    view.RunViewCommand(Command::ViewYZ);
    QVERIFY(view.Drawing().Request().view == DrawingView::Section);
    view.RunViewCommand(Command::ZoomIn);
    QVERIFY(view.Drawing().Canvas().View().zoom < kFitZoom);
    view.RunViewCommand(Command::ViewAll);
    QCOMPARE(view.Drawing().Canvas().View().zoom, kFitZoom);
    QVERIFY(doc.showHelpPage); // what lies behind stays as it was
    doc.SetCurrentBlock(253);
    view.Refresh();
    QVERIFY(view.currentWidget() != &view.Drawing()); // the result is on show there
    doc.SetCurrentBlock(255);
    view.Refresh();
    QVERIFY(view.currentWidget() != &view.Drawing()); // and the report here
}

void DrawingPaneTest::aProjectWithoutNamesSaysWhyNothingIsThere()
{
    CKELDSectionDoc doc;
    CDrawingPane pane(&doc);
    pane.resize(600, 300);
    pane.show();
    for (const DrawingView view :
         {DrawingView::Elevation, DrawingView::Section, DrawingView::Plan, DrawingView::Joint}) {
        pane.Show(view);
        QApplication::processEvents();
        QVERIFY(!pane.Canvas().Drawing().notes.empty());
        QTest::mouseClick(&pane.Canvas(), Qt::LeftButton, {}, QPoint(50, 50));
        QWheelEvent event(QPointF(5, 5), QPointF(5, 5), {}, {0, 120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase,
                          false);
        QApplication::sendEvent(&pane.Canvas(), &event);
    }
}

void DrawingPaneTest::theSheetIsPrinted()
{
    const Shown shown;
    QImage sheet(1600, 1130, QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    shown.pane->PrintSheet(painter);
    painter.end();
    // Plan, elevation and section: ink between the frame's edges from top to bottom.
    for (const int from : {0, 350, 750}) {
        int inked = 0;
        for (int y = from; y < from + 300; ++y)
            for (int x = 100; x < 1'000; ++x)
                inked += sheet.pixelColor(x, y) != Qt::white ? 1 : 0;
        QVERIFY(inked > 1'000);
    }
    // The frame, and the title block in its corner.
    int dark = 0;
    for (int x = 1550; x < 1570; ++x)
        dark += sheet.pixelColor(x, 700).lightness() < 128 ? 1 : 0;
    QVERIFY(dark >= 2 && dark <= 4);
}

} // namespace sbd

QTEST_MAIN(sbd::DrawingPaneTest)
#include "drawing_pane_test.moc"
