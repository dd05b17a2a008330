#pragma once

#include "platform/defaults_store.h"
#include "platform/system_log.h"

#include <QString>

#include <memory>

namespace voltmere {

/// The file that holds the user's settings on Linux: voltmere/settings.json in $XDG_CONFIG_HOME.
QString settingsPath();

/// The user's settings, or settings that nobody keeps for a demonstration. `log` must outlive them.
std::unique_ptr<DefaultsStore> openSettings(bool demo, SystemLog& log);

} // namespace voltmere
