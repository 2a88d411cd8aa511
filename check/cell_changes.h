// What became different in a project at one go, cell by cell as its panels show it, followed through later edits.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

namespace sbd {

class CPanelModel;
class CSbdData;

enum class ChangeKind {
    Cell,
    RowAdded,
    RowRemoved,
    Unseen, ///< no panel shows it
};

/// One change. Texts in CP932; rows and columns are those of the grid, from 1.
struct ShownChange {
    ChangeKind kind = ChangeKind::Cell;
    int block = 0;
    int row = 0;       ///< where it stands now; of a removed row where it stood; 0: none
    int column = 0;    ///< 0: the row as a whole, or none
    int at = 0;        ///< the row that is nearest to it now; 0: none
    std::string place; ///< Unseen: what it is
    std::string before;
    std::string after;
    std::vector<std::string> cells = {}; ///< of a row that was added or removed, from column 1
    friend bool operator==(const ShownChange&, const ShownChange&) = default;
};

struct ChangeCounts {
    std::size_t blocks = 0;
    std::size_t cells = 0;
    std::size_t rowsAdded = 0;
    std::size_t rowsRemoved = 0;
    std::size_t unseen = 0;
    friend bool operator==(const ChangeCounts&, const ChangeCounts&) = default;
};

/// The changes from one state of a project to a later one. Rows are matched as CompareProjects() matches them.
class CCellChanges {
public:
    /// No more changes are listed, and none beyond them is followed.
    static constexpr std::size_t kMostListed = 20'000;

    CCellChanges() = default;
    CCellChanges(const CSbdData& before, const CSbdData& after);

    /// By block, and there by row.
    [[nodiscard]] const std::vector<ShownChange>& List() const { return list_; }
    /// As they were at first, those that are not listed included.
    [[nodiscard]] const ChangeCounts& Counts() const { return counts_; }
    /// Changes that are not listed.
    [[nodiscard]] std::size_t More() const { return more_; }

    /// Another edit of the block: what is listed goes along with its row; what has got another text is no longer listed.
    /// False if the list is the same. `open` is the block's panel where the user has it, which may hold rows that the data
    /// lack; null: none.
    bool Follow(const CSbdData& now, int block, const CPanelModel* open = nullptr);

private:
    /// The rows that a panel shows, from row 1 on, those at the end without a text left out.
    struct Shown {
        std::size_t fixedRows = 0;
        std::vector<std::vector<std::string>> rows;
    };
    [[nodiscard]] static Shown Show(const CSbdData& data, int block);
    [[nodiscard]] static Shown Show(const CPanelModel& panel);
    void AddShown(int block, const CSbdData& before, const CSbdData& after);
    void AddRow(int block, const std::vector<std::string>& before, const std::vector<std::string>& after, int row);
    void Add(ShownChange change);

    std::vector<ShownChange> list_;
    std::map<int, Shown> shown_; // of the blocks of the list, as they were looked at last
    ChangeCounts counts_;
    std::size_t more_ = 0;
};

} // namespace sbd
