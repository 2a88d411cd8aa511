// CBookDialog: which blocks go into the book of a project's input, and how.
#pragma once

#include "document/kept_inputs.h"

#include <QDialog>

#include <vector>

class QCheckBox;
class QComboBox;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace sbd {

/// What can be chosen from.
struct BookSource {
    QString project;
    std::vector<int> filled; ///< blocks that hold input
    bool hasFile = false;    ///< there is a saved state to compare with
    QList<KeptInput> kept;
};

/// What the user wants.
struct BookChoice {
    enum class Kind { Pdf, Sheets };
    enum class Scope { Filled, Chosen, Changed };
    Kind kind = Kind::Pdf;
    Scope scope = Scope::Filled;
    std::vector<int> blocks = {}; ///< of Chosen
    qsizetype since = -1;         ///< of Changed: kept input; -1: the file
    bool sketches = false;
    bool landscape = false;
};

/// The kept input as a list calls it: time and why it was kept.
[[nodiscard]] QString KeptInputName(const KeptInput& input);

class CBookDialog : public QDialog {
    Q_OBJECT

public:
    explicit CBookDialog(const BookSource& source, QWidget* parent = nullptr);

    [[nodiscard]] BookChoice Choice() const;

private:
    void Finish(BookChoice::Kind kind);
    void UpdateState();

    BookChoice::Kind kind_ = BookChoice::Kind::Pdf;
    QRadioButton* filled_;
    QRadioButton* chosen_;
    QRadioButton* changed_;
    QListWidget* blocks_;
    QComboBox* since_;
    QCheckBox* sketches_;
    QCheckBox* landscape_;
    QList<QPushButton*> writes_;
};

} // namespace sbd
