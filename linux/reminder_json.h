#pragma once

#include "linux/reminder_store.h"

namespace voltmere {

/// What a reminders file says.
struct ReminderDocument {
    std::vector<Reminder> reminders;
    int leftOut = 0; ///< entries that are not understood, repeated or too many
    QString damage;  ///< why the file as a whole is of no use; empty when it is
};

/// Reads the content of a reminders file; empty content holds nothing, and is no damage.
ReminderDocument readReminders(const QByteArray& content);

/// The file's content for these reminders. Their due times keep their milliseconds.
QByteArray reminderJson(const std::vector<Reminder>& reminders);

} // namespace voltmere
