#include "app/single_instance.h"

#include "document/process_lock.h"

#include <QCryptographicHash>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QLocalServer>
#include <QLocalSocket>
#include <QStandardPaths>
#include <QThread>
#include <QWidget>

#ifdef Q_OS_WIN
#include <windows.h>
#endif

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kLargestRequest = 1 << 20;
constexpr int kPause = 50; // ms between two tries to be the first one, or to reach it

constexpr const char* kActivationToken = "XDG_ACTIVATION_TOKEN";

// A request is one line of JSON: what comes in decides nothing about how much is reserved.
const auto kPaths = u"paths"_s;
const auto kToken = u"activationToken"_s;

QByteArray ToBytes(const StartRequest& request)
{
    const QJsonObject object{{kPaths, QJsonArray::fromStringList(request.paths)},
                             {kToken, QString::fromUtf8(request.activationToken)}};
    return QJsonDocument(object).toJson(QJsonDocument::Compact) + '\n';
}

std::optional<StartRequest> FromBytes(const QByteArray& line)
{
    const QJsonDocument document = QJsonDocument::fromJson(line);
    if (!document.isObject())
        return std::nullopt;
    StartRequest request;
    for (const auto& path : document[kPaths].toArray())
        request.paths.append(path.toString());
    request.activationToken = document[kToken].toString().toUtf8();
    return request;
}

} // namespace

CSingleInstance::CSingleInstance(const QString& name, QObject* parent) : QObject(parent), name_(name) {}

CSingleInstance::~CSingleInstance()
{
    delete server_; // ahead of the lock: whoever takes that listens under the same name
}

QString CSingleInstance::SessionName()
{
    QByteArray session = QDir::homePath().toUtf8();
#ifdef Q_OS_WIN
    // A window of another session of the same user would not be seen. The lock file is among the temporary files.
    DWORD number = 0;
    ProcessIdToSessionId(GetCurrentProcessId(), &number);
    session += '\n' + QByteArray::number(static_cast<qulonglong>(number)) + '\n' + QDir::tempPath().toUtf8();
#else
    // A window on another screen of the same user would not be seen.
    for (const char* variable : {"WAYLAND_DISPLAY", "DISPLAY"})
        session += '\n' + qgetenv(variable);
#endif
    constexpr int digits = 16; // a socket's path has to be short
    const QByteArray hash = QCryptographicHash::hash(session, QCryptographicHash::Sha256).toHex().first(digits);
    const QString name = u"sbdstation-"_s + QString::fromLatin1(hash);
#ifdef Q_OS_WIN
    return name;
#else
    const QString folder = QStandardPaths::writableLocation(QStandardPaths::RuntimeLocation);
    return folder.isEmpty() ? name : folder + u'/' + name;
#endif
}

CSingleInstance::Role CSingleInstance::Start(const StartRequest& request)
{
    const QString file = QDir::isAbsolutePath(name_) ? name_ : QDir::temp().filePath(name_);
    lock_ = std::make_unique<CProcessLock>(file + u".lock"_s);
    const QDeadlineTimer deadline(patience);
    while (true) {
        if (lock_->Take() != CProcessLock::Result::Held) {
            Listen();
            return Role::First;
        }
        if (HandOver(request, deadline))
            return Role::Second;
        if (deadline.hasExpired())
            return Role::Unanswered;
        QThread::msleep(kPause); // the first one may still be starting, or be on its way out
    }
}

void CSingleInstance::Listen()
{
    QLocalServer::removeServer(name_); // what a crashed one left
    server_ = new QLocalServer(this);
    server_->setSocketOptions(QLocalServer::UserAccessOption);
    connect(server_, &QLocalServer::newConnection, this, [this] {
        while (QLocalSocket* socket = server_->nextPendingConnection()) {
            socket->setReadBufferSize(kLargestRequest);
            connect(socket, &QLocalSocket::readyRead, this, [this, socket] { TakeRequest(socket); });
            connect(socket, &QLocalSocket::disconnected, socket, &QObject::deleteLater);
            TakeRequest(socket);
        }
    });
    server_->listen(name_); // a program that cannot listen still works, it only stays in the back
}

void CSingleInstance::TakeRequest(QLocalSocket* socket)
{
    if (!socket->canReadLine()) {
        if (socket->bytesAvailable() >= kLargestRequest)
            socket->abort();
        return;
    }
    const std::optional<StartRequest> request = FromBytes(socket->readLine());
    if (!request) {
        socket->abort();
        return;
    }
    socket->write("1"); // the other one may end
    socket->flush();
    // Behind this call: what follows may show a box, and the socket, whose call this is, goes with the other one.
    QMetaObject::invokeMethod(
        this, [this, request = *request] { emit requested(request); }, Qt::QueuedConnection);
}

bool CSingleInstance::HandOver(const StartRequest& request, const QDeadlineTimer& deadline) const
{
    const auto left = [&] { return static_cast<int>(deadline.remainingTime()); };
    QLocalSocket socket;
    socket.connectToServer(name_);
    if (!socket.waitForConnected(left()))
        return false;
#ifdef Q_OS_WIN
    AllowSetForegroundWindow(ASFW_ANY); // the user has started us, so that it is ours to let a window come to the front
#endif
    socket.write(ToBytes(request));
    while (socket.bytesToWrite() > 0) {
        if (!socket.waitForBytesWritten(left()))
            return false;
    }
    // The first one may be busy with a run. Once the bytes are with the system, it finds them when it is done. But one
    // that hangs up without a word was on its way out.
    return socket.waitForReadyRead(left()) || socket.bytesAvailable() > 0
           || socket.state() == QLocalSocket::ConnectedState;
}

StartRequest RequestOf(const QStringList& projects)
{
    StartRequest request;
    for (const QString& project : projects)
        request.paths.append(QFileInfo(project).absoluteFilePath());
    request.activationToken = qgetenv(kActivationToken);
    return request;
}

QString UnansweredMessage()
{
    return u"KELD section はすでに起動していますが、応答がありません。\n\n"
           u"新しいウィンドウは開きません。起動中の KELD section の入力内容はそのままです。\n\n"
           u"計算の実行が終わるのを待つか、起動中の KELD section を終了してから、もう一度起動してください。"_s;
}

void BringToFront(QWidget& window, const QByteArray& activationToken)
{
    if (!activationToken.isEmpty())
        qputenv(kActivationToken, activationToken); // read by the platform when a window asks to be activated
    window.setWindowState(window.windowState() & ~Qt::WindowMinimized);
    window.show();
    window.raise();
    window.activateWindow();
}

} // namespace sbd
