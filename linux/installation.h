#pragma once

#include <filesystem>

namespace voltmere {

// The places of the files of this installation or build, wherever it was moved. The
// terminal commands and the windows are two programs, so that the first load no library for
// windows.

/// The program that a person starts, "voltmere".
std::filesystem::path terminalProgram();

/// The program with the windows, which "voltmere" starts.
std::filesystem::path desktopProgram();

/// The directory of the tools that simulate peripherals.
std::filesystem::path demoDirectory();

} // namespace voltmere
