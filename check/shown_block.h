// What a panel shows of its block, as texts to compare.
#pragma once

#include <string>
#include <vector>

namespace sbd {

class CPanelModel;

/// The cells of one panel. Rows and columns count from 1; row 0 and column 0 are not used.
struct ShownBlock {
    int block = 0;
    int rows = 0;
    int columns = 0;
    int fixedRows = 0;              ///< rows at the top that keep their place whatever the file says
    std::vector<int> stored;        ///< by row: the stored row from 0; -1: none
    std::vector<std::string> texts; ///< row by row
    std::vector<char> told;         ///< likewise: 0 for a cell that is locked, or a word that heads an automatic row

    [[nodiscard]] const std::string& Text(int row, int column) const;
    void SetText(int row, int column, std::string text);
    [[nodiscard]] bool IsTold(int row, int column) const;
};

[[nodiscard]] ShownBlock Show(const CPanelModel& panel);

/// Rows at the top of a block's panel that keep their place.
[[nodiscard]] int FixedRowsOf(int block);

} // namespace sbd
