#include "frame/finding_pane.h"

#include "compare/difference_text.h"
#include "document/section_doc.h"
#include "frame/cell_lines.h"
#include "frame/finding_text.h"
#include "project/sbd_data.h"

#include <QAbstractTableModel>
#include <QAction>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QMenu>
#include <QSignalBlocker>
#include <QSortFilterProxyModel>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <set>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

enum Column { Weight, Block, Row, CellColumn, Is, Returns, What, ColumnCount };

constexpr LineColumn kColumns[ColumnCount] = {{u"種別", 80},       {u"ブロック", 200}, {u"行", 90},
                                              {u"列", 130},        {u"今の値", 110},   {u"開き直した値", 110},
                                              {u"内容と対処", 600}};

// What the filters hold beside the number of a severity or a block.
constexpr int kAll = 0;
constexpr int kBlockOnShow = -1;
constexpr int kOfFile = -2;

/// The head of a column in one line, as the panel of the block has it at first.
QString ColumnName(int block, int column)
{
    static CColumnHeads heads;
    static const CSbdData fresh;
    return heads.At(fresh, block, column);
}

} // namespace

class CFindingModel : public QAbstractTableModel {
public:
    using QAbstractTableModel::QAbstractTableModel;

    void Set(std::vector<ListedFinding> findings)
    {
        beginResetModel();
        findings_ = std::move(findings);
        endResetModel();
    }
    [[nodiscard]] const std::vector<ListedFinding>& Findings() const { return findings_; }
    [[nodiscard]] const ListedFinding& At(int row) const { return findings_[static_cast<std::size_t>(row)]; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(findings_.size());
    }
    [[nodiscard]] int columnCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : ColumnCount;
    }
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override
    {
        return orientation == Qt::Horizontal && role == Qt::DisplayRole ? QVariant(kColumns[section].head.toString())
                                                                        : QVariant();
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        const ListedFinding& listed = At(index.row());
        const MarkKind mark = LookOf(RuleOf(listed.finding.kind).severity).mark;
        switch (role) {
        case Qt::DisplayRole:
            return Text(listed, static_cast<Column>(index.column()));
        case Qt::ToolTipRole:
            return QString::fromStdString(listed.finding.text);
        case Qt::DecorationRole:
            return index.column() == Weight ? QVariant(SignIcon(mark, palette)) : QVariant();
        case Qt::TextAlignmentRole:
            return int(Qt::AlignVCenter | Qt::AlignLeft);
        default:
            return {};
        }
    }

    QPalette palette;

private:
    [[nodiscard]] static QString Text(const ListedFinding& listed, Column column)
    {
        const Finding& finding = listed.finding;
        switch (column) {
        case Weight: {
            const Severity severity = RuleOf(finding.kind).severity;
            return listed.ofFile ? u"読込み"_s : LookOf(severity).word.toString();
        }
        case Block:
            return finding.block == 0 ? QString() : QString::fromStdString(NumberAndTitle(finding.block));
        case Row:
            if (finding.row == 0 && finding.line > 0)
                return u"%1 行目"_s.arg(finding.line); // of the file
            return finding.row > 0 ? QString::number(finding.row) : QString();
        case CellColumn:
            return finding.column > 0 ? ColumnName(finding.block, finding.column) : QString();
        case Is:
            return toQString(finding.is);
        case Returns:
            if (finding.kind != FindingKind::ReturnsDifferent)
                return {};
            return finding.returns.empty() ? u"（空欄）"_s : toQString(finding.returns);
        default:
            return QString::fromStdString(finding.text);
        }
    }

    std::vector<ListedFinding> findings_;
};

namespace {

class Filtered : public QSortFilterProxyModel {
public:
    explicit Filtered(const CFindingModel* model, QObject* parent) : QSortFilterProxyModel(parent), model_(model) {}

    int severity = kAll;
    int block = kAll;
    void Renew() { invalidateFilter(); }

protected:
    [[nodiscard]] bool filterAcceptsRow(int row, const QModelIndex&) const override
    {
        const ListedFinding& listed = model_->At(row);
        if (severity != kAll && static_cast<int>(RuleOf(listed.finding.kind).severity) != severity)
            return false;
        return block == kAll || (block == kOfFile ? listed.ofFile : listed.finding.block == block);
    }

private:
    const CFindingModel* model_;
};

} // namespace

CFindingPane::CFindingPane(QWidget* parent)
    : QWidget(parent)
    , model_(new CFindingModel(this))
    , filtered_(new Filtered(model_, this))
    , severities_(new QComboBox)
    , blocks_(new QComboBox)
    , kindsButton_(new QToolButton)
    , kinds_(new QMenu(this))
    , count_(new QLabel)
    , lines_(new QTableView)
{
    model_->palette = palette();
    filtered_->setSourceModel(model_);
    severities_->setAccessibleName(tr("重さで絞り込む"));
    severities_->addItem(tr("すべての種別"), kAll);
    for (const SeverityLook& look : SeverityLooks())
        severities_->addItem(SignAndWord(look.severity), static_cast<int>(look.severity));
    blocks_->setAccessibleName(tr("ブロックで絞り込む"));
    blocks_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    blocks_->setMinimumContentsLength(24);
    FillBlocks();
    MakeKinds();

    QToolButton* close = MakeCloseButton(tr("一覧を閉じます"));
    auto* top = new QHBoxLayout;
    top->setContentsMargins(4, 2, 2, 2);
    top->addWidget(severities_);
    top->addWidget(blocks_);
    top->addWidget(kindsButton_);
    top->addWidget(count_, 1);
    top->addWidget(close);

    SetUpLines(*lines_, *filtered_, kColumns, tr("データの指摘"));
    lines_->installEventFilter(this);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(top);
    layout->addWidget(lines_, 1);
    setFocusProxy(lines_);

    connect(severities_, &QComboBox::currentIndexChanged, this, &CFindingPane::Filter);
    connect(blocks_, &QComboBox::currentIndexChanged, this, &CFindingPane::Filter);
    connect(close, &QToolButton::clicked, this, &CFindingPane::closeWanted);
    connect(lines_, &QTableView::doubleClicked, this, &CFindingPane::GoToSelected);
    ShowCount();
}

CFindingPane::~CFindingPane() = default;

void CFindingPane::MakeKinds()
{
    kindsButton_->setText(tr("知らせる種類"));
    kindsButton_->setToolTip(tr("疑いと確認のうち、知らせるものを選びます。失われる・変わるものは必ず知らせます。"));
    kindsButton_->setPopupMode(QToolButton::InstantPopup);
    kindsButton_->setFocusPolicy(Qt::TabFocus);
    kindsButton_->setMenu(kinds_);
    for (const SwitchableKind& row : SwitchableKinds()) {
        QAction* action = kinds_->addAction(SignAndWord(RuleOf(row.kind).severity).left(2) + row.text.toString());
        action->setCheckable(true);
        action->setChecked(true);
    }
    connect(kinds_, &QMenu::triggered, this, [this] {
        SilentKinds silent;
        for (std::size_t i = 0; i < SwitchableKinds().size(); ++i)
            if (!kinds_->actions()[static_cast<qsizetype>(i)]->isChecked())
                silent.insert(SwitchableKinds()[i].kind);
        emit silentChosen(silent);
    });
}

void CFindingPane::SetSilent(const SilentKinds& kinds)
{
    for (std::size_t i = 0; i < SwitchableKinds().size(); ++i)
        kinds_->actions()[static_cast<qsizetype>(i)]->setChecked(!kinds.contains(SwitchableKinds()[i].kind));
}

void CFindingPane::SetFindings(std::vector<ListedFinding> findings, std::size_t more)
{
    if (findings == model_->Findings() && more == more_)
        return;
    const std::optional<ListedFinding> selected = Selected();
    const int row = lines_->currentIndex().row();
    more_ = more;
    model_->Set(std::move(findings));
    FillBlocks();
    Filter();
    if (selected)
        Select(selected->finding);
    if (!lines_->currentIndex().isValid() && row >= 0) // it is gone: the next one has taken its place
        lines_->selectRow(std::min(row, filtered_->rowCount() - 1));
}

void CFindingPane::FillBlocks()
{
    const QSignalBlocker quiet(blocks_);
    const QVariant chosen = blocks_->currentData();
    blocks_->clear();
    blocks_->addItem(tr("すべてのブロック"), kAll);
    blocks_->addItem(tr("表示中のブロック"), kBlockOnShow);
    std::set<int> blocks;
    bool ofFile = false;
    for (const ListedFinding& listed : model_->Findings()) {
        ofFile = ofFile || listed.ofFile;
        if (listed.finding.block != 0)
            blocks.insert(listed.finding.block);
    }
    if (ofFile)
        blocks_->addItem(tr("読み込んだファイル"), kOfFile);
    for (const int block : blocks)
        blocks_->addItem(QString::fromStdString(NumberAndTitle(block)), block);
    blocks_->setCurrentIndex(std::max(blocks_->findData(chosen), 0));
}

void CFindingPane::Filter()
{
    auto* filter = static_cast<Filtered*>(filtered_);
    const int block = blocks_->currentData().toInt();
    filter->severity = severities_->currentData().toInt();
    filter->block = block == kBlockOnShow ? currentBlock_ : block;
    filter->Renew();
    ShowCount();
}

void CFindingPane::SetCurrentBlock(int block)
{
    currentBlock_ = block;
    if (blocks_->currentData().toInt() == kBlockOnShow)
        Filter();
}

void CFindingPane::ShowCount()
{
    const int shown = filtered_->rowCount();
    const int all = model_->rowCount();
    QString text = all == 0      ? tr("指摘はありません")
                   : shown < all ? tr("%1 件 (全 %2 件)").arg(shown).arg(all)
                                 : tr("%1 件").arg(all);
    if (more_ > 0)
        text += tr("、ほか %1 件").arg(more_);
    count_->setText(u' ' + text);
}

void CFindingPane::Select(const Finding& finding)
{
    for (int row = 0; row < filtered_->rowCount(); ++row) {
        const Finding& other = model_->At(filtered_->mapToSource(filtered_->index(row, 0)).row()).finding;
        if (other.block == finding.block && other.row == finding.row && other.column == finding.column
            && other.kind == finding.kind && other.line == finding.line) {
            lines_->selectRow(row);
            return;
        }
    }
}

std::optional<ListedFinding> CFindingPane::Selected() const
{
    const QModelIndex index = filtered_->mapToSource(lines_->currentIndex());
    return index.isValid() ? std::optional(model_->At(index.row())) : std::nullopt;
}

void CFindingPane::GoToSelected()
{
    if (const std::optional<ListedFinding> selected = Selected())
        emit wanted(selected->finding);
}

bool CFindingPane::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == lines_ && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            GoToSelected();
            return true;
        }
    }
    return QWidget::eventFilter(watched, event);
}

void CFindingPane::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        model_->palette = palette();
}

} // namespace sbd
