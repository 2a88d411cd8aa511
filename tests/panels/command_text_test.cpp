#include "panels/command_text.h"

#include <QAction>
#include <QMenu>
#include <QTest>

using namespace Qt::StringLiterals;
using namespace sbd;

class CommandTextTest : public QObject {
    Q_OBJECT

private slots:
    void aContextMenuHasTheEntriesOfTheTable();
    void anEntryWithoutAStepStandsInGrey();
    void anEntryDoesItsStep();
};

void CommandTextTest::aContextMenuHasTheEntriesOfTheTable()
{
    for (const MenuId which : {MenuId::GridContext, MenuId::SearchContext}) {
        QMenu menu;
        FillContextMenu(menu, which, {});
        const std::span<const MenuItem> items = MenuOf(which).items;
        QCOMPARE(menu.actions().size(), static_cast<qsizetype>(items.size()));
        for (std::size_t i = 0; i < items.size(); ++i) {
            const CommandRow& row = RowOf(std::get<Command>(items[i]));
            const QAction* entry = menu.actions().at(static_cast<qsizetype>(i));
            QCOMPARE(entry->text(), EntryText(row.text));
            QCOMPARE(entry->shortcuts(), KeysOf(row));
        }
    }
}

void CommandTextTest::anEntryWithoutAStepStandsInGrey()
{
    QMenu menu;
    FillContextMenu(menu, MenuId::GridContext, {{Command::Copy, [] {}}, {Command::Paste, [] {}, false}});
    for (const QAction* entry : menu.actions())
        QCOMPARE(entry->isEnabled(), entry->text() == EntryText(RowOf(Command::Copy).text));
}

void CommandTextTest::anEntryDoesItsStep()
{
    QMenu menu;
    QList<Command> done;
    std::vector<ContextStep> steps;
    for (const MenuItem& item : MenuOf(MenuId::GridContext).items) {
        const Command command = std::get<Command>(item);
        steps.push_back({command, [&done, command] { done.append(command); }});
    }
    FillContextMenu(menu, MenuId::GridContext, steps);
    for (QAction* entry : menu.actions())
        entry->trigger();
    QCOMPARE(done.size(), menu.actions().size());
    for (qsizetype i = 0; i < done.size(); ++i)
        QCOMPARE(done.at(i), steps.at(static_cast<std::size_t>(i)).command);
}

QTEST_MAIN(CommandTextTest)
#include "command_text_test.moc"
