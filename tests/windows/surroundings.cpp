// Part of every test program with windows on Windows: its screen, its fonts, and in place of the user's profile and
// folders, which no test reads or changes, a home beside the program. Not by the environment: Wine hands no variable of
// Qt on.
#include <QDir>
#include <QFileInfo>
#include <QSettings>
#include <QStandardPaths>

#include <array>
#include <windows.h>

namespace {

using namespace Qt::StringLiterals;

void SetUnlessSet(const char* variable, const QByteArray& value)
{
    if (!qEnvironmentVariableIsSet(variable))
        qputenv(variable, value);
}

/// The home that this test has in the folder of homes.
QString Home()
{
    std::array<wchar_t, 1024> program{};
    GetModuleFileNameW(nullptr, program.data(), static_cast<DWORD>(program.size()));
    const QFileInfo file(QDir::fromNativeSeparators(QString::fromWCharArray(program.data())));
    return file.dir().filePath(u"homes/"_s + file.completeBaseName());
}

[[maybe_unused]] const bool isSet = [] {
    SetUnlessSet("QT_QPA_PLATFORM", "offscreen");
    SetUnlessSet("QT_QPA_FONTDIR", SBD_TEST_FONTS); // the only place where the offscreen platform looks
    SetUnlessSet("QT_FORCE_STDERR_LOGGING", "1");   // results go to where they can be read, not to a debugger
    QSettings::setDefaultFormat(QSettings::IniFormat);
    QSettings::setPath(QSettings::IniFormat, QSettings::UserScope, Home() + u"/config"_s);
    QStandardPaths::setTestModeEnabled(true);
    return true;
}();

} // namespace
