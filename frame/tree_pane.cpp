#include "frame/tree_pane.h"

#include "frame/left_view.h"
#include "frame/tail_delegate.h"

#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

namespace sbd {

CTreePane::CTreePane(CKELDSectionDoc* doc, QWidget* parent)
    : QWidget(parent)
    , line_(new QLineEdit)
    , tree_(new CLeftView(doc))
    , nothing_(new QLabel)
{
    constexpr int margin = 2; // px
    tree_->setParent(this);   // ahead of the line: the keyboard comes to the tree first
    line_->setPlaceholderText(tr("絞り込み (番号・題名・区分)"));
    line_->setClearButtonEnabled(true);
    ShowHint(*line_);
    line_->setAccessibleName(tr("ブロックの絞り込み"));
    line_->setToolTip(tr("番号、題名、区分の名前で絞り込みます。Esc で元に戻します。"));
    line_->installEventFilter(this);
    nothing_->setText(tr("該当するブロックはありません。"));
    nothing_->setWordWrap(true);
    nothing_->setMargin(2 * margin);
    nothing_->hide();
    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    auto* top = new QVBoxLayout;
    top->setContentsMargins(margin, margin, margin, margin);
    top->addWidget(line_);
    layout->addLayout(top);
    layout->addWidget(nothing_);
    layout->addWidget(tree_, 1);
    setFocusProxy(tree_);
    connect(line_, &QLineEdit::textChanged, this, &CTreePane::Filter);
    connect(tree_, &CLeftView::filtered, this, [this](int left) { nothing_->setVisible(left == 0); });
}

void CTreePane::Filter()
{
    tree_->SetFilter(line_->text());
}

void CTreePane::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange)
        ShowHint(*line_);
}

bool CTreePane::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != line_ || event->type() != QEvent::KeyPress)
        return QWidget::eventFilter(watched, event);
    switch (static_cast<QKeyEvent*>(event)->key()) {
    case Qt::Key_Escape:
        line_->clear();
        tree_->setFocus(Qt::OtherFocusReason);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        tree_->ChooseFirst();
        return true;
    case Qt::Key_Down:
        tree_->setFocus(Qt::OtherFocusReason);
        return true;
    default:
        return QWidget::eventFilter(watched, event);
    }
}

} // namespace sbd
