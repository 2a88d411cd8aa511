// A small bridge with results that say where they stand: two girders with three stations, two load cases.
#pragma once

#include "project/text.h"
#include "results/records.h"
#include "tests/results/sample_records.h"

#include <cstddef>
#include <cstdint>

namespace sbd {

/// A value that tells item, load case and component (all from 0): 1000 * item + 100 * load + component.
[[nodiscard]] inline ResultCube TellingCube(std::size_t items, std::size_t loads, std::size_t components)
{
    ResultCube cube;
    cube.size1 = static_cast<std::int32_t>(items);
    cube.size2 = static_cast<std::int32_t>(loads);
    cube.size3 = static_cast<std::int32_t>(components);
    for (std::size_t item = 0; item < items; ++item)
        for (std::size_t load = 0; load < loads; ++load)
            for (std::size_t k = 0; k < components; ++k)
                cube.values.push_back(static_cast<double>(1000 * item + 100 * load + k));
    return cube;
}

/// Girders along x at y 0 and 4, stations at x 0, 5 and 10, z 1; node 3 ("G1-S2") takes no part in the results.
[[nodiscard]] inline AnalysisResults SmallBridge()
{
    AnalysisResults results;
    results.model = SampleModel();
    results.elementTable = SampleElements();
    results.nodeTable = SampleNodes();
    for (std::size_t node = 0; node < 6; ++node)
        results.nodeTable.coordinates[node] = {5.0 * static_cast<double>(node % 3), node < 3 ? 0.0 : 4.0, 1.0};
    results.displacement = TellingCube(6, 2, kNodeComponents);
    results.force = TellingCube(7, 2, kElementComponents);
    results.reaction = TellingCube(6, 2, kNodeComponents);
    return results;
}

} // namespace sbd
