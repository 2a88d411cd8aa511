// Once a day: is there a newer version?
#pragma once

#include "app/deployment.h"
#include "app/http_get.h"
#include "app/version_record.h"

#include <QObject>

#include <functional>

namespace sbd {

/// What the check needs of the world.
struct VersionCheckSeams {
    HttpGet get = GetPage;
    std::function<QDateTime()> now = [] { return QDateTime::currentDateTime(); };
    /// A yes/no question. No should be the answer of Enter: the box may come while the user is typing.
    std::function<bool(const QString& text)> ask;
    /// Shows a page; false if nothing on this machine can.
    std::function<bool(const QUrl& page)> openPage;
    /// A message with nothing to decide.
    std::function<void(const QString& text)> tell;
    /// Ends the program as closing its window does: changes that are not saved are asked for.
    std::function<void()> quit;
};

/// What is asked when the server has a newer version.
[[nodiscard]] QString OutdatedQuestion(const QUrl& homePage);

/// What is told instead where no browser shows the page.
[[nodiscard]] QString NoBrowserMessage(const QUrl& homePage);

/// Asks the version server and keeps the daily record. Never blocks: the result comes by signal.
class CVersionCheck : public QObject {
    Q_OBJECT

public:
    /// `folder` holds the daily record; it is made if it is not there.
    CVersionCheck(const QString& folder, const DeploymentSettings& settings, VersionCheckSeams seams,
                  QObject* parent = nullptr);

    /// To be called once a program start. `checked` follows, unless the user goes to the home page instead. A record
    /// that cannot be written ends the check with what the last one of the day found.
    void CheckVersion(const QString& currentVersion = kSystemVersion);

signals:
    /// The result text, to stand behind the version in the menu. May come before CheckVersion returns.
    void checked(const QString& result);

private:
    void Judge(const HttpAnswer& answer);
    void Finish(const QString& result);
    [[nodiscard]] bool LeavesForHomePage();

    CVersionRecord record_;
    DeploymentSettings settings_;
    VersionCheckSeams seams_;
    QString version_;
    QDateTime start_;
    std::optional<QString> stored_; ///< result that the record of the day held
};

/// The last entry of the menu bar: version and result.
[[nodiscard]] QString VersionMenuText(const QString& version, const QString& result);

} // namespace sbd
