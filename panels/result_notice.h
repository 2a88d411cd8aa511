// CResultNotice: tells that result files have come that are not on show yet.
#pragma once

#include <QTimer>
#include <QWidget>

class QLabel;
class QPushButton;

namespace sbd {

class CKELDSectionDoc;

/// A line with a button that reads the results again. It shows itself while the files of the project are other ones than
/// those in memory: looked after when it is made, when its panel or window comes to the front, and every two seconds
/// while the panel is to be seen.
class CResultNotice : public QWidget {
    Q_OBJECT

public:
    CResultNotice(CKELDSectionDoc* doc, QWidget* panel);

    /// Looks at the files and shows or hides the line.
    void Check();

protected:
    bool eventFilter(QObject* panel, QEvent* event) override;

private:
    void ReadAgain();

    CKELDSectionDoc* doc_;
    QLabel* text_;
    QPushButton* read_;
    QTimer timer_;
};

} // namespace sbd
