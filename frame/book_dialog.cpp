#include "frame/book_dialog.h"

#include "frame/dialog_parts.h"
#include "frame/difference_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize{520, 560}; // px

} // namespace

QString KeptInputName(const KeptInput& input)
{
    return input.time.toString(u"yyyy/MM/dd HH:mm"_s) + u"  "_s + KeptKindText(input.kind);
}

CBookDialog::CBookDialog(const BookSource& source, QWidget* parent)
    : QDialog(parent)
    , filled_(new QRadioButton(u"入力済みのすべてのブロック (%1)(&F)"_s.arg(source.filled.size()), this))
    , chosen_(new QRadioButton(u"選んだブロック(&L)"_s, this))
    , changed_(new QRadioButton(u"次の入力から変わったブロック(&M)"_s, this))
    , blocks_(new QListWidget(this))
    , since_(new QComboBox(this))
    , sketches_(new QCheckBox(u"説明図を付ける (PDF)(&K)"_s, this))
    , landscape_(new QCheckBox(u"用紙を横にする (PDF)(&Y)"_s, this))
{
    setObjectName(u"book"_s);
    setWindowTitle(u"入力データの帳票"_s);
    resize(kSize);
    QLabel* intro =
        PlainText(u"「%1」の入力データを、表紙と目次を付けて書き出します。保存していない入力も含まれます。"_s.arg(
            source.project));
    filled_->setChecked(true);
    blocks_->setAccessibleName(u"ブロック"_s);
    for (const int block : source.filled) {
        auto* item = new QListWidgetItem(BlockName(block), blocks_);
        item->setData(Qt::UserRole, block);
        item->setFlags(item->flags() | Qt::ItemIsUserCheckable);
        item->setCheckState(Qt::Unchecked);
    }
    since_->setAccessibleName(u"比べる入力"_s);
    if (source.hasFile)
        since_->addItem(u"保存してあるファイル"_s, qsizetype(-1));
    for (qsizetype i = 0; i < source.kept.size(); ++i)
        since_->addItem(KeptInputName(source.kept[i]), i);
    changed_->setEnabled(since_->count() > 0);

    const DialogButtons buttons =
        MakeDialogButtons(*this, {u"PDF に書き出す(&P)..."_s, u"表計算ファイルに書き出す(&X)..."_s});
    writes_ = buttons.accept;
    connect(writes_[0], &QPushButton::clicked, this, [this] { Finish(BookChoice::Kind::Pdf); });
    connect(writes_[1], &QPushButton::clicked, this, [this] { Finish(BookChoice::Kind::Sheets); });
    for (QRadioButton* button : {filled_, chosen_, changed_})
        connect(button, &QRadioButton::toggled, this, &CBookDialog::UpdateState);
    connect(blocks_, &QListWidget::itemChanged, this, &CBookDialog::UpdateState);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addWidget(filled_);
    layout->addWidget(chosen_);
    layout->addWidget(blocks_, 1);
    layout->addWidget(changed_);
    layout->addWidget(since_);
    layout->addWidget(sketches_);
    layout->addWidget(landscape_);
    layout->addWidget(buttons.box);
    UpdateState();
}

void CBookDialog::UpdateState()
{
    blocks_->setEnabled(chosen_->isChecked());
    since_->setEnabled(changed_->isChecked());
    const bool empty =
        (chosen_->isChecked() && Choice().blocks.empty()) || (filled_->isChecked() && blocks_->count() == 0);
    for (QPushButton* button : writes_)
        button->setEnabled(!empty);
}

void CBookDialog::Finish(BookChoice::Kind kind)
{
    kind_ = kind;
    accept();
}

BookChoice CBookDialog::Choice() const
{
    BookChoice choice;
    choice.kind = kind_;
    choice.scope = chosen_->isChecked()    ? BookChoice::Scope::Chosen
                   : changed_->isChecked() ? BookChoice::Scope::Changed
                                           : BookChoice::Scope::Filled;
    for (int i = 0; i < blocks_->count(); ++i)
        if (blocks_->item(i)->checkState() == Qt::Checked)
            choice.blocks.push_back(blocks_->item(i)->data(Qt::UserRole).toInt());
    choice.since = since_->currentData().toLongLong();
    choice.sketches = sketches_->isChecked();
    choice.landscape = landscape_->isChecked();
    return choice;
}

} // namespace sbd
