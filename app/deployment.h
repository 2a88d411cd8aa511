// What whoever deploys the system sets: the addresses of the version server and of the home pages.
#pragma once

#include <QString>
#include <QUrl>

namespace sbd {

/// The settings of a deployment; docs/deployment.md tells the keys. All may be empty: then no request goes out, and
/// there is no page to open.
struct DeploymentSettings {
    QUrl versionPage; ///< page that names the newest version
    QUrl homePage;    ///< the product's
    QUrl secondHomePage;
    QString secondHomePageName; ///< in the menu, before " Homepage..."
};

/// Reads the INI file. A file that is missing, or a value that is no http or https address, counts as not set.
[[nodiscard]] DeploymentSettings ReadDeployment(const QString& iniFile);

/// The INI file's place: beside the program.
[[nodiscard]] QString DeploymentFile(const QString& programFolder);

} // namespace sbd
