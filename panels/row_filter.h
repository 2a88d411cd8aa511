// CRowFilter: the line below a grid that puts rows out of sight.
#pragma once

#include <QWidget>

class QLabel;
class QLineEdit;

namespace sbd {

/// A line for the text that the rows in sight hold in one column, and what that means for the others.
class CRowFilter : public QWidget {
    Q_OBJECT

public:
    /// `column`: the head of the column.
    CRowFilter(const QString& column, QWidget* parent);

    [[nodiscard]] QString Text() const;
    /// Puts the keyboard into the line, with a text that is ready to be typed over.
    void GoToLine(const QString& text);
    /// How many rows fit, and how many are out of sight.
    void Tell(int rows, int out);
    [[nodiscard]] QString Told() const;

signals:
    void textChanged();
    /// Enter: on to the rows.
    void entered();
    /// Esc, or the button: all rows are to be seen again.
    void ended();

protected:
    void keyPressEvent(QKeyEvent* event) override;

private:
    QLineEdit* line_;
    QLabel* told_;
};

} // namespace sbd
