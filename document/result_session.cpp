#include "document/result_session.h"

#include "document/path.h"
#include "document/section_doc.h"

namespace sbd {

CResultSession::CResultSession(CKELDSectionDoc& doc) : QObject(&doc), doc_(doc)
{
    const auto refresh = [this] { RefreshState(); };
    connect(&doc_, &CKELDSectionDoc::reloaded, this, refresh);
    connect(&doc_, &CKELDSectionDoc::resultsRead, this, refresh);
    connect(&doc_, &CKELDSectionDoc::pathChanged, this, refresh);
    connect(&doc_, &CKELDSectionDoc::modifiedChanged, this, refresh);
    RefreshState();
}

void CResultSession::RefreshState()
{
    const QString& path = doc_.PathName();
    ResultState state =
        ResultStateOf(path.isEmpty() ? std::filesystem::path() : ToPath(path), doc_.ResultsAsRead(), doc_.IsModified());
    if (state == state_)
        return;
    state_ = std::move(state);
    emit stateChanged();
}

void CResultSession::Mark(std::string name)
{
    if (name == marked_)
        return;
    marked_ = std::move(name);
    emit markChanged();
}

CResultSession& ResultSessionOf(CKELDSectionDoc& doc)
{
    auto* session = doc.findChild<CResultSession*>(QString(), Qt::FindDirectChildrenOnly);
    return session != nullptr ? *session : *new CResultSession(doc);
}

} // namespace sbd
