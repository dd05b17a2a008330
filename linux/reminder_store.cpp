#include "linux/reminder_store.h"

#include "linux/atomic_file.h"
#include "linux/damaged_file.h"
#include "linux/reminder_json.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <algorithm>
#include <optional>
#include <utility>

namespace voltmere {

namespace {

constexpr mode_t ownerOnly = 0600;

/// What the file holds, or nothing when it is no file that can be read.
std::optional<QByteArray> contentOf(const QString& path)
{
    if (!QFileInfo(path).isFile()) {
        return std::nullopt;
    }
    const TextFile file = readTextFile(QFile::encodeName(path).toStdString());
    return file.error ? std::nullopt : std::optional(QByteArray::fromStdString(file.text));
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
    const std::filesystem::path file = QFile::encodeName(path).toStdString();
    std::error_code error = makePrivateDirectory(file.parent_path());
    if (!error) {
        error = replaceTextFile(file, reminderJson(reminders).toStdString(), ownerOnly);
    }
    if (error) {
        log.report("reminders cannot be saved, so they end with the program",
                   path.toStdString() + ": " + error.message());
    }
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
