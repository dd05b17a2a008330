#pragma once

#include "ports/log.h"

#include <QObject>
#include <QVariantMap>

#include <functional>
#include <utility>

namespace voltmere {

/// One instance over the session bus: the first holds a name, and a later
/// start asks it to open its panel. The bus frees the name when its process ends, however
/// that happens. Source: Desktop Entry Specification, "D-Bus Activation"
/// (org.freedesktop.Application), of which a program without files and actions needs one method.
class BusInstance : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    /// `name` is a name on the bus; the path of the object there follows from it.
    explicit BusInstance(QString name);

    /// Takes the name, or asks the process that holds it. Returns whether another process runs the
    /// program. Waits for the bus, and up to 150 ms for the other process. Without a bus the result
    /// is false, and the log gets a line.
    bool isLaterStart(SystemLog& log);

    /// Calls `action` whenever a later start asks for the panel.
    void onActivation(std::function<void()> action) { open = std::move(action); }

public slots:
    void Activate(const QVariantMap& platformData);

private:
    const QString name;
    const QString objectPath;
    std::function<void()> open;
};

} // namespace voltmere
