#include "panels/row_count_dialog.h"

#include <QApplication>
#include <QDialog>
#include <QLabel>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

namespace sbd {

using namespace Qt::StringLiterals;

class RowCountDialogTest : public QObject {
    Q_OBJECT

private:
    /// What is asked, answered by keys: `text` is typed over the proposal, then `key` pressed.
    int Answer(const QString& text, Qt::Key key)
    {
        QTimer::singleShot(0, qApp, [this, text, key] {
            QWidget* dialog = QApplication::activeModalWidget();
            if (dialog == nullptr)
                return;
            asked_ = dialog->findChild<QLabel*>()->text();
            QSpinBox* count = dialog->findChild<QSpinBox*>();
            count->setFocus();
            count->selectAll();
            for (const QChar c : text)
                QTest::keyClick(count, c.toLatin1());
            QTest::keyClick(dialog, key);
        });
        return AskRowCount(nullptr);
    }

    QString asked_;

private slots:
    void TheNumberTypedIsTheAnswer();
    void EscGivesItUp();
    void WhatIsNoNumberIsNotTyped();
};

void RowCountDialogTest::TheNumberTypedIsTheAnswer()
{
    QCOMPARE(Answer(u"35"_s, Qt::Key_Return), 35);
    QCOMPARE(asked_, u"入力行数を入力してください．"_s);
    QCOMPARE(Answer(u"1"_s, Qt::Key_Return), 1);
}

void RowCountDialogTest::EscGivesItUp()
{
    QCOMPARE(Answer(u"35"_s, Qt::Key_Escape), 0);
}

void RowCountDialogTest::WhatIsNoNumberIsNotTyped()
{
    QCOMPARE(Answer(u"-4x2"_s, Qt::Key_Return), 42);
    const int most = Answer(u"999999999999"_s, Qt::Key_Return);
    QVERIFY(most > 0 && most <= 10000);
}

} // namespace sbd

QTEST_MAIN(sbd::RowCountDialogTest)
#include "row_count_dialog_test.moc"
