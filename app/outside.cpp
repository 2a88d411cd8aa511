#include "app/outside.h"

#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>

#include <algorithm>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr DocumentCommand kDocuments[] = {
    {Command::GirderDocument, "KELD_Section_README.doc"_L1},
    {Command::CrossDocument, "KELD_Cross_README.DOC"_L1},
    {Command::FemDocument, "KELD_Fem_README.doc"_L1},
    {Command::StringerDocument, "KELD_Stringer_and_Bracket_README.DOC"_L1},
    {Command::SupportDocument, "KELD_Support_Stiff_Diaphragm_README.DOC"_L1},
    {Command::QuantityDocument, "KELD_Material_README.doc"_L1},
};

/// The file whatever the case of its name: the message asks for ".doc" where the table has ".DOC".
QString FindFile(const QString& folder, const QString& name)
{
    const QDir dir(folder);
    if (dir.exists(name))
        return dir.filePath(name);
    const QStringList files = dir.entryList(QDir::Files);
    const auto found =
        std::ranges::find_if(files, [&](const QString& file) { return file.compare(name, Qt::CaseInsensitive) == 0; });
    return found == files.end() ? QString() : dir.filePath(*found);
}

} // namespace

std::span<const DocumentCommand> DocumentCommands()
{
    return kDocuments;
}

QString SecondHomePageText(const DeploymentSettings& settings)
{
    return settings.secondHomePageName.isEmpty() ? QString() : settings.secondHomePageName + u" Homepage..."_s;
}

QUrl WebPage(Command command, const DeploymentSettings& settings)
{
    if (command == Command::HomePage)
        return settings.homePage;
    return command == Command::SecondHomePage ? settings.secondHomePage : QUrl();
}

QString MissingDocumentMessage(const DocumentCommand& document, const QUrl& homePage)
{
    const QString name = QFileInfo(QString(document.file)).completeBaseName() + u".doc"_s;
    const QString address = homePage.isEmpty() ? u"製品のホームページ"_s : homePage.toString();
    return u"ファイル"_s + name + u"を "_s + address + u" \n(最新版アップデート)よりダウンロードして下さい！"_s;
}

COutside::COutside(QString programFolder, DeploymentSettings settings, Seams seams)
    : programFolder_(std::move(programFolder))
    , settings_(std::move(settings))
    , seams_(std::move(seams))
{
    if (!seams_.open)
        seams_.open = QDesktopServices::openUrl;
}

void COutside::Run(Command command) const
{
    const auto document = std::ranges::find(kDocuments, command, &DocumentCommand::command);
    if (document != std::end(kDocuments))
        OpenDocument(*document);
    else if (const QUrl page = WebPage(command, settings_); !page.isEmpty())
        seams_.open(page);
}

void COutside::OpenDocument(const DocumentCommand& document) const
{
    const QString file = FindFile(programFolder_, document.file);
    if (file.isEmpty())
        seams_.warn(MissingDocumentMessage(document, settings_.homePage));
    else
        seams_.open(QUrl::fromLocalFile(file));
}

} // namespace sbd
