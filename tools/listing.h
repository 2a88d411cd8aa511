// The built-in tables as JSON: what sbdtool prints without a project.
#pragma once

#include <nlohmann/json.hpp>

#include <optional>

namespace sbd {

/// "blocks", "commands", "aliases" and "panels" of the block catalogue.
[[nodiscard]] nlohmann::json CatalogueListing();

/// "blocks": the rows of the option blocks with their word lists.
[[nodiscard]] nlohmann::json OptionsListing();
/// The same with one block, alias step included; nothing if the number has no entry.
[[nodiscard]] std::optional<nlohmann::json> OptionsListing(int block);

/// "blocks": the table panels with their columns.
[[nodiscard]] nlohmann::json ColumnsListing();
/// The same with one block, alias step included; nothing if the number has no entry.
[[nodiscard]] std::optional<nlohmann::json> ColumnsListing(int block);

/// "pages": the title lines of the help pages.
[[nodiscard]] nlohmann::json PagesListing();

} // namespace sbd
