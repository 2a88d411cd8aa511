// The book on paper, and the bookmarks of a PDF.
#include "project/sbd_data.h"
#include "tests/surroundings.h"
#include "upperview/book_paper.h"
#include "upperview/pdf_outline.h"

#include <QBuffer>
#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QProcess>
#include <QRandomGenerator>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

/// Reads a PDF as a viewer does: by the table at its end, and by those that it says it stands on.
class Reader {
public:
    explicit Reader(QByteArray bytes) : bytes_(std::move(bytes))
    {
        qint64 table =
            bytes_.mid(bytes_.lastIndexOf("startxref") + 9).trimmed().split('\n').value(0).trimmed().toLongLong();
        while (table > 0) {
            const QByteArray behind = bytes_.mid(table);
            const qsizetype from = behind.indexOf("trailer");
            const QByteArray trailer = behind.mid(from, behind.indexOf("startxref", from) - from);
            if (root_ == 0)
                root_ = Number(trailer, "/Root");
            const QList<QByteArray> lines = behind.left(behind.indexOf("trailer")).split('\n');
            for (qsizetype i = 1; i < lines.size();) {
                const QList<QByteArray> head = lines[i++].simplified().split(' ');
                for (qint64 k = 0; head.size() == 2 && k < head[1].toLongLong(); ++k, ++i)
                    if (!places_.contains(head[0].toLongLong() + k))
                        places_[head[0].toLongLong() + k] = lines.value(i).left(10).toLongLong();
            }
            table = Number(trailer, "/Prev");
        }
    }

    [[nodiscard]] static qint64 Number(const QByteArray& text, const QByteArray& word)
    {
        const qsizetype at = text.indexOf(word + ' ');
        return at < 0 ? 0 : text.mid(at + word.size() + 1).simplified().split(' ').value(0).toLongLong();
    }
    [[nodiscard]] QByteArray Object(qint64 number) const
    {
        const QByteArray text = bytes_.mid(places_.value(number));
        return text.startsWith(QByteArray::number(number) + " 0 obj") ? text.left(text.indexOf("endobj"))
                                                                      : QByteArray();
    }
    [[nodiscard]] qint64 Root() const { return root_; }
    [[nodiscard]] QList<qint64> Pages() const
    {
        const QByteArray tree = Object(Number(Object(root_), "/Pages"));
        QList<qint64> pages;
        for (const QByteArray& word : tree.mid(tree.indexOf('[') + 1).split(']').value(0).simplified().split('R'))
            if (!word.trimmed().isEmpty())
                pages << word.trimmed().split(' ').value(0).toLongLong();
        return pages;
    }

    struct Line {
        QString title;
        qsizetype page = -1;
        int level = 0;
    };
    [[nodiscard]] QList<Line> Outline() const
    {
        QList<Line> lines;
        Collect(Number(Object(Number(Object(root_), "/Outlines")), "/First"), 0, lines);
        return lines;
    }

private:
    void Collect(qint64 item, int level, QList<Line>& lines) const
    {
        for (int guard = 0; item > 0 && guard < 10'000; ++guard) {
            const QByteArray object = Object(item);
            const QByteArray hex = object.mid(object.indexOf("<FEFF") + 5).split('>').value(0);
            QString title;
            for (qsizetype i = 0; i + 3 < hex.size(); i += 4)
                title += QChar(hex.mid(i, 4).toUShort(nullptr, 16));
            const QByteArray dest = object.mid(object.indexOf("/Dest [") + 7).split(' ').value(0);
            lines << Line{title, Pages().indexOf(dest.toLongLong()), level};
            Collect(Number(object, "/First"), level + 1, lines);
            item = Number(object, "/Next");
        }
    }

    QByteArray bytes_;
    QHash<qint64, qint64> places_;
    qint64 root_ = 0;
};

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
    void bookmarksOfSeveralLevelsAreFoundAgain();
    void aCutOffPdfGetsNoBookmarks();
    void bookmarksBeyondThePagesAreRefused();
    void theBookHasCoverContentsAndEachBlock();
    void everyTextOfEveryBlockIsOnPaper();
    void wideTablesAreBrokenByColumns();
    void sketchesComeOnRequest();
    void givingUpLeavesTheOldFile();
    void aFolderThatIsNotThereIsSaid();
};

void BookPaperTest::bookmarksOfSeveralLevelsAreFoundAgain()
{
    QByteArray bytes = ThreePages();
    const QByteArray before = bytes;
    QBuffer pdf(&bytes);
    QVERIFY(pdf.open(QBuffer::ReadWrite));
    QVERIFY(AppendPdfOutline(pdf,
                             {{u"一"_s, 0, 10, 0}, {u"一の(1)\\"_s, 1, 0, 1}, {u"𠮷"_s, 2, 0, 2}, {u"二"_s, 2, 0, 0}},
                             {{0, QRectF(10, 20, 100, 12), 2, 0}}));
    QVERIFY(bytes.startsWith(before)); // an update behind what stood there
    const Reader reader(bytes);
    const QList<Reader::Line> lines = reader.Outline();
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
    const QByteArray links = reader.Object(Reader::Number(reader.Object(reader.Pages()[0]), "/Annots"));
    QVERIFY2(links.contains("/Rect [10.00 810.00 110.00 822.00]"), links.constData());
    QVERIFY(links.contains("/Dest [" + QByteArray::number(reader.Pages()[2]) + " 0 R /XYZ"));
}

void BookPaperTest::aCutOffPdfGetsNoBookmarks()
{
    const QByteArray whole = ThreePages();
    const quint32 seed = QRandomGenerator::global()->generate();
    QRandomGenerator random(seed);
    for (qsizetype size = 0; size < whole.size() - 6; size += 1 + random.bounded(97)) {
        QByteArray bytes = whole.left(size);
        QBuffer pdf(&bytes);
        QVERIFY(pdf.open(QBuffer::ReadWrite));
        QVERIFY2(!AppendPdfOutline(pdf, {{u"一"_s, 0, 0, 0}}), qPrintable(QString::number(size)));
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

void BookPaperTest::bookmarksBeyondThePagesAreRefused()
{
    const std::vector<std::vector<PdfBookmark>> wrong = {
        {{u"一"_s, 3, 0, 0}}, {{u"一"_s, -1, 0, 0}}, {{u"一"_s, 0, 0, 1}}, {{u"一"_s, 0, 0, 0}, {u"二"_s, 0, 0, 2}}};
    for (const auto& bookmarks : wrong) {
        QByteArray bytes = ThreePages();
        const QByteArray before = bytes;
        QBuffer pdf(&bytes);
        QVERIFY(pdf.open(QBuffer::ReadWrite));
        QVERIFY(!AppendPdfOutline(pdf, bookmarks));
        QCOMPARE(bytes, before);
    }
}

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
    const Reader reader(bytes);
    QCOMPARE(reader.Pages().size(), report->pages);
    const QList<Reader::Line> lines = reader.Outline();
    QCOMPARE(lines.size(), qsizetype(blocks.size()) + 2);
    QCOMPARE(lines[0].title, u"表紙"_s);
    QCOMPARE(lines[1].title, u"目次"_s);
    QCOMPARE(lines[1].page, 1);
    qsizetype page = 2;
    for (std::size_t i = 0; i < blocks.size(); ++i) {
        const Reader::Line& line = lines[qsizetype(i) + 2];
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
    for (const int most : {0, 30, int(blocks.size()) + 20}) // while it is laid out, and while it is painted
        QVERIFY(!WriteBookPdf(path, data, blocks, {}, {}, [most](int done, int) { return done < most; }));
    QCOMPARE(BytesOf(path), "old");
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
