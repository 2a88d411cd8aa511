#include "document/search_session.h"

#include "document/section_doc.h"

namespace sbd {

CSearchSession& SearchSessionOf(CKELDSectionDoc& doc)
{
    auto* session = doc.findChild<CSearchSession*>(QString(), Qt::FindDirectChildrenOnly);
    return session != nullptr ? *session : *new CSearchSession(&doc);
}

} // namespace sbd
