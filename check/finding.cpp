#include "check/finding.h"

#include <algorithm>

namespace sbd {

namespace {

using enum FindingKind;

constexpr FindingRule kRules[] = {
    {UnterminatedSection, "unterminated-section", Severity::Loss, false},
    {SwallowedHeader, "swallowed-header", Severity::Loss, false},
    {StrayEnd, "stray-end", Severity::Loss, false},
    {UnknownSection, "unknown-section", Severity::Loss, false}, // of a block; see IsHarmless
    {SectionTwice, "section-twice", Severity::Loss, false},
    {OptionTwice, "option-twice", Severity::Loss, false},
    {TitleTwice, "title-twice", Severity::Loss, false},
    {UnknownOptionRow, "unknown-option-row", Severity::Loss, false},
    {OptionWithoutValue, "option-without-value", Severity::Loss, false},
    {NamesBeyondCount, "names-beyond-count", Severity::Loss, false},
    {NamesWithoutHeading, "names-without-heading", Severity::Loss, false},
    {TokensBeyondRow, "tokens-beyond-row", Severity::Loss, false},
    {LineTooManyCells, "line-too-many-cells", Severity::Loss, false},
    {LineOutside, "line-outside", Severity::Loss, false},
    {NotAProject, "not-a-project", Severity::Loss, false},
    {ForeignEncoding, "foreign-encoding", Severity::Loss, false},
    {Shift, "shift", Severity::Loss, false},
    {Form, "form", Severity::Hint, true},
    {Repair, "repair", Severity::Hint, true},
    {ReturnsDifferent, "returns-different", Severity::Loss, false},
    {UnknownName, "unknown-name", Severity::Doubt, true},
    {NotANumber, "not-a-number", Severity::Doubt, true},
    {NotInList, "not-in-list", Severity::Doubt, true},
    {RangeReversed, "range-reversed", Severity::Doubt, true},
    {RowCovered, "row-covered", Severity::Doubt, true},
    {NeededBlockEmpty, "needed-block-empty", Severity::Hint, true},
    {BlocksDisagree, "blocks-disagree", Severity::Hint, true},
    {NotDrawable, "not-drawable", Severity::Doubt, true},
};

} // namespace

std::span<const FindingRule> FindingRules()
{
    return kRules;
}

const FindingRule& RuleOf(FindingKind kind)
{
    return *std::ranges::find(kRules, kind, &FindingRule::kind);
}

bool IsHarmless(const Finding& finding)
{
    return RuleOf(finding.kind).harmless || (finding.kind == UnknownSection && finding.block == 0);
}

void FindingList::Add(Finding finding)
{
    anyLoss = anyLoss || !IsHarmless(finding);
    if (list.size() < kMostFindings)
        list.push_back(std::move(finding));
    else
        ++more;
}

} // namespace sbd
