#include "frame/import_dialog.h"

#include "document/section_doc.h"
#include "frame/dialog_parts.h"

#include <QCheckBox>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QHeaderView>
#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QTableWidget>
#include <QTimer>
#include <QVBoxLayout>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr QSize kSize{860, 560}; // px
constexpr int kShownRows = 30;
constexpr int kShownColumns = 60; // no block has as many
constexpr int kColumnWidth = 130;
constexpr int kDelay = 150; // ms, so that the lists answer at once

struct CodeName {
    TextCode code;
    QStringView text;
};
constexpr CodeName kCodes[] = {{TextCode::Cp932, u"シフトJIS (CP932)"}, {TextCode::Utf8, u"UTF-8"}};

struct SeparatorName {
    TableSeparator separator;
    QStringView text;
};
constexpr SeparatorName kSeparators[] = {{TableSeparator::Comma, u"コンマ ( , )"},
                                         {TableSeparator::Tab, u"タブ"},
                                         {TableSeparator::Semicolon, u"セミコロン ( ; )"},
                                         {TableSeparator::Blanks, u"空白"}};

QString ShownText(const std::string& cell)
{
    if (cell.find(kKeepCell) != std::string::npos)
        return u"（取り込めない値）"_s;
    return toQString(cell).simplified();
}

} // namespace

CImportDialog::CImportDialog(const ImportView& view, QWidget* parent)
    : QDialog(parent)
    , view_(view)
    , codes_(new QComboBox)
    , separators_(new QComboBox)
    , heads_(new QCheckBox(tr("1 行目は見出し（取り込まない）(&H)")))
    , append_(new QRadioButton(tr("末尾 %1 行目から追加する(&A)").arg(view.appendRow)))
    , replace_(new QRadioButton(tr("カーソルのある %1 行目から上書きする(&R)").arg(view.focusRow)))
    , rows_(new QTableWidget)
    , told_(PlainText(QString()))
    , soon_(new QTimer(this))
{
    setObjectName(u"import"_s);
    setWindowTitle(tr("表の取り込み: %1").arg(view.block));
    resize(kSize);
    for (const CodeName& code : kCodes)
        codes_->addItem(code.text.toString(), int(code.code));
    codes_->setCurrentIndex(codes_->findData(int(view.code)));
    codes_->setEnabled(view.otherCode);
    for (const SeparatorName& separator : kSeparators)
        separators_->addItem(separator.text.toString(), int(separator.separator));
    separators_->setCurrentIndex(separators_->findData(int(GuessSeparator(view.text))));
    append_->setChecked(true);

    QLabel* file = PlainText(tr("ファイル: %1").arg(view.file));
    auto* code = new QLabel(tr("文字コード(&C):"));
    code->setBuddy(codes_);
    auto* separator = new QLabel(tr("区切り(&S):"));
    separator->setBuddy(separators_);
    auto* form = new QHBoxLayout;
    for (QWidget* widget : std::initializer_list<QWidget*>{code, codes_, separator, separators_, heads_})
        form->addWidget(widget);
    form->addStretch(1);
    auto* place = new QHBoxLayout;
    place->addWidget(append_);
    place->addWidget(replace_);
    place->addStretch(1);

    rows_->setAccessibleName(tr("ファイルの最初の行。1 行目は取り込み先の列"));
    rows_->setEditTriggers(QAbstractItemView::NoEditTriggers);
    rows_->setSelectionMode(QAbstractItemView::NoSelection);
    rows_->setTabKeyNavigation(false);
    rows_->setWordWrap(false);
    told_->setAccessibleName(tr("取り込みの結果"));

    const DialogButtons buttons = MakeDialogButtons(*this, {tr("取り込む(&I)")});
    import_ = buttons.accept.constFirst();

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(file);
    layout->addLayout(form);
    layout->addLayout(place);
    layout->addWidget(rows_, 1);
    layout->addWidget(told_);
    layout->addWidget(buttons.box);

    soon_->setSingleShot(true);
    soon_->setInterval(kDelay);
    connect(soon_, &QTimer::timeout, this, &CImportDialog::ShowOutcome);
    connect(codes_, &QComboBox::currentIndexChanged, this, &CImportDialog::Read);
    connect(separators_, &QComboBox::currentIndexChanged, this, &CImportDialog::Read);
    connect(heads_, &QCheckBox::toggled, this, [this] { soon_->start(); });
    connect(append_, &QRadioButton::toggled, this, [this] { soon_->start(); });
    Read();
    ShowOutcome();
    import_->setFocus();
}

/// Reads the file anew, with columns as it proposes them.
void CImportDialog::Read()
{
    table_ = ReadTextTable(view_.text, TextCode(codes_->currentData().toInt()),
                           TableSeparator(separators_->currentData().toInt()));
    ShowTable();
    soon_->start();
}

void CImportDialog::ShowTable()
{
    const ImportPlan plan = view_.propose(table_);
    const int columns = std::min(static_cast<int>(table_.columns), kShownColumns);
    const int rows = std::min(static_cast<int>(table_.rows.size()), kShownRows);
    heads_->setChecked(plan.hasHeads);
    rows_->clear();
    rows_->setRowCount(rows + 1);
    rows_->setColumnCount(columns);
    QStringList lines{tr("取り込み先")};
    for (int row = 0; row < rows; ++row) {
        lines << QString::number(table_.lines[std::size_t(row)]);
        for (int column = 0; column < columns; ++column) {
            const std::vector<std::string>& cells = table_.rows[std::size_t(row)];
            if (std::size_t(column) < cells.size())
                rows_->setItem(row + 1, column, new QTableWidgetItem(ShownText(cells[std::size_t(column)])));
        }
    }
    rows_->setVerticalHeaderLabels(lines);
    for (int column = 0; column < columns; ++column) {
        auto* target = new QComboBox;
        target->addItem(tr("（取り込まない）"));
        for (int i = 0; i < view_.heads.size(); ++i)
            target->addItem(u"%1 %2"_s.arg(i + 1).arg(view_.heads[i]));
        target->setCurrentIndex(plan.targets[std::size_t(column)]);
        target->setAccessibleName(tr("ファイルの %1 列目の取り込み先").arg(column + 1));
        connect(target, &QComboBox::currentIndexChanged, this, [this] { soon_->start(); });
        rows_->setCellWidget(0, column, target);
        rows_->setColumnWidth(column, kColumnWidth);
    }
}

ImportPlan CImportDialog::Plan() const
{
    ImportPlan plan;
    for (int column = 0; column < rows_->columnCount(); ++column)
        plan.targets.push_back(static_cast<QComboBox*>(rows_->cellWidget(0, column))->currentIndex());
    plan.hasHeads = heads_->isChecked();
    plan.row = append_->isChecked() ? view_.appendRow : view_.focusRow;
    return plan;
}

std::vector<CellEntry> CImportDialog::Cells()
{
    return ImportedCells(table_, Plan());
}

QString CImportDialog::OutcomeText(const PasteOutcome& outcome, std::size_t cells) const
{
    const auto place = [](CellPlace cell) { return tr("%1 行 %2 列").arg(cell.row).arg(cell.column); };
    QStringList lines;
    const std::size_t dataRows = table_.rows.size() - (heads_->isChecked() && !table_.rows.empty() ? 1 : 0);
    lines << tr("%1 行、%2 個の値を読みました。変わるセルは %3 個です。").arg(dataRows).arg(cells).arg(outcome.put);
    const std::vector<int> targets = Plan().targets;
    if (const auto left = std::ranges::count(targets, 0); left > 0)
        lines << tr("%1 列は取り込みません。").arg(left);
    if (outcome.notNumbers > 0)
        lines << tr("数値だけが入るセル %1 個（最初は %2）には「%3」などが入らないため、元のままです。")
                     .arg(outcome.notNumbers)
                     .arg(place(outcome.firstNotNumber), toQString(outcome.notNumber));
    if (outcome.locked > 0)
        lines << tr("入力できないセル %1 個（最初は %2）は元のままです。")
                     .arg(outcome.locked)
                     .arg(place(outcome.firstLocked));
    if (outcome.beyond > 0)
        lines << tr("表の端からはみ出す %1 個の値は入りません。").arg(outcome.beyond);
    // Of the whole file; one in a column that is left out would not go in anyway.
    const auto kept = static_cast<std::size_t>(std::max(outcome.kept, 0));
    if (const std::size_t strange = std::min<std::size_t>(table_.strange, kept); strange > 0) {
        QStringList refused;
        for (const std::string& character : table_.refused)
            refused << QString::fromStdString(character);
        lines << tr("シフトJIS にない文字（%1）のある %2 個の値は入りません。")
                     .arg(refused.mid(0, 5).join(u' '))
                     .arg(strange);
    }
    if (const std::size_t tooLong = std::min<std::size_t>(table_.tooLong, kept); tooLong > 0)
        lines << tr("%1 バイトより長い %2 個の値は入りません。").arg(kMostBytesOfCell).arg(tooLong);
    if (table_.openQuotes > 0)
        lines << tr("閉じていない引用符が %1 個あります。文字として読みました。").arg(table_.openQuotes);
    if (table_.blankLines > 0)
        lines << tr("空の %1 行は読み飛ばします。").arg(table_.blankLines);
    if (!table_.isWhole)
        lines << tr("大きすぎる表です。%1 行・%2 列より先は読みません。").arg(kMostTableRows).arg(kMostTableColumns);
    return lines.join(u'\n');
}

void CImportDialog::ShowOutcome()
{
    soon_->stop();
    const std::vector<CellEntry> cells = Cells();
    const PasteOutcome outcome = view_.tryOut(cells);
    told_->setText(OutcomeText(outcome, cells.size()));
    import_->setEnabled(outcome.put > 0);
}

} // namespace sbd
