// CResultSaver: the table of results as a file or on paper.
#pragma once

#include "panels/output_progress.h"
#include "results/result_csv.h"

#include <QString>
#include <QWidget>

#include <filesystem>
#include <functional>

class QPushButton;

namespace sbd {

class CKELDSectionDoc;
class CResultSession;
struct FileResult;

/// The buttons that put the table on show into files and on paper. A file that was there stays if the output fails, or is
/// not wanted any more.
class CResultSaver : public QWidget {
    Q_OBJECT

public:
    /// `table` must outlive the saver: it is the one on show, whichever that is.
    CResultSaver(CKELDSectionDoc* doc, const std::function<const CResultTable&()>& table, QWidget* parent = nullptr);

    /// Only what there is can be put out.
    void ShowWhatThereIs();
    [[nodiscard]] bool HasRows() const;

    // Seams; by default dialogs of the platform.

    /// The file to save a table in; the dialog begins with the path `proposal`. Empty: none.
    std::function<QString(QWidget* parent, const QString& proposal)> askFile;
    /// Prints a table; false: it could not be printed.
    std::function<bool(QWidget* parent, const CResultTable& table, const ResultSelection& selection)> print;
    /// Tells the user something.
    std::function<void(QWidget* parent, const QString& message)> warn;
    /// Asked in the dialog of the progress of a file; true: the user gives up.
    COutputProgress::Cancel isCancelled;

signals:
    /// A table stands in a file now, or does not because it was given up: for the status bar.
    void ended(const QString& words);

public slots:
    void SaveCsv();
    void SaveXlsx();
    void Print();

private:
    /// A table with what is told of it. It is a copy: the one on show may change meanwhile.
    struct Content {
        CResultTable table;
        ResultSelection selection;
        ResultState state;
        TableProgress progress;
    };
    using Write = std::function<FileResult(const Content& content, const std::filesystem::path& path)>;
    void Save(const QString& extension, const QString& what, const Write& write);
    void TellSaved(const QString& path, const FileResult& result);

    CKELDSectionDoc* doc_;
    CResultSession& session_;
    std::function<const CResultTable&()> table_;
    QPushButton* csv_;
    QPushButton* xlsx_;
    QPushButton* print_;
    QPushButton* sheets_;
};

} // namespace sbd
