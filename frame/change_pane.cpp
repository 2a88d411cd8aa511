#include "frame/change_pane.h"

#include "compare/difference_text.h"
#include "document/section_doc.h"
#include "frame/cell_lines.h"

#include <QAbstractTableModel>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QTableView>
#include <QToolButton>
#include <QVBoxLayout>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

enum Column { Block, Row, CellColumn, Before, After, ColumnCount };

constexpr LineColumn kColumns[ColumnCount] = {
    {u"ブロック", 260}, {u"行", 200}, {u"列", 180}, {u"解析の前", 220}, {u"解析の後", 220}};

} // namespace

class CChangeModel : public QAbstractTableModel {
public:
    CChangeModel(CKELDSectionDoc* doc, QObject* parent) : QAbstractTableModel(parent), doc_(doc) {}

    /// False if they are the same.
    bool Set(const std::vector<ShownChange>& changes, std::size_t more)
    {
        if (changes == changes_ && more == more_)
            return false;
        beginResetModel();
        changes_ = changes;
        more_ = more;
        heads_.Clear();
        endResetModel();
        return true;
    }
    [[nodiscard]] QString Count() const
    {
        const QString text = CChangePane::tr("解析の前と後で違う所 %1 件").arg(changes_.size());
        return more_ == 0 ? text : text + CChangePane::tr("、ほか %1 件").arg(more_);
    }

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override
    {
        return parent.isValid() ? 0 : static_cast<int>(changes_.size());
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
        if (role == Qt::TextAlignmentRole)
            return int(Qt::AlignVCenter | Qt::AlignLeft);
        if (role != Qt::DisplayRole && role != Qt::ToolTipRole)
            return {};
        return Text(changes_[static_cast<std::size_t>(index.row())], static_cast<Column>(index.column()));
    }

private:
    [[nodiscard]] QString Text(const ShownChange& change, Column column) const
    {
        switch (column) {
        case Block:
            return change.block == 0 ? u"（画面に出ない行）"_s : QString::fromStdString(NumberAndTitle(change.block));
        case Row:
            return RowText(change);
        case CellColumn:
            if (change.kind == ChangeKind::Unseen)
                return toQString(change.place);
            return change.column > 0 ? heads_.At(doc_->Data(), change.block, change.column) : QString();
        case Before:
            return change.kind == ChangeKind::RowAdded ? u"（行なし）"_s : TextOnOneLine(change.before);
        default:
            return change.kind == ChangeKind::RowRemoved ? u"（行なし）"_s : TextOnOneLine(change.after);
        }
    }
    [[nodiscard]] static QString RowText(const ShownChange& change)
    {
        if (change.row == 0)
            return {};
        const QString number = QString::number(change.row);
        if (change.kind == ChangeKind::RowRemoved)
            return u"元の %1 行（なくなった）"_s.arg(number);
        if (change.kind == ChangeKind::RowAdded)
            return number + u"（増えた）"_s;
        return RowNumberAndLabel(change.block, change.row);
    }

    CKELDSectionDoc* doc_;
    std::vector<ShownChange> changes_;
    std::size_t more_ = 0;
    mutable CColumnHeads heads_;
};

CChangePane::CChangePane(CKELDSectionDoc* doc, QWidget* parent)
    : QWidget(parent)
    , model_(new CChangeModel(doc, this))
    , count_(new QLabel)
    , lines_(new QTableView)
{
    QToolButton* close = MakeCloseButton(tr("一覧を閉じます（セルの色は残ります）"));
    auto* top = new QHBoxLayout;
    top->setContentsMargins(4, 2, 2, 2);
    top->addWidget(count_, 1);
    top->addWidget(close);

    SetUpLines(*lines_, *model_, kColumns, tr("解析の前と後で違う所"));
    lines_->installEventFilter(this);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addLayout(top);
    layout->addWidget(lines_, 1);
    setFocusProxy(lines_);

    connect(close, &QToolButton::clicked, this, &CChangePane::closeWanted);
    connect(lines_, &QTableView::doubleClicked, this, &CChangePane::GoToSelected);
}

CChangePane::~CChangePane() = default;

void CChangePane::SetChanges(const std::vector<ShownChange>& changes, std::size_t more)
{
    const int row = lines_->currentIndex().row();
    if (!model_->Set(changes, more))
        return;
    count_->setText(model_->Count());
    if (row >= 0) // the line may be gone: the next one has taken its place
        lines_->selectRow(std::min(row, model_->rowCount() - 1));
}

void CChangePane::Select(std::size_t line)
{
    lines_->selectRow(static_cast<int>(line));
}

void CChangePane::GoToSelected()
{
    if (const QModelIndex index = lines_->currentIndex(); index.isValid())
        emit wanted(static_cast<std::size_t>(index.row()));
}

bool CChangePane::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != lines_ || (event->type() != QEvent::KeyPress && event->type() != QEvent::ShortcutOverride))
        return QWidget::eventFilter(watched, event);
    const auto* key = static_cast<QKeyEvent*>(event);
    const bool steps = key->key() == Qt::Key_F8 && (key->modifiers() & ~Qt::ShiftModifier) == Qt::NoModifier;
    if (event->type() == QEvent::ShortcutOverride) {
        if (steps)
            event->accept(); // in the list the key is the list's
        return steps;
    }
    if (steps)
        emit nextWanted(key->modifiers() == Qt::ShiftModifier);
    else if (key->key() == Qt::Key_Return || key->key() == Qt::Key_Enter)
        GoToSelected();
    else
        return false;
    return true;
}

} // namespace sbd
