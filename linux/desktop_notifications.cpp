#include "linux/desktop_notifications.h"

#include "linux/activation_token.h"

#include <QPointer>

#include <algorithm>
#include <memory>
#include <optional>
#include <utility>

namespace voltmere {

namespace {

constexpr std::size_t mostQueued = 64;

} // namespace

DesktopNotifications::DesktopNotifications(DesktopNotificationsSetup setup, RunLoop& runLoop,
                                           const Clock& clock, SystemLog& log)
    : applicationName(std::move(setup.applicationName))
    , applicationIcon(std::move(setup.applicationIcon))
    , log(log)
    , daemon(std::move(setup.bus), log, setup.replyLimit, [this] { showQueued(); })
    , reminders({setup.remindersFile, log}, runLoop, clock, log,
                [this](const NotificationRequest& request) { present(request); })
{
}

void DesktopNotifications::requestAuthorisation(std::uint32_t /*options*/)
{
}

void DesktopNotifications::setDelegate(NotificationCentreDelegate* newDelegate)
{
    delegate = newDelegate;
}

void DesktopNotifications::setCategories(std::vector<NotificationCategory> newCategories)
{
    categories = std::move(newCategories);
}

void DesktopNotifications::add(NotificationRequest request)
{
    if (request.delay) {
        reminders.add(std::move(request));
    } else {
        present(std::move(request));
    }
}

void DesktopNotifications::present(NotificationRequest request)
{
    if (delegate == nullptr) {
        queue({std::move(request), presentation::banner | presentation::sound});
        return;
    }
    // An answer may come late, twice or after the end; only the first one in time counts.
    auto unanswered = std::make_shared<std::optional<NotificationRequest>>(std::move(request));
    delegate->willPresent([this, alive = QPointer(&daemon), unanswered](std::uint32_t options) {
        if (alive && *unanswered) {
            queue({*std::exchange(*unanswered, std::nullopt), options});
        }
    });
}

void DesktopNotifications::queue(Waiting waiting)
{
    if (queued.size() == mostQueued) {
        log.report("too many notifications wait to be shown, so the oldest is dropped");
        queued.pop_front();
    }
    queued.push_back(std::move(waiting));
    daemon.contact();
    showQueued();
}

void DesktopNotifications::showQueued()
{
    while (daemon.isReady() && !queued.empty()) {
        const Waiting first = std::move(queued.front());
        queued.pop_front();
        show(first);
    }
}

void DesktopNotifications::show(const Waiting& waiting)
{
    const NotificationContent& content = waiting.request.content;
    // Forgotten before it is shown: an end of the program in between loses the reminder, the other
    // order would show it twice. Until then the file keeps it, if need be for the next start.
    reminders.forget(waiting.request.identifier);
    const DesktopNotification notification{applicationName(),
                                           applicationIcon(),
                                           content.title,
                                           content.body,
                                           content.defaultSound &&
                                               (waiting.presentation & presentation::sound) != 0,
                                           actionsOf(content.category)};
    daemon.show(notification,
                [this, offered = notification.actions](const NotificationAnswer& given) {
                    answer(given, offered);
                });
}

void DesktopNotifications::answer(const NotificationAnswer& given,
                                  const std::vector<NotificationAction>& offered)
{
    const bool foreground =
        std::any_of(offered.begin(), offered.end(), [&](const NotificationAction& action) {
            return action.identifier == given.action && action.foreground;
        });
    if (foreground) {
        activationToken::leave(given.activationToken);
    }
    if (delegate != nullptr) {
        delegate->didReceive(*this, given.action, [] { /* the daemon waits for nothing */ });
    }
}

std::vector<NotificationAction> DesktopNotifications::actionsOf(const std::string& category) const
{
    const auto found =
        std::find_if(categories.begin(), categories.end(), [&](const NotificationCategory& known) {
            return known.identifier == category;
        });
    return found == categories.end() ? std::vector<NotificationAction>() : found->actions;
}

} // namespace voltmere
