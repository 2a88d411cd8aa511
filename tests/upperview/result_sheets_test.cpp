#include "document/result_session.h"
#include "document/section_doc.h"
#include "tests/surroundings.h"
#include "upperview/display_look.h"
#include "upperview/result_sheets.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

namespace sbd {

using namespace Qt::StringLiterals;

class ResultSheetsTest : public QObject {
    Q_OBJECT

private:
    CKELDSectionDoc doc_;

    [[nodiscard]] std::vector<ResultSheet> Sheets(const std::vector<SheetItem>& items) const
    {
        const AnalysisModel& model = doc_.Results().model;
        return SheetsOfGirders(FirstUseSelection(model), model.girderNames, items);
    }
    [[nodiscard]] QByteArray Pdf(const std::vector<ResultSheet>& sheets, const SheetProgress& progress = {})
    {
        return SheetsPdf(SheetLayout(QPageSize::A4, OrientationOf(sheets)), doc_.Results(), sheets,
                         FigureFont(doc_.display), ResultSessionOf(doc_).State(), progress);
    }

private slots:
    void initTestCase();
    void aGirderHasItsSheetAndBookmarks();
    void upToTwoFiguresLie();
    void progressIsToldAndACancelLeavesNothing();
    void readersFindTheGirders();
};

void ResultSheetsTest::initTestCase()
{
    QVERIFY(doc_.OpenDocument(QString::fromUtf8(test::ExamplesFolder()) + u"/plate4/plate4.sbd"_s).Ok());
}

void ResultSheetsTest::aGirderHasItsSheetAndBookmarks()
{
    const QByteArray pdf = Pdf(Sheets(UsualItems()));
    QCOMPARE(pdf.count("/Type /Page\n"), 4);
    QCOMPARE(pdf.count("/Type /Outlines"), 1);
    QCOMPARE(pdf.count("/Dest ["), 16); // each with My, Sz and Uz
}

void ResultSheetsTest::upToTwoFiguresLie()
{
    QCOMPARE(OrientationOf(Sheets({{ResultKind::Force, 4}})), QPageLayout::Landscape);
    QCOMPARE(OrientationOf(Sheets({{ResultKind::Force, 4}, {ResultKind::Force, 2}})), QPageLayout::Landscape);
    QCOMPARE(OrientationOf(Sheets(UsualItems())), QPageLayout::Portrait);
    const QSizeF size = SheetLayout(QPageSize::A3, QPageLayout::Landscape).fullRect(QPageLayout::Millimeter).size();
    QCOMPARE(size.toSize(), QSize(420, 297));
}

void ResultSheetsTest::progressIsToldAndACancelLeavesNothing()
{
    std::vector<int> told;
    QVERIFY(!Pdf(Sheets(UsualItems()), [&](int done, int all) {
                 told.push_back(done);
                 return all == 4;
             }).isEmpty());
    QCOMPARE(told, (std::vector<int>{0, 1, 2, 3, 4}));
    told.clear();
    QVERIFY(Pdf(Sheets(UsualItems()), [&](int done, int) {
                told.push_back(done);
                return done < 2;
            }).isEmpty());
    QCOMPARE(told, (std::vector<int>{0, 1, 2}));
    QVERIFY(Pdf({}).isEmpty());
}

void ResultSheetsTest::readersFindTheGirders()
{
    const QString reader = QStandardPaths::findExecutable(u"pdftohtml"_s);
    if (reader.isEmpty())
        QSKIP("there is no pdftohtml on this machine");
    QTemporaryDir folder;
    QFile file(folder.filePath(u"o.pdf"_s));
    QVERIFY(file.open(QFile::WriteOnly));
    file.write(Pdf(Sheets(UsualItems())));
    file.close();
    QProcess process;
    process.start(reader, {u"-xml"_s, u"-stdout"_s, file.fileName()});
    QVERIFY(process.waitForFinished());
    const QString said = QString::fromUtf8(process.readAllStandardOutput());
    for (int girder = 1; girder <= 4; ++girder)
        QVERIFY2(said.contains(u"<item page=\"%1\">主桁 G%1</item>"_s.arg(girder)), qPrintable(said));
    QCOMPARE(said.count(u">変位 Uz</item>"_s), 4);
}

} // namespace sbd

QTEST_MAIN(sbd::ResultSheetsTest)
#include "result_sheets_test.moc"
