#include "app/version_check.h"

#include <QDir>

namespace sbd {

using namespace Qt::StringLiterals;

QString OutdatedQuestion(const QUrl& homePage)
{
    const QString address = homePage.toString();
    return u"現在の KELD は最新版ではありません！\n\n"_s + address + u" より，KELD最新版をダウンロードできます. \n\n"_s
           + address + u"を開きますか？\n\n( この表示は１日１回のみ )"_s;
}

QString NoBrowserMessage(const QUrl& homePage)
{
    return u"ホームページを開けませんでした。このコンピューターにはブラウザーが設定されていません。\n\n"_s
           + homePage.toString()
           + u"\n\n最新版は、ブラウザーのあるコンピューターで上のアドレスを開いてダウンロードしてください。"
             u"KELD section は終了します。入力内容には影響ありません。"_s;
}

CVersionCheck::CVersionCheck(const QString& folder, const DeploymentSettings& settings, VersionCheckSeams seams,
                             QObject* parent)
    : QObject(parent)
    , record_(folder)
    , settings_(settings)
    , seams_(std::move(seams))
{
    QDir().mkpath(folder);
}

void CVersionCheck::CheckVersion(const QString& currentVersion)
{
    version_ = currentVersion;
    start_ = seams_.now();
    stored_ = record_.Take(start_.date());
    if (!record_.Write(start_.date(), version_, {})) {
        emit checked(stored_.value_or(QString()));
        return;
    }
    if (settings_.versionPage.isEmpty()) {
        Finish({}); // nobody was asked: the version alone
        return;
    }
    seams_.get(settings_.versionPage, this, [this](const HttpAnswer& answer) { Judge(answer); });
}

void CVersionCheck::Judge(const HttpAnswer& answer)
{
    constexpr int firstRefusal = 300; // status codes from here on bring no page
    const bool answered = answer.status > 0 && answer.status < firstRefusal;
    const std::optional<QString> newest = answered ? VersionOnPage(answer.body) : std::nullopt;
    if (!newest)
        Finish(NoAnswerText(start_.time()));
    else if (version_ >= *newest)
        Finish(UpToDateText());
    else if (!LeavesForHomePage())
        Finish(OutdatedText());
}

bool CVersionCheck::LeavesForHomePage()
{
    // Once a day: a record that is not "up to date" says that the box has been seen, or that no server was there.
    const bool asks = !stored_ || *stored_ == UpToDateText();
    if (!asks || settings_.homePage.isEmpty() || !seams_.ask(OutdatedQuestion(settings_.homePage)))
        return false;
    if (!seams_.openPage(settings_.homePage))
        seams_.tell(NoBrowserMessage(settings_.homePage));
    seams_.quit();
    return true;
}

void CVersionCheck::Finish(const QString& result)
{
    (void)record_.Write(start_.date(), version_, result); // the result is told all the same
    emit checked(result);
}

QString VersionMenuText(const QString& version, const QString& result)
{
    QString text = version + result;
    while (text.endsWith(u'\n'))
        text.chop(1);
    return text.replace(u'&', u"&&"_s);
}

} // namespace sbd
