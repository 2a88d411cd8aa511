// What the frame asks and tells the user; tests put their own answers in.
#pragma once

#include "document/box_web.h"
#include "document/display_settings.h"
#include "document/recovery.h"
#include "frame/book_dialog.h"
#include "frame/compare_dialog.h"
#include "frame/difference_dialog.h"
#include "frame/engine_runner.h"
#include "frame/kept_inputs_dialog.h"
#include "frame/start_chooser.h"
#include "frame/table_prompts.h"

#include <QColor>
#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class QPrinter;
class QWidget;

namespace sbd {

/// Answer to the question whether changes are saved.
enum class SaveAnswer { Save, Discard, Cancel };

/// What becomes of a recovery copy that was found at the start.
enum class RecoveryAnswer {
    Open,
    Compare, ///< to be asked again behind it
    Remove,
    Later,
    AllLater, ///< this one and those that would be offered behind it
};

/// What is asked about a recovery copy.
struct RecoveryQuestion {
    QString text;          ///< tells of the copy
    qsizetype more = 0;    ///< further ones wait behind it
    bool putOff = false;   ///< the project's file is newer: the answer to begin with is "later"
    bool compares = false; ///< there is something to compare the copy with
};

/// What a save does with a project's file that somebody else has changed.
enum class ChangedFileAnswer {
    Overwrite,
    SaveAs,
    Reload,
    Compare, ///< to be asked again behind it
    Cancel,
};

/// The dialogs of the frame, and what else reaches beyond it. A file name that comes back empty means that the user gave
/// up.
struct Prompts {
    /// Project to open; the dialog starts in `folder`.
    std::function<QString(QWidget* parent, const QString& folder)> openFileName;
    /// Name to save under; the dialog starts with `proposal`. An existing file is the user's will.
    std::function<QString(QWidget* parent, const QString& proposal)> saveFileName;
    /// Save, discard or cancel.
    std::function<SaveAnswer(QWidget* parent, const QString& text)> ask;
    /// A message with nothing to decide.
    std::function<void(QWidget* parent, const QString& text)> warn;
    /// A question with the answers yes and no; true: yes.
    std::function<bool(QWidget* parent, const QString& text)> askYesNo;

    /// How a new project begins.
    std::function<StartChoice(QWidget* parent)> chooseStart;
    /// File that a new project begins with; the dialog starts in `folder`.
    std::function<QString(QWidget* parent, const QString& folder, const QStringList& filters)> openNewProjectFile;
    /// Folder for the files that the guide practises with; the dialog starts in `folder`.
    std::function<QString(QWidget* parent, const QString& folder)> chooseFolder;
    /// The sheet of the web names of box girders.
    std::function<bool(QWidget* parent, BoxWebNames& names)> showBoxWebs;
    std::function<RecoveryAnswer(QWidget* parent, const RecoveryQuestion& question)> askRecovery;
    std::function<ChangedFileAnswer(QWidget* parent, const QString& text)> askChangedFile;
    /// Shows what differs, and does what the user wants with it.
    std::function<void(QWidget* parent, DifferenceView view)> showDifferences;
    /// Shows the kept inputs of a project, and does what the user wants with them.
    std::function<void(QWidget* parent, const KeptInputsView& view)> showKeptInputs;

    /// What goes into the book of the input; nothing if the user gave up.
    std::function<std::optional<BookChoice>(QWidget* parent, const BookSource& source)> chooseBook;
    /// With what the project is compared; nothing if the user gave up.
    std::function<std::optional<CompareChoice>(QWidget* parent, const CompareSource& source)> chooseComparison;
    /// File to write a book or a list to, its kind by its ending; the dialog starts with `proposal`.
    std::function<QString(QWidget* parent, const QString& proposal, const QStringList& filters)> saveReportName;

    /// False where nothing can be printed on: the system's dialogs would not even come up.
    std::function<bool()> hasPrinter;
    /// The printer to print on, with the user's choices; false: given up.
    std::function<bool(QWidget* parent, QPrinter& printer)> choosePrinter;
    /// Shows what `paint` puts on paper, from where it may be printed.
    std::function<void(QWidget* parent, QPrinter& printer, const std::function<void(QPrinter&)>& paint)> previewPrint;
    /// File to save a picture in, its kind by its ending; the dialog starts with `proposal`.
    std::function<QString(QWidget* parent, const QString& proposal)> savePictureName;
    /// Tables in text files.
    TablePrompts tables;
    /// A colour; an invalid one if the user gave up.
    std::function<QColor(QWidget* parent, const QColor& now)> chooseColour;
    /// Font and text colour of the help pane, or its decimals; false if the user gave up.
    std::function<bool(QWidget* parent, DisplaySettings& display)> chooseFont;
    std::function<bool(QWidget* parent, DisplaySettings& display)> chooseDecimals;

    /// What the engine runs use.
    RunSeams runs;
};

/// The dialogs on the screen.
[[nodiscard]] Prompts ScreenPrompts();

/// Nobody is there to answer: nothing is chosen, no question is answered with yes, no run is made. Messages go to
/// `told`.
[[nodiscard]] Prompts SilentPrompts(const std::function<void(const QString& text)>& told);

} // namespace sbd
