// The file commands: new, open, save, close, and what they ask and tell.
#pragma once

#include "frame/prompts.h"

#include <QString>

#include <memory>

class QMdiArea;

namespace sbd {

class CChildFrame;
class CKELDSectionDoc;

/// Opens and saves the projects that stand as windows in an area.
class CFileCommands {
public:
    CFileCommands(QMdiArea& area, Prompts prompts);

    /// A window with an empty project.
    CChildFrame* New();

    /// Asks for a file and opens it; null if nothing was opened.
    CChildFrame* Open();
    /// Opens a project, or brings its window to the front. Takes the place of an empty project that nothing was entered
    /// into. Null if the file cannot be opened; the user has been told why.
    CChildFrame* OpenFile(const QString& path);

    /// Saves to the project's own file, or asks for one. False if it is not saved; the user has been told why.
    bool Save(CChildFrame& child);
    bool SaveAs(CChildFrame& child);

    /// Asks what becomes of unsaved changes. False if the window has to stay.
    bool MayClose(CChildFrame& child);

    [[nodiscard]] const Prompts& Dialogs() const { return prompts_; }

private:
    CChildFrame* AddChild(std::unique_ptr<CKELDSectionDoc> doc);
    [[nodiscard]] CChildFrame* FindOpen(const QString& path) const;
    [[nodiscard]] QString Folder() const;
    bool SaveTo(CChildFrame& child, const QString& path);
    void Warn(const QString& text) const;

    QMdiArea& area_;
    Prompts prompts_;
};

} // namespace sbd
