// The commands for what stands in the pane of the help page, and for printing and saving it.
#include "command_station.h"
#include "upperview/drawing_canvas.h"
#include "upperview/drawing_pane.h"
#include "upperview/figure_pane.h"
#include "upperview/help_view.h"
#include "upperview/up_view.h"

#include <QFileInfo>
#include <QPrinter>

using namespace sbd;

class HelpPaneCommandsTest : public QObject {
    Q_OBJECT

private slots:
    void theModelFigureTakesThePageAndGivesItBack();
    void theDrawingTakesThePageAndGivesItBack();
    void aClickInTheDrawingOpensTheRow();
    void blockOf253HasNoSwitchToTheModel();
    void theNotesTakeThePlaceOfThePage();
    void printingPutsThePageOnPaper();
    void withoutAPrinterTheUserIsTold();
    void nothingOfTheViewMayBeGivenWhilePrinting();
    void proposedNamesStandInTheProjectsFolderAndAreValidEverywhere();
};

void HelpPaneCommandsTest::theModelFigureTakesThePageAndGivesItBack()
{
    CommandStation station;
    station.Give(Command::SwitchFigureAndHelp);
    QVERIFY(station.child->UpView().currentWidget() == &station.child->UpView().Figure());
    station.Give(Command::ZoomIn);
    QVERIFY(station.child->UpView().Figure().View().zoom < 1.4);
    station.Give(Command::ViewXY);
    QCOMPARE(station.child->UpView().Figure().View().zoom, 1.4);
    station.Give(Command::SwitchFigureAndHelp);
    QVERIFY(station.child->UpView().currentWidget() != &station.child->UpView().Figure());
}

void HelpPaneCommandsTest::theDrawingTakesThePageAndGivesItBack()
{
    CommandStation station;
    CUpView& view = station.child->UpView();
    station.Give(Command::BridgeDrawing);
    QVERIFY(view.currentWidget() == &view.Drawing());
    QVERIFY(station.Action(Command::BridgeDrawing)->isChecked());
    station.Give(Command::ViewXY);
    QVERIFY(view.Drawing().Request().view == DrawingView::Plan);
    station.Give(Command::BridgeDrawing);
    QVERIFY(view.currentWidget() == &view.Help());
    station.Give(Command::SwitchFigureAndHelp);
    station.Give(Command::BridgeDrawing);
    QVERIFY(view.currentWidget() == &view.Drawing());
    station.Give(Command::SwitchFigureAndHelp); // what lies behind it
    QVERIFY(view.currentWidget() == &view.Figure());
    QVERIFY(!station.Action(Command::BridgeDrawing)->isChecked());
    station.child->GoToBlock(253);
    QVERIFY(!station.Action(Command::BridgeDrawing)->isEnabled());
}

void HelpPaneCommandsTest::aClickInTheDrawingOpensTheRow()
{
    CommandStation station;
    station.child->GoToBlock(301);
    station.Give(Command::BridgeDrawing);
    QApplication::processEvents();
    CDrawingPane& pane = station.child->UpView().Drawing();
    const SourceCell splice{321, 5, 0};
    const std::optional<QPointF> at = pane.Canvas().MiddleOf(splice);
    QVERIFY(at);
    QTest::mouseClick(&pane.Canvas(), Qt::LeftButton, {}, at->toPoint());
    QCOMPARE(station.child->CurrentBlock(), 321);
    QCOMPARE(station.child->Panel()->Grid()->FocusCell().row, 5);
    QCOMPARE(station.Doc().HelpRow(), 5); // and it is the red one now
    QVERIFY(station.child->UpView().currentWidget() == &pane);
}

void HelpPaneCommandsTest::blockOf253HasNoSwitchToTheModel()
{
    CommandStation station;
    station.child->GoToBlock(253);
    QVERIFY(!station.Action(Command::SwitchFigureAndHelp)->isEnabled());
    QVERIFY(!station.Action(Command::Notes)->isEnabled());
    station.child->GoToBlock(301);
    QVERIFY(station.Action(Command::SwitchFigureAndHelp)->isEnabled());
}

void HelpPaneCommandsTest::theNotesTakeThePlaceOfThePage()
{
    CommandStation station;
    station.Give(Command::SwitchFigureAndHelp);
    station.Give(Command::Notes);
    QCOMPARE(station.Doc().CurrentBlock(), 100);
    QVERIFY(station.Doc().showHelpPage);
    QCOMPARE(station.child->CurrentBlock(), 301); // the panel stays
}

void HelpPaneCommandsTest::printingPutsThePageOnPaper()
{
    CommandStation station;
    const QString file = station.folder.Path(u"page.pdf"_s);
    station.prompts.choosePrinter = [&](QWidget*, QPrinter& printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file);
        return true;
    };
    station.Start();
    station.Give(Command::Print);
    QVERIFY(Bytes(file).startsWith("%PDF"));
}

void HelpPaneCommandsTest::withoutAPrinterTheUserIsTold()
{
    CommandStation station;
    station.prompts.hasPrinter = [] { return false; };
    int dialogs = 0;
    station.prompts.choosePrinter = [&](QWidget*, QPrinter&) { return ++dialogs == 0; };
    station.prompts.previewPrint = [&](QWidget*, QPrinter&, const std::function<void(QPrinter&)>&) { ++dialogs; };
    QStringList told;
    station.prompts.warn = [&](QWidget*, const QString& text) { told += text; };
    station.Start();
    station.Give(Command::Print);
    station.Give(Command::PrintPreview);
    QCOMPARE(dialogs, 0);
    QCOMPARE(told.size(), 2);
    QVERIFY(told[0].contains(u"プリンター"_s));
}

void HelpPaneCommandsTest::nothingOfTheViewMayBeGivenWhilePrinting()
{
    CommandStation station;
    bool ran = true;
    station.prompts.previewPrint = [&](QWidget*, QPrinter&, const std::function<void(QPrinter&)>&) {
        ran = station.Action(Command::RunAll)->isEnabled() || station.Action(Command::ZoomIn)->isEnabled();
    };
    station.Start();
    station.Give(Command::PrintPreview);
    QVERIFY(!ran);
    QVERIFY(station.Action(Command::RunAll)->isEnabled());
}

void HelpPaneCommandsTest::proposedNamesStandInTheProjectsFolderAndAreValidEverywhere()
{
    CommandStation station;
    QStringList pictures;
    station.prompts.savePictureName = [&](QWidget*, const QString& proposal) {
        pictures.append(proposal);
        return QString();
    };
    QString job;
    QString file;
    station.prompts.choosePrinter = [&](QWidget*, QPrinter& printer) {
        job = printer.docName();
        file = printer.outputFileName();
        return false;
    };
    station.Start();
    const QString folder = QFileInfo(station.Doc().PathName()).path();
    station.child->GoToBlock(313);
    for (const bool saved : {false, true}) {
        if (saved)
            station.Give(Command::Save); // from then on the window's title is the whole path
        station.Give(Command::Print);
        QCOMPARE(job, u"plate4_313"_s);
#ifndef Q_OS_WIN
        QCOMPARE(file, folder + u"/plate4_313.pdf"_s);
#endif
        station.Give(Command::SavePicture);
        QCOMPARE(pictures.last(), folder + u"/plate4_313.png"_s);
    }
    station.Give(Command::Notes);
    station.Give(Command::SavePicture);
    QCOMPARE(pictures.last(), folder + u"/plate4_100.png"_s);
    station.child->GoToBlock(313);
    station.Give(Command::SavePicture);
    QCOMPARE(pictures.last(), folder + u"/plate4_313.png"_s);
#ifndef Q_OS_WIN // where such a name is possible
    QVERIFY(station.Doc().SaveDocument(station.folder.Path(u"a:b. .sbd"_s)).Ok());
    station.Give(Command::SavePicture);
    QCOMPARE(QFileInfo(pictures.last()).fileName(), u"a_b. _313.png"_s);
#endif
}

QTEST_MAIN(HelpPaneCommandsTest)
#include "help_pane_commands_test.moc"
