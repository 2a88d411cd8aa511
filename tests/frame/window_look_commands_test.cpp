// The commands for languages, tree, panes, colours, fonts and windows, and what of that the next start has.
#include "command_station.h"
#include "frame/settings.h"
#include "upperview/up_view.h"

#include <QMdiArea>

using namespace sbd;

class WindowLookCommandsTest : public QObject {
    Q_OBJECT

private slots:
    void theLanguageRetitlesTreeAndMenu();
    void filtersCountOnlyWhenNotEverythingIsShown();
    void paneSizesAreKeptOnlyWhenAskedFor();
    void panesOfALargerScreenFitThisOne();
    void colourAndFontAreKept();
    void decimalsBelongToTheProject();
    void windowsOrTabsIsTheUsersChoice();
    void theTitleNamesTheProjectWithTabsToo();
};

void WindowLookCommandsTest::theLanguageRetitlesTreeAndMenu()
{
    CommandStation station;
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

void WindowLookCommandsTest::filtersCountOnlyWhenNotEverythingIsShown()
{
    CommandStation station;
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

void WindowLookCommandsTest::paneSizesAreKeptOnlyWhenAskedFor()
{
    CommandStation station;
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

void WindowLookCommandsTest::panesOfALargerScreenFitThisOne()
{
    CommandStation station;
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

void WindowLookCommandsTest::colourAndFontAreKept()
{
    CommandStation station;
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

void WindowLookCommandsTest::decimalsBelongToTheProject()
{
    CommandStation station;
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

void WindowLookCommandsTest::windowsOrTabsIsTheUsersChoice()
{
    CommandStation station;
    const bool tabbed = CSettings().TabbedWindows();
    station.Give(Command::TabbedWindows);
    QCOMPARE(CSettings().TabbedWindows(), !tabbed);
    station.Start();
    QCOMPARE(station.frame->findChild<QMdiArea*>()->viewMode() == QMdiArea::TabbedView, !tabbed);
    QCOMPARE(station.Action(Command::TabbedWindows)->isChecked(), !tabbed);
}

void WindowLookCommandsTest::theTitleNamesTheProjectWithTabsToo()
{
    CommandStation station;
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

QTEST_MAIN(WindowLookCommandsTest)
#include "window_look_commands_test.moc"
