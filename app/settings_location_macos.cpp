#include "app/settings_location.h"

#include "platform/posix/memory_defaults.h"
#include "platform/qt/qt_defaults.h"

#include <QDir>

namespace voltmere {

QString settingsPath()
{
    return QDir::homePath() + "/Library/Preferences/org.voltmere.Voltmere.plist";
}

std::unique_ptr<DefaultsStore> openSettings(bool demo, SystemLog& /*log*/)
{
    if (demo) {
        return std::make_unique<MemoryDefaults>();
    }
    // Qt makes the domain "org.voltmere.Voltmere" of these two.
    auto settings =
        std::make_unique<QSettings>(QSettings::NativeFormat, QSettings::UserScope,
                                    QStringLiteral("voltmere.org"), QStringLiteral("Voltmere"));
    settings->setFallbacksEnabled(false);
    return std::make_unique<QtDefaults>(std::move(settings));
}

} // namespace voltmere
