// How findings are shown: signs, words, places.
#pragma once

#include "check/finding.h"
#include "document/project_check.h"
#include "grid/cell_marks.h"

#include <QIcon>
#include <QString>
#include <QStringView>

#include <span>
#include <vector>

namespace sbd {

/// How a severity is shown.
struct SeverityLook {
    Severity severity;
    MarkKind mark;
    QStringView word;
};
[[nodiscard]] std::span<const SeverityLook> SeverityLooks();
[[nodiscard]] const SeverityLook& LookOf(Severity severity);
/// "! 変わる"
[[nodiscard]] QString SignAndWord(Severity severity);
[[nodiscard]] QIcon SignIcon(MarkKind mark, const QPalette& palette);

/// The doubts that a user may switch off, with what the list calls them.
struct SwitchableKind {
    FindingKind kind;
    QStringView text;
};
[[nodiscard]] std::span<const SwitchableKind> SwitchableKinds();

/// The findings of one block as marks of its grid.
[[nodiscard]] std::vector<CellMark> MarksOf(std::span<const Finding> findings);

/// "! 変わる 2　? 疑い 1"; empty if there are none.
[[nodiscard]] QString CountsText(const SeverityCounts& counts);

} // namespace sbd
