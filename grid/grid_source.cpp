#include "grid/grid_source.h"

#include <QCoreApplication>

namespace sbd {

QString CGridSource::Description(int row, int column) const
{
    QStringList parts{HeadOnOneLine(Head(column, 0)),
                      QCoreApplication::translate("CGridCtrl", "%1 行目").arg(RowNumber(row))};
    if (!IsEditable(row, column))
        parts << QCoreApplication::translate("CGridCtrl", "入力不可");
    else if (HasWords(row, column))
        parts << QCoreApplication::translate("CGridCtrl", "一覧あり");
    return parts.join(u'、');
}

QString CGridSource::WhyLocked(int, int) const
{
    return QCoreApplication::translate("CGridCtrl", "このセルには入力できません。");
}

QString CGridSource::Folded(int, int, const QString& text) const
{
    return text;
}

std::optional<GridRefusal> CGridSource::WhyNot(int, int, const QString&) const
{
    return std::nullopt;
}

GridPaste CGridSource::PasteChecked(int row, int column, const QString& text)
{
    GridPaste paste;
    if (const std::optional<QString> character = RefusedCharacter(text))
        paste.refused << *character;
    else
        paste.effect = Paste(row, column, text, &paste.filled);
    return paste;
}

GridPaste CGridSource::PasteOver(const GridRange& range, const QString& text)
{
    return PasteChecked(range.top, range.left, text);
}

GridPaste CGridSource::Fill(const GridFill&)
{
    return {};
}

QString HeadOnOneLine(const QString& head)
{
    return head.simplified();
}

} // namespace sbd
