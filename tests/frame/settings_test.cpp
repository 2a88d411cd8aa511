// The settings in the profile: their keys, limits and defaults.
#include "frame/font_dialog.h"
#include "frame/profile.h"
#include "frame/settings.h"
#include "profile_hands.h"

#include <QFile>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;
using namespace sbd::test;

class SettingsTest : public test::ProfileHands {
    Q_OBJECT

private slots:
    void init() { BeginProfile(); }
    void cleanup() { EndProfile(); }

    void withoutAFileAllIsAtItsDefault();
    void settingsSurviveARestart();
    void everySettingStandsInItsSectionAndKey();
    void theLanguageWordsCaseDoesNotCount();
    void anyOtherLanguageWordIsJapanese();
    void aNegativePaneSizeIsComputed();
    void aRowHeightBelow18IsWrittenBackAs18();
    void theRowHeightChangesByItsStep();
    void theRowWidthHasNoLowerLimit();
    void theFirstChangeOfTheRowWidthBeginsAt18();
    void resettingTheCellsWritesBothValues();
    void comboOrListFlips();
    void comboOrListOfAnotherValueFlipsToWordLists();
    void colorsAreLimitedToBytes();
    void valuesBeyondAllScreensAreLimited();
    void wordsInPlaceOfNumbersAreDefaults();
    void gridsComeBackAsTheyWereAndRubbishIsAsAtFirst();
    void anEmptyFaceIsTheDefault();
    void resetKeepsRowHeightDecimalsLanguageAndLists();
    void blueStandsInTheHighByte();
    void aFontGoesThereAndBack();
};

void SettingsTest::withoutAFileAllIsAtItsDefault()
{
    VerifyDefaults();
    QVERIFY(!QFile::exists(ProfileFile()));
    const DisplaySettings display = CSettings().Display();
    QCOMPARE(display.backColor, 0xFFFFFFU);
    QCOMPARE(display.textColor, 0U);
    QCOMPARE(display.fontHeight, -19);
    QCOMPARE(display.fontCharSet, 128);
    QVERIFY(!display.fontItalic && !display.fontUnderline && !display.fontStrikeOut);
    QCOMPARE(display.fontFaceName, u"ＭＳ ゴシック"_s);
    QCOMPARE(display.metreDecimals, 6);
    QCOMPARE(display.millimetreDecimals, 1);
    QCOMPARE(display.rowHeight, 18);
}

void SettingsTest::settingsSurviveARestart()
{
    DisplaySettings display;
    display.fontFaceName = u"IPA明朝, 試験 ;#=\"%"_s;
    display.fontHeight = 24;
    display.fontCharSet = 1;
    display.fontItalic = display.fontUnderline = display.fontStrikeOut = true;
    display.textColor = 0x123456;
    display.backColor = 0xABCDEF;
    {
        CSettings settings;
        settings.SetLanguage(TitleLanguage::EnglishAndJapanese);
        settings.SetPanes({111, 222, 333});
        settings.SetFont(display);
        settings.SetBackColor(display.backColor);
        display.rowHeight = settings.ChangeRowHeight(CSettings::kRowHeightStep);
        settings.ChangeRowWidth(CSettings::kRowWidthStep);
        settings.FlipComboOrList();
        settings.SetTabbedWindows(true);
    }
    const CSettings settings;
    QVERIFY(settings.Language() == TitleLanguage::EnglishAndJapanese);
    QVERIFY(settings.Panes(kComputed) == (PaneSizes{111, 222, 333}));
    QVERIFY(settings.Display() == display);
    QCOMPARE(settings.RowHeight(), 21);
    QCOMPARE(settings.RowWidthMode(), 28);
    QCOMPARE(settings.ComboOrList(), 2);
    QVERIFY(settings.TabbedWindows());
}

void SettingsTest::everySettingStandsInItsSectionAndKey()
{
    CSettings settings;
    settings.SetLanguage(TitleLanguage::English);
    settings.SetPanes({1, 2, 3});
    settings.SetBackColor(0x030201);
    DisplaySettings display;
    display.textColor = 0x060504;
    display.fontItalic = true;
    settings.SetFont(display);
    settings.ChangeRowHeight(3);
    settings.ChangeRowWidth(10);
    settings.FlipComboOrList();
    QCOMPARE(CProfile().value(u"Language/Language"_s).toString(), u"English"_s);
    QCOMPARE(CProfile().value(u"SYSTEMFONT/F"_s).toString(), u"ＭＳ ゴシック"_s);
    const std::pair<QString, int> numbers[] = {
        {u"Window Size/LeftWindow"_s, 1},
        {u"Window Size/UpWindow"_s, 2},
        {u"Window Size/MidWindow"_s, 3},
        {u"BackColor/R"_s, 1},
        {u"BackColor/G"_s, 2},
        {u"BackColor/B"_s, 3},
        {u"SYSTEMFONT/H"_s, -19},
        {u"SYSTEMFONT/C"_s, 128},
        {u"SYSTEMFONT/I"_s, 1},
        {u"SYSTEMFONT/U"_s, 0},
        {u"SYSTEMFONT/S"_s, 0},
        {u"SYSTEMFONT/R"_s, 4},
        {u"SYSTEMFONT/G"_s, 5},
        {u"SYSTEMFONT/B"_s, 6},
        {u"row_height/up"_s, 21},
        {u"row_width/up"_s, 28},
        {u"combo_or_list/cc"_s, 2},
    };
    for (const auto& [key, number] : numbers)
        QVERIFY2(Stored(key) == number, qPrintable(key));
}

void SettingsTest::theLanguageWordsCaseDoesNotCount()
{
    Store(u"Language/Language"_s, u"eNGLISH"_s);
    QVERIFY(CSettings().Language() == TitleLanguage::English);
    Store(u"Language/Language"_s, u"englishandJAPANESE"_s);
    QVERIFY(CSettings().Language() == TitleLanguage::EnglishAndJapanese);
}

void SettingsTest::anyOtherLanguageWordIsJapanese()
{
    for (const QString& word : {u"Japanese"_s, u"Klingon"_s, u""_s, u"English "_s, u"32764"_s}) {
        Store(u"Language/Language"_s, word);
        QVERIFY(CSettings().Language() == TitleLanguage::Japanese);
    }
}

void SettingsTest::aNegativePaneSizeIsComputed()
{
    CSettings().SetPanes({-1, 0, -7});
    QVERIFY(CSettings().Panes(kComputed) == (PaneSizes{320, 0, 0}));
}

void SettingsTest::aRowHeightBelow18IsWrittenBackAs18()
{
    Store(u"row_height/up"_s, 5);
    QCOMPARE(CSettings().RowHeight(), 18);
    QCOMPARE(CSettings().ChangeRowHeight(-3), 18);
    QCOMPARE(Stored(u"row_height/up"_s), 18);
    Store(u"row_height/up"_s, 5);
    QCOMPARE(CSettings().ChangeRowHeight(3), 18);
    QCOMPARE(Stored(u"row_height/up"_s), 18);
    Store(u"row_height/up"_s, -2147483647);
    QCOMPARE(CSettings().ChangeRowHeight(-3), 18);
}

void SettingsTest::theRowHeightChangesByItsStep()
{
    QCOMPARE(CSettings().ChangeRowHeight(CSettings::kRowHeightStep), 21);
    QCOMPARE(CSettings().ChangeRowHeight(CSettings::kRowHeightStep), 24);
    QCOMPARE(CSettings().ChangeRowHeight(-CSettings::kRowHeightStep), 21);
    QCOMPARE(CSettings().Display().rowHeight, 21);
}

void SettingsTest::theRowWidthHasNoLowerLimit()
{
    Store(u"row_width/up"_s, 0);
    {
        CSettings settings;
        for (int i = 0; i < 50; ++i)
            settings.ChangeRowWidth(-CSettings::kRowWidthStep);
    }
    QCOMPARE(CSettings().RowWidthMode(), -500);
}

void SettingsTest::theFirstChangeOfTheRowWidthBeginsAt18()
{
    QCOMPARE(CSettings().RowWidthMode(), 0);
    QCOMPARE(CSettings().ChangeRowWidth(-CSettings::kRowWidthStep), 8);
    QCOMPARE(CSettings().RowWidthMode(), 8);
}

void SettingsTest::resettingTheCellsWritesBothValues()
{
    Store(u"row_height/up"_s, 60);
    Store(u"row_width/up"_s, 90);
    CSettings().ResetCells();
    QCOMPARE(Stored(u"row_height/up"_s), 18);
    QCOMPARE(Stored(u"row_width/up"_s), 0);
}

void SettingsTest::comboOrListFlips()
{
    QCOMPARE(CSettings().FlipComboOrList(), 2);
    QCOMPARE(CSettings().ComboOrList(), 2);
    QCOMPARE(CSettings().FlipComboOrList(), 1);
    QCOMPARE(CSettings().ComboOrList(), 1);
}

void SettingsTest::comboOrListOfAnotherValueFlipsToWordLists()
{
    Store(u"combo_or_list/cc"_s, 7);
    QCOMPARE(CSettings().ComboOrList(), 1);
    QCOMPARE(CSettings().FlipComboOrList(), 1);
}

void SettingsTest::colorsAreLimitedToBytes()
{
    Store(u"BackColor/R"_s, 300);
    Store(u"BackColor/G"_s, -5);
    Store(u"BackColor/B"_s, 16);
    QCOMPARE(CSettings().Display().backColor, 0x1000FFU);
    Store(u"SYSTEMFONT/B"_s, 2'000'000'000);
    QCOMPARE(CSettings().Display().textColor, 0xFF0000U);
}

void SettingsTest::valuesBeyondAllScreensAreLimited()
{
    for (const QString& key :
         {u"Window Size/LeftWindow"_s, u"row_height/up"_s, u"row_width/up"_s, u"SYSTEMFONT/H"_s, u"SYSTEMFONT/C"_s})
        Store(key, 2147483647);
    QVERIFY(CSettings().Panes(kComputed).left <= 16'000);
    QVERIFY(CSettings().RowHeight() <= 400);
    QVERIFY(CSettings().ChangeRowHeight(CSettings::kRowHeightStep) <= 400);
    QVERIFY(CSettings().RowWidthMode() <= 16'000);
    QVERIFY(CSettings().ChangeRowWidth(CSettings::kRowWidthStep) <= 16'000);
    QVERIFY(CSettings().Display().fontHeight <= 400);
    QCOMPARE(CSettings().Display().fontCharSet, 255);
    Store(u"SYSTEMFONT/H"_s, 0);
    QVERIFY(FontOf(CSettings().Display()).pixelSize() >= 1);
}

void SettingsTest::wordsInPlaceOfNumbersAreDefaults()
{
    for (const QString& key :
         {u"Window Size/LeftWindow"_s, u"Window Size/UpWindow"_s, u"Window Size/MidWindow"_s, u"BackColor/R"_s,
          u"SYSTEMFONT/H"_s, u"SYSTEMFONT/C"_s, u"SYSTEMFONT/I"_s, u"SYSTEMFONT/G"_s, u"row_height/up"_s,
          u"row_width/up"_s, u"combo_or_list/cc"_s, u"Window Size/Tabbed"_s})
        Store(key, u"9999999999999999999 px"_s);
    VerifyDefaults();
}

void SettingsTest::gridsComeBackAsTheyWereAndRubbishIsAsAtFirst()
{
    DisplaySettings display;
    display.zoom = 140;
    display.grids[313] = {2, {{1, 20}, {9, -300}}};
    display.grids[314] = {std::nullopt, {{8, 5}}};
    display.grids[315] = {}; // nothing differs: not kept
    CSettings().SetGrids(display);
    const DisplaySettings kept = CSettings().Display();
    QCOMPARE(kept.zoom, 140);
    QCOMPARE(kept.grids.size(), std::size_t(2));
    QVERIFY(kept.grids.at(313) == display.grids.at(313));
    QVERIFY(kept.grids.at(314) == display.grids.at(314));

    Store(u"Grid/Zoom"_s, 99999);
    Store(u"Grid/Columns"_s,
          QStringList{u"313=x 1:y :: 2:99999999 7:7 0:5 101:5 3:1:2"_s, u"=4"_s, u"no block=3"_s, {}, u"316=-5"_s});
    const DisplaySettings limited = CSettings().Display();
    QCOMPARE(limited.zoom, 300);
    QCOMPARE(limited.grids.size(), std::size_t(2));
    QVERIFY(!limited.grids.at(313).frozen);
    QVERIFY((limited.grids.at(313).widened == std::map<int, int>{{2, 16'000}, {7, 7}}));
    QCOMPARE(limited.grids.at(316).frozen.value_or(-1), 0);
    Store(u"Grid/Zoom"_s, u"wide"_s);
    QCOMPARE(CSettings().Display().zoom, 100);
}

void SettingsTest::anEmptyFaceIsTheDefault()
{
    Store(u"SYSTEMFONT/F"_s, u"  "_s);
    QCOMPARE(CSettings().Display().fontFaceName, u"ＭＳ ゴシック"_s);
}

void SettingsTest::resetKeepsRowHeightDecimalsLanguageAndLists()
{
    CSettings settings;
    settings.SetLanguage(TitleLanguage::English);
    settings.FlipComboOrList();
    settings.ChangeRowHeight(30);
    settings.ChangeRowWidth(10);
    DisplaySettings display = settings.Display();
    display.backColor = 0;
    display.textColor = 0xFFFFFF;
    display.fontHeight = -40;
    display.fontFaceName = u"IPA明朝"_s;
    display.metreDecimals = 3;
    display.millimetreDecimals = 2;
    settings.SetBackColor(display.backColor);
    settings.SetFont(display);

    settings.ResetHelpPane(display);
    DisplaySettings expected;
    expected.metreDecimals = 3;
    expected.millimetreDecimals = 2;
    expected.rowHeight = 48;
    QVERIFY(display == expected);
    expected.metreDecimals = 6; // these are not kept in the profile
    expected.millimetreDecimals = 1;
    QVERIFY(CSettings().Display() == expected);
    QCOMPARE(Stored(u"BackColor/G"_s), 255);
    QCOMPARE(Stored(u"SYSTEMFONT/H"_s), -19);
    QVERIFY(CSettings().Language() == TitleLanguage::English);
    QCOMPARE(CSettings().ComboOrList(), 2);
    QCOMPARE(CSettings().RowWidthMode(), 28);
}

void SettingsTest::blueStandsInTheHighByte()
{
    QCOMPARE(ToQColor(0x0000FF), QColor(Qt::red));
    QCOMPARE(ToQColor(0xFF0000), QColor(Qt::blue));
    QCOMPARE(FromQColor(QColor(1, 2, 3)), 0x030201U);
    CSettings().SetBackColor(FromQColor(QColor(1, 2, 3)));
    QCOMPARE(ToQColor(CSettings().Display().backColor), QColor(1, 2, 3));
}

void SettingsTest::aFontGoesThereAndBack()
{
    DisplaySettings display;
    QCOMPARE(FontOf(display).pixelSize(), 19);
    QCOMPARE(FontOf(display).family(), u"ＭＳ ゴシック"_s);
    QFont font(u"IPAMincho"_s);
    font.setPixelSize(31);
    font.setUnderline(true);
    TakeFont(display, font);
    QCOMPARE(display.fontHeight, -31);
    QCOMPARE(display.fontFaceName, u"IPAMincho"_s);
    QVERIFY(display.fontUnderline && !display.fontItalic);
    QCOMPARE(FontOf(display).pixelSize(), 31);
}

QTEST_MAIN(SettingsTest)
#include "settings_test.moc"
