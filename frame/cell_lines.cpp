#include "frame/cell_lines.h"

#include "document/section_doc.h"
#include "panelmodel/panel_model.h"
#include "project/option_rows.h"
#include "project/text.h"

#include <QCoreApplication>
#include <QHeaderView>
#include <QTableView>
#include <QToolButton>

namespace sbd {

using namespace Qt::StringLiterals;

void SetUpLines(QTableView& lines, QAbstractItemModel& model, std::span<const LineColumn> columns, const QString& name)
{
    lines.setModel(&model);
    lines.setAccessibleName(name);
    lines.setSelectionBehavior(QAbstractItemView::SelectRows);
    lines.setSelectionMode(QAbstractItemView::SingleSelection);
    lines.setEditTriggers(QAbstractItemView::NoEditTriggers);
    lines.setTabKeyNavigation(false);
    lines.setWordWrap(false);
    lines.setAlternatingRowColors(true);
    lines.setFrameShape(QFrame::NoFrame);
    lines.verticalHeader()->hide();
    lines.verticalHeader()->setDefaultSectionSize(lines.fontMetrics().height() + 6);
    lines.horizontalHeader()->setStretchLastSection(true);
    lines.horizontalHeader()->setHighlightSections(false);
    lines.horizontalHeader()->setDefaultAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    for (int column = 0; column < static_cast<int>(columns.size()); ++column)
        lines.setColumnWidth(column, columns[static_cast<std::size_t>(column)].width);
}

QToolButton* MakeCloseButton(const QString& toolTip)
{
    auto* close = new QToolButton;
    close->setAutoRaise(true);
    close->setText(u"×"_s);
    close->setToolTip(toolTip);
    close->setAccessibleName(u"閉じる"_s);
    return close;
}

QString TextOnOneLine(const std::string& text)
{
    constexpr qsizetype longest = 500;
    QString line = toQString(text);
    if (line.size() > longest)
        line = line.first(longest) + u'…';
    for (QChar& c : line)
        if (c < u' ')
            c = u' ';
    return line.isEmpty() ? u"（空欄）"_s : line;
}

QString RowNumberAndLabel(int block, int row)
{
    const QString number = QString::number(row);
    const OptionBlock* options = FindOptionBlock(block);
    const std::size_t index = static_cast<std::size_t>(row) - 1;
    return options == nullptr || index >= options->rows.size()
               ? number
               : number + u' ' + toQString(options->rows[index].panelLabel).simplified();
}

QString CColumnHeads::At(const CSbdData& data, int block, int column)
{
    if (const auto known = heads_.find({block, column}); known != heads_.end())
        return known->second;
    const std::unique_ptr<CPanelModel> panel = MakePanelModel(data, block);
    for (int i = 1; panel != nullptr && i < panel->ColumnCount(); ++i)
        heads_[{block, i}] = u"%1 %2"_s.arg(i).arg(toQString(panel->Head(i)).simplified()).trimmed();
    return heads_.try_emplace({block, column}, QString::number(column)).first->second;
}

} // namespace sbd
