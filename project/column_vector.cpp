#include "project/column_vector.h"

#include <limits>
#include <stdexcept>

namespace sbd {

namespace {

constexpr std::size_t kFirstRows = 16;
constexpr std::size_t kUsualCell = 6; // bytes

} // namespace

CColumnVector::Cell CColumnVector::Store(std::string_view text)
{
    if (text.size() > std::numeric_limits<std::uint32_t>::max() - bytes_.size())
        throw std::length_error("a column of more than 4 GB"); // files of that size are refused before
    const Cell cell{static_cast<std::uint32_t>(bytes_.size()), static_cast<std::uint32_t>(text.size())};
    bytes_.append(text);
    return cell;
}

void CColumnVector::Append(std::string_view text)
{
    if (cells_.empty()) { // a file has thousands of columns: their first few steps of growing are most of a small one
        cells_.reserve(kFirstRows);
        bytes_.reserve(kFirstRows * kUsualCell);
    }
    cells_.push_back(Store(text));
}

void CColumnVector::Set(std::size_t row, std::string_view text)
{
    if ((*this)[row] == text)
        return;
    Cell& cell = cells_[row];
    if (text.size() <= cell.length) { // fits in its place
        bytes_.replace(cell.offset, text.size(), text);
        wasted_ += cell.length - text.size();
        cell.length = static_cast<std::uint32_t>(text.size());
    } else {
        const std::string copy(text); // it may be a view of this very column
        wasted_ += cell.length;
        cell = Store(copy);
    }
    CompactIfWasteful();
}

void CColumnVector::Insert(std::size_t row, std::string_view text)
{
    const std::string copy(text);
    const Cell cell = Store(copy);
    cells_.insert(cells_.begin() + static_cast<std::ptrdiff_t>(row), cell);
}

void CColumnVector::Erase(std::size_t row)
{
    wasted_ += cells_[row].length;
    cells_.erase(cells_.begin() + static_cast<std::ptrdiff_t>(row));
    CompactIfWasteful();
}

void CColumnVector::Clear()
{
    bytes_.clear();
    cells_.clear();
    wasted_ = 0;
}

void CColumnVector::Shrink()
{
    bytes_.shrink_to_fit();
    cells_.shrink_to_fit();
}

std::size_t CColumnVector::MemoryUsed() const
{
    return bytes_.capacity() + cells_.capacity() * sizeof(Cell);
}

void CColumnVector::CompactIfWasteful()
{
    constexpr std::size_t tolerated = 4096;
    if (wasted_ < tolerated || wasted_ < bytes_.size() / 2)
        return;
    std::string bytes;
    bytes.reserve(bytes_.size() - wasted_);
    for (Cell& cell : cells_) {
        const std::uint32_t offset = static_cast<std::uint32_t>(bytes.size());
        bytes.append(bytes_, cell.offset, cell.length);
        cell.offset = offset;
    }
    bytes_ = std::move(bytes);
    wasted_ = 0;
}

bool operator==(const CColumnVector& a, const CColumnVector& b)
{
    if (a.size() != b.size())
        return false;
    for (std::size_t row = 0; row < a.size(); ++row)
        if (a[row] != b[row])
            return false;
    return true;
}

} // namespace sbd
