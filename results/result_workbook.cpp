#include "results/result_workbook.h"

#include "project/text.h"
#include "results/result_csv.h"
#include "results/result_title.h"

#include <algorithm>
#include <cmath>

namespace sbd {

namespace {

constexpr double kPixelsPerCharacter = 7;
constexpr const char* kNumberFormat = "0.000"; // as the table shows it

CellLook ValueLook(std::size_t gridRow)
{
    CellLook look;
    look.numberFormat = kNumberFormat;
    look.bold = gridRow < kFirstValueRow; // extremes
    return look;
}

/// The number of a cell; nothing where it is a text or empty.
std::optional<double> NumberAt(const CResultTable& table, std::size_t gridRow, std::size_t gridColumn)
{
    if (gridColumn < kFirstValueColumn || table.HasWords(gridColumn))
        return std::nullopt;
    const std::size_t column = gridColumn - kFirstValueColumn;
    if (gridRow >= kFirstValueRow) {
        const double value = table.Value(gridRow - kFirstValueRow, column);
        return std::isfinite(value) ? std::optional(value) : std::nullopt;
    }
    const ColumnExtremes& extremes = table.Extremes(column);
    if (gridRow == kMaxRow)
        return extremes.maxRow ? std::optional(extremes.max) : std::nullopt;
    return extremes.minRow ? std::optional(extremes.min) : std::nullopt;
}

} // namespace

bool AddResultSheet(CWorkbook& book, const CResultTable& table, const ResultSelection& selection,
                    const ResultState& state, std::string_view name, const TableProgress& progress)
{
    book.AddSheet(FromCp932(name));
    std::uint32_t line = 0;
    CellLook bold;
    bold.bold = true;
    for (const std::string& text : TableHeadLines(table, selection, state)) {
        book.SetText(line, 0, FromCp932(text), line == 0 ? bold : CellLook());
        ++line;
    }
    const auto place = [](std::size_t gridColumn) { return static_cast<std::uint16_t>(gridColumn - kNameColumn); };
    for (std::size_t column = kNameColumn; column < table.GridColumnCount(); ++column) {
        book.SetText(line, place(column), FromCp932(HeadWithUnit(table, column)), HeadLook());
        book.SetWidth(place(column),
                      std::max(12.0, static_cast<double>(table.GridColumnWidth(column)) / kPixelsPerCharacter));
    }
    ++line;
    book.Freeze(line, 1);
    const std::size_t rows = FilledRows(table);
    for (std::size_t row = kMaxRow; row < rows; ++row, ++line) {
        if (!IsWanted(progress, row + 1, rows))
            return false;
        for (std::size_t column = kNameColumn; column < table.GridColumnCount(); ++column) {
            if (const std::optional<double> number = NumberAt(table, row, column))
                book.SetNumber(line, place(column), *number, ValueLook(row));
            else if (const std::string text = table.CellText(row, column); !Trim(text).empty())
                book.SetText(line, place(column), FromCp932(Trim(text)), row < kFirstValueRow ? bold : CellLook());
        }
    }
    book.SetLandscape();
    return true;
}

FileResult SaveResultWorkbook(const std::filesystem::path& path, const CResultTable& table,
                              const ResultSelection& selection, const ResultState& state, const TableProgress& progress)
{
    CWorkbook book(FromCp932(TableTitle(selection)), "KELD section");
    if (!AddResultSheet(book, table, selection, state, KindWord(selection.kind), progress))
        return {};
    const std::size_t rows = FilledRows(table);
    return book.Save(path, [&] { return IsWanted(progress, rows, rows); });
}

} // namespace sbd
