// What is chosen of the analysis results in an open project.
#pragma once

#include "results/result_selection.h"

#include <QObject>

namespace sbd {

class CKELDSectionDoc;

/// The document's copy of the selection in the panel of block 253. It lives as long as the document; the panel writes
/// it, the figure reads it.
class CResultSession : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    ResultSelection selection;

    /// Says that the figure of the selection is another one.
    void ShowFigureAnew() { emit figureChanged(); }

signals:
    /// The figure of the selection is another one.
    void figureChanged();
};

/// The session of a document, made at the first call.
[[nodiscard]] CResultSession& ResultSessionOf(CKELDSectionDoc& doc);

} // namespace sbd
