#pragma once

#include "app/command_line.h"
#include "app/platform.h"
#include "model/battery_model.h"
#include "ports/desktop.h"

#include <functional>
#include <map>
#include <string>

namespace voltmere {

/// How a front end draws what the program shows. Each function but the first makes the PNG file
/// `path`, and returns whether it could.
struct Drawings {
    using Draw = std::function<bool(BatteryModel& model, const std::string& path)>;

    std::function<void(ColourScheme scheme)> choose; ///< the scheme of what is drawn next
    std::map<std::string, Draw> icons;               ///< by the name of the picture
    Draw panel;
    std::function<bool(const AlertContent& content, const std::string& path)> alert;
};

/// Draws the icons, the panel and the forms of the snooze alert for one reading, in both languages,
/// light and dark, into the directory of the command line. Makes that directory if it is missing.
/// Settings are in memory, and nothing outside changes. Returns the exit status.
int drawPictures(const CommandLine& commandLine, MainLoop& mainLoop, const Drawings& drawings);

} // namespace voltmere
