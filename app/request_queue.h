// Requests of later starts, taken when the window can take them.
#pragma once

#include <QObject>
#include <QStringList>
#include <QTimer>

namespace sbd {

class CMainFrame;
struct StartRequest;

/// Brings the window to the front for each later start and opens its projects. While a box is open or an engine runs,
/// the projects wait: the user's answer comes first.
class CRequestQueue : public QObject {
    Q_OBJECT

public:
    explicit CRequestQueue(CMainFrame& frame);

    /// True while projects wait to be opened.
    [[nodiscard]] bool HasWaiting() const { return !waiting_.isEmpty(); }

public slots:
    void Take(const sbd::StartRequest& request);

private:
    void OpenWaiting();

    CMainFrame& frame_;
    QStringList waiting_;
    QTimer timer_;
};

} // namespace sbd
