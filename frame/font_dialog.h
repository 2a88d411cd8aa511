// CFontDialog: face, size, effects and colour of the help pane's text.
#pragma once

#include "document/display_settings.h"

#include <QColor>
#include <QDialog>

#include <functional>

class QCheckBox;
class QFontComboBox;
class QLabel;
class QPushButton;
class QSpinBox;

namespace sbd {

/// Asks for the font of the help pane, which has no weight of its own, and its colour.
class CFontDialog : public QDialog {
    Q_OBJECT

public:
    CFontDialog(DisplaySettings display, QWidget* parent = nullptr);

    /// What the dialog began with, in the font and colour chosen.
    [[nodiscard]] DisplaySettings Chosen() const;

    /// Asks for a colour; an invalid one keeps what stands.
    std::function<QColor(const QColor& now, QWidget* parent)> askColor;

private:
    void AskColor();
    void ShowSample();

    DisplaySettings display_;
    QFontComboBox* face_;
    QSpinBox* size_;
    QCheckBox* italic_;
    QCheckBox* underline_;
    QCheckBox* strikeOut_;
    QPushButton* color_;
    QLabel* sample_;
};

} // namespace sbd
