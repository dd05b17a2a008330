#include "app/settings_location.h"

#include "posix/memory_defaults.h"

#include <QStandardPaths>

namespace voltmere {

QString settingsPath()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation) +
        "/voltmere/settings.json";
}

std::unique_ptr<DefaultsStore> openSettings(bool demo, SettingsUse use, SystemLog& log)
{
    if (demo) {
        return std::make_unique<MemoryDefaults>();
    }
    return std::make_unique<QtDefaults>(openJsonSettings(settingsPath(), use, log), log);
}

} // namespace voltmere
