#include "sbdpage_pictures.h"

#include "document/path.h"
#include "project/console.h"
#include "sbdfile/output_file.h"
#include "upperview/svg_picture.h"

#include <QBuffer>
#include <QCommandLineParser>
#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <QPainter>
#include <QPdfWriter>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

constexpr int kScreenDpi = 96;

/// The bytes of a picture of `size` pixels; none if it could not be made.
using MakePicture = QByteArray (*)(QSize size, const PaintPane& paint);

QByteArray Png(QSize size, const PaintPane& paint)
{
    QImage image(size, QImage::Format_RGB32);
    if (image.isNull())
        return {};
    QPainter painter(&image);
    paint(painter);
    painter.end();
    QBuffer buffer;
    return image.save(&buffer, "PNG") ? buffer.data() : QByteArray();
}

/// One sheet as large as the pane.
QByteArray Pdf(QSize size, const PaintPane& paint)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    {
        QPdfWriter writer(&buffer);
        writer.setResolution(kScreenDpi);
        writer.setPageSize(QPageSize(QSizeF(size) / kScreenDpi, QPageSize::Inch, {}, QPageSize::ExactMatch));
        writer.setPageMargins({});
        QPainter painter(&writer);
        paint(painter);
    }
    return buffer.data();
}

QByteArray Svg(QSize size, const PaintPane& paint)
{
    QBuffer buffer;
    buffer.open(QIODevice::WriteOnly);
    CSvgPicture picture(buffer, size, kScreenDpi);
    QPainter painter(&picture);
    paint(painter);
    painter.end();
    return buffer.data();
}

struct PictureOption {
    const char* option;
    MakePicture make;
    const char* help;
};

constexpr PictureOption kPictures[] = {
    {"png", Png, "Writes a picture of pixels."},
    {"pdf", Pdf, "Writes a PDF of one sheet."},
    {"svg", Svg, "Writes a picture of lines."},
};

} // namespace

bool WriteFile(const QString& path, const QByteArray& bytes)
{
    if (bytes.isEmpty())
        return false;
    if (const QFileInfo place(path); place.exists() && !place.isFile()) {
        QFile stream(path);
        return stream.open(QIODevice::WriteOnly | QIODevice::Unbuffered) && stream.write(bytes) == bytes.size();
    }
    return WriteOutputFile(ToPath(path), {bytes.constData(), static_cast<std::size_t>(bytes.size())}).Ok();
}

int FailCall(const QString& message, int code)
{
    PrintText(stderr, (u"sbdpage: "_s + message + u'\n').toStdString());
    return code;
}

void AddPictureOptions(QCommandLineParser& parser)
{
    for (const PictureOption& picture : kPictures)
        parser.addOption({QString::fromLatin1(picture.option), QString::fromLatin1(picture.help), u"file"_s});
}

bool AsksForPicture(const QCommandLineParser& parser)
{
    for (const PictureOption& picture : kPictures)
        if (!parser.value(QString::fromLatin1(picture.option)).isEmpty())
            return true;
    return false;
}

int WritePictures(const QCommandLineParser& parser, QSize size, const PaintPane& paint)
{
    bool any = false;
    for (const PictureOption& picture : kPictures) {
        const QString path = parser.value(QString::fromLatin1(picture.option));
        if (path.isEmpty())
            continue;
        any = true;
        if (!WriteFile(path, picture.make(size, paint)))
            return FailCall(u"cannot write "_s + path);
    }
    return any ? 0 : FailCall(u"one of --png, --pdf and --svg says where to draw"_s);
}

} // namespace sbd
