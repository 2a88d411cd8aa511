// The command line.
#pragma once

#include <QSize>
#include <QStringList>

namespace sbd {

/// What the program was started with.
struct StartOptions {
    QStringList projects;
    QString screenshot; ///< picture to draw instead of showing the window; empty: none
    int block = 0;      ///< block to show; 0: the first one
    int row = 0;        ///< cell to show, grid row and column from 1; 0: none
    int column = 0;
    QSize size{1366, 768}; ///< of the window in the picture, in device independent pixels
    bool help = false;
    bool version = false;
    QString error; ///< what is wrong with the command line; empty: nothing
};

/// Reads the command line; arguments[0] is the program.
[[nodiscard]] StartOptions ReadStartOptions(const QStringList& arguments);

/// What --help prints.
[[nodiscard]] QString StartHelp();

/// True if the command line asks for something that needs no screen.
[[nodiscard]] bool NeedsNoScreen(int argc, char** argv);

} // namespace sbd
