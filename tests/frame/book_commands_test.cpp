// The book of the input and the comparison of projects, from the window.
#include "book/input_book.h"
#include "frame/notice_bar.h"
#include "life_station.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QListWidget>
#include <QProgressDialog>
#include <QPushButton>
#include <QRadioButton>
#include <QTableView>
#include <QTimer>

using namespace sbd;

namespace {

QPushButton* ButtonOf(const QDialog& dialog, const QString& text)
{
    for (QPushButton* button : dialog.findChildren<QPushButton*>())
        if (button->text().startsWith(text))
            return button;
    return nullptr;
}

void SetCell(CChildFrame& child, int block, std::size_t column, std::size_t row, const char* text)
{
    child.SwitchToBlock(302);
    test::DataOf(child.Doc()).Table(block)->columns[column].Set(row, text);
    test::TellChanged(child.Doc(), {block, int(row)});
}

QByteArray Cell(CChildFrame& child, int block, std::size_t column, std::size_t row)
{
    const std::string_view text = child.Doc().Data().Table(block)->columns[column][row];
    return {text.data(), qsizetype(text.size())};
}

constexpr int kStiffeners = 313;

} // namespace

class BookCommandsTest : public QObject {
    Q_OBJECT

private slots:
    void init() { RemoveAllCopies(); }

    void theBookIsWrittenWithWhatIsNotSavedYet();
    void onlyTheBlocksThatChangedSinceTheFile();
    void nothingChangedWritesNothing();
    void aBookThatCannotBeWrittenIsSaid();
    void cancelLeavesNoFile();
    void theDialogGivesWhatWasChosen();
    void theDialogWritesNoEmptyBook();

    void anotherFileGivesACellARowAndABlockInOneStepEach();
    void theSavedFileIsCompared();
    void theListIsWrittenAsTextAndAsSheets();
    void theButtonsOfTheListTakeCellRowAndBlock();
    void longTextsAreShownFromWhereTheyDiffer();
};

void BookCommandsTest::theBookIsWrittenWithWhatIsNotSavedYet()
{
    LifeStation station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    Enter(*child, "NOTSAVED");
    for (const BookChoice::Kind kind : {BookChoice::Kind::Pdf, BookChoice::Kind::Sheets}) {
        const bool pdf = kind == BookChoice::Kind::Pdf;
        station.user.book = BookChoice{kind};
        station.user.reportFile = station.folder.Path(pdf ? u"b.pdf"_s : u"b.xlsx"_s);
        station.Trigger(u"入力データの帳票"_s);
        QCOMPARE(QFileInfo(station.user.proposal).fileName(),
                 pdf ? u"plate4_入力データ.pdf"_s : u"plate4_入力データ.xlsx"_s);
        QVERIFY(station.user.warned.isEmpty());
        QVERIFY(Bytes(station.user.reportFile).startsWith(pdf ? "%PDF" : "PK"));
        QVERIFY2(child->Notices().TextOf(u"book"_s).contains(QDir::toNativeSeparators(station.user.reportFile)),
                 qPrintable(child->Notices().TextOf(u"book"_s)));
        QVERIFY(child->Doc().IsModified()); // nothing was saved on the way
    }
    QCOMPARE(station.user.bookSource.filled, FilledBlocks(child->Doc().Data()));
    QVERIFY(station.user.bookSource.hasFile);
}

void BookCommandsTest::onlyTheBlocksThatChangedSinceTheFile()
{
    LifeStation station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    Enter(*child, "NOTSAVED");
    SetCell(*child, kStiffeners, 5, 1, "999");
    BookChoice choice;
    choice.scope = BookChoice::Scope::Changed;
    station.user.book = choice;
    station.user.reportFile = station.folder.Path(u"b.pdf"_s);
    station.Trigger(u"入力データの帳票"_s);
    QVERIFY2(child->Notices().TextOf(u"book"_s).contains(u"2 ブロック"_s),
             qPrintable(child->Notices().TextOf(u"book"_s)));
}

void BookCommandsTest::nothingChangedWritesNothing()
{
    LifeStation station;
    station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    BookChoice choice;
    choice.scope = BookChoice::Scope::Changed;
    station.user.book = choice;
    station.user.reportFile = station.folder.Path(u"b.pdf"_s);
    station.Trigger(u"入力データの帳票"_s);
    QCOMPARE(station.user.warned.size(), 1);
    QVERIFY(!QFile::exists(station.user.reportFile));
}

void BookCommandsTest::aBookThatCannotBeWrittenIsSaid()
{
    LifeStation station;
    station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    for (const BookChoice::Kind kind : {BookChoice::Kind::Pdf, BookChoice::Kind::Sheets}) {
        station.user.warned.clear();
        station.user.book = BookChoice{kind};
        station.user.reportFile = station.folder.Path(u"none/b"_s);
        station.Trigger(u"入力データの帳票"_s);
        QCOMPARE(station.user.warned.size(), 1);
        QVERIFY2(station.user.warned[0].contains(u"プロジェクトには影響ありません"_s),
                 qPrintable(station.user.warned[0]));
    }
}

void BookCommandsTest::cancelLeavesNoFile()
{
    LifeStation station;
    station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    station.user.book = BookChoice{};
    station.user.reportFile = station.folder.Path(u"b.pdf"_s);
    QTimer press; // as soon as the progress is there
    connect(&press, &QTimer::timeout, this, [&] {
        for (QWidget* widget : QApplication::topLevelWidgets())
            if (auto* progress = qobject_cast<QProgressDialog*>(widget))
                progress->cancel();
    });
    press.start(0);
    station.Trigger(u"入力データの帳票"_s);
    QVERIFY(!QFile::exists(station.user.reportFile));
    QVERIFY(station.user.warned.isEmpty());
}

void BookCommandsTest::theDialogGivesWhatWasChosen()
{
    BookSource source{u"plate4"_s, {301, 302, 313}, true, {}};
    CBookDialog dialog(source);
    dialog.show();
    const QList<QRadioButton*> scopes = dialog.findChildren<QRadioButton*>();
    QCOMPARE(scopes.size(), 3);
    scopes[1]->click();
    auto* list = dialog.findChild<QListWidget*>();
    QCOMPARE(list->count(), 3);
    QVERIFY(list->item(2)->text().startsWith(u"313 "_s));
    list->item(2)->setCheckState(Qt::Checked);
    for (QCheckBox* box : dialog.findChildren<QCheckBox*>())
        box->click();
    ButtonOf(dialog, u"表計算"_s)->click();
    QCOMPARE(dialog.result(), int(QDialog::Accepted));
    const BookChoice choice = dialog.Choice();
    QCOMPARE(choice.kind, BookChoice::Kind::Sheets);
    QCOMPARE(choice.scope, BookChoice::Scope::Chosen);
    QCOMPARE(choice.blocks, std::vector<int>{313});
    QVERIFY(choice.sketches && choice.landscape);
    QCOMPARE(choice.since, -1);
}

void BookCommandsTest::theDialogWritesNoEmptyBook()
{
    CBookDialog dialog(BookSource{u"plate4"_s, {301}, false, {}});
    const QList<QRadioButton*> scopes = dialog.findChildren<QRadioButton*>();
    QVERIFY(!scopes[2]->isEnabled()); // nothing to compare with
    QVERIFY(ButtonOf(dialog, u"PDF"_s)->isEnabled());
    scopes[1]->click();
    QVERIFY(!ButtonOf(dialog, u"PDF"_s)->isEnabled());
    dialog.findChild<QListWidget*>()->item(0)->setCheckState(Qt::Checked);
    QVERIFY(ButtonOf(dialog, u"PDF"_s)->isEnabled());
}

void BookCommandsTest::anotherFileGivesACellARowAndABlockInOneStepEach()
{
    LifeStation station;
    CChildFrame* other = station.frame.OpenProject(station.folder.Example(u"plate4"_s, u"other"_s));
    SetCell(*other, kStiffeners, 5, 1, "777");
    SetCell(*other, kStiffeners, 6, 1, "77");
    Enter(*other, "OTHER");
    QVERIFY(other->Doc().SaveDocument(other->Doc().PathName()).Ok());
    station.user.openFile = other->Doc().PathName();
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    const QByteArray cell = Cell(*child, kStiffeners, 5, 1);
    const CSbdData before = child->Doc().Data();

    station.user.comparison = CompareChoice{CompareChoice::With::OtherFile, 0};
    int round = 0;
    station.user.withDifferences = [&](const DifferenceView& view) {
        ++round;
        if (round == 1) {
            QCOMPARE(view.differences.size(), 3U);
            QCOMPARE(view.verb, u"取り込む"_s);
            QVERIFY(view.before.startsWith(u"other"_s));
            view.takeBack({view.differences[1]});
        } else if (round == 2) {
            QCOMPARE(view.differences.size(), 2U);
            view.takeBack(view.differences);
        }
    };
    station.Trigger(u"物件の比較"_s);
    QCOMPARE(round, 2); // what was left came up again, and nothing was left behind it
    QCOMPARE(Cell(*child, kStiffeners, 5, 1), "777");
    QVERIFY(child->Doc().Data().SameProject(other->Doc().Data()));
    child->StepHistory(false);
    QCOMPARE(Cell(*child, kStiffeners, 5, 1), "777");
    QVERIFY(!child->Doc().Data().SameProject(before));
    child->StepHistory(false);
    QCOMPARE(Cell(*child, kStiffeners, 5, 1), cell);
    QVERIFY(child->Doc().Data().SameProject(before));
    QCOMPARE(child->Doc().NextUndo(), nullptr);
}

void BookCommandsTest::theSavedFileIsCompared()
{
    LifeStation station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    Enter(*child, "MINE");
    station.user.comparison = CompareChoice{CompareChoice::With::SavedFile, 0};
    station.user.withDifferences = [](const DifferenceView& view) { view.goTo(view.differences[0]); };
    station.Trigger(u"物件の比較"_s);
    QVERIFY(!station.user.compareSource.file.isEmpty());
    QCOMPARE(station.user.shown.size(), 1);
    QCOMPARE(station.user.shown[0].differences.size(), 1U);
    QCOMPARE(station.user.shown[0].verb, u"戻す"_s);
    QCOMPARE(child->CurrentBlock(), 301); // the jump
    QVERIFY(child->Doc().Data().Option(301, 0) == "MINE");
}

void BookCommandsTest::theListIsWrittenAsTextAndAsSheets()
{
    LifeStation station;
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    Enter(*child, "MINE");
    station.user.comparison = CompareChoice{CompareChoice::With::SavedFile, 0};
    station.user.withDifferences = [&](const DifferenceView& view) {
        station.user.reportFile = station.folder.Path(u"d.txt"_s);
        view.save(view.differences);
        station.user.reportFile = station.folder.Path(u"d.xlsx"_s);
        view.save(view.differences);
        station.user.reportFile = station.folder.Path(u"none/d.xlsx"_s);
        view.save(view.differences);
    };
    station.Trigger(u"物件の比較"_s);
    QVERIFY(QString::fromUtf8(Bytes(station.folder.Path(u"d.txt"_s))).contains(u"→「MINE」"_s));
    QVERIFY(Bytes(station.folder.Path(u"d.xlsx"_s)).startsWith("PK"));
    QCOMPARE(station.user.warned.size(), 1);
}

void BookCommandsTest::theButtonsOfTheListTakeCellRowAndBlock()
{
    DifferenceView view;
    const auto at = [](int block, int row, int column) {
        Difference difference;
        difference.block = block;
        difference.row = row;
        difference.column = column;
        return difference;
    };
    view.differences = {at(313, 2, 5), at(313, 2, 6), at(313, 3, 5), at(301, 2, 0)};
    view.differences[2].kind = DifferenceKind::RowRemoved;
    view.differences[2].row = 2; // gone, where another one stands now
    view.verb = u"取り込む"_s;
    std::vector<Difference> taken;
    view.takeBack = [&](const std::vector<Difference>& chosen) { taken = chosen; };
    const std::pair<QString, std::size_t> buttons[] = {{u"選んだセルを取り込む"_s, 1},
                                                       {u"その行を取り込む"_s, 2},
                                                       {u"そのブロックを取り込む"_s, 3},
                                                       {u"すべて取り込む"_s, 4}};
    for (const auto& button : buttons) {
        CDifferenceDialog dialog(view);
        dialog.show();
        dialog.findChild<QTableView*>()->selectRow(0);
        QVERIFY2(ButtonOf(dialog, button.first) != nullptr, qPrintable(button.first));
        ButtonOf(dialog, button.first)->click();
        QCOMPARE(taken.size(), button.second);
    }
}

void BookCommandsTest::longTextsAreShownFromWhereTheyDiffer()
{
    const auto difference = [](const char* before, const char* after) {
        Difference one;
        one.block = 301;
        one.before = fromQString(QString::fromUtf8(before)).value();
        one.after = fromQString(QString::fromUtf8(after)).value();
        return one;
    };
    DifferenceView view;
    view.differences = {difference("3径間連続非合成鈑桁橋 4主桁 格子解析", "3径間連続非合成鈑桁橋 4主桁 別案"),
                        difference("130", "150"), difference("短い", "3径間連続非合成鈑桁橋 4主桁 格子解析"),
                        difference("3径間連続非合成鈑桁橋 4主桁", "3径間連続非合成鈑桁橋 4主桁 格子解析")};
    const CDifferenceModel model(view);
    const auto shown = [&model](int row) {
        return model.index(row, CDifferenceModel::kBefore).data().toString() + u'|'
               + model.index(row, CDifferenceModel::kAfter).data().toString();
    };
    QCOMPARE(shown(0), u"…4主桁 格子解析|…4主桁 別案"_s);
    QCOMPARE(shown(1), u"130|150"_s);
    QCOMPARE(shown(2), u"短い|3径間連続非合成鈑桁橋 4主桁 格子解析"_s);
    QCOMPARE(shown(3), u"3径間連続非合成鈑桁橋 4主桁|… 4主桁 格子解析"_s);
    QCOMPARE(model.index(0, CDifferenceModel::kBefore).data(Qt::ToolTipRole).toString(),
             u"3径間連続非合成鈑桁橋 4主桁 格子解析"_s);
}

QTEST_MAIN(BookCommandsTest)
#include "book_commands_test.moc"
