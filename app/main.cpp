// sbdstation: the input station.
#include "app/start_options.h"
#include "app/station.h"
#include "project/console.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QTranslator>

#include <clocale>
#include <csignal>

int main(int argc, char** argv)
{
    using namespace Qt::StringLiterals;

#ifdef Q_OS_WIN
    sbd::UseConsoleOfStarter();
#else
    // Windows always has a screen, and only there has it its fonts.
    if (sbd::NeedsNoScreen(argc, argv) && !qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
#ifdef SIGXFSZ
    std::signal(SIGXFSZ, SIG_IGN); // a limit on file sizes is told as a full disk, it does not end the program
#endif
    QApplication app(argc, argv);
    std::setlocale(LC_NUMERIC, "C"); // the application object has set the user's
    QApplication::setApplicationName(u"sbdstation"_s);
    QApplication::setApplicationVersion(QStringLiteral(SBD_VERSION));

    // The buttons of the platform's own dialogs.
    QTranslator translator;
    if (translator.load(u"qtbase_ja"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QApplication::installTranslator(&translator);

    return sbd::RunStation(sbd::ReadStartOptions(QApplication::arguments()));
}
