// Blocks whose last column takes a list or a free text.
#pragma once

namespace sbd {

/// True if any number of words is right in the last column of a table block.
[[nodiscard]] bool LastColumnTakesWords(int block);

} // namespace sbd
