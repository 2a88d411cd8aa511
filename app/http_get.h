// One question to a web server.
#pragma once

#include <QByteArray>
#include <QUrl>

#include <functional>

class QObject;

namespace sbd {

/// What came back. Status 0: no answer at all, for whatever reason.
struct HttpAnswer {
    int status = 0;
    QByteArray body;
};

/// Asks for a page; the answer comes later, once, by the event loop. Nothing comes if `owner` is gone by then.
using HttpGet = std::function<void(const QUrl& url, QObject* owner, std::function<void(const HttpAnswer&)> answered)>;

/// Milliseconds after which a server that has not sent its whole answer has not answered.
inline constexpr int kHttpTimeout = 5000;

/// HTTP GET past all caches; a redirection is an answer like others.
void GetPage(const QUrl& url, QObject* owner, std::function<void(const HttpAnswer&)> answered);

} // namespace sbd
