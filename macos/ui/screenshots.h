#pragma once

#include "app/command_line.h"

namespace voltmere {

/// Draws the icon, the panel and the snooze alert for one reading, in both languages, light and
/// dark, to PNG files in the directory of the command line. Makes that directory if it is missing.
/// Needs the application object. Returns the exit status.
int drawScreenshots(const CommandLine& commandLine);

} // namespace voltmere
