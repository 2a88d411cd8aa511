// Pictures that the commands of sbdpage write.
#pragma once

#include <QByteArray>
#include <QSize>
#include <QString>

#include <functional>

class QCommandLineParser;
class QPainter;

namespace sbd {

inline constexpr int kBadPictureCall = 2;

/// Paints a whole pane, ground included.
using PaintPane = std::function<void(QPainter&)>;

/// Tells a fault of the call on the error output and gives `code`.
int FailCall(const QString& message, int code = kBadPictureCall);

/// Puts a file in place whole, but never over one of a project; a pipe or device is written to as it is. False without
/// bytes.
[[nodiscard]] bool WriteFile(const QString& path, const QByteArray& bytes);

/// Options --png, --pdf and --svg.
void AddPictureOptions(QCommandLineParser& parser);
[[nodiscard]] bool AsksForPicture(const QCommandLineParser& parser);
/// Writes each picture that is asked for, `size` pixels of 96 an inch; gives the exit code.
[[nodiscard]] int WritePictures(const QCommandLineParser& parser, QSize size, const PaintPane& paint);

} // namespace sbd
