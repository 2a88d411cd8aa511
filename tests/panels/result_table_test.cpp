// The table of the result panel: edits, order, filter, widths, copies.
#include "document/section_doc.h"
#include "grid/grid_ctrl.h"
#include "results/result_title.h"
#include "tests/panels/result_hands.h"

#include <QApplication>
#include <QClipboard>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

class ResultTableTest : public test::ResultHands {
    Q_OBJECT

private slots:
    void cleanup() { TakePanel(); }

    void editsStandOverTheTableUntilItIsFilled();
    void copiedValuesAreNumbersToASpreadsheet();
    void aHeadSortsTheRowsAndTheOrderOfTheFilesComesBack();
    void theFilterLeavesNamesThatHoldIt();
    void widthsThatTheMouseHasGivenStay();
    void copiesHaveHeadsWithUnits();
};

void ResultTableTest::editsStandOverTheTableUntilItIsFilled()
{
    OpenProject("plate4");
    const AnalysisResults before = doc_->Results();
    const QString name = Cell(3, 1);
    panel_->Grid()->SetFocusCell(3, 1);
    panel_->Delete();
    QCOMPARE(Cell(3, 1), QString());
    panel_->Undo();
    QCOMPARE(Cell(3, 1), name);
    QApplication::clipboard()->setText(u"a\tb\nc\td\n"_s);
    panel_->Paste();
    QCOMPARE(Cell(3, 1), u"a"_s);
    QCOMPARE(Cell(4, 2), u"d"_s);
    panel_->Cut();
    panel_->Undo();
    panel_->Undo();
    QCOMPARE(Cell(3, 1), name);
    panel_->Delete();
    Choose(Girder(), u"G2"_s);
    Choose(Girder(), u"G1"_s);
    QCOMPARE(Cell(3, 1), name);
    QVERIFY(doc_->Results() == before);
    QVERIFY(!doc_->IsModified());
}

void ResultTableTest::copiedValuesAreNumbersToASpreadsheet()
{
    OpenProject("plate4");
    const QStringList line = panel_->Grid()->Source()->Copy({3, 1, 4, 13}).split(u"\r\n"_s)[1].split(u'\t');
    QCOMPARE(line.size(), 13);
    QCOMPARE(line[0], u"G1-C1"_s);
    for (qsizetype i = 1; i < line.size(); ++i) {
        bool isNumber = false;
        static_cast<void>(line[i].toDouble(&isNumber));
        QVERIFY2(isNumber, qPrintable(line[i]));
    }
}

void ResultTableTest::aHeadSortsTheRowsAndTheOrderOfTheFilesComesBack()
{
    OpenProject("plate4");
    const QString first = Cell(3, 1);
    const int rows = panel_->Grid()->Source()->UsedRows();
    const auto doubleClick = [&](int column) {
        QHeaderView* head = panel_->Grid()->horizontalHeader();
        const QPoint at(head->sectionViewportPosition(column - 1) + head->sectionSize(column - 1) / 2, 8);
        QTest::mouseDClick(head->viewport(), Qt::LeftButton, {}, at);
    };
    const auto inOrder = [&](int column, bool descending) {
        for (int row = 4; row <= rows; ++row) {
            const double before = Cell(row - 1, column).toDouble();
            const double behind = Cell(row, column).toDouble();
            if (descending ? before < behind : before > behind)
                return false;
        }
        return true;
    };
    doubleClick(3);
    QVERIFY(inOrder(3, false));
    QVERIFY(TableTitle(Selection()).find(fromQString(u"右Nx 昇順"_s).value()) != std::string::npos);
    doubleClick(3);
    QVERIFY(inOrder(3, true));
    QCOMPARE(panel_->Grid()->Source()->UsedRows(), rows);
    const auto buttons = panel_->findChildren<QPushButton*>();
    const auto back = std::ranges::find(buttons, u"ファイルの順に戻す"_s, &QPushButton::text);
    QVERIFY(back != buttons.end() && (*back)->isVisible());
    (*back)->click();
    QCOMPARE(Cell(3, 1), first);
    Choose(Item(), u"Sz"_s); // the figure is not that of the order
    doubleClick(3);
    QCOMPARE(Item()->currentText(), u"Sz"_s);
    QVERIFY(Selection().figureItem == "Sz");
    (*back)->click();
    QVERIFY(!(*back)->isVisible());
    doubleClick(3);
    Columns()[0]->click(); // the columns are others
    QCOMPARE(Cell(3, 1), first);
}

void ResultTableTest::theFilterLeavesNamesThatHoldIt()
{
    OpenProject("plate4");
    const int rows = panel_->Grid()->Source()->UsedRows();
    const auto edits = panel_->findChildren<QLineEdit*>();
    auto* filter = *std::ranges::find(edits, u"名称の一部"_s, &QLineEdit::placeholderText);
    filter->setText(u"-C1"_s);
    const int left = panel_->Grid()->Source()->UsedRows();
    QVERIFY(left > 3 && left < rows);
    for (int row = 3; row <= left; ++row)
        QVERIFY(Cell(row, 1).contains(u"-C1"_s));
    QVERIFY(TableTitle(Selection()).find("-C1") != std::string::npos); // CSV and paper say so
    Choose(Item(), u"Nx"_s);
    filter->clear();
    QCOMPARE(Item()->currentText(), u"Nx"_s); // it narrows the table alone
    QVERIFY(Selection().figureItem == "Nx");
    QCOMPARE(panel_->Grid()->Source()->UsedRows(), rows);
}

void ResultTableTest::widthsThatTheMouseHasGivenStay()
{
    OpenProject("plate4");
    QHeaderView* const head = panel_->Grid()->horizontalHeader();
    const int before = panel_->Grid()->columnWidth(1);
    const int edge = head->sectionViewportPosition(1) + head->sectionSize(1) - 1;
    QTest::mousePress(head->viewport(), Qt::LeftButton, {}, {edge, 5});
    QTest::mouseMove(head->viewport(), {edge + 20, 5});
    QTest::mouseMove(head->viewport(), {edge + 40, 5});
    QTest::mouseRelease(head->viewport(), Qt::LeftButton, {}, {edge + 40, 5});
    const int wide = panel_->Grid()->columnWidth(1);
    QCOMPARE(wide, before + 40);
    Girder()->setCurrentIndex(Girder()->findText(u"G2"_s)); // filled anew
    QCOMPARE(panel_->Grid()->columnWidth(1), wide);
    QCOMPARE(panel_->Grid()->columnWidth(2), before);
    Columns()[1]->click(); // fewer columns: it is still the one of this head
    QCOMPARE(panel_->Grid()->columnWidth(1), wide);
    Close();
    Open();
    QCOMPARE(panel_->Grid()->columnWidth(1), wide);
    Choose(Kind(), u"変位"_s);
    QVERIFY(panel_->Grid()->columnWidth(1) != wide);
}

void ResultTableTest::copiesHaveHeadsWithUnits()
{
    OpenProject("plate4");
    panel_->Grid()->SetFocusCell(3, 2);
    panel_->Grid()->RunCommand(Command::CopyWithHeads);
    const QString text = QApplication::clipboard()->text();
    QVERIFY2(text.startsWith(u"左Nx [kN]\n"_s), qPrintable(text));
    QVERIFY(text.contains(Cell(3, 2)));
}

} // namespace sbd

QTEST_MAIN(sbd::ResultTableTest)
#include "result_table_test.moc"
