// How the texts of some cells go on in the cells behind them.
#pragma once

#include <optional>
#include <string>
#include <vector>

namespace sbd {

/// The texts of cells in a row, repeated or counted on. Numbers with one difference go on by it; a single number, and a
/// name with a number at its end ("G1", "C09"), by one. Everything else is repeated. CP932.
class CFillSeries {
public:
    CFillSeries(std::vector<std::string> texts, bool countOn);

    /// The text `index` cells behind the first one; below 0: ahead of it. Nothing for a name whose number would fall
    /// below zero.
    [[nodiscard]] std::optional<std::string> At(int index) const;
    /// The same without counting.
    [[nodiscard]] const std::string& Repeated(int index) const;

private:
    /// A text with a number at its end; without `prefix` the number is the text.
    struct Counted {
        std::string prefix;
        long long value = 0; ///< in units of the last decimal
        int decimals = 0;
        int width = 0; ///< digits of a name's number, zeros in front included
    };
    [[nodiscard]] static std::optional<Counted> Parse(const std::string& text);
    [[nodiscard]] static std::string Written(const Counted& counted);
    void FindStep();

    std::vector<std::string> texts_;
    std::vector<std::optional<Counted>> counted_; // empty: nothing counts
    std::optional<long long> step_;               // of all of them; nothing: each name counts for itself
};

} // namespace sbd
