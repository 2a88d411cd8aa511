// What the commands of the top window do.
#include "commands/commands.h"
#include "document/file_name.h"
#include "document/section_doc.h"
#include "frame/about_text.h"
#include "frame/child_frame.h"
#include "frame/command_actions.h"
#include "frame/language.h"
#include "frame/main_frame.h"
#include "frame/project_findings.h"
#include "frame/project_replace.h"
#include "frame/run_changes.h"
#include "frame/settings.h"
#include "frame/table_files.h"
#include "grid/grid_ctrl.h"
#include "panels/panel.h"
#include "panels/print_name.h"
#include "panels/search_panel.h"
#include "project/block_numbers.h"
#include "project/catalogue.h"
#include "results/figure_view.h"
#include "upperview/drawing_pane.h"
#include "upperview/up_view.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QLineEdit>
#include <QMdiArea>
#include <QMessageBox>
#include <QPrinter>
#include <QScopedValueRollback>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kTitle = u"KELD section"_s;

/// "plate4_313": the project and the block whose page is on show, as the name of a print or a picture.
QString PageName(CChildFrame& child)
{
    const CKELDSectionDoc& doc = child.Doc();
    const QString project =
        doc.PathName().isEmpty() ? child.NameWithoutPath() : QFileInfo(doc.PathName()).completeBaseName();
    return project + u'_' + QString::number(doc.HelpBlock() >= 0 ? doc.HelpBlock() : doc.CurrentBlock());
}

/// An open field takes its own text back first; searches and lists take back theirs, all else is the project's.
void Undo(CChildFrame& child)
{
    auto* field = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    CPanel* panel = child.Panel();
    const bool panelFirst =
        panel != nullptr && (panel->Model() == nullptr ? panel->CanUndo() : panel->Grid()->IsEditing());
    if (field != nullptr && field->isUndoAvailable())
        field->undo();
    else if (panelFirst)
        panel->Undo();
    else
        child.StepHistory(false);
}

} // namespace

void CMainFrame::RunCommand(Command command)
{
    if (!MayBeGiven(command))
        return;
    if (const auto handler = handlers_.find(command); handler != handlers_.end())
        handler->second();
    else if (RowOf(command).owner == CommandOwner::Outside)
        emit commandForOutside(command);
    UpdateCommands();
}

bool CMainFrame::MayBeGiven(Command command) const
{
    if (command == Command::None)
        return false;
    const CommandNeeds needs = RowOf(command).needs;
    return needs == CommandNeeds::Nothing || Holds(needs);
}

void CMainFrame::OpenBlock(int block)
{
    const CatalogueRow* row = FindBlock(block);
    if (row == nullptr)
        return;
    if (const std::optional<Command> command = CommandOfNumber(row->command)) {
        RunCommand(*command); // a run, or the search
        return;
    }
    if (CChildFrame* child = CurrentChild())
        child->GoToBlock(block);
    UpdateCommands();
}

void CMainFrame::CreateHandlers()
{
    AddFileHandlers();
    AddEditHandlers();
    AddRunHandlers();
    AddViewHandlers();
    AddTreeHandlers();
    AddSettingsHandlers();
    AddWindowHandlers();
    AddPlaceHandlers();
}

void CMainFrame::OnChild(Command command, std::function<void(CChildFrame&)> run)
{
    handlers_[command] = [this, run = std::move(run)] {
        if (CChildFrame* child = CurrentChild())
            run(*child);
    };
}

void CMainFrame::AddFileHandlers()
{
    handlers_[Command::NewProject] = [this] { files_->New(); };
    handlers_[Command::Open] = [this] { files_->Open(); };
    OnChild(Command::Close, [](CChildFrame& child) { child.close(); });
    OnChild(Command::Save, [this](CChildFrame& child) { files_->Save(child); });
    OnChild(Command::SaveAs, [this](CChildFrame& child) { files_->SaveAs(child); });
    OnChild(Command::Print, [this](CChildFrame& child) { Print(child, false); });
    OnChild(Command::PrintPreview, [this](CChildFrame& child) { Print(child, true); });
    OnChild(Command::SavePicture, [this](CChildFrame& child) { SavePicture(child); });
    OnChild(Command::InputBook, [this](CChildFrame& child) { files_->WriteBook(child); });
    OnChild(Command::CompareProject, [this](CChildFrame& child) { files_->Compare(child); });
    handlers_[Command::Exit] = [this] { close(); };
}

void CMainFrame::OnEditor(Command command, std::function<void(QLineEdit&)> inEditor, void (CPanel::*inPanel)())
{
    OnChild(command, [inEditor = std::move(inEditor), inPanel](CChildFrame& child) {
        if (auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget()))
            inEditor(*editor);
        else if (child.Panel() != nullptr)
            (child.Panel()->*inPanel)();
    });
}

void CMainFrame::OnRow(Command command, void (CPanel::*run)())
{
    OnChild(command, [run](CChildFrame& child) {
        if (child.Panel() != nullptr)
            (child.Panel()->*run)();
    });
}

void CMainFrame::AddEditHandlers()
{
    OnChild(Command::Undo, Undo);
    OnChild(Command::Redo, [](CChildFrame& child) { child.StepHistory(true); });
    OnEditor(Command::Cut, &QLineEdit::cut, &CPanel::Cut);
    OnEditor(Command::Copy, &QLineEdit::copy, &CPanel::Copy);
    OnEditor(Command::Paste, &QLineEdit::paste, &CPanel::Paste);
    OnEditor(Command::Delete, &QLineEdit::del, &CPanel::Delete);
    for (const Command command : CPanel::GridCommands())
        OnChild(command, [command](CChildFrame& child) {
            if (child.Panel() != nullptr)
                child.Panel()->RunGridCommand(command);
        });
    OnRow(Command::AddRows, &CPanel::AskRows);
    OnChild(Command::NextFinding, [](CChildFrame& child) { child.Findings().GoToNext(false); });
    OnChild(Command::PreviousFinding, [](CChildFrame& child) { child.Findings().GoToNext(true); });
    OnChild(Command::NextRunChange, [](CChildFrame& child) { child.RunChanges().GoToNext(false); });
    OnChild(Command::PreviousRunChange, [](CChildFrame& child) { child.RunChanges().GoToNext(true); });
    OnChild(Command::FindingList, [this](CChildFrame& child) { ShowFindingList(!child.Findings().ShowsPane()); });
    OnChild(Command::FindText, [](CChildFrame& child) { child.Replace().Open(false); });
    OnChild(Command::ReplaceText, [](CChildFrame& child) { child.Replace().Open(true); });
    OnChild(Command::FindNext, [](CChildFrame& child) { child.Replace().GoToNext(false); });
    OnChild(Command::FindPrevious, [](CChildFrame& child) { child.Replace().GoToNext(true); });
    OnChild(Command::ImportTable, [this](CChildFrame& child) { ImportTable(child, prompts_); });
    OnChild(Command::ExportTable, [this](CChildFrame& child) { ExportTable(child, prompts_); });
    OnChild(Command::JumpToHit, [](CChildFrame& child) {
        if (auto* search = qobject_cast<CDown999*>(child.Panel()))
            search->JumpToHit();
    });
}

void CMainFrame::AddRunHandlers()
{
    for (const EngineRunInfo& info : EngineRuns())
        OnChild(info.command, [this, run = info.run](CChildFrame& child) { files_->Run(child, run); });
    OnChild(Command::KeptInputs, [this](CChildFrame& child) { files_->ShowKeptInputs(child); });
}

void CMainFrame::AddViewHandlers()
{
    OnChild(Command::SwitchFigureAndHelp, [](CChildFrame& child) {
        // What lies behind the drawing comes to the front first.
        child.ShowHelpPage(child.Doc().showDrawing == child.Doc().showHelpPage);
    });
    OnChild(Command::BridgeDrawing, [](CChildFrame& child) { child.ShowDrawing(!child.Doc().showDrawing); });
    OnChild(Command::Notes, [](CChildFrame& child) {
        child.Doc().SetCurrentBlock(kNotesBlock);
        child.Doc().SetHelpCell(-1, 0, 0);
        child.ShowHelpPage(true);
    });
    for (const Command command : FigureCommands())
        OnChild(command, [command](CChildFrame& child) { child.UpView().RunViewCommand(command); });
    OnChild(Command::Search, [](CChildFrame& child) {
        child.GoToBlock(kSearchBlock);
        if (auto* search = qobject_cast<CDown999*>(child.Panel()))
            search->GoToLine(); // to type at once
    });
}

void CMainFrame::AddTreeHandlers()
{
    for (const CommandRow& row : CommandTable()) {
        if (const auto mode = TreeModeOf(row.command)) {
            handlers_[row.command] = [this, mode] {
                treeView_.mode = *mode;
                SetTreeView();
            };
        }
        if (const auto filter = TreeFilterOf(row.command)) {
            handlers_[row.command] = [this, filter] {
                if (treeView_.filters.erase(*filter) == 0)
                    treeView_.filters.insert(*filter);
                SetTreeView();
            };
        }
    }
    for (const LanguageMode& mode : LanguageModes()) {
        handlers_[mode.command] = [this, language = mode.language] {
            CSettings().SetLanguage(language);
            treeView_.language = language;
            SetTreeView();
            TitleDataMenu();
        };
    }
}

void CMainFrame::SetTreeView()
{
    for (CChildFrame* child : Children())
        child->SetTreeView(treeView_);
}

/// Cells of all projects are alike: the change is made in each, and its panel is built anew.
void CMainFrame::ChangeCells(const std::function<void(CChildFrame& child)>& change)
{
    for (CChildFrame* child : Children()) {
        change(*child);
        child->RebuildPanel();
    }
}

void CMainFrame::AddSettingsHandlers()
{
    const auto height = [this](int step) {
        const int rowHeight = CSettings().ChangeRowHeight(step);
        ChangeCells([=](CChildFrame& child) { child.Doc().display.rowHeight = rowHeight; });
    };
    const auto width = [this](int step) {
        const int mode = CSettings().ChangeRowWidth(step);
        ChangeCells([=](CChildFrame& child) { child.Doc().rowWidthMode = mode; });
    };
    handlers_[Command::RowsHigher] = [height] { height(CSettings::kRowHeightStep); };
    handlers_[Command::RowsLower] = [height] { height(-CSettings::kRowHeightStep); };
    handlers_[Command::ColumnsWider] = [width] { width(CSettings::kRowWidthStep); };
    handlers_[Command::ColumnsNarrower] = [width] { width(-CSettings::kRowWidthStep); };
    handlers_[Command::ResetCells] = [this] {
        CSettings settings;
        settings.ResetCells();
        ChangeCells([&](CChildFrame& child) {
            child.Doc().display.rowHeight = settings.RowHeight();
            child.Doc().rowWidthMode = settings.RowWidthMode();
            for (auto& [block, layout] : child.Doc().display.grids)
                layout.widened.clear();
            settings.SetGrids(child.Doc().display);
        });
    };
    handlers_[Command::WordLists] = [this] {
        const int comboOrList = CSettings().FlipComboOrList();
        ChangeCells([=](CChildFrame& child) { child.Doc().comboOrList = comboOrList; });
    };

    OnChild(Command::SavePanes, [](CChildFrame& child) {
        CSettings().SetPanes(child.Panes());
        if (CSettings().HelpBeside())
            CSettings().SetHelpWidth(child.UpView().width());
    });
    OnChild(Command::BackColor, [this](CChildFrame& child) {
        DisplaySettings& display = child.Doc().display;
        const QColor colour = prompts_.chooseColour(this, ToQColor(display.backColor));
        if (!colour.isValid())
            return;
        display.backColor = FromQColor(colour);
        CSettings().SetBackColor(display.backColor);
        child.UpView().Refresh();
    });
    OnChild(Command::Decimals, [this](CChildFrame& child) {
        if (prompts_.chooseDecimals(this, child.Doc().display))
            child.UpView().Refresh();
    });
    OnChild(Command::Font, [this](CChildFrame& child) {
        if (!prompts_.chooseFont(this, child.Doc().display))
            return;
        CSettings().SetFont(child.Doc().display);
        child.UpView().Refresh();
    });
    OnChild(Command::ResetDisplay, [](CChildFrame& child) {
        CSettings settings;
        settings.ResetHelpPane(child.Doc().display);
        settings.SetPanes(child.ComputedPanes());
        child.SetPanes(child.ComputedPanes());
        child.UpView().Refresh();
    });
}

void CMainFrame::AddWindowHandlers()
{
    OnChild(Command::NextPane, [](CChildFrame& child) { child.FocusOtherPane(true); });
    OnChild(Command::PreviousPane, [](CChildFrame& child) { child.FocusOtherPane(false); });
    OnChild(Command::NextWindow, [this](CChildFrame&) { area_->activateNextSubWindow(); });
    OnChild(Command::PreviousWindow, [this](CChildFrame&) { area_->activatePreviousSubWindow(); });
    OnChild(Command::CascadeWindows, [this](CChildFrame&) { area_->cascadeSubWindows(); });
    OnChild(Command::TileWindows, [this](CChildFrame&) { area_->tileSubWindows(); });
    handlers_[Command::TabbedWindows] = [this] {
        const bool tabbed = area_->viewMode() != QMdiArea::TabbedView;
        CSettings().SetTabbedWindows(tabbed);
        SetTabbed(tabbed);
    };
    handlers_[Command::About] = [this] { ShowAbout(); };
    handlers_[Command::Version] = [this] { ShowAbout(); };
}

void CMainFrame::SetTabbed(bool tabbed)
{
    area_->setViewMode(tabbed ? QMdiArea::TabbedView : QMdiArea::SubWindowView);
    area_->setDocumentMode(tabbed);
    area_->setTabsClosable(tabbed);
    area_->setTabsMovable(tabbed);
    if (CChildFrame* child = CurrentChild(); child != nullptr && !tabbed)
        child->showMaximized(); // as it was ahead of the tabs
    ShowTitle();
}

/// A window that fills the area puts its title into this one's by itself, a tab does not, and after a change from one to
/// the other neither is right.
void CMainFrame::ShowTitle()
{
    CChildFrame* child = CurrentChild();
    const bool fills = child != nullptr && (area_->viewMode() == QMdiArea::TabbedView || child->isMaximized());
    setWindowTitle(fills ? u"%1 - [%2]"_s.arg(kTitle, child->windowTitle()) : kTitle);
    setWindowModified(fills && child->isWindowModified());
}

void CMainFrame::Print(CChildFrame& child, bool preview)
{
    if (!prompts_.hasPrinter()) {
        Warn(u"印刷できません。このコンピューターにはプリンターが設定されていません。\n\n"
             u"プロジェクトには影響ありません。\n\n"
             u"システムの設定でプリンターを追加してください。図やページは「図を保存」で PDF に保存できます。"_s);
        return;
    }
    const QScopedValueRollback printing(printing_, true);
    UpdateCommands();
    QPrinter printer(QPrinter::HighResolution);
    if (child.UpView().currentWidget() == &child.UpView().Drawing())
        printer.setPageOrientation(QPageLayout::Landscape); // as the sheet lies
    NamePrint(printer, ProposedFile(child.Doc(), PageName(child), u".pdf"_s));
    if (child.UpView().IsWide())
        printer.setPageOrientation(QPageLayout::Landscape);
    const auto paint = [&child](QPrinter& on) { child.UpView().Print(on); };
    if (preview)
        prompts_.previewPrint(this, printer, paint);
    else if (prompts_.choosePrinter(this, printer))
        paint(printer);
}

void CMainFrame::SavePicture(CChildFrame& child)
{
    const QString file = prompts_.savePictureName(this, ProposedFile(child.Doc(), PageName(child), u".png"_s));
    if (!file.isEmpty() && !child.UpView().SavePicture(file)) {
        Warn(u"図を保存できませんでした。\n"_s + QDir::toNativeSeparators(file)
             + u"\n\nプロジェクトには影響ありません。\n\n保存先と、拡張子 (.png .svg .pdf) を確かめてください。"_s);
    }
}

void CMainFrame::ShowAbout()
{
    QMessageBox::about(this, u"バージョン情報"_s,
                       AboutText(actions_->Of(Command::Version)->text(), QApplication::applicationVersion(),
                                 QApplication::applicationDirPath()));
}

} // namespace sbd
