#pragma once

#include "app/command_line.h"

namespace voltmere {

/// Takes one reading and prints it. Needs a Qt application object, but no display. Returns the exit
/// status.
int listPeripherals(const CommandLine& commandLine);

} // namespace voltmere
