#pragma once

#include <filesystem>

namespace voltmere {

// Where the files of this installation are, or of this build, wherever it was moved to. The
// terminal commands and the windows are two programs, so that the first load no library for
// windows.

/// The program that a person starts, "voltmere".
std::filesystem::path terminalProgram();

/// The program with the windows, which the other one starts.
std::filesystem::path desktopProgram();

/// The directory of the tools that simulate peripherals.
std::filesystem::path demoDirectory();

} // namespace voltmere
