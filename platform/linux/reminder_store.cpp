#include "platform/linux/reminder_store.h"

#include "platform/linux/reminder_json.h"
#include "platform/qt/damaged_file.h"
#include "platform/qt/private_directory.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

#include <algorithm>
#include <optional>
#include <utility>

namespace voltmere {

namespace {

/// Many times what the largest allowed number of reminders takes.
constexpr qint64 largestFile = 1 << 20; // bytes

/// What the file holds, or nothing when it is no file that can be read.
std::optional<QByteArray> contentOf(const QString& path)
{
    // Asked first, because a pipe or a device could be read for ever.
    if (!QFileInfo(path).isFile()) {
        return std::nullopt;
    }
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        return std::nullopt;
    }
    const QByteArray content = file.read(largestFile + 1);
    return content.size() > largestFile ? std::nullopt : std::optional(content);
}

} // namespace

ReminderStore::ReminderStore(QString path, SystemLog& log)
    : path(std::move(path))
    , log(log)
{
}

std::vector<Reminder> ReminderStore::load()
{
    if (!QFileInfo::exists(path)) {
        return {};
    }
    const std::optional<QByteArray> content = contentOf(path);
    if (!content) {
        handleDamage("it is no file that can be read");
        return {};
    }
    const ReminderDocument document = readReminders(*content);
    if (!document.damage.isEmpty()) {
        handleDamage(document.damage);
    }
    if (document.leftOut > 0) {
        log.report("some reminders are not understood and left out",
                   std::to_string(document.leftOut) + " in " + path.toStdString());
    }
    return document.reminders;
}

void ReminderStore::save(const std::vector<Reminder>& reminders)
{
    if (keptInPlace) {
        return;
    }
    if (!makePrivateDirectory(QFileInfo(path).path()) || !write(reminderJson(reminders))) {
        log.report("reminders cannot be saved, so they end with the program", path.toStdString());
    }
}

bool ReminderStore::write(const QByteArray& content)
{
    QSaveFile file(path);
    // Flushed first, since a commit goes through although the disk took only half of the rest.
    return file.open(QIODevice::WriteOnly) &&
        file.setPermissions(QFile::ReadOwner | QFile::WriteOwner) &&
        file.write(content) == content.size() && file.flush() && file.commit();
}

void ReminderStore::handleDamage(const QString& damage)
{
    const std::optional<QString> keptAs = setAside(path);
    keptInPlace = !keptAs;
    const QString fate = keptAs
        ? "it is kept as " + *keptAs
        : "it cannot be moved, so reminders end with the program until it is mended or removed";
    log.report("the reminders file " + path.toStdString() + " is damaged; " + fate.toStdString(),
               damage.toStdString());
}

QString userRemindersPath()
{
    const QString asked = qEnvironmentVariable("XDG_STATE_HOME");
    const QString state = QDir::isAbsolutePath(asked) ? asked : QDir::homePath() + "/.local/state";
    return state + "/voltmere/reminders.json";
}

} // namespace voltmere
