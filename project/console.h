// Text for people and programs that started this one.
#pragma once

#include <cstdio>
#include <string_view>

namespace sbd {

/// Writes UTF-8 to stdout or stderr: a file or a pipe gets the bytes, a console of Windows gets the characters, whatever
/// its code page. False if not all of it came through.
bool PrintText(std::FILE* stream, std::string_view utf8);

/// Lets a program with windows print into the console that it was started from, if its output goes nowhere yet. Windows
/// gives such programs none. Does nothing on other systems.
void UseConsoleOfStarter();

/// Lets go of that console: a program that stays in it is ended with its window.
void LeaveConsoleOfStarter();

} // namespace sbd
