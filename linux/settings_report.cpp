#include "linux/settings_report.h"

#include "model/settings.h"
#include "posix/memory_defaults.h"
#include "texts/app_language.h"

#include <QByteArray>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonValue>
#include <QStringList>

#include <cstdint>
#include <string_view>

namespace voltmere {

namespace {

bool isUsable(const DefaultsStore& defaults, const Setting<std::int64_t>& setting)
{
    return defaults.integer(setting.key).has_value();
}

bool isUsable(const DefaultsStore& defaults, const Setting<bool>& setting)
{
    return defaults.boolean(setting.key).has_value();
}

bool isUsableLanguage(const DefaultsStore& defaults)
{
    return appLanguage(defaults.text(languageKey).value_or("")).has_value();
}

/// What the program would find stored. Values that are neither number, truth nor text are none.
MemoryDefaults defaultsOf(const QJsonObject& stored)
{
    MemoryDefaults defaults;
    for (auto entry = stored.begin(); entry != stored.end(); ++entry) {
        const std::string key = entry.key().toStdString();
        const QJsonValue value = entry.value();
        if (value.isBool()) {
            defaults.set(key, value.toBool());
        } else if (value.isDouble()) {
            defaults.set(key, value.toDouble());
        } else if (value.isString()) {
            defaults.set(key, value.toString().toStdString());
        }
    }
    return defaults;
}

/// The settings that are in the file and do not count.
QStringList unusableSettings(const QJsonObject& stored)
{
    const MemoryDefaults defaults = defaultsOf(stored);
    QStringList found;
    const auto note = [&](std::string_view key, bool usable) {
        const QString name = QString::fromUtf8(key.data(), static_cast<qsizetype>(key.size()));
        if (stored.contains(name) && !usable) {
            found.append(name);
        }
    };
    note(settings::threshold.key, isUsable(defaults, settings::threshold));
    note(settings::checkHour.key, isUsable(defaults, settings::checkHour));
    note(settings::checkMinute.key, isUsable(defaults, settings::checkMinute));
    note(settings::enabled.key, isUsable(defaults, settings::enabled));
    note(settings::instantEnabled.key, isUsable(defaults, settings::instantEnabled));
    note(languageKey, isUsableLanguage(defaults));
    return found;
}

QString describeContent(const QByteArray& content)
{
    QString size = QString("%1 bytes").arg(content.size());
    const QJsonDocument document = QJsonDocument::fromJson(content);
    if (content.trimmed().isEmpty()) {
        return size;
    }
    if (!document.isObject()) {
        return size + ", not a JSON object: defaults are used, and a start sets it aside";
    }
    const QStringList unusable = unusableSettings(document.object());
    return unusable.isEmpty() ? size
                              : size + ", no usable value, so the default: " + unusable.join(", ");
}

QString describeFile(const QString& path)
{
    const QFileInfo file(path);
    if (!file.exists()) {
        return "not there, defaults are used";
    }
    if (!file.isFile()) {
        return "not a file, defaults are used";
    }
    QFile content(path);
    return content.open(QFile::ReadOnly) ? describeContent(content.readAll())
                                         : "cannot be read, defaults are used";
}

} // namespace

std::string describeSettingsFile(const QString& path)
{
    const QFileInfo file(path);
    const auto damaged = file.dir().entryList({file.fileName() + ".damaged-*"}, QDir::Files).size();
    const QString kept = damaged == 0 ? "" : QString("; %1 damaged kept beside it").arg(damaged);
    return (describeFile(path) + kept).toStdString();
}

} // namespace voltmere
