#include "results/result_envelope.h"

#include "results/records.h"

#include <array>
#include <cmath>

namespace sbd {

namespace {

/// Any values, one after the other.
std::size_t TakeCarefully(const double* values, std::span<const std::size_t> cases, std::span<EnvelopeValue> envelope)
{
    std::size_t notNumbers = 0;
    for (std::size_t k = 0; k < envelope.size(); ++k) {
        EnvelopeValue& own = envelope[k] = {};
        for (const std::size_t loadCase : cases) {
            const double value = values[loadCase * envelope.size() + k];
            if (!std::isfinite(value)) {
                ++notNumbers;
                continue;
            }
            const auto number = static_cast<std::int32_t>(loadCase);
            if (!own.IsThere() || value > own.greatest) {
                own.greatest = value;
                own.greatestCase = number;
            }
            if (own.leastCase < 0 || value < own.least) {
                own.least = value;
                own.leastCase = number;
            }
        }
    }
    return notNumbers;
}

/// Without a branch for each value, so that several are compared at once. False if one of them is no number: the result
/// says nothing then.
template <std::size_t N>
bool TakeNumbers(const double* values, std::span<const std::size_t> cases, std::span<EnvelopeValue> envelope)
{
    std::array<double, N> greatest;
    std::array<double, N> least;
    std::array<double, N> greatestCase; // as wide as the values that they go with
    std::array<double, N> leastCase;
    std::array<double, N> wrong{}; // the difference of what is no number and itself is none either
    const double* const first = values + cases.front() * N;
    for (std::size_t k = 0; k < N; ++k) {
        greatest[k] = least[k] = first[k];
        greatestCase[k] = leastCase[k] = static_cast<double>(cases.front());
    }
    for (const std::size_t loadCase : cases) {
        const double* const own = values + loadCase * N;
        const auto number = static_cast<double>(loadCase);
        for (std::size_t k = 0; k < N; ++k) {
            const double value = own[k];
            greatestCase[k] = value > greatest[k] ? number : greatestCase[k];
            greatest[k] = value > greatest[k] ? value : greatest[k];
            leastCase[k] = value < least[k] ? number : leastCase[k];
            least[k] = value < least[k] ? value : least[k];
            wrong[k] += value - value;
        }
    }
    bool areNumbers = true;
    for (std::size_t k = 0; k < N; ++k) {
        areNumbers = areNumbers && wrong[k] == 0;
        envelope[k] = {greatest[k], least[k], static_cast<std::int32_t>(greatestCase[k]),
                       static_cast<std::int32_t>(leastCase[k])};
    }
    return areNumbers;
}

} // namespace

EnvelopeValue EnvelopeValue::Times(double factor) const
{
    if (factor < 0)
        return {least * factor, greatest * factor, leastCase, greatestCase};
    return {greatest * factor, least * factor, greatestCase, leastCase};
}

std::size_t EnvelopeOfItem(const double* values, std::span<const std::size_t> cases, std::span<EnvelopeValue> envelope)
{
    const bool isQuick =
        !cases.empty()
        && ((envelope.size() == kNodeComponents && TakeNumbers<kNodeComponents>(values, cases, envelope))
            || (envelope.size() == kElementComponents && TakeNumbers<kElementComponents>(values, cases, envelope)));
    return isQuick ? 0 : TakeCarefully(values, cases, envelope);
}

} // namespace sbd
