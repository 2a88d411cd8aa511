// A question with the answers yes and no.
#pragma once

#include <QString>

class QWidget;

namespace sbd {

/// The answer that Enter gives. No is for questions after which something is lost.
enum class YesNoDefault { Yes, No };

/// Shows `text` with the buttons はい and いいえ. True: yes. Closing the box is a no.
[[nodiscard]] bool AskYesNo(QWidget* parent, const QString& text, YesNoDefault answer = YesNoDefault::No);

} // namespace sbd
