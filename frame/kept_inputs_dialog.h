// CKeptInputsDialog: the kept inputs of a project.
#pragma once

#include "document/kept_inputs.h"

#include <QDialog>
#include <QList>

#include <functional>

class QPushButton;
class QTreeWidget;

namespace sbd {

/// What the dialog lists, and what it can do with an input. Each of the functions closes it.
struct KeptInputsView {
    QString project; ///< what the project is called
    QList<KeptInput> inputs;
    std::function<void(const KeptInput& input)> compare;
    std::function<void(const KeptInput& input)> openCopy;
    std::function<void(const KeptInput& input)> restore;
};

class CKeptInputsDialog : public QDialog {
    Q_OBJECT

public:
    explicit CKeptInputsDialog(KeptInputsView view, QWidget* parent = nullptr);

private:
    void Do(const std::function<void(const KeptInput& input)>& act);

    KeptInputsView view_;
    QTreeWidget* list_;
};

} // namespace sbd
