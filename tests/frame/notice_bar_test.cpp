#include "frame/notice_bar.h"

#include <QPushButton>
#include <QSignalSpy>
#include <QTest>
#include <QToolButton>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

void Click(const CNoticeBar& bar, const QString& text)
{
    for (QAbstractButton* button : bar.findChildren<QAbstractButton*>()) {
        if (button->isVisible() && button->text() == text)
            return QTest::mouseClick(button, Qt::LeftButton);
    }
    QFAIL("no such button");
}

} // namespace

class NoticeBarTest : public QObject {
    Q_OBJECT

private slots:
    void aBarWithoutNoticesTakesNoPlace();
    void theNewestNoticeStandsOnTopAndOneKeyOnce();
    void aNoticeStaysUntilItIsClosedAndThenSaysSo();
    void anActionMayTakeItsOwnNoticesPlace();
};

void NoticeBarTest::aBarWithoutNoticesTakesNoPlace()
{
    CNoticeBar bar;
    QVERIFY(bar.isHidden());
    bar.Show({u"run"_s, u"済みました"_s, {}});
    QVERIFY(!bar.isHidden());
    bar.Close(u"run"_s);
    QVERIFY(bar.isHidden());
}

void NoticeBarTest::theNewestNoticeStandsOnTopAndOneKeyOnce()
{
    CNoticeBar bar;
    bar.Show({u"run"_s, u"一"_s, {}});
    bar.Show({u"file"_s, u"二"_s, {}});
    QCOMPARE(bar.Texts(), (QStringList{u"二"_s, u"一"_s}));
    bar.Show({u"run"_s, u"三"_s, {}});
    QCOMPARE(bar.Texts(), (QStringList{u"三"_s, u"二"_s}));
}

void NoticeBarTest::aNoticeStaysUntilItIsClosedAndThenSaysSo()
{
    CNoticeBar bar;
    QSignalSpy closed(&bar, &CNoticeBar::closed);
    bar.Show({u"run"_s, u"済みました"_s, {}});
    QVERIFY(bar.Shows(u"run"_s));
    Click(bar, u"×"_s);
    QVERIFY(!bar.Shows(u"run"_s));
    QCOMPARE(closed.count(), 1);
    QCOMPARE(closed.first().first().toString(), u"run"_s);
}

void NoticeBarTest::anActionMayTakeItsOwnNoticesPlace()
{
    CNoticeBar bar;
    bar.Show({u"run"_s, u"前"_s, {{u"見る"_s, [&bar] { bar.Show({u"run"_s, u"後"_s, {}}); }}}});
    Click(bar, u"見る"_s);
    QCOMPARE(bar.Texts(), QStringList{u"後"_s});
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    QCOMPARE(bar.Texts(), QStringList{u"後"_s});
}

QTEST_MAIN(NoticeBarTest)
#include "notice_bar_test.moc"
