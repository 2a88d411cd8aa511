// What is told of a result of the search: the answer of a question, or what an input item holds.
#pragma once

#include "search/search_index.h"

#include <QString>
#include <QUrl>

#include <optional>

namespace sbd {

class CSbdData;

/// The text beside the results for the selected one; null: how the panel is used. Links lead to cells.
[[nodiscard]] QString SearchDetailHtml(const SearchEntry* entry, const CSbdData& data);

/// The cell a link of such a text leads to; nothing for other links.
[[nodiscard]] std::optional<SearchPlace> PlaceOfLink(const QUrl& link);

} // namespace sbd
