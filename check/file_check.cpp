#include "check/file_check.h"

#include "check/doubts.h"
#include "check/file_findings.h"
#include "check/read_back.h"
#include "project/sbd_data.h"
#include "project/text.h"
#include "sbdfile/layout.h"
#include "sbdfile/repairs.h"
#include "sbdfile/writer.h"

#include <algorithm>

namespace sbd {

namespace {

std::size_t FirstOtherLine(std::string_view a, std::string_view b)
{
    std::size_t line = 1;
    for (std::size_t pos = 0; pos < std::min(a.size(), b.size()); ++pos) {
        if (a[pos] != b[pos])
            return line;
        line += a[pos] == '\n' ? 1 : 0;
    }
    return a.size() == b.size() ? 0 : line;
}

/// True for a table block that has too few rows to reach the file.
bool StaysOutOfFile(int block, const CSbdData& data)
{
    const SectionLayout* layout = FindSectionLayout(block);
    return layout != nullptr && data.Table(block) != nullptr
           && data.RowCount(block) < static_cast<std::size_t>(layout->leastRows);
}

void AddForm(FileCheck& check)
{
    if (check.ownForm)
        return;
    Finding finding;
    finding.kind = FindingKind::Form;
    finding.line = check.firstOtherLine;
    finding.text =
        "本システムが書く形と違います。保存すると、この行から書き方が変わります。書き方だけの違いなら、データは変わりません。";
    check.findings.Add(std::move(finding));
}

void AddRepairs(FileCheck& check, const CSbdData& data)
{
    if (check.ownForm)
        return;
    for (const Difference& difference : check.repaired) {
        if (difference.block == 0 || StaysOutOfFile(difference.block, data))
            continue;
        Finding finding;
        finding.kind = FindingKind::Repair;
        finding.block = difference.block;
        finding.row = difference.row;
        finding.column = difference.column;
        finding.is = difference.before;
        finding.returns = difference.after;
        finding.text = difference.before.empty()
                           ? "読み込むと" + Quoted(difference.after) + "が入ります。"
                           : Quoted(difference.before) + "は、読み込むと" + Quoted(difference.after) + "になります。";
        finding.text += "連動する値や、必ずある行を合わせる補正です。値を確かめてください。";
        check.findings.Add(std::move(finding));
    }
}

void AddShifts(FileCheck& check, const CSbdData& data)
{
    for (ReturnedCell& cell : ReturnedCells(data))
        check.shifted[cell.block].push_back(std::move(cell));
    for (const Difference& difference : check.unstable)
        if (difference.block > 0)
            check.shifted.try_emplace(difference.block);
    for (const auto& [block, cells] : check.shifted) {
        Finding finding;
        finding.kind = FindingKind::Shift;
        finding.block = block;
        if (!cells.empty()) {
            finding.row = cells.front().row;
            finding.column = cells.front().column;
            finding.is = cells.front().is;
            finding.returns = cells.front().returns;
            finding.text = std::to_string(cells.size()) + "個のセルが、保存して開き直すと変わります。"
                           + std::to_string(finding.row) + "行目" + std::to_string(finding.column) + "列目の"
                           + Quoted(finding.is) + "は" + Quoted(finding.returns) + "になります。";
        } else {
            finding.text = "読み込んだ値が、保存して開き直すと変わります。";
        }
        finding.text += "行の空欄や書けない列を確かめてください。";
        check.findings.Add(std::move(finding));
    }
}

} // namespace

FileCheck CheckFile(std::string_view bytes, const CSbdData& names)
{
    FileCheck check;
    CSbdData asRead = names;
    asRead.ClearBlocks();
    FileFindings found = ReadWithFindings(bytes, asRead);
    check.findings = std::move(found.findings);
    CSbdData scratch = names;
    scratch.ClearBlocks();
    ReadSections(bytes, scratch, &check.lost);

    CSbdData repaired = asRead;
    RepairAfterRead(repaired);
    check.repaired = CompareProjects(asRead, repaired);
    std::erase_if(check.repaired, [&](const Difference& difference) {
        return difference.kind == DifferenceKind::RowAdded && StaysOutOfFile(difference.block, repaired);
    });

    WriteReport written;
    const std::string saved = WriteProject(repaired, &written);
    check.controlBlockHeldBack = written.controlBlockHeldBack;
    check.ownForm = saved == bytes;
    check.firstOtherLine = FirstOtherLine(bytes, saved);

    CSbdData again = names; // what a new session finds: defaults, then the saved file
    ReadProject(saved, again);
    check.unstable = CompareProjects(repaired, again);

    AddForm(check);
    if (found.isForeign || !found.isProject)
        return check; // of what is no project no more needs telling
    AddRepairs(check, repaired);
    AddShifts(check, repaired);
    check.doubts = Doubts(repaired);
    return check;
}

} // namespace sbd
