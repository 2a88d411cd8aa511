// What our dialogs have in common: texts, and the row of buttons at the foot.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

class QDialog;
class QDialogButtonBox;
class QLabel;
class QPushButton;

namespace sbd {

/// A text of any length that is never read as HTML, over as many lines as it takes.
[[nodiscard]] QLabel* PlainText(const QString& text);

/// The buttons of a dialog.
struct DialogButtons {
    QDialogButtonBox* box;
    QList<QPushButton*> accept;
};

/// The buttons that accept, of which Enter presses the first, and "キャンセル". What an accepting one does is connected by
/// the caller; one alone accepts.
[[nodiscard]] DialogButtons MakeDialogButtons(QDialog& dialog, const QStringList& accept);

} // namespace sbd
