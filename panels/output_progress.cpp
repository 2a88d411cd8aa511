#include "panels/output_progress.h"

#include <QCoreApplication>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kPatience = 1000; // ms

} // namespace

COutputProgress::COutputProgress(QWidget* parent, const QString& what, Cancel isCancelled)
    : dialog_(what, u"中止"_s, 0, 1, parent)
    , isCancelled_(std::move(isCancelled))
{
    dialog_.setObjectName(u"outputProgress"_s);
    dialog_.setWindowTitle(u"KELD section"_s);
    dialog_.setWindowModality(Qt::WindowModal);
    dialog_.setMinimumDuration(kPatience);
    dialog_.setAutoClose(false); // the end of the rows is not that of the file
    dialog_.setAutoReset(false);
    begun_.start();
}

bool COutputProgress::operator()(std::size_t done, std::size_t all)
{
    if (cancelled_)
        return false; // a dialog that was left by its button must not come again
    if (done < all) {
        dialog_.setMaximum(static_cast<int>(all));
        dialog_.setValue(static_cast<int>(done));
    } else {
        dialog_.setMaximum(0); // what is left has no measure
    }
    if (!dialog_.isVisible() && begun_.hasExpired(kPatience))
        dialog_.show();
    if (dialog_.isVisible()) // before that the window would take input
        QCoreApplication::processEvents();
    cancelled_ = dialog_.wasCanceled() || (isCancelled_ && isCancelled_(done));
    return !cancelled_;
}

} // namespace sbd
