// The menus of the top window: what stands in them, and what may be given.
#include "commands/commands.h"
#include "document/cell_input.h"
#include "document/section_doc.h"
#include "frame/child_frame.h"
#include "frame/command_actions.h"
#include "frame/data_menu.h"
#include "frame/language.h"
#include "frame/main_frame.h"
#include "frame/profile.h"
#include "frame/project_findings.h"
#include "frame/settings.h"
#include "panels/command_text.h"
#include "panels/panel.h"
#include "panels/search_panel.h"
#include "project/block_numbers.h"
#include "project/catalogue.h"
#include "project/sbd_data.h"

#include <QAction>
#include <QApplication>
#include <QDir>
#include <QLineEdit>
#include <QMdiArea>
#include <QMenuBar>
#include <QToolBar>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

/// "&1 ... &9" for the first nine entries of a list; the text may hold "&".
QString Numbered(qsizetype index, QString text)
{
    return (index < 9 ? u"&%1  "_s.arg(index + 1) : u"%1  "_s.arg(index + 1)) + text.replace(u'&', u"&&"_s);
}

} // namespace

void CMainFrame::CreateMenus()
{
    actions_ = new CCommandActions(this, [this](Command command) { RunCommand(command); });
    actions_->FillMenuBar(*menuBar(), [this](QMenu& menu, MenuFill entries) { FillMenu(menu, entries); });
    for (QMenu* menu : menuBar()->findChildren<QMenu*>()) {
        connect(menu, &QMenu::aboutToShow, this, &CMainFrame::UpdateCommands);
        menu->setToolTipsVisible(false);
    }
    auto* bar = addToolBar(u"標準"_s);
    bar->setObjectName(u"standardToolBar"_s);
    actions_->FillToolBar(*bar);
    SetHomePages({});
}

void CMainFrame::FillMenu(QMenu& menu, MenuFill entries)
{
    switch (entries) {
    case MenuFill::DataEntries:
        FillDataMenu(menu);
        break;
    case MenuFill::RecentFiles: {
        QMenu* recent = menu.addMenu(u"最近使ったファイル(&R)"_s);
        connect(recent, &QMenu::aboutToShow, this, [this, recent] { FillRecentMenu(*recent); });
        FillRecentMenu(*recent);
        break;
    }
    case MenuFill::Windows:
        connect(&menu, &QMenu::aboutToShow, this, [this, &menu] { FillWindowMenu(menu); });
        break;
    }
}

void CMainFrame::FillDataMenu(QMenu& menu)
{
    for (const DataMenuPart& part : DataMenuParts()) {
        QMenu* entries = &menu;
        if (part.group != 0) {
            entries = menu.addMenu(QString());
            dataEntries_.push_back({entries->menuAction(), part.group, part.title, true});
        } else if (!menu.isEmpty()) {
            menu.addSeparator();
        }
        for (const int block : part.blocks)
            AddDataEntry(*entries, block);
        if (part.group == 0)
            menu.addSeparator();
    }
    TitleDataMenu();
    connect(&menu, &QMenu::aboutToShow, this, &CMainFrame::TitleDataMenu);
}

void CMainFrame::AddDataEntry(QMenu& menu, int block)
{
    const CatalogueRow* row = FindBlock(block);
    if (row == nullptr || row->menuText.empty())
        return;
    if (block == kSearchBlock) {
        menu.addAction(actions_->Of(Command::Search)); // with its key
        return;
    }
    QAction* action = menu.addAction(QString());
    action->setCheckable(true);
    connect(action, &QAction::triggered, this, [this, block] { OpenBlock(block); });
    dataEntries_.push_back({action, block, row->menuText, false});
}

void CMainFrame::TitleDataMenu()
{
    static const CSbdData none;
    CChildFrame* child = CurrentChild();
    const CSbdData& project = child == nullptr ? none : child->Doc().Data();
    const std::pair titledFor(treeView_.language, TreeKey(project));
    if (titledFor_ == titledFor)
        return;
    titledFor_ = titledFor;
    // The titles of the tree, whatever it shows now.
    TreeView all = treeView_;
    all.mode = TreeMode::Everything;
    const std::vector<TreeRow> tree = TreeRows(project, all);
    for (const DataEntry& entry : dataEntries_)
        entry.action->setText(DataEntryTitle(entry.block, entry.group, entry.menuText, treeView_.language, tree));
}

void CMainFrame::FillRecentMenu(QMenu& menu)
{
    menu.clear();
    const QStringList files = CRecentFiles::List();
    for (qsizetype i = 0; i < files.size(); ++i) {
        const QString& file = files[i];
        menu.addAction(Numbered(i, QDir::toNativeSeparators(file)), this, [this, file] { OpenProject(file); });
    }
    if (files.isEmpty())
        menu.addAction(u"(なし)"_s)->setEnabled(false);
}

void CMainFrame::FillWindowMenu(QMenu& menu)
{
    qDeleteAll(windowEntries_);
    windowEntries_.clear();
    const QList<CChildFrame*> children = Children();
    for (qsizetype i = 0; i < children.size(); ++i) {
        CChildFrame* child = children[i];
        const QString path = child->Doc().PathName();
        const QString name = path.isEmpty() ? child->Title() : QDir::toNativeSeparators(path);
        QAction* entry = menu.addAction(Numbered(i, name), this, [this, child] { area_->setActiveSubWindow(child); });
        entry->setCheckable(true);
        entry->setChecked(child == CurrentChild());
        windowEntries_.append(entry);
    }
}

void CMainFrame::SetHomePages(const HomePages& pages)
{
    homePages_ = pages;
    QAction* second = actions_->Of(Command::SecondHomePage);
    second->setText(QString(pages.secondText).replace(u'&', u"&&"_s));
    second->setVisible(!pages.secondText.isEmpty());
    UpdateCommands();
}

void CMainFrame::SetVersionText(const QString& text)
{
    actions_->Of(Command::Version)->setText(text);
}

bool CMainFrame::Holds(CommandNeeds needs) const
{
    CChildFrame* child = CurrentChild();
    if (needs == CommandNeeds::HomePage)
        return homePages_.first;
    if (needs == CommandNeeds::SecondHomePage)
        return homePages_.second;
    if (child == nullptr)
        return needs == CommandNeeds::Nothing;
    const CPanel* panel = child->Panel();
    const bool hasGrid = panel != nullptr && panel->Model() != nullptr;
    switch (needs) {
    case CommandNeeds::FreeView:
        return !printing_;
    case CommandNeeds::FreePage:
        return !printing_ && child->CurrentBlock() != kResultBlock;
    case CommandNeeds::Grid:
        return panel != nullptr;
    case CommandNeeds::Undo:
        if (const auto* field = qobject_cast<const QLineEdit*>(QApplication::focusWidget()))
            if (field->isUndoAvailable())
                return true;
        return child->Doc().NextUndo() != nullptr || (panel != nullptr && panel->CanUndo());
    case CommandNeeds::Redo:
        return child->Doc().NextRedo() != nullptr;
    case CommandNeeds::RowUp:
        return hasGrid && panel->CanMoveRowUp();
    case CommandNeeds::RowDown:
        return hasGrid && panel->CanMoveRowDown();
    case CommandNeeds::InsertRow:
        return hasGrid && panel->CanInsertRow();
    case CommandNeeds::TableRow:
        return hasGrid && panel->CanDeleteRow();
    case CommandNeeds::Filter:
        return hasGrid && panel->CanFilterRows();
    case CommandNeeds::AddRows:
        return hasGrid && panel->CanAddRows();
    case CommandNeeds::Filters:
        return treeView_.mode != TreeMode::Everything;
    case CommandNeeds::Back:
        return child->Places().CanGoBack();
    case CommandNeeds::Forward:
        return child->Places().CanGoForward();
    case CommandNeeds::Hit: {
        const auto* search = qobject_cast<const CDown999*>(panel);
        return search != nullptr && search->CanJump();
    }
    default:
        return true;
    }
}

void CMainFrame::UpdateCommands()
{
    actions_->Update([this](CommandNeeds needs) { return Holds(needs); });
    CChildFrame* child = CurrentChild();
    for (const DataEntry& entry : dataEntries_) {
        entry.action->setEnabled(child != nullptr || entry.group);
        if (entry.action->isCheckable())
            entry.action->setChecked(child != nullptr && child->CurrentBlock() == CanonicalBlock(entry.block));
    }
    UpdateMarks();
    ShowHistory();
}

/// What is taken back, and what is made again, next.
void CMainFrame::ShowHistory()
{
    CChildFrame* child = CurrentChild();
    const auto* field = qobject_cast<const QLineEdit*>(QApplication::focusWidget());
    const bool ownText = field != nullptr && field->isUndoAvailable();
    const auto show = [this](Command command, CommandNeeds needs, const EditStep* step) {
        const QString plain = EntryText(RowOf(command));
        const QString name = step == nullptr ? QString() : toQString(step->name).replace(u'&', u"&&"_s);
        actions_->Of(command)->setText(name.isEmpty() ? plain : u"%1 を%2"_s.arg(name, plain));
        actions_->Of(command)->setEnabled(Holds(needs));
    };
    show(Command::Undo, CommandNeeds::Undo, child == nullptr || ownText ? nullptr : child->Doc().NextUndo());
    show(Command::Redo, CommandNeeds::Redo, child == nullptr ? nullptr : child->Doc().NextRedo());
}

void CMainFrame::UpdateMarks()
{
    for (const CommandRow& row : CommandTable()) {
        if (const auto mode = TreeModeOf(row.command))
            actions_->SetMark(row.command, treeView_.mode == *mode);
        if (const auto filter = TreeFilterOf(row.command))
            actions_->SetMark(row.command, treeView_.filters.contains(*filter));
        if (const LanguageMode* language = LanguageModeOf(row.command))
            actions_->SetMark(row.command, treeView_.language == language->language);
    }
    actions_->SetMark(Command::HelpBeside, CSettings().HelpBeside());
    actions_->SetMark(Command::KeepSession, CSettings().KeepsSession());
    actions_->SetMark(Command::TabbedWindows, area_->viewMode() == QMdiArea::TabbedView);
    CChildFrame* child = CurrentChild();
    actions_->SetMark(Command::FindingList, child != nullptr && child->Findings().ShowsPane());
    actions_->SetMark(Command::BridgeDrawing, child != nullptr && child->Doc().showDrawing);
    actions_->SetMark(Command::FilterRows,
                      child != nullptr && child->Panel() != nullptr && child->Panel()->FiltersRows());
    actions_->SetMark(Command::FreezeColumns,
                      child != nullptr && child->Panel() != nullptr && child->Panel()->FreezesColumns());
    actions_->SetMark(Command::WordLists, child == nullptr || child->Doc().comboOrList == kWordLists);
}

} // namespace sbd
