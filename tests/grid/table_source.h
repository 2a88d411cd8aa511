// A grid source for tests: cells in memory.
#pragma once

#include "grid/grid_source.h"

#include <map>
#include <set>
#include <vector>

namespace sbd::test {

/// `rows` by `columns` cells. Texts that hold "♥" are refused.
class CTableSource : public CGridSource {
public:
    CTableSource(int rows, int columns)
        : columns_(columns)
        , cells(std::size_t(rows), std::vector<QString>(std::size_t(columns)))
    {
    }

    [[nodiscard]] int RowCount() const override { return int(cells.size()); }
    [[nodiscard]] int UsedRows() const override
    {
        for (int row = RowCount(); row > 0; --row)
            for (const QString& text : cells[std::size_t(row) - 1])
                if (!text.isEmpty())
                    return row;
        return 0;
    }
    [[nodiscard]] int ColumnCount() const override { return columns_; }
    [[nodiscard]] int ColumnWidth(int column) const override { return column == 0 ? 35 : 90; }
    [[nodiscard]] int HeadHeight() const override { return 30; }
    [[nodiscard]] QString Head(int column, int) const override { return QStringLiteral("H%1\n(mm)").arg(column); }
    [[nodiscard]] QColor HeadColor(int, int) const override { return {}; }
    [[nodiscard]] QString RowNumber(int row) const override { return QString::number(row); }
    [[nodiscard]] int RowLines(int row) const override
    {
        ++rowsMeasured;
        return row == tallRow ? 2 : 1;
    }
    [[nodiscard]] QString Text(int row, int column) const override
    {
        ++textsAsked;
        return cells[std::size_t(row) - 1][std::size_t(column) - 1];
    }
    [[nodiscard]] bool HasWords(int, int column) const override { return words.contains(column); }
    [[nodiscard]] QStringList Words(int, int column) const override
    {
        return words.contains(column) ? words.at(column) : QStringList();
    }
    [[nodiscard]] bool IsLocked(int row, int column) const override { return locked.contains({row, column}); }
    [[nodiscard]] bool IsEditable(int row, int column) const override { return !IsLocked(row, column); }
    [[nodiscard]] QColor TextColor(int, int) const override { return {}; }
    [[nodiscard]] bool IsRightAligned(int, int) const override { return false; }
    [[nodiscard]] std::optional<QString> RefusedCharacter(const QString& text) const override
    {
        return text.contains(u'♥') ? std::optional(QStringLiteral("♥")) : std::nullopt;
    }
    GridEffect SetText(int row, int column, const QString& text) override
    {
        cells[std::size_t(row) - 1][std::size_t(column) - 1] = text;
        return GridEffect::Cell;
    }
    GridEffect Clear(const GridRange& range) override
    {
        for (int row = range.top; row <= range.bottom; ++row)
            for (int column = range.left; column <= range.right; ++column)
                if (IsEditable(row, column))
                    SetText(row, column, {});
        return GridEffect::All;
    }
    [[nodiscard]] QString Copy(const GridRange& range) const override
    {
        QStringList lines;
        for (int row = range.top; row <= range.bottom; ++row) {
            QStringList texts;
            for (int column = range.left; column <= range.right; ++column)
                texts << Text(row, column);
            lines << texts.join(u'\t');
        }
        return lines.join(u'\n');
    }
    GridEffect Paste(int row, int column, const QString& text, GridRange* filled) override
    {
        const QStringList lines = text.split(u'\n');
        for (int i = 0; i < lines.size(); ++i) {
            const QStringList texts = lines[i].split(u'\t');
            if (row + i > RowCount())
                cells.emplace_back(std::size_t(columns_));
            for (int j = 0; j < texts.size(); ++j)
                SetText(row + i, column + j, texts[j]);
            *filled = {row, column, row + i, column + int(texts.size()) - 1};
        }
        return GridEffect::All;
    }
    std::optional<GridCell> Undo() override
    {
        ++undone;
        return std::nullopt;
    }

private:
    int columns_;

public:
    std::vector<std::vector<QString>> cells;
    std::map<int, QStringList> words;
    std::set<std::pair<int, int>> locked;
    int tallRow = 0;
    int undone = 0;
    mutable int textsAsked = 0;
    mutable int rowsMeasured = 0;
};

} // namespace sbd::test
