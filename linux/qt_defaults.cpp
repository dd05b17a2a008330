#include "linux/qt_defaults.h"

#include "linux/atomic_file.h"
#include "ports/settings.h"

#include <QFile>
#include <QFileInfo>
#include <QMetaType>
#include <QVariant>

#include <utility>

namespace voltmere {

namespace {

QAnyStringView viewOf(std::string_view key)
{
    return QUtf8StringView(key.data(), static_cast<qsizetype>(key.size()));
}

QVariant valueOf(const QSettings& settings, std::string_view key)
{
    return settings.value(viewOf(key).toString());
}

} // namespace

QtDefaults::QtDefaults(std::unique_ptr<QSettings> settings, SystemLog& log)
    : log(log)
    , settings(std::move(settings))
{
}

std::optional<std::int64_t> QtDefaults::integer(std::string_view key) const
{
    const QVariant value = valueOf(*settings, key);
    switch (value.typeId()) {
    case QMetaType::Bool:
    case QMetaType::Int:
    case QMetaType::LongLong:
        return value.toLongLong();
    case QMetaType::Double:
        return exactInteger(value.toDouble());
    default:
        return std::nullopt;
    }
}

std::optional<bool> QtDefaults::boolean(std::string_view key) const
{
    return exactBoolean(integer(key));
}

std::optional<std::string> QtDefaults::text(std::string_view key) const
{
    const QVariant value = valueOf(*settings, key);
    if (value.typeId() != QMetaType::QString) {
        return std::nullopt;
    }
    return value.toString().toStdString();
}

void QtDefaults::setInteger(std::string_view key, std::int64_t value)
{
    write(key, QVariant::fromValue<qlonglong>(value));
}

void QtDefaults::setBoolean(std::string_view key, bool value)
{
    write(key, value);
}

void QtDefaults::write(std::string_view key, const QVariant& value)
{
    // QSettings itself would make it for all to read. Where it cannot be made, saving fails as
    // well.
    makePrivateDirectory(QFile::encodeName(QFileInfo(settings->fileName()).path()).toStdString());
    settings->setValue(viewOf(key).toString(), value);
    // Comes after the saving, which setValue posted.
    QMetaObject::invokeMethod(
        settings.get(), [this] { reportFailure(); }, Qt::QueuedConnection);
}

void QtDefaults::reportFailure()
{
    if (settings->status() == QSettings::AccessError) {
        log.report("the settings cannot be saved, so changes end with the program",
                   settings->fileName().toStdString());
    }
}

} // namespace voltmere
