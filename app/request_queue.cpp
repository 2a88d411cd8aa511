#include "app/request_queue.h"

#include "app/single_instance.h"
#include "frame/main_frame.h"

#include <QApplication>

namespace sbd {

CRequestQueue::CRequestQueue(CMainFrame& frame) : frame_(frame)
{
    constexpr int interval = 200; // ms
    timer_.setInterval(interval);
    connect(&timer_, &QTimer::timeout, this, &CRequestQueue::OpenWaiting);
}

void CRequestQueue::Take(const StartRequest& request)
{
    waiting_ += request.paths;
    QWidget* modal = QApplication::activeModalWidget();
    BringToFront(modal == nullptr ? frame_ : *modal->window(), request.activationToken);
    OpenWaiting();
}

void CRequestQueue::OpenWaiting()
{
    timer_.stop();
    while (!waiting_.isEmpty() && QApplication::activeModalWidget() == nullptr)
        frame_.OpenProject(waiting_.takeFirst());
    if (!waiting_.isEmpty())
        timer_.start();
}

} // namespace sbd
