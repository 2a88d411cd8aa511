#include "frame/compare_dialog.h"

#include "frame/book_dialog.h"
#include "frame/dialog_parts.h"

#include <QDialogButtonBox>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize{520, 320}; // px

} // namespace

CCompareDialog::CCompareDialog(const CompareSource& source, QWidget* parent)
    : QDialog(parent)
    , list_(new QListWidget(this))
    , hasFile_(!source.file.isEmpty())
{
    setObjectName(u"compare"_s);
    setWindowTitle(u"物件の比較"_s);
    resize(kSize);
    QLabel* intro =
        PlainText(u"画面の「%1」を何と比べますか。比べるだけでは、何も変わりません。"_s.arg(source.project));
    list_->setAccessibleName(u"比べる相手"_s);
    list_->addItem(u"別の物件のファイル..."_s);
    if (hasFile_)
        list_->addItem(u"保存してあるファイル  "_s + source.file);
    for (const KeptInput& input : source.kept)
        list_->addItem(u"保管した入力  "_s + KeptInputName(input));
    list_->setCurrentRow(0);
    connect(list_, &QListWidget::itemDoubleClicked, this, &QDialog::accept);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(intro);
    layout->addWidget(list_, 1);
    layout->addWidget(MakeDialogButtons(*this, {u"比べる(&C)"_s}).box);
    list_->setFocus();
}

CompareChoice CCompareDialog::Choice() const
{
    const int row = std::max(list_->currentRow(), 0);
    if (row == 0)
        return {};
    if (hasFile_ && row == 1)
        return {CompareChoice::With::SavedFile, 0};
    return {CompareChoice::With::Kept, row - (hasFile_ ? 2 : 1)};
}

} // namespace sbd
