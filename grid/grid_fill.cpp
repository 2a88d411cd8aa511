// CGridCtrl: cells that are filled from others, and what goes to the clipboard.
#include "grid/clipboard_table.h"
#include "grid/grid_ctrl.h"
#include "grid/grid_model.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>

namespace sbd {

void CGridCtrl::Fill(GridFill::Kind kind)
{
    if (FocusCell().row == 0 || !Source()->CanFill())
        return;
    const QString nothing = kind == GridFill::Down
                                ? tr("この行の上に、コピーできる行がありません。何も変更していません。")
                                : tr("この列の左に、コピーできる列がありません。何も変更していません。");
    const GridRange range = SelectedRange();
    const bool single = kind == GridFill::Down ? range.top == range.bottom : range.left == range.right;
    ShowFilled(Source()->Fill({kind, range, {}, {}}), single ? nothing : QString());
}

bool CGridCtrl::CanFillWith(const QString& text) const
{
    const GridCell cell = FocusCell();
    return Source() != nullptr && Source()->CanFill() && cell.row > 0
           && !Refusal(cell, Source()->Folded(cell.row, cell.column, text));
}

void CGridCtrl::FillSelected(const QString& text)
{
    if (!CanFillWith(text))
        return;
    const GridCell cell = FocusCell();
    ShowFilled(Source()->Fill({GridFill::Text, SelectedRange(), {}, Source()->Folded(cell.row, cell.column, text)}),
               {});
}

void CGridCtrl::FillFrom(const GridRange& from, const GridRange& to, bool countOn)
{
    if (Source() == nullptr || !CommitEditor())
        return;
    const GridPaste fill = Source()->Fill({countOn ? GridFill::Count : GridFill::Repeat, to, from, {}});
    SelectRange(to);
    ShowFilled(fill, {});
}

/// Shows a fill; the status bar says what it did and what stayed, or `nothing`.
void CGridCtrl::ShowFilled(const GridPaste& fill, const QString& nothing)
{
    if (fill.effect != GridEffect::None) {
        Show(fill.effect, FocusCell());
        viewport()->update();
        emit cellsChanged();
        emit rangeChanged();
    }
    QString said = fill.put > 0 ? tr("%1 個のセルに入力しました。").arg(fill.put) : QString();
    if (fill.notNumbers > 0)
        said += tr("「%1」は数値として読めないため、数値だけが入る %2 個のセル（最初は %3）は元のままです。")
                    .arg(fill.notNumber)
                    .arg(fill.notNumbers)
                    .arg(CellName(fill.firstNotNumber));
    said += TellLeft(fill);
    if (said.isEmpty())
        said = nothing.isEmpty() ? tr("変更するセルはありませんでした。") : nothing;
    TellInStatusBar(said);
}

/// The texts that found no cell; empty if all did.
QString CGridCtrl::TellLeft(const GridPaste& paste) const
{
    QString left;
    if (paste.locked > 0)
        left += tr("入力できない %1 個のセル（最初は %2）は元のままです。")
                    .arg(paste.locked)
                    .arg(CellName(paste.firstLocked));
    if (paste.beyond > 0)
        left += tr("表の端からはみ出した %1 個の値は入力していません。").arg(paste.beyond);
    return left;
}

void CGridCtrl::CopyWithHeads()
{
    if (!IsEditing() && FocusCell().row > 0)
        PutOnClipboard(true);
}

/// As text for spreadsheets, and as a table for word processors.
void CGridCtrl::PutOnClipboard(bool heads)
{
    const GridRange range = SelectedRange();
    QString text = Source()->Copy(range);
    if (heads) {
        QStringList line;
        for (int column = range.left; column <= range.right; ++column)
            line << HeadOnOneLine(Source()->Head(column, range.top));
        text = line.join(u'\t') + u'\n' + text;
    }
    QApplication::clipboard()->setMimeData(ClipboardOf(text, heads).release());
}

} // namespace sbd
