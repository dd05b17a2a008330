#pragma once

#include "linux/qt_defaults.h"
#include "ports/log.h"
#include "ports/settings.h"

#include <QString>

#include <memory>

namespace voltmere {

/// The file that holds the user's settings: voltmere/settings.json in $XDG_CONFIG_HOME on Linux,
/// the property list of the program's defaults domain on macOS, which only the system itself
/// writes.
QString settingsPath();

/// The user's settings, or settings that nobody keeps for a demonstration. `log` must outlive them.
std::unique_ptr<DefaultsStore> openSettings(bool demo, SettingsUse use, SystemLog& log);

} // namespace voltmere
