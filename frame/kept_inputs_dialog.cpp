#include "frame/kept_inputs_dialog.h"

#include "frame/dialog_parts.h"

#include <QDialogButtonBox>
#include <QDir>
#include <QFileInfo>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QPushButton>
#include <QTreeWidget>
#include <QVBoxLayout>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize{760, 420}; // px

QString SizeText(const QString& file)
{
    return QLocale(QLocale::Japanese).formattedDataSize(QFileInfo(file).size());
}

} // namespace

CKeptInputsDialog::CKeptInputsDialog(KeptInputsView view, QWidget* parent)
    : QDialog(parent)
    , view_(std::move(view))
    , list_(new QTreeWidget(this))
{
    setObjectName(u"keptInputs"_s);
    setWindowTitle(u"解析前の入力"_s);
    resize(kSize);
    const KeptLimits limits;
    QLabel* intro = PlainText(u"「%1」を解析などの前に保管した入力です。プロジェクトごとに新しい順に %2 個まで、"
                              u"全体で %3 MB まで残ります。\n保管場所: %4"_s.arg(view_.project)
                                  .arg(limits.inputs)
                                  .arg(limits.bytes / (1024 * 1024))
                                  .arg(QDir::toNativeSeparators(KeptFolder())));
    intro->setTextInteractionFlags(Qt::TextSelectableByMouse);
    list_->setColumnCount(4);
    list_->setHeaderLabels({u"時刻"_s, u"実行の種類"_s, u"終わり方"_s, u"大きさ"_s});
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    for (const KeptInput& input : view_.inputs) {
        const bool hasRun =
            input.kind != KeptKind::Replaced && input.kind != KeptKind::Overwritten && input.kind != KeptKind::Other;
        auto* item =
            new QTreeWidgetItem(list_, {input.time.toString(u"yyyy/MM/dd HH:mm:ss"_s), KeptKindText(input.kind),
                                        hasRun ? RunEndText(input.end) : QString(), SizeText(input.file)});
        for (int column = 0; column < list_->columnCount(); ++column)
            item->setToolTip(column, QDir::toNativeSeparators(input.file));
    }
    for (int column = 0; column < list_->columnCount(); ++column)
        list_->resizeColumnToContents(column);

    auto* buttons = new QDialogButtonBox(this);
    QPushButton* compare = buttons->addButton(u"違いを見る(&C)..."_s, QDialogButtonBox::ActionRole);
    QPushButton* open = buttons->addButton(u"コピーとして開く(&O)"_s, QDialogButtonBox::ActionRole);
    QPushButton* restore = buttons->addButton(u"すべて戻す(&A)"_s, QDialogButtonBox::ActionRole);
    QPushButton* close = buttons->addButton(u"閉じる"_s, QDialogButtonBox::RejectRole);
    restore->setToolTip(u"画面の内容をこの入力に置き換えます。「元に戻す」で取り消せます。"_s);
    connect(compare, &QPushButton::clicked, this, [this] { Do(view_.compare); });
    connect(open, &QPushButton::clicked, this, [this] { Do(view_.openCopy); });
    connect(restore, &QPushButton::clicked, this, [this] { Do(view_.restore); });
    connect(close, &QPushButton::clicked, this, &QDialog::reject);
    connect(list_, &QTreeWidget::itemActivated, this, [this] { Do(view_.compare); });
    for (QPushButton* button : {compare, open, restore})
        button->setEnabled(!view_.inputs.isEmpty());
    (view_.inputs.isEmpty() ? close : compare)->setDefault(true);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addWidget(list_, 1);
    layout->addWidget(buttons);
    list_->setCurrentItem(list_->topLevelItem(0));
    list_->setFocus();
}

void CKeptInputsDialog::Do(const std::function<void(const KeptInput& input)>& act)
{
    const int row = list_->indexOfTopLevelItem(list_->currentItem());
    if (row < 0 || !act)
        return;
    const KeptInput input = view_.inputs[row];
    const auto chosen = act; // the dialog may go with its caller
    accept();
    chosen(input);
}

} // namespace sbd
