#include "frame/left_view.h"

#include "document/engine_command.h"
#include "document/section_doc.h"
#include "frame/finding_text.h"
#include "frame/tail_delegate.h"
#include "panelmodel/panel_model.h"
#include "search/fold.h"
#include "search/understand.h"

#include <QContextMenuEvent>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QScrollBar>
#include <QTreeWidgetItemIterator>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kNumberRole = Qt::UserRole;
constexpr int kGroupRole = Qt::UserRole + 1; // true for the head of a group
constexpr int kWholeRole = Qt::UserRole + 2; // the title with its tag

int NumberOf(const QTreeWidgetItem* item)
{
    return item == nullptr ? 0 : item->data(0, kNumberRole).toInt();
}

bool IsGroup(const QTreeWidgetItem* item)
{
    return item->data(0, kGroupRole).toBool();
}

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
    setItemDelegate(new CTailDelegate(this));
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
    Filter();
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
        item->setData(0, kWholeRole, QString::fromStdString(row.whole));
        if (row.bold)
            SetBold(item);
        if (row.level == 0)
            head = item;
        if (!row.group)
            ShowFill(item);
    }
    ShowMarks();
}

/// How many rows the block has, in grey; a needed block without any asks for them.
void CLeftView::ShowFill(QTreeWidgetItem* item)
{
    const BlockFill fill = FillOf(doc_->Data(), NumberOf(item));
    QString tail;
    if (fill.lacks)
        tail = tr("未入力");
    else if (fill.rows > 0)
        tail = tr("%1行").arg(fill.rows);
    item->setData(0, CTailDelegate::kTailRole, tail);
    item->setData(0, CTailDelegate::kAlertRole, fill.lacks);
}

void CLeftView::SetFilter(const QString& line)
{
    if (line.trimmed() == filter_)
        return;
    filter_ = line.trimmed();
    Filter();
    if (currentItem() != nullptr)
        scrollToItem(currentItem());
}

void CLeftView::ShowOnlyFilled(bool only)
{
    onlyFilled_ = only;
    Filter();
}

bool CLeftView::IsWanted(const QTreeWidgetItem* item) const
{
    const QString tail = item->data(0, CTailDelegate::kTailRole).toString();
    const bool lacks = item->data(0, CTailDelegate::kAlertRole).toBool();
    if (onlyFilled_ && (lacks || (!item->font(0).bold() && tail.isEmpty())))
        return false;
    const std::string whole = item->data(0, kWholeRole).toString().toStdString();
    const std::string folded = Fold(whole);
    const std::string line = filter_.toStdString();
    const auto holds = [&folded](const std::string& word) { return folded.find(word) != std::string::npos; };
    if (std::ranges::all_of(SearchWords(line), holds))
        return true;
    if (std::ranges::all_of(Fold(line), [](char c) { return static_cast<unsigned char>(c) < 0x80; }))
        return false;                                // numbers and tags are meant as they are
    const std::u16string skeleton = Skeleton(whole); // other spellings, other words for the same thing
    const std::vector<SearchTerm> terms = SearchTerms(line);
    return !terms.empty()
           && std::ranges::all_of(terms, [&](const SearchTerm& term) { return HoldsTerm(skeleton, term.text); });
}

void CLeftView::Filter()
{
    const QScopedValueRollback guard(rebuilding_, true);
    const bool filters = !filter_.isEmpty() || onlyFilled_;
    if (filters && !openBefore_) {
        openBefore_.emplace();
        for (int i = 0; i < topLevelItemCount(); ++i)
            if (topLevelItem(i)->isExpanded())
                openBefore_->insert(NumberOf(topLevelItem(i)));
    }
    if (!filters && !openBefore_)
        return; // all items are there
    int left = 0;
    for (int i = 0; i < topLevelItemCount(); ++i) {
        QTreeWidgetItem* head = topLevelItem(i);
        const bool group = IsGroup(head);
        const bool whole = group && !filter_.isEmpty() && !onlyFilled_ && IsWanted(head); // the group itself is meant
        int ofGroup = !group && IsWanted(head) ? 1 : 0;
        for (int k = 0; k < head->childCount(); ++k) {
            const bool wanted = whole || IsWanted(head->child(k));
            head->child(k)->setHidden(!wanted);
            ofGroup += wanted ? 1 : 0;
        }
        head->setHidden(ofGroup == 0);
        if (group && filters && ofGroup > 0)
            head->setExpanded(true);
        else if (group && !filters)
            head->setExpanded(openBefore_->contains(NumberOf(head)) || head == currentItem()
                              || (currentItem() != nullptr && currentItem()->parent() == head));
        left += ofGroup;
    }
    if (!filters)
        openBefore_.reset();
    emit filtered(left);
}

/// An item that somebody goes to is in sight, filter or not.
void CLeftView::Unhide(QTreeWidgetItem* item)
{
    item->setHidden(false);
    if (item->parent() != nullptr)
        item->parent()->setHidden(false);
}

void CLeftView::ChooseFirst()
{
    for (QTreeWidgetItemIterator it(this, QTreeWidgetItemIterator::NotHidden); *it != nullptr; ++it) {
        if (IsGroup(*it) || ((*it)->parent() != nullptr && (*it)->parent()->isHidden()))
            continue;
        setCurrentItem(*it);
        scrollToItem(*it);
        setFocus(Qt::OtherFocusReason);
        return;
    }
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
    Unhide(item);
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
    Unhide(item);
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
    if (event->button() == Qt::RightButton) {
        event->accept(); // opens the menu; the block on show stays
        return;
    }
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

void CLeftView::contextMenuEvent(QContextMenuEvent* event)
{
    const bool byKey = event->reason() == QContextMenuEvent::Keyboard;
    QTreeWidgetItem* item = byKey ? currentItem() : itemAt(event->pos());
    const QPoint place =
        byKey && item != nullptr ? viewport()->mapToGlobal(visualItemRect(item).center()) : event->globalPos();
    QMenu menu(this);
    if (item != nullptr && !IsGroup(item)) {
        const int number = NumberOf(item); // of now: the tree may be built anew
        menu.addAction(tr("%1 を開く(&O)").arg(number), this, [this, number] {
            SelectBlock(number);
            emit blockChosen(number);
            MarkContent();
        });
        menu.addSeparator();
    }
    menu.addAction(tr("すべて開く(&E)"), this, &QTreeView::expandAll);
    menu.addAction(tr("すべて閉じる(&C)"), this, &QTreeView::collapseAll);
    QAction* only = menu.addAction(tr("入力のあるブロックだけ(&F)"), this, &CLeftView::ShowOnlyFilled);
    only->setCheckable(true);
    only->setChecked(onlyFilled_);
    if (addToMenu) {
        menu.addSeparator();
        addToMenu(menu);
    }
    menu.exec(place);
    event->accept();
}

/// The highlight reaches to the edge of the pane, however short the titles are.
void CLeftView::resizeEvent(QResizeEvent* event)
{
    QTreeWidget::resizeEvent(event);
    header()->setMinimumSectionSize(viewport()->width());
    header()->resizeSections(QHeaderView::ResizeToContents);
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
    for (QTreeWidgetItemIterator it(this); *it != nullptr; ++it)
        if (!IsGroup(*it) && PanelBlock(NumberOf(*it)) == change.block)
            ShowFill(*it);
}

} // namespace sbd
