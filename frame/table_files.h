// Tables of text files into the block on show, and out of it.
#pragma once

namespace sbd {

class CChildFrame;
struct Prompts;

/// Asks for a file, shows what it holds, puts it into the block as one step. What did not fit is said in a notice.
void ImportTable(CChildFrame& child, const Prompts& prompts);

/// Writes the block on show to a file.
void ExportTable(CChildFrame& child, const Prompts& prompts);

} // namespace sbd
