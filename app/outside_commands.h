// The documents and home pages in the help menu.
#pragma once

namespace sbd {

class CMainFrame;
struct DeploymentSettings;

/// Makes the frame's entries of documents and home pages open them. A page that the deployment does not set is greyed.
void ConnectOutside(CMainFrame& frame, const DeploymentSettings& settings);

} // namespace sbd
