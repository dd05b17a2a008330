#pragma once

#include "ports/log.h"
#include "ports/settings.h"

#include <QSettings>

#include <memory>

namespace voltmere {

/// Settings kept by QSettings, in any of its formats. What was changed is saved from the event
/// loop; a change that cannot be saved lasts as long as this object, and the log gets one line.
class QtDefaults : public DefaultsStore {
public:
    /// `log` must outlive this object.
    QtDefaults(std::unique_ptr<QSettings> settings, SystemLog& log);
    QtDefaults(const QtDefaults&) = delete;
    QtDefaults& operator=(const QtDefaults&) = delete;

    std::optional<std::int64_t> integer(std::string_view key) const override;
    std::optional<bool> boolean(std::string_view key) const override;
    std::optional<std::string> text(std::string_view key) const override;
    void setInteger(std::string_view key, std::int64_t value) override;
    void setBoolean(std::string_view key, bool value) override;

private:
    void write(std::string_view key, const QVariant& value);
    void reportFailure();

    OnceLog log;
    std::unique_ptr<QSettings> settings;
};

/// Opens the settings file at `path`, one JSON object. The file need not exist. It is locked while
/// it is written and replaced in one step, for its user alone (0600). A file that is no JSON object
/// counts as empty, and `log` gets a line; who may write sets it aside beside itself as
/// `<name>.damaged-<time>`. `log` must outlive all use of the file.
std::unique_ptr<QSettings> openJsonSettings(const QString& path, SettingsUse use, SystemLog& log);

} // namespace voltmere
