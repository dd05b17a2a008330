#pragma once

#include "app/command_line.h"

namespace voltmere {

/// Takes one reading and prints it. Returns the exit status.
int listPeripherals(const CommandLine& commandLine);

} // namespace voltmere
