#include "app/http_get.h"

#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>

namespace sbd {

namespace {

constexpr qint64 kLargestPage = 1 << 20;

} // namespace

void GetPage(const QUrl& url, QObject* owner, std::function<void(const HttpAnswer&)> answered)
{
    QNetworkRequest request(url);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute, QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute, QNetworkRequest::ManualRedirectPolicy);
    request.setRawHeader("Cache-Control", "no-cache"); // for caches on the way
    request.setRawHeader("Pragma", "no-cache");

    auto* network = new QNetworkAccessManager(owner);
    QNetworkReply* reply = network->get(request);
    QTimer::singleShot(kHttpTimeout, reply, &QNetworkReply::abort); // the whole answer, however slowly it drips
    QObject::connect(reply, &QNetworkReply::readyRead, reply, [reply] {
        if (reply->bytesAvailable() > kLargestPage)
            reply->abort();
    });
    QObject::connect(reply, &QNetworkReply::finished, owner, [network, reply, answered = std::move(answered)] {
        HttpAnswer answer;
        // What comes before this error is the line's failure, what comes from it on is the server's answer.
        constexpr QNetworkReply::NetworkError firstAnswer = QNetworkReply::ContentAccessDenied;
        const bool answers = reply->error() == QNetworkReply::NoError || reply->error() >= firstAnswer;
        if (answers && reply->bytesAvailable() <= kLargestPage) {
            answer.status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
            answer.body = reply->readAll();
        }
        network->deleteLater();
        answered(answer);
    });
}

} // namespace sbd
