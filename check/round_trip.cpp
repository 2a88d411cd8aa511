#include "check/round_trip.h"

#include "panelmodel/panel_model.h"
#include "project/option_rows.h"
#include "sbdfile/reader.h"
#include "sbdfile/repairs.h"
#include "sbdfile/writer.h"

#include <algorithm>

namespace sbd {

namespace {

/// Follows the reader through a text of the writer's: which line became which row, and whether each section ends where
/// it was written to end.
class TraceFollower : public CReadObserver {
public:
    TraceFollower(const WriteTrace& trace, std::map<int, std::vector<int>>& returned)
        : trace_(trace)
        , returned_(returned)
    {
        for (const WrittenRow& row : trace.rows) {
            std::vector<int>& rows = returned[row.block];
            if (rows.size() <= static_cast<std::size_t>(row.row))
                rows.resize(static_cast<std::size_t>(row.row) + 1, -1);
        }
    }

    [[nodiscard]] bool Leaks() const { return leaks_ || section_ != trace_.sections.size(); }

    void Met(const ReadEvent& event) override
    {
        switch (event.step) {
        case ReadStep::SectionOpens:
            leaks_ = leaks_ || section_ == trace_.sections.size() || trace_.sections[section_].header != event.offset;
            break;
        case ReadStep::SectionEnds:
            if (event.block == 0)
                break;
            leaks_ = leaks_ || section_ == trace_.sections.size() || trace_.sections[section_].end != event.offset;
            section_ += section_ < trace_.sections.size() ? 1 : 0;
            break;
        case ReadStep::UnknownOpens:
            leaks_ = leaks_ || section_ != trace_.sections.size(); // behind all others they are at home
            break;
        case ReadStep::Row:
            MetRow(event);
            break;
        default:
            break;
        }
    }

private:
    void MetRow(const ReadEvent& event)
    {
        while (row_ < trace_.rows.size() && trace_.rows[row_].offset < event.offset)
            ++row_;
        if (row_ == trace_.rows.size() || trace_.rows[row_].offset != event.offset)
            return;
        const WrittenRow& written = trace_.rows[row_];
        if (written.block == event.block)
            returned_[written.block][static_cast<std::size_t>(written.row)] = event.row;
    }

    const WriteTrace& trace_;
    std::map<int, std::vector<int>>& returned_;
    std::size_t section_ = 0;
    std::size_t row_ = 0;
    bool leaks_ = false;
};

std::vector<ReturnedCell> DifferentOptions(int block, const CSbdData& before, const CSbdData& after)
{
    constexpr int valueColumn = 2;
    std::vector<ReturnedCell> cells;
    for (std::size_t row = 0; row < FindOptionBlock(block)->rows.size(); ++row)
        if (before.Option(block, row) != after.Option(block, row))
            cells.push_back({block, static_cast<int>(row) + 1, valueColumn, std::string(before.Option(block, row)),
                             std::string(after.Option(block, row))});
    return cells;
}

/// The names of a list as the panel shows them, with their rows; empty cells left out.
std::vector<std::pair<int, std::string>> NamesOf(const ShownBlock& shown, int column)
{
    std::vector<std::pair<int, std::string>> names;
    for (int row = shown.fixedRows + 1; row <= shown.rows; ++row)
        if (!shown.Text(row, column).empty())
            names.emplace_back(row, shown.Text(row, column));
    return names;
}

std::vector<ReturnedCell> DifferentNames(const ShownBlock& is, const ShownBlock& returns)
{
    std::vector<ReturnedCell> cells;
    constexpr int switchColumn = 2;
    if (is.Text(1, switchColumn) != returns.Text(1, switchColumn))
        cells.push_back({is.block, 1, switchColumn, is.Text(1, switchColumn), returns.Text(1, switchColumn)});
    for (int column = 1; column < is.columns; ++column) {
        const auto names = NamesOf(is, column);
        const auto back = NamesOf(returns, column);
        const int behind = names.empty() ? is.fixedRows + 1 : names.back().first + 1;
        for (std::size_t i = 0; i < std::max(names.size(), back.size()); ++i) {
            const std::string& name = i < names.size() ? names[i].second : std::string();
            const std::string& other = i < back.size() ? back[i].second : std::string();
            const int row = i < names.size() ? names[i].first : behind + static_cast<int>(i - names.size());
            if (name != other)
                cells.push_back({is.block, row, column, name, other});
        }
    }
    return cells;
}

} // namespace

CRoundTrip::CRoundTrip(CSbdData data) : before_(std::move(data))
{
    WriteTrace trace;
    const std::string text = WriteProject(before_, trace);
    ReadBack(text, trace);
}

CRoundTrip::CRoundTrip(CSbdData data, std::span<const int> blocks) : before_(std::move(data))
{
    WriteTrace trace;
    const std::string text = WriteBlocks(before_, blocks, trace);
    ReadBack(text, trace);
}

void CRoundTrip::ReadBack(const std::string& text, const WriteTrace& trace)
{
    TraceFollower follower(trace, returned_);
    ReadSections(text, after_, follower);
    RepairAfterRead(after_);
    leaks_ = follower.Leaks();
}

int CRoundTrip::ReturnedRow(int block, int stored) const
{
    const auto rows = returned_.find(block);
    if (rows == returned_.end() || stored < 0 || static_cast<std::size_t>(stored) >= rows->second.size())
        return -1;
    return rows->second[static_cast<std::size_t>(stored)];
}

bool CRoundTrip::SurelySame(int block) const
{
    // Rows that are the same, each from its own line, are shown the same.
    const TableBlock* before = before_.Table(block);
    if (before == nullptr || !(*before == *after_.Table(block)))
        return false;
    for (std::size_t row = static_cast<std::size_t>(FixedRowsOf(block)); row < before->RowCount(); ++row)
        if (ReturnedRow(block, static_cast<int>(row)) != static_cast<int>(row))
            return false;
    return true;
}

std::vector<ReturnedCell> CRoundTrip::Different(int block, const ShownBlock* shown) const
{
    if (FindOptionBlock(block) != nullptr)
        return DifferentOptions(block, before_, after_);
    if (shown == nullptr && SurelySame(block))
        return {};
    CSbdData& before = const_cast<CSbdData&>(before_); // a panel that is never committed changes nothing
    CSbdData& after = const_cast<CSbdData&>(after_);
    ShownBlock own;
    if (shown == nullptr) {
        own = Show(*MakePanelModel(before, block));
        shown = &own;
    }
    const ShownBlock back = Show(*MakePanelModel(after, block));
    if (before_.Names(block) != nullptr)
        return DifferentNames(*shown, back);

    std::vector<ReturnedCell> cells;
    const int ahead =
        before_.Table(block) != nullptr ? 0 : FixedRowsOf(block); // rows of the panel that are no stored rows
    const int backRows = static_cast<int>(after_.RowCount(block)) + ahead;
    for (int row = 1; row <= std::max(shown->rows, std::min(shown->fixedRows, back.rows)); ++row) {
        int other = row;
        if (row > shown->fixedRows) {
            const int returned = ReturnedRow(block, shown->stored[static_cast<std::size_t>(row)]);
            other = returned >= 0 ? returned + 1 + ahead : 0;
            if (returned >= 0 && other <= back.fixedRows)
                other = 0; // it became a row of another meaning
            if (returned < 0 && row > backRows)
                other = row; // what the panel puts in by itself, it puts in again
        }
        for (int column = 1; column < shown->columns; ++column)
            if (shown->IsTold(row, column) && shown->Text(row, column) != back.Text(other, column))
                cells.push_back({block, row, column, shown->Text(row, column), back.Text(other, column)});
    }
    return cells;
}

} // namespace sbd
