#include "document/result_session.h"

#include "document/section_doc.h"

namespace sbd {

CResultSession& ResultSessionOf(CKELDSectionDoc& doc)
{
    auto* session = doc.findChild<CResultSession*>(QString(), Qt::FindDirectChildrenOnly);
    return session != nullptr ? *session : *new CResultSession(&doc);
}

} // namespace sbd
