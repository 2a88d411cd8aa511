// CProjectCheck: follows a project and keeps what is to be told of it.
#pragma once

#include "check/doubts.h"
#include "check/finding.h"
#include "check/read_back.h"
#include "document/section_doc.h"

#include <QObject>
#include <QTimer>

#include <array>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <vector>

namespace sbd {

class CPanelModel;

/// How many findings there are of each severity; [0] is not used.
using SeverityCounts = std::array<std::size_t, 4>;

/// What would come back from a project's file as another text, and what is doubtful in it. Looks at what was changed when
/// the event loop has nothing else to do, at no more than that, and says nothing unless something is to be told otherwise.
/// What a new project tells of its own values is not told of any other either.
/// Rows and columns are those of the grid on show for its block, of a panel built from the data for the others.
class CProjectCheck : public QObject {
    Q_OBJECT

public:
    /// The document must outlive the check.
    explicit CProjectCheck(const CKELDSectionDoc& doc, QObject* parent = nullptr);

    /// The panel on show, which may hold rows that do not stand in the data; null: none.
    std::function<const CPanelModel*()> openPanel;

    /// The kinds of doubts that the user does not want to be told.
    void SetSilent(SilentKinds kinds);
    [[nodiscard]] const SilentKinds& Silent() const { return silent_; }

    /// Looks as soon as there is time; what drawing the bridge tells follows once nobody types.
    void LookSoon();
    /// Looks at what is still to be looked at but for the drawings.
    void LookNow();
    /// Likewise with the drawings of the bridge, which take longer.
    void LookAtAllNow();

    /// The cells that come back different, as the last look has found them.
    [[nodiscard]] const CReadBack& ReadBack() const { return readBack_; }

    /// Blocks with findings, ascending.
    [[nodiscard]] std::vector<int> Blocks() const;
    /// The findings of a block by row and column; those of the block as a whole first.
    [[nodiscard]] std::span<const Finding> FindingsOf(int block) const;
    /// All of them by block, up to the bound.
    [[nodiscard]] FindingList All() const;
    [[nodiscard]] const SeverityCounts& Counts() const { return counts_; }
    /// The severity of a block's finding that weighs most.
    [[nodiscard]] std::optional<Severity> WorstOf(int block) const;

signals:
    /// Something is told otherwise than before.
    void updated();

private:
    void OnChanged(const BlockChange& change);
    void LookAtNames();
    void LookAtData();
    void LookAtPanel();
    [[nodiscard]] bool TellReturned();
    [[nodiscard]] bool TellDoubts(const std::vector<int>& blocks);
    void LookAtDrawings();
    void Look(bool drawings);
    void Count();

    const CKELDSectionDoc& doc_;
    QTimer timer_;
    QTimer drawingTimer_;
    SilentKinds silent_;
    CReadBack readBack_;

    // To be looked at.
    bool lookAtAll_ = true;
    bool lookAtDrawings_ = true;
    std::vector<ChangedRow> changed_;

    // What it was judged by.
    GridNames names_;
    bool isUntouched_ = false; // a new project that nobody has entered anything into

    // What was found in the data, by block, and what it was made of.
    std::map<int, std::vector<ReturnedCell>> cells_;
    std::map<int, std::vector<Finding>> returned_;
    std::map<int, std::vector<Finding>> doubts_;
    std::map<int, std::vector<Finding>> notDrawn_;
    bool isNew_ = false; // found since updated()

    // What is told.
    int openBlock_ = 0;
    LooseRows loose_; // of the panel on show
    std::map<int, std::vector<Finding>> told_;
    SeverityCounts counts_{};
};

} // namespace sbd
