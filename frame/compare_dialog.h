// CCompareDialog: what a project is to be compared with.
#pragma once

#include "document/kept_inputs.h"

#include <QDialog>

class QListWidget;

namespace sbd {

/// What there is.
struct CompareSource {
    QString project;
    QString file; ///< of the project, as text; empty: it was never saved
    QList<KeptInput> kept;
};

struct CompareChoice {
    enum class With { OtherFile, SavedFile, Kept };
    With with = With::OtherFile;
    qsizetype kept = 0;
};

class CCompareDialog : public QDialog {
    Q_OBJECT

public:
    explicit CCompareDialog(const CompareSource& source, QWidget* parent = nullptr);

    [[nodiscard]] CompareChoice Choice() const;

private:
    QListWidget* list_;
    bool hasFile_;
};

} // namespace sbd
