// The documents and home pages in the help menu.
#pragma once

namespace sbd {

class CMainFrame;
struct DeploymentSettings;

/// Adds the documents and the home pages to the frame's help menu. A page that the deployment does not set is greyed.
void AddOutsideMenu(CMainFrame& frame, const DeploymentSettings& settings);

} // namespace sbd
