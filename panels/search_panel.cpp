#include "panels/search_panel.h"

#include "document/cell_input.h"
#include "document/search_session.h"
#include "document/section_doc.h"
#include "grid/cell_editor.h"
#include "grid/grid_ctrl.h"
#include "panels/command_text.h"
#include "panels/search_panel_detail.h"
#include "panels/search_panel_source.h"
#include "project/block_numbers.h"

#include <QAction>
#include <QCheckBox>
#include <QContextMenuEvent>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QRadioButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTextBrowser>
#include <QTimer>
#include <QUrl>
#include <QVBoxLayout>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kBlock = kSearchBlock;
constexpr int kLineRow = 1;
constexpr int kGridShare = 670; // of the width at first, against the side: the column of 600 px, numbers, scroll bar
constexpr int kSideShare = 330;
constexpr int kLeastColumn = 200; // px

QString Text8(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
}

} // namespace

CDown999::CDown999(CKELDSectionDoc* doc, QWidget* parent)
    : CPanel(doc, kBlock, parent)
    , searched_(doc)
    , session_(SearchSessionOf(*doc))
{
    auto* splitter = new QSplitter(Qt::Horizontal, this);
    splitter->setChildrenCollapsible(false);
    splitter->addWidget(Grid());
    splitter->addWidget(MakeSide());
    splitter->setStretchFactor(0, 2);
    splitter->setStretchFactor(1, 1);
    splitter->setSizes({kGridShare, kSideShare});
    layout()->addWidget(splitter);

    auto* jump = new QAction(EntryText(RowOf(Command::JumpToHit).text), this);
    jump->setShortcuts(KeysOf(RowOf(Command::JumpToHit)));
    jump->setShortcutContext(Qt::WidgetWithChildrenShortcut);
    connect(jump, &QAction::triggered, this, &CDown999::JumpToHit);
    addAction(jump);

    SetUpGrid();
    connect(doc, &CKELDSectionDoc::reloaded, this, &CDown999::SetUpGrid);
}

CDown999::~CDown999()
{
    Remember();
    Grid()->viewport()->removeEventFilter(this);
    Grid()->removeEventFilter(this);
    Grid()->SetSource(nullptr); // before the cells go
}

// --- setting up --------------------------------------------------------------------------------------

void CDown999::SetUpGrid()
{
    CGridCtrl* grid = Grid();
    grid->SetSource(nullptr);
    const int titleAndHits = static_cast<int>(SearchIndex().Entries().size() + 1 + kMostNotes);
    cells_ = std::make_unique<CSearchPanelSource>(kBlock, titleAndHits, searched_->rowWidthMode,
                                                  searched_->comboOrList != kPlainCells);
    cells_->SetLine(session_.line);
    cells_->onLine = [this] { Search(); };
    shownRows_ = cells_->RowCount(); // of the new grid
    grid->SetRowHeight(searched_->display.rowHeight);
    grid->SetSource(cells_.get());
    grid->setAccessibleName(tr("検索とQ&A"));
    grid->show();
    grid->installEventFilter(this);
    grid->viewport()->installEventFilter(this);
    connect(grid, &QAbstractItemView::doubleClicked, this, &CDown999::JumpToHit, Qt::UniqueConnection);
    connect(grid, &CGridCtrl::currentCellChanged, this, &CDown999::ShowDetail, Qt::UniqueConnection);
    connect(grid, &CGridCtrl::editorOpened, this, &CDown999::FollowEditor, Qt::UniqueConnection);
    Search();
    RestoreCell();
}

QWidget* CDown999::MakeSide()
{
    auto* side = new QWidget;
    auto* groups = new QHBoxLayout;
    scope_ = MakeScope();
    wordsChoice_ = MakeWordsChoice();
    groups->addWidget(scope_);
    groups->addWidget(wordsChoice_);
    groups->addStretch();
    detail_ = new QTextBrowser;
    detail_->setOpenLinks(false);
    detail_->setAccessibleName(tr("選んだ行の説明"));
    connect(detail_, &QTextBrowser::anchorClicked, this, &CDown999::OnLink);

    auto* layout = new QVBoxLayout(side);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addLayout(groups);
    layout->addWidget(detail_, 1);
    return side;
}

QGroupBox* CDown999::MakeScope()
{
    auto* group = new QGroupBox(tr("検索範囲"));
    topics_ = new QCheckBox(tr("基本項目に検索"));
    items_ = new QCheckBox(tr("入力項目に検索"));
    auto* layout = new QVBoxLayout(group);
    topics_->setChecked(session_.topics);
    items_->setChecked(session_.items);
    for (QCheckBox* box : {topics_, items_}) {
        layout->addWidget(box);
        connect(box, &QCheckBox::toggled, this, &CDown999::Search);
    }
    return group;
}

QGroupBox* CDown999::MakeWordsChoice()
{
    auto* group = new QGroupBox(tr("検索設定(複数文字)"));
    allWords_ = new QRadioButton(tr("全てが含まれる"));
    anyWord_ = new QRadioButton(tr("いずれかが含まれる"));
    auto* layout = new QVBoxLayout(group);
    layout->addWidget(allWords_);
    layout->addWidget(anyWord_);
    (session_.allWords ? allWords_ : anyWord_)->setChecked(true);
    connect(allWords_, &QRadioButton::toggled, this, &CDown999::Search);
    return group;
}

// --- searching ---------------------------------------------------------------------------------------

void CDown999::KeepSession()
{
    session_.line = cells_->Line();
    session_.allWords = allWords_->isChecked();
    session_.topics = topics_->isChecked();
    session_.items = items_->isChecked();
}

void CDown999::Search()
{
    const std::string line = cells_->Line().toStdString();
    const bool questions = AsksForQuestions(line);
    KeepSession();
    scope_->setEnabled(!questions);
    wordsChoice_->setEnabled(!questions);

    std::vector<SearchRow> rows;
    const auto add = [&](const SearchEntry* entry) { rows.push_back({Text8(entry->text), entry}); };
    if (questions) {
        for (const SearchEntry* entry : SearchIndex().AllQuestions())
            add(entry);
    } else {
        const SearchResult result = SearchIndex().Search(line, {session_.allWords, session_.topics, session_.items});
        QString title = Text8(result.title);
        for (const std::string& note : result.notes)
            title += u"　"_s + Text8(note); // the hits begin in the same row, with notes or without
        if (!title.isEmpty())
            rows.push_back({title});
        for (const SearchEntry* entry : result.hits)
            add(entry);
        for (const std::string& tip : result.tips)
            rows.push_back({Text8(tip)});
    }
    cells_->SetRows(std::move(rows));
    ShowRows();
    ShowDetail();
    searched_->ShowHelpAnew(); // the page of this block follows the line
}

/// Shows the rows without telling the grid: an editor that is open in the line would be filled anew.
void CDown999::ShowRows()
{
    constexpr int textMargins = 8;
    constexpr int lineMargins = 4;
    CGridCtrl* grid = Grid();
    const QFontMetrics metrics = grid->fontMetrics();
    cells_->Wrap(metrics, grid->columnWidth(0) - textMargins);
    const int shown = cells_->ShownRows();
    for (int row = std::min(shown, shownRows_); row < std::max(shown, shownRows_); ++row)
        grid->setRowHidden(row, row >= shown);
    shownRows_ = shown;
    for (int row = 1; row < shown; ++row) {
        const int lines = cells_->RowLines(row + 1);
        const int least = searched_->display.rowHeight;
        const int height = lines == 1 ? least : std::max(least, lines * metrics.height() + lineMargins);
        if (grid->rowHeight(row) != height)
            grid->setRowHeight(row, height);
    }
    grid->viewport()->update();
}

void CDown999::OnTyped(const QString& line)
{
    if (line == cells_->Line())
        return;
    cells_->SetLine(line);
    Search();
}

/// An editor has opened; one in the search line is searched by while it is typed in.
void CDown999::FollowEditor(QWidget* editor)
{
    QLineEdit* line = EditorLine(editor);
    if (line == nullptr || Grid()->FocusCell().row != kLineRow)
        return;
    cells_->KeepLine();
    connect(line, &QLineEdit::textEdited, this, &CDown999::OnTyped, Qt::UniqueConnection);
    OnTyped(line->text()); // the first key came before
}

/// The one column is as wide as the grid, so that no text has to be scrolled.
void CDown999::FitColumn()
{
    CGridCtrl* grid = Grid();
    const int width = std::max(kLeastColumn, grid->viewport()->width());
    if (width == grid->columnWidth(0))
        return;
    grid->setColumnWidth(0, width);
    ShowRows();
}

void CDown999::ShowDetail()
{
    const SearchEntry* entry = cells_->Entry(Grid()->FocusCell().row);
    detail_->setHtml(SearchDetailHtml(entry, searched_->Data()));
    const SearchPlace hit = entry == nullptr ? SearchPlace() : entry->place;
    if (hit == SearchPlace{session_.hitBlock, session_.hitRow, session_.hitColumn})
        return;
    session_.hitBlock = hit.block;
    session_.hitRow = hit.row;
    session_.hitColumn = hit.column;
    searched_->ShowHelpAnew(); // the page of what is marked
}

// --- jumping -----------------------------------------------------------------------------------------

SearchPlace CDown999::FocusedPlace() const
{
    const SearchEntry* entry = cells_->Entry(Grid()->FocusCell().row);
    return entry != nullptr && IsJumpBlock(entry->place.block) ? entry->place : SearchPlace();
}

bool CDown999::CanJump() const
{
    return FocusedPlace().block != 0;
}

void CDown999::JumpToHit()
{
    if (CanJump())
        Ask(FocusedPlace());
}

void CDown999::OnLink(const QUrl& link)
{
    if (const std::optional<SearchPlace> place = PlaceOfLink(link))
        Ask(*place);
}

void CDown999::Ask(const SearchPlace& place)
{
    Remember();
    QTimer::singleShot(0, this, [this, place] { emit jumpRequested(place.block, place.row, place.column); });
}

bool CDown999::eventFilter(QObject* object, QEvent* event)
{
    CGridCtrl* grid = Grid();
    if (object == grid->viewport() && event->type() == QEvent::Resize) {
        FitColumn();
    } else if (object == grid && event->type() == QEvent::KeyPress && !grid->IsEditing()) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool enter = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
        if (enter && !(key->modifiers() & ~Qt::KeypadModifier)) {
            if (CanJump()) {
                JumpToHit();
                return true;
            }
            return grid->FocusCell().row >= cells_->ShownRows(); // no way down into the hidden rows
        }
    }
    return CPanel::eventFilter(object, event);
}

void CDown999::contextMenuEvent(QContextMenuEvent* event)
{
    const QPoint inCells = Grid()->viewport()->mapFromGlobal(event->globalPos());
    if (!Grid()->viewport()->rect().contains(inCells) || !Grid()->indexAt(inCells).isValid())
        return;
    QMenu menu(this);
    FillContextMenu(menu, MenuId::SearchContext, {{Command::JumpToHit, [this] { JumpToHit(); }, CanJump()}});
    menu.exec(event->globalPos());
}

// --- focus and scroll position -----------------------------------------------------------------------

void CDown999::Remember()
{
    const GridCell focus = Grid()->FocusCell();
    searched_->MemoryOf(kBlock) = {Grid()->horizontalScrollBar()->value(), Grid()->verticalScrollBar()->value(),
                                   focus.row, focus.column};
}

void CDown999::RestoreCell()
{
    const CellMemory& memory = searched_->MemoryOf(kBlock);
    const bool there = memory.row > 0 && memory.row <= cells_->ShownRows();
    Grid()->SetFocusCell(there ? memory.row : kLineRow, 1);
    restored_ = !there;
}

void CDown999::GoToLine()
{
    CGridCtrl* grid = Grid();
    restored_ = true; // the place of the last visit is not wanted
    grid->SetFocusCell(kLineRow, 1);
    grid->scrollToTop();
    if (QLineEdit* line = grid->IsEditing() ? EditorLine(grid->indexWidget(grid->currentIndex())) : nullptr) {
        line->setFocus();
        line->selectAll(); // the next key begins new words, as it does without an editor
        return;
    }
    grid->setFocus();
}

void CDown999::SearchFor(const QString& line)
{
    Grid()->CommitEditor();
    cells_->KeepLine();
    OnTyped(line);
}

void CDown999::RestoreScroll()
{
    if (restored_)
        return;
    restored_ = true;
    const CellMemory& memory = searched_->MemoryOf(kBlock);
    Grid()->horizontalScrollBar()->setValue(memory.horizontal);
    Grid()->verticalScrollBar()->setValue(memory.vertical);
}

void CDown999::showEvent(QShowEvent* event)
{
    CPanel::showEvent(event);
    if (!restored_)
        QTimer::singleShot(0, this, &CDown999::RestoreScroll); // when the grid has its size
}

} // namespace sbd
