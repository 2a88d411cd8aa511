#include "document/section_doc.h"
#include "frame/box_web_sheet.h"
#include "frame/box_web_source.h"
#include "grid/grid_ctrl.h"

#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

BoxWebNames Names(int girders)
{
    GridNames names;
    for (int i = 1; i <= girders; ++i) {
        const std::string girder = "G" + std::to_string(i);
        names.girderNames.push_back(girder);
        names.lineNames.push_back(girder + "L");
        names.lineNames.push_back(girder + "R");
    }
    return ProposeBoxWebs(names);
}

/// The sheet on the screen, with the keys going to its grid.
struct Sheet {
    CBoxWebSheet sheet;

    explicit Sheet(int girders) : sheet(Names(girders))
    {
        sheet.open();
        sheet.activateWindow();
        Grid().showMessage = [this](const QString& message) { told.append(message); };
    }
    [[nodiscard]] bool IsUp() { return QTest::qWaitForWindowActive(&sheet); }
    [[nodiscard]] CGridCtrl& Grid() { return sheet.Page().Grid(); }
    [[nodiscard]] CGridSource& Source() { return *Grid().Source(); }
    [[nodiscard]] const BoxWebNames& Result() { return sheet.Page().Names(); }
    void Key(Qt::Key key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(sheet.focusWidget(), key, modifiers);
    }
    void Type(const QString& text)
    {
        QTest::keyClicks(&Grid(), text.first(1));
        if (text.size() > 1)
            QTest::keyClicks(sheet.focusWidget(), text.sliced(1));
    }
    QPushButton* Button(const QString& text)
    {
        for (QPushButton* button : sheet.findChildren<QPushButton*>()) {
            if (button->text() == text)
                return button;
        }
        return nullptr;
    }

    QStringList told;
};

QStringList RowTexts(CGridSource& source, int row)
{
    return {source.RowNumber(row), source.Text(row, 1), source.Text(row, 2), source.Text(row, 3)};
}

} // namespace

class BoxWebSheetTest : public QObject {
    Q_OBJECT

private slots:
    void theGridShowsOneRowAGirder();
    void headsAndWidthsAreGiven();
    void theLinesAreOfferedAndTheGirderIsFixed();
    void theFirstNameHasTheFocus();
    void okTakesTheProposals();
    void okTakesWhatIsStillBeingTyped();
    void aRowThatWasEmptiedKeepsItsProposals();
    void enterGoesOnAndDoesNotCloseTheSheet();
    void controlEnterIsOk();
    void escapeGivesUpTheCellFirstAndThenTheSheet();
    void tabLeavesTheGridAtItsEnds();
    void aCharacterThatAProjectCannotHoldIsRefused();
    void cellsAreClearedPastedAndTakenBack();
    void theSheetIsAsLargeAsItsRows();
    void anEmptyListShowsAnEmptyGrid();
};

void BoxWebSheetTest::theGridShowsOneRowAGirder()
{
    Sheet sheet(2);
    QCOMPARE(sheet.sheet.windowTitle(), u"箱桁腹板名を入力してください"_s);
    QCOMPARE(sheet.Source().RowCount(), 2);
    QCOMPARE(RowTexts(sheet.Source(), 1), (QStringList{u"1"_s, u"G1"_s, u"G1L"_s, u"G1R"_s}));
    QCOMPARE(RowTexts(sheet.Source(), 2), (QStringList{u"2"_s, u"G2"_s, u"G2L"_s, u"G2R"_s}));
}

void BoxWebSheetTest::headsAndWidthsAreGiven()
{
    Sheet sheet(1);
    const QStringList heads = {QString(), u"主桁名"_s, u"左腹板名"_s, u"右腹板名"_s};
    const QList<int> widths = {30, 120, 120, 120};
    for (int column = 0; column < 4; ++column) {
        QCOMPARE(sheet.Source().Head(column, 0), heads[column]);
        QCOMPARE(sheet.Source().ColumnWidth(column), widths[column]);
    }
}

void BoxWebSheetTest::theLinesAreOfferedAndTheGirderIsFixed()
{
    Sheet sheet(2);
    const QStringList lines = {u"G1L"_s, u"G1R"_s, u"G2L"_s, u"G2R"_s, u"仮想主桁・鈑桁"_s};
    QCOMPARE(sheet.Source().Words(1, kLeftColumn), lines);
    QCOMPARE(sheet.Source().Words(2, kRightColumn), lines);
    QVERIFY(sheet.Source().IsLocked(1, kGirderColumn));
    QVERIFY(!sheet.Source().IsEditable(1, kGirderColumn));
    QVERIFY(!sheet.Source().HasWords(1, kGirderColumn));
}

void BoxWebSheetTest::theFirstNameHasTheFocus()
{
    Sheet sheet(2);
    QVERIFY(sheet.IsUp());
    QVERIFY(sheet.Grid().hasFocus());
    QCOMPARE(sheet.Grid().FocusCell(), (GridCell{1, kLeftColumn}));
}

void BoxWebSheetTest::okTakesTheProposals()
{
    Sheet sheet(2);
    QTest::mouseClick(sheet.Button(u"OK"_s), Qt::LeftButton);
    QCOMPARE(sheet.sheet.result(), int(QDialog::Accepted));
    QVERIFY(sheet.Result().leftNames == (std::vector<std::string>{"G1L", "G2L"}));
    QVERIFY(sheet.Result().rightNames == (std::vector<std::string>{"G1R", "G2R"}));
}

void BoxWebSheetTest::okTakesWhatIsStillBeingTyped()
{
    Sheet sheet(1);
    QVERIFY(sheet.IsUp());
    sheet.Type(u"CL"_s);
    QVERIFY(sheet.Grid().IsEditing());
    sheet.Button(u"OK"_s)->click();
    QCOMPARE(sheet.sheet.result(), int(QDialog::Accepted));
    QVERIFY(sheet.Result().leftNames == std::vector<std::string>{"CL"});
    QVERIFY(sheet.Result().rightNames == std::vector<std::string>{"G1R"});
}

void BoxWebSheetTest::aRowThatWasEmptiedKeepsItsProposals()
{
    Sheet sheet(2);
    QVERIFY(sheet.IsUp());
    sheet.Key(Qt::Key_Delete);
    sheet.Key(Qt::Key_Down);
    sheet.Key(Qt::Key_Delete);
    sheet.Grid().SetFocusCell(2, kRightColumn);
    sheet.Key(Qt::Key_Delete);
    sheet.sheet.accept();
    QVERIFY(sheet.Result().leftNames == (std::vector<std::string>{"", "G2L"}));
    QVERIFY(sheet.Result().rightNames == (std::vector<std::string>{"G1R", "G2R"}));
}

void BoxWebSheetTest::enterGoesOnAndDoesNotCloseTheSheet()
{
    Sheet sheet(2);
    QVERIFY(sheet.IsUp());
    sheet.Key(Qt::Key_Return);
    QCOMPARE(sheet.Grid().FocusCell(), (GridCell{2, kLeftColumn}));
    sheet.Type(u"A"_s);
    sheet.Key(Qt::Key_Return);
    QVERIFY(sheet.sheet.isVisible());
    QCOMPARE(sheet.Source().Text(2, kLeftColumn), u"A"_s);
}

void BoxWebSheetTest::controlEnterIsOk()
{
    Sheet sheet(1);
    QVERIFY(sheet.IsUp());
    sheet.Key(Qt::Key_Return, Qt::ControlModifier);
    QCOMPARE(sheet.sheet.result(), int(QDialog::Accepted));
    QVERIFY(!sheet.sheet.isVisible());
}

void BoxWebSheetTest::escapeGivesUpTheCellFirstAndThenTheSheet()
{
    Sheet sheet(1);
    QVERIFY(sheet.IsUp());
    sheet.Type(u"ABC"_s);
    sheet.Key(Qt::Key_Escape);
    QVERIFY(sheet.sheet.isVisible());
    QCOMPARE(sheet.Source().Text(1, kLeftColumn), u"G1L"_s);
    QTest::keyClick(&sheet.Grid(), Qt::Key_Escape);
    QVERIFY(!sheet.sheet.isVisible());
    QCOMPARE(sheet.sheet.result(), int(QDialog::Rejected));
}

void BoxWebSheetTest::tabLeavesTheGridAtItsEnds()
{
    Sheet sheet(1);
    QVERIFY(sheet.IsUp());
    sheet.Key(Qt::Key_Tab);
    QCOMPARE(sheet.Grid().FocusCell(), (GridCell{1, kRightColumn}));
    sheet.Key(Qt::Key_Tab);
    QVERIFY(sheet.Button(u"OK"_s)->hasFocus());
    sheet.Grid().setFocus();
    sheet.Grid().SetFocusCell(1, kLeftColumn);
    sheet.Key(Qt::Key_Backtab, Qt::ShiftModifier);
    QVERIFY(sheet.Button(u"キャンセル"_s)->hasFocus());
}

void BoxWebSheetTest::aCharacterThatAProjectCannotHoldIsRefused()
{
    Sheet sheet(1);
    QVERIFY(sheet.IsUp());
    QTest::keyClick(&sheet.Grid(), Qt::Key_F2);
    qobject_cast<QLineEdit*>(sheet.sheet.focusWidget()) != nullptr
        ? qobject_cast<QLineEdit*>(sheet.sheet.focusWidget())->setText(u"G1é"_s)
        : qobject_cast<QComboBox*>(sheet.sheet.focusWidget())->setEditText(u"G1é"_s);
    sheet.sheet.accept();
    QVERIFY(sheet.sheet.isVisible());
    QVERIFY(!sheet.told.isEmpty());
    QVERIFY(sheet.Result().leftNames == std::vector<std::string>{"G1L"});
}

void BoxWebSheetTest::cellsAreClearedPastedAndTakenBack()
{
    CBoxWebSource source(Names(3));
    QCOMPARE(source.Copy({1, 1, 2, 3}), u"G1\tG1L\tG1R\r\nG2\tG2L\tG2R"_s);

    GridRange filled;
    QCOMPARE(source.Paste(2, 1, u"X\tA\tB\tC\nY\t\tD\nZ\tE\tF\n"_s, &filled), GridEffect::All);
    QCOMPARE(RowTexts(source, 2), (QStringList{u"2"_s, u"G2"_s, u"A"_s, u"B"_s}));
    QCOMPARE(RowTexts(source, 3), (QStringList{u"3"_s, u"G3"_s, QString(), u"D"_s}));
    QCOMPARE(source.RowCount(), 3);
    QCOMPARE(filled.bottom, 3);
    QCOMPARE(filled.right, 3);

    QCOMPARE(source.Clear({1, 1, 1, 3}), GridEffect::All);
    QCOMPARE(RowTexts(source, 1), (QStringList{u"1"_s, u"G1"_s, QString(), QString()}));
    QCOMPARE(source.Clear({1, 1, 1, 3}), GridEffect::None);

    QCOMPARE(source.Undo(), std::optional(GridCell{1, 1}));
    QCOMPARE(source.Undo(), std::optional(GridCell{2, 1}));
    QCOMPARE(source.Undo(), std::optional<GridCell>());
    for (int row = 1; row <= 3; ++row)
        QCOMPARE(source.Text(row, 2), u"G%1L"_s.arg(row));
}

void BoxWebSheetTest::theSheetIsAsLargeAsItsRows()
{
    for (const int girders : {1, 8, 24, 200}) {
        Sheet sheet(girders);
        QVERIFY(sheet.IsUp());
        CGridCtrl& grid = sheet.Grid();
        QVERIFY2(!grid.horizontalScrollBar()->isVisible(), qPrintable(u"%1 girders"_s.arg(girders)));
        QCOMPARE(grid.verticalScrollBar()->isVisible(), girders > 24);
        QVERIFY(sheet.sheet.height() < 768);
    }
}

void BoxWebSheetTest::anEmptyListShowsAnEmptyGrid()
{
    Sheet sheet(0);
    QVERIFY(sheet.IsUp());
    sheet.Key(Qt::Key_Tab);
    QVERIFY(sheet.Button(u"OK"_s)->hasFocus());
    sheet.Key(Qt::Key_Return);
    QCOMPARE(sheet.sheet.result(), int(QDialog::Accepted));
    QVERIFY(sheet.Result().girderNames.empty());
}

QTEST_MAIN(BoxWebSheetTest)
#include "box_web_sheet_test.moc"
