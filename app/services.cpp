#include "app/services.h"

#include "app/null_services.h"
#include "app/platform_factory.h"
#include "app/settings_location.h"
#include "texts/l10n.h"

namespace voltmere {

namespace {

/// A demonstration leaves the user's start-up entries alone.
std::unique_ptr<LoginItemService> openLoginItems(bool demo)
{
    if (demo) {
        return std::make_unique<NullLoginItems>();
    }
    return makeLoginItemService();
}

/// A demonstration leaves the user's notifications and pending reminders alone.
std::unique_ptr<NotificationCentre> openNotifications(bool demo, RunLoop& runLoop,
                                                      const Clock& clock, SystemLog& log)
{
    if (demo) {
        return std::make_unique<NullNotifications>();
    }
    return makeNotificationCentre(runLoop, clock, log);
}

} // namespace

Services::Services(const CommandLine& commandLine)
    : log(makeSystemLog())
    , languages(makePreferredLanguages())
    , defaults(openSettings(commandLine.demo, SettingsUse::readAndWrite, *log))
    , loginItems(openLoginItems(commandLine.demo))
    , application(makeApplication())
    , notificationDelegate(runLoop, *application)
    , notifications(openNotifications(commandLine.demo, runLoop, clock, *log))
    , appearance(makeAppearance())
    , alerts(*appearance, pointer, runLoop)
    , peripherals(commandLine, *log)
    , reader(std::make_shared<DeviceReader>([this] { return peripherals.choose(); }, clock))
{
    L10n::usePreferredLanguages(languages.get());
}

Services::~Services()
{
    L10n::usePreferredLanguages(nullptr);
}

ModelServices Services::forModel()
{
    return {*defaults, runLoop, clock, calendar, *loginItems, *notifications, notificationDelegate,
            alerts,    *log,    reader};
}

} // namespace voltmere
