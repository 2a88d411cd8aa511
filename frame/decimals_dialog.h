// CDecimalsDialog: digits behind the point.
#pragma once

#include <QDialog>

class QSpinBox;

namespace sbd {

/// Asks how many digits behind the point the help pane shows of metres and of millimetres.
class CDecimalsDialog : public QDialog {
    Q_OBJECT

public:
    static constexpr int kMost = 15; // a double holds no more

    CDecimalsDialog(int metres, int millimetres, QWidget* parent = nullptr);

    [[nodiscard]] int Metres() const;
    [[nodiscard]] int Millimetres() const;

private:
    QSpinBox* AddField(const QString& title, int value);

    QSpinBox* metres_;
    QSpinBox* millimetres_;
};

} // namespace sbd
