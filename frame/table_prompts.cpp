#include "frame/table_prompts.h"

#include "frame/dialog_parts.h"
#include "frame/import_dialog.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace sbd {

using namespace Qt::StringLiterals;

std::optional<std::vector<CellEntry>> ChooseImport(QWidget* parent, const ImportView& view)
{
    CImportDialog dialog(view, parent);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return dialog.Cells();
}

std::optional<ExportPlan> ChooseExport(QWidget* parent, const QString& block)
{
    QDialog dialog(parent);
    dialog.setObjectName(u"export"_s);
    dialog.setWindowTitle(u"表の書き出し"_s);
    auto* name = new QLabel(block);
    name->setTextFormat(Qt::PlainText); // in one line: the dialog is as wide as it
    auto* heads = new QCheckBox(u"1 行目に見出しを書く(&H)"_s);
    auto* fixed = new QCheckBox(u"自動計算などの設定の行も書く(&F)"_s);
    auto* codes = new QComboBox;
    auto* code = new QLabel(u"文字コード(&C):"_s);
    code->setBuddy(codes);
    heads->setChecked(true);
    codes->addItem(u"シフトJIS (CP932)"_s);
    codes->addItem(u"UTF-8 (BOM 付き)"_s);
    auto* line = new QHBoxLayout;
    line->addWidget(code);
    line->addWidget(codes, 1);
    auto* layout = new QVBoxLayout(&dialog);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addWidget(name);
    layout->addWidget(heads);
    layout->addWidget(fixed);
    layout->addLayout(line);
    layout->addWidget(MakeDialogButtons(dialog, {u"書き出す(&W)..."_s}).box);
    if (dialog.exec() != QDialog::Accepted)
        return std::nullopt;
    return ExportPlan{heads->isChecked(), fixed->isChecked(),
                      codes->currentIndex() == 0 ? TextCode::Cp932 : TextCode::Utf8};
}

TablePrompts SilentTablePrompts()
{
    return {[](QWidget*, const QString&) { return QString(); }, [](QWidget*, const QString&) { return QString(); },
            [](QWidget*, const ImportView&) { return std::optional<std::vector<CellEntry>>(); },
            [](QWidget*, const QString&) { return std::optional<ExportPlan>(); }};
}

} // namespace sbd
