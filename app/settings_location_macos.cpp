#include "app/settings_location.h"

#include "platform/application_id.h"
#include "platform/posix/memory_defaults.h"
#include "platform/qt/qt_defaults.h"

#include <QDir>

namespace voltmere {

QString settingsPath()
{
    return QDir::homePath() + "/Library/Preferences/" + applicationId + ".plist";
}

std::unique_ptr<DefaultsStore> openSettings(bool demo, SettingsUse /*use*/, SystemLog& log)
{
    if (demo) {
        return std::make_unique<MemoryDefaults>();
    }
    // Qt makes the domain `applicationId` of these two.
    auto settings =
        std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope,
                                    QStringLiteral("voltmere.org"), QStringLiteral("Voltmere"));
    settings->setFallbacksEnabled(false);
    return std::make_unique<QtDefaults>(std::move(settings), log);
}

} // namespace voltmere
