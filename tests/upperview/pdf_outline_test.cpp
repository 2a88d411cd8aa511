// Bookmarks and links that are appended to a PDF.
#include "pdf_reader.h"
#include "upperview/pdf_outline.h"

#include <QBuffer>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryFile>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

QByteArray ThreePages()
{
    QBuffer buffer;
    buffer.open(QBuffer::WriteOnly);
    QPdfWriter writer(&buffer);
    QPainter painter(&writer);
    for (int page = 0; page < 3; ++page) {
        if (page > 0)
            writer.newPage();
        painter.drawText(300, 300, QString::number(page));
    }
    painter.end();
    return buffer.data();
}

/// A PDF of these objects, the first one numbered 1, and its table.
QByteArray PdfOf(const QByteArrayList& objects, const QByteArray& end = "\n")
{
    QByteArray pdf = "%PDF-1.7" + end;
    QList<qsizetype> places;
    for (qsizetype i = 0; i < objects.size(); ++i) {
        places << pdf.size();
        pdf += QByteArray::number(i + 1) + " 0 obj" + end + objects[i] + end + "endobj" + end;
    }
    const qsizetype table = pdf.size();
    pdf += "xref" + end + "0 " + QByteArray::number(objects.size() + 1) + end;
    const QByteArray lineEnd = end.size() == 2 ? end : ' ' + end;
    pdf += "0000000000 65535 f" + lineEnd;
    for (const qsizetype place : places)
        pdf += QByteArray::number(place).rightJustified(10, '0') + " 00000 n" + lineEnd;
    return pdf + "trailer" + end + "<</Root 1 0 R/Size " + QByteArray::number(objects.size() + 1) + "/ID[<AB><CD>]>>"
           + end + "startxref" + end + QByteArray::number(table) + end + "%%EOF" + end;
}

/// Two groups of pages, one page of which has a list of links in itself; sizes are those of the groups.
QByteArrayList NestedPages()
{
    return {"<</Type/Catalog/Pages 2 0 R/Names(endobj \\) >>)>>",
            "<< /Kids[3 0 R % a comment ]\n 4 0 R] /Type /Pages /Count 3 /MediaBox [0 0 500 700] >>",
            "<</Type/Pages/Parent 2 0 R/Kids[5 0 R 6 0 R]/Count 2>>",
            "<</Type/Pages/Parent 2 0 R/Count 1/Kids 8 0 R/MediaBox[10 20 410 320]>>",
            "<</Type/Page/Parent 3 0 R/Annots[<</Type/Annot/Subtype/Link/Rect[0 0 1 1]/Dest[6 0 R/Fit]>>]>>",
            "<</Type/Page/Parent 3 0 R/MediaBox 9 0 R>>",
            "<</Type/Page/Parent 4 0 R>>",
            "[7 0 R]",
            "[ 0 0 600.5 800 ]"};
}

} // namespace

class PdfOutlineTest : public QObject {
    Q_OBJECT

private slots:
    void bookmarksOfSeveralLevelsAreFoundAgain();
    void aCutOffPdfGetsNoBookmarks();
    void bookmarksBeyondThePagesAreRefused();
    void groupsOfPagesAndTheirSizesAreRead_data();
    void groupsOfPagesAndTheirSizesAreRead();
    void anUpdateIsAppendedBehindAnother();
    void anotherFormIsToldFromAFileThatIsCutOff_data();
    void anotherFormIsToldFromAFileThatIsCutOff();
    void aReaderOfOthersFindsThem();
};

void PdfOutlineTest::bookmarksOfSeveralLevelsAreFoundAgain()
{
    QByteArray bytes = ThreePages();
    const QByteArray before = bytes;
    QBuffer pdf(&bytes);
    QVERIFY(pdf.open(QBuffer::ReadWrite));
    QCOMPARE(AppendPdfOutline(pdf,
                              {{u"一"_s, 0, 10, 0}, {u"一の(1)\\"_s, 1, 0, 1}, {u"𠮷"_s, 2, 0, 2}, {u"二"_s, 2, 0, 0}},
                              {{0, QRectF(10, 20, 100, 12), 2, 0}}),
             PdfOutlineResult::Appended);
    QVERIFY(bytes.startsWith(before)); // an update behind what stood there
    const PdfReader reader(bytes);
    const QList<PdfReader::Line> lines = reader.Outline();
    QCOMPARE(lines.size(), 4);
    const QString titles[] = {u"一"_s, u"一の(1)\\"_s, u"𠮷"_s, u"二"_s};
    const int pages[] = {0, 1, 2, 2};
    const int levels[] = {0, 1, 2, 0};
    for (int i = 0; i < 4; ++i) {
        QCOMPARE(lines[i].title, titles[i]);
        QCOMPARE(lines[i].page, pages[i]);
        QCOMPARE(lines[i].level, levels[i]);
    }
    QCOMPARE(reader.Pages().size(), 3);
    const QByteArray links = reader.Object(PdfReader::Number(reader.Object(reader.Pages()[0]), "/Annots"));
    QVERIFY2(links.contains("/Rect [10.00 810.00 110.00 822.00]"), links.constData());
    QVERIFY(links.contains("/Dest [" + QByteArray::number(reader.Pages()[2]) + " 0 R /XYZ"));
}

void PdfOutlineTest::aCutOffPdfGetsNoBookmarks()
{
    const QByteArray whole = ThreePages();
    const quint32 seed = QRandomGenerator::global()->generate();
    QRandomGenerator random(seed);
    for (qsizetype size = 0; size < whole.size() - 6; size += 1 + random.bounded(97)) {
        QByteArray bytes = whole.left(size);
        QBuffer pdf(&bytes);
        QVERIFY(pdf.open(QBuffer::ReadWrite));
        QVERIFY2(AppendPdfOutline(pdf, {{u"一"_s, 0, 0, 0}}) == PdfOutlineResult::NotWhole,
                 qPrintable(QString::number(size)));
        QCOMPARE(bytes.size(), size);
    }
    for (int i = 0; i < 3000; ++i) { // no verdict: nothing outside of the bytes is read
        QByteArray bytes = whole;
        bytes[random.bounded(int(bytes.size()))] = char(random.bounded(256));
        QBuffer pdf(&bytes);
        QVERIFY(pdf.open(QBuffer::ReadWrite));
        (void)AppendPdfOutline(pdf, {{u"一"_s, 2, 0, 0}}, {{1, QRectF(0, 0, 5, 5), 0, 0}});
    }
    qInfo() << "seed" << seed;
}

void PdfOutlineTest::bookmarksBeyondThePagesAreRefused()
{
    const std::vector<std::vector<PdfBookmark>> wrong = {
        {{u"一"_s, 3, 0, 0}}, {{u"一"_s, -1, 0, 0}}, {{u"一"_s, 0, 0, 1}}, {{u"一"_s, 0, 0, 0}, {u"二"_s, 0, 0, 2}}};
    for (const auto& bookmarks : wrong) {
        QByteArray bytes = ThreePages();
        const QByteArray before = bytes;
        QBuffer pdf(&bytes);
        QVERIFY(pdf.open(QBuffer::ReadWrite));
        QCOMPARE(AppendPdfOutline(pdf, bookmarks), PdfOutlineResult::NoSuchPage);
        QCOMPARE(bytes, before);
    }
}

void PdfOutlineTest::groupsOfPagesAndTheirSizesAreRead_data()
{
    QTest::addColumn<QByteArray>("end");
    QTest::newRow("LF") << QByteArray("\n");
    QTest::newRow("CR LF") << QByteArray("\r\n");
}

void PdfOutlineTest::groupsOfPagesAndTheirSizesAreRead()
{
    QFETCH(const QByteArray, end);
    QByteArray bytes = PdfOf(NestedPages(), end);
    const QByteArray before = bytes;
    QBuffer pdf(&bytes);
    QVERIFY(pdf.open(QBuffer::ReadWrite));
    QCOMPARE(AppendPdfOutline(pdf, {{u"一"_s, 0, 100, 0}, {u"二"_s, 1, 100, 0}, {u"三"_s, 2, 100, 0}},
                              {{0, QRectF(1, 2, 30, 4), 2, 0}, {2, QRectF(1, 2, 30, 4), 1, 5}}),
             PdfOutlineResult::Appended);
    QVERIFY(bytes.startsWith(before));
    const QByteArray update = bytes.mid(before.size());
    QVERIFY(update.contains("/Dest [5 0 R /XYZ null 600.00 null]")); // of the upper group: 700 high
    QVERIFY(update.contains("/Dest [6 0 R /XYZ null 700.00 null]")); // its own, elsewhere
    QVERIFY(update.contains("/Dest [7 0 R /XYZ null 220.00 null]")); // of its group, which does not begin at 0
    QVERIFY2(update.contains("/Rect [1.00 694.00 31.00 698.00]"), update.constData());
    QVERIFY(update.contains("/Rect [11.00 314.00 41.00 318.00]"));
    QVERIFY(update.contains("/Dest[6 0 R/Fit]")); // what stood there stays
    QVERIFY(update.contains("/Names (endobj \\) >>)"));
    QVERIFY(update.contains("/ID [<AB><CD>]"));
}

void PdfOutlineTest::anUpdateIsAppendedBehindAnother()
{
    QByteArray bytes = ThreePages();
    QBuffer pdf(&bytes);
    QVERIFY(pdf.open(QBuffer::ReadWrite));
    const std::vector<PdfLink> link = {{1, QRectF(0, 0, 5, 5), 2, 0}};
    QCOMPARE(AppendPdfOutline(pdf, {}, link), PdfOutlineResult::Appended);
    QCOMPARE(AppendPdfOutline(pdf, {{u"一"_s, 2, 0, 0}}, link), PdfOutlineResult::Appended);
    const PdfReader reader(bytes);
    QCOMPARE(reader.Outline().size(), 1);
    QCOMPARE(reader.Pages().size(), 3);
    const QByteArray list = reader.Object(PdfReader::Number(reader.Object(reader.Pages()[1]), "/Annots"));
    QCOMPARE(list.count("/Subtype /Link"), 2);
}

void PdfOutlineTest::anotherFormIsToldFromAFileThatIsCutOff_data()
{
    QTest::addColumn<QByteArray>("pdf");
    const QByteArray whole = PdfOf(NestedPages());
    const auto with = [&whole](const QByteArray& before, const QByteArray& after) {
        QByteArray pdf = whole;
        return pdf.replace(before, after);
    };
    QByteArrayList circle = NestedPages();
    circle[3] = "<</Type/Pages/Parent 2 0 R/Count 1/Kids[2 0 R]>>";
    QTest::newRow("a table in a stream") << with("xref\n0 10", "99 0 obj\n<</Type/XRef>>\nstream\n0 10");
    QTest::newRow("secret") << with("/ID[<AB><CD>]", "/Encrypt 5 0 R");
    QTest::newRow("objects in streams beside") << with("/ID[<AB><CD>]", "/XRefStm 1234");
    QTest::newRow("no such object") << with("/Root 1 0 R", "/Root 77 0 R");
    QTest::newRow("a count that is wrong") << with("/Count 3", "/Count 4");
    QTest::newRow("pages in a circle") << PdfOf(circle);
    QTest::newRow("tables in a circle") << with("/ID[<AB><CD>]",
                                                "/Prev " + QByteArray::number(whole.indexOf("xref\n0")));
    QTest::newRow("it has bookmarks") << with("/Type/Catalog", "/Type/Catalog/Outlines 3 0 R");
    QTest::newRow("no size") << with("/MediaBox [0 0 500 700]", "/NoMediaBx [0 0 500 700]");
}

void PdfOutlineTest::anotherFormIsToldFromAFileThatIsCutOff()
{
    QFETCH(const QByteArray, pdf);
    QByteArray bytes = pdf;
    QBuffer device(&bytes);
    QVERIFY(device.open(QBuffer::ReadWrite));
    QCOMPARE(AppendPdfOutline(device, {{u"一"_s, 0, 0, 0}}), PdfOutlineResult::UnknownForm);
    QCOMPARE(bytes, pdf);
}

void PdfOutlineTest::aReaderOfOthersFindsThem()
{
    const QString pdfInfo = QStandardPaths::findExecutable(u"pdfinfo"_s);
    if (pdfInfo.isEmpty())
        QSKIP("pdfinfo is not there (Debian: poppler-utils)");
    for (const QByteArray& made : {ThreePages(), PdfOf(NestedPages()), PdfOf(NestedPages(), "\r\n")}) {
        QTemporaryFile file;
        QVERIFY(file.open());
        file.write(made);
        QCOMPARE(AppendPdfOutline(file, {{u"一"_s, 1, 0, 0}, {u"二"_s, 2, 0, 1}}, {{0, QRectF(0, 0, 9, 9), 2, 0}}),
                 PdfOutlineResult::Appended);
        file.close();
        QProcess process;
        process.start(pdfInfo, {file.fileName()});
        QVERIFY(process.waitForFinished());
        QCOMPARE(process.readAllStandardError(), QByteArray()); // where it has to repair a file, it says so
        QVERIFY(process.readAllStandardOutput().contains("Pages:           3"));
    }
}

QTEST_MAIN(PdfOutlineTest)
#include "pdf_outline_test.moc"
