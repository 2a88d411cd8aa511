// Private to the page parser: the sketches of a page file.
#pragma once

#include "upperview/page/page_parser.h"

#define TOML_EXCEPTIONS 0
#define TOML_HEADER_ONLY 1
#include <toml++/toml.h>

#include <initializer_list>

namespace sbd {

/// Collects faults and reads single values of a page file.
class CPageReader {
public:
    explicit CPageReader(std::vector<PageFault>& faults) : faults_(&faults) {}

    void Complain(const toml::node& node, std::string message, int linesDown = 0) const;
    /// Complains about every key of `table` that is not among `keys`.
    void CheckKeys(const toml::table& table, std::initializer_list<std::string_view> keys) const;

    /// The CP932 bytes of a UTF-8 text; empty and a fault where CP932 has not a character.
    [[nodiscard]] std::string Bytes(const toml::node& node, std::string_view text, int linesDown = 0) const;

    /// A line of text cut into pieces: constant text and quotes.
    [[nodiscard]] PageLine LineOf(const toml::node& node, std::string_view text, int linesDown = 0) const;

    // Values of a key; the default where it is missing, and a fault where it is of another type.
    [[nodiscard]] std::string TextOf(const toml::table& table, std::string_view key) const;
    [[nodiscard]] int IntegerOf(const toml::table& table, std::string_view key, int otherwise) const;
    [[nodiscard]] bool BoolOf(const toml::table& table, std::string_view key, bool otherwise) const;
    [[nodiscard]] std::vector<double> NumbersOf(const toml::table& table, std::string_view key) const;
    /// One whole number or several.
    [[nodiscard]] std::vector<int> IntegersOf(const toml::table& table, std::string_view key) const;
    [[nodiscard]] PageCondition ConditionOf(const toml::table& table) const;

private:
    std::vector<PageFault>* faults_;
};

/// A sketch from its table.
[[nodiscard]] Sketch ParseSketch(const toml::table& table, const CPageReader& reader);

} // namespace sbd
