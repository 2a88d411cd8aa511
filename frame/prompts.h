// What the frame asks and tells the user; tests put their own answers in.
#pragma once

#include <QString>

#include <functional>

class QWidget;

namespace sbd {

/// Answer to the question whether changes are saved.
enum class SaveAnswer { Save, Discard, Cancel };

/// The dialogs of the frame. A file name that comes back empty means that the user gave up.
struct Prompts {
    /// Project to open; the dialog starts in `folder`.
    std::function<QString(QWidget* parent, const QString& folder)> openFileName;
    /// Name to save under; the dialog starts with `proposal`. An existing file is the user's will.
    std::function<QString(QWidget* parent, const QString& proposal)> saveFileName;
    /// Save, discard or cancel.
    std::function<SaveAnswer(QWidget* parent, const QString& text)> ask;
    /// A message with nothing to decide.
    std::function<void(QWidget* parent, const QString& text)> warn;
};

/// The dialogs on the screen.
[[nodiscard]] Prompts ScreenPrompts();

} // namespace sbd
