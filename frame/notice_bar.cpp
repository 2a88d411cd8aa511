#include "frame/notice_bar.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <QVBoxLayout>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kMargin = 4; // px

/// The colours of a tool tip, which every theme keeps apart from those of the cells.
void TakeNoticeColours(QWidget& line, QLabel& text, bool weighs)
{
    line.setAutoFillBackground(true);
    line.setBackgroundRole(QPalette::ToolTipBase);
    text.setForegroundRole(QPalette::ToolTipText);
    if (!weighs)
        return;
    QFont font = text.font();
    font.setBold(true);
    text.setFont(font);
}

} // namespace

CNoticeBar::CNoticeBar(QWidget* parent) : QWidget(parent), lines_(new QVBoxLayout(this))
{
    lines_->setContentsMargins(0, 0, 0, 0);
    lines_->setSpacing(1);
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Maximum);
    hide();
}

void CNoticeBar::Show(const Notice& notice)
{
    Close(notice.key);
    QWidget* line = NewLine(notice);
    lines_->insertWidget(0, line);
    line->show();
    show();
}

void CNoticeBar::Close(const QString& key)
{
    QWidget* line = LineOf(key);
    if (line == nullptr)
        return;
    lines_->removeWidget(line); // the line may be what calls
    line->hide();
    line->setObjectName(QString());
    line->deleteLater();
    setVisible(lines_->count() > 0);
}

bool CNoticeBar::Shows(const QString& key) const
{
    return LineOf(key) != nullptr;
}

QString CNoticeBar::TextOf(const QString& key) const
{
    const QWidget* line = LineOf(key);
    return line == nullptr ? QString() : line->findChild<QLabel*>()->text();
}

QStringList CNoticeBar::Texts() const
{
    QStringList texts;
    for (int i = 0; i < lines_->count(); ++i)
        texts << lines_->itemAt(i)->widget()->findChild<QLabel*>()->text();
    return texts;
}

QWidget* CNoticeBar::LineOf(const QString& key) const
{
    for (int i = 0; i < lines_->count(); ++i) {
        if (QWidget* line = lines_->itemAt(i)->widget(); line->objectName() == key)
            return line;
    }
    return nullptr;
}

QWidget* CNoticeBar::NewLine(const Notice& notice)
{
    auto* line = new QWidget(this);
    line->setObjectName(notice.key);
    auto* layout = new QHBoxLayout(line);
    layout->setContentsMargins(2 * kMargin, kMargin, kMargin, kMargin);
    auto* text = new QLabel(notice.text);
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    TakeNoticeColours(*line, *text, notice.weighs);
    layout->addWidget(text, 1);
    for (const NoticeAction& action : notice.actions) {
        auto* button = new QPushButton(action.text);
        button->setAutoDefault(false);
        connect(button, &QPushButton::clicked, this, [act = action.act] { act(); });
        layout->addWidget(button);
    }
    auto* close = new QToolButton;
    close->setAutoRaise(true);
    close->setText(u"×"_s);
    close->setToolTip(tr("この知らせを閉じます"));
    close->setAccessibleName(tr("閉じる"));
    close->setFocusPolicy(Qt::TabFocus);
    connect(close, &QToolButton::clicked, this, [this, key = notice.key, act = notice.onClose] {
        Close(key);
        if (act)
            act();
        emit closed(key);
    });
    layout->addWidget(close);
    return line;
}

} // namespace sbd
