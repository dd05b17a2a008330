#pragma once

#include "linux/json_file.h"
#include "ports/log.h"
#include "ports/notifications.h"
#include "ports/time.h"

#include <QByteArray>
#include <QDBusConnection>
#include <QObject>
#include <QString>

#include <filesystem>
#include <list>
#include <memory>
#include <string>
#include <utility>
#include <vector>

class QDBusMessage;

namespace voltmere {

/// Notifications through the daemon of a freedesktop.org desktop. Belongs to the main thread, on
/// which it also calls its delegate, and never waits for a reply. A failure gets a line in the log.
/// Source: Desktop Notifications Specification 1.2 (org.freedesktop.Notifications).
///
/// The centre asks the delegate about every notification, since not every desktop tells whether the
/// program is in front. Only the sound of its answer counts: a daemon always shows a banner.
///
/// Delayed notifications are timers over a file that outlives the program. A notification that fell
/// due while the program was not running, by the wall clock, is shown at the next start. While the
/// program runs, setting the clock changes no delay. A notification leaves the file right before it
/// is shown; where no daemon answers, the centre tries again each minute.
class DesktopNotifications : public QObject, public NotificationCentre {
    Q_OBJECT

public:
    /// Takes up the delayed notifications of `delayedFile`. `runLoop`, `clock` and `log` must
    /// outlive this object.
    DesktopNotifications(QDBusConnection bus, const std::filesystem::path& delayedFile,
                         RunLoop& runLoop, const Clock& clock, SystemLog& log);

    /// Does nothing: these desktops obey what the user has set for the program without telling it.
    void requestAuthorisation(std::uint32_t /*options*/) override { }

    void setDelegate(NotificationCentreDelegate* newDelegate) override { delegate = newDelegate; }
    void setCategories(std::vector<NotificationCategory> newCategories) override
    {
        categories = std::move(newCategories);
    }
    void add(NotificationRequest request) override;

private slots:
    void takeSignal(const QDBusMessage& signal);

private:
    struct Delayed {
        NotificationRequest request; ///< with its delay
        Seconds due;                 ///< by the wall clock, since the epoch
        std::unique_ptr<Timer> timer;
    };

    /// A notification on the screen.
    struct Shown {
        QString daemon; ///< its unique name on the bus
        std::vector<NotificationAction> offered;
        uint id; ///< the daemon's number for it
        QByteArray activationToken;
    };

    void save();
    void arm(Delayed& entry, Seconds delay);
    void tryAgainLater(const NotificationRequest& request, const QString& error);
    void present(const NotificationRequest& request);
    void askDaemon(const NotificationRequest& request, std::uint32_t options);
    void show(const NotificationRequest& request, bool sound, const QString& daemon,
              const QStringList& capabilities);
    void tell(const std::string& action);

    QDBusConnection bus;
    JsonFile file;
    RunLoop& runLoop;
    const Clock& clock;
    OnceLog log;
    NotificationCentreDelegate* delegate = nullptr;
    std::vector<NotificationCategory> categories;
    std::list<Delayed> delayed;
    std::list<Shown> shown;
    bool listening = false; ///< only from the first notification on, to save wake-ups
};

/// Where the user's delayed notifications are: voltmere/notifications.json in $XDG_STATE_HOME.
std::filesystem::path delayedNotificationsPath();

} // namespace voltmere
