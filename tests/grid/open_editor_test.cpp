// What happens elsewhere while a text is being typed: marks of the check that arrive, other cells that change. The text
// under the user's hand stays.
#include "grid/cell_editor.h"
#include "grid/grid_ctrl.h"
#include "tests/grid/table_source.h"

#include <QApplication>
#include <QScrollBar>
#include <QTest>

namespace sbd {

using namespace Qt::StringLiterals;
using test::CTableSource;

class OpenEditorTest : public QObject {
    Q_OBJECT

private:
    std::unique_ptr<CTableSource> source_;
    std::unique_ptr<CGridCtrl> grid_;

    void Type(const QString& text)
    {
        for (const QChar c : text)
            QTest::keyClick(QApplication::focusWidget(), c.toLatin1());
    }
    [[nodiscard]] QLineEdit* Line() const
    {
        QWidget* editor = grid_->indexWidget(grid_->currentIndex());
        return editor != nullptr ? EditorLine(editor) : nullptr;
    }
    /// Marks of the check, each time others.
    void MarksArrive()
    {
        static int row = 0;
        row = row % 5 + 1;
        grid_->SetMarks(MarkSource::Check, {{row, 3, MarkKind::Loss, u"失われます"_s}});
    }

private slots:
    void init();
    void cleanup();
    void whatIsTypedStaysWhenMarksArrive_data();
    void whatIsTypedStaysWhenMarksArrive();
    void theCaretStaysWhenMarksArrive();
    void whatIsTypedStaysWhenTheTableChanges();
    void anUntouchedTextFollowsItsCell();
    void typingIntoALongSelectionIsSeen();
};

void OpenEditorTest::init()
{
    source_ = std::make_unique<CTableSource>(60, 6);
    source_->words[2] = {u"NO"_s, u"YES"_s};
    source_->cells[1][0] = u"old"_s;
    source_->cells[1][1] = u"NO"_s;
    grid_ = std::make_unique<CGridCtrl>();
    grid_->SetSource(source_.get());
    grid_->resize(600, 300);
    grid_->show();
    grid_->activateWindow();
    QVERIFY(QTest::qWaitForWindowActive(grid_.get()));
    grid_->setFocus();
}

void OpenEditorTest::cleanup()
{
    grid_.reset();
    source_.reset();
}

void OpenEditorTest::whatIsTypedStaysWhenMarksArrive_data()
{
    QTest::addColumn<int>("column");
    QTest::newRow("a line") << 1;
    QTest::newRow("a list") << 2;
}

void OpenEditorTest::whatIsTypedStaysWhenMarksArrive()
{
    QFETCH(int, column);
    grid_->SetFocusCell(2, column);
    Type(u"13"_s);
    MarksArrive();
    Type(u"0"_s);
    MarksArrive();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(source_->cells[1][std::size_t(column) - 1], u"130"_s);
}

void OpenEditorTest::theCaretStaysWhenMarksArrive()
{
    grid_->SetFocusCell(2, 1);
    QTest::keyClick(grid_.get(), Qt::Key_F2);
    QVERIFY(Line() != nullptr);
    QTest::keyClick(Line(), Qt::Key_Left);
    QTest::keyClick(Line(), Qt::Key_Left);
    MarksArrive();
    Type(u"x"_s);
    QCOMPARE(Line()->text(), u"oxld"_s);
}

void OpenEditorTest::whatIsTypedStaysWhenTheTableChanges()
{
    grid_->SetFocusCell(2, 1);
    Type(u"new"_s);
    source_->cells[3][0] = u"changed"_s;
    source_->cells[1][0] = u"from outside"_s;
    grid_->ShowAll();
    QCOMPARE(Line()->text(), u"new"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(source_->cells[1][0], u"new"_s);
}

void OpenEditorTest::anUntouchedTextFollowsItsCell()
{
    grid_->SetFocusCell(2, 1);
    QTest::keyClick(grid_.get(), Qt::Key_F2);
    source_->cells[1][0] = u"from outside"_s;
    grid_->ShowAll();
    QCOMPARE(Line()->text(), u"from outside"_s);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    QCOMPARE(source_->cells[1][0], u"from outside"_s);
}

void OpenEditorTest::typingIntoALongSelectionIsSeen()
{
    grid_->SetFocusCell(2, 1);
    grid_->SelectRange({2, 1, 55, 1});
    grid_->verticalScrollBar()->setValue(grid_->verticalScrollBar()->maximum());
    Type(u"7"_s);
    QVERIFY(Line() != nullptr);
    QVERIFY(grid_->viewport()->rect().contains(Line()->mapTo(grid_->viewport(), QPoint(1, 1))));
}

} // namespace sbd

QTEST_MAIN(sbd::OpenEditorTest)
#include "open_editor_test.moc"
