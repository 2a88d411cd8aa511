// What the user has chosen to see of the results, and what there is to choose from. Texts are CP932.
#pragma once

#include "results/model_projection.h"
#include "results/result_kind.h"

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// The selection in the panel of block 253. The document keeps it while the panel is away.
struct ResultSelection {
    ResultKind kind = ResultKind::Displacement;
    std::string load;
    std::string girder;
    std::string station;
    bool stationEnabled = false;
    std::array<bool, kNodeComponents> columnOn{true, true, true, true, true, true};
    std::vector<std::string> excludedNames;
    std::vector<std::string> offeredNames;
    std::string figureItem; ///< component of the figure; each fill of the table sets the default of the kind
    int magnification = kDeformedMagnification; ///< of the deformed frame, one of kMagnifications
    std::string filter;                         ///< only names that hold this text stand in the table
    std::size_t sortColumn = 0;                 ///< grid column that rules the order of the rows; 0: that of the files
    bool descending = false;
    bool envelope = false; ///< the largest and the smallest values of several load cases, in place of those of `load`
    std::vector<std::string> envelopeLoads; ///< the names of those
    std::string overLoad;                   ///< load case that the figure lays over the first one; empty: the same
    std::string overGirder;                 ///< girder, likewise
    bool panelUsed = false;                 ///< the panel was on show once

    friend bool operator==(const ResultSelection&, const ResultSelection&) = default;
};

/// The choices for a kind, beside the three kinds themselves.
struct ResultChoices {
    std::vector<std::string> loads; ///< as shown, see ShownLoad
    std::vector<std::string> girders;
    std::vector<std::string> stations;
};

/// "なし" and "すべて", the first entries of the girders and the stations.
[[nodiscard]] const std::string& NoneWord();
[[nodiscard]] const std::string& AllWord();

[[nodiscard]] ResultChoices ChoicesOf(const AnalysisModel& model, ResultKind kind);

/// A load case "-(..." stands for the forces with those against the dead load raised, and is shown with words for that.
[[nodiscard]] std::string ShownLoad(std::string_view load);
/// A load case with raised forces by the name that it has for the other kinds; another one as it is.
[[nodiscard]] std::string PlainLoad(std::string_view load);
/// The load case of a text of ShownLoad.
[[nodiscard]] std::string LoadOfShown(std::string_view shown);

/// The load cases of the envelope, from 0 in the order of the results: those that the kind has.
[[nodiscard]] std::vector<std::size_t> EnvelopeCases(const AnalysisModel& model, const ResultSelection& selection);
/// The names of the load cases that an envelope of the kind can take.
[[nodiscard]] std::vector<std::string> EnvelopeLoads(const AnalysisModel& model, ResultKind kind);
/// A load case by its place, as it is shown; empty if it is not there.
[[nodiscard]] std::string ShownLoadAt(const AnalysisModel& model, std::int64_t loadCase);

/// The first load case, without blanks around it, that a user of the kind looks at first; nothing if none is of that form.
[[nodiscard]] std::optional<std::string> FirstLoad(const AnalysisModel& model, ResultKind kind);

/// The names of the kind that can be left out of the table: those that begin with the girder, or without one
/// ("なし") with the station; all of them for "すべて".
[[nodiscard]] std::vector<std::string> OfferedNames(const AnalysisModel& model, ResultKind kind,
                                                    std::string_view girder, std::string_view station);

/// The selection when the panel is first used in a document: forces, FirstLoad (else the first load case), the first
/// girder, all columns.
[[nodiscard]] ResultSelection FirstUseSelection(const AnalysisModel& model);

/// The selection in results that were read anew: a load case or a girder that has gone gives way to that of the first
/// use; names that have gone are no longer offered or left out. A selection without a load case was made without results
/// and is that of the first use.
[[nodiscard]] ResultSelection KeptSelection(const ResultSelection& selection, const AnalysisModel& model);

// One choice of the user; what depends on it follows.

/// The load case stays, but loses its "-(" form, which there is for forces only.
void SelectKind(ResultSelection& selection, const AnalysisModel& model, ResultKind kind);
void SelectLoad(ResultSelection& selection, std::string_view shown);
/// The station can be chosen without a girder ("なし") only.
void SelectGirder(ResultSelection& selection, const AnalysisModel& model, std::string_view girder);
/// What is laid over in the figure and what the table shows change places.
void SwapOver(ResultSelection& selection, const AnalysisModel& model);
void SelectStation(ResultSelection& selection, const AnalysisModel& model, std::string_view station);

} // namespace sbd
