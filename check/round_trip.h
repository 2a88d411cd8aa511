// One write and one read of a project, or of some of its blocks, and which row came back as which.
#pragma once

#include "check/shown_block.h"
#include "project/sbd_data.h"

#include <functional>
#include <map>
#include <span>
#include <string>
#include <vector>

namespace sbd {

/// A cell that comes back with another text. Row and column are those of the panel.
struct ReturnedCell {
    int block = 0;
    int row = 0;
    int column = 0;
    std::string is;      ///< CP932
    std::string returns; ///< CP932
    friend bool operator==(const ReturnedCell&, const ReturnedCell&) = default;
};

class CRoundTrip {
public:
    /// Writes `data` whole and reads it into a fresh project.
    explicit CRoundTrip(CSbdData data);
    /// Likewise with these blocks alone (ascending; block 301 should be among them: others follow it).
    CRoundTrip(CSbdData data, std::span<const int> blocks);

    /// True if a section does not end where its own end line stands: what was read of the sections behind it holds for
    /// this text alone.
    [[nodiscard]] bool Leaks() const { return leaks_; }
    [[nodiscard]] const CSbdData& Before() const { return before_; }
    [[nodiscard]] const CSbdData& After() const { return after_; }

    /// The cells of a block that differ. `shown`: null, or what its panel shows in place of Before().
    [[nodiscard]] std::vector<ReturnedCell> Different(int block, const ShownBlock* shown = nullptr) const;

private:
    void ReadBack(const std::string& text, const struct WriteTrace& trace);
    [[nodiscard]] int ReturnedRow(int block, int stored) const;
    [[nodiscard]] bool SurelySame(int block) const;

    CSbdData before_;
    CSbdData after_;
    bool leaks_ = false;
    std::map<int, std::vector<int>> returned_; // by block: stored row that a stored row gives; -1: none
};

} // namespace sbd
