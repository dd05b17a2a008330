#pragma once

#include <optional>
#include <string>

namespace voltmere {

/// Why windows cannot be shown, and what to do about it; nothing when they can. Needs no
/// application object: Qt ends the process where it finds no display.
std::optional<std::string> displayProblem();

} // namespace voltmere
