#include "frame/about_text.h"

#include <QDir>
#include <QFileInfo>
#include <QtGlobal>

namespace sbd {

using namespace Qt::StringLiterals;

namespace {

/// Where packages put the full texts, seen from the program: the archive and the installer of Windows, then Debian.
constexpr const char* kLicences[] = {"licences/README.ja.txt", "../share/doc/sbdstation/copyright"};

QString LicencesOf(const QString& programFolder)
{
    for (const char* place : kLicences) {
        const QFileInfo file(QDir(programFolder), QString::fromLatin1(place));
        if (file.isFile())
            return QDir::toNativeSeparators(file.canonicalFilePath());
    }
    return {};
}

} // namespace

QString AboutText(const QString& systemVersion, const QString& programVersion, const QString& programFolder)
{
    QString text = u"KELD section\n鋼橋上部工 自動設計システム 入力ステーション\n\n"
                   u"システムの版: %1\nこのプログラムの版: %2\n\n"
                   u"このプログラムは MIT License です。次のソフトウェアを使用しています。\n"
                   u"　Qt %3　GNU LGPL 第 3 版\n"
                   u"　libxlsxwriter　BSD License、zlib　zlib License\n"
                   u"　toml++、JSON for Modern C++　MIT License"_s.arg(systemVersion, programVersion,
                                                                       QString::fromLatin1(qVersion()));
    const QString licences = LicencesOf(programFolder);
    if (!licences.isEmpty())
        text += u"\n\nライセンスの全文:\n"_s + licences;
    return text;
}

} // namespace sbd
