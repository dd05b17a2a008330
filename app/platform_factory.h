#pragma once

#include "platform/appearance.h"

#include <functional>
#include <memory>
#include <optional>
#include <string>

class QObject;

namespace voltmere {

// What differs between the platforms. Each function has one implementation for each platform, in
// platform_factory_<platform>.cpp; CMake chooses the file.

/// Why windows cannot be shown, and what to do about it; nothing when they can. Needs no
/// application object: Qt ends the process where it finds no display.
std::optional<std::string> displayProblem();

std::unique_ptr<Appearance> makeAppearance();

/// Calls `available` once, as soon as there is a place for the program's icon. The watching ends
/// with the returned object.
std::unique_ptr<QObject> watchForTrayHost(std::function<void()> available);

} // namespace voltmere
