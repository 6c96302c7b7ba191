// What the process asks of the system, whatever its windows do.
#pragma once

#include <string>

namespace corvane {

/// What goes wrong with a file is an error that the program tells of: not its end, and no question
/// by the system. Called once, when the program starts.
void prepareProcess();

/// The arguments as bytes of the system's paths, on Windows in UTF-8: those of main(), or others
/// that live as long as the process; `argc` then becomes their number. Called once.
char** systemArguments(int& argc, char** argv);

/// Prints a text in UTF-8 where the program was started. Windows gives a program with windows no
/// console by itself.
void printText(const std::string& text);

}  // namespace corvane
