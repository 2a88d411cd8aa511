// What the tests of the panel models share.
#pragma once

#include "panelmodel/panel_model.h"
#include "project/sbd_data.h"
#include "project/text.h"

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace sbd::test {

/// A row of texts in UTF-8.
using Utf8Row = std::vector<std::string_view>;

inline void AddRow(CSbdData& data, int block, const Utf8Row& cells)
{
    std::vector<std::string> bytes;
    for (const std::string_view cell : cells)
        bytes.push_back(Cp932(cell));
    data.Table(block)->AppendRow({bytes.begin(), bytes.end()});
}

/// Rows of a table block in UTF-8, each cut behind its last filled cell.
inline std::vector<std::vector<std::string>> Rows(const CSbdData& data, int block)
{
    std::vector<std::vector<std::string>> rows;
    const TableBlock& table = *data.Table(block);
    for (std::size_t row = 0; row < table.RowCount(); ++row) {
        std::vector<std::string> cells;
        for (const std::string_view cell : table.Row(row))
            cells.push_back(FromCp932(cell));
        while (!cells.empty() && cells.back().empty())
            cells.pop_back();
        rows.push_back(cells);
    }
    return rows;
}

inline std::string Text(const CPanelModel& panel, int row, int column)
{
    return FromCp932(panel.Text(row, column));
}

inline CellEffect Set(CPanelModel& panel, int row, int column, std::string_view utf8)
{
    return panel.SetCell(row, column, Cp932(utf8));
}

inline std::vector<std::string> Words(const CPanelModel& panel, int row, int column)
{
    std::vector<std::string> words;
    for (const std::string& word : panel.Words(row, column))
        words.push_back(FromCp932(word));
    return words;
}

inline std::string Option(const CSbdData& data, int block, int row)
{
    return FromCp932(data.Option(block, static_cast<std::size_t>(row) - 1));
}

inline void SetOption(CSbdData& data, int block, int row, std::string_view utf8)
{
    data.SetOption(block, static_cast<std::size_t>(row) - 1, Cp932(utf8));
}

/// A bridge of two girders and three cross beams.
inline void NameBridge(CSbdData& data)
{
    data.gridNames.girderNames = {"G1", "G2"};
    data.gridNames.swayNames = {"A1", "C1", "A2"};
}

} // namespace sbd::test
