// What is asked when a table of a text file comes into a block, or goes out of it.
#pragma once

#include "panelmodel/table_import.h"

#include <QString>
#include <QStringList>

#include <functional>
#include <optional>

class QWidget;

namespace sbd {

/// A file that is to be imported, and the block that takes it.
struct ImportView {
    QString file;                    ///< its name
    QString block;                   ///< "313 垂直補剛材"
    std::string text;                ///< CP932 or UTF-8, without a mark
    TextCode code = TextCode::Cp932; ///< in which it seems to stand
    bool otherCode = true;           ///< false: it certainly stands in that
    QStringList heads;               ///< of the grid, from column 1 on
    int focusRow = 1;
    int appendRow = 1;
    std::function<ImportPlan(const TextTable&)> propose;
    /// What would become of the cells.
    std::function<PasteOutcome(const std::vector<CellEntry>&)> tryOut;
};

struct TablePrompts {
    /// A file with a table; empty: the user gave up.
    std::function<QString(QWidget* parent, const QString& folder)> openName;
    std::function<QString(QWidget* parent, const QString& proposal)> saveName;
    /// The cells that are to be put in; nothing: the user gave up.
    std::function<std::optional<std::vector<CellEntry>>(QWidget* parent, const ImportView& view)> chooseImport;
    /// What is to be written of a block.
    std::function<std::optional<ExportPlan>(QWidget* parent, const QString& block)> chooseExport;
};

// The dialogs on the screen.
[[nodiscard]] std::optional<std::vector<CellEntry>> ChooseImport(QWidget* parent, const ImportView& view);
[[nodiscard]] std::optional<ExportPlan> ChooseExport(QWidget* parent, const QString& block);

/// Nobody is there to answer.
[[nodiscard]] TablePrompts SilentTablePrompts();

} // namespace sbd
