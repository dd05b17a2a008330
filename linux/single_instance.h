#pragma once

#include "ports/desktop.h"
#include "ports/log.h"

#include <QDBusAbstractAdaptor>
#include <QObject>
#include <QVariantMap>

#include <functional>

namespace voltmere {

/// One instance over the session bus: the first holds the name `applicationId`, and a later
/// start asks it to open its panel. The bus frees the name when its process ends, however
/// that happens. Source: Desktop Entry Specification, "D-Bus Activation"
/// (org.freedesktop.Application).
class BusInstance : public QObject, public SingleInstance {
public:
    /// `log` must outlive this object.
    explicit BusInstance(SystemLog& log);

    /// Takes the name, or asks the process that holds it. Waits a few milliseconds for the bus.
    Role start() override;

    void onActivation(std::function<void()> action) override;

private:
    friend class ApplicationAdaptor;

    SystemLog& log;
    std::function<void()> open;
};

/// The object on the bus that later starts call.
class ApplicationAdaptor : public QDBusAbstractAdaptor {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationAdaptor(BusInstance& instance);

public slots:
    void Activate(const QVariantMap& platformData);
    void Open(const QStringList& uris, const QVariantMap& platformData);
    void ActivateAction(const QString& action, const QVariantList& parameter,
                        const QVariantMap& platformData);

private:
    BusInstance& instance;
};

} // namespace voltmere
