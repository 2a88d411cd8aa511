#include "app/outside_commands.h"

#include "app/outside.h"
#include "frame/main_frame.h"

#include <QApplication>

namespace sbd {

void ConnectOutside(CMainFrame& frame, const DeploymentSettings& settings)
{
    COutside::Seams seams;
    seams.warn = [&frame](const QString& text) { frame.Warn(text); };
    const COutside outside(QApplication::applicationDirPath(), settings, std::move(seams));
    QObject::connect(&frame, &CMainFrame::commandForOutside, &frame,
                     [outside](Command command) { outside.Run(command); });
    frame.SetHomePages(
        {!settings.homePage.isEmpty(), !settings.secondHomePage.isEmpty(), SecondHomePageText(settings)});
}

} // namespace sbd
