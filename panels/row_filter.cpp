#include "panels/row_filter.h"

#include "commands/commands.h"
#include "panels/command_text.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace sbd {

CRowFilter::CRowFilter(const QString& column, QWidget* parent)
    : QWidget(parent)
    , line_(new QLineEdit(this))
    , told_(new QLabel(this))
{
    constexpr int lineWidth = 160;
    QLabel* head = new QLabel(tr("「%1」に次の文字がある行だけを表示:").arg(column), this);
    QPushButton* end = new QPushButton(tr("すべて表示"), this);
    head->setTextFormat(Qt::PlainText);
    head->setBuddy(line_);
    line_->setFixedWidth(lineWidth);
    line_->setAccessibleName(head->text());
    told_->setTextFormat(Qt::PlainText);
    told_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred); // a long text does not widen the panel
    end->setAutoDefault(false);
    QHBoxLayout* layout = new QHBoxLayout(this);
    layout->setContentsMargins(4, 2, 4, 2);
    layout->addWidget(head);
    layout->addWidget(line_);
    layout->addWidget(told_, 1);
    layout->addWidget(end);
    connect(line_, &QLineEdit::textChanged, this, &CRowFilter::textChanged);
    connect(line_, &QLineEdit::returnPressed, this, &CRowFilter::entered);
    connect(end, &QPushButton::clicked, this, &CRowFilter::ended);
}

QString CRowFilter::Text() const
{
    return line_->text();
}

void CRowFilter::GoToLine(const QString& text)
{
    line_->setText(text);
    line_->selectAll();
    line_->setFocus();
}

void CRowFilter::Tell(int rows, int out)
{
    told_->setText(Text().isEmpty()
                       ? tr("文字を入力してください。空のあいだは、すべての行を表示します。")
                       : tr("%1 行を表示中。見えない %2 行は、どの操作でも変わりません。").arg(rows).arg(out));
    told_->setToolTip(told_->text());
}

QString CRowFilter::Told() const
{
    return told_->text();
}

void CRowFilter::keyPressEvent(QKeyEvent* event)
{
    const QKeySequence key(event->keyCombination());
    if (event->key() == Qt::Key_Escape || KeysOf(RowOf(Command::FilterRows)).contains(key))
        emit ended();
    else
        QWidget::keyPressEvent(event);
}

} // namespace sbd
