#pragma once

#include "app/command_line.h"

namespace voltmere {

/// Prints one line for the state now and after each change, until the process is ended or nobody
/// reads any more. Reads for itself on the program's own schedule, and never reminds. Needs a Qt
/// application object, but no display. Returns the exit status.
int watchPeripherals(const CommandLine& commandLine);

} // namespace voltmere
