// The daily record of the version check.
#pragma once

#include <QDateTime>
#include <QString>

#include <optional>

namespace sbd {

/// The version of the system: "Ver" and a date. Two versions compare as texts.
inline constexpr QLatin1StringView kSystemVersion("Ver20110808");

/// Results of a check, as the menu shows them behind the version.
[[nodiscard]] QString UpToDateText();
[[nodiscard]] QString OutdatedText();
/// With the time of the attempt; ends with a line end, as it stands in the record.
[[nodiscard]] QString NoAnswerText(QTime time);

/// The version named on the server's page: eleven characters from the first "Ver2" on. Nothing if these are not "Ver" and
/// a date of eight digits.
[[nodiscard]] std::optional<QString> VersionOnPage(const QByteArray& page);

/// Where the daily record is kept: the system's folder if the user may write there (ordinary users may not), else the
/// user's own. An empty system folder stands for none.
[[nodiscard]] QString VersionRecordFolder(const QString& systemFolder, const QString& userFolder);

/// KELD_VERSION.txt: the day of the last check, the version, the result. CP932.
class CVersionRecord {
public:
    explicit CVersionRecord(const QString& folder);

    /// Takes the result of a check of `today` out of the record, if there is one, and removes the file.
    [[nodiscard]] std::optional<QString> Take(QDate today) const;
    /// Writes the record anew; without a result its third line is missing. False if the folder takes no file.
    [[nodiscard]] bool Write(QDate today, const QString& version, const QString& result) const;

private:
    QString file_;
};

} // namespace sbd
