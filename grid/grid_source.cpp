#include "grid/grid_source.h"

#include <QCoreApplication>

namespace sbd {

QString CGridSource::Description(int row, int column) const
{
    const auto tr = [](const char* text) { return QCoreApplication::translate("CGridCtrl", text); };
    QStringList parts{HeadOnOneLine(Head(column, 0)), tr("%1 行目").arg(RowNumber(row))};
    if (const QString title = column > 1 ? RowTitle(row).simplified() : QString(); !title.isEmpty())
        parts << title;
    if (const QString unit = Unit(row, column); !unit.isEmpty())
        parts << tr("単位 %1").arg(unit);
    if (const QString color = ColorWord(row, column); !color.isEmpty())
        parts << color;
    if (IsLocked(row, column))
        parts << tr("固定");
    if (!IsEditable(row, column))
        parts << tr("入力不可");
    else if (HasWords(row, column))
        parts << tr("一覧あり");
    return parts.join(u'、');
}

QString CGridSource::ColorWord(int row, int column) const
{
    const QColor color = TextColor(row, column);
    if (!color.isValid() || Text(row, column).isEmpty())
        return {};
    if (color.rgb() == QColor(Qt::magenta).rgb())
        return QCoreApplication::translate("CGridCtrl", "ピンク色");
    return color.rgb() == QColor(Qt::red).rgb() ? QCoreApplication::translate("CGridCtrl", "赤色") : QString();
}

QString CGridSource::RowTitle(int) const
{
    return {};
}

QString CGridSource::Unit(int, int) const
{
    return {};
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
