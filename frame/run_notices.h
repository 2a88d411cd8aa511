// What a run, or a file that somebody else has changed, leaves to be told above the panel.
#pragma once

#include "compare/compare.h"

#include <QString>

#include <functional>
#include <memory>

namespace sbd {

class CChildFrame;
class CSbdData;
struct DifferenceView;
struct KeptInput;
struct RunReport;

/// Shows a list of differences.
using ShowDifferences = std::function<void(DifferenceView view)>;

/// Compares the project as it stands in the window with what it was, `before`; what is chosen comes back as one step.
/// `name` is what that state is called.
void CompareWith(CChildFrame& child, const CSbdData& before, const QString& name, const ShowDifferences& show);

/// Shows what a run has left. Without `show` nothing can be compared.
void ShowRunReport(CChildFrame& child, const RunReport& report, const ShowDifferences& show);

/// Reads the project's file again. Changes that were not saved leave the window, but stay in reach of a notice.
/// False if the file cannot be read.
bool ReadAgain(CChildFrame& child, const ShowDifferences& show);

/// Tells that changes which were not saved have left the window by a reload: `why` says of which.
void ShowLostChanges(CChildFrame& child, const QString& why, const std::shared_ptr<const CSbdData>& unsaved,
                     const QString& keptIn, const ShowDifferences& show);

/// The same of changes that an earlier session has kept, and whose notice nobody has closed.
void ShowKeptChanges(CChildFrame& child, const KeptInput& kept, const ShowDifferences& show);

} // namespace sbd
