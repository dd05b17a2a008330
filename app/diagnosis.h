#pragma once

#include "app/command_line.h"

namespace voltmere {

/// Prints what a report of a fault has to say: versions, where was read, every entry that was seen
/// and why it is or is not shown, and which of the desktop's services are there. Names and
/// addresses only when they were asked for. Needs no display. Returns the exit status.
int diagnose(const CommandLine& commandLine);

} // namespace voltmere
