#include "platform/qt/qt_defaults.h"

#include <QDateTime>
#include <QFile>
#include <QFileDevice>
#include <QJsonDocument>
#include <QJsonObject>

namespace voltmere {

namespace {

/// QSettings calls its readers as plain functions, so the log has to be found here.
SystemLog* damageLog = nullptr;

void setAside(const QIODevice& device, const QByteArray& content, const QString& reason)
{
    const auto* file = qobject_cast<const QFileDevice*>(&device);
    if (file == nullptr) {
        return;
    }
    const QString time = QDateTime::currentDateTimeUtc().toString("yyyyMMdd'T'HHmmss.zzz'Z'");
    const QString copyName = file->fileName() + ".damaged-" + time;
    QFile copy(copyName);
    const bool kept = copy.open(QIODevice::WriteOnly | QIODevice::NewOnly) &&
        copy.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner) &&
        copy.write(content) == content.size() && copy.flush();
    if (damageLog != nullptr) {
        const QString fate =
            kept ? "kept as " + copyName : "could not be kept: " + copy.errorString();
        damageLog->write(("Voltmere: settings file " + file->fileName() + " is damaged (" + reason +
                          "), the defaults are used; the damaged file is " + fate)
                             .toStdString());
    }
}

bool readJson(QIODevice& device, QSettings::SettingsMap& map)
{
    const QByteArray content = device.readAll();
    if (content.trimmed().isEmpty()) {
        return true;
    }
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (!document.isObject()) {
        setAside(device, content,
                 error.error == QJsonParseError::NoError ? QString("not a JSON object")
                                                         : error.errorString());
        return true;
    }
    map = document.object().toVariantMap();
    return true;
}

bool writeJson(QIODevice& device, const QSettings::SettingsMap& map)
{
    const QByteArray content = QJsonDocument(QJsonObject::fromVariantMap(map)).toJson();
    return device.write(content) == content.size();
}

} // namespace

std::unique_ptr<QSettings> openJsonSettings(const QString& path, SystemLog& log)
{
    damageLog = &log;
    static const QSettings::Format json =
        QSettings::registerFormat("json", readJson, writeJson, Qt::CaseSensitive);
    return std::make_unique<QSettings>(path, json);
}

} // namespace voltmere
