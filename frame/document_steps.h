// The steps of a new document, on a real one.
#pragma once

#include "document/box_web.h"
#include "document/save_flow.h"
#include "frame/new_document.h"

#include <functional>

namespace sbd {

class CKELDSectionDoc;
class CProjectLock;

/// What the steps need of the window around the document.
struct DocumentHooks {
    std::function<void(const QString& project)> setPathName; ///< document's path and recent files
    std::function<void(const QString& project)> readResultFiles;
    std::function<bool()> saveWrapper;
    std::function<bool()> runMain; ///< true: the project has been read again
    BoxWebPrompts boxWebs;
    YesNoQuestion askAboutHeldFile;
    std::function<void(const QString& text)> warn;
    YesNoQuestion askAboutForeignFile = {}; ///< a save would put a project in its place; empty: it does
    /// Keeps a project that is begun anew; false: the user would rather leave it alone.
    std::function<bool(const QString& project)> keepReplaced = {};
};

/// CNewDocumentSteps over a document and its lock.
class CDocumentSteps final : public CNewDocumentSteps {
public:
    CDocumentSteps(CKELDSectionDoc& doc, CProjectLock& lock, DocumentHooks hooks);

    bool SaveDocument(const QString& project) override;
    void SetPathName(const QString& project) override;
    void ReadGridNames(const QString& namesFile) override;
    void ReadResultFiles(const QString& project) override;
    bool OpenDocument(const QString& project) override;
    void SetUcGrid() override;
    bool BoxWebFlow() override;
    bool SaveWrapper() override;
    bool RunMain() override;

private:
    CKELDSectionDoc& doc_;
    CProjectLock& lock_;
    DocumentHooks hooks_;
};

} // namespace sbd
