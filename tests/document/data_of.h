// What the tests put into a document.
#pragma once

#include "document/section_doc.h"

namespace sbd::test {

/// The data of a document, to be filled behind its back: nobody is told, nothing can be taken back.
inline CSbdData& DataOf(CKELDSectionDoc& doc)
{
    return const_cast<CSbdData&>(doc.Data());
}

/// Says what somebody else than a panel has written.
inline void TellChanged(CKELDSectionDoc& doc, const BlockChange& change)
{
    emit doc.changed(change);
}

} // namespace sbd::test
