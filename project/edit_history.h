// The history of a project: what was done, to be taken back and done again.
#pragma once

#include "project/project_writer.h"

#include <deque>

namespace sbd {

/// A row of a grid that does not stand in the data: blank between others, or without the cell that makes it one.
struct LooseRow {
    int row = 0; ///< of the grid, from 1
    std::vector<std::string> cells;
    friend bool operator==(const LooseRow&, const LooseRow&) = default;
};

/// What the grid of a block holds beside the data.
struct LooseRows {
    int gridRows = 0; ///< rows of the grid, spare rows included; 0: not known
    std::vector<LooseRow> rows;
    friend bool operator==(const LooseRows&, const LooseRows&) = default;
};

/// A cell of a block, grid row and column; row 0: the block as it was left, block 0: wherever the user is.
struct EditPlace {
    int block = 0;
    int row = 0;
    int column = 0;
    int movedRow = 0; ///< of a moved row: where it stands on the other side of the step; 0: none was moved
};

/// What one command did.
struct EditStep {
    EditPlace place;
    std::string name; ///< "313 間隔 5行"; CP932
    std::vector<ProjectChange> changes;
    LooseRows looseBefore; ///< of the grid of the place's block
    LooseRows looseAfter;
};

/// Steps in one order. Holds at least 1,024 of them as long as they are small, and no more than 64 MB; the oldest go
/// first. Knows at which point the project is as it was saved.
class CEditHistory {
public:
    /// Adds a step that has been made. What could be made again goes.
    void Add(EditStep step);
    /// Adds changes that nobody gave a command for to the last step; without one they are there from the beginning.
    void Extend(std::vector<ProjectChange> changes);
    void Clear();

    /// The step that is taken back, or made again, next; null if there is none.
    [[nodiscard]] const EditStep* NextUndo() const;
    [[nodiscard]] const EditStep* NextRedo() const;
    /// Takes the last step back, or makes the next one again, and returns it; there must be one.
    const EditStep& Undo(CSbdData& data);
    const EditStep& Redo(CSbdData& data);

    /// Drops the steps that changed nothing but the grid of a block, which is closed.
    void ForgetGrid(int block);

    /// The project as it stands is the saved one: no other point is.
    void MarkSaved();
    /// Whether the project is as it was saved, at the point that is reached now.
    void SetClean(bool clean);
    [[nodiscard]] bool IsClean() const;

    [[nodiscard]] std::size_t Size() const { return entries_.size(); }
    [[nodiscard]] std::size_t Bytes() const { return bytes_; }

private:
    struct Entry {
        EditStep step;
        std::size_t bytes = 0;
        bool clean = false; // behind the step
    };

    void Measure(Entry& entry);
    void DropOldest();

    std::deque<Entry> entries_;
    std::size_t done_ = 0; // entries that are made
    std::size_t bytes_ = 0;
    bool cleanFirst_ = true; // ahead of the first step
};

} // namespace sbd
