// What is chosen of the analysis results in an open project.
#pragma once

#include "results/result_selection.h"
#include "results/result_state.h"

#include <QObject>

#include <map>
#include <string>

namespace sbd {

class CKELDSectionDoc;

/// A point of a diagram, or a node, that was clicked in the figure. Texts are CP932.
struct PickedPoint {
    std::string name = {}; ///< of the row of the table
    std::size_t component = 0;
    bool rightEnd = false;  ///< of the member
    bool isLeast = false;   ///< in the diagram of the smallest values of an envelope
    bool isOver = false;    ///< in the diagram that is laid over the first one
    std::string words = {}; ///< what, where, how much; in lines
};

/// The document's copy of the selection in the panel of block 253. It lives as long as the document; the panel writes
/// it, the figure reads it.
class CResultSession : public QObject {
    Q_OBJECT

public:
    explicit CResultSession(CKELDSectionDoc& doc);

    ResultSelection selection;

    /// Says that the figure of the selection is another one.
    void ShowFigureAnew() { emit figureChanged(); }

    /// From which files the results are, and whether the input is newer, as at the last look.
    [[nodiscard]] const ResultState& State() const { return state_; }
    /// Looks at the files again.
    void RefreshState();

    /// The name of the row of the table under the cursor, in CP932; empty: none.
    [[nodiscard]] const std::string& Marked() const { return marked_; }
    void Mark(std::string name);

    /// Says that a member or node was clicked in the figure.
    void Pick(const PickedPoint& point) { emit picked(point); }

    /// Asks for sheets of several figures: whoever can make them, does.
    void AskForSheets() { emit sheetsWanted(); }

    /// Widths in pixels that the user has given to columns of the table, by kind and head.
    std::map<std::string, int> columnWidths;

signals:
    /// The figure of the selection is another one.
    void figureChanged();
    void stateChanged();
    void markChanged();
    void picked(const PickedPoint& point);
    void sheetsWanted();

private:
    CKELDSectionDoc& doc_;
    ResultState state_;
    std::string marked_;
};

/// The session of a document, made at the first call.
[[nodiscard]] CResultSession& ResultSessionOf(CKELDSectionDoc& doc);

} // namespace sbd
