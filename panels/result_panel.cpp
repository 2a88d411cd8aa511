#include "panels/result_panel.h"

#include "document/result_session.h"
#include "document/section_doc.h"
#include "grid/grid_ctrl.h"
#include "panels/command_text.h"
#include "panels/result_choices.h"
#include "panels/result_notes.h"
#include "panels/result_panel_source.h"
#include "panels/result_saver.h"
#include "project/block_numbers.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>

#include <algorithm>

namespace sbd {

namespace {

constexpr int kBlock = kResultBlock;

} // namespace

CDown253::CDown253(CKELDSectionDoc* doc, QWidget* parent)
    : CPanel(doc, kBlock, parent)
    , shown_(doc)
    , session_(ResultSessionOf(*doc))
    , cells_(std::make_unique<CResultSource>(doc->rowWidthMode, session_.columnWidths))
    , choices_(new CResultChoices(doc))
    , saver_(new CResultSaver(doc, [this]() -> const CResultTable& { return Table(); }))
    , notes_(new CResultNotes(doc, this))
    , fileOrder_(new QPushButton(tr("ファイルの順に戻す")))
    , state_(new QLabel)
{
    LayOut();
    connect(choices_, &CResultChoices::tableWanted, this, &CDown253::FillResultTable);
    connect(choices_, &CResultChoices::tableOfTheItemWanted, this, &CDown253::FillKeepingTheItem);
    connect(saver_, &CResultSaver::ended, Grid(), &CGridCtrl::TellInStatusBar);
    connect(fileOrder_, &QPushButton::clicked, this, [this] { SortBy(0); });
    connect(Grid()->horizontalHeader(), &QHeaderView::sectionDoubleClicked, this,
            [this](int section) { SortBy(section + 1); });
    Grid()->horizontalHeader()->viewport()->installEventFilter(this);
    connect(Grid(), &CGridCtrl::currentCellChanged, this, &CDown253::MarkRow);
    connect(&session_, &CResultSession::picked, this, &CDown253::OnPicked);
    connect(&session_, &CResultSession::figureChanged, notes_, &CResultNotes::HidePoint);
    connect(&session_, &CResultSession::stateChanged, this, [this] { notes_->ShowOrigin(Table()); });
    connect(notes_, &CResultNotes::overWanted, this, &CDown253::ShowOver);
    ShowSelection();
    Grid()->setAccessibleName(tr("計算結果の表"));
    Grid()->show();
    const CellMemory& memory = doc->MemoryOf(kBlock);
    if (memory.row > 0 && memory.row <= cells_->RowCount() && memory.column <= cells_->ColumnCount())
        Grid()->SetFocusCell(memory.row, memory.column);
    connect(doc, &CKELDSectionDoc::reloaded, this, &CDown253::ShowSelection);
    connect(doc, &CKELDSectionDoc::resultsRead, this, &CDown253::ShowNewResults);
    connect(doc, &CKELDSectionDoc::aboutToSave, choices_, &CResultChoices::Commit);
}

CDown253::~CDown253()
{
    const GridCell focus = Grid()->FocusCell();
    CellMemory& memory = shown_->MemoryOf(kBlock);
    memory.row = focus.row;
    memory.column = focus.column;
    choices_->Commit();
    session_.Mark({});
    Grid()->SetSource(nullptr); // before the cells go
}

const CResultTable& CDown253::Table() const
{
    return cells_->Table();
}

void CDown253::LayOut()
{
    constexpr int spacing = 4;
    state_->setWordWrap(true);
    fileOrder_->hide();
    auto* row = new QHBoxLayout;
    row->addWidget(choices_);
    row->addWidget(Grid(), 1);
    auto* line = new QHBoxLayout; // in sight, however far the choices are rolled
    line->setContentsMargins(spacing, 0, spacing, 0);
    line->addWidget(state_, 1);
    line->addWidget(fileOrder_);
    line->addWidget(saver_);
    auto* rows = static_cast<QVBoxLayout*>(layout());
    rows->addLayout(row, 1);
    rows->addLayout(line);
    rows->addWidget(notes_);
}

void CDown253::ShowSelection()
{
    choices_->ShowSelection();
    FillResultTable();
}

void CDown253::FillResultTable()
{
    Grid()->SetSource(nullptr);
    cells_->SetTable(CResultTable(shown_->Results(), session_.selection));
    Grid()->SetSource(cells_.get());
    if (Table().LoadIndex())
        choices_->ShowDefaultItem();
    ShowState();
    saver_->ShowWhatThereIs();
    notes_->ShowFaults();
    notes_->ShowOrigin(Table());
    ShowOrder();
    MarkRow();
    session_.ShowFigureAnew();
}

void CDown253::FillKeepingTheItem()
{
    const QString item = toQString(session_.selection.figureItem);
    FillResultTable();
    choices_->ChooseItem(item);
}

void CDown253::ShowState()
{
    const CResultTable& table = Table();
    state_->setText(
        shown_->Results().model.loadCaseNames.empty()
            ? tr("骨組解析の結果ファイルをまだ読み込んでいません。解析が終わると、ここで読み込めます。")
        : !table.LoadIndex() && session_.selection.envelope
            ? tr("包絡する荷重が選ばれていません。一覧で荷重を選んでください。")
        : !table.LoadIndex() ? tr("この荷重は解析結果にありません。荷重を選んでください。")
        : CubeOf(shown_->Results(), session_.selection.kind).values.empty()
            ? tr("%1の結果がありません。下に「ない」とあるファイルを作る解析を実行してから、読み込んでください。")
                  .arg(toQString(KindWord(session_.selection.kind)))
        : table.RowCount() == 0 ? tr("選択に当てはまる結果がありません。主桁または名称を選んでください。")
                                : tr("%1 行").arg(table.RowCount()));
}

// --- table and figure --------------------------------------------------------------------------------

void CDown253::MarkRow()
{
    const int row = Grid()->FocusCell().row - static_cast<int>(kFirstValueRow);
    const CResultTable& table = Table();
    session_.Mark(row >= 0 && static_cast<std::size_t>(row) < table.RowCount()
                      ? std::string(table.Name(static_cast<std::size_t>(row)))
                      : std::string());
    notes_->HidePoint();
}

void CDown253::OnPicked(const PickedPoint& point)
{
    const CResultTable& table = Table();
    std::size_t row = 0;
    while (row < table.RowCount() && table.Name(row) != point.name)
        ++row;
    const bool isInTable = row < table.RowCount();
    point_ = std::make_unique<PickedPoint>(point);
    if (isInTable) {
        const std::vector<ResultColumn>& columns = table.Columns();
        std::size_t column = kNameColumn;
        for (std::size_t i = 0; i < columns.size(); ++i)
            if (columns[i].component == point.component && (columns[i].place != point.component) == point.rightEnd
                && !columns[i].IsCase() && (columns[i].part == ResultPart::Least) == point.isLeast)
                column = kFirstValueColumn + i;
        Grid()->SetFocusCell(static_cast<int>(kFirstValueRow + row), static_cast<int>(column));
    }
    notes_->ShowPoint(point, isInTable); // until another row or figure is looked at
}

void CDown253::ShowOver()
{
    if (!point_)
        return;
    PickedPoint point = *point_;
    const QString item = toQString(session_.selection.figureItem);
    SwapOver(session_.selection, shown_->Results().model);
    ShowSelection();
    choices_->ChooseItem(item); // which filling the table has changed
    point.isOver = false;
    OnPicked(point);
}

bool CDown253::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::MouseButtonRelease)
        KeepWidths();
    return CPanel::eventFilter(watched, event);
}

void CDown253::KeepWidths()
{
    const int zoom = Grid()->Zoom();
    for (int column = 1; column <= cells_->ColumnCount(); ++column)
        if (const int width = Grid()->columnWidth(column - 1); width != cells_->ColumnWidth(column) * zoom / 100)
            session_.columnWidths[cells_->WidthKey(column)] = (width * 100 + zoom / 2) / zoom;
}

void CDown253::SortBy(int column)
{
    ResultSelection& selection = session_.selection;
    const auto place = static_cast<std::size_t>(std::max(column, 0));
    const bool again = selection.sortColumn == place;
    selection.sortColumn = again && selection.descending ? 0 : place;
    selection.descending = again && !selection.descending;
    FillKeepingTheItem();
}

void CDown253::ShowOrder()
{
    const ResultSelection& selection = session_.selection;
    const QString head = toQString(SortHead(selection));
    fileOrder_->setVisible(!head.isEmpty());
    fileOrder_->setEnabled(!head.isEmpty());
    fileOrder_->setToolTip(
        tr("いまは %1 の%2に並んでいます。").arg(head, selection.descending ? tr("降順") : tr("昇順")));
}

void CDown253::ShowNewResults()
{
    const GridCell focus = Grid()->FocusCell();
    session_.selection = KeptSelection(session_.selection, shown_->Results().model);
    const QString item = toQString(session_.selection.figureItem);
    ShowSelection();
    choices_->ChooseItem(item);
    if (focus.row <= cells_->RowCount() && focus.column <= cells_->ColumnCount())
        Grid()->SetFocusCell(focus.row, focus.column);
}

void CDown253::contextMenuEvent(QContextMenuEvent* event)
{
    const QPoint inCells = Grid()->viewport()->mapFromGlobal(event->globalPos());
    if (!Grid()->viewport()->rect().contains(inCells) || !Grid()->indexAt(inCells).isValid())
        return;
    QMenu menu(this);
    FillContextMenu(menu, MenuId::GridContext, // the rows are those of the results: they do not move
                    {{Command::Cut, [this] { Cut(); }},
                     {Command::Copy, [this] { Copy(); }},
                     {Command::Paste, [this] { Paste(); }},
                     {Command::Delete, [this] { Delete(); }}});
    menu.addSeparator();
    const int column = Grid()->FocusCell().column;
    menu.addAction(tr("この列で並べ替え (昇順・降順・ファイルの順)"), this, [this, column] { SortBy(column); });
    menu.addAction(fileOrder_->text(), this, [this] { SortBy(0); })->setEnabled(session_.selection.sortColumn > 0);
    menu.addAction(tr("見出しを付けてコピー"), Grid(), [this] { Grid()->RunCommand(Command::CopyWithHeads); });
    menu.addAction(tr("CSVに保存..."), saver_, &CResultSaver::SaveCsv)->setEnabled(saver_->HasRows());
    menu.addAction(tr("Excelに保存..."), saver_, &CResultSaver::SaveXlsx)->setEnabled(saver_->HasRows());
    menu.addAction(tr("印刷..."), saver_, &CResultSaver::Print)->setEnabled(saver_->HasRows());
    menu.exec(event->globalPos());
}

} // namespace sbd
