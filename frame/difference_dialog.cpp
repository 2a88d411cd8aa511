#include "frame/difference_dialog.h"

#include "compare/take_back.h"
#include "document/section_doc.h"
#include "frame/dialog_parts.h"
#include "project/catalogue.h"

#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QTableView>
#include <QVBoxLayout>

#include <algorithm>
#include <set>
#include <tuple>

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

/// What a narrow column shows of a text: two long ones that begin alike, from a little ahead of where they differ.
QString ShownSideText(const Difference& difference, bool before)
{
    constexpr qsizetype fits = 16; // characters
    constexpr qsizetype ahead = 4;
    const QString text = SideText(difference, before);
    const QString other = SideText(difference, !before);
    const auto differ = std::mismatch(text.cbegin(), text.cend(), other.cbegin(), other.cend());
    qsizetype from = differ.first - text.cbegin() - ahead;
    if (from + ahead < fits - ahead || text.size() <= fits)
        return text;
    from -= from > 0 && text[from].isLowSurrogate() ? 1 : 0;
    return u'…' + text.mid(from);
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
    const Difference& difference = view_.differences[static_cast<std::size_t>(index.row())];
    if (role == Qt::DisplayRole && (index.column() == kBefore || index.column() == kAfter))
        return ShownSideText(difference, index.column() == kBefore);
    return Text(difference, index.column());
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
    QLabel* intro = PlainText(view_.intro + u"\n違い: "_s + CountText(view_.differences));
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
        const auto takeBack = [this](const std::vector<Difference>& differences) {
            const auto act = view_.takeBack; // the dialog may go with its caller
            accept();
            act(differences);
        };
        const struct {
            QString text;
            Reach reach;
        } reaches[] = {{u"選んだセルを%1(&T)"_s, Reach::Cell},
                       {u"その行を%1(&R)"_s, Reach::Row},
                       {u"そのブロックを%1(&B)"_s, Reach::Block}};
        QList<QPushButton*> chosen;
        for (const auto& entry : reaches) {
            QPushButton* button = buttons->addButton(entry.text.arg(view_.verb), QDialogButtonBox::ActionRole);
            button->setToolTip(
                u"311・324・325・501・702 のブロックは、ブロックごとに%1ことになります。"_s.arg(view_.verb));
            const Reach reach = entry.reach;
            connect(button, &QPushButton::clicked, this, [this, takeBack, reach] { takeBack(Chosen(reach)); });
            chosen << button;
        }
        QPushButton* all = buttons->addButton(u"すべて%1(&A)"_s.arg(view_.verb), QDialogButtonBox::ActionRole);
        connect(all, &QPushButton::clicked, this, [this, takeBack] { takeBack(view_.differences); });
        const auto mayTake = [this, chosen] {
            for (QPushButton* button : chosen)
                button->setEnabled(list_->selectionModel()->hasSelection());
        };
        connect(list_->selectionModel(), &QItemSelectionModel::selectionChanged, this, mayTake);
        mayTake();
        all->setEnabled(!view_.differences.empty());
    }
    if (view_.save) {
        QPushButton* save = buttons->addButton(u"一覧を書き出す(&W)..."_s, QDialogButtonBox::ActionRole);
        connect(save, &QPushButton::clicked, this, [this] { view_.save(view_.differences); });
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

std::vector<Difference> CDifferenceDialog::Chosen(Reach reach) const
{
    // By block, row and column, each alone or with the row or block it stands in. A row that was removed and one that is
    // there may have the same number.
    const auto keyOf = [this, reach](std::size_t line) {
        const Difference& difference = view_.differences[line];
        const bool gone = difference.kind == DifferenceKind::RowRemoved;
        const int row = reach == Reach::Block ? 0 : difference.row;
        return std::tuple(difference.block, gone && reach != Reach::Block, row, reach == Reach::Cell ? line : 0);
    };
    std::set<std::tuple<int, bool, int, std::size_t>> keys;
    for (const QModelIndex& index : list_->selectionModel()->selectedRows())
        keys.insert(keyOf(static_cast<std::size_t>(index.row())));
    std::vector<Difference> chosen;
    for (std::size_t line = 0; line < view_.differences.size(); ++line)
        if (keys.contains(keyOf(line)))
            chosen.push_back(view_.differences[line]);
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
