// One running program a user.
#pragma once

#include <QByteArray>
#include <QObject>
#include <QStringList>

#include <memory>

class QDeadlineTimer;
class QLocalServer;
class QLocalSocket;
class QWidget;

namespace sbd {

class CProcessLock;

/// What a second start tells the first one.
struct StartRequest {
    QStringList paths;          ///< projects to open, absolute
    QByteArray activationToken; ///< the desktop's leave to come to the front; empty where it has none to give
};

/// Tells the first start of the program in a user's session from the later ones. A later one hands its request to the
/// first one and ends: the first one comes to the front. The projects on its command line are handed over too, since
/// a double click on a project in the file manager is such a second start and would otherwise open nothing.
///
/// The first one holds a lock file that goes away with its process, however that ends. So one that crashed does not
/// stand in the way of the next, and of two that start at the same moment one is the first.
class CSingleInstance : public QObject {
    Q_OBJECT

public:
    /// `name` is one for all starts that are to be one program.
    explicit CSingleInstance(const QString& name = SessionName(), QObject* parent = nullptr);
    ~CSingleInstance() override;

    enum class Role {
        First,      ///< go on; requests of later starts come by `requested`
        Second,     ///< the first one has taken the request: end
        Unanswered, ///< there is a first one, but it does not take requests: tell the user, end
    };
    /// Decides; to be called once. A folder that takes no lock file does not keep the program from starting. Requests
    /// that come before `requested` is connected to wait for the event loop.
    [[nodiscard]] Role Start(const StartRequest& request);

    /// The name for this user and this session: the folder of run-time files, or where there is none, a name alone.
    [[nodiscard]] static QString SessionName();

    /// Milliseconds that a second start waits for the first one, which may still be starting or about to end.
    int patience = 5000;

signals:
    void requested(const sbd::StartRequest& request);

private:
    void Listen();
    void TakeRequest(QLocalSocket* socket);
    [[nodiscard]] bool HandOver(const StartRequest& request, const QDeadlineTimer& deadline) const;

    QString name_;
    std::unique_ptr<CProcessLock> lock_;
    QLocalServer* server_ = nullptr;
};

/// The request of this start: its projects with absolute paths, and the desktop's activation token.
[[nodiscard]] StartRequest RequestOf(const QStringList& projects);

/// What a start says that finds the first one not answering.
[[nodiscard]] QString UnansweredMessage();

/// Brings a window to the front, out of the task bar too.
void BringToFront(QWidget& window, const QByteArray& activationToken);

} // namespace sbd
