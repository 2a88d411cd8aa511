#include "frame/replace_pane.h"

#include "compare/difference_text.h"
#include "document/section_doc.h"
#include "frame/cell_lines.h"

#include <QAbstractTableModel>
#include <QCheckBox>
#include <QComboBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>
#include <set>
#include <tuple>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

enum Column { Block, Row, CellColumn, Before, After, Note, ColumnCount };

constexpr LineColumn kColumns[ColumnCount] = {{u"ブロック", 230}, {u"行", 90},      {u"列", 150},
                                              {u"今の値", 160},   {u"置換後", 160}, {u"備考", 300}};

QString NoteOf(const CellHit& hit)
{
    QStringList notes;
    switch (hit.state) {
    case HitState::Locked:
        notes << u"入力できないセル。元のままです"_s;
        break;
    case HitState::Hidden:
        notes << u"絞り込みで見えない行。元のままです"_s;
        break;
    case HitState::NoNumber:
        notes << u"「%1」は数値として読めないため、元のままです"_s.arg(toQString(hit.part));
        break;
    case HitState::LosesRow:
        notes << u"空にすると行や名称がなくなるため、元のままです"_s;
        break;
    case HitState::Free:
        break;
    }
    if (!hit.alsoIn.empty()) {
        QStringList blocks;
        for (const int block : hit.alsoIn)
            blocks << QString::number(block);
        notes << u"%1 の同じ値も変わります"_s.arg(blocks.join(u'・'));
    }
    if (hit.leavesList)
        notes << u"選択肢の一覧にない文字列になります"_s;
    return notes.join(u"。"_s);
}

using Place = std::tuple<int, int, int>;

Place PlaceOf(const CellHit& hit)
{
    return {hit.block, hit.row, hit.column};
}

} // namespace

class CHitModel : public QAbstractTableModel {
    Q_OBJECT

public:
    CHitModel(CKELDSectionDoc* doc, QObject* parent) : QAbstractTableModel(parent), doc_(doc) {}

    void Set(std::vector<CellHit> hits, std::map<std::size_t, QString> notes, bool replaces)
    {
        beginResetModel();
        hits_ = std::move(hits);
        notes_ = std::move(notes);
        replaces_ = replaces;
        heads_.Clear();
        endResetModel();
    }
    void TickAll(bool tick)
    {
        off_.clear();
        if (!tick)
            for (const CellHit& hit : hits_)
                off_.insert(PlaceOf(hit));
        TellTicks();
    }
    void Toggle(int row)
    {
        const CellHit& hit = hits_[static_cast<std::size_t>(row)];
        if (hit.state != HitState::Free || !replaces_)
            return;
        if (off_.erase(PlaceOf(hit)) == 0)
            off_.insert(PlaceOf(hit));
        TellTicks();
    }
    /// Another text is looked for.
    void ForgetTicks() { off_.clear(); }
    [[nodiscard]] bool IsTicked(const CellHit& hit) const
    {
        return hit.state == HitState::Free && !off_.contains(PlaceOf(hit));
    }
    [[nodiscard]] const std::vector<CellHit>& Hits() const { return hits_; }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(hits_.size());
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
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override
    {
        const CellHit& hit = hits_[static_cast<std::size_t>(index.row())];
        Qt::ItemFlags flags = Qt::ItemIsEnabled | Qt::ItemIsSelectable;
        if (index.column() == Block && replaces_ && hit.state == HitState::Free)
            flags |= Qt::ItemIsUserCheckable;
        return flags;
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override
    {
        const CellHit& hit = hits_[static_cast<std::size_t>(index.row())];
        if (role == Qt::CheckStateRole && index.column() == Block && replaces_ && hit.state == HitState::Free)
            return IsTicked(hit) ? Qt::Checked : Qt::Unchecked;
        if (role == Qt::TextAlignmentRole)
            return int(Qt::AlignVCenter | Qt::AlignLeft);
        if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
            return {};
        return Text(hit, static_cast<std::size_t>(index.row()), static_cast<Column>(index.column()));
    }
    bool setData(const QModelIndex& index, const QVariant&, int role) override
    {
        if (role != Qt::CheckStateRole)
            return false;
        Toggle(index.row());
        return true;
    }

signals:
    void ticksChanged();

private:
    void TellTicks()
    {
        if (!hits_.empty())
            emit dataChanged(index(0, Block), index(rowCount() - 1, Block), {Qt::CheckStateRole});
        emit ticksChanged();
    }
    [[nodiscard]] QString Text(const CellHit& hit, std::size_t line, Column column) const
    {
        switch (column) {
        case Block:
            return QString::fromStdString(NumberAndTitle(hit.block));
        case Row:
            return RowNumberAndLabel(hit.block, hit.row);
        case CellColumn:
            return heads_.At(doc_->Data(), hit.block, hit.column);
        case Before:
            return TextOnOneLine(hit.before);
        case After:
            return hit.state == HitState::Free ? TextOnOneLine(hit.after) : u"―"_s;
        default:
            break;
        }
        QString note = NoteOf(hit);
        const auto more = notes_.find(line);
        if (more == notes_.end())
            return note;
        return note.isEmpty() ? more->second : note + u"。"_s + more->second;
    }

    CKELDSectionDoc* doc_;
    std::vector<CellHit> hits_;
    std::map<std::size_t, QString> notes_; // by line
    std::set<Place> off_;
    bool replaces_ = true;
    mutable CColumnHeads heads_;
};

CReplacePane::CReplacePane(CKELDSectionDoc* doc, QWidget* parent)
    : QWidget(parent)
    , model_(new CHitModel(doc, this))
    , wanted_(new QLineEdit)
    , by_(new QLineEdit)
    , byLabel_(new QLabel(tr("置換後(&E):")))
    , scope_(new QComboBox)
    , case_(new QCheckBox(tr("大/小文字を同じに")))
    , width_(new QCheckBox(tr("全/半角を同じに")))
    , whole_(new QCheckBox(tr("セル全体が一致")))
    , all_(new QCheckBox(tr("すべて")))
    , count_(new QLabel)
    , replace_(new QPushButton(tr("置換(&R)")))
    , lines_(new QTableView)
{
    setObjectName(u"replace"_s);
    MakeTop();
    MakeLines();
    setFocusProxy(wanted_);
    for (QLineEdit* line : {wanted_, by_}) {
        connect(line, &QLineEdit::textChanged, this, &CReplacePane::OnRequestChanged);
        line->installEventFilter(this);
    }
    for (QCheckBox* box : {case_, width_, whole_})
        connect(box, &QCheckBox::toggled, this, &CReplacePane::OnRequestChanged);
    connect(scope_, &QComboBox::currentIndexChanged, this, &CReplacePane::OnRequestChanged);
    connect(all_, &QCheckBox::clicked, this, &CReplacePane::TickAll);
    connect(replace_, &QPushButton::clicked, this, &CReplacePane::replaceWanted);
    connect(model_, &CHitModel::ticksChanged, this, &CReplacePane::ShowCount);
    ShowCount();
}

CReplacePane::~CReplacePane() = default;

void CReplacePane::MakeTop()
{
    constexpr int leastLine = 60; // px
    auto* wantedLabel = new QLabel(tr("検索(&K):"));
    wantedLabel->setBuddy(wanted_);
    byLabel_->setBuddy(by_);
    for (QLineEdit* line : {wanted_, by_})
        line->setMinimumWidth(leastLine);
    wanted_->setAccessibleName(tr("検索する文字列"));
    by_->setAccessibleName(tr("置換後の文字列"));
    scope_->addItems({tr("このブロック"), tr("プロジェクト全体")});
    scope_->setAccessibleName(tr("対象"));
    scope_->setMinimumContentsLength(14);
    scope_->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    case_->setChecked(true);
    width_->setChecked(true);
    all_->setTristate(true);
    count_->setTextFormat(Qt::PlainText);
    count_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long text does not widen the window
    QToolButton* close = MakeCloseButton(tr("閉じます（Esc）"));
    connect(close, &QToolButton::clicked, this, &CReplacePane::closeWanted);
    auto* previous = new QPushButton(tr("前へ"));
    auto* next = new QPushButton(tr("次へ(&N)"));
    previous->setToolTip(tr("前のセルへ（Shift+F3）"));
    next->setToolTip(tr("次のセルへ（F3、Enter）"));
    replace_->setToolTip(tr("しるしを付けたセルを一度に置換。「元に戻す」1 回で戻ります"));
    connect(previous, &QPushButton::clicked, this, [this] { emit nextWanted(true); });
    connect(next, &QPushButton::clicked, this, [this] { emit nextWanted(false); });

    auto* texts = new QHBoxLayout;
    texts->addWidget(wantedLabel);
    texts->addWidget(wanted_, 1);
    texts->addWidget(byLabel_);
    texts->addWidget(by_, 1);
    texts->addWidget(close);
    auto* choices = new QHBoxLayout;
    for (QWidget* widget : std::initializer_list<QWidget*>{scope_, case_, width_, whole_})
        choices->addWidget(widget);
    choices->addStretch(1);
    auto* acts = new QHBoxLayout;
    acts->addWidget(all_);
    acts->addWidget(count_, 1);
    for (QPushButton* button : {previous, next, replace_}) {
        button->setAutoDefault(true); // Enter presses it
        acts->addWidget(button);
    }
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 2, 2, 0);
    layout->setSpacing(2);
    layout->addLayout(texts);
    layout->addLayout(choices);
    layout->addLayout(acts);
    layout->addWidget(lines_, 1);
}

void CReplacePane::MakeLines()
{
    SetUpLines(*lines_, *model_, kColumns, tr("見つかったセル"));
    lines_->installEventFilter(this);
    connect(lines_, &QTableView::doubleClicked, this,
            [this](const QModelIndex& index) { emit wanted(static_cast<std::size_t>(index.row())); });
}

void CReplacePane::SetReplaces(bool replaces)
{
    replaces_ = replaces;
    for (QWidget* widget : std::initializer_list<QWidget*>{by_, byLabel_, replace_, all_})
        widget->setVisible(replaces);
    lines_->setColumnHidden(After, !replaces);
    lines_->setColumnHidden(Note, !replaces);
}

bool CReplacePane::Replaces() const
{
    return replaces_;
}

void CReplacePane::SetBlock(int block, const QString& name)
{
    block_ = block;
    scope_->setItemText(0,
                        name.isEmpty() ? tr("このブロック") : tr("このブロック（%1）").arg(name.section(u' ', 0, 0)));
    scope_->setToolTip(name);
}

void CReplacePane::GoToLine(const QString& text)
{
    if (!text.isEmpty())
        wanted_->setText(text);
    wanted_->selectAll();
    wanted_->setFocus(Qt::OtherFocusReason);
}

FindRequest CReplacePane::Request(QString& refused) const
{
    FindRequest request;
    request.wanted = fromQString(wanted_->text()).value_or(std::string());
    if (replaces_)
        request.by = fromQString(by_->text(), &refused).value_or(std::string());
    request.rule = {case_->isChecked(), width_->isChecked(), whole_->isChecked()};
    request.block = scope_->currentIndex() == 0 ? block_ : 0;
    return request;
}

void CReplacePane::OnRequestChanged()
{
    model_->ForgetTicks();
    emit requestChanged();
}

void CReplacePane::SetHits(std::vector<CellHit> hits, const QString& remark,
                           const std::map<std::size_t, QString>& notes)
{
    const int row = lines_->currentIndex().row();
    model_->Set(std::move(hits), notes, replaces_);
    remark_ = remark;
    if (row >= 0 && model_->rowCount() > 0)
        lines_->selectRow(std::min(row, model_->rowCount() - 1));
    ShowCount();
}

const std::vector<CellHit>& CReplacePane::Hits() const
{
    return model_->Hits();
}

std::vector<CellHit> CReplacePane::Chosen() const
{
    std::vector<CellHit> chosen;
    for (const CellHit& hit : model_->Hits())
        if (model_->IsTicked(hit))
            chosen.push_back(hit);
    return chosen;
}

QString CReplacePane::Said() const
{
    return count_->text();
}

void CReplacePane::ShowCount()
{
    std::set<int> blocks;
    std::size_t ticked = 0;
    std::size_t stay = 0;
    for (const CellHit& hit : model_->Hits()) {
        blocks.insert(hit.block);
        ticked += model_->IsTicked(hit) ? 1 : 0;
        stay += hit.state == HitState::Free ? 0 : 1;
    }
    const std::size_t count = model_->Hits().size();
    QString text = remark_;
    if (count > 0 || remark_.isEmpty()) {
        text += tr("%1 件（%2 ブロック）").arg(count).arg(blocks.size());
        if (replaces_)
            text += tr("、置換する %1 件").arg(ticked);
        if (replaces_ && stay > 0)
            text += tr("、元のまま %1 件").arg(stay);
    }
    if (wanted_->text().isEmpty())
        text = remark_.isEmpty() ? tr("検索する文字列を入力してください。") : remark_;
    count_->setText(text);
    count_->setToolTip(text);
    const std::size_t can = count - stay;
    all_->setCheckState(ticked == 0 ? Qt::Unchecked : ticked == can ? Qt::Checked : Qt::PartiallyChecked);
    all_->setEnabled(can > 0);
    replace_->setEnabled(ticked > 0);
}

/// By the user: there is no third state to choose.
void CReplacePane::TickAll()
{
    const std::vector<CellHit>& hits = model_->Hits();
    const bool isAll = std::ranges::all_of(
        hits, [this](const CellHit& hit) { return hit.state != HitState::Free || model_->IsTicked(hit); });
    model_->TickAll(!isAll);
}

void CReplacePane::Select(std::size_t line)
{
    lines_->selectRow(static_cast<int>(line));
}

bool CReplacePane::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool enters = key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter;
    if (watched == lines_) {
        const QModelIndex index = lines_->currentIndex();
        if (enters && index.isValid())
            emit wanted(static_cast<std::size_t>(index.row()));
        else if (key->key() == Qt::Key_Space && index.isValid())
            model_->Toggle(index.row());
        else
            return QWidget::eventFilter(watched, event);
        return true;
    }
    if (!enters)
        return QWidget::eventFilter(watched, event);
    emit nextWanted(key->modifiers().testFlag(Qt::ShiftModifier));
    return true;
}

void CReplacePane::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Escape)
        emit closeWanted();
    else
        QWidget::keyPressEvent(event);
}

} // namespace sbd

#include "replace_pane.moc"
