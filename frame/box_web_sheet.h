// The sheet that asks for the web names of box girders.
#pragma once

#include "document/box_web.h"

#include <QDialog>

class QPushButton;

namespace sbd {

class CBoxWebSource;
class CGridCtrl;

/// The page of the sheet: a grid with one row a girder.
class CInputBoxLRName : public QWidget {
    Q_OBJECT

public:
    explicit CInputBoxLRName(BoxWebNames names, QWidget* parent = nullptr);
    ~CInputBoxLRName() override;

    /// Takes what stands in the grid into the names. False: the open cell holds a character that a project cannot
    /// hold; the user has been told, the names stay as they were.
    bool Commit();
    [[nodiscard]] const BoxWebNames& Names() const { return names_; }
    [[nodiscard]] CGridCtrl& Grid() { return *grid_; }

    /// As large as the grid's content, with a scroll bar where that is higher than can be shown well.
    [[nodiscard]] QSize sizeHint() const override;

signals:
    /// Tab has left the last cell, or Shift+Tab the first one.
    void leftByTab(bool forward);

protected:
    bool eventFilter(QObject* object, QEvent* event) override;

private:
    BoxWebNames names_;
    std::unique_ptr<CBoxWebSource> source_;
    CGridCtrl* grid_;
};

/// The page alone in a dialog with OK and Cancel.
class CBoxWebSheet : public QDialog {
    Q_OBJECT

public:
    explicit CBoxWebSheet(BoxWebNames names, QWidget* parent = nullptr);

    [[nodiscard]] CInputBoxLRName& Page() { return *page_; }

public slots:
    void accept() override;

private:
    CInputBoxLRName* page_;
    QPushButton* ok_;
    QPushButton* cancel_;
};

/// Shows the sheet and takes over what was entered; false if it was left otherwise than by OK.
[[nodiscard]] bool ShowBoxWebSheet(QWidget* parent, BoxWebNames& names);

} // namespace sbd
