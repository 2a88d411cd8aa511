// CResultSheetsDialog: sheets with the figures of several girders, as one PDF or on a printer.
#pragma once

#include "results/result_sheets.h"

#include <QDialog>
#include <QPageLayout>

#include <array>
#include <functional>
#include <vector>

class QCheckBox;
class QComboBox;
class QPrinter;
class QPushButton;
class QRadioButton;

namespace sbd {

class CKELDSectionDoc;

/// What stands on the sheets, and on which paper. The load case, the envelope and what is laid over are those that block
/// 253 has chosen.
class CResultSheetsDialog : public QDialog {
    Q_OBJECT

public:
    explicit CResultSheetsDialog(CKELDSectionDoc* doc, QWidget* parent = nullptr);

    /// The sheets as they are chosen now.
    [[nodiscard]] std::vector<ResultSheet> Sheets() const;
    [[nodiscard]] QPageLayout Layout() const;

    // Seams; by default dialogs of the platform.

    /// The file to save in; the dialog begins with the path `proposal`. Empty: none.
    std::function<QString(QWidget* parent, const QString& proposal)> askFile;
    /// Chooses a printer; false: none.
    std::function<bool(QWidget* parent, QPrinter& printer)> choosePrinter;
    /// Tells the user something.
    std::function<void(QWidget* parent, const QString& message)> warn;
    /// Asked in the dialog of the progress ahead of each sheet, with how many are done; true: the user gives up.
    std::function<bool(int done)> isCancelled;

public slots:
    void SavePdf();
    void Print();

private:
    /// Makes `work` while a dialog of its progress, which comes up after a second, can cancel it. True if it was cancelled.
    template <typename Work>
    bool WithProgress(const Work& work);
    void ShowState();

    CKELDSectionDoc* doc_;
    QRadioButton* allGirders_;
    QRadioButton* oneGirder_;
    std::array<std::array<QCheckBox*, kNodeComponents>, 3> items_{}; // by kind and component
    QComboBox* paper_;
    QComboBox* orientation_;
    QPushButton* save_;
    QPushButton* print_;
};

} // namespace sbd
