// Small records with a different number in every place, so that a field read in the wrong place shows.
#pragma once

#include "results/records.h"

namespace sbd {

/// Two girders with three stations, six nodes, seven members, two load cases; the girders' sections are turned.
[[nodiscard]] AnalysisModel SampleModel();
[[nodiscard]] ElementTable SampleElements();
[[nodiscard]] NodeTable SampleNodes();
/// A cube with the values 1, 2, 3 and so on.
[[nodiscard]] ResultCube SampleCube(std::int32_t size1, std::int32_t size2, std::int32_t size3);

} // namespace sbd
