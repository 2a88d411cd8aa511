// What is searched in an open project.
#pragma once

#include <QObject>
#include <QString>

namespace sbd {

class CKELDSectionDoc;

/// The search line of block 999 and its choices. They live as long as the document, so that a search is still there when
/// its panel comes back; the panel writes them, the page of the block reads the line.
class CSearchSession : public QObject {
    Q_OBJECT

public:
    using QObject::QObject;

    QString line;
    bool allWords = true; ///< all words must be found; false: one of them
    bool topics = true;   ///< help topics and questions are searched
    bool items = true;    ///< input items are searched
    int hitBlock = 0;     ///< where the marked row of the results leads; 0: no such row is marked
    int hitRow = 0;
    int hitColumn = 0;
};

/// The session of a document, made at the first call.
[[nodiscard]] CSearchSession& SearchSessionOf(CKELDSectionDoc& doc);

} // namespace sbd
