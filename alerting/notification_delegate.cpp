#include "alerting/notification_delegate.h"

#include "alerting/snooze_actions.h"
#include "alerting/uuid.h"
#include "texts/l10n.h"

#include <algorithm>

namespace voltmere {

namespace {

NotificationRequest snoozedReminder(Seconds delay)
{
    NotificationRequest request;
    request.identifier = "snooze-" + randomUuid();
    request.content.title = L10n::t("notify.snoozeTitle");
    request.content.body = L10n::t("notify.snoozeBody");
    request.content.defaultSound = true;
    request.delay = delay;
    return request;
}

} // namespace

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
        centre.add(snoozedReminder(timed->option.delay));
    } else if (actionIdentifier == customSnoozeAction) {
        runLoop.postToMain([this] { application.activate(); });
    }
    completion();
}

} // namespace voltmere
