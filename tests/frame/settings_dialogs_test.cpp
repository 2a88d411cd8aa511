// The dialogs of decimals and font.
#include "frame/decimals_dialog.h"
#include "frame/font_dialog.h"
#include "frame/settings.h"
#include "profile_hands.h"

#include <QCheckBox>
#include <QFontComboBox>
#include <QGroupBox>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;
using namespace sbd::test;

class SettingsDialogsTest : public test::ProfileHands {
    Q_OBJECT

private slots:
    void init() { BeginProfile(); }
    void cleanup() { EndProfile(); }

    void decimalsAreAskedInTwoGroups();
    void decimalsAreLimited();
    void theFontDialogChangesNothingUntouched();
    void theFontDialogTakesFontAndColor();
};

void SettingsDialogsTest::decimalsAreAskedInTwoGroups()
{
    CDecimalsDialog dialog(6, 1);
    QCOMPARE(dialog.windowTitle(), u"小数点桁数"_s);
    const QList<QGroupBox*> groups = dialog.findChildren<QGroupBox*>();
    QCOMPARE(groups.size(), 2);
    QCOMPARE(groups[0]->title(), u"m の場合"_s);
    QCOMPARE(groups[1]->title(), u"mm の場合"_s);
    auto* metres = groups[0]->findChild<QSpinBox*>();
    auto* millimetres = groups[1]->findChild<QSpinBox*>();
    QCOMPARE(metres->value(), 6);
    QCOMPARE(millimetres->value(), 1);
    dialog.show();
    QTest::keyClicks(metres, u"3"_s); // the field's digits are selected at first
    millimetres->setFocus();
    millimetres->selectAll();
    QTest::keyClicks(millimetres, u"0"_s);
    QTest::keyClick(millimetres, Qt::Key_Return);
    QCOMPARE(dialog.result(), static_cast<int>(QDialog::Accepted));
    QCOMPARE(dialog.Metres(), 3);
    QCOMPARE(dialog.Millimetres(), 0);
}

void SettingsDialogsTest::decimalsAreLimited()
{
    const CDecimalsDialog dialog(-3, 4000);
    QCOMPARE(dialog.Metres(), 0);
    QCOMPARE(dialog.Millimetres(), CDecimalsDialog::kMost);
}

void SettingsDialogsTest::theFontDialogChangesNothingUntouched()
{
    DisplaySettings display;
    display.fontHeight = 22;
    display.fontFaceName = u"ここにない字体"_s;
    display.textColor = 0x123456;
    display.rowHeight = 33;
    const CFontDialog dialog(display);
    QCOMPARE(dialog.windowTitle(), u"フォント"_s);
    QVERIFY(dialog.Chosen() == display);
}

void SettingsDialogsTest::theFontDialogTakesFontAndColor()
{
    CFontDialog dialog{DisplaySettings()};
    dialog.askColor = [](const QColor&, QWidget*) { return QColor(Qt::red); };
    dialog.findChild<QFontComboBox*>()->setEditText(u"IPAMincho"_s);
    dialog.findChild<QSpinBox*>()->setValue(27);
    dialog.findChildren<QCheckBox*>().constFirst()->setChecked(true);
    for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
        if (button->text().startsWith(u"文字色"_s))
            button->click();
    }
    DisplaySettings expected;
    expected.fontFaceName = u"IPAMincho"_s;
    expected.fontHeight = -27;
    expected.fontItalic = true;
    expected.textColor = 0x0000FF;
    QVERIFY(dialog.Chosen() == expected);
    dialog.askColor = [](const QColor&, QWidget*) { return QColor(); };
    for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
        if (button->text().startsWith(u"文字色"_s))
            button->click();
    }
    QVERIFY(dialog.Chosen() == expected);
}

QTEST_MAIN(SettingsDialogsTest)
#include "settings_dialogs_test.moc"
