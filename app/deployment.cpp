#include "app/deployment.h"

#include <QDir>
#include <QSettings>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

const auto kVersionPath = u"/keld/public_html/KELD_newest.htm"_s;

/// An address of the web; http where it says nothing else.
QUrl WebAddress(const QString& text)
{
    const QString trimmed = text.trimmed();
    if (trimmed.isEmpty())
        return {};
    const QUrl url(trimmed.contains(u"://"_s) ? trimmed : u"http://"_s + trimmed, QUrl::StrictMode);
    const bool web = url.scheme() == u"http"_s || url.scheme() == u"https"_s;
    return web && url.isValid() && !url.host().isEmpty() ? url : QUrl();
}

} // namespace

DeploymentSettings ReadDeployment(const QString& iniFile)
{
    const QSettings file(iniFile, QSettings::IniFormat);
    DeploymentSettings settings;
    settings.versionPage = WebAddress(file.value(u"Version/Server"_s).toString());
    const QString path = settings.versionPage.path();
    if (!settings.versionPage.isEmpty() && (path.isEmpty() || path == u"/"_s))
        settings.versionPage.setPath(kVersionPath);
    settings.homePage = WebAddress(file.value(u"HomePage/Address"_s).toString());
    settings.secondHomePage = WebAddress(file.value(u"SecondHomePage/Address"_s).toString());
    settings.secondHomePageName = file.value(u"SecondHomePage/Name"_s).toString().trimmed();
    return settings;
}

QString DeploymentFile(const QString& programFolder)
{
    return QDir(programFolder).filePath(u"deployment.ini"_s);
}

} // namespace sbd
