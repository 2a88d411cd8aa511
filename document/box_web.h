// Names of the webs of box girders: asked once after an import, stored in block 305.
#pragma once

#include "document/save_flow.h"

#include <QString>

#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace sbd {

class CKELDSectionDoc;
class CSbdData;
struct GridNames;

/// What the page of the web names shows and gives back: one left and one right name a girder. CP932.
struct BoxWebNames {
    std::vector<std::string> girderNames;
    std::vector<std::string> leftNames;
    std::vector<std::string> rightNames;
    std::vector<std::string> lineChoices; ///< lines of the analysis, then the choice of a girder without webs
};

/// The choice of a girder that has no web lines of its own: a virtual main girder or a plate girder. CP932.
[[nodiscard]] std::string NoWebChoice();

/// What is proposed: for a girder the line of its name and "L" or "R" if there is one, else NoWebChoice().
[[nodiscard]] BoxWebNames ProposeBoxWebs(const GridNames& names);

/// Takes what stands in the two cells of a row (from 0). A row whose cells are both empty keeps its names.
void CommitBoxWebRow(BoxWebNames& names, std::size_t row, std::string_view left, std::string_view right);

/// Appends one row a girder to block 305, the names trimmed. False if a name is empty.
[[nodiscard]] bool AppendBoxWebs(const BoxWebNames& names, CKELDSectionDoc& doc);

/// What is asked when names are missing.
[[nodiscard]] QString BoxWebQuestion();

/// What the flow shows.
struct BoxWebPrompts {
    /// The sheet of the web names: takes the proposals, leaves what was entered. False: closed otherwise than by OK.
    std::function<bool(BoxWebNames& names)> showSheet;
    YesNoQuestion ask;
};

/// Asks for the web names and stores them. False if the user wants to go back. Cancel in the sheet leads to the question
/// too; block 305 stays empty then.
[[nodiscard]] bool BoxWebFlow(CKELDSectionDoc& doc, const BoxWebPrompts& prompts);

} // namespace sbd
