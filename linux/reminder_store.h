#pragma once

#include "ports/log.h"
#include "ports/notifications.h"
#include "ports/time.h"

#include <QString>

#include <vector>

namespace voltmere {

/// A notification that is to be shown later.
struct Reminder {
    NotificationRequest request; ///< with its delay
    Instant due;

    bool operator==(const Reminder&) const = default;
};

inline constexpr std::size_t mostReminders = 64;
inline constexpr Seconds longestReminderDelay = std::chrono::days(366);

/// The file that keeps reminders while the program does not run: a JSON object whose "reminders"
/// are objects of "identifier", "title", "body", "sound", "category", "delay" (seconds) and "due"
/// (ISO 8601, UTC). It belongs to its user alone.
///
/// A damaged file is kept beside itself as "<name>.damaged-<time>", and one that cannot be moved is
/// left alone: then nothing is saved. Whatever fails gets a line in the log.
class ReminderStore {
public:
    ReminderStore(QString path, SystemLog& log);

    /// What the file holds, without the entries that are not understood, that repeat an identifier,
    /// or that are more than `mostReminders`. A missing or empty file holds nothing.
    std::vector<Reminder> load();

    /// Replaces the file's content, in one step.
    void save(const std::vector<Reminder>& reminders);

private:
    void handleDamage(const QString& damage);

    const QString path;
    OnceLog log;
    bool keptInPlace = false; ///< a damaged file that could not be moved
};

/// Where the user's reminders are: voltmere/reminders.json in $XDG_STATE_HOME, or in ~/.local/state
/// when that is no absolute path. Source: XDG Base Directory Specification 0.8.
QString userRemindersPath();

} // namespace voltmere
