#include "alerting/notification_setup.h"

#include "alerting/snooze_actions.h"
#include "texts/l10n.h"

#include <utility>

namespace voltmere {

void NotificationSetup::registerCategories(NotificationCentre& centre,
                                           NotificationCentreDelegate& delegate)
{
    NotificationCategory category;
    category.identifier = lowBatteryCategory;
    for (const TimedSnoozeAction& action : timedSnoozeActions) {
        category.actions.push_back(
            {std::string(action.identifier), L10n::t(action.option.labelKey), false});
    }
    category.actions.push_back({customSnoozeAction, L10n::t("alert.customAction"), true});
    centre.setDelegate(&delegate);
    centre.setCategories({std::move(category)});
}

} // namespace voltmere
