#include "app/outside_menu.h"

#include "app/outside.h"
#include "frame/main_frame.h"

#include <QApplication>
#include <QMenu>
#include <QMessageBox>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

QAction* AddCommand(QMenu& menu, QAction* before, QString text, const std::shared_ptr<COutside>& outside, int command)
{
    auto* action = new QAction(text.replace(u'&', u"&&"_s), &menu);
    QObject::connect(action, &QAction::triggered, &menu, [outside, command] { outside->Run(command); });
    menu.insertAction(before, action);
    return action;
}

} // namespace

void AddOutsideMenu(CMainFrame& frame, const DeploymentSettings& settings)
{
    COutside::Seams seams;
    seams.warn = [&frame](const QString& text) { QMessageBox::warning(&frame, u"KELD section"_s, text); };
    const auto outside = std::make_shared<COutside>(QApplication::applicationDirPath(), settings, std::move(seams));

    QMenu& menu = frame.HelpMenu();
    QAction* const before = menu.actions().value(0);
    for (const DocumentCommand& document : DocumentCommands())
        AddCommand(menu, before, document.menuText.toString(), outside, document.command);
    menu.insertSeparator(before);
    for (const int command : {kHomePageCommand, kSecondHomePageCommand}) {
        const QString text = WebMenuText(command, settings);
        if (!text.isEmpty())
            AddCommand(menu, before, text, outside, command)->setEnabled(!WebPage(command, settings).isEmpty());
    }
    menu.insertSeparator(before);
}

} // namespace sbd
