#include "document/path.h"
#include "frame/import_dialog.h"
#include "frame/notice_bar.h"
#include "panel_desk.h"
#include "panels/input_panel.h"
#include "project/text.h"
#include "sbdfile/project_file.h"
#include "sbdfile/writer.h"
#include "tests/document/data_of.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QStatusBar>
#include <QTableWidget>
#include <QTimer>

namespace sbd {

/// Tables of text files into a block and out of it.
class TableFilesTest : public QObject {
    Q_OBJECT

private slots:
    void aTableIsAppendedAsOneStep();
    void aTableGoesOverTheRowsFromTheCursor();
    void codeAndSeparatorAreGuessedAndCanBeChosen();
    void columnsAreChosenOverTheFirstRows();
    void whatDoesNotFitIsSaidBeforeAndBehind();
    void whatIsLeftOutIsNotSaidNotToFit();
    void whatIsNoTableIsRefused();
    void aFilterIsToBeEndedFirst();
    void aBlockIsWrittenAndComesBack();
    void aFileThatCannotBeWrittenIsTold();
};

namespace {

QString Write(const Desk& desk, const QString& name, const std::string& bytes)
{
    const QString path = desk.folder.Path(name);
    QFile file(path);
    if (!file.open(QFile::WriteOnly))
        return {};
    file.write(bytes.data(), qint64(bytes.size()));
    return path;
}

/// The user's hands in the dialog.
using Hands = std::function<void(CImportDialog& dialog)>;

QPushButton* ButtonOf(QDialog& dialog, QStringView text)
{
    for (QPushButton* button : dialog.findChildren<QPushButton*>())
        if (button->text().startsWith(text))
            return button;
    return nullptr;
}

QString Said(const CImportDialog& dialog)
{
    for (const QLabel* label : dialog.findChildren<QLabel*>())
        if (label->accessibleName() == u"取り込みの結果"_s)
            return label->text();
    return {};
}

/// Gives the command, does something in its dialog, ends it by a click.
void Import(Desk& desk, const QString& path, const Hands& hands = {}, QStringView end = u"取り込む")
{
    desk.user.tables.openName = [path](QWidget*, const QString&) { return path; };
    desk.user.tables.chooseImport = [&](QWidget* parent, const ImportView& view) {
        QTimer::singleShot(0, [&] {
            auto* dialog = qobject_cast<CImportDialog*>(QApplication::activeModalWidget());
            QVERIFY(dialog != nullptr);
            if (hands)
                hands(*dialog);
            QPushButton* button = ButtonOf(*dialog, end);
            if (button != nullptr && button->isEnabled())
                QTest::mouseClick(button, Qt::LeftButton);
            else
                dialog->reject();
        });
        return ChooseImport(parent, view);
    };
    desk.frame.RunCommand(Command::ImportTable);
    QApplication::processEvents();
    desk.frame.activateWindow(); // keys are for it again
    QVERIFY(QTest::qWaitForWindowActive(&desk.frame));
}

void Fill(Desk& desk)
{
    TableBlock& table = *test::DataOf(desk.child->Doc()).Table(313);
    table = {};
    table.columns.resize(9);
    table.AppendRow({Cp932("自動計算(YES_NO)"), "YES_1"});
    for (const std::string name : {"G1", "G2"})
        table.AppendRow({name, "G4", "A1", "A2", Cp932("両面"), "110", "9", "2", "1000"});
    test::TellChanged(desk.child->Doc(), {313, -1});
    desk.child->Doc().SetModifiedFlag(false);
    QApplication::processEvents();
    desk.Grid().SetFocusCell(2, 1);
}

QByteArray Project(const Desk& desk)
{
    return QByteArray::fromStdString(WriteProject(desk.child->Doc().Data()));
}

} // namespace

void TableFilesTest::aTableIsAppendedAsOneStep()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    Fill(desk);
    const QByteArray before = Project(desk);
    std::string rows;
    for (int i = 0; i < 200; ++i) // more than there are spare rows
        rows += Cp932("G5,G6,C" + std::to_string(i) + ",A2,内面,120,9,2,\"1000, 1250\"\r\n");
    Import(desk, Write(desk, u"t.csv"_s, rows), [](CImportDialog& dialog) {
        QVERIFY2(Said(dialog).startsWith(u"200 行、1800 個の値を読みました。変わるセルは 1800 個です。"_s),
                 qPrintable(Said(dialog)));
    });
    QCOMPARE(desk.child->Doc().Data().RowCount(313), 203U);
    QCOMPARE(desk.Cell(4, 5), u"内面"_s);
    QCOMPARE(desk.Cell(203, 3), u"C199"_s);
    QCOMPARE(desk.Cell(203, 9), u"1000, 1250"_s);
    QCOMPARE(desk.Grid().FocusCell().row, 4);
    QVERIFY(desk.child->Notices().Texts().isEmpty());
    Press(Qt::Key_Z, Qt::ControlModifier);
    QCOMPARE(Project(desk), before);
    QVERIFY(!desk.child->Doc().IsModified());
    Press(Qt::Key_Y, Qt::ControlModifier);
    QCOMPARE(desk.child->Doc().Data().RowCount(313), 203U);
}

void TableFilesTest::aTableGoesOverTheRowsFromTheCursor()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    Fill(desk);
    desk.Grid().SetFocusCell(3, 1);
    Import(desk, Write(desk, u"t.txt"_s, "G7\tG8\nG9\tG9\n"), [](CImportDialog& dialog) {
        QRadioButton* over = nullptr;
        for (QRadioButton* button : dialog.findChildren<QRadioButton*>())
            if (button->text().contains(u"上書き"))
                over = button;
        QVERIFY(over != nullptr);
        QVERIFY(over->text().contains(u"3 行目"_s));
        QTest::mouseClick(over, Qt::LeftButton, {}, QPoint(10, over->height() / 2));
        QTRY_VERIFY(Said(dialog).contains(u"変わるセルは 4 個"_s));
    });
    QCOMPARE(desk.Row(3).mid(0, 4), (QStringList{u"G7"_s, u"G8"_s, u"A1"_s, u"A2"_s}));
    QCOMPARE(desk.Row(4).mid(0, 3), (QStringList{u"G9"_s, u"G9"_s, QString()}));
    QCOMPARE(desk.Cell(2, 1), u"G1"_s);
}

void TableFilesTest::codeAndSeparatorAreGuessedAndCanBeChosen()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    Fill(desk);
    const auto firstCell = [](const CImportDialog& dialog) {
        return dialog.findChild<QTableWidget*>()->item(1, 0)->text();
    };
    const auto lists = [](const CImportDialog& dialog) {
        QList<QComboBox*> own;
        for (QComboBox* box : dialog.findChildren<QComboBox*>())
            if (box->count() == 2 || box->count() == 4)
                own << box;
        return own;
    };
    Import(
        desk, Write(desk, u"a.csv"_s, Cp932("表計算;内面\n桁名;両面\n")),
        [&](CImportDialog& dialog) {
            QCOMPARE(lists(dialog)[0]->currentText(), u"シフトJIS (CP932)"_s);
            QCOMPARE(lists(dialog)[1]->currentText(), u"セミコロン ( ; )"_s);
            QCOMPARE(firstCell(dialog), u"表計算"_s);
            lists(dialog)[1]->setCurrentIndex(0);
            QCOMPARE(firstCell(dialog), u"表計算;内面"_s);
            lists(dialog)[0]->setCurrentIndex(1); // as UTF-8 these bytes are nothing
            QVERIFY(firstCell(dialog) != u"表計算;内面"_s);
        },
        u"キャンセル");
    Import(
        desk, Write(desk, u"b.csv"_s, "表計算,内面\n桁名,両面\n"),
        [&](CImportDialog& dialog) {
            QCOMPARE(lists(dialog)[0]->currentText(), u"UTF-8"_s);
            QCOMPARE(firstCell(dialog), u"表計算"_s);
        },
        u"キャンセル");
    QVERIFY(!desk.child->Doc().IsModified());
}

void TableFilesTest::columnsAreChosenOverTheFirstRows()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    Fill(desk);
    Import(desk, Write(desk, u"t.csv"_s, "number,girder\n1,G5\n"), [](CImportDialog& dialog) {
        auto* rows = dialog.findChild<QTableWidget*>();
        static_cast<QComboBox*>(rows->cellWidget(0, 0))->setCurrentIndex(0);
        static_cast<QComboBox*>(rows->cellWidget(0, 1))->setCurrentIndex(1);
        dialog.findChild<QCheckBox*>()->setChecked(true);
        QTRY_VERIFY(Said(dialog).startsWith(u"1 行、1 個の値"_s));
    });
    QCOMPARE(desk.child->Doc().Data().RowCount(313), 4U);
    QCOMPARE(desk.Row(4).mid(0, 2), (QStringList{u"G5"_s, QString()}));
}

void TableFilesTest::whatDoesNotFitIsSaidBeforeAndBehind()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 311));
    const int row = desk.Grid().Source()->UsedRows() + 1;
    Import(desk, Write(desk, u"t.csv"_s, "G1,G1,A1,𠮷,x,2.5\n\"open,1\n"), [](CImportDialog& dialog) {
        QVERIFY2(Said(dialog).contains(u"数値だけが入るセル 1 個"_s), qPrintable(Said(dialog)));
        QVERIFY2(Said(dialog).contains(u"𠮷"_s), qPrintable(Said(dialog)));
        QVERIFY2(Said(dialog).contains(u"閉じていない引用符が 1 個"_s), qPrintable(Said(dialog)));
    });
    QCOMPARE(desk.Cell(row, 1), u"G1"_s);
    QCOMPARE(desk.Cell(row, 5), QString());
    const QString notice = desk.child->Notices().TextOf(u"table-import"_s);
    QVERIFY2(notice.contains(u"入らなかった値は 2 個"_s) && notice.contains(u"数値でない 1"_s), qPrintable(notice));
}

/// Of a column that is not taken nothing would go in anyway.
void TableFilesTest::whatIsLeftOutIsNotSaidNotToFit()
{
    Desk desk;
    desk.Open(desk.folder.Example(u"plate4"_s), 313);
    const QString path = Write(desk, u"t.csv"_s, "主桁始,主桁終,備考\nG1,G4,𠮷\n");
    Import(desk, path, [](CImportDialog& dialog) {
        QVERIFY2(Said(dialog).contains(u"1 列は取り込みません"_s), qPrintable(Said(dialog)));
        QVERIFY2(!Said(dialog).contains(u"𠮷"_s), qPrintable(Said(dialog)));
    });
    QVERIFY(desk.child->Notices().TextOf(u"table-import"_s).isEmpty());
}

void TableFilesTest::whatIsNoTableIsRefused()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    Fill(desk);
    const QString big = desk.folder.Path(u"big.csv"_s);
    {
        QFile file(big);
        QVERIFY(file.open(QFile::WriteOnly) && file.resize(100'000'000));
    }
    const QString nul = Write(desk, u"nul.csv"_s, std::string("a,\0b\n", 6));
    for (const QString& path : {big, nul, desk.folder.Path(u"none.csv"_s), desk.folder.Path(u"."_s)}) {
        desk.user.warned.clear();
        Import(desk, path, [](CImportDialog&) { QFAIL("no dialog for this"); });
        QCOMPARE(desk.user.warned.size(), 1);
        QVERIFY2(desk.user.warned[0].contains(u"プロジェクトは変わっていません"_s), qPrintable(desk.user.warned[0]));
    }
    Import(desk, Write(desk, u"line.csv"_s, std::string(20'000'000, 'x')), [](CImportDialog& dialog) {
        QVERIFY2(Said(dialog).contains(u"より長い 1 個の値"_s), qPrintable(Said(dialog)));
        QVERIFY(!ButtonOf(dialog, u"取り込む")->isEnabled());
    });
    Import(desk, Write(desk, u"empty.csv"_s, ""),
           [](CImportDialog& dialog) { QVERIFY(!ButtonOf(dialog, u"取り込む")->isEnabled()); });
    QVERIFY(!desk.child->Doc().IsModified());
}

void TableFilesTest::aFilterIsToBeEndedFirst()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    Fill(desk);
    Press(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    Import(desk, Write(desk, u"t.csv"_s, "G1,G2\n"), [](CImportDialog&) { QFAIL("no dialog for this"); });
    QVERIFY(desk.frame.statusBar()->currentMessage().contains(u"絞り込んでいるあいだ"_s));
}

void TableFilesTest::aBlockIsWrittenAndComesBack()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    Fill(desk);
    const QString path = desk.folder.Path(u"out.csv"_s);
    desk.user.tables.saveName = [&](QWidget*, const QString&) { return path; };
    for (const TextCode code : {TextCode::Cp932, TextCode::Utf8}) {
        desk.user.tables.chooseExport = [code](QWidget*, const QString&) {
            return std::optional(ExportPlan{true, false, code});
        };
        desk.frame.RunCommand(Command::ExportTable);
        QVERIFY(desk.user.proposal.endsWith(u"plate4_313.csv"_s));
        const QByteArray bytes = Bytes(path);
        QCOMPARE(bytes.startsWith("\xEF\xBB\xBF"), code == TextCode::Utf8);
        QCOMPARE(bytes.count("\r\n"), 3);
        Import(desk, path, [](CImportDialog& dialog) {
            QVERIFY(dialog.findChild<QCheckBox*>()->isChecked());
            QVERIFY2(Said(dialog).startsWith(u"2 行、18 個の値"_s), qPrintable(Said(dialog)));
        });
        const int last = int(desk.child->Doc().Data().RowCount(313));
        QCOMPARE(desk.Row(last), desk.Row(3));
        Press(Qt::Key_Z, Qt::ControlModifier);
        QCOMPARE(desk.child->Doc().Data().RowCount(313), 3U);
    }
}

void TableFilesTest::aFileThatCannotBeWrittenIsTold()
{
    Desk desk;
    QVERIFY(desk.OpenExample(u"plate4"_s, 313));
    desk.user.tables.saveName = [](QWidget*, const QString&) { return u"/no/such/folder/x.csv"_s; };
    desk.user.tables.chooseExport = [](QWidget*, const QString&) { return std::optional(ExportPlan()); };
    desk.frame.RunCommand(Command::ExportTable);
    QCOMPARE(desk.user.warned.size(), 1);
    QVERIFY2(desk.user.warned[0].contains(u"書き出せませんでした"_s), qPrintable(desk.user.warned[0]));
}

} // namespace sbd

QTEST_MAIN(sbd::TableFilesTest)
#include "table_files_test.moc"
