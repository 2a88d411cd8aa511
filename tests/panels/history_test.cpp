#include "document/section_doc.h"
#include "grid/grid_ctrl.h"
#include "panelmodel/panel_model.h"
#include "panels/panel.h"
#include "project/catalogue.h"
#include "sbdfile/writer.h"
#include "tests/document/data_of.h"
#include "tests/surroundings.h"

#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

#include <cstdlib>
#include <optional>
#include <random>
#include <set>

namespace sbd {

using namespace Qt::StringLiterals;

class HistoryTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<CKELDSectionDoc> doc_;
    std::unique_ptr<CPanel> panel_;

    /// What the block switch does.
    void Open(int block)
    {
        Close();
        panel_ = CreatePanel(doc_.get(), CanonicalBlock(block));
        QVERIFY(panel_ != nullptr && panel_->Model() != nullptr);
        panel_->Grid()->showMessage = [](const QString&) {};
    }
    void Close()
    {
        if (panel_ != nullptr)
            panel_->ClosePanel();
        panel_.reset();
    }
    void Set(int row, int column, const QString& text)
    {
        panel_->Grid()->Source()->SetText(row, column, text);
        panel_->CommitGrid();
    }
    void Paste(int row, int column, const QString& text)
    {
        GridRange filled;
        panel_->Grid()->Source()->Paste(row, column, text, &filled);
        panel_->CommitGrid();
    }
    [[nodiscard]] QString Cell(int row, int column) const { return panel_->Grid()->Source()->Text(row, column); }
    [[nodiscard]] QStringList Row(int row) const
    {
        QStringList cells;
        for (int column = 1; column <= panel_->Grid()->Source()->ColumnCount(); ++column)
            cells << Cell(row, column);
        return cells;
    }
    [[nodiscard]] QString GridText() const
    {
        return panel_->Grid()->Source()->Copy(
            {1, 1, panel_->Model()->GridRows(), panel_->Grid()->Source()->ColumnCount()});
    }
    [[nodiscard]] std::string Bytes() const { return WriteProject(doc_->Data()); }
    [[nodiscard]] QString NextUndo() const
    {
        return doc_->NextUndo() == nullptr ? QString() : toQString(doc_->NextUndo()->name);
    }
    void OpenExample(const QString& name)
    {
        QVERIFY(doc_->OpenDocument(QString::fromUtf8(test::ExamplesFolder()) + u"/%1/%1.sbd"_s.arg(name)).Ok());
    }

    void EditAtRandom(std::mt19937& random);

private slots:
    void init() { doc_ = std::make_unique<CKELDSectionDoc>(); }
    void cleanup()
    {
        Close();
        doc_.reset();
    }

    void AStepHasTheNameOfItsCell();
    void AnInsertedRowReturnsToItsPlace();
    void RowsThatAPasteAddedGoWithItsUndo();
    void ARowWithoutItsFirstCellStaysWhenAnEarlierRowWasNotTakenBack();
    void WhatStoodInTheGridAloneComesBackWithRedo();
    void ATextThatTheCellWouldRefuseComesBack();
    void LinkedCellsBelongToTheStep();
    void NamesFollowTheirBlockBackAndForth();
    void TheProjectIsCleanExactlyAsItWasSaved();
    void ComingToABlockLeavesWhatCanBeMadeAgain();
    void AReloadIsOneStep();
    void MoreThanAThousandStepsComeBack();
    void RandomEditsOfAllBlocksComeBackAndAreMadeAgain_data();
    void RandomEditsOfAllBlocksComeBackAndAreMadeAgain();
};

void HistoryTest::AStepHasTheNameOfItsCell()
{
    OpenExample(u"plate4"_s);
    Open(313);
    QCOMPARE(NextUndo(), QString());
    Set(3, 9, u"1 2 3"_s);
    QCOMPARE(NextUndo(), u"313 %1 3行"_s.arg(panel_->Grid()->Source()->Head(9, 0).replace(u'\n', u' ').trimmed()));
    Paste(3, 8, u"1\t2\n3\t4"_s);
    QCOMPARE(NextUndo(), u"313 3行 貼り付け"_s);
    panel_->Grid()->SetFocusCell(4, 1);
    panel_->MoveRowDown();
    QCOMPARE(NextUndo(), u"313 4行 順序下へ移動"_s);
}

void HistoryTest::AnInsertedRowReturnsToItsPlace()
{
    OpenExample(u"plate4"_s);
    Open(313);
    const std::string bytes = Bytes();
    const QStringList third = Row(3);
    const int rows = panel_->Model()->GridRows();
    panel_->Grid()->SetFocusCell(3, 1);
    panel_->InsertRow();
    QCOMPARE(Cell(3, 1), QString());
    QCOMPARE(Row(4), third);
    Set(3, 2, u"G4"_s); // still no row of the block
    QVERIFY(Bytes() == bytes);

    panel_->Undo();
    QCOMPARE(Cell(3, 2), QString());
    QCOMPARE(Row(4), third);
    panel_->Undo();
    QCOMPARE(Row(3), third);
    QCOMPARE(panel_->Model()->GridRows(), rows);
    QVERIFY(Bytes() == bytes);
    QVERIFY(!doc_->IsModified());
    panel_->Redo();
    QCOMPARE(Cell(3, 1), QString());
    QCOMPARE(Row(4), third);
    panel_->Redo();
    QCOMPARE(Cell(3, 2), u"G4"_s);
    Set(3, 1, u"G1"_s);
    QVERIFY(Bytes() != bytes);
    panel_->Undo();
    QVERIFY(Bytes() == bytes);
    QCOMPARE(Cell(3, 2), u"G4"_s);
}

void HistoryTest::RowsThatAPasteAddedGoWithItsUndo()
{
    OpenExample(u"plate4"_s);
    Open(313);
    const std::string bytes = Bytes();
    const int rows = panel_->Model()->GridRows();
    Paste(rows, 1, u"G1\nG2\nG3"_s);
    QCOMPARE(panel_->Model()->GridRows(), rows + 2);
    panel_->Undo();
    QCOMPARE(panel_->Model()->GridRows(), rows);
    QVERIFY(Bytes() == bytes);
    panel_->Redo();
    QCOMPARE(panel_->Model()->GridRows(), rows + 2);
    QCOMPARE(Cell(rows + 2, 1), u"G3"_s);
}

void HistoryTest::ARowWithoutItsFirstCellStaysWhenAnEarlierRowWasNotTakenBack()
{
    OpenExample(u"plate4"_s);
    Open(313);
    const int row = panel_->Model()->BlockRows() + 2;
    Set(row, 9, u"typed first"_s); // stands in the grid alone
    Set(3, 9, u"1 2 3"_s);
    panel_->Undo();
    QCOMPARE(Cell(row, 9), u"typed first"_s);
    panel_->Redo();
    QCOMPARE(Cell(row, 9), u"typed first"_s);
    QCOMPARE(Cell(3, 9), u"1 2 3"_s);
    Set(row, 1, u"G1"_s);
    panel_->Undo();
    QCOMPARE(Cell(row, 9), u"typed first"_s);
    QCOMPARE(Cell(row, 1), QString());
}

void HistoryTest::WhatStoodInTheGridAloneComesBackWithRedo()
{
    Open(501);
    Set(2, 1, u"G1"_s);
    Set(5, 1, u"G2"_s); // the cells between close up in the data
    panel_->Undo();
    QCOMPARE(Cell(5, 1), QString());
    panel_->Redo();
    QCOMPARE(Cell(5, 1), u"G2"_s);
    QCOMPARE(Cell(3, 1), QString());
    panel_->Undo();
    panel_->Undo();
    QCOMPARE(doc_->Data().Names(501)->lists[0].size(), std::size_t(0));
}

void HistoryTest::ATextThatTheCellWouldRefuseComesBack()
{
    test::DataOf(*doc_).hGirder.records.push_back({{"G1", "G2", "S1", "S2"}, {1.2345678, 2}});
    Open(311);
    const std::string bytes = Bytes();
    Set(5, 5, u"5"_s);
    panel_->Undo();
    QVERIFY2(doc_->Data().hGirder.records[0].numbers[0] == 1.2345678, "digits that the cell does not show");
    QVERIFY(Bytes() == bytes);
}

void HistoryTest::LinkedCellsBelongToTheStep()
{
    OpenExample(u"plate4"_s);
    Open(313);
    const std::string bytes = Bytes();
    const std::string before(doc_->Data().Table(313)->columns[1][0]);
    Set(1, 2, before == "NO" ? u"YES"_s : u"NO"_s);
    QVERIFY(doc_->Data().Table(313)->columns[1][0] != before);
    QVERIFY(Bytes() != bytes);
    panel_->Undo();
    QVERIFY(Bytes() == bytes);
    QVERIFY(doc_->NextUndo() == nullptr);
    Open(541);
    const std::string shared(doc_->Data().Option(541, 0));
    for (int row = 1; row <= panel_->Model()->BlockRows(); ++row)
        Set(row, 2, Cell(row, 2) + u"9"_s);
    while (doc_->NextUndo() != nullptr)
        panel_->Undo();
    QVERIFY(Bytes() == bytes);
}

void HistoryTest::NamesFollowTheirBlockBackAndForth()
{
    OpenExample(u"plate4"_s);
    Open(501);
    const std::vector<std::string> names = doc_->Data().gridNames.swayNames;
    Set(panel_->Model()->BlockRows() + 1, 2, u"X9"_s);
    QCOMPARE(doc_->Data().gridNames.swayNames.size(), names.size() + 1);
    panel_->Undo();
    QVERIFY(doc_->Data().gridNames.swayNames == names);
    panel_->Redo();
    QCOMPARE(doc_->Data().gridNames.swayNames.size(), names.size() + 1);
}

void HistoryTest::TheProjectIsCleanExactlyAsItWasSaved()
{
    const QTemporaryDir folder;
    OpenExample(u"plate4"_s);
    Open(313);
    Set(3, 9, u"1"_s);
    QVERIFY(doc_->IsModified());
    panel_->Undo();
    QVERIFY(!doc_->IsModified());
    panel_->Redo();
    QVERIFY(doc_->IsModified());
    Set(3, 9, u"2"_s);
    QVERIFY(doc_->SaveDocument(folder.filePath(u"saved.sbd"_s)).Ok());
    QVERIFY(!doc_->IsModified());
    panel_->Undo();
    QVERIFY2(doc_->IsModified(), "taken back across the save");
    panel_->Undo();
    QVERIFY2(doc_->IsModified(), "as it was opened, but not as it was saved");
    panel_->Redo();
    panel_->Redo();
    QVERIFY(!doc_->IsModified());
    Set(3, 9, u"3"_s);
    Set(3, 9, u"2"_s); // by hand
    QVERIFY(!doc_->IsModified());
    panel_->Undo();
    QVERIFY(doc_->IsModified());
    panel_->Redo();
    QVERIFY(!doc_->IsModified());
}

void HistoryTest::ComingToABlockLeavesWhatCanBeMadeAgain()
{
    Open(301);
    Set(1, 2, u"TITLE"_s);
    panel_->Undo();
    for (const CatalogueRow& row : Catalogue()) {
        if (PanelBlock(row.block) != 0) {
            Open(row.block);
            panel_->CommitGrid();
        }
    }
    QVERIFY(doc_->NextRedo() != nullptr);
    Open(301);
    panel_->Redo();
    QCOMPARE(Cell(1, 2), u"TITLE"_s);
}

void HistoryTest::AReloadIsOneStep()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"project.sbd"_s);
    OpenExample(u"plate4"_s);
    QVERIFY(doc_->SaveDocument(path).Ok());
    const std::string bytes = Bytes();
    {
        CKELDSectionDoc engine;
        QVERIFY(engine.OpenDocument(path).Ok());
        test::DataOf(engine).SetOption(301, 0, "BY THE ENGINE");
        test::DataOf(engine).Table(313)->AppendRow({"G9", "G9"});
        QVERIFY(engine.SaveDocument(path).Ok());
    }
    Open(313);
    QVERIFY(doc_->Reload());
    doc_->SetModifiedFlag(false);
    const std::string reloaded = Bytes();
    QVERIFY(reloaded != bytes);
    panel_->Undo();
    QVERIFY(Bytes() == bytes);
    QVERIFY2(doc_->IsModified(), "the file is the engine's");
    QVERIFY(doc_->NextUndo() == nullptr);
    panel_->Redo();
    QVERIFY(Bytes() == reloaded);
    QVERIFY(!doc_->IsModified());
}

void HistoryTest::MoreThanAThousandStepsComeBack()
{
    Open(301);
    const std::string bytes = Bytes();
    for (int i = 0; i < 1024; ++i)
        Set(1, 2, QString::number(i));
    int steps = 0;
    for (; doc_->NextUndo() != nullptr; ++steps)
        doc_->Undo();
    QCOMPARE(steps, 1024);
    QVERIFY(Bytes() == bytes);
}

// --- random edits ------------------------------------------------------------------------------------

void HistoryTest::EditAtRandom(std::mt19937& random)
{
    const auto upTo = [&random](int last) { return int(random() % unsigned(last + 1)); };
    static const QStringList texts{u""_s,     u"YES"_s,        u"NO"_s,   u"1.5"_s, u"G1"_s,
                                   u"両面"_s, u"線形(入力)"_s, u"直線"_s, u"3"_s};
    CGridSource& cells = *panel_->Grid()->Source();
    const int row = 1 + upTo(panel_->Model()->BlockRows() + 2);
    const int column = 1 + upTo(cells.ColumnCount() - 1);
    switch (upTo(6)) {
    case 0: {
        QString text;
        for (int line = upTo(30); line >= 0; --line)
            text += texts[upTo(int(texts.size()) - 1)] + u'\t' + texts[upTo(int(texts.size()) - 1)] + u'\n';
        Paste(row, column, text);
        break;
    }
    case 1:
        cells.Clear({row, column, row + upTo(20), column + upTo(3)});
        panel_->CommitGrid();
        break;
    case 2:
        panel_->Grid()->SetFocusCell(row, column);
        upTo(1) == 0 ? panel_->MoveRowDown() : panel_->MoveRowUp();
        break;
    case 3:
        panel_->Grid()->SetFocusCell(row, column);
        panel_->InsertRow();
        break;
    default:
        Set(row, column, texts[upTo(int(texts.size()) - 1)]);
        break;
    }
}

void HistoryTest::RandomEditsOfAllBlocksComeBackAndAreMadeAgain_data()
{
    QTest::addColumn<QString>("example");
    QTest::newRow("plate girders") << u"plate4"_s;
    QTest::newRow("box girders") << u"box2"_s;
}

void HistoryTest::RandomEditsOfAllBlocksComeBackAndAreMadeAgain()
{
    QFETCH(const QString, example);
    const char* given = std::getenv("SBD_TEST_SEED");
    const unsigned seed = given != nullptr ? unsigned(std::strtoul(given, nullptr, 10)) : std::random_device()();
    std::mt19937 random(seed);
    OpenExample(example);
    std::set<int> blocks;
    for (const CatalogueRow& row : Catalogue())
        if (const int block = PanelBlock(row.block); block != 0)
            blocks.insert(block);
    const auto told = [&](const char* what, const EditStep* step) {
        return u"%1 %2; repeat with SBD_TEST_SEED=%3"_s
            .arg(QLatin1StringView(what), step == nullptr ? u"all"_s : toQString(step->name))
            .arg(seed)
            .toUtf8();
    };
    std::optional<std::string> first;
    for (const int block : blocks) {
        Open(block);
        // Records show what is stored: zeros where the cell was left empty.
        const bool showsRecords = block == 311 || block == 324 || block == 325;
        for (int edit = 0; edit < 4; ++edit) {
            panel_->CommitGrid(); // what the panel puts in order belongs to the step before
            const std::string before = Bytes();
            const QString gridBefore = GridText();
            const EditStep* last = doc_->NextUndo();
            EditAtRandom(random);
            const EditStep* step = doc_->NextUndo();
            if (step == last)
                continue;
            if (!first)
                first = before;
            const std::string after = Bytes();
            const QString gridAfter = GridText();
            panel_->Undo();
            QVERIFY2(Bytes() == before, told("the file behind the undo of", step).constData());
            QVERIFY2(showsRecords || GridText() == gridBefore, told("the grid behind the undo of", step).constData());
            panel_->Redo();
            QVERIFY2(Bytes() == after, told("the file behind the redo of", step).constData());
            QVERIFY2(showsRecords || GridText() == gridAfter, told("the grid behind the redo of", step).constData());
        }
        Close();
    }
    QVERIFY(first && doc_->NextUndo() != nullptr);

    // All steps, each in its block. Those that changed the grid alone have gone with their panels.
    QList<std::string> states{Bytes()};
    while (const EditStep* step = doc_->NextUndo()) {
        Open(step->place.block);
        panel_->CommitGrid();
        states.back() = Bytes();
        panel_->Undo();
        states.append(Bytes());
    }
    QVERIFY2(states.back() == *first, told("the file behind the undo of", nullptr).constData());
    for (qsizetype at = states.size() - 2; const EditStep* step = doc_->NextRedo(); --at) {
        Open(step->place.block);
        panel_->Redo();
        QVERIFY2(at >= 0 && Bytes() == states[at], told("the file behind the redo of", step).constData());
    }
}

} // namespace sbd

QTEST_MAIN(sbd::HistoryTest)
#include "history_test.moc"
