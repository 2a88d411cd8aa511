#include "frame/difference_dialog.h"

#include "compare/take_back.h"
#include "document/section_doc.h"
#include "project/catalogue.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <set>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize{900, 560}; // px
constexpr int kBlockWidth = 220;
constexpr int kColumnWidth = 170;

/// A text on one side; what is not there says so.
QString SideText(const Difference& difference, bool before)
{
    if (difference.kind == DifferenceKind::RowAdded && before)
        return u"(行なし)"_s;
    if (difference.kind == DifferenceKind::RowRemoved && !before)
        return u"(行なし)"_s;
    return toQString(before ? difference.before : difference.after);
}

QString RowText(const Difference& difference)
{
    if (difference.row == 0)
        return {};
    QString text = QString::number(difference.row);
    if (difference.kind == DifferenceKind::RowAdded)
        text += u" (増えた行)"_s;
    else if (difference.kind == DifferenceKind::RowRemoved)
        text += u" (なくなった行)"_s;
    return text;
}

} // namespace

QString BlockName(int block)
{
    const CatalogueRow* row = FindBlock(block);
    if (block == 0)
        return u"(未知の区分)"_s;
    QString title =
        row == nullptr ? QString() : QString::fromUtf8(row->menuText.data(), qsizetype(row->menuText.size()));
    title = title.section(u'[', 0, 0).trimmed();
    const qsizetype word =
        std::find_if(title.cbegin(), title.cend(), [](QChar c) { return !(c >= u'0' && c <= u'9') && c != u'.'; })
        - title.cbegin();
    return (QString::number(block) + u' ' + title.mid(word)).trimmed();
}

QString CountText(const std::vector<Difference>& differences)
{
    std::set<int> blocks;
    for (const Difference& difference : differences)
        blocks.insert(difference.block);
    return u"%1 か所 (%2 ブロック)"_s.arg(differences.size()).arg(blocks.size());
}

CDifferenceModel::CDifferenceModel(const DifferenceView& view, QObject* parent)
    : QAbstractTableModel(parent)
    , view_(view)
{
}

int CDifferenceModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(view_.differences.size());
}

int CDifferenceModel::columnCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : kColumns;
}

QString CDifferenceModel::Text(const Difference& difference, int column) const
{
    switch (column) {
    case kBlock:
        return BlockName(difference.block);
    case kRow:
        return RowText(difference);
    case kColumn: {
        const QString number = difference.column > 0 ? QString::number(difference.column) : QString();
        return (number + u' ' + toQString(difference.place)).trimmed();
    }
    case kBefore:
        return SideText(difference, true);
    default:
        return SideText(difference, false);
    }
}

QVariant CDifferenceModel::data(const QModelIndex& index, int role) const
{
    if (!index.isValid() || (role != Qt::DisplayRole && role != Qt::ToolTipRole))
        return {};
    return Text(view_.differences[static_cast<std::size_t>(index.row())], index.column());
}

QVariant CDifferenceModel::headerData(int section, Qt::Orientation orientation, int role) const
{
    if (orientation != Qt::Horizontal || role != Qt::DisplayRole)
        return {};
    const QString heads[kColumns] = {u"ブロック"_s, u"行"_s, u"列・項目"_s, view_.before, view_.after};
    return heads[section];
}

CDifferenceDialog::CDifferenceDialog(DifferenceView view, QWidget* parent)
    : QDialog(parent)
    , view_(std::move(view))
    , list_(new QTableView(this))
{
    setObjectName(u"differences"_s);
    setWindowTitle(view_.title);
    resize(kSize);
    auto* intro = new QLabel(view_.intro + u"\n違い: "_s + CountText(view_.differences), this);
    intro->setTextFormat(Qt::PlainText);
    intro->setWordWrap(true);
    list_->setModel(new CDifferenceModel(view_, this));
    list_->setSelectionBehavior(QAbstractItemView::SelectRows);
    list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    list_->setWordWrap(false);
    list_->setTabKeyNavigation(false);
    list_->verticalHeader()->hide();
    list_->setColumnWidth(CDifferenceModel::kBlock, kBlockWidth);
    list_->setColumnWidth(CDifferenceModel::kColumn, kColumnWidth);
    list_->horizontalHeader()->setSectionResizeMode(CDifferenceModel::kBefore, QHeaderView::Stretch);
    list_->horizontalHeader()->setSectionResizeMode(CDifferenceModel::kAfter, QHeaderView::Stretch);
    list_->selectRow(0);

    auto* buttons = new QDialogButtonBox(this);
    if (view_.takeBack) {
        QPushButton* chosen = buttons->addButton(u"選んだ行を戻す(&T)"_s, QDialogButtonBox::ActionRole);
        QPushButton* all = buttons->addButton(u"すべて戻す(&A)"_s, QDialogButtonBox::ActionRole);
        chosen->setToolTip(u"311・324・325・501・702 のブロックは、ブロックごとに戻ります。"_s);
        const auto takeBack = [this](const std::vector<Difference>& differences) {
            const auto act = view_.takeBack; // the dialog may go with its caller
            accept();
            act(differences);
        };
        connect(chosen, &QPushButton::clicked, this, [this, takeBack] { takeBack(Chosen()); });
        connect(all, &QPushButton::clicked, this, [this, takeBack] { takeBack(view_.differences); });
        const auto mayTake = [this, chosen] { chosen->setEnabled(list_->selectionModel()->hasSelection()); };
        connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this, mayTake);
        mayTake();
        all->setEnabled(!view_.differences.empty());
    }
    QPushButton* close = buttons->addButton(u"閉じる(&C)"_s, QDialogButtonBox::RejectRole);
    close->setDefault(true);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    if (view_.goTo)
        connect(list_, &QTableView::doubleClicked, this, &CDifferenceDialog::GoTo);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addWidget(list_, 1);
    layout->addWidget(buttons);
    list_->setFocus();
}

std::vector<Difference> CDifferenceDialog::Chosen() const
{
    std::vector<Difference> chosen;
    for (const QModelIndex& index : list_->selectionModel()->selectedRows())
        chosen.push_back(view_.differences[static_cast<std::size_t>(index.row())]);
    return chosen;
}

void CDifferenceDialog::GoTo(const QModelIndex& index)
{
    const Difference difference = view_.differences[static_cast<std::size_t>(index.row())];
    const auto act = view_.goTo;
    accept();
    act(difference);
}

} // namespace sbd
