// One column of a table block: a growing vector of strings.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// A growing vector of strings, one string per row, with value semantics. The cells share one buffer of bytes,
/// so a cell costs 8 bytes and its text. A view of a cell holds until the column is next changed.
class CColumnVector {
public:
    [[nodiscard]] std::size_t size() const { return cells_.size(); }
    [[nodiscard]] bool empty() const { return cells_.empty(); }

    /// The text of row `row`, which must be below size().
    [[nodiscard]] std::string_view operator[](std::size_t row) const
    {
        const Cell cell = cells_[row];
        return {bytes_.data() + cell.offset, cell.length};
    }

    void Append(std::string_view text);
    void Set(std::size_t row, std::string_view text);
    void Insert(std::size_t row, std::string_view text);
    void Erase(std::size_t row);
    void Clear();

    /// Gives back memory that growing has reserved.
    void Shrink();

    /// Bytes this column holds, reserve included.
    [[nodiscard]] std::size_t MemoryUsed() const;

    friend bool operator==(const CColumnVector& a, const CColumnVector& b);

private:
    struct Cell {
        std::uint32_t offset;
        std::uint32_t length;
    };

    [[nodiscard]] Cell Store(std::string_view text);
    void CompactIfWasteful();

    std::string bytes_;
    std::vector<Cell> cells_;
    std::size_t wasted_ = 0; // bytes of buffer that no cell shows any more
};

} // namespace sbd
