#include "document/path.h"
#include "frame/change_pane.h"
#include "frame/left_view.h"
#include "frame/notice_bar.h"
#include "frame/run_changes.h"
#include "frame/settings.h"
#include "panel_desk.h"
#include "run_bench.h"
#include "sbdfile/project_file.h"
#include "sbdfile/reader.h"
#include "sbdfile/writer.h"
#include "tests/document/data_of.h"

#include <QPushButton>
#include <QSplitter>
#include <QStatusBar>
#include <QTableView>
#include <QToolButton>

namespace sbd {

class RunChangesTest : public QObject {
    Q_OBJECT

private slots:
    void aRunThatChangedNothingSaysNothing();
    void whatARunChangedIsCountedMarkedAndListed();
    void rowsThatCameAndWentAreToldAsRows();
    void theHeightOfTheOtherListIsLeftAlone();
    void oneUndoTakesAllOfItBackAndOneRedoBringsItAgain();
    void theButtonTakesTheRunBackOnlyWhileNothingElseIsDone();
    void anEditEndsTheMarkOfItsCell();
    void marksGoAlongWithARowThatIsPutIn();
    void closingTheNoticeEndsEveryMark();
    void theListIsWorkedByKeys();
    void aKeyGoesThroughTheChangesFromWhereverOneIs();
    void changesThatWereNotSavedAreNamed();
    void anotherRunTakesThePlaceOfTheOneBefore();
    void aRunByItsEngineIsShownToo();
};

namespace {

using Edit = std::function<void(CSbdData&)>;

/// What an engine does: reads the project's file, changes it, writes it.
void RewriteFile(const QString& path, const Edit& edit)
{
    std::string bytes;
    QVERIFY(ReadFileBytes(ToPath(path), bytes).Ok());
    CSbdData data;
    ReadProject(bytes, data);
    edit(data);
    QFile file(path);
    QVERIFY(file.open(QFile::WriteOnly));
    file.write(QByteArray::fromStdString(WriteProject(data)));
}

void RunOf(Desk& desk, const Edit& edit)
{
    RewriteFile(desk.child->Doc().PathName(), edit);
    desk.child->ChangeByRun([&] { QVERIFY(desk.child->Doc().Reload()); });
    desk.child->Doc().SetModifiedFlag(false);
    QApplication::processEvents();
}

void SetCell(CSbdData& data, int block, int row, int column, const std::string& text)
{
    data.Table(block)->columns[std::size_t(column) - 1].Set(std::size_t(row) - 1, text);
}

/// Two cells of 313 and the title.
void ChangeSome(CSbdData& data)
{
    SetCell(data, 313, 3, 6, "777");
    SetCell(data, 313, 5, 6, "888");
    data.SetOption(301, 0, "RUN");
}

QTreeWidgetItem* ItemOf(CLeftView& tree, int block)
{
    for (QTreeWidgetItemIterator it(&tree); *it != nullptr; ++it)
        if ((*it)->text(0).startsWith(QString::number(block)) && (*it)->childCount() == 0)
            return *it;
    return nullptr;
}

QPushButton* Button(Desk& desk, QStringView text)
{
    for (QPushButton* button : desk.child->Notices().findChildren<QPushButton*>())
        if (button->isVisible() && button->text().startsWith(text))
            return button;
    return nullptr;
}

QString Place(const Desk& desk)
{
    const GridCell focus = desk.Grid().FocusCell();
    return u"%1/%2/%3"_s.arg(desk.Panel().Block()).arg(focus.row).arg(focus.column);
}

bool IsMarked(const Desk& desk, int row, int column)
{
    return desk.Grid().Marks().Of(row, column) == MarkKind::Changed;
}

} // namespace

void RunChangesTest::aRunThatChangedNothingSaysNothing()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    RunOf(desk, [](CSbdData&) {});
    QVERIFY2(desk.child->Notices().Texts().isEmpty(), qPrintable(desk.child->Notices().Texts().join(u'\n')));
    QVERIFY(desk.child->RunChanges().List().empty());
}

void RunChangesTest::whatARunChangedIsCountedMarkedAndListed()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    const QString before = desk.Cell(3, 6);
    RunOf(desk, ChangeSome);
    QCOMPARE(desk.child->Notices().Texts().size(), 1);
    QVERIFY2(desk.child->Notices().Texts()[0].contains(u"2 個のブロックで、セル 3 個。"_s),
             qPrintable(desk.child->Notices().Texts()[0]));
    QCOMPARE(desk.Cell(3, 6), u"777"_s);
    QVERIFY(IsMarked(desk, 3, 6));
    QVERIFY(IsMarked(desk, 5, 6));
    QVERIFY(!IsMarked(desk, 4, 6));
    QCOMPARE(desk.Grid().Marks().ToolTip(3, 6), u"解析の前: 「%1」"_s.arg(before));
    for (const int block : {301, 313})
        QVERIFY2(ItemOf(desk.child->Tree(), block)->toolTip(0).contains(u"解析の前と後"_s), "not marked in the tree");
    QVERIFY(!ItemOf(desk.child->Tree(), 302)->toolTip(0).contains(u"解析"_s));
    desk.Go(301);
    QVERIFY(IsMarked(desk, 1, 2));
    QVERIFY(!IsMarked(desk, 2, 2));
    desk.Go(313);
    QVERIFY(IsMarked(desk, 3, 6)); // in a panel that is built anew

    Button(desk, u"一覧")->click();
    CChangePane& pane = *desk.child->RunChanges().Pane();
    QVERIFY(pane.isVisible());
    QTRY_VERIFY2(pane.height() >= 100, qPrintable(QString::number(pane.height())));
    QCOMPARE(pane.Lines()->model()->rowCount(), 3);
    const auto line = [&pane](int row) {
        QStringList texts;
        for (int column = 0; column < 5; ++column)
            texts << pane.Lines()->model()->index(row, column).data().toString();
        return texts;
    };
    QVERIFY2(line(0)[0].startsWith(u"301 "_s) && line(0)[1].startsWith(u"1 TITLE"_s), qPrintable(line(0).join(u'|')));
    QCOMPARE(line(0)[4], u"RUN"_s);
    QVERIFY2(line(1)[0].startsWith(u"313 "_s) && line(1)[2].startsWith(u"6 "_s), qPrintable(line(1).join(u'|')));
    QCOMPARE(line(1)[1], u"3"_s);
    QCOMPARE(line(1)[3], before);
    QCOMPARE(line(1)[4], u"777"_s);
    if (qEnvironmentVariableIsSet("SBD_PICTURES"))
        desk.frame.grab().save(qEnvironmentVariable("SBD_PICTURES") + u"/changes.png"_s);
}

void RunChangesTest::rowsThatCameAndWentAreToldAsRows()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    const QString gone = desk.Cell(4, 3);
    const int rows = int(desk.child->Doc().Data().Table(313)->RowCount());
    RunOf(desk, [](CSbdData& data) {
        for (CColumnVector& column : data.Table(313)->columns)
            column.Erase(3);
        const std::string both = *fromQString(u"I桁"_s);
        data.Table(313)->AppendRow({"G2", "G3", "S1", "S4", both, "99", "9", "1"});
    });
    QVERIFY2(desk.child->Notices().Texts()[0].contains(u"1 個のブロックで、増えた行 1、なくなった行 1。"_s),
             qPrintable(desk.child->Notices().Texts()[0]));
    QCOMPARE(desk.Cell(rows, 6), u"99"_s);
    QVERIFY(IsMarked(desk, rows, 6));
    QVERIFY(!IsMarked(desk, rows, 9)); // blank
    QVERIFY(desk.Grid().Marks().ToolTip(rows, 6).contains(u"解析の前にはありません"_s));
    QVERIFY(!desk.Grid().Marks().OfRow(4));
    Button(desk, u"一覧")->click();
    const QAbstractItemModel& lines = *desk.child->RunChanges().Pane()->Lines()->model();
    QCOMPARE(lines.rowCount(), 2);
    QVERIFY(lines.index(0, 1).data().toString().startsWith(u"元の 4 行"_s));
    QVERIFY(lines.index(0, 3).data().toString().contains(gone));
    Press(Qt::Key_F8);
    Press(Qt::Key_Return);
    QCOMPARE(Place(desk), u"313/3/1"_s); // the row above the one that is gone
}

void RunChangesTest::theHeightOfTheOtherListIsLeftAlone()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    const int height = CSettings().FindingsHeight();
    RunOf(desk, ChangeSome);
    Button(desk, u"一覧")->click();
    CChangePane& pane = *desk.child->RunChanges().Pane();
    QTRY_VERIFY(pane.height() >= 100);
    const int before = pane.height();
    QWidget* handle = qobject_cast<QSplitter*>(pane.parentWidget())->handle(2);
    Drag(*handle, handle->rect().center(), handle->rect().center() - QPoint(0, 40));
    QTRY_VERIFY(pane.height() > before);
    QVERIFY(height > 0);
    QCOMPARE(CSettings().FindingsHeight(), height);
}

void RunChangesTest::oneUndoTakesAllOfItBackAndOneRedoBringsItAgain()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    const std::string before = WriteProject(desk.child->Doc().Data());
    RunOf(desk, [](CSbdData& data) {
        ChangeSome(data);
        data.unknownLines.push_back("[ENGINE_NOTE]");
        data.unknownLines.push_back("[END]");
    });
    const std::string after = WriteProject(desk.child->Doc().Data());
    QVERIFY(before != after);
    QVERIFY(desk.child->Notices().Shows(u"run-changes"_s));
    Press(Qt::Key_Z, Qt::ControlModifier);
    QTRY_VERIFY(WriteProject(desk.child->Doc().Data()) == before);
    QVERIFY(!desk.child->Notices().Shows(u"run-changes"_s));
    QVERIFY(!IsMarked(desk, 3, 6));
    QVERIFY(ItemOf(desk.child->Tree(), 313)->icon(0).isNull());
    Press(Qt::Key_Y, Qt::ControlModifier);
    QTRY_VERIFY(WriteProject(desk.child->Doc().Data()) == after);
    QVERIFY(desk.child->Notices().Shows(u"run-changes"_s));
    QVERIFY(IsMarked(desk, 3, 6));
}

void RunChangesTest::theButtonTakesTheRunBackOnlyWhileNothingElseIsDone()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    const std::string before = WriteProject(desk.child->Doc().Data());
    RunOf(desk, ChangeSome);
    desk.Click(4, 6);
    Type(u"5"_s);
    Press(Qt::Key_Return);
    const std::string edited = WriteProject(desk.child->Doc().Data());
    Button(desk, u"元に戻す")->click();
    QVERIFY(WriteProject(desk.child->Doc().Data()) == edited);
    QVERIFY(desk.frame.statusBar()->currentMessage().contains(u"編集しています"_s));
    desk.frame.RunCommand(Command::Undo);
    Button(desk, u"元に戻す")->click();
    QVERIFY(WriteProject(desk.child->Doc().Data()) == before);
    QTRY_VERIFY(desk.child->Notices().Texts().isEmpty());
}

void RunChangesTest::anEditEndsTheMarkOfItsCell()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    RunOf(desk, [](CSbdData& data) {
        SetCell(data, 313, 3, 6, "777");
        SetCell(data, 313, 5, 6, "888");
    });
    desk.Click(3, 6);
    QVERIFY(IsMarked(desk, 3, 6)); // looked at
    Type(u"150"_s);
    Press(Qt::Key_Return);
    QTRY_VERIFY(!IsMarked(desk, 3, 6));
    QVERIFY(IsMarked(desk, 5, 6));
    QCOMPARE(desk.child->Notices().Texts().size(), 1);
    desk.Click(5, 6);
    Press(Qt::Key_Delete);
    QTRY_VERIFY(!IsMarked(desk, 5, 6));
    QTRY_VERIFY(desk.child->Notices().Texts().isEmpty()); // nothing is left
    QVERIFY(!ItemOf(desk.child->Tree(), 313)->toolTip(0).contains(u"解析"_s));
}

void RunChangesTest::marksGoAlongWithARowThatIsPutIn()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    RunOf(desk, [](CSbdData& data) { SetCell(data, 313, 3, 6, "777"); });
    desk.Click(2, 6);
    desk.frame.RunCommand(Command::InsertRow);
    QTRY_COMPARE(desk.Cell(4, 6), u"777"_s);
    desk.Click(8, 6); // the panel commits
    QTRY_VERIFY(IsMarked(desk, 4, 6));
    QVERIFY(!IsMarked(desk, 3, 6));
    desk.Go(302); // the row is blank: it goes with its panel
    desk.Go(313);
    QCOMPARE(desk.Cell(3, 6), u"777"_s);
    QVERIFY(IsMarked(desk, 3, 6));
    QVERIFY(!IsMarked(desk, 4, 6));
}

void RunChangesTest::closingTheNoticeEndsEveryMark()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    RunOf(desk, ChangeSome);
    Button(desk, u"一覧")->click();
    QToolButton* close = desk.child->Notices().findChild<QToolButton*>();
    QTest::mouseClick(close, Qt::LeftButton);
    QVERIFY(!IsMarked(desk, 3, 6));
    QVERIFY(ItemOf(desk.child->Tree(), 301)->icon(0).isNull());
    QVERIFY(!desk.child->RunChanges().Pane()->isVisible());
    desk.frame.RunCommand(Command::Undo);
    desk.frame.RunCommand(Command::Redo);
    QVERIFY(!IsMarked(desk, 3, 6)); // dismissed is dismissed
}

void RunChangesTest::theListIsWorkedByKeys()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 302));
    RunOf(desk, ChangeSome);
    const QStringList round{u"313/3/6"_s, u"313/5/6"_s, u"301/1/2"_s};
    for (const QString& place : round) {
        Button(desk, u"次へ")->click();
        QCOMPARE(Place(desk), place);
    }
    QVERIFY(desk.frame.statusBar()->currentMessage().contains(u"「RUN」"_s));

    Button(desk, u"一覧")->click();
    QTableView* lines = desk.child->RunChanges().Pane()->Lines();
    QTRY_VERIFY(lines->hasFocus());
    Press(Qt::Key_F8); // in the list it is the list's
    QCOMPARE(Place(desk), u"313/3/6"_s);
    QVERIFY(lines->hasFocus());
    QCOMPARE(lines->currentIndex().row(), 1);
    Press(Qt::Key_F8, Qt::ShiftModifier);
    QCOMPARE(Place(desk), u"301/1/2"_s);
    QVERIFY(lines->hasFocus());
    Press(Qt::Key_End, Qt::ControlModifier);
    Press(Qt::Key_Return);
    QCOMPARE(Place(desk), u"313/5/6"_s);
    QVERIFY(desk.Grid().hasFocus());
    Press(Qt::Key_F8); // in the grid it is the findings'
    QTRY_COMPARE(desk.Panel().Block(), 523);
    while (!lines->hasFocus())
        Press(Qt::Key_F6);
    desk.child->RunChanges().Pane()->findChild<QToolButton*>()->click();
    QVERIFY(!lines->isVisible());
    QVERIFY(desk.Grid().hasFocus());
}

void RunChangesTest::aKeyGoesThroughTheChangesFromWhereverOneIs()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 302));
    Press(Qt::Key_F7);
    QVERIFY(desk.frame.statusBar()->currentMessage().startsWith(u"解析の前と後で違う所は"_s)); // there was no run
    RunOf(desk, ChangeSome);
    for (const QString& place : {u"313/3/6"_s, u"313/5/6"_s, u"301/1/2"_s, u"313/3/6"_s}) {
        Press(Qt::Key_F7);
        QTRY_COMPARE(Place(desk), place);
    }
    Press(Qt::Key_F7, Qt::ShiftModifier);
    QTRY_COMPARE(Place(desk), u"301/1/2"_s);
    desk.child->Tree().setFocus();
    Press(Qt::Key_F7); // in the tree
    QTRY_COMPARE(Place(desk), u"313/3/6"_s);
    desk.child->GoToBlock(255);
    QApplication::processEvents();
    Press(Qt::Key_F7); // on the page of the report, ahead of all blocks
    QTRY_COMPARE(Place(desk), u"301/1/2"_s);
}

void RunChangesTest::changesThatWereNotSavedAreNamed()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    desk.Click(4, 6);
    Type(u"432"_s);
    Press(Qt::Key_Return);
    RunOf(desk, [](CSbdData&) {});
    QCOMPARE(desk.child->Notices().Texts().size(), 1);
    QVERIFY(desk.child->Notices().Texts()[0].contains(u"保存していなかった変更"_s));
    QCOMPARE(desk.Grid().Marks().ToolTip(4, 6), u"解析の前: 「432」"_s);
}

void RunChangesTest::anotherRunTakesThePlaceOfTheOneBefore()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    RunOf(desk, [](CSbdData& data) { SetCell(data, 313, 3, 6, "777"); });
    RunOf(desk, [](CSbdData&) {});
    QVERIFY(IsMarked(desk, 3, 6)); // it had nothing to say
    RunOf(desk, [](CSbdData& data) { SetCell(data, 313, 5, 6, "888"); });
    QVERIFY(!IsMarked(desk, 3, 6));
    QVERIFY(IsMarked(desk, 5, 6));
    QCOMPARE(desk.child->Notices().Texts().size(), 1);
    desk.frame.RunCommand(Command::Undo);
    QTRY_VERIFY(!IsMarked(desk, 5, 6));
    desk.frame.RunCommand(Command::Undo); // the first run's; the one between changed nothing
    QApplication::processEvents();
    QVERIFY(!IsMarked(desk, 3, 6) && !IsMarked(desk, 5, 6));
    QVERIFY(desk.child->Notices().Texts().isEmpty());
}

void RunChangesTest::aRunByItsEngineIsShownToo()
{
    RunBench bench;
    QVERIFY(bench.isOpen);
    bench.whileEngineRuns = [&] { RewriteFile(bench.path, ChangeSome); };
    QVERIFY(bench.runner.RunAndReload(EngineRun::Main, bench.Project()));
    QCOMPARE(bench.child->RunChanges().List().size(), 3U);
    QCOMPARE(bench.child->Notices().Texts().size(), 1);
}

} // namespace sbd

using sbd::RunChangesTest;
QTEST_MAIN(RunChangesTest)
#include "run_changes_test.moc"
