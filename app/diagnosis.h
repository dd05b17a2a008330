#pragma once

#include "app/command_line.h"

namespace voltmere {

/// Prints the text for a bug report: versions, the source of the reading, every entry with the
/// reason why it is shown or not, and which of the desktop's services are there. Names and
/// addresses are printed only on request. Needs no display. Returns the exit status.
int diagnose(const CommandLine& commandLine);

} // namespace voltmere
