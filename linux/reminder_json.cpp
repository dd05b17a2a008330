#include "linux/reminder_json.h"

#include <QDateTime>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>

#include <algorithm>
#include <chrono>
#include <utility>

namespace voltmere {

namespace {

using std::chrono::milliseconds;

const QString remindersKey = QStringLiteral("reminders");

std::string textOf(const QJsonValue& value)
{
    return value.toString().toStdString();
}

/// An Instant counts nanoseconds, which reach from the year 1677 to 2262.
bool isUsable(const QDateTime& due)
{
    return due.isValid() && due.date().year() > 1700 && due.date().year() < 2200;
}

std::optional<Reminder> readReminder(const QJsonObject& entry)
{
    const QDateTime due = QDateTime::fromString(entry["due"].toString(), Qt::ISODateWithMs);
    const Seconds delay(entry["delay"].toDouble(-1));
    if (entry["identifier"].toString().isEmpty() || !entry["title"].isString() ||
        !entry["body"].isString() || !isUsable(due) || delay < Seconds::zero() ||
        delay > longestReminderDelay) {
        return std::nullopt;
    }
    Reminder reminder;
    reminder.request.identifier = textOf(entry["identifier"]);
    reminder.request.content = {textOf(entry["title"]), textOf(entry["body"]),
                                entry["sound"].toBool(), textOf(entry["category"])};
    reminder.request.delay = delay;
    reminder.due = Instant(
        std::chrono::duration_cast<Instant::duration>(milliseconds(due.toMSecsSinceEpoch())));
    return reminder;
}

bool holds(const std::vector<Reminder>& reminders, const std::string& identifier)
{
    return std::any_of(reminders.begin(), reminders.end(), [&](const Reminder& reminder) {
        return reminder.request.identifier == identifier;
    });
}

QJsonObject entryOf(const Reminder& reminder)
{
    const auto& [identifier, content, delay] = reminder.request;
    const auto due = std::chrono::duration_cast<milliseconds>(reminder.due.time_since_epoch());
    const QDateTime dueTime = QDateTime::fromMSecsSinceEpoch(due.count()).toUTC();
    return {{"identifier", QString::fromStdString(identifier)},
            {"title", QString::fromStdString(content.title)},
            {"body", QString::fromStdString(content.body)},
            {"sound", content.defaultSound},
            {"category", QString::fromStdString(content.category)},
            {"delay", delay.value_or(Seconds::zero()).count()},
            {"due", dueTime.toString(Qt::ISODateWithMs)}};
}

} // namespace

ReminderDocument readReminders(const QByteArray& content)
{
    ReminderDocument result;
    if (content.trimmed().isEmpty()) {
        return result;
    }
    QJsonParseError error;
    const QJsonValue entries = QJsonDocument::fromJson(content, &error).object()[remindersKey];
    if (!entries.isArray()) {
        result.damage = error.error == QJsonParseError::NoError
            ? QString("it is no JSON object with a list of reminders")
            : error.errorString();
        return result;
    }
    for (const QJsonValue entry : entries.toArray()) {
        auto reminder = readReminder(entry.toObject());
        if (reminder && result.reminders.size() < mostReminders &&
            !holds(result.reminders, reminder->request.identifier)) {
            result.reminders.push_back(*std::move(reminder));
        } else {
            ++result.leftOut;
        }
    }
    return result;
}

QByteArray reminderJson(const std::vector<Reminder>& reminders)
{
    QJsonArray entries;
    for (const Reminder& reminder : reminders) {
        entries.append(entryOf(reminder));
    }
    return QJsonDocument(QJsonObject{{remindersKey, entries}}).toJson();
}

} // namespace voltmere
