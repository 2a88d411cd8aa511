#include "panel_desk.h"
#include "project/text.h"
#include "upperview/chk_view.h"
#include "upperview/up_view.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFileInfo>
#include <QScrollBar>

namespace sbd {

class ReportLinksTest : public QObject {
    Q_OBJECT

private slots:
    void aClickOnALineGoesToItsCell();
    void aLineWithoutAPlaceIsNoLink();
    void tabGoesFromLinkToLinkAndEnterFollows();
    void f8StepsThroughErrorsAndWarnings();
    void withoutErrorsF8IsTheFindings();
    void rowsThatHaveGoneAreNoPlace();
    void aReportThatGrowsIsReadAnew();
    void aHugeReportStaysInHand_data();
    void aHugeReportStaysInHand();
};

namespace {

constexpr const char* kReport = "***** データチェック結果 *****\n"
                                "\n"
                                "[311] 桁高           : OK\n"
                                "ERROR   [313] 幅が不正です．  行 = 5  6列目\n"
                                "チェックを続けます\n"
                                "WARNING 継手がありません\n"
                                "WARNING [323] G1\n"
                                "\n"
                                "Error   = 1\n"
                                "Warning = 2\n";

struct ReportDesk : Desk {
    QString path;

    explicit ReportDesk(const QByteArray& report = QByteArray::fromStdString(Cp932(kReport)))
    {
        path = folder.Example(u"plate4"_s);
        Write(report);
        Open(path, 254);
        Chk().setFocus(Qt::OtherFocusReason);
        QApplication::processEvents();
    }
    void Write(const QByteArray& report) const
    {
        QDir().mkpath(QFileInfo(ChkPath(path)).path());
        QFile file(ChkPath(path));
        if (file.open(QFile::WriteOnly))
            file.write(report);
    }
    [[nodiscard]] CChkView& Chk() const { return child->UpView().Chk(); }
    [[nodiscard]] QPoint MiddleOf(std::size_t line) const { return Chk().RectOfLine(line).center().toPoint(); }
    [[nodiscard]] Qt::CursorShape CursorAt(QPoint place) const
    {
        QMouseEvent move(QEvent::MouseMove, place, Chk().viewport()->mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                         Qt::NoModifier);
        QApplication::sendEvent(Chk().viewport(), &move);
        return Chk().viewport()->cursor().shape();
    }
    [[nodiscard]] QString Chosen() const
    {
        return Chk().ChosenLine() ? QString::number(*Chk().ChosenLine()) : QString();
    }
    [[nodiscard]] QString Place() const
    {
        const GridCell focus = Grid().FocusCell();
        return u"%1/%2/%3"_s.arg(child->CurrentBlock()).arg(focus.row).arg(focus.column);
    }
};

} // namespace

void ReportLinksTest::aClickOnALineGoesToItsCell()
{
    ReportDesk desk;
    QVERIFY(desk.isActive);
    QCOMPARE(desk.CursorAt(desk.MiddleOf(3)), Qt::PointingHandCursor);
    if (qEnvironmentVariableIsSet("SBD_PICTURES")) {
        Press(Qt::Key_F8);
        QApplication::processEvents();
        desk.frame.grab().save(qEnvironmentVariable("SBD_PICTURES") + u"/report.png"_s);
    }
    QTest::mouseClick(desk.Chk().viewport(), Qt::LeftButton, {}, desk.MiddleOf(3));
    QCOMPARE(desk.Place(), u"313/5/6"_s);
    QVERIFY(desk.Grid().hasFocus());
}

void ReportLinksTest::aLineWithoutAPlaceIsNoLink()
{
    ReportDesk desk;
    QVERIFY(desk.isActive);
    for (const std::size_t line : {0U, 1U, 4U, 5U, 8U, 9U}) {
        QVERIFY(!desk.Chk().PlaceOfLine(line));
        const QPoint place(40, desk.MiddleOf(line).y());
        QCOMPARE(desk.CursorAt(place), Qt::ArrowCursor);
        QTest::mouseClick(desk.Chk().viewport(), Qt::LeftButton, {}, place);
        QCOMPARE(desk.child->CurrentBlock(), 254);
    }
    // Beside the text, and on the page's own lines.
    const QRectF third = desk.Chk().RectOfLine(3);
    QCOMPARE(desk.CursorAt(QPoint(int(third.right()) + 30, int(third.center().y()))), Qt::ArrowCursor);
    QCOMPARE(desk.CursorAt(QPoint(60, int(desk.Chk().RectOfLine(0).top()) - 5)), Qt::ArrowCursor);
}

void ReportLinksTest::tabGoesFromLinkToLinkAndEnterFollows()
{
    ReportDesk desk;
    QVERIFY(desk.isActive);
    for (const QString& line : {u"2"_s, u"3"_s, u"6"_s}) {
        Press(Qt::Key_Tab);
        QCOMPARE(desk.Chosen(), line);
        QVERIFY(desk.Chk().hasFocus());
    }
    Press(Qt::Key_Backtab, Qt::ShiftModifier);
    QCOMPARE(desk.Chosen(), u"3"_s);
    Press(Qt::Key_Return);
    QCOMPARE(desk.Place(), u"313/5/6"_s);
    desk.Go(254);
    desk.Chk().setFocus(Qt::OtherFocusReason);
    QCOMPARE(desk.Chosen(), QString());
    for (const QString& line : {u"2"_s, u"3"_s, u"6"_s, QString()}) { // behind the last one none
        Press(Qt::Key_Tab);
        QCOMPARE(desk.Chosen(), line);
    }
    Press(Qt::Key_F6);
    QVERIFY(!desk.Chk().hasFocus());
}

void ReportLinksTest::f8StepsThroughErrorsAndWarnings()
{
    ReportDesk desk;
    QVERIFY(desk.isActive);
    for (const QString& line : {u"3"_s, u"5"_s, u"6"_s, u"3"_s}) {
        Press(Qt::Key_F8);
        QCOMPARE(desk.Chosen(), line);
    }
    Press(Qt::Key_F8, Qt::ShiftModifier);
    QCOMPARE(desk.Chosen(), u"6"_s);
    Press(Qt::Key_F8, Qt::ShiftModifier);
    QCOMPARE(desk.Chosen(), u"5"_s);
    Press(Qt::Key_Return); // without a place
    QCOMPARE(desk.child->CurrentBlock(), 254);
    Press(Qt::Key_F8);
    Press(Qt::Key_Return);
    QCOMPARE(desk.child->CurrentBlock(), 323);
    Press(Qt::Key_F8); // in the grid it is the findings'
    QTRY_COMPARE(desk.Place(), u"523/16/3"_s);
}

void ReportLinksTest::withoutErrorsF8IsTheFindings()
{
    ReportDesk desk("[311] : OK\nError   = 0\nWarning = 0\n");
    QVERIFY(desk.isActive);
    Press(Qt::Key_F8);
    QTRY_COMPARE(desk.Place(), u"523/16/3"_s);
}

void ReportLinksTest::rowsThatHaveGoneAreNoPlace()
{
    ReportDesk desk;
    QVERIFY(desk.isActive);
    QVERIFY((desk.Chk().PlaceOfLine(3) == ReportPlace{313, 5, 6}));
    const QString path = desk.path;
    CKELDSectionDoc empty;
    QVERIFY(empty.SaveDocument(path).Ok());
    desk.child->ChangeProject([&] { QVERIFY(desk.child->Doc().Reload()); });
    QVERIFY((desk.Chk().PlaceOfLine(3) == ReportPlace{313, 0, 0}));
}

void ReportLinksTest::aReportThatGrowsIsReadAnew()
{
    ReportDesk desk("ERROR [313] x");
    QVERIFY(desk.isActive);
    Press(Qt::Key_F8);
    QCOMPARE(desk.Chosen(), u"0"_s);
    desk.Write("first\r\nsecond\r\nERROR [323] y\r\n");
    desk.Chk().viewport()->repaint();
    QCOMPARE(desk.Chosen(), QString()); // it is another line now
    Press(Qt::Key_F8);
    QCOMPARE(desk.Chosen(), u"2"_s);
    Press(Qt::Key_Return);
    QCOMPARE(desk.child->CurrentBlock(), 323);
}

void ReportLinksTest::aHugeReportStaysInHand_data()
{
    QTest::addColumn<QByteArray>("part");
    QTest::addColumn<int>("megabytes");
    QTest::newRow("lines with links") << QByteArray("WARNING [313] G1 C1 \x81\x5b\r\n") << 200;
    QTest::newRow("no line ends") << QByteArray("ERROR [313] G1 x ") << 200;
    QTest::newRow("empty lines") << QByteArray("\n") << 4;
    QTest::newRow("control bytes") << QByteArray("\x00\x01\x1b[313]\x81\n\xff", 11) << 4;
}

void ReportLinksTest::aHugeReportStaysInHand()
{
    QFETCH(const QByteArray, part);
    QFETCH(const int, megabytes);
    ReportDesk desk(part.repeated(megabytes * (1 << 20) / part.size()));
    QVERIFY(desk.isActive);
    QElapsedTimer watch;
    watch.start();
    desk.Chk().viewport()->repaint();
    (void)desk.CursorAt(QPoint(50, 60));
    Press(Qt::Key_F8);
    Press(Qt::Key_F8, Qt::ShiftModifier);
    desk.Chk().setFocus(Qt::OtherFocusReason);
    Press(Qt::Key_Tab);
    desk.Chk().verticalScrollBar()->setValue(desk.Chk().verticalScrollBar()->maximum());
    desk.Chk().viewport()->repaint();
    const qint64 took = watch.elapsed();
    qInfo("%lld ms", static_cast<long long>(took));
    QVERIFY2(took < 20'000, qPrintable(QString::number(took)));
}

} // namespace sbd

using sbd::ReportLinksTest;
QTEST_MAIN(ReportLinksTest)
#include "report_links_test.moc"
