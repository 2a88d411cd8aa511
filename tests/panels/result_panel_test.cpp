// What is chosen in the result panel, and what it says of itself.
#include "document/result_session.h"
#include "document/section_doc.h"
#include "grid/grid_ctrl.h"
#include "panels/result_output.h"
#include "results/result_table.h"
#include "results/result_title.h"
#include "tests/panels/result_hands.h"
#include "tests/surroundings.h"

#include <QApplication>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

class ResultPanelTest : public test::ResultHands {
    Q_OBJECT

private slots:
    void cleanup() { TakePanel(); }

    void theFirstUseShowsForcesOfTheFirstGirder();
    void eachChoiceFillsTheTable();
    void withoutAGirderTheStationFilters();
    void excludedNamesLeaveTheTableAndComeBack();
    void theSelectionOutlivesThePanel();
    void anotherKindDropsTheRaisedLoad();
    void theWheelChangesADropListOnlyWhileItHasTheFocus();
    void theFigureItemChangesTheFigureOnly();
    void theStateOfTheResultsIsSaidBelowTheTable();
    void theMagnificationIsChosenInThePanel();
    void inANarrowWindowNothingLiesOverAnother();
    void aKindWithoutResultsIsSaid();
    void withoutResultsItSaysSo();
    void resultsThatComeLaterAreShown();
    void aLargeBridgeIsFilledAtOnce();
};

void ResultPanelTest::theFirstUseShowsForcesOfTheFirstGirder()
{
    OpenProject("plate4");
    QCOMPARE(Kind()->currentText(), u"断面力"_s);
    QCOMPARE(Load()->currentText(), u"(B-L:MY最大)(相反応力考慮)"_s);
    QCOMPARE(Girder()->currentText(), u"G1"_s);
    QCOMPARE(Station()->currentText(), u"なし"_s);
    QVERIFY(!Station()->isEnabled());
    QCOMPARE(Item()->currentText(), u"My"_s);
    QCOMPARE(panel_->Grid()->Source()->ColumnCount(), 13);
    QCOMPARE(Cell(1, 1), u"最大値"_s);
    QCOMPARE(Cell(3, 1), u"G1-S1"_s);
    QCOMPARE(panel_->Grid()->Source()->TextColor(1, 2), QColor(Qt::magenta));
    QCOMPARE(panel_->Grid()->Source()->TextColor(2, 2), QColor(Qt::blue));
    QVERIFY(panel_->Grid()->Source()->IsLocked(1, 1));
    QVERIFY(panel_->Grid()->isVisible());
    const QString folder = qEnvironmentVariable("SBD_FIGURES");
    if (!folder.isEmpty())
        QVERIFY(panel_->grab().save(folder + u"/panel253.png"_s));
}

void ResultPanelTest::eachChoiceFillsTheTable()
{
    OpenProject("plate4");
    QSignalSpy figure(&ResultSessionOf(*doc_), &CResultSession::figureChanged);
    Choose(Girder(), u"G2"_s);
    QCOMPARE(Cell(3, 1), u"G2-S1"_s);
    const QString before = Cell(3, 2);
    Choose(Load(), u"前死荷重(鋼重+床版)"_s);
    QCOMPARE(Selection().load, fromQString(u"前死荷重(鋼重+床版)"_s).value());
    QVERIFY(Cell(6, 10) != before);
    const auto boxes = Columns();
    QCOMPARE(boxes.size(), 6);
    boxes[0]->click();
    QCOMPARE(panel_->Grid()->Source()->ColumnCount(), 11);
    QCOMPARE(panel_->Grid()->Source()->Head(2, 0), u"左Sy\n[kN]"_s);
    QCOMPARE(figure.count(), 3);
}

void ResultPanelTest::withoutAGirderTheStationFilters()
{
    OpenProject("plate4");
    Choose(Girder(), u"なし"_s);
    QVERIFY(Station()->isEnabled());
    QCOMPARE(panel_->Table().RowCount(), std::size_t{0});
    QCOMPARE(Cell(1, 1), QString());
    Station()->setEditText(u"G1-S"_s);
    QCOMPARE(Station()->currentText(), u"G1-S"_s); // not completed to a name
    QCOMPARE(panel_->Table().RowCount(), std::size_t{3});
    QCOMPARE(Excluded()->model()->rowCount(), 3);
    Station()->setEditText(u"한"_s);
    QCOMPARE(panel_->Table().RowCount(), std::size_t{3});
    Choose(Station(), u"すべて"_s);
    QCOMPARE(panel_->Table().RowCount(), std::size_t{145});
}

void ResultPanelTest::excludedNamesLeaveTheTableAndComeBack()
{
    OpenProject("plate4");
    QCOMPARE(Excluded()->model()->rowCount(), 20);
    Excluded()->selectionModel()->select(Excluded()->model()->index(0, 0), QItemSelectionModel::Select);
    QCOMPARE(panel_->Table().RowCount(), std::size_t{19});
    QCOMPARE(Cell(3, 1), u"G1-C1"_s);
    QCOMPARE(Selection().excludedNames, std::vector<std::string>{"G1-S1"});
    Close();
    Open();
    QCOMPARE(panel_->Table().RowCount(), std::size_t{19});
    QCOMPARE(Excluded()->selectionModel()->selectedIndexes().size(), 1);
    Excluded()->clearSelection();
    QCOMPARE(panel_->Table().RowCount(), std::size_t{20});
}

void ResultPanelTest::theSelectionOutlivesThePanel()
{
    OpenProject("box2");
    Choose(Kind(), u"反力"_s);
    Choose(Girder(), u"すべて"_s);
    Columns()[4]->click();
    const QString cell = Cell(5, 3);
    QVERIFY(!cell.isEmpty());
    Close();
    Open();
    QCOMPARE(Kind()->currentText(), u"反力"_s);
    QCOMPARE(Girder()->currentText(), u"すべて"_s);
    QVERIFY(!Columns()[4]->isChecked());
    QCOMPARE(Cell(5, 3), cell);
}

void ResultPanelTest::anotherKindDropsTheRaisedLoad()
{
    OpenProject("plate4");
    Choose(Kind(), u"変位"_s);
    QCOMPARE(Load()->currentText(), u"(B-L:MY最大)"_s);
    QCOMPARE(Load()->findText(u"(B-L:MY最大)(相反応力考慮)"_s), -1);
    QCOMPARE(Item()->currentText(), u"Uz"_s);
    QCOMPARE(Columns()[3]->text(), u"θx"_s);
    QVERIFY(panel_->Table().RowCount() > 0);
}

void ResultPanelTest::theWheelChangesADropListOnlyWhileItHasTheFocus()
{
    const auto wheel = [](QComboBox* box) {
        const QPoint middle = box->rect().center();
        QWheelEvent event(middle, box->mapToGlobal(middle), {}, {0, -120}, {}, {}, Qt::NoScrollPhase, false);
        QApplication::sendEvent(box, &event);
    };
    OpenProject("plate4");
    QVERIFY(QTest::qWaitForWindowActive(panel_.get()));
    panel_->Grid()->setFocus();
    for (const int index : {0, 1, 2, 4}) {
        QComboBox* box = Box(index);
        QVERIFY(box->count() > 1);
        box->setCurrentIndex(0);
        wheel(box);
        QCOMPARE(box->currentIndex(), 0);
        QVERIFY(!box->hasFocus());
    }
    Load()->setFocus();
    wheel(Load());
    QCOMPARE(Load()->currentIndex(), 1);
}

void ResultPanelTest::theFigureItemChangesTheFigureOnly()
{
    OpenProject("plate4");
    QSignalSpy figure(&ResultSessionOf(*doc_), &CResultSession::figureChanged);
    Choose(Item(), u"Sz"_s);
    QCOMPARE(figure.count(), 1);
    QCOMPARE(Selection().figureItem, std::string("Sz"));
    Choose(Girder(), u"G2"_s);
    QCOMPARE(Selection().figureItem, std::string("My")); // each fill sets the default
    QCOMPARE(Item()->currentText(), u"My"_s);
}

void ResultPanelTest::theStateOfTheResultsIsSaidBelowTheTable()
{
    OpenProject("plate4");
    const auto labels = panel_->findChildren<QLabel*>();
    const auto line = std::ranges::find(labels, u"結果の状態"_s, &QLabel::accessibleName);
    QVERIFY(line != labels.end());
    QVERIFY2((*line)->text().contains(u"ファイル: Z1D, Z1F, Z1R, Z3D, Z3F, Z3R"_s), qPrintable((*line)->text()));
    doc_->SetModifiedFlag(true);
    QVERIFY2((*line)->text().contains(u"結果は入力より古い: 保存していない変更"_s), qPrintable((*line)->text()));
    QVERIFY(QString::fromUtf8(ResultCsv(panel_->Table(), Selection(), ResultSessionOf(*doc_).State()))
                .contains(u"結果は入力より古い"_s));
    doc_->SetModifiedFlag(false);
    QVERIFY2(!(*line)->text().contains(u"保存していない変更"_s), qPrintable((*line)->text()));
}

void ResultPanelTest::theMagnificationIsChosenInThePanel()
{
    OpenProject("box2");
    QCOMPARE(Selection().magnification, 100);
    QCOMPARE(Box(5)->currentText(), u"100"_s);
    QSignalSpy figure(&ResultSessionOf(*doc_), &CResultSession::figureChanged);
    Choose(Box(5), u"自動"_s);
    QCOMPARE(Selection().magnification, 0);
    QCOMPARE(figure.count(), 1);
}

void ResultPanelTest::inANarrowWindowNothingLiesOverAnother()
{
    OpenProject("box2");
    for (const int width : {460, 700, 1200}) {
        panel_->resize(width, 330);
        QApplication::processEvents();
        const auto placeOf = [&](const QWidget* widget) {
            return QRect(widget->mapTo(panel_.get(), QPoint(0, 0)), widget->size());
        };
        const QRect choices = placeOf(panel_->findChild<QScrollArea*>());
        const QRect excluded = placeOf(Excluded());
        const QRect table = placeOf(panel_->Grid());
        QVERIFY2(!choices.intersects(excluded), qPrintable(QString::number(width)));
        QVERIFY2(!choices.intersects(table) && !excluded.intersects(table), qPrintable(QString::number(width)));
        QVERIFY2(panel_->rect().contains(table), qPrintable(QString::number(width)));
        for (const char* text : {"CSVに保存...", "Excelに保存...", "印刷...", "図をPDFに..."})
            QVERIFY(panel_->rect().contains(placeOf(Button(QString::fromUtf8(text))))); // none to be looked for
    }
}

void ResultPanelTest::aKindWithoutResultsIsSaid()
{
    const QTemporaryDir folder;
    const QString project = folder.filePath(u"plate4.sbd"_s);
    const QString examples = QString::fromUtf8(test::ExamplesFolder()) + u"/plate4/"_s;
    QVERIFY(QFile::copy(examples + u"plate4.sbd"_s, project));
    QVERIFY(QDir(folder.path()).mkdir(u"plate4_計算結果"_s));
    for (const char* file : {"Z1D", "Z1F", "Z1R", "Z3F"})
        QVERIFY(QFile::copy(examples + u"plate4_計算結果/plate4."_s + QString::fromLatin1(file),
                            folder.filePath(u"plate4_計算結果/plate4."_s + QString::fromLatin1(file))));
    doc_ = std::make_unique<CKELDSectionDoc>();
    QVERIFY(doc_->OpenDocument(project).Ok());
    Open();
    const auto says = [&](const QString& text) {
        return std::ranges::any_of(panel_->findChildren<QLabel*>(), [&](const QLabel* label) {
            return label->isVisible() && label->text().contains(text);
        });
    };
    QVERIFY(says(u"20 行"_s));
    Choose(Kind(), u"反力"_s);
    QVERIFY(says(u"反力の結果がありません"_s));
    QVERIFY(says(u"ない: Z3D, Z3R"_s));
    QVERIFY(!Button(u"CSVに保存..."_s)->isEnabled());
}

void ResultPanelTest::withoutResultsItSaysSo()
{
    doc_ = std::make_unique<CKELDSectionDoc>();
    Open();
    QCOMPARE(Load()->count(), 0);
    QCOMPARE(Girder()->count(), 2);
    QVERIFY(Station()->isEnabled());
    const auto labels = panel_->findChildren<QLabel*>();
    QVERIFY(std::ranges::any_of(labels, [](const QLabel* label) { return label->text().contains(u"結果ファイル"_s); }));
    for (const QPushButton* button : panel_->findChildren<QPushButton*>())
        QVERIFY(!button->isEnabled());
    Choose(Kind(), u"反力"_s);
    Choose(Girder(), u"すべて"_s);
    Columns()[0]->click();
    panel_->Delete();
    panel_->Undo();
}

void ResultPanelTest::resultsThatComeLaterAreShown()
{
    doc_ = std::make_unique<CKELDSectionDoc>();
    Open();
    QVERIFY(doc_->OpenDocument(QString::fromUtf8(test::ExamplesFolder()) + u"/single1/single1.sbd"_s).Ok());
    QCOMPARE(Load()->currentText(), u"-死+雪+群集-最大"_s);
    QCOMPARE(panel_->Table().RowCount(), std::size_t{8});
}

void ResultPanelTest::aLargeBridgeIsFilledAtOnce()
{
    QTemporaryDir folder;
    OpenProject("plate4");
    auto& results = const_cast<AnalysisResults&>(doc_->Results());
    constexpr std::size_t members = 40'000;
    results.model.elementNames.clear();
    for (std::size_t i = 0; i < members; ++i)
        results.model.elementNames.push_back("G" + std::to_string(1 + i % 4) + "-" + std::to_string(i));
    results.model.loadCaseCount = 1;
    results.model.loadCaseNames = {"D"};
    results.force.values.assign(members * 12, 1.5);
    Selection().load = "D";
    Selection().girder = AllWord();
    QElapsedTimer timer;
    timer.start();
    emit doc_->reloaded();
    QVERIFY(panel_->Table().RowCount() == members);
    Columns()[0]->click();
    const qint64 filled = timer.elapsed();
    QVERIFY2(filled < 3000, qPrintable(QString::number(filled)));
    qInfo("two fills of %zu rows: %lld ms", members, static_cast<long long>(filled));
}

} // namespace sbd

QTEST_MAIN(sbd::ResultPanelTest)
#include "result_panel_test.moc"
