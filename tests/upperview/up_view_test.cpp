#include "document/section_doc.h"
#include "project/catalogue.h"
#include "upperview/cell_help.h"
#include "upperview/up_view.h"

#include <QLabel>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

class UpViewTest : public QObject {
    Q_OBJECT

private slots:
    void anOptionRowIsExplainedByItsLabel();
    void aTableCellIsExplainedByItsColumn();
    void aSectionProjectHasHeadsOfItsOwn();
    void nothingIsSaidOfHeadsSpareRowsAndRowNumbers();
    void everyBlockOfTheMenuHasATitle();
    void withoutACellTheBlockOnShowIsNamed();
    void titleIsBlueAndCellIsRed();
};

void UpViewTest::anOptionRowIsExplainedByItsLabel()
{
    CKELDSectionDoc doc;
    const CUpView view(&doc);
    doc.SetHelpCell(301, 5, 2);
    QCOMPARE(view.TitleText(), u"301.CONTROL [SEC_CONTROL]"_s);
    QCOMPARE(view.CellText(), u"対傾構設計を行わない(YES_NO)"_s);
}

void UpViewTest::aTableCellIsExplainedByItsColumn()
{
    CKELDSectionDoc doc;
    const CUpView view(&doc);
    doc.SetHelpCell(313, 2, 1);
    QCOMPARE(view.CellText(), u"主桁始"_s);
    doc.SetHelpCell(311, 2, 6); // a head of several lines
    QCOMPARE(view.CellText(), u"[DXL] 桁高終 (m)"_s);
    doc.SetHelpCell(713, 2, 6);
    QCOMPARE(view.CellText(), u"材質"_s);
}

void UpViewTest::aSectionProjectHasHeadsOfItsOwn()
{
    CKELDSectionDoc doc;
    doc.Data().SetOption(301, 2, *fromQString(u"断面"_s));
    const CUpView view(&doc);
    doc.SetHelpCell(331, 2, 1);
    QCOMPARE(view.CellText(), u"G(固定)"_s);
}

void UpViewTest::nothingIsSaidOfHeadsSpareRowsAndRowNumbers()
{
    const CSbdData data;
    QVERIFY(CellTitle(data, 313, 0, 1).empty());
    QVERIFY(CellTitle(data, 313, 1, 0).empty());
    QVERIFY(CellTitle(data, 313, 1, 99).empty());
    QVERIFY(CellTitle(data, 301, 37, 2).empty());
    QVERIFY(CellTitle(data, 255, 1, 1).empty());
}

void UpViewTest::everyBlockOfTheMenuHasATitle()
{
    for (const CatalogueRow& row : Catalogue()) {
        if (!row.menuText.empty())
            QVERIFY2(!PageTitleOf(row.block).empty(), qPrintable(QString::number(row.block)));
    }
    QVERIFY(PageTitleOf(614).empty());
}

void UpViewTest::withoutACellTheBlockOnShowIsNamed()
{
    CKELDSectionDoc doc;
    CUpView view(&doc);
    doc.SetHelpCell(301, 5, 2);
    doc.SetCurrentBlock(402);
    doc.SetHelpCell(-1, 0, 0);
    QCOMPARE(view.TitleText(), u"402.ずれ止め間隔 [DRAW_STUD]"_s);
    QVERIFY(view.CellText().isEmpty());
}

void UpViewTest::titleIsBlueAndCellIsRed()
{
    CKELDSectionDoc doc;
    CUpView view(&doc);
    doc.SetHelpCell(301, 5, 2);
    view.resize(600, 300);
    const QImage picture = view.grab().toImage();
    bool blue = false;
    bool red = false;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            const QColor colour = picture.pixelColor(x, y);
            blue = blue || (colour.blue() > 200 && colour.red() < 80 && colour.green() < 80);
            red = red || (colour.red() > 200 && colour.blue() < 80 && colour.green() < 80);
        }
    }
    QVERIFY(blue);
    QVERIFY(red);
}

QTEST_MAIN(UpViewTest)
#include "up_view_test.moc"
