#pragma once

#include "app/command_line.h"

namespace voltmere {

// Both need no display. They return the exit status.

/// Takes one reading and prints it, as a table or as JSON.
int listPeripherals(const CommandLine& commandLine);

/// Prints a line of JSON for the first reading and after every change, until nobody reads the
/// standard output any more. It reads on the program's own schedule,
/// notifies nobody and changes no file.
int watchPeripherals(const CommandLine& commandLine);

} // namespace voltmere
