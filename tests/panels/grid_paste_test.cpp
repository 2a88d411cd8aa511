// Copies out of a real panel and pastes into it.
#include "tests/panels/panel_hands.h"

#include <QClipboard>
#include <QMimeData>

namespace sbd {

using namespace Qt::StringLiterals;

class GridPasteTest : public test::PanelHands {
    Q_OBJECT

private slots:
    void init() { PutPanel(); }
    void cleanup() { TakePanel(); }

    void CopyWithHeadsAndATableForWordProcessors();
    void ATableFromABrowserIsPastedCellByCell();
    void APasteBeyondTheEdgeOrIntoLockedCellsSaysHowManyStayed();
};

void GridPasteTest::CopyWithHeadsAndATableForWordProcessors()
{
    Select(2, 3, 3, 4);
    Key(Qt::Key_C, Qt::ControlModifier);
    QCOMPARE(QApplication::clipboard()->text(), u"C1\tA2\nC2\tA2"_s);
    QVERIFY(QApplication::clipboard()->mimeData()->html().contains(u"<tr><td>C2</td><td>A2</td></tr>"_s));
    Key(Qt::Key_C, Qt::ControlModifier | Qt::ShiftModifier);
    const QString text = QApplication::clipboard()->text();
    QCOMPARE(text.count(u'\n'), 2);
    QVERIFY(text.startsWith(HeadOnOneLine(Grid().Source()->Head(3, 2)) + u'\t'));
    QVERIFY(text.endsWith(u"C1\tA2\nC2\tA2"_s));
    QVERIFY(QApplication::clipboard()->mimeData()->html().contains(u"<th>"_s));
    Grid().SetFocusCell(5, 7);
    Key(Qt::Key_C, Qt::ControlModifier);
    Grid().SetFocusCell(6, 7);
    Key(Qt::Key_V, Qt::ControlModifier); // the table that goes with it does not matter here
    QCOMPARE(Cell(6, 7), u"9"_s);
}

void GridPasteTest::ATableFromABrowserIsPastedCellByCell()
{
    auto* data = new QMimeData;
    data->setText(u"G1\nG2\n1\n2\n"_s); // as some word processors give a table
    data->setHtml(u"<p>x</p><table><tr><td>G1</td><td><p>G2</p></td></tr><tr><td>1<br>5</td><td>2</td></tr></table>"_s);
    QApplication::clipboard()->setMimeData(data);
    Grid().SetFocusCell(3, 7);
    Key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(Cell(3, 7) + u'|' + Cell(3, 8), u"G1|G2"_s);
    QCOMPARE(Cell(4, 8), u"2"_s);
    QVERIFY(Cell(4, 7).startsWith(u"1"_s) && Cell(4, 7).endsWith(u"5"_s));
    QCOMPARE(Cell(5, 7), u"9"_s);
}

void GridPasteTest::APasteBeyondTheEdgeOrIntoLockedCellsSaysHowManyStayed()
{
    const int last = Grid().Source()->ColumnCount();
    QApplication::clipboard()->setText(u"1\t2\t3"_s);
    Grid().SetFocusCell(2, last);
    Key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(messages_.size(), 1);
    QVERIFY2(messages_[0].contains(u"はみ出した 2 個"_s), qPrintable(messages_[0]));
    Grid().SetFocusCell(1, 4);
    Key(Qt::Key_V, Qt::ControlModifier); // the automatic row takes none of them
    QCOMPARE(messages_.size(), 2);
    QVERIFY2(messages_[1].contains(u"入力できない 3 個のセル"_s), qPrintable(messages_[1]));
    Grid().SetFocusCell(2, 6);
    Key(Qt::Key_V, Qt::ControlModifier);
    QCOMPARE(messages_.size(), 2);
}

} // namespace sbd

QTEST_MAIN(sbd::GridPasteTest)
#include "grid_paste_test.moc"
