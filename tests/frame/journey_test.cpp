// Whole journeys through the real window, by mouse and keys.
#include "answers.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/left_view.h"
#include "frame/main_frame.h"
#include "grid/grid_ctrl.h"
#include "panels/panel.h"

#include <QApplication>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

namespace {

struct Station {
    TestFolder folder;
    Answers user;
    CMainFrame frame{user.Dialogs()};
    bool isActive = false;

    Station()
    {
        frame.resize(1366, 768);
        frame.show();
        frame.activateWindow();
        isActive = QTest::qWaitForWindowActive(&frame);
    }
};

/// Keys come from the window system, so that shortcuts, editors and open lists get theirs.
void Press(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
{
    QTest::keyClick(QGuiApplication::focusWindow(), key, modifiers);
}

void Type(const QString& text)
{
    for (const QChar c : text)
        QTest::keyClick(QGuiApplication::focusWindow(), c.toLatin1());
}

/// Clicks the item of a block in the tree.
void ClickInTree(CChildFrame& child, int block)
{
    CLeftView& tree = child.Tree();
    for (QTreeWidgetItemIterator it(&tree); *it != nullptr; ++it) {
        if (!(*it)->text(0).startsWith(QString::number(block)) || (*it)->childCount() > 0)
            continue;
        (*it)->parent()->setExpanded(true);
        tree.scrollToItem(*it);
        const QRect place = tree.visualItemRect(*it);
        QTest::mouseClick(tree.viewport(), Qt::LeftButton, {}, {place.left() + 20, place.center().y()});
        QApplication::processEvents(); // the panel gets its place
        return;
    }
}

void ClickInGrid(CChildFrame& child, int row, int column)
{
    CGridCtrl& grid = *child.Panel()->Grid();
    const QModelIndex index = grid.model()->index(row - 1, column - 1);
    grid.scrollTo(index);
    QTest::mouseClick(grid.viewport(), Qt::LeftButton, {}, grid.visualRect(index).center());
}

/// Line numbers (from 0) in which two texts differ; -1 if they have not the same number of lines.
QList<qsizetype> DifferentLines(const QByteArray& a, const QByteArray& b)
{
    const QList<QByteArray> linesA = a.split('\n');
    const QList<QByteArray> linesB = b.split('\n');
    if (linesA.size() != linesB.size())
        return {-1};
    QList<qsizetype> lines;
    for (qsizetype i = 0; i < linesA.size(); ++i) {
        if (linesA[i] != linesB[i])
            lines.append(i);
    }
    return lines;
}

} // namespace

class JourneyTest : public QObject {
    Q_OBJECT

private slots:
    void twoCellsAreChangedAndJustTheirLinesInTheFile();
    void aCellUnderEditIsSavedWithTheRest();
    void lookingAtEveryBlockLeavesTheProjectUnmodified();
    void aChangeThatIsTakenBackLeavesTheProjectUnmodified();
    void aSaveThatFailsKeepsWhatWasTyped();
    void theKeyboardAloneReachesEveryPane();
    void closingWithACellUnderEditAsks();
};

void JourneyTest::twoCellsAreChangedAndJustTheirLinesInTheFile()
{
    Station station;
    QVERIFY(station.isActive);
    const QString path = station.folder.Example(u"plate4"_s);
    const QByteArray before = Bytes(path);
    CChildFrame* child = station.frame.OpenProject(path);
    QVERIFY(child != nullptr);

    ClickInGrid(*child, 5, 2); // 対傾構設計を行わない(YES_NO)
    Type(u"YES"_s);
    Press(Qt::Key_Return);
    QVERIFY(child->Doc().IsModified());
    QVERIFY(station.frame.isWindowModified());

    ClickInTree(*child, 313);
    QCOMPARE(child->CurrentBlock(), 313);
    ClickInGrid(*child, 3, 6); // 幅1
    Type(u"125"_s);
    Press(Qt::Key_Tab);

    Press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(station.user.warned.isEmpty());
    QVERIFY(!child->Doc().IsModified());
    QVERIFY(!station.frame.isWindowModified());

    const QByteArray after = Bytes(path);
    const QList<qsizetype> changed = DifferentLines(before, after);
    QCOMPARE(changed.size(), 2);
    const QByteArray switchLine = after.split('\n')[changed[0]];
    QVERIFY2(switchLine.startsWith("  DONOT_DESIGN_SWAY "), switchLine.constData());
    QVERIFY2(switchLine.trimmed().endsWith(" YES"), switchLine.constData());
    const QByteArray stiffenerLine = after.split('\n')[changed[1]];
    const QByteArray stiffenerBefore = before.split('\n')[changed[1]];
    QCOMPARE(stiffenerLine, QByteArray(stiffenerBefore).replace(" 130 ", " 125 "));
}

void JourneyTest::aCellUnderEditIsSavedWithTheRest()
{
    Station station;
    QVERIFY(station.isActive);
    const QString path = station.folder.Example(u"plate4"_s);
    CChildFrame* child = station.frame.OpenProject(path);
    ClickInGrid(*child, 1, 2);
    Type(u"UNDER EDIT"_s);
    Press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY2(Bytes(path).startsWith("TITLE:UNDER EDIT\r\n"), Bytes(path).left(40).constData());
    QVERIFY(!child->Doc().IsModified());
}

void JourneyTest::lookingAtEveryBlockLeavesTheProjectUnmodified()
{
    Station station;
    QVERIFY(station.isActive);
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"box2"_s));
    for (const TreeRow& row : TreeRows(child->Doc().Data())) {
        if (row.group)
            continue;
        child->GoToBlock(row.block);
        child->FocusPanel();
        if (child->Panel() != nullptr && child->Panel()->Model() != nullptr) {
            Press(Qt::Key_Down);
            Press(Qt::Key_Right);
        }
        QVERIFY2(!child->Doc().IsModified(), row.text.c_str());
    }
}

void JourneyTest::aChangeThatIsTakenBackLeavesTheProjectUnmodified()
{
    Station station;
    QVERIFY(station.isActive);
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    ClickInGrid(*child, 5, 2);
    Type(u"YES"_s);
    Press(Qt::Key_Return);
    QVERIFY(child->Doc().IsModified());
    ClickInGrid(*child, 5, 2);
    Type(u"NO"_s);
    Press(Qt::Key_Return);
    QVERIFY(!child->Doc().IsModified());
    QVERIFY(child->close());
    QVERIFY(station.user.asked.isEmpty());
}

void JourneyTest::aSaveThatFailsKeepsWhatWasTyped()
{
    Station station;
    QVERIFY(station.isActive);
    const QString path = station.folder.Example(u"plate4"_s);
    const QByteArray before = Bytes(path);
    CChildFrame* child = station.frame.OpenProject(path);
    ClickInGrid(*child, 1, 2);
    Type(u"TYPED"_s);
    station.user.saveFile = station.folder.Path(u"full.sbd"_s);
#ifdef Q_OS_LINUX
    QVERIFY(QFile::link(u"/dev/full"_s, station.user.saveFile));
#else // which has no device that is always full
    QVERIFY(QFile::copy(path, station.user.saveFile));
    QVERIFY(QFile::setPermissions(station.user.saveFile, QFile::ReadOwner));
#endif

    Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(station.user.warned.size(), 1);
    QVERIFY2(station.user.warned[0].contains(u"入力内容は画面に残っています"_s), qPrintable(station.user.warned[0]));
    QVERIFY(child->Doc().IsModified());
    QVERIFY(station.frame.isWindowModified());
    QCOMPARE(child->Panel()->Grid()->model()->index(0, 1).data().toString(), u"TYPED"_s);
    QCOMPARE(Bytes(path), before);

    Press(Qt::Key_S, Qt::ControlModifier); // to its own file it can be saved
    QVERIFY(Bytes(path).startsWith("TITLE:TYPED\r\n"));
}

void JourneyTest::theKeyboardAloneReachesEveryPane()
{
    Station station;
    QVERIFY(station.isActive);
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    child->Tree().setFocus();
    Press(Qt::Key_Down); // 302
    Press(Qt::Key_Down); // 303
    QCOMPARE(child->CurrentBlock(), 303);
    Press(Qt::Key_Return);
    QVERIFY(child->Panel()->isAncestorOf(QApplication::focusWidget()));
    QCOMPARE(child->Doc().HelpBlock(), 303);
    QCOMPARE(child->Doc().HelpRow(), 1);
    Press(Qt::Key_Down);
    QCOMPARE(child->Doc().HelpRow(), 2);
    Press(Qt::Key_F6); // the help page
    Press(Qt::Key_F6);
    QVERIFY(child->Tree().hasFocus());
    Press(Qt::Key_F6);
    QVERIFY(child->Panel()->isAncestorOf(QApplication::focusWidget()));
    Press(Qt::Key_F1);
    QCOMPARE(child->CurrentBlock(), 999);
}

void JourneyTest::closingWithACellUnderEditAsks()
{
    Station station;
    QVERIFY(station.isActive);
    CChildFrame* child = station.frame.OpenProject(station.folder.Example(u"plate4"_s));
    ClickInGrid(*child, 1, 2);
    Type(u"UNDER EDIT"_s);
    QVERIFY(!child->close());
    QCOMPARE(station.user.asked.size(), 1);
    QVERIFY(child->Doc().Data().Option(301, 0) == "UNDER EDIT");
}

QTEST_MAIN(JourneyTest)
#include "journey_test.moc"
