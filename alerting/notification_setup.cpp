#include "alerting/notification_setup.h"

#include "model/l10n.h"

namespace voltmere {

void NotificationSetup::registerCategories(NotificationCentre& centre)
{
    NotificationCategory category{"LOW_BATTERY",
                                  {{"SNOOZE_20", L10n::t("alert.in20")},
                                   {"SNOOZE_30", L10n::t("alert.in30")},
                                   {"SNOOZE_60", L10n::t("alert.in60")},
                                   {"SNOOZE_120", L10n::t("alert.in120")},
                                   {"SNOOZE_CUSTOM", L10n::t("alert.customAction"), true}}};
    centre.setCategories({std::move(category)});
}

} // namespace voltmere
