#include "frame/go_line_box.h"

#include "frame/tail_delegate.h"
#include "grid/cell_editor.h"
#include "search/search_index.h"

#include <QApplication>
#include <QKeyEvent>
#include <QKeySequence>
#include <QLineEdit>
#include <QListWidget>
#include <QScopedValueRollback>
#include <QStyle>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kWidth = 760; // px, where the window has room
constexpr int kMargin = 20; // px
constexpr int kTop = 70;    // px: below menus and tool bar
constexpr int kMostRows = 14;
constexpr int kPage = 10; // rows

QString Text8(std::string_view utf8)
{
    return QString::fromUtf8(utf8.data(), qsizetype(utf8.size()));
}

} // namespace

CGoLine::CGoLine(QWidget* window) : QFrame(window), line_(new QLineEdit), list_(new QListWidget)
{
    setFrameShape(QFrame::StyledPanel);
    setFrameShadow(QFrame::Raised);
    setLineWidth(2);
    setAutoFillBackground(true);
    setProperty(kKeepsEditors, true);
    line_->setAccessibleName(tr("移動先"));
    line_->setClearButtonEnabled(true);
    list_->setFrameShape(QFrame::NoFrame);
    list_->setFocusPolicy(Qt::NoFocus); // the keyboard stays in the line
    list_->viewport()->setFocusPolicy(Qt::NoFocus);
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    list_->setItemDelegate(new CTailDelegate(list_, CTailDelegate::Place::RightEdge));
    list_->setAccessibleName(tr("移動先の候補"));
    setFocusProxy(line_);
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(6, 6, 6, 6);
    layout->setSpacing(4);
    layout->addWidget(line_);
    layout->addWidget(list_, 1);
    line_->installEventFilter(this);
    window->installEventFilter(this);
    connect(line_, &QLineEdit::textChanged, this, &CGoLine::Fill);
    connect(list_, &QListWidget::itemClicked, this, &CGoLine::Choose);
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) { OnFocusChanged(now); });
    hide();
}

void CGoLine::Open(GoScope scope)
{
    scope_ = scope;
    ShowHint(*line_);
    line_->setPlaceholderText(scope == GoScope::Numbers ? tr("番号・行・列 (313、313 5行、313 5行 3列、5行)")
                                                        : tr("番号・題名・セル (313 5行)・コマンド・質問"));
    if (isHidden()) {
        before_ = QApplication::focusWidget();
        line_->clear();
        Fill();
        show();
        raise();
        Place();
        line_->setFocus(Qt::PopupFocusReason);                    // an editor keeps what is selected in it
        QTimer::singleShot(0, this, [] { (void)SearchIndex(); }); // ahead of the first key
        return;
    }
    Fill();
    line_->selectAll();
}

void CGoLine::Fill()
{
    targets_ = find ? find(line_->text(), scope_) : std::vector<GoTarget>();
    list_->setUpdatesEnabled(false);
    list_->clear();
    for (const GoTarget& target : targets_) {
        auto* item = new QListWidgetItem(Text8(target.text), list_);
        const bool command = target.kind == GoTarget::Kind::Command;
        const bool given = !command || !may || may(target.command);
        QString tail = Text8(target.detail);
        if (command)
            tail = tr("コマンド") + (given ? QString() : tr(" (今は使えません)"))
                   + (tail.isEmpty() ? QString() : u"　"_s + QKeySequence(tail).toString(QKeySequence::NativeText));
        item->setData(CTailDelegate::kTailRole, tail);
        item->setToolTip(item->text());
        if (!given)
            item->setForeground(palette().brush(QPalette::Disabled, QPalette::Text));
    }
    if (targets_.empty() && !line_->text().trimmed().isEmpty()) {
        auto* none =
            new QListWidgetItem(tr("見つかりません。番号は 301～999、行は「5行」のように入力してください。"), list_);
        none->setFlags(Qt::NoItemFlags);
    }
    list_->setCurrentRow(targets_.empty() ? -1 : 0);
    list_->setUpdatesEnabled(true);
    Place();
}

/// In the middle of the window's upper part, as high as the list needs.
void CGoLine::Place()
{
    const QWidget* window = parentWidget();
    const int width = std::max(200, std::min(kWidth, window->width() - 2 * kMargin));
    const int rows = std::min(list_->count(), kMostRows);
    const int rowHeight = rows == 0 ? 0 : list_->sizeHintForRow(0);
    list_->setVisible(rows > 0);
    const QMargins around = layout()->contentsMargins();
    const int below = rows == 0 ? 0 : layout()->spacing() + rows * rowHeight + 2;
    const int height = around.top() + line_->sizeHint().height() + below + around.bottom() + 2 * frameWidth();
    setGeometry((window->width() - width) / 2, kTop, width, std::min(height, window->height() - kTop - kMargin));
}

void CGoLine::Step(int rows)
{
    if (targets_.empty())
        return;
    const int last = static_cast<int>(targets_.size()) - 1;
    const int now = list_->currentRow();
    int next = std::clamp(now + rows, 0, last);
    if (next == now && std::abs(rows) == 1) // round again
        next = rows > 0 ? 0 : last;
    list_->setCurrentRow(next);
}

void CGoLine::Choose()
{
    const int row = list_->currentRow();
    if (row < 0 || row >= static_cast<int>(targets_.size()))
        return;
    const GoTarget target = targets_[static_cast<std::size_t>(row)];
    if (target.kind == GoTarget::Kind::Command && may && !may(target.command))
        return; // the list says so
    GoAway(true);
    emit chosen(target);
}

void CGoLine::GoAway(bool giveBack)
{
    if (isHidden())
        return;
    const QScopedValueRollback closing(closing_, true);
    const QPointer<QWidget> back = giveBack ? before_ : nullptr;
    before_ = nullptr;
    if (back != nullptr)
        back->setFocus(Qt::PopupFocusReason); // ahead of hiding, which would choose another widget
    hide();
}

void CGoLine::OnFocusChanged(QWidget* now)
{
    if (closing_ || isHidden() || now == nullptr || now->window() != window() || now == this || isAncestorOf(now))
        return;
    const bool givenBack = now == before_; // by a click
    GoAway(false);
    if (!givenBack)
        emit left();
}

bool CGoLine::OnKey(int key)
{
    switch (key) {
    case Qt::Key_Escape:
        GoAway(true);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        Choose();
        return true;
    case Qt::Key_Up:
        Step(-1);
        return true;
    case Qt::Key_Down:
        Step(1);
        return true;
    case Qt::Key_PageUp:
        Step(-kPage);
        return true;
    case Qt::Key_PageDown:
        Step(kPage);
        return true;
    case Qt::Key_Tab:
    case Qt::Key_Backtab:
        Step(key == Qt::Key_Tab ? 1 : -1);
        return true;
    default:
        return false;
    }
}

bool CGoLine::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == parentWidget() && event->type() == QEvent::Resize && isVisible())
        Place();
    if (watched == line_ && event->type() == QEvent::KeyPress) {
        const auto* key = static_cast<QKeyEvent*>(event);
        const bool plain = !(key->modifiers() & ~(Qt::KeypadModifier | Qt::ShiftModifier));
        if (plain && OnKey(key->key()))
            return true;
    }
    return QFrame::eventFilter(watched, event);
}

} // namespace sbd
