#include "linux/qt_defaults.h"

#include "linux/damaged_file.h"
#include "posix/file_descriptor.h"

#include <QFile>
#include <QFileDevice>
#include <QJsonDocument>
#include <QJsonObject>
#include <QSet>

#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>

namespace voltmere {

namespace {

// QSettings calls its readers and writers as plain functions, so what they share has to stand here.
SystemLog* damageLog = nullptr;
SettingsUse damageUse = SettingsUse::readAndWrite;

/// Damaged files that were left where they are. They are read as empty and never written.
QSet<QString>& keptInPlace()
{
    static QSet<QString> paths;
    return paths;
}

QString fileNameOf(const QIODevice& device)
{
    const auto* file = qobject_cast<const QFileDevice*>(&device);
    return file == nullptr ? QString() : file->fileName();
}

void handleDamage(const QString& path, const QString& damage)
{
    QString line = "Voltmere: the settings file " + path + " is damaged (" + damage +
        "): the defaults are used";
    if (damageUse == SettingsUse::readOnly) {
        keptInPlace().insert(path);
    } else if (const std::optional<QString> keptAs = setAside(path)) {
        line += ", it is kept as " + *keptAs;
    } else {
        keptInPlace().insert(path);
        line += ", it cannot be moved, so settings are not saved until it is mended or removed";
    }
    if (damageLog != nullptr) {
        damageLog->write(line.toStdString());
    }
}

bool readJson(QIODevice& device, QSettings::SettingsMap& map)
{
    const QString path = fileNameOf(device);
    const QByteArray content = device.readAll();
    QJsonParseError error;
    const QJsonDocument document = QJsonDocument::fromJson(content, &error);
    if (document.isObject() || content.trimmed().isEmpty()) {
        map = document.object().toVariantMap();
        keptInPlace().remove(path);
    } else if (!keptInPlace().contains(path)) {
        const bool parsed = error.error == QJsonParseError::NoError;
        handleDamage(path, parsed ? QString("it is not a JSON object") : error.errorString());
    }
    return true;
}

bool writeJson(QIODevice& device, const QSettings::SettingsMap& map)
{
    if (keptInPlace().contains(fileNameOf(device))) {
        return false;
    }
    auto* const file = qobject_cast<QFileDevice*>(&device);
    const QByteArray content = QJsonDocument(QJsonObject::fromVariantMap(map)).toJson();
    // Flushed here, where a full disk can still be told of.
    return file != nullptr && file->setPermissions(QFile::ReadOwner | QFile::WriteOwner) &&
        file->write(content) == content.size() && file->flush();
}

/// A program that was killed between making the lock file and writing its own name into it leaves a
/// lock that nobody is known to hold, and the next save waits half a minute for it, with everything
/// else. The system's lock on the file tells that its maker is gone.
void removeAbandonedLock(const QString& path)
{
    const QByteArray lock = QFile::encodeName(path + ".lock");
    const FileDescriptor file(::open(lock.constData(), O_RDWR | O_CLOEXEC | O_NONBLOCK));
    struct stat status { };
    if (file && ::fstat(file.get(), &status) == 0 && S_ISREG(status.st_mode) &&
        status.st_size == 0 && ::flock(file.get(), LOCK_EX | LOCK_NB) == 0) {
        ::unlink(lock.constData());
    }
}

} // namespace

std::unique_ptr<QSettings> openJsonSettings(const QString& path, SettingsUse use, SystemLog& log)
{
    damageLog = &log;
    damageUse = use;
    if (use == SettingsUse::readAndWrite) {
        removeAbandonedLock(path);
    }
    static const QSettings::Format json =
        QSettings::registerFormat("json", readJson, writeJson, Qt::CaseSensitive);
    return std::make_unique<QSettings>(path, json);
}

} // namespace voltmere
