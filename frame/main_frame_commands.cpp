// What the commands of the top window do.
#include "document/file_name.h"
#include "document/section_doc.h"
#include "frame/about_text.h"
#include "frame/child_frame.h"
#include "frame/command_actions.h"
#include "frame/language.h"
#include "frame/main_frame.h"
#include "frame/settings.h"
#include "panels/panel.h"
#include "panels/print_name.h"
#include "panels/search_panel.h"
#include "project/catalogue.h"
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

constexpr int kNotesBlock = 100;
constexpr int kSearchBlock = 999;

/// The commands of the model figure.
constexpr int kFirstViewCommand = 32991;
constexpr int kLastViewCommand = 33000;

/// "plate4_313": the project and the block whose page is on show, as the name of a print or a picture.
QString PageName(CChildFrame& child)
{
    const CKELDSectionDoc& doc = child.Doc();
    const QString project =
        doc.PathName().isEmpty() ? child.NameWithoutPath() : QFileInfo(doc.PathName()).completeBaseName();
    return project + u'_' + QString::number(doc.HelpBlock() >= 0 ? doc.HelpBlock() : doc.CurrentBlock());
}

} // namespace

void CMainFrame::RunCommand(int command)
{
    const CommandRow* row = FindCommand(command);
    if (row != nullptr && row->needs != CommandNeeds::Nothing && !Holds(row->needs))
        return;
    if (const auto handler = handlers_.find(command); handler != handlers_.end())
        handler->second();
    else if (row != nullptr)
        emit commandForOutside(command);
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
}

void CMainFrame::OnChild(int command, std::function<void(CChildFrame&)> run)
{
    handlers_[command] = [this, run = std::move(run)] {
        if (CChildFrame* child = CurrentChild())
            run(*child);
    };
}

void CMainFrame::AddFileHandlers()
{
    handlers_[57600] = [this] { files_->New(); };
    handlers_[57601] = [this] { files_->Open(); };
    OnChild(57602, [](CChildFrame& child) { child.close(); });
    OnChild(57603, [this](CChildFrame& child) { files_->Save(child); });
    OnChild(57604, [this](CChildFrame& child) { files_->SaveAs(child); });
    OnChild(57607, [this](CChildFrame& child) { Print(child, false); });
    OnChild(57609, [this](CChildFrame& child) { Print(child, true); });
    OnChild(kSavePicture, [this](CChildFrame& child) { SavePicture(child); });
    handlers_[57665] = [this] { close(); };
}

void CMainFrame::OnEditor(int command, std::function<void(QLineEdit&)> inEditor, void (CPanel::*inPanel)())
{
    OnChild(command, [inEditor = std::move(inEditor), inPanel](CChildFrame& child) {
        if (auto* editor = qobject_cast<QLineEdit*>(QApplication::focusWidget()))
            inEditor(*editor);
        else if (child.Panel() != nullptr)
            (child.Panel()->*inPanel)();
    });
}

void CMainFrame::OnRow(int command, void (CPanel::*run)())
{
    OnChild(command, [run](CChildFrame& child) {
        if (child.Panel() != nullptr)
            (child.Panel()->*run)();
    });
}

void CMainFrame::AddEditHandlers()
{
    OnEditor(57643, &QLineEdit::undo, &CPanel::Undo);
    OnEditor(57635, &QLineEdit::cut, &CPanel::Cut);
    OnEditor(57634, &QLineEdit::copy, &CPanel::Copy);
    OnEditor(57637, &QLineEdit::paste, &CPanel::Paste);
    OnEditor(33001, &QLineEdit::del, &CPanel::Delete);
    OnRow(33038, &CPanel::MoveRowUp);
    OnRow(33039, &CPanel::MoveRowDown);
    OnRow(33040, &CPanel::InsertRow);
    OnRow(32761, &CPanel::AskRows);
    OnChild(33181, [](CChildFrame& child) {
        if (auto* search = qobject_cast<CDown999*>(child.Panel()))
            search->JumpToHit();
    });
}

void CMainFrame::AddRunHandlers()
{
    for (const EngineRunInfo& info : EngineRuns())
        OnChild(info.command, [this, run = info.run](CChildFrame& child) { files_->Run(child, run); });
}

void CMainFrame::AddViewHandlers()
{
    OnChild(32989, [](CChildFrame& child) { child.ShowHelpPage(!child.Doc().showHelpPage); });
    OnChild(32990, [](CChildFrame& child) {
        child.Doc().SetCurrentBlock(kNotesBlock);
        child.Doc().SetHelpCell(-1, 0, 0);
        child.ShowHelpPage(true);
    });
    for (int command = kFirstViewCommand; command <= kLastViewCommand; ++command)
        OnChild(command, [command](CChildFrame& child) { child.UpView().RunViewCommand(command); });
    OnChild(49990, [](CChildFrame& child) {
        child.GoToBlock(kSearchBlock);
        if (auto* search = qobject_cast<CDown999*>(child.Panel()))
            search->GoToLine(); // to type at once
    });
    for (const CatalogueRow& row : Catalogue()) {
        const int command = row.command;
        if (command != 0 && !handlers_.contains(command))
            OnChild(command, [block = row.block](CChildFrame& child) { child.GoToBlock(block); });
    }
}

void CMainFrame::AddTreeHandlers()
{
    for (const CommandRow& row : CommandTable()) {
        if (const auto mode = TreeModeOf(row.id)) {
            handlers_[row.id] = [this, mode] {
                treeView_.mode = *mode;
                SetTreeView();
            };
        }
        if (const auto filter = TreeFilterOf(row.id)) {
            handlers_[row.id] = [this, filter] {
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
    handlers_[33033] = [height] { height(CSettings::kRowHeightStep); };
    handlers_[33035] = [height] { height(-CSettings::kRowHeightStep); };
    handlers_[33153] = [width] { width(CSettings::kRowWidthStep); };
    handlers_[33154] = [width] { width(-CSettings::kRowWidthStep); };
    handlers_[33150] = [this] {
        CSettings settings;
        settings.ResetCells();
        ChangeCells([&](CChildFrame& child) {
            child.Doc().display.rowHeight = settings.RowHeight();
            child.Doc().rowWidthMode = settings.RowWidthMode();
        });
    };
    handlers_[33037] = [this] {
        const int comboOrList = CSettings().FlipComboOrList();
        ChangeCells([=](CChildFrame& child) { child.Doc().comboOrList = comboOrList; });
    };

    OnChild(32769, [](CChildFrame& child) { CSettings().SetPanes(child.Panes()); });
    OnChild(32770, [this](CChildFrame& child) {
        DisplaySettings& display = child.Doc().display;
        const QColor colour = prompts_.chooseColour(this, ToQColor(display.backColor));
        if (!colour.isValid())
            return;
        display.backColor = FromQColor(colour);
        CSettings().SetBackColor(display.backColor);
        child.UpView().Refresh();
    });
    OnChild(32771, [this](CChildFrame& child) {
        if (prompts_.chooseDecimals(this, child.Doc().display))
            child.UpView().Refresh();
    });
    OnChild(32965, [this](CChildFrame& child) {
        if (!prompts_.chooseFont(this, child.Doc().display))
            return;
        CSettings().SetFont(child.Doc().display);
        child.UpView().Refresh();
    });
    OnChild(32966, [](CChildFrame& child) {
        CSettings settings;
        settings.ResetHelpPane(child.Doc().display);
        settings.SetPanes(child.ComputedPanes());
        child.SetPanes(child.ComputedPanes());
        child.UpView().Refresh();
    });
}

void CMainFrame::AddWindowHandlers()
{
    OnChild(kOtherPane, [](CChildFrame& child) { child.FocusOtherPane(true); });
    OnChild(kPaneBefore, [](CChildFrame& child) { child.FocusOtherPane(false); });
    OnChild(kNextWindow, [this](CChildFrame&) { area_->activateNextSubWindow(); });
    OnChild(kPreviousWindow, [this](CChildFrame&) { area_->activatePreviousSubWindow(); });
    OnChild(57650, [this](CChildFrame&) { area_->cascadeSubWindows(); });
    OnChild(57651, [this](CChildFrame&) { area_->tileSubWindows(); });
    handlers_[kTabbedWindows] = [this] {
        const bool tabbed = area_->viewMode() != QMdiArea::TabbedView;
        CSettings().SetTabbedWindows(tabbed);
        SetTabbed(tabbed);
    };
    handlers_[57664] = [this] { ShowAbout(); };
    handlers_[kVersionEntry] = [this] { ShowAbout(); };
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

/// A window that fills the area puts its title into this one's by itself, a tab does not, and behind a change from one to
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
    NamePrint(printer, ProposedFile(child.Doc(), PageName(child), u".pdf"_s));
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
                       AboutText(actions_->Of(kVersionEntry)->text(), QApplication::applicationVersion(),
                                 QApplication::applicationDirPath()));
}

} // namespace sbd
