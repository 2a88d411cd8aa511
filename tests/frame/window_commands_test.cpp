// Every command of menus and tool bar, given through the real window.
#include "answers.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/command_actions.h"
#include "frame/left_view.h"
#include "frame/main_frame.h"
#include "frame/settings.h"
#include "grid/grid_ctrl.h"
#include "menu_entries.h"
#include "panels/command_text.h"
#include "panels/panel.h"
#include "project/catalogue.h"
#include "tests/document/data_of.h"
#include "upperview/drawing_canvas.h"
#include "upperview/drawing_pane.h"
#include "upperview/figure_pane.h"
#include "upperview/help_view.h"
#include "upperview/up_view.h"

#include <QApplication>
#include <QDialog>
#include <QHeaderView>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QPrinter>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>
#include <QToolBar>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

struct Station {
    TestFolder folder;
    Answers user;
    Prompts prompts = user.Dialogs();
    std::unique_ptr<CMainFrame> frame;
    CChildFrame* child = nullptr;

    Station()
    {
        prompts.runs.runEngine = [this](QWidget*, const EngineStart& start) {
            engines.append(start.engine);
            return EngineEnd{.started = true};
        };
        Start();
    }
    /// A start of the program with the profile as it stands.
    void Start()
    {
        child = nullptr;
        frame = std::make_unique<CMainFrame>(prompts);
        frame->resize(1366, 768);
        frame->show();
        child = frame->OpenProject(folder.Example(u"plate4"_s));
        QApplication::processEvents();
    }
    [[nodiscard]] QAction* Action(Command command) const { return frame->Actions().Of(command); }
    /// Gives a command as the menu and the tool bar do.
    void Give(Command command) const
    {
        Action(command)->trigger();
        QApplication::processEvents();
    }
    [[nodiscard]] CKELDSectionDoc& Doc() const { return child->Doc(); }
    [[nodiscard]] CGridCtrl& Grid() const { return *child->Panel()->Grid(); }
    [[nodiscard]] QStringList TopItems() const
    {
        QStringList texts;
        for (int i = 0; i < child->Tree().topLevelItemCount(); ++i)
            texts.append(child->Tree().topLevelItem(i)->text(0));
        return texts;
    }

    QStringList engines;
};

QStringList DataMenuTexts(const CMainFrame& frame)
{
    QStringList texts;
    for (QAction* top : frame.menuBar()->actions()) {
        if (top->text() == u"データ入力(&I)"_s) {
            for (QAction* entry : Entries(top->menu()))
                texts.append(entry->text());
        }
    }
    return texts;
}

} // namespace

class WindowCommandsTest : public QObject {
    Q_OBJECT

private slots:
    void everyCommandCanBeGiven_data();
    void everyCommandCanBeGiven();
    void everyCommandHasAHandlerOrIsCarriedOutOutside();
    void withoutAProjectTheCommandsOfProjectsAreOff();
    void everyEntryOfTheDataMenuOpensItsBlockOrRuns();
    void theDataMenuMarksTheBlockOnShow();
    void theToolBarStandsInItsOrder();
    void theVersionStandsAtPositionEight();

    void rowHeightGrowsShrinksAndStopsAtEighteen();
    void columnsWidenAndNarrow();
    void cellsGoBackToTheStart();
    void columnsStayInSightByCommandABlockAndAUser();
    void widthsThatAreGivenStayABlockAndAUser();
    void theSizeOfTheCellsStaysForTheNextStart();
    void wordListsAreSwitchedOffAndOn();
    void theCellStaysWhereItWasWhenThePanelIsBuiltAnew();
    void theLanguageRetitlesTreeAndMenu();
    void theDataMenuFollowsTheTypeOfTheProject();
    void filtersCountOnlyWhenNotEverythingIsShown();
    void paneSizesAreKeptOnlyWhenAskedFor();
    void panesOfALargerScreenFitThisOne();
    void colourAndFontAreKept();
    void theResetKeepsTheCells();
    void decimalsBelongToTheProject();
    void windowsOrTabsIsTheUsersChoice();
    void theTitleNamesTheProjectWithTabsToo();
    void proposedNamesStandInTheProjectsFolderAndAreValidEverywhere();
    void theAboutBoxNamesTheVersionOfTheMenuBar();

    void theModelFigureTakesThePageAndGivesItBack();
    void theDrawingTakesThePageAndGivesItBack();
    void aClickInTheDrawingOpensTheRow();
    void blockOf253HasNoSwitchToTheModel();
    void theNotesTakeThePlaceOfThePage();
    void printingPutsThePageOnPaper();
    void withoutAPrinterTheUserIsTold();
    void nothingOfTheViewMayBeGivenWhilePrinting();
    void documentsAndPagesGoOutside();
    void homePagesFollowTheDeployment();
    void undoCanBeGivenWhileThereIsSomethingToTakeBack();
    void theSearchKeyStandsInTheSearchLine();
    void searchLeadsToTheCell();
    void everyCommandCanBeReachedByKeys();
};

void WindowCommandsTest::everyCommandCanBeGiven_data()
{
    QTest::addColumn<Command>("command");
    for (const CommandRow& row : CommandTable()) {
        QTest::newRow(qPrintable(CommandWords(row.text))) << row.command;
    }
}

void WindowCommandsTest::everyCommandCanBeGiven()
{
    QFETCH(const Command, command);
    Station station;
    station.child->GoToBlock(313);
    station.Grid().SetFocusCell(3, 2);
    QTimer dismiss; // a dialog that waits for an answer gets none
    QObject::connect(&dismiss, &QTimer::timeout, [] {
        if (auto* dialog = qobject_cast<QDialog*>(QApplication::activeModalWidget()))
            dialog->reject();
    });
    dismiss.start(20);
    station.Give(command);
    QVERIFY(station.frame->isVisible() || command == Command::Exit);
    QVERIFY(command == Command::WordLists || station.user.warned.isEmpty());
}

void WindowCommandsTest::everyCommandHasAHandlerOrIsCarriedOutOutside()
{
    const Station station;
    for (const CommandRow& row : CommandTable()) {
        QVERIFY2(station.frame->HasHandler(row.command) || row.owner == CommandOwner::Outside,
                 qPrintable(u"nobody carries out: "_s + CommandWords(row.text)));
        QVERIFY2(!station.frame->HasHandler(row.command) || row.owner == CommandOwner::Frame,
                 qPrintable(u"the handler is never called, the owner is outside: "_s + CommandWords(row.text)));
    }
}

void WindowCommandsTest::withoutAProjectTheCommandsOfProjectsAreOff()
{
    Station station;
    station.child->close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    for (const CommandRow& row : CommandTable()) {
        const bool always = row.needs == CommandNeeds::Nothing;
        QVERIFY2(station.Action(row.command)->isEnabled() == always, qPrintable(CommandWords(row.text)));
        if (!always)
            station.frame->RunCommand(row.command); // nothing happens
    }
}

void WindowCommandsTest::everyEntryOfTheDataMenuOpensItsBlockOrRuns()
{
    Station station;
    for (const CatalogueRow& row : Catalogue()) {
        if (row.menuText.empty())
            continue;
        station.child->GoToBlock(301);
        station.engines.clear();
        station.frame->OpenBlock(row.block);
        QApplication::processEvents();
        if (RunOfBlock(row.block))
            QCOMPARE(station.engines.size(), 1);
        else
            QCOMPARE(station.child->CurrentBlock(), CanonicalBlock(row.block));
    }
}

void WindowCommandsTest::theDataMenuMarksTheBlockOnShow()
{
    Station station;
    station.child->GoToBlock(512);
    QStringList marked;
    for (QAction* top : station.frame->menuBar()->actions()) {
        if (top->text() != u"データ入力(&I)"_s)
            continue;
        emit top->menu()->aboutToShow();
        for (QAction* entry : Entries(top->menu())) {
            if (entry->isChecked())
                marked.append(entry->text());
        }
    }
    QCOMPARE(marked, QStringList(u"512.主桁断面"_s));
}

void WindowCommandsTest::theToolBarStandsInItsOrder()
{
    const Station station;
    QList<QAction*> wanted;
    for (const Command command : ToolBarItems())
        wanted.append(command == kSeparator ? nullptr : station.Action(command));
    QList<QAction*> there;
    for (QAction* action : station.frame->findChild<QToolBar*>()->actions()) {
        there.append(action->isSeparator() ? nullptr : action);
        QVERIFY(action->isSeparator() || !action->icon().isNull());
    }
    QCOMPARE(there, wanted);
}

void WindowCommandsTest::theVersionStandsAtPositionEight()
{
    const Station station;
    QCOMPARE(station.frame->menuBar()->actions().size(), 9);
    QCOMPARE(station.frame->menuBar()->actions().at(8)->text(), u"Ver20110808"_s);
}

void WindowCommandsTest::rowHeightGrowsShrinksAndStopsAtEighteen()
{
    Station station;
    station.child->GoToBlock(313);
    const int first = station.Grid().rowHeight(1);
    station.Give(Command::RowsHigher);
    QCOMPARE(CSettings().RowHeight(), 21);
    QCOMPARE(station.Grid().rowHeight(1), first + 3);
    station.Start(); // the next program has it too
    station.child->GoToBlock(313);
    QCOMPARE(station.Grid().rowHeight(1), first + 3);
    for (int i = 0; i < 3; ++i)
        station.Give(Command::RowsLower);
    QCOMPARE(CSettings().RowHeight(), 18);
    QCOMPARE(station.Grid().rowHeight(1), first);
}

void WindowCommandsTest::columnsWidenAndNarrow()
{
    Station station;
    station.child->GoToBlock(313);
    const int first = station.Grid().columnWidth(1);
    station.Give(Command::ColumnsWider);
    const int wider = station.Grid().columnWidth(1);
    QVERIFY(wider > first);
    station.Give(Command::ColumnsNarrower);
    QVERIFY(station.Grid().columnWidth(1) < wider);
}

void WindowCommandsTest::cellsGoBackToTheStart()
{
    Station station;
    station.child->GoToBlock(313);
    const int height = station.Grid().rowHeight(1);
    const int width = station.Grid().columnWidth(1);
    station.Give(Command::RowsHigher);
    station.Give(Command::ColumnsWider);
    station.Give(Command::ResetCells);
    QCOMPARE(station.Grid().rowHeight(1), height);
    QCOMPARE(station.Grid().columnWidth(1), width);
    QCOMPARE(CSettings().RowHeight(), 18);
    QCOMPARE(CSettings().RowWidthMode(), 0);
}

void WindowCommandsTest::columnsStayInSightByCommandABlockAndAUser()
{
    Station station;
    station.child->GoToBlock(313);
    station.child->FocusPanel();
    QCOMPARE(station.Grid().FrozenColumns(), 4); // the ranges of girders and cross beams
    QVERIFY(station.Action(Command::FreezeColumns)->isChecked());
    station.Give(Command::FreezeColumns);
    QCOMPARE(station.Grid().FrozenColumns(), 0);
    QVERIFY(!station.Action(Command::FreezeColumns)->isChecked());
    station.Grid().SetFocusCell(3, 2);
    QTest::keyClick(&station.Grid(), Qt::Key_K, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(station.Grid().FrozenColumns(), 2);
    station.child->GoToBlock(314); // another block has its own
    QCOMPARE(station.Grid().FrozenColumns(), 4);
    station.Start(); // the next program has it too
    station.child->GoToBlock(313);
    QCOMPARE(station.Grid().FrozenColumns(), 2);
    station.child->GoToBlock(301);
    QCOMPARE(station.Grid().FrozenColumns(), 0); // labels and values are all seen
}

void WindowCommandsTest::widthsThatAreGivenStayABlockAndAUser()
{
    Station station;
    station.child->GoToBlock(313);
    const auto pull = [&station](int column, int pixels) {
        QHeaderView& heads = *station.Grid().horizontalHeader();
        const QPoint border(heads.sectionViewportPosition(column) + heads.sectionSize(column) - 1, 5);
        QTest::mousePress(heads.viewport(), Qt::LeftButton, {}, border);
        for (const int step : {pixels / 2, pixels}) {
            const QPoint to = border + QPoint(step, 0);
            QMouseEvent move(QEvent::MouseMove, to, heads.viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                             {});
            QApplication::sendEvent(heads.viewport(), &move);
        }
        QTest::mouseRelease(heads.viewport(), Qt::LeftButton, {}, border + QPoint(pixels, 0));
    };
    const int width = station.Grid().columnWidth(1);
    pull(1, 40);
    QCOMPARE(station.Grid().columnWidth(1), width + 40);
    station.child->GoToBlock(314);
    station.child->GoToBlock(313);
    QCOMPARE(station.Grid().columnWidth(1), width + 40);
    station.Start();
    station.child->GoToBlock(313);
    QCOMPARE(station.Grid().columnWidth(1), width + 40);
    station.Give(Command::ColumnsWider); // on top of what was given by hand
    QVERIFY(station.Grid().columnWidth(1) > width + 40);
    QCOMPARE(station.Grid().columnWidth(1) - station.Grid().columnWidth(2), 40); // both as wide at first
    station.Give(Command::ResetCells);
    QCOMPARE(station.Grid().columnWidth(1), width);
    station.Start();
    station.child->GoToBlock(313);
    QCOMPARE(station.Grid().columnWidth(1), width);
}

void WindowCommandsTest::theSizeOfTheCellsStaysForTheNextStart()
{
    Station station;
    station.child->GoToBlock(313);
    station.Give(Command::ZoomCellsIn);
    station.Give(Command::ZoomCellsIn);
    QCOMPARE(station.Grid().Zoom(), 120);
    station.Start();
    station.child->GoToBlock(313);
    QCOMPARE(station.Grid().Zoom(), 120);
    station.Give(Command::ZoomCellsReset);
    station.Start();
    QCOMPARE(station.Grid().Zoom(), 100);
}

void WindowCommandsTest::wordListsAreSwitchedOffAndOn()
{
    Station station;
    station.child->GoToBlock(301);
    QVERIFY(station.Grid().Source()->HasWords(2, 2));
    QVERIFY(station.Action(Command::WordLists)->isChecked());
    station.Give(Command::WordLists);
    QVERIFY(!station.Grid().Source()->HasWords(2, 2));
    QVERIFY(!station.Action(Command::WordLists)->isChecked());
    QCOMPARE(CSettings().ComboOrList(), 2);
    station.Start();
    QVERIFY(!station.Grid().Source()->HasWords(2, 2));
    station.Give(Command::WordLists);
    QVERIFY(station.Grid().Source()->HasWords(2, 2));
}

void WindowCommandsTest::theCellStaysWhereItWasWhenThePanelIsBuiltAnew()
{
    Station station;
    station.child->GoToBlock(313);
    station.child->Panel()->GoToCell(5, 6);
    station.Give(Command::RowsHigher);
    QCOMPARE(station.Grid().currentIndex().row(), 4);
    QCOMPARE(station.Grid().currentIndex().column(), 5);
    QVERIFY(!station.Doc().IsModified());
}

void WindowCommandsTest::theLanguageRetitlesTreeAndMenu()
{
    Station station;
    QVERIFY(station.TopItems().contains(u"300.主桁自動設計MAIN_CONTROL"_s));
    station.Give(Command::English);
    QVERIFY(station.TopItems().contains(u"300.[MAIN_CONTROL]"_s));
    QVERIFY2(DataMenuTexts(*station.frame).contains(u"313.[VERTICAL_STIFF](必要)"_s)
                 || !DataMenuTexts(*station.frame).filter(u"313.["_s).isEmpty(),
             qPrintable(DataMenuTexts(*station.frame).filter(u"313"_s).join(u'|')));
    QVERIFY(station.Action(Command::English)->isChecked());
    QVERIFY(!station.Action(Command::Japanese)->isChecked());
    station.Start();
    QVERIFY(station.TopItems().contains(u"300.[MAIN_CONTROL]"_s));
    station.Give(Command::EnglishAndJapanese);
    QVERIFY(station.TopItems().contains(u"300.主桁自動設計MAIN_CONTROL[MAIN_CONTROL]"_s));
    station.Give(Command::Japanese);
    QVERIFY(station.TopItems().contains(u"300.主桁自動設計MAIN_CONTROL"_s));
    QVERIFY(!DataMenuTexts(*station.frame).filter(u"313.垂直補剛材"_s).isEmpty());
}

void WindowCommandsTest::theDataMenuFollowsTheTypeOfTheProject()
{
    Station station;
    station.child->SwitchToBlock(302); // the panel of 301 would write its own
    test::DataOf(station.Doc()).SetOption(301, 2, *fromQString(u"ブラケット"_s));
    test::TellChanged(station.Doc(), {301, 2});
    for (QAction* top : station.frame->menuBar()->actions()) {
        if (top->text() == u"データ入力(&I)"_s)
            emit top->menu()->aboutToShow();
    }
    QVERIFY(DataMenuTexts(*station.frame).contains(u"301.ブラケット_CONTROL(必要)"_s));
}

void WindowCommandsTest::filtersCountOnlyWhenNotEverythingIsShown()
{
    Station station;
    QVERIFY(station.Action(Command::ShowAllItems)->isChecked());
    QVERIFY(!station.Action(Command::HideFem)->isEnabled());
    station.Give(Command::ShowUnfilteredItems);
    QVERIFY(station.Action(Command::ShowUnfilteredItems)->isChecked());
    QVERIFY(!station.Action(Command::ShowAllItems)->isChecked());
    QVERIFY(!station.TopItems().filter(u"600."_s).isEmpty());
    station.Give(Command::HideFem);
    QVERIFY(station.Action(Command::HideFem)->isChecked());
    QVERIFY(station.TopItems().filter(u"600."_s).isEmpty());
    station.Give(Command::HideFem);
    QVERIFY(!station.TopItems().filter(u"600."_s).isEmpty());
    station.Give(Command::HideFem);
    station.Give(Command::ShowAllItems);
    QVERIFY(!station.TopItems().filter(u"600."_s).isEmpty());
}

void WindowCommandsTest::paneSizesAreKeptOnlyWhenAskedFor()
{
    Station station;
    PaneSizes sizes = station.child->ComputedPanes();
    sizes.left += 77;
    sizes.up -= 55;
    station.child->SetPanes(sizes);
    QApplication::processEvents();
    const int up = station.child->UpView().height();
    station.Start();
    QVERIFY(station.child->UpView().height() != up);
    station.child->SetPanes(sizes);
    QApplication::processEvents();
    station.Give(Command::SavePanes);
    station.Start();
    QCOMPARE(station.child->UpView().height(), up);
    station.Give(Command::ResetDisplay); // as at first
    QCOMPARE(station.child->UpView().height(), station.child->ComputedPanes().up);
}

void WindowCommandsTest::panesOfALargerScreenFitThisOne()
{
    Station station;
    station.child->SetPanes({5000, 4000, 0});
    QApplication::processEvents();
    constexpr int labels = 470; // px, numbers and labels of 301
    QVERIFY2(station.child->UpView().width() >= labels, qPrintable(QString::number(station.child->UpView().width())));
    QVERIFY(station.child->Panel()->height() >= 150);
    QVERIFY(station.child->UpView().height() > 0);
    CSettings().SetPanes({5000, 4000, 0});
    station.Start();
    QVERIFY(station.child->UpView().width() >= labels);
    QVERIFY(station.child->Panel()->height() >= 150);
}

void WindowCommandsTest::colourAndFontAreKept()
{
    Station station;
    station.prompts.chooseColour = [](QWidget*, const QColor&) { return QColor(1, 2, 3); };
    station.prompts.chooseFont = [](QWidget*, DisplaySettings& display) {
        display.fontHeight = -30;
        return true;
    };
    station.Start();
    station.Give(Command::BackColor);
    station.Give(Command::Font);
    QCOMPARE(station.Doc().display.backColor, 0x030201U);
    station.Start();
    QCOMPARE(station.Doc().display.backColor, 0x030201U);
    QCOMPARE(station.Doc().display.fontHeight, -30);
}

void WindowCommandsTest::theResetKeepsTheCells()
{
    Station station;
    station.prompts.chooseColour = [](QWidget*, const QColor&) { return QColor(1, 2, 3); };
    station.Start();
    station.Give(Command::BackColor);
    station.Give(Command::RowsHigher);
    station.Give(Command::ResetDisplay);
    QCOMPARE(station.Doc().display.backColor, 0xFFFFFFU);
    QCOMPARE(CSettings().RowHeight(), 21);
}

void WindowCommandsTest::decimalsBelongToTheProject()
{
    Station station;
    station.prompts.chooseDecimals = [](QWidget*, DisplaySettings& display) {
        display.metreDecimals = 2;
        return true;
    };
    station.Start();
    station.Give(Command::Decimals);
    QCOMPARE(station.Doc().display.metreDecimals, 2);
    station.Start();
    QCOMPARE(station.Doc().display.metreDecimals, DisplaySettings().metreDecimals);
}

void WindowCommandsTest::windowsOrTabsIsTheUsersChoice()
{
    Station station;
    const bool tabbed = CSettings().TabbedWindows();
    station.Give(Command::TabbedWindows);
    QCOMPARE(CSettings().TabbedWindows(), !tabbed);
    station.Start();
    QCOMPARE(station.frame->findChild<QMdiArea*>()->viewMode() == QMdiArea::TabbedView, !tabbed);
    QCOMPARE(station.Action(Command::TabbedWindows)->isChecked(), !tabbed);
}

void WindowCommandsTest::theTitleNamesTheProjectWithTabsToo()
{
    Station station;
    const QString title = u"KELD section - [plate4.sbd[*]]"_s;
    QCOMPARE(station.frame->windowTitle(), title);
    for (int round = 0; round < 2; ++round) {
        station.Give(Command::TabbedWindows);
        QCOMPARE(station.frame->windowTitle(), title);
        station.Doc().SetModifiedFlag(true);
        QVERIFY(station.frame->isWindowModified());
        station.Doc().SetModifiedFlag(false);
        QVERIFY(!station.frame->isWindowModified());
        CChildFrame* second = station.frame->OpenProject(station.folder.Example(u"box2"_s));
        QVERIFY2(station.frame->windowTitle().contains(u"[box2.sbd"_s), qPrintable(station.frame->windowTitle()));
        second->close();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QApplication::processEvents();
        QCOMPARE(station.frame->windowTitle(), title);
    }
    station.Give(Command::TabbedWindows);
    station.child->close();
    QApplication::processEvents();
    QCOMPARE(station.frame->windowTitle(), u"KELD section"_s);
}

void WindowCommandsTest::proposedNamesStandInTheProjectsFolderAndAreValidEverywhere()
{
    Station station;
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

void WindowCommandsTest::theAboutBoxNamesTheVersionOfTheMenuBar()
{
    Station station;
    QString text;
    QTimer::singleShot(0, [&] {
        if (auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget())) {
            text = box->text();
            box->close();
        }
    });
    station.Give(Command::About);
    QVERIFY2(text.contains(station.frame->menuBar()->actions().at(8)->text()), qPrintable(text));
}

void WindowCommandsTest::theModelFigureTakesThePageAndGivesItBack()
{
    Station station;
    station.Give(Command::SwitchFigureAndHelp);
    QVERIFY(station.child->UpView().currentWidget() == &station.child->UpView().Figure());
    station.Give(Command::ZoomIn);
    QVERIFY(station.child->UpView().Figure().View().zoom < 1.4);
    station.Give(Command::ViewXY);
    QCOMPARE(station.child->UpView().Figure().View().zoom, 1.4);
    station.Give(Command::SwitchFigureAndHelp);
    QVERIFY(station.child->UpView().currentWidget() != &station.child->UpView().Figure());
}

void WindowCommandsTest::theDrawingTakesThePageAndGivesItBack()
{
    Station station;
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

void WindowCommandsTest::aClickInTheDrawingOpensTheRow()
{
    Station station;
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

void WindowCommandsTest::blockOf253HasNoSwitchToTheModel()
{
    Station station;
    station.child->GoToBlock(253);
    QVERIFY(!station.Action(Command::SwitchFigureAndHelp)->isEnabled());
    QVERIFY(!station.Action(Command::Notes)->isEnabled());
    station.child->GoToBlock(301);
    QVERIFY(station.Action(Command::SwitchFigureAndHelp)->isEnabled());
}

void WindowCommandsTest::theNotesTakeThePlaceOfThePage()
{
    Station station;
    station.Give(Command::SwitchFigureAndHelp);
    station.Give(Command::Notes);
    QCOMPARE(station.Doc().CurrentBlock(), 100);
    QVERIFY(station.Doc().showHelpPage);
    QCOMPARE(station.child->CurrentBlock(), 301); // the panel stays
}

void WindowCommandsTest::printingPutsThePageOnPaper()
{
    Station station;
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

void WindowCommandsTest::withoutAPrinterTheUserIsTold()
{
    Station station;
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

void WindowCommandsTest::nothingOfTheViewMayBeGivenWhilePrinting()
{
    Station station;
    bool ran = true;
    station.prompts.previewPrint = [&](QWidget*, QPrinter&, const std::function<void(QPrinter&)>&) {
        ran = station.Action(Command::RunAll)->isEnabled() || station.Action(Command::ZoomIn)->isEnabled();
    };
    station.Start();
    station.Give(Command::PrintPreview);
    QVERIFY(!ran);
    QVERIFY(station.Action(Command::RunAll)->isEnabled());
}

void WindowCommandsTest::documentsAndPagesGoOutside()
{
    Station station;
    station.frame->SetHomePages({true, true, u"Example Homepage..."_s});
    const QSignalSpy outside(station.frame.get(), &CMainFrame::commandForOutside);
    for (const Command command :
         {Command::GirderDocument, Command::CrossDocument, Command::FemDocument, Command::StringerDocument,
          Command::SupportDocument, Command::QuantityDocument, Command::HomePage, Command::SecondHomePage}) {
        station.Give(command);
        QCOMPARE(outside.back().at(0).value<Command>(), command);
    }
    QCOMPARE(outside.size(), 8);
}

void WindowCommandsTest::homePagesFollowTheDeployment()
{
    const Station station;
    QVERIFY(!station.Action(Command::HomePage)->isEnabled());
    QVERIFY(!station.Action(Command::SecondHomePage)->isVisible());
    station.frame->SetHomePages({true, false, u"A & B Homepage..."_s});
    QVERIFY(station.Action(Command::HomePage)->isEnabled());
    QVERIFY(station.Action(Command::SecondHomePage)->isVisible());
    QVERIFY(!station.Action(Command::SecondHomePage)->isEnabled());
    QCOMPARE(station.Action(Command::SecondHomePage)->text(), u"A && B Homepage..."_s);
}

void WindowCommandsTest::undoCanBeGivenWhileThereIsSomethingToTakeBack()
{
    Station station;
    QVERIFY(QTest::qWaitForWindowActive(station.frame.get()));
    const QAction* undo = station.Action(Command::Undo);
    station.child->GoToBlock(313);
    station.child->FocusPanel();
    QVERIFY(!undo->isEnabled());
    station.Grid().SetFocusCell(3, 6);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_7);
    QVERIFY(undo->isEnabled()); // an edit is open
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Escape);
    QVERIFY(!undo->isEnabled());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_7);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QVERIFY(undo->isEnabled());
    station.Give(Command::Undo);
    QVERIFY(!undo->isEnabled());
    station.Grid().Delete();
    QVERIFY(undo->isEnabled());
    station.child->GoToBlock(301); // the steps are the project's
    QVERIFY(undo->isEnabled());
    station.child->GoToBlock(255);
    QVERIFY(undo->isEnabled());
}

void WindowCommandsTest::theSearchKeyStandsInTheSearchLine()
{
    Station station;
    QVERIFY(QTest::qWaitForWindowActive(station.frame.get()));
    const auto press = [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1); };
    press();
    station.Grid().Source()->SetText(1, 1, u"検索：孔引"_s);
    station.Grid().ShowAll();
    station.Grid().SetFocusCell(3, 1);
    press(); // while the search is open
    QCOMPARE(station.Grid().FocusCell(), (GridCell{1, 1}));
    station.Grid().SetFocusCell(3, 1);
    station.child->GoToBlock(313);
    press(); // from another block: not to the hit of last time
    QCOMPARE(station.child->CurrentBlock(), 999);
    QCOMPARE(station.Grid().FocusCell(), (GridCell{1, 1}));
    QVERIFY(station.Grid().hasFocus());
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_X);
    QVERIFY(station.Grid().IsEditing());
    QTRY_COMPARE(station.Grid().Source()->Text(1, 1), u"x"_s);
}

void WindowCommandsTest::searchLeadsToTheCell()
{
    Station station;
    QVERIFY(QTest::qWaitForWindowActive(station.frame.get()));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F1);
    QCOMPARE(station.child->CurrentBlock(), 999);
    QVERIFY(station.Grid().isAncestorOf(QApplication::focusWidget()) || station.Grid().hasFocus());
    station.Grid().Source()->SetText(1, 1, u"検索：孔引"_s);
    station.Grid().ShowAll();
    QVERIFY(station.Grid().Source()->UsedRows() > 2);
    for (int row = 2; row <= station.Grid().Source()->UsedRows(); ++row) {
        station.Grid().SetFocusCell(row, 1);
        emit station.frame->Actions().Menu(MenuId::Edit)->aboutToShow(); // looks at what may be given
        if (station.Action(Command::JumpToHit)->isEnabled())
            break;
    }
    QVERIFY(station.Action(Command::JumpToHit)->isEnabled());
    station.Give(Command::JumpToHit);
    QTRY_VERIFY(station.child->CurrentBlock() != 999);
    QVERIFY(station.child->Tree().SelectedNumber() == station.child->CurrentBlock());
    const QModelIndex cell = station.Grid().currentIndex();
    QVERIFY(cell.isValid());
    QVERIFY(station.Grid().hasFocus());
    QVERIFY(station.Grid().viewport()->rect().intersects(station.Grid().visualRect(cell)));
    QVERIFY(!station.Doc().IsModified());
}

void WindowCommandsTest::everyCommandCanBeReachedByKeys()
{
    // A menu title with its letter, and below it an entry: menus need no mouse.
    const Station station;
    QSet<QAction*> reached;
    for (QAction* top : station.frame->menuBar()->actions()) {
        if (top->menu() == nullptr)
            continue;
        QVERIFY2(top->text().contains(u"(&"_s), qPrintable(top->text()));
        for (QAction* entry : Entries(top->menu()))
            reached.insert(entry);
    }
    for (const CommandRow& row : CommandTable()) {
        const bool byMenu = reached.contains(station.Action(row.command));
        QVERIFY2(byMenu || !row.keys.empty() || row.command == Command::Version, qPrintable(CommandWords(row.text)));
    }
}

QTEST_MAIN(WindowCommandsTest)
#include "window_commands_test.moc"
