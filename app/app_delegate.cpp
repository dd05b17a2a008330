#include "app/app_delegate.h"

#include "alerting/notification_setup.h"
#include "model/battery_model.h"
#include "texts/l10n.h"

namespace voltmere {

AppDelegate::AppDelegate(const DefaultsStore& defaults, NotificationCentre& notifications,
                         NotificationCentreDelegate& notificationDelegate)
    : defaults(defaults)
    , notifications(notifications)
    , notificationDelegate(notificationDelegate)
{
}

void AppDelegate::applicationDidFinishLaunching()
{
    L10n::loadSetting(defaults);
    NotificationSetup::registerCategories(notifications, notificationDelegate);
    BatteryModel::launchSettled = true;
}

} // namespace voltmere
