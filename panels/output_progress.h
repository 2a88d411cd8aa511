// COutputProgress: how far an output has come, for a user who may not want it any more.
#pragma once

#include <QElapsedTimer>
#include <QProgressDialog>

#include <cstddef>
#include <functional>

namespace sbd {

/// Comes up when the output takes more than a second.
class COutputProgress {
public:
    /// Asked as the dialog's button is; true: the user gives up.
    using Cancel = std::function<bool(std::size_t done)>;

    COutputProgress(QWidget* parent, const QString& what, Cancel isCancelled = {});

    /// Tells how much is done of how much, and lets the window live. False: the user gives up.
    bool operator()(std::size_t done, std::size_t all);
    [[nodiscard]] bool IsCancelled() const { return cancelled_; }

private:
    QProgressDialog dialog_;
    QElapsedTimer begun_;
    Cancel isCancelled_;
    bool cancelled_ = false;
};

} // namespace sbd
