// File names that the program proposes.
#pragma once

#include <QString>

namespace sbd {

class CKELDSectionDoc;

/// A file name of `text`, without an extension, that every system takes: no character and no word that Windows keeps
/// for itself, no blank or point at its end, not too long. Never empty.
[[nodiscard]] QString SafeFileName(const QString& text);

/// The folder of a project's file; for a project without one the user's documents.
[[nodiscard]] QString ProjectFolder(const CKELDSectionDoc& doc);

/// A path to propose in the project's folder: SafeFileName of `text`, and `extension` with its point.
[[nodiscard]] QString ProposedFile(const CKELDSectionDoc& doc, const QString& text, const QString& extension);

} // namespace sbd
