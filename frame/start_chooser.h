// CStartChooserDlg: how a new project begins.
#pragma once

#include <QDialog>

class QButtonGroup;
class QGridLayout;
class QPushButton;

namespace sbd {

/// What the start chooser was left with.
struct StartChoice {
    int choice = 0;     ///< 1 to 6, one a button; 0: closed otherwise
    int girderType = 0; ///< 0 plate girder, 1 box girder
};

/// Six buttons that end the dialog, all with the result "accepted", and the type of the girders.
class CStartChooserDlg : public QDialog {
    Q_OBJECT

public:
    explicit CStartChooserDlg(QWidget* parent = nullptr);

    [[nodiscard]] StartChoice Choice() const;

private:
    QWidget* CreateGirderTypes();
    void AddButton(QGridLayout* layout, int row, const QString& text, const QString& beside);
    QPushButton* CreateButton(const QString& text);

    QList<QPushButton*> buttons_;
    QButtonGroup* girderTypes_ = nullptr;
    int choice_ = 0;
};

} // namespace sbd
