// The report of an engine while it is being written.
#pragma once

#include "document/project_stamp.h"

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <string>
#include <vector>

namespace sbd {

/// Follows the report of one run. What stood there before the run is not shown. A file of any size costs the same: of a
/// piece that is too long only its end is read.
class CReportTail {
public:
    /// To be made before the engine starts.
    explicit CReportTail(QString path);

    /// The lines that have come since the last call, ready to be shown. A line that has no end yet waits for it.
    [[nodiscard]] QStringList NewLines();

private:
    void FindBegin(const FileLook& look);

    QString path_;
    FileLook seen_;    ///< at the last look
    qint64 read_ = -1; ///< bytes that were read; -1: nothing of this run has come yet
    qint64 sizeBefore_ = 0;
    QByteArray endBefore_; ///< the last bytes of the report before the run
    QByteArray open_;      ///< a line without its end
};

/// What a report says of itself.
struct ReportCount {
    int errors = 0;
    int warnings = 0;
    friend bool operator==(const ReportCount&, const ReportCount&) = default;
};

/// Counts the errors and warnings in a report: "Error = 3" says a number, any other line that speaks of an error is one.
/// A guess, as the form of a report is the engine's own. All of the file counts, of what size it is, piece by piece; what
/// comes to it meanwhile does not.
[[nodiscard]] ReportCount CountReport(const QString& path);
/// The same of lines (CP932).
[[nodiscard]] ReportCount CountReport(const std::vector<std::string>& lines);

} // namespace sbd
