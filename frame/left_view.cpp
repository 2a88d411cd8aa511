#include "frame/left_view.h"

#include "document/engine_command.h"
#include "document/section_doc.h"
#include "frame/finding_text.h"
#include "panelmodel/panel_model.h"

#include <QHash>
#include <QHeaderView>
#include <QKeyEvent>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QStyledItemDelegate>
#include <QTreeWidgetItemIterator>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kNumberRole = Qt::UserRole;
constexpr int kGroupRole = Qt::UserRole + 1; // true for the head of a group

int NumberOf(const QTreeWidgetItem* item)
{
    return item == nullptr ? 0 : item->data(0, kNumberRole).toInt();
}

bool IsGroup(const QTreeWidgetItem* item)
{
    return item->data(0, kGroupRole).toBool();
}

/// Rows with some air: the characters of Japanese titles fill their height. Each text is measured once: the view asks
/// for all widths again at every rebuild, several times.
class RowDelegate : public QStyledItemDelegate {
public:
    using QStyledItemDelegate::QStyledItemDelegate;
    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override
    {
        constexpr int air = 6; // px
        if (option.font != font_) {
            font_ = option.font;
            sizes_.clear();
        }
        const bool bold = index.data(Qt::FontRole).value<QFont>().bold();
        const bool marked = index.data(Qt::DecorationRole).isValid();
        QSize& size = sizes_[{index.data().toString() + (marked ? u"!"_s : QString()), bold}];
        if (!size.isValid())
            size = QStyledItemDelegate::sizeHint(option, index) + QSize(air, air);
        return size;
    }

private:
    mutable QFont font_;                                   // that of the sizes
    mutable QHash<std::pair<QString, bool>, QSize> sizes_; // by text and whether it is bold
};

void SetBold(QTreeWidgetItem* item)
{
    QFont font = item->font(0);
    font.setBold(true);
    item->setFont(0, font);
}

} // namespace

CLeftView::CLeftView(CKELDSectionDoc* doc, QWidget* parent) : QTreeWidget(parent), doc_(doc)
{
    setHeaderHidden(true);
    setIndentation(16);
    setUniformRowHeights(true);
    setItemDelegate(new RowDelegate(this));
    setTextElideMode(Qt::ElideNone); // long titles scroll, so they can be read whole
    setHorizontalScrollMode(ScrollPerPixel);
    setFrameShape(NoFrame);
    setAccessibleName(u"ブロック"_s);
    header()->setStretchLastSection(false);
    header()->setSectionResizeMode(QHeaderView::ResizeToContents);

    connect(this, &QTreeWidget::currentItemChanged, this, &CLeftView::OnCurrentItemChanged);
    connect(doc_, &CKELDSectionDoc::changed, this, &CLeftView::OnDocumentChanged);
    connect(doc_, &CKELDSectionDoc::reloaded, this, &CLeftView::Rebuild);
    Rebuild();
}

void CLeftView::SetView(TreeView view)
{
    view_ = std::move(view);
    Rebuild();
}

void CLeftView::Rebuild()
{
    const QScopedValueRollback guard(rebuilding_, true);
    const int selected = SelectedNumber();
    const int group = currentItem() == nullptr ? 0 : NumberOf(currentItem()->parent());
    const bool groupHead = currentItem() != nullptr && IsGroup(currentItem());
    const int scroll = verticalScrollBar()->value();
    std::set<int> open;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        if (topLevelItem(i)->isExpanded())
            open.insert(NumberOf(topLevelItem(i)));
    }

    clear();
    Fill();
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* head = topLevelItem(i);
        head->setExpanded(IsGroup(head) && open.contains(NumberOf(head)));
        if (groupHead && IsGroup(head) && NumberOf(head) == selected)
            setCurrentItem(head);
    }
    if (!groupHead)
        setCurrentItem(FindItem(selected, group));
    verticalScrollBar()->setValue(scroll);
}

void CLeftView::Fill()
{
    key_ = TreeKey(doc_->Data());
    QTreeWidgetItem* head = nullptr;
    for (const TreeRow& row : TreeRows(doc_->Data(), view_)) {
        QTreeWidgetItem* item = row.level == 0 ? new QTreeWidgetItem(this) : new QTreeWidgetItem(head);
        const QString text = QString::fromStdString(row.text);
        item->setText(0, text);
        item->setToolTip(0, text);
        item->setData(0, kNumberRole, row.block);
        item->setData(0, kGroupRole, row.group);
        if (row.bold)
            SetBold(item);
        if (row.level == 0)
            head = item;
    }
    ShowMarks();
}

void CLeftView::SetMarks(std::map<int, MarkKind> marks, MarkSource source)
{
    std::map<int, MarkKind>& own = marks_[source];
    if (marks == own)
        return;
    own = std::move(marks);
    ShowMarks();
}

void CLeftView::ShowMarks()
{
    // By source, then the one that weighs most.
    using Marks = std::map<MarkSource, MarkKind>;
    const auto addMarksOf = [this](const QTreeWidgetItem* item, Marks& marks) {
        for (const auto& [source, ofBlocks] : marks_)
            if (const auto found = ofBlocks.find(PanelBlock(NumberOf(item))); found != ofBlocks.end()) {
                const auto known = marks.try_emplace(source, found->second).first;
                known->second = std::min(known->second, found->second);
            }
    };
    std::map<MarkKind, QIcon> icons;
    for (QTreeWidgetItemIterator it(this); *it != nullptr; ++it) {
        Marks marks;
        if (!IsGroup(*it))
            addMarksOf(*it, marks);
        for (int i = 0; IsGroup(*it) && i < (*it)->childCount(); ++i)
            addMarksOf((*it)->child(i), marks);
        std::optional<MarkKind> mark;
        QStringList told;
        QString tip = (*it)->text(0);
        for (const auto& [source, kind] : marks) {
            mark = mark ? std::min(*mark, kind) : kind;
            const bool ofRun = source == MarkSource::Run;
            told << (ofRun ? u"解析の前と後で違うセルがあります"_s : u"指摘があります"_s);
            tip +=
                ofRun ? u"\n解析の前と後で違うセルがあります。"_s : u"\n指摘があります。F8 でその場所へ移動します。"_s;
        }
        if (!mark && (*it)->icon(0).isNull())
            continue;
        if (mark && !icons.contains(*mark))
            icons[*mark] = SignIcon(*mark, palette());
        (*it)->setIcon(0, mark ? icons[*mark] : QIcon());
        (*it)->setData(0, Qt::AccessibleDescriptionRole, told.join(u'、'));
        (*it)->setToolTip(0, tip);
    }
}

void CLeftView::changeEvent(QEvent* event)
{
    QTreeWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        ShowMarks();
}

QTreeWidgetItem* CLeftView::FindItem(int number, int group)
{
    QTreeWidgetItem* found = nullptr;
    for (QTreeWidgetItemIterator it(this); *it != nullptr; ++it) {
        if (NumberOf(*it) != number || IsGroup(*it))
            continue;
        if (NumberOf((*it)->parent()) == group)
            return *it;
        // 481 stands in group 400 and again below the groups: the group's is the one in its surroundings.
        if (found == nullptr || (found->parent() == nullptr && (*it)->parent() != nullptr))
            found = *it;
    }
    return found;
}

bool CLeftView::SelectBlock(int number)
{
    QTreeWidgetItem* item =
        SelectedNumber() == number && !IsGroup(currentItem()) ? currentItem() : FindItem(number, -1);
    if (item == nullptr)
        return false;
    const QScopedValueRollback guard(rebuilding_, true);
    if (item->parent() != nullptr)
        item->parent()->setExpanded(true);
    setCurrentItem(item);
    scrollToItem(item);
    return true;
}

int CLeftView::SelectedNumber() const
{
    return NumberOf(currentItem());
}

void CLeftView::keyboardSearch(const QString& typed)
{
    constexpr qint64 pause = 1500; // ms; a number is read off a drawing
    const bool isNumber = std::ranges::all_of(typed, [](QChar c) { return c >= u'0' && c <= u'9'; });
    if (!isNumber || typed.isEmpty()) {
        digits_.clear();
        QTreeWidget::keyboardSearch(typed);
        return;
    }
    if (!sinceDigit_.isValid() || sinceDigit_.elapsed() > pause || digits_.size() >= 3)
        digits_.clear();
    sinceDigit_.start();
    digits_ += typed;
    QTreeWidgetItem* item = FindTyped(digits_);
    if (item == nullptr)
        return;
    if (item->parent() != nullptr)
        item->parent()->setExpanded(true);
    setCurrentItem(item);
    scrollToItem(item);
}

/// The block of a whole number; of its first digits the first block, or else the group.
QTreeWidgetItem* CLeftView::FindTyped(const QString& digits)
{
    const int own = currentItem() == nullptr ? 0 : NumberOf(currentItem()->parent());
    if (QTreeWidgetItem* whole = FindItem(digits.toInt(), own))
        return whole;
    QTreeWidgetItem* group = nullptr;
    for (QTreeWidgetItemIterator it(this); *it != nullptr; ++it) {
        if (!QString::number(NumberOf(*it)).startsWith(digits))
            continue;
        if (!IsGroup(*it))
            return *it;
        if (group == nullptr)
            group = *it;
    }
    return group;
}

void CLeftView::MarkContent()
{
    for (QTreeWidgetItemIterator it(this); *it != nullptr; ++it) {
        if (!IsGroup(*it) && !(*it)->font(0).bold() && HasInputInForce(doc_->Data(), NumberOf(*it)))
            SetBold(*it);
    }
}

void CLeftView::keyPressEvent(QKeyEvent* event)
{
    if (event->key() != Qt::Key_Return && event->key() != Qt::Key_Enter)
        QTreeWidget::keyPressEvent(event);
    else if (RunOfBlock(SelectedNumber()))
        emit runAskedAt(SelectedNumber());
    else
        emit panelWanted();
}

void CLeftView::mousePressEvent(QMouseEvent* event)
{
    QTreeWidget::mousePressEvent(event);
    const QTreeWidgetItem* item = itemAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && item != nullptr)
        emit itemWasPressed(NumberOf(item));
}

void CLeftView::mouseDoubleClickEvent(QMouseEvent* event)
{
    const QTreeWidgetItem* item = itemAt(event->position().toPoint());
    const int number = item == nullptr ? 0 : NumberOf(item); // of now: what follows may build the tree anew
    QTreeWidget::mouseDoubleClickEvent(event);
    if (event->button() == Qt::LeftButton && number != 0)
        emit runAskedAt(number);
}

void CLeftView::OnCurrentItemChanged(QTreeWidgetItem* item)
{
    if (rebuilding_ || item == nullptr)
        return;
    const QTreeWidgetItem* block = item;
    if (IsGroup(item))
        block = item->childCount() > 0 ? item->child(0) : nullptr;
    if (block != nullptr)
        emit blockChosen(NumberOf(block));
    MarkContent();
}

void CLeftView::OnDocumentChanged(const BlockChange& change)
{
    if ((change.block == 301 || change.block == 305) && TreeKey(doc_->Data()) != key_)
        Rebuild();
}

} // namespace sbd
