// Several cases in one table or figure, and points of the figure in the table.
#include "document/result_session.h"
#include "document/section_doc.h"
#include "grid/grid_ctrl.h"
#include "results/result_table.h"
#include "tests/panels/result_hands.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QSignalSpy>
#include <QTest>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

class ResultOverlayTest : public test::ResultHands {
    Q_OBJECT

private slots:
    void cleanup() { TakePanel(); }

    void whatIsClickedInTheFigureIsFoundInTheTable();
    void anEnvelopeTellsTheCasesThatDecide();
    void twoCasesAreLaidOverEachOtherInTheFigure();
    void aPointOfTheOtherCaseIsSaidToBeThat();
    void aPointOfTheOtherGirderComesIntoTheTableByAButton();
};

void ResultOverlayTest::whatIsClickedInTheFigureIsFoundInTheTable()
{
    OpenProject("plate4");
    CResultSession& session = ResultSessionOf(*doc_);
    const std::string name = fromQString(Cell(6, 1)).value();
    session.Pick({.name = name, .component = 4, .rightEnd = true});
    QCOMPARE(panel_->Grid()->FocusCell().row, 6);
    QCOMPARE(panel_->Grid()->Source()->Head(panel_->Grid()->FocusCell().column, 0), u"右My\n[kN・m]"_s);
    QVERIFY(session.Marked() == name); // and the figure marks it
    panel_->Grid()->SetFocusCell(8, 3);
    QVERIFY(session.Marked() == fromQString(Cell(8, 1)).value());
    panel_->Grid()->SetFocusCell(1, 3);
    QVERIFY(session.Marked().empty());
    session.Pick({.name = "nobody", .component = 4, .rightEnd = true});
    QCOMPARE(panel_->Grid()->FocusCell().row, 1);
}

void ResultOverlayTest::anEnvelopeTellsTheCasesThatDecide()
{
    OpenProject("plate4");
    const int rows = panel_->Grid()->Source()->UsedRows();
    auto* list = panel_->findChild<QListView*>(u"envelopeLoads"_s);
    const auto boxes = panel_->findChildren<QCheckBox*>();
    const auto on = std::ranges::find_if(boxes, [](const QCheckBox* box) { return box->text().contains(u"包絡"_s); });
    QVERIFY(on != boxes.end() && list != nullptr && !list->isVisible());
    (*on)->click();
    QVERIFY(list->isVisible());
    QVERIFY(!Load()->isEnabled());
    QCOMPARE(Selection().envelopeLoads.size(), std::size_t(list->model()->rowCount())); // all of them at first
    QCOMPARE(panel_->Grid()->Source()->UsedRows(), rows);
    QCOMPARE(panel_->Grid()->Source()->Head(2, 0), u"左Nx最大\n[kN]"_s);
    QCOMPARE(panel_->Grid()->Source()->Head(3, 0), u"荷重"_s);
    QVERIFY(!Cell(3, 3).isEmpty());
    QVERIFY(!panel_->Grid()->Source()->IsRightAligned(3, 3));
    list->clearSelection();
    QCOMPARE(panel_->Grid()->Source()->UsedRows(), 0);
    list->selectionModel()->select(list->model()->index(0, 0), QItemSelectionModel::Select);
    list->selectionModel()->select(list->model()->index(1, 0), QItemSelectionModel::Select);
    QCOMPARE(Selection().envelopeLoads.size(), std::size_t(2));
    for (int row = 3; row <= rows; ++row)
        QVERIFY(Cell(row, 3) == list->model()->index(0, 0).data() || Cell(row, 3) == list->model()->index(1, 0).data());
    // A click at the curve of the smallest values goes to their column.
    ResultSessionOf(*doc_).Pick({.name = fromQString(Cell(6, 1)).value(), .component = 4, .isLeast = true});
    QCOMPARE(panel_->Grid()->Source()->Head(panel_->Grid()->FocusCell().column, 0), u"左My最小\n[kN・m]"_s);
    Close();
    Open();
    QCOMPARE(panel_->findChild<QListView*>(u"envelopeLoads"_s)->selectionModel()->selectedIndexes().size(), 2);
    QVERIFY(panel_->findChild<QListView*>(u"envelopeLoads"_s)->isVisible());
    const QString folder = qEnvironmentVariable("SBD_FIGURES");
    if (!folder.isEmpty())
        QVERIFY(panel_->grab().save(folder + u"/panel253-envelope.png"_s));
}

void ResultOverlayTest::twoCasesAreLaidOverEachOtherInTheFigure()
{
    OpenProject("plate4");
    QSignalSpy figure(&ResultSessionOf(*doc_), &CResultSession::figureChanged);
    const auto boxes = panel_->findChildren<QComboBox*>();
    QComboBox* const overLoad = boxes[6];
    QComboBox* const overGirder = boxes[7];
    QCOMPARE(overLoad->count(), Load()->count() + 1);
    overLoad->setCurrentIndex(1 + Load()->findText(u"(B-L:MY最小)(相反応力考慮)"_s));
    QCOMPARE(figure.count(), 1);
    QVERIFY(LoadCaseOf(doc_->Results().model, Selection().overLoad)); // the name that the results have
    overGirder->setCurrentIndex(2);
    QVERIFY(Selection().overGirder == "G2");
    overLoad->setCurrentIndex(0);
    overGirder->setCurrentIndex(0);
    QVERIFY(Selection().overLoad.empty() && Selection().overGirder.empty());
}

void ResultOverlayTest::aPointOfTheOtherCaseIsSaidToBeThat()
{
    OpenProject("plate4");
    auto* const point = Named<QLabel>(u"図で選んだ点"_s);
    auto* const button = Button(u"重ねた方を表に出す(&V)"_s);
    const std::string first = Selection().load;
    const std::string second = LoadOfShown(fromQString(Load()->itemText(Load()->currentIndex() + 1)).value());
    Selection().overLoad = second;
    CResultSession& session = ResultSessionOf(*doc_);
    const std::string name = fromQString(Cell(6, 1)).value();

    session.Pick({.name = name, .component = 2, .words = "of the table"});
    QVERIFY(!point->isVisible());
    session.Pick({.name = name, .component = 2, .isOver = true, .words = "of the other one"});
    QCOMPARE(panel_->Grid()->FocusCell().row, 6); // the same member
    QVERIFY(point->isVisible() && point->text().contains(u"of the other one"_s));
    QVERIFY2(point->text().contains(toQString(ShownLoad(first))), qPrintable(point->text()));
    panel_->Grid()->SetFocusCell(8, 3);
    QVERIFY(!point->isVisible());

    Choose(Item(), u"Sz"_s);
    session.Pick({.name = name, .component = 2, .isOver = true, .words = "again"});
    button->click();
    QVERIFY(Selection().load == second && Selection().overLoad == first);
    QCOMPARE(Load()->currentText(), toQString(ShownLoad(second)));
    QCOMPARE(Item()->currentText(), u"Sz"_s); // the figure is still that
    QCOMPARE(panel_->Grid()->FocusCell().row, 6);
    QCOMPARE(panel_->Grid()->Source()->Head(panel_->Grid()->FocusCell().column, 0), u"左Sz\n[kN]"_s);
    QVERIFY(!point->isVisible());
}

void ResultOverlayTest::aPointOfTheOtherGirderComesIntoTheTableByAButton()
{
    OpenProject("plate4");
    auto* const point = Named<QLabel>(u"図で選んだ点"_s);
    auto* const button = Button(u"重ねた方を表に出す(&V)"_s);
    CResultSession& session = ResultSessionOf(*doc_);
    Selection().overGirder = "G3";
    const std::vector<std::string>& names = doc_->Results().model.elementNames;
    const auto other = std::ranges::find_if(names, [](const std::string& name) { return name.starts_with("G3-"); });
    QVERIFY(other != names.end());
    panel_->Grid()->SetFocusCell(7, 3);
    session.Pick({.name = *other, .component = 4, .isOver = true, .words = "G3"});
    QCOMPARE(panel_->Grid()->FocusCell().row, 7);
    QVERIFY2(point->isVisible() && point->text().contains(u"この表にはありません"_s), qPrintable(point->text()));
    button->click();
    QVERIFY(Selection().girder == "G3" && Selection().overGirder == "G1");
    QCOMPARE(Girder()->currentText(), u"G3"_s);
    QCOMPARE(Cell(panel_->Grid()->FocusCell().row, 1), toQString(*other));
    // All girders stand in the table: the row is found, and it is that of the case on show.
    Choose(Girder(), u"すべて"_s);
    Selection().overGirder = "G2";
    const auto third = std::ranges::find_if(names, [](const std::string& name) { return name.starts_with("G2-"); });
    session.Pick({.name = *third, .component = 4, .isOver = true, .words = "G2"});
    QCOMPARE(Cell(panel_->Grid()->FocusCell().row, 1), toQString(*third));
    QVERIFY(!point->isVisible());
    // Left out by the filter: said, without the button.
    Selection().overGirder.clear();
    const auto edits = panel_->findChildren<QLineEdit*>();
    (*std::ranges::find(edits, u"名称の一部"_s, &QLineEdit::placeholderText))->setText(u"no name has this"_s);
    session.Pick({.name = *third, .component = 4, .words = "G2"});
    QVERIFY(point->isVisible() && point->text().contains(u"表に出ていません"_s) && !button->isVisible());
}

} // namespace sbd

QTEST_MAIN(sbd::ResultOverlayTest)
#include "result_overlay_test.moc"
