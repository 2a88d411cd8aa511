// What the result panel writes and prints: CSV, spreadsheet, paper.
#include "panels/result_output.h"
#include "panels/result_saver.h"
#include "results/result_table.h"
#include "tests/panels/result_hands.h"
#include "tests/surroundings.h"

#include <QDir>
#include <QPdfWriter>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

namespace sbd {

using namespace Qt::StringLiterals;

class ResultOutputTest : public test::ResultHands {
    Q_OBJECT

private slots:
    void cleanup() { TakePanel(); }

    void theCsvFileHoldsTheWholeTable();
    void aFileThatCannotBeWrittenIsTold();
    void theSpreadsheetIsWritten();
    void whoGivesUpKeepsTheFileThatWasThere();
    void aTableNeverTakesThePlaceOfAProjectOrItsResults();
    void resultsThatComeWhileATableIsSavedEndIt();
    void aLongTablePrintsOnSeveralPages();
};

void ResultOutputTest::theCsvFileHoldsTheWholeTable()
{
    OpenProject("plate4");
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"表.csv"_s);
    QString proposed;
    panel_->Saver().askFile = [&](QWidget*, const QString& name) {
        proposed = name;
        return path;
    };
    QSignalSpy ended(&panel_->Saver(), &CResultSaver::ended);
    panel_->Saver().SaveCsv();
    QCOMPARE(ended.count(), 1);
    QVERIFY(ended[0][0].toString().contains(u"表.csv"_s));
    const QString beside = QFileInfo(doc_->PathName()).path();
    QCOMPARE(proposed, beside + u"/断面力　荷重_ (B-L_MY最大)(相反応力考慮)　主桁_ G1.csv"_s);
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    QVERIFY(bytes.startsWith("\xEF\xBB\xBF"));
    const QStringList lines = QString::fromUtf8(bytes.mid(3)).split(u"\r\n"_s);
    QCOMPARE(lines.size(), 3 + 2 + 20 + 1); // title, origin, heads, extremes, rows, behind the last line end
    QVERIFY2(lines[1].startsWith(u"計画: single1.sbd　結果: 20"_s)
                 || lines[1].startsWith(u"計画: plate4.sbd　結果: 20"_s),
             qPrintable(lines[1]));
    QVERIFY2(lines[2].startsWith(u"要素名,左Nx [kN],右Nx [kN],左Sy [kN]"_s), qPrintable(lines[2]));
    QVERIFY2(lines[2].endsWith(u"左Mz [kN・m],右Mz [kN・m]"_s), qPrintable(lines[2]));
    QVERIFY(lines[3].startsWith(u"最大値,"_s));
    QVERIFY(lines[5].startsWith(u"G1-S1,"_s));
}

void ResultOutputTest::aFileThatCannotBeWrittenIsTold()
{
    OpenProject("single1");
    QString told;
    panel_->Saver().warn = [&](QWidget*, const QString& message) { told = message; };
    panel_->Saver().askFile = [](QWidget*, const QString&) { return u"/no/such/folder/x.csv"_s; };
    panel_->Saver().SaveCsv();
    QVERIFY(told.contains(u"/no/such/folder/x.csv"_s));
#ifndef Q_OS_WIN // whose system has its own words
    QVERIFY2(told.endsWith(u"(詳細: ファイルまたはフォルダーがありません)"_s), qPrintable(told));
#endif
    told.clear();
    panel_->Saver().askFile = [](QWidget*, const QString&) { return QString(); };
    panel_->Saver().SaveCsv();
    QVERIFY(told.isEmpty());
    panel_->Saver().print = [](QWidget*, const CResultTable&, const ResultSelection&) { return false; };
    panel_->Saver().Print();
    QVERIFY(!told.isEmpty());
}

void ResultOutputTest::theSpreadsheetIsWritten()
{
    OpenProject("plate4");
    QTemporaryDir folder;
    QString proposed;
    const QString path = folder.filePath(u"表.xlsx"_s);
    panel_->Saver().askFile = [&](QWidget*, const QString& name) {
        proposed = name;
        return path;
    };
    panel_->Saver().SaveXlsx();
    QVERIFY(proposed.endsWith(u".xlsx"_s));
    QFile file(path);
    QVERIFY(file.open(QIODevice::ReadOnly));
    QVERIFY(file.readAll().startsWith("PK"));
    QString told;
    panel_->Saver().warn = [&](QWidget*, const QString& message) { told = message; };
    panel_->Saver().askFile = [](QWidget*, const QString&) { return u"/no/such/folder/x.xlsx"_s; };
    panel_->Saver().SaveXlsx();
    QVERIFY(told.contains(u"/no/such/folder/x.xlsx"_s));
}

void ResultOutputTest::whoGivesUpKeepsTheFileThatWasThere()
{
    OpenProject("box2");
    Choose(Girder(), u"すべて"_s);
    QTemporaryDir folder;
    CResultSaver& saver = panel_->Saver();
    QString told;
    saver.warn = [&](QWidget*, const QString& message) { told = message; };
    for (const QString& name : {u"table.csv"_s, u"table.xlsx"_s})
        for (const int patience : {0, 1}) {
            if (patience == 1 && name.endsWith(u"csv"_s)) // few rows are told of once; a book again when it is written
                continue;
            const QString path = folder.filePath(name);
            QFile file(path);
            QVERIFY(file.open(QIODevice::WriteOnly));
            file.write("before");
            file.close();
            int asked = 0;
            saver.askFile = [&](QWidget*, const QString&) { return path; };
            saver.isCancelled = [&](std::size_t) { return asked++ >= patience; };
            if (name.endsWith(u"csv"_s))
                saver.SaveCsv();
            else
                saver.SaveXlsx();
            QVERIFY(asked > patience);
            QVERIFY2(told.isEmpty(), qPrintable(told));
            QVERIFY(file.open(QIODevice::ReadOnly));
            QCOMPARE(file.readAll(), QByteArray("before"));
            QCOMPARE(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden), QStringList{name});
            file.close();
            saver.isCancelled = nullptr;
            if (name.endsWith(u"csv"_s))
                saver.SaveCsv();
            else
                saver.SaveXlsx();
            QVERIFY(QFileInfo(path).size() > 1000);
            QVERIFY(file.remove());
        }
}

void ResultOutputTest::aTableNeverTakesThePlaceOfAProjectOrItsResults()
{
    QTemporaryDir folder;
    const QString project = folder.filePath(u"bridge.sbd"_s);
    QVERIFY(QFile::copy(QString::fromUtf8(test::ExamplesFolder()) + u"/plate4/plate4.sbd"_s, project));
    QVERIFY(QFile::link(project, folder.filePath(u"table.csv"_s)));
    OpenProject("plate4");
    QString told;
    panel_->Saver().warn = [&](QWidget*, const QString& message) { told = message; };
    QFile file(project);
    QVERIFY(file.open(QIODevice::ReadOnly));
    const QByteArray before = file.readAll();
    for (const QString& name : {u"bridge.sbd"_s, u"table.csv"_s, u"BRIDGE.SBD"_s, u"bridge.Z1D"_s, u"bridge.z3f"_s,
                                u"bridge.abd"_s, u"bridge.sbd."_s, u"bridge.CHK "_s}) {
        told.clear();
        panel_->Saver().askFile = [&](QWidget*, const QString&) { return folder.filePath(name); };
        panel_->Saver().SaveCsv();
        QVERIFY2(told.contains(u"別の名前"_s), qPrintable(name + told));
        told.clear();
        panel_->Saver().SaveXlsx();
        QVERIFY2(told.contains(u"別の名前"_s), qPrintable(name + told));
    }
    file.seek(0);
    QCOMPARE(file.readAll(), before);
    QCOMPARE(QDir(folder.path()).entryList(QDir::Files), (QStringList{u"bridge.sbd"_s, u"table.csv"_s}));
}

void ResultOutputTest::resultsThatComeWhileATableIsSavedEndIt()
{
    OpenProject("plate4");
    QTemporaryDir folder;
    const QString path = folder.filePath(u"table.csv"_s);
    QString told;
    panel_->Saver().warn = [&](QWidget*, const QString& message) { told = message; };
    panel_->Saver().askFile = [&](QWidget*, const QString&) { return path; };
    panel_->Saver().isCancelled = [&](std::size_t) {
        doc_->ReadResults(doc_->PathName());
        return false;
    };
    panel_->Saver().SaveCsv();
    QVERIFY2(told.contains(u"読み直された"_s), qPrintable(told));
    QVERIFY(!QFile::exists(path));
}

void ResultOutputTest::aLongTablePrintsOnSeveralPages()
{
    OpenProject("plate4");
    Choose(Girder(), u"すべて"_s);
    const QTemporaryDir folder;
    const QString kept = qEnvironmentVariable("SBD_FIGURES");
    const QString path = kept.isEmpty() ? folder.filePath(u"t.pdf"_s) : kept + u"/table.pdf"_s;
    const auto pages = [&](const CResultTable& table) {
        {
            QPdfWriter paper(path);
            paper.setPageSize(QPageSize(QPageSize::A4));
            if (!PrintResultTable(paper, table, Selection(), panel_->font()))
                return qsizetype{-1};
        }
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll().count("/Type /Page\n") : qsizetype{-1};
    };
    QCOMPARE(pages(CResultTable()), 1);
    QCOMPARE(pages(panel_->Table()), 2);
    QPdfWriter nowhere(u"/no/such/folder/t.pdf"_s);
    QVERIFY(!PrintResultTable(nowhere, panel_->Table(), Selection(), panel_->font()));
}

} // namespace sbd

QTEST_MAIN(sbd::ResultOutputTest)
#include "result_output_test.moc"
