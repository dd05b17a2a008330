#pragma once

#include "linux/notification_daemon.h"
#include "linux/pending_reminders.h"
#include "ports/notifications.h"

#include <QDBusConnection>
#include <QString>

#include <chrono>
#include <cstdint>
#include <deque>
#include <functional>
#include <string>
#include <vector>

namespace voltmere {

/// What the desktop's notifications need from the program.
struct DesktopNotificationsSetup {
    QDBusConnection bus;                          ///< where the daemon is
    std::function<std::string()> applicationName; ///< as people read it, in their language
    std::function<std::string()> applicationIcon; ///< its name in the icon theme
    QString remindersFile;                        ///< where delayed requests outlive the program
    std::chrono::milliseconds replyLimit{25'000}; ///< as long as a bus waits for a service to start
};

/// Notifications through the daemon of a freedesktop.org desktop. Belongs to the main thread, on
/// which it also calls its delegate, and never waits for anyone.
///
/// The delegate is asked about every notification, since whether the program is in front cannot be
/// known everywhere. The answer decides about the sound; the notification is shown in any case,
/// because a daemon has no quieter place for it. A request waits in memory while there is no
/// daemon, and is shown when one comes. One whose call fails is not tried again: it may have been
/// seen.
class DesktopNotifications : public NotificationCentre {
public:
    DesktopNotifications(DesktopNotificationsSetup setup, RunLoop& runLoop, const Clock& clock,
                         SystemLog& log);

    /// Does nothing: these desktops ask the user nothing, and obey what the user has set for the
    /// program without telling it.
    void requestAuthorisation(std::uint32_t options) override;

    void setDelegate(NotificationCentreDelegate* delegate) override;
    void setCategories(std::vector<NotificationCategory> categories) override;
    void add(NotificationRequest request) override;

private:
    struct Waiting {
        NotificationRequest request;
        std::uint32_t presentation = 0;
    };

    void present(NotificationRequest request);
    void queue(Waiting waiting);
    void showQueued();
    void show(const Waiting& waiting);
    void answer(const NotificationAnswer& given, const std::vector<NotificationAction>& offered);
    std::vector<NotificationAction> actionsOf(const std::string& category) const;

    const std::function<std::string()> applicationName;
    const std::function<std::string()> applicationIcon;
    OnceLog log;
    NotificationCentreDelegate* delegate = nullptr;
    std::vector<NotificationCategory> categories;
    std::deque<Waiting> queued; ///< for a daemon that is ready
    NotificationDaemon daemon;
    PendingReminders reminders;
};

} // namespace voltmere
