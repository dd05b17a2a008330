#include "app/services.h"

#include "app/pending_services.h"
#include "app/platform_factory.h"
#include "app/settings_location.h"
#include "model/l10n.h"

namespace voltmere {

Services::Services(const CommandLine& commandLine)
    : defaults(openSettings(commandLine.demo, log))
    , loginItems(std::make_unique<PendingLoginItems>())
    , notificationDelegate(runLoop, application)
    , notifications(std::make_unique<PendingNotifications>())
    , appearance(makeAppearance())
    , alerts(*appearance, pointer, runLoop)
    , peripherals(commandLine)
    , reader(std::make_shared<DeviceReader>([this] { return peripherals.choose(); }, clock))
{
    L10n::usePreferredLanguages(&languages);
}

Services::~Services()
{
    L10n::usePreferredLanguages(nullptr);
}

ModelServices Services::forModel()
{
    return {*defaults, runLoop, clock, calendar, *loginItems, *notifications, notificationDelegate,
            alerts,    log,     reader};
}

} // namespace voltmere
