// The window of the guide for the first bridge.
#pragma once

#include <functional>

class QString;
class QWidget;

namespace sbd {

/// A window of its own that goes with `owner`, and behind or before it as the user likes. `choosePlace` asks where the files to practise with go; an
/// empty answer: nowhere.
[[nodiscard]] QWidget* MakeGuideWindow(QWidget* owner, std::function<QString(QWidget*)> choosePlace);

} // namespace sbd
