// Private to the catalogue: its rows.
#pragma once

#include "project/catalogue.h"

namespace sbd {

[[nodiscard]] std::span<const CatalogueRow> CatalogueRows();

} // namespace sbd
