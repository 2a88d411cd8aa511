// Text for people and programs that started this one.
#pragma once

#include <cstdio>
#include <string>
#include <string_view>

namespace sbd {

/// Writes UTF-8 to stdout or stderr: a file or a pipe gets the bytes, a console of Windows gets the characters, whatever
/// its code page. False if not all of it came through.
bool PrintText(std::FILE* stream, std::string_view utf8);

/// The rest of a stream to its end, byte by byte as it comes. False on an error of the stream.
bool ReadAll(std::FILE* stream, std::string& bytes);

/// Writes bytes of a file to stdout; false if not all of them came through.
bool PrintBytes(std::FILE* stream, std::string_view bytes);

/// Lets a program with windows print into the console that it was started from, if its output goes nowhere yet. Windows
/// gives such programs none. Does nothing on other systems.
void UseConsoleOfStarter();

/// Lets go of that console: a program that stays in it is ended with its window.
void LeaveConsoleOfStarter();

} // namespace sbd
