#pragma once

#include "app/command_line.h"

namespace voltmere {

/// Draws what the program shows for one reading, in both languages, light and dark, to PNG files in
/// the directory that the command line names, which is made when it is missing. Needs a Qt
/// application on the offscreen platform. Returns the exit status.
int drawScreenshots(const CommandLine& commandLine);

} // namespace voltmere
