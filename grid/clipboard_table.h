// Tables on the clipboard.
#pragma once

#include <QString>

#include <memory>

class QMimeData;

namespace sbd {

/// A text of lines and tab-divided cells, as it stands and as a table in HTML; with `heads` its first line is one of heads.
[[nodiscard]] std::unique_ptr<QMimeData> ClipboardOf(const QString& text, bool heads);

/// What is to be pasted, as lines of tab-divided cells: the text, unless it does not have the rows and columns of a table
/// that comes with it, as from a word processor whose cells hold several lines.
[[nodiscard]] QString ClipboardTable(const QMimeData& data);

} // namespace sbd
