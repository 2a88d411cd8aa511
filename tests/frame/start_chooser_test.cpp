#include "frame/start_chooser.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTest>

#include <algorithm>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

QPushButton* ButtonOf(const CStartChooserDlg& dialog, const QString& text)
{
    for (QPushButton* button : dialog.findChildren<QPushButton*>()) {
        if (button->text() == text)
            return button;
    }
    return nullptr;
}

QStringList TextsOf(const CStartChooserDlg& dialog)
{
    QStringList texts;
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        texts.append(label->text());
    return texts;
}

QRadioButton* RadioOf(const CStartChooserDlg& dialog, const QString& text)
{
    for (QRadioButton* button : dialog.findChildren<QRadioButton*>()) {
        if (button->text() == text)
            return button;
    }
    return nullptr;
}

} // namespace

class StartChooserTest : public QObject {
    Q_OBJECT

private slots:
    void everyButtonEndsTheDialogWithItsNumber_data();
    void everyButtonEndsTheDialogWithItsNumber();
    void closedOtherwiseNothingIsChosen();
    void theGirdersArePlateGirdersUntilTheUserSaysOtherwise();
    void theTextsStandAsTheyAre();
    void allTextsAreWhole();
    void theButtonsAreReachedByKeys();
    void enterBeginsAnEmptyProject();
    void buttonsSayWhatTheyDoToAScreenReader();
};

void StartChooserTest::everyButtonEndsTheDialogWithItsNumber_data()
{
    QTest::addColumn<QString>("text");
    QTest::addColumn<int>("choice");
    int choice = 0;
    for (const char* text :
         {"Go", "Go with KELD analysis", "Go with UC GRID", "Run with KELD analysis", "Run with UC GRID", "Cancel"})
        QTest::newRow(text) << QString::fromLatin1(text) << ++choice;
}

void StartChooserTest::everyButtonEndsTheDialogWithItsNumber()
{
    QFETCH(QString, text);
    QFETCH(int, choice);
    CStartChooserDlg dialog;
    dialog.open();
    QTest::mouseClick(ButtonOf(dialog, text), Qt::LeftButton);
    QVERIFY(!dialog.isVisible());
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    QCOMPARE(dialog.Choice().choice, choice);
    QCOMPARE(dialog.Choice().girderType, 0);
}

void StartChooserTest::closedOtherwiseNothingIsChosen()
{
    CStartChooserDlg byKey;
    byKey.open();
    QTest::keyClick(&byKey, Qt::Key_Escape);
    QVERIFY(!byKey.isVisible());
    QCOMPARE(byKey.Choice().choice, 0);

    CStartChooserDlg byWindow;
    byWindow.open();
    byWindow.close();
    QCOMPARE(byWindow.Choice().choice, 0);
}

void StartChooserTest::theGirdersArePlateGirdersUntilTheUserSaysOtherwise()
{
    CStartChooserDlg dialog;
    QVERIFY(RadioOf(dialog, u"鈑桁"_s)->isChecked());
    QCOMPARE(dialog.Choice().girderType, 0);
    RadioOf(dialog, u"箱桁"_s)->click();
    QCOMPARE(dialog.Choice().girderType, 1);
    QVERIFY(!RadioOf(dialog, u"鈑桁"_s)->isChecked());
    RadioOf(dialog, u"鈑桁"_s)->click();
    QCOMPARE(dialog.Choice().girderType, 0);
}

void StartChooserTest::theTextsStandAsTheyAre()
{
    const CStartChooserDlg dialog;
    QCOMPARE(dialog.windowTitle(), u"断面力ファイルタイプの選択"_s);
    const QStringList expected = {
        u"そのまま新規でデータを入力"_s,
        u"*.ABDを選択してからデータを入力"_s,
        u"*.GRLを選択してからでデータを入力"_s,
        u"*.ABDを選択してすぐ全自動設計を行います．\n(後で各データを確認・修正します）"_s,
        u"*.GRLを選択してすぐ全自動設計を行います．\n(後で各データを確認・修正します）"_s,
        u"桁高やVS補剛材本数変化など必要設定多い橋の場合は，301～305,311,313などを確認・入力してから解析実行を行って下さい．"_s,
    };
    QCOMPARE(TextsOf(dialog), expected);
}

void StartChooserTest::allTextsAreWhole()
{
    CStartChooserDlg dialog;
    dialog.show();
    QVERIFY(QTest::qWaitForWindowExposed(&dialog));
    for (const QLabel* label : dialog.findChildren<QLabel*>()) {
        const int needed = label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
        QVERIFY2(label->height() >= needed, qPrintable(label->text()));
        QVERIFY2(label->wordWrap() || label->width() >= label->sizeHint().width(), qPrintable(label->text()));
    }
    for (const QPushButton* button : dialog.findChildren<QPushButton*>())
        QVERIFY2(button->width() >= button->sizeHint().width(), qPrintable(button->text()));
}

void StartChooserTest::theButtonsAreReachedByKeys()
{
    CStartChooserDlg dialog;
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QStringList visited;
    while (auto* button = qobject_cast<QPushButton*>(dialog.focusWidget())) {
        visited.append(button->text());
        QTest::keyClick(button, Qt::Key_Down);
    }
    QCOMPARE(visited, (QStringList{u"Go"_s, u"Go with KELD analysis"_s, u"Go with UC GRID"_s,
                                   u"Run with KELD analysis"_s, u"Run with UC GRID"_s, u"Cancel"_s}));
    QCOMPARE(dialog.focusWidget(), RadioOf(dialog, u"鈑桁"_s));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Right);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Up);
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    QCOMPARE(dialog.Choice().girderType, 1);
    QCOMPARE(dialog.Choice().choice, 5);
}

void StartChooserTest::enterBeginsAnEmptyProject()
{
    CStartChooserDlg dialog;
    dialog.show();
    dialog.activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(&dialog));
    QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
    QCOMPARE(dialog.Choice().choice, 1);
}

void StartChooserTest::buttonsSayWhatTheyDoToAScreenReader()
{
    const CStartChooserDlg dialog;
    const QList<QPushButton*> buttons = dialog.findChildren<QPushButton*>();
    QCOMPARE(buttons.size(), 6);
    const qsizetype described = std::ranges::count_if(
        buttons, [](const QPushButton* button) { return !button->accessibleDescription().isEmpty(); });
    QCOMPARE(described, 5);
}

QTEST_MAIN(StartChooserTest)
#include "start_chooser_test.moc"
