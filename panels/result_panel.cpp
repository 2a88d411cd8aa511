#include "panels/result_panel.h"

#include "document/file_name.h"
#include "document/path.h"
#include "document/result_session.h"
#include "document/section_doc.h"
#include "grid/grid_ctrl.h"
#include "panels/command_text.h"
#include "panels/print_name.h"
#include "panels/result_notice.h"
#include "panels/result_output.h"
#include "panels/result_panel_source.h"
#include "project/block_numbers.h"
#include "project/text.h"
#include "results/result_faults.h"
#include "results/result_title.h"
#include "results/result_workbook.h"

#include <QCheckBox>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QFileDialog>
#include <QFormLayout>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QMenu>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>
#include <QScrollArea>
#include <QScrollBar>
#include <QSignalBlocker>
#include <QStringListModel>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <algorithm>
#include <iterator>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kBlock = kResultBlock;
constexpr int kBoxCharacters = 16; // the drop lists are as wide, whatever names they hold
constexpr int kListWidth = 170;    // px, for names of 20 bytes
constexpr int kSpacing = 4;

QStringList Texts(const std::vector<std::string>& names)
{
    QStringList texts;
    texts.reserve(static_cast<qsizetype>(names.size()));
    std::ranges::transform(names, std::back_inserter(texts), [](const std::string& name) { return toQString(name); });
    return texts;
}

QString Text8(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}

QString AskFile(QWidget* parent, const QString& proposal)
{
    const bool isBook = proposal.endsWith(u".xlsx"_s);
    return QFileDialog::getSaveFileName(
        parent, isBook ? CDown253::tr("表をExcelに保存") : CDown253::tr("表をCSVに保存"), proposal,
        isBook ? CDown253::tr("Excel (*.xlsx)") : CDown253::tr("CSV (*.csv)"));
}

/// The file that a table is proposed to go into.
QString TableFile(const CKELDSectionDoc& doc, const ResultSelection& selection, const QString& extension)
{
    return ProposedFile(doc, toQString(ShortTableTitle(selection)), extension);
}

bool PrintOnPaper(const CKELDSectionDoc& doc, QWidget* parent, const CResultTable& table,
                  const ResultSelection& selection, const ResultState& state)
{
    QPrinter printer(QPrinter::HighResolution);
    NamePrint(printer, TableFile(doc, selection, u".pdf"_s));
    printer.setPageOrientation(IsWideTable(table) ? QPageLayout::Landscape : QPageLayout::Portrait);
    QPrintDialog dialog(&printer, parent);
    if (dialog.exec() != QDialog::Accepted)
        return true;
    constexpr int patience = 1000; // ms
    QProgressDialog progress(CDown253::tr("表を印刷しています..."), CDown253::tr("中止"), 0, 1, parent);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(patience);
    const bool isDone =
        PrintResultTable(printer, table, selection, parent->font(), state, [&progress](int done, int all) {
            progress.setMaximum(all);
            progress.setValue(done);
            return !progress.wasCanceled();
        });
    if (!progress.wasCanceled())
        return isDone;
    printer.abort();
    return true;
}

/// A drop list that the wheel changes only while it has the focus: who scrolls the choices must not change one.
class CChoiceBox : public QComboBox {
public:
    CChoiceBox() { setFocusPolicy(Qt::StrongFocus); } // the wheel gives no focus

protected:
    void wheelEvent(QWheelEvent* event) override
    {
        if (hasFocus())
            QComboBox::wheelEvent(event);
        else
            event->ignore(); // the pane around it scrolls
    }
};

QComboBox* MakeBox()
{
    auto* box = new CChoiceBox;
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(kBoxCharacters);
    box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
    return box;
}

void Fill(QComboBox* box, const QStringList& entries, const QString& shown)
{
    const QSignalBlocker quiet(box);
    box->clear();
    box->addItems(entries);
    box->setCurrentIndex(box->findText(shown, Qt::MatchExactly | Qt::MatchCaseSensitive));
}

} // namespace

CDown253::CDown253(CKELDSectionDoc* doc, QWidget* parent)
    : CPanel(doc, kBlock, parent)
    , askFile(&AskFile)
    , print([doc](QWidget* owner, const CResultTable& table, const ResultSelection& selection) {
        return PrintOnPaper(*doc, owner, table, selection, ResultSessionOf(*doc).State());
    })
    , warn([](QWidget* owner, const QString& message) {
        QMessageBox::warning(owner, QStringLiteral("KELD section"), message);
    })
    , shown_(doc)
    , session_(ResultSessionOf(*doc))
    , cells_(std::make_unique<CResultSource>(doc->rowWidthMode, session_.columnWidths))
{
    MakeControls();
    ConnectControls();
    SetUpControls();
    Grid()->setAccessibleName(tr("計算結果の表"));
    Grid()->show();
    const CellMemory& memory = doc->MemoryOf(kBlock);
    if (memory.row > 0 && memory.row <= cells_->RowCount() && memory.column <= cells_->ColumnCount())
        Grid()->SetFocusCell(memory.row, memory.column);
    connect(doc, &CKELDSectionDoc::reloaded, this, &CDown253::SetUpControls);
    connect(doc, &CKELDSectionDoc::resultsRead, this, &CDown253::ShowNewResults);
    connect(doc, &CKELDSectionDoc::aboutToSave, this, &CDown253::Commit);
}

CDown253::~CDown253()
{
    const GridCell focus = Grid()->FocusCell();
    CellMemory& memory = shown_->MemoryOf(kBlock);
    memory.row = focus.row;
    memory.column = focus.column;
    Commit();
    session_.Mark({});
    Grid()->SetSource(nullptr); // before the cells go
}

const CResultTable& CDown253::Table() const
{
    return cells_->Table();
}

// --- controls ----------------------------------------------------------------------------------------

void CDown253::MakeControls()
{
    kind_ = MakeBox();
    load_ = MakeBox();
    girder_ = MakeBox();
    station_ = MakeBox();
    station_->setEditable(true);
    station_->setInsertPolicy(QComboBox::NoInsert);
    station_->setCompleter(nullptr); // the beginning of a name is a choice of its own
    stations_ = new QStringListModel(this);
    station_->setModel(stations_);
    figureItem_ = MakeBox();
    stationLabel_ = new QLabel;
    stationLabel_->setBuddy(station_);

    auto* form = new QFormLayout;
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    form->setVerticalSpacing(kSpacing);
    form->addRow(tr("出力選択"), kind_);
    form->addRow(tr("荷重"), load_);
    MakeEnvelopeChoice();
    form->addRow(envelope_);
    form->addRow(envelopeLoads_);
    form->addRow(tr("主桁(すべて･なし･桁名)"), girder_);
    form->addRow(stationLabel_, station_);
    form->addRow(tr("図出力項目"), figureItem_);
    magnification_ = MakeBox();
    for (const int times : kMagnifications)
        magnification_->addItem(times == 0 ? tr("自動") : QString::number(times));
    form->addRow(tr("変形の倍率"), magnification_);
    filter_ = new QLineEdit;
    filter_->setClearButtonEnabled(true);
    filter_->setPlaceholderText(tr("名称の一部"));
    filter_->setToolTip(tr("この文字を含む名称だけを表に出します。図は変わりません。"));
    form->addRow(tr("絞り込み"), filter_);

    save_ = new QPushButton(tr("CSVに保存..."));
    saveBook_ = new QPushButton(tr("Excelに保存..."));
    connect(saveBook_, &QPushButton::clicked, this, &CDown253::SaveXlsx);
    print_ = new QPushButton(tr("印刷..."));
    connect(save_, &QPushButton::clicked, this, &CDown253::SaveCsv);
    connect(print_, &QPushButton::clicked, this, &CDown253::Print);
    fileOrder_ = new QPushButton(tr("ファイルの順に戻す"));
    fileOrder_->hide();
    connect(fileOrder_, &QPushButton::clicked, this, [this] { SortBy(0); });
    sheets_ = new QPushButton(tr("図をPDFに..."));
    sheets_->setToolTip(tr("主桁ごとの図をまとめて、しおりの付いた一つのPDFにします。"));
    connect(sheets_, &QPushButton::clicked, this, [this] { session_.AskForSheets(); });
    auto* buttons = new QHBoxLayout;
    buttons->addWidget(save_);
    buttons->addWidget(saveBook_);
    auto* onPaper = new QHBoxLayout;
    onPaper->addWidget(print_);
    onPaper->addWidget(sheets_);

    state_ = new QLabel;
    state_->setWordWrap(true);

    auto* choices = new QWidget;
    auto* left = new QVBoxLayout(choices);
    left->setContentsMargins(kSpacing, kSpacing, kSpacing, kSpacing);
    left->addLayout(form);
    left->addWidget(MakeColumnChoice());
    left->addWidget(MakeOverChoice());
    left->addLayout(buttons);
    left->addLayout(onPaper);
    left->addWidget(fileOrder_);
    left->addWidget(state_);
    left->addStretch();
    auto* scroll = new QScrollArea;
    scroll->setWidget(choices);
    scroll->setWidgetResizable(true);
    scroll->setFrameShape(QFrame::NoFrame);
    scroll->setFocusPolicy(Qt::NoFocus); // its controls have the keyboard, and scroll it
    scroll->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    scroll->setFixedWidth(choices->sizeHint().width() + scroll->verticalScrollBar()->sizeHint().width());

    auto* row = new QHBoxLayout;
    row->addWidget(scroll);
    row->addWidget(MakeExcludedChoice());
    row->addWidget(Grid(), 1);
    auto* rows = static_cast<QVBoxLayout*>(layout());
    rows->addLayout(row);
    origin_ = new QLabel;
    origin_->setAccessibleName(tr("結果の状態"));
    origin_->setTextFormat(Qt::PlainText);
    origin_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    origin_->setWordWrap(true);
    origin_->setMargin(kSpacing);
    origin_->hide();
    rows->addWidget(origin_);
    faults_ = new QLabel;
    faults_->setAccessibleName(tr("結果ファイルの不備"));
    faults_->setTextFormat(Qt::PlainText);
    faults_->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    faults_->setWordWrap(true);
    faults_->setMargin(kSpacing);
    faults_->setAutoFillBackground(true);
    faults_->setBackgroundRole(QPalette::ToolTipBase);
    faults_->setForegroundRole(QPalette::ToolTipText);
    faults_->hide();
    rows->addWidget(faults_);
    rows->addWidget(new CResultNotice(shown_, this)); // below, so that nothing moves under the pointer when it comes
}

QWidget* CDown253::MakeColumnChoice()
{
    constexpr int columns = 3;
    auto* group = new QGroupBox(tr("表出力項目"));
    group->setObjectName(u"columns"_s);
    auto* grid = new QGridLayout(group);
    grid->setVerticalSpacing(0);
    for (std::size_t i = 0; i < columnOn_.size(); ++i) {
        columnOn_[i] = new QCheckBox;
        grid->addWidget(columnOn_[i], static_cast<int>(i) / columns, static_cast<int>(i) % columns);
    }
    return group;
}

void CDown253::MakeEnvelopeChoice()
{
    constexpr int listHeight = 110;
    envelope_ = new QCheckBox(tr("荷重の最大・最小 (包絡)"));
    envelope_->setToolTip(tr("選んだ荷重の最大値と最小値を、その荷重名とともに表と図に出します。"));
    loads_ = new QStringListModel(this);
    envelopeLoads_ = new QListView;
    envelopeLoads_->setObjectName(u"envelopeLoads"_s);
    envelopeLoads_->setModel(loads_);
    envelopeLoads_->setAccessibleName(tr("包絡する荷重"));
    envelopeLoads_->setToolTip(tr("包絡する荷重。Ctrl+A ですべて選びます。"));
    envelopeLoads_->setSelectionMode(QAbstractItemView::MultiSelection);
    envelopeLoads_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    envelopeLoads_->setUniformItemSizes(true);
    envelopeLoads_->setFixedHeight(listHeight);
}

QWidget* CDown253::MakeOverChoice()
{
    overLoad_ = MakeBox();
    overGirder_ = MakeBox();
    auto* group = new QGroupBox(tr("図の重ね描き"));
    auto* form = new QFormLayout(group);
    form->setRowWrapPolicy(QFormLayout::WrapLongRows);
    form->setVerticalSpacing(kSpacing);
    form->addRow(tr("図に重ねる荷重"), overLoad_);
    form->addRow(tr("図に重ねる主桁"), overGirder_);
    return group;
}

QWidget* CDown253::MakeExcludedChoice()
{
    excludedLabel_ = new QLabel;
    offered_ = new QStringListModel(this);
    excluded_ = new QListView;
    excluded_->setModel(offered_);
    excluded_->setSelectionMode(QAbstractItemView::MultiSelection);
    excluded_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    excluded_->setUniformItemSizes(true);
    excludedLabel_->setBuddy(excluded_);
    auto* side = new QWidget;
    side->setFixedWidth(kListWidth);
    auto* box = new QVBoxLayout(side);
    box->setContentsMargins(0, kSpacing, kSpacing, kSpacing);
    box->addWidget(excludedLabel_);
    box->addWidget(excluded_, 1);
    return side;
}

void CDown253::ConnectControls()
{
    connect(kind_, &QComboBox::currentIndexChanged, this, &CDown253::OnKind);
    connect(load_, &QComboBox::currentIndexChanged, this, &CDown253::OnLoad);
    connect(girder_, &QComboBox::currentIndexChanged, this, &CDown253::OnGirder);
    connect(station_, &QComboBox::editTextChanged, this, &CDown253::OnStation);
    connect(figureItem_, &QComboBox::currentIndexChanged, this, &CDown253::OnFigureItem);
    connect(magnification_, &QComboBox::currentIndexChanged, this, &CDown253::OnMagnification);
    connect(filter_, &QLineEdit::textChanged, this, &CDown253::OnFilter);
    connect(Grid()->horizontalHeader(), &QHeaderView::sectionDoubleClicked, this,
            [this](int section) { SortBy(section + 1); });
    Grid()->horizontalHeader()->viewport()->installEventFilter(this);
    connect(envelope_, &QCheckBox::toggled, this, &CDown253::OnEnvelope);
    connect(envelopeLoads_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &CDown253::OnEnvelopeLoads);
    connect(overLoad_, &QComboBox::currentIndexChanged, this, &CDown253::OnOver);
    connect(overGirder_, &QComboBox::currentIndexChanged, this, &CDown253::OnOver);
    connect(Grid(), &CGridCtrl::currentCellChanged, this, &CDown253::MarkRow);
    connect(&session_, &CResultSession::picked, this, &CDown253::OnPicked);
    connect(&session_, &CResultSession::stateChanged, this, &CDown253::ShowOrigin);
    for (QCheckBox* box : columnOn_)
        connect(box, &QCheckBox::clicked, this, &CDown253::OnColumns);
    connect(excluded_->selectionModel(), &QItemSelectionModel::selectionChanged, this, &CDown253::OnExcluded);
}

void CDown253::SetUpControls()
{
    const AnalysisModel& model = shown_->Results().model;
    ResultSelection& selection = session_.selection;
    if (!selection.panelUsed || selection.load.empty()) // there were no results when it was first used
        selection = FirstUseSelection(model);

    QStringList kinds;
    for (const ResultKindInfo& info : ResultKinds())
        kinds << Text8(info.word);
    Fill(kind_, kinds, Text8(InfoOf(selection.kind).word));
    ShowLoads();
    Fill(girder_, Texts(ChoicesOf(model, selection.kind).girders), toQString(selection.girder));
    station_->setEnabled(selection.stationEnabled || model.girderNames.empty());
    ShowStations();
    ShowOffered();
    for (std::size_t i = 0; i < columnOn_.size(); ++i)
        columnOn_[i]->setChecked(selection.columnOn[i]);
    const auto* const times = std::ranges::find(kMagnifications, selection.magnification);
    {
        const QSignalBlocker quiet(magnification_);
        magnification_->setCurrentIndex(static_cast<int>(times - std::begin(kMagnifications)));
        const QSignalBlocker quietToo(filter_);
        filter_->setText(toQString(selection.filter));
    }
    ShowKindWords();
    FillResultTable();
}

void CDown253::ShowSeveral()
{
    const AnalysisModel& model = shown_->Results().model;
    const ResultSelection& selection = session_.selection;
    const std::vector<std::string> names = EnvelopeLoads(model, selection.kind);
    QStringList shown;
    for (const std::string& name : names)
        shown << toQString(ShownLoad(Trim(name)));
    {
        const QSignalBlocker quiet(envelope_);
        const QSignalBlocker quietToo(envelopeLoads_->selectionModel());
        envelope_->setChecked(selection.envelope);
        envelopeLoads_->setVisible(selection.envelope);
        if (loads_->stringList() != shown)
            loads_->setStringList(shown);
        QItemSelection chosen;
        for (std::size_t i = 0; i < names.size(); ++i)
            if (std::ranges::find(selection.envelopeLoads, names[i]) != selection.envelopeLoads.end())
                chosen.select(loads_->index(static_cast<int>(i)), loads_->index(static_cast<int>(i)));
        envelopeLoads_->selectionModel()->select(chosen, QItemSelectionModel::ClearAndSelect);
        envelopeLoads_->viewport()->update();
    }
    const QString none = tr("(なし)");
    const auto orNone = [&](const std::string& cp932) { return cp932.empty() ? none : toQString(cp932); };
    Fill(overLoad_, QStringList{none} + Texts(ChoicesOf(model, selection.kind).loads),
         orNone(ShownLoad(selection.overLoad)));
    Fill(overGirder_, QStringList{none} + Texts(model.girderNames), orNone(selection.overGirder));
    overLoad_->setEnabled(!selection.envelope);
    overGirder_->setEnabled(!selection.envelope);
    load_->setEnabled(!selection.envelope);
}

void CDown253::ShowLoads()
{
    ShowSeveral();
    const ResultSelection& selection = session_.selection;
    Fill(load_, Texts(ChoicesOf(shown_->Results().model, selection.kind).loads), toQString(ShownLoad(selection.load)));
}

void CDown253::ShowStations()
{
    const QSignalBlocker quiet(station_);
    stations_->setStringList(Texts(ChoicesOf(shown_->Results().model, session_.selection.kind).stations));
    station_->setEditText(toQString(session_.selection.station));
}

void CDown253::ShowOffered()
{
    const QSignalBlocker quiet(excluded_->selectionModel());
    const ResultSelection& selection = session_.selection;
    const QStringList names = Texts(selection.offeredNames);
    offered_->setStringList(names);
    for (const std::string& name : selection.excludedNames)
        if (const qsizetype row = names.indexOf(toQString(name)); row >= 0)
            excluded_->selectionModel()->select(offered_->index(static_cast<int>(row)), QItemSelectionModel::Select);
    excluded_->viewport()->update();
}

void CDown253::ShowKindWords()
{
    const ResultKindInfo& info = InfoOf(session_.selection.kind);
    stationLabel_->setText(Text8(info.stationLabel));
    excludedLabel_->setText(Text8(info.excludedLabel));
    QStringList items;
    for (std::size_t i = 0; i < kNodeComponents; ++i) {
        items << Text8(info.components[i]);
        columnOn_[i]->setText(items.last());
    }
    Fill(figureItem_, items, items[static_cast<qsizetype>(info.defaultComponent)]);
}

void CDown253::FillResultTable()
{
    ResultSelection& selection = session_.selection;
    Grid()->SetSource(nullptr);
    cells_->SetTable(CResultTable(shown_->Results(), selection));
    Grid()->SetSource(cells_.get());
    if (cells_->Table().LoadIndex()) {
        const ResultKindInfo& info = InfoOf(selection.kind);
        selection.figureItem = ComponentWord(selection.kind, info.defaultComponent);
        const QSignalBlocker quiet(figureItem_);
        figureItem_->setCurrentIndex(static_cast<int>(info.defaultComponent));
    }
    ShowState();
    ShowFaults();
    ShowOrigin();
    ShowOrder();
    MarkRow();
    session_.ShowFigureAnew();
}

void CDown253::ShowState()
{
    const CResultTable& table = cells_->Table();
    const bool hasLoads = !shown_->Results().model.loadCaseNames.empty();
    state_->setText(!hasLoads
                        ? tr("骨組解析の結果ファイルをまだ読み込んでいません。解析が終わると、ここで読み込めます。")
                    : !table.LoadIndex() && session_.selection.envelope
                        ? tr("包絡する荷重が選ばれていません。一覧で荷重を選んでください。")
                    : !table.LoadIndex() ? tr("この荷重は解析結果にありません。荷重を選んでください。")
                    : table.RowCount() == 0 ? tr("選択に当てはまる結果がありません。主桁または名称を選んでください。")
                                            : tr("%1 行").arg(table.RowCount()));
    save_->setEnabled(table.RowCount() > 0);
    saveBook_->setEnabled(table.RowCount() > 0);
    print_->setEnabled(table.RowCount() > 0);
    sheets_->setEnabled(hasLoads && !shown_->Results().model.girderNames.empty());
}

void CDown253::ShowFaults()
{
    QStringList lines;
    for (const ResultFault& fault : ResultFaults(shown_->Results()))
        lines << toQString(fault.text);
    if (!lines.isEmpty()) {
        lines.prepend(tr("結果ファイルに不備があります。"));
        lines << tr("入力データには影響ありません。解析をもう一度実行してから、結果を読み込んでください。");
    }
    faults_->setText(lines.join(u'\n'));
    faults_->setVisible(!lines.isEmpty());
}

void CDown253::ShowOrigin()
{
    const ResultState& state = session_.State();
    QStringList parts;
    for (const std::string& line : {ResultStateLine(state), StaleLine(state)})
        if (!line.empty())
            parts << toQString(line);
    if (const std::size_t count = cells_->Table().NotNumbers(); count > 0)
        parts << tr("表の %1 個の値は数ではありません (最大・最小と図には含まれません)").arg(count);
    origin_->setText(parts.join(u'　'));
    origin_->setVisible(!parts.isEmpty());
    const bool warns = !state.newerInput.empty() || cells_->Table().NotNumbers() > 0;
    origin_->setAutoFillBackground(warns);
    origin_->setBackgroundRole(warns ? QPalette::ToolTipBase : QPalette::Window);
    origin_->setForegroundRole(warns ? QPalette::ToolTipText : QPalette::WindowText);
}

void CDown253::MarkRow()
{
    const int row = Grid()->FocusCell().row - static_cast<int>(kFirstValueRow);
    const CResultTable& table = cells_->Table();
    session_.Mark(row >= 0 && static_cast<std::size_t>(row) < table.RowCount()
                      ? std::string(table.Name(static_cast<std::size_t>(row)))
                      : std::string());
}

void CDown253::OnPicked(const std::string& name, std::size_t component, bool rightEnd, bool isLeast)
{
    const CResultTable& table = cells_->Table();
    std::size_t row = 0;
    while (row < table.RowCount() && table.Name(row) != name)
        ++row;
    if (row == table.RowCount())
        return; // left out of the table
    const std::vector<ResultColumn>& columns = table.Columns();
    std::size_t column = kNameColumn;
    for (std::size_t i = 0; i < columns.size(); ++i)
        if (columns[i].component == component && (columns[i].place != component) == rightEnd && !columns[i].IsCase()
            && (columns[i].part == ResultPart::Least) == isLeast)
            column = kFirstValueColumn + i;
    Grid()->SetFocusCell(static_cast<int>(kFirstValueRow + row), static_cast<int>(column));
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

void CDown253::OnFilter(const QString& text)
{
    const std::optional<std::string> filter = fromQString(text.trimmed());
    if (!filter) // no name holds such a character; the input goes on
        return;
    session_.selection.filter = *filter;
    FillResultTable();
}

void CDown253::SortBy(int column)
{
    ResultSelection& selection = session_.selection;
    const auto place = static_cast<std::size_t>(std::max(column, 0));
    const bool again = selection.sortColumn == place;
    selection.sortColumn = again && selection.descending ? 0 : place;
    selection.descending = again && !selection.descending;
    FillResultTable();
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

void CDown253::OnMagnification(int index)
{
    if (index < 0 || static_cast<std::size_t>(index) >= std::size(kMagnifications))
        return;
    session_.selection.magnification = kMagnifications[index];
    session_.ShowFigureAnew();
}

void CDown253::ShowNewResults()
{
    const GridCell focus = Grid()->FocusCell();
    ResultSelection& selection = session_.selection;
    selection = KeptSelection(selection, shown_->Results().model);
    const std::string item = selection.figureItem;
    SetUpControls();
    figureItem_->setCurrentText(toQString(item));
    if (focus.row <= cells_->RowCount() && focus.column <= cells_->ColumnCount())
        Grid()->SetFocusCell(focus.row, focus.column);
}

// --- choices -----------------------------------------------------------------------------------------

void CDown253::OnKind(int index)
{
    if (index < 0)
        return;
    SelectKind(session_.selection, shown_->Results().model, ResultKinds()[static_cast<std::size_t>(index)].kind);
    ShowLoads();
    ShowStations();
    ShowOffered();
    ShowKindWords();
    FillResultTable();
}

void CDown253::OnLoad(int index)
{
    const std::vector<std::string> loads = ChoicesOf(shown_->Results().model, session_.selection.kind).loads;
    if (index < 0 || static_cast<std::size_t>(index) >= loads.size())
        return;
    SelectLoad(session_.selection, loads[static_cast<std::size_t>(index)]);
    FillResultTable();
}

void CDown253::OnGirder(int index)
{
    const AnalysisModel& model = shown_->Results().model;
    const std::vector<std::string> girders = ChoicesOf(model, session_.selection.kind).girders;
    if (index < 0 || static_cast<std::size_t>(index) >= girders.size())
        return;
    SelectGirder(session_.selection, model, girders[static_cast<std::size_t>(index)]);
    station_->setEnabled(session_.selection.stationEnabled);
    ShowOffered();
    FillResultTable();
}

void CDown253::OnStation(const QString& text)
{
    const std::optional<std::string> station = fromQString(text);
    if (!station) // no name holds such a character; the input goes on
        return;
    SelectStation(session_.selection, shown_->Results().model, *station);
    ShowOffered();
    FillResultTable();
}

void CDown253::OnFigureItem(int index)
{
    if (index < 0)
        return;
    session_.selection.figureItem = ComponentWord(session_.selection.kind, static_cast<std::size_t>(index));
    session_.ShowFigureAnew();
}

void CDown253::OnEnvelope(bool on)
{
    ResultSelection& selection = session_.selection;
    selection.envelope = on;
    selection.sortColumn = 0; // the columns are others
    if (on && EnvelopeCases(shown_->Results().model, selection).empty())
        selection.envelopeLoads = EnvelopeLoads(shown_->Results().model, selection.kind);
    ShowSeveral();
    FillResultTable();
}

void CDown253::OnEnvelopeLoads()
{
    ResultSelection& selection = session_.selection;
    const std::vector<std::string> names = EnvelopeLoads(shown_->Results().model, selection.kind);
    selection.envelopeLoads.clear();
    for (std::size_t i = 0; i < names.size(); ++i)
        if (envelopeLoads_->selectionModel()->isSelected(loads_->index(static_cast<int>(i))))
            selection.envelopeLoads.push_back(names[i]);
    FillResultTable();
}

void CDown253::OnOver()
{
    const AnalysisModel& model = shown_->Results().model;
    ResultSelection& selection = session_.selection;
    const std::vector<std::string> loads = ChoicesOf(model, selection.kind).loads;
    const int load = overLoad_->currentIndex() - 1; // behind "none"
    const int girder = overGirder_->currentIndex() - 1;
    selection.overLoad = load >= 0 && static_cast<std::size_t>(load) < loads.size()
                             ? LoadOfShown(loads[static_cast<std::size_t>(load)])
                             : std::string();
    selection.overGirder = girder >= 0 && static_cast<std::size_t>(girder) < model.girderNames.size()
                               ? model.girderNames[static_cast<std::size_t>(girder)]
                               : std::string();
    session_.ShowFigureAnew();
}

void CDown253::OnColumns()
{
    for (std::size_t i = 0; i < columnOn_.size(); ++i)
        session_.selection.columnOn[i] = columnOn_[i]->isChecked();
    session_.selection.sortColumn = 0; // the columns are others
    FillResultTable();
}

void CDown253::OnExcluded()
{
    Commit();
    FillResultTable();
}

void CDown253::Commit()
{
    ResultSelection& selection = session_.selection;
    selection.excludedNames.clear();
    for (const QModelIndex& index : excluded_->selectionModel()->selectedIndexes())
        selection.excludedNames.push_back(selection.offeredNames[static_cast<std::size_t>(index.row())]);
}

// --- output ------------------------------------------------------------------------------------------

void CDown253::SaveCsv()
{
    const QString path = askFile(this, TableFile(*shown_, session_.selection, u".csv"_s));
    if (path.isEmpty())
        return;
    const QByteArray csv = ResultCsv(cells_->Table(), session_.selection, session_.State());
    TellSaved(path, ReplaceFileBytes(ToPath(path), {csv.constData(), static_cast<std::size_t>(csv.size())}));
}

void CDown253::SaveXlsx()
{
    const QString path = askFile(this, TableFile(*shown_, session_.selection, u".xlsx"_s));
    if (!path.isEmpty())
        TellSaved(path, SaveResultWorkbook(ToPath(path), cells_->Table(), session_.selection, session_.State()));
}

void CDown253::TellSaved(const QString& path, const FileResult& result)
{
    if (!result.Ok())
        warn(this, tr("表を保存できませんでした。%1\n元のファイルがあれば、そのまま残っています。\n"
                      "保存先の空きと権限を確かめるか、別の場所に保存してください。\n\n(詳細: %2)")
                       .arg(path, QString::fromStdString(result.detail)));
}

void CDown253::Print()
{
    if (!print(this, cells_->Table(), session_.selection))
        warn(this, tr("表を印刷できませんでした。データは変わっていません。\n"
                      "プリンターの状態を確かめて、もう一度印刷してください。"));
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
    menu.addAction(save_->text(), this, &CDown253::SaveCsv)->setEnabled(save_->isEnabled());
    menu.addAction(saveBook_->text(), this, &CDown253::SaveXlsx)->setEnabled(saveBook_->isEnabled());
    menu.addAction(print_->text(), this, &CDown253::Print)->setEnabled(print_->isEnabled());
    menu.exec(event->globalPos());
}

} // namespace sbd
