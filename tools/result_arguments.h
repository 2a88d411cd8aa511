// Arguments of the commands that print analysis results.
#pragma once

#include "results/result_kind.h"

#include <initializer_list>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

/// Options that a command takes: with a value behind them, or alone.
struct ResultOptions {
    std::initializer_list<std::string_view> withValue;
    std::initializer_list<std::string_view> alone;
};

/// The project and the options of a command line. The word behind an option is its value, whatever it is.
class CResultArguments {
public:
    CResultArguments(std::span<const std::string> arguments, const ResultOptions& options);

    /// What could not be understood, for the user.
    [[nodiscard]] const std::optional<std::string>& Wrong() const { return wrong_; }
    [[nodiscard]] const std::string& Project() const { return project_; }
    [[nodiscard]] bool Has(std::string_view option) const { return values_.contains(option); }
    /// The values of an option in their order, in CP932.
    [[nodiscard]] std::vector<std::string> Values(std::string_view option) const;

    // One value each; without it, or if it is none of the kind, Wrong() says so.
    [[nodiscard]] std::string Text(std::string_view option);
    [[nodiscard]] ResultKind Kind();
    [[nodiscard]] std::size_t Component(ResultKind kind, const std::string& component);
    /// A length in pixels, above 0.
    [[nodiscard]] int Pixels(std::string_view option);

private:
    void Parse(std::span<const std::string> arguments, const ResultOptions& options);
    void Refuse(std::string why);

    std::string project_;
    std::map<std::string, std::vector<std::string>, std::less<>> values_;
    std::optional<std::string> wrong_;
};

} // namespace sbd
