#include "alerting/notifications.h"

#include "texts/l10n.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <random>
#include <utility>

namespace voltmere {

std::string randomUuid()
{
    std::random_device random;
    const std::uint32_t first = random();
    const std::uint32_t second = (random() & 0xFFFF0FFFU) | 0x00004000U; // version 4
    const std::uint32_t third = (random() & 0x3FFFFFFFU) | 0x80000000U;  // variant 1
    const std::uint32_t fourth = random();
    std::array<char, 37> text{};
    std::snprintf(text.data(), text.size(), "%08X-%04X-%04X-%04X-%04X%08X", first, second >> 16U,
                  second & 0xFFFFU, third >> 16U, third & 0xFFFFU, fourth);
    return text.data();
}

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

NotificationDelegate::NotificationDelegate(RunLoop& runLoop, Application& application)
    : runLoop(runLoop)
    , application(application)
{
}

void NotificationDelegate::willPresent(std::function<void(std::uint32_t presentation)> completion)
{
    completion(presentation::banner | presentation::sound);
}

void NotificationDelegate::didReceive(NotificationCentre& centre,
                                      const std::string& actionIdentifier,
                                      std::function<void()> completion)
{
    const auto* const timed = std::find_if(
        timedSnoozeActions.begin(), timedSnoozeActions.end(),
        [&](const TimedSnoozeAction& action) { return action.identifier == actionIdentifier; });
    if (timed != timedSnoozeActions.end()) {
        centre.add({.identifier = "snooze-" + randomUuid(),
                    .content = {.title = L10n::t("notify.snoozeTitle"),
                                .body = L10n::t("notify.snoozeBody"),
                                .defaultSound = true,
                                .category = {}},
                    .delay = timed->option.delay});
    } else if (actionIdentifier == customSnoozeAction) {
        runLoop.postToMain([this] { application.activate(); });
    }
    completion();
}

} // namespace voltmere
