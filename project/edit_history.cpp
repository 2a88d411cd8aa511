#include "project/edit_history.h"

#include <utility>

namespace sbd {

namespace {

constexpr std::size_t kMostSteps = 4096;
constexpr std::size_t kMostBytes = 64U << 20;

std::size_t SizeOf(const LooseRows& loose)
{
    std::size_t bytes = 0;
    for (const LooseRow& row : loose.rows) {
        bytes += sizeof(row);
        for (const std::string& cell : row.cells)
            bytes += sizeof(std::string) + cell.capacity();
    }
    return bytes;
}

bool ChangedTheGridAlone(const EditStep& step, int block)
{
    return step.place.block == block && step.changes.empty();
}

} // namespace

void CEditHistory::Measure(Entry& entry)
{
    bytes_ -= entry.bytes;
    entry.bytes =
        sizeof(entry) + entry.step.name.capacity() + SizeOf(entry.step.looseBefore) + SizeOf(entry.step.looseAfter);
    for (const ProjectChange& change : entry.step.changes)
        entry.bytes += SizeOf(change);
    bytes_ += entry.bytes;
}

void CEditHistory::DropOldest()
{
    while (done_ > 0 && (entries_.size() > kMostSteps || bytes_ > kMostBytes)) {
        cleanFirst_ = entries_.front().clean;
        bytes_ -= entries_.front().bytes;
        entries_.pop_front();
        --done_;
    }
}

void CEditHistory::Add(EditStep step)
{
    while (entries_.size() > done_) {
        bytes_ -= entries_.back().bytes;
        entries_.pop_back();
    }
    entries_.push_back({std::move(step)});
    ++done_;
    Measure(entries_.back());
    DropOldest();
}

void CEditHistory::Extend(std::vector<ProjectChange> changes)
{
    if (done_ == 0 || changes.empty())
        return;
    Entry& entry = entries_[done_ - 1];
    for (ProjectChange& change : changes)
        entry.step.changes.push_back(std::move(change));
    Measure(entry);
    DropOldest();
}

void CEditHistory::Clear()
{
    entries_.clear();
    done_ = 0;
    bytes_ = 0;
    cleanFirst_ = true;
}

const EditStep* CEditHistory::NextUndo() const
{
    return done_ == 0 ? nullptr : &entries_[done_ - 1].step;
}

const EditStep* CEditHistory::NextRedo() const
{
    return done_ == entries_.size() ? nullptr : &entries_[done_].step;
}

const EditStep& CEditHistory::Undo(CSbdData& data)
{
    Entry& entry = entries_[--done_];
    TakeBack(data, entry.step.changes);
    Measure(entry);
    while (bytes_ > kMostBytes
           && entries_.size() > done_ + 1) { // what was taken back may be larger than what it replaced
        bytes_ -= entries_.back().bytes;
        entries_.pop_back();
    }
    return entry.step;
}

const EditStep& CEditHistory::Redo(CSbdData& data)
{
    Entry& entry = entries_[done_++];
    MakeAgain(data, entry.step.changes);
    Measure(entry);
    return entry.step;
}

void CEditHistory::ForgetGrid(int block)
{
    for (std::size_t i = entries_.size(); i > 0; --i) {
        Entry& entry = entries_[i - 1];
        if (!ChangedTheGridAlone(entry.step, block))
            continue;
        // The data are the same ahead of such a step and behind it.
        bool& cleanBefore = i > 1 ? entries_[i - 2].clean : cleanFirst_;
        cleanBefore = cleanBefore || entry.clean;
        bytes_ -= entry.bytes;
        entries_.erase(entries_.begin() + static_cast<std::ptrdiff_t>(i - 1));
        if (i <= done_)
            --done_;
    }
}

void CEditHistory::MarkSaved()
{
    cleanFirst_ = false;
    for (Entry& entry : entries_)
        entry.clean = false;
    SetClean(true);
}

void CEditHistory::SetClean(bool clean)
{
    (done_ == 0 ? cleanFirst_ : entries_[done_ - 1].clean) = clean;
}

bool CEditHistory::IsClean() const
{
    return done_ == 0 ? cleanFirst_ : entries_[done_ - 1].clean;
}

} // namespace sbd
