#include "document/result_session.h"
#include "document/section_doc.h"
#include "grid/grid_ctrl.h"
#include "panels/result_output.h"
#include "panels/result_panel.h"
#include "panels/result_panel_source.h"
#include "panels/result_saver.h"
#include "results/result_title.h"
#include "tests/surroundings.h"

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDir>
#include <QElapsedTimer>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPdfWriter>
#include <QPushButton>
#include <QScrollArea>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

class ResultPanelTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<CKELDSectionDoc> doc_;
    std::unique_ptr<CDown253> panel_;

    void OpenProject(const char* name)
    {
        Close();
        doc_ = std::make_unique<CKELDSectionDoc>();
        const QString path = QString::fromUtf8(test::ExamplesFolder()) + u"/%1/%1.sbd"_s.arg(QString::fromLatin1(name));
        QVERIFY(doc_->OpenDocument(path).Ok());
        Open();
    }
    void Open()
    {
        panel_ = std::make_unique<CDown253>(doc_.get());
        panel_->resize(1200, 330);
        panel_->show();
        QVERIFY(QTest::qWaitForWindowExposed(panel_.get()));
    }
    void Close()
    {
        if (panel_ != nullptr)
            panel_->ClosePanel();
        panel_.reset();
    }
    [[nodiscard]] ResultSelection& Selection() const { return ResultSessionOf(*doc_).selection; }
    [[nodiscard]] QComboBox* Box(int index) const { return panel_->findChildren<QComboBox*>()[index]; }
    [[nodiscard]] QComboBox* Kind() const { return Box(0); }
    [[nodiscard]] QComboBox* Load() const { return Box(1); }
    [[nodiscard]] QComboBox* Girder() const { return Box(2); }
    [[nodiscard]] QComboBox* Station() const { return Box(3); }
    [[nodiscard]] QComboBox* Item() const { return Box(4); }
    [[nodiscard]] QListView* Excluded() const
    {
        const auto lists = panel_->findChildren<QListView*>();
        const auto own = std::ranges::find_if(lists, [](const QListView* list) {
            return list->selectionMode() == QAbstractItemView::MultiSelection && list->objectName().isEmpty();
        });
        return *own;
    }
    [[nodiscard]] QList<QCheckBox*> Columns() const
    {
        return panel_->findChild<QGroupBox*>(u"columns"_s)->findChildren<QCheckBox*>();
    }
    [[nodiscard]] QString Cell(int row, int column) const { return panel_->Grid()->Source()->Text(row, column); }
    template <typename Widget>
    [[nodiscard]] Widget* Named(const QString& name) const
    {
        const auto all = panel_->findChildren<Widget*>();
        const auto found = std::ranges::find(all, name, &QWidget::accessibleName);
        return found == all.end() ? nullptr : *found;
    }
    [[nodiscard]] QPushButton* Button(const QString& text) const
    {
        const auto all = panel_->findChildren<QPushButton*>();
        const auto found = std::ranges::find(all, text, &QPushButton::text);
        return found == all.end() ? nullptr : *found;
    }
    void Choose(QComboBox* box, const QString& text)
    {
        const int index = box->findText(text, Qt::MatchExactly | Qt::MatchCaseSensitive);
        QVERIFY2(index >= 0, qPrintable(text));
        box->setCurrentIndex(index);
    }

private slots:
    void cleanup()
    {
        Close();
        doc_.reset();
    }

    void theFirstUseShowsForcesOfTheFirstGirder();
    void eachChoiceFillsTheTable();
    void withoutAGirderTheStationFilters();
    void excludedNamesLeaveTheTableAndComeBack();
    void theSelectionOutlivesThePanel();
    void anotherKindDropsTheRaisedLoad();
    void theWheelChangesADropListOnlyWhileItHasTheFocus();
    void theFigureItemChangesTheFigureOnly();
    void editsStandOverTheTableUntilItIsFilled();
    void copiedValuesAreNumbersToASpreadsheet();
    void theCsvFileHoldsTheWholeTable();
    void aFileThatCannotBeWrittenIsTold();
    void whatIsClickedInTheFigureIsFoundInTheTable();
    void theStateOfTheResultsIsSaidBelowTheTable();
    void theMagnificationIsChosenInThePanel();
    void aHeadSortsTheRowsAndTheOrderOfTheFilesComesBack();
    void theFilterLeavesNamesThatHoldIt();
    void anEnvelopeTellsTheCasesThatDecide();
    void twoCasesAreLaidOverEachOtherInTheFigure();
    void widthsThatTheMouseHasGivenStay();
    void copiesHaveHeadsWithUnits();
    void theSpreadsheetIsWritten();
    void whoGivesUpKeepsTheFileThatWasThere();
    void aTableNeverTakesThePlaceOfAProjectOrItsResults();
    void resultsThatComeWhileATableIsSavedEndIt();
    void aPointOfTheOtherCaseIsSaidToBeThat();
    void aPointOfTheOtherGirderComesIntoTheTableByAButton();
    void inANarrowWindowNothingLiesOverAnother();
    void aKindWithoutResultsIsSaid();
    void aLongTablePrintsOnSeveralPages();
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

void ResultPanelTest::editsStandOverTheTableUntilItIsFilled()
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

void ResultPanelTest::copiedValuesAreNumbersToASpreadsheet()
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

void ResultPanelTest::theCsvFileHoldsTheWholeTable()
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

void ResultPanelTest::aFileThatCannotBeWrittenIsTold()
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

void ResultPanelTest::whatIsClickedInTheFigureIsFoundInTheTable()
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

void ResultPanelTest::aHeadSortsTheRowsAndTheOrderOfTheFilesComesBack()
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

void ResultPanelTest::theFilterLeavesNamesThatHoldIt()
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

void ResultPanelTest::anEnvelopeTellsTheCasesThatDecide()
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

void ResultPanelTest::twoCasesAreLaidOverEachOtherInTheFigure()
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

void ResultPanelTest::widthsThatTheMouseHasGivenStay()
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

void ResultPanelTest::copiesHaveHeadsWithUnits()
{
    OpenProject("plate4");
    panel_->Grid()->SetFocusCell(3, 2);
    panel_->Grid()->RunCommand(Command::CopyWithHeads);
    const QString text = QApplication::clipboard()->text();
    QVERIFY2(text.startsWith(u"左Nx [kN]\n"_s), qPrintable(text));
    QVERIFY(text.contains(Cell(3, 2)));
}

void ResultPanelTest::theSpreadsheetIsWritten()
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

void ResultPanelTest::whoGivesUpKeepsTheFileThatWasThere()
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

void ResultPanelTest::aTableNeverTakesThePlaceOfAProjectOrItsResults()
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

void ResultPanelTest::resultsThatComeWhileATableIsSavedEndIt()
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

void ResultPanelTest::aPointOfTheOtherCaseIsSaidToBeThat()
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

void ResultPanelTest::aPointOfTheOtherGirderComesIntoTheTableByAButton()
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

void ResultPanelTest::aLongTablePrintsOnSeveralPages()
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
