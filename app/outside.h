// Documents and web pages that other programs show.
#pragma once

#include "app/deployment.h"
#include "commands/commands.h"

#include <QString>
#include <QUrl>

#include <functional>
#include <span>

namespace sbd {

/// A command that opens a document beside the program.
struct DocumentCommand {
    Command command;
    QLatin1StringView file;
};

/// In the order of the menu.
[[nodiscard]] std::span<const DocumentCommand> DocumentCommands();

/// Text of the second page in the menu; empty if the deployment has no name for it.
[[nodiscard]] QString SecondHomePageText(const DeploymentSettings& settings);
/// The page of a web command; empty if the deployment sets none: the command has nothing to do.
[[nodiscard]] QUrl WebPage(Command command, const DeploymentSettings& settings);

/// What is told when a document is missing.
[[nodiscard]] QString MissingDocumentMessage(const DocumentCommand& document, const QUrl& homePage);

/// Opens documents and pages.
class COutside {
public:
    struct Seams {
        std::function<bool(const QUrl& url)> open; ///< by default the desktop's way
        std::function<void(const QString& text)> warn;
    };

    /// Documents stand in `programFolder`.
    COutside(QString programFolder, DeploymentSettings settings, Seams seams);

    /// What the commands do; others do nothing. What the desktop answers is not looked at.
    void Run(Command command) const;

private:
    void OpenDocument(const DocumentCommand& document) const;

    QString programFolder_;
    DeploymentSettings settings_;
    Seams seams_;
};

} // namespace sbd
