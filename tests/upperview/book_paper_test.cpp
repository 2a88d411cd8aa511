// The book on paper.
#include "pdf_reader.h"
#include "project/sbd_data.h"
#include "tests/surroundings.h"
#include "upperview/book_paper.h"

#include <QFile>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

#include <set>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

CSbdData Example(const char* name)
{
    const std::filesystem::path path =
        std::filesystem::path(test::ExamplesFolder()) / name / (std::string(name) + ".sbd");
    CSbdData data;
    [&] { QVERIFY(LoadProject(path, NamesFileBeside(path), data).Ok()); }();
    return data;
}

QByteArray BytesOf(const QString& path)
{
    QFile file(path);
    return file.open(QFile::ReadOnly) ? file.readAll() : QByteArray();
}

} // namespace

class BookPaperTest : public QObject {
    Q_OBJECT

private slots:
    void theBookHasCoverContentsAndEachBlock();
    void everyTextOfEveryBlockIsOnPaper();
    void wideTablesAreBrokenByColumns();
    void sketchesComeOnRequest();
    void givingUpLeavesTheOldFile();
    void aBlockOfManyPagesCanBeGivenUpToo();
    void aFolderThatIsNotThereIsSaid();
};

void BookPaperTest::theBookHasCoverContentsAndEachBlock()
{
    const QTemporaryDir folder;
    const QString file = folder.filePath(u"帳票.pdf"_s);
    const CSbdData data = Example("plate4");
    const std::vector<int> blocks = FilledBlocks(data);
    int last = -1;
    const auto report =
        WriteBookPdf(file, data, blocks, FactsOf(data, "plate4", {}, "KELD section 9"), {}, [&](int done, int of) {
            [&] { QVERIFY(done >= last && done <= of); }();
            last = done;
            return true;
        });
    QVERIFY(report && report->result.Ok());
    const QByteArray bytes = BytesOf(file);
    const PdfReader reader(bytes);
    QCOMPARE(reader.Pages().size(), report->pages);
    const QList<PdfReader::Line> lines = reader.Outline();
    QCOMPARE(lines.size(), qsizetype(blocks.size()) + 2);
    QCOMPARE(lines[0].title, u"表紙"_s);
    QCOMPARE(lines[1].title, u"目次"_s);
    QCOMPARE(lines[1].page, 1);
    qsizetype page = 2;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        const PdfReader::Line& line = lines[qsizetype(i) + 2];
        QVERIFY2(line.title.startsWith(QString::number(blocks[i]) + u' '), qPrintable(line.title));
        QVERIFY2(line.page >= page, qPrintable(line.title));
        page = line.page;
    }
    QVERIFY2(bytes.contains("/FontFile2") || bytes.contains("/FontFile3"), "the font is not embedded");
    QVERIFY(reader.Object(reader.Root()).contains("/PageMode /UseOutlines"));
}

void BookPaperTest::everyTextOfEveryBlockIsOnPaper()
{
    const QString pdfToText = QStandardPaths::findExecutable(u"pdftotext"_s);
    if (pdfToText.isEmpty())
        QSKIP("pdftotext is not there (Debian: poppler-utils)");
    const QTemporaryDir folder;
    const CSbdData data = Example("box2");
    const std::vector<int> blocks = FilledBlocks(data);
    for (const bool landscape : {false, true}) {
        const QString file = folder.filePath(u"b.pdf"_s);
        BookLook look;
        look.landscape = landscape;
        const auto report = WriteBookPdf(file, data, blocks, FactsOf(data, "box2", {}, "9"), look);
        QVERIFY(report && report->result.Ok());
        QProcess process;
        process.start(pdfToText, {u"-layout"_s, file, u"-"_s});
        QVERIFY(process.waitForFinished());
        // Two characters may share a sign, which is read as one of them.
        const auto plain = [](const QString& text) {
            return QString(text)
                .remove(u' ')
                .remove(u'\n')
                .replace(u'～', u'〜')
                .replace(u'－', u'−')
                .replace(u'∥', u'‖');
        };
        const QString paper = plain(QString::fromUtf8(process.readAllStandardOutput()));
        for (const int block : blocks) {
            const BookBlock shown = MakeBookBlock(data, block);
            for (const auto& row : shown.rows)
                for (const std::string& cell : row) {
                    const QString text = plain(QString::fromStdString(cell));
                    if (text.size() <= 12) // longer ones may take several lines
                        QVERIFY2(paper.contains(text), qPrintable(QString::number(block) + u' ' + text));
                }
        }
    }
}

void BookPaperTest::wideTablesAreBrokenByColumns()
{
    const QTemporaryDir folder;
    CSbdData data = Example("plate4");
    const int wide = 313;
    TableBlock& table = *data.Table(wide);
    for (std::size_t column = 5; column < table.columns.size(); ++column) // behind the names
        for (std::size_t row = 1; row < table.RowCount(); ++row)
            table.columns[column].Set(row, "123456789012345678901234567890");
    const QString file = folder.filePath(u"w.pdf"_s);
    const auto report = WriteBookPdf(file, data, {wide}, FactsOf(data, "plate4", {}, "9"), {});
    QVERIFY(report && report->result.Ok());
    const QString pdfToText = QStandardPaths::findExecutable(u"pdftotext"_s);
    if (pdfToText.isEmpty())
        QSKIP("pdftotext is not there (Debian: poppler-utils)");
    QProcess process;
    process.start(pdfToText, {u"-layout"_s, file, u"-"_s});
    QVERIFY(process.waitForFinished());
    const QString paper = QString::fromUtf8(process.readAllStandardOutput());
    QVERIFY2(paper.contains(u"(続き)"_s), qPrintable(paper));
    QVERIFY(paper.contains(u"列 "_s));
}

void BookPaperTest::sketchesComeOnRequest()
{
    const QTemporaryDir folder;
    const CSbdData data = Example("plate4");
    qint64 sizes[2] = {};
    for (const bool sketches : {false, true}) {
        const QString file = folder.filePath(u"s.pdf"_s);
        BookLook look;
        look.sketches = sketches;
        QVERIFY(WriteBookPdf(file, data, {313}, {}, look)->result.Ok());
        sizes[sketches ? 1 : 0] = QFile(file).size();
    }
    QVERIFY2(sizes[1] > sizes[0] + 1000, "the sketch of 313 is not on paper");
}

void BookPaperTest::givingUpLeavesTheOldFile()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"a.pdf"_s);
    QFile file(path);
    QVERIFY(file.open(QFile::WriteOnly));
    file.write("old");
    file.close();
    const CSbdData data = Example("plate4");
    const std::vector<int> blocks = FilledBlocks(data);
    for (const int most : {0, 30, 700}) // while it is laid out, and while it is painted
        QVERIFY(!WriteBookPdf(path, data, blocks, {}, {}, [most](int done, int) { return done < most; }));
    QCOMPARE(BytesOf(path), "old");
}

void BookPaperTest::aBlockOfManyPagesCanBeGivenUpToo()
{
    const QTemporaryDir folder;
    CSbdData data = Example("plate4");
    TableBlock& table = *data.Table(313);
    while (table.RowCount() < 3000)
        table.AppendRow(std::vector<std::string_view>(table.columns.size(), "130"));
    std::set<int> steps; // a window takes a press of its button where the bar moves on
    const auto report = WriteBookPdf(folder.filePath(u"a.pdf"_s), data, {313}, {}, {}, [&](int done, int) {
        steps.insert(done);
        return true;
    });
    QVERIFY(report && report->pages > 30);
    QVERIFY2(steps.size() > 30, qPrintable(QString::number(steps.size())));
}

void BookPaperTest::aFolderThatIsNotThereIsSaid()
{
    const QTemporaryDir folder;
    const auto report = WriteBookPdf(folder.filePath(u"none/a.pdf"_s), Example("plate4"), {301}, {}, {});
    QVERIFY(report);
    QCOMPARE(report->result.error, FileError::NotFound);
}

QTEST_MAIN(BookPaperTest)
#include "book_paper_test.moc"
