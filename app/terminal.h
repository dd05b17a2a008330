#pragma once

#include "app/command_line.h"

#include <string_view>

namespace voltmere {

/// The exit status of the process.
namespace exitStatus {
inline constexpr int cannotRun = 1;
inline constexpr int wrongUsage = 2;
} // namespace exitStatus

/// Prints an answer on standard output. Returns 0, or reports a failed write on standard error and
/// returns 1.
int printAnswer(std::string_view text);

// Both need no display. They return the exit status.

/// Takes one reading and prints it, as a table or as JSON.
int listPeripherals(const CommandLine& commandLine);

/// Prints a line of JSON for the first reading and after every change, until nobody reads the
/// standard output any more. It reads on the program's own schedule,
/// notifies nobody and changes no file.
int watchPeripherals(const CommandLine& commandLine);

} // namespace voltmere
