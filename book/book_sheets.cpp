#include "book/book_sheets.h"

#include "project/sbd_data.h"
#include "project/text.h"
#include "sheets/workbook.h"

#include <algorithm>

namespace sbd {

namespace {

constexpr double kLeastWidth = 6; // characters
constexpr double kMostWidth = 40;
constexpr double kMostOptionWidth = 90; // an option's item is a sentence
constexpr std::size_t kOptionColumns = 3;

/// Characters of the usual font that the widest line of a text takes; a wide one counts two.
double Characters(std::string_view utf8)
{
    double most = 0;
    double line = 0;
    for (const char c : utf8) {
        const auto byte = static_cast<unsigned char>(c);
        if (c == '\n')
            line = 0;
        else if (byte < 0x80U)
            line += 1;
        else if (byte >= 0xE0U) // the first byte of three or four
            line += 2;
        else if (byte >= 0xC0U)
            line += 1;
        most = std::max(most, line);
    }
    return most;
}

void AddBlock(CWorkbook& book, const BookBlock& block)
{
    constexpr std::uint32_t headRow = 1;
    const auto columns = static_cast<std::uint16_t>(block.columns.size());
    CellLook bold;
    bold.bold = true;
    CellLook framed;
    framed.border = true;
    CellLook fixed = framed; // automatic rows and heads that stand in the table
    fixed.fill = 0xF4F4F4;
    book.SetText(0, 0, block.name + (block.tag.empty() ? std::string() : "  [" + block.tag + "]"), bold);
    const double most = columns == kOptionColumns ? kMostOptionWidth : kMostWidth;
    std::vector<double> widths(columns, kLeastWidth);
    for (std::uint16_t column = 0; column < columns; ++column) {
        book.SetText(headRow, column, block.columns[column].head, HeadLook());
        widths[column] = std::max(widths[column], Characters(block.columns[column].head));
    }
    for (std::size_t row = 0; row < block.rows.size(); ++row) {
        const std::vector<std::string>& cells = block.rows[row];
        const bool isFixed = row < block.headRows;
        for (std::size_t i = 0; i < std::min(cells.size(), widths.size()); ++i) {
            const auto column = static_cast<std::uint16_t>(i);
            CellLook look = isFixed ? fixed : framed;
            look.centred = column == 0; // the row's number
            const double characters = Characters(cells[column]);
            const std::uint32_t at = headRow + 1 + static_cast<std::uint32_t>(row);
            look.wrap = characters > most; // or it would end at the next cell
            book.SetValue(at, column, cells[column], look);
            if (look.wrap)
                book.SetLines(at, static_cast<std::size_t>(characters / (most - 2)) + 1);
            widths[column] = std::max(widths[column], characters);
        }
    }
    for (std::uint16_t column = 0; column < columns; ++column)
        book.SetWidth(column, std::min(widths[column] + 1, most));
    book.Freeze(headRow + 1, static_cast<std::uint16_t>(block.nameColumns));
    book.SetLandscape();
}

} // namespace

std::vector<std::pair<std::string, std::string>> CoverLines(const BookFacts& facts)
{
    std::vector<std::pair<std::string, std::string>> lines = {{"物件", facts.project},  {"TITLE", facts.title},
                                                              {"ファイル", facts.file}, {"ファイルの時刻", facts.saved},
                                                              {"作成日時", facts.made}, {"プログラム", facts.program},
                                                              {"内容", facts.blocks}};
    std::erase_if(lines, [](const auto& line) { return line.second.empty(); });
    return lines;
}

std::optional<FileResult> WriteBookSheets(const std::filesystem::path& path, const CSbdData& data,
                                          const std::vector<int>& blocks, const BookFacts& facts,
                                          const BookProgress& progress)
{
    const auto count = static_cast<int>(blocks.size());
    CWorkbook book("入力データ " + facts.project, facts.program);
    CellLook large;
    large.bold = true;
    const std::string cover = book.AddSheet("表紙");
    std::vector<std::string> names;
    for (int i = 0; i < count; ++i) {
        if (progress && !progress(i, count))
            return std::nullopt;
        const BookBlock block = MakeBookBlock(data, blocks[static_cast<std::size_t>(i)]);
        names.push_back(book.AddSheet(block.name));
        AddBlock(book, block);
    }
    book.ReturnToSheet(cover);
    std::uint32_t row = 0;
    book.SetText(row, 0, "入力データ", large);
    ++row;
    for (const auto& line : CoverLines(facts)) {
        ++row;
        book.SetText(row, 0, line.first);
        book.SetText(row, 1, line.second);
    }
    row += 2;
    book.SetText(row, 0, "目次", large);
    for (int i = 0; i < count; ++i) {
        ++row;
        const auto index = static_cast<std::size_t>(i);
        book.SetNumber(row, 0, blocks[index]);
        book.SetLink(row, 1, names[index], names[index]);
    }
    book.SetWidth(0, 16);
    book.SetWidth(1, 60);
    book.SetPortrait();
    if (progress && !progress(count, count))
        return std::nullopt;
    return book.Save(path);
}

} // namespace sbd
