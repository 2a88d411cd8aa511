// Whole journeys through the real window, by mouse and keys.
#include "frame/left_view.h"
#include "panel_desk.h"

using namespace sbd;

namespace {

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
    Desk desk;
    QVERIFY(desk.isActive);
    const QString path = desk.folder.Example(u"plate4"_s);
    const QByteArray before = Bytes(path);
    CChildFrame* child = desk.frame.OpenProject(path);
    QVERIFY(child != nullptr);

    ClickInGrid(*child, 5, 2); // 対傾構設計を行わない(YES_NO)
    Type(u"YES"_s);
    Press(Qt::Key_Return);
    QVERIFY(child->Doc().IsModified());
    QVERIFY(desk.frame.isWindowModified());

    ClickInTree(*child, 313);
    QCOMPARE(child->CurrentBlock(), 313);
    ClickInGrid(*child, 3, 6); // 幅1
    Type(u"125"_s);
    Press(Qt::Key_Tab);

    Press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY(desk.user.warned.isEmpty());
    QVERIFY(!child->Doc().IsModified());
    QVERIFY(!desk.frame.isWindowModified());

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
    Desk desk;
    QVERIFY(desk.isActive);
    const QString path = desk.folder.Example(u"plate4"_s);
    CChildFrame* child = desk.frame.OpenProject(path);
    ClickInGrid(*child, 1, 2);
    Type(u"UNDER EDIT"_s);
    Press(Qt::Key_S, Qt::ControlModifier);
    QVERIFY2(Bytes(path).startsWith("TITLE:UNDER EDIT\r\n"), Bytes(path).left(40).constData());
    QVERIFY(!child->Doc().IsModified());
}

void JourneyTest::lookingAtEveryBlockLeavesTheProjectUnmodified()
{
    Desk desk;
    QVERIFY(desk.isActive);
    CChildFrame* child = desk.frame.OpenProject(desk.folder.Example(u"box2"_s));
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
    Desk desk;
    QVERIFY(desk.isActive);
    CChildFrame* child = desk.frame.OpenProject(desk.folder.Example(u"plate4"_s));
    ClickInGrid(*child, 5, 2);
    Type(u"YES"_s);
    Press(Qt::Key_Return);
    QVERIFY(child->Doc().IsModified());
    ClickInGrid(*child, 5, 2);
    Type(u"NO"_s);
    Press(Qt::Key_Return);
    QVERIFY(!child->Doc().IsModified());
    QVERIFY(child->close());
    QVERIFY(desk.user.asked.isEmpty());
}

void JourneyTest::aSaveThatFailsKeepsWhatWasTyped()
{
    Desk desk;
    QVERIFY(desk.isActive);
    const QString path = desk.folder.Example(u"plate4"_s);
    const QByteArray before = Bytes(path);
    CChildFrame* child = desk.frame.OpenProject(path);
    ClickInGrid(*child, 1, 2);
    Type(u"TYPED"_s);
    desk.user.saveFile = desk.folder.Path(u"full.sbd"_s);
#ifdef Q_OS_LINUX
    QVERIFY(QFile::link(u"/dev/full"_s, desk.user.saveFile));
#else // which has no device that is always full
    QVERIFY(QFile::copy(path, desk.user.saveFile));
    QVERIFY(QFile::setPermissions(desk.user.saveFile, QFile::ReadOwner));
#endif

    Press(Qt::Key_S, Qt::ControlModifier | Qt::ShiftModifier);
    QCOMPARE(desk.user.warned.size(), 1);
    QVERIFY2(desk.user.warned[0].contains(u"入力内容は画面に残っています"_s), qPrintable(desk.user.warned[0]));
    QVERIFY(child->Doc().IsModified());
    QVERIFY(desk.frame.isWindowModified());
    QCOMPARE(child->Panel()->Grid()->model()->index(0, 1).data().toString(), u"TYPED"_s);
    QCOMPARE(Bytes(path), before);

    Press(Qt::Key_S, Qt::ControlModifier); // to its own file it can be saved
    QVERIFY(Bytes(path).startsWith("TITLE:TYPED\r\n"));
}

void JourneyTest::theKeyboardAloneReachesEveryPane()
{
    Desk desk;
    QVERIFY(desk.isActive);
    CChildFrame* child = desk.frame.OpenProject(desk.folder.Example(u"plate4"_s));
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
    Desk desk;
    QVERIFY(desk.isActive);
    CChildFrame* child = desk.frame.OpenProject(desk.folder.Example(u"plate4"_s));
    ClickInGrid(*child, 1, 2);
    Type(u"UNDER EDIT"_s);
    QVERIFY(!child->close());
    QCOMPARE(desk.user.asked.size(), 1);
    QVERIFY(child->Doc().Data().Option(301, 0) == "UNDER EDIT");
}

QTEST_MAIN(JourneyTest)
#include "journey_test.moc"
