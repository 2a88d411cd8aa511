// Keys and mouse at random in a real panel: what holds whatever the fingers do.
#include "panels/row_filter.h"
#include "sbdfile/writer.h"
#include "tests/panels/panel_hands.h"
#include "tests/surroundings.h"

#include <QClipboard>

#include <cstdlib>
#include <random>

namespace sbd {

using namespace Qt::StringLiterals;

class RandomKeysTest : public test::PanelHands {
    Q_OBJECT

private slots:
    void init() { PutPanel(); }
    void cleanup() { TakePanel(); }

    void RowsOutOfSightStayAndTheSelectionIsAroundTheFocus_data();
    void RowsOutOfSightStayAndTheSelectionIsAroundTheFocus();

private:
    [[nodiscard]] int UpTo(int last) { return std::uniform_int_distribution<int>(0, last)(random_); }
    [[nodiscard]] bool Half() { return UpTo(1) == 0; }
    [[nodiscard]] QStringList HiddenRows() const;
    [[nodiscard]] bool IsOneRangeAroundTheFocus() const;
    void Strike(Qt::Key key, Qt::KeyboardModifiers modifiers = {}, const QString& text = {});
    void TypeAtRandom();
    void ClosePopup();
    void PressAtRandom();
    void ClickAtRandom();
    void OpenFilter();
    [[nodiscard]] std::string Bytes() const { return WriteProject(doc_->Data()); }

    std::mt19937 random_;
    QString done_; // the last action
};

/// The texts of the rows out of sight, in their order; spare rows are none.
QStringList RandomKeysTest::HiddenRows() const
{
    QStringList rows;
    for (int row = 1; row <= Grid().Source()->RowCount(); ++row) {
        if (!Grid().isRowHidden(row - 1))
            continue;
        QStringList cells;
        for (int column = 1; column <= Grid().Source()->ColumnCount(); ++column)
            cells << Cell(row, column);
        if (!cells.join(QString()).isEmpty())
            rows << cells.join(u'|');
    }
    return rows;
}

bool RandomKeysTest::IsOneRangeAroundTheFocus() const
{
    const GridCell focus = Grid().FocusCell();
    const GridRange range = Grid().SelectedRange();
    const QModelIndexList selected = Grid().selectionModel()->selectedIndexes();
    return focus.row == 0 || selected.isEmpty() // then it is the focus alone
           || (focus.row >= range.top && focus.row <= range.bottom && focus.column >= range.left
               && focus.column <= range.right
               && selected.size() == qsizetype(range.bottom - range.top + 1) * (range.right - range.left + 1));
}

/// To whoever has the keyboard; a key may close a list, so that its release goes elsewhere.
void RandomKeysTest::Strike(Qt::Key key, Qt::KeyboardModifiers modifiers, const QString& text)
{
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QWidget* popup = QApplication::activePopupWidget();
        QWidget* target = popup != nullptr                         ? popup
                          : QApplication::focusWidget() != nullptr ? QApplication::focusWidget()
                                                                   : static_cast<QWidget*>(&Grid());
        QKeyEvent event(type, key, modifiers, text);
        QApplication::sendEvent(target, &event);
        QApplication::processEvents();
    }
}

void RandomKeysTest::TypeAtRandom()
{
    done_ = u"typing"_s;
    if (Half()) {
        Strike(Qt::Key_G, {}, u"G"_s);
        Strike(Qt::Key_7, {}, u"7"_s);
    } else {
        Strike(Qt::Key_1, {}, u"1"_s);
    }
}

void RandomKeysTest::ClosePopup()
{
    for (int i = 0; i < 3 && QApplication::activePopupWidget() != nullptr; ++i)
        Strike(Qt::Key_Escape);
}

void RandomKeysTest::PressAtRandom()
{
    struct Stroke {
        Qt::Key key;
        Qt::KeyboardModifiers modifiers = {};
    };
    const Qt::KeyboardModifiers shift = Half() ? Qt::ShiftModifier : Qt::NoModifier;
    const Stroke strokes[] = {{Qt::Key_Down, shift},
                              {Qt::Key_Up, shift},
                              {Qt::Key_Left, shift},
                              {Qt::Key_Right, shift},
                              {Qt::Key_Down, shift | Qt::ControlModifier},
                              {Qt::Key_Up, shift | Qt::ControlModifier},
                              {Qt::Key_Right, shift | Qt::ControlModifier},
                              {Qt::Key_Home, shift},
                              {Qt::Key_Home, shift | Qt::ControlModifier},
                              {Qt::Key_End, shift | Qt::ControlModifier},
                              {Qt::Key_PageDown, shift},
                              {Qt::Key_PageUp, shift},
                              {Qt::Key_Return, shift},
                              {Qt::Key_Tab},
                              {Qt::Key_Backtab, Qt::ShiftModifier},
                              {Qt::Key_Delete},
                              {Qt::Key_D, Qt::ControlModifier},
                              {Qt::Key_R, Qt::ControlModifier},
                              {Qt::Key_C, Qt::ControlModifier},
                              {Qt::Key_X, Qt::ControlModifier},
                              {Qt::Key_V, Qt::ControlModifier},
                              {Qt::Key_Plus, Qt::ControlModifier},
                              {Qt::Key_Minus, Qt::ControlModifier},
                              {Qt::Key_D, Qt::ControlModifier | Qt::ShiftModifier},
                              {Qt::Key_Up, Qt::AltModifier},
                              {Qt::Key_Down, Qt::AltModifier},
                              {Qt::Key_A, Qt::ControlModifier},
                              {Qt::Key_Space, Qt::ShiftModifier},
                              {Qt::Key_Space, Qt::ControlModifier},
                              {Qt::Key_F2},
                              {Qt::Key_Escape},
                              {Qt::Key_Return, Qt::ControlModifier}};
    const Stroke& stroke = strokes[UpTo(int(std::size(strokes)) - 1)];
    done_ = QKeySequence(QKeyCombination(stroke.modifiers, stroke.key)).toString();
    Strike(stroke.key, stroke.modifiers);
}

void RandomKeysTest::ClickAtRandom()
{
    const Qt::KeyboardModifiers all[] = {Qt::NoModifier, Qt::ShiftModifier, Qt::ControlModifier,
                                         Qt::ControlModifier | Qt::ShiftModifier};
    const Qt::KeyboardModifiers modifiers = all[UpTo(3)];
    const QRect seen = Grid().viewport()->rect();
    const auto anywhere = [&] { return QPoint(UpTo(seen.width() - 1), UpTo(seen.height() - 1)); };
    if (const QRect handle = Grid().FillHandle(); Half() && !handle.isEmpty() && seen.contains(handle.center())) {
        done_ = u"a drag of the handle"_s;
        Drag(handle.center(), anywhere(), modifiers);
        return;
    }
    const QPoint from = anywhere();
    done_ = u"the mouse, modifiers %1"_s.arg(modifiers.toInt());
    QTest::mousePress(Grid().viewport(), Qt::LeftButton, modifiers, from);
    const QPoint to = Half() ? from : anywhere();
    if (to != from) {
        QMouseEvent move(QEvent::MouseMove, to, Grid().viewport()->mapToGlobal(to), Qt::NoButton, Qt::LeftButton,
                         modifiers);
        QApplication::sendEvent(Grid().viewport(), &move);
    }
    QTest::mouseRelease(Grid().viewport(), Qt::LeftButton, modifiers, to);
}

/// Some of the rows hold "P9" in their fourth column; these are to be seen.
void RandomKeysTest::OpenFilter()
{
    Grid().SetFocusCell(2 + UpTo(5), 4);
    Type(u"P9"_s);
    Key(Qt::Key_Return);
    Grid().SetFocusCell(2 + UpTo(5), 4);
    Type(u"P9"_s);
    Key(Qt::Key_Return);
    Key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    Input().RowFilter()->GoToLine(u"P9"_s);
    Key(Qt::Key_Return);
}

void RandomKeysTest::RowsOutOfSightStayAndTheSelectionIsAroundTheFocus_data()
{
    QTest::addColumn<int>("block");
    QTest::addColumn<bool>("filters");
    QTest::newRow("all rows in sight") << 313 << false;
    QTest::newRow("rows out of sight") << 313 << true;
    QTest::newRow("options") << 301 << false;
    QTest::newRow("records") << 311 << false;
    QTest::newRow("a row that rules the others") << 321 << false;
    QTest::newRow("names") << 501 << false;
    QTest::newRow("ribs") << 324 << false;
    QTest::newRow("ribs along") << 325 << false;
    QTest::newRow("heads that follow") << 511 << false;
}

void RandomKeysTest::RowsOutOfSightStayAndTheSelectionIsAroundTheFocus()
{
    QFETCH(const int, block);
    QFETCH(const bool, filters);
    if (block != 313) {
        panel_->ClosePanel();
        panel_.reset();
        const QString example = block == 324 || block == 325 ? u"box2"_s : u"plate4"_s;
        doc_ = std::make_unique<CKELDSectionDoc>();
        QVERIFY(doc_->OpenDocument(QString::fromUtf8(test::ExamplesFolder()) + u"/%1/%1.sbd"_s.arg(example)).Ok());
        Open(block);
        Grid().SetFocusCell(2, 2);
    }
    const char* given = std::getenv("SBD_TEST_SEED");
    const unsigned seed = given != nullptr ? unsigned(std::strtoul(given, nullptr, 10)) : std::random_device()();
    random_.seed(seed);
    const auto told = [&](const char* what) {
        const GridCell focus = Grid().FocusCell();
        const GridRange range = Grid().SelectedRange();
        return u"%1 behind %2: cursor %3/%4, selection %5/%6 to %7/%8; %10 selected; repeat with SBD_TEST_SEED=%9"_s
            .arg(QLatin1StringView(what), done_)
            .arg(focus.row)
            .arg(focus.column)
            .arg(range.top)
            .arg(range.left)
            .arg(range.bottom)
            .arg(range.right)
            .arg(seed)
            .arg(Grid().selectionModel()->selectedIndexes().size())
            .toUtf8();
    };
    QApplication::clipboard()->setText(u"1\t2\n3\t4"_s);
    const std::string first = Bytes();
    if (filters)
        OpenFilter();
    for (int i = 0; i < 200; ++i) {
        if (!Grid().IsEditing() && !Grid().hasFocus())
            Grid().setFocus();
        QCOMPARE(panel_->FiltersRows(), filters);
        const QStringList hidden = HiddenRows();
        switch (UpTo(5)) {
        case 0:
            ClickAtRandom();
            break;
        case 1:
            TypeAtRandom();
            break;
        default:
            PressAtRandom();
        }
        if (std::getenv("SBD_TEST_TRACE") != nullptr)
            qDebug() << told("step").constData();
        ClosePopup();
        QApplication::processEvents();
        QVERIFY2(HiddenRows() == hidden, told("rows out of sight are others").constData());
        QVERIFY2(IsOneRangeAroundTheFocus(), told("the focus is outside of the selection").constData());
        const GridCell focus = Grid().FocusCell();
        QVERIFY2(focus.row == 0 || !Grid().isRowHidden(focus.row - 1), told("the focus is out of sight").constData());
    }
    if (!Grid().CommitEditor()) // a text that the cell refuses
        Strike(Qt::Key_Escape);
    panel_->CommitGrid();
    if (filters)
        Key(Qt::Key_L, Qt::ControlModifier | Qt::ShiftModifier);
    while (doc_->NextUndo() != nullptr)
        doc_->Undo();
    QVERIFY2(Bytes() == first, told("not all comes back").constData());
}

} // namespace sbd

QTEST_MAIN(sbd::RandomKeysTest)
#include "random_keys_test.moc"
