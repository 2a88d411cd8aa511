// CResultNotes: what has to be known of the results on show, below their table.
#pragma once

#include "document/result_session.h"

#include <QWidget>

class QLabel;
class QPushButton;

namespace sbd {

class CKELDSectionDoc;
class CResultTable;

/// A point that was clicked in the figure and that the table does not show as it is; from which files the results are,
/// and whether they are old; what is wrong with the files; and that newer ones have come.
class CResultNotes : public QWidget {
    Q_OBJECT

public:
    /// `panel`: whose table it is.
    CResultNotes(CKELDSectionDoc* doc, QWidget* panel);

    void ShowOrigin(const CResultTable& table);
    void ShowFaults();

    /// Tells of a clicked point. `isInTable`: its row is there.
    void ShowPoint(const PickedPoint& point, bool isInTable);
    void HidePoint();

signals:
    /// What is laid over in the figure is to stand in the table.
    void overWanted();

private:
    [[nodiscard]] QString WordsOf(const PickedPoint& point, bool isInTable) const;

    CKELDSectionDoc* doc_;
    CResultSession& session_;
    QWidget* point_;
    QLabel* pointText_;
    QPushButton* showOver_;
    QLabel* origin_; // from which files the table is
    QLabel* faults_; // hidden without one
};

} // namespace sbd
