#include "upperview/run_poster.h"

#include <algorithm>

namespace sbd {

CRunPoster::CRunPoster(std::function<bool()> isWanted, QObject* parent, int pause)
    : QObject(parent)
    , isWanted_(std::move(isWanted))
    , pause_(pause)
{
    timer_.setSingleShot(true);
    connect(&timer_, &QTimer::timeout, this, &CRunPoster::Post);
}

void CRunPoster::Want(const WantedRun& run)
{
    run_ = run;
    if (timer_.isActive())
        return;
    const qint64 rest = sinceRun_.isValid() ? pause_ - sinceRun_.elapsed() : 0;
    timer_.start(static_cast<int>(std::max<qint64>(rest, 0)));
}

void CRunPoster::RunEnded()
{
    sinceRun_.start();
    if (timer_.isActive())
        timer_.start(pause_);
}

void CRunPoster::UserAsked()
{
    sinceRun_.invalidate();
    if (timer_.isActive())
        timer_.start(0);
}

void CRunPoster::Post()
{
    if (isWanted_())
        emit runIsDue(run_);
}

} // namespace sbd
