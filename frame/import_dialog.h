// CImportDialog: a table of a text file, and where its columns and rows go.
#pragma once

#include "frame/table_prompts.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;
class QRadioButton;
class QTableWidget;
class QTimer;

namespace sbd {

/// The first rows of the file, a list over each column for the column of the grid, and what would not fit.
class CImportDialog : public QDialog {
    Q_OBJECT

public:
    explicit CImportDialog(const ImportView& view, QWidget* parent = nullptr);

    /// The cells as chosen.
    [[nodiscard]] std::vector<CellEntry> Cells();

private:
    void Read();
    void ShowTable();
    void ShowOutcome();
    [[nodiscard]] ImportPlan Plan() const;
    [[nodiscard]] QString OutcomeText(const PasteOutcome& outcome, std::size_t cells) const;

    const ImportView& view_;
    TextTable table_;
    QComboBox* codes_;
    QComboBox* separators_;
    QCheckBox* heads_;
    QRadioButton* append_;
    QRadioButton* replace_;
    QTableWidget* rows_;
    QLabel* told_;
    QPushButton* import_;
    QTimer* soon_;
};

} // namespace sbd
