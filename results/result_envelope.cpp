#include "results/result_envelope.h"

#include "results/records.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cmath>
#include <cstdint>

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

constexpr std::size_t kBlock = 4; // load cases that are looked at together

double Larger(double first, double second)
{
    return second > first ? second : first;
}

double Smaller(double first, double second)
{
    return second < first ? second : first;
}

/// Load cases by blocks. Behind the last one it stands again.
class CaseBlocks {
public:
    explicit CaseBlocks(std::span<const std::size_t> cases) : cases_(cases.data()), last_(cases.size() - 1) {}

    [[nodiscard]] std::size_t CaseAt(std::size_t begin, std::size_t number) const
    {
        return cases_[std::min(begin + number, last_)];
    }
    /// The first case of the block whose value is like `isLike`.
    template <typename IsLike>
    [[nodiscard]] std::int32_t FirstCase(std::size_t begin, const double* values, std::size_t step,
                                         const IsLike& isLike) const
    {
        std::uint32_t found = 1U << kBlock; // so that there is one
        for (std::size_t i = 0; i < kBlock; ++i)
            found |= std::uint32_t{isLike(values[CaseAt(begin, i) * step])} << i;
        return static_cast<std::int32_t>(CaseAt(begin, static_cast<std::size_t>(std::countr_zero(found))));
    }

private:
    const std::size_t* cases_;
    std::size_t last_;
};

/// Without a branch for each value, so that several are compared at once. To carry the deciding case along costs more than
/// the comparing, so that is done once a block: which case of the block it is comes out at the end. False if one of the
/// values is no number: the result says nothing then.
template <std::size_t N>
bool TakeNumbers(const double* values, std::span<const std::size_t> cases, std::span<EnvelopeValue> envelope)
{
    std::array<double, N> greatest;
    std::array<double, N> least;
    std::array<double, N> greatestAt{}; // where the block begins, as wide as the values that it goes with
    std::array<double, N> leastAt{};
    std::array<double, N> sum{}; // of what is no number no number either
    const CaseBlocks blocks(cases);
    const double* const first = values + cases.front() * N;
    for (std::size_t k = 0; k < N; ++k)
        greatest[k] = least[k] = first[k];
    for (std::size_t begin = 0; begin < cases.size(); begin += kBlock) {
        const double* const a = values + blocks.CaseAt(begin, 0) * N;
        const double* const b = values + blocks.CaseAt(begin, 1) * N;
        const double* const c = values + blocks.CaseAt(begin, 2) * N;
        const double* const d = values + blocks.CaseAt(begin, 3) * N;
        const auto place = static_cast<double>(begin); // grows: of two the larger one is the later one
        for (std::size_t k = 0; k < N; ++k) {
            const double high = Larger(Larger(a[k], b[k]), Larger(c[k], d[k]));
            const double low = Smaller(Smaller(a[k], b[k]), Smaller(c[k], d[k]));
            greatestAt[k] = Larger(greatestAt[k], high > greatest[k] ? place : 0);
            leastAt[k] = Larger(leastAt[k], low < least[k] ? place : 0);
            greatest[k] = Larger(greatest[k], high);
            least[k] = Smaller(least[k], low);
            sum[k] += (a[k] + b[k]) + (c[k] + d[k]);
        }
    }
    bool areNumbers = true;
    EnvelopeValue* const own = envelope.data();
    for (std::size_t k = 0; k < N; ++k) {
        const double high = greatest[k];
        const double low = least[k];
        areNumbers = areNumbers && std::isfinite(sum[k]);
        own[k] = {high, low,
                  blocks.FirstCase(static_cast<std::size_t>(greatestAt[k]), values + k, N,
                                   [high](double value) { return value >= high; }),
                  blocks.FirstCase(static_cast<std::size_t>(leastAt[k]), values + k, N,
                                   [low](double value) { return value <= low; })};
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
