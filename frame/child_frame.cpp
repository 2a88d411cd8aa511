#include "frame/child_frame.h"

#include "document/engine_command.h"
#include "document/project_lock.h"
#include "document/recovery.h"
#include "document/result_session.h"
#include "document/save_flow.h"
#include "document/section_doc.h"
#include "frame/change_pane.h"
#include "frame/finding_pane.h"
#include "frame/left_view.h"
#include "frame/notice_bar.h"
#include "frame/program_icon.h"
#include "frame/project_findings.h"
#include "frame/project_replace.h"
#include "frame/replace_pane.h"
#include "frame/result_sheets_dialog.h"
#include "frame/run_changes.h"
#include "frame/settings.h"
#include "frame/tree_pane.h"
#include "grid/cell_editor.h"
#include "grid/grid_ctrl.h"
#include "panelmodel/panel_model.h"
#include "panels/panel.h"
#include "panels/search_panel.h"
#include "project/block_numbers.h"
#include "project/catalogue.h"
#include "project/option_rows.h"
#include "project/sbd_data.h"
#include "sbdfile/writer.h"
#include "upperview/chk_view.h"
#include "upperview/drawing_pane.h"
#include "upperview/figure_pane.h"
#include "upperview/help_view.h"
#include "upperview/up_view.h"

#include <QAction>
#include <QApplication>
#include <QCloseEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QSplitter>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLeftWidth = 320; // px, most titles whole
constexpr int kSplitterHandle = 5;
constexpr int kLeastPane = 80;   // px
constexpr int kLeastRight = 480; // px, the row numbers and labels of the option blocks
constexpr int kLeastDown = 160;  // px, the heads and some rows
constexpr int kReplaceHeight = 240;

} // namespace

CChildFrame::CChildFrame(std::unique_ptr<CKELDSectionDoc> doc, std::unique_ptr<CProjectLock> lock, QWidget* parent)
    : QMdiSubWindow(parent)
    , doc_(std::move(doc))
    , lock_(lock ? std::move(lock) : std::make_unique<CProjectLock>())
    , recovery_(std::make_unique<CRecoveryCopy>())
{
    setAttribute(Qt::WA_DeleteOnClose);
    setWindowIcon(ProgramIcon());
    LeaveKeysToTheMenus();
    CreatePanes();
    connect(doc_.get(), &CKELDSectionDoc::modifiedChanged, this, &CChildFrame::OnModified);
    connect(doc_.get(), &CKELDSectionDoc::helpCellChanged, this, [this] {
        if (doc_->HelpBlock() >= 0) // the user goes on in the panel
            ShowOwnPage();
    });
    connect(doc_.get(), &CKELDSectionDoc::changed, this, [this] { recoveryLacksChanges_ = true; });
    connect(doc_.get(), &CKELDSectionDoc::reloaded, this, [this] { recoveryLacksChanges_ = true; });
    connect(doc_.get(), &CKELDSectionDoc::historyChanged, this, &CChildFrame::undoChanged);
    connect(doc_.get(), &CKELDSectionDoc::pathChanged, this, [this] { SetTitle(doc_->Title()); });
    connect(tree_, &CLeftView::blockChosen, this, &CChildFrame::SwitchToBlock);
    connect(tree_, &CLeftView::panelWanted, this, &CChildFrame::FocusPanel);
    connect(tree_, &CLeftView::itemWasPressed, this, &CChildFrame::OnTreePressed);
    connect(tree_, &CLeftView::runAskedAt, this, &CChildFrame::OnTreeActivated);
    connect(&upView_->Chk(), &CChkView::runIsDue, this, &CChildFrame::runIsDue);
    connect(&upView_->Chk(), &CChkView::placeWanted, this, &CChildFrame::JumpTo);
    connect(&upView_->Help(), &CHelpView::blockWanted, this, &CChildFrame::GoToBlock);
    connect(&upView_->Figure(), &CFigurePane::cellWanted, this, &CChildFrame::JumpTo);
    connect(&ResultSessionOf(*doc_), &CResultSession::sheetsWanted, this,
            [this] { CResultSheetsDialog(doc_.get(), this).exec(); });
    connect(&upView_->Drawing(), &CDrawingPane::cellWanted, this, &CChildFrame::JumpTo);
    SetTitle(doc_->Title());
    GoToBlock(kFirstBlock);
}

CChildFrame::~CChildFrame()
{
    panel_.reset();  // before the document and the splitter
    delete widget(); // the views look at the document
    if (!leaveRecoveryCopy_)
        recovery_->Discard();
}

/// The toolkit puts Ctrl+W on the window's own menu, beside Ctrl+F4 or alone. A key of two commands does neither.
void CChildFrame::LeaveKeysToTheMenus()
{
    const QList<QKeySequence> keys = QKeySequence::keyBindings(QKeySequence::Close);
    for (QAction* action : systemMenu()->actions()) {
        if (action->shortcuts() == keys)
            action->setShortcut(Qt::CTRL | Qt::Key_F4);
    }
}

void CChildFrame::CreatePanes()
{
    outer_ = new QSplitter(Qt::Horizontal);
    inner_ = new QSplitter(Qt::Vertical);
    treePane_ = new CTreePane(doc_.get());
    tree_ = &treePane_->Tree();
    upView_ = new CUpView(doc_.get());
    panelPane_ = new QWidget;
    auto* panelLayout = new QVBoxLayout(panelPane_);
    panelLayout->setContentsMargins(0, 0, 0, 0);
    panelLayout->setSpacing(0);
    notices_ = new CNoticeBar;
    panelLayout->addWidget(notices_);
    lower_ = new QSplitter(Qt::Vertical);
    findings_ = std::make_unique<CProjectFindings>(*this);
    runChanges_ = std::make_unique<CRunChanges>(*this);
    replace_ = std::make_unique<CProjectReplace>(*this);
    for (QSplitter* splitter : {outer_, inner_, lower_}) {
        splitter->setHandleWidth(kSplitterHandle);
        splitter->setChildrenCollapsible(false);
        connect(splitter, &QSplitter::splitterMoved, this, [this] { panesMoved_ = true; });
    }
    for (QWidget* pane : std::initializer_list<QWidget*>{treePane_, upView_, panelPane_})
        pane->setMinimumSize(kLeastPane, kLeastPane);

    inner_->addWidget(upView_);
    lower_->addWidget(panelPane_);
    lower_->addWidget(findings_->Pane());
    lower_->addWidget(runChanges_->Pane());
    lower_->addWidget(replace_->Pane());
    lower_->setStretchFactor(0, 1); // a higher window heightens the panel
    lower_->setStretchFactor(1, 0);
    lower_->setStretchFactor(2, 0);
    lower_->setStretchFactor(3, 0);
    lower_->setSizes({kLeastDown, CSettings().FindingsHeight(), CSettings().FindingsHeight(), kReplaceHeight});
    connect(lower_, &QSplitter::splitterMoved, this, [this] {
        if (findings_->ShowsPane())
            CSettings().SetFindingsHeight(lower_->sizes().at(1));
    });
    inner_->addWidget(lower_);
    outer_->addWidget(treePane_);
    outer_->addWidget(inner_);
    outer_->setStretchFactor(0, 0); // a wider window widens the right side
    outer_->setStretchFactor(1, 1);
    setWidget(outer_);
}

bool CChildFrame::SwitchToBlock(int number)
{
    const int block = CanonicalBlock(number);
    if (block == currentBlock_) {
        ShowOwnPage();
        return true;
    }
    if (block < 252 || block > 999)
        return false;
    if (panel_ != nullptr && !panel_->MayClose()) {
        tree_->SelectBlock(currentBlock_);
        return false;
    }
    const SearchPlace from = CurrentPlace();
    currentBlock_ = block;
    if (PanelOfBlock(block).empty())
        return false; // the old panel stays
    if (!goingBack_)
        places_.Leave(from);
    ShowPanel(block);
    emit blockShown();
    emit placesChanged();
    return true;
}

/// The page of the block on show, where another one (the notes) has taken its place.
void CChildFrame::ShowOwnPage()
{
    if (doc_->CurrentBlock() == currentBlock_ || PanelOfBlock(currentBlock_).empty())
        return;
    doc_->SetCurrentBlock(currentBlock_);
    upView_->Refresh();
}

void CChildFrame::ShowPanel(int block)
{
    const bool panelHadFocus = panelPane_->isAncestorOf(QApplication::focusWidget());
    RemovePanel();
    KeepRecoveryCopy(); // what the panel has handed over
    doc_->SetCurrentBlock(block);
    doc_->SetHelpCell(-1, 0, 0); // panels without a cell of their own leave it so
    panel_ = CreatePanel(doc_.get(), block, panelPane_);
    if (auto* search = qobject_cast<CDown999*>(panel_.get()))
        connect(search, &CDown999::jumpRequested, this, &CChildFrame::JumpTo);
    if (panel_ != nullptr) {
        connect(panel_.get(), &CPanel::undoChanged, this, &CChildFrame::undoChanged);
        panel_->Grid()->showNotice = [this](const QString& text) { ShowPasteNotice(text); };
        connect(panel_.get(), &CPanel::summaryChanged, this, &CChildFrame::summaryChanged);
        connect(panel_.get(), &CPanel::displayChanged, this, &CChildFrame::displayChanged);
        connect(panel_.get(), &CPanel::otherBlockWanted, this, &CChildFrame::StepHistory, Qt::QueuedConnection);
        static_cast<QVBoxLayout*>(panelPane_->layout())->addWidget(panel_.get(), 1);
        panel_->show();
        panelPane_->layout()->activate(); // now, so that a cell can be scrolled to at once
    }
    upView_->Refresh();
    FitHelpToPage();
    findings_->OnPanelShown();
    runChanges_->OnPanelShown();
    replace_->OnPanelShown();
    if (panelHadFocus)
        FocusPanel();
}

/// What a paste has left stays to be read, and bars no way.
void CChildFrame::ShowPasteNotice(const QString& text)
{
    const auto key = u"paste"_s;
    if (text.isEmpty())
        notices_->Close(key);
    else
        notices_->Show({key, text, {}, true});
}

void CChildFrame::RemovePanel()
{
    if (panel_ == nullptr)
        return;
    panel_->ClosePanel();
    panel_->Grid()->ForgetTold(); // it was of a cell of this panel
    panel_.reset();
}

bool CChildFrame::GoToBlock(int number)
{
    tree_->SelectBlock(number);
    return SwitchToBlock(number);
}

void CChildFrame::RebuildPanel()
{
    if (panel_ != nullptr && panel_->MayClose() && !panel_->SetUpAnew())
        ShowPanel(panel_->Block());
}

void CChildFrame::ChangeProject(const std::function<void()>& change)
{
    if (panel_ != nullptr && panel_->MayClose()) {
        panel_->CommitGrid();
        panel_->KeepPlace();
    }
    change();
}

void CChildFrame::ChangeByRun(const std::function<void()>& change)
{
    ChangeProject([&] { runChanges_->Around(change); });
}

void CChildFrame::JumpTo(int block, int row, int column)
{
    const SearchPlace from = CurrentPlace();
    if (!GoToBlock(block) || panel_ == nullptr)
        return;
    if (row > 0 && from.block == currentBlock_ && (from.row != row || from.column != column) && !goingBack_) {
        places_.Leave(from);
        emit placesChanged();
    }
    if (row > 0)
        panel_->GoToCell(row, column);
    FocusPanel();
}

SearchPlace CChildFrame::CurrentPlace() const
{
    if (panel_ == nullptr || panel_->Grid()->Source() == nullptr)
        return {currentBlock_, 0, 0};
    const GridCell cell = panel_->Grid()->FocusCell();
    return cell.row > 0 ? SearchPlace{currentBlock_, cell.row, cell.column} : SearchPlace{currentBlock_, 0, 0};
}

void CChildFrame::GoBack(bool forward)
{
    if (panel_ != nullptr && !panel_->MayClose())
        return; // the user has been told
    const SearchPlace here = CurrentPlace();
    const std::optional<SearchPlace> place = forward ? places_.Forward(here) : places_.Back(here);
    if (place) {
        const QScopedValueRollback going(goingBack_, true);
        JumpTo(place->block, place->row, place->column);
    }
    emit placesChanged();
}

void CChildFrame::ShowHelpPage(bool show)
{
    doc_->showHelpPage = show;
    doc_->showDrawing = false;
    upView_->Refresh();
}

void CChildFrame::ShowDrawing(bool show)
{
    doc_->showDrawing = show;
    upView_->Refresh();
}

void CChildFrame::SetTreeView(const TreeView& view)
{
    tree_->SetView(view);
}

void CChildFrame::CommitPanel()
{
    doc_->CommitPanels();
}

void CChildFrame::StepHistory(bool redo)
{
    if (panel_ != nullptr) {
        if (!panel_->MayClose())
            return;
        panel_->CommitGrid();
    }
    const auto next = [this, redo] { return redo ? doc_->NextRedo() : doc_->NextUndo(); };
    if (next() == nullptr)
        return;
    const int block = next()->place.block;
    if (block != 0 && (panel_ == nullptr || panel_->Block() != block) && !GoToBlock(block))
        return;
    if (next() == nullptr || next()->place.block != block)
        return; // leaving the other block has made a step of its own
    if (redo)
        doc_->Redo();
    else
        doc_->Undo();
}

void CChildFrame::FocusPanel()
{
    if (panel_ != nullptr)
        panel_->setFocus(Qt::OtherFocusReason);
}

/// Where the keyboard can be, in their order.
QList<QWidget*> CChildFrame::FocusPlaces() const
{
    QList<QWidget*> places{tree_};
    if (panel_ != nullptr && panel_->Grid()->isVisible()) {
        places << panel_->Grid();
        const auto isBeside = [this](const QWidget* widget) {
            return (widget->focusPolicy() & Qt::TabFocus) != 0 && widget->isVisible() && widget->isEnabled()
                   && widget != panel_->Grid() && !panel_->Grid()->isAncestorOf(widget);
        };
        const QList<QWidget*> inPanel = panel_->findChildren<QWidget*>();
        if (const auto beside = std::ranges::find_if(inPanel, isBeside); beside != inPanel.end())
            places << *beside;
    }
    if (findings_->Pane()->isVisible())
        places << findings_->Pane()->Lines();
    if (runChanges_->Pane()->isVisible())
        places << runChanges_->Pane()->Lines();
    if (replace_->Pane()->isVisible())
        places << replace_->Pane();
    places << upView_->currentWidget();
    return places;
}

void CChildFrame::FocusOtherPane(bool forward)
{
    const QWidget* focus = QApplication::focusWidget();
    const QList<QWidget*> places = FocusPlaces();
    const auto holds = [focus](const QWidget* place) { return place == focus || place->isAncestorOf(focus); };
    const QWidget* grid = panel_ == nullptr ? nullptr : panel_->Grid();
    auto at = std::ranges::find_if(places, holds);
    if (at == places.end() && panel_ != nullptr && panel_->isAncestorOf(focus)) // another one beside the grid
        at = std::ranges::find_if(places,
                                  [&](const QWidget* place) { return place != grid && panel_->isAncestorOf(place); });
    const qsizetype step = forward ? 1 : places.size() - 1;
    const qsizetype next = at == places.end() ? 0 : ((at - places.begin()) + step) % places.size();
    window()->setAttribute(Qt::WA_KeyboardFocusChange); // as Tab does: styles show where the keyboard is
    if (grid != nullptr && places[next] == grid)
        FocusPanel();
    else
        places[next]->setFocus(Qt::TabFocusReason);
}

void CChildFrame::SetTitle(const QString& title)
{
    title_ = title;
    ShowTitle();
}

QString CChildFrame::NameWithoutPath() const
{
    return title_.isEmpty() ? doc_->Title() : title_;
}

void CChildFrame::ShowTitle()
{
    setWindowTitle(title_ + u"[*]"_s + (IsReadOnly(doc_->PathName()) ? u" (読み取り専用)"_s : QString()));
    setWindowModified(doc_->IsModified());
    emit titleShown();
}

void CChildFrame::OnModified(bool modified)
{
    setWindowModified(modified);
    emit titleShown();
    recoveryLacksChanges_ = modified;
    if (!modified && !leaveRecoveryCopy_) {
        recovery_->Discard();
        typedInCopy_.clear();
    }
}

bool CChildFrame::TakeOpenEditor()
{
    if (panel_ == nullptr)
        return true;
    const std::function<void(const QString&)> nothing = [](const QString&) {};
    const QScopedValueRollback quiet(panel_->Grid()->showMessage, nothing);
    const bool taken = panel_->MayClose();
    CommitPanel();
    return taken;
}

void CChildFrame::DropRecoveryCopy()
{
    recovery_->Discard();
    recoveryLacksChanges_ = doc_->IsModified();
    typedInCopy_.clear();
}

bool CChildFrame::KeepRecoveryCopy()
{
    const std::optional<CSbdData> typed = WithOpenText();
    if (!doc_->IsModified() && !typed) {
        if (!typedInCopy_.isEmpty())
            DropRecoveryCopy(); // the editor has been given up
        return !recoveryLacksChanges_;
    }
    const QString text = typed ? OpenText() : QString();
    if (!recoveryLacksChanges_ && text == typedInCopy_)
        return true;
    recoveryLacksChanges_ = !recovery_->Write(doc_->PathName(), WriteProject(typed ? *typed : doc_->Data()));
    typedInCopy_ = recoveryLacksChanges_ ? QString() : text;
    return !recoveryLacksChanges_;
}

/// Place and text of an open editor; empty: there is none. What an input method is composing is not in it.
QString CChildFrame::OpenText() const
{
    if (panel_ == nullptr || panel_->Model() == nullptr || !panel_->Grid()->IsEditing())
        return {};
    const QWidget* editor = panel_->Grid()->indexWidget(panel_->Grid()->currentIndex());
    const GridCell cell = panel_->Grid()->FocusCell();
    return editor == nullptr ? QString() : u"%1 %2 "_s.arg(cell.row).arg(cell.column) + EditorText(editor);
}

/// The project as it would be if the text of the open editor were taken; nothing if that changes nothing.
std::optional<CSbdData> CChildFrame::WithOpenText() const
{
    const QString open = OpenText();
    if (open.isEmpty())
        return std::nullopt;
    const GridCell cell = panel_->Grid()->FocusCell();
    const std::optional<std::string> text = fromQString(open.section(u' ', 2));
    if (!text || *text == panel_->Model()->Text(cell.row, cell.column))
        return std::nullopt;
    CSbdData typed = doc_->Data();
    const std::unique_ptr<CPanelModel> model = MakePanelModel(typed, panel_->Block());
    if (model == nullptr)
        return std::nullopt;
    model->PutLoose(panel_->Model()->Loose());
    if (model->SetCell(cell.row, cell.column, *text) == CellEffect::None)
        return std::nullopt;
    (void)sbd::CommitPanel(*model, typed);
    return typed;
}

void CChildFrame::OnTreePressed(int block)
{
    ShowOwnPage(); // a click on the item that is selected already
    if (!RunOfBlock(block))
        return;
    doc_->runOnShow = false;
    upView_->update();
}

void CChildFrame::OnTreeActivated(int block)
{
    ShowOwnPage();
    doc_->runOnShow = RunOfBlock(block).has_value();
    if (!doc_->runOnShow)
        return;
    upView_->Chk().UserAsked();
    upView_->Refresh();
}

PaneSizes CChildFrame::Panes() const
{
    const int left = treePane_->width();           // with its scroll bar
    if (inner_->orientation() == Qt::Horizontal) { // the heights are those of before
        const PaneSizes kept = CSettings().Panes(ComputedPanes());
        return {left, kept.up, kept.mid};
    }
    return {left, upView_->height(), lower_->height()};
}

PaneSizes CChildFrame::ComputedPanes() const
{
    return {kLeftWidth, contentsRect().height() / 2, 0};
}

void CChildFrame::SetPanes(const PaneSizes& panes)
{
    // The sizes may be those of a larger screen: what is worked in stays in view.
    const QRect area = contentsRect();
    const int right = std::min(kLeastRight, area.width() * 3 / 5); // a narrow window is shared
    const int left = std::max(std::min(panes.left, area.width() - kSplitterHandle - right), kLeastPane);
    const int up = std::max(std::min(panes.up, area.height() - kSplitterHandle - kLeastDown), kLeastPane);
    outer_->setSizes({left, std::max(area.width() - left - kSplitterHandle, kLeastPane)});
    if (inner_->orientation() == Qt::Horizontal) {
        const int room = std::max(area.width() - left - 2 * kSplitterHandle, 2 * kLeastPane);
        const int beside = std::clamp(CSettings().HelpWidth(room / 2), kLeastPane, room - kLeastPane);
        inner_->setSizes({room - beside, beside});
        return;
    }
    inner_->setSizes({up, std::max(area.height() - up - kSplitterHandle, kLeastPane)});
}

void CChildFrame::ShowHelpBeside(bool beside)
{
    const Qt::Orientation wanted = beside ? Qt::Horizontal : Qt::Vertical;
    if (wanted == inner_->orientation())
        return;
    inner_->setOrientation(wanted);
    inner_->insertWidget(beside ? 1 : 0, upView_);
    SetPanes(CSettings().Panes(ComputedPanes()));
    FitHelpToPage();
}

/// As long as nobody has given the pane a height, a short page leaves what it does not need to the panel.
void CChildFrame::FitHelpToPage()
{
    if (panesMoved_ || inner_->orientation() == Qt::Horizontal || CSettings().Panes({-1, -1, -1}).up >= 0)
        return;
    const int half = ComputedPanes().up;
    // The page of an option row is another one in the next row.
    const bool isPage = doc_->showHelpPage && upView_->currentWidget() == &upView_->Help()
                        && currentBlock_ != kSearchBlock && !FindOptionBlock(CanonicalBlock(currentBlock_));
    const int page = isPage ? upView_->Help().PageHeight() : 0;
    PaneSizes panes = CSettings().Panes(ComputedPanes());
    panes.left = treePane_->width();
    panes.up = page > 0 ? std::clamp(page, kLeastPane, std::max(half, kLeastPane)) : half;
    if (panes.up != upView_->height())
        SetPanes(panes);
}

void CChildFrame::resizeEvent(QResizeEvent* event)
{
    QMdiSubWindow::resizeEvent(event);
    if (!panesMoved_)
        SetPanes(CSettings().Panes(ComputedPanes()));
    FitHelpToPage();
}

void CChildFrame::closeEvent(QCloseEvent* event)
{
    if (mayClose && !mayClose(*this)) {
        event->ignore();
        return;
    }
    QMdiSubWindow::closeEvent(event);
}

} // namespace sbd
