#pragma once

#include <filesystem>

namespace voltmere {

// Paths of this installation or build, found from the running executable, so it may be moved. There
// are two programs, so that the terminal commands load no library that draws.

/// The program that a person starts, "voltmere".
std::filesystem::path terminalProgram();

/// The program with the windows, which "voltmere" starts.
std::filesystem::path desktopProgram();

/// The directory of the tools that simulate peripherals.
std::filesystem::path demoDirectory();

} // namespace voltmere
