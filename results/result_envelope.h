// The largest and the smallest of results over several load cases, and the cases that decide.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>

namespace sbd {

/// Load cases count from 0 as in the results; below 0: no value was a number. Of equal values that of the first case.
struct EnvelopeValue {
    double greatest = 0;
    double least = 0;
    std::int32_t greatestCase = -1;
    std::int32_t leastCase = -1;

    [[nodiscard]] bool IsThere() const { return greatestCase >= 0; }
    /// That of the values times `factor`, which may turn the sign.
    [[nodiscard]] EnvelopeValue Times(double factor) const;
};

/// `values`: those of one item, load case by load case, as many in each as `envelope` has places. All of `cases` must be
/// there. Gives how many values are no numbers; those are passed over.
std::size_t EnvelopeOfItem(const double* values, std::span<const std::size_t> cases, std::span<EnvelopeValue> envelope);

} // namespace sbd
