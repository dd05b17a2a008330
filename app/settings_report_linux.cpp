#include "app/settings_report.h"

#include "app/null_services.h"
#include "model/app_language.h"
#include "model/settings.h"
#include "platform/qt/qt_defaults.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QJsonObject>
#include <QStringList>

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

/// The settings that are in the file and do not count.
QStringList unusableSettings(const QString& path, const QJsonObject& stored)
{
    static NullLog silence; // of an object nothing is said
    const QtDefaults defaults(openJsonSettings(path, silence), silence);
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

QString describeContent(const QString& path, const QByteArray& content)
{
    const QString size = QString("%1 bytes").arg(content.size());
    const QJsonDocument document = QJsonDocument::fromJson(content);
    if (content.trimmed().isEmpty()) {
        return size;
    }
    if (!document.isObject()) {
        return size + ", not a JSON object: defaults are used, and a start sets it aside";
    }
    const QStringList unusable = unusableSettings(path, document.object());
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
    return content.open(QFile::ReadOnly) ? describeContent(path, content.readAll())
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
